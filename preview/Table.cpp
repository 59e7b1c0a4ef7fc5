// SPDX-License-Identifier: MIT
#include <algorithm>

#include "model/CodePage.h"
#include "preview/ColumnsField.h"
#include "preview/Decimal.h"
#include "preview/Paragraphs.h"

// Type S: all fields as a table, with the sums of the columns that the paragraph names.

namespace {

struct ColumnSum {
    std::size_t column;
    Sum sum{};
    std::uint64_t others = 0;  // values that are no numbers
};

std::vector<ColumnSum> sumsOf(const QueryResult& result, const ColumnList& list) {
    std::vector<ColumnSum> sums;
    for (const auto column : summedColumns(list, result.fields.size())) {
        auto& sum = sums.emplace_back(ColumnSum{column});
        for (const auto& row : result.rows) {
            const auto& cell = row[column];
            const bool canAdd = cell.kind == Cell::Kind::Number || cell.kind == Cell::Kind::Text;
            if (cell.kind != Cell::Kind::Null && !(canAdd && sum.sum.add(cell.text))) ++sum.others;
        }
    }
    return sums;
}

void addSums(Html& html, const std::vector<ColumnSum>& sums, const std::vector<ColumnLook>& looks) {
    html << "<tfoot><tr>";
    for (std::size_t column = 0; column < looks.size(); ++column) {
        const auto found = std::ranges::find(sums, column, &ColumnSum::column);
        if (found != sums.end()) {
            const Cell sum{Cell::Kind::Number, found->sum.text()};
            html << "<td class=n>" << Escaped(shownCell(sum, looks[column])) << "</td>";
        } else if (column == 0) {
            html << "<th scope=row>Sum</th>";
        } else {
            html << "<td></td>";
        }
    }
    html << "</tr></tfoot>";
}

void addNotes(Html& html, const PageParagraph& paragraph, const ColumnList& list,
              const std::vector<ColumnSum>& sums) {
    const auto& result = paragraph.result;
    if (!list.isReadable && !paragraph.record->colsAre.empty())
        addNote(html, "Columns are numbers with colons between them, or All: nothing is summed.");
    for (const auto column : list.numbers)
        if (column >= result.fields.size())
            addNote(html, "There is no column " + std::to_string(column) + ": the query gives " +
                              counted(result.fields.size(), "column", "columns") + ", numbered from 0.");
    for (const auto& sum : sums)
        if (sum.others > 0)
            addNote(html, "The sum of " + shownText(result.fields[sum.column]) + " leaves out " +
                              counted(sum.others, "value that is no number.", "values that are no numbers."));
    if (!sums.empty() && result.total > result.rows.size())
        addNote(html, "The sums are those of the rows that are shown.");
}

}  // namespace

void addTable(Html& html, const PageParagraph& paragraph, Pictures&) {
    const auto& result = paragraph.result;
    const auto looks = looksOf(result);
    const auto list = readColumns(paragraph.record->colsAre);
    const auto sums = sumsOf(result, list);
    beginTable(html, "rows");
    html << "<thead><tr>";
    for (std::size_t column = 0; column < looks.size(); ++column)
        addHeading(html, result.fields[column], looks[column]);
    html << "</tr></thead><tbody>";
    for (const auto& row : result.rows) {
        html << "<tr>";
        for (std::size_t column = 0; column < looks.size(); ++column) addCell(html, row[column], looks[column]);
        html << "</tr>\n";
    }
    html << "</tbody>";
    if (!sums.empty() && !result.rows.empty()) addSums(html, sums, looks);
    endTable(html);
    addCount(html, result);
    addNotes(html, paragraph, list, sums);
}
