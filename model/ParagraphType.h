// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

/// What the columns of a paragraph are for.
enum class ColumnsUse {
    None,    ///< storing empties them
    Axes,    ///< of a chart: "X:Y", or "All"
    Sums,    ///< the columns that are summed: "2:4:5", or "All"
    Layout,  ///< XML: how the pictures are laid out
};

/// What each type of paragraph is, for the whole program. Every other table with a row for each type has them in this
/// order, and does not compile if one is missing.
struct ParagraphType {
    char letter;
    bool keepsForm = false;  ///< storing keeps the form number; otherwise it becomes 0
    ColumnsUse columns = ColumnsUse::None;
    bool isAction = false;  ///< its query is called for what it does; its rows, if there are any, are not shown
    std::string_view fieldPrefix{};  ///< its query has a field whose name begins with this, in either case
    bool isFieldPath = false;        ///< that field holds the path of a picture; otherwise the picture itself
};

/// Storing an I paragraph makes its form number 0, although its form and the rules allow one. This is given, too
/// (docs/architecture.md, "Given, not to be corrected").
inline constexpr ParagraphType paragraphTypes[] = {
    {.letter = 'C', .columns = ColumnsUse::Axes},
    {.letter = 'H', .keepsForm = true},
    {.letter = 'E', .isAction = true},
    {.letter = 'M'},
    {.letter = 'I', .fieldPrefix = "IMG"},
    {.letter = 'S', .columns = ColumnsUse::Sums},
    {.letter = 'T', .columns = ColumnsUse::Layout, .fieldPrefix = "FILE", .isFieldPath = true},
};

/// The type with this letter; null for any other letter, and for 0, which `Text::letter` returns for a text that is
/// not a single letter.
[[nodiscard]] constexpr const ParagraphType* paragraphType(char letter) {
    const auto* found = std::ranges::find(paragraphTypes, letter, &ParagraphType::letter);
    return found == std::end(paragraphTypes) ? nullptr : found;
}
