// SPDX-License-Identifier: MIT
#include "shell/FileDialogs.h"

#include "ShownDialog.h"
#include "tests/shell/Helpers.h"

// What the program makes of the answers of the dialogs.

namespace {

class FileDialogs : public testing::Test {
  protected:
    FileDialogs() {
        window.setObjectName(text("owner"));
        window.resize(300, 200);
        window.show();
        activate(window);
        writeBytes(folder / "a.txt", "a");
    }
    [[nodiscard]] QString initialDir() const { return QString::fromStdWString(folder.path().wstring()); }
    [[nodiscard]] std::filesystem::path open() { return askOpenName(&window, initialDir()); }
    [[nodiscard]] std::filesystem::path save() { return askSaveName(&window, text("XST1.txt"), initialDir()); }

    const TempFolder folder;
    QWidget window;
};

}  // namespace

TEST_F(FileDialogs, BelongToTheWindow) {
    const auto owner = reinterpret_cast<HWND>(window.winId());
    NativeAnswers answers;
    answers.then("Open A File", [&](const ShownDialog& dialog) {
        if (dialog.names() != Rows({"a.txt"})) return Done::NotYet;
        EXPECT_EQ(GetWindow(dialog.window(), GW_OWNER), owner);
        return press(dialog, IDCANCEL);
    });
    EXPECT_EQ(open(), std::filesystem::path());
}

TEST_F(FileDialogs, NameTheFile) {
    {
        NativeAnswers answers;
        answers.then("Open A File", enteringName("a.txt"));
        EXPECT_EQ(open(), folder / "a.txt");
    }
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("new"));
    EXPECT_EQ(save(), folder / "new.txt");
}

TEST_F(FileDialogs, SaveSaysWhyAFileCannotBeWrittenAndAsksAgain) {
    const auto held = folder / "held.dat";
    writeBytes(held, "old");
    const HANDLE handle =
        CreateFileW(held.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("held.dat", Done::Stays))
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

TEST_F(FileDialogs, ReturnNamesOutsideTheCodePage) {
    if (GetACP() != CP_UTF8) GTEST_SKIP() << "this Windows has another code page for the calls of this program";
    const auto name = std::filesystem::path(u8"\u65E5\u672C \u0416.txt");
    writeBytes(folder.path() / name, "bytes");
    NativeAnswers answers;
    answers.then("Open A File", enteringName(name));
    const auto chosen = open();
    EXPECT_EQ(chosen, folder.path() / name);
    EXPECT_EQ(bytesOf(chosen), "bytes");
}
