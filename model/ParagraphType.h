// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

/// What a type of paragraph is. Storing, the to-do list and the form go by this table. Each place that says more of
/// every type has rows in the same order, and does not compile without one for each.
struct ParagraphType {
    char letter;
    bool keepsForm;                  ///< storing keeps the form number; else it becomes 0
    bool keepsColumns;               ///< storing keeps the columns; else they become empty
    std::string_view fieldPrefix{};  ///< the name of one field of its query begins with this
};

/// I loses its form number when it is stored, although its form and the rules allow one. So it is in the product.
inline constexpr ParagraphType paragraphTypes[] = {
    {.letter = 'C', .keepsForm = false, .keepsColumns = true},   // the columns of the chart's axes
    {.letter = 'H', .keepsForm = true, .keepsColumns = false},   //
    {.letter = 'E', .keepsForm = false, .keepsColumns = false},  //
    {.letter = 'M', .keepsForm = false, .keepsColumns = false},  //
    {.letter = 'I', .keepsForm = false, .keepsColumns = false, .fieldPrefix = "IMG"},
    {.letter = 'S', .keepsForm = false, .keepsColumns = true},                         // the columns to sum
    {.letter = 'T', .keepsForm = false, .keepsColumns = true, .fieldPrefix = "FILE"},  // XML: the layout
};

/// The type with this letter; null for any other letter, and for 0, which `Text::letter` returns for other texts.
[[nodiscard]] constexpr const ParagraphType* paragraphType(char letter) {
    const auto* found = std::ranges::find(paragraphTypes, letter, &ParagraphType::letter);
    return found == std::end(paragraphTypes) ? nullptr : found;
}
