// SPDX-License-Identifier: MIT
#include "model/ParameterKind.h"

#include "Helpers.h"

namespace {

std::string read(std::string_view stored) {
    const auto kind = readParameterKind(stored);
    if (!kind) return "unknown";
    switch (*kind) {
        case ParameterKind::None: return "none";
        case ParameterKind::LKey: return "long";
        case ParameterKind::CKey: return "character";
        case ParameterKind::Text: return "text";
        case ParameterKind::Today: return "today";
    }
    return "?";
}

}  // namespace

TEST(ParameterKind, ReadsWhatIsStored) {
    EXPECT_EQ(read(""), "none");
    EXPECT_EQ(read("Lkey"), "long");
    EXPECT_EQ(read("CKey05"), "character");
    EXPECT_EQ(read("Text"), "text");
    EXPECT_EQ(read("Today"), "today");
}

TEST(ParameterKind, ReadsTheFirstTwoLettersInEitherCase) {
    for (const char* stored : {"LKEY", "lkey", "lK", "Lk5", "LKanything"}) EXPECT_EQ(read(stored), "long") << stored;
    for (const char* stored : {"ckey5", "CK", "cK"}) EXPECT_EQ(read(stored), "character") << stored;
    for (const char* stored : {"te", "TEXT", "Teapot"}) EXPECT_EQ(read(stored), "text") << stored;
    for (const char* stored : {"to", "TODAY", "Tomorrow"}) EXPECT_EQ(read(stored), "today") << stored;
}

TEST(ParameterKind, IgnoresBlanksAround) {
    EXPECT_EQ(read("   "), "none");
    EXPECT_EQ(read("  Lkey  "), "long");
    EXPECT_EQ(read(" ckey05"), "character");
    EXPECT_EQ(read("L key"), "unknown") << "not those between";
    EXPECT_EQ(read("\tLkey"), "unknown") << "a tab is no blank";
}

TEST(ParameterKind, KnowsNoOthers) {
    for (const char* stored : {"None", "NO", "L", "C", "T", "x", "Key", "KLey", "TX", "0", "-"})
        EXPECT_EQ(read(stored), "unknown") << stored;
    for (const char* mark : {"*", "**", "***"}) EXPECT_EQ(read(mark), "none") << "the mark of an empty text";
}

TEST(ParameterKind, UpperCasesTheLettersOfAsciiOnly) {
    EXPECT_EQ(read("l\xEB"), "unknown");
    EXPECT_EQ(read("\xCC\xCB"), "unknown");
    EXPECT_EQ(read(",+"), "unknown");  // 32 below "LK"
}

TEST(ParameterKind, LengthIsTheLastTwoCharacters) {
    EXPECT_EQ(keyLengthOf("CKey05"), "05");
    EXPECT_EQ(keyLengthOf("CKey123"), "23");
    EXPECT_EQ(keyLengthOf("ckey5"), "y5");
    EXPECT_EQ(keyLengthOf("CKey5 "), "5 ") << "blanks are not taken off";
    EXPECT_EQ(keyLengthOf("C"), "C");
    EXPECT_EQ(keyLengthOf(""), "");
}
