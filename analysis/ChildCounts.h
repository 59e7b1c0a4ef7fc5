// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/KeyIndex.h"

/// Counts the children of all nodes in one pass; `clsNavSchemes::GetChildren` and `IsFType` need one pass per node.
class ChildCounts {
  public:
    /// Prepares for `count` nodes in all.
    explicit ChildCounts(std::size_t count) { byParent_.reserve(count); }

    /// Counts a child of the node `parent`. Call it for every node.
    void add(std::int32_t parent, bool isFixed);

    struct Children {
        std::int16_t count = 0;  ///< stops at 32,767
        bool hasFixed = false;   ///< whether one of them is of type F
    };
    /// The children of the nodes with this ID.
    [[nodiscard]] Children of(std::int32_t id) const {
        const auto found = byParent_.find(id);
        if (found == KeyIndex::none) return {};
        return {static_cast<std::int16_t>(found & ~fixedBit), (found & fixedBit) != 0};
    }

  private:
    static constexpr std::uint32_t fixedBit = 1U << 16;

    KeyIndex byParent_;  // maps to the count, with `fixedBit` set if one child is of type F
};
