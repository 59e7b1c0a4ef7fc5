// SPDX-License-Identifier: MIT
#include "FileDialogHelpers.h"

namespace {

// The dialog asks for a file in a folder with some of every kind.
class OpenDialog : public testing::Test {
  protected:
    OpenDialog() {
        for (const char* name : {"nodes.txt", "OLD.TXT", "data.csv", "noextension", ".hidden"})
            writeBytes(folder / name, "1");
        std::filesystem::create_directory(folder / "sub");
        writeBytes(folder / "sub/inner.txt", "1");
        window.show();
        activate(window);
    }

    std::string ask(Answers::Answer answer) {
        return asked(
            "GetOpenName", [this] { return window.GetOpenName(text(folder.path().string())); }, std::move(answer));
    }

    const TempFolder folder;
    fMain window;
    const Rows everything = {".hidden", "OLD.TXT", "data.csv", "nodes.txt", "noextension", "sub"};
    const std::string sub = (folder / "sub").string();
};

// Leads to another folder in one of the ways that the dialog has.
using WayToAFolder = std::function<void(QDialog&)>;

// The user turns the details off and goes to another folder in this way: the details must be shown again.
void expectDetailsAfter(QDialog& dialog, const std::string& what, const WayToAFolder& way) {
    clickButton(dialog, "listModeButton");
    EXPECT_FALSE(showsDetails(dialog)) << what;
    const auto before = folderOf(dialog);
    way(dialog);
    EXPECT_TRUE(QTest::qWaitFor([&] { return folderOf(dialog) != before; }, patience)) << what << " leads nowhere";
    EXPECT_TRUE(QTest::qWaitFor([&] { return showsDetails(dialog); }, 1000)) << what;
}

}  // namespace

TEST_F(OpenDialog, HasItsTitleFiltersAndFolder) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  EXPECT_EQ(dialog.windowTitle(), text("Open A File"));
                  EXPECT_EQ(filterNames(dialog), Rows({"All Files (*.*)", "Text File (.txt)"}));
                  EXPECT_EQ(filters(dialog).currentText(), text("All Files (*.*)"));
                  EXPECT_EQ(folderOf(dialog), folder.path().string());
                  EXPECT_EQ(nameIn(dialog), "");
                  EXPECT_EQ(static_cast<QFileDialog&>(dialog).acceptMode(), QFileDialog::AcceptOpen);
                  EXPECT_EQ(static_cast<QFileDialog&>(dialog).fileMode(), QFileDialog::ExistingFile);
                  EXPECT_EQ(dialog.parentWidget(), &window);
                  EXPECT_TRUE(dialog.isModal());
                  EXPECT_GE(dialog.width(), 800);
                  EXPECT_GE(dialog.height(), 480);
                  escape(dialog);
              }),
              "");
}

TEST_F(OpenDialog, CutsNoSizeTypeOrDateShort) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  namesWhen(dialog, everything);
                  const auto& list = find<QTreeView>(dialog, "treeView");
                  const auto cut = [&] {
                      std::string texts;
                      for (int column = 1; column < list.header()->count(); ++column)
                          for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
                              const auto cell = list.model()->index(row, column, list.rootIndex());
                              if (list.header()->sectionSize(column) < list.sizeHintForIndex(cell).width())
                                  texts += cell.data().toString().toStdString() + ", ";
                          }
                      return texts;
                  };
                  EXPECT_TRUE(QTest::qWaitFor([&] { return cut().empty(); }, patience)) << cut();
                  escape(dialog);
              }),
              "");
}

TEST_F(OpenDialog, ShowsAllFilesHiddenOnesToo) {
    ask([&](QDialog& dialog) {
        EXPECT_EQ(namesWhen(dialog, everything), everything);
        escape(dialog);
    });
}

// Where the desktop has no list of types, too: shell.without_file_types.
TEST_F(OpenDialog, ShowsTheTypeOfEachFile) {
    ask([&](QDialog& dialog) {
        EXPECT_EQ(namesWhen(dialog, everything), everything);
        const auto& list = find<QTreeView>(dialog, "treeView");
        constexpr int type = 2;
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
            const auto name = list.model()->index(row, 0, list.rootIndex()).data().toString().toStdString();
            const auto shown = list.model()->index(row, type, list.rootIndex()).data().toString();
            EXPECT_EQ(name == "sub", shown == text("Folder")) << name;
            EXPECT_NE(shown, QString()) << name;
        }
        escape(dialog);
    });
}

TEST_F(OpenDialog, ShowsTextFilesAndFoldersOnDemand) {
    ask([&](QDialog& dialog) {
        namesWhen(dialog, everything);
        QTest::keyClick(&filters(dialog), Qt::Key_Down);
        EXPECT_EQ(filters(dialog).currentText(), text("Text File (.txt)"));
        const Rows texts = {"OLD.TXT", "nodes.txt", "sub"};
        EXPECT_EQ(namesWhen(dialog, texts), texts);
        escape(dialog);
    });
}

TEST_F(OpenDialog, ShowsDetailsReadably) {
    ask([&](QDialog& dialog) {
        EXPECT_TRUE(showsDetails(dialog));
        namesWhen(dialog, everything);
        const auto& list = find<QTreeView>(dialog, "treeView");
        for (int column = 1; column < 4; ++column)
            EXPECT_GE(list.columnWidth(column), list.fontMetrics().horizontalAdvance(text("12 bytes"))) << column;
        EXPECT_GT(list.columnWidth(0), 200);
        escape(dialog);
    });
}

TEST_F(OpenDialog, ShowsDetailsWheneverTheFolderChanges) {
    ask([&](QDialog& dialog) {
        namesWhen(dialog, everything);
        expectDetailsAfter(dialog, "a typed folder", [](QDialog& in) { enterName(in, "sub"); });
        EXPECT_EQ(folderOf(dialog), sub);
        expectDetailsAfter(dialog, "the parent", [](QDialog& in) { clickButton(in, "toParentButton"); });
        EXPECT_EQ(folderOf(dialog), folder.path().string());
        expectDetailsAfter(dialog, "back", [](QDialog& in) { clickButton(in, "backButton"); });
        EXPECT_EQ(folderOf(dialog), sub);
        expectDetailsAfter(dialog, "forward", [](QDialog& in) { clickButton(in, "forwardButton"); });
        expectDetailsAfter(dialog, "a folder of the list", [&](QDialog& in) {
            namesWhen(in, everything);
            auto& list = find<QListView>(in, "listView");
            const auto found = list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                                   text("sub"), 1, Qt::MatchExactly);
            ASSERT_FALSE(found.isEmpty());
            list.setCurrentIndex(found.front());
            list.setFocus();
            QTest::keyClick(&list, Qt::Key_Return);
        });
        EXPECT_EQ(folderOf(dialog), sub);
        expectDetailsAfter(dialog, "the list of folders above", [](QDialog& in) {
            auto& above = find<QComboBox>(in, "lookInCombo");
            above.showPopup();
            auto* list = above.view();
            ASSERT_TRUE(QTest::qWaitFor([&] { return list->isVisible(); }));
            QTest::keyClick(list, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Return);
        });
        expectDetailsAfter(dialog, "the places at the side", [](QDialog& in) {
            auto& places = find<QListView>(in, "sidebar");
            const auto last = places.model()->index(places.model()->rowCount() - 1, 0);
            QTest::mouseClick(places.viewport(), Qt::LeftButton, {}, places.visualRect(last).center());
        });
        cancel(dialog);
    });
}

TEST_F(OpenDialog, GivesTheTypedFile) {
    EXPECT_EQ(ask(entering("nodes.txt")), (folder / "nodes.txt").string());
    EXPECT_EQ(ask(entering(folder / "data.csv")), (folder / "data.csv").string());
    EXPECT_EQ(ask(entering("sub/inner.txt")), (folder / "sub/inner.txt").string());
    EXPECT_EQ(ask(entering(".hidden")), (folder / ".hidden").string());
    EXPECT_EQ(ask(entering("noextension")), (folder / "noextension").string()) << "nothing is added";
}

TEST_F(OpenDialog, GivesTheFileChosenInTheList) {
    EXPECT_EQ(ask([&](QDialog& dialog) {
                  namesWhen(dialog, everything);
                  auto& list = find<QTreeView>(dialog, "treeView");
                  const auto found = list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                                         text("data.csv"), 1, Qt::MatchExactly);
                  ASSERT_FALSE(found.isEmpty());
                  list.scrollTo(found.front());
                  const auto place = list.visualRect(found.front()).center();
                  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
                  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
              }),
              (folder / "data.csv").string());
}

TEST_F(OpenDialog, GivesTheFileInAnotherFolder) {
    EXPECT_EQ(ask([](QDialog& dialog) {
                  enterName(dialog, "sub");
                  namesWhen(dialog, {"inner.txt"});
                  enterName(dialog, "inner.txt");
              }),
              (folder / "sub/inner.txt").string());
}

// File names are bytes; they come through whatever they are.
TEST_F(OpenDialog, GivesNamesOfAnyCharacters) {
    for (const std::string name :
         {"caf\xC3\xA9 \xE2\x82\xAC.txt", "a b  c.txt", "\xE4\xB8\xAD.txt", "100%1.txt", "my \"new\" nodes.txt"}) {
        writeBytes(folder / name, "1");
        EXPECT_EQ(ask([&](QDialog& dialog) {
                      activate(dialog);
                      auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
                      edit.insert(text(name));
                      QTest::keyClick(&edit, Qt::Key_Return);
                  }),
                  (folder / name).string());
    }
}

TEST_F(OpenDialog, CancellingGivesNothing) {
    EXPECT_EQ(ask(escape), "");
    EXPECT_EQ(ask([](QDialog& dialog) {
                  QTest::keyClicks(&find<QLineEdit>(dialog, "fileNameEdit"), text("nodes.txt"));
                  cancel(dialog);
              }),
              "")
        << "although a name was typed";
    EXPECT_EQ(ask([](QDialog& dialog) { dialog.close(); }), "");
}

TEST_F(OpenDialog, StaysOpenOnAFileThatIsNotThere) {
    Answers answers;
    answers.then("GetOpenName", entering("missing.txt"))
        .then("", escape)  // says that there is no such file
        .then("GetOpenName", entering("nodes.txt"));
    EXPECT_EQ(window.GetOpenName(text(folder.path().string())).string(), (folder / "nodes.txt").string());
}

TEST_F(OpenDialog, RemembersNothingFromTheLastTime) {
    ask([&](QDialog& dialog) {
        namesWhen(dialog, everything);
        enterName(dialog, "sub");
        QTest::keyClick(&filters(dialog), Qt::Key_Down);
        clickButton(dialog, "listModeButton");
        dialog.resize(900, 600);
        cancel(dialog);
    });
    ask([&](QDialog& dialog) {
        EXPECT_EQ(folderOf(dialog), folder.path().string());
        EXPECT_EQ(filters(dialog).currentText(), text("All Files (*.*)"));
        EXPECT_TRUE(showsDetails(dialog));
        EXPECT_EQ(dialog.size(), QSize(800, 480));
        EXPECT_TRUE(static_cast<QFileDialog&>(dialog).history().isEmpty() ||
                    static_cast<QFileDialog&>(dialog).history() == QStringList(text(folder.path().string())));
        escape(dialog);
    });
}

TEST_F(OpenDialog, ShowsAnotherFolderInsteadOfAMissingOne) {
    EXPECT_EQ(asked(
                  "GetOpenName", [this] { return window.GetOpenName(text((folder / "gone").string())); },
                  [this](QDialog& dialog) {
                      EXPECT_NE(folderOf(dialog), (folder / "gone").string());
                      EXPECT_TRUE(std::filesystem::is_directory(folderOf(dialog)));
                      escape(dialog);
                  }),
              "");
}

TEST_F(OpenDialog, IsNotTheDesktopsOwnDialog) {
    ask([](QDialog& dialog) {
        EXPECT_TRUE(static_cast<QFileDialog&>(dialog).testOption(QFileDialog::DontUseNativeDialog));
        escape(dialog);
    });
}
