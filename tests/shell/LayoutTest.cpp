// SPDX-License-Identifier: MIT
#include <QGroupBox>
#include <QMenuBar>
#include <QStyle>

#include "Helpers.h"

namespace {

// Where the panels are, grids within their frames.
struct Panels {
    QRect tree, frN, flexNav, frW, flexWeb, frRule;
    bool operator==(const Panels&) const = default;
};

void PrintTo(const Panels& at, std::ostream* out) {
    for (const auto& place : {at.tree, at.frN, at.flexNav, at.frW, at.flexWeb, at.frRule}) {
        PrintTo(place, out);
        *out << "  ";
    }
}

Panels panelsOf(const fMain& window) {
    const auto place = [&](const char* name) { return find(window, name).geometry(); };
    return {place("myTree"), place("frN"), place("flexNav"), place("frW"), place("flexWeb"), place("frRule")};
}

// Where they belong in an inner area of this size in pixels.
Panels expectedPanels(const QSize& inner, const QWidget& window) {
    const double twipsPerPixel = 1440.0 / window.logicalDpiX();
    const double w = inner.width() * twipsPerPixel;
    const double h = inner.height() * twipsPerPixel;
    const double treeWidth = 0.3 * w - 40;
    const double left = 10 + treeWidth;
    const double width = w - treeWidth - 40;
    const double height = (h - 3400 - 80) / 2;
    const auto grid = pixels(40, 300, width - 100, height - 420, window);
    const auto wholeTwips = [](double twips) { return std::nearbyint(twips); };
    return {pixels(10, 10, treeWidth, h - 40, window),
            pixels(left, 10, width, height, window),
            grid,
            pixels(left, 10 + height + 40, width, height, window),
            pixels(40, 300, wholeTwips(width - 100), wholeTwips(height - 420), window),
            pixels(left, (10 + height + 40) * 2, width, 3400, window)};
}

// The inner area that a maximized window can be expected to have before it is on the screen.
QSize estimatedInner(const fMain& window) {
    auto size = window.screen()->availableSize();
    size.rheight() -= window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    size.rheight() -= window.menuBar()->sizeHint().height();
    return size;
}

void startUp(fMain& window) {
    Answers answers;
    answers.then("fIntro", escape).then("message", escape);
    window.Form_Load();
}

// Waits until the maximized window fills the screen. @return whether it does; without a window manager it cannot
bool fillsTheScreen(fMain& window) {
    const auto fills = [&] {
        return window.isMaximized() && window.frameGeometry().width() >= window.screen()->availableSize().width();
    };
    return QTest::qWaitFor(fills, 1000);
}

// Lets everything arrive that a change of the window's size leads to.
void settle() {
    QTest::qWait(50);
}

}  // namespace

TEST(Layout, WindowHasItsCaption) {
    const fMain window;
    EXPECT_EQ(window.windowTitle(), text("Reporting Scheme Wizard for Pelmo 1.02"));
    EXPECT_EQ(window.objectName(), text("fMain"));
    EXPECT_EQ(window.parentWidget(), nullptr);
}

TEST(Layout, HasItsDesignSizesBeforeTheFirstLayout) {
    fMain window;
    EXPECT_EQ(find(window, "frN").geometry(), pixels(120, 0, 2895, 1695, window));
    EXPECT_EQ(find(window, "frW").geometry(), pixels(3960, 0, 3375, 1695, window));
    EXPECT_EQ(find(window, "frRule").geometry(), pixels(120, 1800, 10575, 3400, window));
    EXPECT_EQ(window.findChild<QTreeView*>(text("myTree")), nullptr) << "the tree is made at the start";
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.centralWidget()->size(), QSize(pixels(10785, window), pixels(5280, window)));
}

TEST(Layout, DesignSizesInPixelsOfACommonScreen) {
    const fMain window;
    if (window.logicalDpiX() != 96) GTEST_SKIP() << "not a screen of 96 dots an inch";
    EXPECT_EQ(find(window, "frN").geometry(), QRect(8, 0, 193, 113));
    EXPECT_EQ(find(window, "frW").geometry(), QRect(264, 0, 225, 113));
    EXPECT_EQ(find(window, "frRule").geometry(), QRect(8, 120, 705, 227));
    EXPECT_EQ(window.width(), 719);
    EXPECT_EQ(window.height() - window.menuBar()->sizeHint().height(), 352);
}

TEST(Layout, FramesHaveTheirCaptionsAndGrids) {
    const fMain window;
    EXPECT_EQ(find<QGroupBox>(window, "frN").title(), text("Navigational Table - XST1"));
    EXPECT_EQ(find<QGroupBox>(window, "frW").title(), text("Web Page Display Table- XST2"));
    EXPECT_EQ(find<QGroupBox>(window, "frRule").title(), text("Rules for Navigational Hierarchy"));
    EXPECT_EQ(find(window, "flexNav").parentWidget(), &find(window, "frN"));
    EXPECT_EQ(find(window, "flexWeb").parentWidget(), &find(window, "frW"));
    for (const char* frame : {"frN", "frW", "frRule"})
        EXPECT_EQ(find(window, frame).parentWidget(), window.centralWidget()) << frame;
}

TEST(Layout, GridsShowTheirOwnTables) {
    const fMain window;
    const auto header = [&](const char* grid, int column) {
        return find<QTableView>(window, grid).model()->headerData(column, Qt::Horizontal).toString().trimmed();
    };
    EXPECT_EQ(header("flexNav", 1), text("Description"));
    EXPECT_EQ(header("flexWeb", 1), text("XST1"));
}

TEST(Layout, AllCaptionsAreInArial) {
    Wizard wizard;
    int widgets = 0;
    for (const auto* widget : wizard.window.findChildren<QWidget*>()) {
        EXPECT_EQ(widget->font().family(), text("Arial")) << widget->objectName().toStdString();
        ++widgets;
    }
    EXPECT_GT(widgets, 50);
}

TEST(Layout, StartPlacesThePanelsInTheWorkArea) {
    fMain window;
    startUp(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(panelsOf(window), expectedPanels(estimatedInner(window), window));
    EXPECT_EQ(find(window, "myTree").parentWidget(), window.centralWidget());
    for (const char* panel : {"myTree", "frN", "frW", "frRule", "flexNav", "flexWeb"})
        EXPECT_FALSE(find(window, panel).isHidden()) << panel;
}

// The numbers of one screen, worked out by hand: 800 x 800 less 24 of the title and 19 of the menu bar.
TEST(Layout, PlacesOfAKnownScreen) {
    fMain window;
    startUp(window);
    if (estimatedInner(window) != QSize(800, 757) || window.logicalDpiX() != 96) GTEST_SKIP() << "another screen";
    EXPECT_EQ(panelsOf(window).tree, QRect(1, 1, 237, 754));      // (10, 10) 3560 x 11315 twips
    EXPECT_EQ(panelsOf(window).frN, QRect(238, 1, 560, 263));     // (3570, 10) 8400 x 3937.5
    EXPECT_EQ(panelsOf(window).flexNav, QRect(3, 20, 553, 235));  // (40, 300) 8300 x 3517.5
    EXPECT_EQ(panelsOf(window).frW, QRect(238, 266, 560, 263));   // top 3987.5
    EXPECT_EQ(panelsOf(window).flexWeb, QRect(3, 20, 553, 235));
    EXPECT_EQ(panelsOf(window).frRule, QRect(238, 532, 560, 227));  // top 7975
}

TEST(Layout, FirstSizeOfTheMaximizedWindowPlacesThemAgain) {
    Wizard wizard;
    if (!fillsTheScreen(wizard.window)) GTEST_SKIP() << "there is no window manager that maximizes windows";
    const auto* inner = wizard.window.centralWidget();
    EXPECT_EQ(inner->geometry().top(), wizard.window.menuBar()->height());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return panelsOf(wizard.window) == expectedPanels(inner->size(), wizard.window);
    })) << "inner area "
        << inner->width() << " x " << inner->height();
    EXPECT_EQ(panelsOf(wizard.window), expectedPanels(inner->size(), wizard.window));
    EXPECT_NE(inner->size(), estimatedInner(wizard.window)) << "here the estimate cannot be told from the real size";
}

TEST(Layout, ASizeBeforeItIsShownPlacesNothing) {
    fMain window;
    startUp(window);
    const auto placed = panelsOf(window);
    QResizeEvent resized({900, 700}, window.size());
    window.resize(resized.size());
    window.setWindowState(Qt::WindowMaximized);
    QSpontaneKeyEvent::setSpontaneous(&resized);
    qApp->notify(&window, &resized);  // sendEvent() would take it for one of the program's own
    EXPECT_EQ(panelsOf(window), placed);
}

TEST(Layout, LaterSizesChangeNothing) {
    Wizard wizard;
    auto& window = wizard.window;
    if (!fillsTheScreen(window)) GTEST_SKIP() << "there is no window manager that maximizes windows";
    settle();
    const auto placed = panelsOf(window);
    window.showNormal();
    window.resize(600, 500);
    settle();
    EXPECT_EQ(window.size(), QSize(600, 500));
    EXPECT_EQ(panelsOf(window), placed);
    window.showMaximized();
    EXPECT_TRUE(fillsTheScreen(window));
    settle();
    EXPECT_EQ(panelsOf(window), placed);
    window.showNormal();
    window.resize(window.screen()->availableSize() - QSize(100, 90));
    settle();
    window.showMaximized();
    settle();
    EXPECT_EQ(panelsOf(window), placed);
}

TEST(Layout, SizesOfTheHiddenWindowChangeNothing) {
    fMain window;
    startUp(window);
    const auto placed = panelsOf(window);
    window.resize(555, 444);
    settle();
    EXPECT_EQ(panelsOf(window), placed);
}

TEST(Layout, SizesOfAWindowThatIsNotMaximizedChangeNothing) {
    fMain window;
    startUp(window);
    const auto placed = panelsOf(window);
    window.showNormal();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.resize(555, 444);
    settle();
    const auto dragged = [&] {
        window.windowHandle()->resize(577, 455);  // as the user does by dragging the window's edge
        return window.size() == QSize(577, 455);
    };
    EXPECT_TRUE(QTest::qWaitFor(dragged));  // an X server may still be answering the first size
    EXPECT_EQ(panelsOf(window), placed);

    window.showMaximized();  // the first size of the maximized window still counts
    if (!fillsTheScreen(window)) GTEST_SKIP() << "there is no window manager that maximizes windows";
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return panelsOf(window) == expectedPanels(window.centralWidget()->size(), window); }));
}

// Redraws must not move anything either.
TEST(Layout, CommandsLeaveThePanelsInTheirPlaces) {
    Wizard wizard;
    fillsTheScreen(wizard.window);
    settle();
    const auto placed = panelsOf(wizard.window);
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    wizard.choose("NR");
    wizard.choose("NN");
    EXPECT_EQ(panelsOf(wizard.window), placed);
}
