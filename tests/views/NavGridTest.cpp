// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

class NavGridTest : public testing::Test {
  protected:
    void SetUp() override {
        window.showSample();
        ASSERT_TRUE(window.appear());
    }

    SchemeWindow window;
};

}  // namespace

TEST_F(NavGridTest, ShowsTheNodesInTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(idsIn(*window.navGrid), "1 4 2 3 7 6 5");
    EXPECT_EQ(cellsOf(window.navGrid->gridModel().rows(), 8),
              (Rows{"1|Sales|F|0||||", "4|Orders|G|2||||", "2|Customers|F|1||||", "3|Products|G|1||||",
                    "7|Order|R|4||||", "6|Product|R|3||||", "5|Calls|N|2||||"}));
}

TEST_F(NavGridTest, IsRedrawnWithTheTree) {
    window.navs.Remove("4");
    EXPECT_EQ(idsIn(*window.navGrid), "1 4 2 3 7 6 5");
    window.navs.DispInTV();
    EXPECT_EQ(idsIn(*window.navGrid), "1 2 3 7 6 5");
}

TEST_F(NavGridTest, KeepsItsRowsWhenTheSchemeBecameEmpty) {
    for (const auto* key : {"1", "2", "3", "4", "5", "6", "7"}) window.navs.Remove(key);
    ASSERT_EQ(window.navs.Count(), 0);
    window.navs.DispInTV();
    EXPECT_EQ(idsIn(*window.navGrid), "1 4 2 3 7 6 5");
    EXPECT_EQ(window.tree->treeModel().rowCount(), 0) << "the tree is cleared";
    window.navs.DispInGrid();
    EXPECT_EQ(idsIn(*window.navGrid), "");
}

TEST_F(NavGridTest, ShowsWhatItShowedUntilTheNextRedraw) {
    window.navs.Item(4)->descriptionIs = "changed";
    window.navs.Item(4)->setTypeIs("N");
    const auto shown = [&](int role) { return window.navGrid->model()->index(1, 1).data(role); };
    EXPECT_EQ(shown(Qt::DisplayRole).toString(), QStringLiteral("Orders"));
    EXPECT_EQ(shown(Qt::ForegroundRole).value<QBrush>().color(), QColor(0, 0, 255));
    window.navs.DispInGrid();
    EXPECT_EQ(shown(Qt::DisplayRole).toString(), QStringLiteral("changed"));
    EXPECT_EQ(shown(Qt::ForegroundRole).value<QBrush>().color(), QColor(128, 0, 0));
}

TEST_F(NavGridTest, ShowsNodesOfUnknownType) {
    window.navs.Add(makeNode(8, 1, "X", "unknown"));
    window.navs.DispInTV();
    EXPECT_EQ(idsIn(*window.navGrid), "1 4 2 3 7 6 5 8");
    EXPECT_EQ(window.navGrid->model()->index(7, 0).data(Qt::ForegroundRole).value<QBrush>().color(),
              QColor(128, 0, 0))
        << "as the row above";
}

TEST_F(NavGridTest, RaisesNoEvent) {
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        clickAt(window.navGrid->viewport(), {30, 30}, button);
    window.navGrid->setFocus();
    for (const auto key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Return, Qt::Key_Down})
        typeKey(&window, key);
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavGridTest, ScrollsARowToTheTop) {
    for (int id = 100; id < 200; ++id) window.navs.Add(makeNode(id, 1, "N", "more"));
    window.navs.DispInGrid();
    const auto top = [&] { return window.navGrid->model()->index(window.navGrid->rowAt(0), 0).data().toString(); };
    window.navGrid->showAtTop("3");
    EXPECT_EQ(top(), QStringLiteral("3"));
    window.navGrid->showAtTop("120");
    EXPECT_EQ(top(), QStringLiteral("120"));
    for (const char* key : {"", "99", "0120", "N3", "ID "}) {
        window.navGrid->showAtTop(key);
        EXPECT_EQ(top(), QStringLiteral("120")) << key;
    }
    EXPECT_FALSE(window.navGrid->currentIndex().isValid());
}

TEST_F(NavGridTest, ScrollsARowOfTheLastPageIntoView) {
    for (int id = 100; id < 200; ++id) window.navs.Add(makeNode(id, 1, "N", "more"));
    window.navs.DispInGrid();
    window.navGrid->showAtTop("199");
    const auto last = window.navGrid->model()->index(window.navGrid->model()->rowCount() - 1, 0);
    ASSERT_EQ(last.data().toString(), QStringLiteral("199"));
    EXPECT_TRUE(window.navGrid->viewport()->rect().contains(window.navGrid->visualRect(last)));
}
