// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// The parameter that a query of a node or a paragraph receives.
enum class ParameterKind { None, LKey, CKey, Text, Today };

/// A kind and how files and records write it. Each place that says more of every kind has rows in the same order,
/// and does not compile without one for each.
struct StoredParameter {
    ParameterKind kind;
    std::string_view tag;     ///< the first two letters of a stored kind, in upper case; of the empty text "**"
    std::string_view stored;  ///< what is stored; behind that of CKey stands the length of the key, in two digits
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
/// @return nothing for any other text; the word "None" is one of these
[[nodiscard]] std::optional<ParameterKind> readParameterKind(std::string_view parmIs);

/// The length of a stored CKey as the forms and lists show it: its last two characters as they stand.
[[nodiscard]] std::string_view keyLengthOf(std::string_view parmIs);
