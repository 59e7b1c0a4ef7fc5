// SPDX-License-Identifier: MIT
#include "views/CodePage.h"

#include <algorithm>
#include <optional>

#include "model/CodePage.h"

namespace {

#ifdef Q_OS_WIN

std::optional<std::string> encodeCharacter(const QString& character) {
    const auto bytes = character.toLocal8Bit().toStdString();
    if (QString::fromLocal8Bit(bytes.data(), static_cast<qsizetype>(bytes.size())) != character) return {};
    return bytes;
}

#else

std::optional<std::string> encodeCharacter(const QString& character) {
    const auto byte = character.size() == 1 ? byteOf(character.front().unicode()) : std::nullopt;
    if (!byte) return {};
    return std::string(1, *byte);
}

#endif

// Goes over the characters of a text; those beyond the first 65,536 are pairs of units.
template <class Use>
void forEachCharacter(const QString& text, Use use) {
    for (qsizetype at = 0; at < text.size();) {
        const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        const qsizetype units = pair ? 2 : 1;
        if (!use(text.mid(at, units))) return;
        at += units;
    }
}

}  // namespace

QString decode(std::string_view bytes) {
#ifdef Q_OS_WIN
    return QString::fromLocal8Bit(bytes.data(), static_cast<qsizetype>(bytes.size()));
#else
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::ranges::transform(bytes, text.begin(), [](char byte) { return QChar(characterOf(byte)); });
    return text;
#endif
}

QString decodeForCell(std::string_view bytes) {
    constexpr std::size_t most = 1000;
    return decode(bytes.substr(0, most));
}

std::string encode(const QString& text) {
    std::string bytes;
    forEachCharacter(text, [&](const QString& character) {
        bytes += encodeCharacter(character).value_or("?");
        return true;
    });
    return bytes;
}

QString lackingInCodePage(const QString& text) {
    QString lacking;
    forEachCharacter(text, [&](const QString& character) {
        if (!encodeCharacter(character)) lacking = character;
        return lacking.isEmpty();
    });
    return lacking;
}
