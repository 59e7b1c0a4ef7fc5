// SPDX-License-Identifier: MIT
#include "commands/Problem.h"

#include <algorithm>
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

// The line of the rules in words that begins with the number.
std::string_view ruleInWords(std::string_view words, int number) {
    const auto first = words.find("\r\n" + std::to_string(number) + ". ") + 2;
    return words.substr(first, words.find("\r\n", first) - first);
}

// The lines of the report, without the arrow at the beginning, as one.
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

// In bytes of the files' code page.
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
    std::string operator()(const QueryFinding&) const { return {}; }  // its words are none of the code page
};

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
    const auto* const query = std::get_if<QueryFinding>(&finding);
    return query ? query->words : toUtf8(bytesOfWords());
}

std::string Problem::shownWords() const {
    const auto* const query = std::get_if<QueryFinding>(&finding);
    return query ? shownName(query->words) : shown(bytesOfWords());
}

std::string Problem::bytesOfWords() const {
    return std::visit(WordsOf(), finding);
}

Problems::Problems(InputFile nodes, InputFile* paragraphs) {
    const auto nodeLines = scan(navTable, nodes);
    navs_.LoadBytes(std::move(nodes.content));
    addAll(findInTree(navs_, nodeLines));
    auto batch = found_.size();
    findInNodes(navs_, [&](const NavFinding& finding) { add(finding, nodeLines); });
    sortIn(batch);
    if (!paragraphs) return;

    const auto lines = scan(webTable, *paragraphs);
    navs_.oWebs.LoadBytes(std::move(paragraphs->content));
    addAll(findOrphans(navs_, lines));
    batch = found_.size();
    findInParagraphs(navs_.oWebs, [&](const WebFinding& finding) { add(finding, lines); });
    sortIn(batch);
}

// The bytes are looked at as they are: loading changes them.
std::vector<std::uint32_t> Problems::scan(const SchemeTable& table, InputFile& file) {
    startOfFile_ = found_.size();
    files_.push_back(std::move(file.name));
    auto scanned = scanFile(table, file.bytes());
    addAll(std::move(scanned.findings));
    return std::move(scanned.lines);
}

void Problems::addAll(std::vector<FileFinding> findings) {
    const auto batch = found_.size();
    const auto file = static_cast<std::uint32_t>(files_.size() - 1);
    for (auto& finding : findings) {
        const auto line = finding.line;
        found_.push_back({file, line, std::move(finding)});
    }
    sortIn(batch);
}

template <class Finding>
void Problems::add(const Finding& finding, const std::vector<std::uint32_t>& lines) {
    found_.push_back({static_cast<std::uint32_t>(files_.size() - 1), lines[finding.place], finding});
}

// Each analysis goes through the records in the order of the file, so that what it adds, from `batch` on, is sorted.
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
    constexpr int webRuleCount = 4;  // the fifth is the kind of flaw "orphan"
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
