// SPDX-License-Identifier: MIT
#include "preview/Page.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "model/CodePage.h"
#include "model/ParagraphType.h"
#include "preview/Paragraphs.h"

namespace {

// How a type is shown: a row for each, in the order of `paragraphTypes`.
struct Look {
    char letter;
    void (*add)(Html&, const PageParagraph&, Pictures&);
};
constexpr Look looks[] = {
    {'C', addChart},  {'H', addHeader}, {'E', addAction},     {'M', addChapters},
    {'I', addHeader}, {'S', addTable},  {'T', addThumbnails},
};
static_assert(std::ranges::equal(looks, paragraphTypes, {}, &Look::letter, &ParagraphType::letter));

const Look* lookOf(const clsWebScheme& record) {
    const auto* const found = std::ranges::find(looks, record.typeIs.letter(), &Look::letter);
    return found == std::end(looks) ? nullptr : found;
}

QueryKind kindOf(const clsWebScheme& record) {
    return queryKindOf(record.typeIs.letter());
}

std::string milliseconds(std::chrono::microseconds time) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f ms", static_cast<double>(time.count()) / 1000);
    return text.data();
}

std::string joined(const std::vector<std::string>& words) {
    std::string list;
    for (const auto& word : words) list.append(list.empty() ? "" : " ").append(word);
    return list;
}

void addFact(Html& html, std::string_view name, std::string_view value) {
    if (!value.empty())
        html << "<div><dt>" << Escaped(name) << "</dt><dd>" << Escaped(shownText(value)) << "</dd></div>";
}

std::string rowsOf(const QueryResult& result) {
    if (result.total == result.rows.size()) return grouped(result.total);
    return grouped(result.total) + ", of which " + grouped(result.rows.size()) + " are shown";
}

// What the designer wants to know of a query, behind a line that opens.
void addFacts(Html& html, const PageParagraph& paragraph, bool isRun) {
    const auto& record = *paragraph.record;
    html << "<details><summary>" << Escaped(shownText(toUtf8(record.queryIs)));
    if (isRun) html << " <span>" << Escaped(milliseconds(paragraph.result.time)) << "</span>";
    html << "</summary><dl>";
    addFact(html, "Paragraph", std::to_string(record.ID) + ", sequence no. " + std::to_string(record.seqNo));
    addFact(html, "Type", toUtf8(record.typeIs));
    if (paragraph.call) {
        addFact(html, "Query", paragraph.call->name);
        addFact(html, "Constants", joined(paragraph.call->constants));
    }
    addFact(html, "Parameter", record.parmIs.empty() ? "none" : toUtf8(record.parmIs));
    if (paragraph.call && paragraph.call->kind != ParameterKind::None)
        addFact(html, "Its value", paragraph.call->parameter);
    addFact(html, "Columns", toUtf8(record.colsAre));
    if (isRun && paragraph.result.error.empty() && kindOf(record) == QueryKind::Rows)
        addFact(html, "Rows", rowsOf(paragraph.result));
    if (isRun) addFact(html, "Time", milliseconds(paragraph.result.time));
    html << "</dl></details>";
}

void addError(Html& html, std::string_view words) {
    html << "<p class=error>" << Escaped(shownText(words)) << "</p>";
}

void addFindings(Html& html, const std::vector<std::string>& findings) {
    if (findings.empty()) return;
    html << "<ul class=findings>";
    for (const auto& words : findings) html << "<li>" << Escaped(words) << "</li>";
    html << "</ul>";
}

// What stands in the place of a result that there is not. @return whether there is none
bool addFailure(Html& html, const PageParagraph& paragraph) {
    const auto& record = *paragraph.record;
    if (paragraph.isRefused)
        addNote(html, "Not run: this database cannot undo what it does. With --run-actions it is run.");
    else if (record.queryIs.empty())
        addError(html, "This paragraph has no query.");
    else if (!paragraph.call)
        addError(html, "The parameter kind \"" + toUtf8(record.parmIs) + "\" is none of those that there are.");
    else if (!paragraph.result.error.empty())
        addError(html, paragraph.result.error);
    else if (!lookOf(record))
        addError(html, "There is no type \"" + toUtf8(record.typeIs) + "\" of paragraphs.");
    else if (kindOf(record) == QueryKind::Rows && paragraph.result.fields.empty())
        addError(html, "The query returned no table.");
    else
        return false;
    return true;
}

void addParagraph(Html& html, const PageParagraph& paragraph, const Page& page, Pictures& pictures) {
    const auto& record = *paragraph.record;
    html << "<section id=\"paragraph-" << Escaped(std::to_string(record.ID)) << "\"><h2>"
         << Escaped(shownText(titleOf(record, page.clicked))) << "</h2>";
    if (!addFailure(html, paragraph)) {
        lookOf(record)->add(html, paragraph, pictures);
        if (kindOf(record) == QueryKind::Action)
            addNote(html, page.isUndone ? "When the page is complete, it is undone." : "It is not undone.");
    }
    addFindings(html, paragraph.findings);
    addFacts(html, paragraph, paragraph.call && !paragraph.isRefused);
    html << "</section>";
}

PageParagraph callParagraph(const clsWebScheme& record, const Page& page, Database& database,
                            const PageSettings& settings) {
    PageParagraph paragraph{.record = &record};
    paragraph.call = callOf(record.queryIs, record.parmIs, page.clicked, settings.today);
    paragraph.isRefused = kindOf(record) == QueryKind::Action && !page.isUndone && !settings.runsAllActions;
    if (!paragraph.call || paragraph.isRefused) return paragraph;
    paragraph.result = database.run(*paragraph.call, kindOf(record), settings.limits);
    return paragraph;
}

std::vector<const clsWebScheme*> paragraphsOf(const clsNavSchemes& navs, const clsNavScheme& node) {
    std::vector<const clsWebScheme*> records;
    for (const auto* record : navs.oWebs.NewEnum())
        if (record->XST1 == node.ID) records.push_back(record);
    std::ranges::stable_sort(records, {}, &clsWebScheme::seqNo);
    return records;
}

std::string whyEmpty(const Page& page) {
    if (!page.node) return "The scheme has no node for this row, and so it has no page.";
    return "Node " + std::to_string(page.node->ID) + " has no paragraph: its page is empty.";
}

}  // namespace

Page makePage(const clsNavSchemes& navs, const TreeNode& node, Database& database, const PageSettings& settings) {
    Page page{.clicked = node.clicked, .node = node.node, .isUndone = database.canUndo()};
    const auto records = node.node ? paragraphsOf(navs, *node.node) : std::vector<const clsWebScheme*>();
    if (records.empty()) return page;
    try {
        const DatabasePage transaction(database);
        for (const auto* record : records)
            page.paragraphs.push_back(callParagraph(*record, page, database, settings));
    } catch (const DatabaseError& error) {
        page.error = error.what();
    }
    return page;
}

Html shownPage(const Page& page, Pictures& pictures) {
    Html html;
    html << "<h1>" << Escaped(shownText(page.clicked.text)) << "</h1>";
    addFindings(html, page.findings);
    if (!page.error.empty()) addError(html, page.error);
    for (const auto& paragraph : page.paragraphs) addParagraph(html, paragraph, page, pictures);
    if (page.paragraphs.empty() && page.error.empty()) html << "<p class=empty>" << Escaped(whyEmpty(page)) << "</p>";
    return html;
}
