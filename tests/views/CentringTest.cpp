// SPDX-License-Identifier: MIT
#include "views/Centring.h"

#include <QScreen>
#include <QStyle>

#include "Helpers.h"

namespace {

// How far the window with its frame is from the middle of the screen.
QPoint offCentre(const QWidget& window) {
    return window.frameGeometry().center() - window.screen()->geometry().center();
}

}  // namespace

TEST(Centring, PutsAShownWindowWithItsFrameInTheMiddle) {
    QWidget window;
    window.resize(301, 203);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.move(5, 5);
    QTest::qWait(50);
    centreOnScreen(window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return offCentre(window).manhattanLength() <= 2; }, 3000))
        << offCentre(window).x() << ", " << offCentre(window).y();
}

TEST(Centring, TakesTheFrameOfItsParentForAWindowThatIsNotShown) {
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent));
    QTest::qWait(50);
    QWidget window(&parent, Qt::Window);
    window.resize(300, 200);
    centreOnScreen(window);
    const auto screen = window.screen()->geometry();
    const int title = parent.frameGeometry().height() - parent.height();
    EXPECT_NEAR(window.y(), screen.top() + (screen.height() - 200 - title) / 2, 1);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(QTest::qWaitFor([&] { return offCentre(window).manhattanLength() <= 2; }, 3000))
        << offCentre(window).x() << ", " << offCentre(window).y();
}

TEST(Centring, AllowsForATitleBarOfTheFirstWindow) {
    QWidget window;
    const auto screen = window.screen()->geometry();
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    EXPECT_GT(title, 0);
    for (const int more : {0, 1, 2, 3}) {  // half a pixel counts as one
        window.resize(300 + more, 200 + more);
        centreOnScreen(window);
        EXPECT_EQ(window.pos(), QPoint(screen.left() + (screen.width() - 300 - more + 1) / 2,
                                       screen.top() + (screen.height() - 200 - more - title + 1) / 2));
    }
}

TEST(Centring, AllowsForATitleBarBeforeANativeWindowIsShown) {
    QWidget window;
    window.resize(300, 200);
    centreOnScreen(window);
    const auto place = window.pos();
    window.move(5, 5);
    window.winId();  // creates the native window, which has no frame yet
    ASSERT_NE(window.windowHandle(), nullptr);
    centreOnScreen(window);
    EXPECT_EQ(window.pos(), place);
}
