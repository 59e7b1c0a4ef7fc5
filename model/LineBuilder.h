// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

/// Builds one line of a scheme's text file: bare numbers, texts in double quotes and otherwise unchanged, commas
/// between them, CR LF at the end. Quotes and commas inside a text are not escaped: the database expects it so.
class LineBuilder {
  public:
    LineBuilder& start() {
        length_ = 0;
        return *this;
    }
    LineBuilder& number(std::int32_t value) {
        constexpr std::size_t most = 11;  // a sign and ten digits
        char* const to = room(most + 1);
        return finishField(std::to_chars(to, to + most, value).ptr);
    }
    LineBuilder& text(std::string_view value) {
        char* to = room(value.size() + 3);
        *to++ = '"';
        to = std::copy(value.begin(), value.end(), to);
        *to++ = '"';
        return finishField(to);
    }
    /// The finished line, which must have at least one field; valid until the next line is started.
    [[nodiscard]] std::string_view end() {
        --length_;  // no comma after the last field
        char* const to = room(2);
        to[0] = '\r';
        to[1] = '\n';
        return {line_.data(), length_ + 2};
    }

  private:
    // @return where the next bytes go, with room for this many
    char* room(std::size_t bytes) {
        if (line_.size() - length_ < bytes) line_.resize(length_ + bytes);
        return line_.data() + length_;
    }
    LineBuilder& finishField(char* end) {
        *end++ = ',';
        length_ = static_cast<std::size_t>(end - line_.data());
        return *this;
    }

    std::vector<char> line_;  // may be longer than the line
    std::size_t length_ = 0;
};
