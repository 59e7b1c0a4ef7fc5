// SPDX-License-Identifier: MIT
#include "commands/ProblemFormats.h"

#include <nlohmann/json.hpp>

#include "model/CodePage.h"

namespace {

using Json = nlohmann::ordered_json;

struct LevelWords {
    std::string_view text;
    std::string_view sarif;
    std::string_view colour;
};
constexpr LevelWords levels[] = {
    {.text = "remark", .sarif = "note", .colour = "\x1B[36m"},
    {.text = "warning", .sarif = "warning", .colour = "\x1B[35m"},
    {.text = "error", .sarif = "error", .colour = "\x1B[31m"},
};
const LevelWords& wordsOf(Level level) {
    return levels[static_cast<std::size_t>(level)];
}

// Only ASCII, which is the same in every encoding.
std::string dumped(const Json& value) {
    return value.dump(-1, ' ', true);
}

// The name of a file as the path of a URI.
std::string uriOf(std::string_view name) {
    constexpr std::string_view kept = "-._~/";
    std::string uri = name.starts_with('/') ? "file://" : "";
    for (const char byte : name) {
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z') || kept.find(byte) != std::string_view::npos;
        constexpr std::string_view digits = "0123456789ABCDEF";
        const auto code = static_cast<unsigned char>(byte);
        if (isPlain)
            uri += byte;
        else
            uri.append("%").append(1, digits[code >> 4U]).append(1, digits[code & 0xFU]);
    }
    return uri;
}

Json sarifRules() {
    auto rules = Json::array();
    for (const auto& kind : allProblemKinds())
        rules.push_back({{"id", kind.rule},
                         {"shortDescription", {{"text", toUtf8(kind.words)}}},
                         {"defaultConfiguration", {{"level", wordsOf(kind.level).sarif}}}});
    return rules;
}

Json sarifResult(const Problem& problem, const std::string& file) {
    Json location = {{"physicalLocation",
                      {{"artifactLocation", {{"uri", uriOf(file)}}}, {"region", {{"startLine", problem.line}}}}}};
    if (!problem.field().empty())
        location["logicalLocations"] = Json::array({{{"name", problem.field()}, {"kind", "member"}}});
    return {{"ruleId", problem.rule()},
            {"level", wordsOf(problem.level()).sarif},
            {"message", {{"text", toUtf8(problem.words())}}},
            {"locations", Json::array({location})}};
}

// Prints one problem at a time: a list may be too long to become one JSON value in memory.
template <class Print>
void printList(const Problems& problems, const Console& console, Print print) {
    const char* before = "\n";
    for (const auto& problem : problems.found()) {
        console.print(before);
        console.print(dumped(print(problem, problems.files()[problem.file])));
        before = ",\n";
    }
}

}  // namespace

void printAsText(const Problems& problems, const Console& console) {
    std::string line;
    for (const auto& problem : problems.found()) {
        const auto& level = wordsOf(problem.level());
        line.assign(problems.files()[problem.file]).append(":").append(std::to_string(problem.line)).append(": ");
        if (console.isColoured) line += level.colour;
        line.append(level.text).append(":");
        if (console.isColoured) line += "\x1B[0m";
        if (!problem.field().empty()) line.append(" ").append(problem.field()).append(":");
        line.append(" ").append(shown(problem.words())).append(" [").append(problem.rule()).append("]\n");
        console.print(line);
    }
}

void printAsJson(const Problems& problems, const Console& console) {
    console.print(R"({"findings":[)");
    printList(problems, console, [](const Problem& problem, const std::string& file) {
        return Json{{"file", file},
                    {"line", problem.line},
                    {"field", problem.field().empty() ? Json() : Json(problem.field())},
                    {"level", wordsOf(problem.level()).text},
                    {"rule", problem.rule()},
                    {"message", toUtf8(problem.words())}};
    });
    console.print("\n]}\n");
}

void printAsSarif(const Problems& problems, const Console& console) {
    const Json driver = {{"name", "pelmo-scheme"}, {"version", WIZARD_VERSION}, {"rules", sarifRules()}};
    console.print(R"({"$schema":"https://json.schemastore.org/sarif-2.1.0.json","version":"2.1.0","runs":[{"tool":)");
    console.print(dumped({{"driver", driver}}));
    console.print(R"(,"results":[)");
    printList(problems, console, sarifResult);
    console.print("\n]}]}\n");
}
