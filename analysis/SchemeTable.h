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
    std::string_view types;               ///< the letters that a type may be
    std::string_view
        typesWithoutQuery;  ///< of these, those whose records lose query and parameter when they are read

    /// The first line of a file, without its end.
    [[nodiscard]] std::string header() const;
};

extern const SchemeTable navTable;  ///< XST1, the nodes
extern const SchemeTable webTable;  ///< XST2, the paragraphs
