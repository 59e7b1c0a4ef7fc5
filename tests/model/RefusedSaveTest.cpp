// SPDX-License-Identifier: MIT
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
    if (isNew != answer) return lied;
    if (folder.names() != Rows{"XST.txt"}) return left;
    return isNew ? savedAlone : keptAlone;
}

constexpr auto meaning = "1: kept, 2: lost the old file, 3: left something behind, 4: answered what is not so";

}  // namespace

TEST(RefusedSave, NothingRefusedSaves) {
    EXPECT_EQ(save(), savedAlone) << meaning;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
}

// The bytes may not be there when the power fails.
TEST(RefusedSave, TheDiskDoesNotTakeTheBytesKeepsTheOldFile) {
    for (const int error : {EIO, ENOSPC, EDQUOT, ESTALE, ETIMEDOUT}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
        EXPECT_EQ(answer, keptAlone) << meaning << "; error " << error;
    }
}

TEST(RefusedSave, NobodyCanTellWhetherTheDiskHasTheBytesSaves) {
    for (const int error : {EINVAL, EROFS, ENOSYS, EOPNOTSUPP}) {
        const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, error, save);
        if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
        EXPECT_EQ(answer, savedAlone) << meaning << "; error " << error;
    }
}

namespace {

// Saves over an old file where every file that is closed reports an error.
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

// Where the disk cannot be asked, closing the file is what tells.
TEST(RefusedSave, AFailedCloseAfterNobodyCouldTellKeepsTheOldFile) {
    const auto answer = withoutCalls({SYS_fsync, SYS_fdatasync}, EINVAL, saveWithFailingClose);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

TEST(RefusedSave, AFailedCloseAfterTheDiskTookTheBytesSaves) {
    const auto answer = withoutCalls({}, 0, saveWithFailingClose);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, savedAlone) << meaning;
}

TEST(RefusedSave, NoMoreProcessesSaves) {
    const auto answer = withoutCalls(newProcesses, EAGAIN, save);
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
        if (!refuseUnnamedFiles()) return cannotRefuse;
        return save();
    });
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, keptAlone) << meaning;
}

// A folder to which files may be added, but in which none may be replaced or removed.
TEST(RefusedSave, NeitherReplacementNorRemovalSaysSo) {
    std::vector<long> calls = renames;
    calls.insert(calls.end(), removals.begin(), removals.end());
    const auto answer = withoutCalls(calls, EACCES, save);
    if (answer == cannotRefuse) GTEST_SKIP() << "the system refuses no single calls";
    EXPECT_EQ(answer, left) << meaning;
}

// Some programs start others like this.
TEST(RefusedSave, EndsOfProcessesAreNotToldSaves) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    const auto answer = save();
    std::signal(SIGCHLD, before);
    EXPECT_EQ(answer, savedAlone) << meaning;
}
