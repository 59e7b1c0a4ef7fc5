// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Reads a whole number of 32 bits as the text files and the forms write it: blanks (0x20) around it are ignored,
/// a sign is allowed, a fraction is rounded to the nearest whole number, halves to the even one ("2.5" is 2).
/// @return nothing for an empty text, for other bytes before or after the number, or for a value outside 32 bits
[[nodiscard]] std::optional<std::int32_t> readInteger(std::string_view text);

/// The same, but a text with a fraction is not a number.
[[nodiscard]] std::optional<std::int32_t> readWholeNumber(std::string_view text);

/// Reads a collection key, which is a number written exactly as `keyText` writes it.
/// @return nothing for any other text, such as "07", "+7", " 7" or "-0"
[[nodiscard]] std::optional<std::int32_t> readKey(std::string_view key);

/// The decimal text of a number: "0", "17", "-3". It is the key of a record with that ID.
[[nodiscard]] std::string keyText(std::int32_t number);
