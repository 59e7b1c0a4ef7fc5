// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>

#include "preview/ColumnsField.h"
#include "preview/Decimal.h"
#include "preview/Paragraphs.h"

// Type C: bars in plain HTML, a row of a table each. A strict Content-Security-Policy allows no widths in the page
// itself, so three classes of the style sheet add one up: "t3 o7 p5" is 30 % and 7 % and 0.5 %.

namespace {

constexpr Markup tens[] = {"t0", "t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8", "t9", "t10"};
constexpr Markup ones[] = {" o0", " o1", " o2", " o3", " o4", " o5", " o6", " o7", " o8", " o9"};
constexpr Markup tenths[] = {" p0", " p1", " p2", " p3", " p4", " p5", " p6", " p7", " p8", " p9"};

void addBar(Html& html, double value, double longest) {
    const auto permille = static_cast<std::size_t>(std::lround(std::fabs(value) / longest * 1000));
    html << "<span class=\"bar ";
    if (value < 0) html << "below ";
    html << tens[permille / 100] << ones[permille / 10 % 10] << tenths[permille % 10] << "\"></span>";
}

// A short label, such as a month as "2026-12", stays in one line.
void addLabel(Html& html, const std::string& label) {
    constexpr std::size_t longestInOneLine = 12;
    (label.size() > longestInOneLine ? html << "<tr><th scope=row>" : html << "<tr><th scope=row class=short>")
        << Escaped(label) << "</th><td>";
}

std::optional<double> heightOf(const Cell& cell) {
    const bool canBe = cell.kind == Cell::Kind::Number || cell.kind == Cell::Kind::Text;
    return canBe ? numberIn(cell.text) : std::nullopt;
}

void addBars(Html& html, const QueryResult& result, const Axes& axes) {
    const auto looks = looksOf(result);
    double longest = 0;
    std::uint64_t others = 0;
    for (const auto& row : result.rows) {
        const auto height = heightOf(row[axes.values]);
        longest = std::max(longest, std::fabs(height.value_or(0)));
        if (!height && row[axes.values].kind != Cell::Kind::Null) ++others;
    }
    html << "<table class=bars><caption>" << Escaped(shownText(result.fields[axes.values])) << " by "
         << Escaped(shownText(result.fields[axes.labels])) << "</caption><tbody>";
    for (const auto& row : result.rows) {
        addLabel(html, shownCell(row[axes.labels], looks[axes.labels]));
        const auto height = heightOf(row[axes.values]);
        if (height && longest > 0) addBar(html, *height, longest);
        html << "<span class=value>" << Escaped(shownCell(row[axes.values], looks[axes.values]))
             << "</span></td></tr>\n";
    }
    html << "</tbody></table>";
    if (others > 0)
        addNote(html,
                counted(others, "value is no number and has no bar.", "values are no numbers and have no bars."));
}

}  // namespace

void addChart(Html& html, const PageParagraph& paragraph, Pictures&) {
    const auto& result = paragraph.result;
    const auto charts = chartsOf(readColumns(paragraph.record->colsAre), result.fields.size());
    if (charts.empty())
        addNote(html,
                "There is nothing to draw: a chart needs its columns as X:Y, the number of the column with the "
                "labels and that of the column with the heights, or All.");
    for (const auto& axes : charts) {
        const auto last = std::max(axes.labels, axes.values);
        if (last < result.fields.size())
            addBars(html, result, axes);
        else
            addNote(html, "There is no column " + std::to_string(last) + ": the query gives " +
                              counted(result.fields.size(), "column", "columns") + ", numbered from 0.");
    }
    addCount(html, result);
}
