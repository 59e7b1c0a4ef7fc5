// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <unistd.h>

#include "FileDialogHelpers.h"
#include "tests/OrdinaryUser.h"

// A scheme cannot be saved everywhere. The dialog says so while another name can still be chosen.

namespace {

class SaveRefusal : public testing::Test {
  protected:
    SaveRefusal() {
        protect(other.path(), 0777);
        window.show();
        activate(window);
    }
    ~SaveRefusal() override { protect(folder.path(), 0755); }

    static void protect(const std::filesystem::path& file, int mode) {
        std::filesystem::permissions(file, static_cast<std::filesystem::perms>(mode));
    }

    // Enters a name, expects this message, the dialog still open with the name in it, and then enters a good name.
    void expectRefusal(const std::string& name, const std::string& message) {
        const auto good = other / "good.txt";
        Answers answers;
        answers.then("GetSaveAsName", entering(name))
            .then("message", reading(message + "\n\nPlease choose another name or folder."))
            .then("GetSaveAsName", [&](QDialog& dialog) {
                EXPECT_TRUE(dialog.isVisible());
                EXPECT_EQ(nameIn(dialog), name) << "it can be corrected";
                enterName(dialog, good);
            });
        EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), good.string());
    }

    const TempFolder folder;
    const TempFolder other;
    fMain window;
};

}  // namespace

TEST_F(SaveRefusal, OfAFolderThatIsNotThere) {
    expectRefusal("gone/out.txt", "This folder does not exist:\n" + (folder / "gone").string());
    expectRefusal((folder / "a/b/out").string(), "This folder does not exist:\n" + (folder / "a/b").string());
}

TEST_F(SaveRefusal, OfAFileAsFolder) {
    writeBytes(folder / "file", "old");
    expectRefusal("file/out.txt", "This folder does not exist:\n" + (folder / "file").string());
    EXPECT_EQ(bytesOf(folder / "file"), "old");
}

// Names are limited in bytes, of which a letter may take two.
TEST_F(SaveRefusal, OfANameThatIsTooLong) {
    for (const int letters : {150, 124}) {  // the operating system would take the shorter one, but not every time
        std::string name;
        for (int letter = 0; letter < letters; ++letter) name += "\xC3\xA9";
        expectRefusal(name, "This file cannot be written:\n" + (folder / (name + ".txt")).string());
        EXPECT_EQ(folder.names(), Rows());
    }
}

// Nothing may be opened to find out: it would wait for a reader.
TEST_F(SaveRefusal, OfAPipe) {
    const auto pipe = folder / "pipe.txt";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    expectRefusal("pipe.txt", "This is not a regular file:\n" + pipe.string());
    expectRefusal("pipe", "This is not a regular file:\n" + pipe.string());
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST_F(SaveRefusal, OfADevice) {
    std::filesystem::create_symlink("/dev/null", folder / "device.txt");
    expectRefusal("device.txt", "This is not a regular file:\n" + (folder / "device.txt").string());
}

// A folder is entered, as in every file dialog, even one that looks like a text file.
TEST_F(SaveRefusal, AFolderIsEntered) {
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_directory(folder / "folder.txt");
    for (const std::string name : {"sub", "folder.txt", "folder"}) {
        const auto expected = folder / (name == "sub" ? "sub" : "folder.txt");
        Answers answers;
        answers.then("GetSaveAsName", [&](QDialog& dialog) {
            enterName(dialog, name);
            EXPECT_TRUE(QTest::qWaitFor([&] { return folderOf(dialog) == expected.string(); }, patience)) << name;
            EXPECT_TRUE(dialog.isVisible());
            enterName(dialog, "in");
        });
        EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())), expected / "in.txt");
    }
}

TEST_F(SaveRefusal, OfAWriteProtectedFile) {
    writeBytes(folder / "old.txt", "old");
    protect(folder / "old.txt", 0444);
    protect(folder.path(), 0777);
    const OrdinaryUser user;
    if (!user.bound() || access((folder / "old.txt").c_str(), W_OK) == 0)
        GTEST_SKIP() << "files cannot be write-protected here";
    expectRefusal("old.txt", "This file is write-protected:\n" + (folder / "old.txt").string());
    expectRefusal("old", "This file is write-protected:\n" + (folder / "old.txt").string());
}

TEST_F(SaveRefusal, OfAWriteProtectedFolder) {
    writeBytes(folder / "old.txt", "old");
    protect(folder / "old.txt", 0666);
    protect(folder.path(), 0555);
    const OrdinaryUser user;
    if (!user.bound() || access(folder.path().c_str(), W_OK) == 0)
        GTEST_SKIP() << "folders cannot be write-protected here";
    const auto message = "You cannot create files in this folder:\n" + folder.path().string();
    expectRefusal("new.txt", message);
    expectRefusal("old.txt", message);  // it would be replaced, for which the folder must be writable
}

// The command that asks must not go on with a refused name.
TEST(SaveRefusalCommand, SavesUnderTheNameThatIsChosenThen) {
    const TempFolder folder;
    Wizard wizard;
    Answers answers;
    answers.then("GetSaveAsName", entering(folder / "gone/out.txt"))
        .then("message", escape)
        .then("GetSaveAsName", entering(folder / "out.txt"));
    choose(wizard.window, "NS");
    answers.wait();
    EXPECT_EQ(folder.names(), Rows({"out.txt"}));
}

TEST(SaveRefusalCommand, CanBeCancelledThen) {
    const TempFolder folder;
    Wizard wizard;
    wizard.openParagraphs(sample("XST2.txt"));
    Answers answers;
    answers.then("GetSaveAsName", entering(folder / "gone/out.txt"))
        .then("message", escape)
        .then("GetSaveAsName", cancel);
    choose(wizard.window, "WS");
    answers.wait();
    EXPECT_EQ(folder.names(), Rows());
}
