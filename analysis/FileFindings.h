// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/SchemeTable.h"

class clsNavSchemes;

// What only the files of a scheme can show: what reading them changes or drops without a word, and records that will
// be lost when the scheme is saved.

/// How much a finding matters: a remark loses nothing.
enum class Level { Remark, Warning, Error };

/// One kind of flaw.
struct FileFlaw {
    std::string_view id;  ///< names it for other programs: "twin-id"
    Level level;
    std::string_view words;  ///< what is said of it; a "%" stands for the detail of the finding
};

/// All kinds of flaws, in no particular order.
extern const std::span<const FileFlaw> fileFlaws;

/// A flaw at one place of a file.
struct FileFinding {
    static constexpr int wholeLine = -1;

    const FileFlaw* flaw;
    std::uint32_t line;  ///< from 1; CR LF, LF and CR each end a line
    int field;           ///< its place in the table's fields, or `wholeLine`
    std::string detail;  ///< bytes of the file, or a number

    /// What is said of it, in bytes of the files' code page.
    [[nodiscard]] std::string words() const;
};

/// What one look through the bytes of a file tells.
struct ScannedFile {
    std::vector<FileFinding> findings;  ///< in the order of the lines
    std::vector<std::uint32_t> lines;   ///< of the records that the scheme keeps, in its order
};

/// Looks through the bytes of a file before the scheme reads them.
[[nodiscard]] ScannedFile scanFile(const SchemeTable& table, std::string_view bytes);

/// The nodes of a loaded file that stand in no tree, and why. `lines` are those of `scanFile`.
[[nodiscard]] std::vector<FileFinding> findInTree(const clsNavSchemes& navs, std::span<const std::uint32_t> lines);

/// The paragraphs of a loaded file whose node does not exist. Nothing is renumbered. `lines` are those of `scanFile`.
[[nodiscard]] std::vector<FileFinding> findOrphans(const clsNavSchemes& navs, std::span<const std::uint32_t> lines);
