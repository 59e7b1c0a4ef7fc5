// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "commands/Console.h"

class CommandLine;

/// Runs a command whose arguments were read. @throws Unusable
using RunCommand = std::function<ExitStatus(const Console&)>;

/// One command of `pelmo-scheme`: a row of the table in `Program.cpp`, declared below and defined in a file of its
/// own.
struct Command {
    std::string_view name;
    std::string_view summary;  ///< what it does, in the list of the commands and above its own help
    std::string_view example;  ///< the last part of its help; works with the samples
    /// Declares its arguments. @return what runs it, which owns the variables that the arguments are read into
    RunCommand (*declare)(CommandLine& line);
};

[[nodiscard]] RunCommand declareCheck(CommandLine& line);
[[nodiscard]] RunCommand declareFormat(CommandLine& line);
[[nodiscard]] RunCommand declareOrphans(CommandLine& line);
[[nodiscard]] RunCommand declarePreview(CommandLine& line);
[[nodiscard]] RunCommand declareRenumber(CommandLine& line);
[[nodiscard]] RunCommand declareSql(CommandLine& line);
[[nodiscard]] RunCommand declareStubs(CommandLine& line);
[[nodiscard]] RunCommand declareToDo(CommandLine& line);
[[nodiscard]] RunCommand declareTree(CommandLine& line);
[[nodiscard]] RunCommand declareVerify(CommandLine& line);
