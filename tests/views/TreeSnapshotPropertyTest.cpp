// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "Helpers.h"
#include "PlainTree.h"
#include "views/TreeSnapshot.h"

// The tree of random schemes.

namespace {

std::string printed(std::size_t level, const std::string& key, std::string_view text, int picture) {
    return std::string(2 * level, ' ') + key + " '" + std::string(text) + "' " + std::to_string(picture);
}

Rows rowsOf(const PlainTree& tree) {
    Rows rows;
    for (const auto& row : tree.rows) rows.push_back(printed(row.level, row.key, row.text, row.picture));
    return rows;
}

Rows rowsOf(const TreeSnapshot& tree) {
    Rows rows;
    std::vector<std::size_t> levels;
    for (std::uint32_t number = 0; number < tree.count(); ++number) {
        const auto& row = tree.row(number);
        levels.push_back(number == 0 ? 0 : levels.at(row.parent) + 1);
        rows.push_back(
            printed(levels.back(), TreeSnapshot::key(row), row.text.view(), static_cast<int>(row.picture)));
        if (number != 0) RC_ASSERT(tree.child(tree.row(row.parent), row.placeInParent) == number);
    }
    return rows;
}

std::vector<std::string> descriptionsOf(const clsNavSchemes& navs) {
    std::vector<std::string> descriptions;
    for (const auto& node : navs.NewEnum()) descriptions.emplace_back(node->descriptionIs.view());
    return descriptions;
}

// Each row's number must lead to the node that the row shows.
void checkThatNumbersLeadToTheRows(const clsNavSchemes& navs) {
    const TreeSnapshot tree(navs);
    for (std::uint32_t number = 0; number < tree.count(); ++number) {
        const auto node = navs.Item(tree.row(number).id);
        RC_ASSERT(node != nullptr);
        RC_ASSERT(node->ID == tree.row(number).id);
        if (number == 0)
            RC_ASSERT(node->parentIs == 0);
        else
            RC_ASSERT(node->descriptionIs == tree.row(number).text.view());
    }
    for (const auto& node : navs.NewEnum()) RC_ASSERT(navs.Item(node->ID) != nullptr);
}

// Loops, twins, several roots, unknown types and nodes without a parent included.
void draw(clsNavSchemes& navs) {
    const auto count = *rc::gen::inRange(0, 12);
    for (int key = 1; key <= count; ++key)
        navs.Add(makeNode(key, *rc::gen::inRange(-1, 9), *rc::gen::element("F", "F", "G", "R", "N", "", "f", "FG"),
                          "d" + std::to_string(key)));
    for (int key = 1; key <= count; ++key)
        if (*rc::gen::inRange(0, 4) == 0) navs.Item(key)->ID = *rc::gen::inRange(-1, 9);
}

}  // namespace

RC_GTEST_PROP(TreeSnapshotProperty, ShowsWhatTheDirectWayShows, ()) {
    clsNavSchemes navs;
    draw(navs);
    RC_ASSERT(rowsOf(TreeSnapshot(navs)) == rowsOf(PlainTree(navs)));
}

// Also where nodes share a number after a renumbering, and after the deletion of one of them.
RC_GTEST_PROP(TreeSnapshotProperty, OnceTheNodesAreFiledAnewEachRowsNumberLeadsToItsNode, ()) {
    clsNavSchemes navs;
    draw(navs);
    for (int round = *rc::gen::inRange(1, 4); round > 0; --round) {
        const auto before = descriptionsOf(navs);
        if (*rc::gen::inRange(0, 3) != 0) static_cast<void>(navs.Renumber());
        navs.FileAnew();
        RC_ASSERT(descriptionsOf(navs) == before);
        checkThatNumbersLeadToTheRows(navs);
        const TreeSnapshot tree(navs);
        if (tree.count() > 1 && *rc::gen::inRange(0, 2) == 0) {
            navs.DelNode(std::to_string(tree.row(*rc::gen::inRange(1U, tree.count())).id));
            checkThatNumbersLeadToTheRows(navs);
        }
    }
}
