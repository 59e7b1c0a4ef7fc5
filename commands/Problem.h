// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/FileFindings.h"
#include "analysis/NavRules.h"
#include "analysis/WebRules.h"
#include "commands/Input.h"
#include "database/QueryFindings.h"
#include "model/LargeArray.h"

/// A finding at its place, whichever of the analyses it comes from. There may be millions, so its words are made only
/// when they are printed.
struct Problem {
    std::uint32_t file;  ///< 0 the nodes, 1 the paragraphs
    std::uint32_t line;  ///< from 1
    std::variant<FileFinding, NavFinding, WebFinding, QueryFinding> finding;

    /// Names the rule or the kind of flaw: "XST1-rule-5", "twin-id".
    [[nodiscard]] std::string rule() const;
    [[nodiscard]] Level level() const;
    /// The name of the field to look at; empty for the whole line.
    [[nodiscard]] std::string_view field() const;
    /// What was found, in UTF-8.
    [[nodiscard]] std::string words() const;
    /// The same as a terminal may show it: control characters are spelled out.
    [[nodiscard]] std::string shownWords() const;

  private:
    [[nodiscard]] bool isOfQuery() const;
    [[nodiscard]] std::string rawWords() const;
};

/// All that is found in one file or both.
class Problems {
  public:
    /// @param paragraphs null to examine only the nodes
    Problems(InputFile nodes, InputFile* paragraphs);
    Problems(const Problems&) = delete;  // the findings point at the records
    Problems& operator=(const Problems&) = delete;

    /// The names of the files, as they are shown.
    [[nodiscard]] const std::vector<std::string>& files() const { return files_; }
    /// Sorted by file and line; within a line, in the order of the analyses: bytes, tree, rules.
    [[nodiscard]] const LargeArray<Problem>& found() const { return found_; }

  private:
    void beginFile(const std::string& name);
    void addAll(FileFindings findings);
    template <class Finding>
    void add(const Finding& finding, const LargeArray<std::uint32_t>& lines);
    void sortIn(std::size_t batch);

    clsNavSchemes navs_;
    std::vector<std::string> files_;
    LargeArray<Problem> found_;
    std::size_t startOfFile_ = 0;  // in found_
};

/// One rule or kind of flaw.
struct ProblemKind {
    std::string rule;
    Level level;
    std::string words;  ///< in UTF-8
};

/// Every kind that `Problems` has, whether it was found or not.
[[nodiscard]] std::vector<ProblemKind> allProblemKinds();
/// Every kind that only the database shows.
[[nodiscard]] std::vector<ProblemKind> allQueryProblemKinds();
