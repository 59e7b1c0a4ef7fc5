// SPDX-License-Identifier: MIT
#include <QHeaderView>
#include <QScrollBar>

#include "Helpers.h"

namespace {

/// Notes whether a widget is painted.
class PaintWatch final : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] bool painted() const { return painted_; }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

  private:
    bool painted_ = false;
};

class NavTreeFillTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(window.appear()); }

    void drawWith(const char* lastKey) {
        window.navs.mLastN = lastKey;
        window.navs.DispInTV();
    }
    /// Redraws, and waits until everything is in its place.
    void redraw() {
        window.navs.DispInTV();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] std::string selected() const { return window.tree->SelectedKey(); }
    [[nodiscard]] bool isInView(std::string_view key) const {
        const auto place = window.tree->visualRect(window.at(key));
        return !place.isEmpty() && place.top() >= 0 && place.bottom() < window.tree->viewport()->height();
    }
    /// Whether the node's box, picture and text can be seen, or the beginning of a text that is wider than the view.
    [[nodiscard]] bool isReadable(std::string_view key) const {
        const auto index = window.at(key);
        const int picture = window.tree->visualRect(index).left();
        const int left = picture - (index.parent().isValid() ? window.tree->indentation() : 0);
        const int width = window.tree->viewport()->width();
        return isInView(key) && left >= 0 &&
               (picture + window.tree->sizeHintForIndex(index).width() <= width || left == 0);
    }
    /// Whether nothing at all is marked in the tree.
    [[nodiscard]] bool nothingIsMarked() const {
        return selected().empty() && !window.tree->currentIndex().isValid() &&
               !window.tree->selectionModel()->hasSelection();
    }

    SchemeWindow window;
};

}  // namespace

TEST_F(NavTreeFillTest, IsEmptyAtFirst) {
    EXPECT_EQ(treeOf(window.tree->treeModel()), Rows());
    EXPECT_EQ(selected(), "");
    window.tree->Expand("N1");
    window.navs.DispInTV();
    EXPECT_EQ(treeOf(window.tree->treeModel()), Rows());
}

TEST_F(NavTreeFillTest, ANewSchemeIsAnOpenRoot) {
    window.navs.NewScheme();
    EXPECT_EQ(treeOf(window.tree->treeModel()), Rows{"N1 'Data Browser' 1 #000000"});
    EXPECT_TRUE(window.isOpen("N1"));
    EXPECT_TRUE(nothingIsMarked());
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(idsIn(*window.navGrid), "1");
}

TEST_F(NavTreeFillTest, OnlyTheRootIsOpenAfterARedraw) {
    window.showSample();
    EXPECT_EQ(treeOf(window.tree->treeModel()),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 'Customers' 2 #ff0000", "    N4 'Orders' 3 #0000ff",
                    "      N7 'Order' 4 #004000", "    N5 'Calls' 5 #800000", "  N3 'Products' 3 #0000ff",
                    "    N6 'Product' 4 #004000"}));
    EXPECT_EQ(window.openNodes(), "N1");
    for (const auto* key : {"N2", "N3", "N4"}) window.open(key);
    EXPECT_EQ(window.openNodes(), "N1 N2 N4 N3");
    window.navs.DispInTV();
    EXPECT_EQ(window.openNodes(), "N1");
}

TEST_F(NavTreeFillTest, SelectsTheLastNodeAndOpensWhatIsAboveIt) {
    window.showSample();
    drawWith("N7");
    EXPECT_EQ(selected(), "N7");
    EXPECT_EQ(window.tree->currentIndex(), window.at("N7"));
    EXPECT_EQ(window.openNodes(), "N1 N2 N4");
    EXPECT_TRUE(isInView("N7"));
    drawWith("N3");
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.openNodes(), "N1") << "the node itself stays closed";
    drawWith("N1");
    EXPECT_EQ(selected(), "N1");
}

TEST_F(NavTreeFillTest, KeepsTheKeyOfTheLastNodeThroughARenumbering) {
    for (const auto& [id, parent] : {std::pair{1, 0}, {3, 1}, {2, 1}})
        window.navs.Add(makeNode(id, parent, "F", "was " + std::to_string(id)));
    window.navs.DispInTV();
    window.click("N3");
    EXPECT_TRUE(window.navs.Renumber());
    EXPECT_EQ(window.navs.mLastN, "N3");
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.tree->currentIndex().data().toString().toStdString(), "was 2") << "which has this number now";
}

TEST_F(NavTreeFillTest, SelectsNothingWhenARenumberingTakesTheNumberOfTheLastNode) {
    for (const auto& [id, parent] : {std::pair{1, 0}, {9, 1}}) window.navs.Add(makeNode(id, parent, "F", "node"));
    window.navs.DispInTV();
    window.click("N9");
    EXPECT_TRUE(window.navs.Renumber());
    EXPECT_EQ(window.navs.mLastN, "N9");
    EXPECT_TRUE(nothingIsMarked());
}

TEST_F(NavTreeFillTest, ScrollsToTheLastNode) {
    window.showSample();
    for (int id = 100; id < 600; ++id) window.navs.Add(makeNode(id, 3, "N", "child"));
    drawWith("N599");
    EXPECT_EQ(selected(), "N599");
    EXPECT_TRUE(isInView("N599"));
    EXPECT_FALSE(isInView("N1"));
    drawWith("N300");
    EXPECT_TRUE(isInView("N300"));
    drawWith("N1");
    EXPECT_TRUE(isInView("N1"));
    EXPECT_EQ(window.tree->verticalScrollBar()->value(), 0);
}

TEST_F(NavTreeFillTest, ScrollsSidewaysToTheLastNode) {
    fillChain(window.navs, 30);
    for (const auto* key : {"N30", "N20", "N2", "N15"}) {
        drawWith(key);
        QTest::qWait(20);
        EXPECT_TRUE(isReadable(key)) << key;
    }
    window.navs.Item(15)->descriptionIs = std::string(200, 'M');
    drawWith("N15");
    QTest::qWait(20);
    EXPECT_TRUE(isReadable("N15"));
    EXPECT_EQ(window.tree->visualRect(window.at("N15")).left(), window.tree->indentation());
}

TEST_F(NavTreeFillTest, GoesSidewaysWithTheKeysNoFurtherThanItMust) {
    fillChain(window.navs, 30);
    drawWith("N30");
    window.tree->setFocus();
    const auto* bar = window.tree->horizontalScrollBar();
    ASSERT_GT(bar->value(), 0);
    for (int id = 29; id > 0; --id) {
        const auto key = "N" + std::to_string(id);
        const int before = bar->value();
        const bool wasReadable = isReadable(key);
        typeKey(&window, Qt::Key_Up);
        ASSERT_EQ(selected(), key);
        EXPECT_TRUE(isReadable(key)) << key;
        EXPECT_EQ(bar->value() == before, wasReadable) << key;
    }
    EXPECT_EQ(bar->value(), 0);
}

// The bar takes the room of a row as soon as the long text is in view.
TEST_F(NavTreeFillTest, TheSidewaysBarDoesNotCoverTheLastNode) {
    for (int id = 100; id < 300; ++id) window.navs.Add(makeNode(id, 1, "N", "child"));
    window.navs.Add(makeNode(1, 0, "F", "root"));
    window.navs.Add(makeNode(300, 1, "N", std::string(200, 'M')));
    const auto size = window.tree->size();
    for (int more = 0; more < 24; more += 4) {
        window.tree->resize(size.width(), size.height() + more);
        drawWith("");
        window.tree->verticalScrollBar()->setValue(0);
        QTest::qWait(20);
        drawWith("N300");
        QTest::qWait(20);
        EXPECT_TRUE(isReadable("N300")) << more;
    }
}

TEST_F(NavTreeFillTest, GoesToTheTopWithEachFill) {
    fillChain(window.navs, 30);
    for (int id = 100; id < 600; ++id) window.navs.Add(makeNode(id, 1, "N", "child"));
    drawWith("N30");
    window.tree->scrollToBottom();
    QTest::qWait(20);
    ASSERT_GT(window.tree->verticalScrollBar()->value(), 0);
    drawWith("");
    QTest::qWait(20);
    EXPECT_EQ(window.tree->verticalScrollBar()->value(), 0);
    EXPECT_EQ(window.tree->horizontalScrollBar()->value(), 0);
}

TEST_F(NavTreeFillTest, ScrollsToTheLastNodeBeforeTheWindowIsShown) {
    SchemeWindow later;
    fillSample(later.navs);
    for (int id = 100; id < 600; ++id) later.navs.Add(makeNode(id, 4, "N", "child"));
    later.navs.mLastN = "N599";
    later.navs.DispInTV();
    ASSERT_TRUE(later.appear());
    EXPECT_EQ(later.tree->SelectedKey(), "N599");
    EXPECT_TRUE(later.tree->viewport()->rect().contains(later.spot("N599")));
}

TEST_F(NavTreeFillTest, KeysOfNoNodeSelectNothing) {
    window.showSample();
    for (const auto* key : {"", "1", "N", "N99", "n2", "N02", "2N", "Data Browser"}) {
        drawWith("N2");
        ASSERT_EQ(selected(), "N2");
        drawWith(key);
        EXPECT_TRUE(nothingIsMarked()) << key;
        EXPECT_EQ(window.openNodes(), "N1") << key;
        EXPECT_EQ(window.navs.mLastN, key);
    }
}

TEST_F(NavTreeFillTest, SelectsNothingAfterTheLastNodeWasDeleted) {
    window.showSample();
    window.click("N2");
    window.navs.DelNode("2");
    window.navs.DispInTV();
    EXPECT_TRUE(nothingIsMarked());
    EXPECT_EQ(window.navs.mLastN, "N2");
    EXPECT_EQ(treeOf(window.tree->treeModel()),
              (Rows{"N1 'Data Browser' 1 #000000", "  N3 'Products' 3 #0000ff", "    N6 'Product' 4 #004000"}));
}

TEST_F(NavTreeFillTest, ANodeThatIsNotDrawnIsNotSelected) {
    window.showSample();
    window.navs.Add(makeNode(8, 1, "X"));
    window.navs.Add(makeNode(9, 8, "F"));
    for (const auto* key : {"N8", "N9"}) {
        drawWith(key);
        EXPECT_TRUE(nothingIsMarked()) << key;
    }
}

TEST_F(NavTreeFillTest, AnEmptySchemeClearsTheTree) {
    window.showSample();
    drawWith("N2");
    const clsNavSchemes empty;
    window.tree->Fill(empty);
    EXPECT_EQ(treeOf(window.tree->treeModel()), Rows());
    EXPECT_EQ(selected(), "");
}

TEST_F(NavTreeFillTest, RedrawsRaiseNothing) {
    window.showSample();
    for (const auto* key : {"N7", "", "N2", "1"}) {
        drawWith(key);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(idsIn(*window.webGrid), "13 12 11 14") << "nor does a redraw touch the paragraphs";
}

TEST_F(NavTreeFillTest, RedrawsLeaveNothingMarkedInATreeWithTheKeyboard) {
    NEEDS_ACTIVE(&window);
    window.showSample();
    window.tree->setFocus();
    ASSERT_TRUE(window.tree->hasFocus());
    drawWith("N2");
    EXPECT_EQ(selected(), "N2");
    drawWith("1");
    QCoreApplication::processEvents();
    EXPECT_TRUE(nothingIsMarked());
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeFillTest, GettingTheKeyboardMarksNothing) {
    NEEDS_ACTIVE(&window);
    window.showSample();
    window.navGrid->setFocus();
    for (const auto reason : {Qt::TabFocusReason, Qt::OtherFocusReason, Qt::ActiveWindowFocusReason}) {
        window.tree->setFocus(reason);
        ASSERT_TRUE(window.tree->hasFocus());
        EXPECT_TRUE(nothingIsMarked()) << reason;
        window.navGrid->setFocus();
    }
    window.click("N1", Qt::RightButton);
    ASSERT_TRUE(window.tree->hasFocus()) << "a right click brings it too";
    EXPECT_TRUE(nothingIsMarked());
}

TEST_F(NavTreeFillTest, GettingTheKeyboardBackKeepsTheSelectedNode) {
    NEEDS_ACTIVE(&window);
    window.showSample();
    window.click("N2");
    window.navGrid->setFocus();
    window.tree->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.tree->currentIndex(), window.at("N2"));
}

// The current row gets a frame when the tree gets the keyboard.
TEST_F(NavTreeFillTest, GettingTheKeyboardPaintsTheTreeAnew) {
    NEEDS_ACTIVE(&window);
    window.showSample();
    window.click("N2");
    window.navGrid->setFocus();
    QCoreApplication::processEvents();
    PaintWatch watch(*window.tree->viewport());
    window.tree->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(QTest::qWaitFor([&] { return watch.painted(); }));
}

TEST_F(NavTreeFillTest, ExpandOpensANodeOrNothing) {
    window.showSample();
    window.tree->Expand("N3");
    EXPECT_EQ(window.openNodes(), "N1 N3");
    for (const auto* key : {"", "3", "N99", "N6"}) window.tree->Expand(key);
    EXPECT_EQ(window.openNodes(), "N1 N3");
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeFillTest, ShowsWhatItShowedUntilTheNextRedraw) {
    window.showSample();
    window.navs.Item(2)->descriptionIs = "changed";
    window.navs.Item(2)->setTypeIs("N");
    EXPECT_EQ(window.at("N2").data().toString(), QStringLiteral("Customers"));
    window.navs.Remove("2");
    EXPECT_EQ(window.at("N2").data().toString(), QStringLiteral("Customers"));
    window.click("N2");
    EXPECT_EQ(window.taken(), Rows{"click 2"});
    window.navs.DispInTV();
    EXPECT_FALSE(window.at("N2").isValid());
}

TEST_F(NavTreeFillTest, LooksAsItShould) {
    EXPECT_EQ(window.tree->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    EXPECT_EQ(window.tree->font().family(), QStringLiteral("Arial"));
    EXPECT_DOUBLE_EQ(window.tree->font().pointSizeF(), 10);
    EXPECT_TRUE(window.tree->font().bold());
    ASSERT_EQ(window.tree->logicalDpiX(), 96);
    EXPECT_EQ(window.tree->indentation(), 40) << "600 twips";
    EXPECT_EQ(window.tree->iconSize(), QSize(16, 16));
    EXPECT_FALSE(window.tree->rootIsDecorated());
    EXPECT_TRUE(window.tree->isHeaderHidden());
    EXPECT_TRUE(window.tree->uniformRowHeights());
    EXPECT_EQ(window.tree->editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(window.tree->selectionMode(), QAbstractItemView::SingleSelection);
    EXPECT_EQ(window.tree->accessibleName(), QStringLiteral("Navigation tree"));
}

TEST_F(NavTreeFillTest, IndentsEachLevelAndGivesAllRowsOneHeight) {
    window.showSample();
    drawWith("N7");
    const int height = std::max(window.tree->fontMetrics().height(), 16) + 4;
    const std::pair<const char*, int> lefts[] = {{"N1", 0},   {"N2", 40}, {"N4", 80},
                                                 {"N7", 120}, {"N5", 80}, {"N3", 40}};
    int top = 0;
    for (const auto& [key, left] : lefts) {
        const auto place = window.tree->visualRect(window.at(key));
        EXPECT_EQ(place.left(), left) << key;
        EXPECT_EQ(place.top(), top) << key;
        EXPECT_EQ(place.height(), height) << key;
        top += height;
    }
}

TEST_F(NavTreeFillTest, ScrollsSidewaysOnlyForLongTextsInView) {
    window.showSample();
    auto* bar = window.tree->horizontalScrollBar();
    EXPECT_EQ(bar->maximum(), 0);
    window.navs.Item(6)->descriptionIs = std::string(200, 'M');
    redraw();
    EXPECT_EQ(bar->maximum(), 0) << "its branch is closed";
    window.open("N3");
    EXPECT_GT(bar->maximum(), 1000);
    window.tree->collapse(window.at("N3"));
    EXPECT_EQ(bar->maximum(), 0);
}

TEST_F(NavTreeFillTest, WidensTheColumnAsLongTextsScrollIntoView) {
    window.showSample();
    for (int id = 100; id < 300; ++id) window.navs.Add(makeNode(id, 1, "N", "child"));
    window.navs.Add(makeNode(300, 1, "N", std::string(200, 'M')));
    redraw();
    auto* bar = window.tree->horizontalScrollBar();
    EXPECT_EQ(bar->maximum(), 0);
    window.tree->verticalScrollBar()->setValue(window.tree->verticalScrollBar()->maximum());
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > 1000; }, 2000));
    window.tree->verticalScrollBar()->setValue(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->maximum() == 0; }, 2000));
}

TEST_F(NavTreeFillTest, OpensWhatIsAboveTheLastNodeBeforeItIsOnTheScreen) {
    SchemeWindow hidden;
    hidden.showSample();
    hidden.navs.mLastN = "N7";
    hidden.navs.DispInTV();
    EXPECT_EQ(hidden.openNodes(), "N1 N2 N4");
}

// Both of the current node and of any other.
TEST_F(NavTreeFillTest, TellsTheNumberOfChildrenThatItShows) {
    window.showSample();
    for (const char* current : {"", "N2", "N7"}) {
        window.navs.mLastN = current;
        redraw();
        for (const auto& [key, count] :
             {std::pair<const char*, int>{"N1", 2}, {"N2", 2}, {"N4", 1}, {"N7", 0}, {"N3", 1}})
            EXPECT_EQ(window.tree->childCount(key), count) << key << " while it is at " << current;
    }
    for (const char* key : {"", "2", "N99", "N02"}) EXPECT_EQ(window.tree->childCount(key), 0) << key;
    window.navs.Add(makeNode(8, 7, "?", "of no type"));
    redraw();
    EXPECT_EQ(window.tree->childCount("N7"), 0) << "it is not in the tree";
}

TEST_F(NavTreeFillTest, TellsTheKeyOfTheParent) {
    window.showSample();
    for (const char* current : {"", "N2", "N7"}) {
        window.navs.mLastN = current;
        redraw();
        for (const auto& [key, parent] :
             {std::pair<const char*, const char*>{"N7", "N4"}, {"N4", "N2"}, {"N6", "N3"}, {"N2", "N1"}})
            EXPECT_EQ(window.tree->parentKey(key), parent) << key << " while it is at " << current;
    }
    for (const char* key : {"N1", "", "7", "N99"}) EXPECT_EQ(window.tree->parentKey(key), "") << key;
}

TEST_F(NavTreeFillTest, PlacesAMenuBelowTheCurrentNode) {
    window.showSample();
    window.tree->setCurrentIndex(window.at("N3"));
    const auto node = window.tree->visualRect(window.at("N3"));
    EXPECT_EQ(window.tree->viewport()->mapFromGlobal(window.tree->placeOfCurrent()), node.bottomLeft());
    window.tree->setCurrentIndex({});
    EXPECT_EQ(window.tree->viewport()->mapFromGlobal(window.tree->placeOfCurrent()), QPoint(0, 0));
}
