// SPDX-License-Identifier: MIT
#include "tests/database/Process.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <thread>

#include "tests/model/Helpers.h"

namespace {

constexpr int couldNotStart = 127;

struct Account {
    uid_t user;
    gid_t group;
};

// The user and the group that As::Unprivileged stands for.
Account unprivilegedAccount() {
    if (geteuid() != 0) return {geteuid(), getegid()};
    for (const char* name : {"postgres", "nobody"})
        if (const passwd* entry = getpwnam(name)) return {entry->pw_uid, entry->pw_gid};
    ADD_FAILURE() << "there is no user 'nobody'";
    return {geteuid(), getegid()};
}

// Runs in the new process, so it uses only system calls.
[[noreturn]] void become(std::vector<char*>& words, const std::array<int, 3>& files, const Account* account,
                         bool diesWithParent) {
    for (int i = 0; i < 3; ++i)
        if (dup2(files[static_cast<std::size_t>(i)], i) < 0) _exit(couldNotStart);
    if (account != nullptr &&
        (setgroups(0, nullptr) != 0 || setgid(account->group) != 0 || setuid(account->user) != 0))
        _exit(couldNotStart);
#ifdef __linux__
    // After the change of the user, which would undo this.
    if (diesWithParent && prctl(PR_SET_PDEATHSIG, SIGQUIT) != 0) _exit(couldNotStart);
#else
    (void)diesWithParent;
#endif
    execvp(words[0], words.data());
    _exit(couldNotStart);
}

pid_t start(const Command& command, const std::array<int, 3>& files, As as, bool diesWithParent) {
    std::vector<char*> words;
    for (const auto& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const bool changes = as == As::Unprivileged && geteuid() == 0;
    const Account account = changes ? unprivilegedAccount() : Account{};
    const pid_t id = fork();
    if (id == 0) become(words, files, changes ? &account : nullptr, diesWithParent);
    return id;
}

int open(const std::filesystem::path& file, int how) {
    constexpr int mode = 0600;
    return ::open(file.c_str(), how | O_CLOEXEC, mode);
}

}  // namespace

std::filesystem::path folderOfTheServer(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    auto place = folder / "server";
    const auto account = unprivilegedAccount();
    fs::create_directory(place);
    fs::permissions(folder, fs::perms::others_exec | fs::perms::group_exec, fs::perm_options::add);
    EXPECT_EQ(chown(place.c_str(), account.user, account.group), 0);
    return place;
}

Finished run(const Command& command, const std::string& input, As as) {
    const TempFolder folder;
    const auto in = open(writeBytes(folder / "in", input), O_RDONLY);
    const auto out = open(folder / "out", O_WRONLY | O_CREAT);
    const auto err = open(folder / "err", O_WRONLY | O_CREAT);
    const pid_t id = start(command, {in, out, err}, as, false);
    for (const int file : {in, out, err}) close(file);
    int status = -1;
    if (id < 0 || waitpid(id, &status, 0) != id) status = -1;
    return {status != -1 && WIFEXITED(status) ? WEXITSTATUS(status) : -1, bytesOf(folder / "out"),
            bytesOf(folder / "err")};
}

Background::Background(const Command& command, const std::filesystem::path& log, As as) {
    const auto in = open("/dev/null", O_RDONLY);
    const auto out = open(log, O_WRONLY | O_CREAT | O_APPEND);
    id_ = start(command, {in, out, out}, as, true);
    close(in);
    close(out);
}

Background::~Background() {
    using namespace std::chrono_literals;
    if (id_ > 0) kill(id_, SIGINT);
    for (int i = 0; i < 1000 && runs(); ++i) std::this_thread::sleep_for(10ms);
    if (!runs()) return;
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
}

bool Background::runs() {
    if (id_ > 0 && waitpid(id_, nullptr, WNOHANG) != 0) id_ = -1;
    return id_ > 0;
}

bool isInstalled(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (access((std::filesystem::path(folder) / program).c_str(), X_OK) == 0) return true;
    return false;
}
