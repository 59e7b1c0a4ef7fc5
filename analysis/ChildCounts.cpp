// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"

#include <limits>

void ChildCounts::add(std::int32_t parent, bool isFixed) {
    auto place = parents_.find(parent);
    if (place == KeyIndex::none) {
        place = static_cast<std::uint32_t>(children_.size());
        parents_.insert(parent, place);
        children_.emplace_back();
    }
    auto& children = children_[place];
    if (children.count < std::numeric_limits<std::int16_t>::max()) ++children.count;
    children.hasFixed = children.hasFixed || isFixed;
}
