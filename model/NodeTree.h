// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "model/GroupIndex.h"
#include "model/KeyedCollection.h"
#include "model/clsNavScheme.h"

/// The tree of a scheme's nodes at the moment of construction, in arrays by collection slot (see
/// KeyedCollection::Slots). The records are read once, in memory order; that makes a walk through a million of them
/// fast, whatever their order in the tree.
class NodeTree {
  public:
    explicit NodeTree(const KeyedCollection<clsNavScheme>& nodes);

    /// The slots of the nodes whose parent has this ID, in collection order.
    [[nodiscard]] std::span<const std::uint32_t> childrenOf(std::int32_t id) const { return children_[id]; }

    /// Visits the tree in the order that saving, renumbering and drawing share: pre-order from the root, which is
    /// the first node whose parent is 0; the children of a node in collection order.
    ///
    /// Takes O(n) for any scheme, including a chain of a million nodes or one with loops: it is not recursive and
    /// enters each node once.
    ///
    /// @param visit callable: (std::uint32_t slot, std::size_t depth) -> bool, where the root has depth 0; return
    ///              false to skip everything below the node
    template <class Visit>
    void walk(Visit visit) const {
        std::vector<bool> entered(childGroups_.size());
        std::vector<std::span<const std::uint32_t>> open;  // by depth: the siblings still to visit
        open.emplace_back(root_);
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
            if (visit(slot, open.size() - 1) && childGroups_[slot] != KeyIndex::none)
                open.push_back(children_.group(childGroups_[slot]));
        }
    }

  private:
    GroupIndex children_;                    // slots by parent ID
    LargeArray<std::uint32_t> childGroups_;  // by slot: the group of the node's children
    std::vector<std::uint32_t> root_;        // the root's slot, if there is a root
};

/// `NodeTree::walk` with the nodes themselves.
/// @param visit callable: (const std::shared_ptr<clsNavScheme>& node, std::size_t depth) -> bool
template <class Visit>
void walkTree(const KeyedCollection<clsNavScheme>& nodes, Visit visit) {
    NodeTree(nodes).walk([&](std::uint32_t slot, std::size_t depth) { return visit(nodes.Slots()[slot], depth); });
}
