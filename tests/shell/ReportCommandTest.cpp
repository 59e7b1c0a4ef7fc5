// SPDX-License-Identifier: MIT
#include "ReportText.h"

namespace {

std::string shownIn(QDialog& window) {
    return textOf(find<QPlainTextEdit>(window, "Text1")).toStdString();
}

// A wizard with one finding and one query in each scheme, and an orphan.
struct WizardWithFindings : Wizard {
    WizardWithFindings() {
        navs().Item(1)->descriptionIs = "Top";
        navs().Add(makeNode(7, 1, "G", "Customers <all>", "spG_Customers 5", "Lkey"));
        for (const auto& [id, node] : {std::pair{31, 1}, {40, 9}}) {
            auto paragraph = makeParagraph(id, node, 1, id == 31 ? "Photos" : "Caf\xE9 list");
            paragraph->typeIs = id == 31 ? "T" : "H";
            paragraph->queryIs = "spW_" + std::to_string(id);
            navs().oWebs.Add(paragraph);
        }
        navs().DispInTV();
        navs().DisplayFullWeb();
    }
};

const std::string navReport =
    "THE RULES FOR FORMULATING NAVIGATIONAL SCHEME:\n"
    "\n"
    "1. The Root Node should be of Type (F) Only.\n"
    "2. The (F) Type Node can have any number (one or more) of (F), (G), (R) or (N)-Type Nodes. Or their "
    "combinations.\n"
    "3. The (G)-Type SHOULD have One and Only One Node, which can be of Types (G), (R) or (N).\n"
    "4. The (R) and (N) Nodes SHOULD NOT have any Child Nodes.\n"
    "5. The Query or Stored Procedure Name should be specified for (G) and (R) types Only.\n"
    "\n"
    "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\n"
    "\n";
const std::string navFinding =
    "=> There are no Child Nodes for Generating-Type: [ID=7] Customers <all>\n"
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type Node.\n"
    "\n";
const std::string navToDo =
    "THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\n"
    "\n"
    "1. Select 'Analysis of Nav. Scheme'. Correct anomalies, if any.\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\n"
    "3. Save Navigation Scheme to Text File.\n"
    "4. Upload that Text File to your Database as Table XST1, with Identity Column as 'ID'\n"
    "5. Code the following Queries / Stored Procedures. These are two-field Queries, First\n"
    "   field is (ID), second is Name or description, that will be displayed in Treeview Control.\n"
    "   For Example: spG_Customers: SELECT ID, NAME FROM CUSTOMERS ORDER BY NAME \n"
    "\n"
    "  ID: Query/Stored Procedure & Parameters\n"
    "\n"
    "007: spG_Customers 5   (Parameter = Long Integer)   (with Constant Parameter: 5)\n";
const std::string webReport =
    "THE RULES :\n"
    "\n"
    "1. All Paragraphs must have Query Field Specified.\n"
    "2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\n"
    "3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\n"
    "4. Column Field CAN be specified for (S)-Type Paragraphs.\n"
    "5. Not a RULE, but it is cleaner to delete all Orphaned Paragraphs. Right-Click on XST2-Grid to see Orphans.\n"
    "\n"
    "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\n"
    "\n";
const std::string webFinding =
    "=> No Column Field Specified for (T)-Type: [ID=31] Photos\n"
    "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\n"
    "\n";
const std::string webToDo =
    "THE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\n"
    "\n"
    "1. Select 'Analysis of Web Scheme'. Correct anomalies, if any.\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\n"
    "3. Save Web Scheme to Text File.\n"
    "4. Upload that Text File to your Database as Table XST2, with Identity Column as 'ID'\n"
    "5. Code the following Queries / Stored Procedures. These are multi-field Queries, First\n"
    "   field Should be named (ID).\n"
    "   For Example: spW_Customers: SELECT CUSTID AS [ID], CUSTOMERNAME AS [Customer Name], ADD as [Address], \n"
    "   PHONE AS [Phone No], CONTACT AS [Contact Person] FROM CUSTOMERS ORDER BY CUSTOMERNAME \n"
    "\n"
    "  ID: Query/Stored Procedure & Parameters & Comments\n"
    "\n"
    "031: spW_31   (Parameter = None) <One field-name SHOULD be prefixed with 'FILE'>\n"
    "040: spW_40   (Parameter = None)\n";

}  // namespace

TEST(ReportCommand, EachMenuItemShowsItsReport) {
    WizardWithFindings wizard;
    const std::pair<const char*, std::string> reports[] = {
        {"NA", navReport + navFinding},
        {"NT", navToDo},
        {"WA", webReport + webFinding + "THE ORPHANS: \n\n[ID=40] Caf\xC3\xA9 list\n"},
        {"WT", webToDo},
        {"NA", navReport + navFinding},
    };
    const QDialog* shared = nullptr;
    for (const auto& [letters, report] : reports) {
        Answers answers;
        answers.then("fOutput", [&, &report = report](QDialog& window) {
            activate(window);
            EXPECT_EQ(shownIn(window), report);
            EXPECT_TRUE(window.isModal());
            EXPECT_EQ(window.parentWidget(), &wizard.window);
            EXPECT_EQ(window.size(), QSize(pixels(10965, window), pixels(5760, window))) << "as the first time";
            EXPECT_EQ(QApplication::focusWidget(), &find<QPlainTextEdit>(window, "Text1"));
            EXPECT_TRUE(!shared || shared == &window) << "one window for all reports";
            shared = &window;
            QTest::keyClicks(QApplication::focusWidget(), text("typed"));
            EXPECT_EQ(shownIn(window), "typed" + report);
            window.resize(window.width() - 50, window.height() - 40);
            EXPECT_TRUE(QTest::qWaitFor([&, &expected = report] { return shownIn(window) == expected; }, patience));
            escape(window);
        });
        choose(wizard.window, letters);
        answers.wait();
        EXPECT_FALSE(shared->isVisible());
        EXPECT_EQ(shownIn(const_cast<QDialog&>(*shared)), "") << "the report is dropped";
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    EXPECT_EQ(wizard.window.findChildren<QDialog*>().size(), 1);
}

TEST(ReportCommand, TheWindowIsMadeWithTheFirstReport) {
    Wizard wizard;
    EXPECT_EQ(wizard.window.findChild<QDialog*>(), nullptr);
}

TEST(ReportCommand, TheSamplesBreakNoRule) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    for (const auto& [letters, report] :
         {std::pair<const char*, std::string>{"NA", navReport}, {"WA", webReport + "THE ORPHANS: \n\n"}}) {
        Answers answers;
        answers.then("fOutput", [&report = report](QDialog& window) {
            EXPECT_EQ(shownIn(window), report);
            escape(window);
        });
        choose(wizard.window, letters);
    }
}

TEST(ReportCommand, NothingIsRedrawn) {
    WizardWithFindings wizard;
    const auto tree = shownRows(wizard.tree());
    const auto nodes = shownRows(wizard.nodeGrid());
    const Rows paragraphs = {"31|1|1|Photos|spW_31||T|0|", "40|9|1|Caf\xC3\xA9 list|spW_40||H|0|"};
    ASSERT_EQ(shownRows(wizard.paragraphGrid()), paragraphs);
    for (const char* letters : {"NA", "NT", "WA", "WT"}) {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, letters);
    }
    EXPECT_EQ(shownRows(wizard.tree()), tree);
    EXPECT_EQ(shownRows(wizard.nodeGrid()), nodes);
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), paragraphs) << "the grid still shows the orphan's node";
    EXPECT_EQ(nodesOf(wizard.navs().oWebs), "31>1C 40>0O");
    wizard.navs().DisplayFullWeb();
    EXPECT_EQ(shownRows(wizard.paragraphGrid()),
              Rows({"31|1|1|Photos|spW_31||T|0|", "40|0|1|Caf\xC3\xA9 list|spW_40||H|0|"}));
}

// The grid still shows the node that the orphan had.
TEST(ReportCommand, ARightClickAfterTheWebAnalysisTakesWhatTheGridShows) {
    WizardWithFindings wizard;
    {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, "WA");
    }
    activate(wizard.window);
    auto& grid = wizard.paragraphGrid();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(1, 0)).center());
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, grid.visualRect(grid.model()->index(0, 0)).center());
    press(wizard.window, Qt::Key_Escape);
    EXPECT_EQ(wizard.window.sPopKey + "|" + wizard.window.pPopKey, "40|9");
    Answers answers;
    answers.then("fWeb", escape);
    find<QAction>(wizard.window, "mnuEditP").trigger();
    answers.wait();
    EXPECT_EQ(shownRows(grid), Rows()) << "node 9 has no paragraphs any more";
}

TEST(ReportCommand, TheCloseBoxClosesItToo) {
    WizardWithFindings wizard;
    for (const char* letters : {"WT", "NT"}) {
        Answers answers;
        answers.then("fOutput", [&](QDialog& window) {
            EXPECT_EQ(shownIn(window), *letters == 'W' ? webToDo : navToDo);
            window.close();
        });
        choose(wizard.window, letters);
    }
    EXPECT_TRUE(wizard.window.isVisible());
}

TEST(ReportCommand, F1InItShowsTheHelpOfTheProgram) {
    Wizard wizard;
    Answers answers;
    answers
        .then("fOutput",
              [](QDialog& report) {
                  press(report, Qt::Key_F1);
                  escape(report);
              })
        .then("message", reading(helpIsMissingFrom(folderOfProgram())));
    choose(wizard.window, "NA");
}

TEST(ReportCommand, EscInItDoesNothingToTheMainWindow) {
    Wizard wizard;
    wizard.tree().setFocus();
    Answers answers;
    answers.then("fOutput", escape);
    choose(wizard.window, "NA");
    answers.wait();
    EXPECT_TRUE(wizard.window.isVisible());
    activate(wizard.window);
    EXPECT_EQ(QApplication::focusWidget(), &wizard.tree());
}
