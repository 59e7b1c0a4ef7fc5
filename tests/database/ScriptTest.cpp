// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>

#include "analysis/SchemeTable.h"
#include "commands/Dialects.h"
#include "model/CodePage.h"
#include "tests/commands/Commands.h"
#include "tests/database/MariaDB.h"
#include "tests/database/PostgreSQL.h"
#include "tests/database/Sqlite.h"

// What `pelmo-scheme sql` and `stubs` write: real databases run it, and these tests look at the result there.

namespace {

std::string hexOfBytes(std::string_view bytes) {
    std::string digits;
    for (const char byte : bytes) {
        constexpr std::string_view digit = "0123456789ABCDEF";
        const auto value = static_cast<unsigned char>(byte);
        digits.append(1, digit[value / 16U]).append(1, digit[value % 16U]);
    }
    return digits;
}

/// One of the databases. A script that is run there may print something, but must not fail.
class Server {
  public:
    virtual ~Server() = default;
    [[nodiscard]] virtual Finished tryOut(const std::string& script) const = 0;
    /// Runs the script with a tool that goes on after an error.
    [[nodiscard]] virtual Finished tryOutAll(const std::string& script) const = 0;
    /// The rows of one column, a line each.
    [[nodiscard]] virtual std::string column(const std::string& expression, const std::string& rest) const = 0;
    /// A text as hexadecimal digits of its UTF-8.
    [[nodiscard]] virtual std::string asHex(const std::string& expression) const = 0;
    /// A statement that makes the table refuse a certain ID.
    [[nodiscard]] virtual std::string refusal(const std::string& table, const std::string& id) const = 0;
    [[nodiscard]] virtual std::string call(const std::string& query, const std::string& arguments) const = 0;
    [[nodiscard]] virtual std::string written() const = 0;  ///< makes spG_Types, with the row 1, "there"

    std::string run(const std::string& script) const {
        const auto finished = tryOut(script);
        EXPECT_EQ(finished.code, 0) << finished.err << script.substr(0, 1000);
        EXPECT_EQ(finished.err, "") << script.substr(0, 1000);
        return finished.out;
    }
    [[nodiscard]] std::string name() const { return name_; }

  protected:
    explicit Server(std::string name) : name_(std::move(name)) {}

  private:
    std::string name_;
};

class SqliteServer final : public Server {
  public:
    SqliteServer() : Server("sqlite") {}
    [[nodiscard]] Finished tryOut(const std::string& script) const override { return database_.tryOut(script); }
    [[nodiscard]] Finished tryOutAll(const std::string& script) const override {
        return ::run({"sqlite3", "-batch", "-init", "/dev/null", (folder_ / "test.db").string()}, script);
    }
    [[nodiscard]] std::string column(const std::string& expression, const std::string& rest) const override {
        return run("SELECT " + expression + " " + rest + ";\n");
    }
    [[nodiscard]] std::string asHex(const std::string& expression) const override {
        return "hex(" + expression + ")";
    }
    [[nodiscard]] std::string refusal(const std::string& table, const std::string& id) const override {
        return "CREATE TRIGGER Refused BEFORE INSERT ON " + table + " WHEN NEW.ID = " + id +
               " BEGIN SELECT RAISE(ABORT, 'refused'); END;";
    }
    [[nodiscard]] std::string call(const std::string& query, const std::string&) const override {
        return ".headers on\n.mode list\nSELECT * FROM (SELECT 1) LEFT JOIN " + query + ";\n";
    }
    [[nodiscard]] std::string written() const override {
        return "CREATE VIEW spG_Types AS SELECT 1 AS ID, 'there' AS Description;\n";
    }

  private:
    TempFolder folder_;
    Sqlite database_{folder_ / "test.db"};
};

class PostgreSQLServer final : public Server {
  public:
    PostgreSQLServer() : Server("postgresql") {}
    [[nodiscard]] Finished tryOut(const std::string& script) const override { return database_.tryOut(script); }
    [[nodiscard]] Finished tryOutAll(const std::string& script) const override {
        return database_.tryOut("\\unset ON_ERROR_STOP\n" + script);
    }
    [[nodiscard]] std::string column(const std::string& expression, const std::string& rest) const override {
        return run("SELECT " + expression + " " + rest + ";\n");
    }
    [[nodiscard]] std::string asHex(const std::string& expression) const override {
        return "upper(encode(convert_to(" + expression + ", 'UTF8'), 'hex'))";
    }
    [[nodiscard]] std::string refusal(const std::string& table, const std::string& id) const override {
        return "ALTER TABLE " + table + " ADD CHECK (ID <> " + id + ");";
    }
    [[nodiscard]] std::string call(const std::string& query, const std::string& arguments) const override {
        return "\\pset tuples_only off\n\\pset footer off\nSELECT * FROM " + query + "(" + arguments + ");\n";
    }
    [[nodiscard]] std::string written() const override {
        return "CREATE FUNCTION spG_Types(bigint, text) RETURNS TABLE (\"ID\" integer, \"Description\" text)\n"
               "LANGUAGE sql AS $$ SELECT 1, 'there' $$;\n";
    }

  private:
    PostgreSQL database_;
};

class MariaDBServer final : public Server {
  public:
    MariaDBServer() : Server("mariadb") {}
    [[nodiscard]] Finished tryOut(const std::string& script) const override { return database_.tryOut(script); }
    [[nodiscard]] Finished tryOutAll(const std::string& script) const override {
        return ::run({"mariadb", "--defaults-file=" + (database_.home() / ".my.cnf").string(), "--force", "test"},
                     script);
    }
    [[nodiscard]] std::string column(const std::string& expression, const std::string& rest) const override {
        const auto printed = run("SELECT " + expression + " " + rest + ";\n");
        return printed.substr(printed.find('\n') + 1);
    }
    [[nodiscard]] std::string asHex(const std::string& expression) const override {
        return "HEX(CONVERT(" + expression + " USING utf8mb4))";
    }
    [[nodiscard]] std::string refusal(const std::string& table, const std::string& id) const override {
        return "ALTER TABLE " + table + " ADD CHECK (ID <> " + id + ");";
    }
    [[nodiscard]] std::string call(const std::string& query, const std::string& arguments) const override {
        return "CALL " + query + "(" + arguments + ");\n";
    }
    [[nodiscard]] std::string written() const override {
        return "CREATE PROCEDURE spG_Types(a integer, b text) SELECT 1 AS ID, 'there' AS Description;\n";
    }

  private:
    MariaDB database_;
};

struct Kind {
    std::string name;
    bool (*isThere)();
    std::unique_ptr<Server> (*start)();
};
const Kind kinds[] = {
    {"SQLite", [] { return Sqlite::isThere(); },
     [] { return std::unique_ptr<Server>(std::make_unique<SqliteServer>()); }},
    {"PostgreSQL", [] { return !PostgreSQL::programs().empty(); },
     [] { return std::unique_ptr<Server>(std::make_unique<PostgreSQLServer>()); }},
    {"MariaDB", [] { return MariaDB::isThere(); },
     [] { return std::unique_ptr<Server>(std::make_unique<MariaDBServer>()); }},
};

/// A script as pelmo-scheme prints it. @param options before the command
std::string script(const std::string& command, const Server& server, const std::string& nodes,
                   const std::string& paragraphs, const std::vector<std::string>& options = {}) {
    auto arguments = options;
    arguments.insert(arguments.end(), {command, nodes, paragraphs, "--dialect", server.name()});
    const auto ran = pelmo(arguments);
    EXPECT_EQ(ran.status, 0) << ran.err;
    return ran.out;
}

/// Both tables of a database as text, sorted by ID.
std::string tablesIn(const Server& server) {
    std::string rows;
    for (const auto* table : {&navTable, &webTable}) {
        std::string row;
        for (const auto& field : table->fields) {
            const std::string name(field.name);
            const auto value =
                field.kind == SchemeField::Kind::Number ? "CAST(" + name + " AS CHAR(11))" : server.asHex(name);
            row +=
                (row.empty()                  ? ""
                 : server.name() == "mariadb" ? ", '|', "
                                              : " || '|' || ") +
                (server.name() == "postgresql" && field.kind == SchemeField::Kind::Number ? name + "::text" : value);
        }
        if (server.name() == "mariadb") row = "CONCAT(" + row + ")";
        rows += server.column(row, "FROM " + std::string(table->name) + " ORDER BY ID");
    }
    return rows;
}

std::string line(const std::vector<std::string>& fields) {
    std::string text;
    for (const auto& field : fields) text += (text.empty() ? "" : "|") + field;
    return text + "\n";
}

/// The same for a scheme, all of whose nodes are saved.
std::string tablesOf(const clsNavSchemes& navs) {
    const auto text = [](std::string_view bytes) { return hexOfBytes(toUtf8(bytes)); };
    std::map<std::int32_t, std::string> nodes;
    std::map<std::int32_t, std::string> paragraphs;
    for (const auto& node : navs.NewEnum())
        nodes[node->ID] = line({std::to_string(node->ID), text(node->descriptionIs), text(node->typeIs()),
                                std::to_string(node->parentIs), text(node->queryIs()), text(node->parmIs()),
                                text(node->iconIs), text(node->roleIs)});
    for (const auto* p : navs.oWebs.NewEnum())
        paragraphs[p->ID] = line({std::to_string(p->ID), std::to_string(p->XST1), std::to_string(p->seqNo),
                                  text(p->titleIs), text(p->queryIs), text(p->parmIs), text(p->typeIs),
                                  std::to_string(p->formIs), text(p->colsAre), text(p->extra)});
    std::string rows;
    for (const auto& [id, row] : nodes) rows += row;
    for (const auto& [id, row] : paragraphs) rows += row;
    return rows;
}

constexpr auto leastId = std::numeric_limits<std::int32_t>::min();
constexpr auto mostId = std::numeric_limits<std::int32_t>::max();

/// A scheme with each of these texts in each field: a root and a chain of nodes, and a paragraph for each text.
void fill(clsNavSchemes& navs, const std::vector<std::string>& texts) {
    const auto at = [&](std::size_t place) { return Text(texts[place % texts.size()]); };
    navs.Add(makeNode(mostId, 0, at(0), at(1), at(2), at(3), at(4), at(5)));
    auto parent = mostId;
    for (std::size_t place = 0; place < texts.size(); ++place) {
        const auto n = static_cast<std::int32_t>(place);
        const auto id = place % 2 == 0 ? n : mostId - n;  // no file can hold a negative one
        if (id != 0) navs.Add(makeNode(id, parent, "G", at(place), at(place + 1), at(place + 2), at(place + 3), "r"));
        if (id != 0) parent = id;
        auto paragraph = makeParagraph(id, place % 2 == 0 ? leastId : mostId, -n, at(place));
        paragraph->queryIs = at(place + 1);
        paragraph->parmIs = at(place + 2);
        paragraph->typeIs = at(place + 3);
        paragraph->formIs = n;
        paragraph->colsAre = at(place + 4);
        paragraph->extra = at(place + 5);
        navs.oWebs.Add(paragraph);
    }
    navs.Add(makeNode(0, mostId, "N", "its ID is 0"));
}

/// The two files of a scheme.
struct Files {
    explicit Files(const clsNavSchemes& navs) {
        EXPECT_TRUE(navs.SaveData(nodes()));
        EXPECT_TRUE(navs.oWebs.SaveData(paragraphs()));
    }
    [[nodiscard]] std::string nodes() const { return (folder / "XST1.txt").string(); }
    [[nodiscard]] std::string paragraphs() const { return (folder / "XST2.txt").string(); }
    TempFolder folder;
};

// What no text in a saved file can hold, and the byte 00, which no text in a database can hold.
const std::string neverInAFile = {'"', ',', '\r', '\n', '\0'};

std::vector<std::string> hardTexts() {
    return {"",
            " ",
            "'",
            "''",
            "it's \\' \\",
            "\\n\\.",
            "100%% %s",
            "$1 $(x) ${y} :z",
            "-- ; /* */ # .bail",
            "NULL",
            "\x1A",
            "\t",
            "Caf\xE9 \x80",
            "\xC3\xA9",
            allBytesBut(neverInAFile),
            std::string(5000, '\xE9') + "x"};
}

class Scripts : public testing::TestWithParam<Kind> {
  protected:
    void SetUp() override {
        if (!GetParam().isThere()) GTEST_SKIP() << GetParam().name << " is not installed";
        server = GetParam().start();
    }
    void expectTables(const clsNavSchemes& navs) const { EXPECT_EQ(tablesIn(*server), tablesOf(navs)); }
    [[nodiscard]] std::string samples() const { return script("sql", *server, sampleNodes, sampleParagraphs); }

    std::unique_ptr<Server> server;
};

}  // namespace

TEST_P(Scripts, FillTheTablesFieldByField) {
    clsNavSchemes navs;
    fill(navs, hardTexts());
    const Files files(navs);
    const auto sql = script("sql", *server, files.nodes(), files.paragraphs());
    server->run(sql);
    expectTables(navs);
    server->run(sql);
    expectTables(navs);
    server->run(script("sql", *server, files.nodes(), files.paragraphs(), {"--encoding", "windows-1252"}));
    expectTables(navs);
}

TEST_P(Scripts, ReplaceWhatTheTablesHold) {
    clsNavSchemes navs;
    fill(navs, hardTexts());
    const Files files(navs);
    server->run(script("sql", *server, files.nodes(), files.paragraphs()));
    server->run(samples());
    clsNavSchemes shop;
    shop.LoadData(sampleNodes);
    shop.oWebs.LoadData(sampleParagraphs);
    expectTables(shop);
}

// Line ends, quotes and commas are in no file, but the quoting knows them.
TEST_P(Scripts, QuoteEveryByte) {
    const auto& dialect =
        **std::ranges::find(dialects, server->name(), [](const Dialect* row) { return std::string(row->name); });
    for (const auto& text : {allBytesBut(std::string(1, '\0')), std::string("a\r\n\\\n'\"\r"),
                             std::string(3000, '\n') + "\x80" + std::string(3000, '\t')}) {
        const auto expression = quotedText(dialect, Encoding::Utf8, text);
        EXPECT_EQ(server->column(server->asHex(expression), ""), hexOfBytes(toUtf8(text)) + "\n");
    }
}

// With a tool that stops at the first error, and with one that goes on.
TEST_P(Scripts, LeaveTheOldRowsWhereTheyFail) {
    server->run(samples());
    const auto before = tablesIn(*server);
    server->run(server->refusal("XST2", "200"));
    clsNavSchemes navs;
    fill(navs, std::vector<std::string>(202, "new"));
    const Files files(navs);
    const auto sql = script("sql", *server, files.nodes(), files.paragraphs());
    for (const auto& finished : {server->tryOut(sql), server->tryOutAll(sql)}) {
        EXPECT_NE(finished.err, "");
        EXPECT_EQ(tablesIn(*server), before);
    }
    EXPECT_NE(server->tryOut(sql).code, 0);
}

TEST_P(Scripts, MakeSkeletonsThatReturnNoRows) {
    server->run(samples());
    const auto stubs = script("stubs", *server, sampleNodes, sampleParagraphs);
    server->run(stubs);
    server->run(stubs);
    const auto title = [&](const std::string& query, const std::string& arguments) {
        const auto printed = server->run(server->call(query, arguments));
        return printed.substr(0, printed.find('\n'));
    };
    if (server->name() == "mariadb") {
        EXPECT_EQ(server->run("CALL spG_HiresLate(2, '05-Mar-2026'); CALL spW_CloseDay('05-Mar-2026');\n"
                              "CALL spW_PartCard(4);"),
                  "");
        EXPECT_EQ(server->column("count(*)", "FROM information_schema.routines WHERE routine_schema = 'test'"),
                  "111\n");
        return;
    }
    if (server->name() == "postgresql") {
        EXPECT_EQ(title("spG_HiresLate", "2, '05-Mar-2026'"), "ID|Description");
        EXPECT_EQ(title("spW_PartCard", "4"), "ID|Description|IMGPicture");
        EXPECT_EQ(title("spW_JobPictures", "4"), "ID|Description|FILEPicture");
        EXPECT_EQ(server->run("SELECT count(*) FROM spW_PartCard(4);"), "0\n");
        EXPECT_EQ(server->run("SELECT spW_CloseDay('05-Mar-2026');"), "\n");
        EXPECT_EQ(server->column("count(*)",
                                 "FROM pg_proc WHERE proname LIKE 'sp__%' AND pronamespace = "
                                 "'public'::regnamespace"),
                  "111\n");
        return;
    }
    EXPECT_EQ(title("spG_HiresLate", ""), "1|ID|Description");
    EXPECT_EQ(title("spW_PartCard", ""), "1|ID|Description|IMGPicture");
    EXPECT_EQ(title("spW_JobPictures", ""), "1|ID|Description|FILEPicture");
    EXPECT_EQ(server->run("SELECT count(*) FROM spW_PartCard;"), "0\n");
    EXPECT_EQ(server->run("UPDATE Given SET run = 'spW_CloseDay'; SELECT count(*) FROM Given;"), "1\n");
    EXPECT_EQ(server->column("count(*)", "FROM sqlite_master WHERE name LIKE 'sp__%'"), "111\n");
}

TEST_P(Scripts, LeaveQueriesThatAreWritten) {
    const SchemeFolder folder(navHeader +
                                  "1,\"\",\"F\",0,\"\",\"\",\"\",\"\"\r\n"
                                  "2,\"it's $stub$ */ \\ ; \x01 _\",\"G\",1,\"spG_Types 2\",\"Today\",\"\",\"\"\r\n",
                              webHeader +
                                  "1,1,1,\"\",\"select\",\"Text\",\"H\",0,\"\",\"\"\r\n"
                                  "2,1,2,\"\",\"order'by`x]\",\"\",\"T\",0,\"\",\"\"\r\n"
                                  "3,1,3,\"\",\"act'ion\",\"CKey04\",\"E\",0,\"\",\"\"\r\n");
    server->run(server->written());
    server->run(script("stubs", *server, folder.nodes(), folder.paragraphs()));
    const auto printed = server->run(server->call("spG_Types", "2, '05-Mar-2026'"));
    EXPECT_NE(printed.find("there"), std::string::npos) << printed;
    const auto run =
        server->name() == "mariadb" ? "CALL `select`('a'); CALL `order'by``x]`(); CALL `act'ion`('abcd');"
        : server->name() == "postgresql"
            ? "SELECT * FROM \"select\"('a'); SELECT * FROM \"order'by`x]\"(); SELECT FROM \"act'ion\"('a');"
            : "SELECT * FROM \"select\"; SELECT * FROM \"order'by`x]\"; UPDATE Given SET run = 'act''ion';";
    server->run(run);
}

INSTANTIATE_TEST_SUITE_P(Databases, Scripts, testing::ValuesIn(kinds),
                         [](const testing::TestParamInfo<Kind>& kind) { return kind.param.name; });

// Any texts that a file can hold, in any tree.
RC_GTEST_PROP(ScriptsForSqlite, GiveTheTablesOfAnyScheme, ()) {
    if (!Sqlite::isThere()) return;
    const auto byte = rc::gen::suchThat(rc::gen::arbitrary<char>(),
                                        [](char c) { return neverInAFile.find(c) == std::string::npos; });
    const auto hard = rc::gen::elementOf(std::string("'\\%;-$(_\t \x80\xE9\xFF"));
    const auto text = rc::gen::container<std::string>(rc::gen::weightedOneOf<char>({{1, byte}, {1, hard}}));
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", *text));
    std::vector<std::int32_t> ids = {1};
    for (const auto id : *rc::gen::unique<std::vector<std::int32_t>>(
             rc::gen::suchThat(rc::gen::nonZero<std::int32_t>(), [](std::int32_t number) { return number >= 0; }))) {
        navs.Add(makeNode(id, *rc::gen::elementOf(ids),
                          *rc::gen::elementOf(std::string("FGRNx")) == 'G' ? "G" : *text, *text, *text, *text, *text,
                          *text));
        ids.push_back(id);
        auto paragraph =
            makeParagraph(id, *rc::gen::arbitrary<std::int32_t>(), *rc::gen::arbitrary<std::int32_t>(), *text);
        paragraph->queryIs = *text;
        paragraph->parmIs = *text;
        paragraph->typeIs = *text;
        paragraph->formIs = *rc::gen::arbitrary<std::int32_t>();
        paragraph->colsAre = *text;
        paragraph->extra = *text;
        navs.oWebs.Add(paragraph);
    }
    navs.oWebs.Add(makeParagraph(0, 0));
    const Files files(navs);
    const SqliteServer server;
    server.run(script("sql", server, files.nodes(), files.paragraphs()));
    RC_ASSERT(tablesIn(server) == tablesOf(navs));
}
