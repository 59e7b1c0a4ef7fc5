// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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
};

/// The rules of a table that are for one type, in the table's order: a large scheme is held against them record by
/// record.
template <class Record>
class RulesByType {
  public:
    template <std::size_t count>
    explicit RulesByType(const Rule<Record> (&table)[count]) : rules_(256) {
        for (std::size_t type = 0; type < rules_.size(); ++type)
            for (const auto& rule : table)
                if (rule.types.has(static_cast<char>(type))) rules_[type].push_back(&rule);
    }
    [[nodiscard]] const std::vector<const Rule<Record>*>& of(char type) const {
        return rules_[static_cast<unsigned char>(type)];
    }

  private:
    std::vector<std::vector<const Rule<Record>*>> rules_;
};
