// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the schemes must do, written again in the most direct way and without regard for speed. The property tests and
// the fuzz targets compare the schemes with it. Uses nothing of the model.
namespace reference {

inline std::string withoutBlanksAround(std::string text) {
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

inline bool isDigits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

/// A whole number of 32 bits, rounded to the nearest, halves to even.
inline std::optional<std::int32_t> integer(std::string text) {
    text = withoutBlanksAround(std::move(text));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.erase(0, 1);
    const auto point = text.find('.');
    auto whole = text.substr(0, point);
    auto fraction = point == std::string::npos ? std::string() : text.substr(point + 1);
    if (!isDigits(whole) || !isDigits(fraction) || (whole + fraction).empty()) return {};

    while (whole.starts_with('0')) whole.erase(0, 1);
    while (fraction.ends_with('0')) fraction.pop_back();
    if (whole.size() > 10) return {};
    auto value = whole.empty() ? 0LL : std::stoll(whole);
    if (fraction > "5" || (fraction == "5" && value % 2 == 1)) ++value;  // as texts, which fits digits after a point
    if (negative) value = -value;
    if (value < -2147483648LL || value > 2147483647LL) return {};
    return static_cast<std::int32_t>(value);
}

/// The fields of one record line; those that are missing are empty.
class Fields {
  public:
    explicit Fields(std::vector<std::string> texts) : texts_(std::move(texts)) {}
    [[nodiscard]] std::string text(std::size_t field) const {
        return field < texts_.size() ? texts_[field] : std::string();
    }
    [[nodiscard]] std::int32_t number(std::size_t field) const { return integer(text(field)).value_or(0); }

  private:
    std::vector<std::string> texts_;
};

inline std::vector<std::string> linesOf(std::string_view bytes) {
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\r' && bytes[i] != '\n') {
            lines.back() += bytes[i];
            continue;
        }
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        lines.emplace_back();
    }
    return lines;
}

/// The record lines of a file, cut into fields.
inline std::vector<Fields> recordsOf(std::string_view bytes) {
    std::vector<Fields> records;
    for (const auto& raw : linesOf(bytes)) {
        const auto line = withoutBlanksAround(raw);
        if (line.empty() || !isDigits(line.substr(0, 1))) continue;
        std::vector<std::string> texts(1);
        for (const char byte : line) {
            if (byte == ',')
                texts.emplace_back();
            else if (byte != '"')
                texts.back() += byte;
        }
        records.emplace_back(std::move(texts));
    }
    return records;
}

/// How a file with these bytes loads as nodes: ID|description|type|parent|query|parameter|icon|role.
inline std::vector<std::string> nodesIn(std::string_view bytes) {
    std::vector<std::string> rows;
    std::vector<std::int32_t> taken;
    for (const auto& line : recordsOf(bytes)) {
        const auto id = line.number(0);
        bool isTaken = false;
        for (const auto other : taken) isTaken = isTaken || other == id;
        if (isTaken) continue;
        taken.push_back(id);
        const auto type = line.text(2);
        const bool generates = type != "F" && type != "N";
        rows.push_back(std::to_string(id) + "|" + line.text(1) + "|" + type + "|" + std::to_string(line.number(3)) +
                       "|" + (generates ? line.text(4) : "") + "|" + (generates ? line.text(5) : "") + "|" +
                       line.text(6) + "|" + line.text(7));
    }
    return rows;
}

/// How a file with these bytes loads as paragraphs:
/// ID|node|sequence number|title|query|parameter|type|form|columns|extra.
inline std::vector<std::string> paragraphsIn(std::string_view bytes) {
    std::vector<std::string> rows;
    std::vector<std::int32_t> taken;
    for (const auto& line : recordsOf(bytes)) {
        const auto id = line.number(0);
        bool isTaken = false;
        for (const auto other : taken) isTaken = isTaken || other == id;
        if (isTaken) continue;
        taken.push_back(id);
        rows.push_back(std::to_string(id) + "|" + std::to_string(line.number(1)) + "|" +
                       std::to_string(line.number(2)) + "|" + line.text(3) + "|" + line.text(4) + "|" + line.text(5) +
                       "|" + line.text(6) + "|" + std::to_string(line.number(7)) + "|" + line.text(8) + "|" +
                       line.text(9));
    }
    return rows;
}

/// A node as the tree sees it: its ID and its parent's.
struct Link {
    std::int32_t id = 0;
    std::int32_t parent = 0;
};

/// Adds to `order` the place of a node and the places of all below it, each once.
inline void follow(const std::vector<Link>& nodes, std::size_t place, std::vector<std::size_t>& order) {
    for (const auto entered : order)
        if (entered == place) return;
    order.push_back(place);
    for (std::size_t child = 0; child < nodes.size(); ++child)
        if (nodes[child].parent == nodes[place].id) follow(nodes, child, order);
}

/// The places of the nodes that are reachable from the first one whose parent is 0, in tree order.
inline std::vector<std::size_t> treeOrder(const std::vector<Link>& nodes) {
    std::vector<std::size_t> order;
    for (std::size_t place = 0; place < nodes.size() && order.empty(); ++place)
        if (nodes[place].parent == 0) follow(nodes, place, order);
    return order;
}

}  // namespace reference
