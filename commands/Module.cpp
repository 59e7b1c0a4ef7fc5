// SPDX-License-Identifier: MIT
#include "commands/Module.h"

#include <algorithm>

#include "model/Integer.h"

namespace {

// The limits of Access: 1,023 characters a line, 64 KB a procedure once it is compiled, 65,534 lines a module.
constexpr std::size_t longestLine = 1000;
constexpr std::size_t longestPart = 20'000;
constexpr std::ptrdiff_t mostLines = 65'000;
// How many bytes of any text, and of a statement, fit into a line.
constexpr std::size_t textPiece = 50;
constexpr std::size_t statementPiece = 400;

// Passes a text on in pieces: at least one, even if the text is empty.
template <class Take>
void cut(std::string_view text, std::size_t piece, Take take) {
    do {
        take(text.substr(0, piece));
        text.remove_prefix(std::min(piece, text.size()));
    } while (!text.empty());
}

}  // namespace

void Module::addText(std::string_view lines) {
    text_ += lines;
}

void Module::addLines(std::string_view lines) {
    if (isOpen_ && text_.size() - partStart_ > longestPart) {
        text_ += "End Sub\n";
        isOpen_ = false;
    }
    if (!isOpen_) {
        const auto name = "Part" + std::to_string(++parts_);
        partStart_ = text_.size();
        text_.append("\nPrivate Sub ").append(name).append("()\n");
        calls_.append("    ").append(name).append("\n");
        isOpen_ = true;
    }
    while (!lines.empty()) {
        const auto end = lines.find('\n') + 1;
        text_.append("    ").append(lines.substr(0, end));
        lines.remove_prefix(end);
    }
}

std::string Module::expression(const Value& value) const {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) return keyText(*number);
    return quotedText(dialect_, encoding_, std::get<std::string_view>(value));
}

void Module::addRow(std::string_view table, std::span<const Value> values) {
    std::string line = "Row " + std::string(table);
    for (const auto& value : values) {
        line.append(", ").append(expression(value));
        if (line.size() > longestLine) return addLongRow(table, values);
    }
    addLines(line.append("\n"));
}

void Module::addLongRow(std::string_view table, std::span<const Value> values) {
    const std::string set(table);
    addLines(set + ".AddNew\n");
    for (std::size_t place = 0; place < values.size(); ++place) {
        const auto field = set + "(" + std::to_string(place) + ")";
        if (std::holds_alternative<std::int32_t>(values[place])) {
            addLines(field + " = " + expression(values[place]) + "\n");
            continue;
        }
        std::string before;
        cut(std::get<std::string_view>(values[place]), textPiece, [&](std::string_view bytes) {
            addLines(field + " = " + before + expression(bytes) + "\n");
            before = field + " & ";
        });
    }
    addLines(set + ".Update\n");
}

void Module::addQuery(std::string_view name, std::string_view statement) {
    std::string before;
    cut(statement, statementPiece, [&](std::string_view bytes) {
        addLines("statement = " + before + quotedText(dialect_, encoding_, bytes) + "\n");
        before = "statement & ";
    });
    addLines("MakeQuery " + quotedText(dialect_, encoding_, name) + "\n");
}

std::string Module::calls() {
    if (isOpen_) text_ += "End Sub\n";
    isOpen_ = false;
    return calls_;
}

void Module::print(const Console& console) const {
    if (std::ranges::count(text_, '\n') > mostLines)
        throw Unusable("the scheme is too large for a module of " + std::string(dialect_.title));
    printLines(dialect_, console, text_);
}
