// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "commands/Console.h"
#include "commands/Problem.h"

namespace CLI {
class App;
}

// How `check` and `verify` print what they found.

/// What is printed.
struct ProblemList {
    std::span<const std::string> files;  ///< their names as they are shown
    std::span<const Problem> found;      ///< sorted by file and line
    std::vector<ProblemKind> (*kinds)();
};

/// What the command line says about it.
struct ProblemOptions {
    std::string format = "text";
    bool isStrict = false;
};

/// Declares `--format` and `--strict`. @param options must outlive the command
void declareProblemOptions(CLI::App& command, ProblemOptions& options);

/// Prints the findings. @return whether there are any that count
[[nodiscard]] ExitStatus printProblems(const ProblemList& problems, const ProblemOptions& options,
                                       const Console& console);
