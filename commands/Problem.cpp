// SPDX-License-Identifier: MIT
#include "commands/Problem.h"

#include <algorithm>
#include <future>
#include <tuple>

#include "model/CodePage.h"
#include "model/Integer.h"

namespace {

const SchemeTable& tableOf(std::uint32_t file) {
    return file == 0 ? navTable : webTable;
}

std::string ruleName(const SchemeTable& table, int number) {
    return std::string(table.name).append("-rule-").append(std::to_string(number));
}

// The line that begins with this number in the text of the rules.
std::string_view ruleInWords(std::string_view words, int number) {
    const auto first = words.find("\r\n" + std::to_string(number) + ". ") + 2;
    return words.substr(first, words.find("\r\n", first) - first);
}

// The lines of a finding in the report joined into one, without the arrow at the beginning.
std::string asOneLine(std::string finding) {
    if (finding.starts_with("=>")) finding.erase(0, finding.find_first_not_of(' ', 2));
    const auto end = finding.rfind("\r\nRULE ");
    finding.replace(end, 2, ". ");
    finding.erase(finding.size() - 4);  // the end of the line and the empty line
    return finding;
}

struct RuleOf {
    const Problem& problem;
    std::string operator()(const FileFinding& found) const { return std::string(found.flaw->id); }
    std::string operator()(const QueryFinding& found) const { return std::string(found.flaw->id); }
    template <class Finding>
    std::string operator()(const Finding& found) const {
        return ruleName(tableOf(problem.file), found.rule->number);
    }
};

Level levelOf(const QueryFlaw& flaw) {
    constexpr Level levels[] = {Level::Remark, Level::Warning, Level::Error};
    return levels[static_cast<std::size_t>(flaw.level)];
}

struct LevelOf {
    Level operator()(const FileFinding& found) const { return found.flaw->level; }
    Level operator()(const QueryFinding& found) const { return levelOf(*found.flaw); }
    template <class Finding>
    Level operator()(const Finding& found) const {
        return found.rule->isComment ? Level::Remark : Level::Error;
    }
};

struct FieldOf {
    const Problem& problem;
    std::string_view operator()(const FileFinding& found) const {
        if (found.field == FileFinding::wholeLine) return {};
        return tableOf(problem.file).fields[static_cast<std::size_t>(found.field)].name;
    }
    std::string_view operator()(const QueryFinding& found) const { return found.field; }
    template <class Finding>
    std::string_view operator()(const Finding& found) const {
        return found.rule->field;
    }
};

// In bytes of the files' code page, but for queries: a database has UTF-8.
struct WordsOf {
    std::string operator()(const FileFinding& found) const { return found.words(); }
    std::string operator()(const NavFinding& found) const {
        std::string lines;
        appendFinding(lines, *found.rule, found.record->ID, found.record->descriptionIs);
        return asOneLine(std::move(lines));
    }
    std::string operator()(const WebFinding& found) const {
        std::string lines;
        appendFinding(lines, found);
        return asOneLine(std::move(lines));
    }
    std::string operator()(const QueryFinding& found) const { return found.words; }
};

// Examines the bytes before loading changes them.
template <class Scheme>
ScannedFile scanAndLoad(const SchemeTable& table, InputFile& file, Scheme& scheme) {
    auto scan = scanFile(table, file.bytes());
    scheme.LoadBytes(std::move(file.content));
    return scan;
}

}  // namespace

std::string Problem::rule() const {
    return std::visit(RuleOf{*this}, finding);
}

Level Problem::level() const {
    return std::visit(LevelOf(), finding);
}

std::string_view Problem::field() const {
    return std::visit(FieldOf{*this}, finding);
}

std::string Problem::words() const {
    return isOfQuery() ? rawWords() : toUtf8(rawWords());
}

std::string Problem::shownWords() const {
    return isOfQuery() ? shownInOneLine(rawWords()) : shown(rawWords());
}

bool Problem::isOfQuery() const {
    return std::holds_alternative<QueryFinding>(finding);
}

std::string Problem::rawWords() const {
    return std::visit(WordsOf(), finding);
}

Problems::Problems(InputFile nodes, InputFile* paragraphs) {
    // The paragraphs depend on the nodes only later. Where no thread can be started, they wait.
    std::future<ScannedFile> paragraphScan;
    if (paragraphs)
        paragraphScan = std::async([this, paragraphs] { return scanAndLoad(webTable, *paragraphs, navs_.oWebs); });
    beginFile(nodes.name);
    auto scan = scanAndLoad(navTable, nodes, navs_);
    addAll(std::move(scan.findings));
    addAll(findInTree(navs_, scan.lines));
    auto batch = found_.size();
    findInNodes(navs_, [&](const NavFinding& finding) { add(finding, scan.lines); });
    sortIn(batch);
    if (!paragraphs) return;

    beginFile(paragraphs->name);
    scan = paragraphScan.get();
    addAll(std::move(scan.findings));
    addAll(findOrphans(navs_, scan.lines));
    batch = found_.size();
    findInParagraphs(navs_.oWebs, [&](const WebFinding& finding) { add(finding, scan.lines); });
    sortIn(batch);
}

void Problems::beginFile(const std::string& name) {
    startOfFile_ = found_.size();
    files_.push_back(name);
}

void Problems::addAll(FileFindings findings) {
    const auto batch = found_.size();
    const auto file = static_cast<std::uint32_t>(files_.size() - 1);
    for (auto& finding : findings) {
        const auto line = finding.line;
        found_.push_back({file, line, std::move(finding)});
    }
    sortIn(batch);
}

template <class Finding>
void Problems::add(const Finding& finding, const LargeArray<std::uint32_t>& lines) {
    found_.push_back({static_cast<std::uint32_t>(files_.size() - 1), lines[finding.place], finding});
}

// Each analysis goes through the records in the order of the file, so what it adds, from `batch` on, is sorted.
void Problems::sortIn(std::size_t batch) {
    const auto at = [this](std::size_t place) { return found_.begin() + static_cast<std::ptrdiff_t>(place); };
    std::ranges::inplace_merge(at(startOfFile_), at(batch), found_.end(), {}, &Problem::line);
}

std::vector<ProblemKind> allProblemKinds() {
    std::vector<ProblemKind> kinds;
    for (const auto& flaw : fileFlaws) {
        const FileFinding example{.flaw = &flaw, .line = 1, .field = FileFinding::wholeLine, .detail = "..."};
        kinds.push_back({std::string(flaw.id), flaw.level, toUtf8(example.words())});
    }
    constexpr int navRuleCount = 5;
    constexpr int webRuleCount = 4;  // the fifth is reported as the flaw "orphan"
    for (const auto& [table, words, count] :
         {std::tuple(&navTable, navRulesInWords, navRuleCount), std::tuple(&webTable, webRulesInWords, webRuleCount)})
        for (int number = 1; number <= count; ++number)
            kinds.push_back({ruleName(*table, number), Level::Error, toUtf8(ruleInWords(words, number))});
    return kinds;
}

std::vector<ProblemKind> allQueryProblemKinds() {
    std::vector<ProblemKind> kinds;
    for (const auto& flaw : queryFlaws)
        kinds.push_back({std::string(flaw.id), levelOf(flaw), std::string(flaw.words)});
    return kinds;
}
