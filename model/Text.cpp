// SPDX-License-Identifier: MIT
#include "model/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace {

constexpr char endInFile = '\n';  // before and after a text in a file's bytes
constexpr char ownedMark = 'o';   // before an owned text

// All texts of one byte, laid out as in a file: line feeds at the even places, byte b at 2 b + 1. The types of a
// million records are read from here, without an access to their files' bytes.
constexpr auto singleBytes = [] {
    std::array<char, 2 * 256 + 1> texts{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        texts[2 * byte] = endInFile;
        texts[2 * byte + 1] = static_cast<char>(byte);
    }
    texts.back() = endInFile;
    return texts;
}();

// What comes before the bytes of an owned text; `mark` is the byte just before them.
struct Owned {
    std::size_t size = 0;
    std::uint32_t sharers = 1;
    char unused[3] = {};
    char mark = ownedMark;
};
static_assert(offsetof(Owned, mark) == sizeof(Owned) - 1);

bool isOwned(const char* first) noexcept {
    return first != nullptr && first[-1] == ownedMark;
}

Owned* ownedOf(const char* first) noexcept {
    return std::launder(reinterpret_cast<Owned*>(const_cast<char*>(first) - sizeof(Owned)));
}

const char* makeOwned(std::string_view bytes) {
    if (bytes.empty()) return nullptr;
    void* memory = ::operator new(sizeof(Owned) + bytes.size());
    auto* head = new (memory) Owned;
    head->size = bytes.size();
    char* first = static_cast<char*>(memory) + sizeof(Owned);
    std::memcpy(first, bytes.data(), bytes.size());
    return first;
}

const char* share(const char* first) noexcept {
    if (isOwned(first)) ++ownedOf(first)->sharers;
    return first;
}

void release(const char* first) noexcept {
    if (isOwned(first) && --ownedOf(first)->sharers == 0) ::operator delete(ownedOf(first));
}

std::string_view bytesAt(const char* first) noexcept {
    if (first == nullptr) return {};
    if (isOwned(first)) return {first, ownedOf(first)->size};
    const void* end = std::memchr(first, endInFile, PTRDIFF_MAX);
    return {first, static_cast<std::size_t>(static_cast<const char*>(end) - first)};
}

}  // namespace

Text::Text(std::string_view bytes) : first_(makeOwned(bytes)) {
}

Text::Text(const Text& other) : first_(other.isOwned() ? share(other.first_) : makeOwned(other.view())) {
}

Text& Text::operator=(const Text& other) {
    if (this != &other) {
        const char* first = other.isOwned() ? share(other.first_) : makeOwned(other.view());
        release(first_);
        first_ = first;
    }
    return *this;
}

Text& Text::operator=(Text&& other) noexcept {
    std::swap(first_, other.first_);
    return *this;
}

Text::~Text() {
    release(first_);
}

Text Text::inFile(char* first, char* last) noexcept {
    Text text;
    if (last - first == 1) {
        text.first_ = &singleBytes[2 * std::size_t{static_cast<unsigned char>(*first)} + 1];
    } else if (first != last) {
        first[-1] = endInFile;
        *last = endInFile;
        text.first_ = first;
    }
    return text;
}

std::string_view Text::view() const noexcept {
    return bytesAt(first_);
}

// For a text in a file, compares while looking for its end: comparing types with letters must be fast.
bool Text::equals(std::string_view bytes) const noexcept {
    if (empty() || isOwned()) return view() == bytes;
    const char* here = first_;
    for (const char byte : bytes)
        if (*here == endInFile || *here++ != byte) return false;
    return *here == endInFile;
}

char Text::letter() const noexcept {
    if (empty()) return 0;
    const bool single = isOwned() ? ownedOf(first_)->size == 1 : first_[0] != endInFile && first_[1] == endInFile;
    return single ? *first_ : '\0';
}

bool Text::isOwned() const noexcept {
    return ::isOwned(first_);
}

Text::Ref Text::ref() const noexcept {
    Ref here;
    here.first_ = first_;
    return here;
}

std::string_view Text::Ref::view() const noexcept {
    return bytesAt(first_);
}
