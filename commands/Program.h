// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "commands/Console.h"

/// Runs `pelmo-scheme` with these arguments, without the name of the program. Messages go to `console.err`; nothing
/// is thrown.
/// @return the exit status
[[nodiscard]] int runProgram(const std::vector<std::string>& arguments, Console console);
