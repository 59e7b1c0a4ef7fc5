// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "analysis/Reports.h"
#include "tests/model/Helpers.h"

// The findings of both analyses on random schemes, compared with those of a plain search through all records.

namespace {

// The findings of a report, without the words of the rules: "[ID=7]: There are ...".
Rows findingsIn(const std::string& report) {
    Rows findings;
    for (std::size_t at = 0; (at = report.find("=>", at)) != std::string::npos; at += 2) {
        const auto id = report.find("[ID=", at);
        findings.push_back(report.substr(id, report.find(']', id) + 1 - id) + report.substr(at, id - at));
    }
    return findings;
}

std::string label(std::int32_t id) {
    return "[ID=" + std::to_string(id) + "]";
}

Rows plainFindings(const clsNavSchemes& navs) {
    Rows findings;
    for (const auto& node : navs.NewEnum()) {
        int children = 0;
        bool fixedBelow = false;
        for (const auto& other : navs.NewEnum())
            if (other->parentIs == node->ID) {
                ++children;
                if (other->typeIs() == "F") fixedBelow = true;
            }
        const auto found = [&](const std::string& text) { findings.push_back(label(node->ID) + "=> " + text); };
        if (node->typeIs() == "F") {
            if (children == 0) found("There are no Child Nodes for Fixed-Type: ");
        } else if (node->typeIs() == "G") {
            if (children > 1) found("There are more than one Child Nodes for Generating-Type: ");
            if (children == 0) found("There are no Child Nodes for Generating-Type: ");
            if (node->queryIs().empty()) found("There is no Query Specifed for Generating-Type: ");
            if (fixedBelow) found("There is a Fixed-Type Node below the Generating-Type: ");
        } else if (node->typeIs() == "R") {
            if (children > 0) found("There are Child Nodes for Recurring-Type: ");
            if (node->queryIs().empty()) found("There is no Query Specifed for Recurring-Type: ");
        } else if (node->typeIs() == "N") {
            if (children > 0) found("There are Child Nodes for Non-Generating-Type: ");
        }
    }
    return findings;
}

Rows plainFindings(const clsWebSchemes& webs) {
    Rows findings;
    for (const auto& paragraph : webs.NewEnum()) {
        const auto type = std::string(paragraph->typeIs.view());
        const auto found = [&](const std::string& text) {
            findings.push_back(label(paragraph->ID) + "=>" + text + " for (" + type + ")-Type: ");
        };
        if (type.size() != 1 || std::string("CHEMIST").find(type) == std::string::npos) continue;
        if (paragraph->queryIs.empty()) found(" No Query Specifed");
        if (paragraph->formIs > 0 && type != "H" && type != "I")
            found(type == "E" || type == "M" ? " Form#  Field is Specified" : " Form# Field is Specified");
        const bool hasColumns = !paragraph->colsAre.empty();
        if ((type == "C" || type == "T") && !hasColumns) found(" No Column Field Specified");
        if (type == "S" && !hasColumns)
            found("THIS IS NOT A VIOLATION OF RULE. JUST A COMMENT: No Column Field Specified");
        if ((type == "H" || type == "I" || type == "E" || type == "M") && hasColumns)
            found(" Column Field Specified");
    }
    return findings;
}

// Loops, twins, nodes without a parent and gaps included.
void drawNodes(clsNavSchemes& navs) {
    const auto count = *rc::gen::inRange(0, 25);
    for (int key = 1; key <= count; ++key)
        navs.Add(makeNode(key, *rc::gen::inRange(-1, 12), *rc::gen::element("F", "G", "R", "N", "", "f", "FG"),
                          "text", *rc::gen::element("", " ", "spG_A")));
    for (int key = 1; key <= count; ++key) {
        const auto whatBecomesOfIt = *rc::gen::inRange(0, 8);
        if (whatBecomesOfIt == 0) navs.Remove(std::to_string(key));
        if (whatBecomesOfIt == 1) navs.Item(key)->ID = *rc::gen::inRange(0, 12);
    }
}

void drawParagraphs(clsWebSchemes& webs) {
    const auto count = *rc::gen::inRange(0, 25);
    for (int id = 1; id <= count; ++id) {
        auto paragraph = makeParagraph(id, *rc::gen::inRange(0, 12));
        paragraph->typeIs = *rc::gen::element("C", "H", "E", "M", "I", "S", "T", "", "s", "CT");
        paragraph->queryIs = *rc::gen::element("", " ", "spW_A");
        paragraph->formIs = *rc::gen::inRange(-1, 3);
        paragraph->colsAre = *rc::gen::element("", " ", "1:2");
        webs.Add(paragraph);
    }
}

}  // namespace

RC_GTEST_PROP(ReportProperty, TheAnalysisOfNodesFindsWhatAPlainSearchFinds, ()) {
    clsNavSchemes navs;
    drawNodes(navs);
    RC_ASSERT(findingsIn(CheckNav(navs)) == plainFindings(navs));
}

RC_GTEST_PROP(ReportProperty, TheAnalysisOfParagraphsFindsWhatAPlainSearchFinds, ()) {
    clsNavSchemes navs;
    drawNodes(navs);
    drawParagraphs(navs.oWebs);
    const auto expected = plainFindings(navs.oWebs);
    std::string orphans = "THE ORPHANS: \r\n\r\n";
    for (const auto& paragraph : navs.oWebs.NewEnum()) {
        bool hasNode = false;
        for (const auto& node : navs.NewEnum()) hasNode = hasNode || node->ID == paragraph->XST1;
        if (!hasNode) orphans += label(paragraph->ID) + " \r\n";
    }
    const auto report = CheckScheme(navs);
    RC_ASSERT(findingsIn(report) == expected);
    RC_ASSERT(report.ends_with(orphans));
}
