// SPDX-License-Identifier: MIT
#include "model/Integer.h"

#include <charconv>
#include <limits>

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view takeDigits(std::string_view& text) {
    std::size_t n = 0;
    while (n < text.size() && isDigit(text[n])) ++n;
    const auto digits = text.substr(0, n);
    text.remove_prefix(n);
    return digits;
}

// Whether these fraction digits round the whole number before them up.
bool roundsUp(std::string_view fraction, bool wholeIsOdd) {
    if (fraction.empty() || fraction.front() != '5') return !fraction.empty() && fraction.front() > '5';
    return wholeIsOdd || fraction.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

std::optional<std::int32_t> readInteger(std::string_view text) {
    // Nearly all numbers are digits alone, too few for a number that is too large.
    if (!text.empty() && text.size() <= std::numeric_limits<std::int32_t>::digits10) {
        std::int32_t plain = 0;
        std::size_t n = 0;
        for (; n < text.size() && isDigit(text[n]); ++n) plain = plain * 10 + (text[n] - '0');
        if (n == text.size()) return plain;
    }

    text = withoutBlanks(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);

    const auto whole = takeDigits(text);
    std::string_view fraction;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        fraction = takeDigits(text);
    }
    if (!text.empty() || (whole.empty() && fraction.empty())) return {};

    constexpr std::int64_t tooLarge = std::int64_t{1} << 32;
    std::int64_t value = 0;
    for (const char digit : whole) {
        value = value * 10 + (digit - '0');
        if (value > tooLarge) return {};
    }
    if (roundsUp(fraction, value % 2 != 0)) ++value;
    if (negative) value = -value;
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        return {};
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> readWholeNumber(std::string_view text) {
    if (text.find('.') != std::string_view::npos) return {};
    return readInteger(text);
}

std::optional<std::int32_t> readKey(std::string_view key) {
    std::int32_t number = 0;
    const char* end = key.data() + key.size();
    const auto [stop, error] = std::from_chars(key.data(), end, number);
    if (error != std::errc{} || stop != end) return {};
    const auto digits = number < 0 ? key.substr(1) : key;
    if (digits.size() > 1 && digits.front() == '0') return {};  // "07", "-07"
    if (!isDigit(digits.front())) return {};                    // "-0"
    return number;
}

std::string keyText(std::int32_t number) {
    return std::to_string(number);
}
