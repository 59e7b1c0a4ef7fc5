// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "model/LargeArray.h"

/// Maps 32-bit numbers (keys, IDs) to places 0, 1, 2 … in a list.
///
/// IDs are mostly small and close together, so those below four times the number of entries sit in a plain table,
/// where finding one is one memory access; the others go to a hash table. Every operation is O(1), whatever the
/// numbers are: where one goes in the hash table is different in each run, so none can be chosen to meet.
class KeyIndex {
  public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;  ///< the place of a number that is not here

    /// Expects `count` entries in all, so that the table has its size at once.
    void reserve(std::size_t count);
    /// @return the place of `number`, or `none`
    [[nodiscard]] std::uint32_t find(std::int32_t number) const {
        const auto inTable = static_cast<std::uint32_t>(number);
        const auto place = inTable < table_.size() ? table_[inTable] : none;
        return place != none || others_.empty() ? place : findOther(number);
    }
    /// Gives `number` a place. @return false, changing nothing, when it has one
    bool insert(std::int32_t number, std::uint32_t place);
    /// Gives `number` a place, replacing the one it has.
    void set(std::int32_t number, std::uint32_t place);
    /// Forgets `number`, if it is here.
    void erase(std::int32_t number);
    void clear();

  private:
    struct Mixed {
        std::size_t operator()(std::int32_t number) const noexcept;
    };

    [[nodiscard]] std::uint32_t findOther(std::int32_t number) const;
    std::uint32_t& slotFor(std::int32_t number);  // makes one, holding `none`, where there is none

    LargeArray<std::uint32_t> table_;                                // by number, `none` where there is no entry
    std::unordered_map<std::int32_t, std::uint32_t, Mixed> others_;  // the numbers outside the table when they came
    std::size_t expected_ = 0;  // entries: those reserved, or those below if they are more
    std::size_t inserted_ = 0;  // entries that were outside the table when they came
};
