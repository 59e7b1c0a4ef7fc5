// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

// The two tables as their text files hold them: what each field of a line is.

struct SchemeField {
    enum class Kind { Number, Text, Type, Query, Parameter };
    std::string_view name;
    Kind kind;
};

struct SchemeTable {
    std::string_view name;                ///< "XST1"
    std::span<const SchemeField> fields;  ///< in the order of a line; the first one is the ID
    bool (*isType)(char letter);          ///< whether a record's type may be this letter
    bool (*keepsQuery)(char letter);      ///< whether a record of this type keeps query and parameter when it is read

    /// The first line of a file, without its end.
    [[nodiscard]] std::string header() const;
};

extern const SchemeTable navTable;  ///< XST1, the nodes
extern const SchemeTable webTable;  ///< XST2, the paragraphs
