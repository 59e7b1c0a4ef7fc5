// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/FileFindings.h"

/// A finding as `check` prints it, whichever of the analyses it comes from.
struct Problem {
    std::uint32_t file;  ///< place among the files that were named
    std::uint32_t line;  ///< from 1
    Level level;
    std::string rule;        ///< "XST1-rule-5", or the kind of flaw: "twin-id"
    std::string_view field;  ///< name of the field; empty for the whole line
    std::string words;       ///< in bytes of the files' code page
};

/// One rule or kind of flaw, for output that lists them all.
struct ProblemKind {
    std::string rule;
    Level level;
    std::string words;
};

/// Every kind that `check` knows, whether it was found or not.
[[nodiscard]] std::vector<ProblemKind> allProblemKinds();

/// The files that were named, as they are shown, and what was found in them, sorted by place.
struct Problems {
    std::vector<std::string> files;
    std::vector<Problem> found;
};
