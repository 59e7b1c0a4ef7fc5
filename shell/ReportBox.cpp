// SPDX-License-Identifier: MIT
#include "shell/ReportBox.h"

#include <QMimeData>
#include <algorithm>
#include <new>

ReportBox::ReportBox(QWidget* parent) : QPlainTextEdit(parent) {
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setUndoRedoEnabled(false);
}

bool ReportBox::hasRoomFor(std::string_view report) {
    // Measured with reports of 3 to 100 megabytes in lines of 1 to 10,000,000 bytes: it never took more.
    constexpr std::size_t forAByte = 12;
    constexpr std::size_t forALine = 1000;
    const auto lines = static_cast<std::size_t>(std::ranges::count(report, '\n'));
    void* room = ::operator new(forAByte* report.size() + forALine * lines, std::nothrow);
    ::operator delete(room);
    return room != nullptr;
}

// In this program Tab moves the focus, even if there is nowhere to go: it never types into a report.
bool ReportBox::focusNextPrevChild(bool /*next*/) {
    return true;
}

// The clipboard gets only the plain text, unchanged: Qt would turn no-break spaces (byte A0) into blanks and also
// offer the report as formatted text.
QMimeData* ReportBox::createMimeDataFromSelection() const {
    auto text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    auto* copied = new QMimeData;
    copied->setText(text);
    return copied;
}
