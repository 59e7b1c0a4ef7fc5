// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

// Windows-1252, the code page of the files where the operating system has none of its own.

inline constexpr const char* codePageName = "windows-1252";  ///< as `pelmo-scheme --encoding` spells it

/// The characters for the bytes 80 to FF. Windows-1252 leaves five bytes undefined; here they become the control
/// characters with the same number, so that every byte has a character and no two bytes share one.
inline constexpr std::array<char16_t, 128> upperHalfOfCodePage = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  //
    0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF,  //
    0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x00B9, 0x00BA, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF,  //
    0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C6, 0x00C7,  // C0
    0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF,  //
    0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D7,  // D0
    0x00D8, 0x00D9, 0x00DA, 0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00DF,  //
    0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7,  // E0
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF,  //
    0x00F0, 0x00F1, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00F7,  // F0
    0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x00FF,  //
};

/// The character that a byte stands for.
[[nodiscard]] constexpr char16_t characterOf(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x80 ? char16_t{code} : upperHalfOfCodePage[code - 0x80U];
}

/// The byte that stands for a character; nothing if the character is not in the code page.
[[nodiscard]] std::optional<char> byteOf(char32_t character);

/// Whether the byte is one of the five that the code page leaves undefined.
[[nodiscard]] constexpr bool isFreeByte(char byte) {
    const auto character = characterOf(byte);
    return character >= 0x80 && character < 0xA0;
}

/// Converts bytes of the code page to UTF-8.
[[nodiscard]] std::string toUtf8(std::string_view bytes);

/// Converts valid UTF-8 to bytes of the code page; a character that is not in it becomes "?".
[[nodiscard]] std::string fromUtf8(std::string_view text);
