#pragma once

#include <QString>
#include <string_view>

/// Turns bytes of the files' code page into text for the screen: the system's code page on Windows, Windows-1252
/// elsewhere. Every byte becomes one character; the five that Windows-1252 leaves free become the control characters
/// of the same number.
[[nodiscard]] QString decode(std::string_view bytes);
