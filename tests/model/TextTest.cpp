#include "model/Text.h"

#include <cstring>
#include <memory>
#include <utility>

#include "Helpers.h"

static_assert(sizeof(Text) == sizeof(void*), "millions of texts: one pointer each");

namespace {

// Bytes as they lie in a file that was read, with the spare byte behind them.
struct FileOf {
    explicit FileOf(std::string_view content) : bytes(content), first(bytes.data()) { bytes += '\0'; }
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
    EXPECT_FALSE(text == std::string_view("abc\0", 4));
    EXPECT_TRUE(Text() == "");
    EXPECT_TRUE(Text() == Text(""));
    EXPECT_FALSE(Text() == Text(" "));
}

TEST(TextInFile, LiesInTheBytesOfTheFile) {
    FileOf file("7,Sales,F");
    const Text text = file.textAt(2, 7);
    EXPECT_EQ(text.view(), "Sales");
    EXPECT_EQ(text.view().data(), file.first + 2);
    EXPECT_EQ(file.bytes, std::string("7\nSales\nF\0", 10));
}

TEST(TextInFile, MayEndAtTheSpareByteBehindTheFile) {
    FileOf file("7,Sales");
    EXPECT_EQ(file.textAt(2, 7).view(), "Sales");
}

TEST(TextInFile, WithoutBytesIsEmptyAndTouchesNothing) {
    FileOf file("7,,F");
    const Text text = file.textAt(2, 2);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(file.bytes, std::string("7,,F\0", 5));
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
    EXPECT_EQ(file.bytes, std::string("7\nSales\nF\0", 10));
}

TEST(SharedText, IsEmptyAtFirst) {
    EXPECT_EQ(SharedText().view(), "");
    EXPECT_EQ(SharedText(Text()).view(), "");
}

TEST(SharedText, KeepsTheOldBytesWhenTheFieldIsSetAgain) {
    Text field("old");
    const SharedText shown(field);
    field = "new";
    EXPECT_EQ(shown.view(), "old");
    EXPECT_EQ(field.view(), "new");
}

TEST(SharedText, OutlivesAnOwnedText) {
    auto field = std::make_unique<Text>("kept");
    const SharedText shown(*field);
    field.reset();
    const Text other("over");
    EXPECT_EQ(shown.view(), "kept");
}

TEST(SharedText, DoesNotCopyBytes) {
    const Text owned("owned");
    EXPECT_EQ(SharedText(owned).view().data(), owned.view().data());
    FileOf file("7,Sales,F");
    const Text inFile = file.textAt(2, 7);
    const SharedText shown(inFile);
    EXPECT_EQ(shown.view().data(), file.first + 2);
    EXPECT_EQ(shown.view(), "Sales");
}

TEST(SharedText, CopiesAndAssignsFreely) {
    SharedText kept;
    {
        const Text first("first");
        const Text second("second");
        SharedText shown(first);
        const SharedText copy(shown);
        shown = SharedText(second);
        EXPECT_EQ(copy.view(), "first");
        EXPECT_EQ(shown.view(), "second");
        const SharedText& alias = shown;
        shown = alias;
        EXPECT_EQ(shown.view(), "second");
        kept = copy;
    }
    EXPECT_EQ(kept.view(), "first");
}
