// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "analysis/SchemeTable.h"
#include "commands/Console.h"
#include "model/clsNavSchemes.h"

/// A scheme's text file that was read.
struct InputFile {
    std::string name;  ///< as messages and findings show it
    FileBytes content;

    [[nodiscard]] std::string_view bytes() const { return {content.bytes.get(), content.size}; }
};

/// Reads a whole file; the name "-" stands for the standard input.
/// @throws Unusable when it cannot be read
[[nodiscard]] InputFile readInput(const std::string& name, const Console& console);

/// The same for a file of a certain table.
/// @throws Unusable also when its first line is the header of the other table
[[nodiscard]] InputFile readInput(const std::string& name, const SchemeTable& table, const Console& console);

/// The table whose header is the first line of the file; null when it is neither.
[[nodiscard]] const SchemeTable* tableOf(const InputFile& file);

/// Refuses the standard input for two files at once.
/// @throws Unusable
void refuseTwoStandardInputs(const std::string& nodes, const std::string& paragraphs);

/// Fills a scheme from one file or both; `paragraphs` may be empty.
/// @throws Unusable
void loadSchemes(clsNavSchemes& navs, const std::string& nodes, const std::string& paragraphs,
                 const Console& console);
