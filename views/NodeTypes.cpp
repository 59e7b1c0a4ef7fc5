// SPDX-License-Identifier: MIT
#include "views/NodeTypes.h"

#include <algorithm>
#include <iterator>

namespace {

// The two greens differ: the grid's is lighter than the tree's.
constexpr NodeType types[] = {
    {"F", NodePicture::fixed, qRgb(255, 0, 0), qRgb(255, 0, 0), "Fixed node"},
    {"G", NodePicture::gen, qRgb(0, 0, 255), qRgb(0, 0, 255), "Generating node"},
    {"R", NodePicture::recur, qRgb(0, 64, 0), qRgb(0, 128, 0), "Recurring node"},
    {"N", NodePicture::nongen, qRgb(128, 0, 0), qRgb(128, 0, 0), "Non-generating node"},
};

template <class Member, class Value>
const NodeType* find(Member member, Value value) {
    const auto* found = std::ranges::find(types, value, member);
    return found == std::end(types) ? nullptr : found;
}

}  // namespace

const NodeType* nodeType(std::string_view letter) {
    return find(&NodeType::letter, letter);
}

const NodeType* nodeType(NodePicture picture) {
    return find(&NodeType::picture, picture);
}

QString spokenType(const NodeType* type) {
    return type ? QString::fromLatin1(type->spoken) : QStringLiteral("Node of unknown type");
}
