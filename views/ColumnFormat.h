// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>
#include <vector>

/// One column of a grid.
struct Column {
    Qt::Alignment alignment;
    QString caption;  ///< with the blanks behind it; its length in characters is the column's width
};

/// Reads a column format string: columns separated by "|", each an alignment mark (">" right, "<" left, "^" centred)
/// and the caption.
[[nodiscard]] std::vector<Column> readColumnFormat(std::string_view format);
