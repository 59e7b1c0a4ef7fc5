// SPDX-License-Identifier: MIT
#include "views/ReleasedKeys.h"

#include <QVBoxLayout>
#include <optional>

#include "Helpers.h"

namespace {

/// A widget that records the keys that reach it.
class KeyField final : public QWidget {
  public:
    using QWidget::QWidget;
    Rows keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override { note("down ", *event); }
    void keyReleaseEvent(QKeyEvent* event) override { note("up ", *event); }

  private:
    void note(const char* move, const QKeyEvent& event) {
        keys.push_back(move + QKeySequence(event.key()).toString().toStdString());
    }
};

class ReleasedKeysTest : public testing::Test {
  protected:
    ReleasedKeys::Command writing(Qt::Key key, const std::string& word,
                                  std::optional<Qt::KeyboardModifiers> modifiers = {}) {
        return {.key = key, .run = [this, word] { words.push_back(word); }, .modifiers = modifiers};
    }
    [[nodiscard]] Rows taken() { return std::exchange(words, {}); }

    static void send(QWidget& widget, QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers,
                     bool repeated) {
        QKeyEvent event(type, key, modifiers, QString(), repeated);
        QApplication::sendEvent(&widget, &event);
    }
    void down(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        send(field, QEvent::KeyPress, key, modifiers, false);
    }
    void up(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        send(field, QEvent::KeyRelease, key, modifiers, false);
    }
    // What the keyboard sends by itself while a key is held.
    void repeat(Qt::Key key) {
        send(field, QEvent::KeyRelease, key, {}, true);
        send(field, QEvent::KeyPress, key, {}, true);
    }

    Rows words;
    QWidget window;
    KeyField field{&window};
    KeyField other{&window};
    ReleasedKeys keys{window,
                      {writing(Qt::Key_F2, "F2"), writing(Qt::Key_Insert, "Insert"),
                       writing(Qt::Key_F10, "Shift+F10", Qt::ShiftModifier)}};
};

}  // namespace

TEST_F(ReleasedKeysTest, ACommandRunsWhenItsKeyIsLetGo) {
    down(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows());
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows{"F2"});
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows()) << "once";
}

TEST_F(ReleasedKeysTest, AReleaseWithoutItsPressDoesNothing) {
    up(Qt::Key_F2);
    down(Qt::Key_Insert);
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows());
    up(Qt::Key_Insert);
    EXPECT_EQ(taken(), Rows{"Insert"});
}

TEST_F(ReleasedKeysTest, KeysThatOverlapBothCount) {
    down(Qt::Key_Insert);
    down(Qt::Key_F2);
    up(Qt::Key_Insert);
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), (Rows{"Insert", "F2"}));
}

TEST_F(ReleasedKeysTest, AHeldKeyCountsOnce) {
    down(Qt::Key_F2);
    for (int time = 0; time < 3; ++time) repeat(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows());
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows{"F2"});
}

TEST_F(ReleasedKeysTest, AKeyThatWasHeldWhenItCameDoesNothing) {
    for (int time = 0; time < 2; ++time) repeat(Qt::Key_F2);
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows()) << "it went down in another window";
}

TEST_F(ReleasedKeysTest, AKeyWithACommandReachesNoOneElse) {
    down(Qt::Key_F2);
    repeat(Qt::Key_F2);
    up(Qt::Key_F2);
    up(Qt::Key_Insert);
    EXPECT_EQ(field.keys, Rows());
    down(Qt::Key_F3);
    up(Qt::Key_F3);
    EXPECT_EQ(field.keys, (Rows{"down F3", "up F3"})) << "it has none";
}

TEST_F(ReleasedKeysTest, APressIsForgottenWhenTheKeyboardGoesElsewhere) {
    const auto leave = [this](auto step) {
        down(Qt::Key_F2);
        down(Qt::Key_Insert);
        step();
        up(Qt::Key_F2);
        up(Qt::Key_Insert);
        EXPECT_EQ(taken(), Rows());
        down(Qt::Key_F2);
        up(Qt::Key_F2);
        EXPECT_EQ(taken(), Rows{"F2"});
    };
    leave([this] {
        QEvent inactive(QEvent::WindowDeactivate);
        QApplication::sendEvent(&window, &inactive);
    });
    leave([this] {
        QFocusEvent lost(QEvent::FocusOut);
        QApplication::sendEvent(&window, &lost);
    });
    window.show();
    leave([this] { window.hide(); });
}

TEST_F(ReleasedKeysTest, TheFocusMayMoveInTheWindow) {
    down(Qt::Key_F2);
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&field, &lost);
    send(other, QEvent::KeyRelease, Qt::Key_F2, {}, false);
    EXPECT_EQ(taken(), Rows{"F2"});
}

TEST_F(ReleasedKeysTest, AnotherWindowKeepsItsKeys) {
    KeyField dialog(&window, Qt::Dialog);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) send(dialog, type, Qt::Key_F2, {}, false);
    EXPECT_EQ(dialog.keys, (Rows{"down F2", "up F2"}));
    EXPECT_EQ(taken(), Rows());
}

TEST_F(ReleasedKeysTest, AWidgetIsServedWhileTheFocusIsThere) {
    const ReleasedKeys ofField(field, {writing(Qt::Key_F4, "F4")});
    down(Qt::Key_F4);
    up(Qt::Key_F4);
    EXPECT_EQ(taken(), Rows{"F4"});
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) send(other, type, Qt::Key_F4, {}, false);
    EXPECT_EQ(other.keys, (Rows{"down F4", "up F4"}));
    EXPECT_EQ(taken(), Rows());
}

TEST_F(ReleasedKeysTest, ServeTheLastWidgetThatTheyWereGiven) {
    KeyField next;
    down(Qt::Key_F2);
    keys.serve(next);
    send(next, QEvent::KeyRelease, Qt::Key_F2, {}, false);
    EXPECT_EQ(taken(), Rows()) << "it went down in the one before";
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) send(next, type, Qt::Key_F2, {}, false);
    EXPECT_EQ(taken(), Rows{"F2"});
    down(Qt::Key_F2);
    up(Qt::Key_F2);
    EXPECT_EQ(field.keys, (Rows{"down F2", "up F2"}));
    EXPECT_EQ(taken(), Rows());
}

TEST_F(ReleasedKeysTest, OutliveTheWidget) {
    {
        KeyField brief;
        keys.serve(brief);
    }
    down(Qt::Key_F2);
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows());
    EXPECT_EQ(field.keys, (Rows{"down F2", "up F2"}));
}

// Shift may be let go first.
TEST_F(ReleasedKeysTest, ShiftCountsAsItWasWhenTheKeyWentDown) {
    down(Qt::Key_F10, Qt::ShiftModifier);
    up(Qt::Key_F10);
    EXPECT_EQ(taken(), Rows{"Shift+F10"});
    down(Qt::Key_F10);
    up(Qt::Key_F10, Qt::ShiftModifier);
    down(Qt::Key_F10, Qt::ShiftModifier | Qt::ControlModifier);
    up(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(taken(), Rows());
    down(Qt::Key_F2, Qt::ShiftModifier | Qt::AltModifier);
    up(Qt::Key_F2);
    EXPECT_EQ(taken(), Rows{"F2"}) << "to this one it does not matter";
}

TEST_F(ReleasedKeysTest, AKeyMayHaveOneCommandAloneAndAnotherWithShift) {
    KeyField next;
    const ReleasedKeys both(next, {writing(Qt::Key_F4, "alone", Qt::KeyboardModifiers()),
                                   writing(Qt::Key_F4, "with Shift", Qt::ShiftModifier)});
    for (const auto modifiers : {Qt::ShiftModifier, Qt::NoModifier, Qt::ControlModifier})
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) send(next, type, Qt::Key_F4, modifiers, false);
    EXPECT_EQ(taken(), (Rows{"with Shift", "alone"}));
    EXPECT_EQ(next.keys, Rows{"down F4"}) << "with Ctrl";
}
