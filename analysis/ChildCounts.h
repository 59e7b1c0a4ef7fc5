// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/KeyIndex.h"

/// Counts the children of all nodes in one pass, where `clsNavSchemes::GetChildren` and `IsFType` take a pass for
/// each node.
class ChildCounts {
  public:
    /// Expects `count` nodes in all.
    explicit ChildCounts(std::size_t count) { byParent_.reserve(count); }

    /// To be told of every node.
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

    KeyIndex byParent_;  // in place of a place the count itself, with this bit where one is of type F
};
