// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>
#include <string_view>

/// What a type of node is. Storing, the to-do list, the form and the legend go by this table. Each place that says
/// more of every type has rows in the same order, and does not compile without one for each.
struct NodeType {
    static constexpr int anyNumber = std::numeric_limits<int>::max();

    char letter;
    bool hasQuery;       ///< it is stored only with a query; a type without one keeps neither query nor parameter
    int mostChildren;    ///< nodes right below it
    char onlyBelow = 0;  ///< the letter of the one type that it may stand below; 0 for all that may have children
    std::string_view tooManyToStore{};  ///< refuses to store a node of this type that has more children
    std::string_view noneToAdd{};       ///< refuses to add a node below one that has so many children
};

/// The texts are the product's own, slips included.
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

/// The type with this letter; null for any other letter, and for 0, which `Text::letter` returns for other texts.
[[nodiscard]] constexpr const NodeType* nodeType(char letter) {
    const auto* found = std::ranges::find(nodeTypes, letter, &NodeType::letter);
    return found == std::end(nodeTypes) ? nullptr : found;
}
