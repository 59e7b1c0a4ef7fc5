// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "model/LargeArray.h"
#include "model/Text.h"

/// One comma-separated piece of a line, without its quotes.
class Piece {
  public:
    Piece() = default;
    Piece(char* first, char* last) : first_(first), last_(last) {}

    /// The bytes of the piece, without copying them. Call this at most once, and never for the first piece of a line.
    [[nodiscard]] Text text() const { return Text::inFile(first_, last_); }
    /// The whole number that the piece holds; 0 when it holds none.
    [[nodiscard]] std::int32_t number() const;

  private:
    char* first_ = nullptr;
    char* last_ = nullptr;
};

/// Reads the records of a scheme's text file: comma-separated lines that begin with a digit, leading blanks (0x20)
/// aside. All other lines, including the header, are skipped. CR LF, LF and CR each end a line; the last line needs
/// no line end. Quotes are dropped wherever they are, and nothing is escaped.
///
/// The reader works in place, in the bytes that it is given; afterwards they hold the texts of the records.
class FileReader {
  public:
    static constexpr std::size_t mostPieces = 10;  ///< further pieces of a line are ignored
    using Pieces = std::array<Piece, mostPieces>;  ///< missing ones are empty

    /// @param bytes one byte longer than `size`: the spare byte ends the last line
    FileReader(char* bytes, std::size_t size) : next_(bytes), end_(bytes + size) { *end_ = '\n'; }

    /// Reads the next line that holds a record. @return false at the end of the bytes
    [[nodiscard]] bool next(Pieces& pieces);

  private:
    void readPieces(Pieces& pieces);
    [[nodiscard]] char* skipLine(char* from) const;
    void goBehind(char* lineEnd);

    char* next_;  // the first byte of a line, or end_
    char* end_;
};

/// A text file's bytes.
struct FileBytes {
    LargeBytes bytes;  ///< with one spare byte after them
    std::size_t size = 0;
};

/// Reads a whole file. @return no bytes (null) if it is not a regular file or cannot be read to its end
[[nodiscard]] FileBytes readFile(const std::filesystem::path& file);
