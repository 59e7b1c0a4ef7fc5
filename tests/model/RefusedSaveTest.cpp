// SPDX-License-Identifier: MIT
#include <csignal>

#include "RefusedCalls.h"

// The operating system refuses one of the last steps of a save. Linux only.

namespace {

enum Answer { savedAlone, keptAlone, lost, left, lied };

// Saves over an old file.
int save() {
    const TempFolder folder;
    const auto file = writeBytes(folder / "XST.txt", "old");
    clsNavSchemes scheme;
    scheme.Add(makeNode(1, 0));
    const bool answer = scheme.SaveData(file);
    const auto now = bytesOf(file);
    const bool isNew = now.find("\n1,") != std::string::npos;
    if (!isNew && now != "old") return lost;
    if (isNew != answer) return lied;
    if (folder.names() != Rows{"XST.txt"}) return left;
    return isNew ? savedAlone : keptAlone;
}

constexpr auto meaning = "1: kept, 2: lost the old file, 3: left something behind, 4: answered what is not so";

}  // namespace

TEST(RefusedSave, SavesIfNothingIsRefused) {
    EXPECT_EQ(save(), savedAlone) << meaning;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left behind";
}

// The bytes might be lost when the power fails.
TEST(RefusedSave, KeepsTheOldFileIfTheDiskDoesNotTakeTheBytes) {
    for (const int error : {EIO, ENOSPC, EDQUOT, ESTALE, ETIMEDOUT}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
        EXPECT_EQ(answer, keptAlone) << meaning << "; error " << error;
    }
}

TEST(RefusedSave, SavesIfTheDiskCannotBeAskedForTheBytes) {
    for (const int error : {EINVAL, EROFS, ENOSYS, EOPNOTSUPP}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
        EXPECT_EQ(answer, savedAlone) << meaning << "; error " << error;
    }
}

namespace {

// Saves over an old file while closing any file reports an error.
int saveWithFailingClose() {
    const TempFolder folder;
    const auto file = writeBytes(folder / "XST.txt", "old");
    clsNavSchemes scheme;
    scheme.Add(makeNode(1, 0));
    if (!refuseCall(SYS_close, EIO)) return cannotRefuse;
    const bool saved = scheme.SaveData(file);
    const auto now = bytesOf(file);
    if (saved != (now.find("\n1,") != std::string::npos)) return lied;
    if (!saved && now != "old") return lost;
    return saved ? savedAlone : keptAlone;
}

}  // namespace

// If the disk cannot be asked, only closing the file tells whether the bytes are there.
TEST(RefusedSave, KeepsTheOldFileIfTheDiskCannotBeAskedAndClosingFails) {
    const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, EINVAL, saveWithFailingClose);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, SavesIfClosingFailsAfterTheDiskTookTheBytes) {
    const auto answer = withoutCalls({}, 0, saveWithFailingClose);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, savedAlone) << meaning;
}

TEST(RefusedSave, SavesIfNoMoreProcessesCanBeStarted) {
    const auto answer = withoutCalls(newProcesses, EAGAIN, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, savedAlone) << meaning;
}

TEST(RefusedSave, KeepsTheOldFileIfTheNewOneGetsNoName) {
    const auto answer = withoutCalls({SYS_linkat}, EPERM, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, KeepsTheOldFileIfItCannotBeReplaced) {
    const auto answer = withoutCalls(renames, EACCES, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, KeepsTheOldFileIfAFileWithANameCannotReplaceIt) {
    const auto answer = withoutCalls(renames, EACCES, []() -> int {
        if (!refuseUnnamedFiles()) return cannotRefuse;
        return save();
    });
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

// A folder in which files may be created, but not replaced or removed.
TEST(RefusedSave, SaysSoIfNothingCanBeReplacedOrRemoved) {
    std::vector<long> calls = renames;
    calls.insert(calls.end(), removals.begin(), removals.end());
    const auto answer = withoutCalls(calls, EACCES, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the operating system cannot refuse single calls";
    EXPECT_EQ(answer, left) << meaning;
}

// Some programs ignore this signal and start others, which then ignore it, too.
TEST(RefusedSave, SavesIfEndsOfProcessesAreNotReported) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    const auto answer = save();
    std::signal(SIGCHLD, before);
    EXPECT_EQ(answer, savedAlone) << meaning;
}
