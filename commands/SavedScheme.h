// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "commands/Console.h"
#include "model/clsNavSchemes.h"

/// Both files of a scheme as the wizard would save them, for a database.
class SavedScheme {
  public:
    /// Reads both files. Names on `console.err` the nodes that a save leaves out.
    /// @throws Unusable if a file cannot be read, has no record to save, or contains the byte 00, which no text in a
    ///         database can hold
    SavedScheme(const std::string& nodes, const std::string& paragraphs, const Console& console);

    /// The nodes that a save writes, in the order of the tree.
    [[nodiscard]] const std::vector<const clsNavScheme*>& nodes() const { return nodes_; }
    /// All paragraphs in the order of the file.
    [[nodiscard]] const std::vector<const clsWebScheme*>& paragraphs() const { return paragraphs_; }

  private:
    void collectNodes(const std::string& file, const Console& console);

    clsNavSchemes navs_;
    std::vector<const clsNavScheme*> nodes_;
    std::vector<const clsWebScheme*> paragraphs_;
};

/// A field of a record.
using Value = std::variant<std::int32_t, std::string_view>;

/// All fields in the order of the file.
[[nodiscard]] std::vector<Value> valuesOf(const clsNavScheme& node);
[[nodiscard]] std::vector<Value> valuesOf(const clsWebScheme& paragraph);
