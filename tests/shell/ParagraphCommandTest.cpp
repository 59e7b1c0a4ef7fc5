// SPDX-License-Identifier: MIT
#include "EditHelpers.h"

// Adding, editing and deleting paragraphs from the popup menu of their grid.

class ParagraphCommand : public Editing {
  protected:
    // A right click on the row of a paragraph, and a command.
    void choose(int id, char letter) {
        clickParagraph(id);
        rightClickParagraphs();
        chooseInPopup(wizard.window, letter);
    }
    void run(const char* command) { find<QAction>(wizard.window, command).trigger(); }
};

TEST_F(ParagraphCommand, ThePopupHasTheseItems) {
    Rows items;
    for (const auto* action : find<QMenu>(wizard.window, "mnuWPopUp").actions())
        items.push_back(action->objectName().toStdString() + " " + action->text().toStdString());
    EXPECT_EQ(items, Rows({"mnuAddP &Add Paragraph", "mnuEditP &Edit Paragraph", "mnuDeleteP &Delete Paragraph",
                           "mnuDisplayAll Display &Full Table XST2", "mnuOrphans Display &Orphans"}));
    EXPECT_EQ(find<QMenu>(wizard.window, "mnuWPopUp").title(), text("&WPopUp"));
}

TEST_F(ParagraphCommand, ARightClickRemembersTheCurrentRowAndPopsUp) {
    clickParagraph(12);
    rightClickParagraphs();
    EXPECT_EQ(openPopup(), "mnuWPopUp");
    EXPECT_EQ(wizard.window.sPopKey, "12");
    EXPECT_EQ(wizard.window.pPopKey, "2");
    press(wizard.window, Qt::Key_Escape);
    EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "12|2");
}

TEST_F(ParagraphCommand, ThePopupOpensAtTheMouse) {
    const auto place = wizard.paragraphGrid().viewport()->mapToGlobal(QPoint(60, 30));
    const auto before = QCursor::pos();
    QCursor::setPos(place);
    if (!QTest::qWaitFor([&] { return QCursor::pos() == place; }, 1000))
        GTEST_SKIP() << "the mouse cannot be moved here";
    QTest::mouseClick(wizard.paragraphGrid().viewport(), Qt::RightButton, {}, {60, 30});
    ASSERT_EQ(openPopup(), "mnuWPopUp");
    EXPECT_EQ(QApplication::activePopupWidget()->pos(), place);
    QCursor::setPos(before);
    press(wizard.window, Qt::Key_Escape);
}

TEST_F(ParagraphCommand, ARightClickOnTheHeaderRowRemembersItsTexts) {
    rightClickParagraphs();
    EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "ID |XST1");
}

TEST_F(ParagraphCommand, ARightClickOnTheTreeLeavesTheKeyOfTheParagraphsNode) {
    clickParagraph(12);
    rightClickParagraphs();
    press(wizard.window, Qt::Key_Escape);
    select("N6");
    rightClickTree();
    EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "6|2");
}

TEST_F(ParagraphCommand, TheMenuKeyAndShiftF10PopUpForTheCurrentRow) {
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_Menu, Qt::KeyboardModifiers(Qt::NoModifier)},
                                         {Qt::Key_F10, Qt::KeyboardModifiers(Qt::ShiftModifier)}}) {
        clickParagraph(13);
        press(wizard.window, key, modifiers);
        EXPECT_EQ(openPopup(), "mnuWPopUp");
        EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "13|5");
        const auto& grid = wizard.paragraphGrid();
        const auto corner = grid.viewport()->mapFromGlobal(QApplication::activePopupWidget()->pos());
        EXPECT_NEAR(corner.y(), grid.visualRect(grid.currentIndex()).bottom(), 6);
        press(wizard.window, Qt::Key_Escape);
        wizard.window.sPopKey.clear();
    }
}

TEST_F(ParagraphCommand, TheMenuKeyWorksOnTheHeaderRowToo) {
    wizard.paragraphGrid().setFocus();
    press(wizard.window, Qt::Key_Menu);
    EXPECT_EQ(openPopup(), "mnuWPopUp");
    EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "ID |XST1");
}

// --- add ---

TEST_F(ParagraphCommand, AddOffersANewParagraphOfTheRowsNode) {
    Answers answers;
    answers.then("fWeb", [](QDialog& form) {
        EXPECT_EQ(paragraphIn(form), "15|8|New|S - Show Table|||0|");
        EXPECT_TRUE(form.isModal());
        escape(form);
    });
    choose(11, 'A');
    answers.wait();
    EXPECT_EQ(wizard.navs().oWebs.Count(), 4);
    EXPECT_EQ(shownParagraphs(), "11 13") << "those of the node";
}

TEST_F(ParagraphCommand, AnAddedParagraphBelongsToTheRowsNode) {
    Answers answers;
    answers.then("fWeb", [](QDialog& form) {
        enter(form, "txtTitle", "mine");
        enter(form, "txtQuery", "spW_Mine");
        press(form, Qt::Key_F3);
        escape(form);
    });
    choose(12, 'A');
    answers.wait();
    EXPECT_EQ(paragraph("15"), "15|2|2|mine|spW_Mine||S|0||");
    EXPECT_EQ(shownParagraphs(), "12 15");
}

TEST_F(ParagraphCommand, TheFirstOneAfterNumbersBelowZeroIsOne) {
    wizard.navs().oWebs.Add(makeParagraph(20, 6, -5, "before all"));
    wizard.navs().oWebs.DispInGrid(6);
    Answers answers;
    answers.then("fWeb", [](QDialog& form) {
        EXPECT_EQ(paragraphIn(form), "21|1|New|S - Show Table|||0|");
        escape(form);
    });
    choose(20, 'A');
}

// What the last right click has stored counts, whatever was clicked or selected since.
TEST_F(ParagraphCommand, CommandsActOnTheRowOfTheLastRightClick) {
    clickParagraph(13);
    rightClickParagraphs();
    press(wizard.window, Qt::Key_Escape);
    clickParagraph(12);
    select("N6");
    {
        Answers answers;
        answers.then("fWeb", [](QDialog& form) {
            EXPECT_EQ(paragraphIn(form).substr(0, 3), "13|");
            escape(form);
        });
        run("mnuEditP");
    }
    {
        Answers answers;
        answers.then("fWeb", [](QDialog& form) {
            enter(form, "txtQuery", "spW_Mine");
            press(form, Qt::Key_F3);
            escape(form);
        });
        run("mnuAddP");
    }
    EXPECT_EQ(paragraph("15"), "15|5|8|New|spW_Mine||S|0||");
    EXPECT_EQ(wizard.window.pPopKey, "5");
    run("mnuDeleteP");
    EXPECT_EQ(paragraph("13"), "none");
    EXPECT_NE(paragraph("12"), "none");
}

TEST_F(ParagraphCommand, AddOnTheHeaderRowTakesTheSelectedNode) {
    Answers answers;
    answers.then("fWeb", [](QDialog& form) {
        EXPECT_EQ(paragraphIn(form), "15|1|New|S - Show Table|||0|");
        enter(form, "txtQuery", "spW_Mine");
        press(form, Qt::Key_F3);
        escape(form);
    });
    wizard.click("branch");
    EXPECT_EQ(shownParagraphs(), "");
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'A');
    answers.wait();
    EXPECT_EQ(wizard.window.pPopKey, "6");
    EXPECT_EQ(paragraph("15"), "15|6|1|New|spW_Mine||S|0||");
    EXPECT_EQ(shownParagraphs(), "15");
}

TEST_F(ParagraphCommand, AddWithoutANodeIsRefused) {
    wizard.choose("NC");  // nothing is selected
    Answers answers;
    answers.then("message", reading("Cannot Add ...."));
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'A');
    answers.wait();
    EXPECT_EQ(wizard.window.pPopKey, "");
}

TEST_F(ParagraphCommand, AddToNodeZeroOrBelowIsRefused) {
    for (const char* node : {"0", "-3"}) {
        wizard.window.pPopKey = node;
        Answers answers;
        answers.then("message", reading("Cannot Add ...."));
        run("mnuAddP");
    }
}

TEST_F(ParagraphCommand, NoNumberIsLeftAboveTheLargest) {
    wizard.navs().oWebs.Add(makeParagraph(20, 6, 2147483647, "last"));
    wizard.window.pPopKey = "6";
    {
        Answers answers;
        answers.then("message", reading("No sequence number is left: the largest one, 2147483647, is taken."));
        run("mnuAddP");
    }
    wizard.navs().oWebs.Add(makeParagraph(2147483647, 6, 1, "last"));
    Answers answers;
    answers.then("message", reading("No ID is left: the largest one, 2147483647, is taken."));
    run("mnuAddP");
}

// --- edit ---

TEST_F(ParagraphCommand, EditOffersACopy) {
    Answers answers;
    answers
        .then("fWeb",
              [this](QDialog& form) {
                  EXPECT_EQ(paragraphIn(form), "13|7|Title 13|H - Header|spW_13||13|");
                  enter(form, "txtTitle", "changed");
                  EXPECT_EQ(paragraph("13"), "13|5|7|Title 13|spW_13||H|13||x");
                  press(form, Qt::Key_Escape);
              })
        .then("question", [](QDialog& question) { press(question, Qt::Key_N); });
    choose(13, 'E');
    answers.wait();
    EXPECT_EQ(paragraph("13"), "13|5|7|Title 13|spW_13||H|13||x");
    EXPECT_EQ(shownParagraphs(), "11 13");
}

TEST_F(ParagraphCommand, EditStoresTheChange) {
    Answers answers;
    answers.then("fWeb", [](QDialog& form) {
        enter(form, "txtTitle", "changed");
        press(form, Qt::Key_F3);
        escape(form);
    });
    choose(13, 'E');
    answers.wait();
    EXPECT_EQ(paragraph("13"), "13|5|7|changed|spW_13||H|13||x");
    EXPECT_EQ(shownRows(wizard.paragraphGrid()),
              Rows({"11|5|2|Title 11|spW_11||H|11|", "13|5|7|changed|spW_13||H|13|"}));
}

TEST_F(ParagraphCommand, EditOnTheHeaderRowIsRefused) {
    Answers answers;
    answers.then("message", reading("Nothin to Edit ...."));
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'E');
}

TEST_F(ParagraphCommand, EditBeforeAnyRightClickIsRefused) {
    Answers answers;
    answers.then("message", reading("Nothin to Edit ...."));
    run("mnuEditP");
}

TEST_F(ParagraphCommand, EditOfAParagraphOfNodeZeroOrBelowIsRefused) {
    wizard.navs().DispOrphans();  // their node becomes 0
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows({"14|0|1|Title 14|spW_14||H|14|"}));
    {
        Answers answers;
        answers.then("message", reading("Cannot Edit ...."));
        choose(14, 'E');
    }
    wizard.window.pPopKey = "-1";
    Answers answers;
    answers.then("message", reading("Cannot Edit ...."));
    run("mnuEditP");
}

TEST_F(ParagraphCommand, EditOfAParagraphThatIsGoneDoesNothing) {
    clickParagraph(13);
    rightClickParagraphs();
    press(wizard.window, Qt::Key_Escape);
    wizard.navs().oWebs.Remove("13");
    Answers none;
    run("mnuEditP");
    EXPECT_EQ(shownParagraphs(), "11 12 13 14") << "not even redrawn";
}

// --- delete ---

TEST_F(ParagraphCommand, DeleteDeletesAtOnce) {
    Answers none;
    choose(13, 'D');
    EXPECT_EQ(idsOf(wizard.navs().oWebs), "11 12 14");
    EXPECT_EQ(shownParagraphs(), "11") << "the others of its node";
}

TEST_F(ParagraphCommand, DeleteTwiceDoesNoHarm) {
    Answers none;
    choose(13, 'D');
    run("mnuDeleteP");
    EXPECT_EQ(idsOf(wizard.navs().oWebs), "11 12 14");
    EXPECT_EQ(shownParagraphs(), "11");
}

TEST_F(ParagraphCommand, DeleteOnTheHeaderRowDeletesNothing) {
    wizard.click("end");
    EXPECT_EQ(shownParagraphs(), "11 13");
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'D');
    EXPECT_EQ(wizard.navs().oWebs.Count(), 4);
    EXPECT_EQ(shownParagraphs(), "11 12 13 14");
}

TEST_F(ParagraphCommand, AnOrphanCanBeDeleted) {
    wizard.navs().DispOrphans();
    choose(14, 'D');
    EXPECT_EQ(idsOf(wizard.navs().oWebs), "11 12 13");
    EXPECT_EQ(shownParagraphs(), "11 12 13");
}

// --- lists ---

TEST_F(ParagraphCommand, FullTableAndOrphansAreShown) {
    wizard.click("end");
    EXPECT_EQ(shownParagraphs(), "11 13");
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'O');
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows({"14|0|1|Title 14|spW_14||H|14|"}));
    rightClickParagraphs();
    chooseInPopup(wizard.window, 'F');
    EXPECT_EQ(shownParagraphs(), "11 12 13 14");
}
