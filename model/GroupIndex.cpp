// SPDX-License-Identifier: MIT
#include "model/GroupIndex.h"

std::uint32_t GroupIndex::groupFor(std::int32_t number) {
    if (lastGroup_ == KeyIndex::none || number != lastNumber_) {
        const auto next = static_cast<std::uint32_t>(ends_.size());
        lastNumber_ = number;
        if (groups_.insert(number, next)) {
            ends_.push_back(0);
            lastGroup_ = next;
        } else {
            lastGroup_ = groups_.find(number);
        }
    }
    ++ends_[lastGroup_];
    return lastGroup_;
}

void GroupIndex::distribute(const LargeArray<std::uint32_t>& groupOf) {
    std::uint32_t start = 0;  // ends_ holds sizes: make them starts; filling the groups then makes them ends
    for (auto& end : ends_) {
        const auto size = end;
        end = start;
        start += size;
    }
    members_.resize(start);
    for (std::uint32_t place = 0; place < groupOf.size(); ++place)
        if (groupOf[place] != KeyIndex::none) members_[ends_[groupOf[place]]++] = place;
}
