// SPDX-License-Identifier: MIT
#include "analysis/WebRules.h"
#include "model/Integer.h"
#include "model/clsNavSchemes.h"

std::string clsWebSchemes::CheckScheme(clsNavSchemes& oNC) {
    std::string report(webRulesInWords);
    for (const auto& paragraph : paragraphs_) appendFindings(report, *paragraph);
    report.append("THE ORPHANS: \r\n\r\n");
    Renumber(oNC);
    for (const auto& paragraph : paragraphs_)
        if (paragraph->status == "O")
            report.append("[ID=")
                .append(keyText(paragraph->ID))
                .append("] ")
                .append(paragraph->titleIs.view())
                .append("\r\n");
    return report;
}
