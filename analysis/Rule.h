#pragma once

#include <string_view>

/// One rule of a scheme, and so one row of the table that an analysis goes through.
///
/// @tparam Record what the rule looks at: the plain values of a node or of a paragraph
template <class Record>
struct Rule {
    std::string_view types;  ///< letters of the types that the rule is for
    bool (*isBroken)(const Record&);
    std::string_view finding;  ///< begins the line that says what was found
    std::string_view text;     ///< the rule, in the words of the report

    /// Whether a record of this type breaks the rule. A type is exactly one of the letters: not none, not two, and
    /// not in lower case.
    [[nodiscard]] bool isBrokenBy(const Record& record, std::string_view type) const {
        return type.size() == 1 && types.find(type.front()) != std::string_view::npos && isBroken(record);
    }
};
