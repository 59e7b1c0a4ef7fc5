// SPDX-License-Identifier: MIT
#include "model/NodeTree.h"

NodeTree::NodeTree(const KeyedCollection<clsNavScheme>& nodes) {
    const auto slots = nodes.Slots();
    const auto count = static_cast<std::uint32_t>(slots.size());
    LargeArray<std::int32_t> ids(count);
    LargeArray<std::int32_t> parents(count);
    for (std::uint32_t slot = 0; slot < count; ++slot) {
        if (!slots[slot]) continue;
        ids[slot] = slots[slot]->ID;
        parents[slot] = slots[slot]->parentIs;
        if (parents[slot] == 0 && root_.empty()) root_.push_back(slot);
    }
    children_ = {count, [&](std::uint32_t slot) { return slots[slot] ? &parents[slot] : nullptr; }};
    childGroups_.resize(count);
    for (std::uint32_t slot = 0; slot < count; ++slot) childGroups_[slot] = children_.find(ids[slot]);
}
