#include "views/TreeSnapshot.h"

#include <algorithm>

namespace {

NodePicture pictureOf(const clsNavScheme& node) {
    if (node.parentIs == 0) return NodePicture::root;
    const auto* type = nodeType(node.typeIs());
    return type ? type->picture : NodePicture::none;
}

}  // namespace

TreeSnapshot::TreeSnapshot(const clsNavSchemes& scheme) {
    rows_.reserve(static_cast<std::size_t>(scheme.Count()));
    KeyIndex shown;
    shown.reserve(rows_.capacity());
    std::vector<std::uint32_t> path;  // rows from the root down to the one last added
    walkTree(scheme.NewEnum(), [&](const clsNavSchemes::Pointer& node, std::size_t depth) {
        const auto picture = pictureOf(*node);
        if (picture == NodePicture::none || !shown.insert(node->ID, count())) return false;
        path.resize(depth);
        texts_.keepOwner(node);
        Row row;
        row.text = texts_.keep(depth == 0 ? Text("Data Browser") : node->descriptionIs);
        row.id = node->ID;
        row.picture = picture;
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
