// SPDX-License-Identifier: MIT
#include "analysis/Reports.h"
#include "tests/model/Helpers.h"

using namespace std::string_literals;

namespace {

const std::string rulesOfNodes =
    "THE RULES FOR FORMULATING NAVIGATIONAL SCHEME:\r\n"
    "\r\n"
    "1. The Root Node should be of Type (F) Only.\r\n"
    "2. The (F) Type Node can have any number (one or more) of (F), (G), (R) or (N)-Type Nodes. Or their "
    "combinations.\r\n"
    "3. The (G)-Type SHOULD have One and Only One Node, which can be of Types (G), (R) or (N).\r\n"
    "4. The (R) and (N) Nodes SHOULD NOT have any Child Nodes.\r\n"
    "5. The Query or Stored Procedure Name should be specified for (G) and (R) types Only.\r\n"
    "\r\n"
    "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\r\n"
    "\r\n";

struct Node {
    std::int32_t id, parent;
    const char* type;
    const char* query;
};

// The report on nodes that are called "node 1", "node 2" … after their IDs, without its head.
std::string findings(std::initializer_list<Node> nodes) {
    clsNavSchemes navs;
    for (const auto& [id, parent, type, query] : nodes)
        navs.Add(makeNode(id, parent, type, "node " + std::to_string(id), query));
    const auto report = CheckNav(navs);
    EXPECT_EQ(report.substr(0, rulesOfNodes.size()), rulesOfNodes);
    return report.substr(rulesOfNodes.size());
}

const std::string navRule2 =
    "RULE #2 Says that there should be fixed number (1 or more) of Child Nodes for Fixed-Type Node.\r\n\r\n";
const std::string navRule3 =
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
    "Node.\r\n\r\n";
const std::string rule4R = "RULE #4 Says that there should be any Child Node for Recurring-Type Node.\r\n\r\n";
const std::string rule4N = "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node.\r\n\r\n";

}  // namespace

TEST(CheckNav, AnEmptySchemeGivesTheHead) {
    EXPECT_EQ(CheckNav(clsNavSchemes()), rulesOfNodes);
}

TEST(CheckNav, ANewSchemeHasARootWithoutChildren) {
    clsNavSchemes navs;
    navs.NewScheme();
    EXPECT_EQ(CheckNav(navs),
              rulesOfNodes + "=> There are no Child Nodes for Fixed-Type: [ID=1] Data Browser\r\n" + navRule2);
}

TEST(CheckNav, ASchemeThatKeepsEveryRuleGivesTheHead) {
    EXPECT_EQ(findings({{1, 0, "F", ""},
                        {2, 1, "F", ""},
                        {3, 2, "N", ""},
                        {4, 1, "G", "spG_A"},
                        {5, 4, "G", "spG_B 1"},
                        {6, 5, "R", "spG_C"},
                        {7, 1, "G", "spG_D"},
                        {8, 7, "N", ""},
                        {9, 1, "R", "spG_E"}}),
              "");
}

TEST(CheckNav, TheSampleBreaksNoRule) {
    clsNavSchemes navs;
    navs.LoadData(SAMPLES "/XST1.txt");
    ASSERT_EQ(navs.Count(), 70);
    EXPECT_EQ(CheckNav(navs), rulesOfNodes);
}

// Every rule that a node of a scheme can break, once; the nodes are not in tree order.
TEST(CheckNav, FindsEachBrokenRule) {
    clsNavSchemes navs;
    navs.Add(makeNode(20, 1, "G", "Customers"));
    navs.Add(makeNode(5, 20, "N", "Customer"));
    navs.Add(makeNode(1, 0, "F", "Top"));
    navs.Add(makeNode(40, 1, "F", "Bare"));
    navs.Add(makeNode(3, 1, "G", "Two below", "spG_Two"));
    navs.Add(makeNode(31, 3, "N", "first"));
    navs.Add(makeNode(30, 3, "R", "second", "spG_R"));
    navs.Add(makeNode(4, 1, "G", "None below", "spG_None"));
    navs.Add(makeNode(6, 1, "G", "Fixed below", "spG_Fixed"));
    navs.Add(makeNode(60, 6, "F", "fixed"));
    navs.Add(makeNode(61, 60, "N", "leaf"));
    navs.Add(makeNode(7, 1, "R", "Parts", "spG_Parts"));
    navs.Add(makeNode(70, 7, "R", "Part"));
    navs.Add(makeNode(8, 1, "N", "List"));
    navs.Add(makeNode(80, 8, "N", "Entry"));
    EXPECT_EQ(
        CheckNav(navs),
        "THE RULES FOR FORMULATING NAVIGATIONAL SCHEME:\r\n"
        "\r\n"
        "1. The Root Node should be of Type (F) Only.\r\n"
        "2. The (F) Type Node can have any number (one or more) of (F), (G), (R) or (N)-Type Nodes. Or their "
        "combinations.\r\n"
        "3. The (G)-Type SHOULD have One and Only One Node, which can be of Types (G), (R) or (N).\r\n"
        "4. The (R) and (N) Nodes SHOULD NOT have any Child Nodes.\r\n"
        "5. The Query or Stored Procedure Name should be specified for (G) and (R) types Only.\r\n"
        "\r\n"
        "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\r\n"
        "\r\n"
        "=> There is no Query Specifed for Generating-Type: [ID=20] Customers\r\n"
        "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they generate "
        "the child branches !\r\n"
        "\r\n"
        "=> There are no Child Nodes for Fixed-Type: [ID=40] Bare\r\n"
        "RULE #2 Says that there should be fixed number (1 or more) of Child Nodes for Fixed-Type Node.\r\n"
        "\r\n"
        "=> There are more than one Child Nodes for Generating-Type: [ID=3] Two below\r\n"
        "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
        "Node.\r\n"
        "\r\n"
        "=> There are no Child Nodes for Generating-Type: [ID=4] None below\r\n"
        "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
        "Node.\r\n"
        "\r\n"
        "=> There is a Fixed-Type Node below the Generating-Type: [ID=6] Fixed below\r\n"
        "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
        "Node.\r\n"
        "\r\n"
        "=> There are Child Nodes for Recurring-Type: [ID=7] Parts\r\n"
        "RULE #4 Says that there should be any Child Node for Recurring-Type Node.\r\n"
        "\r\n"
        "=> There is no Query Specifed for Recurring-Type: [ID=70] Part\r\n"
        "RULE #5 Says that there should be NOT be any query specified for Generating-Type Node.\r\n"
        "\r\n"
        "=> There are Child Nodes for Non-Generating-Type: [ID=8] List\r\n"
        "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node.\r\n"
        "\r\n");
}

TEST(CheckNav, AGeneratingNodeWithoutChildAndQueryGivesTwoFindings) {
    EXPECT_EQ(
        findings({{1, 0, "F", ""}, {12, 1, "G", ""}}),
        "=> There are no Child Nodes for Generating-Type: [ID=12] node 12\r\n" + navRule3 +
            "=> There is no Query Specifed for Generating-Type: [ID=12] node 12\r\n"
            "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they "
            "generate the child branches !\r\n\r\n");
}

TEST(CheckNav, TheRootMayBeOfAnyType) {
    EXPECT_EQ(findings({{1, 0, "N", ""}}), "");
    EXPECT_EQ(findings({{1, 0, "R", "spG_A"}}), "");
    EXPECT_EQ(findings({{1, 0, "G", "spG_A"}, {2, 1, "N", ""}}), "");
}

TEST(CheckNav, OtherTypesAreNotLookedAtButCountAsChildren) {
    EXPECT_EQ(findings({{1, 0, "g", ""}, {2, 1, "f", ""}, {3, 1, "", ""}, {4, 1, "x", "spG_A"}, {5, 4, "n", ""}}),
              "");
    EXPECT_EQ(findings({{1, 0, "F", ""}, {2, 1, "G", "spG_A"}, {3, 2, "f", ""}}), "") << "f is not F";
    EXPECT_EQ(findings({{1, 0, "N", ""}, {2, 1, "g", ""}}),
              "=> There are Child Nodes for Non-Generating-Type: [ID=1] node 1\r\n" + rule4N);
}

TEST(CheckNav, ATypeIsOneLetterExactly) {
    for (const auto& type : {"FF"s, "F "s, " F"s, "FG"s, "F\0"s, "\0F"s, "\0"s, "(F)"s, "\xC6"s}) {
        clsNavSchemes navs;
        navs.Add(makeNode(1, 0, "F"));
        navs.Add(makeNode(2, 1, "G", "text", "spG_A"));
        navs.Add(makeNode(3, 2, type, "text", "spG_A"));
        EXPECT_EQ(CheckNav(navs), rulesOfNodes) << type;
    }
}

TEST(CheckNav, BlanksAreAQuery) {
    EXPECT_EQ(findings({{1, 0, "G", " "}, {2, 1, "R", "  "}}), "");
}

TEST(CheckNav, OnlyDirectChildrenCount) {
    EXPECT_EQ(findings({{1, 0, "G", "spG_A"}, {2, 1, "G", "spG_B"}, {3, 2, "F", ""}, {4, 3, "N", ""}}),
              "=> There is a Fixed-Type Node below the Generating-Type: [ID=2] node 2\r\n" + navRule3);
}

TEST(CheckNav, ANodeThatIsItsOwnParentIsItsOwnChild) {
    EXPECT_EQ(findings({{5, 5, "N", ""}}),
              "=> There are Child Nodes for Non-Generating-Type: [ID=5] node 5\r\n" + rule4N);
    EXPECT_EQ(findings({{5, 5, "F", ""}}), "");
}

TEST(CheckNav, RootsAreChildrenOfANodeWithIDZero) {
    EXPECT_EQ(findings({{0, 7, "R", "spG_A"}, {2, 0, "N", ""}}),
              "=> There are Child Nodes for Recurring-Type: [ID=0] node 0\r\n" + rule4R);
}

TEST(CheckNav, NodesThatCannotBeReachedAreCheckedToo) {
    EXPECT_EQ(findings({{1, 0, "N", ""}, {-8, 99, "F", ""}}),
              "=> There are no Child Nodes for Fixed-Type: [ID=-8] node -8\r\n" + navRule2);
}

// Nodes with the same ID can only arise when IDs change after adding: the key of a node is not its ID.
TEST(CheckNav, ChildrenAreFoundByIDNotByKey) {
    clsNavSchemes navs;
    for (const auto key : {1, 2}) navs.Add(makeNode(key, 9, "N", "twin " + std::to_string(key)));
    navs.Add(makeNode(3, 7, "F", "child"));
    for (const auto key : {1, 2}) navs.Item(key)->ID = 7;
    EXPECT_EQ(CheckNav(navs), rulesOfNodes + "=> There are Child Nodes for Non-Generating-Type: [ID=7] twin 1\r\n" +
                                  rule4N + "=> There are Child Nodes for Non-Generating-Type: [ID=7] twin 2\r\n" +
                                  rule4N + "=> There are no Child Nodes for Fixed-Type: [ID=3] child\r\n" + navRule2);
}

TEST(CheckNav, RemovedNodesAreNoChildren) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "top"));
    navs.Add(makeNode(2, 1, "N", "only child"));
    navs.Remove("2");
    EXPECT_EQ(CheckNav(navs), rulesOfNodes + "=> There are no Child Nodes for Fixed-Type: [ID=1] top\r\n" + navRule2);
}

TEST(CheckNav, TextsStandAsTheyAre) {
    clsNavSchemes navs;
    loadBytes(navs, "7,  a\0b\x1A <i> & \xE9\xA0 \t,F,0\r\n"s);
    EXPECT_EQ(CheckNav(navs),
              rulesOfNodes + "=> There are no Child Nodes for Fixed-Type: [ID=7]   a\0b\x1A <i> & \xE9\xA0 \t\r\n"s +
                  navRule2);
}

TEST(CheckNav, ChangesNothing) {
    clsNavSchemes navs;
    navs.LoadData(SAMPLES "/XST1.txt");
    navs.LoadWeb(SAMPLES "/XST2.txt");
    navs.mLastN = "N4";
    const auto before = savedBytes(navs) + savedBytes(navs.oWebs);
    Screen screen;
    screen.show(navs);
    const auto report = CheckNav(navs);
    EXPECT_EQ(CheckNav(navs), report);
    EXPECT_EQ(savedBytes(navs) + savedBytes(navs.oWebs), before);
    EXPECT_EQ(navs.mLastN, "N4");
    EXPECT_EQ(screen.taken(), Calls());
    for (const auto& node : navs.NewEnum()) EXPECT_EQ(node->tID, 0) << "no renumbering";
}
