// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "database/Database.h"
#include "model/NodeTree.h"
#include "model/clsNavSchemes.h"

// The tree as Pelmo shows it: fixed nodes come from the scheme, the others from the queries above them.

/// A node of that tree.
struct TreeNode {
    const clsNavScheme* node = nullptr;  ///< what it is made after, whose page it shows; null below a generating node
                                         ///< that has no child in the scheme: it then shows nothing and has nothing
                                         ///< below it
    ClickedNode clicked;                 ///< its key and text
};

/// What is directly below a node.
struct TreeBranch {
    std::vector<TreeNode> nodes;
    std::uint64_t total = 0;            ///< how many there are; more than `nodes` at the limit
    std::string error;                  ///< if its query failed
    bool isTooSlow = false;             ///< whether it failed because its time was over
    std::vector<std::string> fields;    ///< of its query
    std::chrono::microseconds time{0};  ///< of its query
};

class GeneratedTree {
  public:
    /// @param navs must outlive this
    GeneratedTree(const clsNavSchemes& navs, std::string today);

    /// The root, whose key is "0". `node` is null in a scheme without one.
    [[nodiscard]] TreeNode root() const;
    /// How many nodes of the scheme are not below the root.
    [[nodiscard]] std::size_t unreachedNodes() const;
    /// Whether there may be something below it.
    [[nodiscard]] bool isBranch(const TreeNode& parent) const;
    /// What is below it: children in the scheme (types F and, at the root, others), or the rows of its query (types G
    /// and R), each made after the only child of a G node, or after the R node itself. The query runs in a page of
    /// its own. @throws DatabaseError
    [[nodiscard]] TreeBranch below(const TreeNode& parent, Database& database, const QueryLimits& limits) const;

  private:
    [[nodiscard]] const clsNavScheme* madeAfter(const clsNavScheme& node) const;
    [[nodiscard]] TreeBranch childrenOf(const clsNavScheme& node) const;
    [[nodiscard]] TreeBranch rowsBelow(const TreeNode& parent, Database& database, const QueryLimits& limits) const;

    const clsNavSchemes& navs_;
    std::string today_;
    NodeTree tree_;
};
