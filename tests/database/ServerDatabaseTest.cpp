// SPDX-License-Identifier: MIT
#include <memory>

#include "tests/database/MariaDB.h"
#include "tests/database/Pages.h"
#include "tests/database/PostgreSQL.h"

// The user's database as the program asks it, on real servers with the sample shop: every page is that of SQLite, and
// a dump before and after all of them is the same.

namespace {

/// The same shop in SQLite, on the same day.
class ShopInSqlite {
  public:
    [[nodiscard]] std::map<std::string, std::vector<QueryResult>> pages(Actions actions) const {
        const auto database = Database::open("sqlite:" + (shop.folder / "shop.db").string());
        return allPages(shop.navs, *database, shopDayText, actions);
    }
    Shop shop{shopDay};
};

/// A server of PostgreSQL that the program finds by the environment.
class PostgreSQLForUs {
  public:
    PostgreSQLForUs() {
        for (const auto& setting : server.environment()) {
            const auto end = setting.find('=');
            settings_.push_back(std::make_unique<Environment>(setting.substr(0, end), setting.substr(end + 1)));
        }
        server.run("SET client_min_messages = warning;\n" + scriptFor("shop-postgresql.sql", shopDay));
    }
    [[nodiscard]] std::unique_ptr<Database> open() const { return Database::open("postgresql:///postgres"); }
    [[nodiscard]] std::string dump() const {
        const auto dumped = run({(PostgreSQL::programs() / "pg_dump").string(), "postgres"});
        EXPECT_EQ(dumped.code, 0) << dumped.err;
        // Each dump locks psql with a key of its own.
        static const std::regex keys("\n\\\\(un)?restrict [^\n]*");
        return std::regex_replace(dumped.out, keys, "");
    }
    PostgreSQL server;

  private:
    std::vector<std::unique_ptr<Environment>> settings_;
};

class MariaDBForUs {
  public:
    MariaDBForUs() : home_("HOME", server.home().string()) { server.run(scriptFor("shop-mariadb.sql", shopDay)); }
    [[nodiscard]] std::unique_ptr<Database> open() const { return Database::open("mariadb:///test"); }
    [[nodiscard]] std::string dump() const {
        const auto dumped = run({"mariadb-dump", "--skip-dump-date", "--routines", "test"});
        EXPECT_EQ(dumped.code, 0) << dumped.err;
        return dumped.out;
    }
    MariaDB server;

  private:
    Environment home_;
};

/// One row as text, or the error.
std::string rowOf(const QueryResult& result) {
    std::string text = result.error;
    if (!result.rows.empty())
        for (const auto& cell : result.rows[0]) text += "|" + cell.text;
    return text;
}

QueryResult runOnce(Database& database, const std::string& query, const std::string& parmIs = "",
                    const ClickedNode& clicked = {}, QueryKind kind = QueryKind::Rows,
                    const QueryLimits& limits = {}) {
    const DatabasePage page(database);
    return database.run(*callOf(query, parmIs, clicked, shopDayText), kind, limits);
}

}  // namespace

TEST(PostgreSqlDatabase, HasThePagesOfSqliteAndChangesNothing) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const PostgreSQLForUs shop;
    const ShopInSqlite same;
    const auto before = shop.dump();
    {
        const auto database = shop.open();
        EXPECT_TRUE(database->canUndo());
        expectSamePages(allPages(same.shop.navs, *database, shopDayText, Actions::Run), same.pages(Actions::Run));
    }
    const auto after = shop.dump();
    EXPECT_TRUE(after == before) << "the dump differs";
    EXPECT_GT(before.size(), 100'000U);
}

TEST(MariaDbDatabase, HasThePagesOfSqliteAndChangesNothing) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const MariaDBForUs shop;
    const ShopInSqlite same;
    const auto before = shop.dump();
    {
        const auto database = shop.open();
        EXPECT_FALSE(database->canUndo());
        expectSamePages(allPages(same.shop.navs, *database, shopDayText, Actions::Omitted),
                        same.pages(Actions::Omitted));
    }
    EXPECT_TRUE(shop.dump() == before) << "the dump differs";
    EXPECT_GT(before.size(), 100'000U);
}

TEST(PostgreSqlDatabase, StopsWhatTakesTooLongAndKeepsThePage) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    shop.server.run(
        "CREATE FUNCTION spW_Slow() RETURNS TABLE (\"ID\" integer) LANGUAGE sql AS $$ SELECT 1 FROM pg_sleep(60) "
        "$$;\n"
        "CREATE FUNCTION spW_Broken() RETURNS TABLE (\"ID\" integer) LANGUAGE sql AS $$ SELECT 1 / 0 $$;\n");
    const auto database = shop.open();
    const DatabasePage page(*database);
    const auto call = [&](const char* query, QueryKind kind,
                          QueryLimits limits = {.time = std::chrono::seconds(60)}) {
        return database->run(*callOf(query, kind == QueryKind::Action ? "Today" : "", {}, shopDayText), kind, limits);
    };
    EXPECT_EQ(call("spW_AddLateCharges", QueryKind::Action).error, "");
    const auto slow = call("spW_Slow", QueryKind::Rows, {.time = std::chrono::milliseconds(200)});
    EXPECT_TRUE(slow.isTooSlow);
    EXPECT_TRUE(slow.error.starts_with("Stopped, since its time is over: ")) << slow.error;
    EXPECT_LT(slow.time, std::chrono::seconds(30));
    const auto broken = call("spW_Broken", QueryKind::Rows);
    EXPECT_NE(broken.error.find("division by zero"), std::string::npos) << broken.error;
    EXPECT_FALSE(broken.isTooSlow);
    EXPECT_EQ(call("spG_Suppliers", QueryKind::Rows).error, "");
}

TEST(MariaDbDatabase, StopsWhatTakesTooLong) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run(
        "CREATE PROCEDURE spW_Slow() SELECT sleep(60) AS ID;\n"
        "CREATE PROCEDURE spW_Writes() UPDATE Employees SET hours = 1;\n");
    const auto database = shop.open();
    const auto slow =
        runOnce(*database, "spW_Slow", "", {}, QueryKind::Rows, {.time = std::chrono::milliseconds(300)});
    EXPECT_TRUE(slow.isTooSlow) << slow.error;
    EXPECT_LT(slow.time, std::chrono::seconds(10));
    const auto writes = runOnce(*database, "spW_Writes");
    EXPECT_NE(writes.error.find("READ ONLY"), std::string::npos) << writes.error;
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "");
    EXPECT_EQ(runOnce(*database, "spW_Writes", "", {}, QueryKind::Action).error, "");
    EXPECT_NE(shop.server.run("SELECT min(hours) FROM Employees;"), "min(hours)\n1\n") << "it was not rolled back";
}

TEST(PostgreSqlDatabase, LetsQueriesReadOnlyUnlessTheyHaveToWrite) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    shop.server.run(
        "CREATE TABLE Log(ID serial, what text);\n"
        "CREATE FUNCTION spW_Logged(given integer) RETURNS TABLE (\"ID\" integer) LANGUAGE sql AS $$\n"
        "    INSERT INTO Log(what) VALUES('seen'); SELECT max(ID) FROM Log $$;\n"
        "CREATE FUNCTION spW_Log() RETURNS void LANGUAGE sql AS $$ INSERT INTO Log(what) VALUES('a'), ('b') $$;\n"
        "CREATE FUNCTION spW_LogRows() RETURNS TABLE (\"ID\" bigint) LANGUAGE sql AS $$ SELECT count(*) FROM Log "
        "$$;\n"
        "CREATE FUNCTION spW_Counter() RETURNS TABLE (\"ID\" bigint) LANGUAGE sql AS $$ SELECT nextval('log_id_seq') "
        "$$;\n"
        "INSERT INTO Log(what) VALUES('first');\n");
    const auto before = shop.dump();
    const auto database = shop.open();
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Logged 5")), "|2");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Counter")), "|2");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Counter")), "|2") << "the number before was given back";
    {
        const DatabasePage page(*database);
        const auto call = [&](const char* query, QueryKind kind) {
            return database->run(*callOf(query, "", {}, ""), kind, {});
        };
        const auto logged = call("spW_Log", QueryKind::Action);
        EXPECT_EQ(logged.error, "");
        EXPECT_EQ(logged.changed, 2U);
        EXPECT_TRUE(logged.fields.empty());
        EXPECT_EQ(rowOf(call("spW_LogRows", QueryKind::Rows)), "|3");
    }
    EXPECT_EQ(rowOf(runOnce(*database, "spW_LogRows")), "|1");
    EXPECT_TRUE(shop.dump() == before) << "the dump differs";
}

TEST(PostgreSqlDatabase, FindsFunctionsAndViewsOfTheUser) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    shop.server.run(
        "CREATE FUNCTION spW_Two(a integer, b text DEFAULT 'x') RETURNS TABLE (\"ID\" integer, b text) LANGUAGE sql\n"
        "    AS $$ SELECT a, b $$;\n"
        "CREATE SCHEMA sales;\n"
        "CREATE FUNCTION sales.\"spW Odd\"\"\"() RETURNS integer LANGUAGE sql AS $$ SELECT 7 $$;\n"
        "CREATE VIEW spW_View AS SELECT 1 AS \"ID\", true AS b, date '2026-03-05' AS d, 2.50::numeric AS n, "
        "0.1::float8 "
        "AS f,\n"
        "    timestamp '2026-03-05 12:30:00' AS t, '\\x00ff'::bytea AS y, NULL AS z, 'a''b'::text AS s,\n"
        "    time '09:05:07' AS u;\n");
    const auto database = shop.open();
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Two", "Lkey", {.key = "42", .text = ""})), "|42|x");
    EXPECT_EQ(rowOf(runOnce(*database, "SPW_TWO 7", "Text", {.text = "it's; \\"})), "|7|it's; \\");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Two 1 2", "Lkey")), "No function spW_Two takes 3 values.");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Two x")).substr(0, 51),
              "ERROR:  invalid input syntax for type integer: \"x\"\n");
    QueryCall odd;
    odd.name = "sales.spW Odd\"";
    {
        const DatabasePage page(*database);
        EXPECT_EQ(rowOf(database->run(odd, QueryKind::Rows, {})), "|7");
    }
    const auto view = runOnce(*database, "spW_View");
    const std::string bytes("\0\xFF", 2);
    EXPECT_EQ(rowOf(view), "|1|true|2026-03-05|2.50|0.1|2026-03-05 12:30:00|" + bytes + "||a'b|09:05:07");
    EXPECT_EQ(view.rows.at(0).at(3).kind, Cell::Kind::Number);
    EXPECT_EQ(view.rows.at(0).at(6).kind, Cell::Kind::Bytes);
    EXPECT_EQ(view.rows.at(0).at(7).kind, Cell::Kind::Null);
    EXPECT_EQ(rowOf(runOnce(*database, "spW_View 1")), "spW_View is no function, and cannot be called with 1 value.");
    EXPECT_EQ(rowOf(runOnce(*database, "pg_sleep 0")), "There is no function pg_sleep, and no view of this name.");
    EXPECT_EQ(rowOf(runOnce(*database, "pg_shadow")), "There is no function pg_shadow, and no view of this name.");
    const auto known = database->find("spw_two", QueryKind::Rows);
    ASSERT_TRUE(known);
    EXPECT_TRUE(known->areArgumentsKnown);
    EXPECT_EQ(known->fewestArguments, 1U);
    EXPECT_EQ(known->mostArguments, 2U);
    EXPECT_FALSE(database->find("pg_sleep", QueryKind::Rows));
}

TEST(PostgreSqlDatabase, ConnectsAgainForTheNextPage) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    const auto database = shop.open();
    const std::string end =
        "SELECT count(pg_terminate_backend(pid, 5000)) FROM pg_stat_activity WHERE application_name = "
        "'pelmo-scheme';";
    {
        const DatabasePage page(*database);
        EXPECT_EQ(shop.server.run(end), "1\n");
        const auto lost = database->run(*callOf("spG_Suppliers", "", {}, ""), QueryKind::Rows, {});
        EXPECT_NE(lost.error.find("connection to the database is lost"), std::string::npos) << lost.error;
    }
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "");
    EXPECT_EQ(shop.server.run(end), "1\n");
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "") << "between two pages";
}

TEST(PostgreSqlDatabase, PromisesNothingWhereASequenceBelongsToAnotherUser) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    shop.server.run("CREATE ROLE plain LOGIN;\nCREATE SEQUENCE taken;\n");
    EXPECT_TRUE(Database::open("postgresql://plain@/postgres")->canUndo());
    shop.server.run("GRANT USAGE ON SEQUENCE taken TO plain;\n");
    EXPECT_FALSE(Database::open("postgresql://plain@/postgres")->canUndo());
}

TEST(PostgreSqlDatabase, RunsNoActionWhereASequenceCannotBeKept) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    shop.server.run(
        "CREATE TABLE Log(ID serial, what text);\n"
        "CREATE FUNCTION spW_Log() RETURNS void LANGUAGE sql AS $$ INSERT INTO Log(what) VALUES('a') $$;\n"
        "CREATE FUNCTION refuse() RETURNS event_trigger LANGUAGE plpgsql AS $$ BEGIN RAISE 'not today'; END $$;\n"
        "CREATE EVENT TRIGGER refused ON ddl_command_start WHEN TAG IN ('ALTER SEQUENCE') EXECUTE FUNCTION "
        "refuse();\n");
    const auto log = runOnce(*shop.open(), "spW_Log", "", {}, QueryKind::Action);
    const std::string words = "It is not run, since the sequences cannot be kept as they are: ERROR:  not today";
    EXPECT_EQ(log.error.substr(0, words.size()), words);
    EXPECT_EQ(shop.server.run("SELECT last_value, is_called FROM log_id_seq;"), "1|f\n");
}

TEST(PostgreSqlDatabase, TakesSettingsFromItsAddress) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    const std::string host = std::getenv("PGHOST");
    const Environment elsewhere("PGHOST", "/nowhere");
    for (const std::string option : {"host", "socket"}) {
        const auto database =
            Database::open("postgresql://wizard@/postgres?" + option + "=" + host + "&application_name=it's%20ours");
        EXPECT_EQ(shop.server.run("SELECT count(*) FROM pg_stat_activity WHERE application_name = 'it''s ours';"),
                  "1\n")
            << option;
    }
}

TEST(PostgreSqlDatabase, SaysThatItCannotBeReachedAgain) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    auto shop = std::make_unique<PostgreSQLForUs>();
    const auto database = shop->open();
    shop = nullptr;
    try {
        const DatabasePage page(*database);
        ADD_FAILURE() << "the server has ended";
    } catch (const DatabaseError& error) {
        const std::string words = "The connection to the database was lost, and cannot be made again: ";
        EXPECT_EQ(std::string(error.what()).substr(0, words.size()), words);
    }
}

namespace {

std::string asksFor;

// Wrong the first time.
std::string answer(bool isAgain) {
    asksFor += isAgain ? "again " : "asked ";
    return isAgain ? "tiger" : "wrong";
}

std::string wrongAnswer(bool isAgain) {
    asksFor += isAgain ? "again " : "asked ";
    return "wrong";
}

std::string noAnswer(bool) {
    return {};
}

std::string whyNot(const std::string& address, AskPassword askPassword) {
    try {
        (void)Database::open(address, askPassword);
    } catch (const DatabaseError& error) {
        return error.what();
    }
    return {};
}

// Asked until it is right, not at all where the environment has it, and not again where there is no answer.
void expectPasswordAskedFor(const std::string& address, const std::string& refusal, const std::string& variable) {
    const auto refused = whyNot(address, noAnswer);
    EXPECT_NE(refused.find(refusal), std::string::npos) << refused;
    asksFor.clear();
    EXPECT_EQ(whyNot(address, answer), "");
    EXPECT_EQ(asksFor, "asked again ");
    asksFor.clear();
    EXPECT_NE(whyNot(address, wrongAnswer), "");
    EXPECT_EQ(asksFor, "asked again again ");
    const Environment password(variable, "tiger");
    EXPECT_EQ(whyNot(address, nullptr), "");
}

}  // namespace

TEST(PostgreSqlDatabase, AsksForThePasswordUntilItIsRight) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    const PostgreSQLForUs shop;
    const auto rules = shop.server.run("SHOW hba_file;");
    shop.server.run(
        "CREATE ROLE guarded LOGIN PASSWORD 'tiger';\n"
        "COPY (VALUES ('local all guarded scram-sha-256'), ('local all all trust')) TO '" +
        rules.substr(0, rules.size() - 1) + "';\nSELECT pg_reload_conf() \\g /dev/null\n");
    expectPasswordAskedFor("postgresql://guarded@/postgres", "no password supplied", "PGPASSWORD");
    if (bytesOf("/etc/odbcinst.ini").find("[PostgreSQL Unicode]") == std::string::npos)
        GTEST_SKIP() << "odbc-postgresql is not installed";
    expectPasswordAskedFor("odbc:DRIVER={PostgreSQL Unicode};Servername=" + std::string(std::getenv("PGHOST")) +
                               ";Database=postgres;UID=guarded",
                           "no password supplied", "PGPASSWORD");
}

TEST(MariaDbDatabase, AsksForThePasswordUntilItIsRight) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run("CREATE USER guarded IDENTIFIED BY 'tiger'; GRANT ALL ON test.* TO guarded;");
    expectPasswordAskedFor("mariadb://guarded@/test", "Access denied for user 'guarded'", "MYSQL_PWD");
    const auto file = shop.server.home() / ".my.cnf";
    const auto before = bytesOf(file);
    writeBytes(file, before + "password=tiger\n");
    EXPECT_EQ(whyNot("mariadb://guarded@/test", nullptr), "");
    writeBytes(file, before);
}

TEST(MariaDbDatabase, ConnectsAgainForTheNextPage) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run("CREATE USER reader; GRANT ALL ON test.* TO reader;");
    const auto database = Database::open("mariadb://reader@/test");
    for (const auto kind : {QueryKind::Rows, QueryKind::Action}) {
        const DatabasePage page(*database);
        shop.server.run("KILL USER reader;");
        const auto lost = database->run(*callOf("spG_Suppliers", "", {}, ""), kind, {});
        EXPECT_NE(lost.error.find("has gone away"), std::string::npos) << lost.error;
    }
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "");
}

// As on a server that copies another one.
TEST(MariaDbDatabase, SaysThatAServerRefusesToWrite) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run(
        "CREATE USER reader; GRANT SELECT, INSERT, EXECUTE ON test.* TO reader; CREATE TABLE Seen(ID int);\n"
        "CREATE PROCEDURE spA_See() SQL SECURITY INVOKER INSERT INTO Seen VALUES(1);\nSET GLOBAL read_only = 1;\n");
    const auto database = Database::open("mariadb://reader@/test");
    const DatabasePage page(*database);
    const auto refused = database->run(*callOf("spA_See", "", {}, ""), QueryKind::Action, {});
    EXPECT_NE(refused.error.find("--read-only"), std::string::npos) << refused.error;
    EXPECT_EQ(database->run(*callOf("spG_Suppliers", "", {}, ""), QueryKind::Rows, {}).error, "")
        << "the page goes on";
}

TEST(MariaDbDatabase, SaysThatTheConnectionWasLostWhileAQueryRan) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run("CREATE PROCEDURE spW_Ends() KILL CONNECTION connection_id();");
    const auto database = shop.open();
    EXPECT_NE(runOnce(*database, "spW_Ends").error, "");
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "") << "on the next page";
}

TEST(MariaDbDatabase, SaysThatAValueIsTooLong) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run("CREATE PROCEDURE spW_One(a longtext) SELECT 1 AS ID;\nSET GLOBAL max_allowed_packet = 4096;\n");
    const auto database = shop.open();
    EXPECT_EQ(rowOf(runOnce(*database, "spW_One", "Text", {.text = "short"})), "|1");
    EXPECT_NE(runOnce(*database, "spW_One", "Text", {.text = std::string(100'000, 'x')}).error, "");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_One", "Text", {.text = "short"})), "|1") << "on the next page";
}

TEST(MariaDbDatabase, CallsProceduresAndViewsOfTheUser) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run(
        "CREATE PROCEDURE spW_Two(a int, b varchar(20)) SELECT a AS ID, b, 2.50 AS n, x'00ff' AS y, NULL AS z;\n"
        "CREATE VIEW spW_View AS SELECT 1 AS ID, date '2026-03-05' AS d;\n"
        "CREATE TABLE Engines(ID int) ENGINE = MyISAM;\n"
        "DELIMITER //\nCREATE PROCEDURE spW_Commits() BEGIN COMMIT; INSERT INTO Engines VALUES(1); END //\n");
    const auto database = shop.open();
    const auto two = runOnce(*database, "spW_Two 7", "Text", {.text = "it's; \\"});
    EXPECT_EQ(rowOf(two), "|7|it's; \\|2.50|" + std::string("\0\xFF", 2) + "|");
    EXPECT_EQ(two.rows.at(0).at(2).kind, Cell::Kind::Number);
    EXPECT_EQ(two.rows.at(0).at(3).kind, Cell::Kind::Bytes);
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Two 7")), "The procedure spW_Two takes 2 values, and is called with 1.");
    EXPECT_EQ(rowOf(runOnce(*database, "spw_view")), "|1|2026-03-05");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_View 1")),
              "spW_View is no procedure, and cannot be called with 1 value.");
    EXPECT_EQ(rowOf(runOnce(*database, "spW_Nowhere")),
              "There is no procedure spW_Nowhere, and no view of this name.");
    EXPECT_NE(rowOf(runOnce(*database, "spW_Commits")), "") << "not even after a COMMIT";
    EXPECT_EQ(shop.server.run("SELECT count(*) FROM Engines;"), "count(*)\n0\n");
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "");
}

TEST(OdbcDatabase, CallsFunctionsThroughADriver) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    if (bytesOf("/etc/odbcinst.ini").find("[PostgreSQL Unicode]") == std::string::npos)
        GTEST_SKIP() << "odbc-postgresql is not installed";
    const PostgreSQLForUs shop;
    shop.server.run(
        "CREATE FUNCTION spW_Broken() RETURNS TABLE (\"ID\" integer) LANGUAGE sql AS $$ SELECT 1 / 0 $$;\n"
        "CREATE TABLE Log(what text);\n"
        "CREATE FUNCTION spW_Log() RETURNS void LANGUAGE sql AS $$ INSERT INTO Log VALUES('a') $$;\n"
        "CREATE FUNCTION spW_LogRows() RETURNS TABLE (\"ID\" bigint) LANGUAGE sql AS $$ SELECT count(*) FROM Log "
        "$$;\n");
    const auto before = shop.dump();
    {
        const auto database =
            Database::open("odbc:DRIVER={PostgreSQL Unicode};Servername=" + std::string(std::getenv("PGHOST")) +
                           ";Database=postgres;UID=wizard");
        EXPECT_FALSE(database->canUndo());
        const auto hire = runOnce(*database, "spW_HireCustomer", "Lkey", {.key = "1003", .text = ""});
        EXPECT_EQ(hire.error, "");
        EXPECT_EQ(hire.total, 1U);
        EXPECT_EQ(hire.fields.at(0), "ID");
        EXPECT_EQ(runOnce(*database, "spG_PartsOfSupplier", "CKey06", {.key = "NIGHTW", .text = ""}).error, "");
        const DatabasePage page(*database);
        const auto call = [&](const char* query) {
            return database->run(*callOf(query, "", {}, ""), QueryKind::Rows, {});
        };
        EXPECT_NE(call("spW_Broken").error.find("division by zero"), std::string::npos);
        EXPECT_EQ(call("spG_Suppliers").error, "") << "after one that failed";
        EXPECT_EQ(call("spW_Nowhere").error, "There is no procedure spW_Nowhere that can be called.");
        EXPECT_EQ(call("spG_Suppliers()};").error, "There is no procedure spG_Suppliers()}; that can be called.");
        EXPECT_EQ(database->run(*callOf("spW_Log", "", {}, ""), QueryKind::Action, {}).error, "");
        EXPECT_EQ(rowOf(call("spW_LogRows")), "|1") << "later queries of the page see what it did";
    }
    EXPECT_TRUE(shop.dump() == before) << "the dump differs";
}
