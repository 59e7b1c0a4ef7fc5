// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"
#include "analysis/NavRules.h"
#include "analysis/Reports.h"
#include "model/LargeArray.h"
#include "model/clsNavSchemes.h"

namespace {

// What is noted of a record. In a large scheme reading the records takes longer than everything else, so each is read
// only once.
struct Seen {
    std::int32_t id = 0;
    char type = 0;
    bool hasQuery = false;
};

}  // namespace

void findInNodes(const clsNavSchemes& navs, const std::function<void(const NavFinding&)>& take) {
    const auto slots = navs.NewEnum().Slots();
    ChildCounts counts(static_cast<std::size_t>(navs.Count()));
    LargeArray<Seen> seen(slots.size());
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        const auto* node = slots[slot].get();
        if (!node) continue;
        const char type = node->typeIs().letter();
        counts.add(node->parentIs, type == 'F');
        seen[slot] = {.id = node->ID, .type = type, .hasQuery = !node->queryIs().empty()};
    }
    std::uint32_t place = 0;
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        if (!slots[slot]) continue;
        const auto& [id, type, hasQuery] = seen[slot];
        const auto children = counts.of(id);
        const NodeFacts facts{
            .type = type, .hasQuery = hasQuery, .fixedBelow = children.hasFixed, .children = children.count};
        forEachBroken(navRules, type, facts, [&](const auto& rule) { take({&rule, slots[slot].get(), place}); });
        ++place;
    }
}

std::string CheckNav(const clsNavSchemes& oNavs) {
    std::string report(navRulesInWords);
    findInNodes(oNavs, [&](const NavFinding& finding) {
        appendFinding(report, *finding.rule, finding.record->ID, finding.record->descriptionIs);
    });
    return report;
}
