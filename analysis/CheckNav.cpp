// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"
#include "analysis/NavRules.h"
#include "model/clsNavSchemes.h"

namespace {

// What one look at a record tells. The records of a large scheme are read once only: that takes longer than all else.
struct Seen {
    std::int32_t id = 0;
    char type = 0;  // stays 0 where a record was removed: no rule is for it
    bool hasQuery = false;
};

}  // namespace

std::string clsNavSchemes::CheckNav() const {
    const auto slots = nodes_.Slots();
    ChildCounts counts(static_cast<std::size_t>(Count()));
    LargeArray<Seen> seen(slots.size());
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        const auto* node = slots[slot].get();
        if (!node) continue;
        const char type = node->typeIs().letter();
        counts.add(node->parentIs, type == 'F');
        seen[slot] = {node->ID, type, !node->queryIs().empty()};
    }
    std::string report(navRulesInWords);
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        const auto& [id, type, hasQuery] = seen[slot];
        const auto children = counts.of(id);
        const NodeFacts facts{type, hasQuery, children.hasFixed, children.count};
        if (breaksARule(facts)) appendFindings(report, facts, id, slots[slot]->descriptionIs);
    }
    return report;
}
