// SPDX-License-Identifier: MIT
#include <QProcess>

#include "Helpers.h"
#include "shell/HelpFile.h"

namespace {

// While it exists, programs are searched for only in this folder.
class SearchPath {
  public:
    explicit SearchPath(const std::filesystem::path& folder) : old_(qgetenv("PATH")) {
        qputenv("PATH", QByteArray::fromStdString(folder.string()));
    }
    ~SearchPath() { qputenv("PATH", old_); }
    SearchPath(const SearchPath&) = delete;

  private:
    QByteArray old_;
};

class Help : public testing::Test {
  protected:
    // Makes the desktop's opener: a script that writes down what it is called with, and then does this.
    void makeOpener(const std::string& then) {
        const auto opener = programs / "xdg-open";
        writeBytes(opener, "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > '" + calls.string() + "'\n" + then + "\n");
        std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    }

    [[nodiscard]] std::string called() const {
        const auto written = [&] { return std::filesystem::exists(calls) && std::filesystem::file_size(calls) > 0; };
        return QTest::qWaitFor(written, patience) ? bytesOf(calls) : "never called";
    }

    // What is shown when the desktop has nothing for the file.
    [[nodiscard]] std::string noProgram() const {
        return "No program could show the help file:\n" + helpFile.string() +
               "\nPlease install a viewer for CHM files, for example xchm.";
    }

    const TempFolder folder;
    const ProgramsFolder programs;
    const std::filesystem::path calls = folder / "calls";
    const std::filesystem::path helpFile = folder / "Pelmo.chm";
    const SearchPath searchPath{programs.path()};
    const HelpFile help{text(folder.path().string())};
};

}  // namespace

TEST_F(Help, StandsInTheProgramsFolder) {
    EXPECT_EQ(help.path(), text(helpFile.string()));
    EXPECT_EQ(HelpFile(text("/usr/bin")).path(), text("/usr/bin/Pelmo.chm"));
}

TEST_F(Help, IsReportedAsMissingWithItsPath) {
    makeOpener("exit 0");
    Answers answers;
    answers.then("message", reading("The help file was not found:\n" + helpFile.string()));
    help.show(nullptr);
    answers.wait();
    EXPECT_FALSE(std::filesystem::exists(calls)) << "nothing is opened";
}

TEST_F(Help, AFolderOfThatNameIsNoHelp) {
    std::filesystem::create_directory(helpFile);
    makeOpener("exit 0");
    Answers answers;
    answers.then("message", reading("The help file was not found:\n" + helpFile.string()));
    help.show(nullptr);
}

TEST_F(Help, IsHandedToTheDesktop) {
    writeBytes(helpFile, "help");
    makeOpener("exit 0");
    Answers nothing;
    help.show(nullptr);
    EXPECT_EQ(called(), "1\n" + helpFile.string() + "\n");
    QTest::qWait(100);  // no message follows
}

TEST_F(Help, IsHandedOverWhateverItsFolderIsCalled) {
    const auto odd = folder / "a b  c 'd' $e \xC3\xA9; f";
    std::filesystem::create_directory(odd);
    writeBytes(odd / "Pelmo.chm", "help");
    makeOpener("exit 0");
    Answers nothing;
    HelpFile(text(odd.string())).show(nullptr);
    EXPECT_EQ(called(), "1\n" + odd.string() + "/Pelmo.chm\n");
}

TEST_F(Help, ADesktopWithoutAViewerIsReported) {
    writeBytes(helpFile, "help");
    makeOpener("exit 3");
    Answers answers;
    answers.then("message", reading(noProgram()));
    help.show(nullptr);
    answers.wait();
    EXPECT_EQ(called(), "1\n" + helpFile.string() + "\n");
}

TEST_F(Help, ADesktopWithoutAnOpenerIsReported) {
    writeBytes(helpFile, "help");
    Answers answers;
    answers.then("message", reading(noProgram()));
    help.show(nullptr);
}

TEST_F(Help, DoesNotWaitForTheViewer) {
    writeBytes(helpFile, "help");
    const auto go = folder / "go";
    makeOpener("while [ ! -e '" + go.string() + "' ]; do /bin/sleep 0.02; done; exit 4");
    QWidget window;
    window.show();
    help.show(&window);
    EXPECT_EQ(called(), "1\n" + helpFile.string() + "\n");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Answers answers;
    answers.then("message", reading(noProgram()));
    writeBytes(go, "");
}

// Where no desktop runs, xdg-open waits for the viewer, and ends with an error if the viewer was killed.
TEST_F(Help, AViewerThatEndsWithAnErrorAfterAWhileWasThere) {
    writeBytes(helpFile, "help");
    const auto done = folder / "done";
    makeOpener("/bin/sleep 0.6; echo > '" + done.string() + "'; exit 4");
    Answers nothing;
    HelpFile(text(folder.path().string()), std::chrono::milliseconds(300)).show(nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(done); }, patience));
    QTest::qWait(200);  // no message follows
}

#ifdef __linux__
// It may outlive the wizard, and then nobody reads what it prints.
TEST_F(Help, AViewerPrintsToNobody) {
    writeBytes(helpFile, "help");
    const auto done = folder / "done";
    makeOpener("places=$(/bin/readlink /proc/$$/fd/1 /proc/$$/fd/2); echo \"$places\" > '" + done.string() + "'");
    help.show(nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(done) && !bytesOf(done).empty(); }, patience));
    EXPECT_EQ(bytesOf(done), "/dev/null\n/dev/null\n");
}
#endif

TEST_F(Help, AnOpenerMayTakeSecondsToGiveUp) {
    writeBytes(helpFile, "help");
    makeOpener("/bin/sleep 3; exit 3");
    Answers answers;
    answers.then("message", reading(noProgram()));
    help.show(nullptr);
}

TEST_F(Help, TheWindowMayBeGoneWhenTheDesktopGivesUp) {
    writeBytes(helpFile, "help");
    const auto go = folder / "go";
    makeOpener("while [ ! -e '" + go.string() + "' ]; do /bin/sleep 0.02; done; exit 4");
    {
        QWidget window;
        window.show();
        help.show(&window);
        EXPECT_EQ(called(), "1\n" + helpFile.string() + "\n");
    }
    Answers answers;
    answers.then("message", [&](QDialog& message) {
        EXPECT_EQ(message.parentWidget(), nullptr);
        reading(noProgram())(message);
    });
    writeBytes(go, "");
}

TEST_F(Help, BelongsToTheWindowThatAskedForIt) {
    QWidget window;
    window.show();
    Answers answers;
    answers.then("message", [&](QDialog& message) {
        EXPECT_EQ(message.parentWidget(), &window);
        escape(message);
    });
    help.show(&window);
}

TEST_F(Help, CanBeShownTwice) {
    writeBytes(helpFile, "help");
    makeOpener("exit 0");
    Answers nothing;
    for (int time = 0; time < 2; ++time) {
        help.show(nullptr);
        EXPECT_EQ(called(), "1\n" + helpFile.string() + "\n");
        std::filesystem::remove(calls);
    }
}
