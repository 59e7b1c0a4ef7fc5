// SPDX-License-Identifier: MIT
#include <QPlainTextEdit>

#include "EditHelpers.h"

// The way from a new node to the saved files, with nothing but the keyboard.

TEST(TypicalEdit, FromInsToTheSavedFiles) {
    const TempFolder folder;
    Wizard wizard;
    wizard.openNodes(
        writeBytes(folder / "nodes.txt", "1,Data Browser,F,0,,,leaf,\r\n9,Customers,G,1,spG_Customers,,book,2\r\n"));

    // A node below the root: it becomes number 10.
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            EXPECT_EQ(nodeIn(form), "10|New|N - Non-Generating Branch|||leaf|");
            enter(form, "txtDescription", "Orders of today");
            enterUntil(form, "lstType");
            press(form, Qt::Key_R);  // finds the entry by its letter
            EXPECT_EQ(valueOf(form, "lstType"), "R - Recurring Branch");
            enter(form, "txtQuery", "spG_Orders");
            enterUntil(form, "lstParm");
            press(form, Qt::Key_Down);
            press(form, Qt::Key_Down);
            enter(form, "txtnn", "5");
            EXPECT_EQ(valueOf(form, "txtParm"), "CKey05");
            enter(form, "txtIcon", "bill");
            enter(form, "txtRole", "7");
            press(form, Qt::Key_F3);
            press(form, Qt::Key_Escape);  // asks nothing
        });
        activate(wizard.window);
        press(wizard.window, Qt::Key_Home);
        press(wizard.window, Qt::Key_Insert);
    }
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser *", "    Customers", "    Orders of today"}));

    // A paragraph of it.
    {
        Answers answers;
        answers.then("fWeb", [](QDialog& form) {
            EXPECT_EQ(paragraphIn(form), "1|1|New|S - Show Table|||0|");
            enter(form, "txtTitle", "Orders: ");
            enter(form, "txtQuery", "spW_Orders 1");
            enterUntil(form, "lstParm");
            press(form, Qt::Key_Down);
            enter(form, "txtCol", "2:3");
            press(form, Qt::Key_F3);
            press(form, Qt::Key_Escape);
        });
        activate(wizard.window);
        press(wizard.window, Qt::Key_Home);
        press(wizard.window, Qt::Key_End);
        press(wizard.window, Qt::Key_Return);
        EXPECT_EQ(wizard.navs().mLastN, "N10");
        press(wizard.window, Qt::Key_Tab, Qt::ShiftModifier);
        press(wizard.window, Qt::Key_Menu);
        press(wizard.window, Qt::Key_A);
    }

    wizard.choose("NR");
    wizard.saveNodes(folder / "XST1");
    wizard.saveParagraphs(folder / "XST2");
    EXPECT_EQ(bytesOf(folder / "XST1.txt"),
              "\"ID\",\"descriptionIs\",\"typeIs\",\"parentIs\",\"queryIs\",\"parmIs\",\"iconIs\",\"roleIs\"\r\n"
              "1,\"Data Browser\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n"
              "2,\"Customers\",\"G\",1,\"spG_Customers\",\"\",\"book\",\"2\"\r\n"
              "3,\"Orders of today\",\"R\",1,\"spG_Orders\",\"CKey05\",\"bill\",\"7\"\r\n");
    EXPECT_EQ(
        bytesOf(folder / "XST2.txt"),
        "\"ID\",\"XST1\",\"seqNo\",\"titleIs\",\"queryIs\",\"parmIs\",\"typeIs\",\"formIs\",\"colsAre\",\"extra\"\r\n"
        "1,3,1,\"Orders: \",\"spW_Orders 1\",\"Lkey\",\"S\",0,\"2:3\",\"\"\r\n");

    Answers answers;
    answers.then("fOutput", [](QDialog& report) {
        EXPECT_TRUE(find<QPlainTextEdit>(report, "Text1")
                        .toPlainText()
                        .contains(text("=> There are no Child Nodes for Generating-Type: [ID=2] Customers\n")));
        press(report, Qt::Key_Escape);
    });
    choose(wizard.window, "NA");
}

TEST(TypicalEdit, ARefusalLosesNothing) {
    Wizard wizard;
    Answers answers;
    answers
        .then("fNav",
              [](QDialog& form) {
                  enter(form, "txtDescription", "list");
                  enterUntil(form, "lstType");
                  press(form, Qt::Key_G);
                  press(form, Qt::Key_F3);
                  EXPECT_EQ(nodeIn(form), "2|list|G - Generating Branch|||leaf|") << "the entries stay";
                  activate(form);
                  EXPECT_EQ(QApplication::focusWidget()->objectName(), text("lstType"));
                  enter(form, "txtQuery", "spG_List");
                  press(form, Qt::Key_F3);
                  press(form, Qt::Key_Escape);
              })
        .then("message", [](QDialog& message) {
            EXPECT_EQ(message.parentWidget()->objectName(), text("fNav")) << "it stands before the form";
            reading("No Generating Query or Stored procedure specified. Changes not saved")(message);
        });
    press(wizard.window, Qt::Key_Home);
    press(wizard.window, Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|", "2|list|G|1|spG_List||leaf|"}));
}
