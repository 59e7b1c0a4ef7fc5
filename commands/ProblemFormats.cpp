// SPDX-License-Identifier: MIT
#include "commands/ProblemFormats.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

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

// ASCII alone, which is the same in every encoding.
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

Json sarifRules(const std::vector<ProblemKind>& kinds) {
    auto rules = Json::array();
    for (const auto& kind : kinds)
        rules.push_back({{"id", kind.rule},
                         {"shortDescription", {{"text", kind.words}}},
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
            {"message", {{"text", problem.words()}}},
            {"locations", Json::array({location})}};
}

// A list may be longer than would do for one value in memory.
template <class Print>
void printList(const ProblemList& problems, const Console& console, Print print) {
    const char* before = "\n";
    for (const auto& problem : problems.found) {
        console.print(before);
        console.print(dumped(print(problem, problems.files[problem.file])));
        before = ",\n";
    }
}

// One line each, as compilers write them: "XST1.txt:12: error: queryIs: words [rule]".
void printAsText(const ProblemList& problems, const Console& console) {
    std::string line;
    for (const auto& problem : problems.found) {
        const auto& level = wordsOf(problem.level());
        line.assign(problems.files[problem.file]).append(":").append(std::to_string(problem.line)).append(": ");
        if (console.isColoured) line += level.colour;
        line.append(level.text).append(":");
        if (console.isColoured) line += "\x1B[0m";
        if (!problem.field().empty()) line.append(" ").append(problem.field()).append(":");
        line.append(" ").append(problem.shownWords()).append(" [").append(problem.rule()).append("]\n");
        console.print(line);
    }
}

// One object with the list "findings".
void printAsJson(const ProblemList& problems, const Console& console) {
    console.print(R"({"findings":[)");
    printList(problems, console, [](const Problem& problem, const std::string& file) {
        return Json{{"file", file},
                    {"line", problem.line},
                    {"field", problem.field().empty() ? Json() : Json(problem.field())},
                    {"level", wordsOf(problem.level()).text},
                    {"rule", problem.rule()},
                    {"message", problem.words()}};
    });
    console.print("\n]}\n");
}

// SARIF 2.1.0, which code-review services read.
void printAsSarif(const ProblemList& problems, const Console& console) {
    const Json driver = {
        {"name", "pelmo-scheme"}, {"version", WIZARD_VERSION}, {"rules", sarifRules(problems.kinds())}};
    console.print(R"({"$schema":"https://json.schemastore.org/sarif-2.1.0.json","version":"2.1.0","runs":[{"tool":)");
    console.print(dumped({{"driver", driver}}));
    console.print(R"(,"results":[)");
    printList(problems, console, sarifResult);
    console.print("\n]}]}\n");
}

struct Format {
    std::string_view name;
    void (*print)(const ProblemList&, const Console&);
};
constexpr Format formats[] = {{"text", printAsText}, {"json", printAsJson}, {"sarif", printAsSarif}};

}  // namespace

void declareProblemOptions(CLI::App& command, ProblemOptions& options) {
    std::vector<std::string> names;
    for (const auto& format : formats) names.emplace_back(format.name);
    command.add_option("--format", options.format, "How findings are printed: text, json or sarif")
        ->type_name("NAME")
        ->check(CLI::IsMember(names));
    command.add_flag("--strict", options.isStrict, "Count remarks as findings");
}

ExitStatus printProblems(const ProblemList& problems, const ProblemOptions& options, const Console& console) {
    std::ranges::find(formats, options.format, &Format::name)->print(problems, console);
    const bool isAnyFound = std::ranges::any_of(
        problems.found, [&](const Problem& problem) { return options.isStrict || problem.level() != Level::Remark; });
    return isAnyFound ? found : nothingFound;
}
