// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QLineEdit>

#include "Helpers.h"

namespace {

class NavTreeKeyTest : public testing::Test {
  protected:
    void SetUp() override {
        window.showSample();
        window.open("N2");
        window.open("N4");
        ASSERT_TRUE(window.appear());
        window.tree->setFocus();
    }

    /// Selects a node without a click.
    void select(std::string_view key) { window.tree->setCurrentIndex(window.at(key)); }
    [[nodiscard]] std::string selected() const { return window.tree->SelectedKey(); }
    void press(Qt::Key key) { QTest::keyPress(window.windowHandle(), key); }
    void release(Qt::Key key) { QTest::keyRelease(window.windowHandle(), key); }

    SchemeWindow window;
};

}  // namespace

TEST_F(NavTreeKeyTest, InsF2AndDelNameTheSelectedNode) {
    select("N7");
    typeKey(&window, Qt::Key_Insert);
    EXPECT_EQ(window.taken(), Rows{"insert 7"});
    typeKey(&window, Qt::Key_F2);
    EXPECT_EQ(window.taken(), Rows{"edit 7"});
    typeKey(&window, Qt::Key_Delete);
    EXPECT_EQ(window.taken(), Rows{"delete 7"});
    select("N1");
    typeKey(&window, Qt::Key_Insert);
    EXPECT_EQ(window.taken(), Rows{"insert 1"});
    EXPECT_EQ(window.navs.mLastN, "") << "a key is no click";
}

TEST_F(NavTreeKeyTest, ANegativeIDKeepsItsSign) {
    window.navs.Add(makeNode(-12, 1, "F"));
    window.navs.mLastN = "N-12";
    window.navs.DispInTV();
    typeKey(&window, Qt::Key_F2);
    EXPECT_EQ(window.taken(), Rows{"edit -12"});
}

// The tree shows only the beginning of a long text.
TEST_F(NavTreeKeyTest, CtrlCCopiesTheWholeText) {
    const std::string longText(3000, 'd');
    window.navs.Add(makeNode(900, 1, "F", longText));
    window.navs.mLastN = "N900";
    window.navs.DispInTV();
    typeKey(&window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().toStdString() == longText);
}

TEST_F(NavTreeKeyTest, TheKeysOfTheNumericKeypadDoTheSame) {
    select("N5");
    for (const auto key : {Qt::Key_Insert, Qt::Key_Delete}) typeKey(&window, key, Qt::KeypadModifier);
    EXPECT_EQ(window.taken(), (Rows{"insert 5", "delete 5"}));
}

TEST_F(NavTreeKeyTest, ShiftCtrlAndAltDoNotMatter) {
    select("N5");
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        for (const auto key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete}) typeKey(&window, key, modifier);
    EXPECT_EQ(window.taken(), (Rows{"insert 5", "edit 5", "delete 5", "insert 5", "edit 5", "delete 5", "insert 5",
                                    "edit 5", "delete 5"}));
}

TEST_F(NavTreeKeyTest, KeysCountWhenTheyAreLetGo) {
    select("N5");
    for (const auto key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Return}) {
        press(key);
        EXPECT_EQ(window.taken(), Rows()) << key;
        release(key);
        EXPECT_EQ(window.taken().size(), 1U) << key;
    }
}

TEST_F(NavTreeKeyTest, OtherKeysSayNothing) {
    select("N5");
    for (const auto key :
         {Qt::Key_F1, Qt::Key_F3, Qt::Key_F4, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Menu,
          Qt::Key_Shift, Qt::Key_Control, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_0,
          Qt::Key_Period, Qt::Key_Minus, Qt::Key_Plus, Qt::Key_Print, Qt::Key_X})
        typeKey(&window, key);
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(window.navs.mLastN, "");
}

TEST_F(NavTreeKeyTest, WithNothingSelectedNoKeySaysAnything) {
    ASSERT_EQ(selected(), "");
    for (const auto key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter})
        typeKey(&window, key);
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(selected(), "");
}

TEST_F(NavTreeKeyTest, AHeldKeyCountsOnce) {
    select("N5");
    for (const auto key : {Qt::Key_Insert, Qt::Key_Return}) {
        press(key);
        for (int times = 0; times < 3; ++times) repeatKey(window.tree, key);
        EXPECT_EQ(window.taken(), Rows()) << key;
        release(key);
        EXPECT_EQ(window.taken().size(), 1U) << key;
    }
}

TEST_F(NavTreeKeyTest, AReleaseWithoutItsPressSaysNothing) {
    select("N5");
    for (const auto key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Return}) {
        release(key);
        repeatKey(window.tree, key);  // still held from where it went down
        release(key);
    }
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeKeyTest, AReleaseAfterTheKeyboardWasElsewhereSaysNothing) {
    NEEDS_ACTIVE(&window);
    select("N5");
    for (const auto key : {Qt::Key_Delete, Qt::Key_Return}) {
        window.tree->setFocus();
        press(key);
        window.navGrid->setFocus();
        window.tree->setFocus();
        release(key);
        EXPECT_EQ(window.taken(), Rows()) << key;
    }
    typeKey(&window, Qt::Key_Delete);
    EXPECT_EQ(window.taken(), Rows{"delete 5"});
}

TEST_F(NavTreeKeyTest, AReleaseWhosePressWentToAnotherWindowSaysNothing) {
    select("N5");
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    QTest::keyPress(other.windowHandle(), Qt::Key_Delete);
    other.hide();
    release(Qt::Key_Delete);
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeKeyTest, EnterIsAClick) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        select("N3");
        typeKey(&window, key);
        EXPECT_EQ(window.taken(), Rows{"click 3"}) << key;
        EXPECT_EQ(window.navs.mLastN, "N3");
        EXPECT_EQ(idsIn(*window.webGrid), "12");
        EXPECT_TRUE(window.isOpen("N3"));
        window.navs.mLastN = "";
        window.navs.DispInTV();
        window.navs.DisplayFullWeb();
    }
}

TEST_F(NavTreeKeyTest, ArrowsOnlySelect) {
    select("N1");
    Rows passed;
    for (int times = 0; times < 6; ++times) {
        typeKey(&window, Qt::Key_Down);
        passed.push_back(selected());
    }
    EXPECT_EQ(passed, (Rows{"N2", "N4", "N7", "N5", "N3", "N3"}));
    typeKey(&window, Qt::Key_Up);
    EXPECT_EQ(selected(), "N5");
    typeKey(&window, Qt::Key_Home);
    EXPECT_EQ(selected(), "N1");
    typeKey(&window, Qt::Key_End);
    EXPECT_EQ(selected(), "N3");
    EXPECT_EQ(window.taken(), Rows());
    EXPECT_EQ(window.navs.mLastN, "");
    EXPECT_EQ(idsIn(*window.webGrid), "13 12 11 14");
    EXPECT_EQ(window.openNodes(), "N1 N2 N4");
}

TEST_F(NavTreeKeyTest, LeftAndRightCloseAndOpenWithoutAClick) {
    select("N4");
    typeKey(&window, Qt::Key_Left);
    EXPECT_EQ(window.openNodes(), "N1 N2");
    typeKey(&window, Qt::Key_Left);
    EXPECT_EQ(selected(), "N2") << "to the parent";
    typeKey(&window, Qt::Key_Left);
    EXPECT_EQ(window.openNodes(), "N1");
    typeKey(&window, Qt::Key_Right);
    EXPECT_EQ(window.openNodes(), "N1 N2");
    typeKey(&window, Qt::Key_Right);
    EXPECT_EQ(selected(), "N4") << "to the first child";
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeKeyTest, TheStarOpensTheWholeBranchWithoutAClick) {
    window.navs.DispInTV();
    select("N1");
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_EQ(window.openNodes(), "N1 N2 N4 N3");
    EXPECT_EQ(selected(), "N1");
    EXPECT_EQ(window.taken(), Rows());
}

TEST_F(NavTreeKeyTest, TheStarOpensNothingBesideTheBranchNorNodesWithoutChildren) {
    window.navs.DispInTV();
    select("N2");
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_EQ(window.openNodes(), "N1 N2 N4");
    for (const auto* without : {"N5", "N7"}) EXPECT_FALSE(window.isOpen(without)) << without;
    window.tree->selectionModel()->clear();
    typeKey(&window, Qt::Key_Asterisk);
    EXPECT_EQ(window.openNodes(), "N1 N2 N4") << "without a node";
}

TEST_F(NavTreeKeyTest, TabAndBacktabLeaveTheTree) {
    select("N2");
    typeKey(&window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.navGrid);
    typeKey(&window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), window.tree);
    typeKey(&window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), window.webGrid);
    EXPECT_EQ(selected(), "N2");
}

TEST_F(NavTreeKeyTest, NothingEditsATextInItsPlace) {
    select("N2");
    for (const auto key : {Qt::Key_F2, Qt::Key_Space, Qt::Key_Return}) {
        press(key);
        EXPECT_EQ(window.tree->findChild<QLineEdit*>(), nullptr) << key;
        release(key);
        EXPECT_EQ(window.tree->findChild<QLineEdit*>(), nullptr) << key;
    }
}

TEST_F(NavTreeKeyTest, AKeyMayRedrawTheTree) {
    window.navs.oDelete = [&](std::string_view key) {
        window.navs.DelNode(key);
        window.navs.DispInTV();
    };
    select("N4");
    typeKey(&window, Qt::Key_Delete);
    EXPECT_EQ(treeOf(window.tree->treeModel()),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 'Customers' 2 #ff0000", "    N5 'Calls' 5 #800000",
                    "  N3 'Products' 3 #0000ff", "    N6 'Product' 4 #004000"}));
    EXPECT_EQ(selected(), "");
}

TEST_F(NavTreeKeyTest, KeysNeedNoListener) {
    window.navs.oInsert = nullptr;
    window.tree->NodeClick = nullptr;
    select("N2");
    typeKey(&window, Qt::Key_Insert);
    typeKey(&window, Qt::Key_Return);
    window.tree->KeyUp = nullptr;
    typeKey(&window, Qt::Key_Delete);
    EXPECT_EQ(window.taken(), Rows());
}
