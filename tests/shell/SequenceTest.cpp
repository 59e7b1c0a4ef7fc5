// SPDX-License-Identifier: MIT
#include <QLabel>
#include <QLineEdit>

#include "Helpers.h"

// Commands after each other, as a user gives them.

namespace {

class Sequence : public testing::Test {
  protected:
    const TempFolder folder;
    Wizard wizard;

    void click(const std::string& node) {
        activate(wizard.window);
        wizard.click(node);
    }

    // Saves both schemes, opens what was saved, saves that, and compares: nothing may be lost on the way.
    void expectStable() {
        wizard.saveNodes(folder / "nodes1");
        wizard.saveParagraphs(folder / "paragraphs1");
        wizard.openNodes(folder / "nodes1.txt");
        wizard.openParagraphs(folder / "paragraphs1.txt");
        wizard.saveNodes(folder / "nodes2");
        wizard.saveParagraphs(folder / "paragraphs2");
        EXPECT_EQ(bytesOf(folder / "nodes2.txt"), bytesOf(folder / "nodes1.txt"));
        EXPECT_EQ(bytesOf(folder / "paragraphs2.txt"), bytesOf(folder / "paragraphs1.txt"));
    }
};

std::string titlesOf(const QTableView& grid) {
    std::string titles;
    for (int row = 0; row < grid.model()->rowCount(); ++row)
        titles += (row == 0 ? "" : ", ") + grid.model()->index(row, 3).data().toString().toStdString();
    return titles;
}

}  // namespace

TEST_F(Sequence, SamplesSurviveEverythingThatChangesNothing) {
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    click("Hire desk");
    EXPECT_EQ(titlesOf(wizard.paragraphGrid()), "Opening hours and hire rates");
    click("Bicycles by type");
    EXPECT_EQ(titlesOf(wizard.paragraphGrid()), "Number of bicycles of each type, Bicycles by type");
    click("A type of bicycle");
    EXPECT_EQ(titlesOf(wizard.paragraphGrid()), "About this type, Pictures of this type");
    EXPECT_EQ(wizard.navs().mLastN, "N11");
    wizard.choose("NR");  // they are in order already
    EXPECT_EQ(wizard.paragraphGrid().model()->rowCount(), 105);
    wizard.choose("NC");
    expectStable();
    EXPECT_EQ(bytesOf(folder / "nodes1.txt"), bytesOf(sample("XST1.txt")));
    EXPECT_EQ(bytesOf(folder / "paragraphs1.txt"), bytesOf(sample("XST2.txt")));
}

TEST_F(Sequence, RenumberedSchemesAreSavedInTreeOrder) {
    wizard.openNodes(
        writeBytes(folder / "in.txt",
                   "40,Top,F,0,,,leaf\r\n7,late,N,12,,,a\r\n12,list,G,40,spG_L 5,Text,b,9\r\n3,more,F,40\r\n"));
    wizard.openParagraphs(
        writeBytes(folder / "web.txt", "5,7,1,on late,spW_A,Lkey,H,4\r\n4,40,1,on top,spW_B 1,,S,0,All,x\r\n"));
    click("list");
    wizard.choose("NR");
    expectStable();
    EXPECT_EQ(bytesOf(folder / "nodes1.txt"),
              "\"ID\",\"descriptionIs\",\"typeIs\",\"parentIs\",\"queryIs\",\"parmIs\",\"iconIs\",\"roleIs\"\r\n"
              "1,\"Top\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n"
              "2,\"list\",\"G\",1,\"spG_L 5\",\"Text\",\"b\",\"9\"\r\n"
              "3,\"late\",\"N\",2,\"\",\"\",\"a\",\"\"\r\n"
              "4,\"more\",\"F\",1,\"\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(
        bytesOf(folder / "paragraphs1.txt"),
        "\"ID\",\"XST1\",\"seqNo\",\"titleIs\",\"queryIs\",\"parmIs\",\"typeIs\",\"formIs\",\"colsAre\",\"extra\"\r\n"
        "5,3,1,\"on late\",\"spW_A\",\"Lkey\",\"H\",4,\"\",\"\"\r\n"
        "4,1,1,\"on top\",\"spW_B 1\",\"\",\"S\",0,\"All\",\"x\"\r\n");
}

TEST_F(Sequence, NewDiscardsALargeSchemeWithoutAsking) {
    std::string nodes = "1,Top,F,0\r\n";
    std::string paragraphs;
    for (int id = 2; id <= 20'000; ++id) {
        nodes += std::to_string(id) + ",node " + std::to_string(id) + ",F," + std::to_string(id / 2) + "\r\n";
        paragraphs += std::to_string(id) + "," + std::to_string(id) + ",1,title\r\n";
    }
    wizard.openNodes(writeBytes(folder / "in.txt", nodes));
    wizard.openParagraphs(writeBytes(folder / "web.txt", paragraphs));
    EXPECT_EQ(wizard.nodeGrid().model()->rowCount(), 20'000);
    EXPECT_EQ(wizard.paragraphGrid().model()->rowCount(), 19'999);
    click("node 3");
    wizard.choose("NN");
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|"}));
    EXPECT_EQ(wizard.navs().oWebs.Count(), 0);
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"  Data Browser"}));
    EXPECT_EQ(shownRows(wizard.nodeGrid()), Rows({"1|Data Browser|F|0|||leaf|"}));
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows());
}

TEST_F(Sequence, CollapseClosesWhatTheUserOpened) {
    wizard.openNodes(sample("XST1.txt"));
    click("Stock");
    click("Suppliers");
    EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "N40");
    const auto paragraphs = shownRows(wizard.paragraphGrid());
    wizard.choose("NC");
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser", "  + Hire desk", "  + Workshop", "  + Fleet",
                                              "  + Stock", "  + Customers", "  + Accounts", "  + Staff"}));
    EXPECT_EQ(wizard.navs().mLastN, "1");
    EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "");
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), paragraphs);
    EXPECT_EQ(wizard.nodeGrid().model()->rowCount(), 70);
}

// The key "1" is the key of no node, whatever their IDs are.
TEST_F(Sequence, CollapseSelectsNothingWhateverTheIDs) {
    for (const std::string nodes : {"1,Top,F,0\r\n11,a,F,1\r\n111,b,N,11\r\n", "1,Top,F,0\r\n0,a,N,1\r\n-1,b,N,1\r\n",
                                    "7,Top,F,0\r\n1,a,F,7\r\n10,b,N,1\r\n", "5,only,F,0\r\n", "2,loop,F,2\r\n", ""}) {
        wizard.openNodes(writeBytes(folder / "in.txt", nodes));
        if (wizard.tree().model()->rowCount() != 0) click("Data Browser");
        wizard.choose("NC");
        EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "") << nodes;
        EXPECT_FALSE(wizard.tree().selectionModel()->hasSelection()) << nodes;
        wizard.choose("NC");
        EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "") << nodes;
    }
}

TEST_F(Sequence, NewAfterAClickSelectsNothingThatIsGone) {
    wizard.openNodes(sample("XST1.txt"));
    click("Stock");
    wizard.choose("NN");
    EXPECT_EQ(wizard.navs().mLastN, "N36");
    EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "");
    wizard.openNodes(sample("XST1.txt"));
    EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "N36") << "the last click is remembered";
}

// The same orphans must be listed the second time, when they have lost their former node.
TEST_F(Sequence, OrphansOfAnOldParagraphFileAreListedTwice) {
    wizard.openParagraphs(sample("XST2.txt"));
    wizard.openNodes(writeBytes(folder / "in.txt", "1,Top,F,0\r\n2,two,F,1\r\n70,seventy,N,2\r\n"));
    Rows connected;
    for (const auto& paragraph : wizard.navs().oWebs.NewEnum())
        if (paragraph->XST1 == 1 || paragraph->XST1 == 2 || paragraph->XST1 == 70)
            connected.push_back(std::to_string(paragraph->ID));
    EXPECT_EQ(connected, Rows({"1", "2", "3", "105"}));

    wizard.navs().DispOrphans();
    const auto orphans = shownRows(wizard.paragraphGrid());
    ASSERT_EQ(orphans.size(), 101U);
    EXPECT_EQ(orphans.front(), "4|0|1|Today at the hire desk|spW_DaySheet|Today|H|0|");
    EXPECT_EQ(orphans.back(), "104|0|1|Days off by person and month|spW_HolidayCrossTab||S|0|All");
    wizard.navs().DispOrphans();
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), orphans);

    click("two");
    click("seventy");
    EXPECT_EQ(titlesOf(wizard.paragraphGrid()), "Staff with their certificates");
    wizard.choose("NR");
    EXPECT_EQ(wizard.paragraphGrid().model()->rowCount(), 105);
    click("two");
    click("seventy");
    EXPECT_EQ(titlesOf(wizard.paragraphGrid()), "Staff with their certificates") << "it followed its node to 3";
    EXPECT_EQ(wizard.navs().mLastN, "N3");
}

// "three" keeps its number; the node above it gets another one.
TEST_F(Sequence, RenumberThenF2BelowANodeThatHadAnotherNumber) {
    wizard.openNodes(writeBytes(folder / "nodes", "1,Top,F,0\r\n5,two,F,1\r\n3,three,N,5\r\n9,four,N,1\r\n"));
    wizard.choose("NR");
    click("two");
    click("three");
    EXPECT_EQ(wizard.navs().mLastN, "N3");
    Answers answers;
    answers.then("fNav", [](QDialog& form) {
        EXPECT_EQ(find<QLabel>(form, "lblParent").text(), text("Parent Node: [2]  two"));
        EXPECT_EQ(find<QLineEdit>(form, "txtDescription").text(), text("three"));
        escape(form);
    });
    press(wizard.window, Qt::Key_F2);
}

TEST_F(Sequence, RenumberThenDelete) {
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
    wizard.choose("NR");
    click("Hire desk");
    wizard.navs().DelNode("2");
    wizard.navs().DispInTV();
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser", "  + Workshop", "  + Fleet", "  + Stock",
                                              "  + Customers", "  + Accounts", "  + Staff"}));
    EXPECT_EQ(wizard.navs().Count(), 70 - 17);
    EXPECT_EQ(wizard.nodeGrid().model()->rowCount(), 70 - 17);
    EXPECT_EQ(wizard.navs().oWebs.Count(), 105 - 28);
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows());
    EXPECT_EQ(wizard.navs().cTreeView->SelectedKey(), "") << "the clicked node is gone";
    wizard.choose("NR");
    EXPECT_EQ(wizard.navs().Item(2)->descriptionIs, "Workshop");
    expectStable();
}

TEST_F(Sequence, RenumberThenDeleteOfANodeThatHadAnotherNumber) {
    wizard.openNodes(writeBytes(folder / "in.txt", "1,Top,F,0\r\n5,five,F,1\r\n3,three,N,5\r\n9,nine,N,1\r\n"));
    wizard.choose("NR");
    click("nine");
    EXPECT_EQ(wizard.navs().mLastN, "N4");
    press(wizard.window, Qt::Key_Delete);
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser", "  + five"}));
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Top|F|0||||", "2|five|F|1||||", "3|three|N|2||||"}));
}
