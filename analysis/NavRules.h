// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "analysis/Rule.h"
#include "model/clsNavScheme.h"

class clsNavSchemes;

/// A node as the rules see it: plain values, including some that no record can have (a node of type N with a query).
struct NodeFacts {
    char type = 0;              ///< its letter; 0 if its type is not a single letter
    bool hasQuery = false;      ///< blanks count as a query, too
    bool fixedBelow = false;    ///< whether one of its children is of type F
    std::int16_t children = 0;  ///< number of its children
};

/// The beginning of the report on the navigational scheme: the rules in words, and the heading of the findings.
extern const std::string_view navRulesInWords;

/// The rules, in the order in which a node's findings are listed.
extern const std::span<const Rule<NodeFacts>> navRules;

using NavFinding = Finding<clsNavScheme, NodeFacts>;

/// Passes every finding on the nodes to `take`, in collection order.
void findInNodes(const clsNavSchemes& navs, const std::function<void(const NavFinding&)>& take);

/// Adds a finding on a node to a report: what was found, the rule, and an empty line.
void appendFinding(std::string& report, const Rule<NodeFacts>& rule, std::int32_t id, const Text& description);
