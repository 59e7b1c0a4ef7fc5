// SPDX-License-Identifier: MIT
#include "forms/KeyLength.h"

#include <algorithm>

namespace {

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool areDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Rounds to the nearest whole number, halves to the even one.
bool roundsUp(std::string_view whole, std::string_view fraction) {
    if (fraction.empty() || fraction.front() != '5') return !fraction.empty() && fraction.front() > '5';
    const bool isOdd = !whole.empty() && (whole.back() - '0') % 2 != 0;
    return isOdd || fraction.find_first_not_of('0', 1) != std::string_view::npos;
}

void addOne(std::string& digits) {
    auto digit = digits.rbegin();
    for (; digit != digits.rend() && *digit == '9'; ++digit) *digit = '0';
    if (digit == digits.rend())
        digits.insert(0, 1, '1');
    else
        ++*digit;
}

}  // namespace

std::optional<std::string> keyLengthIn(std::string_view text) {
    text = withoutBlanks(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    const auto whole = text.substr(0, text.find('.'));
    const auto fraction = whole.size() == text.size() ? std::string_view() : text.substr(whole.size() + 1);
    if (!areDigits(whole) || !areDigits(fraction) || (whole.empty() && fraction.empty())) return {};

    std::string digits(whole);
    if (roundsUp(whole, fraction)) addOne(digits);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    const bool isZero = digits.empty();
    if (digits.size() < 2) digits.insert(0, 2 - digits.size(), '0');
    return isNegative && !isZero ? "-" + digits : digits;
}
