// SPDX-License-Identifier: MIT
#include <windows.h>

#include <commctrl.h>

#include "shell/FileDialogs.h"
#include "tests/shell/Helpers.h"

// The file dialogs of Windows, as they come on the screen: what they show, and what their answers become.

namespace {

std::string titleOf(HWND window) {
    char title[200] = "";
    GetWindowTextA(window, title, sizeof(title));
    return title;
}

std::string classOf(HWND window) {
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

// A dialog on the screen.
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
            all.push_back(QString::fromWCharArray(name).toStdString());
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
        SendMessageA(window_, WM_COMMAND, MAKEWPARAM(filterBox, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(control(filterBox)));
    }
    [[nodiscard]] std::string name() const { return titleOf(control(nameBox)); }
    void write(const std::filesystem::path& name) const { SetWindowTextW(control(nameBox), name.c_str()); }
    // As the user may do from the list's menu.
    void showSmallIcons() const {
        SendMessageA(FindWindowExA(window_, nullptr, "SHELLDLL_DefView", nullptr), WM_COMMAND, 0x702A, 0);
    }
    void press(int button) const { PostMessageA(window_, WM_COMMAND, static_cast<WPARAM>(button), 0); }

  private:
    static constexpr int nameBox = 0x480;
    static constexpr int filterBox = 0x470;
    HWND window_;
};

// What an answer has done: it is to be asked again, it is done with the window, which stays or which it has closed.
enum class Done { NotYet, Stays, Closes };

// Answers the dialogs that come, in order. One that does not come fails the test; one that is left open is cancelled.
class NativeAnswers {
  public:
    using Answer = std::function<Done(const ShownDialog&)>;

    NativeAnswers() {
        timer_.callOnTimeout([this] { look(); });
        timer_.start(30);
        since_.start();
    }
    ~NativeAnswers() { EXPECT_TRUE(steps_.empty()) << "no window had the title " << steps_.front().title; }
    NativeAnswers(const NativeAnswers&) = delete;

    NativeAnswers& then(const std::string& title, Answer answer) {
        steps_.push_back({title, std::move(answer)});
        return *this;
    }

  private:
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
                since_.restart();
                return;
            }
        }
        if (since_.elapsed() < patience) return;
        ADD_FAILURE() << "the window " << titleOf(window) << " is left open";
        PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        since_.restart();
    }

    std::deque<Step> steps_;
    QTimer timer_;
    QElapsedTimer since_;
    HWND closed_ = nullptr;  // it may take a moment until it is gone
};

Done press(const ShownDialog& dialog, int button) {
    dialog.press(button);
    return Done::Closes;
}

NativeAnswers::Answer pressing(int button) {
    return [button](const ShownDialog& dialog) { return press(dialog, button); };
}

// Types a name, once the dialog shows its files.
NativeAnswers::Answer enteringName(const std::filesystem::path& name) {
    return [name](const ShownDialog& dialog) {
        if (dialog.names().empty()) return Done::NotYet;
        dialog.write(name);
        return press(dialog, IDOK);
    };
}

class WindowsDialogs : public testing::Test {
  protected:
    WindowsDialogs() {
        window.setObjectName(text("owner"));
        window.resize(300, 200);
        window.show();
        activate(window);
        for (const char* name : {"a.txt", "b.dat", "c"}) writeBytes(folder / name, name);
        std::filesystem::create_directory(folder / "sub");
        writeBytes(folder / "sub/d.txt", "d");
    }
    [[nodiscard]] QString initialDir() const { return QString::fromStdWString(folder.path().wstring()); }
    [[nodiscard]] std::filesystem::path open() { return askOpenName(&window, initialDir()); }
    [[nodiscard]] std::filesystem::path save() { return askSaveName(&window, text("XST1.txt"), initialDir()); }
    [[nodiscard]] HWND owner() const { return reinterpret_cast<HWND>(window.winId()); }

    const TempFolder folder;
    QWidget window;
};

}  // namespace

TEST_F(WindowsDialogs, OpenShowsAllFilesInDetail) {
    NativeAnswers answers;
    answers.then("Open A File", [&](const ShownDialog& dialog) {
        if (dialog.names() != Rows({"a.txt", "b.dat", "c", "sub"}) || !dialog.showsDetails()) return Done::NotYet;
        EXPECT_EQ(dialog.filters(), Rows({"All Files (*.*)", "Text File (.txt)"}));
        EXPECT_EQ(dialog.filter(), 0);
        EXPECT_EQ(dialog.name(), "");
        EXPECT_EQ(GetWindow(dialog.window(), GW_OWNER), owner());
        EXPECT_FALSE(IsWindowEnabled(owner())) << "it is modal";
        return press(dialog, IDCANCEL);
    });
    EXPECT_EQ(open(), std::filesystem::path());
    EXPECT_TRUE(IsWindowEnabled(owner()));
}

TEST_F(WindowsDialogs, SaveShowsTextFilesAndProposesTheName) {
    NativeAnswers answers;
    answers.then("Save File As...", [&](const ShownDialog& dialog) {
        if (dialog.names() != Rows({"a.txt", "sub"}) || !dialog.showsDetails()) return Done::NotYet;
        EXPECT_EQ(dialog.filters(), Rows({"All Files (*.*)", "Text File (.txt)"}));
        EXPECT_EQ(dialog.filter(), 1);
        EXPECT_EQ(dialog.name(), "XST1.txt");
        return press(dialog, IDCANCEL);
    });
    EXPECT_EQ(save(), std::filesystem::path());
}

TEST_F(WindowsDialogs, EachFilterShowsItsFiles) {
    NativeAnswers answers;
    const auto showing = [](const Rows& names, std::function<Done(const ShownDialog&)> next) {
        return [=](const ShownDialog& dialog) { return dialog.names() == names ? next(dialog) : Done::NotYet; };
    };
    const auto choosing = [](int filter) {
        return [=](const ShownDialog& dialog) {
            dialog.chooseFilter(filter);
            return Done::Stays;
        };
    };
    answers.then("Open A File", showing({"a.txt", "b.dat", "c", "sub"}, choosing(1)))
        .then("Open A File", showing({"a.txt", "sub"}, choosing(0)))
        .then("Open A File", showing({"a.txt", "b.dat", "c", "sub"}, pressing(IDCANCEL)));
    EXPECT_EQ(open(), std::filesystem::path());
}

// The list of files as the user has switched it is gone with the folder.
TEST_F(WindowsDialogs, AnotherFolderIsShownInDetail) {
    for (const bool isSave : {false, true}) {
        NativeAnswers answers;
        const std::string title = isSave ? "Save File As..." : "Open A File";
        answers
            .then(title,
                  [](const ShownDialog& dialog) {
                      if (!dialog.showsDetails()) return Done::NotYet;
                      dialog.showSmallIcons();
                      EXPECT_FALSE(dialog.showsDetails());
                      dialog.write("sub");
                      dialog.press(IDOK);
                      return Done::Stays;
                  })
            .then(title, [](const ShownDialog& dialog) {
                if (dialog.names() != Rows({"d.txt"})) return Done::NotYet;
                EXPECT_TRUE(dialog.showsDetails());
                return press(dialog, IDCANCEL);
            });
        EXPECT_EQ(isSave ? save() : open(), std::filesystem::path());
    }
}

TEST_F(WindowsDialogs, ReturnTheWholePath) {
    {
        NativeAnswers answers;
        answers.then("Open A File", enteringName("b.dat"));
        EXPECT_EQ(open(), folder / "b.dat");
    }
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("new.dat"));
    EXPECT_EQ(save(), folder / "new.dat");
    EXPECT_FALSE(std::filesystem::exists(folder / "new.dat")) << "it only names a file";
}

TEST_F(WindowsDialogs, SaveAddsTheSuffixToANameWithout) {
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("new"));
    EXPECT_EQ(save(), folder / "new.txt");
}

TEST_F(WindowsDialogs, SaveAsksBeforeItOverwrites) {
    NativeAnswers answers;
    answers
        .then("Save File As...",
              [](const ShownDialog& dialog) {
                  if (dialog.names().empty()) return Done::NotYet;
                  dialog.write("a.txt");
                  dialog.press(IDOK);
                  return Done::Stays;
              })
        .then("Save File As...",  // the question
              [](const ShownDialog& question) { return question.list() ? Done::NotYet : press(question, IDNO); })
        .then("Save File As...",
              [](const ShownDialog& dialog) {
                  if (!dialog.list()) return Done::NotYet;
                  dialog.press(IDOK);
                  return Done::Stays;
              })
        .then("Save File As...",
              [](const ShownDialog& question) { return question.list() ? Done::NotYet : press(question, IDYES); });
    EXPECT_EQ(save(), folder / "a.txt");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "a.txt");
}

TEST_F(WindowsDialogs, SaveSaysWhyAFileCannotBeWrittenAndAsksAgain) {
    const auto held = folder / "held.dat";
    writeBytes(held, "old");
    const HANDLE handle =
        CreateFileW(held.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    NativeAnswers answers;
    answers
        .then("Save File As...",
              [](const ShownDialog& dialog) {
                  if (dialog.names().empty()) return Done::NotYet;
                  dialog.write("held.dat");
                  dialog.press(IDOK);
                  return Done::Stays;
              })
        .then("Save File As...",
              [](const ShownDialog& question) { return question.list() ? Done::NotYet : press(question, IDYES); })
        .then("Save File As...", [&](const ShownDialog& dialog) {
            if (dialog.names().empty()) return Done::NotYet;
            EXPECT_NE(dialog.name().find("held.dat"), std::string::npos) << dialog.name();
            dialog.write("other.dat");
            return press(dialog, IDOK);
        });
    Answers messages;  // between the two
    messages.then("message", reading("This file cannot be written:\n" + held.string() +
                                     "\n\nPlease choose another name or folder."));
    EXPECT_EQ(save(), folder / "other.dat");
    CloseHandle(handle);
    EXPECT_EQ(bytesOf(held), "old");
}

// Where the program speaks UTF-8 with Windows, as its manifest asks; see FileDialogs_windows.cpp.
TEST_F(WindowsDialogs, ReturnNamesOutsideTheCodePage) {
    if (GetACP() != CP_UTF8) GTEST_SKIP() << "this Windows has another code page for the calls of this program";
    const auto name = std::filesystem::path(u8"\u65E5\u672C \u0416.txt");
    writeBytes(folder.path() / name, "bytes");
    NativeAnswers answers;
    answers.then("Open A File", enteringName(name));
    const auto chosen = open();
    EXPECT_EQ(chosen, folder.path() / name);
    EXPECT_EQ(bytesOf(chosen), "bytes");
}

TEST_F(WindowsDialogs, FailOnAPathThatIsTooLong) {
    auto deep = folder.path();
    std::error_code error;
    for (int i = 0; i < 8 && !error; ++i) {
        deep /= std::string(100, static_cast<char>('a' + i));
        std::filesystem::create_directory(deep, error);
    }
    if (error) GTEST_SKIP() << "paths as long as that cannot be made here";
    NativeAnswers answers;
    answers.then("Open A File", enteringName(deep / "file.txt"));
    EXPECT_EQ(open(), std::filesystem::path());
}
