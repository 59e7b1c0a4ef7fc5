// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "database/GeneratedTree.h"

// Nodes of the tree between the browser and this program, as JSON: {"n": the scheme's node, or null, "k": the key,
// "t": the text, "g": whether a query made it, "b": whether there may be something below it}.

[[nodiscard]] std::string nodeAsJson(const TreeNode& node, const GeneratedTree& tree);

/// What is below a node: {"nodes": [...], "total": how many there are, "error": why there are none}.
[[nodiscard]] std::string branchAsJson(const TreeBranch& branch, const GeneratedTree& tree);

/// What a page or a branch is asked for.
struct AskedNode {
    TreeNode node;
    std::string tab;  ///< names the browser's tab
};

/// @return nothing where it cannot be read, or names a node that is not in the scheme
[[nodiscard]] std::optional<AskedNode> askedNode(std::string_view json, const clsNavSchemes& navs);
