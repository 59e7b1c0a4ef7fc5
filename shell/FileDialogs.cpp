// SPDX-License-Identifier: MIT
#include "shell/FileDialogs.h"

#include <QCompleter>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QTreeView>

#include "model/FileWriter.h"
#include "views/MessageBox.h"

namespace {

// Size in pixels at which the details of a file can be read.
constexpr QSize dialogSize(800, 480);

// Name filters: what is shown, then the pattern, which is not.
QString allFiles() {
    return QStringLiteral("All Files (*.*) (*)");
}
QString textFiles() {
    return QStringLiteral("Text File (.txt) (*.txt)");
}

// What keeps a scheme from being saved in `file`; empty when nothing does.
QString refusal(const QFileInfo& file) {
    const QFileInfo folder(file.absolutePath());
    const auto folderName = QDir::toNativeSeparators(folder.filePath());
    if (!folder.isDir()) return QStringLiteral("There is no folder\n%1").arg(folderName);
    const auto name = QDir::toNativeSeparators(file.filePath());
    if (file.exists() && !file.isFile()) return QStringLiteral("This is no file to save in:\n%1").arg(name);
    if (file.exists() && !file.isWritable()) return QStringLiteral("This file is write-protected:\n%1").arg(name);
    if (!folder.isWritable()) return QStringLiteral("No file can be written in the folder\n%1").arg(folderName);
    // Last, what only the system knows: a save is begun and given up.
    if (!FileWriter(file.filesystemAbsoluteFilePath()).isGood())
        return QStringLiteral("This file cannot be written:\n%1").arg(name);
    return {};
}

class FileDialog final : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const QString& title, const QString& initialDir) : QFileDialog(owner, title) {
        setOption(DontUseNativeDialog);
        setOption(HideNameFilterDetails);  // the names say it; "*.*" would leave out files without a dot
        setNameFilters({allFiles(), textFiles()});
        setFilter(QDir::AllEntries | QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Hidden);
        setDirectory(initialDir);
        setViewMode(Detail);
        resize(dialogSize);
        if (auto* details = findChild<QTreeView*>(QStringLiteral("treeView"))) {
            details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
            details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        }
        // Not `directoryEntered`, which neither a typed folder nor the back button raises.
        if (const auto* folders = findChild<QFileSystemModel*>())
            connect(folders, &QFileSystemModel::rootPathChanged, this, [this] { setViewMode(Detail); });
        nameForScreenReaders("lookInLabel", "lookInCombo");
        nameForScreenReaders("fileTypeLabel", "fileTypeCombo");
    }

    [[nodiscard]] std::filesystem::path ask() {
        if (exec() != Accepted || chosen_.isEmpty()) return {};
        return QFileInfo(chosen_).filesystemAbsoluteFilePath();
    }

  protected:
    // The list of proposals takes the keyboard for itself. Enter closes it together with the dialog; on X11 it may
    // then open once more and vanish, and the main window is never told that the keyboard is back. So there is none
    // meanwhile.
    void accept() override {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* proposals = name ? name->completer() : nullptr;
        if (proposals) name->setCompleter(nullptr);
        acceptName();
        if (proposals && isVisible()) name->setCompleter(proposals);
    }

  private:
    void acceptName() {
        takeTypedName();
        if (acceptMode() == AcceptOpen) {
            chosen_ = selectedFiles().value(0);
            QFileDialog::accept();
            return;
        }
        const auto message = refusalOfTypedName();
        if (message.isEmpty())
            withWholeName([this] { QFileDialog::accept(); });
        else
            showMessage(this, message + QStringLiteral("\n\nPlease choose another name or folder."));
    }

    QString refusalOfTypedName() {
        const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name && name->text().contains(QLatin1Char('"')) && !QFileInfo(directory(), name->text()).exists())
            return QStringLiteral("No name with a quotation mark can be typed here:\n%1").arg(name->text());
        withWholeName([this] { chosen_ = selectedFiles().value(0); });
        const QFileInfo file(chosen_);
        return chosen_.isEmpty() || file.isDir() ? QString() : refusal(file);  // a folder is entered
    }

    // Puts a name into the text box without being taken for the user, whose typing selects files.
    static void write(QLineEdit& box, const QString& name) {
        const QSignalBlocker unselected(box);
        box.setText(name);
    }

    // Files selected in the list count more to Qt than the name in the text box, which differs from them when a path
    // was typed and the list then came to know its files. What the user reads in the text box is what is meant. There
    // Qt takes quotation marks for the ends of names; a file that has them in its own name can only be selected.
    void takeTypedName() {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* list = findChild<QListView*>(QStringLiteral("listView"));
        const auto* files = findChild<QFileSystemModel*>();
        if (!name || !list || !files || name->text().isEmpty()) return;
        const auto typed = name->text();
        list->selectionModel()->clearSelection();
        if (typed.contains(QLatin1Char('"'))) {
            const QSignalBlocker unchanged(name);
            list->selectionModel()->select(files->index(directory().absoluteFilePath(typed)),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
        write(*name, typed);
    }

    // Qt adds no suffix to the name of a folder, but looks for that in the folder that the program was started in,
    // unless the name is given in full. It knows itself what a tilde and quotation marks mean.
    template <class Step>
    void withWholeName(Step step) {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        const auto typed = name ? name->text() : QString();
        const auto whole = directory().absoluteFilePath(typed);
        const bool isQts = typed.isEmpty() || typed.startsWith(QLatin1Char('~')) || whole.contains(QLatin1Char('"'));
        if (name && !isQts) write(*name, whole);
        step();
        if (name && name->text() == whole) write(*name, typed);
    }

    // What was chosen when the choice was made: while Qt asks whether to overwrite a file, its list may still change.
    QString chosen_;

    // Qt ties no label to its lists.
    void nameForScreenReaders(const char* label, const char* list) {
        if (auto* name = findChild<QLabel*>(QString::fromLatin1(label)))
            name->setBuddy(findChild<QWidget*>(QString::fromLatin1(list)));
    }
};

// QFileDialog writes where it has been into a settings file of the user; lead it nowhere. (Where the settings are no
// file, on Windows and macOS, this has no effect.)
void keepNoHistory() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral(":/nowhere"));
}

}  // namespace

std::filesystem::path askOpenName(QWidget* owner, const QString& initialDir) {
    keepNoHistory();
    FileDialog dialog(owner, QStringLiteral("Open A File"), initialDir);
    dialog.setObjectName(QStringLiteral("GetOpenName"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.ask();
}

std::filesystem::path askSaveName(QWidget* owner, const QString& name, const QString& initialDir) {
    keepNoHistory();
    FileDialog dialog(owner, QStringLiteral("Save File As..."), initialDir);
    dialog.setObjectName(QStringLiteral("GetSaveAsName"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectNameFilter(textFiles());
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    dialog.selectFile(name);
    return dialog.ask();
}
