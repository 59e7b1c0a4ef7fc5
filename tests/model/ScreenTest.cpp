// SPDX-License-Identifier: MIT
#include "Helpers.h"

// When the schemes show something, and how they respond to clicks and keys.

namespace {

struct Screened : testing::Test {
    Screen screen;
    clsNavSchemes navs;

    Screened() {
        screen.show(navs);
        addNodes(navs, {{1, 0}, {7, 1}});
        addParagraphs(navs.oWebs, {{11, 1}, {12, 7}, {13, 7}});
    }
    void writeDownEvents() {
        const auto write = [this](const char* event) {
            return [this, event](std::string_view skey) {
                screen.calls.push_back(event + (" " + std::string(skey)) + " last '" + navs.mLastN + "'");
            };
        };
        navs.oInsert = write("oInsert");
        navs.oEdit = write("oEdit");
        navs.oDelete = write("oDelete");
        navs.oNodeClick = write("oNodeClick");
        navs.oRightClick = write("oRightClick");
        navs.wRightClick = [this](std::string_view skey, std::string_view pKey) {
            screen.calls.push_back("wRightClick " + std::string(skey) + "," + std::string(pKey));
        };
    }
};
using TreeEvents = Screened;
using WebGrid = Screened;

}  // namespace

TEST(SetTreeview, MaximizesThenCreatesThenLaysOut) {
    Screen screen;
    clsNavSchemes navs;
    navs.SetGrid(screen.grid);
    EXPECT_EQ(screen.taken(), Calls()) << "the grid is only kept";
    navs.SetTreeview(screen.window);
    EXPECT_EQ(screen.taken(), (Calls{"maximize", "create tree", "lay out", "place 40 300 5000 2000"}));
    EXPECT_EQ(navs.cTreeView, &screen.tree);
}

TEST_F(Screened, DispInTVDrawsTheTreeThenTheGrid) {
    navs.DispInTV();
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0 7<1", "grid 1<0 7<1"}));
}

TEST_F(Screened, DispInTVOfAnEmptySchemeClearsTheTreeAndLeavesTheGrid) {
    navs.Remove("1");
    navs.Remove("7");
    navs.DispInTV();
    EXPECT_EQ(screen.taken(), Calls{"tree "});
}

TEST_F(Screened, DispInTVWithoutARootDrawsTheGridToo) {
    navs.Remove("1");
    navs.DispInTV();
    EXPECT_EQ(screen.taken(), (Calls{"tree 7<1", "grid 7<1"}));
}

TEST_F(Screened, DispInGridDrawsAnEmptySchemeToo) {
    navs.DispInGrid();
    EXPECT_EQ(screen.taken(), Calls{"grid 1<0 7<1"});
    navs.Remove("1");
    navs.Remove("7");
    navs.DispInGrid();
    EXPECT_EQ(screen.taken(), Calls{"grid "});
}

TEST_F(Screened, TheTreeIsToldTheNodeLastClicked) {
    navs.mLastN = "N7";
    navs.DispInTV();
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0 7<1 at N7", "grid 1<0 7<1"}));
}

TEST_F(Screened, NewSchemeShowsTheRootThenNoParagraphs) {
    navs.NewScheme();
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0", "grid 1<0", "paragraphs"}));
}

TEST_F(Screened, NewSchemeDrawsTheTreeBeforeItClearsTheParagraphs) {
    screen.tree.whenAsked = [this] { screen.calls.push_back("with " + nodesOf(navs.oWebs)); };
    navs.NewScheme();
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0", "with 11>1 12>7 13>7", "grid 1<0", "paragraphs"}));
}

TEST_F(Screened, NewSchemeIsCompleteWhereItCannotBeDrawn) {
    screen.tree.whenAsked = [] { throw std::bad_alloc(); };
    EXPECT_THROW(navs.NewScheme(), NotDrawn);
    EXPECT_EQ(linksOf(navs), "1<0");
    EXPECT_EQ(navs.oWebs.Count(), 0);
    EXPECT_EQ(screen.taken(), (Calls{"tree 1<0", "paragraphs"}));
}

TEST_F(Screened, DispAgainShowsTheSameParagraphs) {
    navs.oWebs.DispInGrid(7);
    navs.oWebs.DispAgain();
    EXPECT_EQ(screen.taken(), (Calls{"paragraphs 12>7 13>7", "paragraphs 12>7 13>7"}));
    addParagraphs(navs.oWebs, {{14, 99}});
    navs.DispOrphans();
    screen.calls.clear();
    navs.oWebs.DispAgain();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 14>0"});
    navs.oWebs.DispInGrid(0);
    screen.calls.clear();
    navs.oWebs.DispAgain();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1 12>7 13>7 14>0"});
}

TEST_F(Screened, RenumberLetsTheParagraphsFollowBeforeItDrawsTheTree) {
    screen.tree.whenAsked = [this] { screen.calls.push_back("with " + nodesOf(navs.oWebs)); };
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(screen.taken(),
              (Calls{"tree 1<0 2<1", "with 11>1C 12>2C 13>2C", "grid 1<0 2<1", "paragraphs 11>1 12>2 13>2"}));
}

TEST_F(Screened, LoadDataRedrawsTheTreeAndLeavesTheParagraphs) {
    loadBytes(navs, "3,a,F,0\r\n4,b,F,3\r\n");
    EXPECT_EQ(screen.taken(), (Calls{"tree 3<0 4<3", "grid 3<0 4<3"}));
}

TEST_F(Screened, LoadDataOfNoNodesClearsTheTreeAndLeavesTheGrid) {
    loadBytes(navs, "");
    EXPECT_EQ(screen.taken(), Calls{"tree "});
}

TEST_F(Screened, LoadWebShowsAllParagraphs) {
    const TempFolder folder;
    EXPECT_FALSE(navs.LoadWeb(writeBytes(folder / "in.txt", "5,7,1\r\n2,1,1\r\n")));
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 5>7 2>1"});
    EXPECT_FALSE(navs.LoadWeb(folder / "missing.txt"));
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
}

TEST_F(Screened, TheParagraphsAloneLoadWithoutDrawing) {
    loadBytes(navs.oWebs, "5,7,1\r\n");
    EXPECT_EQ(screen.taken(), Calls());
}

TEST_F(Screened, AddingRemovingAndSavingDrawNothing) {
    navs.Add(makeNode(9, 1));
    navs.Remove("9");
    navs.oWebs.Add(makeParagraph(9, 1));
    navs.oWebs.Remove("9");
    EXPECT_FALSE(savedBytes(navs).empty());
    EXPECT_FALSE(savedBytes(navs.oWebs).empty());
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(WithoutAScreen, EverythingWorks) {
    clsNavSchemes navs;
    navs.NewScheme();
    navs.Add(makeNode(2, 1));
    addParagraphs(navs.oWebs, {{1, 2}});
    navs.DispInTV();
    navs.DispInGrid();
    navs.DisplayFullWeb();
    navs.DispOrphans();
    EXPECT_TRUE(navs.Renumber());
    navs.DelNode("2");
    loadBytes(navs, "1,a,F,0\r\n");
    EXPECT_EQ(linksOf(navs), "1<0");
    EXPECT_EQ(navs.oWebs.Count(), 0);
}

// --- the tree's events ---

TEST_F(TreeEvents, AClickShowsTheParagraphsThenTellsThenOpensThenRemembers) {
    writeDownEvents();
    navs.mLastN = "N1";
    screen.tree.selected = "N7";
    screen.tree.NodeClick();
    EXPECT_EQ(screen.taken(), (Calls{"paragraphs 12>7 13>7", "oNodeClick 7 last 'N1'", "expand N7"}));
    EXPECT_EQ(navs.mLastN, "N7");
}

TEST_F(TreeEvents, AClickIsRememberedAfterTheNodeIsOpen) {
    screen.tree.whenAsked = [this] { screen.calls.push_back("last '" + navs.mLastN + "'"); };
    screen.tree.selected = "N7";
    screen.tree.NodeClick();
    EXPECT_EQ(screen.taken(), (Calls{"paragraphs 12>7 13>7", "expand N7", "last ''"}));
    EXPECT_EQ(navs.mLastN, "N7");
}

TEST_F(TreeEvents, AClickOnANodeWithoutParagraphsEmptiesTheGrid) {
    writeDownEvents();
    screen.tree.selected = "N33";
    screen.tree.NodeClick();
    EXPECT_EQ(screen.taken(), (Calls{"paragraphs", "oNodeClick 33 last ''", "expand N33"}));
}

TEST_F(TreeEvents, AClickWithNothingSelectedDoesNothing) {
    writeDownEvents();
    navs.mLastN = "N1";
    screen.tree.selected = "";
    screen.tree.NodeClick();
    EXPECT_EQ(screen.taken(), Calls());
    EXPECT_EQ(navs.mLastN, "N1");
}

TEST_F(TreeEvents, InsF2AndDelTellOfTheSelectedNode) {
    writeDownEvents();
    screen.tree.selected = "N7";
    screen.tree.KeyUp(45);
    EXPECT_EQ(screen.taken(), Calls{"oInsert 7 last ''"});
    screen.tree.KeyUp(113);
    EXPECT_EQ(screen.taken(), Calls{"oEdit 7 last ''"});
    screen.tree.KeyUp(46);
    EXPECT_EQ(screen.taken(), Calls{"oDelete 7 last ''"});
    screen.tree.selected = "N-12";
    screen.tree.KeyUp(46);
    EXPECT_EQ(screen.taken(), Calls{"oDelete -12 last ''"});
    EXPECT_EQ(navs.mLastN, "") << "only a click is remembered";
}

TEST_F(TreeEvents, AllOtherKeysAreIgnored) {
    writeDownEvents();
    screen.tree.selected = "N7";
    for (int key = 0; key < 256; ++key)
        if (key != 45 && key != 46 && key != 113) screen.tree.KeyUp(key);
    EXPECT_EQ(screen.taken(), Calls());
}

TEST_F(TreeEvents, TheRightButtonTellsOfTheSelectedNode) {
    writeDownEvents();
    screen.tree.selected = "N7";
    screen.tree.MouseUp(2);
    EXPECT_EQ(screen.taken(), Calls{"oRightClick 7 last ''"});
    for (const int button : {0, 1, 3, 4}) screen.tree.MouseUp(button);
    EXPECT_EQ(screen.taken(), Calls());
}

TEST_F(TreeEvents, KeysAndButtonsWithNothingSelectedDoNothing) {
    writeDownEvents();
    screen.tree.selected = "";
    for (const int key : {45, 46, 113}) screen.tree.KeyUp(key);
    screen.tree.MouseUp(2);
    EXPECT_EQ(screen.taken(), Calls());
}

TEST_F(TreeEvents, WithoutListenersOnlyTheScreenActs) {
    screen.tree.selected = "N7";
    for (const int key : {45, 46, 113}) screen.tree.KeyUp(key);
    screen.tree.MouseUp(2);
    screen.web.MouseUp(2);
    EXPECT_EQ(screen.taken(), Calls());
    screen.tree.NodeClick();
    EXPECT_EQ(screen.taken(), (Calls{"paragraphs 12>7 13>7", "expand N7"}));
    EXPECT_EQ(navs.mLastN, "N7");
}

// --- the paragraph grid ---

TEST_F(WebGrid, ShowsTheParagraphsOfANodeInCollectionOrder) {
    navs.oWebs.Add(makeParagraph(2, 7, -5));
    navs.oWebs.DispInGrid(7);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 12>7 13>7 2>7"});
    navs.oWebs.DispInGrid(1);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1"});
    navs.oWebs.DispInGrid(8);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    navs.oWebs.DispInGrid(-7);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
}

TEST_F(WebGrid, ShowsAllParagraphsForZero) {
    navs.oWebs.Add(makeParagraph(2, 0));
    navs.oWebs.DispInGrid(0);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1 12>7 13>7 2>0"});
    navs.oWebs.Remove("12");
    navs.DisplayFullWeb();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1 13>7 2>0"});
    navs.oWebs.ClearAll();
    navs.DisplayFullWeb();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
}

TEST_F(WebGrid, FollowsEveryChangeOfTheParagraphs) {
    const auto shown = [this] {
        navs.oWebs.DispInGrid(7);
        return screen.taken().back();
    };
    EXPECT_EQ(shown(), "paragraphs 12>7 13>7");
    navs.oWebs.Add(makeParagraph(14, 7));
    EXPECT_EQ(shown(), "paragraphs 12>7 13>7 14>7");
    navs.oWebs.Remove("12");
    EXPECT_EQ(shown(), "paragraphs 13>7 14>7");
    navs.oWebs.Remove(2);
    EXPECT_EQ(shown(), "paragraphs 14>7");
    auto moved = navs.oWebs.CloneWeb("11");
    moved->XST1 = 7;
    EXPECT_TRUE(navs.oWebs.Update(*moved));
    EXPECT_EQ(shown(), "paragraphs 11>7 14>7");
    KeyIndex nodes;
    nodes.set(7, 0);
    navs.oWebs.DropParagraphsOf(nodes);
    EXPECT_EQ(shown(), "paragraphs");
    loadBytes(navs.oWebs, "3,7\r\n4,6\r\n");
    EXPECT_EQ(shown(), "paragraphs 3>7");
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(shown(), "paragraphs");
    addParagraphs(navs.oWebs, {{8, 7}});
    EXPECT_EQ(shown(), "paragraphs 8>7");
    navs.oWebs.DelTreeNode("7");
    EXPECT_EQ(shown(), "paragraphs");
    addParagraphs(navs.oWebs, {{8, 7}});
    EXPECT_EQ(shown(), "paragraphs 8>7");
    navs.oWebs.ClearAll();
    EXPECT_EQ(shown(), "paragraphs");
}

TEST_F(WebGrid, DelTreeNodeShowsWhatIsLeftOfTheNumber) {
    navs.oWebs.DelTreeNode("7");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    navs.oWebs.DelTreeNode("0");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1"});
    navs.oWebs.DelTreeNode("01");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1"}) << "not a key, but a number";
    navs.oWebs.DelTreeNode("x");
    EXPECT_EQ(screen.taken(), Calls());
}

TEST_F(WebGrid, ShowsTheOrphansWithTheNodeThatTheyTake) {
    addParagraphs(navs.oWebs, {{14, 99}, {15, 1}, {16, -1}});
    navs.DispOrphans();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 14>0 16>0"});
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1C 12>7C 13>7C 14>0O 15>1C 16>0O");
    navs.DispOrphans();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 14>0 16>0"});
}

// An orphan is one whose node is missing, whatever number it shows.
TEST_F(WebGrid, ShowsAnOrphanWithTheNodeThatItHadAndNoParagraphOfNodeZero) {
    navs.Add(makeNode(0, 1));
    navs.oWebs.Add(makeParagraph(14, 0));
    navs.DispOrphans();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    navs.Remove("7");
    navs.DispOrphans();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 12>7 13>7"});
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1C 12>7O 13>7O 14>0C");
}

TEST_F(WebGrid, ShowsNoOrphansWhereEveryNodeExists) {
    navs.DispOrphans();
    EXPECT_EQ(screen.taken(), Calls{"paragraphs"});
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1C 12>7C 13>7C");
}

TEST_F(WebGrid, OrphansRightAfterARenumberingChangeNothing) {
    navs.oWebs.Add(makeParagraph(14, 99));
    EXPECT_TRUE(navs.Renumber());
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1C 12>2C 13>2C 14>0O");
    EXPECT_EQ(screen.taken().back(), "paragraphs 11>1 12>2 13>2 14>0") << "all of them";
    navs.DispOrphans();
    EXPECT_EQ(nodesOf(navs.oWebs), "11>1C 12>2C 13>2C 14>0O");
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 14>0"});
    navs.oWebs.DispInGrid(0);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 11>1 12>2 13>2 14>0"});
}

TEST_F(WebGrid, ARightClickTellsOfTheCurrentRow) {
    writeDownEvents();
    screen.web.MouseUp(2);
    EXPECT_EQ(screen.taken(), Calls{"wRightClick ID ,XST1"}) << "the header row";
    screen.web.current = {"12", "7"};
    screen.web.MouseUp(2);
    EXPECT_EQ(screen.taken(), Calls{"wRightClick 12,7"});
    for (const int button : {0, 1, 3, 4}) screen.web.MouseUp(button);
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(WebGridAlone, ARightClickTellsTheWebSchemesOwnListener) {
    Screen screen;
    clsWebSchemes webs;
    webs.SetGrid(screen.web, 1, 2, 3, 4);
    EXPECT_EQ(screen.taken(), Calls{"place 1 2 3 4"});
    std::string heard;
    webs.oRightClick = [&](std::string_view skey, std::string_view pKey) {
        heard += std::string(skey) + "," + std::string(pKey) + ";";
    };
    screen.web.current = {"5", "4"};
    screen.web.MouseUp(2);
    EXPECT_EQ(heard, "5,4;");
}
