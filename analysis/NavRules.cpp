// SPDX-License-Identifier: MIT
#include "analysis/NavRules.h"

#include "model/Integer.h"

const std::string_view navRulesInWords =
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

namespace {

bool hasNoChild(const NodeFacts& node) {
    return node.children == 0;
}
bool hasAChild(const NodeFacts& node) {
    return node.children > 0;
}
bool hasManyChildren(const NodeFacts& node) {
    return node.children > 1;
}
bool hasFixedBelow(const NodeFacts& node) {
    return node.fixedBelow;
}
bool hasQuery(const NodeFacts& node) {
    return node.hasQuery;
}
bool hasNoQuery(const NodeFacts& node) {
    return !node.hasQuery;
}

constexpr std::string_view oneChildOnly =
    "RULE #3 Says that there should be ONE AND ONLY ONE Child Node (of type-G, R or N) for Generating-Type Node.";

// The wording is given, slips included: rule 4 says "any" but forbids children, and rule 5 names another type for a
// recurring node. See "Given, not to be corrected" in docs/architecture.md.
constexpr Rule<NodeFacts> rules[] = {
    {.types = "F",
     .number = 2,
     .field = "typeIs",
     .isBroken = hasNoChild,
     .finding = "=> There are no Child Nodes for Fixed-Type: [ID=",
     .text = "RULE #2 Says that there should be fixed number (1 or more) of Child Nodes for Fixed-Type Node."},
    {.types = "F",
     .number = 5,
     .field = "queryIs",
     .isBroken = hasQuery,
     .finding = "=> There is a Query Specifed for Fixed-Type: [ID=",
     .text = "RULE #5 Says that there should be NOT be any query specified for Fixed-Type Node."},

    {.types = "G",
     .number = 3,
     .field = "typeIs",
     .isBroken = hasManyChildren,
     .finding = "=> There are more than one Child Nodes for Generating-Type: [ID=",
     .text = oneChildOnly},
    {.types = "G",
     .number = 3,
     .field = "typeIs",
     .isBroken = hasNoChild,
     .finding = "=> There are no Child Nodes for Generating-Type: [ID=",
     .text = oneChildOnly},
    {.types = "G",
     .number = 5,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> There is no Query Specifed for Generating-Type: [ID=",
     .text = "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they "
             "generate the child branches !"},
    {.types = "G",
     .number = 3,
     .field = "typeIs",
     .isBroken = hasFixedBelow,
     .finding = "=> There is a Fixed-Type Node below the Generating-Type: [ID=",
     .text = oneChildOnly},

    {.types = "R",
     .number = 4,
     .field = "typeIs",
     .isBroken = hasAChild,
     .finding = "=> There are Child Nodes for Recurring-Type: [ID=",
     .text = "RULE #4 Says that there should be any Child Node for Recurring-Type Node."},
    {.types = "R",
     .number = 5,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> There is no Query Specifed for Recurring-Type: [ID=",
     .text = "RULE #5 Says that there should be NOT be any query specified for Generating-Type Node."},

    {.types = "N",
     .number = 4,
     .field = "typeIs",
     .isBroken = hasAChild,
     .finding = "=> There are Child Nodes for Non-Generating-Type: [ID=",
     .text = "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node."},
    {.types = "N",
     .number = 5,
     .field = "queryIs",
     .isBroken = hasQuery,
     .finding = "=> There is a Query Specifed for Non-Generating-Type: [ID=",
     .text = "RULE #5 Says that there should be NOT be any query specified for Non-Generating-Type Node."},
};

}  // namespace

constinit const std::span<const Rule<NodeFacts>> navRules(rules);

void appendFinding(std::string& report, const Rule<NodeFacts>& rule, std::int32_t id, const Text& description) {
    report.append(rule.finding).append(keyText(id)).append("] ").append(description.view()).append("\r\n");
    report.append(rule.text).append("\r\n\r\n");
}
