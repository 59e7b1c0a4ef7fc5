// SPDX-License-Identifier: MIT
#include <malloc.h>

#include <cstdlib>

#include "EditHelpers.h"

// The same work over and over again leaves nothing behind. Linux only. The leak check of the address sanitizer
// reports what nothing points to any more.
//
// ROUNDS=100 makes more rounds.

namespace {

int rounds() {
    const char* given = std::getenv("ROUNDS");
    return given ? std::atoi(given) : 10;
}

std::size_t bytesInUse() {
    const auto now = mallinfo2();
    return now.uordblks + now.hblkhd;
}

std::ptrdiff_t openFiles() {
    return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd"));
}

void edit(Wizard& wizard) {
    {
        Answers answers;
        answers.then("fNav", [](QDialog& form) {
            enter(form, "txtDescription", "Added");
            press(form, Qt::Key_F3);
            press(form, Qt::Key_Escape);
        });
        activate(wizard.window);
        wizard.tree().setFocus();
        press(wizard.window, Qt::Key_Home);
        press(wizard.window, Qt::Key_Insert);
    }
    {
        Answers answers;
        answers.then("fWeb", [](QDialog& form) {
            enter(form, "txtTitle", "Changed");
            press(form, Qt::Key_F3);
            press(form, Qt::Key_Escape);
        });
        wizard.paragraphGrid().setFocus();
        press(wizard.window, Qt::Key_Down);
        press(wizard.window, Qt::Key_Menu);
        press(wizard.window, Qt::Key_E);
    }
    wizard.choose("NR");
    for (const std::string report : {"NA", "NT", "WA", "WT"}) {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, report);
    }
}

}  // namespace

TEST(Rounds, OfOpeningEditingAndSavingLeaveNoWindowBehind) {
    const TempFolder folder;
    Wizard wizard;
    qsizetype objects = 0;
    qsizetype windows = 0;
    std::ptrdiff_t files = 0;
    for (int round = 0; round < rounds(); ++round) {
        wizard.openNodes(sample("XST1.txt"));
        wizard.openParagraphs(sample("XST2.txt"));
        edit(wizard);
        for (const auto& [letters, name] : {std::pair{"NS", "nodes.txt"}, {"WS", "paragraphs.txt"}}) {
            // Every second time the file is there, and is replaced.
            if (round % 2 == 0) std::filesystem::remove(folder / name);
            const auto before = round % 2 == 0 ? "" : bytesOf(folder / name);
            Answers answers;
            answers.then("GetSaveAsName", entering(folder / name));
            if (round % 2 != 0) {
                writeBytes(folder / name, "old");
                answers.then("", [](QDialog& question) {
                    clickOn(static_cast<QMessageBox&>(question).button(QMessageBox::Yes));
                });
            }
            choose(wizard.window, letters);
            answers.wait();
            const auto saved = bytesOf(folder / name);
            EXPECT_GT(saved.size(), 1'000U);
            EXPECT_TRUE(round % 2 == 0 || saved == before) << "the same work";
        }
        if (round == 1) {
            objects = wizard.window.findChildren<QObject*>().size();
            windows = QApplication::topLevelWidgets().size();
            files = openFiles();
        }
    }
    EXPECT_EQ(wizard.window.findChildren<QObject*>().size(), objects);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    EXPECT_EQ(openFiles(), files);
}

// Without the file dialogs: Qt keeps some kilobytes of each.
TEST(Rounds, OfEditingKeepNoMemory) {
#ifdef WIZARD_SANITIZED
    GTEST_SKIP() << "the sanitizer manages memory in its own way";
#endif
    const TempFolder folder;
    Wizard wizard;
    constexpr int warmUp = 10;  // fills what is kept once: fonts, glyphs, styles
    std::size_t before = 0;
    for (int round = 0; round < warmUp + rounds(); ++round) {
        if (round == warmUp) before = bytesInUse();
        EXPECT_TRUE(wizard.navs().LoadData(sample("XST1.txt")));
        static_cast<void>(wizard.navs().LoadWeb(sample("XST2.txt")));
        edit(wizard);
        EXPECT_TRUE(wizard.navs().SaveData(folder / "nodes.txt"));
        EXPECT_TRUE(wizard.navs().SaveWeb(folder / "paragraphs.txt"));
    }
    const auto now = bytesInUse();
    const auto grown = now > before ? now - before : 0;
    constexpr std::size_t ofARound = 8'000;  // a form or the records of a sample take several times that
    EXPECT_LT(grown, ofARound * static_cast<std::size_t>(rounds()))
        << "bytes more than after " << warmUp << " rounds";
}
