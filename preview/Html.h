// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The one place where texts become HTML. A page is made of two things only: literals of this program, which the
// compiler checks to be literals, and texts from elsewhere, which are escaped.

/// Markup that stands in the source of this program.
class Markup {
  public:
    consteval Markup(const char* literal) : text_(literal) {}
    [[nodiscard]] constexpr std::string_view text() const { return text_; }

  private:
    std::string_view text_;
};

/// A text from elsewhere: it becomes what a reader sees, in an element or in a quoted attribute. What no page can
/// hold, as control characters and bytes that are no UTF-8, becomes the replacement character.
struct Escaped {
    explicit Escaped(std::string_view utf8) : text(utf8) {}
    std::string_view text;
};

/// A piece of a page.
class Html {
  public:
    Html() = default;
    Html(Markup literal) : text_(literal.text()) {}

    Html& operator<<(Markup literal) {
        text_ += literal.text();
        return *this;
    }
    Html& operator<<(Escaped escaped);
    Html& operator<<(const Html& piece) {
        text_ += piece.text_;
        return *this;
    }

    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] bool empty() const { return text_.empty(); }

  private:
    std::string text_;
};

/// A number for readers: "1,048,576".
[[nodiscard]] std::string grouped(std::uint64_t number);

/// "1 row", "1,048,576 rows".
[[nodiscard]] std::string counted(std::uint64_t number, std::string_view one, std::string_view many);

/// The beginning of a text, of at most `most` bytes and never half of a character.
[[nodiscard]] std::string_view beginningOf(std::string_view utf8, std::size_t most);
