// SPDX-License-Identifier: MIT
#include "FileDialogHelpers.h"

namespace {

class SaveDialog : public testing::Test {
  protected:
    SaveDialog() {
        writeBytes(folder / "old.txt", "old");
        writeBytes(folder / "data.csv", "old");
        writeBytes(folder / ".hidden.txt", "old");
        std::filesystem::create_directory(folder / "sub");
        window.show();
        activate(window);
    }

    std::string ask(Answers::Answer answer, const std::string& proposed = "XST1.txt") {
        return asked(
            "GetSaveAsName", [&] { return window.GetSaveAsName(text(proposed), text(folder.path().string())); },
            std::move(answer));
    }

    // What the dialog gives for a typed name.
    std::string saved(const std::string& typed) { return ask(entering(typed)); }

    const TempFolder folder;
    fMain window;
};

void answerOverwrite(QDialog& question, const std::string& name, QMessageBox::StandardButton answer) {
    auto* box = qobject_cast<QMessageBox*>(&question);
    if (!box) throw std::runtime_error("this is no question");
    EXPECT_TRUE(box->text().contains(text(name))) << box->text().toStdString();
    EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
    clickOn(box->button(answer));
}

}  // namespace

TEST_F(SaveDialog, HasItsTitleFiltersNameAndFolder) {
    EXPECT_EQ(ask(
                  [&](QDialog& dialog) {
                      EXPECT_EQ(dialog.windowTitle(), text("Save File As..."));
                      EXPECT_EQ(filterNames(dialog), Rows({"All Files (*.*)", "Text File (.txt)"}));
                      EXPECT_EQ(filters(dialog).currentText(), text("Text File (.txt)"));
                      EXPECT_EQ(folderOf(dialog), folder.path().string());
                      EXPECT_EQ(nameIn(dialog), "proposed.txt");
                      EXPECT_EQ(static_cast<QFileDialog&>(dialog).acceptMode(), QFileDialog::AcceptSave);
                      EXPECT_EQ(static_cast<QFileDialog&>(dialog).defaultSuffix(), text("txt"));
                      EXPECT_EQ(dialog.parentWidget(), &window);
                      EXPECT_TRUE(dialog.isModal());
                      EXPECT_TRUE(showsDetails(dialog));
                      EXPECT_EQ(dialog.size(), QSize(800, 480));
                      escape(dialog);
                  },
                  "proposed.txt"),
              "");
}

TEST_F(SaveDialog, ShowsTextFilesHiddenOnesTooAndAllOnDemand) {
    ask([&](QDialog& dialog) {
        const Rows texts = {".hidden.txt", "old.txt", "sub"};
        EXPECT_EQ(namesWhen(dialog, texts), texts);
        QTest::keyClick(&filters(dialog), Qt::Key_Up);
        EXPECT_EQ(filters(dialog).currentText(), text("All Files (*.*)"));
        const Rows all = {".hidden.txt", "data.csv", "old.txt", "sub"};
        EXPECT_EQ(namesWhen(dialog, all), all);
        escape(dialog);
    });
}

TEST_F(SaveDialog, ShowsDetailsWhenTheFolderChanges) {
    ask([&](QDialog& dialog) {
        clickButton(dialog, "listModeButton");
        EXPECT_FALSE(showsDetails(dialog));
        enterName(dialog, "sub");
        EXPECT_TRUE(QTest::qWaitFor([&] { return folderOf(dialog) == (folder / "sub").string(); }, patience));
        EXPECT_TRUE(QTest::qWaitFor([&] { return showsDetails(dialog); }, 1000));
        clickButton(dialog, "listModeButton");
        clickButton(dialog, "backButton");
        EXPECT_TRUE(QTest::qWaitFor([&] { return folderOf(dialog) == folder.path().string(); }, patience));
        EXPECT_TRUE(QTest::qWaitFor([&] { return showsDetails(dialog); }, 1000));
        cancel(dialog);
    });
}

TEST_F(SaveDialog, EnterTakesTheProposedName) {
    const auto enter = [](QDialog& dialog) { press(dialog, Qt::Key_Return); };
    EXPECT_EQ(ask(enter, "XST1.txt"), (folder / "XST1.txt").string());
    EXPECT_EQ(ask(enter, "XST2.txt"), (folder / "XST2.txt").string());
}

TEST_F(SaveDialog, EnterAsksBeforeItTakesAProposedNameThatExists) {
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        Answers answers;
        answers.then("GetSaveAsName", [](QDialog& dialog) { press(dialog, Qt::Key_Return); })
            .then("", [answer](QDialog& question) { answerOverwrite(question, "old.txt", answer); });
        if (answer == QMessageBox::No) answers.then("GetSaveAsName", escape);
        const auto name = window.GetSaveAsName(text("old.txt"), text(folder.path().string()));
        EXPECT_EQ(name.string(), answer == QMessageBox::Yes ? (folder / "old.txt").string() : "");
    }
}

TEST_F(SaveDialog, AddsTxtWhenAllFilesAreShownToo) {
    EXPECT_EQ(ask([](QDialog& dialog) {
                  QTest::keyClick(&filters(dialog), Qt::Key_Up);
                  ASSERT_EQ(filters(dialog).currentText(), text("All Files (*.*)"));
                  find<QLineEdit>(dialog, "fileNameEdit").setFocus();
                  enterName(dialog, "out");
              }),
              (folder / "out.txt").string());
}

TEST_F(SaveDialog, TypingReplacesTheProposedName) {
    EXPECT_EQ(ask([](QDialog& dialog) {
                  activate(dialog);
                  auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
                  QTest::keyClicks(&edit, text("typed"));
                  QTest::keyClick(&edit, Qt::Key_Return);
              }),
              (folder / "typed.txt").string());
}

TEST_F(SaveDialog, AddsTxtToANameWithoutAnExtension) {
    EXPECT_EQ(saved("out"), (folder / "out.txt").string());
    EXPECT_EQ(saved("out.txt"), (folder / "out.txt").string());
    EXPECT_EQ(saved("out.dat"), (folder / "out.dat").string());
    EXPECT_EQ(saved("a.b.c"), (folder / "a.b.c").string());
    EXPECT_EQ(saved("sub/out"), (folder / "sub/out.txt").string());
    EXPECT_EQ(saved((folder / "sub/other").string()), (folder / "sub/other.txt").string());
    EXPECT_EQ(folder.names(), Rows({".hidden.txt", "data.csv", "old.txt", "sub"})) << "asking makes no file";
}

TEST_F(SaveDialog, AsksBeforeAFileIsOverwritten) {
    Answers answers;
    answers.then("GetSaveAsName", entering("old.txt")).then("", [](QDialog& question) {
        answerOverwrite(question, "old.txt", QMessageBox::Yes);
    });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
              (folder / "old.txt").string());
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old") << "the dialog only asks";
}

// If two windows close at the same moment, perhaps no window gets the keyboard.
TEST_F(SaveDialog, GivesTheKeyboardBackAfterAFileIsToBeReplaced) {
    for (int time = 0; time < 10; ++time) {
        {
            Answers answers;
            answers.then("GetSaveAsName", entering("old.txt")).then("", [](QDialog& question) {
                answerOverwrite(question, "old.txt", QMessageBox::Yes);
            });
            EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
                      (folder / "old.txt").string());
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }, patience)) << time;
    }
}

TEST_F(SaveDialog, StaysOpenWhenTheFileIsToBeKept) {
    Answers answers;
    answers.then("GetSaveAsName", entering("old.txt"))
        .then("", [](QDialog& question) { answerOverwrite(question, "old.txt", QMessageBox::No); })
        .then("GetSaveAsName", entering("new.txt"));
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
              (folder / "new.txt").string());
}

TEST_F(SaveDialog, EnterAndEscKeepTheOldFile) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        Answers answers;
        answers.then("GetSaveAsName", entering("old.txt"))
            .then("", [key](QDialog& question) { press(question, key); })
            .then("GetSaveAsName", cancel);
        EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), "");
    }
}

TEST_F(SaveDialog, AsksAboutTheFileThatTheAddedTxtNames) {
    Answers answers;
    answers.then("GetSaveAsName", entering("old")).then("", [](QDialog& question) {
        answerOverwrite(question, "old.txt", QMessageBox::Yes);
    });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
              (folder / "old.txt").string());
}

TEST_F(SaveDialog, GivesNamesOfAnyCharacters) {
    for (const std::string name : {"caf\xC3\xA9 \xE2\x82\xAC.txt", "a b  c.txt", "100%1.txt"})
        EXPECT_EQ(ask([&](QDialog& dialog) {
                      activate(dialog);
                      auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
                      edit.setText(text(name));
                      QTest::keyClick(&edit, Qt::Key_Return);
                  }),
                  (folder / name).string());
}

// The folder that the program was started in is not that of the dialog.
TEST_F(SaveDialog, AddsTxtThoughAFolderOfThatNameStandsElsewhere) {
    const TempFolder elsewhere;
    std::filesystem::create_directory(elsewhere / "reports");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(elsewhere.path());
    EXPECT_EQ(saved("reports"), (folder / "reports.txt").string());
    std::filesystem::current_path(before);
}

TEST_F(SaveDialog, ShowsTheNameAsItWasTypedAfterARefusal) {
    Answers answers;
    answers.then("GetSaveAsName", entering("old"))
        .then("", [](QDialog& question) { answerOverwrite(question, "old.txt", QMessageBox::No); })
        .then("GetSaveAsName",
              [](QDialog& dialog) {
                  EXPECT_EQ(nameIn(dialog), "old");
                  enterName(dialog, "missing/x");
              })
        .then("message", [](QDialog& refusal) { press(refusal, Qt::Key_Return); })
        .then("GetSaveAsName", [](QDialog& dialog) {
            EXPECT_EQ(nameIn(dialog), "missing/x");
            cancel(dialog);
        });
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), "");
}

TEST_F(SaveDialog, NeverTakesANameWithAQuotationMarkForAnother) {
    const std::string quoted = "my \"new\" nodes.txt";
    writeBytes(folder / quoted, "old");
    {
        Answers answers;
        answers.then("GetSaveAsName", entering(quoted)).then("", [&](QDialog& question) {
            answerOverwrite(question, quoted, QMessageBox::Yes);
        });
        EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(),
                  (folder / quoted).string());
    }
    Answers answers;
    answers.then("GetSaveAsName", entering("a\"b"))
        .then("message",
              [](QDialog& refusal) {
                  EXPECT_EQ(dynamic_cast<QMessageBox&>(refusal).text(),
                            text("A name typed here cannot contain a quotation mark:\na\"b\n\nPlease choose another "
                                 "name or folder."));
                  press(refusal, Qt::Key_Return);
              })
        .then("GetSaveAsName", cancel);
    EXPECT_EQ(window.GetSaveAsName(text("XST1.txt"), text(folder.path().string())).string(), "");
}

TEST_F(SaveDialog, CancellingGivesNothing) {
    EXPECT_EQ(ask(escape), "");
    EXPECT_EQ(ask(cancel), "");
    EXPECT_EQ(ask([](QDialog& dialog) { dialog.close(); }), "");
}

TEST_F(SaveDialog, NoNameIsNoAnswer) {
    EXPECT_EQ(ask([](QDialog& dialog) {
                  activate(dialog);
                  auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
                  edit.clear();
                  QTest::keyClick(&edit, Qt::Key_Return);
                  EXPECT_TRUE(dialog.isVisible());
                  cancel(dialog);
              }),
              "");
}
