// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QListView>
#include <QPushButton>
#include <QToolButton>

#include "Helpers.h"

// What the tests of both file dialogs share.

/// The names that the list of a file dialog shows, sorted.
inline Rows shownNames(const QDialog& dialog) {
    const auto& list = find<QTreeView>(dialog, "treeView");
    Rows names;
    for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
        names.push_back(list.model()->index(row, 0, list.rootIndex()).data().toString().toStdString());
    std::ranges::sort(names);
    return names;
}

/// The names once the dialog has read the folder, or what it shows after some time.
inline Rows namesWhen(const QDialog& dialog, const Rows& expected) {
    static_cast<void>(QTest::qWaitFor([&] { return shownNames(dialog) == expected; }, patience));
    return shownNames(dialog);
}

inline std::string folderOf(QDialog& dialog) {
    return static_cast<QFileDialog&>(dialog).directory().absolutePath().toStdString();
}

inline std::string nameIn(const QDialog& dialog) {
    return find<QLineEdit>(dialog, "fileNameEdit").text().toStdString();
}

inline QComboBox& filters(const QDialog& dialog) {
    return find<QComboBox>(dialog, "fileTypeCombo");
}

inline Rows filterNames(const QDialog& dialog) {
    Rows names;
    for (int item = 0; item < filters(dialog).count(); ++item)
        names.push_back(filters(dialog).itemText(item).toStdString());
    return names;
}

inline void clickButton(const QDialog& dialog, const std::string& name) {
    auto& button = find<QToolButton>(dialog, name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button.isEnabled(); }, patience)) << name;
    clickOn(&button);
}

inline void cancel(QDialog& dialog) {
    auto* button = find<QDialogButtonBox>(dialog, "buttonBox").button(QDialogButtonBox::Cancel);
    clickOn(button);
}

/// Whether the list shows details: names with size, type and date.
inline bool showsDetails(QDialog& dialog) {
    const auto& list = find<QTreeView>(dialog, "treeView");
    return static_cast<QFileDialog&>(dialog).viewMode() == QFileDialog::Detail && list.isVisible() &&
           list.header()->isVisible() && list.header()->count() - list.header()->hiddenSectionCount() == 4;
}

/// Asks through `ask`, and answers the dialog with this object name.
template <class Ask>
std::string asked(const std::string& name, Ask ask, Answers::Answer answer) {
    Answers answers;
    answers.then(name, std::move(answer));
    return ask().string();
}
