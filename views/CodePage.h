// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Converts bytes of the files' code page to text for the screen. The code page is that of the operating system on
/// Windows, and Windows-1252 elsewhere. Every text can be shown, and its characters become bytes again: the five
/// bytes that Windows-1252 leaves undefined become the control characters with the same number. On a Windows whose
/// code page has several bytes for one character, these may be other bytes of the same meaning.
[[nodiscard]] QString decode(std::string_view bytes);

/// The same for a cell of the tree or a grid, but only the characters within the first 1,000 bytes, which is more
/// than any cell can show. Painting a text of several megabytes, which a broken file may contain, would freeze the
/// window.
[[nodiscard]] QString decodeForCell(std::string_view bytes);

/// Converts typed text to bytes of the code page. A character that is not in it becomes "?": see `lackingInCodePage`.
[[nodiscard]] std::string encode(const QString& text);

/// The first character of a text that is not in the code page; empty if all are.
[[nodiscard]] QString lackingInCodePage(const QString& text);
