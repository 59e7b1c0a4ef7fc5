// SPDX-License-Identifier: MIT
#pragma once

class QAction;
class QFileDialog;
class QFileSystemModel;
class QLineEdit;
class QListView;
class QToolButton;
class QTreeView;
class QWidget;

/// The parts of Qt's own file dialog. Qt names these objects but gives no access to them, and another version may
/// name them differently. So each pointer may be null; the dialog then behaves like Qt's.
struct FileDialogParts {
    FileDialogParts() = default;
    explicit FileDialogParts(const QFileDialog& dialog);

    QFileSystemModel* files = nullptr;
    QLineEdit* name = nullptr;     ///< the text box for the file name
    QTreeView* details = nullptr;  ///< the list of files with their details
    QListView* list = nullptr;     ///< the other list, which shares the selection
    QListView* places = nullptr;   ///< the list of places at the side
    QToolButton* newFolder = nullptr;
    QWidget* lookInLabel = nullptr;
    QWidget* lookIn = nullptr;  ///< the list of folders above
    QWidget* fileTypeLabel = nullptr;
    QWidget* fileType = nullptr;  ///< the list of filters
    // From the context menu of the lists:
    QAction* renameAction = nullptr;
    QAction* deleteAction = nullptr;
    QAction* newFolderAction = nullptr;
};
