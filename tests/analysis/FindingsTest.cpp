// SPDX-License-Identifier: MIT
#include "analysis/NavRules.h"
#include "analysis/WebRules.h"
#include "tests/model/Helpers.h"

// Findings as values: which rule, by its number and field, and which record, by its place.

namespace {

// "3 2 typeIs": place, number of the rule, field; and whether it is a comment only.
template <class Finding>
std::string printed(const Finding& finding) {
    return std::to_string(finding.place) + " " + std::to_string(finding.rule->number) + " " +
           std::string(finding.rule->field) + (finding.rule->isComment ? " comment" : "");
}

Rows inNodes(const clsNavSchemes& navs) {
    Rows rows;
    findInNodes(navs, [&](const NavFinding& finding) {
        rows.push_back(printed(finding) + " of " + std::to_string(finding.record->ID));
    });
    return rows;
}

// What is found in one paragraph of a type, without query and columns or with all fields.
Rows inParagraph(const char* type, bool isFull) {
    clsWebSchemes webs;
    webs.Add(makeParagraph(1, 1));  // of no type: nothing is found in it
    auto paragraph = makeParagraph(31, 1);
    paragraph->typeIs = type;
    if (isFull) {
        paragraph->queryIs = "spW_A";
        paragraph->formIs = 2;
        paragraph->colsAre = "1:2";
    }
    webs.Add(paragraph);
    Rows rows;
    findInParagraphs(webs, [&](const WebFinding& finding) {
        EXPECT_EQ(finding.record->ID, 31);
        rows.push_back(printed(finding));
    });
    return rows;
}

}  // namespace

TEST(Findings, NameRuleFieldAndPlaceInNodes) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F"));
    navs.Add(makeNode(90, 1, "N"));
    navs.Add(makeNode(2, 1, "F"));
    navs.Add(makeNode(3, 1, "G"));
    navs.Add(makeNode(4, 1, "G", "", "spG_A"));
    navs.Add(makeNode(5, 4, "F"));
    navs.Add(makeNode(6, 4, "R"));
    navs.Add(makeNode(7, 6, "N"));
    navs.Add(makeNode(8, 7, "N"));
    navs.Remove("90");
    EXPECT_EQ(inNodes(navs),
              Rows({"1 2 typeIs of 2", "2 3 typeIs of 3", "2 5 queryIs of 3", "3 3 typeIs of 4", "3 3 typeIs of 4",
                    "4 2 typeIs of 5", "5 4 typeIs of 6", "5 5 queryIs of 6", "6 4 typeIs of 7"}));
}

TEST(Findings, OfQueriesInNodesThatTakeNoneNameTheQuery) {
    Rows rows;
    for (const char type : {'F', 'N'})
        forEachBroken(
            navRules, type, NodeFacts{.type = type, .hasQuery = true, .fixedBelow = false, .children = 0},
            [&](const auto& rule) { rows.push_back(std::to_string(rule.number) + " " + std::string(rule.field)); });
    EXPECT_EQ(rows, Rows({"2 typeIs", "5 queryIs", "5 queryIs"}));
}

TEST(Findings, NameRuleFieldAndPlaceInParagraphs) {
    for (const char* type : {"C", "T"}) {
        EXPECT_EQ(inParagraph(type, false), Rows({"1 1 queryIs", "1 3 colsAre"}));
        EXPECT_EQ(inParagraph(type, true), Rows({"1 2 formIs"}));
    }
    for (const char* type : {"H", "I"}) {
        EXPECT_EQ(inParagraph(type, false), Rows({"1 1 queryIs"}));
        EXPECT_EQ(inParagraph(type, true), Rows({"1 3 colsAre"}));
    }
    for (const char* type : {"E", "M"}) {
        EXPECT_EQ(inParagraph(type, false), Rows({"1 1 queryIs"}));
        EXPECT_EQ(inParagraph(type, true), Rows({"1 2 formIs", "1 3 colsAre"}));
    }
    EXPECT_EQ(inParagraph("S", false), Rows({"1 1 queryIs", "1 4 colsAre comment"}));
    EXPECT_EQ(inParagraph("S", true), Rows({"1 2 formIs"}));
}
