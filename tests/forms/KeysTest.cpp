// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QPushButton>
#include <QWhatsThis>

#include "Helpers.h"

// The keyboard on the two forms.

namespace {

/// Records the keys that reach a field.
class KeyWatch final : public QObject {
  public:
    explicit KeyWatch(QWidget& field) { field.installEventFilter(this); }
    Rows keys;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            const auto& key = static_cast<QKeyEvent&>(*event);
            if (key.key() < Qt::Key_Shift || key.key() > Qt::Key_Alt)
                keys.push_back((event->type() == QEvent::KeyPress ? "down " : "up ") +
                               QKeySequence(key.key()).toString().toStdString());
        }
        return false;
    }
};

class Keys : public BothForms {
  protected:
    // The fields that have the focus one after the other, until it is back in the first one.
    Rows walk(Qt::Key step, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Rows fields{focusName()};
        do {
            key(step, modifiers);
            fields.push_back(focusName());
        } while (fields.back() != fields.front() && fields.size() < 20);
        return fields;
    }
    // Opens a form for a record of this type.
    void openOfType(const std::string& type) {
        if (isNode())
            Stage::open(makeNode(7, 2, type, "Orders", "spG_Orders", "CKey05"));
        else
            Stage::open(storedParagraph(type));
    }
    [[nodiscard]] static std::size_t windowsOpen() {
        const auto windows = QApplication::topLevelWidgets();
        return static_cast<std::size_t>(
            std::count_if(windows.begin(), windows.end(), [](const QWidget* each) { return each->isVisible(); }));
    }
    [[nodiscard]] Rows everythingShown() const {
        Rows shown{focusName(), help()};
        for (const auto& field : fields()) {
            if (field.starts_with("lst"))
                shown.push_back(chosen(field));
            else
                shown.push_back(Stage::shown(field));
            shown.back() += background(field).name().toStdString();
        }
        return shown;
    }
};

struct Walk {
    std::string type;
    Rows fields;
};
const std::vector<Walk> nodeWalks = {
    {"G",
     {"txtID", "txtDescription", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtIcon", "txtRole",
      "txtID"}},
    {"R",
     {"txtID", "txtDescription", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtIcon", "txtRole",
      "txtID"}},
    {"F", {"txtID", "txtDescription", "lstType", "txtParm", "txtIcon", "txtRole", "txtID"}},
    {"N", {"txtID", "txtDescription", "lstType", "txtParm", "txtIcon", "txtRole", "txtID"}},
};
const std::vector<Walk> paragraphWalks = {
    {"H",
     {"txtID", "txtTitle", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtForm", "txtSeqNo", "txtID"}},
    {"S", {"txtID", "txtTitle", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtCol", "txtSeqNo", "txtID"}},
    {"E", {"txtID", "txtTitle", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtSeqNo", "txtID"}},
    {"",
     {"txtID", "txtTitle", "lstType", "txtQuery", "lstParm", "txtnn", "txtParm", "txtForm", "txtCol", "txtSeqNo",
      "txtID"}},
};

}  // namespace

RUN_WITH_BOTH_FORMS(Keys);

TEST_P(Keys, MoveWithEnterTabAndShiftTab) {
    for (const auto& [type, fields] : isNode() ? nodeWalks : paragraphWalks) {
        SCOPED_TRACE(type);
        openOfType(type);
        EXPECT_EQ(walk(Qt::Key_Tab), fields);
        EXPECT_EQ(walk(Qt::Key_Tab, Qt::ShiftModifier), Rows(fields.rbegin(), fields.rend()));
        for (const auto& field : this->fields())
            EXPECT_EQ(background(field), field == "txtnn" && enabled(field) ? tipColour : white)
                << field << " is not highlighted by Tab";
        EXPECT_EQ(walk(Qt::Key_Return), fields);
        EXPECT_EQ(walk(Qt::Key_Enter), fields);
        EXPECT_EQ(walk(Qt::Key_Return, Qt::ShiftModifier), fields);
        EXPECT_EQ(walk(Qt::Key_Return, Qt::ControlModifier), fields);
        EXPECT_EQ(walk(Qt::Key_Enter, Qt::KeypadModifier), fields);
        EXPECT_EQ(walk(Qt::Key_Return, Qt::AltModifier), fields);
        EXPECT_TRUE(isOpen());
    }
}

TEST_P(Keys, MoveTheHighlightWithEnter) {
    open();
    EXPECT_EQ(background("txtID"), white);
    Rows visited;
    for (int step = 0; step < 12; ++step) {
        key(Qt::Key_Return);
        visited.push_back(focusName());
        for (const auto& field : fields()) {
            const bool untouchedLength = field == "txtnn" && std::ranges::find(visited, "txtnn") == visited.end();
            EXPECT_EQ(background(field), field == focusName() ? lightBlue
                                         : untouchedLength    ? tipColour
                                                              : white)
                << field << " when the focus is in " << focusName();
        }
    }
}

TEST_P(Keys, PaintTheHighlight) {
    open();
    key(Qt::Key_Return);
    settle();
    const auto colourAt = [&](const std::string& field) {
        auto& line = this->line(field);
        return line.grab().toImage().pixelColor(line.width() - 8, line.height() / 2);
    };
    EXPECT_EQ(colourAt(titleField()), lightBlue);
    EXPECT_EQ(colourAt("txtID"), white);
    EXPECT_EQ(colourAt("txtnn"), tipColour);
    choose("lstParm", 0);
    settle();
    EXPECT_EQ(colourAt("txtnn"), white) << "although it is disabled";
}

TEST_P(Keys, PaintTheHighlightOnAListToo) {
    open();
    while (focusName() != "lstType") key(Qt::Key_Return);
    settle();
    auto& entries = *list("lstType").viewport();
    EXPECT_EQ(entries.grab().toImage().pixelColor(entries.width() - 3, 3), lightBlue);
    key(Qt::Key_Return);
    settle();
    EXPECT_EQ(entries.grab().toImage().pixelColor(entries.width() - 3, 3), white);
}

TEST_P(Keys, AKindOfParameterTakesTheHighlightFromTheLength) {
    for (const auto& [kind, colour] : {std::pair{2, tipColour}, {1, white}}) {
        open();
        while (focusName() != "txtnn") key(Qt::Key_Return);
        EXPECT_EQ(background("txtnn"), lightBlue);
        ASSERT_EQ(entries("lstParm").at(2).substr(0, 4), "CKey");
        choose("lstParm", kind);
        EXPECT_EQ(background("txtnn"), colour);
    }
}

TEST_P(Keys, LeaveTheHighlightWhereTheFocusLeftItWithoutEnter) {
    open();
    key(Qt::Key_Return);
    key(Qt::Key_Tab);
    EXPECT_EQ(focusName(), "lstType");
    EXPECT_EQ(background(titleField()), lightBlue);
    EXPECT_EQ(background("lstType"), white);
    key(Qt::Key_Return);
    EXPECT_EQ(background("txtQuery"), lightBlue);
}

TEST_P(Keys, GiveADisabledFieldTheWhiteBack) {
    open();
    focus("lstType");
    key(Qt::Key_Return);
    EXPECT_EQ(background("txtQuery"), lightBlue);
    if (!isNode()) {
        focus("txtParm");
        key(Qt::Key_Return);
        EXPECT_EQ(background("txtForm"), lightBlue);
    }
    choose("lstType", isNode() ? 3 : 2);
    EXPECT_EQ(enabled(isNode() ? "txtQuery" : "txtForm"), false);
    EXPECT_EQ(background(isNode() ? "txtQuery" : "txtForm"), white);
}

TEST_P(Keys, ActWhenTheyAreLetGo) {
    open();
    keyDown(Qt::Key_Return);
    EXPECT_EQ(focusName(), "txtID");
    keyUp(Qt::Key_Return);
    EXPECT_EQ(focusName(), titleField());
    const auto before = stored();
    enter(titleField(), "New text");
    keyDown(Qt::Key_F3);
    EXPECT_EQ(stored(), before);
    keyUp(Qt::Key_F3);
    EXPECT_NE(stored(), before);
    keyDown(Qt::Key_Escape);
    EXPECT_TRUE(isOpen());
    keyUp(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_P(Keys, CountOnceWhenTheyAreHeld) {
    open();
    enter("txtQuery", "");
    const auto repeat = [&](Qt::Key key) {
        for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    };
    for (const auto held : {Qt::Key_F3, Qt::Key_Return, Qt::Key_Escape}) {
        SCOPED_TRACE(held);
        focus("txtID");
        keyDown(held);
        for (int time = 0; time < 5; ++time) repeat(held);
        EXPECT_EQ(refused(), Rows());
        EXPECT_EQ(focusName(), "txtID");
        if (held == Qt::Key_Escape) break;
        keyUp(held);
        EXPECT_EQ(refused().size(), held == Qt::Key_F3 ? 1U : 0U);
    }
    EXPECT_EQ(focusName(), "txtID");
}

TEST_P(Keys, SaveWithF3WhateverShiftCtrlAndAltAre) {
    for (const auto modifiers : {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
                                 Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::AltModifier),
                                 Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier}) {
        open();
        const auto written = "Written with " + std::to_string(modifiers.toInt());
        enter(titleField(), written);
        key(Qt::Key_F3, modifiers);
        EXPECT_NE(stored().find("|" + written + "|"), std::string::npos) << stored();
        EXPECT_TRUE(isOpen());
    }
}

TEST_P(Keys, CloseWithEscWhateverShiftCtrlAndAltAre) {
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        open();
        key(Qt::Key_Escape, modifiers);
        EXPECT_FALSE(isOpen());
    }
}

TEST_P(Keys, SwallowTheOthersOfTheMap) {
    open();
    const auto record = stored();
    for (const auto& field : fields()) {
        if (!enabled(field)) continue;
        focus(field);
        KeyWatch watch(find(*form, field));
        const auto shown = everythingShown();
        for (const auto swallowed : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F4, Qt::Key_F5, Qt::Key_F7, Qt::Key_F8,
                                     Qt::Key_F9, Qt::Key_F10, Qt::Key_F11})
            for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
                key(swallowed, modifiers);
                EXPECT_EQ(everythingShown(), shown) << field << ", key " << swallowed;
            }
        settle();
        EXPECT_EQ(watch.keys, Rows());
        EXPECT_EQ(windowsOpen(), 1U);
        EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
    }
    EXPECT_EQ(stored(), record);
    EXPECT_EQ(edited(), record);
    EXPECT_EQ(refused(), Rows());
}

TEST_P(Keys, KeepWhatTheyDoFromTheFields) {
    open();
    for (const auto& field : {std::string("txtID"), std::string("lstType"), std::string("lstParm")}) {
        focus(field);
        KeyWatch watch(find(*form, field));
        key(Qt::Key_F3);
        keyDown(Qt::Key_Return);
        keyDown(Qt::Key_Escape);
        EXPECT_EQ(watch.keys, Rows());
        focus("txtQuery");  // lets them go elsewhere
        QTest::keyRelease(form->windowHandle(), Qt::Key_Return);
    }
    EXPECT_TRUE(isOpen());
}

TEST_P(Keys, LetF6AndF12PassToTheField) {
    open();
    for (const auto& field : fields()) {
        if (!enabled(field)) continue;
        focus(field);
        const auto shown = everythingShown();
        KeyWatch watch(find(*form, field));
        for (const auto passed : {Qt::Key_F6, Qt::Key_F12}) key(passed);
        EXPECT_EQ(watch.keys, Rows({"down F6", "up F6", "down F12", "up F12"}));
        EXPECT_EQ(everythingShown(), shown);
    }
    EXPECT_EQ(windowsOpen(), 1U);
}

TEST_P(Keys, DoNothingWhenTheyWentDownElsewhere) {
    open();
    enter(titleField(), "Changed");
    const auto record = stored();
    for (const auto released : {Qt::Key_F3, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) keyUp(released);
    settle();
    EXPECT_EQ(stored(), record);
    EXPECT_EQ(focusName(), titleField());
    EXPECT_EQ(background(titleField()), white);
    EXPECT_TRUE(isOpen());
}

TEST_P(Keys, DoNothingWhenTheyClosedAMessage) {
    open();
    choose("lstParm", 2);
    for (const auto closing : {Qt::Key_Escape, Qt::Key_Return}) {
        enter("txtnn", "x");
        bool closed = false;
        Answers answers;
        answers.then("message", [&](QDialog& box) {
            activate(box);
            QTest::keyPress(box.windowHandle(), closing);  // let go in the form
            closed = !box.isVisible();
        });
        key(Qt::Key_Tab);
        answers.wait();
        EXPECT_TRUE(closed);
        activate(*form);
        keyUp(closing);
        settle();
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(focusName(), "txtnn");
    }
}

TEST_P(Keys, DoNothingWhenTheyAnsweredTheQuestion) {
    open();
    enter("txtQuery", "");
    focus(titleField());
    Answers answers;
    answers.then("question", [&](QDialog& box) {
        activate(box);
        QTest::keyPress(box.windowHandle(), Qt::Key_Return);  // let go in the form
        EXPECT_FALSE(box.isVisible());
    });
    key(Qt::Key_Escape);
    answers.wait();
    EXPECT_EQ(refused().size(), 1U) << "the answer was Yes, and the form stays";
    activate(*form);
    keyUp(Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(focusName(), titleField());
}

TEST_P(Keys, GoToAnOpenMenu) {
    open();
    enter(titleField(), "Changed");
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), line(titleField()).mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&line(titleField()), &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    const QPointer<QMenu> watched(menu);
    QTest::keyPress(menu->windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(!watched || !watched->isVisible());
    keyUp(Qt::Key_Escape);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(focusName(), titleField());
    EXPECT_EQ(Stage::shown(titleField()), "Changed");
}

TEST_P(Keys, PressNoButton) {
    open();
    EXPECT_TRUE(form->findChildren<QAbstractButton*>().isEmpty());
    for (int step = 0; step < 12; ++step) key(Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(form->result(), 0);
}

TEST_P(Keys, AreServedAgainAfterTheWindowWasLeft) {
    open();
    QWidget other;
    other.show();
    activate(other);
    activate(*form);
    key(Qt::Key_Return);
    EXPECT_EQ(focusName(), titleField());
}

TEST_P(Keys, ShowTheSameHelpAsTheMouse) {
    open();
    for (const auto& field : fields()) {
        if (field.starts_with("lst") || !enabled(field)) continue;
        SCOPED_TRACE(field);
        focus("txtID");
        focus(field);
        const auto helpByKeys = help();
        focus("txtID");
        focus("txtQuery");
        const auto otherHelp = help();
        click(field);
        EXPECT_EQ(focusName(), field);
        EXPECT_EQ(help(), field == "txtID" || field == "txtParm" ? otherHelp : helpByKeys);
    }
}

TEST_P(Keys, LeaveTheHelpWhenTheWindowOrAMenuComesBack) {
    open();
    choose("lstType", 1);
    const auto helpOfType = help();
    QWidget other;
    other.show();
    activate(other);
    activate(*form);
    EXPECT_EQ(focusName(), "lstType");
    EXPECT_EQ(help(), helpOfType);

    QMenu menu;
    menu.addAction(text("A command"));
    menu.popup(form->mapToGlobal(QPoint()));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    key(Qt::Key_Escape);
    ASSERT_FALSE(menu.isVisible());
    ASSERT_TRUE(form->isVisible());
    EXPECT_EQ(focusName(), "lstType");
    EXPECT_EQ(help(), helpOfType);
}

TEST_P(Keys, WriteBlanksAndLettersIntoTheFields) {
    open();
    enter(titleField(), "Two words, \"3\"; (F3)");
    EXPECT_EQ(Stage::shown(titleField()), "Two words, \"3\"; (F3)");
}
