// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Turns bytes of the files' code page into text for the screen: the system's code page on Windows, Windows-1252
/// elsewhere. Every byte becomes one character; the five that Windows-1252 leaves free become the control characters
/// of the same number.
[[nodiscard]] QString decode(std::string_view bytes);

/// The same for a cell of the tree or a grid: the first 1,000 bytes, more than any cell can show. Painting the whole
/// of a text of some megabytes, which a wrong file may hold, would freeze the window.
[[nodiscard]] QString decodeForCell(std::string_view bytes);

/// Turns text that was typed into bytes of the code page. A character that the code page lacks becomes "?": see
/// `lackingInCodePage`.
[[nodiscard]] std::string encode(const QString& text);

/// The first character of a text that the code page lacks, empty if it has them all.
[[nodiscard]] QString lackingInCodePage(const QString& text);
