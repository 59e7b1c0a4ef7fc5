// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFileInfo>
#include <QWidget>

#include "shell/FileDialogs.h"
#include "shell/FileRequest.h"
#include "shell/SaveRefusal.h"
#include "views/MessageBox.h"

// The dialogs of Windows, called by their entry points for texts of bytes. The manifest of the program asks for UTF-8
// there, so that every path has bytes. Windows before version 1903 of Windows 10 ignores that and uses the code page
// of the operating system. A path with other characters then comes back with question marks, which no file name may
// contain: opening it opens nothing, and saving to it gives the message of the save dialog.

namespace {

std::string bytesOf(const QString& path) {
    return QDir::toNativeSeparators(path).toLocal8Bit().toStdString();
}

HWND handleOf(const QWidget* owner) {
    return owner ? reinterpret_cast<HWND>(owner->window()->winId()) : nullptr;
}

// @param dialog GetOpenFileNameA or GetSaveFileNameA
// @return the chosen path; empty if the user cancelled or the dialog failed
QString ask(BOOL(WINAPI* dialog)(OPENFILENAMEA*), FileRequest request) {
    if (!dialog(&request.record())) return {};
    return QString::fromLocal8Bit(request.path());
}

std::filesystem::path pathOf(const QString& name) {
    return name.isEmpty() ? std::filesystem::path() : QFileInfo(name).filesystemAbsoluteFilePath();
}

}  // namespace

std::filesystem::path askOpenName(QWidget* owner, const QString& initialDir) {
    return pathOf(ask(GetOpenFileNameA, FileRequest::toOpen(handleOf(owner), bytesOf(initialDir))));
}

std::filesystem::path askSaveName(QWidget* owner, const QString& name, const QString& initialDir) {
    for (auto proposed = name;;) {
        const auto chosen =
            ask(GetSaveFileNameA, FileRequest::toSave(handleOf(owner), bytesOf(proposed), bytesOf(initialDir)));
        const auto refusal = chosen.isEmpty() ? QString() : saveRefusal(QFileInfo(chosen));
        if (refusal.isEmpty()) return pathOf(chosen);
        showMessage(owner, saveRefusalMessage(refusal));
        proposed = chosen;
    }
}
