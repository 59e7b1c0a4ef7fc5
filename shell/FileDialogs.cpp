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

#include "shell/FileDialogParts.h"
#include "shell/SaveRefusal.h"
#include "views/MessageBox.h"

namespace {

// A size in pixels at which the details of a file are readable.
constexpr QSize dialogSize(800, 480);

// Name filters: the shown text, then the pattern, which is not shown.
QString allFiles() {
    return QStringLiteral("All Files (*.*) (*)");
}
QString textFiles() {
    return QStringLiteral("Text File (.txt) (*.txt)");
}

// Tells the kind of a file from its name. Qt's own provider would open each file in the folder to look at its
// contents.
class KindsByName final : public QFileIconProvider {
  public:
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override {
        return QFileIconProvider::icon(file.isRoot() ? Drive : file.isDir() ? Folder : File);
    }
    [[nodiscard]] QString type(const QFileInfo& file) const override {
        if (file.isRoot()) return QStringLiteral("Drive");
        if (file.isDir()) return QStringLiteral("Folder");
        const auto type = QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension).comment();
        // Without the desktop's list of types there is none. Qt takes a file without a type for one that it knows
        // already, and may never show it.
        return type.isEmpty() ? QStringLiteral("File") : type;
    }
};

class FileDialog final : public QFileDialog {
  public:
    /// @param kinds must outlive the dialog
    FileDialog(QWidget* owner, const QString& title, const QString& initialDir, KindsByName& kinds)
        : QFileDialog(owner, title) {
        setOption(DontUseNativeDialog);
        parts_ = FileDialogParts(*this);
        setIconProvider(&kinds);           // before the first files are shown
        setOption(HideNameFilterDetails);  // the names tell; "*.*" would hide files without a dot
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
        // Not `directoryEntered`: neither a typed folder nor the back button raises it.
        if (parts_.files)
            connect(parts_.files, &QFileSystemModel::rootPathChanged, this, [this] { setViewMode(Detail); });
        if (parts_.name) {
            // The window with its suggestions would swallow the next click or key. On X11, if it closes together with
            // the dialog, the main window may not get the keyboard back.
            parts_.name->setCompleter(nullptr);
            parts_.name->installEventFilter(this);
            connect(parts_.name, &QLineEdit::textEdited, this, [this] { deselectFolder(); });
            connect(parts_.name, &QLineEdit::textChanged, this, [this] { enableButtonForQuotes(); });
        }
        nameForScreenReaders(parts_.lookInLabel, parts_.lookIn);
        nameForScreenReaders(parts_.fileTypeLabel, parts_.fileType);
    }

    /// Lets the user create a folder and open it.
    void offerNewFolder() {
        if (!parts_.newFolder) return;
        parts_.newFolder->disconnect(SIGNAL(clicked()));  // Qt's own command needs renaming to be allowed
        connect(parts_.newFolder, &QToolButton::clicked, this, [this] { makeFolder(); });
        parts_.newFolder->show();
        enableNewFolder();
        // Qt disables the button whenever the folder changes, but only after that signal.
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

    // Pressing Enter answers once, however long the key is held.
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

    // Dragging a file onto a folder would move it there, and Del would delete a folder with everything in it.
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
    // The folder that the button would open; empty if there is none.
    [[nodiscard]] QString selectedFolder() const {
        const auto index = selectedFolderIndex();
        return index.isValid() ? parts_.files->filePath(index) : QString();
    }
    // If the user types a name after selecting a folder, the name counts.
    void deselectFolder() {
        if (const auto index = selectedFolderIndex(); index.isValid())
            parts_.list->selectionModel()->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
    // A selected file's name makes no sense in another folder, so it goes; a name to save to stays.
    void enter(const QString& folder) {
        setDirectory(folder);
        if (!parts_.name) return;
        if (acceptMode() == AcceptOpen) parts_.name->clear();
        // Without a name the pressed button becomes disabled, and the focus would move on to the next button.
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
                        QStringLiteral("This folder cannot be created:\n%1").arg(QDir::toNativeSeparators(folder)));
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
            showMessage(this, saveRefusalMessage(message));
    }

    QString refusalOfTypedName() {
        const auto typed = parts_.name ? parts_.name->text() : QString();
        if (typed.contains(QLatin1Char('"')) && !QFileInfo(directory(), typed).exists())
            return QStringLiteral("A name typed here cannot contain a quotation mark:\n%1").arg(typed);
        withWholeName([this] { chosen_ = selectedFiles().value(0); });
        const QFileInfo file(chosen_);
        return chosen_.isEmpty() || file.isDir() ? QString() : saveRefusal(file);  // a folder is opened
    }

    // Qt treats quotation marks as the ends of names, so it does not find files that have them in their names.
    void enableButtonForQuotes() {
        const auto typed = parts_.name->text();
        if (!typed.contains(QLatin1Char('"')) || !QFileInfo(directory(), typed).exists()) return;
        if (auto* buttons = findChild<QDialogButtonBox*>())
            for (auto* button : buttons->buttons()) button->setEnabled(true);
    }

    // Sets the name in the text box without the effect of typing, which selects files.
    static void write(QLineEdit& box, const QString& name) {
        const QSignalBlocker unselected(box);
        box.setText(name);
    }

    // Qt prefers the files selected in the list to the name in the text box. The two differ if the user typed a path
    // before the list knew its files; then the name in the text box, which the user reads, must count. Qt treats
    // quotation marks there as the ends of names, so a file with quotation marks in its name can only be selected.
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

    // Qt adds no suffix to the name of a folder. But unless the path is complete, it looks for that folder where the
    // program was started. Names with a tilde or quotation marks are left to Qt, which interprets them.
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

    // Qt does not tie its labels to its lists.
    static void nameForScreenReaders(QWidget* label, QWidget* list) {
        if (auto* name = qobject_cast<QLabel*>(label); name && list) name->setBuddy(list);
    }

    FileDialogParts parts_;
    // The user's choice, kept: while Qt asks whether to overwrite a file, its list may still change.
    QString chosen_;
};

// QFileDialog records the visited folders in a settings file of the user; give it a path that cannot exist. (On
// Windows and macOS, where the settings are not a file, this has no effect.)
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
