// SPDX-License-Identifier: MIT
#include "views/ColumnFormat.h"

#include <algorithm>

namespace {

Qt::Alignment alignmentOf(char mark) {
    switch (mark) {
        case '>': return Qt::AlignRight | Qt::AlignVCenter;
        case '^': return Qt::AlignHCenter | Qt::AlignVCenter;
        default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

}  // namespace

std::vector<Column> readColumnFormat(std::string_view format) {
    std::vector<Column> columns;
    while (!format.empty()) {
        const auto column = format.substr(0, format.find('|'));
        format.remove_prefix(std::min(format.size(), column.size() + 1));
        columns.push_back({alignmentOf(column.front()),
                           QString::fromLatin1(column.data() + 1, static_cast<qsizetype>(column.size()) - 1)});
    }
    return columns;
}
