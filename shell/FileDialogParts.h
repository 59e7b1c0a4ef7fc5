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

/// What stands inside Qt's own file dialog. Qt names these objects but gives no access to them, so another release
/// may name them otherwise: each pointer may be null, and the dialog then works as plain Qt does.
struct FileDialogParts {
    FileDialogParts() = default;
    explicit FileDialogParts(const QFileDialog& dialog);

    QFileSystemModel* files = nullptr;
    QLineEdit* name = nullptr;     ///< the text box for the file name
    QTreeView* details = nullptr;  ///< the list of files with their details
    QListView* list = nullptr;     ///< the other list, which shares its selection
    QListView* places = nullptr;   ///< at the side
    QToolButton* newFolder = nullptr;
    QWidget* lookInLabel = nullptr;
    QWidget* lookIn = nullptr;  ///< the list of folders above
    QWidget* fileTypeLabel = nullptr;
    QWidget* fileType = nullptr;  ///< the list of filters
    // Of the lists' context menu:
    QAction* renameAction = nullptr;
    QAction* deleteAction = nullptr;
    QAction* newFolderAction = nullptr;
};
