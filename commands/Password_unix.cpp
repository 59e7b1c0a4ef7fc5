// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>

#include "commands/Password.h"

namespace {

constexpr char interrupt = 0x03;
constexpr char endOfInput = 0x04;
constexpr char backspace = 0x08;
constexpr char clearLine = 0x15;
constexpr char deleted = 0x7F;

/// The terminal of this process, which until the end of the block shows nothing that is typed, and passes all keys
/// on.
class SilentTerminal {
  public:
    SilentTerminal() : file_(open("/dev/tty", O_RDWR | O_CLOEXEC)) {
        if (file_ < 0 || tcgetattr(file_, &before_) != 0) return;
        auto silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
        isSilent_ = tcsetattr(file_, TCSAFLUSH, &silent) == 0;
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;
    ~SilentTerminal() {
        if (isSilent_) tcsetattr(file_, TCSAFLUSH, &before_);
        if (file_ >= 0) close(file_);
    }

    [[nodiscard]] bool isThere() const { return isSilent_; }
    void print(const std::string& text) const { (void)!write(file_, text.data(), text.size()); }
    [[nodiscard]] bool read(char& key) const { return ::read(file_, &key, 1) == 1; }

  private:
    int file_;
    termios before_{};
    bool isSilent_ = false;
};

// A character of UTF-8 has a first byte, and up to three that begin with the bits 10.
void removeLastCharacter(std::string& line) {
    while (!line.empty() && (static_cast<unsigned char>(line.back()) & 0xC0U) == 0x80U) line.pop_back();
    if (!line.empty()) line.pop_back();
}

// Returns the key that ended it.
char readLine(const SilentTerminal& terminal, std::string& line) {
    char key = endOfInput;
    while (terminal.read(key) && key != '\n' && key != '\r' && key != interrupt && key != endOfInput) {
        if (key == clearLine)
            line.clear();
        else if (key != backspace && key != deleted)
            line += key;
        else
            removeLastCharacter(line);
    }
    return key;
}

}  // namespace

std::string askPassword(bool isAgain) {
    std::string password;
    char end = '\n';
    {
        const SilentTerminal terminal;
        if (!terminal.isThere()) return {};
        if (isAgain) terminal.print("The database refuses this password.\n");
        terminal.print("Password of the database: ");
        end = readLine(terminal, password);
        terminal.print("\n");
    }
    if (end == interrupt) (void)std::raise(SIGINT);  // after the terminal is as it was
    return end == interrupt ? std::string() : password;
}
