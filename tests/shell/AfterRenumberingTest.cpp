// SPDX-License-Identifier: MIT
#include <QPlainTextEdit>
#include <algorithm>
#include <random>

#include "EditHelpers.h"
#include "views/NavTree.h"

// After Re-Number every command acts on the node that the screen shows: just as it does when both files are saved and
// opened again.

namespace {

// A tree in which every node can be reached, in any order and with any numbers, and paragraphs, some without a node.
struct Files {
    std::string nodes, paragraphs;
};
Files drawFiles(std::mt19937& random) {
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::vector<int> ids;
    for (int id = 1; id <= 40; ++id) ids.push_back(id);
    std::ranges::shuffle(ids, random);
    ids.resize(static_cast<std::size_t>(2 + pick(14)));
    Rows lines;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto parent = i == 0 ? 0 : ids[static_cast<std::size_t>(pick(static_cast<int>(i)))];
        const std::string type = pick(3) != 0 ? "F" : std::string(1, "GRN"[pick(3)]);
        lines.push_back(std::to_string(ids[i]) + ",d" + std::to_string(ids[i]) + "," + type + "," +
                        std::to_string(parent) + ",spG,Lkey,leaf,\r\n");
    }
    std::shuffle(lines.begin() + 1, lines.end(), random);
    Files files;
    for (const auto& line : lines) files.nodes += line;
    for (int id = 1; id <= 12; ++id) {
        const auto node = pick(5) == 0 ? 90 : ids[static_cast<std::size_t>(pick(static_cast<int>(ids.size())))];
        files.paragraphs += std::to_string(id * 3) + "," + std::to_string(node) + "," + std::to_string(id) + ",p" +
                            std::to_string(id) + ",spW,Lkey,S,0,2,x\r\n";
    }
    return files;
}

// A user who continues to work after Re-Number, at once or with the files saved and opened again. What the user does
// depends on the seed and on what the screen shows.
class Worker {
  public:
    Worker(unsigned seed, bool opensAgain) : random_(seed) {
        const auto files = drawFiles(random_);
        wizard_.openNodes(writeBytes(folder_ / "nodes", files.nodes));
        wizard_.openParagraphs(writeBytes(folder_ / "paragraphs", files.paragraphs));
        if (pick(2) == 0) wizard_.click("Data Browser");
        wizard_.choose("NR");
        if (opensAgain) {
            saveBoth("between");
            wizard_.openNodes(folder_ / "between1.txt");
            wizard_.openParagraphs(folder_ / "between2.txt");
        }
    }

    /// What was on the screen after each step, and what is saved in the end.
    Rows work(int steps) {
        look();
        for (int step = 0; step < steps; ++step) {
            command();
            look();
        }
        saveBoth("end");
        seen_.push_back(bytesOf(folder_ / "end1.txt"));
        if (wizard_.navs().oWebs.Count() != 0) seen_.push_back(bytesOf(folder_ / "end2.txt"));
        return seen_;
    }

  private:
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void saveBoth(const std::string& name) {
        wizard_.saveNodes(folder_ / (name + "1"));
        if (wizard_.navs().oWebs.Count() != 0) wizard_.saveParagraphs(folder_ / (name + "2"));
    }

    // Selects a node without a click, wherever it is in the tree.
    void selectSomeNode() {
        auto& tree = dynamic_cast<NavTree&>(wizard_.tree());
        const auto row = static_cast<std::uint32_t>(pick(static_cast<int>(tree.treeModel().snapshot().count())));
        activate(wizard_.window);
        tree.setFocus();
        tree.scrollTo(tree.treeModel().indexOf(row));
        tree.setCurrentIndex(tree.treeModel().indexOf(row));
        seen_.push_back("at " + tree.SelectedKey());
    }
    void selectSomeParagraph() {
        auto& grid = wizard_.paragraphGrid();
        activate(wizard_.window);
        grid.setFocus();
        if (grid.model()->rowCount() != 0) grid.selectRow(pick(grid.model()->rowCount()));
    }

    void inPopup(char letter) {
        press(wizard_.window, Qt::Key_Menu);
        if (openPopup().empty()) return;
        const int edits = pick(6);
        const Attendant attendant([this, edits](QDialog& window) { answer(window, edits); });
        press(wizard_.window, static_cast<Qt::Key>(letter));
    }
    void onNode(Qt::Key key) {
        const int edits = pick(6);
        const Attendant attendant([this, edits](QDialog& window) { answer(window, edits); });
        press(wizard_.window, key);
    }

    // Notes what a window shows, and leaves it.
    void answer(QDialog& window, int edits) {
        if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            seen_.push_back("says " + box->text().toStdString());
            clickOn(box->buttons().last());
        } else if (window.objectName() == text("fOutput")) {
            // The findings stand in the order of the file, which a save changes.
            auto lines = find<QPlainTextEdit>(window, "Text1").toPlainText().split(QLatin1Char('\n'));
            lines.sort();
            seen_.push_back("report " + lines.join(QLatin1Char('\n')).toStdString());
            press(window, Qt::Key_Escape);
        } else {
            const bool isNode = window.objectName() == text("fNav");
            seen_.push_back("form " + (isNode ? nodeIn(window) : paragraphIn(window)));
            edit(window, edits);
        }
    }

    void edit(QDialog& form, int how) {
        const bool isNode = form.objectName() == text("fNav");
        if (how >= 1) enter(form, isNode ? "txtDescription" : "txtTitle", "e" + std::to_string(++entered_));
        if (how >= 2 && find<QLineEdit>(form, "txtQuery").isEnabled()) enter(form, "txtQuery", "spX");
        if (how >= 4) {
            find(form, "lstType").setFocus();
            QTest::keyClick(form.windowHandle(), how == 4 ? Qt::Key_Up : Qt::Key_Down);
        }
        if (how >= 1) press(form, Qt::Key_F3);
        press(form, Qt::Key_Escape);
    }

    void command() {
        switch (pick(13)) {
            case 0:
            case 1: selectSomeNode(); return onNode(Qt::Key_F2);
            case 2:
            case 3: selectSomeNode(); return onNode(Qt::Key_Insert);
            case 4: selectSomeNode(); return onNode(Qt::Key_Delete);
            case 5: selectSomeNode(); return press(wizard_.window, Qt::Key_Return);
            case 6: selectSomeNode(); return inPopup('A');
            case 7: selectSomeNode(); return inPopup('E');
            case 8: selectSomeParagraph(); return inPopup("AEEDFO"[pick(6)]);
            case 9: selectSomeParagraph(); return inPopup('A');
            case 10: return wizard_.choose(pick(2) == 0 ? "NR" : "NC");
            case 11: {
                const Attendant attendant([this](QDialog& window) { answer(window, 0); });
                return ::choose(wizard_.window, pick(2) == 0 ? "WA" : "NA");
            }
            default: selectSomeNode(); return onNode(pick(2) == 0 ? Qt::Key_F2 : Qt::Key_Return);
        }
    }

    void look() {
        const auto add = [&](Rows rows) { seen_.insert(seen_.end(), rows.begin(), rows.end()); };
        add(shownRows(wizard_.tree()));
        auto nodes = shownRows(wizard_.nodeGrid());  // their order is that of the file, which a save changes
        std::ranges::sort(nodes);
        add(nodes);
        add(shownRows(wizard_.paragraphGrid()));
        seen_.push_back("last " + wizard_.navs().mLastN);
    }

    std::mt19937 random_;
    Rows seen_;
    TempFolder folder_;
    Wizard wizard_;
    int entered_ = 0;
};

class AfterRenumbering : public testing::TestWithParam<unsigned> {};

}  // namespace

TEST_P(AfterRenumbering, EverythingIsAsAfterSavingAndOpeningAgain) {
    constexpr int steps = 25;
    const auto expected = Worker(GetParam(), true).work(steps);
    const auto seen = Worker(GetParam(), false).work(steps);
    ASSERT_GT(seen.size(), 50U);
    const auto [a, b] = std::ranges::mismatch(seen, expected);
    if (a != seen.end() && b != expected.end()) {
        EXPECT_EQ(*a, *b) << "entry " << a - seen.begin();
    }
    EXPECT_EQ(seen.size(), expected.size());
}

// Unreachable nodes, such as those in loops and those without a parent, then share a number.
TEST_P(AfterRenumbering, EveryCommandHitsTheNodeThatTheTreeShows) {
    std::mt19937 random(GetParam());
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const TempFolder folder;
    std::string lines;
    for (int place = 0; place < 14; ++place) {
        const int id = place * 3 % 14;
        const int parent = place == 2 ? 0 : pick(16);
        lines += std::to_string(id) + ",d" + std::to_string(id) + ",F," + std::to_string(parent) + "\r\n";
    }
    Wizard wizard;
    wizard.openNodes(writeBytes(folder / "nodes", lines));
    ASSERT_EQ(wizard.navs().Count(), 14);
    for (int round = 0; round < 2; ++round) {
        wizard.choose("NR");
        ASSERT_EQ(wizard.navs().Count(), 14) << "no node is lost";
    }
    auto& tree = dynamic_cast<NavTree&>(wizard.tree());
    const auto select = [&](std::uint32_t row) {
        activate(wizard.window);
        tree.setFocus();
        tree.scrollTo(tree.treeModel().indexOf(row));
        tree.setCurrentIndex(tree.treeModel().indexOf(row));
    };
    for (std::uint32_t row = 1; row < tree.treeModel().snapshot().count(); ++row) {
        const auto& shown = tree.treeModel().snapshot().row(row);
        const auto number = std::to_string(shown.id);
        const std::string description(shown.text.view());
        if (wizard.navs().Item(number)->parentIs == 0) continue;  // as a root it cannot be edited
        Answers answers;
        answers.then("fNav", [&](QDialog& form) {
            EXPECT_EQ(valueOf(form, "txtID"), number);
            EXPECT_EQ(valueOf(form, "txtDescription"), description);
            escape(form);
        });
        select(row);
        press(wizard.window, Qt::Key_F2);
        answers.wait();
    }
    if (const auto count = tree.treeModel().snapshot().count(); count > 1) {
        const auto row = count - 1;  // the last one has nothing below it
        const std::string description(tree.treeModel().snapshot().row(row).text.view());
        const auto node = wizard.navs().Item(std::to_string(tree.treeModel().snapshot().row(row).id));
        const bool isRoot = node->parentIs == 0;
        const Attendant attendant(escape);
        select(row);
        press(wizard.window, Qt::Key_Delete);
        const auto left = rowsOf(wizard.navs());
        const bool isThere = std::ranges::any_of(
            left, [&](const std::string& each) { return each.find("|" + description + "|") != std::string::npos; });
        EXPECT_EQ(isThere, isRoot) << description;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AfterRenumbering, testing::Range(1U, 13U));
