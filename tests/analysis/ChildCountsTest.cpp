// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "tests/model/Helpers.h"

// The counts are those of `GetChildren` and `IsFType`, which look through all nodes for each one.

namespace {

ChildCounts countsOf(const clsNavSchemes& navs) {
    ChildCounts counts(static_cast<std::size_t>(navs.Count()));
    for (const auto& node : navs.NewEnum()) counts.add(node->parentIs, node->typeIs() == "F");
    return counts;
}

}  // namespace

RC_GTEST_PROP(ChildCounts, AreThoseOfTheScheme, ()) {
    clsNavSchemes navs;
    const int key = *rc::gen::inRange(0, 40);
    for (int node = 0; node < key; ++node)
        navs.Add(makeNode(node, *rc::gen::inRange(-2, 12), *rc::gen::element<std::string>("F", "G", "f", "")));
    for (const auto& node : navs.NewEnum())  // IDs may change and coincide after adding
        node->ID = *rc::gen::element(node->ID, node->ID % 5, 2'000'000'000 - node->ID, -node->ID);
    const auto removed = *rc::gen::inRange(0, 45);
    navs.Remove(std::to_string(removed));

    const auto counts = countsOf(navs);
    for (const auto& node : navs.NewEnum()) {
        RC_ASSERT(counts.of(node->ID).count == navs.GetChildren(*node));
        if (node->typeIs() == "G") RC_ASSERT(counts.of(node->ID).hasFixed == navs.IsFType(*node));
    }
}

TEST(ChildCounts, OfLeavesAndMissingNodesAreZero) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}});
    const auto counts = countsOf(navs);
    EXPECT_EQ(counts.of(2).count, 0);
    EXPECT_EQ(counts.of(99).count, 0);
    EXPECT_FALSE(counts.of(99).hasFixed);
    EXPECT_EQ(counts.of(1).count, 1);
    EXPECT_TRUE(counts.of(1).hasFixed);
    EXPECT_EQ(counts.of(0).count, 1);
}

TEST(ChildCounts, KnowAFixedChildWhereverItStands) {
    clsNavSchemes navs;
    for (const auto& [id, type] : {std::pair{1, "N"}, {2, "F"}, {3, "N"}}) navs.Add(makeNode(id, 9, type));
    EXPECT_EQ(countsOf(navs).of(9).count, 3);
    EXPECT_TRUE(countsOf(navs).of(9).hasFixed);
}

TEST(ChildCounts, StopAtTheLargestNumberOf16Bits) {
    clsNavSchemes navs;
    for (int id = 1; id <= 32'766; ++id) navs.Add(makeNode(id, -3, "N"));
    EXPECT_EQ(countsOf(navs).of(-3).count, 32'766);
    navs.Add(makeNode(40'000, -3, "N"));
    EXPECT_EQ(countsOf(navs).of(-3).count, 32'767);
    navs.Add(makeNode(40'001, -3, "N"));
    EXPECT_EQ(countsOf(navs).of(-3).count, 32'767);
    EXPECT_FALSE(countsOf(navs).of(-3).hasFixed);
    navs.Add(makeNode(40'002, -3, "F"));
    EXPECT_EQ(countsOf(navs).of(-3).count, 32'767);
    EXPECT_TRUE(countsOf(navs).of(-3).hasFixed);
}
