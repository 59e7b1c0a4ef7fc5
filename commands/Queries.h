// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/Dialect.h"
#include "commands/SavedScheme.h"

// The queries that a scheme names, and what the database must know of each to make it.

/// A value that a query is called with.
struct QueryArgument {
    std::string name;  ///< "given_key"
    ValueType type = ValueType::Integer;
    std::size_t length = 0;   ///< of a text
    bool isOptional = false;  ///< some calls omit it
};

/// A field that a query returns.
struct QueryField {
    std::string name;
    ValueType type = ValueType::Text;
    std::size_t length = 0;  ///< of a text
};

struct Query {
    std::string_view name;  ///< bytes, as its first use writes it
    std::string uses;       ///< a line for each node and paragraph that calls it, in UTF-8
    std::vector<QueryArgument> arguments;
    std::vector<QueryField> fields;  ///< empty for an action query
};

/// Every query that a node or a paragraph names and Pelmo calls, once, in the order of the first uses. Names that
/// differ only in the case of ASCII letters count as one.
[[nodiscard]] std::vector<Query> queriesOf(const SavedScheme& scheme);
