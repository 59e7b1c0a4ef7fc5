// SPDX-License-Identifier: MIT
#include <cmath>

#include "tests/database/MariaDB.h"
#include "tests/database/PostgreSQL.h"
#include "tests/database/Shop.h"

// The sample database for PostgreSQL and MariaDB, in real servers. Every query that the schemes name must give there
// what it gives in SQLite, for every node of the tree. The commands in the headers of the scripts and the examples of
// the help are run as they stand.

namespace {

using Fields = std::vector<std::string>;

Fields split(const std::string& line, char by) {
    Fields fields;
    std::string field;
    for (const char c : line + by) {
        if (c != by) {
            field += c;
            continue;
        }
        fields.push_back(field);
        field.clear();
    }
    return fields;
}

std::vector<std::string> linesIn(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream cut(text);
    for (std::string line; std::getline(cut, line);) lines.push_back(line);
    return lines;
}

std::string argumentsOf(const Shop& shop, const Call& call) {
    const auto parameter = shop.parameter(*call.listed, call.click);
    if (call.listed->constant == "NULL") return parameter == "NULL" ? "()" : "(" + parameter + ")";
    return "(" + call.listed->constant + (parameter == "NULL" ? "" : ", " + parameter) + ")";
}

/// A server with the shop, and how its client prints results.
struct PostgreSQLShop {
    static bool isThere() { return !PostgreSQL::programs().empty(); }
    static constexpr const char* name = "PostgreSQL";
    static constexpr char separator = '\t';
    static constexpr const char* script = "shop-postgresql.sql";

    static std::string statement(const std::string& query, const std::string& arguments) {
        return "SELECT * FROM " + query + arguments + ";\n";
    }
    static std::string action(const std::string& query, const std::string& arguments) {
        return "SELECT " + query + arguments + ";\n";
    }
    static std::string marker() { return "\\echo end\n"; }
    static constexpr int markerLines = 1;
    static std::string settings() {
        return "\\t off\n\\pset footer off\n\\pset null NULL\n\\pset fieldsep '\\t'\n"
               "SET client_min_messages = warning;\n";
    }
    static std::string blob(const std::string& digits) {
        std::string lower = "\\x";
        for (const char c : digits) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return lower;
    }
    static std::string names() {
        return "SELECT proname FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace AND n.nspname = "
               "'public';\n";
    }
    PostgreSQL server;
};

struct MariaDBShop {
    static bool isThere() { return MariaDB::isThere(); }
    static constexpr const char* name = "MariaDB";
    static constexpr char separator = '\t';
    static constexpr const char* script = "shop-mariadb.sql";

    static std::string statement(const std::string& query, const std::string& arguments) {
        return "CALL " + query + arguments + ";\n";
    }
    static std::string action(const std::string& query, const std::string& arguments) {
        return statement(query, arguments);
    }
    static std::string marker() { return "SELECT 'end' AS end;\n"; }
    static constexpr int markerLines = 2;
    static std::string settings() { return ""; }
    static std::string blob(const std::string& digits) { return "0x" + digits; }
    static std::string names() {
        return "SELECT routine_name FROM information_schema.routines WHERE routine_schema = 'test'\n"
               "AND routine_type = 'PROCEDURE';\n";
    }
    MariaDB server;
};

template <class ServerShop>
class ShopOn : public testing::Test {
  protected:
    void SetUp() override {
        if (!ServerShop::isThere()) GTEST_SKIP() << ServerShop::name << " is not installed";
        if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
        shop_ = std::make_unique<ServerShop>();
    }
    void load(const std::string& day) { shop_->server.run(scriptFor(ServerShop::script, day)); }
    std::string run(const std::string& script) { return shop_->server.run(ServerShop::settings() + script); }

    /// What the calls print, the lines of each.
    std::vector<std::vector<std::string>> printed(const Shop& shop, const std::vector<Call>& calls) {
        std::string script;
        for (const auto& call : calls)
            script += ServerShop::statement(call.listed->query, argumentsOf(shop, call)) + ServerShop::marker();
        std::vector<std::vector<std::string>> results(1);
        int endsSeen = 0;
        for (const auto& line : linesIn(run(script))) {
            if (line != "end") {
                results.back().push_back(line);
            } else if (++endsSeen == ServerShop::markerLines) {
                endsSeen = 0;
                results.emplace_back();
            }
        }
        results.pop_back();
        EXPECT_EQ(results.size(), calls.size());
        results.resize(calls.size());
        return results;
    }

    void expectValue(const Value& wanted, const std::string& found, const std::string& about) {
        switch (wanted.kind) {
            case Value::Kind::Null: EXPECT_EQ(found, "NULL") << about; return;
            case Value::Kind::Blob: EXPECT_EQ(found, ServerShop::blob(wanted.text)) << about; return;
            case Value::Kind::Text: EXPECT_EQ(found, wanted.text) << about; return;
            case Value::Kind::Number: break;
        }
        char* end = nullptr;
        const double number = std::strtod(found.c_str(), &end);
        EXPECT_TRUE(end != found.c_str() && *end == 0) << about << ": " << found << " is no number";
        EXPECT_LT(std::abs(number - std::stod(wanted.text)), 0.001) << about << ": " << found << ", " << wanted.text;
    }

    void expectResult(const Result& wanted, const std::vector<std::string>& found, const std::string& about) {
        ASSERT_EQ(found.empty() ? 0 : found.size() - 1, wanted.rows.size()) << about;
        if (wanted.rows.empty()) return;
        ASSERT_EQ(split(found[0], ServerShop::separator), wanted.columns) << about;
        for (std::size_t row = 0; row < wanted.rows.size(); ++row) {
            const auto fields = split(found[row + 1], ServerShop::separator);
            ASSERT_EQ(fields.size(), wanted.columns.size()) << about;
            for (std::size_t i = 0; i < fields.size(); ++i)
                expectValue(wanted.rows[row].at(i), fields[i],
                            about + ", row " + std::to_string(row) + ", " + wanted.columns[i]);
        }
    }

    std::unique_ptr<ServerShop> shop_;
};

using Servers = testing::Types<PostgreSQLShop, MariaDBShop>;
TYPED_TEST_SUITE(ShopOn, Servers);

/// Every call that a walk through the whole tree makes, those of the tree itself and those of the pages.
std::vector<Call> allCalls(const Shop& shop) {
    std::vector<Call> calls;
    const auto clicks = shop.clicks();
    const auto add = [&](const Listed& query, std::int32_t node) {
        for (const auto& click : clicks.at(node)) calls.push_back({&query, click});
    };
    for (const auto& query : shop.navList) add(query, query.id);
    std::size_t at = 0;
    for (const auto& paragraph : shop.navs.oWebs.NewEnum()) {
        const auto& query = shop.webList.at(at++);
        if (!(paragraph->typeIs == "E")) add(query, paragraph->XST1);
    }
    return calls;
}

}  // namespace

TYPED_TEST(ShopOn, EveryQueryOfTheSchemesGivesTheRowsThatSQLiteGives) {
    const Shop shop(shopDay);
    this->load(shopDay);
    const auto calls = allCalls(shop);
    ASSERT_GT(calls.size(), 1500U);
    const auto wanted = shop.results(calls);
    const auto found = this->printed(shop, calls);
    std::set<std::string> called;
    for (std::size_t i = 0; i < calls.size() && !this->HasFailure(); ++i) {
        called.insert(calls[i].listed->query);
        this->expectResult(wanted[i], found[i], calls[i].listed->query + argumentsOf(shop, calls[i]));
    }
    EXPECT_EQ(called.size(), 105U);
}

TYPED_TEST(ShopOn, ActionQueriesDoWhatTheyDoInSQLite) {
    const std::map<std::string, std::string> effects = {
        {"spW_AddLateCharges", "SELECT sum(amount) FROM LateCharges;\n"},
        {"spW_ClosePaidJobs", "SELECT count(*) FROM RepairJobs WHERE status = 'CLOSED';\n"},
        {"spW_UpdateMileage", "SELECT sum(km) FROM Bicycles;\n"},
        {"spW_SetReorder", "SELECT sum(toOrder) FROM Parts;\n"},
        {"spW_WriteReminders", "SELECT count(*) FROM Reminders;\n"},
        {"spW_CloseDay", "SELECT sum(amount) FROM TillBook;\n"},
    };
    const Shop shop(shopDay);
    this->load(shopDay);
    const auto here = [&](const std::string& effect) { return std::stod(linesIn(this->run(effect)).back()); };
    const auto inSQLite = [&](const std::string& effect) { return std::stod(shop.database.run(effect)); };
    std::set<std::string> seen;
    std::size_t at = 0;
    for (const auto& paragraph : shop.navs.oWebs.NewEnum()) {
        const auto& query = shop.webList.at(at++);
        if (!(paragraph->typeIs == "E")) continue;
        ASSERT_TRUE(effects.contains(query.query)) << query.query;
        seen.insert(query.query);
        const auto& effect = effects.at(query.query);
        const Call call{&query, {valueOf("0"), ""}};
        const auto action = TypeParam::action(query.query, argumentsOf(shop, call));

        const auto before = here(effect);
        EXPECT_EQ(before, inSQLite(effect)) << query.query;
        this->run(action);
        const auto after = here(effect);
        shop.database.run(shop.given(query, call.click, ", run = '" + query.query + "'"));
        EXPECT_EQ(after, inSQLite(effect)) << query.query;
        EXPECT_GT(after, before) << query.query;
        this->run(action);
        EXPECT_EQ(here(effect), after) << query.query << ", the second time";
    }
    EXPECT_EQ(seen.size(), effects.size());
}

TYPED_TEST(ShopOn, HasTheQueriesOfTheListsAndNoOthers) {
    const Shop shop(shopDay);
    const auto today = [] { return Shop("").database.run("SELECT today FROM Shop;"); };
    const auto before = today();
    this->load("");
    const auto lower = [](std::string text) {
        std::ranges::transform(text, text.begin(),
                               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return text;
    };
    std::set<std::string> wanted;
    for (const auto& name : namesIn(shop.navList)) wanted.insert(lower(name));
    for (const auto& name : namesIn(shop.webList)) wanted.insert(lower(name));
    std::set<std::string> found;
    const auto lines = linesIn(this->run(TypeParam::names()));
    for (std::size_t i = 1; i < lines.size(); ++i) found.insert(lower(lines[i]));
    EXPECT_EQ(found, wanted);
    const auto made = linesIn(this->run("SELECT today FROM Shop;\n")).back() + "\n";
    EXPECT_TRUE(made == before || made == today()) << "without a change the script makes the shop of " << made;
}

// --- the headers of the scripts ---

namespace {

/// The commands in the header of a script: what follows "--     " and begins with the name of a program or sets a
/// variable.
std::string commandsIn(const std::string& script) {
    static const std::regex command("--     ((sqlite3|iconv|createdb|psql|mariadb) .*|\\w+=\".*)");
    std::string commands;
    for (const auto& line : linesIn(bytesOf(sample(script)))) {
        std::smatch part;
        if (line.empty()) break;  // the header ends
        if (std::regex_match(line, part, command)) commands += part[1].str() + "\n";
    }
    return commands;
}

/// The statements in the header.
std::string statementsIn(const std::string& script) {
    std::string statements;
    for (const auto& line : linesIn(bytesOf(sample(script)))) {
        if (line.empty()) break;
        for (const std::string word : {"UPDATE ", "SELECT ", "CALL "})
            if (line.starts_with("--     " + word)) statements += line.substr(7) + "\n";
    }
    return statements;
}

/// Runs the commands of the header in a folder with copies of the samples.
Finished runHeader(const TempFolder& folder, const std::string& script, const Command& environment) {
    for (const std::string name : {"XST1.txt", "XST2.txt", "shop.sql", "shop-postgresql.sql", "shop-mariadb.sql"})
        writeBytes(folder / name, bytesOf(sample(name)));
    Command command = {"env"};
    command.insert(command.end(), environment.begin(), environment.end());
    command.insert(command.end(), {"sh", "-e", "-c", "cd '" + folder.path().string() + "'\n" + commandsIn(script)});
    return ::run(command);
}

const std::string cafe = "Caf\xC3\xA9 stop vouchers";
const std::string cafeTitle = "Vouchers by caf\xC3\xA9";
const std::string lookAtBoth =
    "SELECT count(*) FROM XST1; SELECT count(*) FROM XST2;\n"
    "SELECT descriptionIs FROM XST1 WHERE ID = 18; SELECT titleIs FROM XST2 WHERE ID = 30;\n"
    "SELECT count(*) FROM XST2 WHERE extra = '' AND XST1 = 18; SELECT count(*) FROM XST1 WHERE roleIs = '2';\n";
const std::string bothAreThere = "70\n105\n" + cafe + "\n" + cafeTitle + "\n2\n11\n";

}  // namespace

TEST(ShopHeader, CommandsForSQLiteImportBothFilesWithTheirAccents) {
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    if (!isInstalled("iconv")) GTEST_SKIP() << "iconv is not installed";
    ASSERT_EQ(linesIn(commandsIn("shop.sql")).size(), 4U);
    const TempFolder folder;
    const auto done = runHeader(folder, "shop.sql", {"HOME=" + folder.path().string()});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "");
    const Sqlite database(folder / "shop.db");
    EXPECT_EQ(database.run(lookAtBoth), bothAreThere);
    ASSERT_EQ(linesIn(statementsIn("shop.sql")).size(), 7U);
    const auto printed = database.run(statementsIn("shop.sql"));
    EXPECT_NE(printed.find("1003|Ward, Olga|"), std::string::npos) << printed;
    EXPECT_NE(printed.find("|14.0\n"), std::string::npos) << printed;
    EXPECT_NE(printed.find(", due 20"), std::string::npos) << printed;
    EXPECT_GT(std::stoi(database.run("SELECT count(*) FROM Reminders;")), 3);
}

TEST(ShopHeader, CommandsForPostgreSQLImportBothFilesWithTheirAccents) {
    if (PostgreSQL::programs().empty()) GTEST_SKIP() << "PostgreSQL is not installed";
    ASSERT_EQ(linesIn(commandsIn("shop-postgresql.sql")).size(), 4U);
    const PostgreSQL server;
    const TempFolder folder;
    const auto done = runHeader(folder, "shop-postgresql.sql", server.environment());
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(done.out, "COPY 70\nCOPY 105\n");
    EXPECT_EQ(server.run("\\connect shop\n" + lookAtBoth), bothAreThere);
    ASSERT_EQ(linesIn(statementsIn("shop-postgresql.sql")).size(), 4U);
    const auto printed = server.run("\\connect shop\n" + statementsIn("shop-postgresql.sql"));
    EXPECT_NE(printed.find("1003|Ward, Olga|"), std::string::npos) << printed;
    EXPECT_NE(printed.find("|CTL 0"), std::string::npos) << printed;
}

TEST(ShopHeader, CommandsForMariaDBImportBothFilesWithTheirAccents) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    ASSERT_EQ(linesIn(commandsIn("shop-mariadb.sql")).size(), 6U);
    const MariaDB server;
    const TempFolder folder;
    const auto done = runHeader(folder, "shop-mariadb.sql", {"HOME=" + server.home().string()});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "");
    std::string values;
    const auto lines = linesIn(server.run("USE shop;\n" + lookAtBoth));
    for (std::size_t i = 1; i < lines.size(); i += 2) values += lines[i] + "\n";
    EXPECT_EQ(values, bothAreThere);
    ASSERT_EQ(linesIn(statementsIn("shop-mariadb.sql")).size(), 4U);
    const auto printed = server.run("USE shop;\n" + statementsIn("shop-mariadb.sql"));
    EXPECT_NE(printed.find("1003\tWard, Olga\t"), std::string::npos) << printed;
    EXPECT_NE(printed.find("\tCTL 0"), std::string::npos) << printed;
}

// The commands of the page that make a database for a user, but for sudo.
TEST(ShopHeader, CommandsOfTheHelpMakeADatabaseInMariaDB) {
    if (!MariaDB::isThere()) GTEST_SKIP() << "MariaDB is not installed";
    const MariaDB server;
    std::string commands;
    for (const auto& line : linesIn(bytesOf(std::string(HELP) + "/import-mariadb.html")))
        if (line.starts_with("sudo mariadb ") || line.starts_with("mariadb -e "))
            commands += line.substr(line.find("mariadb")) + "\n";
    ASSERT_EQ(linesIn(commands).size(), 3U);
    const auto done = ::run({"env", "HOME=" + server.home().string(), "sh", "-e", "-c", commands});
    EXPECT_EQ(done.code, 0) << done.err;
    const auto grants = server.run("SHOW GRANTS FOR you@localhost;\n");
    EXPECT_NE(grants.find("IDENTIFIED VIA unix_socket"), std::string::npos) << grants;
    EXPECT_EQ(server.run("SELECT default_character_set_name FROM information_schema.schemata\n"
                         "WHERE schema_name = 'shop';\n"),
              "default_character_set_name\nutf8mb4\n");
    EXPECT_NE(grants.find("GRANT ALL PRIVILEGES ON `shop`.* TO `you`@`localhost`"), std::string::npos) << grants;
}

// --- the examples of the help ---

namespace {

/// An example of the help that is marked as one to run, and what it prints according to the page.
struct Example {
    std::string page;
    std::string statements;
    std::string printed;  // empty where the page does not show it
};

std::string textOf(std::string html) {
    for (const auto& [entity, text] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#233;", "\xC3\xA9"}, {"&amp;", "&"}})
        for (std::size_t at = 0; (at = html.find(entity, at)) != std::string::npos; ++at)
            html.replace(at, std::string(entity).size(), text);
    return html;
}

/// The text of the example that begins at this place of a page; empty if none does.
std::string exampleAt(const std::string& page, std::size_t at) {
    const std::string begin = "\n<pre>";
    if (page.compare(at, begin.size(), begin) != 0) return {};
    const auto from = at + begin.size();
    return textOf(page.substr(from, page.find("</pre>", from) - from));
}

/// The examples of all pages that are marked with "runs in" and the name of a client.
std::vector<Example> examplesFor(const std::string& client) {
    std::vector<Example> examples;
    const std::string mark = "<!-- runs in " + client + " -->";
    const std::string printsMark = "<!-- prints -->";
    for (const auto& entry : std::filesystem::directory_iterator(HELP)) {
        if (entry.path().extension() != ".html") continue;
        const auto page = bytesOf(entry.path());
        for (std::size_t at = 0; (at = page.find(mark, at)) != std::string::npos; at += mark.size()) {
            const auto statements = exampleAt(page, at + mark.size());
            EXPECT_NE(statements, "") << entry.path();
            const auto end = page.find("</pre>", at);
            const auto next = page.find("<pre>", end);
            const auto prints = page.find(printsMark, end);
            examples.push_back({entry.path().filename().string(), statements,
                                prints < next ? exampleAt(page, prints + printsMark.size()) : std::string()});
        }
    }
    std::ranges::stable_sort(examples, {}, &Example::page);
    return examples;
}

/// The fields of what a client printed, without lines and blanks around them, be it as a table or bare.
std::vector<Fields> fieldsOf(const std::string& printed) {
    std::vector<Fields> rows;
    for (auto line : linesIn(printed)) {
        if (line.empty() || line.find_first_not_of("-+ ") == std::string::npos || line.starts_with("(")) continue;
        std::ranges::replace(line, '\t', '|');
        Fields fields;
        for (const auto& field : split(line, '|')) {
            const auto from = field.find_first_not_of(' ');
            fields.push_back(from == std::string::npos ? std::string()
                                                       : field.substr(from, field.find_last_not_of(' ') - from + 1));
        }
        if (line.starts_with('|') && fields.size() > 2) fields = Fields(fields.begin() + 1, fields.end() - 1);
        rows.push_back(fields);
    }
    return rows;
}

/// The statements as they run here: the files are those of the samples.
std::string withSamples(std::string statements) {
    for (const std::string name : {"XST1.txt", "XST2.txt"}) {
        const auto file = "'" + name + "'";
        for (std::size_t at = 0; (at = statements.find(file, at)) != std::string::npos; at += file.size())
            statements.replace(at + 1, name.size(), sample(name));
    }
    return statements;
}

template <class Run>
void expectExamples(const std::string& client, std::size_t atLeast, const Run& run) {
    const auto examples = examplesFor(client);
    EXPECT_GE(examples.size(), atLeast) << client;
    std::size_t compared = 0;
    for (const auto& example : examples) {
        const auto printed = run(withSamples(example.statements));
        if (example.printed.empty()) continue;
        ++compared;
        EXPECT_EQ(fieldsOf(printed), fieldsOf(example.printed)) << example.page << ":\n" << example.statements;
    }
    EXPECT_GE(compared, 1U) << client;
}

}  // namespace

TYPED_TEST(ShopOn, ExamplesOfTheHelpRunAndPrintWhatThePagesShow) {
    this->load(shopDay);
    const bool isPostgreSQL = std::is_same_v<TypeParam, PostgreSQLShop>;
    expectExamples(isPostgreSQL ? "psql" : "mariadb", 2,
                   [&](const std::string& statements) { return this->run(statements); });
}

TEST(ShopExamples, OfTheHelpForSQLiteRunAndPrintWhatThePagesShow) {
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const Shop shop(shopDay);
    expectExamples("sqlite3", 2, [&](const std::string& statements) { return shop.database.run(statements); });
}
