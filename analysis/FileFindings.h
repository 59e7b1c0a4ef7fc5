// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/SchemeTable.h"
#include "model/LargeArray.h"

class clsNavSchemes;

// What only the files of a scheme can show: what the reader silently changes or drops, and records that will be lost
// when the scheme is saved.

/// How much a finding matters: a remark loses nothing.
enum class Level { Remark, Warning, Error };

/// One kind of flaw.
struct FileFlaw {
    std::string_view id;  ///< names it for other programs: "twin-id"
    Level level;
    std::string_view words;  ///< the message; "%" stands for the detail of the finding
};

/// All kinds of flaws, in no particular order.
extern const std::span<const FileFlaw> fileFlaws;

/// A flaw at one place of a file.
struct FileFinding {
    static constexpr int wholeLine = -1;

    const FileFlaw* flaw;
    std::uint32_t line;  ///< from 1; CR LF, LF and CR each end a line
    int field;           ///< its place among the table's fields, or `wholeLine`
    std::string detail;  ///< bytes of the file, or a number

    /// The message, in bytes of the files' code page.
    [[nodiscard]] std::string words() const;
};

/// There may be millions.
using FileFindings = LargeArray<FileFinding>;

/// The result of one pass through the bytes of a file.
struct ScannedFile {
    FileFindings findings;            ///< in the order of the lines
    LargeArray<std::uint32_t> lines;  ///< of the records that the scheme keeps, in its order
};

/// Checks the bytes of a file before the scheme reads them.
[[nodiscard]] ScannedFile scanFile(const SchemeTable& table, std::string_view bytes);

/// The nodes of a loaded file that are not in the tree, and why. `lines` is the result of `scanFile`.
[[nodiscard]] FileFindings findInTree(const clsNavSchemes& navs, std::span<const std::uint32_t> lines);

/// The paragraphs of a loaded file whose node does not exist. Renumbers nothing. `lines` is the result of `scanFile`.
[[nodiscard]] FileFindings findOrphans(const clsNavSchemes& navs, std::span<const std::uint32_t> lines);
