// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/GridRows.h"

namespace {

Rows cellsOf(const clsNavSchemes& navs) {
    return cellsOf(NavGridRows(navs), 8);
}

/// The colours of rows of these types, one below the other.
Rows coloursOf(std::initializer_list<const char*> types) {
    clsNavSchemes navs;
    for (const auto* type : types) navs.Add(makeNode(navs.Count() + 1, navs.Count(), type));
    return coloursOf(NavGridRows(navs));
}

std::shared_ptr<clsNavScheme> makeFullNode() {
    auto node = makeNode(12, 3, "G", "Orders");
    node->setQueryIs("spN_Orders");
    node->setParmIs("CKey05");
    node->iconIs = "folder";
    node->roleIs = "clerk";
    return node;
}

constexpr const char* black = "#000000";
constexpr const char* red = "#ff0000";
constexpr const char* blue = "#0000ff";
constexpr const char* green = "#008000";
constexpr const char* darkRed = "#800000";

}  // namespace

TEST(NavGridRows, OfNothingAreNone) {
    EXPECT_EQ(NavGridRows().count(), 0U);
    EXPECT_EQ(NavGridRows(clsNavSchemes()).count(), 0U);
}

TEST(NavGridRows, OfANewSchemeAreItsRoot) {
    clsNavSchemes navs;
    navs.NewScheme();
    EXPECT_EQ(cellsOf(navs), Rows{"1|Data Browser|F|0|||leaf|"});
    EXPECT_EQ(coloursOf(NavGridRows(navs)), Rows{red}) << "the root is coloured by its type";
}

TEST(NavGridRows, ShowEachFieldInItsColumn) {
    clsNavSchemes navs;
    navs.Add(makeFullNode());
    EXPECT_EQ(cellsOf(navs), Rows{"12|Orders|G|3|spN_Orders|CKey05|folder|clerk"});
}

TEST(NavGridRows, ShowTheDescriptionOfTheRootToo) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "Sales"));
    EXPECT_EQ(cellsOf(navs), Rows{"1|Sales|F|0||||"});
}

TEST(NavGridRows, AreAllNodesInTheOrderInWhichTheyWereAdded) {
    clsNavSchemes navs;
    navs.Add(makeNode(5, 3, "N", "below 3"));
    navs.Add(makeNode(9, 0, "F", "root"));
    navs.Add(makeNode(8, 77, "F", "of no parent"));
    navs.Add(makeNode(3, 9, "G", "below the root"));
    navs.Add(makeNode(2, 0, "F", "second root"));
    navs.Add(makeNode(1, 9, "X", "of unknown type"));
    EXPECT_EQ(cellsOf(navs),
              (Rows{"5|below 3|N|3||||", "9|root|F|0||||", "8|of no parent|F|77||||", "3|below the root|G|9||||",
                    "2|second root|F|0||||", "1|of unknown type|X|9||||"}));
}

TEST(NavGridRows, LeaveNoGapForRemovedNodes) {
    clsNavSchemes navs;
    for (int id = 1; id <= 4; ++id) navs.Add(makeNode(id, id - 1, id % 2 ? "F" : "G"));
    navs.Remove("2");
    navs.Remove("3");
    EXPECT_EQ(cellsOf(navs), (Rows{"1||F|0||||", "4||G|3||||"}));
    EXPECT_EQ(coloursOf(NavGridRows(navs)), (Rows{red, blue}));
}

TEST(NavGridRows, ShowNumbersAsPlainDecimals) {
    clsNavSchemes navs;
    navs.Add(makeNode(-2147483647 - 1, 2147483647, "F"));
    navs.Add(makeNode(0, -1, "F"));
    navs.Add(makeNode(1000000, 0, "F"));
    EXPECT_EQ(cellsOf(navs), (Rows{"-2147483648||F|2147483647||||", "0||F|-1||||", "1000000||F|0||||"}));
}

TEST(NavGridRows, KeepEveryByteOfATextInItsCell) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", std::string_view("\xE4\t|\0<dummy>", 11)));
    EXPECT_EQ(NavGridRows(navs).cell(0, 1), std::string("\xE4\t|\0<dummy>", 11));
}

TEST(NavGridRows, HaveTheColourOfTheirType) {
    EXPECT_EQ(coloursOf({"F", "G", "R", "N"}), (Rows{red, blue, green, darkRed}));
}

TEST(NavGridRows, OfUnknownTypeTakeTheColourOfTheRowAbove) {
    EXPECT_EQ(coloursOf({"R", "", "X", "N", "?", "F", "f", "G", "g"}),
              (Rows{green, green, green, darkRed, darkRed, red, red, blue, blue}));
}

TEST(NavGridRows, OfUnknownTypeBelowTheHeaderAreBlackLikeTheHeader) {
    EXPECT_EQ(coloursOf({"", "Type", "G", "X"}), (Rows{black, black, blue, blue}));
}

TEST(NavGridRows, StartBlackAgainWithEveryRedraw) {
    EXPECT_EQ(coloursOf({"F"}), Rows{red});
    EXPECT_EQ(coloursOf({"X"}), Rows{black});
}

TEST(NavGridRows, SayTheirType) {
    clsNavSchemes navs;
    for (const auto* type : {"F", "G", "R", "N", "X", ""}) navs.Add(makeNode(navs.Count() + 1, navs.Count(), type));
    const NavGridRows rows(navs);
    Rows spoken;
    for (std::size_t row = 0; row < rows.count(); ++row) spoken.push_back(rows.spoken(row).toStdString());
    EXPECT_EQ(spoken, (Rows{"Fixed node", "Generating node", "Recurring node", "Non-generating node",
                            "Node of unknown type", "Node of unknown type"}));
}

TEST(NavGridRows, TellTheWidthOfTheirNumbers) {
    clsNavSchemes navs;
    navs.Add(makeNode(7, 0, "F"));
    navs.Add(makeNode(-12345, 100, "F"));
    navs.Add(makeNode(999, 7, "F"));
    const NavGridRows rows(navs);
    EXPECT_EQ(rows.widestNumber(0), 6U) << "-12345";
    EXPECT_EQ(rows.widestNumber(3), 3U) << "100";
    for (const int texts : {1, 2, 4, 5, 6, 7}) EXPECT_EQ(rows.widestNumber(texts), 0U) << texts;
    EXPECT_EQ(NavGridRows().widestNumber(0), 0U);
}

TEST(NavGridRows, StayAsDrawnWhenAFieldChanges) {
    clsNavSchemes navs;
    const auto node = makeFullNode();
    navs.Add(node);
    const NavGridRows rows(navs);
    node->ID = 99;
    node->parentIs = 98;
    node->descriptionIs = "changed";
    node->iconIs = "leaf";
    node->roleIs = "";
    node->setTypeIs("F");
    EXPECT_EQ(cellsOf(rows, 8), Rows{"12|Orders|G|3|spN_Orders|CKey05|folder|clerk"});
    EXPECT_EQ(coloursOf(rows), Rows{blue});
    EXPECT_EQ(rows.spoken(0), QStringLiteral("Generating node"));
}

TEST(NavGridRows, OutliveTheNodes) {
    auto navs = std::make_unique<clsNavSchemes>();
    navs->Add(makeFullNode());
    navs->Add(makeNode(13, 12, "R", "a text that is long enough to lie in memory of its own"));
    const NavGridRows rows(*navs);
    navs->Remove("12");
    navs.reset();
    EXPECT_EQ(cellsOf(rows, 8), (Rows{"12|Orders|G|3|spN_Orders|CKey05|folder|clerk",
                                      "13|a text that is long enough to lie in memory of its own|R|12||||"}));
}

TEST(NavGridRows, OutliveTheFileThatTheNodesCameFrom) {
    // Large enough to get memory of its own, which goes back to the operating system.
    std::string first;
    std::string second;
    for (int id = 1; id <= 20000; ++id) {
        first += std::to_string(id) + ",\"first " + std::to_string(id) +
                 "\",\"R\",0,\"query\",\"Lkey\",\"icon\",\"role\"\r\n";
        second += std::to_string(id) + ",\"SECOND\",\"N\",7,\"\",\"\",\"ICON\",\"ROLE\"\r\n";
    }
    clsNavSchemes navs;
    loadBytes(navs, first);
    ASSERT_EQ(navs.Count(), 20000);
    const NavGridRows rows(navs);
    loadBytes(navs, second);
    ASSERT_EQ(navs.Item(20000)->descriptionIs, "SECOND");
    const auto cells = cellsOf(rows, 8);
    ASSERT_EQ(cells.size(), 20000U);
    EXPECT_EQ(cells.front(), "1|first 1|R|0|query|Lkey|icon|role");
    EXPECT_EQ(cells[9999], "10000|first 10000|R|0|query|Lkey|icon|role");
    EXPECT_EQ(cells.back(), "20000|first 20000|R|0|query|Lkey|icon|role");
}

TEST(NavGridRows, OutliveFilesAndOwnTextsMixed) {
    clsNavSchemes navs;
    loadBytes(navs, "1,\"from the file\",\"F\",0,\"\",\"\",\"icon of the file\",\"\"\r\n");
    navs.Add(makeNode(2, 1, "N", "own text"));
    navs.Item(1)->roleIs = "own role";
    const NavGridRows rows(navs);
    navs.NewScheme();
    EXPECT_EQ(cellsOf(rows, 8), (Rows{"1|from the file|F|0|||icon of the file|own role", "2|own text|N|1||||"}));
}

TEST(NavGridRows, FindTheFirstRowWithANumber) {
    clsNavSchemes navs;
    for (const int id : {4, -2, 9}) navs.Add(makeNode(id, 1, "N"));
    navs.Item(9)->ID = 4;
    const NavGridRows rows(navs);
    EXPECT_EQ(rows.find(4), 0U);
    EXPECT_EQ(rows.find(-2), 1U);
    EXPECT_EQ(rows.find(9), NavGridRows::none);
    EXPECT_EQ(NavGridRows().find(0), NavGridRows::none);
}
