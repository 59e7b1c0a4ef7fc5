// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The length of a character key as the stored kind has it: in two digits at least, "05", "12", "123". The number may
/// have any size; it is read as `readInteger` reads those of 32 bits, so that "2.5" is "02".
/// @return nothing when the text is no number
[[nodiscard]] std::optional<std::string> keyLengthIn(std::string_view text);
