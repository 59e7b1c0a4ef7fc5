// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>
#include <string>

#include "model/FileSteps.h"

namespace {

// Some file systems report a failed write only when the file is closed.
// @return whether closing it would succeed; it stays open
bool canBeClosed(int file) {
    const int another = fcntl(file, F_DUPFD_CLOEXEC, 0);
    return another >= 0 && close(another) == 0;
}

// The mode for a file that could not be given its old group: the new group gets no more rights than everybody has.
mode_t withoutItsGroup(mode_t mode) {
    const mode_t everybody = mode & 07U;
    return (mode & 0707U) | (mode & everybody << 3U & 070U);
}

}  // namespace

bool isOnDisk(int file) {
    while (fsync(file) != 0) {
        if (errno == EINTR) continue;
        const bool nobodyKnows = errno == EINVAL || errno == EROFS || errno == ENOSYS || errno == EOPNOTSUPP;
        return nobodyKnows && canBeClosed(file);
    }
    return true;
}

// Setting the group may clear bits of the mode, so it comes first.
void takeOver(int newFile, const std::filesystem::path& file) {
    struct stat old {};
    if (stat(file.c_str(), &old) != 0) return;
    const bool hasItsGroup = fchown(newFile, static_cast<uid_t>(-1), old.st_gid) == 0;
    static_cast<void>(fchmod(newFile, hasItsGroup ? old.st_mode & 07777U : withoutItsGroup(old.st_mode)));
}

// Linux needs two steps for this: the new file has a name of its own for a moment. A separate process takes both
// steps, so they are both taken even if this process is killed. It borrows the memory of this process, which waits
// for it, so it costs almost no time; it makes system calls and does nothing else.
bool replaceFromAnotherProcess(int newFile, const std::filesystem::path& file) {
    std::error_code error;
    const auto place = std::filesystem::canonical(file, error).native();
    struct stat state {};
    if (error || fstat(newFile, &state) != 0 || state.st_nlink != 0) return false;
    const auto self = "/proc/self/fd/" + std::to_string(newFile);
    const auto name = place + '.' + std::to_string(100'000 + std::random_device()() % 900'000);
    const auto process = vfork();
    if (process == 0) {
        setsid();  // so that a signal to all processes of the terminal does not reach it
        if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0 &&
            std::rename(name.c_str(), place.c_str()) != 0)
            unlink(name.c_str());
        _exit(0);
    }
    if (process > 0) waitpid(process, nullptr, 0);
    return std::filesystem::equivalent(self, place, error);
}
