// SPDX-License-Identifier: MIT
#include "forms/EntryLine.h"

#include <QToolTip>
#include <QValidator>
#include <algorithm>
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

    State validate(QString& input, int& cursor) const override {
        if (std::ranges::any_of(input, isLineBreak)) {
            input = withoutLineBreaks(input);
            cursor = std::min(cursor, static_cast<int>(input.size()));
        }
        const auto lacking = lackingInCodePage(input);
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
}

std::string EntryLine::bytes() const {
    return encode(text());
}

void EntryLine::setBytes(std::string_view bytes) {
    setText(decode(bytes));
    setCursorPosition(0);
}
