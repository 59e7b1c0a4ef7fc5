// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

/// Builds one line of a scheme's text file: numbers bare, texts in double quotes and otherwise as they stand, commas
/// between them, CR LF at the end.
class LineBuilder {
  public:
    LineBuilder& start() {
        line_.clear();
        return *this;
    }
    LineBuilder& number(std::int32_t value) {
        separate();
        char digits[11];
        const auto written = std::to_chars(digits, digits + sizeof digits, value);
        line_.append(digits, written.ptr);
        return *this;
    }
    LineBuilder& text(std::string_view value) {
        separate();
        line_ += '"';
        line_ += value;
        line_ += '"';
        return *this;
    }
    /// The finished line, valid until the next one is started.
    [[nodiscard]] std::string_view end() {
        line_ += "\r\n";
        return line_;
    }

  private:
    void separate() {
        if (!line_.empty()) line_ += ',';
    }
    std::string line_;
};
