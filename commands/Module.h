// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "commands/Dialect.h"
#include "commands/SavedScheme.h"

/// A Basic module that Access accepts: with short lines and small procedures, and not too long as a whole. What it
/// does is therefore split into procedures Part1, Part2 and so on.
class Module {
  public:
    Module(const Dialect& dialect, Encoding encoding) : dialect_(dialect), encoding_(encoding) {}

    /// Adds lines as they are, outside of the parts.
    void addText(std::string_view lines);
    /// Adds comment lines within a part.
    void addComment(std::string_view lines) { addLines(asComment(dialect_, lines)); }
    /// Adds a row to the record set `table`.
    void addRow(std::string_view table, std::span<const Value> values);
    /// Makes a query, whose statement is ASCII.
    void addQuery(std::string_view name, std::string_view statement);
    /// Ends the parts. @return the lines that call them
    [[nodiscard]] std::string calls();
    /// @throws Unusable if the module is too long; then nothing is printed
    void print(const Console& console) const;

  private:
    void addLines(std::string_view lines);
    void addLongRow(std::string_view table, std::span<const Value> values);
    [[nodiscard]] std::string expression(const Value& value) const;

    const Dialect& dialect_;
    Encoding encoding_;
    std::string text_;
    std::string calls_;
    int parts_ = 0;
    std::size_t partStart_ = 0;  // where the open part begins
    bool isOpen_ = false;
};
