// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

// What the file dialogs of Windows need beside the record of the request.

/// Whether the library of the common dialogs, Comdlg32.dll, has version 5 or later. An older one takes only a record
/// without its last three fields. @return false, too, if the version cannot be read
[[nodiscard]] bool isComdlgVersion5();

/// Whether the fixed information of a file says that its version is 5 or later.
/// @param fixedInfo as VerQueryValueA finds it: the major version is the 16-bit word at byte 10
[[nodiscard]] bool isMajorVersion5(const void* fixedInfo);

/// The hook of both dialogs: whenever the dialog has opened a folder, the first one included, its list of files is
/// switched to the details. @return 0 always, so the dialog goes on as without a hook
UINT_PTR CALLBACK DialogHook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
