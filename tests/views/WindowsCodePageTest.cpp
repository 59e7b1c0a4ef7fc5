// SPDX-License-Identifier: MIT
#include "views/WindowsCodePage.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <random>

using namespace std::string_literals;

namespace {

constexpr std::size_t all = 1'000'000;

QString shown(unsigned codePage, const std::string& bytes) {
    return WindowsCodePage(codePage).decode(bytes, all);
}

// The bytes of all characters of a text; "?" for one that the code page lacks.
std::string stored(unsigned codePage, const QString& shown) {
    std::string bytes;
    for (const auto character : shown.toStdU32String())
        bytes += WindowsCodePage(codePage).encode(QString::fromUcs4(&character, 1)).value_or("?");
    return bytes;
}

// As stored, of a text with halves of pairs.
std::string storedUnits(unsigned codePage, const QString& shown) {
    std::string bytes;
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const bool isPair = shown[at].isHighSurrogate() && at + 1 < shown.size() && shown[at + 1].isLowSurrogate();
        bytes += WindowsCodePage(codePage).encode(shown.mid(at, isPair ? 2 : 1)).value_or("?");
        if (isPair) ++at;
    }
    return bytes;
}

}  // namespace

TEST(WindowsCodePage, ReadsOneByteACharacter) {
    EXPECT_EQ(shown(1252, "a\x80\x8E\xE9\xFF"), QStringView(u"a€Žéÿ"));
    EXPECT_EQ(shown(1250, "\x8A\xF5\xFB"), QStringView(u"Šőű"));
    EXPECT_EQ(shown(1251, "\xC6\xE4"), QStringView(u"Жд"));
    EXPECT_EQ(stored(1250, QStringLiteral(u"Šőű")), "\x8A\xF5\xFB");
}

TEST(WindowsCodePage, ReadsTwoBytesACharacter) {
    EXPECT_EQ(shown(932, "\x93\xFA\x96{ a"), QStringView(u"日本 a")) << "the second byte of 本 is a brace";
    EXPECT_EQ(shown(936, "\xD6\xD0\xCE\xC4"), QStringView(u"中文"));
    EXPECT_EQ(stored(932, QStringLiteral(u"日本 a")), "\x93\xFA\x96{ a");
    EXPECT_EQ(stored(936, QStringLiteral(u"中文")), "\xD6\xD0\xCE\xC4");
}

TEST(WindowsCodePage, ReadsUtf8) {
    EXPECT_EQ(shown(CP_UTF8, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), QStringView(u"aé€😀"));
    EXPECT_EQ(stored(CP_UTF8, QStringLiteral(u"aé€😀")), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(WindowsCodePage, NeverCutsACharacter) {
    const WindowsCodePage japanese(932);
    EXPECT_EQ(japanese.decode("\x93\xFA\x96{", 2), QStringView(u"日"));
    EXPECT_EQ(japanese.decode("\x93\xFA\x96{", 3), QStringView(u"日"));
    EXPECT_EQ(japanese.decode("\x93\xFA\x96{", 4), QStringView(u"日本"));
    const WindowsCodePage utf8(CP_UTF8);
    EXPECT_EQ(utf8.decode("aé€", 1), QStringView(u"a"));
    EXPECT_EQ(utf8.decode("aé€", 2), QStringView(u"a"));
    EXPECT_EQ(utf8.decode("aé€", 3), QStringView(u"aé"));
    EXPECT_EQ(utf8.decode("aé€", 5), QStringView(u"aé"));
    EXPECT_EQ(utf8.decode("aé€", 6), QStringView(u"aé€"));
    EXPECT_EQ(utf8.decode("😀", 3), QString());
}

TEST(WindowsCodePage, BringsBackBytesThatAreNoCharacter) {
    EXPECT_EQ(shown(CP_UTF8, "a\xE9 b"), QStringLiteral("a%1 b").arg(QChar(0xDCE9)));
    EXPECT_EQ(shown(932, "\x93"), QString(QChar(0xDC93))) << "half of a character at the end";
    for (const auto& bytes : {"a\xE9 b"s, "\xC3"s, "\xE2\x82"s, "\x80\xBF\xFF"s, "\xC0\x80"s, "\xED\xA0\x80"s,
                              "\xF5\x80\x80\x80"s, std::string("\0\xFE\0", 3)})
        EXPECT_EQ(storedUnits(CP_UTF8, shown(CP_UTF8, bytes)), bytes);
    EXPECT_EQ(storedUnits(932, shown(932, "a\x93")), "a\x93");
    EXPECT_EQ(storedUnits(1253, shown(1253, "\xAA\xD2\xFF")), "\xAA\xD2\xFF") << "bytes without a character";
}

TEST(WindowsCodePage, BringsBackAnyBytes) {
    std::mt19937 random(20061);
    for (const unsigned codePage : {1250U, 1251U, 1252U, 1253U, 1254U, 1257U, 874U, 65001U})
        for (int i = 0; i < 200; ++i) {
            std::string bytes;
            for (int length = 0; length < 20; ++length) bytes += static_cast<char>(random() % 256);
            ASSERT_EQ(storedUnits(codePage, shown(codePage, bytes)), bytes) << codePage;
        }
}

TEST(WindowsCodePage, KnowsWhatItLacks) {
    const WindowsCodePage western(1252);
    EXPECT_EQ(western.encode(QStringLiteral(u"Ж")), std::nullopt);
    EXPECT_EQ(western.encode(QStringLiteral(u"Ā")), std::nullopt) << "A is only similar";
    EXPECT_EQ(western.encode(QStringLiteral(u"😀")), std::nullopt);
    EXPECT_EQ(WindowsCodePage(932).encode(QStringLiteral(u"é")), std::nullopt);
    EXPECT_EQ(WindowsCodePage(CP_UTF8).encode(QString(QChar(0xD83D))), std::nullopt) << "half a pair";
    EXPECT_EQ(western.encode(QStringLiteral(u"?")), "?");
}

// This program has no manifest that asks for another one.
TEST(WindowsCodePage, IsThatOfTheOperatingSystem) {
    EXPECT_EQ(systemCodePage(), GetACP());
}
