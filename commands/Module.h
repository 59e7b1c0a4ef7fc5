// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "commands/Dialect.h"
#include "commands/SavedScheme.h"

/// A module of Basic as Access takes it: its lines are short, its procedures small, and it is not too long as a
/// whole. So what it does is cut into procedures Part1, Part2 and so on.
class Module {
  public:
    Module(const Dialect& dialect, Encoding encoding) : dialect_(dialect), encoding_(encoding) {}

    /// Adds lines as they are, outside of the parts.
    void addText(std::string_view lines);
    /// Adds lines of comment within a part.
    void addComment(std::string_view lines) { addLines(asComment(dialect_, lines)); }
    /// Adds a row to the record set `table`.
    void addRow(std::string_view table, std::span<const Value> values);
    /// Makes a query, whose statement is ASCII.
    void addQuery(std::string_view name, std::string_view statement);
    /// Ends the parts. @return the lines that call them
    [[nodiscard]] std::string calls();
    /// @throws Unusable where the module is too long, having printed nothing
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
    std::size_t partStart_ = 0;  // where the part that is open begins
    bool isOpen_ = false;
};
