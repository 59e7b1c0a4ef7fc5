// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

constexpr const char* refusedByParent =
    "The Parent of this Node is of Recurring or Non-Generating type. Changes cannot be saved";
constexpr const char* refusedForR =
    "This Node is having Child Nodes. No child Nodes Allowed for Recurring Node. Changes not saved";
constexpr const char* refusedForN =
    "This Node is having Child Nodes. No child Nodes Allowed for Non-Generating Node. Changes not saved";
constexpr const char* refusedForG =
    "This Node is having more than one Child Nodes. Only One Child Node Allowed for Generating Node. Changes "
    "not saved";
constexpr const char* refusedWithoutQuery = "No Generating Query or Stored procedure specified. Changes not saved";

// A scheme that records its messages.
//   1 F ─ 2 G ─ 6 F
//       ├ 3 R
//       ├ 4 N
//       └ 5 F ─ 7 N
//             └ 8 N
struct FuseNav : testing::Test {
    clsNavSchemes navs;
    std::vector<std::string> messages;

    FuseNav() {
        navs.inform = [this](std::string_view message) { messages.emplace_back(message); };
        navs.Add(makeNode(1, 0, "F", "root"));
        navs.Add(makeNode(2, 1, "G", "gen", "spG", "Lkey"));
        navs.Add(makeNode(3, 1, "R", "recur", "spR"));
        navs.Add(makeNode(4, 1, "N", "leaf"));
        navs.Add(makeNode(5, 1, "F", "fixed"));
        navs.Add(makeNode(6, 2, "F", "below gen"));
        navs.Add(makeNode(7, 5, "N", "below fixed"));
        navs.Add(makeNode(8, 5, "N", "below fixed too"));
    }

    void expectRefused(const std::shared_ptr<clsNavScheme>& node, const std::string& message) {
        const auto before = rowsOf(navs);
        messages.clear();
        EXPECT_FALSE(navs.FuseNav(node)) << rowOf(*node);
        EXPECT_EQ(messages, std::vector{message}) << rowOf(*node);
        EXPECT_EQ(rowsOf(navs), before);
    }
    void expectStored(const std::shared_ptr<clsNavScheme>& node) {
        const auto row = rowOf(*node);
        messages.clear();
        EXPECT_TRUE(navs.FuseNav(node)) << row;
        EXPECT_EQ(messages, std::vector<std::string>()) << row;
        ASSERT_NE(navs.Item(node->ID), nullptr) << row;
        EXPECT_EQ(rowOf(*navs.Item(node->ID)), row);
    }
};

}  // namespace

TEST_F(FuseNav, StoresAfterANodeWasRemoved) {
    navs.Remove("4");
    expectStored(makeNode(9, 1, "N", "new"));
    expectStored(makeNode(8, 5, "N", "changed"));
    expectStored(makeNode(4, 1, "N", "the same number again"));
}

TEST_F(FuseNav, AddsANewNodeAtTheEnd) {
    expectStored(makeNode(9, 5, "R", "new", "spX", "Text", "leaf", "Boss"));
    EXPECT_EQ(rowOf(*navs.Item(9)), "9|new|R|5|spX|Text|leaf|Boss");
    EXPECT_EQ(idsOf(navs), "1 2 3 4 5 6 7 8 9");
}

TEST_F(FuseNav, WhatIsEditedAfterwardsIsNotInTheScheme) {
    const auto node = makeNode(9, 5, "R", "new", "spX");
    expectStored(node);
    node->descriptionIs = "edited again";
    node->setQueryIs("");
    EXPECT_FALSE(navs.FuseNav(node));
    EXPECT_EQ(messages, std::vector<std::string>{refusedWithoutQuery});
    EXPECT_EQ(rowOf(*navs.Item(9)), "9|new|R|5|spX|||");
    node->setQueryIs("spY");
    EXPECT_TRUE(navs.FuseNav(node)) << "it exists now";
    EXPECT_EQ(rowOf(*navs.Item(9)), "9|edited again|R|5|spY|||");
}

TEST_F(FuseNav, WritesOverAnExistingNode) {
    const auto stored = navs.Item(4);
    stored->tID = 77;
    stored->tParentIs = 78;
    const auto edited = makeNode(4, 5, "R", "changed", "spNew", "CKey05", "icon", "Boss");
    edited->tID = 1;
    expectStored(edited);
    EXPECT_EQ(navs.Item(4), stored) << "the same record";
    EXPECT_NE(navs.Item(4), edited);
    EXPECT_EQ(rowOf(*stored), "4|changed|R|5|spNew|CKey05|icon|Boss");
    EXPECT_EQ(stored->tID, 77) << "the work fields stay";
    EXPECT_EQ(stored->tParentIs, 78);
    EXPECT_EQ(idsOf(navs), "1 2 3 4 5 6 7 8") << "and the order";
}

TEST_F(FuseNav, StoresTheNewTypeBeforeQueryAndParameter) {
    expectStored(makeNode(4, 1, "R", "was N", "spNew", "Today"));
    expectStored(makeNode(4, 1, "N", "N again"));
    EXPECT_EQ(rowOf(*navs.Item(4)), "4|N again|N|1||||");
}

TEST_F(FuseNav, FusingAStoredNodeWithItselfChangesNothing) {
    const auto row = rowOf(*navs.Item(2));
    EXPECT_TRUE(navs.FuseNav(navs.Item(2)));
    EXPECT_EQ(rowOf(*navs.Item(2)), row);
}

TEST_F(FuseNav, RefusesEveryTypeBelowAnROrNParent) {
    for (const int parent : {3, 4})
        for (const char* type : {"F", "G", "R", "N", "", "X"}) {
            expectRefused(makeNode(9, parent, type, "new", "sp"), refusedByParent);
            expectRefused(makeNode(5, parent, type, "existing", "sp"), refusedByParent);
        }
}

TEST_F(FuseNav, AcceptsEveryOtherParent) {
    expectStored(makeNode(9, 1, "N"));
    expectStored(makeNode(10, 2, "N"));
    expectStored(makeNode(11, 0, "N"));
    expectStored(makeNode(12, 99, "N"));
    navs.Add(makeNode(13, 1, ""));
    expectStored(makeNode(14, 13, "N"));
    navs.Add(makeNode(15, 1, "r"));
    expectStored(makeNode(16, 15, "N"));
}

TEST_F(FuseNav, AcceptsAParentWhoseTypeIsALowerCaseLetter) {
    for (const char* type : {"n", "r", "g", "f"}) {
        navs.Item(4)->setTypeIs(type);
        expectStored(makeNode(9, 4, "N", "new"));
        expectStored(makeNode(9, 4, "F", "existing"));
        navs.Remove("9");
    }
}

TEST_F(FuseNav, StoresAFixedNodeBelowAGeneratingOne) {
    expectStored(makeNode(6, 2, "F", "changed"));
    expectStored(makeNode(9, 2, "F", "new"));
    expectStored(makeNode(7, 2, "F", "moved"));
}

TEST_F(FuseNav, RefusesAnRNodeWithChildren) {
    expectRefused(makeNode(2, 1, "R", "one child", "sp"), refusedForR);
    expectRefused(makeNode(5, 1, "R", "two children", "sp"), refusedForR);
    expectStored(makeNode(4, 1, "R", "none", "sp"));
}

TEST_F(FuseNav, RefusesAnNNodeWithChildren) {
    expectRefused(makeNode(2, 1, "N", "one child"), refusedForN);
    expectRefused(makeNode(5, 1, "N", "two children"), refusedForN);
    expectStored(makeNode(3, 1, "N", "none"));
}

TEST_F(FuseNav, RefusesAGNodeWithTwoChildren) {
    expectRefused(makeNode(5, 1, "G", "two children", "sp"), refusedForG);
    expectStored(makeNode(2, 1, "G", "one child", "sp"));
    expectStored(makeNode(4, 1, "G", "none", "sp"));
}

TEST_F(FuseNav, AcceptsFAndOtherTypesWithAnyNumberOfChildren) {
    for (const char* type : {"F", "", "X", "r", "n", "g"}) expectStored(makeNode(5, 1, type, "two children"));
}

TEST_F(FuseNav, CountsTheChildrenOfANewNodeToo) {
    navs.Add(makeNode(20, 30, "N"));
    expectRefused(makeNode(30, 1, "N"), refusedForN);
    navs.Add(makeNode(21, 30, "N"));
    expectRefused(makeNode(30, 1, "G", "two", "sp"), refusedForG);
}

TEST_F(FuseNav, RefusesGAndRWithoutAQuery) {
    expectRefused(makeNode(9, 1, "R", "new"), refusedWithoutQuery);
    expectRefused(makeNode(9, 1, "G", "new"), refusedWithoutQuery);
    expectRefused(makeNode(2, 1, "G", "existing"), refusedWithoutQuery);
    expectRefused(makeNode(3, 1, "R", "existing", "", "Lkey"), refusedWithoutQuery);
    expectStored(makeNode(9, 1, "R", "a blank is a query", " "));
    for (const char* type : {"F", "N", "", "X", "g", "r"}) expectStored(makeNode(10, 1, type));
}

TEST_F(FuseNav, ChecksTheParentThenTheTypeThenTheQuery) {
    expectRefused(makeNode(5, 4, "G"), refusedByParent);
    expectRefused(makeNode(5, 3, "R"), refusedByParent);
    expectRefused(makeNode(5, 4, "N"), refusedByParent);
    expectRefused(makeNode(5, 1, "G"), refusedForG);
    expectRefused(makeNode(5, 1, "R"), refusedForR);
    expectRefused(makeNode(4, 1, "G"), refusedWithoutQuery);
}

TEST_F(FuseNav, RefusesSilentlyWhereNobodyListens) {
    navs.inform = nullptr;
    EXPECT_FALSE(navs.FuseNav(makeNode(9, 4, "N")));
    EXPECT_EQ(navs.Count(), 8);
}

TEST_F(FuseNav, DrawsNothing) {
    Screen screen;
    screen.show(navs);
    EXPECT_TRUE(navs.FuseNav(makeNode(9, 1, "N")));
    EXPECT_TRUE(navs.FuseNav(makeNode(9, 1, "F")));
    EXPECT_FALSE(navs.FuseNav(makeNode(9, 1, "R")));
    EXPECT_EQ(screen.taken(), Calls());
}

// Nodes 10, 30, 2 and 3 are now 1, 2, 3 and 4, still filed under 10, 30, 2 and 3.
struct FuseRenumbered : testing::Test {
    clsNavSchemes navs;
    std::vector<std::string> messages;

    FuseRenumbered() {
        navs.inform = [this](std::string_view message) { messages.emplace_back(message); };
        navs.Add(makeNode(10, 0, "F", "ten"));
        navs.Add(makeNode(30, 10, "G", "thirty", "spG"));
        navs.Add(makeNode(2, 10, "N", "two"));
        navs.Add(makeNode(3, 10, "F", "three"));
        EXPECT_TRUE(navs.Renumber());
        EXPECT_EQ(linksOf(navs), "1<0 2<1 3<1 4<1");
    }
};

TEST_F(FuseRenumbered, CloneNavCopiesTheNodeFiledUnderTheNumber) {
    EXPECT_EQ(rowOf(*navs.CloneNav("2")), "3|two|N|1||||");
    EXPECT_EQ(rowOf(*navs.CloneNav("30")), "2|thirty|G|1|spG|||");
    EXPECT_EQ(rowOf(*navs.CloneNav("1")), "0|||0||||");
}

TEST_F(FuseRenumbered, WritesOverTheNodeFiledUnderTheNumber) {
    EXPECT_TRUE(navs.FuseNav(makeNode(3, 1, "N", "changed")));
    EXPECT_EQ(rowsOf(navs), (Rows{"1|ten|F|0||||", "2|thirty|G|1|spG|||", "3|two|N|1||||", "3|changed|N|1||||"}));
    EXPECT_EQ(messages, std::vector<std::string>());
}

TEST_F(FuseRenumbered, LooksForTheParentUnderItsNumber) {
    // The node filed under 2 is the N node, though its ID is 3; under 3 is an F node, with the ID 4.
    EXPECT_FALSE(navs.FuseNav(makeNode(50, 2, "N")));
    EXPECT_EQ(messages, std::vector<std::string>{refusedByParent});
    EXPECT_TRUE(navs.FuseNav(makeNode(50, 3, "N")));
}

TEST_F(FuseRenumbered, DoesNotStoreANewNodeWhoseKeyIsTaken) {
    const auto before = rowsOf(navs);
    const auto node = makeNode(30, 1, "N", "new");
    EXPECT_FALSE(navs.FuseNav(node));
    EXPECT_EQ(messages, std::vector<std::string>());
    EXPECT_EQ(rowsOf(navs), before);
    EXPECT_EQ(rowOf(*node), "30|new|N|1||||") << "what was entered is not lost";
}

TEST_F(FuseRenumbered, DoesNotStoreAnExistingNodeThatIsFiledUnderAnotherNumber) {
    const auto before = rowsOf(navs);
    EXPECT_FALSE(navs.FuseNav(makeNode(4, 1, "F", "changed")));
    EXPECT_EQ(messages, std::vector<std::string>());
    EXPECT_EQ(rowsOf(navs), before);
}

TEST_F(FuseRenumbered, StoresBothOnceTheNodesAreFiledAnew) {
    navs.FileAnew();
    EXPECT_TRUE(navs.FuseNav(makeNode(30, 1, "N", "new")));
    EXPECT_TRUE(navs.FuseNav(makeNode(4, 1, "F", "changed")));
    EXPECT_EQ(rowsOf(navs),
              (Rows{"1|ten|F|0||||", "2|thirty|G|1|spG|||", "3|two|N|1||||", "4|changed|F|1||||", "30|new|N|1||||"}));
}

TEST_F(FuseRenumbered, TheOtherRulesComeBeforeThat) {
    EXPECT_FALSE(navs.FuseNav(makeNode(30, 1, "R", "new")));
    EXPECT_EQ(messages, std::vector<std::string>{refusedWithoutQuery});
}

TEST_F(FuseRenumbered, StoresAgainOnceSavedAndLoaded) {
    loadBytes(navs, savedBytes(navs));
    EXPECT_TRUE(navs.FuseNav(makeNode(30, 1, "N", "new")));
    EXPECT_TRUE(navs.FuseNav(makeNode(4, 1, "F", "changed")));
    EXPECT_EQ(rowsOf(navs),
              (Rows{"1|ten|F|0||||", "2|thirty|G|1|spG|||", "3|two|N|1||||", "4|changed|F|1||||", "30|new|N|1||||"}));
    EXPECT_EQ(messages, std::vector<std::string>());
}

TEST(CloneNav, CopiesEveryFieldButTheWorkFields) {
    clsNavSchemes navs;
    const auto original = makeNode(7, 1, "R", "recur", "spR", "CKey05", "leaf", "Boss");
    original->tID = 8;
    original->tParentIs = 9;
    navs.Add(original);
    const auto copy = navs.CloneNav("7");
    EXPECT_NE(copy, original);
    EXPECT_EQ(rowOf(*copy), "7|recur|R|1|spR|CKey05|leaf|Boss");
    EXPECT_EQ(copy->tID, 0);
    EXPECT_EQ(copy->tParentIs, 0);
    EXPECT_EQ(navs.Count(), 1);
    copy->descriptionIs = "changed";
    copy->setTypeIs("N");
    EXPECT_EQ(rowOf(*original), "7|recur|R|1|spR|CKey05|leaf|Boss");
}

TEST(CloneNav, OfAMissingKeyIsABlankNode) {
    clsNavSchemes navs;
    navs.Add(makeNode(7, 1, "R", "recur", "spR"));
    for (const char* key : {"8", "07", " 7", "", "N7"}) {
        const auto copy = navs.CloneNav(key);
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(rowOf(*copy), "0|||0||||") << "'" << key << "'";
    }
    EXPECT_EQ(idsOf(navs), "7");
}
