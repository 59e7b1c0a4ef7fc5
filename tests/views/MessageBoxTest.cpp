// SPDX-License-Identifier: MIT
#include "views/MessageBox.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "Helpers.h"

namespace {

/// Shows a message, looks at the box while it is open, and closes it as the user does.
template <class Look>
void showAndLook(QWidget* parent, const QString& text, Look look, Qt::Key answer = Qt::Key_Return) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        seen = true;
        look(*box);
        static_cast<void>(activate(box));
        typeKey(box, answer);
        if (box->isVisible()) {
            ADD_FAILURE() << "key " << answer << " did not close the box";
            box->reject();
        }
    });
    showMessage(parent, text);
    EXPECT_TRUE(seen);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

QString textIn(const QMessageBox& box) {
    return box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text();
}

}  // namespace

TEST(MessageBox, ShowsTheTextWithIconButtonAndTitle) {
    showAndLook(nullptr, QStringLiteral("Unable to save file.."), [](const QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Unable to save file.."));
        EXPECT_EQ(textIn(box), QStringLiteral("Unable to save file.."));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Reporting Scheme Wizard for Pelmo"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.objectName(), QStringLiteral("message"));
        EXPECT_EQ(box.informativeText(), QString());
        EXPECT_EQ(box.detailedText(), QString());
        EXPECT_TRUE(box.isModal());
    });
}

TEST(MessageBox, ShowsMarkupAsItStands) {
    showAndLook(nullptr, QStringLiteral("<b>bold</b> &amp; <dummy>"), [](const QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(textIn(box), QStringLiteral("<b>bold</b> &amp; <dummy>"));
    });
}

TEST(MessageBox, ShowsTwoLinesForALineBreak) {
    int oneLine = 0;
    int twoLines = 0;
    showAndLook(nullptr, QStringLiteral("first, second"), [&](const QMessageBox& box) {
        oneLine = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->sizeHint().height();
    });
    showAndLook(nullptr, QStringLiteral("first, \r\nsecond"), [&](const QMessageBox& box) {
        EXPECT_EQ(textIn(box), QStringLiteral("first, \nsecond"));
        twoLines = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->sizeHint().height();
    });
    EXPECT_GT(twoLines, oneLine);
    EXPECT_LT(twoLines, 3 * oneLine);
}

TEST(MessageBox, IsClosedByEnterEscBlankOrItsButton) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space}) {
        showAndLook(
            nullptr, QStringLiteral("text"), [](const QMessageBox&) {}, key);
    }
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        EXPECT_FALSE(box->isVisible());
    });
    showMessage(nullptr, QStringLiteral("text"));
}

TEST(MessageBox, BelongsToAVisibleWindow) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    showAndLook(&window, QStringLiteral("text"),
                [&](const QMessageBox& box) { EXPECT_EQ(box.parentWidget(), &window); });
}

TEST(MessageBox, StandsAloneBeforeItsWindowIsVisible) {
    QWidget hidden;
    showAndLook(&hidden, QStringLiteral("text"),
                [](const QMessageBox& box) { EXPECT_EQ(box.parentWidget(), nullptr); });
    EXPECT_FALSE(hidden.isVisible());
}

namespace {

/// Asks a question, does something while it is open, and returns the answer.
template <class Act>
bool askAnd(Act act) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        seen = true;
        static_cast<void>(activate(box));
        act(*box);
        if (!QTest::qWaitFor([box] { return !box->isVisible(); },
                             3000)) {  // a letter presses its button for a moment
            ADD_FAILURE() << "the question is still open";
            box->done(QMessageBox::No);
        }
    });
    const bool yes = askYesNo(nullptr, QStringLiteral("The title"), QStringLiteral("<b>Sure?</b>"));
    EXPECT_TRUE(seen);
    return yes;
}

}  // namespace

TEST(Question, HasItsTextItsTitleAndTwoButtons) {
    static_cast<void>(askAnd([](QMessageBox& box) {
        EXPECT_EQ(textIn(box), QStringLiteral("<b>Sure?</b>"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("The title"));
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        EXPECT_EQ(box.objectName(), QStringLiteral("question"));
        EXPECT_TRUE(box.isModal());
        typeKey(&box, Qt::Key_Return);
    }));
}

TEST(Question, IsAnsweredByItsButtonsTheirLettersAndEnter) {
    EXPECT_TRUE(askAnd([](QMessageBox& box) { typeKey(&box, Qt::Key_Return); }));
    EXPECT_TRUE(askAnd([](QMessageBox& box) { typeKey(&box, Qt::Key_Y); }));
    EXPECT_FALSE(askAnd([](QMessageBox& box) { typeKey(&box, Qt::Key_N); }));
    EXPECT_TRUE(askAnd([](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); }));
    EXPECT_FALSE(askAnd([](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); }));
}

TEST(Question, IsNotAnsweredByEscOrTheCloseBox) {
    EXPECT_TRUE(askAnd([](QMessageBox& box) {
        typeKey(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
        EXPECT_TRUE(box.isVisible());
        typeKey(&box, Qt::Key_Y);
    }));
}
