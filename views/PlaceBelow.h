// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>

/// The place on the screen below an item of a view, or the next one to it in the view; for no item, the view's top
/// left corner. A menu for the item belongs there.
[[nodiscard]] inline QPoint placeBelow(const QAbstractItemView& view, const QModelIndex& index) {
    const auto room = view.viewport()->rect();
    const auto item = index.isValid() ? view.visualRect(index) : QRect(room.topLeft(), QSize(1, 1));
    const QPoint corner(qBound(room.left(), item.left(), room.right()),
                        qBound(room.top(), item.bottom(), room.bottom()));
    return view.viewport()->mapToGlobal(corner);
}
