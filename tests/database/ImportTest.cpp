// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/database/PostgreSQL.h"
#include "tests/database/Sqlite.h"
#include "tests/model/Helpers.h"

// The files that the wizard saves, imported into real databases with the databases' own tools, and compared with the
// schemes field by field and byte by byte.

namespace {

// Windows-1252 gives these bytes no character.
const std::string withoutCharacter = "\x81\x8D\x8F\x90\x9D";
// No text in a file can hold the first four; no text in a database can hold the last.
const std::string neverInATable = {'"', ',', '\r', '\n', '\0'};

std::string sampleFile(const std::string& name) {
    return std::string(SAMPLES) + "/" + name;
}

// Texts that could trip an import. `bytes` are texts of many bytes.
std::vector<Text> hardTexts(const std::vector<std::string>& bytes) {
    std::vector<Text> texts = {"",
                               " ",
                               "  two blanks on each side  ",
                               "\t",
                               "NULL",
                               "\\N",
                               "\\.",
                               "\\",
                               "007",
                               "1e5",
                               "0x1F",
                               "'",
                               "it''s",
                               ";",
                               "-- no comment",
                               "|",
                               "%s",
                               "{1}",
                               "$1",
                               "E'\\n'",
                               "=1+1",
                               "#",
                               "TRUE",
                               "2026-03-05",
                               "a\x1A"
                               "b",
                               "\x7F",
                               "\xEF\xBB\xBF",
                               "\xC3\xA9",
                               "Caf\xE9"};
    for (const auto& text : bytes) texts.emplace_back(text);
    texts.emplace_back(std::string(20'000, 'x') + "\xE9");
    return texts;
}

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

// A root, and below it a chain of nodes whose IDs are small, large and negative, with every text in every text field.
void fillNavs(clsNavSchemes& navs, const std::vector<Text>& texts) {
    navs.Add(makeNode(1, 0, "F", "Data Browser", {}, {}, "leaf"));
    std::int32_t parent = 1;
    const auto at = [&texts](std::size_t i) { return texts[i % texts.size()]; };
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto n = static_cast<std::int32_t>(i);
        const std::int32_t id = i % 3 == 0 ? n + 2 : i % 3 == 1 ? most - n : least + n;
        navs.Add(makeNode(id, parent, i % 2 == 0 ? "G" : "R", at(i), at(i + 1), at(i + 2), at(i + 3), at(i + 4)));
        parent = id;
    }
}

void fillWebs(clsWebSchemes& webs, const std::vector<Text>& texts) {
    const auto at = [&texts](std::size_t i) { return texts[i % texts.size()]; };
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto n = static_cast<std::int32_t>(i);
        auto paragraph = makeParagraph(i % 3 == 0   ? n
                                       : i % 3 == 1 ? most - n
                                                    : least + n,
                                       i % 2 == 0 ? least : most, i % 2 == 0 ? most - n : -n, at(i));
        paragraph->queryIs = at(i + 1);
        paragraph->parmIs = at(i + 2);
        paragraph->typeIs = at(i + 3);
        paragraph->formIs = i % 2 == 0 ? least + n : n;
        paragraph->colsAre = at(i + 4);
        paragraph->extra = at(i + 5);
        webs.Add(paragraph);
    }
}

std::string hex(const Text& text) {
    std::string digits;
    for (const char byte : text.view()) {
        constexpr std::string_view digit = "0123456789ABCDEF";
        const auto value = static_cast<unsigned char>(byte);
        digits += digit[value / 16U];
        digits += digit[value % 16U];
    }
    return digits;
}

// The rows that a table must hold, texts in hexadecimal digits, sorted as text.
std::string sorted(Rows rows) {
    std::ranges::sort(rows);
    std::string text;
    for (const auto& row : rows) text += row + "\n";
    return text;
}

std::string sorted(const std::string& printed) {
    Rows rows;
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    return sorted(rows);
}

std::string rowsFor(const clsNavSchemes& navs) {
    Rows rows;
    for (const auto& node : navs.NewEnum())
        rows.push_back(std::to_string(node->ID) + "|" + hex(node->descriptionIs) + "|" + hex(node->typeIs()) + "|" +
                       std::to_string(node->parentIs) + "|" + hex(node->queryIs()) + "|" + hex(node->parmIs()) + "|" +
                       hex(node->iconIs) + "|" + hex(node->roleIs));
    return sorted(rows);
}

std::string rowsFor(const clsWebSchemes& webs) {
    Rows rows;
    for (const auto& p : webs.NewEnum())
        rows.push_back(std::to_string(p->ID) + "|" + std::to_string(p->XST1) + "|" + std::to_string(p->seqNo) + "|" +
                       hex(p->titleIs) + "|" + hex(p->queryIs) + "|" + hex(p->parmIs) + "|" + hex(p->typeIs) + "|" +
                       std::to_string(p->formIs) + "|" + hex(p->colsAre) + "|" + hex(p->extra));
    return sorted(rows);
}

/// The columns of a table, the numbers among them marked.
struct Column {
    std::string name;
    bool isNumber;
};
using Columns = std::vector<Column>;
const Columns xst1 = {{"ID", true},       {"descriptionIs", false}, {"typeIs", false}, {"parentIs", true},
                      {"queryIs", false}, {"parmIs", false},        {"iconIs", false}, {"roleIs", false}};
const Columns xst2 = {{"ID", true},      {"XST1", true},    {"seqNo", true},  {"titleIs", false}, {"queryIs", false},
                      {"parmIs", false}, {"typeIs", false}, {"formIs", true}, {"colsAre", false}, {"extra", false}};

// --- SQLite ---

const std::string sqliteTables =
    "CREATE TABLE XST1 (ID INTEGER PRIMARY KEY, descriptionIs TEXT, typeIs TEXT, parentIs INTEGER, queryIs TEXT,\n"
    "    parmIs TEXT, iconIs TEXT, roleIs TEXT);\n"
    "CREATE TABLE XST2 (ID INTEGER PRIMARY KEY, XST1 INTEGER, seqNo INTEGER, titleIs TEXT, queryIs TEXT,\n"
    "    parmIs TEXT, typeIs TEXT, formIs INTEGER, colsAre TEXT, extra TEXT);\n";

std::string sqliteImport(const std::string& file, const std::string& table) {
    return ".import --csv --skip 1 \"" + file + "\" " + table + "\n";
}

// Prints a table so that a NULL, a text in place of a number and a number in place of a text show.
std::string sqliteRows(const std::string& table, const Columns& columns) {
    std::string select;
    for (const auto& [name, isNumber] : columns)
        select += (select.empty() ? "SELECT " : ", ") + ("CASE typeof(" + name + ")") +
                  (isNumber ? " WHEN 'integer' THEN " + name : " WHEN 'text' THEN hex(" + name + ")") +
                  " ELSE typeof(" + name + ") END";
    return select + " FROM " + table + ";\n";
}

/// Has a folder for files.
class Import : public testing::Test {
  protected:
    /// A saved file whose second node has this byte between "a" and "b" in its text.
    std::string fileWith(char byte) {
        clsNavSchemes navs;
        navs.Add(makeNode(1, 0, "F", "Data Browser"));
        navs.Add(makeNode(2, 1, "N", std::string("a") + byte + "b"));
        const auto file = folder / "XST1.txt";
        EXPECT_TRUE(navs.SaveData(file));
        return file.string();
    }

    TempFolder folder;
};

class ImportIntoSqlite : public Import {
  protected:
    void SetUp() override {
        if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
        database.run(sqliteTables);
    }
    /// Imports both files and compares the tables with the schemes.
    void expect(const std::string& navFile, const std::string& webFile, const clsNavSchemes& navs) {
        database.run(sqliteImport(navFile, "XST1") + sqliteImport(webFile, "XST2"));
        EXPECT_EQ(sorted(database.run(sqliteRows("XST1", xst1))), rowsFor(navs));
        EXPECT_EQ(sorted(database.run(sqliteRows("XST2", xst2))), rowsFor(navs.oWebs));
    }

    Sqlite database{folder / "test.db"};
};

// --- PostgreSQL ---

// The names are quoted, since without quotes they would lose their capital letters.
const std::string postgresTables =
    "CREATE TABLE \"XST1\" (\"ID\" integer PRIMARY KEY, \"descriptionIs\" text, \"typeIs\" text, \"parentIs\" "
    "integer,\n"
    "    \"queryIs\" text, \"parmIs\" text, \"iconIs\" text, \"roleIs\" text);\n"
    "CREATE TABLE \"XST2\" (\"ID\" integer PRIMARY KEY, \"XST1\" integer, \"seqNo\" integer, \"titleIs\" text,\n"
    "    \"queryIs\" text, \"parmIs\" text, \"typeIs\" text, \"formIs\" integer, \"colsAre\" text, \"extra\" "
    "text);\n";

std::string postgresImport(const std::string& file, const std::string& table) {
    return "\\copy \"" + table + "\" FROM '" + file + "' WITH (FORMAT csv, HEADER, ENCODING 'WIN1252')\n";
}

std::string postgresRows(const std::string& table, const Columns& columns) {
    std::string select;
    for (const auto& [name, isNumber] : columns) {
        const auto quoted = "\"" + name + "\"";
        const auto text =
            isNumber ? quoted + "::text" : "upper(encode(convert_to(" + quoted + ", 'WIN1252'), 'hex'))";
        select += (select.empty() ? "SELECT " : ", ") + ("coalesce(" + text + ", 'null')");
    }
    return select + " FROM \"" + table + "\";\n";
}

class ImportIntoPostgreSQL : public Import {
  protected:
    static void SetUpTestSuite() {
        if (!PostgreSQL::programs().empty()) server = std::make_unique<PostgreSQL>();
    }
    static void TearDownTestSuite() { server.reset(); }

    void SetUp() override {
        if (!server) GTEST_SKIP() << "PostgreSQL is not installed";
        server->run("SET client_min_messages = warning;\nDROP TABLE IF EXISTS \"XST1\", \"XST2\";\n" +
                    postgresTables);
    }
    void expect(const std::string& navFile, const std::string& webFile, const clsNavSchemes& navs) {
        server->run(postgresImport(navFile, "XST1") + postgresImport(webFile, "XST2"));
        EXPECT_EQ(sorted(server->run(postgresRows("XST1", xst1))), rowsFor(navs));
        EXPECT_EQ(sorted(server->run(postgresRows("XST2", xst2))), rowsFor(navs.oWebs));
    }

    static inline std::unique_ptr<PostgreSQL> server;
};

void save(const clsNavSchemes& navs, const std::string& navFile, const std::string& webFile) {
    ASSERT_TRUE(navs.SaveData(navFile));
    ASSERT_TRUE(navs.oWebs.SaveData(webFile));
}

void loadSamples(clsNavSchemes& navs) {
    ASSERT_TRUE(navs.LoadData(sampleFile("XST1.txt")));
    ASSERT_TRUE(navs.oWebs.LoadData(sampleFile("XST2.txt")));
    ASSERT_GT(navs.Count(), 50);
    ASSERT_GT(navs.oWebs.Count(), 100);
}

}  // namespace

TEST_F(ImportIntoSqlite, KeepsEveryFieldAndByte) {
    clsNavSchemes navs;
    const auto texts = hardTexts({allBytesBut(neverInATable)});
    fillNavs(navs, texts);
    fillWebs(navs.oWebs, texts);
    const auto navFile = (folder / "a b.txt").string();
    const auto webFile = (folder / "XST2.txt").string();
    save(navs, navFile, webFile);
    expect(navFile, webFile, navs);
}

TEST_F(ImportIntoSqlite, KeepsTheSamples) {
    clsNavSchemes navs;
    loadSamples(navs);
    expect(sampleFile("XST1.txt"), sampleFile("XST2.txt"), navs);
}

TEST_F(ImportIntoSqlite, KeepsTheSamplesAfterTheyWereSaved) {
    clsNavSchemes navs;
    loadSamples(navs);
    const auto navFile = (folder / "XST1.txt").string();
    const auto webFile = (folder / "XST2.txt").string();
    save(navs, navFile, webFile);
    expect(navFile, webFile, navs);
}

TEST_F(ImportIntoSqlite, RefusesARowWhoseIDIsThere) {
    database.run(sqliteImport(sampleFile("XST1.txt"), "XST1"));
    const auto again = database.tryOut(sqliteImport(sampleFile("XST1.txt"), "XST1"));
    EXPECT_NE(again.err.find("UNIQUE constraint failed: XST1.ID"), std::string::npos) << again.err;
    EXPECT_EQ(database.run("SELECT count(*) FROM XST1;"), "70\n");
    database.run("DELETE FROM XST1;\n" + sqliteImport(sampleFile("XST1.txt"), "XST1"));
    EXPECT_EQ(database.run("SELECT count(*) FROM XST1;"), "70\n");
}

// The only byte that a text loses, together with everything after it.
TEST_F(ImportIntoSqlite, EndsATextAtTheByte00) {
    const auto imported = database.tryOut(sqliteImport(fileWith('\0'), "XST1"));
    EXPECT_EQ(imported.code, 0) << imported.err;
    EXPECT_EQ(database.run("SELECT hex(descriptionIs), typeIs FROM XST1 WHERE ID = 2;"), "61|N\n");
}

// The tool imports bytes as they are, while SQLite takes a text for UTF-8.
TEST_F(ImportIntoSqlite, GivesCharactersWhenTheFileWasConverted) {
    if (!isInstalled("iconv")) GTEST_SKIP() << "iconv is not installed";
    const auto converted = run({"iconv", "-f", "WINDOWS-1252", "-t", "UTF-8", sampleFile("XST1.txt")});
    ASSERT_EQ(converted.code, 0) << converted.err;
    const auto file = writeBytes(folder / "XST1.utf8.txt", converted.out).string();
    const auto length = "SELECT descriptionIs, length(descriptionIs) FROM XST1 WHERE ID = 18;\n";
    database.run(sqliteImport(file, "XST1"));
    EXPECT_EQ(database.run(length), "Caf\xC3\xA9 stop vouchers|18\n");
}

TEST_F(ImportIntoPostgreSQL, KeepsEveryFieldAndByte) {
    clsNavSchemes navs;
    const auto texts = hardTexts({allBytesBut(neverInATable + withoutCharacter)});
    fillNavs(navs, texts);
    fillWebs(navs.oWebs, texts);
    const auto navFile = (folder / "a b.txt").string();
    const auto webFile = (folder / "XST2.txt").string();
    save(navs, navFile, webFile);
    expect(navFile, webFile, navs);
}

TEST_F(ImportIntoPostgreSQL, KeepsTheSamplesBeforeAndAfterTheyAreSaved) {
    clsNavSchemes navs;
    loadSamples(navs);
    expect(sampleFile("XST1.txt"), sampleFile("XST2.txt"), navs);
    EXPECT_EQ(server->run("SELECT \"descriptionIs\" FROM \"XST1\" WHERE \"ID\" = 18;"),
              "Caf\xC3\xA9 stop vouchers\n");

    server->run("TRUNCATE \"XST1\", \"XST2\";");
    const auto navFile = (folder / "XST1.txt").string();
    const auto webFile = (folder / "XST2.txt").string();
    save(navs, navFile, webFile);
    expect(navFile, webFile, navs);
}

TEST_F(ImportIntoPostgreSQL, RefusesAFileWithAnIDThatIsThere) {
    server->run(postgresImport(sampleFile("XST1.txt"), "XST1"));
    const auto again = server->tryOut(postgresImport(sampleFile("XST1.txt"), "XST1"));
    EXPECT_NE(again.code, 0);
    EXPECT_NE(again.err.find("duplicate key value violates unique constraint \"XST1_pkey\""), std::string::npos)
        << again.err;
    EXPECT_EQ(server->run("SELECT count(*) FROM \"XST1\";"), "70\n");
}

// PostgreSQL converts every text, and these bytes have no character: it refuses the whole file and takes no line of
// it. Nor can the byte 00 stand in a text there.
TEST_F(ImportIntoPostgreSQL, RefusesBytesThatAreNoCharacters) {
    for (const char byte : withoutCharacter) {
        auto name = hex(std::string(1, byte));
        std::ranges::transform(name, name.begin(),
                               [](char c) { return c >= 'A' ? static_cast<char>(c - 'A' + 'a') : c; });
        const auto refused = server->tryOut(postgresImport(fileWith(byte), "XST1"));
        EXPECT_NE(refused.code, 0) << name;
        EXPECT_NE(refused.err.find("character with byte sequence 0x" + name +
                                   " in encoding \"WIN1252\" has no equivalent in encoding \"UTF8\""),
                  std::string::npos)
            << refused.err;
        EXPECT_EQ(server->run("SELECT count(*) FROM \"XST1\";"), "0\n") << name;
    }
    EXPECT_NE(server->tryOut(postgresImport(fileWith('\0'), "XST1")).code, 0);
    EXPECT_EQ(server->run("SELECT count(*) FROM \"XST1\";"), "0\n");
}
