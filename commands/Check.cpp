// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "analysis/NavRules.h"
#include "analysis/WebRules.h"
#include "commands/Command.h"
#include "commands/Input.h"
#include "commands/ProblemFormats.h"
#include "model/Integer.h"

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

std::string ruleName(const SchemeTable& table, int number) {
    return std::string(table.name).append("-rule-").append(std::to_string(number));
}

// The line of the rules in words that begins with the number.
std::string_view ruleInWords(std::string_view words, int number) {
    const auto first = words.find("\r\n" + std::to_string(number) + ". ") + 2;
    return words.substr(first, words.find("\r\n", first) - first);
}

// What was found, as the report words it, without the arrow before it; and the rule.
std::string wordsOf(std::string finding, std::string_view name, std::string_view rule) {
    if (finding.starts_with("=>")) finding.erase(0, finding.find_first_not_of(' ', 2));
    return finding.append(name).append(". ").append(rule);
}

// Collects what both analyses find in the files.
class Collector {
  public:
    Problems check(InputFile nodes, InputFile* paragraphs) {
        const auto nodeLines = scan(navTable, nodes);
        navs_.LoadBytes(std::move(nodes.content));
        addAll(findInTree(navs_, nodeLines), navTable);
        findInNodes(navs_, [&](const NavFinding& finding) {
            add(finding, navTable, nodeLines,
                wordsOf(std::string(finding.rule.finding) + keyText(finding.record.ID) + "] ",
                        finding.record.descriptionIs, finding.rule.text));
        });
        if (paragraphs) checkParagraphs(*paragraphs);
        std::ranges::stable_sort(problems_.found, {},
                                 [](const Problem& problem) { return std::pair(problem.file, problem.line); });
        return std::move(problems_);
    }

  private:
    void checkParagraphs(InputFile& paragraphs) {
        const auto lines = scan(webTable, paragraphs);
        navs_.oWebs.LoadBytes(std::move(paragraphs.content));
        addAll(findOrphans(navs_, lines), webTable);
        findInParagraphs(navs_.oWebs, [&](const WebFinding& finding) {
            add(finding, webTable, lines,
                wordsOf(std::string(finding.rule.finding) + std::string(finding.record.typeIs.view()) +
                            ")-Type: [ID=" + keyText(finding.record.ID) + "] ",
                        finding.record.titleIs, finding.rule.text));
        });
    }

    std::vector<std::uint32_t> scan(const SchemeTable& table, const InputFile& file) {
        problems_.files.push_back(file.name);
        auto scanned = scanFile(table, file.bytes());
        addAll(scanned.findings, table);
        return std::move(scanned.lines);
    }

    void addAll(const std::vector<FileFinding>& findings, const SchemeTable& table) {
        for (const auto& finding : findings)
            problems_.found.push_back({.file = lastFile(),
                                       .line = finding.line,
                                       .level = finding.flaw->level,
                                       .rule = std::string(finding.flaw->id),
                                       .field = finding.field == FileFinding::wholeLine
                                                    ? std::string_view()
                                                    : table.fields[static_cast<std::size_t>(finding.field)].name,
                                       .words = finding.words()});
    }

    template <class Finding>
    void add(const Finding& finding, const SchemeTable& table, const std::vector<std::uint32_t>& lines,
             std::string words) {
        problems_.found.push_back({.file = lastFile(),
                                   .line = lines[finding.place],
                                   .level = finding.rule.isComment ? Level::Remark : Level::Error,
                                   .rule = ruleName(table, finding.rule.number),
                                   .field = finding.rule.field,
                                   .words = std::move(words)});
    }

    [[nodiscard]] std::uint32_t lastFile() const { return static_cast<std::uint32_t>(problems_.files.size() - 1); }

    clsNavSchemes navs_;
    Problems problems_;
};

ExitStatus run(const Arguments& given, const Console& console) {
    refuseTwoStandardInputs(given.nodes, given.paragraphs);
    auto nodes = readInput(given.nodes, navTable, console);
    InputFile paragraphs;
    if (!given.paragraphs.empty()) paragraphs = readInput(given.paragraphs, webTable, console);
    const auto problems = Collector().check(std::move(nodes), given.paragraphs.empty() ? nullptr : &paragraphs);
    std::ranges::find(formats, given.format, &Format::name)->print(problems, console);
    const bool isAnyFound = std::ranges::any_of(
        problems.found, [&](const Problem& problem) { return given.isStrict || problem.level != Level::Remark; });
    return isAnyFound ? found : nothingFound;
}

}  // namespace

std::vector<ProblemKind> allProblemKinds() {
    std::vector<ProblemKind> kinds;
    for (const auto& flaw : fileFlaws) {
        const FileFinding example{.flaw = &flaw, .line = 1, .field = FileFinding::wholeLine, .detail = "..."};
        kinds.push_back({std::string(flaw.id), flaw.level, example.words()});
    }
    for (const auto& [table, words, count] :
         {std::tuple(&navTable, navRulesInWords, 5), {&webTable, webRulesInWords, 4}})
        for (int number = 1; number <= count; ++number)
            kinds.push_back({ruleName(*table, number), Level::Error, std::string(ruleInWords(words, number))});
    return kinds;
}

RunCommand declareCheck(CLI::App& command) {
    const auto given = std::make_shared<Arguments>();
    command.add_option("XST1", given->nodes, "The file of the nodes")->required();
    command.add_option("XST2", given->paragraphs, "The file of the paragraphs");
    std::vector<std::string> names;
    for (const auto& format : formats) names.emplace_back(format.name);
    command.add_option("--format", given->format, "How findings are printed: text, json or sarif")
        ->type_name("NAME")
        ->check(CLI::IsMember(names));
    command.add_flag("--strict", given->isStrict, "Count remarks as findings");
    return [given](const Console& console) { return run(*given, console); };
}
