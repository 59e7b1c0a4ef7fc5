// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/CodePage.h"

TEST(CodePage, ShowsPrintableAsciiAsItIs) {
    EXPECT_EQ(decode(" !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"),
              QStringView(u" !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"));
    EXPECT_EQ(decode("abcdefghijklmnopqrstuvwxyz{|}~\x7F"), QStringView(u"abcdefghijklmnopqrstuvwxyz{|}~\u007F"));
}

TEST(CodePage, ShowsControlsAsTheCharacterOfTheSameNumber) {
    for (int byte = 0; byte < 0x20; ++byte) {
        const char bytes[] = {static_cast<char>(byte)};
        const auto shown = decode(std::string_view(bytes, 1));
        ASSERT_EQ(shown.size(), 1) << byte;
        EXPECT_EQ(shown[0].unicode(), byte);
    }
}

TEST(CodePage, ShowsTheBytesThatWindowsAdded) {
    EXPECT_EQ(decode("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), QStringView(u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ"));
    EXPECT_EQ(decode("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), QStringView(u"‘’“”•–—˜™š›œžŸ"));
}

TEST(CodePage, ShowsTheFiveFreeBytesAsControlCharacters) {
    EXPECT_EQ(decode("\x81\x8D\x8F\x90\x9D"), QStringView(u"\u0081\u008D\u008F\u0090\u009D"));
}

TEST(CodePage, ShowsLatinLetters) {
    EXPECT_EQ(decode("\xA0\xA1\xA2\xA3\xA4\xA5\xA6\xA7\xA8\xA9\xAA\xAB\xAC\xAD\xAE\xAF"),
              QStringView(u"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯"));
    EXPECT_EQ(decode("\xB0\xB1\xB2\xB3\xB4\xB5\xB6\xB7\xB8\xB9\xBA\xBB\xBC\xBD\xBE\xBF"),
              QStringView(u"°±²³´µ¶·¸¹º»¼½¾¿"));
    EXPECT_EQ(decode("\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"),
              QStringView(u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"));
    EXPECT_EQ(decode("\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD7\xD8\xD9\xDA\xDB\xDC\xDD\xDE\xDF"),
              QStringView(u"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"));
    EXPECT_EQ(decode("\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"),
              QStringView(u"àáâãäåæçèéêëìíîï"));
    EXPECT_EQ(decode("\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF"),
              QStringView(u"ðñòóôõö÷øùúûüýþÿ"));
}

TEST(CodePage, EveryByteBecomesOneCharacterOfItsOwn) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const auto shown = decode(bytes);
    ASSERT_EQ(shown.size(), 256);
    EXPECT_EQ(QSet<QChar>(shown.begin(), shown.end()).size(), 256);
}

TEST(CodePage, KeepsTextsWithAZeroByteWhole) {
    EXPECT_EQ(decode(std::string_view("a\0b", 3)), QString::fromUtf16(u"a\0b", 3));
    EXPECT_EQ(decode(""), QString());
    EXPECT_EQ(decode({}), QString());
}

TEST(CodePage, ShowsTheFirstThousandBytesInACell) {
    EXPECT_EQ(decodeForCell(""), QString());
    EXPECT_EQ(decodeForCell("\x80 and more"), QStringView(u"€ and more"));
    EXPECT_EQ(decodeForCell(std::string(999, 'a') + "b"), QString(999, u'a') + u'b');
    EXPECT_EQ(decodeForCell(std::string(999, 'a') + "bc"), QString(999, u'a') + u'b');
    EXPECT_EQ(decodeForCell(std::string(3000000, 'a')).size(), 1000);
    EXPECT_EQ(decode(std::string(3000, 'a')).size(), 3000) << "elsewhere all of it";
}

TEST(CodePage, DoesNotTakeBytesForUtf8) {
    EXPECT_EQ(decode("\xC3\xA4"), QStringView(u"Ã¤"));
    EXPECT_EQ(decode("\xE2\x82\xAC"), QStringView(u"â‚¬"));
}

TEST(CodePage, EveryByteComesBackFromItsCharacter) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(encode(decode(bytes)), bytes);
    EXPECT_EQ(lackingInCodePage(decode(bytes)), QString());
}

TEST(CodePage, EncodesTheCharactersThatWindowsAdded) {
    EXPECT_EQ(encode(QStringLiteral(u"€‚Žž™Ÿé")), "\x80\x82\x8E\x9E\x99\x9F\xE9");
    EXPECT_EQ(encode(QString()), "");
}

TEST(CodePage, NamesTheFirstCharacterThatItLacks) {
    EXPECT_EQ(lackingInCodePage(QStringLiteral(u"abc")), QString());
    EXPECT_EQ(lackingInCodePage(QStringLiteral(u"aЖbΩ")), QStringView(u"Ж"));
    EXPECT_EQ(lackingInCodePage(QStringLiteral(u"\u0080")), QStringView(u"\u0080")) << "its byte is that of the euro";
    EXPECT_EQ(lackingInCodePage(QStringLiteral(u"\u0100")), QStringView(u"\u0100"));
    EXPECT_EQ(lackingInCodePage(QStringLiteral(u"a😀b")), QStringView(u"😀")) << "both of its units";
    EXPECT_EQ(lackingInCodePage(QString(QChar(0xD83D))).size(), 1) << "half a pair";
}

TEST(CodePage, PutsAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(encode(QStringLiteral(u"aЖb😀c")), "a?b?c");
}
