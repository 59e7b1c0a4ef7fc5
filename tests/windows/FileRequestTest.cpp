// SPDX-License-Identifier: MIT
#include "shell/FileRequest.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "shell/MDialogHook.h"

// What the file dialogs of Windows are asked, field by field.

namespace {

const auto owner = reinterpret_cast<HWND>(std::uintptr_t{0x1234});

// The filters up to their end, which is an empty one.
std::string filtersOf(const OPENFILENAMEA& record) {
    const char* end = record.lpstrFilter;
    while (*end != '\0') end += std::strlen(end) + 1;
    return {record.lpstrFilter, static_cast<std::size_t>(end - record.lpstrFilter)};
}

void expectCommonFields(const OPENFILENAMEA& record) {
    EXPECT_EQ(record.lStructSize, sizeof(void*) == 4 ? 88U : 152U);
    EXPECT_EQ(record.hwndOwner, owner);
    EXPECT_EQ(record.hInstance, nullptr);
    EXPECT_EQ(filtersOf(record), std::string("All Files (*.*)\0*.*\0Text File (.txt)\0*.txt\0", 43));
    EXPECT_EQ(record.lpstrCustomFilter, nullptr);
    EXPECT_EQ(record.nMaxCustFilter, 0U);
    EXPECT_EQ(record.nMaxFile, 700U);
    EXPECT_EQ(std::string(record.lpstrFileTitle, 260), std::string(260, '\0'));
    EXPECT_EQ(record.nMaxFileTitle, 260U);
    EXPECT_STREQ(record.lpstrInitialDir, "C:\\folder");
    EXPECT_EQ(record.Flags, 0x1088042EU);
    EXPECT_EQ(record.nFileOffset, 0);
    EXPECT_EQ(record.nFileExtension, 0);
    EXPECT_EQ(record.lCustData, 0);
    EXPECT_EQ(record.lpfnHook, &DialogHook);
    EXPECT_EQ(record.lpTemplateName, nullptr);
    EXPECT_EQ(record.pvReserved, nullptr);
    EXPECT_EQ(record.dwReserved, 0U);
    EXPECT_EQ(record.FlagsEx, 0U);
}

// Answers as a dialog does: writes over the buffer.
std::string answered(FileRequest request, const std::string& bytes) {
    auto& record = request.record();
    std::copy(bytes.begin(), bytes.end(), record.lpstrFile);
    return request.path();
}

}  // namespace

TEST(FileRequest, ToOpen) {
    auto request = FileRequest::toOpen(owner, "C:\\folder");
    const auto& record = request.record();
    expectCommonFields(record);
    EXPECT_EQ(record.nFilterIndex, 0U);
    EXPECT_EQ(std::string(record.lpstrFile, 700), std::string(700, '\0'));
    EXPECT_STREQ(record.lpstrTitle, "Open A File");
    EXPECT_EQ(record.lpstrDefExt, nullptr);
}

TEST(FileRequest, ToSave) {
    auto request = FileRequest::toSave(owner, "XST1.txt", "C:\\folder");
    const auto& record = request.record();
    expectCommonFields(record);
    EXPECT_EQ(record.nFilterIndex, 2U);
    EXPECT_EQ(std::string(record.lpstrFile, 708), "XST1.txt" + std::string(700, '\0'));
    EXPECT_STREQ(record.lpstrTitle, "Save File As...");
    EXPECT_STREQ(record.lpstrDefExt, "txt");
}

TEST(FileRequest, ReadsThePathUpToTheFirstNul) {
    const auto empty = [] { return FileRequest::toOpen(owner, "C:\\folder"); };
    EXPECT_EQ(answered(empty(), "C:\\a.txt"), "C:\\a.txt");
    EXPECT_EQ(answered(empty(), "a"), "a");
    EXPECT_EQ(answered(empty(), std::string("C:\\a\0b", 6)), "C:\\a");
    EXPECT_EQ(answered(empty(), ""), "");
    EXPECT_EQ(answered(empty(), std::string("\0C:\\a", 5)), "");
    EXPECT_EQ(answered(empty(), std::string(699, 'x')), std::string(699, 'x'));
    EXPECT_EQ(answered(empty(), std::string(700, 'x')), "") << "there is no NUL";
    EXPECT_EQ(answered(FileRequest::toSave(owner, "XST1.txt", ""), std::string(700, 'x')), std::string(700, 'x'))
        << "its buffer is longer";
}

TEST(ComdlgVersion, IsTheHighWordOfTheFirstNumber) {
    std::array<char, 52> information{};
    const auto isNew = [&](char low, char high) {
        information[10] = low;
        information[11] = high;
        return isMajorVersion5(information.data());
    };
    EXPECT_FALSE(isNew(0, 0));
    EXPECT_FALSE(isNew(4, 0));
    EXPECT_TRUE(isNew(5, 0));
    EXPECT_TRUE(isNew(6, 0));
    EXPECT_TRUE(isNew(0, 1)) << "256";
    information[8] = 9;
    EXPECT_FALSE(isNew(4, 0)) << "the minor version does not count";
}

TEST(ComdlgVersion, OfThisWindowsIsNew) {
    EXPECT_TRUE(isComdlgVersion5());
}

namespace {

// A window as a dialog is built: the hook's own window and a list of files are children of the dialog.
class DialogWindows {
  public:
    explicit DialogWindows(bool hasList) {
        dialog = make("STATIC", nullptr);
        hooked = make("STATIC", dialog);
        if (!hasList) return;
        WNDCLASSA kind{};
        kind.lpfnWndProc = [](HWND window, UINT message, WPARAM first, LPARAM second) -> LRESULT {
            if (message == WM_COMMAND) commands.push_back({first, second});
            return DefWindowProcA(window, message, first, second);
        };
        kind.lpszClassName = "SHELLDLL_DefView";
        kind.hInstance = GetModuleHandleA(nullptr);
        RegisterClassA(&kind);
        list = make("SHELLDLL_DefView", dialog);
        commands.clear();
    }
    ~DialogWindows() {
        DestroyWindow(dialog);
        UnregisterClassA("SHELLDLL_DefView", GetModuleHandleA(nullptr));
    }
    DialogWindows(const DialogWindows&) = delete;

    // @return what the hook returns
    UINT_PTR notify(UINT message, UINT code) const {
        NMHDR header{dialog, 7, code};
        return DialogHook(hooked, message, 7, reinterpret_cast<LPARAM>(&header));
    }

    HWND dialog, hooked, list = nullptr;
    static inline std::vector<std::pair<WPARAM, LPARAM>> commands;

  private:
    static HWND make(const char* kind, HWND parent) {
        return CreateWindowExA(0, kind, "", parent ? WS_CHILD : WS_OVERLAPPED, 0, 0, 10, 10, parent, nullptr,
                               GetModuleHandleA(nullptr), nullptr);
    }
};

}  // namespace

TEST(DialogHook, ShowsDetailsWhenTheFolderHasChanged) {
    const DialogWindows windows(true);
    ASSERT_TRUE(windows.list);
    EXPECT_EQ(windows.notify(0x4E, 0xFFFFFDA5), 0U);
    ASSERT_EQ(DialogWindows::commands.size(), 1U);
    EXPECT_EQ(DialogWindows::commands[0].first, 0x702CU);
    EXPECT_EQ(DialogWindows::commands[0].second, 0);
    EXPECT_EQ(windows.notify(0x4E, 0xFFFFFDA5), 0U);
    EXPECT_EQ(DialogWindows::commands.size(), 2U) << "each time";
}

TEST(DialogHook, IgnoresEverythingElse) {
    const DialogWindows windows(true);
    ASSERT_TRUE(windows.list);
    for (const UINT code : {0xFFFFFDA6U, 0xFFFFFDA4U, 0xFFFFFDA7U, 0U})  // the dialog is ready, another selection ...
        EXPECT_EQ(windows.notify(0x4E, code), 0U);
    for (const UINT message : {0x111U, 0x110U, 0x4DU, 0x4FU}) EXPECT_EQ(windows.notify(message, 0xFFFFFDA5), 0U);
    EXPECT_EQ(DialogHook(windows.hooked, 0x110, 0, 0), 0U) << "no header is read";
    EXPECT_TRUE(DialogWindows::commands.empty());
}

TEST(DialogHook, DoesNothingWithoutAList) {
    const DialogWindows windows(false);
    ASSERT_TRUE(windows.hooked);
    EXPECT_EQ(windows.notify(0x4E, 0xFFFFFDA5), 0U);
}
