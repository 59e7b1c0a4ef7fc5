// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/ParagraphType.h"
#include "model/ParameterKind.h"

// How a query of the scheme is called. All texts of this folder are UTF-8.

/// The node of Pelmo's tree that was clicked: one of the scheme, or one that a query generated.
struct ClickedNode {
    std::string key = "0";     ///< the ID that the query gave; "0" for a node that no query produced
    std::string text;          ///< as the tree shows it
    bool isGenerated = false;  ///< whether a query produced it
};

/// A query with all that it is called with.
struct QueryCall {
    std::string name;                    ///< what stands before the first blank
    std::vector<std::string> constants;  ///< what stands after it, split at blanks
    ParameterKind kind = ParameterKind::None;
    std::string parameter;  ///< what the kind supplies: a key, a text, "05-Mar-2026"; empty for None
};

/// What a query is called for.
enum class QueryKind {
    Rows,    ///< the nodes below a node, or what a paragraph shows
    Action,  ///< what it does; rows that it returns are not shown
};

/// What the query of a paragraph is called for. @param type the letter of its type, or 0
[[nodiscard]] constexpr QueryKind queryKindOf(char type) {
    const auto* row = paragraphType(type);
    return row && row->isAction ? QueryKind::Action : QueryKind::Rows;
}

/// The call that a record's query and parameter kind make when that node is clicked.
/// @param queryIs,parmIs bytes of the files' code page
/// @param today as "05-Mar-2026"
/// @return nothing where there is no query, or where nothing reads the parameter kind
[[nodiscard]] std::optional<QueryCall> callOf(std::string_view queryIs, std::string_view parmIs,
                                              const ClickedNode& clicked, std::string_view today);

/// A day as Pelmo supplies it: "05-Mar-2026", in English whatever the locale.
/// @param isoDay "2026-03-05"; today where it is empty
/// @return an empty text if it is no day
[[nodiscard]] std::string dayForQueries(std::string_view isoDay = {});
