// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// What CodePage.cpp needs to know of the code page of the files: one implementation for Windows, where it is the one
// of the operating system, and one for the others, where it is Windows-1252.

/// The characters of a text, as many as end within its first `most` bytes.
[[nodiscard]] QString decodeCharacters(std::string_view bytes, std::size_t most);

/// The bytes of one character, which is one or two units long; nothing if it is not in the code page.
[[nodiscard]] std::optional<std::string> encodeCharacter(const QString& character);
