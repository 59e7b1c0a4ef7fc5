// SPDX-License-Identifier: MIT
#include "model/FileReader.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>

#include "model/Integer.h"

namespace {

bool endsLine(char c) {
    return c == '\n' || c == '\r';
}

// Every byte with a meaning inside a line is at most as great as the comma; most other bytes are greater.
bool isPlain(char c) {
    return static_cast<unsigned char>(c) > static_cast<unsigned char>(',');
}

}  // namespace

std::int32_t Piece::number() const {
    return readInteger({first_, static_cast<std::size_t>(last_ - first_)}).value_or(0);
}

bool FileReader::next(Pieces& pieces) {
    while (next_ != end_) {
        while (*next_ == ' ') ++next_;
        if (*next_ >= '0' && *next_ <= '9') {
            readPieces(pieces);
            return true;
        }
        goBehind(skipLine(next_));
    }
    return false;
}

// Reads the line from next_ on, in one pass.
void FileReader::readPieces(Pieces& pieces) {
    pieces.fill({});
    char* here = next_;
    for (auto& piece : pieces) {
        char* first = here;
        while (*first == '"') ++first;
        here = first;
        const char* quote = nullptr;  // the first one after that
        for (; isPlain(*here) || !(*here == ',' || endsLine(*here)); ++here)
            if (*here == '"' && !quote) quote = here;
        char* last = here;
        if (endsLine(*here))
            while (last != first && last[-1] == ' ') --last;  // blanks at the end of the line
        if (quote) last = std::remove(first + (quote - first), last, '"');
        piece = {first, last};
        if (endsLine(*here)) break;
        ++here;
    }
    goBehind(skipLine(here));
}

char* FileReader::skipLine(char* from) const {
    while (!endsLine(*from)) ++from;
    return from;
}

// LF and CR each end a line; so does the end of the bytes, where the spare byte is an LF. CR LF therefore ends a line
// and then an empty one, which is skipped like every line without a number.
void FileReader::goBehind(char* lineEnd) {
    next_ = std::min(lineEnd + 1, end_);
}

FileBytes readFile(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {};  // never wait for a pipe or a device
    std::ifstream in(file, std::ios::binary);
    const auto expected = std::filesystem::file_size(file, error);
    if (error) return {};
    try {
        std::size_t capacity = static_cast<std::size_t>(expected) + 2;  // one to meet the end of the file, one spare
        FileBytes content{makeLargeBytes(capacity), 0};
        for (;;) {
            in.read(content.bytes.get() + content.size, static_cast<std::streamsize>(capacity - 1 - content.size));
            content.size += static_cast<std::size_t>(in.gcount());
            if (in.eof()) return content;
            if (!in) return {};  // it could not be opened or read
            // The file is longer than its size said: it is growing, or the operating system generates it.
            auto larger = makeLargeBytes(capacity * 2);
            std::memcpy(larger.get(), content.bytes.get(), content.size);
            content.bytes = std::move(larger);
            capacity *= 2;
        }
    } catch (const std::bad_alloc&) {
        return {};
    }
}
