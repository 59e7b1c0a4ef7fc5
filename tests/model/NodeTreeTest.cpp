// SPDX-License-Identifier: MIT
#include "model/NodeTree.h"

#include "Helpers.h"

namespace {

// The walk as text: each node's ID behind one dot for each level.
std::string walkOf(const clsNavSchemes& navs) {
    std::string walk;
    walkTree(navs.NewEnum(), [&](const std::shared_ptr<clsNavScheme>& node, std::size_t depth) {
        walk += (walk.empty() ? "" : " ") + std::string(depth, '.') + std::to_string(node->ID);
        return true;
    });
    return walk;
}

std::string walkOf(std::initializer_list<std::pair<std::int32_t, std::int32_t>> nodes) {
    clsNavSchemes navs;
    addNodes(navs, nodes);
    return walkOf(navs);
}

// Nodes with the same ID can only arise when IDs change after adding.
void addTwin(clsNavSchemes& navs, std::int32_t key, std::int32_t id, std::int32_t parent, const char* description) {
    auto node = makeNode(key, parent, "F", description);
    navs.Add(node);
    node->ID = id;
}

}  // namespace

TEST(TreeWalk, OfNoNodesVisitsNothing) {
    EXPECT_EQ(walkOf({}), "");
}

TEST(TreeWalk, WithoutARootVisitsNothing) {
    EXPECT_EQ(walkOf({{1, 2}, {2, 1}, {3, 3}, {4, -1}}), "");
}

TEST(TreeWalk, GoesDownBeforeItGoesOn) {
    EXPECT_EQ(walkOf({{1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 4}, {6, 2}}), "1 .2 ..4 ...5 ..6 .3");
}

TEST(TreeWalk, TakesChildrenInTheOrderOfAdding) {
    EXPECT_EQ(walkOf({{9, 5}, {5, 0}, {-7, 5}, {300, 5}, {1, 5}, {8, 300}}), "5 .9 .-7 .300 ..8 .1");
}

TEST(TreeWalk, StartsAtTheFirstRootOnly) {
    EXPECT_EQ(walkOf({{7, 99}, {2, 0}, {1, 0}, {3, 1}, {4, 2}}), "2 .4");
}

TEST(TreeWalk, PassesOverRemovedNodes) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 0}, {3, 2}, {4, 2}, {5, 2}, {6, 3}});
    navs.Remove("1");
    navs.Remove("3");
    EXPECT_EQ(walkOf(navs), "2 .4 .5");
}

TEST(TreeWalk, EndsWhereNodesFormALoop) {
    EXPECT_EQ(walkOf({{1, 0}, {2, 3}, {3, 2}, {4, 1}}), "1 .4");
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 2}});
    addTwin(navs, 4, 1, 3, "leads back to the root's children");
    EXPECT_EQ(walkOf(navs), "1 .2 ..3 ...1");
}

TEST(TreeWalk, EndsWhereANodeIsItsOwnParent) {
    EXPECT_EQ(walkOf({{1, 0}, {2, 2}, {3, 1}}), "1 .3");
}

TEST(TreeWalk, EndsWhereTheRootHasTheIDZero) {
    EXPECT_EQ(walkOf({{0, 0}, {1, 0}, {2, 1}, {3, 0}}), "0 .1 ..2 .3");
}

TEST(TreeWalk, EntersTwinsOnceEachAndTheirChildrenOnce) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}});
    addTwin(navs, 2, 5, 1, "first");
    addTwin(navs, 3, 5, 1, "second");
    navs.Add(makeNode(6, 5));
    EXPECT_EQ(walkOf(navs), "1 .5 ..6 .5");
}

TEST(TreeWalk, LeavesOutWhatIsBelowANodeIfAskedTo) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 2}, {4, 3}, {5, 1}, {6, 5}});
    std::string walk;
    walkTree(navs.NewEnum(), [&](const std::shared_ptr<clsNavScheme>& node, std::size_t) {
        walk += std::to_string(node->ID) + " ";
        return node->ID != 2;
    });
    EXPECT_EQ(walk, "1 2 5 6 ");
}

TEST(NodeTree, ListsTheSlotsOfTheChildrenWithoutRemovedNodes) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 1}, {4, 1}, {5, -8}, {6, 0}});
    navs.Remove("3");
    const NodeTree tree(navs.NewEnum());
    const auto childrenOf = [&](std::int32_t id) {
        const auto slots = tree.childrenOf(id);
        return std::vector(slots.begin(), slots.end());
    };
    using Slots = std::vector<std::uint32_t>;
    EXPECT_EQ(childrenOf(1), (Slots{1, 3}));
    EXPECT_EQ(childrenOf(0), (Slots{0, 5}));
    EXPECT_EQ(childrenOf(-8), Slots{4});
    EXPECT_EQ(childrenOf(2), Slots());
    EXPECT_EQ(childrenOf(99), Slots());
}

TEST(NodeTree, IsAsTheNodesWereWhenItWasMade) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 2}});
    const NodeTree tree(navs.NewEnum());
    navs.Item(3)->parentIs = 1;
    navs.Item(1)->ID = 50;
    std::string walk;
    tree.walk([&](std::uint32_t slot, std::size_t depth) {
        walk += std::string(depth, '.') + std::to_string(slot) + " ";
        return true;
    });
    EXPECT_EQ(walk, "0 .1 ..2 ");
}

// --- what relies on the walk, with nodes that form no tree ---

TEST(OddTrees, AreSavedWithEachNodeOnce) {
    clsNavSchemes navs;
    addNodes(navs, {{0, 0}, {1, 0}, {2, 2}, {3, 4}, {4, 3}, {6, 5}});
    addTwin(navs, 50, 5, 1, "first");
    addTwin(navs, 51, 5, 1, "second");
    EXPECT_EQ(savedBytes(navs),
              lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")",
                     R"(0,"","F",0,"","","","")", R"(1,"","F",0,"","","","")", R"(5,"first","F",1,"","","","")",
                     R"(6,"","F",5,"","","","")", R"(5,"second","F",1,"","","","")"}));
}

TEST(OddTrees, AreRenumberedWithEachNodeOnce) {
    clsNavSchemes navs;
    addNodes(navs, {{0, 0}, {1, 0}, {2, 2}, {6, 5}});
    addTwin(navs, 50, 5, 1, "first");
    addTwin(navs, 51, 5, 1, "second");
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<1 0<0 4<3 3<2 5<2");
}

TEST(OddTrees, AChainOfAMillionNodesIsSavedAndRenumbered) {
    constexpr int length = 1'000'000;
    clsNavSchemes navs;
    // Added from the leaf up; the root, the last one, has the ID 2,000,000.
    for (int i = 1; i < length; ++i) navs.Add(makeNode(length + i, length + i + 1));
    navs.Add(makeNode(2 * length, 0));
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(navs.Item(2 * length)->ID, 1);
    EXPECT_EQ(navs.Item(length + 1)->ID, length);
    EXPECT_EQ(navs.Item(length + 1)->parentIs, length - 1);

    const auto bytes = savedBytes(navs);
    EXPECT_EQ(std::ranges::count(bytes, '\n'), length + 1);
    const std::string last = "\r\n1000000,\"\",\"F\",999999,\"\",\"\",\"\",\"\"\r\n";
    ASSERT_GT(bytes.size(), last.size());
    EXPECT_EQ(bytes.substr(bytes.size() - last.size()), last);
}
