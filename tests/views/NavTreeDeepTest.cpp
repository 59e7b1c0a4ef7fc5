// SPDX-License-Identifier: MIT
#include <ctime>

#include "Helpers.h"

namespace {

// Trees that are deeper or wider than anybody draws by hand, though a file can hold them. A view that recursed for
// each level would overflow the stack here, and one that took quadratic time would never finish.
class NavTreeDeepTest : public testing::Test {
  protected:
    static constexpr int manyLevels = 200000;

    void SetUp() override {
        ASSERT_TRUE(window.appear());
        start = std::clock();
    }
    // The time of the processor alone: other programs may keep it busy.
    void TearDown() override { EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 60) << "seconds: quadratic time"; }

    void drawChain(std::int32_t levels, const std::string& lastKey = {}) {
        fillChain(window.navs, levels);
        window.navs.mLastN = lastKey;
        window.navs.DispInTV();
    }
    [[nodiscard]] bool isShown(std::string_view key) const {
        return window.tree->visualRect(window.at(key)).height() > 0;  // in view or not
    }
    /// Opens the nodes from N1 down, one after the other, as patient users do.
    void openDownTo(int level) {
        QCoreApplication::processEvents();  // the tree is on the screen before anybody clicks in it
        for (int id = 1; id <= level; ++id) window.tree->expand(window.tree->treeModel().indexOf(row(id)));
    }
    /// The row of a node of the chain.
    static std::uint32_t row(int id) { return static_cast<std::uint32_t>(id - 1); }
    void select(int id) {
        window.tree->selectionModel()->setCurrentIndex(window.tree->treeModel().indexOf(row(id)),
                                                       QItemSelectionModel::ClearAndSelect);
    }

    SchemeWindow window;
    std::clock_t start = 0;
};

}  // namespace

TEST_F(NavTreeDeepTest, ARedrawSelectsANodeAnywhereBelow) {
    drawChain(manyLevels, "N150000");
    EXPECT_EQ(window.tree->SelectedKey(), "N150000");
    EXPECT_TRUE(isShown("N1"));
    EXPECT_TRUE(isShown("N2"));
    EXPECT_FALSE(isShown("N150000")) << "too far below what is open";
    EXPECT_FALSE(window.tree->grab().isNull());
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeDeepTest, AKeyOnANodeFarBelowNamesIt) {
    drawChain(manyLevels, "N200001");
    window.tree->setFocus();
    typeKey(&window, Qt::Key_F2);
    EXPECT_EQ(window.taken(), Rows{"edit 200001"});
    typeKey(&window, Qt::Key_Return);
    EXPECT_EQ(window.taken(), Rows{"click 200001"});
    EXPECT_EQ(window.tree->SelectedKey(), "N200001");
}

TEST_F(NavTreeDeepTest, ScrollingFarBelowDoesNothing) {
    drawChain(manyLevels);
    for (const auto hint :
         {QAbstractItemView::EnsureVisible, QAbstractItemView::PositionAtTop, QAbstractItemView::PositionAtCenter})
        window.tree->scrollTo(window.tree->treeModel().indexOf(row(manyLevels)), hint);
    EXPECT_FALSE(isShown("N3"));
    EXPECT_TRUE(isShown("N2"));
}

TEST_F(NavTreeDeepTest, ScrollingReachesAThousandClosedLevels) {
    drawChain(1500);
    window.tree->scrollTo(window.at("N1003"));  // N2 to N1002 are closed above it, one too many
    EXPECT_FALSE(isShown("N3"));
    window.tree->scrollTo(window.at("N1002"));
    EXPECT_TRUE(isShown("N1002"));
    EXPECT_FALSE(isShown("N1003"));
    window.tree->scrollTo(window.at("N1501"));
    EXPECT_TRUE(isShown("N1501")) << "from there it goes on";
}

TEST_F(NavTreeDeepTest, ARedrawOpensAThousandLevelsAboveTheLastNode) {
    drawChain(1500, "N1002");
    EXPECT_TRUE(isShown("N1002"));
    window.navs.mLastN = "N1003";
    window.navs.DispInTV();
    EXPECT_FALSE(isShown("N3"));
    EXPECT_EQ(window.tree->SelectedKey(), "N1003");
}

TEST_F(NavTreeDeepTest, ScrollingToNothingDoesNothing) {
    drawChain(10);
    window.tree->scrollTo({});
    EXPECT_FALSE(isShown("N3"));
}

TEST_F(NavTreeDeepTest, TheStarOpensNothingInATreeThatIsTooDeep) {
    drawChain(manyLevels);
    select(1);
    window.tree->setFocus();
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_FALSE(window.isOpen("N2"));
    typeKey(&window, Qt::Key_Down);
    EXPECT_EQ(window.tree->SelectedKey(), "N2") << "other keys go on working";
    typeKey(&window, Qt::Key_Right);
    EXPECT_TRUE(window.isOpen("N2"));
}

TEST_F(NavTreeDeepTest, TheStarOpensAThousandLevels) {
    drawChain(1000);
    select(1);
    window.tree->setFocus();
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_TRUE(isShown("N1001"));
}

TEST_F(NavTreeDeepTest, TheStarOpensNoMoreThanAThousandLevels) {
    drawChain(1001);
    select(1);
    window.tree->setFocus();
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_FALSE(isShown("N3"));
}

TEST_F(NavTreeDeepTest, ABranchThatWasOpenedFarDownClosesAndOpensAgain) {
    window.tree->setFixedHeight(40);  // few rows to measure at each step
    drawChain(manyLevels);
    openDownTo(32000);
    ASSERT_TRUE(isShown("N32001"));
    window.tree->collapse(window.at("N1"));
    EXPECT_FALSE(isShown("N2"));
    window.tree->expand(window.at("N1"));
    EXPECT_TRUE(isShown("N1000")) << "what was open comes back";
    EXPECT_FALSE(isShown("N1010")) << "but for what lies too deep";
    EXPECT_FALSE(window.tree->grab().isNull());
}

TEST_F(NavTreeDeepTest, ABranchThatIsOpenFarDownIsLaidOutAnew) {
    drawChain(manyLevels);
    openDownTo(3000);
    ASSERT_TRUE(isShown("N3001"));
    auto larger = window.tree->font();
    larger.setPointSizeF(14);
    window.tree->setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isShown("N1000"));
    EXPECT_FALSE(isShown("N1010"));
}

TEST_F(NavTreeDeepTest, ABranchMayBeOpenedFarDownBeforeItIsOnTheScreen) {
    drawChain(manyLevels);
    for (int id = 2; id <= manyLevels; ++id) window.tree->expand(window.tree->treeModel().indexOf(row(id)));
    QCoreApplication::processEvents();
    EXPECT_TRUE(isShown("N1000"));
    EXPECT_FALSE(isShown("N1010"));
}

TEST_F(NavTreeDeepTest, AShallowTreeReopensAsItWas) {
    drawChain(1000);
    openDownTo(1000);
    window.tree->collapse(window.at("N1"));
    window.tree->expand(window.at("N1"));
    EXPECT_TRUE(isShown("N1001"));
}

TEST_F(NavTreeDeepTest, ClosingOneBranchLeavesOthersOpen) {
    fillChain(window.navs, 1500);
    window.navs.Add(makeNode(5000, 1, "F", "other"));
    window.navs.Add(makeNode(5001, 5000, "N", "child"));
    window.navs.DispInTV();
    openDownTo(1400);
    window.open("N5000");
    window.tree->collapse(window.at("N2"));
    EXPECT_TRUE(window.isOpen("N5000"));
    EXPECT_TRUE(window.isOpen("N1"));
    EXPECT_TRUE(isShown("N5001"));
    EXPECT_TRUE(window.isOpen("N900")) << "below the closed branch, not too deep";
    EXPECT_FALSE(window.isOpen("N1100"));
}

TEST_F(NavTreeDeepTest, ARedrawForgetsWhatWasOpen) {
    drawChain(1500);
    openDownTo(1400);
    window.navs.DispInTV();
    EXPECT_FALSE(window.isOpen("N2"));
    window.tree->collapse(window.at("N1"));
    window.tree->expand(window.at("N1"));
    EXPECT_TRUE(isShown("N2"));
    EXPECT_FALSE(isShown("N3"));
}

TEST_F(NavTreeDeepTest, AStarOfManyChildrenIsDrawnAndScrolled) {
    window.navs.Add(makeNode(1, 0, "F"));
    for (int id = 2; id <= 100001; ++id) window.navs.Add(makeNode(id, 1, "N", "child " + std::to_string(id)));
    window.navs.mLastN = "N100001";
    window.navs.DispInTV();
    EXPECT_EQ(window.tree->SelectedKey(), "N100001");
    EXPECT_TRUE(isShown("N100001"));
    EXPECT_FALSE(window.tree->grab().isNull());
    window.tree->setFocus();
    typeKey(&window, Qt::Key_Home);
    EXPECT_EQ(window.tree->SelectedKey(), "N1");
    typeKey(&window, Qt::Key_Asterisk);
    typeKey(&window, Qt::Key_End);
    EXPECT_EQ(window.tree->SelectedKey(), "N100001");
    EXPECT_TRUE(isShown("N100001"));
    const auto place = window.tree->visualRect(window.at("N100001"));
    EXPECT_LE(place.bottom(), window.tree->viewport()->height());
    EXPECT_FALSE(window.tree->grab().isNull());
}
