// SPDX-License-Identifier: MIT
#include "views/TreeSnapshot.h"

#include <algorithm>
#include <vector>

#include "model/NodeTree.h"

namespace {

NodePicture pictureOf(const clsNavScheme& node) {
    if (node.parentIs == 0) return NodePicture::root;
    const auto* look = nodeLook(node.typeIs().letter());
    return look ? look->picture : NodePicture::none;
}

struct Unplaced {
    Text::Ref text;
    std::int32_t id = 0;
    NodePicture picture = NodePicture::none;
    bool isTwin = false;  // another node has the same ID
};

}  // namespace

TreeSnapshot::TreeSnapshot(const clsNavSchemes& scheme) {
    // First read what there is to show, in memory order; then walk through the tree.
    const auto slots = scheme.NewEnum().Slots();
    LargeArray<Unplaced> unplaced(slots.size());
    KeyIndex slotOf;  // by ID
    slotOf.reserve(slots.size());
    for (std::uint32_t slot = 0; slot < slots.size(); ++slot) {
        const auto& node = slots[slot];
        if (!node) continue;
        texts_.keepOwner(node);
        unplaced[slot] = {texts_.keep(node->descriptionIs), node->ID, pictureOf(*node)};
        if (!slotOf.insert(node->ID, slot)) unplaced[slot].isTwin = unplaced[slotOf.find(node->ID)].isTwin = true;
    }

    rows_.reserve(static_cast<std::size_t>(scheme.Count()));
    KeyIndex shownTwins;
    std::vector<std::uint32_t> path;  // rows from the root down to the one last added
    NodeTree(scheme.NewEnum()).walk([&](std::uint32_t slot, std::size_t depth) {
        const auto& node = unplaced[slot];
        if (node.picture == NodePicture::none) return false;
        if (node.isTwin && !shownTwins.insert(node.id, count())) return false;
        path.resize(depth);
        Row row;
        row.text = depth == 0 ? texts_.keep(Text("Data Browser")) : node.text;
        row.id = node.id;
        row.picture = node.picture;
        if (depth != 0) {
            row.parent = path.back();
            row.placeInParent = rows_[row.parent].childCount++;
        }
        path.push_back(count());
        rows_.push_back(row);
        depth_ = std::max(depth_, depth);
        return true;
    });
    addChildLists();
}

void TreeSnapshot::addChildLists() {
    if (rows_.empty()) return;
    std::uint32_t next = 0;
    for (auto& row : rows_) {
        row.firstChild = next;
        next += row.childCount;
    }
    children_.resize(next);
    for (std::uint32_t number = 1; number < count(); ++number) {
        const auto& row = rows_[number];
        children_[rows_[row.parent].firstChild + row.placeInParent] = number;
    }
}

std::uint32_t TreeSnapshot::find(std::string_view key) const {
    if (key.empty() || key.front() != 'N') return none;
    const auto id = readKey(key.substr(1));
    if (!id) return none;
    const auto found = std::ranges::find(rows_, *id, &Row::id);
    return found == rows_.end() ? none : static_cast<std::uint32_t>(found - rows_.begin());
}

std::string TreeSnapshot::key(const Row& row) {
    std::string key(1, 'N');
    return key.append(keyText(row.id));
}
