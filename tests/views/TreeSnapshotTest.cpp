// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/TreeSnapshot.h"

namespace {

/// The tree of nodes given as ID, parent and type, described as "d" and the ID.
struct Link {
    std::int32_t id, parent;
    const char* type = "F";
};
Rows treeOf(std::initializer_list<Link> links) {
    clsNavSchemes navs;
    for (const auto& link : links) navs.Add(makeNode(link.id, link.parent, link.type, "d" + std::to_string(link.id)));
    return treeOf(navs);
}

/// Changes the ID of a node that stays filed under its old one, as a renumbering does.
void renumber(const clsNavSchemes& navs, std::int32_t key, std::int32_t id) {
    navs.Item(key)->ID = id;
}

}  // namespace

TEST(TreeSnapshot, OfNothingIsEmpty) {
    EXPECT_EQ(TreeSnapshot().count(), 0U);
    EXPECT_EQ(TreeSnapshot(clsNavSchemes()).count(), 0U);
    EXPECT_EQ(TreeSnapshot().depth(), 0U);
    EXPECT_EQ(TreeSnapshot().find("N1"), 0xFFFFFFFFU);
}

TEST(TreeSnapshot, OfANewSchemeIsItsRoot) {
    clsNavSchemes navs;
    navs.NewScheme();
    EXPECT_EQ(treeOf(navs), Rows{"N1 'Data Browser' 1 #000000"});
}

TEST(TreeSnapshot, ShowsEachTypeWithPictureAndColour) {
    EXPECT_EQ(treeOf({{1, 0}, {2, 1, "F"}, {3, 1, "G"}, {4, 1, "R"}, {5, 1, "N"}}),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 'd2' 2 #ff0000", "  N3 'd3' 3 #0000ff",
                    "  N4 'd4' 4 #004000", "  N5 'd5' 5 #800000"}));
}

TEST(TreeSnapshot, ShowsTheRootAsSuchWhateverItsTypeAndDescription) {
    for (const auto* type : {"F", "G", "R", "N", "X", ""})
        EXPECT_EQ(treeOf({{8, 0, type}}), Rows{"N8 'Data Browser' 1 #000000"}) << type;
}

TEST(TreeSnapshot, ShowsDescriptionsWithEveryByteAndEmptyOnes) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F"));
    navs.Add(makeNode(2, 1, "F", "<b>\x80uro & more</b>"));
    navs.Add(makeNode(3, 1, "F", ""));
    EXPECT_EQ(treeOf(navs),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 '<b>€uro & more</b>' 2 #ff0000", "  N3 '' 2 #ff0000"}));
}

TEST(TreeSnapshot, ShowsChildrenInTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(
        treeOf({{9, 5}, {3, 1}, {1, 0}, {5, 1}, {2, 1}, {8, 3}, {7, 5}, {4, 3}}),
        (Rows{"N1 'Data Browser' 1 #000000", "  N3 'd3' 2 #ff0000", "    N8 'd8' 2 #ff0000", "    N4 'd4' 2 #ff0000",
              "  N5 'd5' 2 #ff0000", "    N9 'd9' 2 #ff0000", "    N7 'd7' 2 #ff0000", "  N2 'd2' 2 #ff0000"}));
}

TEST(TreeSnapshot, LeavesOutWhatCannotBeReached) {
    EXPECT_EQ(treeOf({{4, 3}, {1, 0}, {2, 0}, {3, 2}, {6, 77}, {7, 6}, {8, 1}}),
              (Rows{"N1 'Data Browser' 1 #000000", "  N8 'd8' 2 #ff0000"}))
        << "a second root with its branch, and a branch without a parent";
}

TEST(TreeSnapshot, IsEmptyWithoutARoot) {
    EXPECT_EQ(treeOf({{1, 2}, {2, 1}, {3, 7}}), Rows());
}

TEST(TreeSnapshot, LeavesOutNodesOfUnknownTypeWithTheirBranch) {
    EXPECT_EQ(treeOf({{1, 0}, {2, 1, "X"}, {3, 2}, {4, 3}, {5, 1, ""}, {6, 5}, {7, 1, "f"}, {8, 1, "FF"}, {9, 1}}),
              (Rows{"N1 'Data Browser' 1 #000000", "  N9 'd9' 2 #ff0000"}));
}

TEST(TreeSnapshot, ShowsARootOfUnknownTypeWithItsBranch) {
    EXPECT_EQ(treeOf({{1, 0, "X"}, {2, 1}}), (Rows{"N1 'Data Browser' 1 #000000", "  N2 'd2' 2 #ff0000"}));
}

TEST(TreeSnapshot, EntersLoopsOnce) {
    EXPECT_EQ(treeOf({{1, 1}, {2, 2}}), Rows()) << "nodes that are their own parents";
    EXPECT_EQ(treeOf({{1, 0}, {2, 3}, {3, 2}}), Rows{"N1 'Data Browser' 1 #000000"});
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "d1"));
    navs.Add(makeNode(2, 1, "F", "d2"));
    navs.Add(makeNode(3, 2, "F", "d3"));
    navs.Add(makeNode(4, 3, "F", "d4"));
    renumber(navs, 4, 2);  // a second node 2 below node 3, itself below node 2
    EXPECT_EQ(treeOf(navs), (Rows{"N1 'Data Browser' 1 #000000", "  N2 'd2' 2 #ff0000", "    N3 'd3' 2 #ff0000"}));
}

TEST(TreeSnapshot, ShowsTheFirstOfTwoNodesWithTheSameID) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "d1"));
    navs.Add(makeNode(2, 1, "F", "first"));
    navs.Add(makeNode(3, 1, "G", "second"));
    navs.Add(makeNode(4, 2, "N", "child"));
    renumber(navs, 3, 2);
    EXPECT_EQ(treeOf(navs),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 'first' 2 #ff0000", "    N4 'child' 5 #800000"}));
}

TEST(TreeSnapshot, ShowsTheFirstInTreeOrderOfTwoNodesWithTheSameID) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "d1"));
    navs.Add(makeNode(9, 5, "G", "added first"));
    navs.Add(makeNode(3, 1, "F", "d3"));
    navs.Add(makeNode(4, 3, "N", "drawn first"));
    navs.Add(makeNode(5, 1, "F", "d5"));
    renumber(navs, 9, 4);
    EXPECT_EQ(treeOf(navs), (Rows{"N1 'Data Browser' 1 #000000", "  N3 'd3' 2 #ff0000",
                                  "    N4 'drawn first' 5 #800000", "  N5 'd5' 2 #ff0000"}));
}

TEST(TreeSnapshot, ShowsTheSecondOfTwoNodesWithTheSameIDWhenTheFirstIsOfUnknownType) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "d1"));
    navs.Add(makeNode(2, 1, "X", "first"));
    navs.Add(makeNode(3, 1, "G", "second"));
    navs.Add(makeNode(4, 2, "N", "child"));
    renumber(navs, 3, 2);
    EXPECT_EQ(treeOf(navs),
              (Rows{"N1 'Data Browser' 1 #000000", "  N2 'second' 3 #0000ff", "    N4 'child' 5 #800000"}));
}

TEST(TreeSnapshot, DoesNotShowTheRootTwice) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "root"));
    navs.Add(makeNode(2, 1, "F", "d2"));
    navs.Add(makeNode(3, 1, "F", "d3"));
    renumber(navs, 2, 1);
    EXPECT_EQ(treeOf(navs), (Rows{"N1 'Data Browser' 1 #000000", "  N3 'd3' 2 #ff0000"}));
}

TEST(TreeSnapshot, WithARootOfIDZeroShowsAllItsChildrenAsRoots) {
    EXPECT_EQ(treeOf({{0, 0, "F"}, {1, 0, "G"}, {2, 1, "R"}, {3, 0, "X"}, {4, 3, "N"}}),
              (Rows{"N0 'Data Browser' 1 #000000", "  N1 'd1' 1 #000000", "    N2 'd2' 4 #004000",
                    "  N3 'd3' 1 #000000", "    N4 'd4' 5 #800000"}))
        << "the root's picture and colour go by the parent, its text and place to the first such node";
}

TEST(TreeSnapshot, WithARootBeforeTheNodeOfIDZeroShowsThatRootOnly) {
    EXPECT_EQ(treeOf({{5, 0}, {0, 0}, {1, 0}, {2, 5}}), (Rows{"N5 'Data Browser' 1 #000000", "  N2 'd2' 2 #ff0000"}));
}

TEST(TreeSnapshot, TakesNegativeAndLargeIDs) {
    EXPECT_EQ(treeOf({{-5, 0}, {2147483647, -5}, {-2147483647 - 1, 2147483647, "N"}}),
              (Rows{"N-5 'Data Browser' 1 #000000", "  N2147483647 'd2147483647' 2 #ff0000",
                    "    N-2147483648 'd-2147483648' 5 #800000"}));
}

TEST(TreeSnapshot, PassesOverRemovedNodes) {
    clsNavSchemes navs;
    for (int id = 1; id <= 5; ++id) navs.Add(makeNode(id, id == 1 ? 0 : 1, "F", "d" + std::to_string(id)));
    navs.Remove("2");
    navs.Remove("4");
    EXPECT_EQ(treeOf(navs), (Rows{"N1 'Data Browser' 1 #000000", "  N3 'd3' 2 #ff0000", "  N5 'd5' 2 #ff0000"}));
}

TEST(TreeSnapshot, FindsNodesByTheirKey) {
    clsNavSchemes navs;
    fillSample(navs);
    const TreeSnapshot tree(navs);
    const auto keyOfFound = [&](std::string_view key) {
        const auto row = tree.find(key);
        return row == TreeSnapshot::none ? "none" : TreeSnapshot::key(tree.row(row));
    };
    for (const auto* key : {"N1", "N2", "N3", "N4", "N5", "N6", "N7"}) EXPECT_EQ(keyOfFound(key), key);
    for (const auto* key : {"", "N", "1", "7", "N8", "N0", "n1", "N01", "N+1", "N 1", "N1 ", "NN1", "M1", "1N"})
        EXPECT_EQ(keyOfFound(key), "none") << "'" << key << "'";
}

TEST(TreeSnapshot, LinksRowsWithParentsAndChildren) {
    clsNavSchemes navs;
    fillSample(navs);
    const TreeSnapshot tree(navs);
    Rows links;
    for (std::uint32_t number = 0; number < tree.count(); ++number) {
        const auto& row = tree.row(number);
        std::string line = std::to_string(number) + ": " + TreeSnapshot::key(row) + " place " +
                           std::to_string(row.placeInParent) + " children";
        for (std::uint32_t place = 0; place < row.childCount; ++place)
            line += " " + std::to_string(tree.child(row, place));
        links.push_back(line + (row.parent == TreeSnapshot::none ? "" : " of " + std::to_string(row.parent)));
    }
    EXPECT_EQ(links,
              (Rows{"0: N1 place 0 children 1 5", "1: N2 place 0 children 2 4 of 0", "2: N4 place 0 children 3 of 1",
                    "3: N7 place 0 children of 2", "4: N5 place 1 children of 1", "5: N3 place 1 children 6 of 0",
                    "6: N6 place 0 children of 5"}));
    EXPECT_EQ(tree.depth(), 3U);
}

TEST(TreeSnapshot, KnowsItsDepth) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F"));
    EXPECT_EQ(TreeSnapshot(navs).depth(), 0U);
    navs.Add(makeNode(2, 1, "F"));
    navs.Add(makeNode(3, 2, "X"));
    EXPECT_EQ(TreeSnapshot(navs).depth(), 1U) << "what is left out does not count";
}

TEST(TreeSnapshot, StaysAsDrawnWhenAFieldChanges) {
    clsNavSchemes navs;
    const auto node = makeNode(2, 1, "G", "old");
    navs.Add(makeNode(1, 0, "F"));
    navs.Add(node);
    const ImageList noImages(nullptr);
    TreeModel model(noImages, nullptr);
    model.show(TreeSnapshot(navs));
    node->descriptionIs = "new";
    node->ID = 7;
    node->setTypeIs("N");
    EXPECT_EQ(treeOf(model), (Rows{"N1 'Data Browser' 1 #000000", "  N2 'old' 3 #0000ff"}));
}

TEST(TreeSnapshot, OutlivesTheFileThatTheNodesCameFrom) {
    std::string first = "1,\"root\",\"F\",0,\"\",\"\",\"\",\"\"\r\n";
    for (int id = 2; id <= 20000; ++id)
        first += std::to_string(id) + ",\"first " + std::to_string(id) + "\",\"N\",1,\"\",\"\",\"\",\"\"\r\n";
    auto navs = std::make_unique<clsNavSchemes>();
    loadBytes(*navs, first);
    const ImageList noImages(nullptr);
    TreeModel model(noImages, nullptr);
    model.show(TreeSnapshot(*navs));
    loadBytes(*navs, "1,\"other\",\"F\",0,\"\",\"\",\"\",\"\"\r\n");
    navs.reset();
    const auto shown = treeOf(model);
    ASSERT_EQ(shown.size(), 20000U);
    EXPECT_EQ(shown.front(), "N1 'Data Browser' 1 #000000");
    EXPECT_EQ(shown[1], "  N2 'first 2' 5 #800000");
    EXPECT_EQ(shown.back(), "  N20000 'first 20000' 5 #800000");
}
