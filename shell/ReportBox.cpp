// SPDX-License-Identifier: MIT
#include "shell/ReportBox.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <new>

ReportBox::ReportBox(QWidget* parent) : QPlainTextEdit(parent) {
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setUndoRedoEnabled(false);
}

bool ReportBox::hasRoomFor(std::string_view report) {
    // Measured with reports of 3 to 100 megabytes in lines of 1 to 10,000,000 bytes: it was never more.
    constexpr std::size_t forAByte = 12;
    constexpr std::size_t forALine = 1000;
    const auto lines = static_cast<std::size_t>(std::ranges::count(report, '\n'));
    void* room = ::operator new(forAByte* report.size() + forALine * lines, std::nothrow);
    ::operator delete(room);
    return room != nullptr;
}

void ReportBox::setReport(QString report) {
    constexpr qsizetype manyLines = 10'000;
    const bool isLong = report.count(u'\n') > manyLines;
    linesAParagraph_ = isLong ? 16 : 1;
    if (isLong) joinLines(report);
    setPlainText(report);
    countLines();
}

// In one pass: QString::replace would move the rest of the text a thousand times and more.
void ReportBox::joinLines(QString& report) const {
    auto* const end = report.end();
    auto* to = report.begin();
    int line = 0;
    for (const auto* from = report.cbegin(); from != end; ++from) {
        if (*from == u'\r' && from + 1 != end && from[1] == u'\n') continue;
        const bool joins = *from == u'\n' && ++line % linesAParagraph_ != 0;
        *to++ = joins ? QChar(QChar::LineSeparator) : *from;
    }
    report.truncate(to - report.begin());
}

// Qt takes a paragraph for one line until it is scrolled into view, and again after a resize, so it is told
// how many they are. @return whether there was anything to tell
bool ReportBox::countLines() {
    if (linesAParagraph_ == 1) return false;
    auto paragraph = document()->begin();
    for (; paragraph != document()->lastBlock(); paragraph = paragraph.next())
        paragraph.setLineCount(linesAParagraph_);
    paragraph.setLineCount(1 + static_cast<int>(paragraph.text().count(QChar::LineSeparator)));
    auto* layout = document()->documentLayout();
    Q_EMIT layout->documentSizeChanged(layout->documentSize());
    return true;
}

void ReportBox::resizeEvent(QResizeEvent* event) {
    const int top = verticalScrollBar()->value();
    QPlainTextEdit::resizeEvent(event);
    if (countLines()) verticalScrollBar()->setValue(top);
}

// Tab moves the focus in this program, also where there is nothing else to go to: it writes nothing into a report.
bool ReportBox::focusNextPrevChild(bool /*next*/) {
    return true;
}

// The clipboard gets the text alone and as it is: Qt would make blanks of no-break spaces (byte A0), and
// offer the report as a formatted text, too.
QMimeData* ReportBox::createMimeDataFromSelection() const {
    auto text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    auto* copied = new QMimeData;
    copied->setText(text);
    return copied;
}
