// SPDX-License-Identifier: MIT
#include "views/NodeLook.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr PictureSource sources[] = {
    {.picture = NodePicture::root, .name = "imgRoot", .file = ":/images/root.svg", .key = "root"},
    {.picture = NodePicture::fixed, .name = "imgFix", .file = ":/images/fixed.svg", .key = "fixed"},
    {.picture = NodePicture::gen, .name = "imgGen", .file = ":/images/gen.svg", .key = "gen"},
    {.picture = NodePicture::recur, .name = "imgRecur", .file = ":/images/recur.svg", .key = "recur"},
    {.picture = NodePicture::nongen, .name = "imgNonGen", .file = ":/images/nongen.svg", .key = "nongen"},
};

constexpr bool standInOrderOfIndex(std::span<const PictureSource> pictures) {
    int index = 0;
    return std::ranges::all_of(pictures, [&](const auto& each) { return static_cast<int>(each.picture) == ++index; });
}
static_assert(standInOrderOfIndex(sources));

// The green of R is lighter in the grid than in the tree. That is given.
constexpr NodeLook looks[] = {
    {.letter = 'F',
     .picture = NodePicture::fixed,
     .treeColour = qRgb(255, 0, 0),
     .gridColour = qRgb(255, 0, 0),
     .spoken = "Fixed node",
     .caption = "Fixed Node (Red) ",
     .captionColour = qRgb(0, 0, 0),
     .letterColour = qRgb(192, 0, 0)},
    {.letter = 'G',
     .picture = NodePicture::gen,
     .treeColour = qRgb(0, 0, 255),
     .gridColour = qRgb(0, 0, 255),
     .spoken = "Generating node",
     .caption = "Generating Node (Blue) ",
     .captionColour = qRgb(0, 0, 255),
     .letterColour = qRgb(0, 0, 192)},
    {.letter = 'R',
     .picture = NodePicture::recur,
     .treeColour = qRgb(0, 64, 0),
     .gridColour = qRgb(0, 128, 0),
     .spoken = "Recurring node",
     .caption = "Recurring Node (Green) ",
     .captionColour = qRgb(0, 128, 0),
     .letterColour = qRgb(0, 128, 0)},
    {.letter = 'N',
     .picture = NodePicture::nongen,
     .treeColour = qRgb(128, 0, 0),
     .gridColour = qRgb(128, 0, 0),
     .spoken = "Non-generating node",
     .caption = "Non-Generating (Brown) ",
     .captionColour = qRgb(128, 0, 0),
     .letterColour = qRgb(128, 0, 0)},
};
static_assert(std::ranges::equal(looks, nodeTypes, {}, &NodeLook::letter, &NodeType::letter));

template <class Member, class Value>
const NodeLook* find(Member member, Value value) {
    const auto* found = std::ranges::find(looks, value, member);
    return found == std::end(looks) ? nullptr : found;
}

}  // namespace

std::span<const PictureSource> pictureSources() {
    return sources;
}

std::span<const NodeLook> nodeLooks() {
    return looks;
}

const NodeLook* nodeLook(char letter) {
    return find(&NodeLook::letter, letter);
}

const NodeLook* nodeLook(NodePicture picture) {
    return find(&NodeLook::picture, picture);
}

QString spokenType(const NodeLook* look) {
    return look ? QString::fromLatin1(look->spoken) : QStringLiteral("Node of unknown type");
}
