// SPDX-License-Identifier: MIT
#include "model/Text.h"

#include <cstring>
#include <memory>
#include <utility>

#include "Helpers.h"

static_assert(sizeof(Text) == sizeof(void*), "millions of texts: one pointer each");

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

// Bytes as in a file that was read, with the spare byte after them.
struct FileOf {
    explicit FileOf(std::string_view content) : bytes(std::string(content) + '\0'), first(bytes.data()) {}
    FileOf(const FileOf&) = delete;
    FileOf& operator=(const FileOf&) = delete;
    [[nodiscard]] Text textAt(std::size_t from, std::size_t to) { return Text::inFile(first + from, first + to); }
    void overwrite() { std::ranges::fill(bytes, 'X'); }

    std::string bytes;
    char* first;
};

}  // namespace

TEST(Text, IsEmptyAtFirst) {
    const Text text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.view(), "");
    EXPECT_EQ(text.view().size(), 0U);
}

TEST(Text, IsMadeFromEveryKindOfString) {
    EXPECT_EQ(Text("literal").view(), "literal");
    EXPECT_EQ(Text(std::string("string")).view(), "string");
    EXPECT_EQ(Text(std::string_view("viewed").substr(1, 3)).view(), "iew");
    EXPECT_TRUE(Text("").empty());
    EXPECT_TRUE(Text(std::string()).empty());
    EXPECT_FALSE(Text(" ").empty());
}

TEST(Text, KeepsEveryByteThatItIsGiven) {
    const auto bytes = allBytesBut("");
    ASSERT_EQ(bytes.size(), 256U);
    EXPECT_EQ(Text(bytes).view(), bytes);
    EXPECT_EQ(Text("\n").view(), "\n");
    EXPECT_EQ(Text(std::string(1, '\0')).view(), std::string(1, '\0'));
    EXPECT_EQ(Text(std::string(100'000, 'o')).view(), std::string(100'000, 'o'));
}

TEST(Text, TellsTheLetterOfATextOfOneByte) {
    EXPECT_EQ(Text("F").letter(), 'F');
    EXPECT_EQ(Text("\n").letter(), '\n');
    EXPECT_EQ(Text("\xE9").letter(), '\xE9');
    for (const auto& text : {""s, "FG"s, "F "s, "F\0"s, "\0"s, "long text"s})
        EXPECT_EQ(Text(text).letter(), 0) << text;
    FileOf file(",F,GG,\xE9,o,");
    EXPECT_EQ(file.textAt(1, 2).letter(), 'F');
    EXPECT_EQ(file.textAt(3, 5).letter(), 0);
    EXPECT_EQ(file.textAt(3, 3).letter(), 0);
    EXPECT_EQ(file.textAt(6, 7).letter(), '\xE9');
    EXPECT_EQ(file.textAt(8, 9).letter(), 'o');
}

TEST(Text, IsIndependentOfTheStringItWasMadeFrom) {
    std::string bytes = "before";
    const Text text(bytes);
    bytes = "after!";
    EXPECT_EQ(text.view(), "before");
}

TEST(Text, CopyKeepsItsBytesWhenTheOriginalChanges) {
    Text original("old");
    const Text copy(original);
    Text assigned("something else");
    assigned = original;
    original = "new";
    EXPECT_EQ(original.view(), "new");
    EXPECT_EQ(copy.view(), "old");
    EXPECT_EQ(assigned.view(), "old");
}

TEST(Text, CopySharesOwnedBytes) {
    const Text original("shared");
    const Text copy(original);
    Text assigned;
    assigned = copy;
    EXPECT_EQ(copy.view().data(), original.view().data());
    EXPECT_EQ(assigned.view().data(), original.view().data());
}

TEST(Text, CopyOutlivesTheOriginal) {
    auto original = std::make_unique<Text>("kept");
    const Text copy(*original);
    original.reset();
    const Text other("thrown over the freed bytes?");
    EXPECT_EQ(copy.view(), "kept");
}

TEST(Text, AssigningEmptiesAndFills) {
    Text text("full");
    text = Text();
    EXPECT_TRUE(text.empty());
    text = "again";
    EXPECT_EQ(text.view(), "again");
    text = {};
    EXPECT_TRUE(text.empty());
}

TEST(Text, AssigningToItselfChangesNothing) {
    Text text("same");
    const Text& alias = text;
    text = alias;
    EXPECT_EQ(text.view(), "same");
}

TEST(Text, MovingTakesTheBytesAlong) {
    Text from("moved");
    const char* bytes = from.view().data();
    const Text to(std::move(from));
    EXPECT_EQ(to.view(), "moved");
    EXPECT_EQ(to.view().data(), bytes);
    Text target("old");
    Text source("new");
    target = std::move(source);
    EXPECT_EQ(target.view(), "new");
}

TEST(Text, ComparesByItsBytes) {
    const Text text("abc");
    EXPECT_TRUE(text == Text("abc"));
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(text == std::string("abc"));
    EXPECT_TRUE(text == std::string_view("abc"));
    EXPECT_FALSE(text == Text("ab"));
    EXPECT_FALSE(text == "abcd");
    EXPECT_FALSE(text == std::string("ABC"));
    EXPECT_FALSE(text == "abc\0"sv);
    EXPECT_TRUE(Text() == "");
    EXPECT_TRUE(Text() == Text(""));
    EXPECT_FALSE(Text() == Text(" "));
}

TEST(TextInFile, LiesInTheBytesOfTheFile) {
    FileOf file("7,Sales,F");
    const Text text = file.textAt(2, 7);
    EXPECT_EQ(text.view(), "Sales");
    EXPECT_EQ(text.view().data(), file.first + 2);
    EXPECT_EQ(file.bytes, "7\nSales\nF\0"s);
}

TEST(TextInFile, OfOneByteTouchesNoByteOfTheFile) {
    for (int byte = 0; byte < 256; ++byte) {
        if (byte == '\n') continue;
        FileOf file("7," + std::string(1, static_cast<char>(byte)) + ",8");
        const auto before = file.bytes;
        const Text text = file.textAt(2, 3);
        EXPECT_EQ(file.bytes, before) << byte;
        EXPECT_EQ(text.view(), before.substr(2, 1)) << byte;
        EXPECT_EQ(text.letter(), before[2]) << byte;
        EXPECT_TRUE(text == before.substr(2, 1)) << byte;
        EXPECT_FALSE(text.isOwned()) << byte;
        EXPECT_FALSE(text.empty()) << byte;
        file.overwrite();
        EXPECT_EQ(text.view(), before.substr(2, 1)) << byte;
        EXPECT_EQ(Text(text).view(), before.substr(2, 1)) << byte;
    }
}

TEST(TextInFile, MayEndAtTheSpareByteBehindTheFile) {
    FileOf file("7,Sales");
    EXPECT_EQ(file.textAt(2, 7).view(), "Sales");
}

TEST(TextInFile, WithoutBytesIsEmptyAndTouchesNothing) {
    FileOf file("7,,F");
    const Text text = file.textAt(2, 2);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(file.bytes, "7,,F\0"s);
}

TEST(TextInFile, KeepsEveryByteButTheLineFeed) {
    const auto bytes = allBytesBut("\n");
    FileOf file("," + bytes + ",");
    EXPECT_EQ(file.textAt(1, 1 + bytes.size()).view(), bytes);
}

TEST(TextInFile, NeighboursDoNotDisturbEachOther) {
    FileOf file("1,a,bc,d");
    const Text a = file.textAt(2, 3);
    const Text bc = file.textAt(4, 6);
    const Text d = file.textAt(7, 8);
    EXPECT_EQ(a.view(), "a");
    EXPECT_EQ(bc.view(), "bc");
    EXPECT_EQ(d.view(), "d");
}

TEST(TextInFile, ComparesByItsBytes) {
    FileOf file("7,abc,abc,F");
    const Text text = file.textAt(2, 5);
    const Text same = file.textAt(6, 9);
    EXPECT_TRUE(text == same);
    EXPECT_TRUE(text == Text("abc"));
    EXPECT_TRUE(Text("abc") == text);
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(text == std::string("abc"));
    EXPECT_TRUE(text == std::string_view("abc"));
    EXPECT_FALSE(text == "");
    EXPECT_FALSE(text == "ab");
    EXPECT_FALSE(text == "abd");
    EXPECT_FALSE(text == "Abc");
    EXPECT_FALSE(text == "abcd");
    EXPECT_FALSE(text == "abc\n") << "what ends the text in the file is no part of it";
    EXPECT_FALSE(text == "abc\0"sv);
    EXPECT_FALSE(Text() == text);
    EXPECT_FALSE(text == Text());
}

TEST(TextInFile, ComparesNoFurtherThanItsEnd) {
    FileOf file("7,abc,,FG");
    const Text text = file.textAt(2, 5);
    const Text afterAnEmptyOne = file.textAt(7, 9);
    EXPECT_EQ(file.bytes, "7\nabc\n\nFG\n"s);
    EXPECT_FALSE(text == "abc\n");
    EXPECT_FALSE(text == "abc\n\nFG");
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(afterAnEmptyOne == "FG");
}

TEST(TextInFile, CopiesOwnTheirBytes) {
    FileOf file("7,Sales,F");
    const Text text = file.textAt(2, 7);
    const Text copy(text);
    Text assigned("something else");
    assigned = text;
    file.overwrite();
    EXPECT_EQ(copy.view(), "Sales");
    EXPECT_EQ(assigned.view(), "Sales");
}

TEST(TextInFile, MovingLeavesTheBytesInTheFile) {
    FileOf file("7,Sales,F");
    Text text = file.textAt(2, 7);
    const Text moved(std::move(text));
    EXPECT_EQ(moved.view().data(), file.first + 2);
    EXPECT_EQ(moved.view(), "Sales");
}

TEST(TextInFile, MayBeSetToAnotherText) {
    FileOf file("7,Sales,F");
    Text text = file.textAt(2, 7);
    text = "Buys";
    EXPECT_EQ(text.view(), "Buys");
    EXPECT_EQ(file.bytes, "7\nSales\nF\0"s);
}

TEST(Text, TellsWhetherItOwnsItsBytes) {
    FileOf file("7,Sales,F");
    const Text inFile = file.textAt(2, 7);
    EXPECT_FALSE(Text().isOwned());
    EXPECT_FALSE(inFile.isOwned());
    EXPECT_TRUE(Text("owned").isOwned());
    const Text copy(inFile);
    EXPECT_TRUE(copy.isOwned());
}

TEST(TextRef, IsEmptyAtFirst) {
    EXPECT_EQ(Text::Ref().view(), "");
    EXPECT_EQ(Text().ref().view(), "");
}

TEST(TextRef, CopiesNoBytes) {
    const Text owned("owned");
    EXPECT_EQ(owned.ref().view(), "owned");
    EXPECT_EQ(owned.ref().view().data(), owned.view().data());
    FileOf file("7,Sales,F");
    const Text inFile = file.textAt(2, 7);
    EXPECT_EQ(inFile.ref().view(), "Sales");
    EXPECT_EQ(inFile.ref().view().data(), file.first + 2);
}

TEST(TextRef, KeepsTheOldBytesWhenTheFieldIsSetAgain) {
    Text field("old");
    const Text kept(field);
    const auto shown = field.ref();
    field = "new";
    EXPECT_EQ(shown.view(), "old");
    EXPECT_EQ(field.ref().view(), "new");
}

TEST(TextRef, KeepsTheBytesOfTheFileWhenTheFieldIsSetAgain) {
    FileOf file("7,Sales,F");
    Text field = file.textAt(2, 7);
    const auto shown = field.ref();
    field = "new";
    EXPECT_EQ(shown.view(), "Sales");
}
