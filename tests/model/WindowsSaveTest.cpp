// SPDX-License-Identifier: MIT
#include <windows.h>

#include "Helpers.h"
#include "model/FileWriter.h"

// Files that cannot be replaced on Windows: the old one stays, and nothing else is left behind.

namespace {

// Has a file open as another program may have it.
class HeldFile {
  public:
    explicit HeldFile(const std::filesystem::path& file, DWORD allowed = FILE_SHARE_READ)
        : handle_(CreateFileW(file.c_str(), GENERIC_READ, allowed, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~HeldFile() { CloseHandle(handle_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

  private:
    HANDLE handle_;
};

}  // namespace

TEST(WindowsSave, IsRefusedWhileAnotherProgramHasTheFileOpen) {
    const TempFolder folder;
    const auto file = writeBytes(folder / "file.txt", "old");
    {
        const HeldFile held(file);
        EXPECT_FALSE(FileWriter(file).isGood());
        EXPECT_EQ(bytesOf(file), "old");
    }
    EXPECT_TRUE(FileWriter(file).isGood()) << "once it is closed";
    EXPECT_EQ(folder.names(), Rows{"file.txt"});
}

TEST(WindowsSave, GoesOnBesideAProgramThatAllowsIt) {
    const TempFolder folder;
    const auto file = writeBytes(folder / "file.txt", "old");
    const HeldFile held(file, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    EXPECT_TRUE(FileWriter(file).isGood());
}

TEST(WindowsSave, FailsWhereTheFileIsOpenedInTheMeantime) {
    const TempFolder folder;
    const auto file = writeBytes(folder / "file.txt", "old");
    {
        FileWriter writer(file);
        writer.write("new");
        const HeldFile held(file);
        EXPECT_FALSE(writer.commit());
    }
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(folder.names(), Rows{"file.txt"});
}

TEST(WindowsSave, IsRefusedForAWriteProtectedFile) {
    const TempFolder folder;
    const auto file = writeBytes(folder / "file.txt", "old");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(FileWriter(file).isGood());
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(folder.names(), Rows{"file.txt"});
}

TEST(WindowsSave, WorksForNamesOutsideTheCodePage) {
    const TempFolder folder;
    const auto file = folder.path() / std::filesystem::path(u8"\u65E5\u672C \u0416.txt");
    FileWriter writer(file);
    writer.write("bytes");
    EXPECT_TRUE(writer.commit());
    EXPECT_EQ(bytesOf(file), "bytes");
}

// Each commit takes a number for a file from the C library, which has some thousands of them.
TEST(WindowsSave, WorksThousandsOfTimes) {
    const TempFolder folder;
    for (int i = 0; i < 3000; ++i) {
        FileWriter writer(folder / "file.txt");
        writer.write(std::to_string(i));
        ASSERT_TRUE(writer.commit()) << i;
    }
    EXPECT_EQ(bytesOf(folder / "file.txt"), "2999");
}
