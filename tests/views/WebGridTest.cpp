// SPDX-License-Identifier: MIT
#include <QHeaderView>

#include "Helpers.h"

namespace {

class WebGridTest : public testing::Test {
  protected:
    void SetUp() override {
        window.showSample();
        ASSERT_TRUE(window.appear());
    }

    [[nodiscard]] QPoint row(int number) const {
        return grid()->visualRect(grid()->model()->index(number, 3)).center();
    }
    [[nodiscard]] WebGrid* grid() const { return window.webGrid; }
    void rightClick(QPoint at) { clickAt(grid()->viewport(), at, Qt::RightButton); }

    SchemeWindow window;
};

}  // namespace

TEST_F(WebGridTest, ShowsAllParagraphsInTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(cellsOf(grid()->gridModel().rows(), 9),
              (Rows{"13|2|0|Title|||H|0|", "12|3|0|Title|||H|0|", "11|2|0|Title|||H|0|", "14|7|0|Title|||H|0|"}));
}

TEST_F(WebGridTest, ShowsTheParagraphsOfANode) {
    window.navs.oWebs.DispInGrid(2);
    EXPECT_EQ(idsIn(*grid()), "13 11");
    window.navs.oWebs.DispInGrid(7);
    EXPECT_EQ(idsIn(*grid()), "14");
    window.navs.oWebs.DispInGrid(5);
    EXPECT_EQ(idsIn(*grid()), "") << "a node without paragraphs";
    window.navs.oWebs.DispInGrid(0);
    EXPECT_EQ(idsIn(*grid()), "13 12 11 14");
}

// A click also repaints the tree and the other grid; the paragraphs come first.
TEST_F(WebGridTest, IsPaintedAtOnce) {
    class Paintings final : public QObject {
      public:
        int count = 0;

      protected:
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paintings;
    QCoreApplication::processEvents();
    grid()->viewport()->installEventFilter(&paintings);
    window.navs.oWebs.DispInGrid(2);
    EXPECT_EQ(paintings.count, 1);
}

TEST_F(WebGridTest, ShowsTheOrphans) {
    window.navs.oWebs.Add(makeParagraph(15, 99));
    window.navs.DispOrphans();
    EXPECT_EQ(cellsOf(grid()->gridModel().rows(), 9), Rows{"15|0|0||||H|0|"});
    window.navs.oWebs.Remove("15");
    window.navs.DispOrphans();
    EXPECT_EQ(idsIn(*grid()), "");
    EXPECT_EQ(grid()->CurrentText(0), "ID ");
}

TEST_F(WebGridTest, TakesItsPlaceInTwips) {
    ASSERT_EQ(grid()->logicalDpiX(), 96);
    EXPECT_EQ(grid()->geometry(), QRect(420, 320, 470, 310));
    grid()->Place(40, 300, 9980, 3240);
    EXPECT_EQ(grid()->geometry(), QRect(3, 20, 665, 216));
    window.navs.oWebs.SetGrid(*grid(), 15, 30, 1440, 720);
    EXPECT_EQ(grid()->geometry(), QRect(1, 2, 96, 48));
}

TEST_F(WebGridTest, ReadsTheCurrentRow) {
    EXPECT_EQ(grid()->CurrentText(0), "ID ");
    EXPECT_EQ(grid()->CurrentText(1), "XST1");
    EXPECT_EQ(grid()->CurrentText(7), "Form#");
    clickAt(grid()->viewport(), row(1));
    EXPECT_EQ(grid()->CurrentText(0), "12");
    EXPECT_EQ(grid()->CurrentText(1), "3");
    EXPECT_EQ(grid()->CurrentText(3), "Title");
    EXPECT_EQ(grid()->CurrentText(7), "0");
    window.navs.DisplayFullWeb();
    EXPECT_EQ(grid()->CurrentText(0), "ID ");
    EXPECT_EQ(grid()->CurrentText(1), "XST1");
}

TEST_F(WebGridTest, ReadsBytesAsTheyAre) {
    grid()->Fill(Paragraphs{makeParagraph(1, 2, "H", "\x80\xE4")});
    clickAt(grid()->viewport(), row(0));
    EXPECT_EQ(grid()->CurrentText(3), "\x80\xE4");
    grid()->Fill(Paragraphs{makeParagraph(1, 2, "H", std::string(5000, 'a'))});
    clickAt(grid()->viewport(), row(0));
    EXPECT_EQ(grid()->CurrentText(3), std::string(5000, 'a')) << "longer than what the cell shows";
}

TEST_F(WebGridTest, NamesTheHeaderOnARightClickAfterAFill) {
    rightClick(row(2));
    EXPECT_EQ(window.taken(), Rows{"paragraph ID  of XST1"});
}

TEST_F(WebGridTest, NamesTheCurrentRowOnARightClickNotTheOneUnderThePointer) {
    clickAt(grid()->viewport(), row(1));
    EXPECT_EQ(window.taken(), Rows()) << "a left click says nothing";
    rightClick(row(3));
    EXPECT_EQ(window.taken(), Rows{"paragraph 12 of 3"});
    grid()->setFocus();
    typeKey(&window, Qt::Key_Down);
    EXPECT_EQ(window.taken(), Rows());
    rightClick(row(0));
    EXPECT_EQ(window.taken(), Rows{"paragraph 11 of 2"});
}

TEST_F(WebGridTest, TakesARightClickOnTheHeaderAndBelowTheRows) {
    clickAt(grid()->viewport(), row(0));
    clickAt(grid()->horizontalHeader()->viewport(), {60, 5}, Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"paragraph 13 of 2"});
    clickAt(grid()->viewport(), {20, grid()->viewport()->height() - 10}, Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"paragraph 13 of 2"});
    window.navs.oWebs.DispInGrid(5);
    clickAt(grid()->viewport(), {20, 20}, Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"paragraph ID  of XST1"}) << "with the header row alone";
}

TEST_F(WebGridTest, RaisesItsEventWhenTheButtonIsLetGo) {
    auto* handle = window.windowHandle();
    const auto at = grid()->viewport()->mapTo(&window, row(1));
    QTest::mousePress(handle, Qt::RightButton, Qt::NoModifier, at);
    EXPECT_EQ(window.taken(), Rows());
    QTest::mouseRelease(handle, Qt::RightButton, Qt::NoModifier, at);
    EXPECT_EQ(window.taken(), Rows{"paragraph ID  of XST1"});
}

TEST_F(WebGridTest, SaysNothingOfOtherButtonsAndKeys) {
    clickAt(grid()->viewport(), row(0));
    clickAt(grid()->viewport(), row(1), Qt::MiddleButton);
    clickAt(grid()->horizontalHeader()->viewport(), {60, 5});
    clickAt(grid()->horizontalHeader()->viewport(), {60, 5}, Qt::MiddleButton);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                       grid()->viewport()->mapTo(&window, row(2)));
    grid()->setFocus();
    for (const auto key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Return, Qt::Key_Menu})
        typeKey(&window, key);
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(WebGridTest, TakesARightDoubleClickAsTwo) {
    clickAt(grid()->viewport(), row(1));
    QTest::mouseDClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier,
                       grid()->viewport()->mapTo(&window, row(1)));
    EXPECT_EQ(window.taken(), (Rows{"paragraph 12 of 3", "paragraph 12 of 3"}));
    EXPECT_EQ(grid()->currentIndex().row(), 1);
}

TEST_F(WebGridTest, WorksWithoutAListener) {
    WebGrid alone(nullptr);
    alone.resize(300, 200);
    alone.setVisible(true);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&alone));
    clickAt(alone.viewport(), {50, 50}, Qt::RightButton);
    EXPECT_EQ(alone.CurrentText(0), "ID ");
}

TEST_F(WebGridTest, ShowsWhatItShowedUntilTheNextFill) {
    const auto paragraph = makeParagraph(15, 4, "H", "old title");
    window.navs.oWebs.Add(paragraph);
    window.navs.DisplayFullWeb();
    clickAt(grid()->viewport(), row(4));
    paragraph->titleIs = "new title";
    paragraph->XST1 = 5;
    paragraph->ID = 16;
    EXPECT_EQ(grid()->CurrentText(0), "15");
    EXPECT_EQ(grid()->CurrentText(1), "4");
    EXPECT_EQ(grid()->model()->index(4, 3).data().toString(), QStringLiteral("old title"));
    rightClick(row(0));
    EXPECT_EQ(window.taken(), Rows{"paragraph 15 of 4"});
    window.navs.oWebs.NewScheme();
    EXPECT_EQ(idsIn(*grid()), "13 12 11 14 15") << "and when the paragraphs are gone";
    EXPECT_EQ(grid()->model()->index(4, 3).data().toString(), QStringLiteral("old title"));
}

TEST_F(WebGridTest, ShowsTheOldFileUntilTheNextFill) {
    loadBytes(window.navs.oWebs, "31,2,1,\"first file\",\"q\",\"\",\"H\",0,\"\",\"\"\r\n");
    window.navs.DisplayFullWeb();
    loadBytes(window.navs.oWebs, "32,3,1,\"other file\",\"q\",\"\",\"H\",0,\"\",\"\"\r\n");
    EXPECT_EQ(cellsOf(grid()->gridModel().rows(), 9), Rows{"31|2|1|first file|q||H|0|"});
    window.navs.DisplayFullWeb();
    EXPECT_EQ(cellsOf(grid()->gridModel().rows(), 9), Rows{"32|3|1|other file|q||H|0|"});
}
