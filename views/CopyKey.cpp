// SPDX-License-Identifier: MIT
#include "views/CopyKey.h"

#include <QClipboard>
#include <QGuiApplication>

bool copiesCell(QKeyEvent& event, const QModelIndex& cell) {
    if (!event.matches(QKeySequence::Copy)) return false;
    if (cell.isValid()) QGuiApplication::clipboard()->setText(cell.data(Qt::EditRole).toString());
    event.accept();
    return true;
}
