// SPDX-License-Identifier: MIT
#include "commands/Input.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <system_error>

namespace {

FileBytes readStream(std::istream& in) {
    std::size_t capacity = std::size_t{1} << 16;
    FileBytes content{makeLargeBytes(capacity), 0};
    for (;;) {
        in.read(content.bytes.get() + content.size, static_cast<std::streamsize>(capacity - 1 - content.size));
        content.size += static_cast<std::size_t>(in.gcount());
        if (in.eof()) return content;
        if (!in) throw Unusable("standard input: cannot be read");
        auto larger = makeLargeBytes(capacity * 2);
        std::memcpy(larger.get(), content.bytes.get(), content.size);
        content.bytes = std::move(larger);
        capacity *= 2;
    }
}

std::string whyUnreadable(const std::string& name) {
    std::error_code error;
    const auto status = std::filesystem::status(name, error);
    if (status.type() == std::filesystem::file_type::not_found) return "there is no such file";
    if (status.type() == std::filesystem::file_type::directory) return "this is a folder";
    if (!error && status.type() != std::filesystem::file_type::regular)
        return "this is no regular file; \"-\" reads the standard input";
    errno = 0;
    const std::ifstream in(name, std::ios::binary);
    return errno == EACCES ? "you may not read it" : "it cannot be read";
}

}  // namespace

InputFile readInput(const std::string& name, const Console& console) {
    InputFile file;
    if (name == "-") {
        file = {"<stdin>", readStream(console.in)};
    } else {
        file = {shownName(name), readFile(name)};
        if (!file.content.bytes) throw Unusable(file.name + ": " + whyUnreadable(name));
    }
    return file;
}

InputFile readInput(const std::string& name, const SchemeTable& table, const Console& console) {
    auto file = readInput(name, console);
    const auto* const actual = tableOf(file);
    if (actual && actual != &table)
        throw Unusable(file.name + ":1: this is a file of table " + std::string(actual->name) + ", not of " +
                       std::string(table.name));
    return file;
}

const SchemeTable* tableOf(const InputFile& file) {
    const auto firstLine = file.bytes().substr(0, file.bytes().find_first_of("\r\n"));
    for (const auto* table : {&navTable, &webTable})
        if (firstLine == table->header()) return table;
    return nullptr;
}

void refuseTwoStandardInputs(const std::string& nodes, const std::string& paragraphs) {
    if (nodes == "-" && paragraphs == "-") throw Unusable("only one of the files can be the standard input");
}

void loadSchemes(clsNavSchemes& navs, const std::string& nodes, const std::string& paragraphs,
                 const Console& console) {
    refuseTwoStandardInputs(nodes, paragraphs);
    navs.LoadBytes(readInput(nodes, navTable, console).content);
    if (!paragraphs.empty()) navs.oWebs.LoadBytes(readInput(paragraphs, webTable, console).content);
}
