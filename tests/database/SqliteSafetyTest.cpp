// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <QSqlDatabase>
#include <QSqlQuery>

#include "database/QtStart.h"
#include "database/SqliteLibrary.h"
#include "tests/OrdinaryUser.h"
#include "tests/database/Pages.h"

// A file of SQLite that belongs to the user: whatever its queries do, its bytes stay. Others may write to it.

namespace {

/// A small database of its own, made by the tool.
class Small {
  public:
    explicit Small(const std::string& script = {}) {
        tool_.run(
            "CREATE TABLE Given(constant, parameter, run TEXT);\nINSERT INTO Given VALUES('old', 'left', NULL);\n"
            "CREATE TABLE Things(ID INTEGER PRIMARY KEY, name TEXT);\nINSERT INTO Things VALUES(1, 'one');\n"
            "CREATE VIEW spW_Given AS SELECT 1 AS ID, constant, typeof(constant), parameter, typeof(parameter) "
            "FROM Given;\n"
            "CREATE VIEW spW_Things AS SELECT ID, name FROM Things;\n"
            "CREATE TRIGGER spW_Add AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_Add' BEGIN\n"
            "    INSERT INTO Things(name) VALUES(NEW.constant);\nEND;\n" +
            script);
    }
    [[nodiscard]] std::string file() const { return (folder_ / "small.db").string(); }
    [[nodiscard]] std::unique_ptr<Database> open() const { return Database::open("sqlite:" + file()); }
    [[nodiscard]] std::string run(const std::string& script) const { return tool_.run(script); }
    /// Names and bytes of all files in the folder, and when they were changed.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
            const auto name = entry.path().filename().string();
            if (name.ends_with("-shm")) continue;  // locks, which readers change, too
            const auto time = std::filesystem::last_write_time(entry).time_since_epoch().count();
            files[name] =
                std::to_string(time) + " " + std::to_string(std::hash<std::string>()(bytesOf(entry.path())));
        }
        return files;
    }
    [[nodiscard]] std::filesystem::path folder() const { return folder_.path(); }

  private:
    TempFolder folder_;
    Sqlite tool_{folder_ / "small.db"};
};

QueryResult call(Database& database, const std::string& query, QueryKind kind = QueryKind::Rows,
                 const std::string& parmIs = {}, const ClickedNode& clicked = {}, const QueryLimits& limits = {}) {
    return database.run(*callOf(query, parmIs, clicked, "05-Mar-2026"), kind, limits);
}

std::string firstRow(const QueryResult& result) {
    std::string text = result.error;
    if (!result.rows.empty())
        for (const auto& cell : result.rows[0]) text += "|" + cell.text;
    return text;
}

class SqliteFile : public testing::Test {
    void SetUp() override {
        if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    }
};

}  // namespace

TEST_F(SqliteFile, GivesConstantsAndParametersWithTheirTypes) {
    const Small small;
    const auto database = small.open();
    const DatabasePage page(*database);
    const ClickedNode node{.key = "1003", .text = "It's \"1\"; DROP TABLE Things", .isGenerated = true};
    EXPECT_EQ(firstRow(call(*database, "spW_Given")), "|1||null||null") << "what was left there is gone";
    EXPECT_EQ(firstRow(call(*database, "spW_Given 2", QueryKind::Rows, "Lkey", node)), "|1|2|integer|1003|integer");
    EXPECT_EQ(firstRow(call(*database, "spW_Given 2.5", QueryKind::Rows, "CKey04", node)), "|1|2.5|real|1003|text");
    EXPECT_EQ(firstRow(call(*database, "spW_Given OPEN", QueryKind::Rows, "Today", node)),
              "|1|OPEN|text|05-Mar-2026|text");
    EXPECT_EQ(firstRow(call(*database, "spW_Given 007", QueryKind::Rows, "Lkey")), "|1|007|text|0|integer");
    EXPECT_EQ(firstRow(call(*database, "spW_Given 2 OPEN 3", QueryKind::Rows, "Text", node)),
              "|1|2 OPEN 3|text|It's \"1\"; DROP TABLE Things|text");
    EXPECT_EQ(firstRow(call(*database, "SPW_given")), "|1||null||null") << "in any case of its letters";
    const ClickedNode hostile{
        .key = std::string("a\0b", 3), .text = std::string(1'000'000, 'x'), .isGenerated = true};
    EXPECT_EQ(call(*database, "spW_Given", QueryKind::Rows, "CKey03", hostile).rows.at(0).at(3).text, hostile.key);
    EXPECT_EQ(call(*database, "spW_Given", QueryKind::Rows, "Text", hostile).rows.at(0).at(3).text, hostile.text);
}

TEST_F(SqliteFile, CallsOnlyWhatIsInItsCatalogue) {
    const Small small("CREATE VIEW \"a \"\"b\" AS SELECT 7 AS ID;\n");
    const auto database = small.open();
    const DatabasePage page(*database);
    EXPECT_EQ(firstRow(call(*database, "sqlite_schema")), "There is no view sqlite_schema.");
    EXPECT_EQ(firstRow(call(*database, "spW_Things;DELETE")), "There is no view spW_Things;DELETE.");
    EXPECT_EQ(firstRow(call(*database, "pragma_table_list")), "There is no view pragma_table_list.");
    EXPECT_EQ(firstRow(call(*database, "spW_Things", QueryKind::Action)),
              "There is no trigger spW_Things on the table Given.");
    QueryCall withQuotes;
    withQuotes.name = "a \"b";
    EXPECT_EQ(firstRow(database->run(withQuotes, QueryKind::Rows, {})), "|7");
    EXPECT_TRUE(database->find("spw_things", QueryKind::Rows));
    EXPECT_FALSE(database->find("spw_things", QueryKind::Action));
    EXPECT_TRUE(database->find("SPW_ADD", QueryKind::Action));
}

TEST_F(SqliteFile, ShowsLaterParagraphsWhatAnActionDidAndTakesItBack) {
    const Small small;
    const auto before = small.files();
    {
        const auto database = small.open();
        {
            const DatabasePage page(*database);
            const auto added = call(*database, "spW_Add two", QueryKind::Action);
            EXPECT_EQ(added.error, "");
            EXPECT_EQ(added.changed, 1U);
            EXPECT_EQ(call(*database, "spW_Things").total, 2U);
            EXPECT_EQ(small.files(), before) << "in the middle of a page";
        }
        const DatabasePage page(*database);
        EXPECT_EQ(call(*database, "spW_Things").total, 1U);
    }
    EXPECT_EQ(small.files(), before);
    EXPECT_EQ(small.run("SELECT * FROM Given;"), "old|left|\n");
}

// Should the program itself ever try to.
TEST_F(SqliteFile, CannotBeCommittedTo) {
    const Small small;
    const auto before = small.files();
    startQt();
    {
        auto connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("committing"));
        connection.setDatabaseName(QString::fromStdString(small.file()));
        ASSERT_TRUE(connection.open());
        SqliteLibrary(*connection.driver()).refuseCommits();
        QSqlQuery query(connection);
        EXPECT_FALSE(query.exec(QStringLiteral("INSERT INTO Things VALUES(2, 'two')")));
        EXPECT_TRUE(query.exec(QStringLiteral("BEGIN")));
        EXPECT_TRUE(query.exec(QStringLiteral("INSERT INTO Things VALUES(2, 'two')")));
        EXPECT_FALSE(query.exec(QStringLiteral("COMMIT")));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("committing"));
    EXPECT_EQ(small.run("SELECT count(*) FROM Things;"), "1\n");
    EXPECT_EQ(small.files().size(), before.size());
}

// A trigger that ends the transaction must not let the next query commit.
TEST_F(SqliteFile, StaysAsItIsWhereATriggerRollsBack) {
    const Small small(
        "CREATE TRIGGER spW_End AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_End' BEGIN\n"
        "    SELECT RAISE(ROLLBACK, 'the end');\nEND;\n"
        "CREATE TRIGGER spW_Fail AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_Fail' BEGIN\n"
        "    INSERT INTO Things VALUES(9, 'nine');\n    SELECT RAISE(FAIL, 'no more');\nEND;\n");
    const auto before = small.files();
    {
        const auto database = small.open();
        const DatabasePage page(*database);
        EXPECT_EQ(call(*database, "spW_Add two", QueryKind::Action).error, "");
        EXPECT_EQ(call(*database, "spW_End", QueryKind::Action).error,
                  "the end The transaction of the page ended with it.");
        EXPECT_EQ(call(*database, "spW_Things").total, 1U);
        EXPECT_EQ(call(*database, "spW_Add three", QueryKind::Action).error, "");
        EXPECT_EQ(call(*database, "spW_Fail", QueryKind::Action).error, "no more");
        EXPECT_EQ(call(*database, "spW_Things").total, 2U) << "what failed is taken back, and nothing else";
        EXPECT_EQ(call(*database, "spW_Given 5").error, "");
    }
    EXPECT_EQ(small.files(), before);
}

TEST_F(SqliteFile, StopsWhatTakesTooLong) {
    const std::string endless = "WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N) ";
    const Small small("CREATE VIEW spW_Endless AS " + endless +
                      "SELECT count(*) AS ID FROM N;\n"
                      "CREATE TRIGGER spW_Fill AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_Fill' BEGIN\n"
                      "    INSERT INTO Things(name) SELECT n FROM (" +
                      endless + "SELECT n FROM N);\nEND;\n");
    const auto before = small.files();
    {
        const auto database = small.open();
        const DatabasePage page(*database);
        for (const auto& [name, kind] :
             {std::pair("spW_Endless", QueryKind::Rows), std::pair("spW_Fill", QueryKind::Action)}) {
            const auto result =
                call(*database, name, kind, {}, {}, {.time = std::chrono::milliseconds(300), .rows = 10});
            EXPECT_TRUE(result.isTooSlow);
            EXPECT_TRUE(result.error.starts_with("Stopped, since its time is over: interrupted")) << result.error;
            EXPECT_LT(result.time, std::chrono::seconds(20));
            EXPECT_EQ(small.files(), before) << name;
        }
        EXPECT_EQ(call(*database, "spW_Things").total, 1U);
    }
    EXPECT_EQ(small.files(), before);
}

// Far more changed pages than the cache holds.
TEST_F(SqliteFile, StaysAsItIsWhereAnActionChangesALot) {
    const Small small(
        "CREATE TRIGGER spW_Fill AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_Fill' BEGIN\n"
        "    INSERT INTO Things(name) SELECT zeroblob(4000) FROM (WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL\n"
        "        SELECT n + 1 FROM N WHERE n < 20000) SELECT n FROM N);\nEND;\n");
    const auto before = small.files();
    const auto database = small.open();
    const DatabasePage page(*database);
    const auto filled = call(*database, "spW_Fill", QueryKind::Action, {}, {}, {.time = std::chrono::minutes(1)});
    EXPECT_EQ(filled.error, "");
    EXPECT_EQ(filled.changed, 20'000U);
    EXPECT_EQ(call(*database, "spW_Things").total, 20'001U);
    EXPECT_EQ(small.files(), before);
}

TEST_F(SqliteFile, KeepsTheLogOfAWriteAheadFile) {
    const Small small("PRAGMA journal_mode = WAL;\n");
    const auto closed = small.files();
    ASSERT_EQ(closed.size(), 1U);
    const auto use = [&] {
        const auto database = small.open();
        const DatabasePage page(*database);
        EXPECT_EQ(call(*database, "spW_Add two", QueryKind::Action).error, "");
        return call(*database, "spW_Things").total;
    };
    EXPECT_EQ(use(), 2U);
    EXPECT_EQ(small.files(), closed) << "no log is left behind";

    // A program that wrote and was killed leaves its log.
    EXPECT_NE(::run({"sqlite3", "-batch", small.file()},
                    "INSERT INTO Things VALUES(5, 'five');\n.shell kill -9 $PPID\nSELECT 1;\n")
                  .code,
              0);
    const auto killed = small.files();
    ASSERT_EQ(killed.size(), 2U);
    EXPECT_EQ(use(), 3U);
    EXPECT_EQ(small.files(), killed);
}

TEST_F(SqliteFile, IsNotRepaired) {
    const Small small;
    // The journal of a program that was killed while it wrote.
    const auto writer = ::run(
        {"sqlite3", "-batch", small.file()},
        "PRAGMA cache_size = 1;\nBEGIN;\nINSERT INTO Things(name) SELECT zeroblob(9000) FROM (WITH RECURSIVE N(n) AS "
        "(SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < 500) SELECT n FROM N);\n.shell kill -9 $PPID\nSELECT "
        "1;\n");
    EXPECT_NE(writer.code, 0);
    const auto before = small.files();
    ASSERT_EQ(before.size(), 2U);
    EXPECT_THROW((void)small.open(), DatabaseError);
    EXPECT_EQ(small.files(), before);
}

TEST_F(SqliteFile, WaitsForAnotherProgramAndThenSaysSo) {
    const Small small;
    const auto database = small.open();
    const auto isLocked = (small.folder() / "locked").string();
    const auto isWaiting = (small.folder() / "waiting").string();
    writeBytes(isWaiting, "");
    const Background other({"sh", "-c",
                            "(echo 'BEGIN IMMEDIATE;\n.shell touch " + isLocked + "'; while [ -e " + isWaiting +
                                " ]; do sleep 0.1; done) | exec sqlite3 -batch " + small.file()},
                           small.folder() / "log", As::Caller);
    for (int i = 0; i < 300 && !std::filesystem::exists(isLocked); ++i) usleep(100'000);
    try {
        const DatabasePage page(*database);
        ADD_FAILURE() << "it did not wait";
    } catch (const DatabaseError& caught) {
        EXPECT_EQ(caught.what(), std::string("The database cannot be read now, perhaps because another program is "
                                             "writing to it: database is locked"));
    }
    std::filesystem::remove(isWaiting);
    for (int i = 0; i < 300; ++i) try {
            const DatabasePage page(*database);
            return;
        } catch (const DatabaseError&) {
        }
    ADD_FAILURE() << "the page cannot be made when the other one has ended";
}

// As somebody does who changes the script of the queries and loads it anew.
TEST_F(SqliteFile, IsReadAnewWhereAnotherFileIsInItsPlace) {
    const Small small;
    const Small other("INSERT INTO Things VALUES(2, 'two');\n");
    const auto database = small.open();
    const auto count = [&] {
        const DatabasePage page(*database);
        return call(*database, "spW_Things").total;
    };
    EXPECT_EQ(count(), 1U);
    std::filesystem::remove(small.file());
    std::filesystem::copy_file(other.file(), small.file());
    EXPECT_EQ(count(), 2U);
    EXPECT_EQ(small.run("INSERT INTO Things VALUES(3, 'three');"), "");
    EXPECT_EQ(count(), 3U);
    std::filesystem::remove(small.file());
    EXPECT_THROW((void)count(), DatabaseError);
    EXPECT_FALSE(std::filesystem::exists(small.file()));
}

TEST_F(SqliteFile, CountsTheRowsThatItDoesNotKeep) {
    const Small small(
        "CREATE VIEW spW_Many AS WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < 100000)\n"
        "    SELECT n AS ID, zeroblob(1000) AS b FROM N;\n"
        "CREATE VIEW spW_Kinds AS SELECT NULL AS ID, 1 AS a, 2.0 AS b, 'x' AS c, X'00FF' AS d, 0.1 AS e, 1e300 AS "
        "f;\n");
    const auto database = small.open();
    const DatabasePage page(*database);
    const auto many = call(*database, "spW_Many", QueryKind::Rows, {}, {}, {.time = std::chrono::minutes(1)});
    EXPECT_EQ(many.rows.size(), 1000U);
    EXPECT_EQ(many.total, 100'000U);
    const auto few =
        call(*database, "spW_Many", QueryKind::Rows, {}, {}, {.time = std::chrono::minutes(1), .bytes = 10'000});
    EXPECT_LT(few.rows.size(), 11U);
    EXPECT_EQ(few.total, 100'000U);
    const auto kinds = call(*database, "spW_Kinds");
    EXPECT_EQ(firstRow(kinds), std::string("||1|2.0|x|\0\xFF|0.1|1.0e+300", 25)) << kinds.error;
    using Kind = Cell::Kind;
    const Kind expected[] = {Kind::Null,  Kind::Number, Kind::Number, Kind::Text,
                             Kind::Bytes, Kind::Number, Kind::Number};
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(kinds.rows.at(0).at(i).kind, expected[i]) << i;
    EXPECT_EQ(kinds.fields, (std::vector<std::string>{"ID", "a", "b", "c", "d", "e", "f"}));
}

TEST_F(SqliteFile, SaysWhatIsWrongWithGiven) {
    const Small small;
    const auto asked = [&](const std::string& query) {
        const auto database = small.open();
        const DatabasePage page(*database);
        return firstRow(call(*database, query));
    };
    EXPECT_EQ(small.run("INSERT INTO Given VALUES(1, 2, 3);"), "");
    EXPECT_EQ(asked("spW_Things 1"), "The table Given must have one row, and has 2.");
    EXPECT_EQ(small.run("DROP VIEW spW_Given; DROP TABLE Given;"), "");
    EXPECT_EQ(asked("spW_Things 1"),
              "There is no table Given, whose row holds what a query is called with; pelmo-scheme stubs makes it.");
    EXPECT_EQ(asked("spW_Things"), "|1|one");
}

TEST_F(SqliteFile, CanBeWriteProtected) {
    const Small small;
    using std::filesystem::perms;
    std::filesystem::permissions(small.folder(), perms::owner_all | perms::group_exec | perms::others_exec);
    std::filesystem::permissions(small.file(), perms::owner_read | perms::group_read | perms::others_read);
    const OrdinaryUser user;
    if (!user.bound()) GTEST_SKIP() << "the superuser's rights cannot be laid down";
    const auto database = small.open();
    const DatabasePage page(*database);
    EXPECT_EQ(firstRow(call(*database, "spW_Things")), "|1|one");
    EXPECT_TRUE(call(*database, "spW_Things 1").error.starts_with("You may not write to the file, "));
}
