// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QPlainTextEdit>
#include <regex>

#include "EditHelpers.h"
#include "ReportText.h"

// The page "All keys" of the help: each key that it names is pressed, in the part of the program that it names.

namespace {

constexpr auto ctrl = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;
constexpr auto alt = Qt::AltModifier;

// The keys of the page, below the headings of its parts. Whoever adds one to the page adds a test here.
const Rows keysOfThePage = {"[Main window]",
                            "Alt+F, Alt+N, Alt+W",
                            "Tab, Shift+Tab",
                            "menu key, Shift+F10",
                            "F1",  //
                            "[Tree]",
                            "Up, Down, Page Up, Page Down",
                            "Home, End",
                            "letters and digits",
                            "Right or +, Left or -",
                            "*",  //
                            "Ctrl+C",
                            "Enter",
                            "Ins",
                            "F2",
                            "Del",  //
                            "[Grids]",
                            "Up, Down, Page Up, Page Down",
                            "Left, Right",
                            "Home, End",
                            "Ctrl+Home, Ctrl+End",  //
                            "letters and digits",
                            "Ctrl+C",  //
                            "[Forms]",
                            "Enter, Tab",
                            "Shift+Tab",
                            "Left, Right, Home, End",
                            "Ctrl+A, Ctrl+C, Ctrl+V",  //
                            "Up, Down, Home, End, or a letter",
                            "F3",
                            "Esc",
                            "F1, F2, F4, F5, F7 to F11",  //
                            "[Questions and messages]",
                            "Enter, Esc",
                            "Alt+Y, Alt+N",  //
                            "[Report window]",
                            "Up, Down, Left, Right, Page Up, Page Down",
                            "Home, End",
                            "Ctrl+Home, Ctrl+End",  //
                            "Ctrl+A, Ctrl+C",
                            "Esc",  //
                            "[File dialogs]",
                            "Enter",
                            "Tab",
                            "Esc"};

class KeysPage : public testing::Test {
  protected:
    KeysPage() {
        wizard.openNodes(sample("XST1.txt"));
        wizard.openParagraphs(sample("XST2.txt"));
        activate(wizard.window);
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { press(wizard.window, key, modifiers); }

    /// Types into a tree or a grid, as a new search.
    void search(const std::string& letters) {
        QTest::qWait(QApplication::keyboardInputInterval() + 100);
        for (const auto letter : letters) QTest::keyClick(wizard.window.windowHandle(), letter);
    }

    [[nodiscard]] std::string node() { return wizard.tree().currentIndex().data().toString().toStdString(); }
    /// The current cell of a grid: row and column from 0, and its text.
    static std::string cell(const QTableView& grid) {
        const auto at = grid.currentIndex();
        return std::to_string(at.row()) + "," + std::to_string(at.column()) + " " +
               at.data().toString().toStdString();
    }
    static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }
    static std::string focusName() {
        const auto* focus = QApplication::focusWidget();
        return focus ? focus->objectName().toStdString() : "none";
    }

    /// Opens the form of the node "Hires going out today", a generating one, and does this there; then closes it.
    void inForm(const Answers::Answer& what) {
        wizard.click("Hire desk");
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        Answers answers;
        answers.then("fNav", [&](QDialog& form) {
            what(form);
            if (form.isVisible()) press(form, Qt::Key_Escape);
        });
        key(Qt::Key_F2);
    }

    Wizard wizard;
};

class KeysInReport : public KeysPage {
  protected:
    /// Opens the report of the analysis of the nodes and does this there, with the cursor at its beginning; then
    /// closes the report.
    void inReport(const std::function<void(QDialog& report, QPlainTextEdit& text)>& what) {
        Answers answers;
        answers.then("fOutput", [&](QDialog& report) {
            press(report, Qt::Key_Home, ctrl);
            what(report, find<QPlainTextEdit>(report, "Text1"));
            press(report, Qt::Key_Escape);
            EXPECT_FALSE(report.isVisible());
        });
        choose(wizard.window, "NA");
    }
    /// Where the cursor is: line and column from 0.
    static std::pair<int, int> placeIn(const QPlainTextEdit& text) {
        return {text.textCursor().blockNumber(), text.textCursor().positionInBlock()};
    }
};

}  // namespace

TEST(KeysOfThePage, AreThoseThatAreTestedHere) {
    const auto page = bytesOf(std::filesystem::path(SAMPLES).parent_path() / "help" / "keys.html");
    const std::regex row("<tr><t([hd])>(.*?)</t[hd]><t[hd]>");
    Rows keys;
    for (std::sregex_iterator at(page.begin(), page.end(), row), end; at != end; ++at)
        keys.push_back((*at)[1] == "h" ? "[" + (*at)[2].str() + "]" : (*at)[2].str());
    EXPECT_EQ(keys, keysOfThePage);
}

// --- main window ---

TEST_F(KeysPage, AltAndALetterOpenAMenuInWhichALetterSelects) {
    for (const auto& [letter, menu] :
         {std::pair{Qt::Key_F, "mnuFile"}, {Qt::Key_N, "mnuNavigation"}, {Qt::Key_W, "mnuDisplay"}}) {
        key(letter, alt);
        EXPECT_EQ(openPopup(), menu);
        key(Qt::Key_Escape);
        EXPECT_EQ(openPopup(), "");
        key(Qt::Key_Escape);  // leaves the menu bar, too
    }
    key(Qt::Key_Home);
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_GT(shownRows(wizard.tree()).size(), 9U);
    key(Qt::Key_N, alt);
    key(Qt::Key_C);
    EXPECT_EQ(shownRows(wizard.tree()).size(), 8U) << "Collapse Nodes";
}

TEST_F(KeysPage, TabGoesAroundTheWindowBothWays) {
    Rows there{focusName()};
    for (int i = 0; i < 3; ++i) {
        key(Qt::Key_Tab);
        there.push_back(focusName());
    }
    EXPECT_EQ(there, Rows({"myTree", "flexNav", "flexWeb", "myTree"}));
    Rows back;
    for (int i = 0; i < 3; ++i) {
        key(Qt::Key_Tab, shift);
        back.push_back(focusName());
    }
    EXPECT_EQ(back, Rows({"flexWeb", "flexNav", "myTree"}));
}

TEST_F(KeysPage, TheMenuKeyOpensAPopupMenuWhoseFirstCommandEnterRuns) {
    for (const auto& [menuKey, modifiers] :
         {std::pair{Qt::Key_Menu, Qt::KeyboardModifiers()}, {Qt::Key_F10, shift}}) {
        wizard.tree().setFocus();
        key(Qt::Key_Home);
        key(menuKey, modifiers);
        EXPECT_EQ(openPopup(), "mnuPopUp");
        Answers answers;
        answers.then("fNav", escape);
        key(Qt::Key_Return);
        answers.wait();

        wizard.paragraphGrid().setFocus();
        key(Qt::Key_Down);
        key(menuKey, modifiers);
        EXPECT_EQ(openPopup(), "mnuWPopUp");
        key(Qt::Key_Escape);
    }
    wizard.nodeGrid().setFocus();
    key(Qt::Key_Menu);
    EXPECT_EQ(openPopup(), "") << "the upper grid has none";
}

// --- tree ---

TEST_F(KeysPage, ArrowsAndPagesGoThroughTheTree) {
    key(Qt::Key_Home);
    EXPECT_EQ(node(), "Data Browser");
    key(Qt::Key_Down);
    EXPECT_EQ(node(), "Hire desk");
    key(Qt::Key_Up);
    EXPECT_EQ(node(), "Data Browser");
    key(Qt::Key_Asterisk);
    key(Qt::Key_PageDown);
    const auto below = node();
    EXPECT_NE(below, "Data Browser");
    EXPECT_NE(below, "Hire desk");
    key(Qt::Key_PageUp);
    EXPECT_EQ(node(), "Data Browser");
}

TEST_F(KeysPage, TheFirstKeySelectsTheRootWhileNothingIsSelected) {
    EXPECT_EQ(node(), "");
    key(Qt::Key_End);
    EXPECT_EQ(node(), "Data Browser");
}

TEST_F(KeysPage, HomeAndEndGoToTheEndsOfWhatIsOpen) {
    key(Qt::Key_Home);
    for (const auto modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(ctrl)}) {
        key(Qt::Key_End, modifiers);
        EXPECT_EQ(node(), "Staff");
        key(Qt::Key_Home, modifiers);
        EXPECT_EQ(node(), "Data Browser");
    }
    key(Qt::Key_Asterisk);
    key(Qt::Key_End);
    EXPECT_EQ(node(), "Training certificates");
}

TEST_F(KeysPage, TypingFindsTheNextNodeThatIsNotInAClosedBranch) {
    key(Qt::Key_Home);
    search("sta");
    EXPECT_EQ(node(), "Staff");
    search("Sto");
    EXPECT_EQ(node(), "Stock");
    search("Suppliers");
    EXPECT_EQ(node(), "Staff") << "that is as far as the letters lead: Suppliers is in a closed branch";
    key(Qt::Key_Home);
    key(Qt::Key_Asterisk);
    search("Supp");
    EXPECT_EQ(node(), "Suppliers");
    search("a hire o");
    EXPECT_EQ(node(), "A hire of that customer") << "blanks count";
}

TEST_F(KeysPage, ALetterGoesFromOneNodeToTheNext) {
    key(Qt::Key_Home);
    Rows found;
    for (int i = 0; i < 3; ++i) {
        search("s");
        found.push_back(node());
    }
    EXPECT_EQ(found, Rows({"Stock", "Staff", "Stock"}));
}

TEST_F(KeysPage, RightAndPlusOpenABranchLeftAndMinusCloseIt) {
    key(Qt::Key_Home);
    key(Qt::Key_Down);
    for (const auto& [open, close] : {std::pair{Qt::Key_Right, Qt::Key_Left}, {Qt::Key_Plus, Qt::Key_Minus}}) {
        key(open);
        EXPECT_TRUE(wizard.tree().isExpanded(wizard.tree().currentIndex()));
        EXPECT_EQ(node(), "Hire desk");
        key(close);
        EXPECT_FALSE(wizard.tree().isExpanded(wizard.tree().currentIndex()));
        EXPECT_EQ(node(), "Hire desk");
    }
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    EXPECT_EQ(node(), "Today at a glance");
    key(Qt::Key_Left);
    EXPECT_EQ(node(), "Hire desk");
}

TEST_F(KeysPage, TheStarOpensAll) {
    key(Qt::Key_Home);
    key(Qt::Key_Asterisk);
    EXPECT_EQ(shownRows(wizard.tree()).size(), 70U);
}

TEST_F(KeysPage, CtrlCCopiesTheNode) {
    key(Qt::Key_Home);
    key(Qt::Key_End);
    key(Qt::Key_C, ctrl);
    EXPECT_EQ(clipboard(), "Staff");
}

TEST_F(KeysPage, EnterOnANodeDoesWhatAClickDoes) {
    key(Qt::Key_Home);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_TRUE(wizard.tree().isExpanded(wizard.tree().currentIndex()));
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows({"3|2|1|Opening hours and hire rates|spW_HireRates||H|0|"}));
    EXPECT_EQ(wizard.navs().mLastN, "N2");
}

TEST_F(KeysPage, InsF2AndDelEditTheTree) {
    key(Qt::Key_Home);
    key(Qt::Key_End);
    for (const auto& [command, title] : {std::pair{Qt::Key_Insert, "New"}, {Qt::Key_F2, "Staff"}}) {
        Answers answers;
        answers.then("fNav", [wanted = std::string(title)](QDialog& form) {
            EXPECT_EQ(valueOf(form, "txtDescription"), wanted);
            press(form, Qt::Key_Escape);
        });
        key(command);
        answers.wait();
        if (command == Qt::Key_Insert) key(Qt::Key_End);
    }
    const auto before = wizard.navs().Count();
    key(Qt::Key_Delete);
    EXPECT_EQ(before - wizard.navs().Count(), 5) << "Staff and the four nodes below it, without asking";
}

// --- grids ---

TEST_F(KeysPage, ArrowsPagesAndEndsGoThroughTheGrids) {
    for (auto* grid : {&wizard.nodeGrid(), &wizard.paragraphGrid()}) {
        grid->setFocus();
        const auto rows = grid->model()->rowCount();
        const auto columns = grid->model()->columnCount();
        ASSERT_GT(rows, 60);
        const auto at = [&] { return std::pair(grid->currentIndex().row(), grid->currentIndex().column()); };
        key(Qt::Key_Home, ctrl);
        EXPECT_EQ(at(), std::pair(0, 0));
        key(Qt::Key_Down);
        EXPECT_EQ(at(), std::pair(1, 0));
        key(Qt::Key_Right);
        EXPECT_EQ(at(), std::pair(1, 1));
        key(Qt::Key_Up);
        EXPECT_EQ(at(), std::pair(0, 1));
        key(Qt::Key_Left);
        EXPECT_EQ(at(), std::pair(0, 0));
        key(Qt::Key_PageDown);
        const auto page = at().first;
        EXPECT_GT(page, 2);
        EXPECT_EQ(at().second, 0);
        key(Qt::Key_End);
        EXPECT_EQ(at(), std::pair(page, columns - 1));
        EXPECT_TRUE(grid->viewport()->rect().intersects(grid->visualRect(grid->currentIndex())))
            << "it scrolls there";
        key(Qt::Key_Home);
        EXPECT_EQ(at(), std::pair(page, 0));
        key(Qt::Key_PageUp);
        EXPECT_EQ(at(), std::pair(0, 0));
        key(Qt::Key_End, ctrl);
        EXPECT_EQ(at(), std::pair(rows - 1, columns - 1));
    }
}

TEST_F(KeysPage, TypingFindsARowByTheCurrentColumn) {
    auto& nodes = wizard.nodeGrid();
    nodes.setFocus();
    search("41");
    EXPECT_EQ(cell(nodes), "40,0 41");
    key(Qt::Key_Right);
    search("staf");
    EXPECT_EQ(cell(nodes), "65,1 Staff");
    auto& paragraphs = wizard.paragraphGrid();
    paragraphs.setFocus();
    search("10");
    EXPECT_EQ(cell(paragraphs), "9,0 10");
    search("103");
    EXPECT_EQ(cell(paragraphs), "102,0 103");
    for (int i = 0; i < 4; ++i) key(Qt::Key_Right);
    search("spW_Close");
    EXPECT_EQ(cell(paragraphs), "37,4 spW_ClosePaidJobs");
}

TEST_F(KeysPage, CtrlCCopiesTheCurrentCell) {
    auto& grid = wizard.paragraphGrid();
    grid.setFocus();
    key(Qt::Key_Down);
    for (int i = 0; i < 3; ++i) key(Qt::Key_Right);
    key(Qt::Key_C, ctrl);
    EXPECT_EQ(clipboard(), "Our shop");
}

// --- forms ---

TEST_F(KeysPage, EnterAndTabGoThroughTheFieldsOfAForm) {
    inForm([&](QDialog& form) {
        activate(form);
        Rows fields{focusName()};
        for (const auto next : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Return}) {
            press(form, next);
            fields.push_back(focusName());
        }
        EXPECT_EQ(fields, Rows({"txtID", "txtDescription", "lstType", "txtQuery"}));
        EXPECT_EQ(find<QLineEdit>(form, "txtQuery").palette().color(QPalette::Base), QColor(0xC0, 0xC0, 0xFF));
        press(form, Qt::Key_Tab, shift);
        EXPECT_EQ(focusName(), "lstType");
    });
}

TEST_F(KeysPage, AFieldIsEditedAsAnywhere) {
    inForm([&](QDialog& form) {
        enterUntil(form, "txtDescription");
        auto& field = find<QLineEdit>(form, "txtDescription");
        press(form, Qt::Key_Home);
        EXPECT_EQ(field.cursorPosition(), 0);
        press(form, Qt::Key_Right);
        EXPECT_EQ(field.cursorPosition(), 1);
        press(form, Qt::Key_Left);
        EXPECT_EQ(field.cursorPosition(), 0);
        press(form, Qt::Key_End);
        EXPECT_EQ(field.cursorPosition(), 21);
        press(form, Qt::Key_A, ctrl);
        EXPECT_EQ(field.selectedText(), text("Hires going out today"));
        press(form, Qt::Key_C, ctrl);
        EXPECT_EQ(clipboard(), "Hires going out today");
        press(form, Qt::Key_End);
        press(form, Qt::Key_V, ctrl);
        EXPECT_EQ(field.text(), text("Hires going out todayHires going out today"));
        press(form, Qt::Key_A, ctrl);
        press(form, Qt::Key_V, ctrl);
    });
}

TEST_F(KeysPage, KeysSelectAnEntryOfAList) {
    inForm([&](QDialog& form) {
        enterUntil(form, "lstType");
        Rows chosen;
        for (const auto next : {Qt::Key_Home, Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_R, Qt::Key_G}) {
            QTest::qWait(QApplication::keyboardInputInterval() + 100);
            press(form, next);
            chosen.push_back(valueOf(form, "lstType").substr(0, 1));
        }
        EXPECT_EQ(chosen, Rows({"F", "G", "N", "R", "R", "G"}));
    });
}

TEST_F(KeysPage, F3SavesAndEscAsksBeforeItForgets) {
    inForm([&](QDialog& form) {
        enter(form, "txtDescription", "Going out");
        press(form, Qt::Key_F3);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(wizard.navs().Item("4")->descriptionIs, "Going out");
        for (const auto idle : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F4, Qt::Key_F5, Qt::Key_F7, Qt::Key_F8, Qt::Key_F9,
                                Qt::Key_F10, Qt::Key_F11}) {
            press(form, idle);
            EXPECT_TRUE(form.isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &form);
            EXPECT_EQ(valueOf(form, "txtDescription"), "Going out");
        }
        enter(form, "txtDescription", "Out");
        Answers answers;
        answers.then("question", [](QDialog& question) {
            press(question, Qt::Key_Escape);
            EXPECT_TRUE(question.isVisible()) << "Esc is no answer";
            press(question, Qt::Key_N, alt);
        });
        press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(wizard.navs().Item("4")->descriptionIs, "Going out");
}

// --- questions and messages ---

TEST_F(KeysPage, EnterAndEscCloseAMessage) {
    key(Qt::Key_Home);
    for (const auto closes : {Qt::Key_Return, Qt::Key_Escape}) {
        Answers answers;
        answers.then("message", [closes](QDialog& message) { press(message, closes); });
        key(Qt::Key_Delete);
    }
    EXPECT_EQ(wizard.navs().Count(), 70);
}

TEST_F(KeysPage, AltYAnswersYes) {
    inForm([&](QDialog& form) {
        enter(form, "txtDescription", "Out");
        Answers answers;
        answers.then("question", [](QDialog& question) { press(question, Qt::Key_Y, alt); });
        press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(wizard.navs().Item("4")->descriptionIs, "Out");
}

// --- report window ---

TEST_F(KeysInReport, MoveTheCursorAndEscClosesIt) {
    inReport([](QDialog& report, QPlainTextEdit& edit) {
        using Place = std::pair<int, int>;
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, Place> moves[] = {
            {Qt::Key_Home, ctrl, {0, 0}}, {Qt::Key_Right, {}, {0, 1}},
            {Qt::Key_Left, {}, {0, 0}},   {Qt::Key_Down, {}, {1, 0}},
            {Qt::Key_Down, {}, {2, 0}},   {Qt::Key_End, {}, {2, 44}},  // 1. The Root Node should be of Type (F) Only.
            {Qt::Key_Home, {}, {2, 0}},   {Qt::Key_Up, {}, {1, 0}},
        };
        for (const auto& [key, modifiers, place] : moves) {
            press(report, key, modifiers);
            EXPECT_EQ(placeIn(edit), place) << key;
        }
        press(report, Qt::Key_End, ctrl);
        EXPECT_TRUE(edit.textCursor().atEnd());
        EXPECT_GT(placeIn(edit).first, 8);
        press(report, Qt::Key_Home, ctrl);
        EXPECT_EQ(placeIn(edit), Place(0, 0));
    });
}

TEST_F(KeysInReport, PagesGoDownAndUp) {
    inReport([](QDialog& report, QPlainTextEdit& edit) {
        report.resize(report.width(), 120);
        QTest::qWait(20);
        press(report, Qt::Key_PageDown);
        EXPECT_GT(placeIn(edit).first, 1);
        press(report, Qt::Key_PageUp);
        EXPECT_EQ(placeIn(edit).first, 0);
    });
}

TEST_F(KeysInReport, CtrlACtrlCCopyAll) {
    inReport([](QDialog& report, QPlainTextEdit& edit) {
        press(report, Qt::Key_A, ctrl);
        press(report, Qt::Key_C, ctrl);
        EXPECT_TRUE(clipboard().starts_with("THE RULES FOR FORMULATING NAVIGATIONAL SCHEME:\n\n1. "));
        EXPECT_EQ(text(clipboard()), textOf(edit));
    });
}

TEST_F(KeysPage, F1AsksForTheHelpInReportIntroductionAndMainWindow) {
    const auto asks = [](QDialog& dialog) {
        press(dialog, Qt::Key_F1);
        press(dialog, Qt::Key_Escape);
    };
    for (const auto& [letters, window] : {std::pair{"NA", "fOutput"}, {"FI", "fIntro"}}) {
        Answers answers;
        answers.then(window, asks).then("message", escape);  // there is no help file here
        choose(wizard.window, letters);
        answers.wait();
    }
    Answers answers;
    answers.then("message", escape);
    key(Qt::Key_F1);
}

// --- file dialogs ---

TEST_F(KeysPage, EnterOpensAFileAndEscLeavesTheDialog) {
    const TempFolder folder;
    writeBytes(folder / "one.txt", "7,\"Top\",\"F\",0,\"\",\"\",\"\",\"\"\r\n");
    {
        Answers answers;
        answers.then("GetOpenName", [](QDialog& dialog) {
            const auto at = [&] { return dialog.focusWidget()->objectName(); };
            const auto first = at();
            EXPECT_EQ(first, text("fileNameEdit"));
            press(dialog, Qt::Key_Tab);
            EXPECT_NE(at(), first);
            press(dialog, Qt::Key_Escape);
        });
        choose(wizard.window, "FON");
    }
    EXPECT_EQ(wizard.navs().Count(), 70);
    wizard.openNodes(folder / "one.txt");
    EXPECT_EQ(wizard.navs().Count(), 1);
}
