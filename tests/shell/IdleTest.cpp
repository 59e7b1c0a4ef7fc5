// SPDX-License-Identifier: MIT
#include <QAbstractEventDispatcher>

#include "EditHelpers.h"

// The program reads no clock: nothing in it happens by itself. What a timer would do while nobody touches the program
// (save, blink, look whether a file has changed) needs one that ticks, or that waits to tick.

namespace {

// While it exists, notes which objects get a tick of a timer, except Qt's cache of pictures, which the tests of one
// process share: it ticks half a minute after one of them has painted.
class Ticks final : public QObject {
  public:
    Ticks() { qApp->installEventFilter(this); }
    std::vector<std::string> of;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const std::string name = watched->metaObject()->className();
        if (event->type() == QEvent::Timer && name != "QPMCache")
            of.push_back(name + " of " +
                         (watched->parent() ? watched->parent()->metaObject()->className() : "nobody"));
        return false;
    }
};

// The objects below this one that wait for a timer, with their intervals in milliseconds.
std::vector<std::string> timersBelow(const QObject& top) {
    std::vector<std::string> timers;
    auto objects = top.findChildren<QObject*>();
    objects.push_back(const_cast<QObject*>(&top));
    for (auto* object : objects)
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(object))
            timers.push_back(std::string(object->metaObject()->className()) + " " + std::to_string(timer.interval));
    return timers;
}

constexpr int calm = 700;       // milliseconds; the longest timer of Qt's own, for the focus on X servers, takes 400
constexpr int watched = 1'500;  // milliseconds: longer than a blink, or an impatient look at a file

void expectNoTimer(const Wizard& wizard, const char* when) {
    QTest::qWait(calm);
    const Ticks ticks;
    QTest::qWait(watched);
    EXPECT_EQ(ticks.of, std::vector<std::string>()) << when;
    EXPECT_EQ(timersBelow(wizard.window), std::vector<std::string>()) << when;
    EXPECT_EQ(timersBelow(*qApp), std::vector<std::string>()) << when;
}

}  // namespace

TEST(Idle, NothingTicksInTheMainWindow) {
    Wizard wizard;
    expectNoTimer(wizard, "after the start");

    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    wizard.click("Fleet");
    wizard.choose("NR");
    {
        Answers answers;
        answers.then("fNav", escape).then("fOutput", escape);
        wizard.tree().setFocus();
        press(wizard.window, Qt::Key_F2);
        choose(wizard.window, "NA");
    }
    activate(wizard.window);
    expectNoTimer(wizard, "after files, a form and a report");
}
