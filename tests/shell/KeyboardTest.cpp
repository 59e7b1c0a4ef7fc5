// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QPlainTextEdit>

#include "EditHelpers.h"

namespace {

std::string focusName() {
    const auto* focus = QApplication::focusWidget();
    return focus ? focus->objectName().toStdString() : "none";
}

std::string accessibleName(QWidget& widget) {
    const auto* interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(QAccessible::Name).toStdString() : "no interface";
}

// The name of the label that belongs to an input; here a combo box has no name other than its text.
std::string accessibleLabel(QWidget& widget) {
    for (const auto& [label, relation] : QAccessible::queryAccessibleInterface(&widget)->relations())
        if (relation == QAccessible::Label) return label->text(QAccessible::Name).toStdString();
    return "no label";
}

// Sends a release of F1 that the keyboard makes by itself while the key is held.
void repeatF1(QWidget& widget) {
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&widget, &release);
}

bool messageIsOpen() {
    QTest::qWait(20);
    return QApplication::activeModalWidget() != nullptr;
}

}  // namespace

// As when the user looks at another program, and closes the dialog from the list of windows.
TEST_F(Editing, TheKeyboardComesBackFromAnotherWindowAfterADialog) {
    if (QGuiApplication::platformName() != text("offscreen"))
        GTEST_SKIP() << "a window manager keeps the keyboard from other windows of the program";
    QWidget other;
    const auto closeFromAnother = [&](QDialog& dialog) {
        other.show();
        activate(other);
        dialog.close();
    };
    const TempFolder folder;
    const auto start = text(folder.path().string());
    const std::vector<std::function<void()>> dialogs = {
        [&] { pressOn("N5", Qt::Key_F2); },
        [&] { (void)wizard.window.GetOpenName(start); },
        [&] { (void)wizard.window.GetSaveAsName(text("XST1.txt"), start); },
    };
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        int seen = 0;
        {
            const Attendant attendant([&](QDialog& dialog) {
                ++seen;
                closeFromAnother(dialog);
            });
            dialogs[i]();
        }
        EXPECT_EQ(seen, 1) << i;
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &wizard.window; }, patience)) << i;
        other.hide();
    }
}

TEST(Keyboard, TabGoesFromTheTreeToTheGridsAndAround) {
    Wizard wizard;
    Rows focused{focusName()};
    for (int step = 0; step < 3; ++step) {
        press(wizard.window, Qt::Key_Tab);
        focused.push_back(focusName());
    }
    EXPECT_EQ(focused, Rows({"myTree", "flexNav", "flexWeb", "myTree"}));
}

TEST(Keyboard, BackTabGoesTheOtherWay) {
    Wizard wizard;
    Rows focused{focusName()};
    for (int step = 0; step < 3; ++step) {
        press(wizard.window, Qt::Key_Tab, Qt::ShiftModifier);
        focused.push_back(focusName());
    }
    EXPECT_EQ(focused, Rows({"myTree", "flexWeb", "flexNav", "myTree"}));
}

TEST(Keyboard, TabWorksTheSameWithRowsInTheGrids) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    activate(wizard.window);
    Rows focused;
    for (int step = 0; step < 4; ++step) {
        focused.push_back(focusName());
        press(wizard.window, Qt::Key_Tab);
    }
    EXPECT_EQ(focused, Rows({"myTree", "flexNav", "flexWeb", "myTree"}));
}

TEST(Keyboard, NodesCanBeReachedAndOpened) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    press(wizard.window, Qt::Key_Home);
    press(wizard.window, Qt::Key_Down);
    press(wizard.window, Qt::Key_Down);
    press(wizard.window, Qt::Key_Return);
    EXPECT_EQ(wizard.navs().mLastN, "N19");
    EXPECT_EQ(shownRows(wizard.paragraphGrid()),
              Rows({"31|19|1|Workshop notice board|spW_Notices 2||H|0|",
                    "32|19|2|Jobs taken in by weekday|spW_JobsByWeekday||C|0|1:2"}));
    EXPECT_TRUE(wizard.tree().isExpanded(wizard.tree().currentIndex()));
}

TEST(Keyboard, F1ShowsTheHelpWhereverTheFocusIs) {
    Wizard wizard;
    for (const char* name : {"myTree", "flexNav", "flexWeb"}) {
        activate(wizard.window);
        find(wizard.window, name).setFocus();
        EXPECT_EQ(focusName(), name);
        Answers answers;
        answers.then("message", reading(helpIsMissingFrom(folderOfProgram())));
        press(wizard.window, Qt::Key_F1);
    }
}

TEST(Keyboard, F1CountsWhenItIsLetGo) {
    Wizard wizard;
    auto* screen = wizard.window.windowHandle();
    QTest::keyPress(screen, Qt::Key_F1);
    EXPECT_FALSE(messageIsOpen());
    repeatF1(wizard.tree());
    EXPECT_FALSE(messageIsOpen());
    Answers answers;
    answers.then("message", escape);
    QTest::keyRelease(screen, Qt::Key_F1);
    answers.wait();
    QTest::keyRelease(screen, Qt::Key_F1);  // without a press
    EXPECT_FALSE(messageIsOpen());
}

TEST(Keyboard, AnF1ThatWentDownElsewhereDoesNothing) {
    Wizard wizard;
    auto* screen = wizard.window.windowHandle();
    Answers answers;
    answers.then("message", [](QDialog& message) {
        QTest::keyPress(message.windowHandle(), Qt::Key_F1);
        message.accept();
    });
    choose(wizard.window, "FH");
    answers.wait();
    QTest::keyRelease(screen, Qt::Key_F1);
    EXPECT_FALSE(messageIsOpen());
}

TEST(Keyboard, AnF1ThatIsLetGoElsewhereIsForgotten) {
    Wizard wizard;
    auto* screen = wizard.window.windowHandle();
    QTest::keyPress(screen, Qt::Key_F1);
    {
        QWidget other;
        other.show();
        activate(other);
    }
    activate(wizard.window);
    QTest::keyRelease(screen, Qt::Key_F1);
    EXPECT_FALSE(messageIsOpen());
}

TEST(Accessibility, EveryInputOfTheMainWindowHasItsName) {
    Wizard wizard;
    EXPECT_EQ(accessibleName(wizard.tree()), "Navigation tree");
    EXPECT_EQ(accessibleName(wizard.nodeGrid()), "Navigational Table - XST1");
    EXPECT_EQ(accessibleName(wizard.paragraphGrid()), "Web Page Display Table- XST2");
    EXPECT_EQ(accessibleName(wizard.window), "Reporting Scheme Wizard for Pelmo 1.02");
    int inputs = 0;
    for (auto* widget : wizard.window.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
        ++inputs;
        EXPECT_NE(accessibleName(*widget), "") << widget->objectName().toStdString();
    }
    EXPECT_GE(inputs, 3);
}

TEST(Accessibility, FramesSpeakTheirCaptions) {
    Wizard wizard;
    EXPECT_EQ(accessibleName(find(wizard.window, "frN")), "Navigational Table - XST1");
    EXPECT_EQ(accessibleName(find(wizard.window, "frW")), "Web Page Display Table- XST2");
    EXPECT_EQ(accessibleName(find(wizard.window, "frRule")), "Rules for Navigational Hierarchy");
}

TEST(Accessibility, EveryInputOfTheIntroductionHasItsName) {
    Wizard wizard;
    Answers answers;
    answers.then("fIntro", [](QDialog& introduction) {
        EXPECT_EQ(accessibleName(find<QPlainTextEdit>(introduction, "Text1")), "Introduction");
        EXPECT_EQ(accessibleName(find<QLabel>(introduction, "Image1")), "A navigation tree beside a report page");
        EXPECT_EQ(accessibleName(introduction), "Pelmo Wizard Introduction...");
        escape(introduction);
    });
    choose(wizard.window, "FI");
}

TEST(Accessibility, EveryInputOfTheReportWindowHasItsName) {
    Wizard wizard;
    Answers answers;
    answers.then("fOutput", [](QDialog& report) {
        EXPECT_EQ(accessibleName(find<QPlainTextEdit>(report, "Text1")), "Report");
        EXPECT_EQ(accessibleName(report), "Output...");
        escape(report);
    });
    choose(wizard.window, "NA");
}

TEST(Accessibility, EveryInputOfTheFileDialogsHasItsName) {
    Wizard wizard;
    for (const auto& [letters, name] : {std::pair<const char*, const char*>{"FON", "GetOpenName"},
                                        std::pair<const char*, const char*>{"NS", "GetSaveAsName"}}) {
        Answers answers;
        answers.then(name, [](QDialog& dialog) {
            EXPECT_EQ(accessibleLabel(find(dialog, "fileNameEdit")), "File name:");
            EXPECT_EQ(accessibleLabel(find(dialog, "fileTypeCombo")), "Files of type:");
            EXPECT_EQ(accessibleLabel(find(dialog, "lookInCombo")), "Look in:");
            for (auto* widget : dialog.findChildren<QWidget*>())
                if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus &&
                    !widget->objectName().startsWith(text("qt_"))) {
                    EXPECT_NE(accessibleName(*widget), "")
                        << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
                }
            escape(dialog);
        });
        choose(wizard.window, letters);
    }
}
