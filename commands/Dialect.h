// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "commands/Console.h"

class CommandLine;

/// What the values of queries can be.
enum class ValueType { Integer, Number, Text, Image };

/// What differs between the databases for which scripts are written: one row of the table in `Dialects.cpp`. Words in
/// braces are filled in; see `filled`.
struct Dialect {
    std::string_view name;   ///< as --dialect takes it
    std::string_view title;  ///< as people write it

    /// How the script is written.
    struct Lines {
        std::string_view end;
        std::string_view comment;  ///< begins a comment that ends with its line
    } lines;

    /// Which characters of a text the script holds as they are. It joins all others by their numbers.
    enum class Plain {
        AsEncoded,      ///< all but control characters: the script names its encoding, or the database knows it
        UnlessEncoded,  ///< the same in UTF-8; only ASCII in another encoding, which the database does not read
        Ascii,          ///< only ASCII: nothing tells the database the encoding of the script
    };

    /// How a text is quoted. A control character, and one that is not plain, is joined to the rest by its number. A
    /// text with many of them is written as hexadecimal digits, since databases limit the depth of an expression.
    struct Texts {
        std::string_view open;
        std::string_view close;
        std::string_view doubled;  ///< the bytes that are written twice
        std::string_view openJoin = {}, join, closeJoin = {};
        std::string_view longJoin = {};  ///< stands before the first part when the text is long
        std::string (*character)(char16_t character);
        std::string_view openHex, closeHex;  ///< around a text of too many parts; empty if every text is joined
        bool isHexUtf16;                     ///< whether it is in UTF-16, low byte first, and not in UTF-8
        Plain plain;
        bool hasVariables;  ///< whether "$(" begins a variable even within a text
    } texts;

    /// How a name is quoted.
    struct Names {
        std::string_view open;
        std::string_view close;  ///< written twice inside a name
    } names;

    /// The script that fills the tables.
    struct Script {
        std::string_view usage;  ///< how to run it
        std::string_view integer, text;
        std::string_view begin;
        std::string_view beforeRows = {}, afterRows = {};  ///< of each table
        std::string_view end;
        std::string_view utf8 = {}, codePage = {};  ///< the names of UTF-8, and of the code page of the files
    } script;

    /// The script of the queries.
    struct Queries {
        std::string_view usage;
        std::string_view begin;
        std::string_view returningRows, action;
        std::string_view openArguments, closeArguments;  ///< only where there are any
        std::string_view argument, optional;
        std::array<std::string_view, 4> argumentTypes;  ///< by ValueType
        std::array<std::string_view, 4> columns;        ///< by ValueType: declared
        std::array<std::string_view, 4> fields;         ///< by ValueType: selected
    } queries;

    /// Whether both scripts are modules of the database's own language, with a limit for lines and procedures.
    bool isModule;
};

/// Declares the required option --dialect. @param dialect receives what it names
void declareDialect(CommandLine& line, const Dialect*& dialect);

/// Bytes of the code page, none of them 00, as an expression of that database, in UTF-8 and on one line.
[[nodiscard]] std::string quotedText(const Dialect& dialect, Encoding encoding, std::string_view bytes);

/// The name of a query, in UTF-8; each part of "dbo.spG_Customers" is quoted by itself. A part that has the prefix
/// spG_ or spW_ and otherwise only letters, digits and underscores gets no quotes: no database reserves it, and some
/// change the case of names without quotes.
[[nodiscard]] std::string quotedName(const Dialect& dialect, std::string_view bytes);

/// Whether a script in this encoding can hold the name.
[[nodiscard]] bool canBeName(const Dialect& dialect, Encoding encoding, std::string_view bytes);

/// The text with each word in braces, {like} this, replaced by its value in `words`.
[[nodiscard]] std::string filled(std::string_view text,
                                 std::initializer_list<std::pair<std::string_view, std::string_view>> words);

/// Prints lines that end with a line feed, but with the line ends that the database wants.
void printLines(const Dialect& dialect, const Console& console, std::string_view lines);

/// Makes lines comments.
[[nodiscard]] std::string asComment(const Dialect& dialect, std::string_view lines);
