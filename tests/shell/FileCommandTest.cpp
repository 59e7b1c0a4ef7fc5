// SPDX-License-Identifier: MIT
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#endif

#include "FileDialogHelpers.h"

namespace {

const std::string nodesHeader =
    "\"ID\",\"descriptionIs\",\"typeIs\",\"parentIs\",\"queryIs\",\"parmIs\",\"iconIs\",\"roleIs\"\r\n";
const std::string paragraphsHeader =
    "\"ID\",\"XST1\",\"seqNo\",\"titleIs\",\"queryIs\",\"parmIs\",\"typeIs\",\"formIs\",\"colsAre\",\"extra\"\r\n";

class FileCommands : public testing::Test {
  protected:
    const TempFolder folder;
    Wizard wizard;

    void openSamples() {
        wizard.openNodes(sample("XST1.txt"));
        wizard.openParagraphs(sample("XST2.txt"));
    }

    // Everything that a command could change.
    struct State {
        Rows nodes, paragraphs, tree, nodeGrid, paragraphGrid;
        std::string lastNode;
        bool operator==(const State&) const = default;
    };
    [[nodiscard]] State state() {
        return {rowsOf(wizard.navs()),        rowsOf(wizard.navs().oWebs),       shownRows(wizard.tree()),
                shownRows(wizard.nodeGrid()), shownRows(wizard.paragraphGrid()), wizard.navs().mLastN};
    }

    // Saves over an old file, which Qt asks about, and answers the message that may follow.
    void saveOver(const std::string& letters, const std::filesystem::path& file, const std::string& message = "") {
        Answers answers;
        answers.then("GetSaveAsName", entering(file)).then("", [](QDialog& question) {
            clickOn(static_cast<QMessageBox&>(question).button(QMessageBox::Yes));
        });
        if (!message.empty()) answers.then("message", reading(message));
        choose(wizard.window, letters);
    }
};

#ifndef _WIN32
// No file may become longer than this, as on a disk that is almost full.
class AlmostFullDisk {
  public:
    explicit AlmostFullDisk(rlim_t room) {
        getrlimit(RLIMIT_FSIZE, &old_);
        auto small = old_;
        small.rlim_cur = room;
        setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~AlmostFullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }
    AlmostFullDisk(const AlmostFullDisk&) = delete;

    /// To be called, by the system itself, when a file is about to become longer.
    static void onFull(void (*handler)(int)) { std::signal(SIGXFSZ, handler); }

  private:
    rlimit old_{};
    void (*handler_)(int);
};
#endif

}  // namespace

TEST_F(FileCommands, AskInTheProgramsFolder) {
    struct Case {
        std::string letters, dialog, name;
    };
    const Case cases[] = {{"FON", "GetOpenName", ""},
                          {"FOW", "GetOpenName", ""},
                          {"NS", "GetSaveAsName", "XST1.txt"},
                          {"WS", "GetSaveAsName", "XST2.txt"}};
    for (const auto& expected : cases) {
        Answers answers;
        answers.then(expected.dialog, [&](QDialog& dialog) {
            EXPECT_EQ(folderOf(dialog), QCoreApplication::applicationDirPath().toStdString());
            EXPECT_EQ(nameIn(dialog), expected.name);
            EXPECT_EQ(dialog.parentWidget(), &wizard.window);
            escape(dialog);
        });
        choose(wizard.window, expected.letters);
    }
}

TEST_F(FileCommands, RememberNeitherNameNorFolder) {
    const auto current = QDir::currentPath();
    wizard.openNodes(writeBytes(folder / "in.txt", "1,Top,F,0\r\n"));
    wizard.saveNodes(folder / "out.txt");
    wizard.openParagraphs(writeBytes(folder / "web.txt", "1,1,1,of the top\r\n"));
    wizard.saveParagraphs(folder / "web out.txt");
    EXPECT_EQ(QDir::currentPath(), current);
    for (const auto& [letters, asked, name] : {std::tuple{"FON", "GetOpenName", ""},
                                               {"FOW", "GetOpenName", ""},
                                               {"NS", "GetSaveAsName", "XST1.txt"},
                                               {"WS", "GetSaveAsName", "XST2.txt"}}) {
        Answers answers;
        answers.then(asked, [&, proposed = name](QDialog& dialog) {
            EXPECT_EQ(folderOf(dialog), QCoreApplication::applicationDirPath().toStdString());
            EXPECT_EQ(nameIn(dialog), proposed);
            escape(dialog);
        });
        choose(wizard.window, letters);
    }
}

TEST_F(FileCommands, SamplesStandBesideTheProgram) {
    const std::filesystem::path program(QCoreApplication::applicationDirPath().toStdString());
    EXPECT_EQ(bytesOf(program / "XST1.txt"), bytesOf(sample("XST1.txt")));
    EXPECT_EQ(bytesOf(program / "XST2.txt"), bytesOf(sample("XST2.txt")));
}

TEST_F(FileCommands, CancellingChangesNothingAndSaysNothing) {
    openSamples();
    activate(wizard.window);
    wizard.click("Fleet");
    wizard.nodeGrid().selectRow(7);
    const auto before = state();
    for (const auto& [letters, dialog] : {std::pair<const char*, const char*>{"FON", "GetOpenName"},
                                          std::pair<const char*, const char*>{"FOW", "GetOpenName"},
                                          std::pair<const char*, const char*>{"NS", "GetSaveAsName"},
                                          std::pair<const char*, const char*>{"WS", "GetSaveAsName"}})
        for (const auto& answer : {Answers::Answer(escape), Answers::Answer(cancel)}) {
            Answers answers;
            answers.then(dialog, answer);
            choose(wizard.window, letters);
            EXPECT_EQ(state(), before) << letters;
        }
    EXPECT_EQ(wizard.nodeGrid().currentIndex().row(), 7) << "the grid was not even redrawn";
}

TEST_F(FileCommands, OpenNodesShowsThemAndLeavesTheParagraphs) {
    wizard.openParagraphs(sample("XST2.txt"));
    const auto paragraphs = shownRows(wizard.paragraphGrid());
    wizard.openNodes(writeBytes(folder / "in.txt",
                                nodesHeader + "1,\"Top\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n"
                                              "7,\"Customers\",\"G\",1,\"spG_C\",\"CKey05\",\"people\",\"2\"\r\n"
                                              "3,\"One\",\"N\",7,\"\",\"\",\"person\",\"\"\r\n"));
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"- Data Browser", "  + Customers"}));
    EXPECT_EQ(shownRows(wizard.nodeGrid()),
              Rows({"1|Top|F|0|||leaf|", "7|Customers|G|1|spG_C|CKey05|people|2", "3|One|N|7|||person|"}));
    EXPECT_EQ(wizard.navs().oWebs.Count(), 105);
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), paragraphs);
    EXPECT_EQ(paragraphs.size(), 105U);
}

TEST_F(FileCommands, OpenParagraphsShowsThemAllAndLeavesTheNodes) {
    wizard.openNodes(sample("XST1.txt"));
    activate(wizard.window);
    wizard.click("Staff");
    const auto before = state();
    wizard.openParagraphs(writeBytes(
        folder / "in.txt", paragraphsHeader + "9,4,1,\"Orders\",\"spW_O\",\"Lkey\",\"S\",0,\"2:3\",\"more\"\r\n"
                                              "2,70,2,\"Late\",\"spW_L 7\",\"\",\"H\",12,\"\",\"\"\r\n"));
    const auto after = state();
    EXPECT_EQ(after.paragraphGrid, Rows({"9|4|1|Orders|spW_O|Lkey|S|0|2:3", "2|70|2|Late|spW_L 7||H|12|"}));
    EXPECT_EQ(after.paragraphs, Rows({"9|4|1|Orders|spW_O|Lkey|S|0|2:3|more", "2|70|2|Late|spW_L 7||H|12||"}));
    EXPECT_EQ(after.nodes, before.nodes);
    EXPECT_EQ(after.tree, before.tree);
    EXPECT_EQ(after.nodeGrid, before.nodeGrid);
}

TEST_F(FileCommands, SaveWritesTheNamedFile) {
    openSamples();
    wizard.saveNodes(folder / "nodes");
    wizard.saveParagraphs(folder / "paragraphs.dat");
    EXPECT_EQ(folder.names(), Rows({"nodes.txt", "paragraphs.dat"}));
    EXPECT_EQ(bytesOf(folder / "nodes.txt"), bytesOf(sample("XST1.txt")));
    EXPECT_EQ(bytesOf(folder / "paragraphs.dat"), bytesOf(sample("XST2.txt")));
}

TEST_F(FileCommands, SaveReplacesTheOldFile) {
    openSamples();
    writeBytes(folder / "nodes.txt", std::string(100'000, 'x'));
    saveOver("NS", folder / "nodes.txt");
    EXPECT_EQ(bytesOf(folder / "nodes.txt"), bytesOf(sample("XST1.txt")));
    EXPECT_EQ(folder.names(), Rows({"nodes.txt"}));
}

#ifndef _WIN32
// A file that goes between the dialog and the reading is the same as one that cannot be read.
TEST_F(FileCommands, UnreadableNodesLeaveAnEmptyTreeAndSayNothing) {
    openSamples();
    activate(wizard.window);
    wizard.click("Fleet");
    const auto before = state();
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
    wizard.openNodes(folder / "pipe");
    EXPECT_EQ(wizard.navs().Count(), 0);
    EXPECT_EQ(shownRows(wizard.tree()), Rows());
    EXPECT_EQ(shownRows(wizard.nodeGrid()), before.nodeGrid) << "an empty scheme leaves the grid as it was";
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), before.paragraphGrid);
    EXPECT_EQ(rowsOf(wizard.navs().oWebs), before.paragraphs);
}

TEST_F(FileCommands, UnreadableParagraphsLeaveNoneAndSayNothing) {
    openSamples();
    const auto before = state();
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
    wizard.openParagraphs(folder / "pipe");
    EXPECT_EQ(wizard.navs().oWebs.Count(), 0);
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows());
    EXPECT_EQ(rowsOf(wizard.navs()), before.nodes);
    EXPECT_EQ(shownRows(wizard.tree()), before.tree);
}
#endif

TEST_F(FileCommands, AFileOfSomethingElseIsAnEmptyScheme) {
    wizard.openNodes(writeBytes(folder / "letter.txt", "Dear customer,\r\nthank you.\r\n"));
    EXPECT_EQ(wizard.navs().Count(), 0);
    EXPECT_EQ(shownRows(wizard.tree()), Rows());
}

TEST_F(FileCommands, SavingNoNodesKeepsTheOldFileAndSaysNothing) {
    wizard.openNodes(writeBytes(folder / "empty.txt", ""));
    writeBytes(folder / "old.txt", "old");
    saveOver("NS", folder / "old.txt");
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old");
    wizard.saveNodes(folder / "new.txt");
    EXPECT_FALSE(std::filesystem::exists(folder / "new.txt"));
}

TEST_F(FileCommands, SavingNoParagraphsKeepsTheOldFileAndSaysSo) {
    writeBytes(folder / "old.txt", "old");
    saveOver("WS", folder / "old.txt", "Unable to save file..");
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old");
    EXPECT_EQ(folder.names(), Rows({"old.txt"}));
}

#ifndef _WIN32
TEST_F(FileCommands, FailedSaveOfNodesKeepsTheOldFileAndSaysNothing) {
    openSamples();
    writeBytes(folder / "old.txt", "old");
    {
        const AlmostFullDisk disk(1000);
        saveOver("NS", folder / "old.txt");
    }
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old");
    EXPECT_EQ(folder.names(), Rows({"old.txt"})) << "nothing is left over";
}

TEST_F(FileCommands, FailedSaveOfParagraphsKeepsTheOldFileAndSaysSo) {
    openSamples();
    writeBytes(folder / "old.txt", "old");
    {
        const AlmostFullDisk disk(1000);
        saveOver("WS", folder / "old.txt", "Unable to save file..");
    }
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old");
    EXPECT_EQ(folder.names(), Rows({"old.txt"}));
    saveOver("WS", folder / "old.txt");  // with room again
    EXPECT_EQ(bytesOf(folder / "old.txt"), bytesOf(sample("XST2.txt")));
}
#endif

TEST_F(FileCommands, SavingChangesNothingOnTheScreen) {
    openSamples();
    activate(wizard.window);
    wizard.click("Fleet");
    const auto before = state();
    wizard.saveNodes(folder / "nodes");
    wizard.saveParagraphs(folder / "paragraphs");
    EXPECT_EQ(state(), before);
}

TEST_F(FileCommands, RenumberShowsTheNewNumbersAndAllParagraphs) {
    wizard.openNodes(writeBytes(folder / "in.txt", "1,Top,F,0\r\n5,five,F,1\r\n3,three,N,5\r\n9,nine,N,1\r\n"));
    wizard.openParagraphs(writeBytes(folder / "web.txt", "1,3,1,of three\r\n2,9,1,of nine\r\n3,8,1,of nobody\r\n"));
    activate(wizard.window);
    wizard.click("five");
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows());
    wizard.choose("NR");
    EXPECT_EQ(shownRows(wizard.nodeGrid()),
              Rows({"1|Top|F|0||||", "2|five|F|1||||", "3|three|N|2||||", "4|nine|N|1||||"}));
    EXPECT_EQ(shownRows(wizard.paragraphGrid()),
              Rows({"1|3|1|of three||||0|", "2|4|1|of nine||||0|", "3|0|1|of nobody||||0|"}));
}

TEST_F(FileCommands, RenumberOfAnEmptySchemeDoesNothing) {
    wizard.openNodes(writeBytes(folder / "empty.txt", ""));
    wizard.choose("NR");
    EXPECT_EQ(wizard.navs().Count(), 0);
}

namespace {

bool looksBusy() {
    const auto* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}
bool wasBusy = false;

}  // namespace

TEST_F(FileCommands, LookBusyWhileTheyReadAndDraw) {
    for (const auto* view : {static_cast<const QAbstractItemView*>(&wizard.tree()),
                             static_cast<const QAbstractItemView*>(&wizard.paragraphGrid())})
        QObject::connect(view->model(), &QAbstractItemModel::modelReset, &wizard.window,
                         [] { wasBusy = looksBusy(); });
    const auto expectBusy = [](const std::string& when, const auto& command) {
        wasBusy = false;
        command();
        EXPECT_TRUE(wasBusy) << when;
        EXPECT_FALSE(looksBusy()) << "after " << when;
    };
    expectBusy("opening nodes", [&] { wizard.openNodes(sample("XST1.txt")); });
    expectBusy("opening paragraphs", [&] { wizard.openParagraphs(sample("XST2.txt")); });
    expectBusy("renumbering", [&] { wizard.choose("NR"); });
}

#ifndef _WIN32
TEST_F(FileCommands, LookBusyWhileTheyWrite) {
    openSamples();
    for (const auto& [letters, message] : {std::pair{"NS", ""}, {"WS", "Unable to save file.."}}) {
        writeBytes(folder / "old.txt", "old");
        const AlmostFullDisk disk(1000);
        AlmostFullDisk::onFull([](int) { wasBusy = looksBusy(); });
        wasBusy = false;
        saveOver(letters, folder / "old.txt", message);
        EXPECT_TRUE(wasBusy) << letters;
        EXPECT_FALSE(looksBusy()) << letters;
    }
}
#endif
