// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <new>

#include "EditHelpers.h"

// Commands of which single large requests for memory are refused, such as those for the arrays of a redraw: each does
// all of its job or leaves the scheme as it was, and says which of both where it could not do all.

#ifndef WIZARD_SANITIZED

#include "tests/ReplacedNew.h"

namespace {

constexpr std::size_t large = 7'000;  // bytes
std::set<int> refused;                // by their number since the command began
int requests = -1;                    // so many since then; -1 while no command runs
int refusals = 0;

// Whether this is code of the program and not of Qt, whose caches grow when they are full, whatever the command.
bool isOurs(const void* code) {
    static const int ours = 0;
    Dl_info of{};
    Dl_info own{};
    return dladdr(code, &of) != 0 && dladdr(&ours, &own) != 0 && of.dli_fbase == own.dli_fbase;
}

}  // namespace

static void* allocate(std::size_t size, const void* caller) noexcept {
    if (requests >= 0 && size >= large && isOurs(caller) && refused.contains(requests++)) {
        ++refusals;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

namespace {

const std::string notDone = "There is not enough memory for this command. The scheme has not changed.";
const std::string notShown =
    "There is not enough memory to show the whole scheme. Nothing is lost, and you can save it.";

struct Outcome {
    Rows nodes, paragraphs;
    Rows screen;  // how much of them it shows
    Rows messages;
    int refusals;
    int requests;
};

class RefusedMemory : public testing::Test {
  protected:
    RefusedMemory() {
        std::string nodes = "5,Top,F,0\r\n";
        std::string paragraphs;
        for (int id = 2; id <= 2'000; ++id) {
            const int number = id * 7;
            nodes += std::to_string(number) + ",node,F," + std::to_string(id < 100 ? 5 : id / 3 * 7) + "\r\n";
            paragraphs += std::to_string(id) + "," + std::to_string(number) + ",1,title,spW,,T\r\n";
        }
        writeBytes(folder_ / "nodes", nodes);
        writeBytes(folder_ / "paragraphs", paragraphs);
    }

    using Command = std::function<void(Wizard&)>;

    Outcome after(const Command& command, const std::set<int>& which) {
        Wizard wizard;
        wizard.openNodes(folder_ / "nodes");
        wizard.openParagraphs(folder_ / "paragraphs");
        activate(wizard.window);
        Outcome outcome{};
        refused = which;
        refusals = requests = 0;
        {
            const Attendant attendant([&](QDialog& window) {
                if (auto* box = qobject_cast<QMessageBox*>(&window))
                    outcome.messages.push_back(box->text().toStdString());
                press(window, Qt::Key_Escape);
            });
            command(wizard);
            QTest::qWait(20);
        }
        outcome.requests = std::exchange(requests, -1);
        outcome.refusals = refusals;
        outcome.nodes = rowsOf(wizard.navs());
        outcome.paragraphs = rowsOf(wizard.navs().oWebs);
        // As soon as there is memory again, it works.
        const auto& shown = dynamic_cast<NavTree&>(wizard.tree()).treeModel().snapshot();
        EXPECT_TRUE(shown.count() == 0 || shown.count() == static_cast<unsigned>(wizard.navs().Count()));
        outcome.screen = {std::to_string(shown.count()) + " nodes",
                          std::to_string(wizard.nodeGrid().model()->rowCount()) + " rows of nodes",
                          std::to_string(wizard.paragraphGrid().model()->rowCount()) + " rows of paragraphs"};
        wizard.saveNodes(folder_ / "saved");
        EXPECT_TRUE(bytesOf(folder_ / "saved.txt") == savedBytes(wizard.navs()));
        std::filesystem::remove(folder_ / "saved.txt");
        return outcome;
    }

    // Returns how many requests there were.
    int expectAllOrNothing(const Command& command, const std::set<int>& which, const Outcome& before,
                           const Outcome& done) {
        const auto now = after(command, which);
        const bool isDone = now.nodes == done.nodes && now.paragraphs == done.paragraphs;
        const bool isAsBefore = now.nodes == before.nodes && now.paragraphs == before.paragraphs;
        EXPECT_TRUE(isDone || isAsBefore) << "half done";
        EXPECT_LE(now.messages.size(), 1U);
        seen_.insert(now.messages.begin(), now.messages.end());
        if (now.messages == Rows{notDone})
            EXPECT_TRUE(isAsBefore);
        else
            EXPECT_TRUE(isDone) << testing::PrintToString(now.messages);
        if (now.messages != Rows{notShown}) {
            EXPECT_EQ(now.screen, done.screen);
        }
        refusals_ += now.refusals;
        return now.requests;
    }

    std::set<std::string> seen_;  // all messages
    int refusals_ = 0;
    const TempFolder folder_;
};

}  // namespace

TEST_F(RefusedMemory, ReNumberDoesAllOrNothing) {
    const Command renumber = [](Wizard& wizard) { ::choose(wizard.window, "NR"); };
    const auto before = after([](Wizard&) {}, {});
    const auto done = after(renumber, {});
    EXPECT_EQ(done.messages, Rows());
    ASSERT_GT(done.requests, 3);
    // Where the nodes could not be filed anew, that is tried again with the memory of the screen, which is then
    // drawn.
    int longest = 0;
    int refiled = 0;
    for (int request = 0; request < done.requests; ++request) {
        SCOPED_TRACE("request " + std::to_string(request));
        const int count = expectAllOrNothing(renumber, {request}, before, done);
        if (count > longest) refiled = request;
        longest = std::max(longest, count);
    }
    EXPECT_EQ(seen_, std::set{notDone});
    EXPECT_GT(refusals_, 10);
    for (int request = longest - 12; request < longest; ++request) {
        SCOPED_TRACE("requests " + std::to_string(refiled) + " and " + std::to_string(request));
        expectAllOrNothing(renumber, {refiled, request}, before, done);
    }
    EXPECT_EQ(seen_, (std::set{notDone, notShown}));
}

// What a click could not draw is drawn with the memory of the reserve.
TEST_F(RefusedMemory, AClickShowsAllParagraphsOfTheNode) {
    std::string paragraphs;
    for (int id = 1; id <= 3'000; ++id)
        paragraphs += std::to_string(id) + (id <= 2'500 ? ",5" : ",14") + ",1,title,spW,,T\r\n";
    writeBytes(folder_ / "paragraphs", paragraphs);
    const Command click = [](Wizard& wizard) { wizard.click("Data Browser"); };
    const auto done = after(click, {});
    EXPECT_EQ(done.screen.at(2), "2500 rows of paragraphs");
    ASSERT_GT(done.requests, 0);
    for (int request = 0; request < done.requests; ++request) {
        SCOPED_TRACE("request " + std::to_string(request));
        expectAllOrNothing(click, {request}, done, done);
    }
    EXPECT_EQ(seen_, std::set<std::string>());
    EXPECT_GT(refusals_, 0);
}

#endif
