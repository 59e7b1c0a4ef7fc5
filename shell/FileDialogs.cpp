// SPDX-License-Identifier: MIT
#include "shell/FileDialogs.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeDatabase>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>
#include <QTreeView>

#include "model/FileWriter.h"
#include "shell/FileDialogParts.h"
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

// Tells the kind of a file by its name. Qt's own provider would open each file in the folder to look at its contents.
class KindsByName final : public QFileIconProvider {
  public:
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override {
        return QFileIconProvider::icon(file.isRoot() ? Drive : file.isDir() ? Folder : File);
    }
    [[nodiscard]] QString type(const QFileInfo& file) const override {
        if (file.isRoot()) return QStringLiteral("Drive");
        if (file.isDir()) return QStringLiteral("Folder");
        return QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension).comment();
    }
};

class FileDialog final : public QFileDialog {
  public:
    /// @param kinds must outlive the dialog
    FileDialog(QWidget* owner, const QString& title, const QString& initialDir, KindsByName& kinds)
        : QFileDialog(owner, title) {
        setOption(DontUseNativeDialog);
        parts_ = FileDialogParts(*this);
        setIconProvider(&kinds);           // before the first files come to be shown
        setOption(HideNameFilterDetails);  // the names say it; "*.*" would leave out files without a dot
        setNameFilters({allFiles(), textFiles()});
        setFilter(QDir::AllEntries | QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Hidden);
        setDirectory(initialDir);
        setViewMode(Detail);
        resize(dialogSize);
        changeNoFiles();
        if (parts_.details) {
            parts_.details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
            parts_.details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        }
        // Not `directoryEntered`, which neither a typed folder nor the back button raises.
        if (parts_.files)
            connect(parts_.files, &QFileSystemModel::rootPathChanged, this, [this] { setViewMode(Detail); });
        if (parts_.name) {
            // The window of its proposals would take the next click or key for itself; closed together with the
            // dialog it may on X11 keep the keyboard from the main window.
            parts_.name->setCompleter(nullptr);
            parts_.name->installEventFilter(this);
            connect(parts_.name, &QLineEdit::textEdited, this, [this] { deselectFolder(); });
            connect(parts_.name, &QLineEdit::textChanged, this, [this] { enableButtonForQuotes(); });
        }
        nameForScreenReaders(parts_.lookInLabel, parts_.lookIn);
        nameForScreenReaders(parts_.fileTypeLabel, parts_.fileType);
    }

    /// Lets the user make a folder, and enter it.
    void offerNewFolder() {
        if (!parts_.newFolder) return;
        parts_.newFolder->disconnect(SIGNAL(clicked()));  // Qt's way needs the right to rename
        connect(parts_.newFolder, &QToolButton::clicked, this, [this] { makeFolder(); });
        parts_.newFolder->show();
        enableNewFolder();
        // Qt switches it off with each change of the folder, but afterwards.
        if (parts_.files)
            connect(
                parts_.files, &QFileSystemModel::rootPathChanged, this, [this] { enableNewFolder(); },
                Qt::QueuedConnection);
    }

    [[nodiscard]] std::filesystem::path ask() {
        if (exec() != Accepted || chosen_.isEmpty()) return {};
        return QFileInfo(chosen_).filesystemAbsoluteFilePath();
    }

  protected:
    void accept() override {
        if (const auto folder = selectedFolder(); !folder.isEmpty())
            enter(folder);
        else
            acceptName();
    }

    // One press of Enter is one answer, however long the key is held.
    void keyPressEvent(QKeyEvent* event) override {
        if (!isRepeatedEnter(*event)) QFileDialog::keyPressEvent(event);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        return isRepeatedEnter(*event) || QFileDialog::eventFilter(watched, event);
    }

  private:
    static bool isRepeatedEnter(const QEvent& event) {
        if (event.type() != QEvent::KeyPress) return false;
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
    }

    // --- folders ---

    void enableNewFolder() { parts_.newFolder->setEnabled(true); }

    // A file that is dragged onto a folder would be moved there, and Del would delete a folder with all that is in
    // it.
    void changeNoFiles() {
        setOption(ReadOnly);
        for (auto* view :
             {static_cast<QAbstractItemView*>(parts_.details), static_cast<QAbstractItemView*>(parts_.list),
              static_cast<QAbstractItemView*>(parts_.places)})
            if (view) view->setDragDropMode(QAbstractItemView::NoDragDrop);
        for (auto* action : {parts_.renameAction, parts_.deleteAction, parts_.newFolderAction})
            if (action) action->setVisible(false);
        if (parts_.newFolder) parts_.newFolder->hide();
    }

    [[nodiscard]] QModelIndex selectedFolderIndex() const {
        if (!parts_.list || !parts_.files) return {};
        const auto selected = parts_.list->selectionModel()->selectedRows();
        return selected.size() == 1 && parts_.files->isDir(selected.front()) ? selected.front() : QModelIndex();
    }
    // The folder that the button would open; empty when there is none.
    [[nodiscard]] QString selectedFolder() const {
        const auto index = selectedFolderIndex();
        return index.isValid() ? parts_.files->filePath(index) : QString();
    }
    // A name that is typed after a folder was selected is what is meant.
    void deselectFolder() {
        if (const auto index = selectedFolderIndex(); index.isValid())
            parts_.list->selectionModel()->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
    // The name of a file that was selected before does not belong to the other folder; one to save in stays.
    void enter(const QString& folder) {
        setDirectory(folder);
        if (!parts_.name) return;
        if (acceptMode() == AcceptOpen) parts_.name->clear();
        // Without a name the button that was pressed is switched off, and would hand the keyboard on to the next one.
        if (qobject_cast<QPushButton*>(focusWidget())) parts_.name->setFocus();
    }

    void makeFolder() {
        QInputDialog question(this);
        question.setObjectName(QStringLiteral("newFolder"));
        question.setWindowTitle(QStringLiteral("New Folder"));
        question.setLabelText(QStringLiteral("Name of the new folder:"));
        if (question.exec() != Accepted || question.textValue().isEmpty()) return;
        if (const auto folder = directory().absoluteFilePath(question.textValue()); QDir().mkdir(folder))
            enter(folder);
        else
            showMessage(this,
                        QStringLiteral("This folder cannot be made:\n%1").arg(QDir::toNativeSeparators(folder)));
    }

    // --- names ---

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
        const auto typed = parts_.name ? parts_.name->text() : QString();
        if (typed.contains(QLatin1Char('"')) && !QFileInfo(directory(), typed).exists())
            return QStringLiteral("A name typed here cannot contain a quotation mark:\n%1").arg(typed);
        withWholeName([this] { chosen_ = selectedFiles().value(0); });
        const QFileInfo file(chosen_);
        return chosen_.isEmpty() || file.isDir() ? QString() : refusal(file);  // a folder is entered
    }

    // Qt takes quotation marks for the ends of names, and finds no such files.
    void enableButtonForQuotes() {
        const auto typed = parts_.name->text();
        if (!typed.contains(QLatin1Char('"')) || !QFileInfo(directory(), typed).exists()) return;
        if (auto* buttons = findChild<QDialogButtonBox*>())
            for (auto* button : buttons->buttons()) button->setEnabled(true);
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
        if (!parts_.name || !parts_.list || !parts_.files || parts_.name->text().isEmpty()) return;
        const auto typed = parts_.name->text();
        auto& selection = *parts_.list->selectionModel();
        selection.clearSelection();
        if (typed.contains(QLatin1Char('"'))) {
            const QSignalBlocker unchanged(parts_.name);
            selection.select(parts_.files->index(directory().absoluteFilePath(typed)),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
        write(*parts_.name, typed);
    }

    // Qt adds no suffix to the name of a folder, but looks for that in the folder that the program was started in,
    // unless the name is given in full. It knows itself what a tilde and quotation marks mean.
    template <class Step>
    void withWholeName(Step step) {
        auto* name = parts_.name;
        const auto typed = name ? name->text() : QString();
        const auto whole = directory().absoluteFilePath(typed);
        const bool isQts = typed.isEmpty() || typed.startsWith(QLatin1Char('~')) || whole.contains(QLatin1Char('"'));
        if (name && !isQts) write(*name, whole);
        step();
        if (name && name->text() == whole) write(*name, typed);
    }

    // Qt ties no label to its lists.
    static void nameForScreenReaders(QWidget* label, QWidget* list) {
        if (auto* name = qobject_cast<QLabel*>(label); name && list) name->setBuddy(list);
    }

    FileDialogParts parts_;
    // What was chosen when the choice was made: while Qt asks whether to overwrite a file, its list may still change.
    QString chosen_;
};

// QFileDialog writes where it has been into a settings file of the user; lead it nowhere. (Where the settings are no
// file, on Windows and macOS, this has no effect.)
void keepNoHistory() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral(":/nowhere"));
}

}  // namespace

std::filesystem::path askOpenName(QWidget* owner, const QString& initialDir) {
    keepNoHistory();
    KindsByName kinds;
    FileDialog dialog(owner, QStringLiteral("Open A File"), initialDir, kinds);
    dialog.setObjectName(QStringLiteral("GetOpenName"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.ask();
}

std::filesystem::path askSaveName(QWidget* owner, const QString& name, const QString& initialDir) {
    keepNoHistory();
    KindsByName kinds;
    FileDialog dialog(owner, QStringLiteral("Save File As..."), initialDir, kinds);
    dialog.setObjectName(QStringLiteral("GetSaveAsName"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectNameFilter(textFiles());
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    dialog.selectFile(name);
    dialog.offerNewFolder();
    return dialog.ask();
}
