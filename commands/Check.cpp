// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"
#include "commands/ProblemFormats.h"

namespace {

struct Format {
    std::string_view name;
    void (*print)(const Problems&, const Console&);
};
constexpr Format formats[] = {{"text", printAsText}, {"json", printAsJson}, {"sarif", printAsSarif}};

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    std::string format = "text";
    bool isStrict = false;
};

ExitStatus run(const Arguments& given, const Console& console) {
    refuseTwoStandardInputs(given.nodes, given.paragraphs);
    auto nodes = readInput(given.nodes, navTable, console);
    InputFile paragraphs;
    if (!given.paragraphs.empty()) paragraphs = readInput(given.paragraphs, webTable, console);
    const Problems problems(std::move(nodes), given.paragraphs.empty() ? nullptr : &paragraphs);
    std::ranges::find(formats, given.format, &Format::name)->print(problems, console);
    const bool isAnyFound = std::ranges::any_of(
        problems.found(), [&](const Problem& problem) { return given.isStrict || problem.level() != Level::Remark; });
    return isAnyFound ? found : nothingFound;
}

}  // namespace

RunCommand declareCheck(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs", Need::Optional);
    std::vector<std::string> names;
    for (const auto& format : formats) names.emplace_back(format.name);
    line.choice("--format", given->format, names, "How findings are printed: text, json or sarif");
    line.flag("--strict", given->isStrict, "Count remarks as findings");
    return [given](const Console& console) { return run(*given, console); };
}
