// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "model/KeyIndex.h"
#include "model/LargeArray.h"

/// Groups the places of a list by a number and keeps their order: the children of each node, the paragraphs of each
/// node. Built in O(n) for one operation; it does not follow later changes of the list.
class GroupIndex {
  public:
    /// @param count   length of the list
    /// @param numberOf callable: place -> pointer to the number to group it by; null leaves the place out
    template <class NumberOf>
    GroupIndex(std::uint32_t count, NumberOf numberOf) {
        LargeArray<std::uint32_t> groupOf(count, KeyIndex::none);
        groups_.reserve(count);
        for (std::uint32_t place = 0; place < count; ++place)
            if (const std::int32_t* number = numberOf(place)) groupOf[place] = groupFor(*number);
        distribute(groupOf);
    }

    GroupIndex() = default;

    /// The places that were grouped under `number`, ascending.
    [[nodiscard]] std::span<const std::uint32_t> operator[](std::int32_t number) const {
        const auto found = find(number);
        return found == KeyIndex::none ? std::span<const std::uint32_t>() : group(found);
    }
    /// The group of `number`; `KeyIndex::none` if nothing was grouped under it.
    [[nodiscard]] std::uint32_t find(std::int32_t number) const { return groups_.find(number); }
    /// The places of that group.
    [[nodiscard]] std::span<const std::uint32_t> group(std::uint32_t group) const {
        const auto start = group == 0 ? 0 : ends_[group - 1];
        return std::span(members_).subspan(start, ends_[group] - start);
    }

  private:
    std::uint32_t groupFor(std::int32_t number);  // counts one more member
    void distribute(const LargeArray<std::uint32_t>& groupOf);

    KeyIndex groups_;
    LargeArray<std::uint32_t> ends_;  // group g holds members_[ends_[g - 1] .. ends_[g])
    LargeArray<std::uint32_t> members_;
    std::uint32_t lastGroup_ = KeyIndex::none;
    std::int32_t lastNumber_ = 0;
};
