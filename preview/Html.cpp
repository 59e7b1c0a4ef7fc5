// SPDX-License-Identifier: MIT
#include "preview/Html.h"

#include <algorithm>

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

struct Entity {
    char character;
    std::string_view spelling;
};
constexpr Entity entities[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"},
};

bool isBetween(char byte, unsigned first, unsigned last) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= first && code <= last;
}

// What may follow the first byte of a character, by that byte: how many bytes, and the range of the next one. The
// others are from 80 to BF.
struct Sequence {
    unsigned first, last;
    std::size_t length;
    unsigned nextFrom, nextTo;
};
constexpr Sequence sequences[] = {
    {0x20, 0x7E, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

// The length of the character at the beginning; 0 if none is there that a page can hold.
std::size_t characterLength(std::string_view text) {
    if (text[0] == '\t' || text[0] == '\n') return 1;
    for (const auto& row : sequences) {
        if (!isBetween(text[0], row.first, row.last)) continue;
        if (row.length == 1) return 1;
        if (text.size() < row.length || !isBetween(text[1], row.nextFrom, row.nextTo)) return 0;
        const auto rest = text.substr(2, row.length - 2);
        if (!std::ranges::all_of(rest, [](char byte) { return isBetween(byte, 0x80, 0xBF); })) return 0;
        const bool isC1 = row.first == 0xC2 && text[0] == '\xC2' && isBetween(text[1], 0x80, 0x9F);
        return isC1 ? 0 : row.length;
    }
    return 0;
}

bool isPlain(char byte) {
    return isBetween(byte, 0x20, 0x7E) && byte != '&' && byte != '<' && byte != '>' && byte != '"' && byte != '\'';
}

}  // namespace

Html& Html::operator<<(Escaped escaped) {
    auto rest = escaped.text;
    while (!rest.empty()) {
        const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(rest, isPlain) - rest.begin());
        text_ += rest.substr(0, plain);
        rest.remove_prefix(plain);
        if (rest.empty()) break;
        if (rest.starts_with("\r\n")) rest.remove_prefix(1);
        const auto* const entity = std::ranges::find(entities, rest[0], &Entity::character);
        const auto length = characterLength(rest);
        if (entity != std::end(entities))
            text_ += entity->spelling;
        else
            text_ += length == 0 ? replacement : rest.substr(0, length);
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return *this;
}

std::string grouped(std::uint64_t number) {
    auto text = std::to_string(number);
    for (auto at = static_cast<std::ptrdiff_t>(text.size()) - 3; at > 0; at -= 3)
        text.insert(static_cast<std::size_t>(at), 1, ',');
    return text;
}

std::string counted(std::uint64_t number, std::string_view one, std::string_view many) {
    return grouped(number).append(" ").append(number == 1 ? one : many);
}

std::string_view beginningOf(std::string_view utf8, std::size_t most) {
    if (utf8.size() <= most) return utf8;
    while (most > 0 && isBetween(utf8[most], 0x80, 0xBF)) --most;
    return utf8.substr(0, most);
}
