// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

/// How a command ends, as scripts see it.
enum ExitStatus : int {
    nothingFound = 0,  ///< all is well
    found = 1,         ///< what the command looks for is there: findings, orphans, a difference
    unusable = 2,      ///< the input or the command line cannot be used, or the output cannot be written
};

/// The input cannot be used, or the output cannot be written. `what` is one line that says where and why.
struct Unusable final : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What is printed is in: UTF-8, or the code page of the files.
enum class Encoding { Utf8, CodePage };

/// What a command reads and writes.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool isColoured = false;
    Encoding encoding = Encoding::Utf8;

    /// Writes a UTF-8 text to `out` in the requested encoding; a character that the encoding lacks becomes "?".
    void print(std::string_view text) const;
};

/// Bytes of a scheme as UTF-8. Control characters, which a terminal might obey, are spelled out: "\x1B".
[[nodiscard]] std::string shown(std::string_view bytes);

/// The name of a file as UTF-8. Control characters and bytes that are not valid UTF-8 are spelled out.
[[nodiscard]] std::string shownName(std::string_view name);
/// The words of a database, in one line.
[[nodiscard]] std::string shownInOneLine(std::string_view words);
