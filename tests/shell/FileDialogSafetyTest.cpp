// SPDX-License-Identifier: MIT
#include <QAction>
#include <QFileDialog>

#include "FileDialogHelpers.h"
#include "shell/FileDialogParts.h"

// The file dialogs name a file, and leave all files alone.

namespace {

// Every file and folder below this one, with what is in it.
Rows contentsOf(const std::filesystem::path& folder) {
    Rows contents;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        contents.push_back(entry.path().lexically_relative(folder).string() +
                           (entry.is_directory() ? "/" : ": " + bytesOf(entry.path())));
    std::ranges::sort(contents);
    return contents;
}

class FileDialogSafety : public testing::TestWithParam<std::string> {
  protected:
    FileDialogSafety() {
        std::filesystem::create_directory(folder / "sub");
        writeBytes(folder / "sub/inner.txt", "inner");
        writeBytes(folder / "file.txt", "file");
        window.show();
        activate(window);
    }
    void ask(Answers::Answer answer) {
        const auto before = contentsOf(folder.path());
        Answers answers;
        answers.then(GetParam(), [&](QDialog& dialog) {
            namesWhen(dialog, {"file.txt", "sub"});
            activate(dialog);
            answer(dialog);
            cancel(dialog);
        });
        const auto start = text(folder.path().string());
        EXPECT_EQ((GetParam() == "GetOpenName" ? window.GetOpenName(start) : window.GetSaveAsName(text("x"), start)),
                  "");
        EXPECT_EQ(contentsOf(folder.path()), before);
    }
    static QRect placeOf(const QTreeView& list, const std::string& name) {
        const auto found = list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                               text(name), 1, Qt::MatchExactly);
        return found.isEmpty() ? QRect() : list.visualRect(found.front());
    }

    const TempFolder folder;
    fMain window;
};

}  // namespace

TEST_P(FileDialogSafety, DelDeletesNothing) {
    ask([&](QDialog& dialog) {
        auto& list = find<QTreeView>(dialog, "treeView");
        for (const char* name : {"file.txt", "sub"}) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, name).center());
            EXPECT_TRUE(list.hasFocus());
            press(dialog, Qt::Key_Delete);
            press(dialog, Qt::Key_Delete, Qt::ShiftModifier);
            QTest::qWait(50);
            EXPECT_EQ(QApplication::activeModalWidget(), &dialog) << "a question about " << name;
        }
    });
}

TEST_P(FileDialogSafety, F2RenamesNothing) {
    ask([&](QDialog& dialog) {
        auto& list = find<QTreeView>(dialog, "treeView");
        for (const char* name : {"file.txt", "sub"}) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, name).center());
            press(dialog, Qt::Key_F2);
            EXPECT_EQ(list.viewport()->findChild<QLineEdit*>(), nullptr) << name;
            QTest::keyClicks(QApplication::focusWidget(), text("x"));
        }
    });
}

// Drags a file onto a folder. Whether that moves the file shows only when the file is dropped.
TEST_P(FileDialogSafety, ADragMovesNothing) {
    if (QGuiApplication::platformName() != text("xcb")) GTEST_SKIP() << "drags need a screen";
    ask([&](QDialog& dialog) {
        auto& list = find<QTreeView>(dialog, "treeView");
        auto* screen = dialog.windowHandle();
        const auto inWindow = [&](QPoint place) { return list.viewport()->mapTo(&dialog, place); };
        const auto from = inWindow(placeOf(list, "file.txt").center());
        const auto to = inWindow(placeOf(list, "sub").center());
        bool letGo = false;
        // Each step by a timer: a drag has an event loop of its own.
        QTimer::singleShot(20, &dialog, [&] { QTest::mouseMove(screen, (from + to) / 2); });
        QTimer::singleShot(40, &dialog, [&] { QTest::mouseMove(screen, to + QPoint(1, 0)); });
        QTimer::singleShot(60, &dialog, [&] { QTest::mouseMove(screen, to); });
        QTimer::singleShot(80, &dialog, [&] {
            QTest::mouseRelease(screen, Qt::LeftButton, {}, to);
            letGo = true;
        });
        QTest::mousePress(screen, Qt::LeftButton, {}, from);
        EXPECT_TRUE(QTest::qWaitFor([&] { return letGo; }, patience));
        QTest::qWait(100);
    });
}

TEST_P(FileDialogSafety, NoListTakesPartInADrag) {
    ask([](QDialog& dialog) {
        for (const char* name : {"treeView", "listView", "sidebar"}) {
            const auto& view = find<QAbstractItemView>(dialog, name);
            EXPECT_FALSE(view.dragEnabled()) << name;
            EXPECT_FALSE(view.acceptDrops()) << name;
            EXPECT_EQ(view.dragDropMode(), QAbstractItemView::NoDragDrop) << name;
        }
    });
}

TEST_P(FileDialogSafety, TheMenuOffersNoChange) {
    ask([](QDialog& dialog) {
        for (const char* name : {"qt_rename_action", "qt_delete_action", "qt_new_folder_action"})
            EXPECT_FALSE(find<QAction>(dialog, name).isVisible()) << name;
        EXPECT_TRUE(static_cast<QFileDialog&>(dialog).testOption(QFileDialog::ReadOnly));
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, FileDialogSafety, testing::Values("GetOpenName", "GetSaveAsName"));

// Fails when a release of Qt gives them other names.
TEST(FileDialogParts, AreAllFoundInQtsDialog) {
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const FileDialogParts parts(dialog);
    EXPECT_NE(parts.files, nullptr);
    EXPECT_NE(parts.name, nullptr);
    EXPECT_NE(parts.details, nullptr);
    EXPECT_NE(parts.list, nullptr);
    EXPECT_NE(parts.places, nullptr);
    EXPECT_NE(parts.newFolder, nullptr);
    EXPECT_NE(parts.lookInLabel, nullptr);
    EXPECT_NE(parts.lookIn, nullptr);
    EXPECT_NE(parts.fileTypeLabel, nullptr);
    EXPECT_NE(parts.fileType, nullptr);
    EXPECT_NE(parts.renameAction, nullptr);
    EXPECT_NE(parts.deleteAction, nullptr);
    EXPECT_NE(parts.newFolderAction, nullptr);
}
