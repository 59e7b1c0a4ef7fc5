// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The length of a character key as it is stored: at least two digits, "05", "12", "123". The number may be of any
/// size; it is read as `readInteger` reads 32-bit numbers, so "2.5" becomes "02".
/// @return nothing if the text is not a number
[[nodiscard]] std::optional<std::string> keyLengthIn(std::string_view text);
