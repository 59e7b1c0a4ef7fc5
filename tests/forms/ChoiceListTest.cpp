// SPDX-License-Identifier: MIT
#include "forms/ChoiceList.h"

#include "Helpers.h"

namespace {

class Choice : public testing::Test {
  protected:
    Choice() {
        window.resize(300, 300);
        before.setObjectName(text("before"));
        list.setObjectName(text("list"));
        list.addItems({text("Apple"), text("Banana"), text("Cherry")});
        list.setGeometry(10, 60, 200, 150);
        list.Click = [this] { clicks.push_back(std::to_string(list.ListIndex())); };
        window.show();
        activate(window);
        before.setFocus();
    }
    void click(int index, Qt::KeyboardModifiers modifiers = Qt::NoModifier, Qt::MouseButton button = Qt::LeftButton) {
        clickAt(list.visualItemRect(list.item(index)).center(), modifiers, button);
    }
    void clickAt(QPoint at, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                 Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(window.windowHandle(), button, modifiers, list.viewport()->mapTo(&window, at));
    }
    // The clicks since this was last asked.
    [[nodiscard]] Rows taken() { return std::exchange(clicks, {}); }

    Rows clicks;
    QWidget window;
    QLineEdit before{&window};
    ChoiceList list{&window};
};

}  // namespace

TEST_F(Choice, IsNoneAtFirst) {
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.chosen(), QString());
    EXPECT_EQ(taken(), Rows());
}

TEST_F(Choice, IsNoneWhenTheListGetsTheFocus) {
    for (const auto reason : {Qt::TabFocusReason, Qt::OtherFocusReason, Qt::BacktabFocusReason}) {
        before.setFocus();
        list.setFocus(reason);
        EXPECT_TRUE(list.hasFocus());
        EXPECT_EQ(list.ListIndex(), -1);
    }
    EXPECT_EQ(taken(), Rows());
    press(window, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 0) << "the first press of an arrow chooses the first entry";
    EXPECT_EQ(taken(), Rows{"0"});
}

TEST_F(Choice, StaysWhenTheListGetsTheFocusBack) {
    list.setListIndex(1);
    EXPECT_EQ(taken(), Rows{"1"});
    list.setFocus(Qt::TabFocusReason);
    before.setFocus();
    list.setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(taken(), Rows());
}

TEST_F(Choice, IsAClickWhicheverWayItIsMade) {
    click(2);
    EXPECT_EQ(list.chosen(), text("Cherry"));
    EXPECT_EQ(taken(), Rows{"2"});
    press(window, Qt::Key_Up);
    EXPECT_EQ(taken(), Rows{"1"});
    press(window, Qt::Key_Home);
    EXPECT_EQ(taken(), Rows{"0"});
    press(window, Qt::Key_C);
    EXPECT_EQ(list.chosen(), text("Cherry"));
    EXPECT_EQ(taken(), Rows{"2"});
    list.setListIndex(1);
    EXPECT_EQ(list.chosen(), text("Banana"));
    EXPECT_EQ(taken(), Rows{"1"});
}

TEST_F(Choice, OfTheChosenEntryIsAClickAgain) {
    click(1);
    click(1);
    EXPECT_EQ(taken(), Rows({"1", "1"}));
    list.setListIndex(1);
    EXPECT_EQ(taken(), Rows{"1"});
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(Choice, IsNotMadeByAKeyThatGoesNowhere) {
    click(2);
    EXPECT_EQ(taken(), Rows{"2"});
    press(window, Qt::Key_Down);
    press(window, Qt::Key_End);
    EXPECT_EQ(taken(), Rows());
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(Choice, IsTakenBackByNothing) {
    click(1);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(list.ListIndex(), 1);
    press(window, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(list.ListIndex(), 1);
    clickAt(QPoint(20, list.viewport()->height() - 5));
    EXPECT_EQ(list.ListIndex(), 1) << "below the last entry";
    EXPECT_EQ(taken().front(), "1");
}

TEST_F(Choice, IsOfOneEntryWhateverShiftAndCtrlAre) {
    click(0);
    click(2, Qt::ShiftModifier);
    EXPECT_EQ(list.selectedItems().size(), 1);
    EXPECT_EQ(list.ListIndex(), 2);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(list.selectedItems().size(), 1);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(taken(), Rows({"0", "2", "1"}));
    press(window, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list.ListIndex(), 2);
    press(window, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(Choice, IsMadeByTheLeftButtonOnly) {
    click(1, Qt::NoModifier, Qt::RightButton);
    click(1, Qt::NoModifier, Qt::MiddleButton);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(taken(), Rows());
}

TEST_F(Choice, CanBeNoneAgain) {
    list.setListIndex(1);
    EXPECT_EQ(taken(), Rows{"1"});
    list.setListIndex(-1);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.chosen(), QString());
    EXPECT_EQ(taken(), Rows()) << "which is no click";
}

TEST_F(Choice, OfAnEntryThatIsNotThereChangesNothing) {
    list.setListIndex(1);
    EXPECT_EQ(taken(), Rows{"1"});
    list.setListIndex(3);
    list.setListIndex(99);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(taken(), Rows());
}

TEST_F(Choice, NeedsNoListener) {
    list.Click = nullptr;
    click(1);
    click(1);
    list.setListIndex(1);
    list.setListIndex(2);
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(Choice, CanBeSeenWholeWhenTheListFits) {
    list.addItem(text("An entry that is far longer than all of the others"));
    list.fit(4);
    list.resize(list.minimumSizeHint().expandedTo(list.minimumSize()));
    settle();
    for (int row = 0; row < 4; ++row) {
        const auto place = list.visualItemRect(list.item(row));
        EXPECT_TRUE(list.viewport()->rect().contains(place)) << row;
        EXPECT_LE(list.fontMetrics().horizontalAdvance(list.item(row)->text()), place.width());
    }
    EXPECT_LT(list.viewport()->height(), list.visualItemRect(list.item(3)).bottom() + 3) << "and no more than that";
}
