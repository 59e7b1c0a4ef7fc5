// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/Text.h"

/// A node as the rules see it: plain values, among them such as no record can hold (a node of type N with a query).
struct NodeFacts {
    char type = 0;              ///< its letter, 0 if its type is no single letter
    bool hasQuery = false;      ///< blanks are one, too
    bool fixedBelow = false;    ///< whether one of its children is of type F
    std::int16_t children = 0;  ///< number of its children
};

/// The rules in words, with which the report on the navigational scheme begins, and the heading of its findings.
extern const std::string_view navRulesInWords;

/// Whether there is anything to report on the node.
[[nodiscard]] bool breaksARule(const NodeFacts& node);

/// Adds to the report, for each rule that the node breaks, what was found, the rule, and an empty line.
void appendFindings(std::string& report, const NodeFacts& node, std::int32_t id, const Text& description);
