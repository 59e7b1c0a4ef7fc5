// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "Helpers.h"
#include "tests/OrdinaryUser.h"

// What the tests of faulty files and disks share. Linux only.

/// Ends the test program instead of waiting for ever.
class Deadline {
  public:
    Deadline() { alarm(20); }
    ~Deadline() { alarm(0); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
};

/// Runs `check` in a process of its own that may take this much more memory, in bytes, than it has.
/// @return what it answers, -1 if it crashes
inline int withLittleMemory(std::size_t more, const std::function<int()>& check) {
    const auto child = fork();
    if (child == 0) {
        std::ifstream sizes("/proc/self/statm");
        std::size_t pages = 0;
        sizes >> pages;
        const rlim_t most = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + more;
        const rlimit limit{most, most};
        setrlimit(RLIMIT_AS, &limit);
        _exit(check());
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
