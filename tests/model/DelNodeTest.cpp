// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

// A tree of three levels with a second branch, and paragraphs at every node.
//   1 ─ 2 ─ 4 ─ 6
//     │   └ 5
//     └ 3 ─ 7
void fillTree(clsNavSchemes& navs) {
    addNodes(navs, {{1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}, {6, 4}, {7, 3}});
    addParagraphs(navs.oWebs, {{11, 1}, {12, 2}, {13, 3}, {14, 4}, {15, 5}, {16, 6}, {17, 7}, {18, 2}});
}

}  // namespace

TEST(DelNode, RemovesTheNodeWithAllBelowIt) {
    clsNavSchemes navs;
    fillTree(navs);
    navs.DelNode("2");
    EXPECT_EQ(linksOf(navs), "1<0 3<1 7<3");
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1 13>3 17>7");
    EXPECT_EQ(navs.Item(6), nullptr);
}

TEST(DelNode, RemovesALeafAlone) {
    clsNavSchemes navs;
    fillTree(navs);
    navs.DelNode("6");
    EXPECT_EQ(idsOf(navs), "1 2 3 4 5 7");
    EXPECT_EQ(idsOf(navs.oWebs), "11 12 13 14 15 17 18");
}

TEST(DelNode, RemovesEverythingBelowTheRoot) {
    clsNavSchemes navs;
    fillTree(navs);
    navs.Add(makeNode(8, 99));
    addParagraphs(navs.oWebs, {{20, 8}, {21, 55}});
    navs.DelNode("1");
    EXPECT_EQ(linksOf(navs), "8<99");
    EXPECT_EQ(nodesOf(navs.oWebs), "20>8 21>55");
}

TEST(DelNode, OfAMissingNodeStillDropsItsParagraphs) {
    clsNavSchemes navs;
    fillTree(navs);
    addParagraphs(navs.oWebs, {{20, 77}});
    navs.DelNode("77");
    EXPECT_EQ(navs.Count(), 7);
    EXPECT_EQ(idsOf(navs.oWebs), "11 12 13 14 15 16 17 18");
}

TEST(DelNode, OfAMissingNodeRemovesTheNodesBelowThatNumber) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 77}, {3, 2}});
    navs.DelNode("77");
    EXPECT_EQ(idsOf(navs), "1");
}

TEST(DelNode, TakesOnlyAKeyInItsOneSpelling) {
    for (const char* key : {"02", "+2", " 2", "2 ", "2.0", "x", "", "N2"}) {
        clsNavSchemes navs;
        fillTree(navs);
        navs.DelNode(key);
        EXPECT_EQ(navs.Count(), 7) << "'" << key << "'";
        EXPECT_EQ(navs.oWebs.Count(), 8) << "'" << key << "'";
    }
}

TEST(DelNode, FillsTheParagraphGridOnceForTheNamedNode) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    fillTree(navs);
    navs.DelNode("2");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    navs.DelNode("77");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
}

TEST(DelNode, OfAnotherSpellingShowsTheNodeOfThatNumber) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    fillTree(navs);
    navs.DelNode("02");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 12>2 18>2"});
    navs.DelNode("x");
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(DelNode, OfNodeZeroShowsAllParagraphsThatAreLeft) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{1, 5}, {5, 9}});
    addParagraphs(navs.oWebs, {{1, 0}, {2, 5}});
    navs.DelNode("0");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 2>5"});
    EXPECT_EQ(navs.Count(), 2);
}

TEST(DelNode, EndsWhereNodesFormALoop) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 4}, {3, 2}, {4, 3}, {5, 4}});
    addParagraphs(navs.oWebs, {{11, 1}, {12, 2}, {13, 3}, {14, 4}, {15, 5}});
    navs.DelNode("3");
    EXPECT_EQ(idsOf(navs), "1");
    EXPECT_EQ(idsOf(navs.oWebs), "11");
}

TEST(DelNode, EndsWhereANodeIsItsOwnParent) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 2}, {3, 2}});
    navs.DelNode("2");
    EXPECT_EQ(idsOf(navs), "1");
}

TEST(DelNode, EndsWhereTheRootHasTheIDZero) {
    clsNavSchemes navs;
    addNodes(navs, {{0, 0}, {1, 0}, {2, 1}, {7, 9}});
    navs.DelNode("0");
    EXPECT_EQ(idsOf(navs), "7");
}

// 10 ─ 30 ─ 1     becomes  1 ─ 2 ─ 3     still filed under 10, 30, 1, 2
//    └ 2                     └ 4
TEST(DelNode, AfterRenumberingRemovesWhatIsFiledUnderTheNumbers) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {1, 30}, {2, 10}});
    addParagraphs(navs.oWebs, {{1, 10}, {2, 30}, {3, 1}, {4, 2}});
    ASSERT_TRUE(navs.Renumber());
    ASSERT_EQ(linksOf(navs), "1<0 2<1 3<2 4<1");
    navs.DelNode("2");
    // Node 3 is below node 2, but nothing is filed under "3"; under "2" is the node that is now 4.
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2");
    EXPECT_EQ(nodesOf(navs.oWebs), "1>1C 4>4C");
}

// A node that an earlier branch has removed by its key is not searched for children any more.
TEST(DelNode, AfterRenumberingLooksAtABranchWhenItsTurnComes) {
    clsNavSchemes navs;
    addNodes(navs, {{9, 0}, {4, 9}, {3, 9}, {2, 3}});
    addParagraphs(navs.oWebs, {{1, 9}, {2, 4}, {3, 3}, {4, 2}});
    ASSERT_TRUE(navs.Renumber());
    ASSERT_EQ(linksOf(navs), "1<0 2<1 3<1 4<3");
    // Below 1 are 2 and 3. "2" is the key of node 4, which goes first; then nothing is below 3, and "3"
    // is the key of node 3. Nothing is filed under "1". Node 4 is never looked at, so its paragraph stays.
    navs.DelNode("1");
    EXPECT_EQ(linksOf(navs), "1<0 2<1");
    EXPECT_EQ(nodesOf(navs.oWebs), "4>4C");
}

TEST(DelNode, RemovesALongChainWithoutRunningOutOfStack) {
    clsNavSchemes navs;
    constexpr int length = 300'000;
    for (int id = 1; id <= length; ++id) navs.Add(makeNode(id, id - 1));
    addParagraphs(navs.oWebs, {{1, length}, {2, 1}});
    navs.DelNode("2");
    EXPECT_EQ(idsOf(navs), "1");
    EXPECT_EQ(idsOf(navs.oWebs), "2");
}
