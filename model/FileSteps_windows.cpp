// SPDX-License-Identifier: MIT
#include <io.h>
#include <windows.h>

#include "model/FileSteps.h"

bool isOnDisk(int file) {
    if (file < 0) return true;  // Qt could not give a handle: nobody knows
    if (FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file)))) return true;
    const auto error = GetLastError();
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED;  // some file systems cannot
}

bool isReplaceable(const std::filesystem::path& file) {
    constexpr DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const auto handle = CreateFileW(file.c_str(), DELETE, everything, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return CloseHandle(handle) != 0;
    const auto error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}
