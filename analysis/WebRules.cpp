// SPDX-License-Identifier: MIT
#include "analysis/WebRules.h"

#include "model/Integer.h"
#include "model/clsWebSchemes.h"

// The heading of the findings names the navigational scheme here too. That is given.
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

// In the order in which a paragraph's findings are listed. The wording is given, slips included: two blanks after
// "Form#" for E and M, and none after "=>" in the comment on S. Columns that the type does not use are reported
// against rule 3. See "Given, not to be corrected" in docs/architecture.md.
constexpr Rule<clsWebScheme> rules[] = {
    {.types = "CT",
     .number = 1,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> No Query Specifed for (",
     .text = rule1},
    {.types = "CT",
     .number = 2,
     .field = "formIs",
     .isBroken = hasForm,
     .finding = "=> Form# Field is Specified for (",
     .text = rule2},
    {.types = "CT",
     .number = 3,
     .field = "colsAre",
     .isBroken = hasNoColumns,
     .finding = "=> No Column Field Specified for (",
     .text = rule3},

    {.types = "HI",
     .number = 1,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> No Query Specifed for (",
     .text = rule1},
    {.types = "HI",
     .number = 3,
     .field = "colsAre",
     .isBroken = hasColumns,
     .finding = "=> Column Field Specified for (",
     .text = rule3},

    {.types = "EM",
     .number = 1,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> No Query Specifed for (",
     .text = rule1},
    {.types = "EM",
     .number = 2,
     .field = "formIs",
     .isBroken = hasForm,
     .finding = "=> Form#  Field is Specified for (",
     .text = rule2},
    {.types = "EM",
     .number = 3,
     .field = "colsAre",
     .isBroken = hasColumns,
     .finding = "=> Column Field Specified for (",
     .text = rule3},

    {.types = "S",
     .number = 1,
     .field = "queryIs",
     .isBroken = hasNoQuery,
     .finding = "=> No Query Specifed for (",
     .text = rule1},
    {.types = "S",
     .number = 2,
     .field = "formIs",
     .isBroken = hasForm,
     .finding = "=> Form# Field is Specified for (",
     .text = rule2},
    {.types = "S",
     .number = 4,
     .field = "colsAre",
     .isBroken = hasNoColumns,
     .finding = "=>THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified for (",
     .text = rule4,
     .isComment = true},
};

}  // namespace

void findInParagraphs(const clsWebSchemes& webs, const std::function<void(const WebFinding&)>& take) {
    const std::span<const Rule<clsWebScheme>> all(rules);
    std::uint32_t place = 0;
    for (const auto* paragraph : webs.NewEnum()) {
        forEachBroken(all, paragraph->typeIs.letter(), *paragraph, [&](const auto& rule) {
            take({&rule, paragraph, place});
        });
        ++place;
    }
}

void appendFinding(std::string& report, const WebFinding& finding) {
    const auto& paragraph = *finding.record;
    report.append(finding.rule->finding)
        .append(paragraph.typeIs.view())
        .append(")-Type: [ID=")
        .append(keyText(paragraph.ID))
        .append("] ");
    report.append(paragraph.titleIs.view()).append("\r\n").append(finding.rule->text).append("\r\n\r\n");
}
