// SPDX-License-Identifier: MIT
#include "model/Integer.h"

#include <limits>
#include <optional>
#include <vector>

#include "Helpers.h"

using namespace std::string_view_literals;

namespace {

struct Reading {
    std::string text;
    std::optional<std::int32_t> number;
};

// A failure quotes the text, because blanks and empty texts matter.
void expectReadings(std::optional<std::int32_t> read(std::string_view), const std::vector<Reading>& readings) {
    for (const auto& [text, number] : readings) EXPECT_EQ(read(text), number) << "of '" << text << "'";
}

constexpr std::nullopt_t none = std::nullopt;

}  // namespace

TEST(ReadInteger, ReadsWholeNumbers) {
    expectReadings(readInteger, {{"0", 0},
                                 {"7", 7},
                                 {"12", 12},
                                 {"007", 7},
                                 {"-3", -3},
                                 {"+3", 3},
                                 {"-0", 0},
                                 {"00000000000000000000000000000012", 12}});
}

TEST(ReadInteger, IgnoresBlanksAround) {
    expectReadings(readInteger, {{" 7", 7}, {"7 ", 7}, {"   7   ", 7}, {"  -7 ", -7}, {" 2.5 ", 2}});
}

TEST(ReadInteger, RoundsFractionsHalvesToEven) {
    expectReadings(readInteger, {{"0.4", 0},
                                 {"0.5", 0},
                                 {"0.50000000000000000001", 1},
                                 {"0.6", 1},
                                 {"1.5", 2},
                                 {"2.5", 2},
                                 {"2.50", 2},
                                 {"2.501", 3},
                                 {"2.49999", 2},
                                 {"3.5", 4},
                                 {"-0.5", 0},
                                 {"-1.5", -2},
                                 {"-2.5", -2},
                                 {"-2.51", -3},
                                 {"9.9", 10}});
}

TEST(ReadInteger, NeedsDigitsOnOneSideOfThePoint) {
    expectReadings(readInteger, {{"5.", 5}, {".5", 0}, {".6", 1}, {"-.6", -1}, {".", none}, {"-.", none}});
}

TEST(ReadInteger, StaysWithin32Bits) {
    expectReadings(readInteger, {{"2147483647", 2147483647},
                                 {"2147483648", none},
                                 {"-2147483648", std::numeric_limits<std::int32_t>::min()},
                                 {"-2147483649", none},
                                 {"2147483647.4", 2147483647},
                                 {"2147483647.5", none},
                                 {"-2147483648.5", std::numeric_limits<std::int32_t>::min()},
                                 {"-2147483648.6", none},
                                 {"4294967296", none},
                                 {"4294967297", none},
                                 {"18446744073709551617", none},
                                 {"99999999999999999999999999999999999999", none}});
}

TEST(ReadInteger, RefusesEverythingElse) {
    for (const char* text : {"",
                             " ",
                             "   ",
                             "-",
                             "+",
                             "+-1",
                             "--1",
                             "- 1",
                             "1-",
                             "x",
                             "7x",
                             "x7",
                             "1 2",
                             "1,2",
                             "1.2.3",
                             "1e5",
                             "0x10",
                             "&H10",
                             "1d2",
                             "\t7",
                             "7\t",
                             "7\r",
                             "\xA0"
                             "7",
                             "12a",
                             "1'000",
                             "\"7\""})
        EXPECT_EQ(readInteger(text), none) << "of '" << text << "'";
    EXPECT_EQ(readInteger("7\0"sv), none);
}

TEST(ReadKey, ReadsANumberInItsOneSpelling) {
    expectReadings(readKey, {{"0", 0},
                             {"7", 7},
                             {"10", 10},
                             {"2147483647", 2147483647},
                             {"-1", -1},
                             {"-10", -10},
                             {"-2147483648", std::numeric_limits<std::int32_t>::min()}});
}

TEST(ReadKey, RefusesEveryOtherText) {
    for (const char* text : {"", " ", "07", "00", "-07", "-0", "+7", " 7", "7 ", "7x", "x", "N7", "-", "7.0", "7.",
                             "2147483648", "-2147483649", "99999999999"})
        EXPECT_EQ(readKey(text), none) << "of '" << text << "'";
    EXPECT_EQ(readKey("7\0"sv), none);
}

TEST(KeyText, IsThePlainDecimalText) {
    EXPECT_EQ(keyText(0), "0");
    EXPECT_EQ(keyText(17), "17");
    EXPECT_EQ(keyText(-3), "-3");
    EXPECT_EQ(keyText(2147483647), "2147483647");
    EXPECT_EQ(keyText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(ReadWholeNumber, ReadsWhatReadIntegerReads) {
    expectReadings(readWholeNumber, {{"0", 0},
                                     {" 12 ", 12},
                                     {"-3", -3},
                                     {"+3", 3},
                                     {"2147483647", 2147483647},
                                     {"-2147483648", std::numeric_limits<std::int32_t>::min()},
                                     {"2147483648", none},
                                     {"", none},
                                     {" ", none},
                                     {"12x", none},
                                     {"1 2", none}});
}

TEST(ReadWholeNumber, TakesNoFraction) {
    expectReadings(readWholeNumber, {{"2.5", none}, {"2.0", none}, {"2.", none}, {".5", none}, {"-1.0", none}});
}
