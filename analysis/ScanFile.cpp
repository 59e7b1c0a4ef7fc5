// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "analysis/FileFlaws.h"
#include "model/CodePage.h"
#include "model/Integer.h"
#include "model/KeyIndex.h"
#include "model/ParameterKind.h"

namespace {

using Kind = SchemeField::Kind;

// The bytes that have a meaning inside a line. All others are skipped fast.
constexpr auto specialBytes = [] {
    std::array<bool, 256> special{};
    for (unsigned code = 0; code < special.size(); ++code)
        special[code] = isFreeByte(static_cast<char>(code)) || code == '"' || code == ',';
    return special;
}();
bool isSpecial(char byte) {
    return specialBytes[static_cast<unsigned char>(byte)];
}

// The first of these bytes; `last` if there is none.
const char* findByte(const char* first, const char* last, char byte) {
    const auto* const found = std::memchr(first, byte, static_cast<std::size_t>(last - first));
    return found ? static_cast<const char*>(found) : last;
}

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// What a message shows of a text, which may be as long as the file.
std::string excerpt(std::string_view text) {
    constexpr std::size_t most = 60;
    if (text.size() <= most) return std::string(text);
    return std::string(text.substr(0, most)).append("...");
}

std::string hexOf(char byte) {
    std::array<char, 3> text{};
    std::snprintf(text.data(), text.size(), "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text.data();
}

// One comma-separated piece of a line, quotes included.
struct RawPiece {
    std::string_view raw;
    int quotes = 0;
    char freeByte = 0;  // the first one

    [[nodiscard]] bool isInOneQuotePair() const { return quotes == 2 && raw.front() == '"' && raw.back() == '"'; }
    // A text that begins with a quote and does not end with one goes on after the comma. It looks the same if the
    // text has another quote in it: then the number of pieces in the line decides.
    template <class AreTooMany>
    [[nodiscard]] bool isCutByComma(AreTooMany areTooMany) const {
        if (raw.empty() || raw.front() != '"') return false;
        return quotes % 2 != 0 || (raw.back() != '"' && areTooMany());
    }
};

class Scanner {
  public:
    Scanner(const SchemeTable& table, std::string_view bytes)
        : table_(table), next_(bytes.data()), end_(bytes.data() + bytes.size()), header_(table.header()) {
        places_.reserve(bytes.size() / 64);
    }

    ScannedFile scan() && {
        while (next_ != end_) {
            ++line_;
            scanLine(takeLine());
        }
        return std::move(result_);
    }

  private:
    std::string_view takeLine() {
        const char* const first = next_;
        if (lineFeed_ < first) lineFeed_ = findByte(first, end_, '\n');  // not at every CR: there may be no LF at all
        next_ = findByte(first, lineFeed_, '\r');
        const std::string_view line(first, static_cast<std::size_t>(next_ - first));
        if (next_ != end_ && *next_++ == '\r' && next_ != end_ && *next_ == '\n') ++next_;
        return line;
    }

    void scanLine(std::string_view line) {
        line = withoutBlanks(line);
        if (line.empty()) return;
        if (line.front() < '0' || line.front() > '9') {
            if (line_ != 1 || line != header_) report(flaw::passedOver, FileFinding::wholeLine);
            return;
        }
        type_ = 0;
        const auto expected = static_cast<int>(table_.fields.size());
        const auto areTooMany = [&, whole = line] { return std::ranges::count(whole, ',') >= expected; };
        int pieces = 0;
        bool isShifted = false;
        for (bool isLast = false; !isLast; ++pieces) {
            const auto piece = takePiece(line, isLast);
            const auto field = static_cast<std::size_t>(pieces);
            if (isShifted || field >= table_.fields.size()) continue;
            if (!isLast && table_.fields[field].kind != Kind::Number && piece.isCutByComma(areTooMany)) {
                report(flaw::comma, pieces);
                isShifted = true;
            } else {
                scanField(pieces, piece);
            }
        }
        if (!isShifted && pieces > expected)
            report(flaw::tooManyFields, FileFinding::wholeLine, std::to_string(pieces));
        if (pieces < expected) report(flaw::tooFewFields, FileFinding::wholeLine, std::to_string(pieces));
    }

    // Takes the first piece off the line.
    static RawPiece takePiece(std::string_view& line, bool& isLast) {
        RawPiece piece;
        std::size_t at = 0;
        for (; at < line.size() && line[at] != ','; ++at) {
            if (!isSpecial(line[at])) continue;
            if (line[at] == '"')
                ++piece.quotes;
            else if (piece.freeByte == 0)
                piece.freeByte = line[at];
        }
        piece.raw = line.substr(0, at);
        isLast = at == line.size();
        line.remove_prefix(isLast ? at : at + 1);
        return piece;
    }

    // The text as it is read: without quotes, wherever they are. Valid until the next call.
    std::string_view textOf(const RawPiece& piece) {
        if (piece.quotes == 0) return piece.raw;
        if (piece.isInOneQuotePair()) return piece.raw.substr(1, piece.raw.size() - 2);
        unquoted_ = piece.raw;
        std::erase(unquoted_, '"');
        return unquoted_;
    }

    void scanField(int field, const RawPiece& piece) {
        const auto kind = table_.fields[static_cast<std::size_t>(field)].kind;
        const auto text = textOf(piece);
        if (kind == Kind::Number) {
            scanNumber(field, text);
            return;
        }
        if (piece.quotes != 0 && !piece.isInOneQuotePair()) report(flaw::quote, field);
        if (piece.freeByte != 0) report(flaw::freeByte, field, hexOf(piece.freeByte));
        if (kind == Kind::Type) {
            type_ = text.size() == 1 ? text.front() : '\0';
            if (!table_.isType(type_)) report(flaw::unknownType, field, excerpt(text));
            return;
        }
        if (kind == Kind::Text || text.empty()) return;
        if (!table_.keepsQuery(type_))
            report(flaw::droppedText, field, excerpt(text));
        else if (kind == Kind::Parameter && !readParameterKind(text))
            report(flaw::unknownParameter, field, excerpt(text));
    }

    void scanNumber(int field, std::string_view text) {
        const auto number = readInteger(text);
        if (!number)
            report(flaw::notANumber, field, excerpt(text));
        else if (text.find('.') != std::string_view::npos)
            report(flaw::rounded, field, excerpt(text));
        if (field == 0) keep(number.value_or(0));
    }

    // The first record with an ID keeps it.
    void keep(std::int32_t id) {
        if (places_.insert(id, static_cast<std::uint32_t>(result_.lines.size())))
            result_.lines.push_back(line_);
        else
            report(flaw::twinId, 0, std::to_string(result_.lines[places_.find(id)]));
    }

    void report(const FileFlaw& flaw, int field, std::string detail = {}) {
        result_.findings.push_back({&flaw, line_, field, std::move(detail)});
    }

    const SchemeTable& table_;
    const char* next_;
    const char* end_;
    const char* lineFeed_ = nullptr;  // the next one; `end_` if there is none
    std::string header_;
    std::uint32_t line_ = 0;
    std::string unquoted_;
    char type_ = 0;    // of the record, once its field was reached; 0 if not a single letter
    KeyIndex places_;  // ID -> place in result_.lines
    ScannedFile result_;
};

}  // namespace

ScannedFile scanFile(const SchemeTable& table, std::string_view bytes) {
    return Scanner(table, bytes).scan();
}
