// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "database/Database.h"
#include "database/QueryFindings.h"
#include "model/clsNavSchemes.h"

/// How far the generated tree is walked, and how.
struct VerifyOptions {
    std::string today;         ///< as queries get it: "05-Mar-2026"
    std::size_t depth = 5;     ///< how many levels of rows, one below the other, are followed
    std::size_t rows = 3;      ///< how many rows of each query are followed, the first ones
    bool runsActions = false;  ///< also where the database cannot take them back
    QueryLimits limits;
};

/// Looks up and calls every query that a scheme names: those of the tree, and those of the pages of all nodes that
/// the walk meets. A flaw is told once for each record, with the first call that shows it.
/// @return sorted by nodes and paragraphs, then in the order of their collections
/// @throws DatabaseError
[[nodiscard]] std::vector<QueryFinding> verifyQueries(const clsNavSchemes& navs, Database& database,
                                                      const VerifyOptions& options);
