// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "analysis/Rule.h"
#include "model/clsNavScheme.h"

class clsNavSchemes;

/// A node as the rules see it: plain values, among them such as no record can hold (a node of type N with a query).
struct NodeFacts {
    char type = 0;              ///< its letter, 0 if its type is no single letter
    bool hasQuery = false;      ///< blanks are one, too
    bool fixedBelow = false;    ///< whether one of its children is of type F
    std::int16_t children = 0;  ///< number of its children
};

/// The rules in words, with which the report on the navigational scheme begins, and the heading of its findings.
extern const std::string_view navRulesInWords;

/// The rules, in the order of the findings on one node.
extern const std::span<const Rule<NodeFacts>> navRules;

using NavFinding = Finding<clsNavScheme, NodeFacts>;

/// Hands every finding on the nodes to `take`, in collection order.
void findInNodes(const clsNavSchemes& navs, const std::function<void(const NavFinding&)>& take);

/// Adds to a report what was found in a node, the rule, and an empty line.
void appendFinding(std::string& report, const Rule<NodeFacts>& rule, std::int32_t id, const Text& description);
