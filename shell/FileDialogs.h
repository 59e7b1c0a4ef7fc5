// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>

class QWidget;

// Both dialogs name a file and leave all files alone: they open none, and neither delete, rename nor move any. In the
// second one the user may make a folder. A folder that is selected in the list is entered by the button.

/// Asks for an existing file. @return its full path, empty when the user cancelled
[[nodiscard]] std::filesystem::path askOpenName(QWidget* owner, const QString& initialDir);

/// Asks for the file to save in, proposing `name`; asks before one is overwritten, adds "txt" to a name without an
/// extension. A name in a folder or a file that cannot be written is refused with a message, and the dialog stays.
/// @return the full path, empty when the user cancelled
[[nodiscard]] std::filesystem::path askSaveName(QWidget* owner, const QString& name, const QString& initialDir);
