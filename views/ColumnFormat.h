// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>
#include <vector>

/// One column of a grid.
struct Column {
    Qt::Alignment alignment;
    QString caption;  ///< with its trailing blanks; its length in characters is the column's width
};

/// Reads a column format string: columns separated by "|", each with an alignment mark (">" right, "<" left, "^"
/// centred) and a caption.
[[nodiscard]] std::vector<Column> readColumnFormat(std::string_view format);
