// SPDX-License-Identifier: MIT
#include "model/CodePage.h"

#include <algorithm>

std::optional<char> byteOf(char32_t character) {
    if (character < 0x80) return static_cast<char>(character);
    const auto* const found = std::ranges::find(upperHalfOfCodePage, character);
    if (found == upperHalfOfCodePage.end()) return {};
    return static_cast<char>(0x80 + (found - upperHalfOfCodePage.begin()));
}

std::string toUtf8(std::string_view bytes) {
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    const auto* const plainEnd = std::ranges::find_if_not(bytes, isAscii);  // most texts are nothing else
    std::string text(bytes.begin(), plainEnd);
    text.reserve(bytes.size());
    for (const char byte : std::string_view(plainEnd, bytes.end())) {
        const auto code = static_cast<unsigned>(characterOf(byte));
        if (code < 0x80) {
            text += byte;
        } else if (code < 0x800) {
            text += static_cast<char>(0xC0U | code >> 6U);
            text += static_cast<char>(0x80U | (code & 0x3FU));
        } else {
            text += static_cast<char>(0xE0U | code >> 12U);
            text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

std::string fromUtf8(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at++]);
        char32_t character = first;
        if (first >= 0xC0) character = first & (first < 0xE0 ? 0x1FU : first < 0xF0 ? 0x0FU : 0x07U);
        for (; at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U; ++at)
            character = character << 6U | (static_cast<unsigned char>(text[at]) & 0x3FU);
        bytes += byteOf(character).value_or('?');
    }
    return bytes;
}
