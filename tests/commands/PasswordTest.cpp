// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

#include "commands/Password.h"
#include "tests/model/Faults.h"

// The password is asked for on a terminal of its own: another process sits at it, and this one types.

namespace {

const std::string prompt = "Password of the database: ";

class Terminal {
  public:
    // Asks twice, and prints the answers: "[first] [second]".
    Terminal() {
        id_ = forkpty(&keyboard_, nullptr, nullptr, nullptr);
        if (id_ != 0) return;
        std::signal(SIGINT, SIG_DFL);  // a process that was started in the background ignores it
        const auto first = askPassword(false);
        const auto second = askPassword(true);
        const auto answers = "[" + first + "] [" + second + "]\n";
        (void)!write(STDOUT_FILENO, answers.data(), answers.size());
        if (__gcov_exit) __gcov_exit();
        _exit(0);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        close(keyboard_);
        if (id_ > 0) waitpid(id_, nullptr, 0);
    }

    void type(const std::string& keys) const {
        ASSERT_EQ(write(keyboard_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    // All that has been shown, once it ends like this.
    std::string shownUntil(const std::string& end) {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!shown_.ends_with(end) && std::chrono::steady_clock::now() < patience) {
            pollfd ready{keyboard_, POLLIN, 0};
            char byte = 0;
            if (poll(&ready, 1, 100) > 0 && read(keyboard_, &byte, 1) == 1) shown_ += byte;
        }
        return shown_;
    }

    [[nodiscard]] bool showsWhatIsTyped() const {
        termios now{};
        EXPECT_EQ(tcgetattr(keyboard_, &now), 0);
        return (now.c_lflag & ECHO) != 0;
    }

    int end() {
        int status = -1;
        waitpid(std::exchange(id_, -1), &status, 0);
        return status;
    }

  private:
    int keyboard_ = -1;
    pid_t id_ = -1;
    std::string shown_;
};

// What the program gets for these keys. Nothing of them is shown.
std::string passwordFor(const std::string& keys) {
    Terminal terminal;
    EXPECT_EQ(terminal.shownUntil(prompt), prompt);
    EXPECT_FALSE(terminal.showsWhatIsTyped());
    terminal.type(keys);
    const auto both = prompt + "\r\nThe database refuses this password.\r\n" + prompt;
    EXPECT_EQ(terminal.shownUntil(both), both);
    terminal.type("another\r");
    const auto shown = terminal.shownUntil("]\r\n");
    EXPECT_TRUE(terminal.showsWhatIsTyped());
    EXPECT_EQ(terminal.end(), 0);
    const auto answer = both + "\r\n[";
    const std::string second = "] [another]\r\n";
    EXPECT_TRUE(shown.starts_with(answer) && shown.ends_with(second)) << shown;
    return shown.substr(answer.size(), shown.size() - answer.size() - second.size());
}

}  // namespace

TEST(Password, IsWhatWasTypedUpToEnter) {
    EXPECT_EQ(passwordFor("open sesame\r"), "open sesame");
    EXPECT_EQ(passwordFor("secret\n"), "secret");
    EXPECT_EQ(passwordFor("Gr\u00FC\u00DFe, \\ \"'$\r"), "Gr\u00FC\u00DFe, \\ \"'$");
    EXPECT_EQ(passwordFor("\r"), "");
}

TEST(Password, CanBeCorrected) {
    EXPECT_EQ(passwordFor("secreT\bt\r"), "secret");
    EXPECT_EQ(passwordFor("secreT\x7Ft\r"), "secret");
    EXPECT_EQ(passwordFor("s\u00E9\u20AC\x7F\x7F"
                          "ecret\r"),
              "secret")
        << "of two and three bytes";
    EXPECT_EQ(passwordFor("a\x7F\x7Fsecret\r"), "secret") << "one more than there is";
    EXPECT_EQ(passwordFor("wrong\x15secret\r"), "secret") << "the line anew";
}

TEST(Password, EndsWithTheInput) {
    EXPECT_EQ(passwordFor("secret\x04"), "secret");
    EXPECT_EQ(passwordFor("\x04"), "");
}

TEST(Password, LeavesTheTerminalAsItWasWhenItIsInterrupted) {
    Terminal terminal;
    terminal.shownUntil(prompt);
    EXPECT_FALSE(terminal.showsWhatIsTyped());
    terminal.type("secr\x03");
    EXPECT_EQ(terminal.shownUntil(prompt + "\r\n"), prompt + "\r\n");
    const int status = terminal.end();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
    EXPECT_TRUE(terminal.showsWhatIsTyped());
}

TEST(Password, IsNotAskedForWhereThereIsNoTerminal) {
    const auto child = fork();
    if (child == 0) {
        setsid();
        const auto password = askPassword(false);
        if (__gcov_exit) __gcov_exit();
        _exit(password.empty() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}
