// SPDX-License-Identifier: MIT
#include "analysis/NavRules.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

// Each rule on its own, on nodes as plain values: a node of type F or N with a query exists only here.

namespace {

enum class Query { None, Given };
enum class Below { NothingFixed, AFixed };

constexpr auto query = Query::Given;
constexpr auto noQuery = Query::None;
constexpr auto fixedBelow = Below::AFixed;

void appendFindings(std::string& report, const NodeFacts& node, std::int32_t id, const Text& description) {
    forEachBroken(navRules, node.type, node, [&](const auto& rule) { appendFinding(report, rule, id, description); });
}

// What is found in the node 12, "Customers".
std::string findings(char type, Query given, std::int16_t children, Below below = Below::NothingFixed) {
    std::string report;
    appendFindings(
        report,
        {.type = type, .hasQuery = given == Query::Given, .fixedBelow = below == Below::AFixed, .children = children},
        12, "Customers");
    return report;
}

const std::string fixedWithoutChild =
    "=> There are no Child Nodes for Fixed-Type: [ID=12] Customers\r\n"
    "RULE #2 Says that there should be fixed number (1 or more) of Child Nodes for Fixed-Type Node.\r\n\r\n";
const std::string fixedWithQuery =
    "=> There is a Query Specifed for Fixed-Type: [ID=12] Customers\r\n"
    "RULE #5 Says that there should be NOT be any query specified for Fixed-Type Node.\r\n\r\n";
const std::string generatingWithMany =
    "=> There are more than one Child Nodes for Generating-Type: [ID=12] Customers\r\n"
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
    "Node.\r\n\r\n";
const std::string generatingWithoutChild =
    "=> There are no Child Nodes for Generating-Type: [ID=12] Customers\r\n"
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
    "Node.\r\n\r\n";
const std::string generatingWithoutQuery =
    "=> There is no Query Specifed for Generating-Type: [ID=12] Customers\r\n"
    "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they generate the "
    "child branches !\r\n\r\n";
const std::string generatingWithFixed =
    "=> There is a Fixed-Type Node below the Generating-Type: [ID=12] Customers\r\n"
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type "
    "Node.\r\n\r\n";
const std::string recurringWithChild =
    "=> There are Child Nodes for Recurring-Type: [ID=12] Customers\r\n"
    "RULE #4 Says that there should be any Child Node for Recurring-Type Node.\r\n\r\n";
const std::string recurringWithoutQuery =
    "=> There is no Query Specifed for Recurring-Type: [ID=12] Customers\r\n"
    "RULE #5 Says that there should be NOT be any query specified for Generating-Type Node.\r\n\r\n";
const std::string nonGeneratingWithChild =
    "=> There are Child Nodes for Non-Generating-Type: [ID=12] Customers\r\n"
    "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node.\r\n\r\n";
const std::string nonGeneratingWithQuery =
    "=> There is a Query Specifed for Non-Generating-Type: [ID=12] Customers\r\n"
    "RULE #5 Says that there should be NOT be any query specified for Non-Generating-Type Node.\r\n\r\n";

}  // namespace

TEST(NavRules, AFixedNodeHasChildren) {
    EXPECT_EQ(findings('F', noQuery, 0), fixedWithoutChild);
    EXPECT_EQ(findings('F', noQuery, 1), "");
    EXPECT_EQ(findings('F', noQuery, 2, fixedBelow), "");
    EXPECT_EQ(findings('F', noQuery, 32767), "");
}

TEST(NavRules, AFixedNodeHasNoQuery) {
    EXPECT_EQ(findings('F', query, 1), fixedWithQuery);
    EXPECT_EQ(findings('F', query, 0), fixedWithoutChild + fixedWithQuery);
}

TEST(NavRules, AGeneratingNodeHasOneChild) {
    EXPECT_EQ(findings('G', query, 0), generatingWithoutChild);
    EXPECT_EQ(findings('G', query, 1), "");
    EXPECT_EQ(findings('G', query, 2), generatingWithMany);
    EXPECT_EQ(findings('G', query, 32767), generatingWithMany);
}

TEST(NavRules, AGeneratingNodeHasAQuery) {
    EXPECT_EQ(findings('G', noQuery, 1), generatingWithoutQuery);
}

TEST(NavRules, AGeneratingNodeHasNoFixedNodeBelow) {
    EXPECT_EQ(findings('G', query, 1, fixedBelow), generatingWithFixed);
}

TEST(NavRules, FindingsOnAGeneratingNodeHaveTheirOrder) {
    EXPECT_EQ(findings('G', noQuery, 0), generatingWithoutChild + generatingWithoutQuery);
    EXPECT_EQ(findings('G', noQuery, 2, fixedBelow),
              generatingWithMany + generatingWithoutQuery + generatingWithFixed);
}

TEST(NavRules, ARecurringNodeHasNoChild) {
    EXPECT_EQ(findings('R', query, 0), "");
    EXPECT_EQ(findings('R', query, 1), recurringWithChild);
    EXPECT_EQ(findings('R', query, 2, fixedBelow), recurringWithChild);
}

TEST(NavRules, ARecurringNodeHasAQuery) {
    EXPECT_EQ(findings('R', noQuery, 0), recurringWithoutQuery);
    EXPECT_EQ(findings('R', noQuery, 1), recurringWithChild + recurringWithoutQuery);
}

TEST(NavRules, ANonGeneratingNodeHasNoChild) {
    EXPECT_EQ(findings('N', noQuery, 0), "");
    EXPECT_EQ(findings('N', noQuery, 1), nonGeneratingWithChild);
}

TEST(NavRules, ANonGeneratingNodeHasNoQuery) {
    EXPECT_EQ(findings('N', query, 0), nonGeneratingWithQuery);
    EXPECT_EQ(findings('N', query, 1), nonGeneratingWithChild + nonGeneratingWithQuery);
}

TEST(NavRules, OtherTypesAreNotLookedAt) {
    for (int code = -128; code < 128; ++code) {
        const auto type = static_cast<char>(code);
        if (std::string("FGRN").find(type) != std::string::npos) continue;
        EXPECT_EQ(findings(type, query, 2, fixedBelow), "") << code;
        EXPECT_EQ(findings(type, noQuery, 0), "") << code;
    }
}

TEST(NavRules, TextsOfANodeStandAsTheyAre) {
    std::string report = "before\r\n";
    appendFindings(report, {.type = 'N', .hasQuery = false, .fixedBelow = false, .children = 1}, -7,
                   "a\0b \xE9\"<b>, "s);
    EXPECT_EQ(report,
              "before\r\n=> There are Child Nodes for Non-Generating-Type: [ID=-7] a\0b \xE9\"<b>, \r\n"
              "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node.\r\n\r\n"s);
}
