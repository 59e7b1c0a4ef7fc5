// SPDX-License-Identifier: MIT
#include "forms/clsEventHandler.h"

#include <QMenu>
#include <QScreen>
#include <QStyle>

#include "Helpers.h"

namespace {

/// A text box that records the keys that reach it.
class KeyField final : public QLineEdit {
  public:
    KeyField(const char* name, QWidget* parent) : QLineEdit(parent) { setObjectName(::text(name)); }
    Rows keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override { note("down ", *event); }
    void keyReleaseEvent(QKeyEvent* event) override { note("up ", *event); }

  private:
    // Shift and the other modifier keys reach every field.
    void note(const char* move, const QKeyEvent& event) {
        if (event.key() >= Qt::Key_Shift && event.key() <= Qt::Key_Alt) return;
        keys.push_back(move + QKeySequence(event.key()).toString().toStdString());
    }
};

/// A window with two fields.
class KeyWindow final : public QWidget {
  public:
    KeyWindow() {
        resize(300, 200);
        second.move(0, 100);
    }
    KeyField first{"first", this};
    KeyField second{"second", this};

    void appear() {
        show();
        activate(*this);
        first.setFocus();
    }
};

class EventHandler : public testing::Test {
  protected:
    EventHandler() {
        listen(handler, events);
        window.appear();
        handler.SetForm(window);
    }

    // Each event becomes its number, and the control that comes with it.
    static void listen(clsEventHandler& handler, Rows& events) {
        handler.raise = [&events](clsEventHandler::Event event, QWidget* vControl) {
            events.push_back(std::to_string(static_cast<int>(event)) +
                             (vControl ? " " + vControl->objectName().toStdString() : ""));
        };
    }
    [[nodiscard]] Rows taken() { return std::exchange(events, {}); }

    void down(Qt::Key key) { QTest::keyPress(window.windowHandle(), key); }
    void up(Qt::Key key) { QTest::keyRelease(window.windowHandle(), key); }
    // What the keyboard sends by itself while a key is held.
    static void repeat(QWidget& widget, Qt::Key key) {
        for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(&widget, &event);
        }
    }

    Rows events;
    KeyWindow window;
    clsEventHandler handler;
};

struct MappedKey {
    Qt::Key key;
    std::int16_t code;
    std::string event;
};
const std::vector<MappedKey> mappedKeys = {
    {Qt::Key_F1, 112, "1"},          {Qt::Key_F2, 113, "2"},     {Qt::Key_F3, 114, "3"},
    {Qt::Key_F4, 115, "4"},          {Qt::Key_F5, 116, "5"},     {Qt::Key_F7, 118, "6"},
    {Qt::Key_F8, 119, "8"},          {Qt::Key_F9, 120, "9"},     {Qt::Key_F10, 121, "7"},
    {Qt::Key_F11, 122, "11 first"},  {Qt::Key_Escape, 27, "10"}, {Qt::Key_Return, 13, "12 first"},
    {Qt::Key_Enter, 13, "12 first"},
};

}  // namespace

TEST_F(EventHandler, NumbersTheEventsThatTheFormsRelyOn) {
    EXPECT_EQ(static_cast<int>(clsEventHandler::Event::eSave), 3);
    EXPECT_EQ(static_cast<int>(clsEventHandler::Event::eCloseForm), 10);
    EXPECT_EQ(static_cast<int>(clsEventHandler::Event::eEnter), 12);
}

TEST_F(EventHandler, RaisesOneEventWhenAKeyIsLetGo) {
    for (const auto& [key, code, event] : mappedKeys) {
        SCOPED_TRACE(event);
        down(key);
        EXPECT_EQ(taken(), Rows());
        up(key);
        EXPECT_EQ(taken(), Rows{event});
    }
}

TEST_F(EventHandler, KeepsItsKeysFromTheField) {
    for (const auto& mapped : mappedKeys) press(window, mapped.key);
    EXPECT_EQ(window.first.keys, Rows());
    EXPECT_EQ(window.second.keys, Rows());
}

TEST_F(EventHandler, GivesTheFieldThatHasTheFocus) {
    window.second.setFocus();
    press(window, Qt::Key_F11);
    press(window, Qt::Key_Return);
    EXPECT_EQ(taken(), Rows({"11 second", "12 second"}));
}

TEST_F(EventHandler, DoesNotCareAboutShiftCtrlAndAlt) {
    for (const auto modifiers : {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier),
                                 Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::KeypadModifier),
                                 Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier}) {
        for (const auto& mapped : mappedKeys) {
            SCOPED_TRACE(mapped.event);
            press(window, mapped.key, modifiers);
            EXPECT_EQ(taken(), Rows{mapped.event});
        }
    }
    EXPECT_EQ(window.first.keys, Rows());
}

TEST_F(EventHandler, LetsOtherKeysPassToTheField) {
    press(window, Qt::Key_F6);
    press(window, Qt::Key_F12);
    press(window, Qt::Key_Q);
    press(window, Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window.first.keys,
              Rows({"down F6", "up F6", "down F12", "up F12", "down Q", "up Q", "down F6", "up F6"}));
    EXPECT_EQ(taken(), Rows());
}

TEST_F(EventHandler, RaisesNumber13ByNoKey) {
    const auto click = [&](int key) {
        QTest::sendKeyEvent(QTest::Click, window.windowHandle(), static_cast<Qt::Key>(key), QString(),
                            Qt::NoModifier);
    };
    for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key) click(key);
    for (int key = Qt::Key_Escape; key <= Qt::Key_F35; ++key)
        if (key != Qt::Key_Tab && key != Qt::Key_Backtab) click(key);
    EXPECT_EQ(std::ranges::count_if(events, [](const auto& event) { return event.starts_with("13"); }), 0);
    EXPECT_EQ(events.size(), mappedKeys.size());
}

TEST_F(EventHandler, ProcessesKeysByTheirCodes) {
    for (int code = -1; code < 400; ++code) {
        SCOPED_TRACE(code);
        const auto mapped = std::ranges::find_if(mappedKeys, [&](const auto& each) { return each.code == code; });
        const bool isMapped = mapped != mappedKeys.end();
        auto keyCode = static_cast<std::int16_t>(code);
        std::int16_t shift = 7;
        EXPECT_EQ(handler.Processkey(keyCode, shift), isMapped ? 0 : code);
        EXPECT_EQ(keyCode, isMapped ? 0 : code);
        EXPECT_EQ(shift, 7);
        EXPECT_EQ(taken(), isMapped ? Rows{mapped->event} : Rows());
    }
}

TEST_F(EventHandler, HasTakenTheCodeBeforeItRaisesTheEvent) {
    std::int16_t keyCode = 114;
    std::int16_t shift = 0;
    int seen = -1;
    handler.raise = [&](clsEventHandler::Event, QWidget*) { seen = keyCode; };
    handler.Processkey(keyCode, shift);
    EXPECT_EQ(seen, 0);
}

TEST_F(EventHandler, TakesKeysThatNobodyListensTo) {
    handler.raise = nullptr;
    std::int16_t keyCode = 114;
    std::int16_t shift = 0;
    EXPECT_EQ(handler.Processkey(keyCode, shift), 0);
    press(window, Qt::Key_F3);
    EXPECT_EQ(window.first.keys, Rows());
}

TEST_F(EventHandler, CountsAHeldKeyOnce) {
    down(Qt::Key_F3);
    for (int time = 0; time < 3; ++time) repeat(window.first, Qt::Key_F3);
    EXPECT_EQ(taken(), Rows());
    up(Qt::Key_F3);
    EXPECT_EQ(taken(), Rows{"3"});
    EXPECT_EQ(window.first.keys, Rows());
}

TEST_F(EventHandler, DoesNothingForAReleaseWithoutItsPress) {
    up(Qt::Key_F3);
    up(Qt::Key_Escape);
    EXPECT_EQ(taken(), Rows());
    EXPECT_EQ(window.first.keys, Rows());
}

TEST_F(EventHandler, ForgetsThePressesWhenTheKeyboardGoesElsewhere) {
    KeyWindow other;
    down(Qt::Key_F3);
    other.appear();
    activate(window);
    up(Qt::Key_F3);
    EXPECT_EQ(taken(), Rows());
    press(window, Qt::Key_F3);
    EXPECT_EQ(taken(), Rows{"3"});
}

TEST_F(EventHandler, LeavesThePopupItsKeys) {
    QMenu menu(&window);
    menu.addAction(text("Entry"));
    menu.popup(window.mapToGlobal(QPoint(50, 50)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    QTest::keyPress(menu.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    up(Qt::Key_Escape);
    EXPECT_EQ(taken(), Rows());
}

TEST_F(EventHandler, ServesNoOtherWindow) {
    KeyWindow other;
    other.appear();
    press(other, Qt::Key_F3);
    EXPECT_EQ(other.first.keys, Rows({"down F3", "up F3"}));
    EXPECT_EQ(taken(), Rows());
}

TEST_F(EventHandler, ServesTheLastFormItWasGiven) {
    KeyWindow other;
    other.appear();
    other.second.setFocus();
    handler.SetForm(other);
    press(other, Qt::Key_Return);
    EXPECT_EQ(taken(), Rows{"12 second"});
    EXPECT_EQ(other.second.keys, Rows());
    press(window, Qt::Key_F3);
    EXPECT_EQ(taken(), Rows());
    EXPECT_EQ(window.first.keys, Rows({"down F3", "up F3"}));
}

TEST_F(EventHandler, ForgetsThePressesInTheFormBefore) {
    KeyWindow other;
    down(Qt::Key_F3);
    handler.SetForm(other);
    other.appear();
    QTest::keyRelease(other.windowHandle(), Qt::Key_F3);
    EXPECT_EQ(taken(), Rows());
}

TEST_F(EventHandler, RaisesOneEventAfterItWasGivenTheSameFormTwice) {
    handler.SetForm(window);
    press(window, Qt::Key_F3);
    EXPECT_EQ(taken(), Rows{"3"});
}

TEST_F(EventHandler, ServesItsOwnFormBesideAnother) {
    KeyWindow other;
    clsEventHandler otherHandler;
    Rows otherEvents;
    listen(otherHandler, otherEvents);
    other.appear();
    otherHandler.SetForm(other);
    press(other, Qt::Key_F3);
    EXPECT_EQ(otherEvents, Rows{"3"});
    EXPECT_EQ(taken(), Rows());
    press(window, Qt::Key_Escape);
    EXPECT_EQ(otherEvents, Rows{"3"});
    EXPECT_EQ(taken(), Rows{"10"});
}

TEST_F(EventHandler, StopsWhenItIsReleased) {
    {
        clsEventHandler brief;
        listen(brief, events);
        KeyWindow other;
        other.appear();
        brief.SetForm(other);
        press(other, Qt::Key_F3);
        EXPECT_EQ(taken(), Rows{"3"});
    }
    press(window, Qt::Key_F3);
    EXPECT_EQ(taken(), Rows{"3"}) << "from the first handler alone";
}

TEST_F(EventHandler, CentresTheFormWithItsFrame) {
    window.move(0, 0);
    settle();
    handler.SetForm(window);
    const auto screen = window.screen()->geometry();
    const auto offCentre = [&] { return window.frameGeometry().center() - screen.center(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return offCentre().manhattanLength() <= 2; }, patience))
        << offCentre().x() << ", " << offCentre().y();
}

TEST_F(EventHandler, CentresAFormBeforeItIsShown) {
    KeyWindow hidden;
    hidden.move(0, 0);
    handler.SetForm(hidden);
    const auto screen = hidden.screen()->geometry();
    EXPECT_EQ(hidden.x(), screen.left() + (screen.width() - 300) / 2);
    const int titleBar = hidden.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_EQ(hidden.y(), screen.top() + (screen.height() - 200 - titleBar) / 2);
}

TEST_F(EventHandler, DoesNotCentreAgainWhenTheFormIsResized) {
    settle();
    const auto place = window.pos();
    window.resize(500, 400);
    settle();
    EXPECT_EQ(window.pos(), place);
}
