// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"
#include "analysis/NavRules.h"
#include "model/clsNavSchemes.h"

namespace {

// What one look at a record tells. The records of a large scheme are read once only: that takes longer than all else.
struct Seen {
    const clsNavScheme* node;
    std::int32_t id;
    char type;
    bool hasQuery;
};

}  // namespace

std::string clsNavSchemes::CheckNav() const {
    ChildCounts counts(static_cast<std::size_t>(Count()));
    std::vector<Seen> seen;
    seen.reserve(static_cast<std::size_t>(Count()));
    for (const auto& node : nodes_) {
        const char type = node->typeIs().letter();
        counts.add(node->parentIs, type == 'F');
        seen.push_back({node.get(), node->ID, type, !node->queryIs().empty()});
    }
    std::string report(navRulesInWords);
    for (const auto& [node, id, type, hasQuery] : seen) {
        const auto children = counts.of(id);
        appendFindings(report, {type, hasQuery, children.hasFixed, children.count}, id, node->descriptionIs);
    }
    return report;
}
