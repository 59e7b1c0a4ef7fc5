// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <map>

#include "database/GeneratedTree.h"
#include "tests/database/Shop.h"

// Every page of Pelmo's tree, as a database gives it through the program.

enum class Actions { Run, Omitted };

/// The results of a page's paragraphs in the order of their sequence numbers, all of them in one page of the
/// database.
inline std::vector<QueryResult> pageOf(const clsNavSchemes& navs, const TreeNode& node, Database& database,
                                       const std::string& today, Actions actions) {
    std::vector<const clsWebScheme*> paragraphs;
    for (const auto& paragraph : navs.oWebs.NewEnum())
        if (paragraph->XST1 == node.node->ID) paragraphs.push_back(paragraph);
    std::ranges::stable_sort(paragraphs, {}, &clsWebScheme::seqNo);
    std::vector<QueryResult> results;
    const DatabasePage page(database);
    for (const auto* paragraph : paragraphs) {
        const auto kind = paragraph->typeIs == "E" ? QueryKind::Action : QueryKind::Rows;
        if (kind == QueryKind::Action && actions == Actions::Omitted) continue;
        const auto call = callOf(paragraph->queryIs, paragraph->parmIs, node.clicked, today);
        results.push_back(database.run(*call, kind, {}));
        EXPECT_EQ(results.back().error, "") << paragraph->queryIs.view() << " for " << node.clicked.key;
    }
    return results;
}

/// All pages, by the way through the tree that leads to each: "1/0 Data Browser|2/0 Hire desk".
inline std::map<std::string, std::vector<QueryResult>> allPages(const clsNavSchemes& navs, Database& database,
                                                                const std::string& today, Actions actions) {
    const GeneratedTree tree(navs, today);
    std::map<std::string, std::vector<QueryResult>> pages;
    std::vector<std::pair<std::string, TreeNode>> left = {{"", tree.root()}};
    while (!left.empty()) {
        const auto [above, node] = left.back();
        left.pop_back();
        const auto way =
            above + "|" + std::to_string(node.node->ID) + "/" + node.clicked.key + " " + node.clicked.text;
        pages[way] = pageOf(navs, node, database, today, actions);
        const auto below = tree.below(node, database, {});
        EXPECT_EQ(below.error, "") << way;
        EXPECT_EQ(below.total, below.nodes.size()) << way;
        for (const auto& child : below.nodes) left.emplace_back(way, child);
    }
    return pages;
}

/// Whether two databases gave the same, apart from how they write numbers.
inline bool isSame(const Cell& a, const Cell& b) {
    if (a.kind != Cell::Kind::Number || b.kind != Cell::Kind::Number) return a.kind == b.kind && a.text == b.text;
    return std::abs(std::stod(a.text) - std::stod(b.text)) < 0.005;
}

inline void expectSamePages(const std::map<std::string, std::vector<QueryResult>>& found,
                            const std::map<std::string, std::vector<QueryResult>>& expected) {
    EXPECT_EQ(found.size(), expected.size());
    for (const auto& [way, paragraphs] : expected) {
        const auto page = found.find(way);
        ASSERT_NE(page, found.end()) << "there is no " << way;
        ASSERT_EQ(page->second.size(), paragraphs.size()) << way;
        for (std::size_t i = 0; i < paragraphs.size(); ++i) {
            const auto& result = page->second[i];
            ASSERT_EQ(result.fields, paragraphs[i].fields) << way << ", result " << i;
            ASSERT_EQ(result.rows.size(), paragraphs[i].rows.size()) << way << ", result " << i;
            for (std::size_t row = 0; row < result.rows.size(); ++row)
                for (std::size_t at = 0; at < result.fields.size(); ++at)
                    ASSERT_TRUE(isSame(result.rows[row].at(at), paragraphs[i].rows[row].at(at)))
                        << way << ", result " << i << ", " << result.fields[at] << ": " << result.rows[row][at].text
                        << " is not " << paragraphs[i].rows[row][at].text;
        }
    }
}

/// Sets a variable of the environment until the end of its block.
class Environment {
  public:
    Environment(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* const before = std::getenv(name_.c_str())) before_ = before;
        setenv(name_.c_str(), value.c_str(), 1);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        if (before_)
            setenv(name_.c_str(), before_->c_str(), 1);
        else
            unsetenv(name_.c_str());
    }

  private:
    std::string name_;
    std::optional<std::string> before_;
};
