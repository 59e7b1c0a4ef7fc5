// SPDX-License-Identifier: MIT
#include <algorithm>

#include "preview/Paragraphs.h"

// Type M: the rows of an outer table, each with its chapter, the rows of an inner table. A query returns both in one
// row, the outer fields first.

namespace {

bool isSame(const Cell& one, const Cell& other) {
    return one.kind == other.kind && one.text == other.text;
}

// How many fields are the same in both rows, from the first one on.
std::size_t sameFields(const std::vector<Cell>& one, const std::vector<Cell>& other) {
    std::size_t count = 0;
    while (count < one.size() && isSame(one[count], other[count])) ++count;
    return count;
}

// Where the empty fields at the end of a row begin.
std::size_t endOfRow(const std::vector<Cell>& row) {
    auto end = row.size();
    while (end > 0 && row[end - 1].kind == Cell::Kind::Null) --end;
    return end;
}

void addChapterHead(Html& html, const std::vector<Cell>& row, std::size_t outer,
                    const std::vector<ColumnLook>& looks) {
    html << "<tr><th scope=rowgroup colspan=" << Escaped(std::to_string(looks.size() - outer)) << ">";
    for (std::size_t field = 0; field < outer; ++field) {
        if (field > 0) html << ", ";
        html << Escaped(shownCell(row[field], looks[field]));
    }
    html << "</th></tr>\n";
}

void addFieldNames(Html& html, const QueryResult& result, std::size_t outer, const std::vector<ColumnLook>& looks) {
    html << "<thead><tr><th scope=col colspan=" << Escaped(std::to_string(looks.size() - outer)) << ">";
    for (std::size_t field = 0; field < outer; ++field) {
        if (field > 0) html << ", ";
        html << Escaped(shownText(result.fields[field]));
    }
    html << "</th></tr><tr>";
    for (auto field = outer; field < looks.size(); ++field) addHeading(html, result.fields[field], looks[field]);
    html << "</tr></thead>";
}

}  // namespace

std::size_t outerFields(const QueryResult& result) {
    const auto count = result.fields.size();
    auto sameInChapters = count;
    auto emptyAtEnds = count;
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        const auto& cells = result.rows[row];
        emptyAtEnds = std::min(emptyAtEnds, std::max<std::size_t>(endOfRow(cells), 1));
        if (row == 0 || !isSame(cells[0], result.rows[row - 1][0])) continue;
        sameInChapters = std::min(sameInChapters, sameFields(cells, result.rows[row - 1]));
    }
    const auto outer = sameInChapters < count ? sameInChapters : emptyAtEnds;
    return outer < count ? outer : 0;
}

void addChapters(Html& html, const PageParagraph& paragraph, Pictures& pictures) {
    const auto& result = paragraph.result;
    const auto outer = outerFields(result);
    if (outer == 0) {
        addTable(html, paragraph, pictures);
        if (!result.rows.empty())
            addNote(html,
                    "No ID is repeated, so nothing tells the fields of the outer table from those of its "
                    "chapters: all are shown side by side.");
        return;
    }
    const auto looks = looksOf(result);
    beginTable(html, "chapters");
    addFieldNames(html, result, outer, looks);
    const std::vector<Cell>* before = nullptr;
    for (const auto& row : result.rows) {
        if (!before || sameFields(*before, row) < outer) {
            html << (before ? Html("</tbody><tbody>") : Html("<tbody>"));
            addChapterHead(html, row, outer, looks);
        }
        before = &row;
        if (endOfRow(row) <= outer) continue;  // a chapter without lines
        html << "<tr>";
        for (auto field = outer; field < row.size(); ++field) addCell(html, row[field], looks[field]);
        html << "</tr>\n";
    }
    html << "</tbody>";
    endTable(html);
    addCount(html, result);
}
