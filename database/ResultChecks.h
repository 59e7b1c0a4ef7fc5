// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/Database.h"
#include "model/ParagraphType.h"
#include "model/ParameterKind.h"

// What the results of a query must be for what is made of them.

/// A flaw of a result, which the caller brings to its record.
struct ResultFlaw {
    std::string_view id;     ///< of a `QueryFlaw`
    std::string_view field;  ///< "queryIs", "colsAre"
    std::string words;
};

/// The field with the picture, or the path of its file: the first whose name begins with what the type of paragraph
/// asks for, in either case. @return nothing if there is none, or the type asks for none
[[nodiscard]] std::optional<std::size_t> pictureField(const ParagraphType& type, const QueryResult& result);

/// Looks at the result of a paragraph's query.
/// @param type the letter of its type, or 0 @param colsAre bytes of the record
[[nodiscard]] std::vector<ResultFlaw> flawsOfPage(char type, std::string_view colsAre, const QueryResult& result);

/// Looks at the fields of a query of the tree.
[[nodiscard]] std::vector<ResultFlaw> flawsOfTree(const std::vector<std::string>& fields);

/// What keeps a key from being the parameter of this kind; empty if nothing does.
[[nodiscard]] std::string whyNoKey(std::string_view key, std::string_view parmIs);
