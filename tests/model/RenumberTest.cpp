// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

std::string workFieldsOf(const clsNavSchemes& navs) {
    std::string fields;
    for (const auto& node : navs.NewEnum())
        fields += (fields.empty() ? "" : " ") + std::to_string(node->tID) + "<" + std::to_string(node->tParentIs);
    return fields;
}

// Makes a node as it is in the middle of a renumbering: with its former ID in `tID`.
std::shared_ptr<clsNavScheme> makeRenumbered(std::int32_t id, std::int32_t formerID) {
    auto node = makeNode(id, 0);
    node->tID = formerID;
    return node;
}

}  // namespace

TEST(Renumber, OfAnEmptySchemeAnswersFalseAndChangesNothing) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addParagraphs(navs.oWebs, {{1, 5}});
    EXPECT_FALSE(navs.Renumber());
    EXPECT_EQ(nodesOf(navs.oWebs), "1>5") << "not even the status";
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(Renumber, NumbersInTreeOrder) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}, {3, 5}, {9, 1}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2 4<1");
    EXPECT_EQ(workFieldsOf(navs), "1<0 2<1 3<2 4<1") << "the paragraphs have followed";
}

TEST(Renumber, NumbersInTreeOrderWhereThatIsNotTheOrderOfAdding) {
    clsNavSchemes navs;
    addNodes(navs, {{8, 4}, {20, 7}, {7, 0}, {4, 7}, {5, 20}, {6, 4}});
    EXPECT_TRUE(navs.Renumber());
    // In tree order: 7 (20 (5), 4 (8, 6)).
    EXPECT_EQ(linksOf(navs), "5<4 2<1 1<0 4<1 3<2 6<4");
}

TEST(Renumber, TheRootAlwaysBecomesOne) {
    clsNavSchemes navs;
    addNodes(navs, {{77, 0}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0");
}

TEST(Renumber, TouchesNoOtherField) {
    clsNavSchemes navs;
    navs.Add(makeNode(5, 0, "G", "Root", "spN", "Text", "leaf", "Boss"));
    navs.Add(makeNode(7, 5, "R", "Child", "spR", "CKey05", "icon", "Clerk"));
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(rowsOf(navs), (Rows{"1|Root|G|0|spN|Text|leaf|Boss", "2|Child|R|1|spR|CKey05|icon|Clerk"}));
}

TEST(Renumber, ParagraphsFollowTheirNodes) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}, {3, 5}, {9, 1}});
    addParagraphs(navs.oWebs, {{1, 9}, {2, 5}, {3, 3}, {4, 1}, {5, 5}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(nodesOf(navs.oWebs), "1>4C 2>2C 3>3C 4>1C 5>2C");
}

TEST(Renumber, ParagraphsOfNodesThatChangeNumbersAreNotMixedUp) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {3, 1}, {2, 1}});
    addParagraphs(navs.oWebs, {{1, 2}, {2, 3}, {3, 2}, {4, 3}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<1");
    EXPECT_EQ(nodesOf(navs.oWebs), "1>3C 2>2C 3>3C 4>2C");
}

TEST(Renumber, KeepsNumbersTitlesAndOrderOfTheParagraphs) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}});
    navs.oWebs.Add(makeFullParagraph(12, "S"));
    navs.oWebs.Add(makeParagraph(3, 4, 9, "second"));
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(rowsOf(navs.oWebs), (Rows{"12|1|6|Orders|spW_Orders|Lkey|S|8|2:3|more", "3|1|9|second||||0||"}));
    EXPECT_EQ(navs.oWebs.Item(12)->titleIs, "Orders");
}

TEST(Renumber, OrphansGoToNodeZero) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}, {6, 4}});
    addParagraphs(navs.oWebs, {{1, 9}, {2, 4}, {3, 1}, {4, -6}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(nodesOf(navs.oWebs), "1>0O 2>1C 3>0O 4>0O");
}

TEST(Renumber, ASecondTimeChangesNothing) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}, {3, 5}, {9, 1}});
    addParagraphs(navs.oWebs, {{1, 9}, {2, 5}, {3, 3}, {4, 1}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2 4<1");
    EXPECT_EQ(nodesOf(navs.oWebs), "1>4C 2>2C 3>3C 4>1C");
}

TEST(Renumber, FollowsEditsInBetween) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}, {3, 5}});
    addParagraphs(navs.oWebs, {{1, 3}, {2, 5}});
    EXPECT_TRUE(navs.Renumber());
    ASSERT_EQ(linksOf(navs), "1<0 2<1 3<2");
    navs.Item(3)->parentIs = 1;  // the leaf moves up beside its parent,
    navs.Item(5)->parentIs = 3;  // and the parent below it
    addParagraphs(navs.oWebs, {{3, 2}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 3<2 2<1");
    EXPECT_EQ(nodesOf(navs.oWebs), "1>2C 2>3C 3>3C");
}

TEST(Renumber, UnreachableNodesTakeTheirWorkFields) {
    clsNavSchemes navs;
    addNodes(navs, {{5, 99}, {1, 0}, {3, 0}, {4, 3}, {7, 8}, {8, 7}, {9, 1}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "0<0 1<0 0<0 0<0 0<0 0<0 2<1");
}

// It gets the parent 0, like the root, and comes first.
TEST(Renumber, AnUnreachableNodeBeforeTheRootTakesItsPlace) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{5, 99}, {1, 0}, {9, 1}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "0<0 1<0 2<1");
    const auto saved = savedBytes(navs);
    EXPECT_EQ(saved.substr(saved.find('\n') + 1),
              "0,\"\",\"F\",0,\"\",\"\",\"\",\"\"\r\n"
              "1,\"\",\"F\",0,\"\",\"\",\"\",\"\"\r\n"
              "2,\"\",\"F\",1,\"\",\"\",\"\",\"\"\r\n");
}

TEST(Renumber, OrphansOfNewNodesTakeTheNodeOfTheLastRenumbering) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {5, 1}});
    addParagraphs(navs.oWebs, {{1, 5}});
    EXPECT_TRUE(navs.Renumber());
    ASSERT_EQ(nodesOf(navs.oWebs), "1>2C");
    const TempFolder folder;
    navs.LoadData(writeBytes(folder / "nodes.txt", "1,a,F,0\r\n"));
    navs.DispOrphans();
    EXPECT_EQ(nodesOf(navs.oWebs), "1>2O");
}

TEST(Renumber, UnreachableNodesThatWereNumberedBeforeKeepThatNumberAndParent) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {6, 1}, {5, 6}, {7, 5}});
    EXPECT_TRUE(navs.Renumber());
    ASSERT_EQ(linksOf(navs), "1<0 2<1 3<2 4<3");
    navs.Item(5)->parentIs = 99;
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2 4<3") << "as the last numbering had left the two";
}

TEST(Renumber, UnreachableNodesKeepTheirNumberAfterTheOrphansWereListed) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 99}, {3, 1}});
    addParagraphs(navs.oWebs, {{1, 2}, {2, 3}});
    navs.DispOrphans();
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "1<0 2<0 2<1") << "and another node may get it";
    EXPECT_EQ(nodesOf(navs.oWebs), "1>2C 2>2C");
}

TEST(Renumber, WithoutARootEveryNodeTakesItsWorkFields) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 5}, {5, 4}, {6, 6}});
    navs.Item(5)->tID = 50;
    navs.Item(5)->tParentIs = 51;
    addParagraphs(navs.oWebs, {{1, 4}, {2, 5}, {3, 50}, {4, 9}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(linksOf(navs), "0<0 50<51 0<0");
    EXPECT_EQ(workFieldsOf(navs), "0<0 50<51 0<0");
    EXPECT_EQ(nodesOf(navs.oWebs), "1>0C 2>50C 3>0O 4>0O");
}

TEST(Renumber, KeepsTheKeys) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {2, 10}});
    EXPECT_TRUE(navs.Renumber());
    ASSERT_EQ(linksOf(navs), "1<0 2<1 3<1");
    EXPECT_EQ(navs.Item(10)->ID, 1);
    EXPECT_EQ(navs.Item("30")->ID, 2);
    EXPECT_EQ(navs.Item(2)->ID, 3);
    EXPECT_EQ(navs.Item(1), nullptr);
    EXPECT_EQ(navs.Item(3), nullptr);
    navs.Remove("2");
    EXPECT_EQ(idsOf(navs), "1 2");
}

TEST(Renumber, SavingAndLoadingFilesTheNodesAnew) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {2, 30}});
    EXPECT_TRUE(navs.Renumber());
    loadBytes(navs, savedBytes(navs));
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2");
    EXPECT_EQ(navs.Item(2)->ID, 2);
    EXPECT_EQ(navs.Item(10), nullptr);
}

TEST(FileAnew, FindsEveryNodeByTheNumberThatItHasNow) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {2, 30}});
    EXPECT_TRUE(navs.Renumber());
    navs.FileAnew();
    EXPECT_EQ(linksOf(navs), "1<0 2<1 3<2");
    for (const int id : {1, 2, 3}) EXPECT_EQ(navs.Item(id)->ID, id);
    EXPECT_EQ(navs.Item(10), nullptr);
    EXPECT_EQ(navs.Item("30"), nullptr);
}

TEST(FileAnew, DrawsNothing) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{5, 0}, {7, 5}});
    navs.FileAnew();
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(FileAnew, KeepsNodesThatShareANumber) {
    clsNavSchemes navs;
    addNodes(navs, {{5, 0}, {7, 5}, {8, 99}, {9, 99}});
    EXPECT_TRUE(navs.Renumber());
    navs.FileAnew();
    EXPECT_EQ(linksOf(navs), "1<0 2<1 0<0 0<0");
    EXPECT_EQ(navs.Item(0), navs.NewEnum().Slots()[2]) << "the first of them";
    EXPECT_EQ(navs.Count(), 4);
    EXPECT_EQ(navs.GetChildren(*navs.Item(1)), 1);
    navs.DelNode("2");
    EXPECT_EQ(linksOf(navs), "1<0 0<0 0<0");
}

// The tree shows "second", but not "first", whose parent is missing.
TEST(FileAnew, OfNodesThatShareANumberTheOneInTheTreeIsFound) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0));
    navs.Add(makeNode(2, 99, "F", "first"));
    navs.Add(makeNode(3, 1, "F", "second"));
    navs.Item(2)->ID = 3;
    navs.FileAnew();
    EXPECT_EQ(navs.Item(3)->descriptionIs, "second");
    navs.DelNode("3");
    EXPECT_EQ(navs.Item(3)->descriptionIs, "first") << "found now that the other one is gone";
    EXPECT_EQ(navs.Item(2), nullptr);
}

TEST(FileAnew, ANodeOfUnknownTypeIsNotInTheTree) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "?"));
    navs.Add(makeNode(2, 1, "?", "unknown"));
    navs.Add(makeNode(3, 1, "N", "known"));
    navs.Item(2)->ID = 3;
    navs.FileAnew();
    EXPECT_EQ(navs.Item(3)->descriptionIs, "known");
}

TEST(Renumber, SavesNumbersFromTopToBottom) {
    clsNavSchemes navs;
    addNodes(navs, {{8, 4}, {20, 7}, {7, 0}, {4, 7}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(savedBytes(navs),
              lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")",
                     R"(1,"","F",0,"","","","")", R"(2,"","F",1,"","","","")", R"(3,"","F",1,"","","","")",
                     R"(4,"","F",3,"","","","")"}));
}

TEST(Renumber, RedrawsTheTreeAndShowsAllParagraphs) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{5, 0}, {7, 5}});
    addParagraphs(navs.oWebs, {{1, 7}, {2, 9}});
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0 2<1", "grid 1<0 2<1", "paragraphs 1>2 2>0"}));
}

// --- the paragraphs' side ---

TEST(WebRenumber, FollowsFromTheFormerIDsToTheCurrentOnes) {
    clsNavSchemes navs;
    navs.Add(makeRenumbered(1, 1));
    navs.Add(makeRenumbered(2, 3));
    navs.Add(makeRenumbered(3, 2));
    addParagraphs(navs.oWebs, {{1, 2}, {2, 3}, {3, 1}, {4, 2}});
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>3C 2>2C 3>1C 4>3C");
    EXPECT_EQ(workFieldsOf(navs), "1<0 2<0 3<0") << "the current IDs";
    EXPECT_EQ(linksOf(navs), "1<0 2<0 3<0");
}

TEST(WebRenumber, TakesTheIDOfANodeThatWasNeverRenumbered) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}, {6, 4}});
    addParagraphs(navs.oWebs, {{1, 6}, {2, 9}, {3, 4}, {4, 0}});
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>6C 2>0O 3>4C 4>0O");
    EXPECT_EQ(navs.oWebs.Item(1)->tXST1, 6);
    EXPECT_EQ(navs.oWebs.Item(2)->tXST1, 0);
    EXPECT_EQ(workFieldsOf(navs), "4<0 6<0");
}

TEST(WebRenumber, TwiceInARowKeepsConnectedParagraphs) {
    clsNavSchemes navs;
    navs.Add(makeRenumbered(2, 3));
    navs.Add(makeRenumbered(3, 2));
    addParagraphs(navs.oWebs, {{1, 2}, {2, 3}, {3, 7}});
    navs.oWebs.Renumber(navs);
    ASSERT_EQ(nodesOf(navs.oWebs), "1>3C 2>2C 3>0O");
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>3C 2>2C 3>0O");
}

TEST(WebRenumber, OfNodesWithTheSameFormerIDTheLastOneCounts) {
    clsNavSchemes navs;
    navs.Add(makeRenumbered(2, 5));
    navs.Add(makeNode(5, 0));
    addParagraphs(navs.oWebs, {{1, 5}});
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>5C");

    clsNavSchemes reversed;
    reversed.Add(makeNode(5, 0));
    reversed.Add(makeRenumbered(2, 5));
    addParagraphs(reversed.oWebs, {{1, 5}});
    reversed.oWebs.Renumber(reversed);
    EXPECT_EQ(nodesOf(reversed.oWebs), "1>2C");
}

TEST(WebRenumber, AnOrphanTakesTheNodeThatAnEarlierCallGaveIt) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}, {6, 4}});
    addParagraphs(navs.oWebs, {{1, 6}, {2, 4}});
    navs.oWebs.Renumber(navs);
    ASSERT_EQ(nodesOf(navs.oWebs), "1>6C 2>4C");
    navs.Remove("6");
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>6O 2>4C");
    const auto moved = navs.oWebs.CloneWeb("1");
    moved->XST1 = 99;
    ASSERT_TRUE(navs.oWebs.Update(*moved));
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>6O 2>4C") << "not 0: the work field still holds 6";
}

TEST(WebRenumber, WithoutNodesMakesEveryParagraphAnOrphan) {
    clsNavSchemes navs;
    addParagraphs(navs.oWebs, {{1, 6}, {2, 4}});
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(nodesOf(navs.oWebs), "1>0O 2>0O");
}

TEST(WebRenumber, KeepsNumbersAndKeysOfTheParagraphs) {
    clsNavSchemes navs;
    addNodes(navs, {{4, 0}});
    navs.oWebs.Add(makeParagraph(12, 4, 3, "title"));
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(rowOf(*navs.oWebs.Item(12)), "12|4|3|title||||0||");
}

TEST(WebRenumber, ShowsNothing) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{4, 0}});
    addParagraphs(navs.oWebs, {{1, 4}});
    navs.oWebs.Renumber(navs);
    EXPECT_EQ(screen.taken(), Calls());
}
