#include <malloc.h>

#include "EditHelpers.h"

// The same work over and over again leaves nothing behind. Linux only; what was forgotten altogether the leak check
// of the address sanitizer reports.

namespace {

#ifdef WIZARD_SANITIZED
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
std::size_t bytesInUse() {
    return __sanitizer_get_current_allocated_bytes();
}
#else
std::size_t bytesInUse() {
    const auto now = mallinfo2();
    return now.uordblks + now.hblkhd;
}
#endif

void round(Wizard& wizard, const TempFolder& folder) {
    wizard.openNodes(sample("XST1.txt"));
    wizard.openParagraphs(sample("XST2.txt"));
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
    for (const auto& [letters, name] : {std::pair{"NS", "nodes.txt"}, {"WS", "paragraphs.txt"}}) {
        std::filesystem::remove(folder / name);
        wizard.choose(letters, "GetSaveAsName", folder / name);
        EXPECT_TRUE(std::filesystem::exists(folder / name));
    }
}

}  // namespace

TEST(Rounds, AHundredLeaveNothingBehind) {
    const TempFolder folder;
    Wizard wizard;
    constexpr int first = 20;  // fill what is kept once: fonts, glyphs, styles
    constexpr int all = 100;
    std::size_t before = 0;
    qsizetype objects = 0;
    qsizetype windows = 0;
    for (int done = 0; done < all; ++done) {
        if (done == first) {
            before = bytesInUse();
            objects = wizard.window.findChildren<QObject*>().size();
            windows = QApplication::topLevelWidgets().size();
        }
        round(wizard, folder);
    }
    EXPECT_EQ(wizard.window.findChildren<QObject*>().size(), objects);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    const auto now = bytesInUse();
    constexpr std::size_t aRound = 1000;  // less than any window or record list takes
    EXPECT_LT(now, before + aRound * (all - first)) << now - before << " bytes more";
    RecordProperty("bytes", std::to_string(static_cast<long long>(now) - static_cast<long long>(before)));
}
