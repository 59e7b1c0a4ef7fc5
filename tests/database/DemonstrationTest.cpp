// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/database/Shop.h"

// The sample database must serve the sample schemes. These tests read the to-do lists of the samples and do what the
// reporting product does: they click through the tree, call each query with the key that this gives, and check that
// the results are what the lists and the paragraphs ask for.

namespace {

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
