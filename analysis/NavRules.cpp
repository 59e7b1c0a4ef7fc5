// SPDX-License-Identifier: MIT
#include "analysis/NavRules.h"

#include <algorithm>

#include "analysis/Rule.h"
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

// In the order of the findings on one node. The wording of the rules is that of the product, slips included: with
// "any" rule 4 forbids children, and rule 5 for a recurring node speaks of another type.
constexpr Rule<NodeFacts> rules[] = {
    {"F", hasNoChild, "=> There are no Child Nodes for Fixed-Type: [ID=",
     "RULE #2 Says that there should be fixed number (1 or more) of Child Nodes for Fixed-Type Node."},
    {"F", hasQuery, "=> There is a Query Specifed for Fixed-Type: [ID=",
     "RULE #5 Says that there should be NOT be any query specified for Fixed-Type Node."},

    {"G", hasManyChildren, "=> There are more than one Child Nodes for Generating-Type: [ID=", oneChildOnly},
    {"G", hasNoChild, "=> There are no Child Nodes for Generating-Type: [ID=", oneChildOnly},
    {"G", hasNoQuery, "=> There is no Query Specifed for Generating-Type: [ID=",
     "RULE #5 Says that there should be query specified for Generating-Type Node. Or else, how will they generate "
     "the child branches !"},
    {"G", hasFixedBelow, "=> There is a Fixed-Type Node below the Generating-Type: [ID=", oneChildOnly},

    {"R", hasAChild, "=> There are Child Nodes for Recurring-Type: [ID=",
     "RULE #4 Says that there should be any Child Node for Recurring-Type Node."},
    {"R", hasNoQuery, "=> There is no Query Specifed for Recurring-Type: [ID=",
     "RULE #5 Says that there should be NOT be any query specified for Generating-Type Node."},

    {"N", hasAChild, "=> There are Child Nodes for Non-Generating-Type: [ID=",
     "RULE #4 Says that there should be any Child Node for Non-Generating-Type Node."},
    {"N", hasQuery, "=> There is a Query Specifed for Non-Generating-Type: [ID=",
     "RULE #5 Says that there should be NOT be any query specified for Non-Generating-Type Node."},
};
const RulesByType<NodeFacts> rulesByType(rules);

}  // namespace

bool breaksARule(const NodeFacts& node) {
    return std::ranges::any_of(rulesByType.of(node.type), [&](const auto* rule) { return rule->isBroken(node); });
}

void appendFindings(std::string& report, const NodeFacts& node, std::int32_t id, const Text& description) {
    for (const auto* rule : rulesByType.of(node.type)) {
        if (!rule->isBroken(node)) continue;
        report.append(rule->finding).append(keyText(id)).append("] ").append(description.view()).append("\r\n");
        report.append(rule->text).append("\r\n\r\n");
    }
}
