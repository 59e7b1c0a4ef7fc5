// SPDX-License-Identifier: MIT
#include <QInputDialog>

#include "FileDialogHelpers.h"

// The button of the file dialogs when a folder is selected: it says "Open", and opens that folder.

namespace {

struct Way {
    std::string dialog;
    bool withTheMouse;
};

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.dialog << (way.withTheMouse ? " with the mouse" : " with Alt+O");
}

class FileDialogFolder : public testing::TestWithParam<Way> {
  protected:
    FileDialogFolder() {
        for (const char* name : {"a.txt", "b.txt", "my \"new\" nodes.txt"}) writeBytes(folder / name, "1");
        std::filesystem::create_directory(folder / "sub");
        writeBytes(folder / "sub/inner.txt", "1");
        window.show();
        activate(window);
    }

    [[nodiscard]] bool saves() const { return GetParam().dialog == "GetSaveAsName"; }

    // Asks for a file. For saving, it proposes a name that exists in no folder.
    std::string ask(Answers::Answer answer) {
        Answers answers;
        answers.then(GetParam().dialog, [&](QDialog& dialog) {
            namesWhen(dialog, {"a.txt", "b.txt", "my \"new\" nodes.txt", "sub"});
            activate(dialog);
            answer(dialog);
        });
        if (asksToOverwrite)
            answers.then("", [](QDialog& question) {
                clickOn(dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes));
            });
        const auto start = text(folder.path().string());
        return (saves() ? window.GetSaveAsName(text("XST1.txt"), start) : window.GetOpenName(start)).string();
    }

    static void clickInList(QDialog& dialog, const std::string& name) {
        auto& list = find<QTreeView>(dialog, "treeView");
        const auto found = list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                               text(name), 1, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << name;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(found.front()).center());
    }
    static void typeName(QDialog& dialog, const std::string& name) {
        auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
        QTest::mouseClick(&edit, Qt::LeftButton);
        edit.selectAll();
        for (const char letter : name) QTest::keyClick(&edit, letter);
    }
    QPushButton& button(QDialog& dialog) const {
        auto* found = find<QDialogButtonBox>(dialog, "buttonBox")
                          .button(saves() ? QDialogButtonBox::Save : QDialogButtonBox::Open);
        if (!found) throw std::runtime_error("there is no such button");
        return *found;
    }
    void expectButton(QDialog& dialog, const std::string& caption) const {
        EXPECT_EQ(button(dialog).text(), text(caption));
        EXPECT_TRUE(button(dialog).isEnabled());
    }
    // Presses the button, whose letter is given.
    void pressButton(QDialog& dialog, Qt::Key letter) const {
        if (GetParam().withTheMouse)
            clickOn(&button(dialog));
        else
            press(dialog, letter, Qt::AltModifier);
    }
    void pressForFile(QDialog& dialog) const { pressButton(dialog, saves() ? Qt::Key_S : Qt::Key_O); }

    // Presses the button while "sub" is selected, and expects to be in it.
    void expectToEnterSub(QDialog& dialog) const {
        expectButton(dialog, "&Open");
        pressButton(dialog, Qt::Key_O);
        expectSub(dialog);
    }
    void expectSub(QDialog& dialog) const {
        const auto sub = (folder / "sub").string();
        EXPECT_TRUE(QTest::qWaitFor([&] { return folderOf(dialog) == sub; }, patience)) << folderOf(dialog);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(namesWhen(dialog, {"inner.txt"}), Rows({"inner.txt"}));
    }

    const TempFolder folder;
    fMain window;
    bool asksToOverwrite = false;
};

}  // namespace

TEST_P(FileDialogFolder, ThatIsSelectedIsEntered) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  expectToEnterSub(dialog);
                  EXPECT_EQ(nameIn(dialog), saves() ? "XST1.txt" : "");
                  if (!saves()) clickInList(dialog, "inner.txt");
                  pressForFile(dialog);
              }),
              (folder / (saves() ? "sub/XST1.txt" : "sub/inner.txt")).string());
}

// The keyboard used to go to the next button, which cancels.
TEST_P(FileDialogFolder, ThatIsEnteredLeavesTheKeyboardWhereAFileCanBeChosen) {
    ask([&](QDialog& dialog) {
        clickInList(dialog, "sub");
        expectToEnterSub(dialog);
        ASSERT_NE(dialog.focusWidget(), nullptr);
        const auto focus = dialog.focusWidget()->objectName();
        EXPECT_TRUE(focus == text("fileNameEdit") || focus == text("treeView")) << focus.toStdString();
        cancel(dialog);
    });
}

TEST_P(FileDialogFolder, ThatIsSelectedAfterAFileIsEntered) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "a.txt");
                  EXPECT_EQ(nameIn(dialog), "a.txt");
                  clickInList(dialog, "sub");
                  expectToEnterSub(dialog);
                  EXPECT_EQ(nameIn(dialog), saves() ? "a.txt" : "");
                  cancel(dialog);
              }),
              "");
}

TEST_P(FileDialogFolder, AFileThatIsSelectedAfterItIsTaken) {
    asksToOverwrite = saves();
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  clickInList(dialog, "b.txt");
                  expectButton(dialog, saves() ? "&Save" : "&Open");
                  pressForFile(dialog);
              }),
              (folder / "b.txt").string());
}

TEST_P(FileDialogFolder, APathThatIsTypedAfterItIsTaken) {
    const TempFolder other;
    writeBytes(other / "c.txt", "1");
    asksToOverwrite = saves();
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  typeName(dialog, (other / "c.txt").string());
                  pressForFile(dialog);
              }),
              (other / "c.txt").string());
}

TEST_P(FileDialogFolder, ANameThatIsTypedAfterItIsTaken) {
    asksToOverwrite = saves();
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  typeName(dialog, "a.txt");
                  expectButton(dialog, saves() ? "&Save" : "&Open");
                  pressForFile(dialog);
              }),
              (folder / "a.txt").string());
}

TEST_P(FileDialogFolder, ANameWithAQuotationMarkThatIsTypedAfterItIsTaken) {
    asksToOverwrite = saves();
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  typeName(dialog, "my \"new\" nodes.txt");
                  pressForFile(dialog);
              }),
              (folder / "my \"new\" nodes.txt").string());
}

TEST_P(FileDialogFolder, ANameWithAQuotationMarkThatNoFileHasCannotBeOpened) {
    if (saves()) return;
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  typeName(dialog, "my \"old\" nodes.txt");
                  EXPECT_TRUE(QTest::qWaitFor([&] { return !button(dialog).isEnabled(); }, patience));
                  typeName(dialog, "a.txt");
                  expectButton(dialog, "&Open");
                  pressForFile(dialog);
              }),
              (folder / "a.txt").string());
}

TEST_P(FileDialogFolder, TheProposedNameTypedOnceMoreIsTaken) {
    if (!saves()) return;  // no name is proposed for opening
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  clickInList(dialog, "sub");
                  typeName(dialog, "XST1.txt");
                  expectButton(dialog, "&Save");
                  pressForFile(dialog);
              }),
              (folder / "XST1.txt").string());
}

TEST_P(FileDialogFolder, ThatIsTypedIsEntered) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  typeName(dialog, "sub");
                  pressForFile(dialog);
                  expectSub(dialog);
                  cancel(dialog);
              }),
              "");
}

TEST_P(FileDialogFolder, ThatIsMadeIsEntered) {
    if (!saves()) {
        ask([](QDialog& dialog) {
            EXPECT_FALSE(find<QToolButton>(dialog, "newFolderButton").isVisible())
                << "there is nothing to open in it";
            cancel(dialog);
        });
        return;
    }
    Answers answers;
    answers
        .then("GetSaveAsName",
              [&](QDialog& dialog) {
                  clickButton(dialog, "newFolderButton");  // until its question is answered
                  EXPECT_EQ(folderOf(dialog), (folder / "made").string());
                  EXPECT_EQ(nameIn(dialog), "XST1.txt");
                  expectButton(dialog, "&Save");
                  pressForFile(dialog);
              })
        .then("newFolder", [](QDialog& question) {
            EXPECT_EQ(question.windowTitle(), text("New Folder"));
            EXPECT_EQ(dynamic_cast<QInputDialog&>(question).labelText(), text("Name of the new folder:"));
            activate(question);
            QTest::keyClicks(question.focusWidget(), text("made"));
            press(question, Qt::Key_Return);
        });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
              (folder / "made/XST1.txt").string());
    EXPECT_EQ(folder.names(), Rows({"a.txt", "b.txt", "made", "my \"new\" nodes.txt", "sub"}));
}

INSTANTIATE_TEST_SUITE_P(Ways, FileDialogFolder,
                         testing::Values(Way{"GetOpenName", true}, Way{"GetOpenName", false},
                                         Way{"GetSaveAsName", true}, Way{"GetSaveAsName", false}));

namespace {

// Presses the button for a new folder and answers its question; no folder may be made.
void expectNoNewFolder(const TempFolder& folder, Answers& answers, const Answers::Answer& answer) {
    fMain window;
    window.show();
    activate(window);
    const auto before = folder.names();
    answers.then("newFolder", answer);
    QTimer::singleShot(0, &window, [&] {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, patience));
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        clickButton(dialog, "newFolderButton");
        EXPECT_EQ(folderOf(dialog), folder.path().string());
        cancel(dialog);
    });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), "");
    answers.wait();
    EXPECT_EQ(folder.names(), before);
}

}  // namespace

TEST(NewFolder, IsNotMadeWhenItIsCancelled) {
    const TempFolder folder;
    Answers answers;
    expectNoNewFolder(folder, answers, [](QDialog& question) {
        QTest::keyClicks(question.focusWidget(), text("cancelled"));
        escape(question);
    });
}

// Qt disabled the button with the first change of the folder.
TEST(NewFolder, CanBeMadeInANewFolder) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "sub");
    fMain window;
    window.show();
    activate(window);
    QTimer::singleShot(0, &window, [&] {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, patience));
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        enterName(dialog, "sub");
        for (const std::string name : {"one", "two"}) {
            QTest::qWait(100);
            QTimer::singleShot(100, &dialog, [&] {
                auto* question = QApplication::activeModalWidget();
                ASSERT_EQ(question->objectName(), text("newFolder"));
                QTest::keyClicks(question->focusWidget(), text(name));
                QTest::keyClick(question->focusWidget(), Qt::Key_Return);
            });
            clickButton(dialog, "newFolderButton");
        }
        EXPECT_EQ(folderOf(dialog), (folder / "sub/one/two").string());
        cancel(dialog);
    });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), "");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "sub/one/two"));
}

// The Enter that closed a question also saved the file when it repeated.
TEST(NewFolder, AHeldEnterGoesNoFurther) {
    const TempFolder folder;
    fMain window;
    window.show();
    activate(window);
    QTimer::singleShot(0, &window, [&] {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, patience));
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        activate(dialog);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
            QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(&find<QLineEdit>(dialog, "fileNameEdit"), &repeat);
            QTest::qWait(50);
            EXPECT_TRUE(dialog.isVisible());
        }
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
              (folder / "XST1.txt").string());
}

TEST(NewFolder, IsNotMadeWithoutAName) {
    const TempFolder folder;
    Answers answers;
    expectNoNewFolder(folder, answers, [](QDialog& question) { press(question, Qt::Key_Return); });
}

TEST(NewFolder, ThatCannotBeMadeIsReported) {
    const TempFolder folder;
    writeBytes(folder / "taken", "1");
    Answers answers;
    expectNoNewFolder(folder, answers, [&](QDialog& question) {
        answers.then("message", reading("This folder cannot be created:\n" + (folder / "taken").string()));
        QTest::keyClicks(question.focusWidget(), text("taken"));
        press(question, Qt::Key_Return);
    });
}
