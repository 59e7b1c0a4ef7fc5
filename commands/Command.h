// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "commands/Console.h"

namespace CLI {
class App;
}

/// Runs a command whose arguments were read. @throws Unusable
using RunCommand = std::function<ExitStatus(const Console&)>;

/// One command of `pelmo-scheme`: a row of the table in `Program.cpp`, declared below and defined in a file of its
/// own.
struct Command {
    std::string_view name;
    std::string_view summary;  ///< what it does, in the list of the commands and above its own help
    std::string_view example;  ///< the last part of its help; works with the samples
    /// Declares its arguments. @return what runs it, which keeps what the arguments are read into
    RunCommand (*declare)(CLI::App& command);
};

[[nodiscard]] RunCommand declareCheck(CLI::App& command);
[[nodiscard]] RunCommand declareFormat(CLI::App& command);
[[nodiscard]] RunCommand declareOrphans(CLI::App& command);
[[nodiscard]] RunCommand declarePreview(CLI::App& command);
[[nodiscard]] RunCommand declareRenumber(CLI::App& command);
[[nodiscard]] RunCommand declareSql(CLI::App& command);
[[nodiscard]] RunCommand declareStubs(CLI::App& command);
[[nodiscard]] RunCommand declareToDo(CLI::App& command);
[[nodiscard]] RunCommand declareTree(CLI::App& command);
[[nodiscard]] RunCommand declareVerify(CLI::App& command);
