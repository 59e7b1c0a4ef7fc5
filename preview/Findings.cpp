// SPDX-License-Identifier: MIT
#include "preview/Findings.h"

#include <nlohmann/json.hpp>
#include <set>

Findings::Findings(const std::vector<QueryFinding>& found, const clsNavSchemes& navs) {
    std::vector<std::int32_t> paragraphs;  // their IDs, by their place in the collection
    for (const auto* record : navs.oWebs.NewEnum()) paragraphs.push_back(record->ID);
    const auto nodes = navs.NewEnum().Slots();
    for (const auto& finding : found) {
        if (finding.flaw->level == QueryLevel::Remark) continue;
        auto& words = finding.isNode ? ofNodes_[nodes[finding.slot]->ID] : ofParagraphs_[paragraphs.at(finding.slot)];
        words.push_back(finding.words);
        ++count_;
    }
}

std::string Findings::asJson(const clsNavSchemes& navs) const {
    std::set<std::int32_t> nodes;
    for (const auto& [node, words] : ofNodes_) nodes.insert(node);
    for (const auto* record : navs.oWebs.NewEnum())
        if (ofParagraphs_.contains(record->ID)) nodes.insert(record->XST1);
    return nlohmann::json({{"count", count_}, {"nodes", nodes}}).dump();
}

void Findings::addTo(Page& page) const {
    if (page.node && ofNodes_.contains(page.node->ID)) page.findings = ofNodes_.at(page.node->ID);
    for (auto& paragraph : page.paragraphs)
        if (ofParagraphs_.contains(paragraph.record->ID)) paragraph.findings = ofParagraphs_.at(paragraph.record->ID);
}
