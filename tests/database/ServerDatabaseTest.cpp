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
    explicit ShopInSqlite(const std::string& today) : today_(today) {}
    [[nodiscard]] std::map<std::string, std::vector<QueryResult>> pages(Actions actions) const {
        const auto database = Database::open("sqlite:" + (shop.folder / "shop.db").string());
        return allPages(shop.navs, *database, today_, actions);
    }
    Shop shop;

  private:
    std::string today_;
};

/// A server of PostgreSQL that the program finds by the environment.
class PostgreSQLForUs {
  public:
    PostgreSQLForUs() {
        for (const auto& setting : server.environment()) {
            const auto end = setting.find('=');
            settings_.push_back(std::make_unique<Environment>(setting.substr(0, end), setting.substr(end + 1)));
        }
        server.run("SET client_min_messages = warning;\n" + bytesOf(sample("shop-postgresql.sql")));
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
    MariaDBForUs() : home_("HOME", server.home().string()) { server.run(bytesOf(sample("shop-mariadb.sql"))); }
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

QueryResult runOnce(Database& database, const std::string& query, const std::string& parmIs = "",
                    const ClickedNode& clicked = {}, bool isAction = false, const QueryLimits& limits = {}) {
    const DatabasePage page(database);
    return database.run(*callOf(query, parmIs, clicked, dayForQueries()), isAction, limits);
}

}  // namespace

TEST(PostgreSqlDatabase, HasThePagesOfSqliteAndChangesNothing) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const PostgreSQLForUs shop;
    const ShopInSqlite same(dayForQueries());
    const auto before = shop.dump();
    {
        const auto database = shop.open();
        EXPECT_TRUE(database->canUndo());
        expectSamePages(allPages(same.shop.navs, *database, dayForQueries(), Actions::Run), same.pages(Actions::Run));
    }
    const auto after = shop.dump();
    EXPECT_TRUE(after == before) << "the dump differs";
    EXPECT_GT(before.size(), 100'000U);
}

TEST(MariaDbDatabase, HasThePagesOfSqliteAndChangesNothing) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const MariaDBForUs shop;
    const ShopInSqlite same(dayForQueries());
    const auto before = shop.dump();
    {
        const auto database = shop.open();
        EXPECT_FALSE(database->canUndo());
        expectSamePages(allPages(same.shop.navs, *database, dayForQueries(), Actions::Omitted),
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
    const auto call = [&](const char* query, bool isAction) {
        return database->run(*callOf(query, isAction ? "Today" : "", {}, dayForQueries()), isAction,
                             {.time = std::chrono::milliseconds(200)});
    };
    EXPECT_EQ(call("spW_AddLateCharges", true).error, "");
    const auto slow = call("spW_Slow", false);
    EXPECT_TRUE(slow.isTooSlow);
    EXPECT_TRUE(slow.error.starts_with("Stopped, since its time is over: ")) << slow.error;
    EXPECT_LT(slow.time, std::chrono::seconds(5));
    const auto broken = call("spW_Broken", false);
    EXPECT_NE(broken.error.find("division by zero"), std::string::npos) << broken.error;
    EXPECT_FALSE(broken.isTooSlow);
    EXPECT_EQ(call("spG_Suppliers", false).error, "");
}

TEST(MariaDbDatabase, StopsWhatTakesTooLong) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDBForUs shop;
    shop.server.run(
        "CREATE PROCEDURE spW_Slow() SELECT sleep(60) AS ID;\n"
        "CREATE PROCEDURE spW_Writes() UPDATE Employees SET hours = 1;\n");
    const auto database = shop.open();
    const auto slow = runOnce(*database, "spW_Slow", "", {}, false, {.time = std::chrono::milliseconds(300)});
    EXPECT_TRUE(slow.isTooSlow) << slow.error;
    EXPECT_LT(slow.time, std::chrono::seconds(10));
    const auto writes = runOnce(*database, "spW_Writes");
    EXPECT_NE(writes.error.find("READ ONLY"), std::string::npos) << writes.error;
    EXPECT_EQ(runOnce(*database, "spG_Suppliers").error, "");
    EXPECT_EQ(runOnce(*database, "spW_Writes", "", {}, true).error, "");
    EXPECT_NE(shop.server.run("SELECT min(hours) FROM Employees;"), "min(hours)\n1\n") << "it was not rolled back";
}
