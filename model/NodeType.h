// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>
#include <string_view>

/// What each type of node is, for the whole program. Every other table with a row for each type has them in this
/// order, and does not compile if one is missing.
struct NodeType {
    static constexpr int anyNumber = std::numeric_limits<int>::max();

    char letter;
    bool hasQuery;               ///< stored only with a query; if false, it keeps neither query nor parameter
    int mostChildren;            ///< the most nodes that may be directly below it
    bool repeatsItself = false;  ///< the nodes of its query's rows are like itself, not like the node below it
    char onlyBelow = 0;  ///< the letter of the one type that it may be below; 0: any type that may have children
    std::string_view tooManyToStore{};  ///< the message if one with more children is to be stored
    std::string_view noneToAdd{};       ///< the message if a node is to be added below one with this many children
};

/// The messages are given, slips included (docs/architecture.md, "Given, not to be corrected").
inline constexpr NodeType nodeTypes[] = {
    {.letter = 'F', .hasQuery = false, .mostChildren = NodeType::anyNumber, .onlyBelow = 'F'},
    {.letter = 'G',
     .hasQuery = true,
     .mostChildren = 1,
     .tooManyToStore = "This Node is having more than one Child Nodes. Only One Child Node Allowed for Generating "
                       "Node. Changes not saved",
     .noneToAdd = "Below a (G)- Generating Node, you can add just ONE node.\r\n"
                  "Node is already present. No Addition allowed !!"},
    {.letter = 'R',
     .hasQuery = true,
     .mostChildren = 0,
     .repeatsItself = true,
     .tooManyToStore =
         "This Node is having Child Nodes. No child Nodes Allowed for Recurring Node. Changes not saved",
     .noneToAdd = "Below a (R)- Recurring Node, you CANNOT add any node.\r\nNo Addition allowed !!"},
    {.letter = 'N',
     .hasQuery = false,
     .mostChildren = 0,
     .tooManyToStore = "This Node is having Child Nodes. No child Nodes Allowed for Non-Generating Node. Changes not "
                       "saved",
     .noneToAdd = "Below a (N)- Non-Generating Node, you CANNOT add any node.\r\nNo Addition allowed !!"},
};

/// The type with this letter; null for any other letter, and for 0, which `Text::letter` returns for a text that is
/// not a single letter.
[[nodiscard]] constexpr const NodeType* nodeType(char letter) {
    const auto* found = std::ranges::find(nodeTypes, letter, &NodeType::letter);
    return found == std::end(nodeTypes) ? nullptr : found;
}

/// Whether Pelmo calls the query of a node with this letter. A node of an unknown type may have one, too, but it is
/// not called.
[[nodiscard]] constexpr bool callsQuery(char letter) {
    const auto* type = nodeType(letter);
    return type && type->hasQuery;
}
