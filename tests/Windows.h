// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QColor>
#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QRect>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <deque>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

// What the tests of all windows share: widgets found by name, keys pressed as a user presses them, and answers to
// dialogs.

inline QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QRect& place, std::ostream* out) {
    *out << place.left() << ',' << place.top() << ' ' << place.width() << 'x' << place.height();
}
inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << 'x' << size.height();
}
inline void PrintTo(const QColor& colour, std::ostream* out) {
    *out << colour.name().toStdString();
}

// --- widgets ---

/// The widget of this class and object name below `parent`. @throws when there is none
template <class Widget = QWidget>
Widget& find(const QObject& parent, const std::string& name) {
    auto* found = parent.findChild<Widget*>(text(name));
    if (!found) throw std::runtime_error("there is no " + name);
    return *found;
}

// --- keys ---

constexpr int patience = 10'000;  // milliseconds until a test gives up waiting

/// Waits until the window has the keyboard.
inline void activate(QWidget& window) {
    const auto isActive = [&] { return QApplication::activeWindow() == &window; };
    // A window manager may ignore a window that asks while another one is closing: then ask again.
    constexpr int beforeAskingAgain = 500;
    for (int waited = 0; !isActive() && waited < patience; waited += beforeAskingAgain) {
        window.activateWindow();
        static_cast<void>(QTest::qWaitFor(isActive, beforeAskingAgain));
    }
    EXPECT_TRUE(isActive()) << "the window does not get the keyboard";

    // A window manager, or Windows, may take the keyboard away again and give it back while it puts a new window in its
    // place.
    static const QWidget* before = nullptr;
    if (std::exchange(before, &window) == &window || QGuiApplication::platformName() == text("offscreen")) return;
    constexpr int calm = 20;
    QElapsedTimer active;
    active.start();
    for (int waited = 0; active.elapsed() < calm && waited < patience; ++waited) {
        QTest::qWait(1);
        if (!isActive()) active.restart();
    }
}

/// Presses and releases a key, which goes where the window's keyboard focus is, or to an open menu.
inline void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    auto& window = *widget.window();
    if (!window.windowHandle()) throw std::runtime_error("keys need a window that was shown");
    if (!QApplication::activePopupWidget()) activate(window);
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

/// Clicks a button once its window has the keyboard: a button that loses the focus between press and release does
/// nothing.
inline void clickOn(QAbstractButton* button) {
    if (!button) throw std::runtime_error("there is no such button");
    if (!QApplication::activePopupWidget()) activate(*button->window());
    QTest::mouseClick(button, Qt::LeftButton);
}

// --- dialogs ---

/// Answers the modal windows that a command opens, in order, as soon as each is there. A window that is not answered
/// within `patience` fails the test and is closed, so that no test hangs.
class Answers {
  public:
    using Answer = std::function<void(QDialog&)>;

    Answers() { watch(); }
    Answers(const Answers&) = delete;
    ~Answers() { wait(); }

    /// Answers the next window, which must have this object name.
    Answers& then(const std::string& name, Answer answer) {
        steps_.push_back({text(name), std::move(answer)});
        return *this;
    }

    /// Waits until all windows have come and gone.
    void wait() {
        const auto done = [this] { return failed_ || (steps_.empty() && !QApplication::activeModalWidget()); };
        if (!QTest::qWaitFor(done, patience)) fail("in vain");
        EXPECT_TRUE(steps_.empty()) << "there was no " << (steps_.empty() ? "" : steps_.front().name.toStdString());
        steps_.clear();
    }

  private:
    struct Step {
        QString name;
        Answer answer;
    };

    void watch() {
        QTimer::singleShot(3, &context_, [this] {
            watch();  // first, because an answer may open the next window
            look();
        });
    }

    void look() {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!window) {
            since_.restart();
        } else if (failed_) {
            window->reject();
        } else if (!steps_.empty() && window->objectName() == steps_.front().name && window->isVisible()) {
            const auto step = steps_.front();
            steps_.pop_front();
            since_.restart();
            try {
                step.answer(*window);
            } catch (const std::exception& error) {
                fail(error.what());
            }
        } else if (since_.elapsed() > patience) {
            fail("a window is left open");
        }
    }

    void fail(const std::string& why) {
        failed_ = true;
        const auto* window = QApplication::activeModalWidget();
        const auto name = window ? window->objectName() + text(": ") + window->windowTitle() : QString();
        ADD_FAILURE() << "waited for " << (steps_.empty() ? "nothing" : steps_.front().name.toStdString())
                      << ", on the screen is " << name.toStdString() << ": " << why;
    }

    struct Clock : QElapsedTimer {
        Clock() { start(); }
    };

    std::deque<Step> steps_;
    QObject context_;
    Clock since_;
    bool failed_ = false;
};

/// The answer to a message: checks that it has this text, and closes it with Enter.
inline Answers::Answer reading(const std::string& expected) {
    return [expected](QDialog& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        if (!box) throw std::runtime_error("this is no message box");
        EXPECT_EQ(box->text(), text(expected));
        EXPECT_EQ(box->informativeText() + box->detailedText(), QString());
        EXPECT_EQ(box->windowTitle(), text("Reporting Scheme Wizard for Pelmo"));
        EXPECT_EQ(box->icon(), QMessageBox::Information);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box->buttons().size(), 1);
        press(window, Qt::Key_Return);
    };
}

/// The answer to a window: Esc.
inline void escape(QDialog& window) {
    press(window, Qt::Key_Escape);
}
