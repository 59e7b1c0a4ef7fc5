// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <string_view>

/// The tree's pictures by their index in the image list.
enum class NodePicture : unsigned char { none = 0, root = 1, fixed = 2, gen = 3, recur = 4, nongen = 5 };

/// What the screen makes of a node's type letter.
struct NodeType {
    std::string_view letter;
    NodePicture picture;
    QRgb treeColour;  ///< of the text in the tree
    QRgb gridColour;  ///< of the row in the grid of nodes
    const char* spoken;
};

/// The four types, or null for any other letter.
[[nodiscard]] const NodeType* nodeType(std::string_view letter);
/// The type that a picture stands for, or null for the root's.
[[nodiscard]] const NodeType* nodeType(NodePicture picture);
/// How a screen reader says a node's type: "Generating node"; "Node of unknown type" for null.
[[nodiscard]] QString spokenType(const NodeType* type);
