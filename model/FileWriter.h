// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

/// Whether two names mean the same file, however their accents are written: macOS takes a letter with an accent and a
/// letter followed by one for the same, and turns one into the other.
[[nodiscard]] bool isSameName(const std::filesystem::path& one, const std::filesystem::path& other);

/// Writes a file so that the old file is either replaced by everything that was written or left untouched: a full
/// disk, a missing permission or a crash half-way loses nothing. The new file gets the group and the mode of the old
/// one where the user may set them; the old one's owner, hard links and extended attributes are not kept.
class FileWriter {
  public:
    /// Starts writing. Only a regular file is ever replaced, never a folder, a pipe or a device.
    explicit FileWriter(const std::filesystem::path& file);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Whether nothing has failed so far; right after construction, whether the file can be written.
    [[nodiscard]] bool isGood() const;
    void write(std::string_view bytes);
    /// Puts the file in its place. @return false if anything has failed; the old file is then untouched
    [[nodiscard]] bool commit();

  private:
    void writePiece();

    class SizeLimitIsAnError;
    struct File;
    std::unique_ptr<File> file_;
    std::string piece_;  // not yet handed to the operating system
    bool good_ = true;
};
