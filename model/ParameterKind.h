// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// The parameter that a query of a node or a paragraph receives.
enum class ParameterKind { None, LKey, CKey, Text, Today };

/// Reads the stored form of a kind: empty, "Lkey", "CKey" with a length, "Text" or "Today". Blanks around it are
/// ignored, and only its first two letters count, in either case.
/// @return nothing for any other text; the word "None" is one of these
[[nodiscard]] std::optional<ParameterKind> readParameterKind(std::string_view parmIs);

/// The length of a stored CKey as the forms and lists show it: its last two characters as they stand.
[[nodiscard]] std::string_view keyLengthOf(std::string_view parmIs);
