#include "analysis/ChildCounts.h"
#include "analysis/NavRules.h"
#include "model/clsNavSchemes.h"

std::string clsNavSchemes::CheckNav() const {
    const ChildCounts counts(*this);
    std::string report(navRulesInWords);
    for (const auto& node : nodes_) {
        const auto children = counts.of(node->ID);
        appendFindings(report, {node->ID, node->descriptionIs, node->typeIs(), node->queryIs(), children.count,
                                children.hasFixed});
    }
    return report;
}
