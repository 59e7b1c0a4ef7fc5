// SPDX-License-Identifier: MIT
#include <nlohmann/json.hpp>
#include <sstream>

#include "Fuzzing.h"
#include "commands/Program.h"

// Runs every command of pelmo-scheme on any two files: it ends with one of its three statuses, prints one line when
// it refuses, prints valid text in the requested encoding, and writes both files or none.

namespace {

struct Ran {
    int status;
    std::string out;
    std::string err;
};

// Encodes the text as JSON, which replaces what is not valid UTF-8.
bool isUtf8(const std::string& text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace).find("\uFFFD") ==
           std::string::npos;
}

// Whether a text has no control characters except line ends: a terminal might obey them.
bool isFreeOfControls(const std::string& text) {
    for (const char byte : text)
        if ((byte >= 0 && byte < ' ' && byte != '\n') || byte == '\x7F') return false;
    return true;
}

Ran pelmo(const std::vector<std::string>& arguments) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const int status = runProgram(arguments, {.in = in, .out = out, .err = err});
    Ran ran{status, out.str(), err.str()};
    require(status >= 0 && status <= 2, "the status is 0, 1 or 2");
    require((status == 2) == !ran.err.empty(), "there is a message where the input is refused");
    require(status != 2 || ran.out.empty(), "nothing is printed where the input is refused");
    require(ran.err.empty() || (ran.err.find('\n') == ran.err.size() - 1 && isUtf8(ran.err)), "it is one line");
    return ran;
}

void requireText(const Ran& ran) {
    require(isUtf8(ran.out), "the output is UTF-8");
    require(isFreeOfControls(ran.out), "the output has no control characters");
}

void requireJson(const Ran& ran, const char* list) {
    if (ran.status == 2) return;
    requireText(ran);
    const auto parsed = nlohmann::json::parse(ran.out, nullptr, false);
    require(!parsed.is_discarded() && parsed.contains(list), "the output is JSON");
}

void renumber(const std::string& nodes, const std::string& paragraphs) {
    static const OutputFolder folder;
    for (const char* name : {"XST1.txt", "XST2.txt", "map.csv"}) std::filesystem::remove(folder / name);
    const auto ran =
        pelmo({"renumber", nodes, paragraphs, "-o", (folder / "").string(), "--map", (folder / "map.csv").string()});
    for (const char* name : {"XST1.txt", "XST2.txt", "map.csv"})
        require(std::filesystem::exists(folder / name) == (ran.status == 0), "all files are written, or none");
}

}  // namespace

// The first byte says where the first file ends and the second one begins.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    const auto split = bytes.size() * data[0] / 255;
    const MemoryFile nodes(std::string_view(bytes).substr(0, split));
    const MemoryFile paragraphs(std::string_view(bytes).substr(split));
    const auto a = nodes.path().string();
    const auto b = paragraphs.path().string();

    const auto text = pelmo({"check", a, b});
    requireText(text);
    const auto strict = pelmo({"check", "--strict", a, b});
    require(strict.out == text.out && strict.status >= text.status, "strict counts more, and prints the same");
    requireJson(pelmo({"check", "--format", "json", a, b}), "findings");
    requireJson(pelmo({"check", "--format", "sarif", a, b}), "runs");
    require(isFreeOfControls(pelmo({"check", "--encoding", "windows-1252", a}).out), "in any encoding");
    requireText(pelmo({"todo", a, b}));
    requireText(pelmo({"tree", a, b}));
    requireText(pelmo({"tree", "--no-ids", b}));
    requireText(pelmo({"orphans", a, b}));
    for (const auto& [file, table] : {std::pair(a, "XST1"), std::pair(b, "XST2")}) {
        const auto formatted = pelmo({"fmt", "--table", table, file});
        const auto checked = pelmo({"fmt", "--check", "--table", table, file});
        require((formatted.status == 2) == (checked.status == 2), "it is checked where it could be printed");
    }
    renumber(a, b);
    return 0;
}
