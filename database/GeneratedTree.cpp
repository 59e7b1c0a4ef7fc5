// SPDX-License-Identifier: MIT
#include "database/GeneratedTree.h"

#include "model/CodePage.h"
#include "model/NodeType.h"

namespace {

TreeNode fixedNode(const clsNavScheme& node) {
    return {&node, {.key = "0", .text = toUtf8(node.descriptionIs), .isGenerated = false}};
}

// What a query without a second field shows is the key.
ClickedNode generated(const std::vector<Cell>& row) {
    const auto& text = row.size() > 1 ? row[1].text : row[0].text;
    return {.key = row[0].text, .text = text, .isGenerated = true};
}

}  // namespace

GeneratedTree::GeneratedTree(const clsNavSchemes& navs, std::string today)
    : navs_(navs), today_(std::move(today)), tree_(navs.NewEnum()) {
}

TreeNode GeneratedTree::root() const {
    TreeNode root;
    tree_.walk([&](std::uint32_t slot, std::size_t) {
        root = fixedNode(*navs_.NewEnum().Slots()[slot]);
        return false;
    });
    return root;
}

std::size_t GeneratedTree::unreachedNodes() const {
    std::size_t reached = 0;
    tree_.walk([&](std::uint32_t, std::size_t) { return ++reached > 0; });
    return static_cast<std::size_t>(navs_.Count()) - reached;
}

bool GeneratedTree::isBranch(const TreeNode& parent) const {
    return parent.node != nullptr &&
           (callsQuery(parent.node->typeIs().letter()) || !tree_.childrenOf(parent.node->ID).empty());
}

const clsNavScheme* GeneratedTree::madeAfter(const clsNavScheme& node) const {
    if (const auto* const type = nodeType(node.typeIs().letter()); type && type->repeatsItself) return &node;
    const auto children = tree_.childrenOf(node.ID);
    return children.empty() ? nullptr : navs_.NewEnum().Slots()[children.front()].get();
}

TreeBranch GeneratedTree::below(const TreeNode& parent, Database& database, const QueryLimits& limits) const {
    if (parent.node == nullptr) return {};
    return callsQuery(parent.node->typeIs().letter()) ? rowsBelow(parent, database, limits)
                                                      : childrenOf(*parent.node);
}

TreeBranch GeneratedTree::childrenOf(const clsNavScheme& node) const {
    TreeBranch branch;
    for (const auto slot : tree_.childrenOf(node.ID))
        branch.nodes.push_back(fixedNode(*navs_.NewEnum().Slots()[slot]));
    branch.total = branch.nodes.size();
    return branch;
}

TreeBranch GeneratedTree::rowsBelow(const TreeNode& parent, Database& database, const QueryLimits& limits) const {
    TreeBranch branch;
    const auto call = callOf(parent.node->queryIs(), parent.node->parmIs(), parent.clicked, today_);
    if (!call) {
        branch.error = "This node names no query, or its parameter kind is none that is read.";
        return branch;
    }
    const DatabasePage page(database);
    const auto result = database.run(*call, QueryKind::Rows, limits);
    const auto* const node = madeAfter(*parent.node);
    for (const auto& row : result.rows) branch.nodes.push_back({node, generated(row)});
    branch.total = result.total;
    branch.error = result.error;
    branch.isTooSlow = result.isTooSlow;
    branch.fields = result.fields;
    branch.time = result.time;
    return branch;
}
