// SPDX-License-Identifier: MIT
#include "views/CodePage.h"

#include "views/CodePageCharacters.h"

namespace {

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
    return decodeCharacters(bytes, bytes.size());
}

QString decodeForCell(std::string_view bytes) {
    constexpr std::size_t most = 1000;
    return decodeCharacters(bytes, most);
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
