// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// The parameter that a query of a node or a paragraph receives.
enum class ParameterKind { None, LKey, CKey, Text, Today };

/// A kind and how files and records spell it. Every other table with a row for each kind has them in this order, and
/// does not compile if one is missing.
struct StoredParameter {
    ParameterKind kind;
    std::string_view tag;     ///< the first two letters of a stored kind, in upper case; "**" for the empty text
    std::string_view stored;  ///< what is stored; for CKey, the length of the key follows in two digits
};
inline constexpr StoredParameter parameterKinds[] = {
    {.kind = ParameterKind::None, .tag = "**", .stored = ""},
    {.kind = ParameterKind::LKey, .tag = "LK", .stored = "Lkey"},
    {.kind = ParameterKind::CKey, .tag = "CK", .stored = "CKey"},
    {.kind = ParameterKind::Text, .tag = "TE", .stored = "Text"},
    {.kind = ParameterKind::Today, .tag = "TO", .stored = "Today"},
};

/// Reads the stored form of a kind. Blanks around it are ignored, and only its first two letters count, in either
/// case.
/// @return nothing for any other text, including the word "None"
[[nodiscard]] std::optional<ParameterKind> readParameterKind(std::string_view parmIs);

/// The length of a stored CKey as the forms and lists show it: its last two characters, unchanged.
[[nodiscard]] std::string_view keyLengthOf(std::string_view parmIs);
