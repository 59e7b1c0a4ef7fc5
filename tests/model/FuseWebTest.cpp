// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

constexpr const char* refusedBlankQuery = "Query field cannot be blank...";

struct FuseWeb : testing::Test {
    clsNavSchemes navs;
    std::vector<std::string> messages;

    FuseWeb() {
        navs.inform = [this](std::string_view message) { messages.emplace_back(message); };
    }
    // Stores a paragraph with form 8 and columns 2:3, as a new one and over an existing one, and checks the result.
    void expectNormalised(const char* type, const std::string& form, const std::string& columns) {
        const std::string start = "|4|6|Orders|spW_Orders|Lkey|" + std::string(type) + "|";
        clsNavSchemes scheme;
        const auto added = makeFullParagraph(1, type);
        EXPECT_TRUE(scheme.FuseWeb(added)) << type;
        scheme.oWebs.Add(makeParagraph(2, 1));
        const auto edited = makeFullParagraph(2, type);
        EXPECT_TRUE(scheme.FuseWeb(edited)) << type;
        EXPECT_EQ(rowsOf(scheme.oWebs),
                  (Rows{"1" + start + form + "|" + columns + "|more", "2" + start + form + "|" + columns + "|"}));
        EXPECT_EQ(rowOf(*edited), "2" + start + form + "|" + columns + "|more") << "the edited copy is changed too";
    }
};

}  // namespace

TEST_F(FuseWeb, NormalisesByType) {
    expectNormalised("C", "0", "2:3");
    expectNormalised("H", "8", "");
    expectNormalised("E", "0", "");
    expectNormalised("M", "0", "");
    expectNormalised("I", "0", "");
    expectNormalised("S", "0", "2:3");
    expectNormalised("T", "0", "2:3");
}

TEST_F(FuseWeb, KeepsFormAndColumnsOfEveryOtherType) {
    for (const char* type : {"", "X", "c", "h", "e", "m", "i", "s", "t", "H ", " I", "CH"})
        expectNormalised(type, "8", "2:3");
}

TEST_F(FuseWeb, AddsANewParagraphAtTheEnd) {
    navs.oWebs.Add(makeParagraph(6, 1));
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(5, "S")));
    EXPECT_EQ(rowsOf(navs.oWebs), (Rows{"6|1|0|||||0||", "5|4|6|Orders|spW_Orders|Lkey|S|0|2:3|more"}));
    EXPECT_EQ(messages, std::vector<std::string>());
}

TEST_F(FuseWeb, WhatIsEditedAfterwardsIsNotInTheScheme) {
    const auto paragraph = makeFullParagraph(5, "S");
    EXPECT_TRUE(navs.FuseWeb(paragraph));
    paragraph->titleIs = "edited again";
    paragraph->queryIs = "";
    EXPECT_FALSE(navs.FuseWeb(paragraph));
    EXPECT_EQ(messages, std::vector<std::string>{refusedBlankQuery});
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"5|4|6|Orders|spW_Orders|Lkey|S|0|2:3|more"});
    paragraph->queryIs = "spY";
    EXPECT_TRUE(navs.FuseWeb(paragraph)) << "it exists now";
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"5|4|6|edited again|spY|Lkey|S|0|2:3|more"});
}

TEST_F(FuseWeb, WritesOverAnExistingParagraphButKeepsItsExtra) {
    const auto stored = makeParagraph(5, 1, 1, "old");
    stored->extra = "kept";
    stored->tXST1 = 3;
    stored->status = "C";
    navs.oWebs.Add(stored);
    navs.oWebs.Add(makeParagraph(6, 1));
    const auto edited = makeFullParagraph(5, "H");
    EXPECT_TRUE(navs.FuseWeb(edited));
    EXPECT_EQ(navs.oWebs.Item(5), stored);
    EXPECT_EQ(rowsOf(navs.oWebs), (Rows{"5|4|6|Orders|spW_Orders|Lkey|H|8||kept", "6|1|0|||||0||"}));
    EXPECT_EQ(stored->tXST1, 3);
    EXPECT_EQ(stored->status, "C");
    EXPECT_EQ(edited->extra, "more");
    EXPECT_EQ(messages, std::vector<std::string>());
}

TEST_F(FuseWeb, RefusesAnEmptyQuery) {
    navs.oWebs.Add(makeParagraph(5, 1));
    for (const int id : {5, 6}) {
        messages.clear();
        const auto paragraph = makeFullParagraph(id, "I");
        paragraph->queryIs = "";
        EXPECT_FALSE(navs.FuseWeb(paragraph));
        EXPECT_EQ(messages, std::vector<std::string>{refusedBlankQuery});
        EXPECT_EQ(paragraph->formIs, 8) << "nothing is normalised";
        EXPECT_EQ(paragraph->colsAre, "2:3");
    }
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"5|1|0|||||0||"});
}

TEST_F(FuseWeb, TakesABlankForAQuery) {
    const auto paragraph = makeFullParagraph(5, "S");
    paragraph->queryIs = " ";
    EXPECT_TRUE(navs.FuseWeb(paragraph));
    EXPECT_EQ(navs.oWebs.Item(5)->queryIs, " ");
}

TEST_F(FuseWeb, StoresAfterAParagraphWasRemoved) {
    for (int id = 1; id <= 3; ++id) navs.oWebs.Add(makeParagraph(id, 1));
    navs.oWebs.Remove("2");
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(4, "S")));
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(3, "S")));
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(2, "S")));
    EXPECT_EQ(navs.oWebs.Count(), 4);
}

TEST_F(FuseWeb, DoesNotStoreANewParagraphWhoseKeyIsTaken) {
    const auto renamed = makeParagraph(5, 1);
    navs.oWebs.Add(renamed);
    renamed->ID = 7;
    EXPECT_FALSE(navs.FuseWeb(makeFullParagraph(5, "S")));
    EXPECT_EQ(messages, std::vector<std::string>());
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"7|1|0|||||0||"});
}

TEST_F(FuseWeb, DoesNotStoreAnExistingParagraphThatIsFiledUnderAnotherNumber) {
    const auto renamed = makeParagraph(5, 1);
    navs.oWebs.Add(renamed);
    renamed->ID = 7;
    EXPECT_FALSE(navs.FuseWeb(makeFullParagraph(7, "S")));
    EXPECT_EQ(messages, std::vector<std::string>());
    EXPECT_EQ(rowsOf(navs.oWebs), Rows{"7|1|0|||||0||"});
}

TEST_F(FuseWeb, RefusesSilentlyWhereNobodyListens) {
    navs.inform = nullptr;
    EXPECT_FALSE(navs.FuseWeb(makeParagraph(5, 1)));
    EXPECT_EQ(navs.oWebs.Count(), 0);
}

TEST_F(FuseWeb, DrawsNothing) {
    Screen screen;
    screen.show(navs);
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(5, "S")));
    EXPECT_TRUE(navs.FuseWeb(makeFullParagraph(5, "H")));
    EXPECT_FALSE(navs.FuseWeb(makeParagraph(5, 1)));
    EXPECT_EQ(screen.taken(), Calls());
}
