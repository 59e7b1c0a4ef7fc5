// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <string>

/// What the file dialogs of Windows are asked, and their answer: the record OPENFILENAME with its buffers. Texts are
/// bytes in the code page of the program's calls; see `askOpenName`.
class FileRequest {
  public:
    [[nodiscard]] static FileRequest toOpen(HWND owner, const std::string& sInitialDir);
    [[nodiscard]] static FileRequest toSave(HWND owner, const std::string& sInName, const std::string& sInitialDir);

    /// The record, filled for a call of a dialog. It is valid as long as this object is neither moved nor destroyed.
    [[nodiscard]] OPENFILENAMEA& record();

    /// The path that a dialog has written; empty if it has written none.
    [[nodiscard]] std::string path() const;

  private:
    FileRequest() = default;

    OPENFILENAMEA record_{};  // without the pointers to what follows
    std::string file_;        // with its NUL characters, which the dialog writes over
    std::string fileTitle_;
    std::string initialDir_;
};
