// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

// Other programs, started without a shell, so that nothing needs quoting.

using Command = std::vector<std::string>;

/// Who a program runs as. PostgreSQL refuses to run as root: Unprivileged then stands for the user "postgres", or
/// "nobody" where there is none; for everybody else it changes nothing.
enum class As { Caller, Unprivileged };

/// Makes a folder "server" in this one, and gives it to the user that As::Unprivileged stands for. Returns its path.
[[nodiscard]] std::filesystem::path folderOfTheServer(const std::filesystem::path& folder);

struct Finished {
    int code;  // the exit code; -1 when a signal ended the program
    std::string out;
    std::string err;
};

/// Runs a program with these bytes as its input and waits for its end. It leaves nothing behind.
[[nodiscard]] Finished run(const Command& command, const std::string& input = {}, As as = As::Caller);

/// A program that runs on until it is stopped: by the destructor, or by the operating system when this process dies.
class Background {
  public:
    /// Its messages go into the file `log`.
    Background(const Command& command, const std::filesystem::path& log, As as);
    /// Sends SIGINT, and SIGKILL if that does not end it within ten seconds.
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    [[nodiscard]] bool runs();

  private:
    pid_t id_ = -1;
};

/// Whether a program of this name can be started.
[[nodiscard]] bool isInstalled(const std::string& program);
