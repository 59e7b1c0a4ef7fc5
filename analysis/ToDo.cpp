// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <string_view>

#include "analysis/Reports.h"
#include "model/Integer.h"
#include "model/NodeType.h"
#include "model/ParagraphType.h"
#include "model/ParameterKind.h"
#include "model/clsNavSchemes.h"

namespace {

constexpr std::string_view navSteps =
    "THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\r\n"
    "\r\n"
    "1. Select 'Analysis of Nav. Scheme'. Correct anomalies, if any.\r\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
    "3. Save Navigation Scheme to Text File.\r\n"
    "4. Upload that Text File to your Database as Table XST1, with Identity Column as 'ID'\r\n"
    "5. Code the following Queries / Stored Procedures. These are two-field Queries, First\r\n"
    "   field is (ID), second is Name or description, that will be displayed in Treeview Control.\r\n"
    "   For Example: spG_Customers: SELECT ID, NAME FROM CUSTOMERS ORDER BY NAME \r\n"
    "\r\n"
    "  ID: Query/Stored Procedure & Parameters\r\n"
    "\r\n";

constexpr std::string_view webSteps =
    "THE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\r\n"
    "\r\n"
    "1. Select 'Analysis of Web Scheme'. Correct anomalies, if any.\r\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
    "3. Save Web Scheme to Text File.\r\n"
    "4. Upload that Text File to your Database as Table XST2, with Identity Column as 'ID'\r\n"
    "5. Code the following Queries / Stored Procedures. These are multi-field Queries, First\r\n"
    "   field Should be named (ID).\r\n"
    "   For Example: spW_Customers: SELECT CUSTID AS [ID], CUSTOMERNAME AS [Customer Name], ADD as [Address], \r\n"
    "   PHONE AS [Phone No], CONTACT AS [Contact Person] FROM CUSTOMERS ORDER BY CUSTOMERNAME \r\n"
    "\r\n"
    "  ID: Query/Stored Procedure & Parameters & Comments\r\n"
    "\r\n";

// The note on a parameter kind. There is none for a text that is not a kind, such as "None" spelled out.
struct ParameterNote {
    ParameterKind kind;
    std::string_view note;
    bool hasLength = false;  // the length of the key follows, and a bracket
};
constexpr ParameterNote parameterNotes[] = {
    {.kind = ParameterKind::None, .note = "   (Parameter = None)"},
    {.kind = ParameterKind::LKey, .note = "   (Parameter = Long Integer)"},
    {.kind = ParameterKind::CKey, .note = "   (Parameter = Character of Length=", .hasLength = true},
    {.kind = ParameterKind::Text, .note = "   (Parameter = Text)"},
    {.kind = ParameterKind::Today, .note = "   (Parameter = Date (Today))"},
};
static_assert(std::ranges::equal(parameterNotes, parameterKinds, {}, &ParameterNote::kind, &StoredParameter::kind));

// At least three digits, with the sign before them.
void appendID(std::string& report, std::int32_t id) {
    constexpr std::size_t least = 3;
    const auto text = keyText(id);
    const auto digits = std::string_view(text).substr(id < 0 ? 1U : 0U);
    if (id < 0) report += '-';
    report.append(digits.size() < least ? least - digits.size() : 0, '0').append(digits);
}

void appendParameter(std::string& report, std::string_view parmIs) {
    const auto kind = readParameterKind(parmIs);
    for (const auto& row : parameterNotes) {
        if (row.kind != kind) continue;
        report.append(row.note);
        if (row.hasLength) report.append(keyLengthOf(parmIs)).append(")");
    }
}

// The constant begins after the first blank of the query and ends at the next one; between two blanks it is empty.
void appendConstant(std::string& report, std::string_view query) {
    const auto blank = query.find(' ');
    if (blank == std::string_view::npos) return;
    const auto constants = query.substr(blank + 1);
    report.append("   (with Constant Parameter: ").append(constants.substr(0, constants.find(' '))).append(")");
}

void appendQuery(std::string& report, std::int32_t id, std::string_view query, std::string_view parmIs) {
    appendID(report, id);
    report.append(": ").append(query);
    appendParameter(report, parmIs);
    appendConstant(report, query);
}

}  // namespace

std::string NavToDo(const clsNavSchemes& oNavs) {
    std::string report(navSteps);
    for (const auto& node : oNavs.NewEnum()) {
        if (!callsQuery(node->typeIs().letter())) continue;
        appendQuery(report, node->ID, node->queryIs(), node->parmIs());
        report.append("\r\n");
    }
    return report;
}

std::string WebToDo(const clsWebSchemes& oWebs) {
    std::string report(webSteps);
    for (const auto* paragraph : oWebs.NewEnum()) {
        appendQuery(report, paragraph->ID, paragraph->queryIs, paragraph->parmIs);
        const auto* type = paragraphType(paragraph->typeIs.letter());
        if (type && !type->fieldPrefix.empty())
            report.append(" <One field-name SHOULD be prefixed with '").append(type->fieldPrefix).append("'>");
        report.append("\r\n");
    }
    return report;
}
