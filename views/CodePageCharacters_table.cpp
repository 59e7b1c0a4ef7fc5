// SPDX-License-Identifier: MIT
#include <algorithm>

#include "model/CodePage.h"
#include "views/CodePageCharacters.h"

QString decodeCharacters(std::string_view bytes, std::size_t most) {
    const auto shown = bytes.substr(0, most);
    QString text(static_cast<qsizetype>(shown.size()), Qt::Uninitialized);
    std::ranges::transform(shown, text.begin(), [](char byte) { return QChar(characterOf(byte)); });
    return text;
}

std::optional<std::string> encodeCharacter(const QString& character) {
    const auto byte = character.size() == 1 ? byteOf(character.front().unicode()) : std::nullopt;
    if (!byte) return {};
    return std::string(1, *byte);
}
