// SPDX-License-Identifier: MIT
// Starts a program on the X server, prints the milliseconds until its first window of at least the size of a dialog
// is visible, and ends the program.
//   first_window PROGRAM [ARGUMENT...]
#include <X11/Xlib.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

constexpr int longest = 30'000;  // ms
constexpr int look = 100;        // ms between two checks whether the program has ended
constexpr int leastWidth = 150;  // pixels

// @return whether this event says that a window of that size is visible
bool shows(Display* display, const XEvent& event) {
    XWindowAttributes window;
    return event.type == MapNotify && XGetWindowAttributes(display, event.xmap.window, &window) != 0 &&
           window.width >= leastWidth && window.map_state == IsViewable;
}

bool hasEnded(pid_t program) {
    siginfo_t end{};
    return waitid(P_PID, static_cast<id_t>(program), &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid != 0;
}

bool waitForWindow(Display* display, pid_t program) {
    pollfd connection{ConnectionNumber(display), POLLIN, 0};
    for (int waited = 0; waited < longest && !hasEnded(program);) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (shows(display, event)) return true;
        }
        if (poll(&connection, 1, look) == 0) waited += look;
    }
    return false;
}

}  // namespace

int main(int argc, char* argv[]) {
    auto* display = XOpenDisplay(nullptr);
    if (argc < 2 || !display) {
        std::fputs("first_window: needs a program, and an X server\n", stderr);
        return 1;
    }
    // A window may be gone before its size is read.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);
    const auto start = std::chrono::steady_clock::now();
    const auto program = fork();
    if (program == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    const bool shown = waitForWindow(display, program);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    if (!shown) return 1;
    std::printf("%.1f\n", took.count());
}
