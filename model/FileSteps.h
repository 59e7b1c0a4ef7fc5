// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

// Steps of a save that depend on the operating system. Except on Linux and Windows they do nothing, and QSaveFile
// alone protects the old file.

#if defined(WIZARD_LINUX) || defined(_WIN32)
/// @param file the handle of a file
/// @return whether the bytes are on the disk; where that cannot be known, whether closing the file reports no error
[[nodiscard]] bool isOnDisk(int file);
#else
[[nodiscard]] inline bool isOnDisk(int /*file*/) {
    return true;
}
#endif

#ifdef _WIN32
/// @return whether another file can take the place of this one: Windows refuses that while a program that allows no
/// deletion has it open. If there is no such file, nothing is in the way
[[nodiscard]] bool isReplaceable(const std::filesystem::path& file);
#else
[[nodiscard]] inline bool isReplaceable(const std::filesystem::path& /*file*/) {
    return true;
}
#endif

#ifdef WIZARD_LINUX
/// Gives the new file the group and the mode of the file that it will replace, as far as the user is allowed to.
void takeOver(int newFile, const std::filesystem::path& file);

/// Puts a file that has no name yet in the place of an old one.
/// @return whether the file is in its place
[[nodiscard]] bool replaceFromAnotherProcess(int newFile, const std::filesystem::path& file);
#else
inline void takeOver(int /*newFile*/, const std::filesystem::path& /*file*/) {
}
[[nodiscard]] inline bool replaceFromAnotherProcess(int /*newFile*/, const std::filesystem::path& /*file*/) {
    return false;
}
#endif
