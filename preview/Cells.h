// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "database/Database.h"
#include "preview/Html.h"

// Values of a query as a page shows them.

/// What the values of a column have in common.
struct ColumnLook {
    bool isNumber = false;  ///< numbers, and perhaps empty cells: aligned on the right
    int decimals = 0;       ///< behind the point, for all numbers of the column
};

/// The looks of all columns.
[[nodiscard]] std::vector<ColumnLook> looksOf(const QueryResult& result);

/// A value in words: a number with the column's decimals, a long text cut, bytes as "(58 bytes)".
[[nodiscard]] std::string shownCell(const Cell& cell, const ColumnLook& look);

/// A text that may be long: cut, with its whole length behind it.
[[nodiscard]] std::string shownText(std::string_view text);

/// A cell of a table.
void addCell(Html& html, const Cell& cell, const ColumnLook& look);

/// The heading of a column.
void addHeading(Html& html, std::string_view name, const ColumnLook& look);
