// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The number of the operating system's code page for programs that do not use Unicode, in which such programs write
/// their files. The manifest of this program asks for UTF-8 for its calls of the operating system; that changes what
/// GetACP says, and not this.
[[nodiscard]] unsigned systemCodePage();

/// A code page of Windows: of one byte a character, of one or two, or UTF-8.
///
/// Every text can be shown and comes back. A byte that begins no character becomes half of a pair of units: U+DC80
/// for the byte 80, and so on to U+DCFF. No text has such a half alone, so nothing else becomes that byte again.
class WindowsCodePage {
  public:
    /// @param number as Windows counts its code pages, 1252 for instance
    explicit WindowsCodePage(unsigned number) : number_(number) {}

    /// The characters of a text, as many as end within its first `most` bytes.
    [[nodiscard]] QString decode(std::string_view bytes, std::size_t most) const;
    /// The bytes of one character; nothing if it is not in the code page.
    [[nodiscard]] std::optional<std::string> encode(const QString& character) const;

  private:
    [[nodiscard]] std::size_t lengthOfFirst(std::string_view bytes) const;
    [[nodiscard]] QString characterOf(std::string_view bytes) const;
    [[nodiscard]] std::string bytesOf(const QString& character) const;

    unsigned number_;
};
