// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <QTextCursor>

#include "Helpers.h"

/// The text of a report window to the letter; `toPlainText` turns no-break spaces into blanks.
inline QString textOf(const QPlainTextEdit& edit) {
    QTextCursor all(edit.document());
    all.select(QTextCursor::Document);
    return all.selectedText()
        .replace(QChar::ParagraphSeparator, QChar(u'\n'))
        .replace(QChar::LineSeparator, QChar(u'\n'));
}
