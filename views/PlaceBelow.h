// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>

/// Where on the screen to open a menu for an item of a view: below the item, or as near to that as the view allows.
/// If there is no item, the view's top left corner.
[[nodiscard]] inline QPoint placeBelow(const QAbstractItemView& view, const QModelIndex& index) {
    const auto room = view.viewport()->rect();
    const auto item = index.isValid() ? view.visualRect(index) : QRect(room.topLeft(), QSize(1, 1));
    const QPoint corner(qBound(room.left(), item.left(), room.right()),
                        qBound(room.top(), item.bottom(), room.bottom()));
    return view.viewport()->mapToGlobal(corner);
}
