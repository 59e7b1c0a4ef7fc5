// SPDX-License-Identifier: MIT
#include "model/CodePage.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/model/Helpers.h"

TEST(CodePage, TurnsEveryByteIntoUtf8) {
    EXPECT_EQ(toUtf8(allBytesBut("").substr(0, 0x80)), allBytesBut("").substr(0, 0x80));
    EXPECT_EQ(toUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(toUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
    EXPECT_EQ(toUtf8("\xA0\xA1\xBF\xC0\xDF\xE0\xE4\xE9\xF7\xFF"), "\u00A0¡¿Àßàäé÷ÿ");
    EXPECT_EQ(toUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D") << "the free bytes";
}

TEST(CodePage, TurnsEveryByteBack) {
    EXPECT_EQ(fromUtf8(toUtf8(allBytesBut(""))), allBytesBut(""));
    std::set<char16_t> characters;
    for (const char byte : allBytesBut("")) {
        characters.insert(characterOf(byte));
        EXPECT_EQ(byteOf(characterOf(byte)), byte);
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(CodePage, WritesAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(fromUtf8("a\u0100b\u4E2Dc\U0001F600d"), "a?b?c?d");
    EXPECT_EQ(byteOf(0x80), std::nullopt);
    EXPECT_EQ(byteOf(0x9F), std::nullopt);
    EXPECT_EQ(byteOf(0x81), '\x81');
    EXPECT_EQ(byteOf(0x100), std::nullopt);
    EXPECT_EQ(byteOf(0x1'0041), std::nullopt);
}

TEST(CodePage, KnowsTheFiveFreeBytes) {
    std::string freeBytes;
    for (const char byte : allBytesBut(""))
        if (isFreeByte(byte)) freeBytes += byte;
    EXPECT_EQ(freeBytes, "\x81\x8D\x8F\x90\x9D");
}
