// SPDX-License-Identifier: MIT
#include <utility>
#include <vector>

#include "model/NodeTree.h"
#include "model/clsNavSchemes.h"

bool clsNavSchemes::Renumber() {
    if (Count() == 0) return false;
    assignNewIDs();
    for (const auto& node : nodes_) {
        node->ID = std::exchange(node->tID, node->ID);
        node->parentIs = node->tParentIs;
    }
    oWebs.Renumber(*this);
    DispInTV();
    oWebs.DispInGrid(0);
    return true;
}

// Gives the reachable nodes their new numbers in `tID` and `tParentIs`; `ID` and `parentIs` stay as they are.
void clsNavSchemes::assignNewIDs() {
    const auto slots = nodes_.Slots();
    struct NewNumbers {
        std::int32_t id = 0, parent = 0;
    };
    std::vector<NewNumbers> numbers(slots.size());  // 0 for a node that is not reached
    std::int32_t last = 0;
    std::vector<std::int32_t> path;  // the new IDs from the root down to the node last numbered
    NodeTree(nodes_).walk([&](std::uint32_t slot, std::size_t depth) {
        path.resize(depth);
        numbers[slot] = {++last, depth == 0 ? 0 : path.back()};
        path.push_back(last);
        return true;
    });
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        if (numbers[slot].id == 0) continue;
        slots[slot]->tID = numbers[slot].id;
        slots[slot]->tParentIs = numbers[slot].parent;
    }
}
