// SPDX-License-Identifier: MIT
#include "analysis/FileFlaws.h"
#include "model/NodeTree.h"
#include "model/clsNavSchemes.h"

namespace {

// Places of fields.
constexpr int parentField = 3;  // of a node
constexpr int nodeField = 1;    // of a paragraph

// By slot: the slot of the parent; `KeyIndex::none` if there is none.
LargeArray<std::uint32_t> parentsOf(const KeyedCollection<clsNavScheme>& nodes) {
    const auto slots = nodes.Slots();
    LargeArray<std::uint32_t> parents(slots.size(), KeyIndex::none);
    for (std::size_t slot = 0; slot < slots.size(); ++slot) parents[slot] = nodes.SlotOf(slots[slot]->parentIs);
    return parents;
}

// Which nodes are their own ancestors.
std::vector<bool> nodesInLoops(const LargeArray<std::uint32_t>& parents) {
    constexpr std::uint32_t unknown = 0;
    LargeArray<std::uint32_t> metOn(parents.size(), unknown);  // the number of the walk that reached the node first
    std::vector<bool> inLoop(parents.size());
    std::uint32_t way = unknown;
    for (std::uint32_t start = 0; start < parents.size(); ++start) {
        if (metOn[start] != unknown) continue;
        ++way;
        auto at = start;
        for (; at != KeyIndex::none && metOn[at] == unknown; at = parents[at]) metOn[at] = way;
        if (at == KeyIndex::none || metOn[at] != way) continue;
        for (; !inLoop[at]; at = parents[at]) inLoop[at] = true;
    }
    return inLoop;
}

}  // namespace

FileFindings findInTree(const clsNavSchemes& navs, std::span<const std::uint32_t> lines) {
    FileFindings findings;
    const auto& nodes = navs.NewEnum();
    std::vector<bool> isReached(lines.size());
    std::uint32_t root = KeyIndex::none;
    NodeTree(nodes).walk([&](std::uint32_t slot, std::size_t depth) {
        if (depth == 0) root = slot;
        isReached[slot] = true;
        return true;
    });
    if (root == KeyIndex::none) findings.push_back({&flaw::noRoot, 1, FileFinding::wholeLine, {}});
    const auto parents = parentsOf(nodes);
    const auto inLoop = nodesInLoops(parents);
    for (std::size_t slot = 0; slot < lines.size(); ++slot) {
        const auto report = [&](const FileFlaw& flaw, int field, std::string detail = {}) {
            findings.push_back({&flaw, lines[slot], field, std::move(detail)});
        };
        const auto parent = nodes.Slots()[slot]->parentIs;
        if (inLoop[slot]) report(flaw::loop, parentField);
        if (isReached[slot]) continue;
        if (parent == 0)
            report(flaw::secondRoot, parentField, std::to_string(lines[root]));
        else if (parents[slot] == KeyIndex::none)
            report(flaw::missingParent, parentField, std::to_string(parent));
        report(flaw::unwritten, FileFinding::wholeLine);
    }
    return findings;
}

FileFindings findOrphans(const clsNavSchemes& navs, std::span<const std::uint32_t> lines) {
    FileFindings findings;
    std::size_t place = 0;
    for (const auto* paragraph : navs.oWebs.NewEnum()) {
        if (navs.NewEnum().SlotOf(paragraph->XST1) == KeyIndex::none)
            findings.push_back({&flaw::orphan, lines[place], nodeField, std::to_string(paragraph->XST1)});
        ++place;
    }
    return findings;
}
