// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <span>

#include "model/NodeType.h"

/// The tree's pictures by their index in the image list.
enum class NodePicture : unsigned char { none = 0, root = 1, fixed = 2, gen = 3, recur = 4, nongen = 5 };

/// Where a picture of the tree comes from.
struct PictureSource {
    NodePicture picture;
    const char* name;  ///< of the widget that shows it
    const char* file;  ///< the resource
    const char* key;   ///< in the image list
};
/// All pictures, in the order of their index.
[[nodiscard]] std::span<const PictureSource> pictureSources();

/// What a type of node looks like.
struct NodeLook {
    char letter;
    NodePicture picture;
    QRgb treeColour;  ///< of the text in the tree
    QRgb gridColour;  ///< of the row in the grid of nodes
    const char* spoken;
    // In the legend:
    const char* caption;
    QRgb captionColour;
    QRgb letterColour;  ///< of the letter above its column
};
/// The looks of all types, in the order of `nodeTypes`.
[[nodiscard]] std::span<const NodeLook> nodeLooks();

/// The look of the type with this letter; null for any other letter.
[[nodiscard]] const NodeLook* nodeLook(char letter);
/// The look of the type that a picture stands for; null for the root's picture.
[[nodiscard]] const NodeLook* nodeLook(NodePicture picture);
/// A node's type as a screen reader says it: "Generating node"; "Node of unknown type" for null.
[[nodiscard]] QString spokenType(const NodeLook* look);
