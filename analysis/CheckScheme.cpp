// SPDX-License-Identifier: MIT
#include "analysis/WebRules.h"
#include "model/Integer.h"
#include "model/clsNavSchemes.h"

// The renumbering, which changes paragraphs, comes last: what needs memory may fail before.
std::string clsWebSchemes::CheckScheme(clsNavSchemes& oNC) {
    std::string report(webRulesInWords);
    for (const auto& paragraph : paragraphs_) appendFindings(report, *paragraph);
    report.append("THE ORPHANS: \r\n\r\n");
    const auto moves = movesOf(oNC);
    for (const auto& paragraph : paragraphs_)
        if (!moves.find(paragraph->XST1))
            report.append("[ID=")
                .append(keyText(paragraph->ID))
                .append("] ")
                .append(paragraph->titleIs.view())
                .append("\r\n");
    renumber(oNC, moves);
    return report;
}
