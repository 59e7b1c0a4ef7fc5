// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

/// A text field of a record: bytes of the files' code page, one byte a character, never converted.
///
/// A scheme of a million nodes holds six million of them, so a text is one pointer wide. It either owns its
/// bytes, or, in a record that was read from a file, lies in the bytes of that file, which live as long as the
/// record does. Copying keeps this safe: a copy shares owned bytes and duplicates bytes of a file, so it never
/// depends on the record that it came from. (Moving takes the pointer as it is; the records are therefore only
/// copied.)
///
/// Texts are for one thread only: the counts of shared bytes are not atomic.
class Text {
  public:
    Text() noexcept = default;  ///< the empty text
    Text(std::string_view bytes);
    Text(const std::string& bytes) : Text(std::string_view(bytes)) {}
    Text(const char* bytes) : Text(std::string_view(bytes)) {}
    Text(const Text& other);
    Text& operator=(const Text& other);
    Text(Text&& other) noexcept : first_(std::exchange(other.first_, nullptr)) {}
    Text& operator=(Text&& other) noexcept;
    ~Text();

    /// Makes the bytes from `first` up to `last` of a loaded file a text without copying them. The byte before
    /// `first` and the byte at `last` become line feeds, which is how the text knows where it lies and where it
    /// ends; no byte between them may be one. The bytes must outlive the text.
    [[nodiscard]] static Text inFile(char* first, char* last) noexcept;

    [[nodiscard]] std::string_view view() const noexcept;
    operator std::string_view() const noexcept { return view(); }
    [[nodiscard]] bool empty() const noexcept { return first_ == nullptr; }

    [[nodiscard]] bool equals(std::string_view bytes) const noexcept;
    /// The byte of a text of one byte, which is what the types of records are; 0 for any other text.
    [[nodiscard]] char letter() const noexcept;
    friend bool operator==(const Text& a, const Text& b) noexcept { return a.equals(b.view()); }
    friend bool operator==(const Text& a, std::string_view b) noexcept { return a.equals(b); }
    friend bool operator==(const Text& a, const std::string& b) noexcept { return a.equals(b); }
    friend bool operator==(const Text& a, const char* b) noexcept { return a.equals(b); }

    /// Whether the bytes are this text's own (shared with its copies) and not those of a file.
    [[nodiscard]] bool isOwned() const noexcept;

    /// Where the bytes stand now, without any hold on them: as wide as a pointer, free to copy and to drop. It stays
    /// good while the record's file lives and, if the text is owned, a copy of the text.
    class Ref {
      public:
        Ref() noexcept = default;
        [[nodiscard]] std::string_view view() const noexcept;

      private:
        friend class Text;
        const char* first_ = nullptr;
    };
    [[nodiscard]] Ref ref() const noexcept;

  private:
    const char* first_ = nullptr;  // the byte before it tells an owned text from one in a file
};
