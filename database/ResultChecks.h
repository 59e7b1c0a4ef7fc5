// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/Database.h"
#include "model/ParameterKind.h"

// What the results of a query must be for what is made of them.

/// A flaw of a result, which the caller brings to its record.
struct ResultFlaw {
    std::string_view id;     ///< of a `QueryFlaw`
    std::string_view field;  ///< "queryIs", "colsAre"
    std::string words;
};

/// Looks at the result of a paragraph's query.
/// @param typeIs,colsAre bytes of the record
[[nodiscard]] std::vector<ResultFlaw> flawsOfPage(std::string_view typeIs, std::string_view colsAre,
                                                  const QueryResult& result);

/// Looks at the fields of a query of the tree.
[[nodiscard]] std::vector<ResultFlaw> flawsOfTree(const std::vector<std::string>& fields);

/// What keeps a key from being the parameter of this kind; empty if nothing does.
[[nodiscard]] std::string whyNoKey(std::string_view key, std::string_view parmIs);
