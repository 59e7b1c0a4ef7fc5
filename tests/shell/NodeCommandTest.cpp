// SPDX-License-Identifier: MIT
#include <QLabel>
#include <QScrollBar>

#include "EditHelpers.h"
#include "views/NavTree.h"

// Adding, editing and deleting nodes from the tree.

using NodeCommand = Editing;

TEST(NodeCommandInANewScheme, InsOnTheRootOffersANewNode) {
    Wizard wizard;
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(nodeIn(form), "2|New|N - Non-Generating Branch|||leaf|");
        EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: [1]  Data Browser"));
        EXPECT_TRUE(form.isModal());
        escape(form);
    });
    press(wizard.window, Qt::Key_Home);
    press(wizard.window, Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(linksOf(wizard.navs()), "1<0") << "the record is not in the scheme until it is saved";
}

TEST_F(NodeCommand, InsBelowAFixedNodeHasNoLimit) {
    for (const auto& [key, parent] : {std::pair<std::string, std::string>{"N1", "[1]  Top"}, {"N6", "[6]  branch"}}) {
        Answers answers;
        answers.then("fNav", [&parent = parent](QDialog& form) {
            EXPECT_EQ(nodeIn(form), "8|New|N - Non-Generating Branch|||leaf|");
            EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: " + parent));
            escape(form);
        });
        pressOn(key, Qt::Key_Insert);
    }
}

TEST_F(NodeCommand, InsBelowAGeneratingNodeWithoutAChildIsAllowed) {
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(nodeIn(form), "8|New|N - Non-Generating Branch|||leaf|");
        press(form, Qt::Key_F3);
        escape(form);
    });
    pressOn("N4", Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(node("8"), "8|New|N|4|||leaf|");
}

TEST_F(NodeCommand, InsBelowAGeneratingNodeWithAChildIsRefused) {
    Answers answers;
    answers.then("message", reading("Below a (G)- Generating Node, you can add just ONE node.\n"
                                    "Node is already present. No Addition allowed !!"));
    pressOn("N2", Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1 3<2 4<1 5<1 6<1 7<6");
}

TEST_F(NodeCommand, InsCountsTheChildrenThatTheTreeShows) {
    wizard.navs().Add(makeNode(8, 4, "?", "of no type"));
    wizard.navs().DispInTV();
    Answers answers;
    answers.then("fNav", escape);
    pressOn("N4", Qt::Key_Insert);
}

TEST_F(NodeCommand, InsBelowARecurringNodeIsRefused) {
    Answers answers;
    answers.then("message", reading("Below a (R)- Recurring Node, you CANNOT add any node.\nNo Addition allowed !!"));
    pressOn("N3", Qt::Key_Insert);
}

TEST_F(NodeCommand, InsBelowANonGeneratingNodeIsRefused) {
    Answers answers;
    answers.then("message",
                 reading("Below a (N)- Non-Generating Node, you CANNOT add any node.\nNo Addition allowed !!"));
    pressOn("N5", Qt::Key_Insert);
}

TEST_F(NodeCommand, ACancelledNewNodeIsGone) {
    Answers answers;
    answers
        .then("fNav",
              [](QDialog& form) {
                  enter(form, "txtDescription", "never");
                  press(form, Qt::Key_Escape);
              })
        .then("question", [](QDialog& question) { press(question, Qt::Key_N); });
    pressOn("N1", Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1 3<2 4<1 5<1 6<1 7<6");
}

TEST_F(NodeCommand, TheTreeIsRedrawnAfterTheForm) {
    select("N6");
    wizard.tree().expand(wizard.tree().currentIndex());
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        enter(form, "txtDescription", "added");
        press(form, Qt::Key_F3);
        escape(form);
    });
    pressOn("N6", Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(shownRows(wizard.tree()),
              Rows({"- Data Browser", "  + full list", "    empty list", "    end", "  + branch *"}));
    EXPECT_EQ(shownRows(wizard.nodeGrid()).back(), "8|added|N|6|||leaf|");
}

TEST_F(NodeCommand, NoNumberIsLeftAboveTheLargest) {
    wizard.navs().Add(makeNode(2147483647, 6, "N", "last"));
    wizard.navs().DispInTV();
    Answers answers;
    answers.then("message", reading("No ID is left: the largest one, 2147483647, is taken.\n"
                                    "Please choose Re-Number."));
    pressOn("N1", Qt::Key_Insert);
}

TEST_F(NodeCommand, F2OffersACopyOfTheNode) {
    Answers answers;
    answers.then("fNav", [this](QDialog& form) {
        EXPECT_EQ(nodeIn(form), "2|full list|G - Generating Branch|spG_Full|Lkey|book|3");
        EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: [1]  Top"));
        enter(form, "txtDescription", "changed");
        EXPECT_EQ(node("2"), "2|full list|G|1|spG_Full|Lkey|book|3");
        press(form, Qt::Key_Escape);
    });
    answers.then("question", [](QDialog& question) { press(question, Qt::Key_N); });
    pressOn("N2", Qt::Key_F2);
    answers.wait();
    EXPECT_EQ(node("2"), "2|full list|G|1|spG_Full|Lkey|book|3") << "a cancelled edit changes nothing";
}

TEST_F(NodeCommand, F2BelowAGeneratingNodeNamesThatOne) {
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(nodeIn(form), "3|again|R - Recurring Branch|spG_Again|Text||");
        EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: [2]  full list"));
        EXPECT_EQ(find<QListWidget>(form, "lstType").count(), 3);
        escape(form);
    });
    pressOn("N3", Qt::Key_F2);
}

TEST_F(NodeCommand, F2AndF3StoreTheChange) {
    Answers answers;
    answers.then("fNav", [this](QDialog& form) {
        enter(form, "txtDescription", "changed");
        press(form, Qt::Key_F3);
        EXPECT_EQ(node("2"), "2|changed|G|1|spG_Full|Lkey|book|3");
        EXPECT_EQ(shownRows(wizard.nodeGrid())[1], "2|full list|G|1|spG_Full|Lkey|book|3")
            << "redrawn when the form is closed";
        escape(form);
    });
    pressOn("N2", Qt::Key_F2);
    answers.wait();
    EXPECT_EQ(shownRows(wizard.nodeGrid())[1], "2|changed|G|1|spG_Full|Lkey|book|3");
    EXPECT_EQ(shownRows(wizard.tree())[1], "  + changed *");
}

TEST_F(NodeCommand, TheTreeIsRedrawnAfterACancelledEdit) {
    select("N6");
    wizard.tree().expand(wizard.tree().currentIndex());
    wizard.navs().Item(7)->descriptionIs = "new name";
    Answers answers;
    answers.then("fNav", escape);
    pressOn("N7", Qt::Key_F2);
    answers.wait();
    EXPECT_EQ(shownRows(wizard.tree()).back(), "      new name *") << "the edited node is in view";
    EXPECT_EQ(shownRows(wizard.nodeGrid()).back(), "7|new name|N|6||||");
}

TEST_F(NodeCommand, TheRootCannotBeModified) {
    Answers answers;
    answers.then("message", reading("Root Node cannot be modified !!"));
    pressOn("N1", Qt::Key_F2);
}

TEST_F(NodeCommand, TheRootCannotBeDeleted) {
    Answers answers;
    answers.then("message", reading("Root Node cannot be deleted!!"));
    pressOn("N1", Qt::Key_Delete);
    answers.wait();
    EXPECT_EQ(wizard.navs().Count(), 7);
}

TEST_F(NodeCommand, DelDeletesTheBranchAtOnce) {
    auto inner = makeParagraph(15, 3, 1, "of 3");
    wizard.navs().oWebs.Add(inner);
    Answers none;
    pressOn("N2", Qt::Key_Delete);
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 4<1 5<1 6<1 7<6");
    EXPECT_EQ(idsOf(wizard.navs().oWebs), "11 13 14");
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser", "    empty list", "    end", "  + branch"}));
    EXPECT_EQ(shownRows(wizard.nodeGrid()).size(), 5U);
    EXPECT_EQ(shownParagraphs(), "") << "those of the deleted node";
}

TEST_F(NodeCommand, KeysDoNothingWithoutASelectedNode) {
    Answers none;
    wizard.choose("NC");
    for (const auto key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete}) press(wizard.window, key);
    EXPECT_EQ(wizard.navs().Count(), 7);
}

// --- the grid follows the tree ---

class ScrollToNode : public testing::Test {
  protected:
    ScrollToNode() {
        for (int id = 2; id <= 200; ++id) wizard.navs().Add(makeNode(id, 1, "N", "node " + std::to_string(id)));
        wizard.navs().DispInTV();
    }
    [[nodiscard]] std::string topRow() {
        auto& grid = wizard.nodeGrid();
        return grid.model()->index(grid.rowAt(0), 0).data().toString().toStdString();
    }

    Wizard wizard;
};

TEST_F(ScrollToNode, AClickMakesItsRowTheTopOne) {
    wizard.click("node 5");
    EXPECT_EQ(topRow(), "5");
    EXPECT_FALSE(wizard.nodeGrid().currentIndex().isValid()) << "the current row stays what it was";
    EXPECT_TRUE(wizard.nodeGrid().selectionModel()->selectedIndexes().isEmpty());
    wizard.nodeGrid().selectRow(7);
    wizard.click("node 3");
    EXPECT_EQ(topRow(), "3");
    EXPECT_EQ(wizard.nodeGrid().currentIndex().row(), 7);
    EXPECT_TRUE(wizard.nodeGrid().selectionModel()->isRowSelected(7));
}

TEST_F(ScrollToNode, TheColumnsStayWhereTheyAre) {
    auto& across = *wizard.nodeGrid().horizontalScrollBar();
    across.setValue(across.maximum() / 2);
    const int before = across.value();
    wizard.click("node 7");
    EXPECT_EQ(across.value(), before);
}

TEST_F(ScrollToNode, TheFirstOfTwoRowsWithTheNumberCounts) {
    wizard.navs().Item(100)->ID = 9;
    wizard.navs().DispInGrid();
    wizard.click("node 9");
    EXPECT_EQ(topRow(), "9");
    EXPECT_EQ(wizard.nodeGrid().rowAt(0), 8);
}

TEST_F(ScrollToNode, ANodeThatIsInNoRowLeavesTheGridWhereItIs) {
    wizard.click("node 6");
    EXPECT_EQ(topRow(), "6");
    wizard.navs().Item(4)->ID = 1000;
    wizard.navs().DispInGrid();
    wizard.nodeGrid().verticalScrollBar()->setValue(20);
    const auto before = topRow();
    wizard.click("node 4");
    EXPECT_EQ(topRow(), before);
}

// --- the popup menu of the tree ---

TEST_F(NodeCommand, TheTreePopupHasTheseItems) {
    Rows items;
    for (const auto* action : find<QMenu>(wizard.window, "mnuPopUp").actions())
        items.push_back(action->objectName().toStdString() + " " + action->text().toStdString());
    EXPECT_EQ(items,
              Rows({"mnuChild &Add Child   (Ins)", "mnuEdit &Edit Node   (F2)", "mnuDelete &Delete       (Del)"}));
    EXPECT_EQ(find<QMenu>(wizard.window, "mnuPopUp").title(), text("Popup"));
}

TEST_F(NodeCommand, ARightClickRemembersTheSelectedNodeAndPopsUp) {
    select("N5");
    rightClickTree();
    EXPECT_EQ(openPopup(), "mnuPopUp");
    EXPECT_EQ(wizard.window.sPopKey, "5");
    press(wizard.window, Qt::Key_Escape);
    EXPECT_EQ(openPopup(), "");
    EXPECT_EQ(wizard.window.sPopKey, "5") << "even when the menu was left";
}

TEST_F(NodeCommand, ThePopupOpensAtTheMouse) {
    select("N5");
    const auto place = wizard.tree().viewport()->mapToGlobal(QPoint(60, 70));
    const auto before = QCursor::pos();
    QCursor::setPos(place);
    if (!QTest::qWaitFor([&] { return QCursor::pos() == place; }, 1000))
        GTEST_SKIP() << "the mouse cannot be moved here";
    QTest::mouseClick(wizard.tree().viewport(), Qt::RightButton, {}, {60, 70});
    ASSERT_EQ(openPopup(), "mnuPopUp");
    EXPECT_EQ(QApplication::activePopupWidget()->pos(), place);
    QCursor::setPos(before);
    press(wizard.window, Qt::Key_Escape);
}

TEST_F(NodeCommand, ARightClickWithoutASelectedNodeDoesNothing) {
    wizard.choose("NC");
    rightClickTree();
    EXPECT_EQ(openPopup(), "");
}

TEST_F(NodeCommand, ThePopupAddsEditsAndDeletes) {
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: [6]  branch"));
            escape(form);
        });
        select("N6");
        rightClickTree();
        chooseInPopup(wizard.window, 'A');
    }
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            EXPECT_EQ(valueOf(form, "txtDescription"), "branch");
            escape(form);
        });
        select("N6");
        rightClickTree();
        chooseInPopup(wizard.window, 'E');
    }
    select("N6");
    rightClickTree();
    chooseInPopup(wizard.window, 'D');
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1 3<2 4<1 5<1");
}

TEST_F(NodeCommand, ThePopupCommandsActOnTheNodeOfTheLastRightClick) {
    select("N5");
    rightClickTree();
    press(wizard.window, Qt::Key_Escape);
    select("N4");
    find<QAction>(wizard.window, "mnuDelete").trigger();
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1 3<2 4<1 6<1 7<6");
}

TEST_F(NodeCommand, CommandsOnANodeThatIsGoneDoNothing) {
    Answers none;
    for (const char* key : {"", "99", "5x"}) {
        wizard.window.sPopKey = key;
        for (const char* command : {"mnuChild", "mnuEdit", "mnuDelete"})
            find<QAction>(wizard.window, command).trigger();
    }
    EXPECT_EQ(wizard.navs().Count(), 7);
    EXPECT_EQ(wizard.navs().oWebs.Count(), 4);
}

TEST_F(NodeCommand, TheMenuKeyAndShiftF10PopUpForTheSelectedNode) {
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_Menu, Qt::KeyboardModifiers(Qt::NoModifier)},
                                         {Qt::Key_F10, Qt::KeyboardModifiers(Qt::ShiftModifier)}}) {
        select("N4");
        press(wizard.window, key, modifiers);
        EXPECT_EQ(openPopup(), "mnuPopUp");
        EXPECT_EQ(wizard.window.sPopKey, "4");
        const auto& tree = wizard.tree();
        const auto node = tree.visualRect(tree.currentIndex());
        const auto corner = tree.viewport()->mapFromGlobal(QApplication::activePopupWidget()->pos());
        EXPECT_NEAR(corner.y(), node.bottom(), 6) << "it stands below the node";
        const auto* current = find<QMenu>(wizard.window, "mnuPopUp").activeAction();
        EXPECT_TRUE(current && current->objectName() == text("mnuChild")) << "Enter takes the first command";
        press(wizard.window, Qt::Key_Escape);
        wizard.window.sPopKey.clear();
    }
}

TEST_F(NodeCommand, ShiftMayBeLetGoBeforeF10) {
    select("N4");
    auto* screen = wizard.window.windowHandle();
    QTest::keyPress(screen, Qt::Key_F10, Qt::ShiftModifier);
    QTest::keyRelease(screen, Qt::Key_F10);
    EXPECT_EQ(openPopup(), "mnuPopUp");
    press(wizard.window, Qt::Key_Escape);
    QTest::keyPress(screen, Qt::Key_F10);
    QTest::keyRelease(screen, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(openPopup(), "") << "F10 alone went down";
}

TEST_F(NodeCommand, ANodeWithAnUnknownParameterCanBeWalkedThrough) {
    wizard.navs().Item(4)->setParmIs("None");
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(valueOf(form, "lstParm"), "none");
        EXPECT_FALSE(find<QLineEdit>(form, "txtnn").isEnabled());
        for (const char* field : {"txtQuery", "lstParm", "txtParm", "txtIcon", "txtRole", "txtID"})
            enterUntil(form, field);
        press(form, Qt::Key_F3);
        EXPECT_EQ(valueOf(form, "txtParm"), "");
        escape(form);
    });
    pressOn("N4", Qt::Key_F2);
    answers.wait();
    EXPECT_EQ(node("4"), "4|empty list|G|1|spG_Empty|||");
}

TEST_F(NodeCommand, TheMenuKeyDoesNothingWithoutASelectedNodeAndInTheNodeGrid) {
    wizard.choose("NC");
    press(wizard.window, Qt::Key_Menu);
    EXPECT_EQ(openPopup(), "");
    select("N4");
    wizard.nodeGrid().setFocus();
    press(wizard.window, Qt::Key_Menu);
    press(wizard.window, Qt::Key_F10);
    EXPECT_EQ(openPopup(), "");
}

TEST(NodeCommandInsert, ATypeWithoutARuleTakesAnyNumberOfNodes) {
    const TempFolder folder;
    Wizard wizard;
    for (const std::string type : {"X", "n", "r", "g"}) {
        wizard.openNodes(writeBytes(folder / "nodes.txt", "1,Top," + type + ",0\r\n2,below,N,1\r\n"));
        Answers answers;
        answers
            .then("fNav",
                  [](QDialog& form) {
                      EXPECT_EQ(valueOf(form, "txtID"), "3");
                      escape(form);
                  })
            .then("question",
                  [](QDialog& question) { press(question, Qt::Key_N); });  // no type of the list is chosen
        activate(wizard.window);
        wizard.tree().setFocus();
        press(wizard.window, Qt::Key_Home);
        press(wizard.window, Qt::Key_Insert);
        answers.wait();
    }
}

// --- after a renumbering ---

TEST(NodeCommandAfterRenumbering, CommandsActOnTheNodeOnTheScreen) {
    Wizard wizard;
    wizard.navs().Add(makeNode(3, 1, "N", "three"));
    wizard.navs().Add(makeNode(2, 1, "N", "two"));
    wizard.choose("NR");  // "three" is now number 2, "two" is number 3
    wizard.click("three");
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(nodeIn(form), "2|three|N - Non-Generating Branch||||");
        enter(form, "txtDescription", "mine");
        press(form, Qt::Key_F3);
        escape(form);
    });
    press(wizard.window, Qt::Key_F2);
    answers.wait();
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|", "2|mine|N|1||||", "3|two|N|1||||"}));
    press(wizard.window, Qt::Key_Delete);
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|", "3|two|N|1||||"}));
}

TEST(NodeCommandAfterRenumbering, ANewNodeTakesTheNextNumber) {
    Wizard wizard;
    wizard.navs().Add(makeNode(3, 1, "N", "three"));
    wizard.choose("NR");
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(valueOf(form, "txtID"), "3");
        press(form, Qt::Key_F3);
        escape(form);
    });
    press(wizard.window, Qt::Key_Home);
    press(wizard.window, Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|", "2|three|N|1||||", "3|New|N|1|||leaf|"}));
}

// A new node took a number, and a change of another node then went to it.
TEST(NodeCommandAfterRenumbering, AChangeDoesNotReplaceAnotherNode) {
    const TempFolder folder;
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    activate(wizard.window);
    wizard.click("Hire desk");
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            press(form, Qt::Key_F3);
            escape(form);
        });
        press(wizard.window, Qt::Key_Insert);
    }
    wizard.choose("NR");
    activate(wizard.window);
    wizard.click("Workshop");
    wizard.click("Open repair jobs");
    const auto before = rowsOf(wizard.navs());
    const auto number = wizard.navs().mLastN.substr(1);
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            EXPECT_EQ(valueOf(form, "txtDescription"), "Open repair jobs");
            enter(form, "txtDescription", "mine");
            press(form, Qt::Key_F3);
            escape(form);
        });
        press(wizard.window, Qt::Key_F2);
    }
    auto expected = before;
    for (auto& row : expected)
        if (row.starts_with(number + "|")) row.replace(row.find("Open repair jobs"), 16, "mine");
    EXPECT_NE(expected, before);
    EXPECT_EQ(rowsOf(wizard.navs()), expected);
    wizard.saveNodes(folder / "saved");
    wizard.openNodes(folder / "saved.txt");
    EXPECT_EQ(wizard.navs().Count(), 71);
}

// --- the node that the keyboard is on ---

namespace {

// "two" is clicked, and the arrow key leads to "inner" below it.
struct BelowTheClickedNode : testing::Test {
    BelowTheClickedNode() {
        wizard.navs().Add(makeNode(2, 1, "F", "two"));
        wizard.navs().Add(makeNode(3, 2, "F", "inner"));
        wizard.navs().DispInTV();
        activate(wizard.window);
        wizard.click("two");
        press(wizard.window, Qt::Key_Down);
        EXPECT_EQ(selected(), "N3");
        EXPECT_EQ(wizard.navs().mLastN, "N2") << "an arrow key is no click";
    }
    [[nodiscard]] std::string selected() { return dynamic_cast<NavTree&>(wizard.tree()).SelectedKey(); }
    void leaveForm(Qt::Key key) {
        Answers answers;
        answers.then("fNav", escape);
        press(wizard.window, key);
        answers.wait();
    }
    Wizard wizard;
};

}  // namespace

TEST_F(BelowTheClickedNode, StaysSelectedWhenItsFormIsClosed) {
    leaveForm(Qt::Key_F2);
    EXPECT_EQ(wizard.navs().mLastN, "N3");
    EXPECT_EQ(selected(), "N3");
    press(wizard.window, Qt::Key_Delete);
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1") << "the child is deleted, and not the branch";
    EXPECT_EQ(selected(), "");
    press(wizard.window, Qt::Key_Delete);
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1");
}

TEST_F(BelowTheClickedNode, StaysSelectedWhenANodeIsAddedBelowIt) {
    leaveForm(Qt::Key_Insert);
    EXPECT_EQ(selected(), "N3");
}

TEST_F(BelowTheClickedNode, StaysSelectedAfterTheCommandsOfThePopup) {
    for (const char letter : {'A', 'E'}) {
        wizard.navs().mLastN = "N2";
        press(wizard.window, Qt::Key_Menu);
        Answers answers;
        answers.then("fNav", escape);
        chooseInPopup(wizard.window, letter);
        answers.wait();
        EXPECT_EQ(selected(), "N3") << letter;
    }
    wizard.navs().mLastN = "N2";
    press(wizard.window, Qt::Key_Menu);
    chooseInPopup(wizard.window, 'D');
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1");
    EXPECT_EQ(wizard.navs().mLastN, "N3");
    EXPECT_EQ(selected(), "");
}

TEST_F(BelowTheClickedNode, IsRememberedWhenTheCommandIsRefused) {
    wizard.navs().Item(3)->setTypeIs("N");
    Answers answers;
    answers.then("message", escape);
    press(wizard.window, Qt::Key_Insert);
    answers.wait();
    EXPECT_EQ(wizard.navs().mLastN, "N3");
}
