// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include "Helpers.h"

// The process ends at a random moment of a save: the file is then the old one or the new one, whole. Linux only.

namespace {

using Clock = std::chrono::steady_clock;

// Whether files can be written there before they have a name.
bool hasUnnamedFiles(const std::filesystem::path& folder) {
    const int file = open(folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
    if (file >= 0) close(file);
    return file >= 0;
}

// Saves in a process of its own, which lives no longer than this from the beginning of the save.
// @return whether it had to be killed
bool saveAndKill(clsWebSchemes& scheme, const std::filesystem::path& file, Clock::duration life) {
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    const auto child = fork();
    if (child == 0) {
        char begins = 1;
        if (write(ready[1], &begins, 1) != 1) _exit(1);
        static_cast<void>(scheme.SaveData(file));
        _exit(0);
    }
    char begins = 0;
    EXPECT_EQ(read(ready[0], &begins, 1), 1);
    close(ready[0]);
    close(ready[1]);
    std::this_thread::sleep_for(life);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

}  // namespace

TEST(KilledSave, LeavesTheOldFileOrTheNewOne) {
#ifdef WIZARD_SANITIZED
    constexpr int kills = 30;
#else
    constexpr int kills = 300;
#endif
    TempFolder folder;
    const auto file = folder / "XST2.txt";
    // What others have put there; names as those of files that are being made.
    const Rows others = {".XST2.txt", "XST2.txt.AbCdEf", "XST2.txt.tmp", "XST2.txt~"};
    for (const auto& name : others) writeBytes(folder / name, "not ours");

    clsWebSchemes versions[2];
    std::string bytes[2];
    for (int version = 0; version < 2; ++version) {
        for (int id = 1; id <= 5'000; ++id)
            versions[version].Add(makeParagraph(id, 1, id, std::string(1'000, version == 0 ? 'a' : 'b')));
        bytes[version] = savedBytes(versions[version]);
        ASSERT_GT(bytes[version].size(), std::size_t{4} << 20) << "several pieces are handed to the system";
    }
    const auto start = Clock::now();
    ASSERT_TRUE(versions[0].SaveData(file));
    const auto wholeSave = Clock::now() - start;

    std::mt19937 random(1);
    int current = 0;
    int killed = 0;
    int replaced = 0;
    int keptByAKill = 0;
    for (int attempt = 0; killed < kills && attempt < 20 * kills; ++attempt) {
        const auto life = wholeSave * std::uniform_int_distribution<int>(0, 1300)(random) / 1000;
        const bool wasKilled = saveAndKill(versions[1 - current], file, life);
        const auto now = bytesOf(file);
        if (now == bytes[1 - current]) {
            current = 1 - current;
            ++replaced;
        } else {
            ASSERT_TRUE(wasKilled) << "a save that came to its end has changed nothing";
            ASSERT_TRUE(now == bytes[current]) << "neither old nor new, but " << now.size() << " bytes";
            ++keptByAKill;
        }
        killed += wasKilled ? 1 : 0;
    }
    EXPECT_EQ(killed, kills) << "saves are over too quickly to be killed";
    EXPECT_GT(replaced, 0);
    EXPECT_GT(keptByAKill, kills / 4) << "most kills come too late";

    auto left = folder.names();
    for (const auto& name : others) {
        EXPECT_EQ(std::erase(left, name), 1U) << name << " is gone";
        EXPECT_EQ(bytesOf(folder / name), "not ours");
    }
    EXPECT_EQ(std::erase(left, "XST2.txt"), 1U);
    EXPECT_LE(left.size(), static_cast<std::size_t>(killed)) << "at most one a kill";
    std::cout << killed << " kills have left " << left.size() << " more files" << std::endl;
    // A file without a name leaves nothing while it is written. To take the place of another it needs a name for a
    // moment, and then it is whole.
    if (!hasUnnamedFiles(folder.path())) return;
    EXPECT_LE(left.size(), static_cast<std::size_t>(killed) / 10 + 1) << "almost no kill leaves anything";
    for (const auto& name : left) {
        const auto now = bytesOf(folder / name);
        EXPECT_TRUE(now == bytes[0] || now == bytes[1]) << name;
    }
}
