// SPDX-License-Identifier: MIT
#include "commands/Dialect.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

#include "commands/CommandLine.h"
#include "commands/Dialects.h"
#include "model/CodePage.h"

namespace {

bool isControl(char16_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool isPlain(const Dialect& dialect, Encoding encoding, char16_t character) {
    using Plain = Dialect::Plain;
    if (isControl(character)) return false;
    if (character < 0x80) return true;
    return dialect.texts.plain == Plain::AsEncoded ||
           (dialect.texts.plain == Plain::UnlessEncoded && encoding == Encoding::Utf8);
}

// Joins the parts of a text: quoted ones, and characters given by their numbers.
class TextBuilder {
  public:
    explicit TextBuilder(const Dialect& dialect) : texts_(dialect.texts) {}

    void plain(char byte) {
        if (!isOpen_) startPart(texts_.open);
        isOpen_ = true;
        if (texts_.doubled.find(byte) != std::string_view::npos) expression_ += byte;
        expression_ += toUtf8({&byte, 1});
    }
    void number(char16_t character) { startPart(texts_.character(character)); }
    [[nodiscard]] std::size_t parts() const { return parts_; }
    [[nodiscard]] std::string finished(bool isLong) && {
        if (parts_ == 0) {
            startPart(texts_.open);
            isOpen_ = true;
        }
        close();
        if (parts_ == 1) return std::move(expression_);
        return std::string(texts_.openJoin)
            .append(isLong ? texts_.longJoin : "")
            .append(expression_)
            .append(texts_.closeJoin);
    }

  private:
    void close() {
        if (isOpen_) expression_ += texts_.close;
        isOpen_ = false;
    }
    void startPart(std::string_view start) {
        close();
        if (parts_++ > 0) expression_ += texts_.join;
        expression_ += start;
    }

    const Dialect::Texts& texts_;
    std::string expression_;
    std::size_t parts_ = 0;
    bool isOpen_ = false;
};

void appendHex(std::string& digits, unsigned byte) {
    constexpr std::string_view digit = "0123456789ABCDEF";
    digits.append(1, digit[byte >> 4U & 0xFU]).append(1, digit[byte & 0xFU]);
}

std::string hexText(const Dialect::Texts& texts, std::string_view bytes) {
    std::string expression(texts.openHex);
    if (texts.isHexUtf16)
        for (const char byte : bytes) {
            const unsigned character = characterOf(byte);
            appendHex(expression, character);
            appendHex(expression, character >> 8U);
        }
    else
        for (const char byte : toUtf8(bytes)) appendHex(expression, static_cast<unsigned char>(byte));
    return expression.append(texts.closeHex);
}

bool isNameByte(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           byte == '_';
}

bool followsConvention(std::string_view name) {
    return (name.starts_with("spG_") || name.starts_with("spW_")) && std::ranges::all_of(name, isNameByte);
}

std::string quotedPart(const Dialect::Names& names, std::string_view part) {
    if (followsConvention(part)) return std::string(part);
    std::string quoted(names.open);
    for (const char byte : part) {
        if (byte == names.close[0]) quoted += byte;
        quoted += toUtf8({&byte, 1});
    }
    return quoted.append(names.close);
}

}  // namespace

void declareDialect(CommandLine& line, const Dialect*& dialect) {
    std::vector<std::string> names;
    for (const auto* row : dialects) names.emplace_back(row->name);
    line.choice(
        "--dialect",
        [&dialect](const std::string& given) {
            dialect = *std::ranges::find(dialects, given, [](const Dialect* row) { return row->name; });
        },
        names, "The database: sqlite, postgresql, mariadb, sqlserver or access", Need::Required);
}

std::string quotedText(const Dialect& dialect, Encoding encoding, std::string_view bytes) {
    constexpr std::size_t longText = 4000;  // characters; SQL Server may cut off a longer text when it joins one
    constexpr std::size_t mostParts = 100;
    TextBuilder text(dialect);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool isVariable = dialect.texts.hasVariables && bytes[at] == '(' && at > 0 && bytes[at - 1] == '$';
        if (!isVariable && isPlain(dialect, encoding, characterOf(bytes[at])))
            text.plain(bytes[at]);
        else
            text.number(characterOf(bytes[at]));
    }
    if (text.parts() > mostParts && !dialect.texts.openHex.empty()) return hexText(dialect.texts, bytes);
    return std::move(text).finished(bytes.size() > longText);
}

std::string quotedName(const Dialect& dialect, std::string_view bytes) {
    std::string name;
    for (auto rest = bytes;;) {
        const auto dot = rest.find('.');
        const bool isLast = dot == std::string_view::npos;
        const auto part = rest.substr(0, dot);
        if (part.empty()) return quotedPart(dialect.names, bytes);
        name += quotedPart(dialect.names, part);
        if (isLast) return name;
        name += '.';
        rest.remove_prefix(dot + 1);
    }
}

bool canBeName(const Dialect& dialect, Encoding encoding, std::string_view bytes) {
    using Plain = Dialect::Plain;
    return !bytes.empty() && std::ranges::all_of(bytes, [&](char byte) {
        const auto character = characterOf(byte);
        const bool isReadWrongly =
            character >= 0x80 && dialect.texts.plain == Plain::UnlessEncoded && encoding != Encoding::Utf8;
        return !isControl(character) && !isReadWrongly;
    });
}

std::string filled(std::string_view text,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> words) {
    std::string result;
    for (;;) {
        const auto open = text.find('{');
        result += text.substr(0, open);
        if (open == std::string_view::npos) return result;
        const auto close = text.find('}', open);
        const auto name = text.substr(open + 1, close - open - 1);
        for (const auto& [word, value] : words)
            if (word == name) result += value;
        text.remove_prefix(close + 1);
    }
}

void printLines(const Dialect& dialect, const Console& console, std::string_view lines) {
    if (dialect.lines.end == "\n") {
        console.print(lines);
        return;
    }
    while (!lines.empty()) {
        const auto end = lines.find('\n');
        console.print(lines.substr(0, end));
        console.print(dialect.lines.end);
        lines.remove_prefix(end + 1);
    }
}

std::string asComment(const Dialect& dialect, std::string_view lines) {
    std::string comment;
    while (!lines.empty()) {
        const auto end = lines.find('\n');
        comment.append(dialect.lines.comment).append(lines.substr(0, end)).append("\n");
        lines.remove_prefix(end + 1);
    }
    // Some tools read "$(" as a variable even in a comment.
    for (auto at = comment.find("$("); at != std::string::npos; at = comment.find("$(", at))
        comment.insert(at + 1, " ");
    return comment;
}
