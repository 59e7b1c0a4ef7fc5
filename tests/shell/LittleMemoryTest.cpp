// SPDX-License-Identifier: MIT
#include <sys/resource.h>
#include <unistd.h>

#include "EditHelpers.h"

// Commands on a scheme for which there is hardly enough memory: each does all of its job, or leaves the scheme as it
// was and says so; the window goes on working, and a save succeeds. Linux only.

namespace {

constexpr int records = 60'000;
constexpr std::size_t mebibyte = std::size_t{1} << 20;

// While it exists, the process gets no more than `room` bytes, not even what it has freed before.
class LittleMemory {
  public:
    explicit LittleMemory(std::size_t room) {
        void* left = std::malloc(room);
        getrlimit(RLIMIT_AS, &before_);
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlimit limit{pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)), before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
        for (std::size_t size = mebibyte; size >= mebibyte / 8; size /= 2)
            while (void* taken = std::malloc(size)) taken_ = new (taken) Taken{taken_};
        std::free(left);
    }
    ~LittleMemory() {
        setrlimit(RLIMIT_AS, &before_);
        while (taken_) std::free(std::exchange(taken_, taken_->next));
    }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

  private:
    struct Taken {
        Taken* next;
    };
    Taken* taken_ = nullptr;
    rlimit before_{};
};

// What a command showed.
struct Seen {
    Rows messages;
    bool report = false;

    // Closes every window, having saved what a form shows.
    void close(QDialog& window) {
        if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            messages.push_back(box->text().toStdString());
            clickOn(box->buttons().last());
            return;
        }
        if (window.objectName() == text("fWeb")) find<QLineEdit>(window, "txtQuery").setText(text("spW"));
        if (window.objectName() == text("fOutput"))
            report = true;
        else
            press(window, Qt::Key_F3);
        press(window, Qt::Key_Escape);
    }
};

struct Command {
    std::string name;
    std::function<void(Wizard&)> give;
};

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.name;
}

void onTree(Wizard& wizard, Qt::Key key) {
    auto& tree = wizard.tree();
    tree.setFocus();
    tree.setCurrentIndex(tree.model()->index(1, 0, tree.model()->index(0, 0)));
    press(wizard.window, key);
}

void inParagraphPopup(Wizard& wizard, char letter) {
    wizard.paragraphGrid().setFocus();
    wizard.paragraphGrid().selectRow(1);
    press(wizard.window, Qt::Key_Menu);
    chooseInPopup(wizard.window, letter);
}

const Command commands[] = {
    {"Re-Number", [](Wizard& wizard) { ::choose(wizard.window, "NR"); }},
    {"Collapse", [](Wizard& wizard) { ::choose(wizard.window, "NC"); }},
    {"AnalysisOfNodes", [](Wizard& wizard) { ::choose(wizard.window, "NA"); }},
    {"ToDoOfNodes", [](Wizard& wizard) { ::choose(wizard.window, "NT"); }},
    {"AnalysisOfParagraphs", [](Wizard& wizard) { ::choose(wizard.window, "WA"); }},
    {"ToDoOfParagraphs", [](Wizard& wizard) { ::choose(wizard.window, "WT"); }},
    {"Click", [](Wizard& wizard) { onTree(wizard, Qt::Key_Return); }},
    {"Insert", [](Wizard& wizard) { onTree(wizard, Qt::Key_Insert); }},
    {"Edit", [](Wizard& wizard) { onTree(wizard, Qt::Key_F2); }},
    {"Delete", [](Wizard& wizard) { onTree(wizard, Qt::Key_Delete); }},
    {"New", [](Wizard& wizard) { ::choose(wizard.window, "NN"); }},
    {"AddParagraph", [](Wizard& wizard) { inParagraphPopup(wizard, 'A'); }},
    {"EditParagraph", [](Wizard& wizard) { inParagraphPopup(wizard, 'E'); }},
    {"DeleteParagraph", [](Wizard& wizard) { inParagraphPopup(wizard, 'D'); }},
    {"FullTable", [](Wizard& wizard) { inParagraphPopup(wizard, 'F'); }},
    {"Orphans", [](Wizard& wizard) { inParagraphPopup(wizard, 'O'); }},
};

struct State {
    Rows nodes, paragraphs;
    bool operator==(const State&) const = default;
};

class LittleMemoryFor : public testing::TestWithParam<Command> {
  protected:
    LittleMemoryFor() {
        std::string nodes = "5,Top,F,0\r\n";
        std::string paragraphs;
        for (int id = 2; id <= records; ++id) {
            const int number = id * 7;
            nodes += std::to_string(number) + ",node,F," + std::to_string(id < 100 ? 5 : id / 3 * 7) + "\r\n";
            paragraphs +=
                std::to_string(id) + "," + std::to_string(id % 10 == 0 ? 3 : number) + ",1,title,spW,,T\r\n";
        }
        writeBytes(folder / "nodes", nodes);
        writeBytes(folder / "paragraphs", paragraphs);
    }

    void open(Wizard& wizard) const {
        wizard.openNodes(folder / "nodes");
        wizard.openParagraphs(folder / "paragraphs");
        activate(wizard.window);
    }
    static State stateOf(Wizard& wizard) { return {rowsOf(wizard.navs()), rowsOf(wizard.navs().oWebs)}; }

    // The tree shows the scheme, or nothing where there was no memory for it.
    static void expectTreeOfTheScheme(Wizard& wizard) {
        const auto& shown = dynamic_cast<NavTree&>(wizard.tree()).treeModel().snapshot();
        if (shown.count() == 0) return;
        ASSERT_EQ(shown.count(), static_cast<unsigned>(wizard.navs().Count()));
        for (std::uint32_t row = 1; row < shown.count(); row += 97) {
            const auto node = wizard.navs().Item(shown.row(row).id);
            ASSERT_TRUE(node && node->descriptionIs == shown.row(row).text.view()) << shown.row(row).id;
        }
    }

    const TempFolder folder;
};

}  // namespace

TEST_P(LittleMemoryFor, DoesAllOrNothingAndThenSaves) {
#ifdef WIZARD_SANITIZED
    GTEST_SKIP() << "the sanitizer takes memory by its own rules";
#endif
    State before, done;
    Seen normal;
    {
        Wizard wizard;
        open(wizard);
        before = stateOf(wizard);
        const Attendant attendant([&](QDialog& window) { normal.close(window); });
        GetParam().give(wizard);
        QTest::qWait(50);
        done = stateOf(wizard);
        EXPECT_EQ(normal.messages, Rows());
    }
    for (const std::size_t room : {1U, 6U}) {
        Wizard wizard;
        open(wizard);
        Seen seen;
        {
            const LittleMemory limit(room * mebibyte);
            {
                const Attendant attendant([&](QDialog& window) { seen.close(window); });
                GetParam().give(wizard);
                QTest::qWait(50);
            }
            wizard.saveNodes(folder / "saved1");
            if (wizard.navs().oWebs.Count() != 0) wizard.saveParagraphs(folder / "saved2");
        }
        const auto now = stateOf(wizard);
        EXPECT_TRUE(now == done || now == before) << "half done with " << room << " MiB";
        EXPECT_LE(seen.messages.size(), 1U);
        const auto message = seen.messages.empty() ? std::string() : seen.messages.front();
        if (message.empty()) {
            EXPECT_TRUE(now == done && seen.report == normal.report) << "nothing said with " << room << " MiB";
        } else if (message == "There is not enough memory for this command. The scheme has not changed.") {
            EXPECT_TRUE(now == before) << "it is not as it was with " << room << " MiB";
        } else if (message == "There is not enough memory. Changes not saved") {
            EXPECT_TRUE(now == before) << "changed with " << room << " MiB";
        } else {
            EXPECT_EQ(message,
                      "There is not enough memory to show the whole scheme. Nothing is lost, and you can save it.");
            EXPECT_TRUE(now == done) << room;
        }
        expectTreeOfTheScheme(wizard);
        EXPECT_TRUE(wizard.window.isVisible());
        EXPECT_TRUE(bytesOf(folder / "saved1.txt") == savedBytes(wizard.navs())) << room;
        if (wizard.navs().oWebs.Count() != 0) {
            EXPECT_TRUE(bytesOf(folder / "saved2.txt") == savedBytes(wizard.navs().oWebs)) << room;
        }
        std::filesystem::remove(folder / "saved1.txt");
        std::filesystem::remove(folder / "saved2.txt");
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, LittleMemoryFor, testing::ValuesIn(commands), [](const auto& each) {
    return std::string(each.param.name == "Re-Number" ? "ReNumber" : each.param.name);
});
