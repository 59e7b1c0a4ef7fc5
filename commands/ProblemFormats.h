// SPDX-License-Identifier: MIT
#pragma once

#include "commands/Console.h"
#include "commands/Problem.h"

// How `check` prints what it found.

/// One line each, as compilers write them: "XST1.txt:12: error: queryIs: words [rule]".
void printAsText(const Problems& problems, const Console& console);

/// One object with the list "findings".
void printAsJson(const Problems& problems, const Console& console);

/// SARIF 2.1.0, which code-review services read.
void printAsSarif(const Problems& problems, const Console& console);
