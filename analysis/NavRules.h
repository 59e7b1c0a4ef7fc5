#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A node as the rules see it: plain values, among them such as no record can hold (a node of type N with a query).
struct NodeFacts {
    std::int32_t id = 0;
    std::string_view description;
    std::string_view type;
    std::string_view query;
    std::int16_t children = 0;  ///< number of its children
    bool fixedBelow = false;    ///< whether one of them is of type F
};

/// The rules in words, with which the report on the navigational scheme begins, and the heading of its findings.
extern const std::string_view navRulesInWords;

/// Adds to the report, for each rule that the node breaks, what was found, the rule, and an empty line.
void appendFindings(std::string& report, const NodeFacts& node);
