// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What only the database shows about a scheme.

/// How much a finding matters, in the order of the same levels of the analyses: a remark is no finding.
enum class QueryLevel { Remark, Warning, Error };

/// One kind of flaw.
struct QueryFlaw {
    std::string_view id;  ///< names it for other programs: "query-missing"
    QueryLevel level;
    std::string_view words;  ///< what it is, whatever the query
};

inline constexpr QueryFlaw queryFlaws[] = {
    {"query-missing", QueryLevel::Error, "The database has no query of this name."},
    {"query-arguments", QueryLevel::Error, "The query takes another number of values than it is called with."},
    {"query-fails", QueryLevel::Error, "The database refuses the call of the query."},
    {"query-too-slow", QueryLevel::Warning, "The query takes longer than the time limit."},
    {"first-field", QueryLevel::Error, "The first field of a query must be named ID."},
    {"two-fields", QueryLevel::Error, "A query of the tree must have exactly two fields."},
    {"key-empty", QueryLevel::Error, "A query of the tree gives a row without a key."},
    {"key-kind", QueryLevel::Error,
     "The keys of a level must fit the parameter kind with which the next one takes them."},
    {"columns", QueryLevel::Error, "The columns cannot be read."},
    {"column-missing", QueryLevel::Error, "The query has no column of this number."},
    {"column-text", QueryLevel::Error, "A column that is summed or drawn must hold numbers."},
    {"nothing-to-sum", QueryLevel::Error, "There is no column that All could mean."},
    {"image-field", QueryLevel::Error, "An image header needs a field whose name begins with IMG."},
    {"image", QueryLevel::Error, "The field for the image must hold a picture."},
    {"file-field", QueryLevel::Error, "Thumbnails need a field whose name begins with FILE."},
    {"file", QueryLevel::Error, "The field for the file must hold the full path of a picture."},
    {"folder-elsewhere", QueryLevel::Remark, "The folder of the pictures is not on this computer."},
    {"action-not-run", QueryLevel::Remark, "An action query was not run, since the database could not take it back."},
};

/// The flaw with this ID, which must be in the table.
[[nodiscard]] constexpr const QueryFlaw& queryFlaw(std::string_view id) {
    const auto* flaw = queryFlaws;
    while (flaw->id != id) ++flaw;
    return *flaw;
}

/// A flaw of a node or a paragraph.
struct QueryFinding {
    const QueryFlaw* flaw = nullptr;
    bool isNode = false;     ///< of a node, otherwise of a paragraph
    std::uint32_t slot = 0;  ///< the record's place in its collection
    std::string_view field;  ///< the one to look at: "queryIs"
    std::string words;       ///< what was found, in UTF-8
};
