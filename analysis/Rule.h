// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

/// The types of records that a rule is for: a set of capital letters. No other character is ever in it.
class TypeSet {
  public:
    constexpr TypeSet(const char* letters) {
        for (const char letter : std::string_view(letters)) bits_ |= bitOf(letter);
    }
    [[nodiscard]] constexpr bool has(char type) const { return (bits_ & bitOf(type)) != 0; }

  private:
    static constexpr std::uint32_t bitOf(char letter) {
        return letter >= 'A' && letter <= 'Z' ? std::uint32_t{1} << (letter - 'A') : 0;
    }
    std::uint32_t bits_ = 0;
};

/// One rule of a scheme, and so one row of the table that an analysis goes through.
///
/// @tparam Record what the rule looks at: the plain values of a node or of a paragraph
template <class Record>
struct Rule {
    TypeSet types;
    bool (*isBroken)(const Record&);
    std::string_view finding;  ///< begins the line that says what was found
    std::string_view text;     ///< the rule, in the words of the report

    /// Whether a record of this type breaks the rule.
    [[nodiscard]] bool isBrokenBy(const Record& record, char type) const {
        return types.has(type) && isBroken(record);
    }
};
