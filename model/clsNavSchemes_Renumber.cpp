// SPDX-License-Identifier: MIT
#include <vector>

#include "model/NodeTree.h"
#include "model/NodeType.h"
#include "model/clsNavSchemes.h"

namespace {

// Whether a redraw of the tree shows the node when it reaches it.
bool isDrawn(const clsNavScheme& node) {
    return node.parentIs == 0 || nodeType(node.typeIs().letter());
}

}  // namespace

// Everything that needs memory comes before the first change: if it fails, the scheme stays as it is.
bool clsNavSchemes::Renumber() {
    if (Count() == 0) return false;
    const auto numbers = newNumbers();
    const auto slots = nodes_.Slots();
    NodeMoves moves(slots.size());
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        if (!slots[slot]) continue;
        const auto now = numbers[slot].id != 0 ? numbers[slot].id : slots[slot]->tID;
        const auto former = slots[slot]->ID;
        moves.add(former != 0 ? former : now, now);
    }

    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        if (!slots[slot]) continue;
        auto& node = *slots[slot];
        if (numbers[slot].id != 0) {
            node.tID = numbers[slot].id;
            node.tParentIs = numbers[slot].parent;
        }
        node.ID = node.tID;
        node.parentIs = node.tParentIs;
    }
    oWebs.Follow(moves);
    DispInTV();
    oWebs.DispInGrid(0);
    return true;
}

// The new numbers of the reachable nodes, by slot; 0 for the others.
LargeArray<clsNavSchemes::NewNumbers> clsNavSchemes::newNumbers() const {
    LargeArray<NewNumbers> numbers(nodes_.Slots().size());
    std::int32_t last = 0;
    std::vector<std::int32_t> path;  // the new IDs from the root down to the node last numbered
    NodeTree(nodes_).walk([&](std::uint32_t slot, std::size_t depth) {
        path.resize(depth);
        numbers[slot] = {++last, depth == 0 ? 0 : path.back()};
        path.push_back(last);
        return true;
    });
    return numbers;
}

void clsNavSchemes::FileAnew() {
    nodes_.FileAnew([this] {
        std::vector<std::uint32_t> drawn;
        KeyIndex met;
        NodeTree(nodes_).walk([&](std::uint32_t slot, std::size_t) {
            const auto& node = *nodes_.Slots()[slot];
            if (!isDrawn(node) || !met.insert(node.ID, slot)) return false;
            drawn.push_back(slot);
            return true;
        });
        return drawn;
    });
}
