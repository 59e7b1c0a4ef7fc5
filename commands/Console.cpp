// SPDX-License-Identifier: MIT
#include "commands/Console.h"

#include <array>
#include <cstdio>
#include <ostream>

#include "model/CodePage.h"

namespace {

bool isControl(char16_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void appendSpelledOut(std::string& text, char byte) {
    std::array<char, 5> code{};
    std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    text += code.data();
}

// The length of the UTF-8 character at the beginning of the text; 0 if the text does not begin with a valid one.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const auto first = byte(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xC2 && first < 0xE0   ? 2
                               : first >= 0xE0 && first < 0xF0 ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t at = 1; at < length; ++at)
        if ((byte(at) & 0xC0U) != 0x80U) return 0;
    // Overlong forms, surrogates, and code points above U+10FFFF.
    const bool isTooLong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool isNone = (first == 0xED && byte(1) >= 0xA0) || (first == 0xF4 && byte(1) >= 0x90);
    return isTooLong || isNone ? 0 : length;
}

}  // namespace

void Console::print(std::string_view text) const {
    if (encoding == Encoding::Utf8)
        out << text;
    else
        out << fromUtf8(text);
}

std::string shown(std::string_view bytes) {
    std::string text;
    std::size_t plain = 0;  // where the part that is not added yet begins
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (!isControl(characterOf(bytes[at]))) continue;
        text += toUtf8(bytes.substr(plain, at - plain));
        appendSpelledOut(text, bytes[at]);
        plain = at + 1;
    }
    return text + toUtf8(bytes.substr(plain));
}

std::string shownInOneLine(std::string_view words) {
    constexpr std::string_view blanks = " \n\r\t";
    std::string line;
    for (const char byte : words)
        if (blanks.find(byte) == std::string_view::npos)
            line += byte;
        else if (!line.ends_with(' '))
            line += ' ';
    return shownName(line);
}

std::string shownName(std::string_view name) {
    std::string text;
    while (!name.empty()) {
        const auto length = characterLength(name);
        const bool isC1 = length == 2 && name[0] == '\xC2' && static_cast<unsigned char>(name[1]) < 0xA0;
        if (length == 0 || isC1 || (length == 1 && isControl(characterOf(name[0])))) {
            appendSpelledOut(text, name[0]);
            name.remove_prefix(1);
        } else {
            text += name.substr(0, length);
            name.remove_prefix(length);
        }
    }
    return text;
}
