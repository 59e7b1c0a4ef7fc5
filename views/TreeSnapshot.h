// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/LargeArray.h"
#include "model/clsNavSchemes.h"
#include "views/NodeLook.h"
#include "views/TextKeeper.h"

/// A snapshot of what the tree shows of a scheme: the nodes that can be reached from the root, in pre-order. A node
/// of unknown type is left out with its branch, and so is the second of two nodes with the same ID.
class TreeSnapshot {
  public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    struct Row {
        Text::Ref text;
        std::int32_t id = 0;
        std::uint32_t parent = none;      ///< row of the parent, `none` for the root
        std::uint32_t placeInParent = 0;  ///< 0 for the first child
        std::uint32_t firstChild = 0;     ///< see `child`
        std::uint32_t childCount = 0;
        NodePicture picture = NodePicture::none;
    };

    TreeSnapshot() = default;  ///< the empty tree
    explicit TreeSnapshot(const clsNavSchemes& scheme);

    [[nodiscard]] std::uint32_t count() const { return static_cast<std::uint32_t>(rows_.size()); }
    /// Row 0 is the root.
    [[nodiscard]] const Row& row(std::uint32_t number) const { return rows_[number]; }
    /// The row of the child at `place` (0 is the first) below `parent`.
    [[nodiscard]] std::uint32_t child(const Row& parent, std::uint32_t place) const {
        return children_[parent.firstChild + place];
    }
    /// The row of the node with this key ("N" and the ID), or `none`. O(n).
    [[nodiscard]] std::uint32_t find(std::string_view key) const;
    [[nodiscard]] static std::string key(const Row& row);
    /// The number of levels below the root.
    [[nodiscard]] std::size_t depth() const { return depth_; }

  private:
    void addChildLists();

    LargeArray<Row> rows_;
    LargeArray<std::uint32_t> children_;  // the child lists of all rows, one after the other
    std::size_t depth_ = 0;
    TextKeeper texts_;
};
