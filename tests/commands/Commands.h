// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <sstream>

#include "commands/Program.h"
#include "tests/model/Helpers.h"

// What the tests of the commands share: the commands run in this process, and what they print becomes a text.

struct Ran {
    int status;
    std::string out;
    std::string err;
};

/// Runs the program with these arguments and these bytes as its standard input.
inline Ran pelmo(const std::vector<std::string>& arguments, const std::string& input = {}, bool isColoured = false) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int status = runProgram(arguments, {.in = in, .out = out, .err = err, .isColoured = isColoured});
    return {status, out.str(), err.str()};
}

inline const std::string navHeader =
    "\"ID\",\"descriptionIs\",\"typeIs\",\"parentIs\",\"queryIs\",\"parmIs\",\"iconIs\",\"roleIs\"\r\n";
inline const std::string webHeader =
    "\"ID\",\"XST1\",\"seqNo\",\"titleIs\",\"queryIs\",\"parmIs\",\"typeIs\",\"formIs\",\"colsAre\",\"extra\"\r\n";

/// A folder with the two files of a scheme.
struct SchemeFolder {
    SchemeFolder(const std::string& nodes, const std::string& paragraphs) {
        writeBytes(folder / "XST1.txt", nodes);
        writeBytes(folder / "XST2.txt", paragraphs);
    }
    [[nodiscard]] std::string operator/(std::string_view name) const { return (folder / name).string(); }
    [[nodiscard]] std::string nodes() const { return *this / "XST1.txt"; }
    [[nodiscard]] std::string paragraphs() const { return *this / "XST2.txt"; }

    TempFolder folder;
};

inline const std::string sampleNodes = SAMPLES "/XST1.txt";
inline const std::string sampleParagraphs = SAMPLES "/XST2.txt";
