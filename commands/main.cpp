// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "commands/Program.h"
#include "commands/Streams.h"

namespace {

// https://no-color.org: set to anything but the empty text.
bool wantsColours() {
    const char* const refused = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal && std::string_view(terminal) == "dumb";
    return isatty(STDOUT_FILENO) != 0 && !isDumb && !(refused && *refused != '\0');
}

}  // namespace

int main(int count, char** arguments) {
    makeStreamsPlain();
    std::ios::sync_with_stdio(false);
    return runProgram({arguments + 1, arguments + count},
                      {.in = std::cin, .out = std::cout, .err = std::cerr, .isColoured = wantsColours()});
}
