// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

// The two tables as they are in their text files: what each field of a line is.

struct SchemeField {
    enum class Kind { Number, Text, Type, Query, Parameter };
    std::string_view name;
    Kind kind;
};

struct SchemeTable {
    std::string_view name;                ///< "XST1"
    std::span<const SchemeField> fields;  ///< in the order of a line; the first one is the ID
    bool (*isType)(char letter);          ///< whether this letter is a type of the table
    bool (*keepsQuery)(char letter);      ///< whether reading a record of this type keeps query and parameter

    /// The first line of a file, without its line end.
    [[nodiscard]] std::string header() const;
};

extern const SchemeTable navTable;  ///< XST1, the nodes
extern const SchemeTable webTable;  ///< XST2, the paragraphs
