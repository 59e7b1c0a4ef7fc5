// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as databases write them: "42", "-0.5", "1e3".

/// The value of a text that is a number and nothing else, but for blanks around it.
[[nodiscard]] std::optional<double> numberIn(std::string_view text);

/// How many digits are behind the decimal point; nothing for a number with an exponent and for other texts.
[[nodiscard]] std::optional<int> decimalsOf(std::string_view text);

/// Adds numbers up as one does on paper, so that 0.1 and 0.2 are 0.3. Numbers too long for that are added with the
/// precision of a double.
class Sum {
  public:
    /// @return false if the text is no number; it then adds nothing
    bool add(std::string_view text);
    /// With as many decimals as the number with most of them.
    [[nodiscard]] std::string text() const;

  private:
    bool addExactly(std::string_view text);

    std::int64_t units_ = 0;  // the sum, times ten to the power of decimals_
    int decimals_ = 0;
    double rough_ = 0;
    bool isExact_ = true;
};
