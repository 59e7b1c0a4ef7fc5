// SPDX-License-Identifier: MIT
#include <QFile>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>

#include "Helpers.h"
#include "shell/IntroductionText.h"
#include "shell/fIntro.h"

namespace {

const std::string theText =
    "The purpose of using this wizard is to generate Navigational Scheme and Web-Page Display Scheme. These "
    "correspond "
    "to Tables XST1 and XST2 in the database. \r\n"
    "\r\n"
    "The Essential Objects that are required in the database for Pelmo to function are:\r\n"
    "\r\n"
    "=> Table XST1 (Navigation Scheme)\r\n"
    "=> Table XST2 (Display Scheme)\r\n"
    "=> Table XST3 (Web Style Scheme), which can be imported, as is, from Demo-Database.\r\n"
    "=> User Specified Queries / Stored Procedures -- (The spG_'s and spW_'s).\r\n"
    "\r\n"
    "Everything that is required to Run the Reporting System is contained in the Database. All Data (Base Queries, "
    "spG_xxxx, spW_xxxx) and Meta-Data (XST1, XST2, and XST3) are contained in Database.\r\n"
    "\r\n"
    "There are some very simple Rules for designing the Navigational and Display Schemes. This Wizard helps to "
    "implement all the 'Rules'. Provided with this Wizard are two Text Files: XST1.txt and XST2.txt which can be "
    "Loaded "
    "into the Wizard to get familiar with the workings of the Wizard. There are Menu-Options to Analyse your "
    "designed "
    "system against the 'Rules' and the 'Things-To-Do' after designing the reporting system. Field-Level Help is "
    "provided as far as possible. You can also refer the Tutorial for further help. You may also study the "
    "Demo-Application, which explains the intricacies of Pelmo.\r\n"
    "\r\n"
    "Use this Wizard to generate two Text Files (.txt), which is then to be imported into the database as Tables - "
    "XST1 "
    "and XST2, keeping ID field as the 'Primary Key'.\r\n";

class Introduction : public testing::Test {
  protected:
    const TempFolder folder;  // without a help file
    const HelpFile help{text(folder.path().string())};
    fIntro window{help, nullptr};
    QPlainTextEdit& edit = find<QPlainTextEdit>(window, "Text1");
    QLabel& picture = find<QLabel>(window, "Image1");

    void show() {
        window.show();
        activate(window);
    }

    // Whether the window is closed, once everything that was sent has arrived.
    [[nodiscard]] bool isClosed() const {
        QTest::qWait(10);
        return !window.isVisible();
    }
};

}  // namespace

TEST_F(Introduction, TextIsKeptToTheLetter) {
    EXPECT_EQ(std::string(introductionText), theText);
    EXPECT_EQ(std::string(introductionText).size(), 1442U);
}

TEST_F(Introduction, ShowsTheText) {
    EXPECT_EQ(edit.toPlainText(), text(theText).remove(QLatin1Char('\r')));
    EXPECT_TRUE(edit.isReadOnly());
    EXPECT_EQ(edit.font().family(), text("Arial"));
    EXPECT_EQ(edit.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(edit.lineWrapMode(), QPlainTextEdit::WidgetWidth) << "no line leaves the window";
}

TEST_F(Introduction, HasItsSizesInTwips) {
    EXPECT_EQ(window.size(), QSize(pixels(9150, window), pixels(6960, window)));
    EXPECT_EQ(edit.geometry(), pixels(120, 3120, 8895, 3735, window));
    if (window.logicalDpiX() != 96) return;
    EXPECT_EQ(window.size(), QSize(610, 464));
    EXPECT_EQ(edit.geometry(), QRect(8, 208, 593, 249));
}

TEST_F(Introduction, HasItsCaption) {
    EXPECT_EQ(window.windowTitle(), text("Pelmo Wizard Introduction..."));
    EXPECT_EQ(window.objectName(), text("fIntro"));
}

TEST_F(Introduction, KeepsItsSize) {
    show();
    window.resize(700, 600);
    EXPECT_EQ(window.size(), QSize(pixels(9150, window), pixels(6960, window)));
}

TEST_F(Introduction, PictureIsAJpegOfSomeTwentyKilobytes) {
    QFile file(text(":/images/introduction.jpg"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("\xFF\xD8\xFF"));
    EXPECT_GE(bytes.size(), 20'000);
    EXPECT_LE(bytes.size(), 28'000);
    EXPECT_FALSE(QImage::fromData(bytes, "JPG").isNull());
}

// A progressive one took a fifth of all instructions of the start.
TEST_F(Introduction, PictureIsReadInOnePass) {
    QFile file(text(":/images/introduction.jpg"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto bytes = file.readAll();
    EXPECT_TRUE(bytes.contains(QByteArray("\xFF\xC0\x00\x11", 4)));
    EXPECT_FALSE(bytes.contains(QByteArray("\xFF\xC2\x00\x11", 4)));
}

TEST_F(Introduction, PictureStandsUndistortedAboveTheText) {
    EXPECT_FALSE(picture.pixmap().isNull());
    EXPECT_LT(picture.geometry().bottom(), edit.y());
    EXPECT_TRUE(window.rect().contains(picture.geometry()));
    EXPECT_GT(picture.height(), window.height() / 3);
    const auto shape = [](const QSize& size) { return double(size.width()) / size.height(); };
    EXPECT_NEAR(shape(picture.pixmap().size()), shape(picture.size()), 0.02);
}

TEST_F(Introduction, StandsInTheMiddleOfTheScreen) {
    show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(20);
    const auto screen = window.screen()->geometry();
    const auto frame = window.frameGeometry();
    // The title bar, if there is one, may be somewhat lower than it was taken to be.
    EXPECT_NEAR(frame.center().x(), screen.center().x(), 3);
    EXPECT_NEAR(frame.center().y(), screen.center().y(), 15);
}

TEST_F(Introduction, IsPutInTheMiddleBeforeItIsShown) {
    const auto screen = window.screen()->geometry();
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    EXPECT_EQ(window.pos(), QPoint(screen.left() + qRound((screen.width() - window.width()) / 2.0),
                                   screen.top() + qRound((screen.height() - window.height() - title) / 2.0)));
}

TEST_F(Introduction, EscClosesItWhenItIsLetGo) {
    show();
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
}

TEST_F(Introduction, AnEscThatWentDownElsewhereDoesNotCloseIt) {
    show();
    QTest::keyRelease(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(isClosed());
}

TEST_F(Introduction, AnEscThatIsLetGoElsewhereIsForgotten) {
    show();
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

TEST_F(Introduction, ARepeatedEscDoesNotCloseIt) {
    show();
    QTest::keyPress(window.windowHandle(), Qt::Key_Escape);
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&window, &repeated);
    EXPECT_FALSE(isClosed());
}

TEST_F(Introduction, OtherKeysDoNotCloseIt) {
    show();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Tab, Qt::Key_A, Qt::Key_F2})
        press(window, key);
    EXPECT_FALSE(isClosed());
    EXPECT_EQ(edit.toPlainText(), text(theText).remove(QLatin1Char('\r')));
}

TEST_F(Introduction, CloseBoxClosesIt) {
    show();
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(isClosed());
}

TEST_F(Introduction, F1ShowsTheHelpWhenItIsLetGo) {
    show();
    QTest::keyPress(window.windowHandle(), Qt::Key_F1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Answers answers;
    answers.then("message", reading(helpIsMissingFrom(folder.path())));
    QTest::keyRelease(window.windowHandle(), Qt::Key_F1);
    answers.wait();
    EXPECT_FALSE(isClosed());
}

TEST_F(Introduction, KeyboardScrollsTheText) {
    show();
    ASSERT_GT(edit.verticalScrollBar()->maximum(), 0) << "the text is longer than its box";
    EXPECT_EQ(QApplication::focusWidget(), &edit);
    EXPECT_EQ(edit.verticalScrollBar()->value(), 0);
    press(window, Qt::Key_PageDown);
    EXPECT_GT(edit.verticalScrollBar()->value(), 0);
}

TEST(IntroductionCommand, ShowsANewWindowEachTimeThatHoldsUpTheMainWindow) {
    Wizard wizard;
    for (int time = 0; time < 2; ++time) {
        Answers answers;
        answers.then("fIntro", [&](QDialog& introduction) {
            auto& edit = find<QPlainTextEdit>(introduction, "Text1");
            EXPECT_EQ(edit.verticalScrollBar()->value(), 0) << "nothing is left of the last time";
            press(introduction, Qt::Key_End, Qt::ControlModifier);
            edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->maximum());
            EXPECT_TRUE(introduction.isModal());
            EXPECT_EQ(introduction.parentWidget(), &wizard.window);
            escape(introduction);
        });
        choose(wizard.window, "FI");
        EXPECT_EQ(wizard.window.findChild<QDialog*>(), nullptr) << "it is gone when closed";
    }
}

TEST(IntroductionCommand, F1InItShowsTheHelpOfTheProgram) {
    Wizard wizard;
    Answers answers;
    answers
        .then("fIntro",
              [](QDialog& introduction) {
                  press(introduction, Qt::Key_F1);
                  escape(introduction);
              })
        .then("message", reading(helpIsMissingFrom(folderOfProgram())));
    choose(wizard.window, "FI");
}
