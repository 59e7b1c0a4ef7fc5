// SPDX-License-Identifier: MIT
#include "forms/EntryLine.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QValidator>
#include <limits>

#include "views/CodePage.h"
#include "views/ToolTip.h"

namespace {

bool isLineBreak(QChar c) {
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

QString withoutLineBreaks(QString text) {
    while (!text.isEmpty() && isLineBreak(text.back())) text.chop(1);
    while (!text.isEmpty() && isLineBreak(text.front())) text.remove(0, 1);
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (auto& c : text)
        if (isLineBreak(c)) c = QLatin1Char(' ');
    return text;
}

// The first character that cannot be stored; empty if there is none.
QString lackingIn(const QString& text) {
    return lackingInCodePage(withoutLineBreaks(text));
}

// Some characters are invisible, so the message gives the number, too.
QString describe(const QString& lacking) {
    const auto number = lacking.toUcs4().front();
    return QStringLiteral("The character %1 (U+%2) cannot be stored: it is not in the code page of the files.")
        .arg(lacking)
        .arg(number, 4, 16, QLatin1Char('0'));
}

// Low enough to leave the text in the box readable.
QPoint placeOfNotes(const EntryLine& line) {
    return line.mapToGlobal(QPoint(0, line.height() / 2));
}

class StorableText final : public QValidator {
  public:
    explicit StorableText(EntryLine& line) : QValidator(&line), line_(line) {}

    State validate(QString& input, int&) const override {
        const auto lacking = lackingIn(input);
        if (lacking.isEmpty()) return Acceptable;
        QToolTip::showText(placeOfNotes(line_), describe(lacking), &line_);
        return Invalid;
    }

  private:
    EntryLine& line_;
};

}  // namespace

EntryLine::EntryLine(QWidget* parent) : QLineEdit(parent) {
    setMaxLength(std::numeric_limits<int>::max());  // a text is never cut
    setValidator(new StorableText(*this));
    // A program that sets the text, such as a screen reader that types for its user, bypasses the validator.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
        if (lackingIn(now).isEmpty())
            storable_ = now;
        else
            setText(storable_);
    });
}

std::string EntryLine::bytes() const {
    return text() == shown_ ? given_ : encode(withoutLineBreaks(text()));
}

void EntryLine::setBytes(std::string_view bytes) {
    given_ = bytes;
    shown_ = decode(bytes);
    setText(shown_);
    setCursorPosition(0);
}

void EntryLine::setNote(const QString& note) {
    // A refused text has a tip of its own and does not change the text in the box.
    if (note == toolTip() && text() == noted_) return;
    noted_ = text();
    const bool isGone = note.isEmpty() && !toolTip().isEmpty();
    setToolTip(note);
    const bool hasBoth = !note.isEmpty() && !whatsThis().isEmpty();
    setAccessibleDescription(note + (hasBoth ? QStringLiteral(" ") : QString()) + whatsThis());
    if (hasFocus() && isGone) QToolTip::hideText();
    showNote();
}

void EntryLine::showNote() {
    if (hasFocus() && !toolTip().isEmpty()) showToolTip(placeOfNotes(*this), toolTip(), *this);
}

bool EntryLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty()) return QLineEdit::event(event);
    showToolTip(static_cast<QHelpEvent*>(event)->globalPos(), toolTip(), *this);
    return true;
}

void EntryLine::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // Later: the style reacts to the focus, too, and hides any tip.
    QMetaObject::invokeMethod(this, &EntryLine::showNote, Qt::QueuedConnection);
}

// The press has hidden the note that appeared with the focus.
void EntryLine::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) showNote();
}
