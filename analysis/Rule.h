// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The types of records that a rule applies to: a set of capital letters. It never contains any other character.
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

/// One rule of a scheme: one row of the table that an analysis goes through.
///
/// @tparam Facts what the rule examines: the plain values of a node, or a paragraph
template <class Facts>
struct Rule {
    TypeSet types;
    int number;              ///< the rule's number in the list at the beginning of the report
    std::string_view field;  ///< the field that the rule is about: where to look for the cause
    bool (*isBroken)(const Facts&);
    std::string_view finding;  ///< the beginning of the line that says what was found
    std::string_view text;     ///< the rule, in the words of the report
    bool isComment = false;    ///< the text itself says that this is no violation
};

/// One rule that one record breaks. It points to both, and is valid until the scheme changes.
template <class Record, class Facts>
struct Finding {
    const Rule<Facts>* rule;
    const Record* record;
    std::uint32_t place;  ///< of the record in collection order, from 0
};

/// Calls `take` with each rule that a record of this type breaks, in the order of the table.
template <class Facts, class Take>
void forEachBroken(std::span<const Rule<Facts>> rules, char type, const Facts& facts, Take take) {
    for (const auto& rule : rules)
        if (rule.types.has(type) && rule.isBroken(facts)) take(rule);
}
