// SPDX-License-Identifier: MIT
#include "preview/Request.h"

#include <algorithm>

namespace {

char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

std::string_view Request::header(std::string_view name) const {
    std::string_view value;
    int count = 0;
    for (const auto& [key, content] : headers) {
        if (!std::ranges::equal(key, name, {}, lowered, lowered)) continue;
        value = content;
        ++count;
    }
    return count == 1 ? value : std::string_view();
}

bool Request::hasHeader(std::string_view name) const {
    return std::ranges::any_of(
        headers, [&](const auto& row) { return std::ranges::equal(row.first, name, {}, lowered, lowered); });
}

Answer plainAnswer(int status, std::string words) {
    return {.status = status, .type = "text/plain; charset=utf-8", .body = std::move(words) + "\n"};
}
