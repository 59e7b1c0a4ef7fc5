// SPDX-License-Identifier: MIT
#include "preview/Decimal.h"

#include "tests/preview/Made.h"

namespace {

std::string sumOf(const Rows& numbers) {
    Sum sum;
    for (const auto& text : numbers) EXPECT_TRUE(sum.add(text)) << text;
    return sum.text();
}

}  // namespace

TEST(PreviewDecimal, ReadsWhatDatabasesWrite) {
    EXPECT_EQ(numberIn("42"), 42);
    EXPECT_EQ(numberIn("-0.5"), -0.5);
    EXPECT_EQ(numberIn("+7"), 7);
    EXPECT_EQ(numberIn(" 1e3 "), 1000);
    for (const auto* text : {"", " ", "-", "x", "1x", "1,5", "0x10", "inf", "nan", "1 2", "--1", "1e999"})
        EXPECT_FALSE(numberIn(text)) << text;
}

TEST(PreviewDecimal, CountsDecimals) {
    EXPECT_EQ(decimalsOf("42"), 0);
    EXPECT_EQ(decimalsOf("42.0"), 1);
    EXPECT_EQ(decimalsOf("-0.125"), 3);
    EXPECT_FALSE(decimalsOf("1e3"));
    EXPECT_FALSE(decimalsOf("1.5e3"));
    EXPECT_FALSE(decimalsOf("text"));
}

TEST(PreviewDecimal, AddsAsOnPaper) {
    EXPECT_EQ(sumOf({}), "0");
    EXPECT_EQ(sumOf({"42.0", "10.0"}), "52.0");
    EXPECT_EQ(sumOf({"0.1", "0.2"}), "0.3");
    EXPECT_EQ(sumOf({"1", "0.05", "2.5"}), "3.55");
    EXPECT_EQ(sumOf({"1", "-1.25"}), "-0.25");
    EXPECT_EQ(sumOf({"-0.01"}), "-0.01");
    EXPECT_EQ(sumOf({"999999999999999999", "1"}), "1000000000000000000");
}

TEST(PreviewDecimal, AddsWithTheDigitsOfADoubleWhereThereAreTooMany) {
    EXPECT_EQ(sumOf({"1e3", "1"}), "1001");
    EXPECT_EQ(sumOf({"99999999999999999999", "1"}), "1e+20");
    EXPECT_EQ(sumOf(Rows(20, "900000000000000000")), "1.8e+19");
    EXPECT_EQ(sumOf({"900000000000000000", "0.001"}), "9e+17");
}

TEST(PreviewDecimal, LeavesOutWhatIsNoNumber) {
    Sum sum;
    EXPECT_TRUE(sum.add("5"));
    EXPECT_FALSE(sum.add("five"));
    EXPECT_EQ(sum.text(), "5");
}
