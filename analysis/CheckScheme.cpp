// SPDX-License-Identifier: MIT
#include "analysis/Reports.h"
#include "analysis/WebRules.h"
#include "model/Integer.h"
#include "model/clsNavSchemes.h"

// The renumbering, which changes paragraphs, comes last: whatever may run out of memory has been done by then.
std::string CheckScheme(clsNavSchemes& oNavs) {
    auto& webs = oNavs.oWebs;
    std::string report(webRulesInWords);
    findInParagraphs(webs, [&](const WebFinding& finding) { appendFinding(report, finding); });
    report.append("THE ORPHANS: \r\n\r\n");
    const auto moves = clsWebSchemes::MovesOf(oNavs);
    for (const auto& paragraph : webs.NewEnum())
        if (!moves.find(paragraph->XST1))
            report.append("[ID=")
                .append(keyText(paragraph->ID))
                .append("] ")
                .append(paragraph->titleIs.view())
                .append("\r\n");
    webs.Renumber(oNavs, moves);
    return report;
}
