// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/NodeTypes.h"

namespace {

/// letter: picture, tree colour, grid colour, how it is said
std::string print(const NodeType* type) {
    if (!type) return "none";
    return std::string(type->letter) + ": " + std::to_string(static_cast<int>(type->picture)) + ", " +
           QColor(type->treeColour).name().toStdString() + ", " + QColor(type->gridColour).name().toStdString() +
           ", " + spokenType(type).toStdString();
}

}  // namespace

TEST(NodeTypes, KnowsTheFourLetters) {
    EXPECT_EQ(print(nodeType("F")), "F: 2, #ff0000, #ff0000, Fixed node");
    EXPECT_EQ(print(nodeType("G")), "G: 3, #0000ff, #0000ff, Generating node");
    EXPECT_EQ(print(nodeType("R")), "R: 4, #004000, #008000, Recurring node");
    EXPECT_EQ(print(nodeType("N")), "N: 5, #800000, #800000, Non-generating node");
}

TEST(NodeTypes, KnowsNothingElse) {
    for (const auto* letter : {"", " ", "f", "g", "r", "n", "X", "FF", "F ", " F", "GR", "0"})
        EXPECT_EQ(nodeType(letter), nullptr) << "'" << letter << "'";
    EXPECT_EQ(nodeType(std::string_view("F\0", 2)), nullptr);
}

TEST(NodeTypes, FindsTheTypeOfAPicture) {
    EXPECT_EQ(nodeType(NodePicture::fixed), nodeType("F"));
    EXPECT_EQ(nodeType(NodePicture::gen), nodeType("G"));
    EXPECT_EQ(nodeType(NodePicture::recur), nodeType("R"));
    EXPECT_EQ(nodeType(NodePicture::nongen), nodeType("N"));
    EXPECT_EQ(nodeType(NodePicture::root), nullptr);
    EXPECT_EQ(nodeType(NodePicture::none), nullptr);
}

TEST(NodeTypes, NumbersThePicturesAsTheImageListDoes) {
    EXPECT_EQ(static_cast<int>(NodePicture::none), 0);
    EXPECT_EQ(static_cast<int>(NodePicture::root), 1);
    EXPECT_EQ(static_cast<int>(NodePicture::fixed), 2);
    EXPECT_EQ(static_cast<int>(NodePicture::gen), 3);
    EXPECT_EQ(static_cast<int>(NodePicture::recur), 4);
    EXPECT_EQ(static_cast<int>(NodePicture::nongen), 5);
}

TEST(NodeTypes, SaysWhenATypeIsUnknown) {
    EXPECT_EQ(spokenType(nullptr), QStringLiteral("Node of unknown type"));
}
