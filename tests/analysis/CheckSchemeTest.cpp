// SPDX-License-Identifier: MIT
#include "analysis/Reports.h"
#include "tests/model/Helpers.h"

using namespace std::string_literals;

namespace {

const std::string rulesOfScheme =
    "THE RULES :\r\n"
    "\r\n"
    "1. All Paragraphs must have Query Field Specified.\r\n"
    "2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n"
    "3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n"
    "4. Column Field CAN be specified for (S)-Type Paragraphs.\r\n"
    "5. Not a RULE, but it is cleaner to delete all Orphaned Paragraphs. Right-Click on XST2-Grid to see Orphans.\r\n"
    "\r\n"
    "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\r\n"
    "\r\n";
const std::string orphans = "THE ORPHANS: \r\n\r\n";

const std::string webRule1 = "RULE #1. All Paragraphs must have Query Field Specified.\r\n\r\n";
const std::string webRule2 = "RULE #2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n\r\n";
const std::string webRule3 = "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n\r\n";
const std::string webRule4 = "RULE #4. Column Field CAN be specified for (S)-Type Paragraphs.\r\n\r\n";

clsWebSchemes::Pointer typedParagraph(std::int32_t id, const Text& type, const Text& query, std::int32_t form,
                                      const Text& columns, const Text& title = "Photos") {
    auto paragraph = ::makeParagraph(id, 1, 1, title);
    paragraph->typeIs = type;
    paragraph->queryIs = query;
    paragraph->formIs = form;
    paragraph->colsAre = columns;
    return paragraph;
}

// The findings on one paragraph, 31, "Photos", of an existing node.
std::string findings(const Text& type, const Text& query, std::int32_t form, const Text& columns) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}});
    navs.oWebs.Add(typedParagraph(31, type, query, form, columns));
    const auto report = CheckScheme(navs);
    EXPECT_EQ(report.substr(0, rulesOfScheme.size()), rulesOfScheme);
    EXPECT_TRUE(report.ends_with(orphans)) << "it has its node";
    return report.substr(rulesOfScheme.size(), report.size() - rulesOfScheme.size() - orphans.size());
}

// What comes after the heading of the orphans.
std::string orphansIn(const std::string& report) {
    const auto start = report.find(orphans);
    EXPECT_NE(start, std::string::npos);
    return start == std::string::npos ? "no heading" : report.substr(start + orphans.size());
}

std::string withType(const std::string& finding, const std::string& type) {
    return finding + type + ")-Type: [ID=31] Photos\r\n";
}

}  // namespace

TEST(CheckScheme, AnEmptySchemeGivesTheHeadAndTheHeadingOfTheOrphans) {
    clsNavSchemes navs;
    EXPECT_EQ(CheckScheme(navs),
              "THE RULES :\r\n"
              "\r\n"
              "1. All Paragraphs must have Query Field Specified.\r\n"
              "2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n"
              "3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n"
              "4. Column Field CAN be specified for (S)-Type Paragraphs.\r\n"
              "5. Not a RULE, but it is cleaner to delete all Orphaned Paragraphs. Right-Click on XST2-Grid to see "
              "Orphans.\r\n"
              "\r\n"
              "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\r\n"
              "\r\n"
              "THE ORPHANS: \r\n"
              "\r\n");
}

TEST(CheckScheme, ASchemeThatKeepsEveryRuleGivesNoFinding) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}});
    int id = 0;
    for (const char* type : {"C", "T"}) navs.oWebs.Add(typedParagraph(++id, type, "spW_A", 0, "1:2"));
    for (const char* type : {"H", "I"}) navs.oWebs.Add(typedParagraph(++id, type, "spW_B 1", 5, ""));
    for (const char* type : {"E", "M"}) navs.oWebs.Add(typedParagraph(++id, type, "spW_C", 0, ""));
    navs.oWebs.Add(typedParagraph(++id, "S", "spW_D", 0, "All"));
    EXPECT_EQ(CheckScheme(navs), rulesOfScheme + orphans);
}

TEST(CheckScheme, TheSamplesBreakNoRule) {
    clsNavSchemes navs;
    navs.LoadData(SAMPLES "/XST1.txt");
    navs.LoadWeb(SAMPLES "/XST2.txt");
    ASSERT_EQ(navs.oWebs.Count(), 105);
    EXPECT_EQ(CheckScheme(navs), rulesOfScheme + orphans);
}

// Every rule of every group, once.
TEST(CheckScheme, FindsEachBrokenRule) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}});
    auto& webs = navs.oWebs;
    webs.Add(typedParagraph(31, "T", "spW_A", 0, "", "Photos"));
    webs.Add(typedParagraph(9, "C", "", 0, "1:2", "Bars"));
    webs.Add(typedParagraph(8, "C", "spW_B", 1, "1:2", "More bars"));
    webs.Add(typedParagraph(7, "H", "", 3, "", "Header"));
    webs.Add(typedParagraph(6, "I", "spW_C", 0, "2", "Picture"));
    webs.Add(typedParagraph(5, "E", "", 0, "", "Action"));
    webs.Add(typedParagraph(4, "M", "spW_D", 2, "", "Chapters"));
    webs.Add(typedParagraph(3, "E", "spW_E", 0, "All", "Action 2"));
    webs.Add(typedParagraph(2, "S", "", 0, "All", "Table"));
    webs.Add(typedParagraph(1, "S", "spW_F", 7, "All", "Table 2"));
    webs.Add(typedParagraph(-1, "S", "spW_G", 0, "", "Table 3"));
    auto orphan = typedParagraph(40, "S", "spW_H", 0, "1", "Old list");
    orphan->XST1 = 77;
    webs.Add(orphan);
    EXPECT_EQ(
        CheckScheme(navs),
        rulesOfScheme +
            "=> No Column Field Specified for (T)-Type: [ID=31] Photos\r\n"
            "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n"
            "\r\n"
            "=> No Query Specifed for (C)-Type: [ID=9] Bars\r\n"
            "RULE #1. All Paragraphs must have Query Field Specified.\r\n"
            "\r\n"
            "=> Form# Field is Specified for (C)-Type: [ID=8] More bars\r\n"
            "RULE #2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n"
            "\r\n"
            "=> No Query Specifed for (H)-Type: [ID=7] Header\r\n"
            "RULE #1. All Paragraphs must have Query Field Specified.\r\n"
            "\r\n"
            "=> Column Field Specified for (I)-Type: [ID=6] Picture\r\n"
            "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n"
            "\r\n"
            "=> No Query Specifed for (E)-Type: [ID=5] Action\r\n"
            "RULE #1. All Paragraphs must have Query Field Specified.\r\n"
            "\r\n"
            "=> Form#  Field is Specified for (M)-Type: [ID=4] Chapters\r\n"
            "RULE #2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n"
            "\r\n"
            "=> Column Field Specified for (E)-Type: [ID=3] Action 2\r\n"
            "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.\r\n"
            "\r\n"
            "=> No Query Specifed for (S)-Type: [ID=2] Table\r\n"
            "RULE #1. All Paragraphs must have Query Field Specified.\r\n"
            "\r\n"
            "=> Form# Field is Specified for (S)-Type: [ID=1] Table 2\r\n"
            "RULE #2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.\r\n"
            "\r\n"
            "=>THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified for (S)-Type: [ID=-1] "
            "Table 3\r\n"
            "RULE #4. Column Field CAN be specified for (S)-Type Paragraphs.\r\n"
            "\r\n"
            "THE ORPHANS: \r\n"
            "\r\n"
            "[ID=40] Old list\r\n");
}

TEST(CheckScheme, EachGroupHasItsFindingsInTheirOrder) {
    for (const std::string type : {"C", "T"}) {
        EXPECT_EQ(findings(type, "", 2, ""), withType("=> No Query Specifed for (", type) + webRule1 +
                                                 withType("=> Form# Field is Specified for (", type) + webRule2 +
                                                 withType("=> No Column Field Specified for (", type) + webRule3);
        EXPECT_EQ(findings(type, "spW_A", 0, "1:2"), "");
    }
    for (const std::string type : {"H", "I"}) {
        EXPECT_EQ(findings(type, "", 2, "1"), withType("=> No Query Specifed for (", type) + webRule1 +
                                                  withType("=> Column Field Specified for (", type) + webRule3);
        EXPECT_EQ(findings(type, "spW_A", 2, ""), "") << "these may have a form";
        EXPECT_EQ(findings(type, "spW_A", 0, ""), "");
    }
    for (const std::string type : {"E", "M"}) {
        EXPECT_EQ(findings(type, "", 2, "1"), withType("=> No Query Specifed for (", type) + webRule1 +
                                                  withType("=> Form#  Field is Specified for (", type) + webRule2 +
                                                  withType("=> Column Field Specified for (", type) + webRule3);
        EXPECT_EQ(findings(type, "spW_A", 0, ""), "");
    }
    EXPECT_EQ(
        findings("S", "", 2, ""),
        withType("=> No Query Specifed for (", "S") + webRule1 + withType("=> Form# Field is Specified for (", "S") +
            webRule2 +
            withType("=>THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified for (", "S") +
            webRule4);
    EXPECT_EQ(findings("S", "spW_A", 0, "1"), "");
}

TEST(CheckScheme, BlanksAreContent) {
    EXPECT_EQ(findings("C", " ", 0, " "), "");
    EXPECT_EQ(findings("S", " ", 0, " "), "");
    EXPECT_EQ(findings("M", " ", 0, " "), withType("=> Column Field Specified for (", "M") + webRule3);
}

TEST(CheckScheme, FormsBelowOneAreNone) {
    for (const char* type : {"C", "T", "E", "M", "S"}) {
        const Text columns = *type == 'E' || *type == 'M' ? "" : "1";
        EXPECT_EQ(findings(type, "spW_A", -1, columns), "");
        EXPECT_NE(findings(type, "spW_A", 1, columns), "");
    }
}

TEST(CheckScheme, OtherTypesAreNotLookedAt) {
    for (const auto& type : {""s, "x"s, "c"s, "h"s, "s"s, "CT"s, "HI"s, "S "s, "\0"s, "(S)"s}) {
        EXPECT_EQ(findings(type, "", 5, ""), "") << type;
        EXPECT_EQ(findings(type, "", 5, "1"), "") << type;
    }
}

TEST(CheckScheme, OrphansOfAnyTypeAreListedInTheOrderOfAdding) {
    clsNavSchemes navs;
    addNodes(navs, {{3, 0}});
    addParagraphs(navs.oWebs, {{9, 4}, {2, 3}, {5, 0}, {-1, -3}});
    EXPECT_EQ(CheckScheme(navs), rulesOfScheme + orphans + "[ID=9] \r\n[ID=5] \r\n[ID=-1] \r\n");
    EXPECT_EQ(nodesOf(navs.oWebs), "9>0O 2>3C 5>0O -1>0O");
}

TEST(CheckScheme, WithoutNodesEveryParagraphIsAnOrphan) {
    clsNavSchemes navs;
    navs.oWebs.Add(::makeParagraph(1, 1, 1, "a"));
    navs.oWebs.Add(::makeParagraph(2, 2, 1, "b"));
    EXPECT_EQ(orphansIn(CheckScheme(navs)), "[ID=1] a\r\n[ID=2] b\r\n");
}

TEST(CheckScheme, TwiceListsTheSameOrphans) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}});
    addParagraphs(navs.oWebs, {{10, 2}, {11, 9}, {12, 1}, {13, 8}});
    const auto report = CheckScheme(navs);
    EXPECT_EQ(orphansIn(report), "[ID=11] \r\n[ID=13] \r\n");
    EXPECT_EQ(nodesOf(navs.oWebs), "10>2C 11>0O 12>1C 13>0O");
    EXPECT_EQ(CheckScheme(navs), report);
    EXPECT_EQ(nodesOf(navs.oWebs), "10>2C 11>0O 12>1C 13>0O");
}

TEST(CheckScheme, GivesAnOrphanTheNodeThatItOnceHad) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}});
    addParagraphs(navs.oWebs, {{10, 2}});
    EXPECT_EQ(orphansIn(CheckScheme(navs)), "");
    navs.Remove("2");
    EXPECT_EQ(orphansIn(CheckScheme(navs)), "[ID=10] \r\n");
    EXPECT_EQ(nodesOf(navs.oWebs), "10>2O");
}

TEST(CheckScheme, MarksTheNodesAsNumbered) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {6, 1}});
    static_cast<void>(CheckScheme(navs));
    for (const auto& node : navs.NewEnum()) EXPECT_EQ(node->tID, node->ID);
}

TEST(CheckScheme, LetsParagraphsFollowNodesOfAnotherNumber) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {8, 1}});
    navs.Item(8)->tID = 5;  // its former ID
    addParagraphs(navs.oWebs, {{10, 5}, {11, 8}});
    EXPECT_EQ(orphansIn(CheckScheme(navs)), "[ID=11] \r\n");
    EXPECT_EQ(nodesOf(navs.oWebs), "10>8C 11>0O");
}

TEST(CheckScheme, ListsOrphansAfterItsFindings) {
    clsNavSchemes navs;
    navs.oWebs.Add(typedParagraph(31, "T", "spW_A", 0, ""));
    EXPECT_EQ(CheckScheme(navs), rulesOfScheme + "=> No Column Field Specified for (T)-Type: [ID=31] Photos\r\n" +
                                     webRule3 + orphans + "[ID=31] Photos\r\n");
}

TEST(CheckScheme, RefreshesNoGrid) {
    Screen screen;
    clsNavSchemes navs;
    screen.show(navs);
    addNodes(navs, {{1, 0}});
    addParagraphs(navs.oWebs, {{10, 1}, {11, 9}});
    static_cast<void>(CheckScheme(navs));
    EXPECT_EQ(screen.taken(), Calls());
    navs.oWebs.DispInGrid(1);
    EXPECT_EQ(screen.taken(), Calls{"paragraphs 10>1"});
}

TEST(CheckScheme, TextsStandAsTheyAre) {
    clsNavSchemes navs;
    loadBytes(navs.oWebs, "7,1,1, a\0\x1A<br> \xE9 ,,,S,0,All\r\n"s);
    EXPECT_EQ(CheckScheme(navs), rulesOfScheme + "=> No Query Specifed for (S)-Type: [ID=7]  a\0\x1A<br> \xE9 \r\n"s +
                                     webRule1 + orphans + "[ID=7]  a\0\x1A<br> \xE9 \r\n"s);
}
