// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

/// What each type of paragraph is. Storing, the to-do list and the form use this table. Every other table with a row
/// for each type has them in this order, and does not compile if one is missing.
struct ParagraphType {
    char letter;
    bool keepsForm;                  ///< storing keeps the form number; otherwise it becomes 0
    bool keepsColumns;               ///< storing keeps the columns; otherwise they become empty
    std::string_view fieldPrefix{};  ///< its query has a field whose name begins with this
};

/// Storing an I paragraph makes its form number 0, although its form and the rules allow one. This is given, too
/// (docs/architecture.md, "Given, not to be corrected").
inline constexpr ParagraphType paragraphTypes[] = {
    {.letter = 'C', .keepsForm = false, .keepsColumns = true},   // the columns of the chart's axes
    {.letter = 'H', .keepsForm = true, .keepsColumns = false},   //
    {.letter = 'E', .keepsForm = false, .keepsColumns = false},  //
    {.letter = 'M', .keepsForm = false, .keepsColumns = false},  //
    {.letter = 'I', .keepsForm = false, .keepsColumns = false, .fieldPrefix = "IMG"},
    {.letter = 'S', .keepsForm = false, .keepsColumns = true},                         // the columns to sum
    {.letter = 'T', .keepsForm = false, .keepsColumns = true, .fieldPrefix = "FILE"},  // XML: the layout
};

/// The type with this letter; null for any other letter, and for 0, which `Text::letter` returns for a text that is
/// not a single letter.
[[nodiscard]] constexpr const ParagraphType* paragraphType(char letter) {
    const auto* found = std::ranges::find(paragraphTypes, letter, &ParagraphType::letter);
    return found == std::end(paragraphTypes) ? nullptr : found;
}
