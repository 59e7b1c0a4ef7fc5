// SPDX-License-Identifier: MIT
#include "forms/FieldNotes.h"

#include <QStringList>

#include "views/CodePage.h"

namespace {

constexpr char quoted[] = "A double quote is dropped when the file is opened again.";
constexpr char noNumber[] = "A number cannot contain a comma or a quote: this one will be refused.";

constexpr char noLength[] =
    "A length cannot contain a comma or a quote. The parameter does not change until this is a number.";

constexpr qsizetype longestName = 80;  // characters

}  // namespace

QString noteOnLength(const QString& text) {
    const bool hasNone = !text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"'));
    return hasNone ? QString() : QString::fromLatin1(noLength);
}

QString noteOnCommas(const QString& text, const char* comma) {
    const bool hasComma = text.contains(QLatin1Char(','));
    const bool hasQuote = text.contains(QLatin1Char('"'));
    if (!hasComma && !hasQuote) return {};
    if (!*comma) return QString::fromLatin1(noNumber);
    QStringList notes;
    if (hasComma) notes += QString::fromLatin1(comma);
    if (hasQuote) notes += QString::fromLatin1(quoted);
    return notes.join(QLatin1Char(' '));
}

QString noteOnOwner(std::int32_t id, const char* owner, std::string_view name) {
    auto shown = decodeForCell(name);
    if (shown.size() > longestName) {
        shown.truncate(longestName - 1);
        if (shown.back().isHighSurrogate()) shown.chop(1);  // half a character
        shown += QChar(0x2026);
    }
    return QStringLiteral("The ID %1 belongs to %2, \"%3\".")
        .arg(QString::number(id), QString::fromLatin1(owner), shown);
}

QString noteOnOpened(bool isStored, const char* kind, std::int32_t id) {
    const auto named = QString::fromLatin1(kind);
    if (!isStored) return QStringLiteral(" No new %1 is added.").arg(named);
    return QStringLiteral(" The %1 %2 that you opened does not change.").arg(named).arg(id);
}
