// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>

class QWidget;

// Both dialogs only name a file: they do not open, delete, rename or move any. In the second one the user may create
// a folder. If a folder is selected in the list, the button opens it.
// On Windows they are those of the operating system: what their lists allow beyond that is what the Explorer allows.

/// Asks for an existing file. @return its full path; empty if the user cancelled
[[nodiscard]] std::filesystem::path askOpenName(QWidget* owner, const QString& initialDir);

/// Asks for the file to save to and suggests `name`. Asks before a file is overwritten, and adds "txt" to a name
/// without an extension. If the folder or the file cannot be written, a message says so and the dialog stays open.
/// @return the full path; empty if the user cancelled
[[nodiscard]] std::filesystem::path askSaveName(QWidget* owner, const QString& name, const QString& initialDir);
