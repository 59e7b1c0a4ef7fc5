// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

clsNavScheme generating() {
    clsNavScheme node;
    node.setTypeIs("G");
    node.setQueryIs("spN_Customers");
    node.setParmIs("Lkey");
    return node;
}

}  // namespace

TEST(Node, IsBlankWhenNew) {
    const clsNavScheme node;
    EXPECT_EQ(rowOf(node), "0|||0||||");
    EXPECT_EQ(node.tID, 0);
    EXPECT_EQ(node.tParentIs, 0);
}

TEST(Node, TypesFAndNEmptyQueryAndParameter) {
    for (const char* type : {"F", "N"}) {
        auto node = generating();
        node.setTypeIs(type);
        EXPECT_EQ(node.typeIs(), type);
        EXPECT_EQ(node.queryIs(), "") << type;
        EXPECT_EQ(node.parmIs(), "") << type;
    }
}

TEST(Node, EveryOtherTypeLeavesQueryAndParameter) {
    for (const char* type : {"G", "R", "", "f", "n", "g", "r", "X", "F ", " N", "FN", "NN"}) {
        auto node = generating();
        node.setTypeIs(type);
        EXPECT_EQ(node.typeIs(), type);
        EXPECT_EQ(node.queryIs(), "spN_Customers") << type;
        EXPECT_EQ(node.parmIs(), "Lkey") << type;
    }
}

TEST(Node, TypeTouchesNoOtherField) {
    auto node = makeNode(3, 2, "G", "Sales", "spN", "Text", "leaf", "boss");
    node->tID = 8;
    node->tParentIs = 9;
    node->setTypeIs("N");
    EXPECT_EQ(rowOf(*node), "3|Sales|N|2|||leaf|boss");
    EXPECT_EQ(node->tID, 8);
    EXPECT_EQ(node->tParentIs, 9);
}

TEST(Node, GoingBackToGRestoresNothing) {
    auto node = generating();
    node.setTypeIs("N");
    EXPECT_EQ(node.queryIs(), "");
    EXPECT_EQ(node.parmIs(), "");
    node.setTypeIs("G");
    EXPECT_EQ(node.typeIs(), "G");
    EXPECT_EQ(node.queryIs(), "");
    EXPECT_EQ(node.parmIs(), "");
}

TEST(Node, FAndNRefuseAQuery) {
    for (const char* type : {"F", "N"}) {
        clsNavScheme node;
        node.setTypeIs(type);
        node.setQueryIs("spN_Customers");
        EXPECT_EQ(node.queryIs(), "") << type;
    }
}

TEST(Node, FAndNRefuseAParameter) {
    for (const char* type : {"F", "N"}) {
        clsNavScheme node;
        node.setTypeIs(type);
        node.setParmIs("Today");
        EXPECT_EQ(node.parmIs(), "") << type;
    }
}

TEST(Node, EveryOtherTypeTakesQueryAndParameter) {
    for (const char* type : {"", "G", "R", "f", "n", "X", "F ", " F"}) {
        clsNavScheme node;
        node.setTypeIs(type);
        node.setQueryIs("spN_Customers 3");
        node.setParmIs("CKey05");
        EXPECT_EQ(node.queryIs(), "spN_Customers 3") << type;
        EXPECT_EQ(node.parmIs(), "CKey05") << type;
    }
}

TEST(Node, TakesQueryAndParameterBeforeItsType) {
    clsNavScheme node;
    node.setQueryIs("spN_Customers");
    node.setParmIs("Text");
    node.setTypeIs("R");
    EXPECT_EQ(node.queryIs(), "spN_Customers");
    EXPECT_EQ(node.parmIs(), "Text");
}

TEST(Node, QueryAndParameterAreSetApart) {
    auto node = generating();
    node.setQueryIs("spN_Other");
    EXPECT_EQ(node.parmIs(), "Lkey");
    node.setParmIs("");
    EXPECT_EQ(node.queryIs(), "spN_Other");
    EXPECT_EQ(node.parmIs(), "");
}
