// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <iostream>
#include <random>
#include <thread>

#include "RefusedCalls.h"

// The process ends at a random moment of a save: the file is then the old one or the new one, whole. Linux only.

namespace {

using Clock = std::chrono::steady_clock;

enum class Names { later, atOnce };

// Whether files can be written there before they have a name.
bool hasUnnamedFiles(const std::filesystem::path& folder) {
    const int file = open(folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
    if (file >= 0) close(file);
    return file >= 0;
}

int statusOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return status;
}

using Watch = std::function<int(pid_t)>;

// Leaves it alone.
int toItsEnd(pid_t process) {
    ptrace(PTRACE_DETACH, process, nullptr, nullptr);
    return statusOf(process);
}

Watch killedAfter(Clock::duration life) {
    return [life](pid_t process) {
        ptrace(PTRACE_DETACH, process, nullptr, nullptr);
        std::this_thread::sleep_for(life);
        kill(process, SIGKILL);
        return statusOf(process);
    };
}

// Before and after a call of the system are two steps.
Watch killedAtStep(int step) {
    return [step](pid_t process) {
        std::uintptr_t signal = 0;
        for (int i = 0; i < step; ++i) {
            ptrace(PTRACE_SYSCALL, process, nullptr, signal);
            const int status = statusOf(process);
            if (!WIFSTOPPED(status)) return status;
            signal = WSTOPSIG(status) == SIGTRAP ? 0 : static_cast<std::uintptr_t>(WSTOPSIG(status));
        }
        kill(process, SIGKILL);
        return statusOf(process);
    };
}

// Saves in a process of its own, watched from the beginning of the save.
// @return whether it came to its end
bool saveInAProcess(const clsWebSchemes& scheme, const std::filesystem::path& file, Names names, const Watch& watch) {
    int alive[2];
    EXPECT_EQ(pipe(alive), 0);
    const auto child = fork();
    if (child == 0) {
        if (names == Names::atOnce && !refuseCall(SYS_openat, EOPNOTSUPP, O_TMPFILE & ~O_DIRECTORY)) _exit(2);
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(3);
        raise(SIGSTOP);
        _exit(scheme.SaveData(file) ? 0 : 1);
    }
    close(alive[1]);
    EXPECT_TRUE(WIFSTOPPED(statusOf(child))) << "no save has begun";
    const int status = watch(child);
    char none = 0;
    EXPECT_EQ(read(alive[0], &none, 1), 0) << "waits for a process that the save has left to its end";
    close(alive[0]);
    EXPECT_TRUE(WIFSIGNALED(status) || status == 0) << "a save that nobody stopped has failed";
    return !WIFSIGNALED(status);
}

// A folder with a saved file and with files of others, in which saves are stopped.
class Killed {
  public:
    explicit Killed(Names names, int records) : names_(names) {
        for (const auto& name : others) writeBytes(folder_ / name, "not ours");
        for (int version = 0; version < 2; ++version) {
            for (int id = 1; id <= records; ++id)
                versions_[version].Add(makeParagraph(id, 1, id, std::string(1'000, version == 0 ? 'a' : 'b')));
            bytes_[version] = savedBytes(versions_[version]);
        }
        const auto start = Clock::now();
        EXPECT_TRUE(saveInAProcess(versions_[0], file_, names, toItsEnd));
        wholeSave = Clock::now() - start;
    }

    // Saves the other version.
    // @return whether that came to its end
    bool save(const Watch& watch) {
        const int next = 1 - current_;
        const bool ended = saveInAProcess(versions_[next], file_, names_, watch);
        const auto now = bytesOf(file_);
        isNew = now == bytes_[next];
        EXPECT_TRUE(isNew || now == bytes_[current_]) << "neither old nor new, but " << now.size() << " bytes";
        EXPECT_TRUE(isNew || !ended) << "a save that came to its end has changed nothing";
        if (isNew) current_ = next;
        ++(isNew ? replaced : kept);
        killed += ended ? 0 : 1;
        lookAtWhatIsLeft(ended ? 0 : 1);
        return ended;
    }

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_.path(); }

    Clock::duration wholeSave{};
    bool isNew = false;  // what the last save has left
    int killed = 0;
    int replaced = 0;
    int kept = 0;
    int leftWhole = 0;
    int leftInPieces = 0;

  private:
    // Removes it, so that the folder stays small.
    void lookAtWhatIsLeft(std::size_t most) {
        auto left = folder_.names();
        for (const auto& name : others) {
            EXPECT_EQ(std::erase(left, name), 1U) << name << " is gone";
            EXPECT_EQ(bytesOf(folder_ / name), "not ours");
        }
        EXPECT_EQ(std::erase(left, "XST2.txt"), 1U);
        EXPECT_LE(left.size(), most) << "of one save";
        for (const auto& name : left) {
            const auto now = bytesOf(folder_ / name);
            ++(now == bytes_[0] || now == bytes_[1] ? leftWhole : leftInPieces);
            std::filesystem::remove(folder_ / name);
        }
    }

    const Names names_;
    // Names as those of files that are being made.
    const Rows others = {".XST2.txt", "XST2.txt.AbCdEf", "XST2.txt.tmp", "XST2.txt~"};
    TempFolder folder_;
    const std::filesystem::path file_ = folder_ / "XST2.txt";
    clsWebSchemes versions_[2];
    std::string bytes_[2];
    int current_ = 0;
};

#ifdef WIZARD_SANITIZED
constexpr int kills = 30;
#else
constexpr int kills = 300;
#endif

// So many records are handed to the system in several pieces.
constexpr int severalPieces = 5'000;

// Kills so many saves, each at a random moment.
void killAtRandom(Killed& saves) {
    auto whole = saves.wholeSave;
    std::mt19937 random(1);
    for (int attempt = 0; saves.killed < kills && attempt < 20 * kills; ++attempt) {
        const auto life = whole * std::uniform_int_distribution<int>(0, 1300)(random) / 1000;
        saves.save(killedAfter(life));
        if (testing::Test::HasFailure()) break;
        // The machine may be faster or slower than it was.
        if (saves.isNew)
            whole = whole * 98 / 100;
        else if (life > whole)
            whole = whole * 110 / 100;
    }
    EXPECT_EQ(saves.killed, kills) << "saves are over too quickly to be killed";
    EXPECT_GT(saves.replaced, 0);
    EXPECT_GT(saves.kept, kills / 4) << "most kills come too late";
    std::cout << saves.killed << " kills have left " << saves.leftWhole + saves.leftInPieces << " more files\n";
}

// Kills a save at its first step, one at its second and so on, until one comes to its end.
void killAtEachStep(Killed& saves) {
    for (int step = 0; !saves.save(killedAtStep(step)); ++step)
        if (testing::Test::HasFailure()) break;
    EXPECT_GT(saves.replaced, 1) << "none was killed after the old file was replaced";
    EXPECT_GT(saves.kept, 10);
    std::cout << saves.killed << " kills have left " << saves.leftWhole + saves.leftInPieces << " more files\n";
}

}  // namespace

TEST(KilledSave, AtAnyTimeLeavesTheOldFileOrTheNewOne) {
    Killed saves(Names::later, severalPieces);
    if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
    killAtRandom(saves);
    EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0);
}

TEST(KilledSave, AtEachStepLeavesTheOldFileOrTheNewOne) {
    Killed saves(Names::later, 10);
    if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
    killAtEachStep(saves);
    EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0);
}

// Each save looks for itself that it has left one more file at most.
TEST(KilledSave, AtAnyTimeWhereFilesAlwaysHaveNames) {
    Killed saves(Names::atOnce, severalPieces);
    killAtRandom(saves);
    EXPECT_GT(saves.leftInPieces, 0) << "files had no names while they were written";
}

TEST(KilledSave, AtEachStepWhereFilesAlwaysHaveNames) {
    Killed saves(Names::atOnce, 10);
    killAtEachStep(saves);
    EXPECT_GT(saves.leftInPieces, 0) << "files had no names while they were written";
}
