// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>

#include "Helpers.h"
#include "tests/OrdinaryUser.h"

// What the tests of faulty files and disks share. Linux only.

/// Ends the test program instead of waiting forever.
class Deadline {
  public:
    Deadline() { alarm(180); }
    ~Deadline() { alarm(0); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
};

/// Exists only in builds that measure coverage: records the lines that this process has reached.
extern "C" [[gnu::weak]] void __gcov_exit();

/// Runs `check` in a process of its own that gets no more than `most` bytes of memory (128 KiB or more).
/// @return what it answers, -1 if it crashes
inline int withLittleMemory(std::size_t most, const std::function<int()>& check) {
    const auto child = fork();
    if (child == 0) {
        void* left = std::malloc(most);
        std::ifstream sizes("/proc/self/statm");
        std::size_t pages = 0;
        sizes >> pages;
        rlimit limit{};
        getrlimit(RLIMIT_AS, &limit);
        const auto usual = limit;
        limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        setrlimit(RLIMIT_AS, &limit);
        // The process still holds what earlier tests have freed, so take that, too.
        for (std::size_t size = 1 << 20; size >= 1 << 10; size /= 2)
            while (std::malloc(size) != nullptr) continue;
        std::free(left);
        const auto answer = check();
        setrlimit(RLIMIT_AS, &usual);
        if (__gcov_exit) __gcov_exit();
        _exit(answer);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
