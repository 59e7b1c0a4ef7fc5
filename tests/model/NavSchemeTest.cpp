// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

constexpr const char* newRoot = "1|Data Browser|F|0|||leaf|";

}  // namespace

TEST(NavScheme, IsEmptyAtFirst) {
    const clsNavSchemes navs;
    EXPECT_EQ(navs.Count(), 0);
    EXPECT_EQ(navs.oWebs.Count(), 0);
    EXPECT_EQ(navs.mLastN, "");
    EXPECT_EQ(rowsOf(navs), Rows());
}

TEST(NavScheme, AddKeepsTheFirstOfTwoNodesWithTheSameID) {
    clsNavSchemes navs;
    const auto first = makeNode(7, 0, "F", "first");
    const auto second = makeNode(7, 1, "N", "second");
    EXPECT_TRUE(navs.Add(first));
    EXPECT_FALSE(navs.Add(second));
    EXPECT_EQ(navs.Count(), 1);
    EXPECT_EQ(navs.Item(7), first);
    EXPECT_EQ(rowOf(*second), "7|second|N|1||||") << "the caller's node is left alone";
}

TEST(NavScheme, AddKeepsTheNodeItself) {
    clsNavSchemes navs;
    const auto node = makeNode(7, 0);
    navs.Add(node);
    node->descriptionIs = "changed later";
    EXPECT_EQ(navs.Item(7)->descriptionIs, "changed later");
}

TEST(NavScheme, ItemFindsByIDWhetherTextOrNumber) {
    clsNavSchemes navs;
    addNodes(navs, {{9, 0}, {7, 9}, {3, 9}, {-4, 9}});
    EXPECT_EQ(navs.Item(7)->ID, 7);
    EXPECT_EQ(navs.Item("7")->ID, 7);
    EXPECT_EQ(navs.Item(3)->ID, 3) << "not the node at the third place, nor an index into them";
    EXPECT_EQ(navs.Item("-4")->ID, -4);
    EXPECT_EQ(navs.Item(1), nullptr) << "an ID, not a position";
    EXPECT_EQ(navs.Item(99), nullptr);
    EXPECT_EQ(navs.Item("99"), nullptr);
    EXPECT_EQ(navs.Item(""), nullptr);
    EXPECT_EQ(navs.Item("07"), nullptr);
    EXPECT_EQ(navs.Item(" 7"), nullptr);
    EXPECT_EQ(navs.Item("N7"), nullptr);
}

TEST(NavScheme, RemoveTakesATextAsAKey) {
    clsNavSchemes navs;
    addNodes(navs, {{9, 0}, {2, 9}, {1, 9}});
    navs.Remove("2");
    EXPECT_EQ(idsOf(navs), "9 1");
    navs.Remove("2");
    navs.Remove("77");
    navs.Remove("09");
    navs.Remove("");
    EXPECT_EQ(idsOf(navs), "9 1");
    EXPECT_EQ(navs.Count(), 2);
}

TEST(NavScheme, RemoveTakesANumberAsAPosition) {
    clsNavSchemes navs;
    addNodes(navs, {{9, 0}, {2, 9}, {1, 9}});
    navs.Remove(1);
    EXPECT_EQ(idsOf(navs), "2 1");
    navs.Remove(0);
    navs.Remove(3);
    navs.Remove(-1);
    EXPECT_EQ(idsOf(navs), "2 1");
    navs.Remove(2);
    EXPECT_EQ(idsOf(navs), "2");
}

TEST(NavScheme, EnumeratesInTheOrderOfAdding) {
    clsNavSchemes navs;
    addNodes(navs, {{5, 0}, {1, 5}, {300, 5}, {-2, 5}, {4, 1}});
    EXPECT_EQ(idsOf(navs), "5 1 300 -2 4");
    navs.Remove("300");
    navs.Add(makeNode(300, 5));
    EXPECT_EQ(idsOf(navs), "5 1 -2 4 300");
}

TEST(NavScheme, RemovingInALoopSkipsNone) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}, {3, 4}, {2, 4}, {1, 4}});
    std::string met;
    for (const auto& node : navs.NewEnum()) {
        const auto key = std::to_string(node->ID);
        met += key + " ";
        navs.Remove(key);
    }
    EXPECT_EQ(met, "4 3 2 1 ");
    EXPECT_EQ(navs.Count(), 0);
}

TEST(NavScheme, NewSchemeHoldsOneRoot) {
    clsNavSchemes navs;
    navs.NewScheme();
    EXPECT_EQ(rowsOf(navs), Rows{newRoot});
    EXPECT_EQ(navs.Count(), 1);
    ASSERT_NE(navs.Item("1"), nullptr);
    EXPECT_EQ(navs.Item(1)->tID, 0);
    EXPECT_EQ(navs.Item(1)->tParentIs, 0);
}

TEST(NavScheme, NewSchemeReplacesNodesAndParagraphs) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}, {3, 5}});
    addParagraphs(navs.oWebs, {{1, 5}, {2, 1}});
    navs.mLastN = "N5";
    navs.NewScheme();
    EXPECT_EQ(rowsOf(navs), Rows{newRoot});
    EXPECT_EQ(navs.oWebs.Count(), 0);
    EXPECT_EQ(navs.mLastN, "N5") << "survives";
    navs.NewScheme();
    EXPECT_EQ(rowsOf(navs), Rows{newRoot});
}

TEST(NavScheme, NewSchemeEmptiesARenumberedScheme) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {20, 10}, {1, 30}});
    ASSERT_TRUE(navs.Renumber());
    navs.NewScheme();
    EXPECT_EQ(rowsOf(navs), Rows{newRoot});
    EXPECT_EQ(navs.Item(20), nullptr);
}

TEST(NavScheme, MaxIDIsTheLargestNumberAsText) {
    clsNavSchemes navs;
    EXPECT_EQ(navs.MaxID(), "0");
    addNodes(navs, {{1, 0}, {12, 1}, {3, 1}});
    EXPECT_EQ(navs.MaxID(), "12");
    navs.Add(makeNode(9, 1));
    EXPECT_EQ(navs.MaxID(), "12") << "compared as numbers, not as texts";
    navs.Add(makeNode(2147483647, 1));
    EXPECT_EQ(navs.MaxID(), "2147483647");
}

TEST(NavScheme, MaxIDIsZeroWhereAllAreNegative) {
    clsNavSchemes navs;
    addNodes(navs, {{-1, 0}, {-12, 0}});
    EXPECT_EQ(navs.MaxID(), "0");
}

TEST(NavScheme, MaxIDFollowsTheIDsNotTheKeys) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}});
    ASSERT_TRUE(navs.Renumber());
    EXPECT_EQ(navs.MaxID(), "2");
}

TEST(NavScheme, GetChildrenCountsTheNodesBelow) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 1}, {4, 3}, {5, 1}});
    EXPECT_EQ(navs.GetChildren(*navs.Item(1)), 3);
    EXPECT_EQ(navs.GetChildren(*navs.Item(3)), 1);
    EXPECT_EQ(navs.GetChildren(*navs.Item(4)), 0);
    EXPECT_EQ(navs.GetChildren(*makeNode(0, 1)), 1) << "of a node that is not in the scheme, by its ID";
    navs.Remove("2");
    EXPECT_EQ(navs.GetChildren(*navs.Item(1)), 2);
}

TEST(NavScheme, GetChildrenStopsAt32767) {
    clsNavSchemes navs;
    for (int id = 2; id <= 32'767; ++id) navs.Add(makeNode(id, 1));
    EXPECT_EQ(navs.GetChildren(*makeNode(1, 0)), 32'766);
    navs.Add(makeNode(32'768, 1));
    EXPECT_EQ(navs.GetChildren(*makeNode(1, 0)), 32'767);
    for (int id = 32'769; id <= 70'000; ++id) navs.Add(makeNode(id, 1));
    EXPECT_EQ(navs.GetChildren(*makeNode(1, 0)), 32'767);
}

TEST(NavScheme, IsFTypeNeedsAGeneratingNodeWithAFixedChild) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F"));
    navs.Add(makeNode(2, 1, "G"));
    navs.Add(makeNode(3, 2, "N"));
    EXPECT_FALSE(navs.IsFType(*navs.Item(2))) << "its child is no F";
    navs.Add(makeNode(4, 2, "F"));
    EXPECT_TRUE(navs.IsFType(*navs.Item(2)));
    EXPECT_FALSE(navs.IsFType(*navs.Item(4))) << "a leaf";
}

TEST(NavScheme, IsFTypeIsFalseForEveryOtherType) {
    for (const char* type : {"F", "R", "N", "", "g", "X"}) {
        clsNavSchemes navs;
        navs.Add(makeNode(1, 0, type));
        navs.Add(makeNode(2, 1, "F"));
        EXPECT_FALSE(navs.IsFType(*navs.Item(1))) << type;
    }
}

TEST(NavScheme, IsFTypeComparesTheChildsTypeExactly) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "G"));
    navs.Add(makeNode(2, 1, "f"));
    navs.Add(makeNode(3, 1, "F "));
    navs.Add(makeNode(4, 2, "F"));
    EXPECT_FALSE(navs.IsFType(*navs.Item(1)));
}

TEST(NavScheme, LoadWebReturnsFalseEvenIfItHasLoaded) {
    const TempFolder folder;
    clsNavSchemes navs;
    addParagraphs(navs.oWebs, {{9, 1}});
    EXPECT_FALSE(navs.LoadWeb(writeBytes(folder / "XST2.txt", "1,4,1,Orders,spW,Lkey,S,0,2:3,\r\n")));
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"1|4|1|Orders|spW|Lkey|S|0|2:3|"});
    EXPECT_FALSE(navs.LoadWeb(folder / "missing.txt"));
    EXPECT_EQ(navs.oWebs.Count(), 0);
}

TEST(NavScheme, SaveWebSavesTheParagraphs) {
    const TempFolder folder;
    clsNavSchemes navs;
    EXPECT_FALSE(navs.SaveWeb(folder / "XST2.txt"));
    EXPECT_EQ(folder.names(), Rows());
    addParagraphs(navs.oWebs, {{1, 4}});
    EXPECT_TRUE(navs.SaveWeb(folder / "XST2.txt"));
    EXPECT_EQ(bytesOf(folder / "XST2.txt"),
              lines({R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")",
                     R"(1,4,0,"","","","",0,"","")"}));
}
