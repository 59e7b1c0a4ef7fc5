// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/ptrace.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <iostream>
#include <random>
#include <thread>

#include "RefusedCalls.h"

// The process is killed during a save: the file is then the whole old one or the whole new one. Linux only.

namespace {

using Clock = std::chrono::steady_clock;

enum class Names { later, atOnce };

// Whether a file in this folder can be written before it has a name.
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

// What to do with the process of a save, which stops itself before the save. `watch` returns its final status.
struct Watch {
    bool traces;
    std::function<int(pid_t)> watch;
};

const Watch toItsEnd{false, [](pid_t process) {
                         kill(process, SIGCONT);
                         return statusOf(process);
                     }};

// Every kill hits the whole process group: also the processes that the save has started, unless they left the group.
Watch killedAfter(Clock::duration life) {
    return {false, [life](pid_t process) {
                kill(process, SIGCONT);
                std::this_thread::sleep_for(life);
                kill(-process, SIGKILL);
                return statusOf(process);
            }};
}

// Lets the process go on to its next step; the beginning and the end of a system call are one step each.
// @return its status there
int step(pid_t process, int status) {
    const int signal = WIFSTOPPED(status) && (WSTOPSIG(status) & 0x7f) != SIGTRAP ? WSTOPSIG(status) : 0;
    ptrace(PTRACE_SYSCALL, process, nullptr, static_cast<std::uintptr_t>(signal == SIGSTOP ? 0 : signal));
    return statusOf(process);
}

Watch killedAtStep(int last) {
    return {true, [last](pid_t process) {
                int status = 0;
                for (int i = 0; i < last; ++i) {
                    status = step(process, status);
                    if (!WIFSTOPPED(status)) return status;
                }
                kill(-process, SIGKILL);
                return statusOf(process);
            }};
}

// Counts the steps of the process that the save starts.
Watch killedAtStepOfItsProcess(int last) {
    return {true, [last](pid_t process) {
                ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACEVFORK | PTRACE_O_TRACEFORK);
                ptrace(PTRACE_CONT, process, nullptr, nullptr);
                int status = statusOf(process);
                unsigned long started = 0;
                if (!WIFSTOPPED(status) || ptrace(PTRACE_GETEVENTMSG, process, nullptr, &started) != 0) return status;
                const auto helper = static_cast<pid_t>(started);
                int helped = statusOf(helper);
                for (int i = 0; i < last && WIFSTOPPED(helped); ++i) helped = step(helper, helped);
                if (WIFSTOPPED(helped)) {
                    kill(-process, SIGKILL);
                    ptrace(PTRACE_DETACH, helper, nullptr, nullptr);
                    statusOf(helper);
                } else {
                    ptrace(PTRACE_DETACH, process, nullptr, nullptr);
                }
                return statusOf(process);
            }};
}

bool canTrace() {
    const auto child = fork();
    if (child == 0) _exit(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : 1);
    return statusOf(child) == 0;
}

// Saves in a process of its own, watched from the beginning of the save.
// @return whether the save finished
bool saveInAProcess(const clsWebSchemes& scheme, const std::filesystem::path& file, Names names, const Watch& watch) {
    int alive[2];
    EXPECT_EQ(pipe(alive), 0);
    const auto child = fork();
    if (child == 0) {
        setpgid(0, 0);
        if (names == Names::atOnce && !refuseUnnamedFiles()) _exit(2);
        if (watch.traces) ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        _exit(scheme.SaveData(file) ? 0 : 1);
    }
    close(alive[1]);
    int status = 0;
    waitpid(child, &status, WUNTRACED);
    EXPECT_TRUE(WIFSTOPPED(status)) << "the save has not begun";
    if (WIFSTOPPED(status)) status = watch.watch(child);
    char none = 0;
    EXPECT_EQ(read(alive[0], &none, 1), 0) << "waits until no process of the save is left";
    close(alive[0]);
    EXPECT_TRUE(WIFSIGNALED(status) || status == 0) << "a save that nobody stopped has failed";
    return !WIFSIGNALED(status);
}

// A folder with a saved file and files of other programs, in which saves are killed.
class Killed {
  public:
    Killed(Names names, int records, const std::filesystem::path& place = placeForFolders())
        : names_(names), folder_(place) {
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
    // @return whether the save finished
    bool save(const Watch& watch) {
        const int next = 1 - current_;
        const bool ended = saveInAProcess(versions_[next], file_, names_, watch);
        const auto now = bytesOf(file_);
        isNew = now == bytes_[next];
        EXPECT_TRUE(isNew || now == bytes_[current_]) << "neither old nor new, but " << now.size() << " bytes";
        EXPECT_TRUE(isNew || !ended) << "a finished save has changed nothing";
        if (isNew) current_ = next;
        ++(isNew ? replaced : kept);
        killed += ended ? 0 : 1;
        lookAtWhatIsLeft(ended ? 0 : 1);
        return ended;
    }

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_.path(); }

    Clock::duration wholeSave{};
    bool isNew = false;  // whether the last save left the new version
    int killed = 0;
    int replaced = 0;
    int kept = 0;
    int leftWhole = 0;
    int leftInPieces = 0;

  private:
    // Also removes it, so that the folder stays small.
    void lookAtWhatIsLeft(std::size_t most) {
        auto left = folder_.names();
        for (const auto& name : others) {
            EXPECT_EQ(std::erase(left, name), 1U) << name << " is gone";
            EXPECT_EQ(bytesOf(folder_ / name), "not ours");
        }
        EXPECT_EQ(std::erase(left, "XST2.txt"), 1U);
        EXPECT_LE(left.size(), most) << "left by one save";
        for (const auto& name : left) {
            const auto now = bytesOf(folder_ / name);
            ++(now == bytes_[0] || now == bytes_[1] ? leftWhole : leftInPieces);
            std::filesystem::remove(folder_ / name);
        }
    }

    const Names names_;
    // Names like those of unfinished files.
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
constexpr int kills = 100;  // AtEachStep kills at every step once
#endif

// This many records reach the operating system in several pieces.
constexpr int severalPieces = 5'000;

// Kills this many saves, each at a random moment.
void killAtRandom(Killed& saves, int wanted) {
    auto whole = saves.wholeSave;
    std::mt19937 random(1);
    // A disk that has become slower since the first save needs more of them.
    const auto isEnough = [&] { return saves.killed >= wanted && saves.replaced > 0; };
    for (int attempt = 0; !isEnough() && attempt < 20 * wanted; ++attempt) {
        const auto life = whole * std::uniform_int_distribution<int>(0, 1300)(random) / 1000;
        saves.save(killedAfter(life));
        if (testing::Test::HasFailure()) break;
        // The machine may be faster or slower than it was.
        if (saves.isNew)
            whole = whole * 98 / 100;
        else if (life > whole)
            whole = whole * 110 / 100;
    }
    EXPECT_GE(saves.killed, wanted) << "saves are over too quickly to be killed";
    EXPECT_GT(saves.replaced, 0);
    EXPECT_GT(saves.kept, wanted / 4) << "most kills come too late";
    std::cout << saves.killed << " kills have left " << saves.leftWhole + saves.leftInPieces << " more files\n";
}

// Kills a save at its first step, one at its second and so on, until one finishes.
void killAtEachStep(Killed& saves, Watch (*killedAt)(int)) {
    for (int step = 0; !saves.save(killedAt(step)); ++step)
        if (testing::Test::HasFailure()) break;
    EXPECT_GT(saves.replaced, 1) << "none was killed after the old file was replaced";
    EXPECT_GT(saves.kept, 1);
    std::cout << saves.killed << " kills have left " << saves.leftWhole + saves.leftInPieces << " more files\n";
}

// In memory and on a disk.
std::vector<std::filesystem::path> places() {
    std::vector<std::filesystem::path> places = {placeForFolders()};
    if (std::filesystem::temp_directory_path() != places[0]) places.push_back(std::filesystem::temp_directory_path());
    return places;
}

bool canRefuse() {
    return withoutCalls({SYS_sync}, EPERM, [] { return 0; }) == 0;
}

}  // namespace

TEST(KilledSave, AtAnyTimeLeavesTheOldFileOrTheNewOne) {
    Killed saves(Names::later, severalPieces);
    if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
    killAtRandom(saves, kills);
    EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0);
}

TEST(KilledSave, OnADiskLeavesTheOldFileOrTheNewOne) {
    Killed saves(Names::later, severalPieces, std::filesystem::temp_directory_path());
    if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
    killAtRandom(saves, kills / 5);
    EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0);
}

TEST(KilledSave, AtEachStepLeavesTheOldFileOrTheNewOne) {
    if (!canTrace()) GTEST_SKIP() << "processes may not be traced here";
    for (const auto& place : places()) {
        Killed saves(Names::later, 10, place);
        if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
        killAtEachStep(saves, killedAtStep);
        EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0) << place;
    }
}

TEST(KilledSave, WhileTheOldFileIsReplacedLeavesTheOldFileOrTheNewOne) {
    if (!canTrace()) GTEST_SKIP() << "processes may not be traced here";
    for (const auto& place : places()) {
        Killed saves(Names::later, 10, place);
        if (!hasUnnamedFiles(saves.folder())) GTEST_SKIP() << "files always have names there";
        killAtEachStep(saves, killedAtStepOfItsProcess);
        EXPECT_EQ(saves.leftWhole + saves.leftInPieces, 0) << place;
    }
}

// After each save, Killed checks that at most one more file is left.
TEST(KilledSave, AtAnyTimeWhereFilesAlwaysHaveNames) {
    if (!canRefuse()) GTEST_SKIP() << "the operating system cannot refuse single calls";
    Killed saves(Names::atOnce, severalPieces);
    killAtRandom(saves, kills);
    EXPECT_GT(saves.leftInPieces, 0) << "files had no names while they were written";
}

TEST(KilledSave, AtEachStepWhereFilesAlwaysHaveNames) {
    if (!canRefuse() || !canTrace()) GTEST_SKIP() << "refusing calls or tracing processes is not possible here";
    for (const auto& place : places()) {
        Killed saves(Names::atOnce, 10, place);
        killAtEachStep(saves, killedAtStep);
        EXPECT_GT(saves.leftInPieces, 0) << "files had no names while they were written";
    }
}
