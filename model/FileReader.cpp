#include "model/FileReader.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>

#include "model/Integer.h"

namespace {

char* find(char* first, char* last, char c) {
    auto* found = static_cast<char*>(std::memchr(first, c, static_cast<std::size_t>(last - first)));
    return found ? found : last;
}

Piece withoutQuotes(char* first, char* last) {
    while (first != last && *first == '"') ++first;
    while (first != last && last[-1] == '"') --last;
    return {first, std::remove(find(first, last, '"'), last, '"')};
}

}  // namespace

std::int32_t Piece::number() const {
    return readInteger({first_, static_cast<std::size_t>(last_ - first_)}).value_or(0);
}

bool FileReader::nextLine(char*& first, char*& last) {
    if (next_ == end_) return false;
    if (nextLineFeed_ <= next_) nextLineFeed_ = find(next_, end_, '\n');
    first = next_;
    last = find(next_, nextLineFeed_, '\r');
    next_ = last;
    if (next_ != end_) next_ += next_ + 1 == nextLineFeed_ && nextLineFeed_ != end_ ? 2 : 1;  // CR LF is one end
    return true;
}

bool FileReader::next(Pieces& pieces) {
    char* first = nullptr;
    char* last = nullptr;
    while (nextLine(first, last)) {
        while (first != last && *first == ' ') ++first;
        while (first != last && last[-1] == ' ') --last;
        if (first == last || *first < '0' || *first > '9') continue;

        pieces.fill({});
        for (auto& piece : pieces) {
            char* comma = find(first, last, ',');
            piece = withoutQuotes(first, comma);
            if (comma == last) break;
            first = comma + 1;
        }
        return true;
    }
    return false;
}

FileBytes readFile(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {};  // never wait for a pipe or a device
    std::ifstream in(file, std::ios::binary);
    const auto expected = std::filesystem::file_size(file, error);
    if (!in || error) return {};
    try {
        std::size_t capacity = static_cast<std::size_t>(expected) + 2;  // one to meet the end of the file, one spare
        FileBytes content{std::unique_ptr<char[]>(new char[capacity]), 0};
        for (;;) {
            in.read(content.bytes.get() + content.size, static_cast<std::streamsize>(capacity - 1 - content.size));
            content.size += static_cast<std::size_t>(in.gcount());
            if (in.bad()) return {};
            if (in.eof()) return content;
            // The file is longer than it said: one that grows, or one made by the system.
            std::unique_ptr<char[]> larger(new char[capacity * 2]);
            std::memcpy(larger.get(), content.bytes.get(), content.size);
            content.bytes = std::move(larger);
            capacity *= 2;
        }
    } catch (const std::bad_alloc&) {
        return {};
    }
}
