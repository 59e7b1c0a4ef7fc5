// SPDX-License-Identifier: MIT
#include "ShownDialog.h"
#include "shell/FileRequest.h"

// The file dialogs of Windows, asked as the program asks them.

namespace {

class Dialogs : public testing::Test {
  protected:
    Dialogs() {
        for (const char* name : {"a.txt", "b.dat", "c"}) writeBytes(folder / name, name);
        std::filesystem::create_directory(folder / "sub");
        writeBytes(folder / "sub/d.txt", "d");
    }
    ~Dialogs() override { DestroyWindow(owner); }

    // @return the path; empty if the user cancelled
    [[nodiscard]] std::string open() const {
        auto request = FileRequest::toOpen(owner, folder.path().string());
        return GetOpenFileNameA(&request.record()) ? request.path() : "";
    }
    [[nodiscard]] std::string save() const {
        auto request = FileRequest::toSave(owner, "XST1.txt", folder.path().string());
        return GetSaveFileNameA(&request.record()) ? request.path() : "";
    }

    const TempFolder folder;
    const HWND owner = CreateWindowExA(0, "STATIC", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 300, 200,
                                       nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
};

}  // namespace

TEST_F(Dialogs, OpenShowsAllFilesInDetail) {
    NativeAnswers answers;
    answers.then("Open A File", [&](const ShownDialog& dialog) {
        if (dialog.names() != Rows({"a.txt", "b.dat", "c", "sub"}) || !dialog.showsDetails()) return Done::NotYet;
        EXPECT_EQ(dialog.filters(), Rows({"All Files (*.*)", "Text File (.txt)"}));
        EXPECT_EQ(dialog.filter(), 0);
        EXPECT_EQ(dialog.name(), "");
        EXPECT_EQ(GetWindow(dialog.window(), GW_OWNER), owner);
        EXPECT_FALSE(IsWindowEnabled(owner)) << "it is modal";
        return press(dialog, IDCANCEL);
    });
    EXPECT_EQ(open(), "");
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialogs, SaveShowsTextFilesAndProposesTheName) {
    NativeAnswers answers;
    answers.then("Save File As...", [&](const ShownDialog& dialog) {
        if (dialog.names() != Rows({"a.txt", "sub"}) || !dialog.showsDetails()) return Done::NotYet;
        EXPECT_EQ(dialog.filters(), Rows({"All Files (*.*)", "Text File (.txt)"}));
        EXPECT_EQ(dialog.filter(), 1);
        EXPECT_EQ(dialog.name(), "XST1.txt");
        return press(dialog, IDCANCEL);
    });
    EXPECT_EQ(save(), "");
}

TEST_F(Dialogs, EachFilterShowsItsFiles) {
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
    EXPECT_EQ(open(), "");
}

TEST_F(Dialogs, AnotherFolderIsShownInDetail) {
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
        EXPECT_EQ(isSave ? save() : open(), "");
    }
}

TEST_F(Dialogs, ReturnTheWholePath) {
    {
        NativeAnswers answers;
        answers.then("Open A File", enteringName("b.dat"));
        EXPECT_EQ(open(), (folder / "b.dat").string());
    }
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("new.dat"));
    EXPECT_EQ(save(), (folder / "new.dat").string());
    EXPECT_FALSE(std::filesystem::exists(folder / "new.dat")) << "it only names a file";
}

TEST_F(Dialogs, SaveAddsTheSuffixToANameWithout) {
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("new"));
    EXPECT_EQ(save(), (folder / "new.txt").string());
}

TEST_F(Dialogs, SaveAsksBeforeItOverwrites) {
    NativeAnswers answers;
    answers.then("Save File As...", enteringName("a.txt", Done::Stays))
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
    EXPECT_EQ(save(), (folder / "a.txt").string());
    EXPECT_EQ(bytesOf(folder / "a.txt"), "a.txt");
}

TEST_F(Dialogs, FailOnAPathThatIsTooLong) {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version"))
        GTEST_SKIP() << "such a path makes the dialog of Wine 8 overwrite memory that is not its own";
    auto deep = folder.path();
    std::error_code error;
    for (int i = 0; i < 8 && !error; ++i) {
        deep /= std::string(100, static_cast<char>('a' + i));
        std::filesystem::create_directory(deep, error);
    }
    if (error) GTEST_SKIP() << "paths as long as that cannot be made here";
    NativeAnswers answers;
    answers.then("Open A File", enteringName(deep / "file.txt"));
    EXPECT_EQ(open(), "");
}
