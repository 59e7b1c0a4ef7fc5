// SPDX-License-Identifier: MIT
#include "shell/SaveRefusal.h"

#include <QDir>
#include <QFileInfo>

#include "model/FileWriter.h"

QString saveRefusal(const QFileInfo& file) {
    const QFileInfo folder(file.absolutePath());
    const auto folderName = QDir::toNativeSeparators(folder.filePath());
    if (!folder.isDir()) return QStringLiteral("This folder does not exist:\n%1").arg(folderName);
    const auto name = QDir::toNativeSeparators(file.filePath());
    if (file.exists() && !file.isFile()) return QStringLiteral("This is not a regular file:\n%1").arg(name);
    if (file.exists() && !file.isWritable()) return QStringLiteral("This file is write-protected:\n%1").arg(name);
    if (!folder.isWritable()) return QStringLiteral("You cannot create files in this folder:\n%1").arg(folderName);
    // Last, whatever only the operating system knows: start a save and abandon it.
    if (!FileWriter(file.filesystemAbsoluteFilePath()).isGood())
        return QStringLiteral("This file cannot be written:\n%1").arg(name);
    return {};
}

QString saveRefusalMessage(const QString& refusal) {
    return refusal + QStringLiteral("\n\nPlease choose another name or folder.");
}
