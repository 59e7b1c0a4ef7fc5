// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>

#include "ReportText.h"
#include "shell/fOutput.h"

using namespace std::string_literals;

namespace {

const std::string threeLines = "first\r\n\r\nthird\r\n";

class Report : public testing::Test {
  protected:
    const TempFolder folder;  // without a help file
    const HelpFile help{text(folder.path().string())};
    fOutput window{help, nullptr};
    QPlainTextEdit& edit = find<QPlainTextEdit>(window, "Text1");

    void show(const std::string& report) {
        window.setSText(report);
        window.show();
        activate(window);
    }

    // Whether the window is closed, once everything that was sent has arrived.
    [[nodiscard]] bool isClosed() const {
        QTest::qWait(10);
        return !window.isVisible();
    }

    void type(const char* letters) {
        activate(window);
        QTest::keyClicks(&edit, text(letters));
    }

    // Changes the window's size and waits for the window manager, if there is one.
    void resize(int width, int height) {
        window.resize(width, height);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == QSize(width, height); }, patience));
        QTest::qWait(10);
    }

    // Moves the window out of the middle. @return where it stands when a window manager has done its part
    QPoint movedAside() {
        QTest::qWait(50);
        window.move(20, 30);
        QTest::qWait(50);
        EXPECT_LT((window.pos() - QPoint(20, 30)).manhattanLength(), 40);
        EXPECT_NE(window.pos(), middle());
        return window.pos();
    }

    [[nodiscard]] QPoint middle() const {
        const auto screen = window.screen()->geometry();
        const auto frame = window.frameGeometry().size();
        return {screen.left() + qRound((screen.width() - frame.width()) / 2.0),
                screen.top() + qRound((screen.height() - frame.height()) / 2.0)};
    }
    // Whether it gets there. That it does not is clear after half a second.
    [[nodiscard]] bool isInTheMiddle(int wait = patience) const {
        return QTest::qWaitFor([&] { return window.frameGeometry().topLeft() == middle(); }, wait);
    }
};

}  // namespace

TEST_F(Report, HasItsCaption) {
    EXPECT_EQ(window.windowTitle(), text("Output..."));
    EXPECT_EQ(window.objectName(), text("fOutput"));
}

TEST_F(Report, HasItsSizesInTwips) {
    show(threeLines);
    EXPECT_EQ(window.size(), QSize(pixels(10965, window), pixels(5760, window)));
    EXPECT_EQ(edit.geometry(), pixels(10, 10, 10955, 5750, window));
    if (window.logicalDpiX() != 96) return;
    EXPECT_EQ(window.size(), QSize(731, 384));
    EXPECT_EQ(edit.geometry(), QRect(1, 1, 730, 383));
}

TEST_F(Report, ShowsPlainTextInLinesThatAreNotBroken) {
    show("<b>1 < 2 & 2 > 1</b>\r\n\r\n=> " + std::string(5000, 'x') + " y\r\n");
    EXPECT_EQ(textOf(edit), text("<b>1 < 2 & 2 > 1</b>\n\n=> " + std::string(5000, 'x') + " y\n"));
    EXPECT_EQ(edit.document()->lineCount(), 4);
    EXPECT_EQ(edit.font().family(), text("Arial"));
    EXPECT_EQ(edit.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(edit.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_FALSE(edit.document()->isUndoRedoEnabled());
}

TEST_F(Report, ShowsEveryByteOfTheCodePage) {
    show(allBytesBut("\r\n"));
    const auto shown = textOf(edit);
    ASSERT_EQ(shown.size(), 254);
    EXPECT_EQ(shown.at(0), QChar(0));
    EXPECT_EQ(shown.at('A' - 2), QChar(u'A'));
    EXPECT_EQ(shown.at(0x80 - 2), QChar(0x20AC));
    EXPECT_EQ(shown.at(0xA0 - 2), QChar(0xA0));
    EXPECT_EQ(shown.at(0xFF - 2), QChar(0xFF));
}

TEST_F(Report, MayBeEmpty) {
    show("");
    EXPECT_EQ(textOf(edit), QString());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Report, StandsInTheMiddleOfTheScreen) {
    show(threeLines);
    EXPECT_TRUE(isInTheMiddle()) << window.x() << ',' << window.y();
}

TEST_F(Report, GoesBackToTheMiddleWhenItBecomesActiveAndNotBefore) {
    show(threeLines);
    EXPECT_TRUE(isInTheMiddle());
    const auto place = movedAside();
    resize(500, 300);
    type("x");
    EXPECT_EQ(window.pos(), place) << "the user has put it there";
    {
        QWidget other;
        other.show();
        activate(other);
        EXPECT_EQ(window.pos(), place);
    }
    activate(window);
    EXPECT_TRUE(isInTheMiddle()) << window.x() << ',' << window.y();
    EXPECT_EQ(window.size(), QSize(500, 300));
}

#ifndef _WIN32  // Windows sends no events of an X server
TEST_F(Report, StaysWhereItIsDraggedTo) {
    struct Access : QWidget {
        using QWidget::nativeEvent;
    };
    // The X server tells that the window has lost the keyboard: to another window, or, with the mode 1, to the window
    // manager, which drags it.
    const auto loseKeyboard = [&](std::uint8_t mode, std::uint8_t detail = 3) {
        std::uint8_t event[32] = {10, detail};
        event[8] = mode;
        qintptr ignored = 0;
        EXPECT_FALSE((window.*&Access::nativeEvent)("xcb_generic_event_t", event, &ignored));
    };
    show(threeLines);
    EXPECT_TRUE(isInTheMiddle());
    for (const std::uint8_t mode : std::initializer_list<std::uint8_t>{1, 0, 3}) {
        movedAside();
        {
            QWidget other;
            other.show();
            activate(other);
            if (mode != 1) loseKeyboard(1);
            loseKeyboard(mode);
            loseKeyboard(0, 5);  // tells nothing: the mouse was over the window
        }
        activate(window);
        EXPECT_EQ(isInTheMiddle(mode != 1 ? patience : 500), mode != 1) << window.x() << ',' << window.y();
    }
}
#endif

TEST_F(Report, TextFillsTheWindowButForItsMargin) {
    show(threeLines);
    for (const auto& [width, height] : {std::pair{900, 500}, {400, 300}, {301, 201}, {1000, 100}}) {
        resize(width, height);
        const double twips = 1440.0 / window.logicalDpiX();
        const auto place = pixels(10, 10, width * twips - 10, height * twips - 10, window);
        // A window manager may answer an earlier size late.
        static_cast<void>(QTest::qWaitFor([&] { return edit.geometry() == place; }, patience));
        EXPECT_EQ(edit.geometry(), place);
        EXPECT_EQ(edit.geometry().right() + 1, width);
        EXPECT_EQ(edit.geometry().bottom() + 1, height);
    }
}

TEST(ReportLayout, TextKeepsItsSizeWhereThereIsNoRoom) {
    const HelpFile help{QString()};
    fOutput window(help, nullptr);
    auto& edit = find<QPlainTextEdit>(window, "Text1");
    const auto lay = [&](int width, int height) {  // without a window system, which may have a least size
        window.resize(width, height);
        QResizeEvent event({width, height}, window.size());
        QApplication::sendEvent(&window, &event);
        return edit.size();
    };
    window.setSText(threeLines);
    const auto before = lay(300, 200);
    EXPECT_EQ(lay(0, 200), before) << "a width of -10 twips";
    EXPECT_EQ(lay(0, 100).width(), before.width());
    EXPECT_EQ(edit.height(), pixels(100 * 1440.0 / window.logicalDpiX() - 10, window));
    const auto lower = edit.size();
    EXPECT_EQ(lay(400, 0), QSize(pixels(400 * 1440.0 / window.logicalDpiX() - 10, window), lower.height()));
    const auto last = edit.size();
    EXPECT_EQ(lay(0, 0), last);
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    EXPECT_EQ(edit.pos(), QPoint(pixels(10, window), pixels(10, window)));
}

TEST_F(Report, WhatWasTypedIsGoneAfterAResize) {
    show(threeLines);
    type("new ");
    EXPECT_EQ(textOf(edit), text("new first\n\nthird\n"));
    resize(600, 300);
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    press(window, Qt::Key_Delete);
    EXPECT_EQ(textOf(edit), text("irst\n\nthird\n"));
    resize(601, 300);
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    EXPECT_EQ(window.sText(), threeLines);
}

TEST_F(Report, IsNotCopiedAgainWhenNothingWasTyped) {
    show(threeLines);
    press(window, Qt::Key_A, Qt::ControlModifier);
    const QSignalSpy copied(edit.document(), &QTextDocument::contentsChanged);
    resize(600, 300);
    resize(610, 310);
    EXPECT_EQ(copied.count(), 0);
    EXPECT_EQ(edit.textCursor().selectedText().size(), 13) << "the selection is kept";
}

TEST_F(Report, AnotherReportIsShownAtTheNextResize) {
    show(threeLines);
    window.setSText("other\r\n");
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    resize(600, 300);
    EXPECT_EQ(textOf(edit), text("other\n"));
}

TEST_F(Report, IsForgottenWhenClosed) {
    show(threeLines);
    type("typed");
    resize(500, 300);
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(window.sText(), "");
    EXPECT_EQ(textOf(edit), QString());
    show("");
    EXPECT_EQ(textOf(edit), QString());
    EXPECT_EQ(window.size(), QSize(pixels(10965, window), pixels(5760, window)));
    EXPECT_TRUE(isInTheMiddle()) << window.x() << ',' << window.y();
}

TEST_F(Report, TheNextOneIsShownAtTheSameSize) {
    show(threeLines);
    press(window, Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    show("next\r\n");
    EXPECT_EQ(textOf(edit), text("next\n"));
}

TEST_F(Report, IsNotMaximizedTheNextTime) {
    show(threeLines);
    window.showMaximized();
    if (!QTest::qWaitFor([&] { return window.width() > pixels(10965, window); }, 2000))
        GTEST_SKIP() << "there is no window manager that maximizes windows";
    QTest::qWait(20);
    EXPECT_EQ(edit.geometry().right() + 1, window.width());
    EXPECT_TRUE(window.isMaximized());
    window.close();
    show("next\r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == QSize(pixels(10965, window), pixels(5760, window)); },
                                patience))
        << window.width();
    EXPECT_FALSE(window.isMaximized());
}

TEST_F(Report, EscClosesItWhenItIsLetGo) {
    show(threeLines);
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
}

TEST_F(Report, EscClosesItWithShiftToo) {
    show(threeLines);
    press(window, Qt::Key_Escape, Qt::ShiftModifier);
    EXPECT_TRUE(isClosed());
}

TEST_F(Report, AnEscThatWentDownElsewhereDoesNotCloseIt) {
    show(threeLines);
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
}

TEST_F(Report, AnEscThatIsLetGoElsewhereIsForgotten) {
    show(threeLines);
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    {
        QWidget other;
        other.show();
        activate(other);
    }
    activate(window);
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
}

TEST_F(Report, AnEscThatWasDownWhenItWasClosedIsForgotten) {
    show(threeLines);
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    window.close();
    EXPECT_TRUE(isClosed());
    show(threeLines);
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
}

TEST_F(Report, ARepeatedEscDoesNotCloseIt) {
    show(threeLines);
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&window, &repeated);
    EXPECT_FALSE(isClosed());
}

TEST_F(Report, EscIsNotPassedOn) {
    show(threeLines);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent escape(type, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&edit, &escape);
        EXPECT_TRUE(escape.isAccepted());
    }
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(textOf(edit), QString());
}

TEST_F(Report, OtherKeysAreLeftToTheText) {
    show(threeLines);
    press(window, Qt::Key_Return);
    press(window, Qt::Key_Space);
    press(window, Qt::Key_F2);
    press(window, Qt::Key_F3);
    press(window, Qt::Key_Down);
    type("x");
    EXPECT_FALSE(isClosed());
    EXPECT_EQ(textOf(edit), text("\n first\nx\nthird\n"));
}

TEST_F(Report, TabWritesNothing) {
    show(threeLines);
    EXPECT_EQ(QApplication::focusWidget(), &edit);
    press(window, Qt::Key_Tab);
    press(window, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    EXPECT_EQ(QApplication::focusWidget(), &edit) << "there is nothing else to go to";
}

TEST_F(Report, F1ShowsTheHelpWhenItIsLetGo) {
    show(threeLines);
    QTest::keyPress(window.windowHandle(), Qt::Key_F1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Answers answers;
    answers.then("message", reading(helpIsMissingFrom(folder.path())));
    QTest::keyRelease(window.windowHandle(), Qt::Key_F1);
    answers.wait();
    EXPECT_FALSE(isClosed());
}

TEST_F(Report, IsCopiedAsPlainText) {
    QApplication::clipboard()->clear();
    show("a\xA0 <i>\t\x80\0\r\n\r\nlast\r\n"s);
    press(window, Qt::Key_A, Qt::ControlModifier);
    press(window, Qt::Key_C, Qt::ControlModifier);
    const auto* copied = QApplication::clipboard()->mimeData();
    ASSERT_NE(copied, nullptr);
    QString expected = text("a  <i>\t\n\nlast\n");
    expected[1] = QChar(0xA0);
    expected.insert(7, QChar(0x20AC)).insert(8, QChar(0));
    EXPECT_EQ(copied->text(), expected);
    EXPECT_FALSE(copied->hasHtml());
}

TEST_F(Report, APartOfItCanBeCopied) {
    show(threeLines);
    for (int step = 0; step < 3; ++step) press(window, Qt::Key_Right, Qt::ShiftModifier);
    press(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("fir"));
}

TEST_F(Report, ScrollsBothWays) {
    std::string report = std::string(400, 'W') + "\r\n";
    for (int line = 0; line < 200; ++line) report += "line\r\n";
    show(report);
    auto& down = *edit.verticalScrollBar();
    auto& right = *edit.horizontalScrollBar();
    EXPECT_EQ(down.value(), 0);
    EXPECT_EQ(right.value(), 0);
    press(window, Qt::Key_End);
    EXPECT_GT(right.value(), 0);
    EXPECT_EQ(down.value(), 0);
    press(window, Qt::Key_End, Qt::ControlModifier);
    EXPECT_GE(down.value(), down.maximum() - 1);
    EXPECT_GT(down.maximum(), 100);
    QTest::mouseClick(&down, Qt::LeftButton, {}, {down.width() / 2, down.height() / 3});
    EXPECT_LT(down.value(), down.maximum());
}

TEST_F(Report, OfAHundredThousandFindingsIsShownToItsEnd) {
    std::string report = "head\r\n";
    for (int id = 1; id <= 100'000; ++id)
        report += "=> No Query Specifed for (C)-Type: [ID=" + std::to_string(id) + "] title\r\nRULE\r\n\r\n";
    show(report);
    EXPECT_TRUE(textOf(edit) == text(report).remove(QChar(u'\r')));
    EXPECT_EQ(edit.document()->lineCount(), 300'002);
    auto& bar = *edit.verticalScrollBar();
    const int below = bar.maximum() + bar.pageStep();
    EXPECT_TRUE(below == 300'002 || below == 300'003) << below;
    press(window, Qt::Key_End, Qt::ControlModifier);
    EXPECT_GE(bar.value(), bar.maximum() - 1);
    press(window, Qt::Key_Up);
    press(window, Qt::Key_Up);
    press(window, Qt::Key_Up, Qt::ShiftModifier);
    press(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("=> No Query Specifed for (C)-Type: [ID=100000] title\n"));
}

TEST_F(Report, OfAHundredThousandFindingsKeepsItsPlaceWhenResized) {
    std::string report;
    for (int line = 0; line < 300'000; ++line) report += "line " + std::to_string(line) + "\r\n";
    show(report);
    auto& bar = *edit.verticalScrollBar();
    bar.setValue(200'000);
    const QSignalSpy copied(edit.document(), &QTextDocument::contentsChanged);
    for (int step = 1; step < 10; ++step) {
        resize(700 - step, 400);
        EXPECT_EQ(bar.value(), 200'000);
        EXPECT_EQ(edit.document()->lineCount(), 300'001);
    }
    EXPECT_EQ(copied.count(), 0);
    auto top = edit.cursorForPosition({5, 5});
    top.select(QTextCursor::LineUnderCursor);
    EXPECT_EQ(top.selectedText(), text("line 200000"));
    edit.setFont(QFont(text("Arial"), 14));
    EXPECT_EQ(edit.document()->lineCount(), 300'001);
    type("x");
    resize(650, 400);
    EXPECT_TRUE(textOf(edit) == text(report).remove(QChar(u'\r')));
    EXPECT_EQ(edit.document()->lineCount(), 300'001);
}

TEST_F(Report, ATripleClickSelectsOneLineHoweverLongTheReportIs) {
    std::string report;
    for (int line = 0; line < 100'000; ++line) report += "line " + std::to_string(line) + "\r\n";
    show(report);
    for (const int line : {3, 50'004, 99'900}) {
        edit.verticalScrollBar()->setValue(line - 3);
        const auto place = edit.cursorRect(edit.cursorForPosition({5, 5})).center() +
                           QPoint(10, 3 * edit.fontMetrics().lineSpacing());
        QTest::mouseDClick(edit.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseClick(edit.viewport(), Qt::LeftButton, {}, place);
        press(window, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), text("line " + std::to_string(line) + "\n"));
    }
}

TEST_F(Report, LinesBrokenWithShiftAreCopiedAsLines) {
    show(threeLines);
    type("new");
    press(window, Qt::Key_Return, Qt::ShiftModifier);
    press(window, Qt::Key_A, Qt::ControlModifier);
    press(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), text("new\nfirst\n\nthird\n"));
}

TEST_F(Report, OfAFewLinesAfterALongOneIsShownToo) {
    show(std::string(60'000, '\n'));
    EXPECT_EQ(edit.document()->lineCount(), 60'001);
    window.close();
    show(threeLines);
    EXPECT_EQ(textOf(edit), text("first\n\nthird\n"));
    EXPECT_EQ(edit.document()->lineCount(), 4);
    resize(600, 300);
    EXPECT_EQ(edit.document()->lineCount(), 4);
}
