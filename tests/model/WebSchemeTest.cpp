// SPDX-License-Identifier: MIT
#include <stdexcept>

#include "Helpers.h"

TEST(Paragraph, IsBlankWhenNew) {
    const clsWebScheme paragraph;
    EXPECT_EQ(rowOf(paragraph), "0|0|0|||||0||");
    EXPECT_EQ(paragraph.tXST1, 0);
    EXPECT_EQ(paragraph.status, "");
}

TEST(WebScheme, IsEmptyAtFirst) {
    const clsWebSchemes webs;
    EXPECT_EQ(webs.Count(), 0);
    EXPECT_EQ(webs.MaxID(), "0");
    EXPECT_EQ(rowsOf(webs), Rows());
}

TEST(WebScheme, AddKeepsTheFirstOfTwoParagraphsWithTheSameID) {
    clsWebSchemes webs;
    const auto first = makeParagraph(5, 1, 1, "first");
    const auto second = makeParagraph(5, 2, 2, "second");
    EXPECT_TRUE(webs.Add(first));
    EXPECT_FALSE(webs.Add(second));
    EXPECT_EQ(webs.Count(), 1);
    EXPECT_EQ(webs.Item(5), first);
    EXPECT_EQ(second->titleIs, "second");
}

TEST(WebScheme, ItemFindsByIDWhetherTextOrNumber) {
    clsWebSchemes webs;
    addParagraphs(webs, {{9, 1}, {5, 1}, {-3, 1}});
    EXPECT_EQ(webs.Item(5)->ID, 5);
    EXPECT_EQ(webs.Item("5")->ID, 5);
    EXPECT_EQ(webs.Item("-3")->ID, -3);
}

TEST(WebScheme, ItemThrowsWhereThereIsNone) {
    clsWebSchemes webs;
    addParagraphs(webs, {{5, 1}});
    EXPECT_THROW(static_cast<void>(webs.Item(1)), std::out_of_range) << "an ID, not a position";
    EXPECT_THROW(static_cast<void>(webs.Item("1")), std::out_of_range);
    EXPECT_THROW(static_cast<void>(webs.Item("05")), std::out_of_range);
    EXPECT_THROW(static_cast<void>(webs.Item("")), std::out_of_range);
}

TEST(WebScheme, RemoveTakesATextAsAKeyAndANumberAsAPosition) {
    clsWebSchemes webs;
    addParagraphs(webs, {{3, 1}, {2, 1}, {1, 1}});
    webs.Remove("3");
    EXPECT_EQ(idsOf(webs), "2 1");
    webs.Remove(1);
    EXPECT_EQ(idsOf(webs), "1");
    webs.Remove("7");
    webs.Remove("01");
    webs.Remove("");
    webs.Remove(0);
    webs.Remove(2);
    EXPECT_EQ(idsOf(webs), "1");
    EXPECT_EQ(webs.Count(), 1);
}

TEST(WebScheme, EnumeratesInTheOrderOfAdding) {
    clsWebSchemes webs;
    addParagraphs(webs, {{30, 2}, {1, 9}, {-5, 1}, {200, 2}});
    EXPECT_EQ(idsOf(webs), "30 1 -5 200");
}

TEST(WebScheme, RemovingInALoopSkipsNone) {
    clsWebSchemes webs;
    addParagraphs(webs, {{4, 1}, {3, 1}, {2, 1}, {1, 1}});
    std::string met;
    for (const auto* paragraph : webs.NewEnum()) {
        const auto key = std::to_string(paragraph->ID);
        met += key + " ";
        if (key != "2") webs.Remove(key);
    }
    EXPECT_EQ(met, "4 3 2 1 ");
    EXPECT_EQ(idsOf(webs), "2");
}

TEST(WebScheme, MaxIDIsTheLargestNumberAsText) {
    clsWebSchemes webs;
    addParagraphs(webs, {{3, 1}, {12, 1}, {7, 1}});
    EXPECT_EQ(webs.MaxID(), "12");
    webs.Remove("12");
    EXPECT_EQ(webs.MaxID(), "7");
    clsWebSchemes negative;
    addParagraphs(negative, {{-3, 1}});
    EXPECT_EQ(negative.MaxID(), "0");
}

TEST(WebScheme, MaxSeqNoIsTheLargestOfTheNode) {
    clsWebSchemes webs;
    webs.Add(makeParagraph(1, 5, 1));
    webs.Add(makeParagraph(2, 5, 4));
    webs.Add(makeParagraph(3, 5, 2));
    webs.Add(makeParagraph(4, 6, 9));
    webs.Add(makeParagraph(5, 7, -2));
    webs.Add(makeParagraph(6, 55, 11));
    EXPECT_EQ(webs.MaxSeqNo("5"), "4");
    EXPECT_EQ(webs.MaxSeqNo("6"), "9");
    EXPECT_EQ(webs.MaxSeqNo("9"), "0");
    EXPECT_EQ(webs.MaxSeqNo("7"), "0") << "negative numbers never win";
    EXPECT_EQ(webs.MaxSeqNo("0"), "0");
}

TEST(WebScheme, MaxSeqNoTakesOnlyAKeyInItsOneSpelling) {
    clsWebSchemes webs;
    webs.Add(makeParagraph(1, 5, 3));
    for (const char* key : {"05", " 5", "5 ", "+5", "5.0", "", "x", "N5"})
        EXPECT_EQ(webs.MaxSeqNo(key), "0") << "'" << key << "'";
}

TEST(WebScheme, ClearAllAndNewSchemeRemoveEveryParagraph) {
    clsWebSchemes webs;
    addParagraphs(webs, {{3, 1}, {12, 1}, {7, 1}});
    webs.ClearAll();
    EXPECT_EQ(rowsOf(webs), Rows());
    EXPECT_EQ(webs.Count(), 0);
    addParagraphs(webs, {{3, 1}, {12, 1}});
    webs.NewScheme();
    EXPECT_EQ(rowsOf(webs), Rows());
    EXPECT_EQ(webs.Count(), 0);
}

TEST(WebScheme, DelTreeNodeRemovesTheParagraphsOfThatNodeOnly) {
    clsWebSchemes webs;
    addParagraphs(webs, {{1, 4}, {2, 5}, {4, 3}, {3, 4}, {5, 44}, {6, 4}, {7, -4}});
    webs.DelTreeNode("4");
    EXPECT_EQ(nodesOf(webs), "2>5 4>3 5>44 7>-4");
    webs.DelTreeNode("04");
    webs.DelTreeNode("9");
    webs.DelTreeNode("");
    webs.DelTreeNode("+5");
    webs.DelTreeNode("5 ");
    EXPECT_EQ(webs.Count(), 4);
    webs.DelTreeNode("-4");
    EXPECT_EQ(nodesOf(webs), "2>5 4>3 5>44");
}

TEST(WebScheme, DropParagraphsOfTakesSeveralNodesAtOnce) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addParagraphs(navs.oWebs, {{1, 4}, {2, 5}, {3, 4}, {4, 6}, {5, 0}});
    KeyIndex nodes;
    nodes.set(4, 0);
    nodes.set(6, 0);
    navs.oWebs.DropParagraphsOf(nodes);
    EXPECT_EQ(nodesOf(navs.oWebs), "2>5 5>0");
    EXPECT_EQ(screen.taken(), Calls()) << "shows nothing";
}

TEST(WebScheme, CloneWebCopiesWhatIsInTheFile) {
    clsWebSchemes webs;
    const auto original = makeFullParagraph(12, "S");
    webs.Add(original);
    const auto copy = webs.CloneWeb("12");
    EXPECT_NE(copy, original);
    EXPECT_EQ(rowOf(*copy), "12|4|6|Orders|spW_Orders|Lkey|S|8|2:3|more");
    EXPECT_EQ(copy->tXST1, 0);
    EXPECT_EQ(copy->status, "") << "though the original is an orphan";
    EXPECT_EQ(original->tXST1, 5);
    EXPECT_EQ(original->status, "O");
    EXPECT_EQ(webs.Count(), 1);
    copy->titleIs = "Changed";
    EXPECT_EQ(original->titleIs, "Orders");
}

TEST(WebScheme, CloneWebOfAnUnknownKeyIsBlank) {
    clsWebSchemes webs;
    webs.Add(makeFullParagraph(12, "S"));
    for (const char* key : {"13", "012", " 12", "", "x"}) {
        const auto copy = webs.CloneWeb(key);
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(rowOf(*copy), "0|0|0|||||0||") << "'" << key << "'";
        EXPECT_EQ(copy->status, "");
    }
    EXPECT_EQ(idsOf(webs), "12");
}

TEST(WebScheme, UpdateStoresAllButExtraAndTheFieldsOfTheRenumbering) {
    clsWebSchemes webs;
    const auto stored = std::make_shared<clsWebScheme>();
    stored->ID = 12;
    stored->extra = "kept";
    stored->status = "C";
    stored->tXST1 = 3;
    webs.Add(stored);
    EXPECT_TRUE(webs.Update(*makeFullParagraph(12, "S")));
    EXPECT_EQ(rowOf(*webs.Item(12)), "12|4|6|Orders|spW_Orders|Lkey|S|8|2:3|kept");
    EXPECT_EQ(webs.Item(12), stored);
    EXPECT_EQ(stored->tXST1, 3);
    EXPECT_EQ(stored->status, "C");
}

TEST(WebScheme, UpdateOfAnUnknownParagraphStoresNothing) {
    clsWebSchemes webs;
    webs.Add(makeParagraph(12, 4));
    EXPECT_FALSE(webs.Update(*makeFullParagraph(13, "S")));
    EXPECT_EQ(rowsOf(webs), Rows{"12|4|0|||||0||"});
}

TEST(WebScheme, HasIDLooksAtTheIDsNotTheKeys) {
    clsWebSchemes webs;
    const auto paragraph = makeParagraph(12, 4);
    webs.Add(paragraph);
    EXPECT_TRUE(webs.HasID(12));
    EXPECT_FALSE(webs.HasID(0));
    paragraph->ID = 13;
    EXPECT_TRUE(webs.HasID(13));
    EXPECT_FALSE(webs.HasID(12));
    webs.Add(makeParagraph(20, 4));
    webs.Remove("12");
    EXPECT_FALSE(webs.HasID(13));
    EXPECT_TRUE(webs.HasID(20));
}

TEST(WebScheme, HasAKeyUntilItIsRemoved) {
    clsWebSchemes webs;
    webs.Add(makeParagraph(5, 1));
    EXPECT_TRUE(webs.HasKey("5"));
    for (const char* key : {"", "6", "05", " 5", "5 ", "x"}) EXPECT_FALSE(webs.HasKey(key)) << key;
    webs.Remove("5");
    EXPECT_FALSE(webs.HasKey("5"));
}
