// SPDX-License-Identifier: MIT
#include "forms/EntryLine.h"

#include <QToolTip>
#include <QValidator>
#include <limits>

#include "views/CodePage.h"

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

// The first character that cannot be stored, empty if there is none.
QString lackingIn(const QString& text) {
    return lackingInCodePage(withoutLineBreaks(text));
}

// Some characters cannot be seen, so their number is given too.
QString describe(const QString& lacking) {
    const auto number = lacking.toUcs4().front();
    return QStringLiteral("The character %1 (U+%2) cannot be stored: the code page of the files lacks it.")
        .arg(lacking)
        .arg(number, 4, 16, QLatin1Char('0'));
}

class StorableText final : public QValidator {
  public:
    explicit StorableText(EntryLine& line) : QValidator(&line), line_(line) {}

    State validate(QString& input, int&) const override {
        const auto lacking = lackingIn(input);
        if (lacking.isEmpty()) return Acceptable;
        const auto place = line_.mapToGlobal(QPoint(0, line_.height() / 2));
        QToolTip::showText(place, describe(lacking), &line_);
        return Invalid;
    }

  private:
    EntryLine& line_;
};

}  // namespace

EntryLine::EntryLine(QWidget* parent) : QLineEdit(parent) {
    setMaxLength(std::numeric_limits<int>::max());  // a text is never cut
    setValidator(new StorableText(*this));
    // What a program sets, one that reads the screen and writes for its user, stands in spite of the validator.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
        if (lackingIn(now).isEmpty())
            storable_ = now;
        else
            setText(storable_);
    });
}

std::string EntryLine::bytes() const {
    return encode(withoutLineBreaks(text()));
}

void EntryLine::setBytes(std::string_view bytes) {
    setText(decode(bytes));
    setCursorPosition(0);
}
