// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "model/clsNavSchemes.h"
#include "tests/model/Reference.h"

// Any bytes load as the plain reference reads them. Saving writes the tree, which loads and saves again unchanged.
// Renumbering numbers that tree from 1 on.

namespace {

std::vector<std::string> rowsOf(const clsNavSchemes& navs) {
    std::vector<std::string> rows;
    for (const auto& node : navs.NewEnum()) {
        std::string row = std::to_string(node->ID);
        for (const auto field : {node->descriptionIs.view(), node->typeIs().view()}) row += "|" + std::string(field);
        row += "|" + std::to_string(node->parentIs);
        for (const auto field :
             {node->queryIs().view(), node->parmIs().view(), node->iconIs.view(), node->roleIs.view()})
            row += "|" + std::string(field);
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::size_t> treeOrder(const clsNavSchemes& navs) {
    std::vector<reference::Link> links;
    for (const auto& node : navs.NewEnum()) links.push_back({node->ID, node->parentIs});
    return reference::treeOrder(links);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    clsNavSchemes navs;
    load(navs, bytes);
    const auto rows = rowsOf(navs);
    require(rows == reference::nodesIn(bytes), "nodes load like the reference");

    const auto order = treeOrder(navs);
    const auto saved = savedBytes(navs);
    clsNavSchemes again;
    load(again, saved);
    std::vector<std::string> reachable;
    for (const auto place : order) reachable.push_back(rows[place]);
    require(rowsOf(again) == reachable, "what is saved is the tree");
    require(again.Count() == 0 || savedBytes(again) == saved, "saving is stable");

    require(navs.Renumber() == (navs.Count() != 0), "renumbering answers whether there are nodes");
    std::vector<std::int32_t> ids;
    for (const auto& node : navs.NewEnum()) ids.push_back(node->ID);
    std::int32_t last = 0;
    for (const auto place : order) require(ids[place] == ++last, "numbers follow the tree order");
    const auto renumbered = savedBytes(navs);
    require(navs.Renumber() == (navs.Count() != 0), "renumbering answers whether there are nodes");
    // (A node outside the tree gets the parent 0, so it may become the root.)
    if (order.size() == rows.size())
        require(savedBytes(navs) == renumbered, "renumbering a tree again changes nothing that is saved");

    navs.DelNode("1");
    navs.NewScheme();
    require(rowsOf(navs) == std::vector<std::string>{"1|Data Browser|F|0|||leaf|"}, "the new scheme has its root");
    return 0;
}
