// SPDX-License-Identifier: MIT
#include "shell/MDialogHook.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr UINT notification = 0x4E;         // WM_NOTIFY
constexpr UINT folderChanged = 0xFFFFFDA5;  // -603, CDN_FOLDERCHANGE
constexpr UINT command = 0x111;             // WM_COMMAND
constexpr WPARAM showDetails = 0x702C;      // of the list of files
constexpr const char* library = "Comdlg32.dll";

}  // namespace

bool isMajorVersion5(const void* fixedInfo) {
    std::uint16_t major = 0;
    std::memcpy(&major, static_cast<const char*>(fixedInfo) + 10, sizeof(major));
    return major >= 5;
}

bool isComdlgVersion5() {
    const DWORD size = GetFileVersionInfoSizeA(library, nullptr);
    if (size == 0) return false;
    std::vector<char> information(size);
    if (!GetFileVersionInfoA(library, 0, size, information.data())) return false;
    void* fixedInfo = nullptr;
    UINT length = 0;
    return VerQueryValueA(information.data(), "\\", &fixedInfo, &length) && isMajorVersion5(fixedInfo);
}

UINT_PTR CALLBACK DialogHook(HWND dialog, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message != notification) return 0;
    NMHDR header{};  // 12 bytes on 32-bit Windows
    std::memcpy(&header, reinterpret_cast<const void*>(lParam), sizeof(header));
    if (header.code != folderChanged) return 0;
    // The hook's window is a child of the dialog.
    if (HWND files = FindWindowExA(GetParent(dialog), nullptr, "SHELLDLL_DefView", nullptr))
        SendMessageA(files, command, showDetails, 0);
    return 0;
}
