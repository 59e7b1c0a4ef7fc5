// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>

#include "tests/model/Helpers.h"

// The file dialogs of Windows on the screen: what they show, and how they are answered.

inline std::string titleOf(HWND window) {
    char title[200] = "";
    GetWindowTextA(window, title, sizeof(title));
    return title;
}

inline std::string classOf(HWND window) {
    char name[100] = "";
    GetClassNameA(window, name, sizeof(name));
    return name;
}

template <class Found>
HWND findChild(HWND window, Found found) {
    struct Search {
        Found& found;
        HWND result;
    } search{found, nullptr};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL {
            auto& here = *reinterpret_cast<Search*>(parameter);
            if (!here.found(child)) return TRUE;
            here.result = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.result;
}

/// A dialog on the screen.
class ShownDialog {
  public:
    explicit ShownDialog(HWND window) : window_(window) {}

    [[nodiscard]] HWND window() const { return window_; }
    [[nodiscard]] HWND control(int number) const {
        return findChild(window_, [number](HWND child) { return GetDlgCtrlID(child) == number; });
    }
    [[nodiscard]] HWND list() const {
        const HWND view = FindWindowExA(window_, nullptr, "SHELLDLL_DefView", nullptr);
        return view ? findChild(view, [](HWND child) { return classOf(child) == WC_LISTVIEWA; }) : nullptr;
    }
    [[nodiscard]] bool showsDetails() const {
        return list() && (GetWindowLongA(list(), GWL_STYLE) & LVS_TYPEMASK) == LVS_REPORT;
    }
    // The names in the list, sorted.
    [[nodiscard]] Rows names() const {
        Rows all;
        const auto count = SendMessageA(list(), LVM_GETITEMCOUNT, 0, 0);
        for (int row = 0; row < count; ++row) {
            wchar_t name[300] = L"";
            LVITEMW item{};
            item.pszText = name;
            item.cchTextMax = 300;
            SendMessageW(list(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
            all.push_back(std::filesystem::path(name).string());
        }
        std::ranges::sort(all);
        return all;
    }
    [[nodiscard]] Rows filters() const {
        Rows all;
        const auto count = SendMessageA(control(filterBox), CB_GETCOUNT, 0, 0);
        for (int i = 0; i < count; ++i) {
            char text[100] = "";
            SendMessageA(control(filterBox), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            all.emplace_back(text);
        }
        return all;
    }
    [[nodiscard]] int filter() const {
        return static_cast<int>(SendMessageA(control(filterBox), CB_GETCURSEL, 0, 0));
    }
    void chooseFilter(int index) const {
        SendMessageA(control(filterBox), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        for (const int note : {CBN_SELENDOK, CBN_SELCHANGE})
            SendMessageA(window_, WM_COMMAND, MAKEWPARAM(filterBox, note),
                         reinterpret_cast<LPARAM>(control(filterBox)));
    }
    [[nodiscard]] std::string name() const { return titleOf(nameBox()); }
    void write(const std::filesystem::path& name) const { SetWindowTextW(nameBox(), name.c_str()); }
    // As the user may do from the list's menu.
    void showSmallIcons() const {
        SendMessageA(FindWindowExA(window_, nullptr, "SHELLDLL_DefView", nullptr), WM_COMMAND, 0x702A, 0);
    }
    void press(int button) const { PostMessageA(window_, WM_COMMAND, static_cast<WPARAM>(button), 0); }

  private:
    // The text box in the list of names: all its parts have the same number.
    [[nodiscard]] HWND nameBox() const {
        return findChild(window_,
                         [](HWND child) { return GetDlgCtrlID(child) == 0x47C && classOf(child) == "Edit"; });
    }
    static constexpr int filterBox = 0x470;
    HWND window_;
};

/// What an answer has done: it is to be asked again, it is done with the window, which stays or which it has closed.
enum class Done { NotYet, Stays, Closes };

/// Answers the dialogs that come, in order. One that does not come fails the test; one that is left open is
/// cancelled.
class NativeAnswers {
  public:
    using Answer = std::function<Done(const ShownDialog&)>;

    NativeAnswers() {
        looking = this;
        timer_ = SetTimer(nullptr, 0, 30, [](HWND, UINT, UINT_PTR, DWORD) {
            if (looking) looking->look();
        });
    }
    ~NativeAnswers() {
        KillTimer(nullptr, timer_);
        looking = nullptr;  // the timer may have posted once more
        EXPECT_TRUE(steps_.empty()) << "no window had the title " << steps_.front().title;
    }
    NativeAnswers(const NativeAnswers&) = delete;

    NativeAnswers& then(const std::string& title, Answer answer) {
        steps_.push_back({title, std::move(answer)});
        return *this;
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds patience{10};

    struct Step {
        std::string title;
        Answer answer;
    };

    // The dialog in front: only it takes keys and clicks.
    static HWND shown() {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM parameter) -> BOOL {
                if (classOf(window) != "#32770" || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
                *reinterpret_cast<HWND*>(parameter) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    void look() {
        const HWND window = shown();
        if (!window) return;
        if (window != closed_ && !steps_.empty() && titleOf(window) == steps_.front().title) {
            const auto done = steps_.front().answer(ShownDialog(window));
            if (done == Done::Closes) closed_ = window;
            if (done != Done::NotYet) {
                steps_.pop_front();
                since_ = Clock::now();
                return;
            }
        }
        if (Clock::now() - since_ < patience) return;
        ADD_FAILURE() << "the window " << titleOf(window) << " is left open";
        PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        since_ = Clock::now();
    }

    std::deque<Step> steps_;
    static inline NativeAnswers* looking = nullptr;
    UINT_PTR timer_;
    Clock::time_point since_ = Clock::now();
    HWND closed_ = nullptr;  // it may take a moment until it is gone
};

inline Done press(const ShownDialog& dialog, int button) {
    dialog.press(button);
    return Done::Closes;
}

inline NativeAnswers::Answer pressing(int button) {
    return [button](const ShownDialog& dialog) { return press(dialog, button); };
}

/// Types a name, once the dialog shows its files, and says whether the dialog then closes.
inline NativeAnswers::Answer enteringName(const std::filesystem::path& name, Done done = Done::Closes) {
    return [=](const ShownDialog& dialog) {
        if (dialog.names().empty()) return Done::NotYet;
        dialog.write(name);
        dialog.press(IDOK);
        return done;
    };
}
