// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// How many bytes of a picture tell what it is.
inline constexpr std::size_t pictureHead = 16;

/// The media type of a picture that browsers show, such as "image/png", told from its first bytes; empty for anything
/// else.
[[nodiscard]] std::string_view pictureType(std::string_view bytes);
