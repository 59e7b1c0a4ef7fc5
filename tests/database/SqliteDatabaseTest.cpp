// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <fstream>

#include "database/GeneratedTree.h"
#include "tests/database/Shop.h"

// The user's database as the program asks it, with a file of SQLite.

namespace {

std::string hexOf(const std::string& bytes) {
    std::string digits;
    for (const char byte : bytes) {
        constexpr const char* hex = "0123456789ABCDEF";
        const auto code = static_cast<unsigned char>(byte);
        digits.append(1, hex[code / 16]).append(1, hex[code % 16]);
    }
    return digits;
}

Value valueIn(const Cell& cell) {
    switch (cell.kind) {
        case Cell::Kind::Null: return {Value::Kind::Null, "", "NULL"};
        case Cell::Kind::Number: return {Value::Kind::Number, cell.text, cell.text};
        case Cell::Kind::Text: return {Value::Kind::Text, cell.text, quoted(cell.text)};
        case Cell::Kind::Bytes: break;
    }
    return {Value::Kind::Blob, hexOf(cell.text), ""};
}

// The tool prints 20 digits of a number with a fraction.
bool isSame(const Value& a, const Value& b) {
    if (a.kind != b.kind) return false;
    if (a.kind != Value::Kind::Number) return a.text == b.text;
    return std::abs(std::stod(a.text) - std::stod(b.text)) <= 1e-12 * std::abs(std::stod(b.text));
}

/// What a folder holds: names, times, and a number that differs where the bytes differ.
std::map<std::string, std::string> listing(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const auto time = std::filesystem::last_write_time(entry).time_since_epoch().count();
        files[entry.path().filename().string()] =
            std::to_string(time) + " " + std::to_string(std::hash<std::string>()(bytesOf(entry.path())));
    }
    return files;
}

std::unique_ptr<Database> openShop(const Shop& shop) {
    return Database::open("sqlite:" + (shop.folder / "shop.db").string());
}

/// Every node of Pelmo's tree, by the ID of the node of the scheme that it is made after.
std::map<int, std::vector<ClickedNode>> nodesOf(const Shop& shop, Database& database, const std::string& today) {
    const GeneratedTree tree(shop.navs, today);
    std::map<int, std::vector<ClickedNode>> nodes;
    std::vector<TreeNode> left = {tree.root()};
    while (!left.empty()) {
        const auto node = left.back();
        left.pop_back();
        nodes[node.node->ID].push_back(node.clicked);
        if (!tree.isBranch(node)) continue;
        const auto below = tree.below(node, database, {});
        EXPECT_EQ(below.error, "") << node.node->ID;
        EXPECT_EQ(below.total, below.nodes.size());
        left.insert(left.end(), below.nodes.begin(), below.nodes.end());
    }
    return nodes;
}

}  // namespace

TEST(QueryCall, SplitsTheNameFromItsConstants) {
    const ClickedNode clicked{.key = "1003", .text = "Abbott", .isGenerated = true};
    const auto call = callOf("spG_Hires 2  OPEN", "Lkey", clicked, shopDayText);
    ASSERT_TRUE(call);
    EXPECT_EQ(call->name, "spG_Hires");
    EXPECT_EQ(call->constants, (std::vector<std::string>{"2", "OPEN"}));
    EXPECT_EQ(call->kind, ParameterKind::LKey);
    EXPECT_EQ(call->parameter, "1003");
    EXPECT_EQ(callOf("q", "CKey04", clicked, shopDayText)->parameter, "1003");
    EXPECT_EQ(callOf("q", "Text", clicked, shopDayText)->parameter, "Abbott");
    EXPECT_EQ(callOf("q", "Today", clicked, shopDayText)->parameter, "05-Mar-2026");
    EXPECT_EQ(callOf("q", "", clicked, shopDayText)->parameter, "");
    EXPECT_EQ(callOf("caf\xE9 caf\xE9", "", clicked, shopDayText)->name, "caf\xC3\xA9");
    EXPECT_EQ(callOf("caf\xE9 caf\xE9", "", clicked, shopDayText)->constants.at(0), "caf\xC3\xA9");
    EXPECT_FALSE(callOf("", "", clicked, shopDayText));
    EXPECT_FALSE(callOf(" q", "", clicked, shopDayText));
    EXPECT_FALSE(callOf("q", "None", clicked, shopDayText));
}

TEST(QueryCall, WritesDaysInEnglish) {
    EXPECT_EQ(dayForQueries("2026-03-05"), "05-Mar-2026");
    EXPECT_EQ(dayForQueries("2026-12-31"), "31-Dec-2026");
    EXPECT_EQ(dayForQueries("2026-02-30"), "");
    EXPECT_EQ(dayForQueries("5.3.2026"), "");
    EXPECT_EQ(dayForQueries().size(), 11U);
}

TEST(SqliteDatabase, ShowsTheTreeOfTheSample) {
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const Shop shop(shopDay);
    const auto database = openShop(shop);
    auto nodes = nodesOf(shop, *database, shopDayText);
    auto expected = shop.clicks();
    EXPECT_EQ(nodes.size(), 70U);
    for (auto& [id, clicks] : expected) {
        std::multiset<std::pair<std::string, std::string>> keys;
        std::multiset<std::pair<std::string, std::string>> found;
        for (const auto& click : clicks) keys.emplace(click.key.text, click.text);
        for (const auto& click : nodes[id]) found.emplace(click.key, click.text);
        if (id == 18) keys = {{"0", "Caf\xC3\xA9 stop vouchers"}};  // the file's code page is another one
        EXPECT_EQ(found, keys) << "node " << id;
    }
}

TEST(SqliteDatabase, GivesWhatSqliteGivesAndChangesNothing) {
    if (!Sqlite::isThere()) GTEST_SKIP() << "sqlite3 is not installed";
    const Shop shop(shopDay);
    const auto clicks = shop.clicks();  // the tool writes
    const auto before = listing(shop.folder.path());
    std::vector<std::pair<Call, QueryResult>> made;
    {
        const auto database = openShop(shop);
        EXPECT_TRUE(database->canUndo());
        for (const auto* paragraph : shop.navs.oWebs.NewEnum()) {
            const auto listed = std::ranges::find(shop.webList, paragraph->ID, &Listed::id);
            ASSERT_NE(listed, shop.webList.end());
            for (const auto& click : clicks.at(paragraph->XST1)) {
                const ClickedNode clicked{.key = click.key.text, .text = click.text, .isGenerated = true};
                const auto call = callOf(paragraph->queryIs, paragraph->parmIs, clicked, shopDayText);
                const DatabasePage page(*database);
                auto result =
                    database->run(*call, paragraph->typeIs == "E" ? QueryKind::Action : QueryKind::Rows, {});
                ASSERT_EQ(result.error, "") << paragraph->queryIs.view();
                if (paragraph->typeIs != "E") made.push_back({{&*listed, click}, std::move(result)});
            }
        }
    }
    EXPECT_EQ(listing(shop.folder.path()), before);

    std::vector<Call> calls;
    for (const auto& [call, result] : made) calls.push_back(call);
    const auto expected = shop.results(calls);
    EXPECT_GT(calls.size(), 1000U);
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const auto& result = made[i].second;
        const auto about = calls[i].listed->query + " for " + calls[i].click.key.literal;
        ASSERT_EQ(result.total, expected[i].rows.size()) << about;
        if (!expected[i].rows.empty()) {
            EXPECT_EQ(result.fields, expected[i].columns) << about;
        }
        for (std::size_t row = 0; row < result.rows.size(); ++row)
            for (std::size_t at = 0; at < result.fields.size(); ++at)
                EXPECT_TRUE(isSame(valueIn(result.rows[row][at]), expected[i].rows[row].at(at)))
                    << about << ": " << result.rows[row][at].text << " is not " << expected[i].rows[row][at].literal;
    }
}
