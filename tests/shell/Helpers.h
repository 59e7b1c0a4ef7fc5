// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <deque>
#include <functional>
#include <stdexcept>

#include "shell/fMain.h"
#include "tests/Windows.h"
#include "tests/model/Helpers.h"

// What the tests of the main window share: the started program, its commands and file dialogs, and the screen printed
// as text.

// --- lengths ---

/// Pixels of a length in twips, 1/1440 inch, on the screen of the tests.
inline int pixels(double twips, const QWidget& widget) {
    return static_cast<int>(std::lround(twips * widget.logicalDpiX() / 1440.0));
}

inline QRect pixels(double left, double top, double width, double height, const QWidget& widget) {
    return {pixels(left, widget), pixels(top, widget), pixels(width, widget), pixels(height, widget)};
}

// --- files ---

/// A new folder for programs that a test makes and runs, removed with all that is in it. Other temporary folders may
/// be in a place where no program can be run.
class ProgramsFolder {
  public:
    ProgramsFolder() { EXPECT_TRUE(folder_.isValid()); }
    [[nodiscard]] std::filesystem::path path() const { return folder_.path().toStdString(); }
    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const { return path() / name; }

  private:
    QTemporaryDir folder_{QCoreApplication::applicationDirPath() + text("/wizard-test-XXXXXX")};
};

/// The folder of the test program, where the wizard looks for its help.
inline std::filesystem::path folderOfProgram() {
    return QCoreApplication::applicationDirPath().toStdString();
}

/// The message of a wizard that does not find its help in this folder.
inline std::string helpIsMissingFrom(const std::filesystem::path& folder) {
    return "The help file was not found:\n" + (folder / "Pelmo.chm").make_preferred().string();
}

// --- keys ---

/// Chooses a command of the menu by its letters: the first one with Alt.
inline void choose(QWidget& window, const std::string& letters) {
    activate(window);
    auto modifiers = Qt::KeyboardModifiers(Qt::AltModifier);
    for (const auto letter : letters) {
        press(window, static_cast<Qt::Key>(letter), modifiers);
        modifiers = Qt::NoModifier;
    }
}

// --- dialogs ---

/// Types a name into a file dialog, over the one that stands there, and presses Enter.
inline void enterName(QDialog& dialog, const std::filesystem::path& name) {
    activate(dialog);
    auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_TRUE(edit.hasFocus()) << "the name can be typed at once";
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    for (const auto letter : text(name.string())) {
        if (letter.unicode() < 128)
            QTest::keyClick(&edit, letter.toLatin1());
        else
            edit.insert(letter);  // as an input method does
    }
    QTest::keyClick(&edit, Qt::Key_Return);
}

inline Answers::Answer entering(const std::filesystem::path& name) {
    return [name](QDialog& dialog) { enterName(dialog, name); };
}

// --- the screen as text ---

/// The rows of a tree that are open to view, each with its level, "-" or "+" for an open or a closed branch, and "*"
/// if it is selected: "- Data Browser", "  + Hire desk *".
inline Rows shownRows(const QTreeView& tree) {
    Rows rows;
    const auto add = [&](const auto& self, const QModelIndex& index, const std::string& indent) -> void {
        const bool branch = tree.model()->hasChildren(index);
        const bool open = branch && tree.isExpanded(index);
        rows.push_back(indent +
                       (open     ? "- "
                        : branch ? "+ "
                                 : "  ") +
                       index.data().toString().toStdString() +
                       (tree.selectionModel()->isSelected(index) ? " *" : ""));
        for (int row = 0; open && row < tree.model()->rowCount(index); ++row)
            self(self, tree.model()->index(row, 0, index), indent + "  ");
    };
    for (int row = 0; row < tree.model()->rowCount(); ++row) add(add, tree.model()->index(row, 0), "");
    return rows;
}

/// The columns that the tests look at, so that a new column fails only the tests of the columns.
inline std::vector<int> columnsOf(const QTableView& grid) {
    const Rows captions = {"ID",    "XST1",      "Seq",  "Description", "Paragraph Title", "Type",   "Parent",
                           "Query", "Parameter", "Icon", "Role",        "Form#",           "Columns"};
    std::vector<int> columns;
    for (int column = 0; column < grid.model()->columnCount(); ++column) {
        const auto caption = grid.model()->headerData(column, Qt::Horizontal).toString().trimmed().toStdString();
        if (std::ranges::find(captions, caption) != captions.end()) columns.push_back(column);
    }
    return columns;
}

/// The rows of a grid without its header, the cells of these columns separated by "|".
inline Rows shownRows(const QTableView& grid) {
    const auto columns = columnsOf(grid);
    Rows rows;
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
        std::string cells;
        for (const int column : columns)
            cells += (column == columns.front() ? "" : "|") +
                     grid.model()->index(row, column).data().toString().toStdString();
        rows.push_back(cells);
    }
    return rows;
}

// --- the program ---

/// The started program: its main window on the screen, with a new scheme.
class Wizard {
  public:
    Wizard() {
        {
            Answers answers;
            answers.then("fIntro", escape).then("message", escape);
            window.Form_Load();
        }
        window.show();
        activate(window);
    }

    fMain window;

    [[nodiscard]] clsNavSchemes& navs() { return *window.oNavs; }
    [[nodiscard]] QTreeView& tree() { return find<QTreeView>(window, "myTree"); }
    [[nodiscard]] QTableView& nodeGrid() { return find<QTableView>(window, "flexNav"); }
    [[nodiscard]] QTableView& paragraphGrid() { return find<QTableView>(window, "flexWeb"); }

    /// Chooses a command of the menu that asks for a file, and enters the name.
    void choose(const std::string& letters, const std::string& dialog, const std::filesystem::path& name) {
        Answers answers;
        answers.then(dialog, entering(name));
        ::choose(window, letters);
    }
    void choose(const std::string& letters) {
        Answers answers;
        ::choose(window, letters);
    }
    void openNodes(const std::filesystem::path& file) { choose("FON", "GetOpenName", file); }
    void openParagraphs(const std::filesystem::path& file) { choose("FOW", "GetOpenName", file); }
    void saveNodes(const std::filesystem::path& file) { choose("NS", "GetSaveAsName", file); }
    void saveParagraphs(const std::filesystem::path& file) { choose("WS", "GetSaveAsName", file); }

    /// Clicks the node with this text, which must be in view.
    void click(const std::string& node) {
        const auto found = tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, text(node), 1,
                                                 Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty()) throw std::runtime_error("there is no node " + node);
        const auto place = tree().visualRect(found.front());
        EXPECT_TRUE(tree().viewport()->rect().intersects(place)) << node << " is not in view";
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place.center());
    }
};

/// A sample that comes with the program.
inline std::filesystem::path sample(const std::string& name) {
    return std::filesystem::path(SAMPLES) / name;
}
