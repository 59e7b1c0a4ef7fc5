// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>

#include "RefusedCalls.h"

// The system refuses one of the last steps of a save. Linux only.

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
    if (folder.names() != Rows{"XST.txt"}) return left;
    if (isNew != answer) return lied;
    return isNew ? savedAlone : keptAlone;
}

#ifdef SYS_rename
constexpr auto renames = {long{SYS_rename}, long{SYS_renameat}, long{SYS_renameat2}};
#else
constexpr auto renames = {long{SYS_renameat}, long{SYS_renameat2}};
#endif

#ifdef SYS_fork
constexpr auto forks = {long{SYS_fork}, long{SYS_clone}};
#else
constexpr auto forks = {long{SYS_clone}};
#endif

constexpr auto meaning = "1: kept, 2: lost the old file, 3: left something behind, 4: told what is not so";

}  // namespace

TEST(RefusedSave, NothingRefusedSaves) {
    EXPECT_EQ(save(), savedAlone) << meaning;
}

// The bytes may not be there when the power fails.
TEST(RefusedSave, TheDiskDoesNotTakeTheBytesKeepsTheOldFile) {
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
        EXPECT_EQ(answer, keptAlone) << meaning << "; error " << error;
    }
}

TEST(RefusedSave, NobodyCanTellWhetherTheDiskHasTheBytesSaves) {
    for (const int error : {EINVAL, EROFS, ENOSYS}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
        EXPECT_EQ(answer, savedAlone) << meaning << "; error " << error;
    }
}

TEST(RefusedSave, NoMoreProcessesSaves) {
    const auto answer = withoutCalls(forks, EAGAIN, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, savedAlone) << meaning;
}

TEST(RefusedSave, NoNameForTheNewFileKeepsTheOldOne) {
    const auto answer = withoutCalls({SYS_linkat}, EPERM, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, NoReplacementKeepsTheOldFile) {
    const auto answer = withoutCalls(renames, EACCES, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, NoReplacementByAFileWithANameKeepsTheOldFile) {
    const auto answer = withoutCalls(renames, EACCES, []() -> int {
        if (!refuseCall(SYS_openat, EOPNOTSUPP, O_TMPFILE & ~O_DIRECTORY)) return cannotRefuse;
        return save();
    });
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

// Some programs start others like this.
TEST(RefusedSave, EndsOfProcessesAreNotToldSaves) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    const auto answer = save();
    std::signal(SIGCHLD, before);
    EXPECT_EQ(answer, savedAlone) << meaning;
}
