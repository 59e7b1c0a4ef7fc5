// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/KeyIndex.h"

/// Counts the children of all nodes in one pass, where `clsNavSchemes::GetChildren` and `IsFType` take a pass for
/// each node.
class ChildCounts {
  public:
    /// Expects `count` nodes in all.
    explicit ChildCounts(std::size_t count) { parents_.reserve(count); }

    /// To be told of every node.
    void add(std::int32_t parent, bool isFixed);

    struct Children {
        std::int16_t count = 0;  ///< stops at 32,767
        bool hasFixed = false;   ///< whether one of them is of type F
    };
    /// The children of the nodes with this ID.
    [[nodiscard]] Children of(std::int32_t id) const {
        const auto place = parents_.find(id);
        return place == KeyIndex::none ? Children() : children_[place];
    }

  private:
    KeyIndex parents_;  // parent's ID -> place in children_
    std::vector<Children> children_;
};
