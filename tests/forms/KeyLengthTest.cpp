// SPDX-License-Identifier: MIT
#include "forms/KeyLength.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "model/Integer.h"

TEST(KeyLength, HasTwoDigitsAtLeast) {
    EXPECT_EQ(keyLengthIn("5"), "05");
    EXPECT_EQ(keyLengthIn("0"), "00");
    EXPECT_EQ(keyLengthIn("12"), "12");
    EXPECT_EQ(keyLengthIn("123"), "123");
    EXPECT_EQ(keyLengthIn("-5"), "-05");
    EXPECT_EQ(keyLengthIn("-123"), "-123");
}

TEST(KeyLength, HasNoSuperfluousZeroAndNoPlus) {
    EXPECT_EQ(keyLengthIn("+5"), "05");
    EXPECT_EQ(keyLengthIn("0005"), "05");
    EXPECT_EQ(keyLengthIn("00000000000000000123"), "123");
    EXPECT_EQ(keyLengthIn(" 7  "), "07");
    EXPECT_EQ(keyLengthIn("-0"), "00");
    EXPECT_EQ(keyLengthIn("000"), "00");
}

TEST(KeyLength, IsRoundedToTheNearestAndHalvesToTheEvenNumber) {
    EXPECT_EQ(keyLengthIn("2.5"), "02");
    EXPECT_EQ(keyLengthIn("3.5"), "04");
    EXPECT_EQ(keyLengthIn("2.51"), "03");
    EXPECT_EQ(keyLengthIn("2.500000000000000000001"), "03");
    EXPECT_EQ(keyLengthIn("9.5"), "10");
    EXPECT_EQ(keyLengthIn("99.9"), "100");
    EXPECT_EQ(keyLengthIn("-99.9"), "-100");
    EXPECT_EQ(keyLengthIn(".5"), "00");
    EXPECT_EQ(keyLengthIn(".6"), "01");
    EXPECT_EQ(keyLengthIn("-.4"), "00");
    EXPECT_EQ(keyLengthIn("5."), "05");
}

TEST(KeyLength, MayBeOfAnySize) {
    EXPECT_EQ(keyLengthIn("2147483648"), "2147483648");
    EXPECT_EQ(keyLengthIn("-2147483649"), "-2147483649");
    const std::string nines(100'000, '9');
    EXPECT_EQ(keyLengthIn(nines), nines);
    EXPECT_EQ(keyLengthIn(nines + ".5"), "1" + std::string(100'000, '0'));
}

TEST(KeyLength, IsNothingWithoutANumber) {
    for (const char* text : {"",
                             " ",
                             "x",
                             "5x",
                             "x5",
                             "1 2",
                             "--5",
                             "+-5",
                             "+",
                             "-",
                             ".",
                             "-.",
                             "1,5",
                             "1e3",
                             "0x1F",
                             "5 m",
                             "1.2.3",
                             "- 5",
                             "5-",
                             "\t5",
                             "\xA0"
                             "5",
                             "\xB2"})
        EXPECT_EQ(keyLengthIn(text), std::nullopt) << text;
}

RC_GTEST_PROP(KeyLength, IsReadLikeOtherNumbers, ()) {
    const auto digits = rc::gen::container<std::string>(rc::gen::element('0', '1', '4', '5', '9'));
    const auto sign = *rc::gen::element<std::string>("", "-", "+", " -", "  ");
    const auto end = *rc::gen::element<std::string>("", ".", " ", ".5", ".50 ");
    const auto text = sign + *digits + end + (end.starts_with(".") && !end.ends_with(" ") ? *digits : "");
    const auto number = readInteger(text);
    const auto length = keyLengthIn(text);
    RC_CLASSIFY(number.has_value());
    if (!number) return;  // or one that is too large
    auto expected = std::to_string(std::abs(std::int64_t{*number}));
    if (expected.size() == 1) expected.insert(0, 1, '0');
    RC_ASSERT(length == (*number < 0 ? "-" : "") + expected);
}

RC_GTEST_PROP(KeyLength, IsANumberExactlyWhereOthersAre, ()) {
    auto text = *rc::gen::container<std::string>(rc::gen::element('0', '5', '.', '-', '+', ' ', 'x', ','));
    text.resize(std::min<std::size_t>(text.size(), 9));  // within 32 bits
    RC_ASSERT(keyLengthIn(text).has_value() == readInteger(text).has_value());
}
