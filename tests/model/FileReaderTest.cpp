// SPDX-License-Identifier: MIT
#include "model/FileReader.h"

#include "Helpers.h"

// How lines and fields are read, which is the same for nodes and paragraphs; tested with nodes.

using namespace std::string_literals;

namespace {

Rows nodesFrom(std::string_view bytes) {
    clsNavSchemes navs;
    loadBytes(navs, bytes);
    return rowsOf(navs);
}

std::string idsFrom(std::string_view bytes) {
    clsNavSchemes navs;
    loadBytes(navs, bytes);
    return idsOf(navs);
}

}  // namespace

TEST(FileReader, EndsLinesAtCrLfLfOrCr) {
    EXPECT_EQ(idsFrom("1,a\r\n2,b\r\n"), "1 2");
    EXPECT_EQ(idsFrom("1,a\n2,b\n"), "1 2");
    EXPECT_EQ(idsFrom("1,a\r2,b\r"), "1 2");
    EXPECT_EQ(idsFrom("1,a\r\n2,b\n3,c\r4,d"), "1 2 3 4");
    EXPECT_EQ(idsFrom("1,a\r2,b\n3,c\r\n4,d"), "1 2 3 4");
    EXPECT_EQ(idsFrom("1,a\n\r2,b\n\r3,c"), "1 2 3");
    EXPECT_EQ(nodesFrom("1,a\r\r\n\n\n\r2,b"), (Rows{"1|a||0||||", "2|b||0||||"}));
}

TEST(FileReader, CountsALastLineWithoutAnEnd) {
    EXPECT_EQ(nodesFrom("1,first\r\n2,last"), (Rows{"1|first||0||||", "2|last||0||||"}));
    EXPECT_EQ(nodesFrom("1,a,G,0,q,p,i,role"), Rows{"1|a|G|0|q|p|i|role"});
    EXPECT_EQ(nodesFrom("1,a,G,0,q,p,i,role\r"), Rows{"1|a|G|0|q|p|i|role"});
    EXPECT_EQ(nodesFrom("7"), Rows{"7|||0||||"});
}

TEST(FileReader, ReadsNothingFromFilesWithoutRecords) {
    for (const char* bytes : {"", "\r\n", "\r", "\n", " ", "   \r\n  ", "\"ID\",\"descriptionIs\"\r\n", "text", ",1"})
        EXPECT_EQ(nodesFrom(bytes), Rows()) << bytes;
}

TEST(FileReader, PassesOverLinesThatDoNotBeginWithADigit) {
    EXPECT_EQ(idsFrom("\"ID\",\"x\"\r\n1,a\r\n\r\nx2,b\r\n\"3\",c\r\n-4,d\r\n+5,e\r\n.6,f\r\n,7\r\n8,g\r\n"), "1 8");
    EXPECT_EQ(idsFrom("0,zero\r\n9,nine\r\n"), "0 9");
    EXPECT_EQ(idsFrom("/9,the byte before the digits\r\n:9,the byte behind them\r\n5,a\r\n"), "5");
    EXPECT_EQ(idsFrom("\xB2,superscript two\r\n\xB9,one\r\n3,c"), "3");
}

TEST(FileReader, TrimsBlanksFromALine) {
    EXPECT_EQ(nodesFrom("  7,a,G,0,q,p,i,role  \r\n"), Rows{"7|a|G|0|q|p|i|role"});
    EXPECT_EQ(nodesFrom("   7   \r\n"), Rows{"7|||0||||"});
}

TEST(FileReader, TrimsNothingButBlanks) {
    EXPECT_EQ(idsFrom("\t1,tab\r\n\xA0"
                      "2,no-break space\r\n\v3,x\r\n\f4,x\r\n5,e\r\n"),
              "5");
    EXPECT_EQ(nodesFrom("7,a,G,0,q,p,i,role\t\r\n"), Rows{"7|a|G|0|q|p|i|role\t"});
    EXPECT_EQ(nodesFrom("7,a,G,0,q,p,i,role\xA0\r\n"), Rows{"7|a|G|0|q|p|i|role\xA0"});
    EXPECT_EQ(nodesFrom("7,a,G,0,q,p,i,role\0\r\n"s), Rows{"7|a|G|0|q|p|i|role\0"s});
}

TEST(FileReader, TrimsNothingFromAField) {
    EXPECT_EQ(nodesFrom("7,  a , G ,0, q , p , i ,  role"), Rows{"7|  a | G |0| q | p | i |  role"});
    EXPECT_EQ(nodesFrom(lines({R"(7," a ","G",0,"q","p","i"," role "  )"})), Rows{"7| a |G|0|q|p|i| role "});
}

TEST(FileReader, DropsQuotesWhereverTheyStand) {
    EXPECT_EQ(nodesFrom("7,\"a\"\"b\",\"\"G,0\"\",q\"q\"\"q,\"\"\"\",i\"\",\"\"r"), Rows{"7|ab|G|0|qqq||i|r"});
    EXPECT_EQ(nodesFrom("1\"2\"\"3\",\"a,G,\"4\"5"), Rows{"123|a|G|45||||"});
    EXPECT_EQ(nodesFrom("7\"\r\n8\"\"\"\"\r\n"), (Rows{"7|||0||||", "8|||0||||"}));
}

TEST(FileReader, SplitsAtEveryCommaAlsoBetweenQuotes) {
    EXPECT_EQ(nodesFrom("7,\"a,b\",\"G\",0,\"q\",\"p\",\"i\",\"r\""), Rows{"7|a|b|0|0|q|p|i"});
    EXPECT_EQ(nodesFrom("7,,,,,,,,,,,,,,"), Rows{"7|||0||||"});
}

TEST(FileReader, IgnoresFurtherFields) {
    EXPECT_EQ(nodesFrom("7,a,G,0,q,p,i,r,eight,nine,ten,eleven,twelve"), Rows{"7|a|G|0|q|p|i|r"});
}

TEST(FileReader, LeavesMissingFieldsAtTheirDefaults) {
    EXPECT_EQ(nodesFrom("1"), Rows{"1|||0||||"});
    EXPECT_EQ(nodesFrom("1,a"), Rows{"1|a||0||||"});
    EXPECT_EQ(nodesFrom("1,a,G"), Rows{"1|a|G|0||||"});
    EXPECT_EQ(nodesFrom("1,a,G,5"), Rows{"1|a|G|5||||"});
    EXPECT_EQ(nodesFrom("1,a,G,5,q"), Rows{"1|a|G|5|q|||"});
    EXPECT_EQ(nodesFrom("1,a,G,5,q,p"), Rows{"1|a|G|5|q|p||"});
    EXPECT_EQ(nodesFrom("1,a,G,5,q,p,i"), Rows{"1|a|G|5|q|p|i|"});
    EXPECT_EQ(nodesFrom("1,a,G,5,q,p,i,r\r\n2\r\n"), (Rows{"1|a|G|5|q|p|i|r", "2|||0||||"}))
        << "nothing of one line carries over to the next";
}

TEST(FileReader, ReadsNumbersOrLeavesZero) {
    EXPECT_EQ(nodesFrom("2.5,a,G, 3 "), Rows{"2|a|G|3||||"});
    EXPECT_EQ(nodesFrom("3.5,a,G,-4"), Rows{"4|a|G|-4||||"});
    EXPECT_EQ(nodesFrom("1x,a,G,2x"), Rows{"0|a|G|0||||"});
    EXPECT_EQ(nodesFrom("2147483648,a,G,-2147483649"), Rows{"0|a|G|0||||"});
    EXPECT_EQ(nodesFrom("2147483647,a,G,-2147483648"), Rows{"2147483647|a|G|-2147483648||||"});
    EXPECT_EQ(nodesFrom("1 ,a,G,1e3"), Rows{"1|a|G|0||||"});
    EXPECT_EQ(nodesFrom("007,a,G,+1"), Rows{"7|a|G|1||||"});
}

TEST(FileReader, KeepsEveryByteOfAText) {
    const auto bytes = allBytesBut("\",\r\n");
    ASSERT_EQ(bytes.size(), 252U);
    EXPECT_EQ(nodesFrom("7," + bytes + ",G,0," + bytes + ",p," + bytes + ",x" + bytes + "x\r\n"),
              Rows{"7|" + bytes + "|G|0|" + bytes + "|p|" + bytes + "|x" + bytes + "x"});
}

TEST(FileReader, DoesNotEndAtAControlByte) {
    EXPECT_EQ(nodesFrom("1,a\0b\r\n2,c\x1A.d\r\n\x1A\r\n\0\r\n3,e\xA0\r\n"s),
              (Rows{"1|a\0b||0||||"s, "2|c\x1A.d||0||||", "3|e\xA0||0||||"}));
}

TEST(FileReader, ReadsLongLines) {
    const std::string text(3'000'000, 'y');
    EXPECT_EQ(nodesFrom("1,a\r\n7," + text + ",G,0,q,p,i," + text + "\r\n8,b"),
              (Rows{"1|a||0||||", "7|" + text + "|G|0|q|p|i|" + text, "8|b||0||||"}));
}

TEST(FileReader, ReadsMoreRecordsThanOneBlockHolds) {
    std::string bytes;
    constexpr int last = 60'000;
    for (int id = 1; id <= last; ++id) bytes += std::to_string(id) + ",n" + std::to_string(id) + ",F,0\r\n";
    clsNavSchemes navs;
    loadBytes(navs, bytes);
    ASSERT_EQ(navs.Count(), last);
    int expected = 0;
    for (const auto& node : navs.NewEnum()) {
        ++expected;
        ASSERT_EQ(rowOf(*node), std::to_string(expected) + "|n" + std::to_string(expected) + "|F|0||||");
    }
    EXPECT_EQ(expected, last);
}

TEST(FileReader, ReadsUpToTenPiecesFromBytes) {
    std::string bytes = " x\n12,\"b\",c,d,e,f,g,h,i,j,k \n3";
    const auto size = bytes.size();
    bytes += '\0';  // the spare byte
    FileReader reader(bytes.data(), size);
    FileReader::Pieces pieces;
    ASSERT_TRUE(reader.next(pieces));
    EXPECT_EQ(pieces[0].number(), 12);
    std::string texts;
    for (std::size_t i = 1; i < pieces.size(); ++i) texts += std::string(pieces[i].text().view()) + ".";
    EXPECT_EQ(texts, "b.c.d.e.f.g.h.i.j.");
    ASSERT_TRUE(reader.next(pieces));
    EXPECT_EQ(pieces[0].number(), 3);
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        EXPECT_TRUE(pieces[i].text().empty());
        EXPECT_EQ(pieces[i].number(), 0);
    }
    EXPECT_FALSE(reader.next(pieces));
    EXPECT_FALSE(reader.next(pieces));
}

TEST(FileReader, ReadFileGivesTheBytesOfTheFile) {
    const TempFolder folder;
    for (const std::size_t size : {0U, 1U, 2U, 3U, 4095U, 4096U, 4097U, 1'000'003U}) {
        std::string bytes(size, 'z');
        if (size > 1) bytes[size / 2] = '\0';
        const auto content = readFile(writeBytes(folder / "file.txt", bytes));
        ASSERT_NE(content.bytes, nullptr) << size;
        EXPECT_EQ(std::string_view(content.bytes.get(), content.size), bytes) << size;
    }
    EXPECT_EQ(readFile(folder / "missing.txt").bytes, nullptr);
    EXPECT_EQ(readFile(folder.path()).bytes, nullptr);
}
