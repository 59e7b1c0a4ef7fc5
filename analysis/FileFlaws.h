// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/FileFindings.h"

// The rows of `fileFlaws`, for the code that reports them.
namespace flaw {

// In lines and fields.
inline constexpr FileFlaw passedOver{"passed-over", Level::Warning,
                                     "the line does not begin with a digit; it is passed over"};
inline constexpr FileFlaw twinId{"twin-id", Level::Error, "the ID is taken by line %; this record is dropped"};
inline constexpr FileFlaw comma{"comma", Level::Error, "a comma in the text shifts all fields after it"};
inline constexpr FileFlaw tooManyFields{
    "too-many-fields", Level::Error, "there are % fields in the line; a comma in a text shifts all fields after it"};
inline constexpr FileFlaw tooFewFields{"too-few-fields", Level::Warning,
                                       "there are only % fields in the line; the others will be empty"};
inline constexpr FileFlaw unknownType{"unknown-type", Level::Error, "\"%\" is not a type of this table"};
inline constexpr FileFlaw quote{"quote", Level::Warning, "a quote in the text will be lost"};
inline constexpr FileFlaw droppedText{"dropped-text", Level::Warning,
                                      "nodes of this type have neither query nor parameter; \"%\" will be lost"};
inline constexpr FileFlaw notANumber{"not-a-number", Level::Error, "\"%\" is not a 32-bit number; it is read as 0"};
inline constexpr FileFlaw rounded{"rounded", Level::Remark, "\"%\" is rounded to a whole number"};
inline constexpr FileFlaw unknownParameter{"unknown-parameter", Level::Warning,
                                           "\"%\" is not a known kind of parameter"};
inline constexpr FileFlaw freeByte{"free-byte", Level::Remark, "the byte % is not a character of the code page"};

// Between records.
inline constexpr FileFlaw noRoot{"no-root", Level::Error, "no node has the parent 0; the tree is empty"};
inline constexpr FileFlaw secondRoot{"second-root", Level::Error,
                                     "the parent is 0, but the root is in line %; there can be only one root"};
inline constexpr FileFlaw missingParent{"missing-parent", Level::Error, "there is no node %"};
inline constexpr FileFlaw loop{"loop", Level::Error, "the node is below itself"};
inline constexpr FileFlaw unwritten{"unwritten", Level::Error,
                                    "the node cannot be reached from the root; saving drops it"};
inline constexpr FileFlaw orphan{"orphan", Level::Warning, "there is no node %; the paragraph is an orphan"};

}  // namespace flaw
