// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/NodeLook.h"

namespace {

/// letter: picture, tree colour, grid colour, how it is said
std::string print(const NodeLook* type) {
    if (!type) return "none";
    return std::string(1, type->letter) + ": " + std::to_string(static_cast<int>(type->picture)) + ", " +
           QColor(type->treeColour).name().toStdString() + ", " + QColor(type->gridColour).name().toStdString() +
           ", " + spokenType(type).toStdString();
}

}  // namespace

TEST(NodeLooks, KnowsTheFourLetters) {
    EXPECT_EQ(print(nodeLook('F')), "F: 2, #ff0000, #ff0000, Fixed node");
    EXPECT_EQ(print(nodeLook('G')), "G: 3, #0000ff, #0000ff, Generating node");
    EXPECT_EQ(print(nodeLook('R')), "R: 4, #004000, #008000, Recurring node");
    EXPECT_EQ(print(nodeLook('N')), "N: 5, #800000, #800000, Non-generating node");
}

TEST(NodeLooks, KnowsNothingElse) {
    for (const char letter : {'\0', ' ', 'f', 'g', 'r', 'n', 'X', '0'})
        EXPECT_EQ(nodeLook(letter), nullptr) << "'" << letter << "'";
}

TEST(NodeLooks, FindsTheTypeOfAPicture) {
    EXPECT_EQ(nodeLook(NodePicture::fixed), nodeLook('F'));
    EXPECT_EQ(nodeLook(NodePicture::gen), nodeLook('G'));
    EXPECT_EQ(nodeLook(NodePicture::recur), nodeLook('R'));
    EXPECT_EQ(nodeLook(NodePicture::nongen), nodeLook('N'));
    EXPECT_EQ(nodeLook(NodePicture::root), nullptr);
    EXPECT_EQ(nodeLook(NodePicture::none), nullptr);
}

TEST(NodeLooks, NumbersThePicturesAsTheImageListDoes) {
    EXPECT_EQ(static_cast<int>(NodePicture::none), 0);
    EXPECT_EQ(static_cast<int>(NodePicture::root), 1);
    EXPECT_EQ(static_cast<int>(NodePicture::fixed), 2);
    EXPECT_EQ(static_cast<int>(NodePicture::gen), 3);
    EXPECT_EQ(static_cast<int>(NodePicture::recur), 4);
    EXPECT_EQ(static_cast<int>(NodePicture::nongen), 5);
}

TEST(NodeLooks, SaysWhenATypeIsUnknown) {
    EXPECT_EQ(spokenType(nullptr), QStringLiteral("Node of unknown type"));
}
