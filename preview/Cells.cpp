// SPDX-License-Identifier: MIT
#include "preview/Cells.h"

#include <algorithm>

#include "preview/Decimal.h"

namespace {

constexpr std::size_t longestText = 1000;
constexpr int mostPadding = 4;  // a column with more decimals is a calculated one, and stays as it is

std::string padded(const std::string& number, int decimals) {
    const auto has = decimalsOf(number);
    if (decimals == 0 || !has || *has >= decimals) return number;
    return number + (*has == 0 ? "." : "") + std::string(static_cast<std::size_t>(decimals - *has), '0');
}

}  // namespace

std::vector<ColumnLook> looksOf(const QueryResult& result) {
    std::vector<ColumnLook> looks(result.fields.size());
    for (std::size_t column = 0; column < looks.size(); ++column) {
        auto& look = looks[column];
        bool isAnyOther = false;
        for (const auto& row : result.rows) {
            const auto& cell = row[column];
            if (cell.kind == Cell::Kind::Null) continue;
            if (cell.kind != Cell::Kind::Number) isAnyOther = true;
            look.isNumber = true;
            look.decimals = std::max(look.decimals, decimalsOf(cell.text).value_or(mostPadding + 1));
        }
        if (isAnyOther) look.isNumber = false;
        if (!look.isNumber || look.decimals > mostPadding) look.decimals = 0;
    }
    return looks;
}

std::string shownText(std::string_view text) {
    if (text.size() <= longestText) return std::string(text);
    return std::string(beginningOf(text, longestText)) + "\u2026 (" + counted(text.size(), "byte", "bytes") + ")";
}

std::string shownCell(const Cell& cell, const ColumnLook& look) {
    switch (cell.kind) {
        case Cell::Kind::Null: return {};
        case Cell::Kind::Number: return padded(cell.text, look.decimals);
        case Cell::Kind::Text: return shownText(cell.text);
        case Cell::Kind::Bytes: break;
    }
    return "(" + counted(cell.text.size(), "byte", "bytes") + ")";
}

void addCell(Html& html, const Cell& cell, const ColumnLook& look) {
    (look.isNumber ? html << "<td class=n>" : html << "<td>") << Escaped(shownCell(cell, look)) << "</td>";
}

void addHeading(Html& html, std::string_view name, const ColumnLook& look) {
    (look.isNumber ? html << "<th scope=col class=n>" : html << "<th scope=col>")
        << Escaped(shownText(name)) << "</th>";
}
