// SPDX-License-Identifier: MIT
#include "views/CodePage.h"

#include <algorithm>
#include <optional>

namespace {

#ifdef Q_OS_WIN

std::optional<std::string> encodeCharacter(const QString& character) {
    const auto bytes = character.toLocal8Bit().toStdString();
    if (QString::fromLocal8Bit(bytes.data(), static_cast<qsizetype>(bytes.size())) != character) return {};
    return bytes;
}

#else

// Windows-1252, bytes 80 to 9F; all others are the characters of the same number.
constexpr char16_t upperControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t firstUpperControl = 0x80;

char16_t character(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= firstUpperControl && code < 0xA0 ? upperControls[code - firstUpperControl] : char16_t{code};
}

std::optional<std::string> encodeCharacter(const QString& character) {
    const auto code = character.front().unicode();
    if (code < firstUpperControl || (code >= 0xA0 && code <= 0xFF)) return std::string(1, static_cast<char>(code));
    const auto* found = std::ranges::find(upperControls, code);
    if (found == std::end(upperControls)) return {};
    return std::string(1, static_cast<char>(firstUpperControl + (found - upperControls)));
}

#endif

// The characters of a text one by one; those beyond the first 65,536 are pairs of units.
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
    std::ranges::transform(bytes, text.begin(), [](char byte) { return QChar(character(byte)); });
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
