#pragma once

#include <cstdint>
#include <vector>

#include "model/KeyIndex.h"
#include "model/clsNavSchemes.h"

/// What the rules must know of the children of every node, counted in one pass over the scheme, where
/// `clsNavSchemes::GetChildren` and `IsFType` take a pass for each node. It does not follow later changes.
class ChildCounts {
  public:
    explicit ChildCounts(const clsNavSchemes& navs);

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
