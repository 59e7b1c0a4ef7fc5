// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/Database.h"
#include "database/GeneratedTree.h"
#include "preview/Html.h"
#include "preview/Pictures.h"

// The page of a node: what its queries give, and what that looks like.

/// A paragraph after its query was called.
struct PageParagraph {
    const clsWebScheme* record = nullptr;
    std::optional<QueryCall> call{};      ///< nothing where the query cannot be called
    bool isRefused = false;               ///< an action that the database could not undo, and was not run
    QueryResult result{};                 ///< what the query gave
    std::vector<std::string> findings{};  ///< on this paragraph, in words
};

struct Page {
    ClickedNode clicked;
    const clsNavScheme* node = nullptr;  ///< null below a generating node that has none in the scheme
    std::vector<PageParagraph> paragraphs{};
    std::string error{};                  ///< why there are no paragraphs: the database cannot be reached
    std::vector<std::string> findings{};  ///< on the node, in words
    bool isUndone = true;                 ///< whether what its actions did was undone
};

/// How pages are made.
struct PageSettings {
    QueryLimits limits;
    bool runsAllActions = false;  ///< also those that the database cannot undo
    std::string today;            ///< as "05-Mar-2026"
};

/// Calls the queries of the node's paragraphs in the order of their sequence numbers, all within one page of the
/// database. Whatever fails is in the page.
[[nodiscard]] Page makePage(const clsNavSchemes& navs, const TreeNode& node, Database& database,
                            const PageSettings& settings);

/// What the browser shows. @param pictures gets those of the page; its `beginPage` was called
[[nodiscard]] Html shownPage(const Page& page, Pictures& pictures);
