// SPDX-License-Identifier: MIT
#include "shell/FileRequest.h"

#include <cstddef>

#include "shell/MDialogHook.h"

namespace {

// A record without its last three fields ends where they begin. That makes 88 and 76 bytes on a 32-bit Windows. On a
// 64-bit one the pointers are longer, so both sizes are greater; a dialog refuses a record that tells another size.
constexpr std::size_t wholeRecord = sizeof(OPENFILENAMEA);
constexpr std::size_t shorterRecord = offsetof(OPENFILENAMEA, pvReserved);
static_assert(sizeof(void*) != 4 || (wholeRecord == 88 && shorterRecord == 76));
static_assert(sizeof(void*) != 8 || (wholeRecord == 152 && shorterRecord == 136));

// A shown text, then its pattern; each ends with a NUL, the list with another one.
constexpr char filters[] = "All Files (*.*)\0*.*\0Text File (.txt)\0*.txt\0";

constexpr DWORD mostOfPath = 700;
constexpr DWORD mostOfTitle = 260;

// Hidden files, a dialog in the style of the Explorer that can be resized, a hook, the question before an old file is
// overwritten; no box for opening read-only; the folder of the program stays. The dialog may also say that the suffix
// is another one. Both dialogs get the same: it does no harm to the first one.
constexpr DWORD flags = 0x1088042E;

}  // namespace

FileRequest FileRequest::toOpen(HWND owner, const std::string& sInitialDir) {
    FileRequest request;
    request.record_.hwndOwner = owner;
    request.record_.lpstrTitle = "Open A File";
    request.file_.assign(mostOfPath, '\0');
    request.initialDir_ = sInitialDir;
    return request;
}

FileRequest FileRequest::toSave(HWND owner, const std::string& sInName, const std::string& sInitialDir) {
    auto request = toOpen(owner, sInitialDir);
    request.record_.nFilterIndex = 2;
    request.record_.lpstrTitle = "Save File As...";
    request.record_.lpstrDefExt = "txt";
    request.file_.insert(0, sInName);  // longer than nMaxFile says, which is given
    return request;
}

OPENFILENAMEA& FileRequest::record() {
    fileTitle_.assign(mostOfTitle, '\0');
    record_.lStructSize = static_cast<DWORD>(isComdlgVersion5() ? wholeRecord : shorterRecord);
    record_.lpstrFilter = filters;
    record_.lpstrFile = file_.data();
    record_.nMaxFile = mostOfPath;
    record_.lpstrFileTitle = fileTitle_.data();
    record_.nMaxFileTitle = mostOfTitle;
    record_.lpstrInitialDir = initialDir_.c_str();
    record_.Flags = flags;
    record_.lpfnHook = DialogHook;
    return record_;
}

std::string FileRequest::path() const {
    const auto end = file_.find('\0');
    return end == std::string::npos ? std::string() : file_.substr(0, end);
}
