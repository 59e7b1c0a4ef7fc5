// SPDX-License-Identifier: MIT
#include "database/PictureBytes.h"

#include <algorithm>

using namespace std::string_view_literals;

namespace {

struct Beginning {
    std::size_t place;
    std::string_view bytes;
    std::string_view type;
};
constexpr Beginning beginnings[] = {
    {0, "GIF87a"sv, "image/gif"},        {0, "GIF89a"sv, "image/gif"}, {0, "\x89PNG\r\n\x1A\n"sv, "image/png"},
    {0, "\xFF\xD8\xFF"sv, "image/jpeg"}, {0, "BM"sv, "image/bmp"},     {8, "WEBP"sv, "image/webp"},
    {4, "ftypavif"sv, "image/avif"},
};

}  // namespace

std::string_view pictureType(std::string_view bytes) {
    const auto* const found = std::ranges::find_if(beginnings, [&](const Beginning& row) {
        return bytes.size() >= row.place && bytes.substr(row.place).starts_with(row.bytes);
    });
    return found == std::end(beginnings) ? std::string_view() : found->type;
}
