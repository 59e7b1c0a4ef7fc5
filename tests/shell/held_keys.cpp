// SPDX-License-Identifier: MIT
// The program itself, with keys that the X server holds and repeats. Commands run when a key is let go: none may act
// at a repeat, and each acts once. Needs xdotool. Prints what went wrong, or how many keys it held.

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QStandardPaths>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "shell/fMain.h"
#include "tests/Windows.h"
#include "views/NavTree.h"

// Last, because its macros have the names of other things.
#include <X11/XKBlib.h>

namespace {

constexpr unsigned beforeRepeats = 100, betweenRepeats = 25;  // milliseconds
constexpr int held = 300;                                     // milliseconds
constexpr int calm = 60;                                      // milliseconds after which nothing more is expected
constexpr int fewestPresses = 4;                              // that the server sends while a key is held
constexpr int fewestHolds = 50;
constexpr int missingTool = 77;

// A key, and what the screen shows before it, while it is down, and after it.
struct Step {
    enum Kind { Held, Tapped, Lost };
    const char* key;  // as xdotool names it
    Kind kind;
    std::string before, whileDown, after;
};

Step hold(const char* key, const std::string& before, const std::string& after) {
    return {key, Step::Held, before, before, after};
}
// Acts when it goes down, as in any program, but neither at a repeat nor when it is let go.
Step holdWhatActsAtOnce(const char* key, const std::string& before, const std::string& after) {
    return {key, Step::Held, before, after, after};
}
Step tap(const char* key, const std::string& before, const std::string& after) {
    return {key, Step::Tapped, before, {}, after};
}
// Comes up while the program does not have the keyboard, so it does nothing.
Step lose(const char* key, const std::string& before) {
    return {key, Step::Lost, before, {}, before};
}

fMain* mainWindow() {
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<fMain*>(widget)) return window;
    return nullptr;
}

// A text that a held key has written: how often it does is up to the server.
QString shortened(const QString& text) {
    constexpr int few = 3;
    return text.size() > few && text.count(text.front()) == text.size() ? text.left(few) : text;
}

// What has the keyboard, and what a key could change there; then the number of nodes.
std::string screen() {
    const auto* window = QApplication::activeWindow();
    if (QApplication::activePopupWidget()) return "menu";
    if (!window) return "nothing";
    const auto nodes = " of " + std::to_string(mainWindow()->oNavs->Count());
    const auto name = window->objectName().toStdString();
    if (name == "fMain") return "tree " + find<NavTree>(*window, "myTree").SelectedKey() + nodes;
    if (name != "fNav" || !window->focusWidget()) return name;
    return window->focusWidget()->objectName().toStdString() + " '" +
           shortened(find<QLineEdit>(*window, "txtDescription").text()).toStdString() + "'" + nodes;
}

// From the root alone back to it: a new node is stored, looked at, changed, refused and deleted; then what the root
// refuses, and a report.
std::vector<Step> oneRound() {
    const std::string root = "tree N1 of 1";
    const std::string both = "tree N1 of 2";
    const std::string child = "tree N2 of 2";
    return {
        tap("Return", root, root),  // a click, so that a redraw selects the node again
        hold("Insert", root, "txtID 'New' of 1"),
        hold("Return", "txtID 'New' of 1", "txtDescription 'New' of 1"),
        hold("Return", "txtDescription 'New' of 1", "lstType 'New' of 1"),
        hold("F3", "lstType 'New' of 1", "lstType 'New' of 2"),
        hold("Escape", "lstType 'New' of 2", both),

        holdWhatActsAtOnce("Down", both, child),
        tap("Return", child, child),
        hold("F2", child, "txtID 'New' of 2"),
        hold("Escape", "txtID 'New' of 2", child),

        hold("F2", child, "txtID 'New' of 2"),
        hold("Return", "txtID 'New' of 2", "txtDescription 'New' of 2"),
        holdWhatActsAtOnce("x", "txtDescription 'New' of 2", "txtDescription 'xxx' of 2"),
        hold("Escape", "txtDescription 'xxx' of 2", "question"),
        holdWhatActsAtOnce("Return", "question", child),

        hold("F2", child, "txtID 'xxx' of 2"),
        hold("Return", "txtID 'xxx' of 2", "txtDescription 'xxx' of 2"),
        holdWhatActsAtOnce("y", "txtDescription 'xxx' of 2", "txtDescription 'yyy' of 2"),
        hold("F3", "txtDescription 'yyy' of 2", "txtDescription 'yyy' of 2"),
        hold("Escape", "txtDescription 'yyy' of 2", child),  // without a question: it was stored

        hold("F2", child, "txtID 'yyy' of 2"),
        hold("z", "txtID 'yyy' of 2", "txtID 'yyy' of 2"),  // no number
        hold("F3", "txtID 'yyy' of 2", "message"),
        holdWhatActsAtOnce("Return", "message", "txtID 'yyy' of 2"),
        hold("Escape", "txtID 'yyy' of 2", "question"),
        tap("Tab", "question", "question"),
        hold("space", "question", child),

        hold("Delete", child, "tree  of 1"),
        tap("Home", "tree  of 1", root),
        hold("F2", root, "message"),
        lose("F2", "message"),
        holdWhatActsAtOnce("Return", "message", root),
        hold("F2", root, "message"),
        holdWhatActsAtOnce("Return", "message", root),
        tap("alt+n", root, "menu"),
        tap("a", "menu", "fOutput"),
        hold("Escape", "fOutput", root),
    };
}

std::vector<Step> allSteps() {
    std::vector<Step> steps = {
        hold("Escape", "fIntro", "message"),
        holdWhatActsAtOnce("Return", "message", "tree  of 1"),
        tap("Home", "tree  of 1", "tree N1 of 1"),
    };
    for (int round = 0; round < 2; ++round)
        for (const auto& step : oneRound()) steps.push_back(step);
    return steps;
}

Display* server() {
    return qApp->nativeInterface<QNativeInterface::QX11Application>()->display();
}

[[noreturn]] void end(int code, const std::string& why) {
    std::cout << why << std::endl;
    std::_Exit(code);
}

// Takes the steps, from a timer that ticks in the event loops of all windows.
class User final : public QObject, private QAbstractNativeEventFilter {
  public:
    explicit User(QObject* parent) : QObject(parent) { qApp->installNativeEventFilter(this); }

  protected:
    void timerEvent(QTimerEvent*) override {
        if (auto now = screen(); now != shown_) {
            shown_ = std::move(now);
            unchanged_.restart();
        }
        switch (state_) {
            case State::Before: begin(); break;
            case State::Down: watch(); break;
            case State::After: finish(); break;
        }
        if (inState_.elapsed() > patience) fail("waited in vain, after " + std::to_string(presses_) + " presses");
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        constexpr std::uint8_t keyPress = 2;  // in the X protocol
        if ((*static_cast<std::uint8_t*>(message) & 0x7F) == keyPress) ++presses_;
        return false;
    }

  private:
    enum class State { Before, Down, After };
    struct Clock : QElapsedTimer {
        Clock() { start(); }
    };

    [[nodiscard]] const Step& step() const { return steps_[number_]; }
    [[nodiscard]] bool isCalm(const std::string& wanted) const {
        return shown_ == wanted && unchanged_.elapsed() >= calm;
    }

    void begin() {
        if (!isCalm(step().before)) return;
        presses_ = 0;
        hasActed_ = step().before == step().whileDown;
        xdotool(step().kind == Step::Tapped ? "key" : "keydown");
        if (step().kind == Step::Lost) letGoElsewhere();
        enter(step().kind == Step::Held ? State::Down : State::After);
    }

    // As a window manager that switches windows does.
    void letGoElsewhere() {
        while (presses_ == 0) QCoreApplication::processEvents();
        XGrabKeyboard(server(), DefaultRootWindow(server()), False, GrabModeAsync, GrabModeAsync, CurrentTime);
        XSync(server(), False);
        xdotool("keyup");
        XUngrabKeyboard(server(), CurrentTime);
        XSync(server(), False);
    }

    void watch() {
        hasActed_ = hasActed_ || shown_ == step().whileDown;
        if (hasActed_ && shown_ != step().whileDown) fail("acted while the key was down");
        if (inState_.elapsed() < held || presses_ < fewestPresses || !hasActed_) return;
        xdotool("keyup");
        ++holds_;
        enter(State::After);
    }

    void finish() {
        if (!isCalm(step().after)) return;
        enter(State::Before);
        if (number_ + 1 < steps_.size()) {
            ++number_;
            return;
        }
        if (holds_ < fewestHolds) fail("too few keys were held");
        std::cout << "held " << holds_ << " keys" << std::endl;
        killTimer(timer_);
        QApplication::exit(0);
    }

    void enter(State state) {
        state_ = state;
        inState_.restart();
    }

    void xdotool(const char* command) {
        if (QProcess::execute(text("xdotool"), {text(command), text(step().key)}) != 0) fail("xdotool failed");
    }

    [[noreturn]] void fail(const std::string& what) const {
        end(1, "step " + std::to_string(number_) + ", " + step().key + ": " + what + "; on the screen is \"" +
                   shown_ + "\", not \"" +
                   (state_ == State::Before ? step().before
                    : state_ == State::Down ? step().whileDown
                                            : step().after) +
                   "\"");
    }

    const int timer_ = startTimer(5);
    const std::vector<Step> steps_ = allSteps();
    std::size_t number_ = 0;
    State state_ = State::Before;
    Clock inState_;
    std::string shown_;
    Clock unchanged_;  // since when that is on the screen
    bool hasActed_ = false;
    int presses_ = 0;
    int holds_ = 0;
};

// Runs as soon as there is an application, before the program makes its first window.
void begin() {
    if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
        end(missingTool, "xdotool is not installed");
    if (!XkbSetAutoRepeatRate(server(), XkbUseCoreKbd, beforeRepeats, betweenRepeats))
        end(1, "the server does not let its repeats be set");
    new User(qApp);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
