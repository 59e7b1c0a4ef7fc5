// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <vector>

#include "Faults.h"

// Makes the operating system refuse single calls, as faulty disks and strange file systems do. Linux only.

/// From now on, the system call of this number fails with `error` in this process and in those that it starts:
/// always, or only if its third argument has one of `flags`.
/// @return whether the operating system can refuse calls
inline bool refuseCall(long number, int error, std::uint32_t flags = 0) {
    const auto call = static_cast<std::uint32_t>(number);
    const auto answer = SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error);
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, flags == 0 ? ~0U : flags, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, answer),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    if (flags == 0) steps[2] = BPF_STMT(BPF_LD | BPF_IMM, 1);
    const sock_fprog program{static_cast<unsigned short>(std::size(steps)), steps};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// The same for files without a name, which some file systems do not have.
inline bool refuseUnnamedFiles() {
    return refuseCall(SYS_openat, EOPNOTSUPP, O_TMPFILE & ~O_DIRECTORY);
}

/// The system calls of each kind; which of them exist depends on the machine.
constexpr std::initializer_list<long> renames = {
#ifdef SYS_rename
    SYS_rename,
#endif
    SYS_renameat, SYS_renameat2};
constexpr std::initializer_list<long> removals = {
#ifdef SYS_unlink
    SYS_unlink,
#endif
    SYS_unlinkat};
constexpr std::initializer_list<long> newProcesses = {
#ifdef SYS_vfork
    SYS_vfork, SYS_fork,
#endif
    SYS_clone};

constexpr int cannotRefuse = 76;

/// Runs `check` in a process of its own for which the operating system refuses these calls.
/// @return what it answers, `cannotRefuse` if the operating system cannot do that, -1 if it crashes
inline int withoutCalls(const std::vector<long>& calls, int error, const std::function<int()>& check) {
    const auto child = fork();
    if (child == 0) {
        for (const auto call : calls)
            if (!refuseCall(call, error)) _exit(cannotRefuse);
        const auto answer = check();
        if (__gcov_exit) __gcov_exit();
        _exit(answer);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
