// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "analysis/Reports.h"
#include "tests/database/Sqlite.h"
#include "tests/model/Helpers.h"

// The sample schemes and the sample database in SQLite, and what Pelmo would do with both: click every node of the
// tree and call each query with the key that this gives.

inline std::string sample(const std::string& name) {
    return std::string(SAMPLES) + "/" + name;
}

// --- values as SQLite prints them ---

struct Value {
    enum class Kind { Null, Number, Text, Blob } kind = Kind::Null;
    std::string text;     // without quotes; of a blob its hexadecimal digits
    std::string literal;  // as it stands in a statement
};
using Record = std::vector<Value>;

inline Value valueOf(const std::string& literal) {
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

inline Record recordOf(const std::string& line) {
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

inline std::string quoted(const std::string& text) {
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

inline std::vector<Listed> listed(const std::string& report) {
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
inline const std::map<std::string, std::string> reasonsForNothing = {
    {"spG_PartsBelow", "NOT EXISTS (SELECT 1 FROM Parts, GivenKey g WHERE inside = g.ID)"},
    {"spW_PartsBelow", "NOT EXISTS (SELECT 1 FROM Parts, GivenKey g WHERE inside = g.ID)"},
    {"spG_CategoriesBelow", "NOT EXISTS (SELECT 1 FROM Categories, GivenKey g WHERE above = g.ID)"},
    {"spW_SalesBelow", "NOT EXISTS (SELECT 1 FROM Categories, GivenKey g WHERE above = g.ID)"},
    {"spG_StaffBelow", "NOT EXISTS (SELECT 1 FROM Employees, GivenKey g WHERE boss = g.ID)"},
    {"spW_StaffBelow", "NOT EXISTS (SELECT 1 FROM Employees, GivenKey g WHERE boss = g.ID)"},
    {"spW_CustomerJobsShaped", "NOT EXISTS (SELECT 1 FROM RepairJobs, GivenKey g WHERE customer = g.ID)"},
};

/// The day of the examples in the help. The shop is made as on that day where a test goes on when the day ends.
inline const std::string shopDay = "2026-03-05";
inline const std::string shopDayText = "05-Mar-2026";  // as queries get it

/// A script of the sample database, changed so that it makes the shop of this day; unchanged if `day` is empty.
inline std::string scriptFor(const std::string& name, const std::string& day) {
    auto script = bytesOf(sample(name));
    const std::string today = name == "shop.sql" ? "date('now', 'localtime'))" : "current_date)";
    const auto place = script.find(today);
    EXPECT_NE(place, std::string::npos) << name;
    EXPECT_EQ(place, script.rfind(today)) << "the day must stand in one place of " << name;
    if (!day.empty()) script.replace(place, today.size(), quoted(day) + ")");
    return script;
}

/// The sample schemes, and the shop's database as it is made on some day.
class Shop {
  public:
    /// `day`: "2026-03-05"; empty for the current day.
    explicit Shop(const std::string& day = {}) {
        EXPECT_TRUE(navs.LoadData(sample("XST1.txt")));
        EXPECT_TRUE(navs.oWebs.LoadData(sample("XST2.txt")));
        navList = listed(NavToDo(navs));
        webList = listed(WebToDo(navs.oWebs));

        EXPECT_EQ(database.run(scriptFor("shop.sql", day)), "");
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

    /// What a query gets of a click, as it stands in a statement; "NULL" where it gets nothing.
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
inline std::set<std::string> namesIn(const std::vector<Listed>& list) {
    std::set<std::string> names;
    for (const auto& query : list) names.insert(query.query);
    return names;
}
