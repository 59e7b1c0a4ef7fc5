// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "commands/Dialects.h"
#include "tests/commands/Commands.h"

// The scripts of `sql` as text; tests/database runs them.

namespace {

const std::string expectedScripts = SAMPLES "/../tests/commands/expected/";

const std::string sqlNodes =
    navHeader +
    "7,\"Caf\xE9 'O''Hara' \\ 100%\",\"G\",-2147483648,\"spG_A $(x)\",\"CKey03\",\"leaf\",\"\"\r\n"
    "-3,\"passed over\",\"N\",7,\"\",\"\",\"\",\"\"\r\n"
    "1,\"Root\",\"F\",0,\"\",\"\",\"leaf\",\"2\"\r\n"
    "2,\"Tab\there \x80\",\"R\",1,\"spG_B\",\"Lkey\",\"\",\"\"\r\n"
    "9,\"Lost\",\"N\",8,\"\",\"\",\"\",\"\"\r\n";
const std::string sqlParagraphs = webHeader + "4,2,1,\"It's\",\"spW_A\",\"\",\"S\",5,\"1:2\",\"more\"\r\n" +
                                  "3,99,-1,\"\",\"\",\"\",\"\",0,\"\",\"\"\r\n";

const Dialect& dialect(const std::string& name) {
    return **std::ranges::find(dialects, name, [](const Dialect* row) { return std::string(row->name); });
}

std::string text(const std::string& name, std::string_view bytes, Encoding encoding = Encoding::Utf8) {
    return quotedText(dialect(name), encoding, bytes);
}

Ran sql(const std::string& name, const std::string& encoding = "utf-8") {
    const SchemeFolder folder(sqlNodes, sqlParagraphs);
    return pelmo({"--encoding", encoding, "sql", folder.nodes(), folder.paragraphs(), "--dialect", name});
}

class SqlIn : public testing::TestWithParam<std::string> {};

}  // namespace

// Each of the expected files has been read line by line.
TEST_P(SqlIn, WritesTheExpectedScript) {
    const auto ran = sql(GetParam());
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, bytesOf(expectedScripts + "sql-" + GetParam() + ".txt"));
}

TEST_P(SqlIn, SaysWhichNodesNoSaveWrites) {
    const auto err = sql(GetParam()).err;
    EXPECT_NE(err.find("XST1.txt: node 7 cannot be reached from the root and is left out\n"), std::string::npos);
    EXPECT_NE(err.find("XST1.txt: node 9 cannot be reached from the root and is left out\n"), std::string::npos);
    EXPECT_EQ(std::ranges::count(err, '\n'), 2);
}

INSTANTIATE_TEST_SUITE_P(AllDialects, SqlIn,
                         testing::Values("sqlite", "postgresql", "mariadb", "sqlserver", "access"),
                         [](const auto& dialect) { return dialect.param; });

TEST(SqlTexts, AreQuotedAsEachDatabaseWants) {
    const std::string_view hard = "a'b\"c\\d%\n\r\xE9";
    EXPECT_EQ(text("sqlite", hard), "'a''b\"c\\d%' || char(10) || char(13) || '\xC3\xA9'");
    EXPECT_EQ(text("postgresql", hard), "'a''b\"c\\d%' || chr(10) || chr(13) || '\xC3\xA9'");
    EXPECT_EQ(text("mariadb", hard), "CONCAT('a''b\"c\\\\d%', _utf8mb4 X'0A', _utf8mb4 X'0D', '\xC3\xA9')");
    EXPECT_EQ(text("sqlserver", hard), "N'a''b\"c\\d%' + nchar(10) + nchar(13) + nchar(233)");
    EXPECT_EQ(text("access", hard), "\"a'b\"\"c\\d%\" & ChrW$(10) & ChrW$(13) & ChrW$(233)");
}

TEST(SqlTexts, MayBeEmptyOrOneCharacter) {
    EXPECT_EQ(text("sqlite", ""), "''");
    EXPECT_EQ(text("sqlserver", ""), "N''");
    EXPECT_EQ(text("access", ""), "\"\"");
    EXPECT_EQ(text("sqlserver", "\x80"), "nchar(8364)");
    EXPECT_EQ(text("mariadb", "\x80"), "'\xE2\x82\xAC'");
    EXPECT_EQ(text("mariadb", "\x81"), "_utf8mb4 X'C281'");
}

TEST(SqlTexts, AreNotCutOffWhereSQLServerJoinsThem) {
    EXPECT_EQ(text("sqlserver", std::string(4000, 'x') + "\xE9").substr(0, 32), "CAST(N'' AS nvarchar(max)) + N'x");
    EXPECT_EQ(text("sqlserver", std::string(3999, 'x') + "\xE9").substr(0, 3), "N'x");
    EXPECT_EQ(text("sqlserver", std::string(4001, 'x')).substr(0, 3), "N'x");
}

// SQLite takes no expression of a thousand parts.
TEST(SqlTexts, HaveFewPartsWhateverTheyHold) {
    const std::string many(101, '\x81');
    EXPECT_EQ(text("sqlite", many).substr(0, 15), "CAST(X'C281C281");
    EXPECT_EQ(text("sqlite", many).size(), 7U + 404U + 10U);
    EXPECT_EQ(text("postgresql", many).substr(0, 28), "convert_from(decode('C281C28");
    EXPECT_EQ(text("mariadb", many).substr(0, 19), "_utf8mb4 X'C281C281");
    EXPECT_EQ(text("sqlserver", "\x80" + many).substr(0, 15), "CAST(0xAC208100");
    EXPECT_EQ(text("sqlserver", many).substr(7 + 404), " AS nvarchar(max))");
    EXPECT_EQ(text("access", many).substr(0, 13), "ChrW$(129) & ");
    EXPECT_EQ(text("sqlite", many.substr(1)).substr(0, 9), "char(129)");
}

TEST(SqlTexts, HoldNoVariablesOfSqlcmd) {
    EXPECT_EQ(text("sqlserver", "$(a) ("), "N'$' + nchar(40) + N'a) ('");
    EXPECT_EQ(text("postgresql", "$(a)"), "'$(a)'");
}

// SQLite takes every script for UTF-8; the other two are told the encoding.
TEST(SqlTexts, AreCorrectInAnotherEncoding) {
    EXPECT_EQ(text("sqlite", "\xE9", Encoding::CodePage), "char(233)");
    EXPECT_EQ(text("postgresql", "\xE9\x81", Encoding::CodePage), "'\xC3\xA9' || chr(129)");
    const auto script = sql("postgresql", "windows-1252").out;
    EXPECT_NE(script.find("SET LOCAL client_encoding = 'WIN1252';\n"), std::string::npos);
    EXPECT_NE(script.find("here \x80'"), std::string::npos);
    EXPECT_NE(sql("mariadb", "windows-1252").out.find("SET NAMES latin1;\n"), std::string::npos);
}

TEST(SqlNames, AreQuotedUnlessTheyFollowTheConvention) {
    EXPECT_EQ(quotedName(dialect("postgresql"), "spG_Customers"), "spG_Customers");
    EXPECT_EQ(quotedName(dialect("postgresql"), "spW_a-b"), "\"spW_a-b\"");
    EXPECT_EQ(quotedName(dialect("sqlite"), "select"), "\"select\"");
    EXPECT_EQ(quotedName(dialect("mariadb"), "a`b"), "`a``b`");
    EXPECT_EQ(quotedName(dialect("sqlserver"), "dbo.spG_A"), "[dbo].spG_A");
    EXPECT_EQ(quotedName(dialect("sqlserver"), "a]b."), "[a]]b.]");
}

// A line of Basic has at most 1,023 characters, a procedure not too many lines.
TEST(SqlModule, CutsLongRowsAndManyRows) {
    std::string many = navHeader + "1,\"" + std::string(3000, '\xE9') + "\",\"F\",0,\"\",\"\",\"\",\"\"\r\n";
    for (int id = 2; id < 1000; ++id) many += std::to_string(id) + ",\"A node\",\"N\",1,\"\",\"\",\"leaf\",\"\"\r\n";
    const SchemeFolder folder(many, sqlParagraphs);
    const auto ran = pelmo({"sql", folder.nodes(), folder.paragraphs(), "--dialect", "access"});
    EXPECT_EQ(ran.status, 0);
    std::istringstream lines(ran.out);
    std::size_t longest = 0;
    std::size_t accents = 0;
    std::size_t length = 0;
    std::size_t longestPart = 0;
    int parts = 0;
    int calls = 0;
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.ends_with('\r'));
        longest = std::max(longest, line.size());
        for (auto at = line.find("ChrW$(233)"); at != std::string::npos; at = line.find("ChrW$(233)", at + 1))
            ++accents;
        if (line.starts_with("Private Sub Part")) ++parts, length = 0;
        if (line.starts_with("    Part")) ++calls;
        length += line.size();
        if (line == "End Sub\r" && calls == 0) longestPart = std::max(longestPart, length);
    }
    EXPECT_LE(longest, 1024U);
    EXPECT_EQ(accents, 3000U);
    EXPECT_GT(parts, 2);
    EXPECT_EQ(calls, parts);
    EXPECT_LT(longestPart, 25'000U);
}

TEST(SqlModule, IsRefusedAsAWholeWhereItIsTooLong) {
    std::string many = navHeader + "1,\"\",\"F\",0,\"\",\"\",\"\",\"\"\r\n";
    for (int id = 2; id < 66'000; ++id) many += std::to_string(id) + ",\"\",\"N\",1,\"\",\"\",\"\",\"\"\r\n";
    const SchemeFolder folder(many, sqlParagraphs);
    const auto ran = pelmo({"sql", folder.nodes(), folder.paragraphs(), "--dialect", "access"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "pelmo-scheme: the scheme is too large for a module of Access\n");
}

TEST(SqlInput, IsRefusedWithItsPlace) {
    const auto refused = [](const std::string& first, const std::string& second) {
        const SchemeFolder folder(first, second);
        const auto ran = pelmo({"sql", folder.nodes(), folder.paragraphs(), "--dialect", "sqlite"});
        EXPECT_EQ(ran.status, 2);
        EXPECT_EQ(ran.out, "");
        return ran.err.substr(ran.err.rfind('/') + 1);
    };
    EXPECT_EQ(refused(navHeader + "1,\"a" + '\0' + "\",\"F\",0\r\n", sqlParagraphs),
              "XST1.txt:2: the byte 00, which no text of a database can hold\n");
    EXPECT_EQ(refused(sqlNodes, webHeader + "1\r2\n\n3,\"" + '\0' + "\"\r\n"),
              "XST2.txt:5: the byte 00, which no text of a database can hold\n");
    EXPECT_EQ(refused(navHeader + "1,\"a\",\"F\",5\r\n", sqlParagraphs),
              "XST1.txt: there is no root in it, and so nothing to save\n");
    EXPECT_EQ(refused(navHeader + "1,\"a\",\"F\",0\r\n", webHeader), "XST2.txt: there is no paragraph in it\n");
}

TEST(SqlInput, NeedsADialectThatItKnows) {
    EXPECT_EQ(pelmo({"sql", sampleNodes, sampleParagraphs}).status, 2);
    EXPECT_EQ(pelmo({"sql", sampleNodes, sampleParagraphs, "--dialect", "oracle"}).status, 2);
    const auto help = pelmo({"sql", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("A node that no save writes is left out, with a message."), std::string::npos);
}
