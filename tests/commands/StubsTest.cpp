// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "model/NodeType.h"
#include "model/ParagraphType.h"
#include "tests/commands/Commands.h"
#include "tests/database/Process.h"

// The skeletons of `stubs` as text; tests/database runs them.

namespace {

const std::string expectedSkeletons = SAMPLES "/../tests/commands/expected/";

const std::string stubNodes = navHeader +
                              "1,\"Root\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n"
                              "2,\"Types\",\"G\",1,\"spG_Types 2\",\"Today\",\"\",\"\"\r\n"
                              "3,\"A type\",\"G\",2,\"spG_OfType\",\"CKey03\",\"\",\"\"\r\n"
                              "4,\"A bicycle\",\"N\",3,\"\",\"\",\"\",\"\"\r\n"
                              "5,\"Parts below\",\"R\",1,\"spG_Below\",\"Lkey\",\"\",\"\"\r\n"
                              "6,\"All parts\",\"G\",1,\"SPG_BELOW 0\",\"\",\"\",\"\"\r\n"
                              "7,\"Lost\",\"G\",99,\"spG_Lost\",\"\",\"\",\"\"\r\n";
const std::string stubParagraphs = webHeader +
                                   "1,4,1,\"Card $(x)\",\"spW_Card\",\"Lkey\",\"I\",0,\"\",\"\"\r\n"
                                   "2,4,2,\"Pictures\",\"spW_Pictures\",\"Text\",\"T\",0,\"\",\"\"\r\n"
                                   "3,4,3,\"Sums\",\"spW_Sums a 7\",\"CKey12\",\"S\",0,\"2:4\",\"\"\r\n"
                                   "4,1,1,\"Chart\",\"spW_Chart\",\"\",\"C\",0,\"1:2\",\"\"\r\n"
                                   "5,1,2,\"Close\",\"spW_Close\",\"Today\",\"E\",0,\"\",\"\"\r\n"
                                   "6,1,3,\"Odd\",\"order-by\",\"None\",\"H\",0,\"\",\"\"\r\n"
                                   "7,1,4,\"Cards\",\"spW_Card\",\"\",\"H\",0,\"\",\"\"\r\n"
                                   "8,1,5,\"No query\",\"\",\"\",\"H\",0,\"\",\"\"\r\n"
                                   "9,1,6,\"No name\",\" 5\",\"\",\"H\",0,\"\",\"\"\r\n";

Ran stubs(const std::string& dialect) {
    const SchemeFolder folder(stubNodes, stubParagraphs);
    return pelmo({"stubs", folder.nodes(), folder.paragraphs(), "--dialect", dialect});
}

class StubsIn : public testing::TestWithParam<std::string> {};

}  // namespace

// Each of the expected files has been read line by line.
TEST_P(StubsIn, WritesTheExpectedSkeletons) {
    const auto ran = stubs(GetParam());
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, bytesOf(expectedSkeletons + "stubs-" + GetParam() + ".txt"));
}

TEST_P(StubsIn, ReportsWhatIsLeftOut) {
    const auto err = stubs(GetParam()).err;
    EXPECT_NE(err.find("node 7 cannot be reached from the root and is left out\n"), std::string::npos);
    EXPECT_NE(err.find("pelmo-scheme: \"\" cannot be a name in this script and is left out: Paragraph 9 of node 1"),
              std::string::npos)
        << err;
    EXPECT_EQ(std::ranges::count(err, '\n'), 2);
}

INSTANTIATE_TEST_SUITE_P(AllDialects, StubsIn,
                         testing::Values("sqlite", "postgresql", "mariadb", "sqlserver", "access"),
                         [](const auto& dialect) { return dialect.param; });

TEST(StubsOfTheSample, AreEachQueryOnce) {
    const auto script = pelmo({"stubs", sampleNodes, sampleParagraphs, "--dialect", "sqlserver"}).out;
    std::vector<std::string> names;
    std::istringstream lines(script);
    const std::string start = "CREATE PROCEDURE ";
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(start))
            names.push_back(line.substr(start.size(), line.find(' ', start.size()) - start.size()));
    EXPECT_EQ(names.size(), 111U);
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
    EXPECT_NE(script.find("CREATE PROCEDURE spG_HiresLate @given_constant int, @given_today nvarchar(11)\n"),
              std::string::npos);
    EXPECT_NE(script.find("CREATE PROCEDURE spG_PartsBelow @given_key int\n"), std::string::npos);
    EXPECT_NE(script.find("CREATE PROCEDURE spG_PartsOfSupplier @given_key nvarchar(6)\n"), std::string::npos);
}

TEST(StubsOfTheSample, HaveTheOneThatTheHelpShows) {
    const auto page = bytesOf(SAMPLES "/../help/pelmo-scheme-database.html");
    const std::string start = "<pre>-- spG_HiresLate";
    const auto from = page.find(start);
    ASSERT_NE(from, std::string::npos);
    const auto shownThere = page.substr(from + 5, page.find("</pre>", from) - from - 5);
    EXPECT_GT(shownThere.size(), 300U);
    const auto script = pelmo({"stubs", sampleNodes, sampleParagraphs, "--dialect", "postgresql"}).out;
    EXPECT_NE(script.find("\n" + shownThere), std::string::npos) << shownThere;
}

TEST(StubsOfTheSample, AreInAnEncodingThatSQLiteReads) {
    const SchemeFolder folder(stubNodes, webHeader + "1,1,1,\"\",\"spW_Caf\xE9\",\"\",\"H\",0,\"\",\"\"\r\n");
    const std::vector<std::string> arguments = {"stubs", folder.nodes(), folder.paragraphs(), "--dialect", "sqlite"};
    EXPECT_NE(pelmo(arguments).out.find("CREATE VIEW IF NOT EXISTS \"spW_Caf\xC3\xA9\" AS\n"), std::string::npos);
    auto other = arguments;
    other.insert(other.begin(), {"--encoding", "windows-1252"});
    const auto ran = pelmo(other);
    EXPECT_EQ(ran.out.find("spW_Caf"), std::string::npos);
    EXPECT_NE(ran.err.find("\"spW_Caf\xC3\xA9\" cannot be a name in this script"), std::string::npos);
}

// A parser of SQL Server's language checks them, as there is no such server here.
TEST(SqlServerScripts, AreParsed) {
    if (!isInstalled("sqlfluff")) GTEST_SKIP() << "sqlfluff is not installed";
    for (const char* command : {"sql", "stubs"}) {
        const SchemeFolder folder(stubNodes, stubParagraphs);
        const auto script = pelmo({command, folder.nodes(), folder.paragraphs(), "--dialect", "sqlserver"}).out;
        const auto parsed = run({"sqlfluff", "parse", "--dialect", "tsql", "-"}, script);
        EXPECT_EQ(parsed.code, 0) << parsed.out << parsed.err;
        EXPECT_EQ(parsed.out.find("unparsable"), std::string::npos) << parsed.out;
        EXPECT_NE(parsed.out.find(command == std::string("sql") ? "insert_statement" : "create_procedure_statement"),
                  std::string::npos);
    }
}

TEST(Stubs, WriteASkeletonForEveryTypeOfNodeThatHasAQuery) {
    auto nodes = navHeader + "1,\"Root\",\"F\",0,\"\",\"\",\"\",\"\"\r\n";
    for (int id = 1; const auto& type : nodeTypes)
        nodes += std::to_string(++id) + ",\"Node\",\"" + type.letter + "\",1,\"spG_" + type.letter +
                 "\",\"\",\"\",\"\"\r\n";
    for (const std::string unknown : {"X", "g"})
        nodes +=
            std::to_string(unknown[0]) + ",\"Node\",\"" + unknown + "\",1,\"spG_" + unknown + "\",\"\",\"\",\"\"\r\n";
    const SchemeFolder folder(nodes, webHeader + "1,1,1,\"Title\",\"spW_Query\",\"\",\"S\",0,\"\",\"\"\r\n");
    const auto ran = pelmo({"stubs", folder.nodes(), folder.paragraphs(), "--dialect", "sqlite"});
    for (const auto& type : nodeTypes)
        EXPECT_EQ(ran.out.find(std::string("spG_") + type.letter) != std::string::npos, type.hasQuery)
            << type.letter << ran.out << ran.err;
    EXPECT_EQ(ran.out.find("spG_X"), std::string::npos);
    EXPECT_EQ(ran.out.find("spG_g"), std::string::npos);
}

TEST(Stubs, WriteAFieldForThePictureOfEveryTypeOfParagraphThatHasOne) {
    for (const auto& type : paragraphTypes) {
        const SchemeFolder folder(
            navHeader + "1,\"Root\",\"F\",0,\"\",\"\",\"\",\"\"\r\n",
            webHeader + "1,1,1,\"Title\",\"spW_Query\",\"\",\"" + type.letter + "\",0,\"\",\"\"\r\n");
        const auto ran = pelmo({"stubs", folder.nodes(), folder.paragraphs(), "--dialect", "sqlite"});
        const auto field = std::string(type.fieldPrefix) + "Picture";
        EXPECT_EQ(ran.out.find(field) != std::string::npos, !type.fieldPrefix.empty()) << type.letter << ran.out;
    }
}

// Two characters are read as the length; both must be digits.
TEST(Stubs, GiveAKeyNoLengthThatIsNoNumber) {
    for (const std::string kind : {"CKey 5", "CKey+5", "CKey5", "CK", "CKey00"}) {
        const SchemeFolder folder(navHeader + "1,\"Root\",\"F\",0,\"\",\"\",\"\",\"\"\r\n",
                                  webHeader + "1,1,1,\"Title\",\"spW_Query\",\"" + kind + "\",\"S\",0,\"\",\"\"\r\n");
        const auto ran = pelmo({"stubs", folder.nodes(), folder.paragraphs(), "--dialect", "postgresql"});
        EXPECT_NE(ran.out.find("Called with the key of the node, a text.\n"), std::string::npos) << kind << ran.out;
    }
}
