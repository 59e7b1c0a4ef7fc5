// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "analysis/Reports.h"
#include "tests/database/Sqlite.h"
#include "tests/model/Helpers.h"

// The sample database must serve the sample schemes. These tests read the to-do lists of the samples and do what the
// reporting product does: they click through the tree, call each query with the key that this gives, and look whether
// the results are as the lists and the paragraphs ask.

namespace {

std::string sample(const std::string& name) {
    return std::string(SAMPLES) + "/" + name;
}

// --- values as SQLite prints them ---

struct Value {
    enum class Kind { Null, Number, Text, Blob } kind = Kind::Null;
    std::string text;     // without quotes; of a blob its hexadecimal digits
    std::string literal;  // as it stands in a statement
};
using Record = std::vector<Value>;

Value valueOf(const std::string& literal) {
    const auto inside = [&literal](std::size_t from) { return literal.substr(from, literal.size() - from - 1); };
    if (literal == "NULL") return {Value::Kind::Null, "", literal};
    if (literal.starts_with("X'")) {
        auto digits = inside(2);
        std::ranges::transform(digits, digits.begin(),
                               [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
        return {Value::Kind::Blob, digits, literal};
    }
    if (!literal.starts_with("'")) return {Value::Kind::Number, literal, literal};
    auto text = inside(1);
    for (std::size_t i = 0; (i = text.find("''", i)) != std::string::npos; ++i) text.erase(i, 1);
    return {Value::Kind::Text, text, literal};
}

Record recordOf(const std::string& line) {
    Record record;
    bool quoted = false;
    std::string literal;
    for (const char c : line + ",") {
        if (c == '\'') quoted = !quoted;
        if (c != ',' || quoted) {
            literal += c;
            continue;
        }
        record.push_back(valueOf(literal));
        literal.clear();
    }
    EXPECT_FALSE(quoted) << line;
    return record;
}

std::string quoted(const std::string& text) {
    std::string literal = "'";
    for (const char c : text) literal += c == '\'' ? std::string("''") : std::string(1, c);
    return literal + "'";
}

// --- what the lists say ---

/// A line of a to-do list.
struct Listed {
    int id;
    std::string query;
    std::string constant;   // "NULL" where there is none
    std::string parameter;  // the words of the list: "Long Integer"
    std::size_t keyLength;  // of a character key
    std::string comment;
};

std::vector<Listed> listed(const std::string& report) {
    static const std::regex pattern(
        "(\\d{3,}): (\\w+)(?: (\\w+))?   \\(Parameter = "
        "(None|Long Integer|Character of Length=(\\d\\d)|Text|Date \\(Today\\))\\)"
        "(?:   \\(with Constant Parameter: (\\w+)\\))?(?: <(.*)>)?\r");
    std::vector<Listed> list;
    std::istringstream lines(report.substr(report.find("\r\n\r\n  ID: ")));
    std::string line;
    for (int i = 0; i < 4; ++i) std::getline(lines, line);  // the heading, between blank lines
    while (std::getline(lines, line)) {
        std::smatch part;
        if (!std::regex_match(line, part, pattern)) {
            ADD_FAILURE() << "not a line of a to-do list: " << line;
            continue;
        }
        EXPECT_EQ(part[3].str(), part[6].str()) << line;
        const auto constant = part[3].str();
        const bool isNumber = constant.find_first_not_of("0123456789") == std::string::npos;
        list.push_back({std::stoi(part[1]), part[2],
                        constant.empty() ? "NULL"
                        : isNumber       ? constant
                                         : quoted(constant),
                        part[5].matched ? "Character" : part[4].str(), part[5].matched ? std::stoul(part[5]) : 0,
                        part[7]});
    }
    return list;
}

// --- the shop ---

/// What a click on a tree node supplies.
struct Click {
    Value key;
    std::string text;
};

/// A call of a query.
struct Call {
    const Listed* listed;
    Click click;
};

struct Result {
    std::vector<std::string> columns;  // empty when there is no row
    std::vector<Record> rows;
    bool mayBeEmpty = false;
};

// The queries that find nothing for some keys, and how the database shows that this is right: branches end, and not
// every customer has brought a bicycle for repair.
const std::map<std::string, std::string> reasonsForNothing = {
    {"spG_PartsBelow", "NOT EXISTS (SELECT 1 FROM Parts, GivenKey g WHERE inside = g.ID)"},
    {"spW_PartsBelow", "NOT EXISTS (SELECT 1 FROM Parts, GivenKey g WHERE inside = g.ID)"},
    {"spG_CategoriesBelow", "NOT EXISTS (SELECT 1 FROM Categories, GivenKey g WHERE above = g.ID)"},
    {"spW_SalesBelow", "NOT EXISTS (SELECT 1 FROM Categories, GivenKey g WHERE above = g.ID)"},
    {"spG_StaffBelow", "NOT EXISTS (SELECT 1 FROM Employees, GivenKey g WHERE boss = g.ID)"},
    {"spW_StaffBelow", "NOT EXISTS (SELECT 1 FROM Employees, GivenKey g WHERE boss = g.ID)"},
    {"spW_CustomerJobsShaped", "NOT EXISTS (SELECT 1 FROM RepairJobs, GivenKey g WHERE customer = g.ID)"},
};

/// The sample schemes, and the shop's database as it is made on some day.
class Shop {
  public:
    /// `day`: "2026-03-05"; empty for the day of the test.
    explicit Shop(const std::string& day = {}) {
        EXPECT_TRUE(navs.LoadData(sample("XST1.txt")));
        EXPECT_TRUE(navs.oWebs.LoadData(sample("XST2.txt")));
        navList = listed(NavToDo(navs));
        webList = listed(WebToDo(navs.oWebs));

        auto script = bytesOf(sample("shop.sql"));
        const std::string today = "date('now', 'localtime')";
        const auto place = script.find(today);
        EXPECT_EQ(place, script.rfind(today)) << "the day must stand in one place";
        if (!day.empty()) script.replace(place, today.size(), quoted(day));
        EXPECT_EQ(database.run(script), "");
        const auto iso = database.run("SELECT today FROM Shop;");
        EXPECT_EQ(iso.size(), std::string("2026-03-05\n").size());
        if (!day.empty()) {
            EXPECT_EQ(iso, day + "\n");
        }
        const std::string months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
        today_ = iso.substr(8, 2) + "-" + months[std::stoul(iso.substr(5, 2)) - 1] + "-" + iso.substr(0, 4);
        EXPECT_EQ(database.run("SELECT todayText FROM ShopDay;"), today_ + "\n");
    }

    /// The statement that says what a query is called with.
    [[nodiscard]] std::string given(const Listed& query, const Click& click, const std::string& more = {}) const {
        return "UPDATE Given SET constant = " + query.constant + ", parameter = " + parameter(query, click) + more +
               ";\n";
    }

    /// Makes the calls one after the other.
    [[nodiscard]] std::vector<Result> results(const std::vector<Call>& calls) const {
        std::string script = ".mode quote\n.headers on\nBEGIN;\n";
        for (const auto& [query, click] : calls) {
            const auto reason = reasonsForNothing.find(query->query);
            script += given(*query, click) + "SELECT " + (reason == reasonsForNothing.end() ? "0" : reason->second) +
                      " AS reason;\nSELECT * FROM " + query->query + ";\n.print end\n";
        }
        std::vector<Result> results;
        std::vector<std::string> lines;
        std::istringstream printed(database.run(script + "COMMIT;\n"));
        for (std::string line; std::getline(printed, line);) {
            if (line != "end") {
                lines.push_back(line);
                continue;
            }
            Result result;
            result.mayBeEmpty = lines.at(1) == "1";
            if (lines.size() > 2)
                for (const auto& name : recordOf(lines[2])) result.columns.push_back(name.text);
            for (std::size_t i = 3; i < lines.size(); ++i) result.rows.push_back(recordOf(lines[i]));
            results.push_back(result);
            lines.clear();
        }
        EXPECT_EQ(results.size(), calls.size());
        results.resize(calls.size());
        return results;
    }

    /// What clicking each node of the scheme can supply, by the node's ID: below a generating node, a click on each
    /// row of its query; below a fixed one, a click on the node as it stands. A recurring node's own rows count
    /// again.
    [[nodiscard]] std::map<int, std::vector<Click>> clicks() const {
        std::map<int, std::vector<Click>> clicks;
        std::map<int, std::vector<Click>> made;    // by the rows of a node's query
        for (const auto& node : navs.NewEnum()) {  // parents stand before their children
            const auto parent = made.find(node->parentIs);
            auto& own = clicks[node->ID];
            own = parent != made.end() ? parent->second
                                       : std::vector<Click>{{valueOf("0"), std::string(node->descriptionIs.view())}};
            const auto query = std::ranges::find(navList, node->ID, &Listed::id);
            if (query == navList.end()) continue;
            auto rows = rowsOf(*query, own);
            if (node->typeIs() != "R") {
                made[node->ID] = rows;
                continue;
            }
            for (int depth = 0; !rows.empty(); ++depth) {
                EXPECT_LT(depth, 10) << query->query << " does not end";
                if (depth >= 10) break;
                own.insert(own.end(), rows.begin(), rows.end());
                rows = rowsOf(*query, rows);
            }
        }
        return clicks;
    }

    clsNavSchemes navs;
    std::vector<Listed> navList;
    std::vector<Listed> webList;
    TempFolder folder;
    Sqlite database{folder / "shop.db"};

  private:
    [[nodiscard]] std::string parameter(const Listed& query, const Click& click) const {
        if (query.parameter == "Long Integer") {
            EXPECT_EQ(click.key.kind, Value::Kind::Number) << query.query << " " << click.key.literal;
            return click.key.literal;
        }
        if (query.parameter == "Character") {
            EXPECT_EQ(click.key.kind, Value::Kind::Text) << query.query << " " << click.key.literal;
            EXPECT_EQ(click.key.text.size(), query.keyLength) << query.query << " " << click.key.literal;
            return click.key.literal;
        }
        if (query.parameter == "Text") return quoted(click.text);
        if (query.parameter == "Date (Today)") return quoted(today_);
        EXPECT_EQ(query.parameter, "None");
        return "NULL";
    }

    // The clicks that the rows of a generating query offer. Checks the rows: two fields, the first of them a key.
    [[nodiscard]] std::vector<Click> rowsOf(const Listed& query, const std::vector<Click>& clicks) const {
        std::vector<Call> calls;
        for (const auto& click : clicks) calls.push_back({&query, click});
        std::vector<Click> rows;
        const auto all = results(calls);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto about = query.query + " for " + calls[i].click.key.literal + " " + calls[i].click.text;
            EXPECT_NE(all[i].rows.empty(), !all[i].mayBeEmpty) << about;
            std::set<std::string> keys;
            for (const auto& row : all[i].rows) {
                EXPECT_EQ(all[i].columns.size(), 2U) << about;
                EXPECT_EQ(all[i].columns.at(0), "ID") << about;
                EXPECT_TRUE(keys.insert(row.at(0).literal).second) << about << " has two of " << row[0].literal;
                EXPECT_NE(row[0].kind, Value::Kind::Null) << about;
                EXPECT_EQ(row.at(1).kind, Value::Kind::Text) << about;
                EXPECT_NE(row[1].text, "") << about;
                rows.push_back({row[0], row[1].text});
            }
        }
        return rows;
    }

    std::string today_;  // "05-Mar-2026"
};

/// The names of the queries in a list.
std::set<std::string> namesIn(const std::vector<Listed>& list) {
    std::set<std::string> names;
    for (const auto& query : list) names.insert(query.query);
    return names;
}

std::set<std::string> linesOf(const std::string& printed) {
    std::set<std::string> lines;
    std::istringstream cut(printed);
    for (std::string line; std::getline(cut, line);) lines.insert(line);
    return lines;
}

std::size_t countWithPrefix(const std::vector<std::string>& columns, const std::string& prefix) {
    return static_cast<std::size_t>(
        std::ranges::count_if(columns, [&](const std::string& name) { return name.starts_with(prefix); }));
}

// The positions that colsAre names: "2:3", or "All" from the second column on.
std::vector<std::size_t> positions(const std::string& colsAre, std::size_t columns) {
    std::vector<std::size_t> places;
    if (colsAre == "All") {
        for (std::size_t i = 1; i < columns; ++i) places.push_back(i);
        return places;
    }
    std::istringstream cut(colsAre);
    for (std::string number; std::getline(cut, number, ':');) places.push_back(std::stoul(number));
    return places;
}

void expectNumbers(const Result& result, const std::vector<std::size_t>& places, const std::string& about) {
    for (const auto place : places) {
        EXPECT_GE(place, 1U) << about;
        ASSERT_LT(place, result.columns.size()) << about;
        for (const auto& row : result.rows)
            EXPECT_EQ(row.at(place).kind, Value::Kind::Number) << about << ", " << result.columns[place];
    }
}

// What the list and the paragraph ask of the fields of a result that has rows.
void checkFields(const Result& result, const clsWebScheme& paragraph, const std::string& comment,
                 const std::string& about) {
    const auto& columns = result.columns;
    const auto type = std::string(paragraph.typeIs.view());
    const auto colsAre = std::string(paragraph.colsAre.view());
    EXPECT_EQ(columns.at(0), "ID") << about;
    EXPECT_GE(columns.size(), 2U) << about;
    EXPECT_EQ(std::set<std::string>(columns.begin(), columns.end()).size(), columns.size()) << about;
    for (const auto& row : result.rows) EXPECT_NE(row.at(0).kind, Value::Kind::Null) << about;

    const bool wantsImage = comment == "One field-name SHOULD be prefixed with 'IMG'";
    const bool wantsFile = comment == "One field-name SHOULD be prefixed with 'FILE'";
    EXPECT_EQ(wantsImage || wantsFile, !comment.empty()) << about;
    EXPECT_EQ(countWithPrefix(columns, "IMG"), wantsImage ? 1U : 0U) << about;
    EXPECT_EQ(countWithPrefix(columns, "FILE"), wantsFile ? 1U : 0U) << about;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        for (const auto& row : result.rows) {
            if (columns[i].starts_with("IMG")) {
                EXPECT_EQ(row.at(i).kind, Value::Kind::Blob) << about;
                EXPECT_TRUE(row[i].text.starts_with("474946383961") && row[i].text.ends_with("3B"))
                    << about << ": no GIF picture";
            } else if (columns[i].starts_with("FILE")) {
                EXPECT_TRUE(row.at(i).text.starts_with("/srv/shop/pictures/")) << about << ": " << row[i].text;
            }
        }
    }

    if (type == "H" || type == "I") {
        EXPECT_EQ(result.rows.size(), 1U) << about;
    }
    if (type == "S") expectNumbers(result, positions(colsAre, columns.size()), about);
    if (type == "C") {
        const auto axes = positions(colsAre, columns.size());
        ASSERT_EQ(axes.size(), 2U) << about;
        ASSERT_LT(axes[0], columns.size()) << about;
        expectNumbers(result, {axes[1]}, about);
    }
}

class Demonstration : public testing::Test {
  protected:
    void SetUp() override {
        if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    }
};

/// Once on the day of the test, on the first day of a year, and on the last of a long February.
class DemonstrationOn : public Demonstration, public testing::WithParamInterface<std::string> {};

}  // namespace

TEST_P(DemonstrationOn, EveryQueryGivesWhatTheListsAskFor) {
    const Shop shop(GetParam());
    EXPECT_EQ(shop.navList.size(), 27U);
    ASSERT_EQ(shop.webList.size(), 105U);

    const auto clicks = shop.clicks();
    std::vector<Call> calls;
    std::vector<const clsWebScheme*> paragraphs;
    std::set<std::string> actions;
    std::size_t at = 0;
    for (const auto& paragraph : shop.navs.oWebs.NewEnum()) {
        const auto& query = shop.webList.at(at++);
        ASSERT_EQ(query.id, paragraph->ID);
        if (paragraph->typeIs == "E") {
            actions.insert(query.query);
            continue;
        }
        for (const auto& click : clicks.at(paragraph->XST1)) {
            calls.push_back({&query, click});
            paragraphs.push_back(&*paragraph);
        }
    }
    ASSERT_GT(calls.size(), 1000U);
    const auto results = shop.results(calls);
    std::set<std::string> withRows;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const auto& [query, click] = calls[i];
        const auto about = query->query + " for " + click.key.literal + " " + click.text;
        EXPECT_NE(results[i].rows.empty(), !results[i].mayBeEmpty) << about;
        if (results[i].rows.empty()) continue;
        withRows.insert(query->query);
        checkFields(results[i], *paragraphs[i], query->comment, about);
    }
    for (const auto& name : namesIn(shop.webList))
        EXPECT_EQ(withRows.contains(name), !actions.contains(name)) << name << " finds nothing for any key";
}

INSTANTIATE_TEST_SUITE_P(Days, DemonstrationOn, testing::Values("", "2026-01-01", "2024-02-29"),
                         [](const testing::TestParamInfo<std::string>& day) {
                             auto name = day.param.empty() ? std::string("Today") : day.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_F(Demonstration, HasTheQueriesOfTheListsAndNoOthers) {
    const Shop shop;
    auto names = namesIn(shop.navList);
    names.merge(namesIn(shop.webList));
    EXPECT_EQ(linesOf(shop.database.run("SELECT name FROM sqlite_master WHERE name LIKE 'sp___%';")), names);

    std::set<std::string> actions;
    for (const auto& paragraph : shop.navs.oWebs.NewEnum()) {
        const std::string query(paragraph->queryIs.view());
        if (paragraph->typeIs == "E") actions.insert(query.substr(0, query.find(' ')));
    }
    EXPECT_EQ(linesOf(shop.database.run("SELECT name FROM sqlite_master WHERE type = 'trigger';")), actions);
    EXPECT_EQ(actions.size(), 6U);
}

// Each changes something that can be seen, and nothing more when it is run again on the same day.
TEST_F(Demonstration, ActionQueriesAct) {
    const std::map<std::string, std::string> effects = {
        {"spW_AddLateCharges", "SELECT count(*) FROM LateCharges;"},
        {"spW_ClosePaidJobs", "SELECT count(*) FROM RepairJobs WHERE status = 'CLOSED';"},
        {"spW_UpdateMileage", "SELECT sum(km) FROM Bicycles;"},
        {"spW_SetReorder", "SELECT sum(toOrder) FROM Parts;"},
        {"spW_WriteReminders", "SELECT count(*) FROM Reminders;"},
        {"spW_CloseDay", "SELECT count(*) FROM TillBook;"},
    };
    const Shop shop;
    std::set<std::string> seen;
    std::size_t at = 0;
    for (const auto& paragraph : shop.navs.oWebs.NewEnum()) {
        const auto& query = shop.webList.at(at++);
        if (paragraph->typeIs != "E") continue;
        ASSERT_TRUE(effects.contains(query.query)) << query.query;
        seen.insert(query.query);
        const auto& effect = effects.at(query.query);
        const auto runs = shop.given(query, {valueOf("0"), ""}, ", run = '" + query.query + "'");
        const auto before = std::stod(shop.database.run(effect));
        shop.database.run(runs);
        const auto after = std::stod(shop.database.run(effect));
        shop.database.run(runs);
        EXPECT_GT(after, before) << query.query;
        EXPECT_EQ(std::stod(shop.database.run(effect)), after) << query.query;
    }
    EXPECT_EQ(seen.size(), effects.size());
}

TEST_F(Demonstration, DataAreSound) {
    const Shop shop;
    EXPECT_EQ(shop.database.run("PRAGMA foreign_key_check;"), "");
    EXPECT_EQ(shop.database.run("PRAGMA integrity_check;"), "ok\n");
    EXPECT_EQ(
        shop.database.run("SELECT a.bicycle, a.hire, b.hire FROM HireLines a JOIN Hires g ON g.ID = a.hire\n"
                          "JOIN HireLines b ON b.bicycle = a.bicycle AND b.hire > a.hire\n"
                          "JOIN Hires h ON h.ID = b.hire\n"
                          "WHERE h.taken < ifnull(g.back, max(g.due, '9999')) AND g.taken < ifnull(h.back, '9999');"),
        "")
        << "a bicycle is out twice at the same time";
    const std::set<std::string> mayBeUnknown = {
        "Employees.code",  "Bicycles.salePrice", "Customers.club", "Hires.back",      "HireLines.bicycle",
        "HireLines.extra", "ReceiptLines.goods", "Given.constant", "Given.parameter", "Given.run"};
    std::string script;
    for (const auto& column : linesOf(shop.database.run("SELECT t.name || '.' || c.name FROM sqlite_master t,\n"
                                                        "pragma_table_info(t.name) c WHERE t.type = 'table';")))
        script += "SELECT '" + column + "' FROM " + column.substr(0, column.find('.')) + " WHERE " + column +
                  " IS NULL LIMIT 1;\n";
    EXPECT_EQ(linesOf(shop.database.run(script)), mayBeUnknown);
}

TEST_F(Demonstration, TakesTheFilesOfTheWizard) {
    const Shop shop;
    const auto import = [](const std::string& name) {
        return ".import --csv --skip 1 \"" + sample(name + ".txt") + "\" " + name + "\n";
    };
    shop.database.run(import("XST1") + import("XST2"));
    EXPECT_EQ(shop.database.run("SELECT count(*), min(ID), max(ID) FROM XST1;"), "70|1|70\n");
    EXPECT_EQ(shop.database.run("SELECT count(*), min(ID), max(ID) FROM XST2;"), "105|1|105\n");
    for (const std::string table : {"XST1", "XST2"}) {
        EXPECT_EQ(shop.database.run("SELECT name FROM pragma_table_info('" + table + "') WHERE pk;"), "ID\n");
        EXPECT_EQ(shop.database.run("SELECT queryIs FROM " + table +
                                    " WHERE queryIs <> '' AND substr(queryIs, 1, instr(queryIs || ' ', ' ') - 1)\n"
                                    "NOT IN (SELECT name FROM sqlite_master);"),
                  "");
    }
    EXPECT_EQ(shop.database.run("SELECT count(*) FROM XST2 WHERE XST1 NOT IN (SELECT ID FROM XST1);"), "0\n");
}
