// SPDX-License-Identifier: MIT
#include "analysis/WebRules.h"

#include "analysis/Rule.h"
#include "model/Integer.h"

// The heading of the findings is that of the navigational scheme here too.
const std::string_view webRulesInWords =
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

namespace {

bool hasNoQuery(const clsWebScheme& paragraph) {
    return paragraph.queryIs.empty();
}
bool hasForm(const clsWebScheme& paragraph) {
    return paragraph.formIs > 0;
}
bool hasColumns(const clsWebScheme& paragraph) {
    return !paragraph.colsAre.empty();
}
bool hasNoColumns(const clsWebScheme& paragraph) {
    return paragraph.colsAre.empty();
}

constexpr std::string_view rule1 = "RULE #1. All Paragraphs must have Query Field Specified.";
constexpr std::string_view rule2 = "RULE #2. Form# Field CAN be specified for (H) or (I)-Type Paragraphs Only.";
constexpr std::string_view rule3 = "RULE #3. Column Field SHOULD be specified for (C), and (T)-Type Paragraphs.";
constexpr std::string_view rule4 = "RULE #4. Column Field CAN be specified for (S)-Type Paragraphs.";

// In the order of the findings on one paragraph. The wording is that of the product, slips included: two blanks after
// "Form#" for E and M, and none after "=>" in the comment on S. Columns that nobody reads are held against rule 3.
constexpr Rule<clsWebScheme> rules[] = {
    {"CT", hasNoQuery, "=> No Query Specifed for (", rule1},
    {"CT", hasForm, "=> Form# Field is Specified for (", rule2},
    {"CT", hasNoColumns, "=> No Column Field Specified for (", rule3},

    {"HI", hasNoQuery, "=> No Query Specifed for (", rule1},
    {"HI", hasColumns, "=> Column Field Specified for (", rule3},

    {"EM", hasNoQuery, "=> No Query Specifed for (", rule1},
    {"EM", hasForm, "=> Form#  Field is Specified for (", rule2},
    {"EM", hasColumns, "=> Column Field Specified for (", rule3},

    {"S", hasNoQuery, "=> No Query Specifed for (", rule1},
    {"S", hasForm, "=> Form# Field is Specified for (", rule2},
    {"S", hasNoColumns, "=>THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified for (", rule4},
};
const RulesByType<clsWebScheme> rulesByType(rules);

}  // namespace

void appendFindings(std::string& report, const clsWebScheme& paragraph) {
    const char type = paragraph.typeIs.letter();
    for (const auto* rule : rulesByType.of(type)) {
        if (!rule->isBroken(paragraph)) continue;
        report.append(rule->finding)
            .append(1, type)
            .append(")-Type: [ID=")
            .append(keyText(paragraph.ID))
            .append("] ");
        report.append(paragraph.titleIs.view()).append("\r\n").append(rule->text).append("\r\n\r\n");
    }
}
