// SPDX-License-Identifier: MIT
#include "shell/FileDialogParts.h"

#include <QAction>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QToolButton>
#include <QTreeView>

namespace {

// Finds an object by name, as the type that it is assigned to.
struct Named {
    const QFileDialog& dialog;
    const char* name;
    template <class Part>
    operator Part*() const {
        return dialog.findChild<Part*>(QLatin1String(name));
    }
};

}  // namespace

FileDialogParts::FileDialogParts(const QFileDialog& dialog)
    : files(Named{dialog, "qt_filesystem_model"}),
      name(Named{dialog, "fileNameEdit"}),
      details(Named{dialog, "treeView"}),
      list(Named{dialog, "listView"}),
      places(Named{dialog, "sidebar"}),
      newFolder(Named{dialog, "newFolderButton"}),
      lookInLabel(Named{dialog, "lookInLabel"}),
      lookIn(Named{dialog, "lookInCombo"}),
      fileTypeLabel(Named{dialog, "fileTypeLabel"}),
      fileType(Named{dialog, "fileTypeCombo"}),
      renameAction(Named{dialog, "qt_rename_action"}),
      deleteAction(Named{dialog, "qt_delete_action"}),
      newFolderAction(Named{dialog, "qt_new_folder_action"}) {
}
