// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "model/LargeArray.h"

/// Maps 32-bit numbers (keys, IDs) to places 0, 1, 2 … in a list.
///
/// IDs are mostly small and close together, so those below four times the number of entries are kept in a plain
/// table, where a look-up is one memory access; the others go to a hash table. Every operation is O(1) for any
/// numbers: the hash is seeded anew in each run, so nobody can choose numbers that collide.
class KeyIndex {
  public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;  ///< stands for the place of a number that has none

    /// Prepares for `count` entries in all, so that the table has its final size at once.
    void reserve(std::size_t count);
    /// @return the place of `number`, or `none`
    [[nodiscard]] std::uint32_t find(std::int32_t number) const {
        const auto inTable = static_cast<std::uint32_t>(number);
        const auto place = inTable < table_.size() ? table_[inTable] : none;
        return place != none || others_.empty() ? place : findOther(number);
    }
    /// Gives `number` a place. @return false, changing nothing, if it has one already
    bool insert(std::int32_t number, std::uint32_t place);
    /// Gives `number` a place, replacing the one it has.
    void set(std::int32_t number, std::uint32_t place);
    /// Removes `number`, if it has a place.
    void erase(std::int32_t number);
    void clear();

  private:
    struct Mixed {
        std::size_t operator()(std::int32_t number) const noexcept;
    };

    [[nodiscard]] std::uint32_t findOther(std::int32_t number) const;
    std::uint32_t& slotFor(std::int32_t number);  // makes one that holds `none` if there is none

    LargeArray<std::uint32_t> table_;                                // by number, `none` where there is no entry
    std::unordered_map<std::int32_t, std::uint32_t, Mixed> others_;  // numbers inserted while outside the table
    std::size_t expected_ = 0;  // entries: `reserve`d, or as many as `inserted_` if that is more
    std::size_t inserted_ = 0;  // entries that were inserted while outside the table
};
