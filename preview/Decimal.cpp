// SPDX-License-Identifier: MIT
#include "preview/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

constexpr int mostDigits = 18;  // of a 64-bit integer, whatever they are

std::string_view trimmed(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string_view withoutSign(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return text;
}

bool timesTen(std::int64_t& number, int times) {
    for (; times > 0; --times)
        if (__builtin_mul_overflow(number, 10, &number)) return false;
    return true;
}

}  // namespace

std::optional<double> numberIn(std::string_view text) {
    text = trimmed(text);
    const auto digits = withoutSign(text);
    if (digits.empty() || (!isDigit(digits[0]) && digits[0] != '.')) return {};
    if (text[0] == '+') text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) return {};
    return value;
}

std::optional<int> decimalsOf(std::string_view text) {
    if (!numberIn(text)) return {};
    text = withoutSign(trimmed(text));
    const auto point = text.find('.');
    const auto behind = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    if (!std::ranges::all_of(point == std::string_view::npos ? text : behind, isDigit)) return {};
    return static_cast<int>(behind.size());
}

bool Sum::add(std::string_view text) {
    const auto value = numberIn(text);
    if (!value) return false;
    rough_ += *value;
    isExact_ = isExact_ && addExactly(trimmed(text));
    return true;
}

bool Sum::addExactly(std::string_view text) {
    const auto decimals = decimalsOf(text);
    if (!decimals || text.size() > mostDigits) return false;
    std::int64_t units = 0;
    for (const auto character : text)
        if (isDigit(character)) units = units * 10 + (character - '0');
    if (text.starts_with('-')) units = -units;
    if (!timesTen(units, decimals_ - *decimals) || !timesTen(units_, *decimals - decimals_)) return false;
    decimals_ = std::max(decimals_, *decimals);
    return !__builtin_add_overflow(units_, units, &units_);
}

std::string Sum::text() const {
    if (!isExact_) {
        std::array<char, 40> rough{};
        std::snprintf(rough.data(), rough.size(), "%.15g", rough_);
        return rough.data();
    }
    auto digits = std::to_string(units_);
    const bool isNegative = digits.starts_with('-');
    if (isNegative) digits.erase(0, 1);
    const auto decimals = static_cast<std::size_t>(decimals_);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - decimals, 1, '.');
    return (isNegative ? "-" : "") + digits;
}
