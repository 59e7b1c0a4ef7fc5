#include <utility>

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

// Gives the reachable nodes their new numbers in `tID` and `tParentIs`; `ID` and `parentIs` stay for the walk.
void clsNavSchemes::assignNewIDs() {
    std::int32_t last = 0;
    std::vector<std::int32_t> path;  // the new IDs from the root down to the node last numbered
    walkTree(nodes_, [&](const Pointer& node, std::size_t depth) {
        path.resize(depth);
        node->tParentIs = depth == 0 ? 0 : path.back();
        node->tID = ++last;
        path.push_back(last);
        return true;
    });
}
