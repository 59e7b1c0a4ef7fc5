// SPDX-License-Identifier: MIT
#include <QProxyStyle>

#include "Helpers.h"

namespace {

class NavTreeMouseTest : public testing::Test {
  protected:
    void SetUp() override {
        window.showSample();
        ASSERT_TRUE(window.appear());
    }

    [[nodiscard]] std::string selected() const { return window.tree->SelectedKey(); }
    /// A point in the window for the raw mouse functions.
    [[nodiscard]] QPoint inWindow(QPoint at) const { return window.tree->viewport()->mapTo(&window, at); }
    void click(QPoint at, Qt::MouseButton button = Qt::LeftButton) { clickAt(window.tree->viewport(), at, button); }
    [[nodiscard]] QPoint emptyArea() const { return {60, window.tree->viewport()->height() - 20}; }

    SchemeWindow window;
};

/// A desktop on which one click opens things, as some users set theirs.
class SingleClickStyle final : public QProxyStyle {
  public:
    SingleClickStyle() : QProxyStyle(QStringLiteral("fusion")) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_ItemView_ActivateItemOnSingleClick) return 1;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

}  // namespace

TEST_F(NavTreeMouseTest, AClickFillsTheParagraphsThenTellsThenOpensThenRemembers) {
    window.navs.mLastN = "N9";
    std::string whenTold;
    window.navs.oNodeClick = [&](std::string_view key) {
        whenTold = "click " + std::string(key) + ", paragraphs " + idsIn(*window.webGrid) + ", open " +
                   window.openNodes() + ", selected " + selected() + ", last " + window.navs.mLastN;
    };
    window.click("N2");
    EXPECT_EQ(whenTold, "click 2, paragraphs 13 11, open N1, selected N2, last N9");
    EXPECT_EQ(window.openNodes(), "N1 N2");
    EXPECT_EQ(window.navs.mLastN, "N2");
}

TEST_F(NavTreeMouseTest, AClickCountsWhenTheButtonIsLetGo) {
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.spot("N3")));
    EXPECT_EQ(window.taken(), Rows());
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.spot("N3")));
    EXPECT_EQ(window.taken(), Rows{"click 3"});
}

TEST_F(NavTreeMouseTest, EveryClickCountsOnTheSameNodeToo) {
    window.click("N2");
    window.click("N2");
    EXPECT_EQ(window.taken(), (Rows{"click 2", "click 2"}));
    EXPECT_EQ(window.openNodes(), "N1 N2") << "the second click leaves it open";
    window.click("N3");
    window.click("N1");
    EXPECT_EQ(window.taken(), (Rows{"click 3", "click 1"}));
    EXPECT_EQ(window.navs.mLastN, "N1");
    EXPECT_EQ(window.openNodes(), "N1 N2 N3");
}

TEST_F(NavTreeMouseTest, AClickOnANodeWithoutChildrenOpensNothing) {
    window.open("N2");
    window.click("N5");
    EXPECT_EQ(window.taken(), Rows{"click 5"});
    EXPECT_EQ(idsIn(*window.webGrid), "");
    EXPECT_EQ(window.openNodes(), "N1 N2");
    EXPECT_EQ(window.navs.mLastN, "N5");
}

TEST_F(NavTreeMouseTest, AClickOnThePictureIsAClickOnTheNode) {
    const auto place = window.tree->visualRect(window.at("N2"));
    click({place.left() + 8, place.center().y()});
    EXPECT_EQ(window.taken(), Rows{"click 2"});
}

TEST_F(NavTreeMouseTest, TheBoxOpensAndClosesWithoutAClick) {
    window.click("N3");
    window.events.clear();
    click(window.boxOf("N2"));
    EXPECT_EQ(window.openNodes(), "N1 N2 N3");
    click(window.boxOf("N2"));
    EXPECT_EQ(window.openNodes(), "N1 N3");
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.navs.mLastN, "N3");
    EXPECT_EQ(idsIn(*window.webGrid), "12");
}

TEST_F(NavTreeMouseTest, TheRootHasNoBoxToCloseIt) {
    const auto place = window.tree->visualRect(window.at("N1"));
    EXPECT_EQ(place.left(), 0);
    click({2, place.center().y()});
    EXPECT_EQ(window.openNodes(), "N1");
}

TEST_F(NavTreeMouseTest, ControlAndShiftChangeNothingAboutAClick) {
    window.click("N2", Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), "N2");
    window.click("N2", Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), "N2") << "it stays selected";
    window.click("N3", Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.tree->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(window.taken(), (Rows{"click 2", "click 2", "click 3"}));
}

TEST_F(NavTreeMouseTest, AClickBesideTheNodesChangesNothing) {
    window.click("N2");
    window.events.clear();
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) click(emptyArea(), button);
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.tree->currentIndex(), window.at("N2"));
}

TEST_F(NavTreeMouseTest, AClickBesideTheNodesSelectsNothingEither) {
    click(emptyArea());
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeMouseTest, ADoubleClickIsTwoClicksAndLeavesTheNodeOpen) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.spot("N2")));
    EXPECT_EQ(window.taken(), (Rows{"click 2", "click 2"}));
    EXPECT_EQ(window.openNodes(), "N1 N2");
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.spot("N1")));
    EXPECT_EQ(window.taken(), (Rows{"click 1", "click 1"}));
    EXPECT_EQ(window.openNodes(), "N1 N2");
    window.click("N3");
    EXPECT_EQ(window.taken(), Rows{"click 3"});
}

TEST_F(NavTreeMouseTest, ADoubleClickOnTheBoxTogglesWithoutAClick) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.boxOf("N2")));
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(window.openNodes(), "N1") << "opened and closed";
}

TEST_F(NavTreeMouseTest, AClickIsOneClickWhereOneClickOpensThings) {
    SingleClickStyle style;
    window.tree->setStyle(&style);
    window.click("N2");
    EXPECT_EQ(window.taken(), Rows{"click 2"});
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow(window.spot("N3")));
    EXPECT_EQ(window.taken(), (Rows{"click 3", "click 3"}));
    window.tree->setStyle(nullptr);
}

TEST_F(NavTreeMouseTest, DraggingSelectsNothingOnTheWay) {
    auto* handle = window.windowHandle();
    const auto start = inWindow(window.spot("N2"));
    const auto end = inWindow(window.spot("N1"));
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, start);
    for (const auto at : {start - QPoint(0, 5), start - QPoint(0, 15), end}) QTest::mouseMove(handle, at);
    EXPECT_EQ(selected(), "N2");
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, end);
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.taken(), Rows()) << "let go over another node";
    window.click("N3");
    EXPECT_EQ(window.taken(), Rows{"click 3"});
}

TEST_F(NavTreeMouseTest, ARightClickNamesTheSelectedNodeNotTheOneUnderThePointer) {
    window.click("N2");
    window.events.clear();
    window.click("N3", Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"right 2"});
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.tree->currentIndex(), window.at("N2"));
    EXPECT_EQ(window.navs.mLastN, "N2");
    EXPECT_EQ(idsIn(*window.webGrid), "13 11");
    click(emptyArea(), Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"right 2"}) << "beside the nodes too";
}

TEST_F(NavTreeMouseTest, ARightClickCountsWhenTheButtonIsLetGo) {
    window.click("N2");
    window.events.clear();
    QTest::mousePress(window.windowHandle(), Qt::RightButton, Qt::NoModifier, inWindow(window.spot("N2")));
    EXPECT_EQ(window.taken(), Rows());
    QTest::mouseRelease(window.windowHandle(), Qt::RightButton, Qt::NoModifier, inWindow(window.spot("N2")));
    EXPECT_EQ(window.taken(), Rows{"right 2"});
}

TEST_F(NavTreeMouseTest, ARightClickWithNothingSelectedSaysNothing) {
    window.click("N2", Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(selected(), "");
}

TEST_F(NavTreeMouseTest, ARightPressOnTheBoxDoesNotOpen) {
    click(window.boxOf("N2"), Qt::RightButton);
    EXPECT_EQ(window.openNodes(), "N1");
}

TEST_F(NavTreeMouseTest, ARightClickOnABoxIsForTheSelectedNode) {
    window.click("N3");
    window.events.clear();
    click(window.boxOf("N2"), Qt::RightButton);
    EXPECT_EQ(window.taken(), Rows{"right 3"});
    EXPECT_EQ(selected(), "N3");
    EXPECT_FALSE(window.isOpen("N2"));
}

TEST_F(NavTreeMouseTest, ARightDoubleClickIsTwoRightClicks) {
    window.click("N2");
    window.events.clear();
    QTest::mouseDClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier, inWindow(window.spot("N2")));
    EXPECT_EQ(window.taken(), (Rows{"right 2", "right 2"}));
    window.click("N3");
    EXPECT_EQ(window.taken(), Rows{"click 3"}) << "and does not swallow the next click";
}

TEST_F(NavTreeMouseTest, OtherButtonsDoNothing) {
    for (const auto button : {Qt::MiddleButton, Qt::BackButton}) {
        window.click("N2", button);
        EXPECT_EQ(selected(), "");
        click(window.boxOf("N2"), button);
        EXPECT_EQ(window.openNodes(), "N1");
    }
    window.click("N3");
    window.click("N2", Qt::MiddleButton);
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.taken(), Rows{"click 3"});
}

TEST_F(NavTreeMouseTest, ClosingABranchOverTheSelectedNodeSelectsTheBranch) {
    window.open("N2");
    window.open("N4");
    window.click("N7");
    window.events.clear();
    click(window.boxOf("N2"));
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.tree->currentIndex(), window.at("N2"));
    EXPECT_EQ(window.taken(), Rows()) << "which is no click";
    EXPECT_EQ(window.navs.mLastN, "N7");
    EXPECT_EQ(idsIn(*window.webGrid), "14");
    click(window.boxOf("N2"));
    EXPECT_EQ(selected(), "N2") << "nor does opening it bring the node back";
    window.tree->setFocus();
    typeKey(&window, Qt::Key_Delete);
    EXPECT_EQ(window.taken(), Rows{"delete 2"});
}

TEST_F(NavTreeMouseTest, ClosingAnotherBranchLeavesTheSelectionAlone) {
    window.open("N2");
    window.open("N3");
    window.click("N3");
    click(window.boxOf("N2"));
    EXPECT_EQ(selected(), "N3");
    click(window.boxOf("N3"));
    EXPECT_EQ(selected(), "N3") << "the closed node itself";
    window.navs.mLastN = "";
    window.navs.DispInTV();
    click(window.boxOf("N2"));
    click(window.boxOf("N2"));
    EXPECT_EQ(selected(), "") << "and with nothing selected nothing gets it";
}

TEST_F(NavTreeMouseTest, AClickMayRedrawTheTree) {
    window.navs.oNodeClick = [&](std::string_view) { window.navs.DispInTV(); };
    window.click("N2");
    EXPECT_EQ(selected(), "") << "nothing was remembered when the tree was redrawn";
    EXPECT_EQ(window.navs.mLastN, "N2");
    window.click("N2");
    EXPECT_EQ(selected(), "N2");
    EXPECT_EQ(window.openNodes(), "N1 N2");
}

TEST_F(NavTreeMouseTest, AClickMayEmptyTheScheme) {
    window.navs.oNodeClick = [&](std::string_view) { window.navs.NewScheme(); };
    window.click("N2");
    EXPECT_EQ(treeOf(window.tree->treeModel()), Rows{"N1 'Data Browser' 1 #000000"});
    EXPECT_EQ(window.navs.mLastN, "N2");
}

TEST_F(NavTreeMouseTest, AClickNeedsNoListener) {
    window.navs.oNodeClick = nullptr;
    window.navs.oRightClick = nullptr;
    window.click("N2");
    window.click("N2", Qt::RightButton);
    EXPECT_EQ(window.navs.mLastN, "N2");
    window.tree->NodeClick = nullptr;
    window.tree->MouseUp = nullptr;
    window.click("N3");
    window.click("N3", Qt::RightButton);
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.navs.mLastN, "N2");
}
