// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

/// A text field of a record: bytes of the files' code page, one byte per character, never converted.
///
/// A scheme of a million nodes has six million of them, so a text is as small as a pointer. It either owns its bytes
/// or, in a record that was read from a file, points into the bytes of that file, which live as long as the record.
/// Copying is safe: a copy shares owned bytes and duplicates bytes of a file, so it never depends on the record that
/// it came from. (Moving takes the pointer as it is; that is why records are copied and never moved.)
///
/// Not thread-safe: the reference counts of shared bytes are not atomic.
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
    /// `first` and the byte at `last` become line feeds: the first tells that the text is in a file, the second where
    /// it ends. No byte between them may be a line feed. The bytes must outlive the text.
    [[nodiscard]] static Text inFile(char* first, char* last) noexcept;

    [[nodiscard]] std::string_view view() const noexcept;
    operator std::string_view() const noexcept { return view(); }
    [[nodiscard]] bool empty() const noexcept { return first_ == nullptr; }

    [[nodiscard]] bool equals(std::string_view bytes) const noexcept;
    /// The byte of a text of one byte, such as the type of a record; 0 for any other text.
    [[nodiscard]] char letter() const noexcept;
    friend bool operator==(const Text& a, const Text& b) noexcept { return a.equals(b.view()); }
    friend bool operator==(const Text& a, std::string_view b) noexcept { return a.equals(b); }
    friend bool operator==(const Text& a, const std::string& b) noexcept { return a.equals(b); }
    friend bool operator==(const Text& a, const char* b) noexcept { return a.equals(b); }

    /// Whether this text owns its bytes (shared with its copies), as opposed to pointing into a file.
    [[nodiscard]] bool isOwned() const noexcept;

    /// A view of the bytes that does not keep them alive: as small as a pointer, and trivial to copy. It stays valid
    /// while the record's file lives or, if the text owns its bytes, while a copy of the text lives.
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
