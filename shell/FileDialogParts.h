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

/// What stands inside Qt's own file dialog. Qt names these objects but gives no access to them, so another release may
/// name them otherwise: each pointer may be null, and the dialog then works as plain Qt does.
struct FileDialogParts {
    explicit FileDialogParts(const QFileDialog& dialog);

    QFileSystemModel* files;
    QLineEdit* name;     ///< the text box for the file name
    QTreeView* details;  ///< the list of files with their details
    QListView* list;     ///< the other list, which shares its selection
    QListView* places;   ///< at the side
    QToolButton* newFolder;
    QWidget *lookInLabel, *lookIn;      ///< the list of folders above, with its label
    QWidget *fileTypeLabel, *fileType;  ///< the list of filters, with its label
    QAction *renameAction, *deleteAction, *newFolderAction;  ///< of the lists' context menu
};
