#pragma once

#include <cstdint>
#include <vector>

#include "model/GroupIndex.h"
#include "model/KeyedCollection.h"
#include "model/clsNavScheme.h"

/// Groups the nodes of a scheme by their parent's ID, in collection order.
[[nodiscard]] inline GroupIndex childrenByParent(const KeyedCollection<clsNavScheme>& nodes) {
    const auto slots = nodes.Slots();
    return {static_cast<std::uint32_t>(slots.size()),
            [&](std::uint32_t slot) { return slots[slot] ? &slots[slot]->parentIs : nullptr; }};
}

/// The one way through the tree that saving, renumbering and drawing share: pre-order from the root, which is the
/// first node whose parent is 0; the children of a node in collection order.
///
/// Takes O(n) for any scheme, a chain of a million nodes or one with loops included: it is not recursive and enters
/// each node once.
///
/// @param visit callable: (const std::shared_ptr<clsNavScheme>& node, std::size_t depth) -> bool, where the root has
///              depth 0; false leaves out what is below the node. It must change neither IDs nor parents.
template <class Visit>
void walkTree(const KeyedCollection<clsNavScheme>& nodes, Visit visit) {
    const auto slots = nodes.Slots();
    std::uint32_t root = 0;
    while (root < slots.size() && !(slots[root] && slots[root]->parentIs == 0)) ++root;
    if (root == slots.size()) return;

    const GroupIndex children = childrenByParent(nodes);
    std::vector<bool> entered(slots.size());
    std::vector<std::span<const std::uint32_t>> open;  // by depth: the siblings still to visit
    const std::uint32_t start[] = {root};
    open.emplace_back(start);
    while (!open.empty()) {
        auto& siblings = open.back();
        if (siblings.empty()) {
            open.pop_back();
            continue;
        }
        const auto slot = siblings.front();
        siblings = siblings.subspan(1);
        if (entered[slot]) continue;
        entered[slot] = true;
        if (visit(slots[slot], open.size() - 1)) open.push_back(children[slots[slot]->ID]);
    }
}
