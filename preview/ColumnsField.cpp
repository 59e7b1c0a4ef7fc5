// SPDX-License-Identifier: MIT
#include "preview/ColumnsField.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace {

std::string_view trimmed(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

std::string lowered(std::string_view text) {
    std::string low(text);
    for (auto& character : low)
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
    return low;
}

template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
    text = trimmed(text);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return {};
    return number;
}

// The next element of the form <name>value</name>; nothing where none is.
struct Element {
    std::string name;
    std::string_view value;
};
std::optional<Element> takeElement(std::string_view& text) {
    if (!text.starts_with('<')) return {};
    const auto end = text.find('>');
    if (end == std::string_view::npos) return {};
    const auto name = text.substr(1, end - 1);
    const auto closing = "</" + lowered(name) + ">";
    const auto close = lowered(text).find(closing);
    if (name.empty() || close == std::string::npos) return {};
    Element element{lowered(name), trimmed(text.substr(end + 1, close - end - 1))};
    text.remove_prefix(close + closing.size());
    return element;
}

// What each number of the layout may be.
struct LayoutNumber {
    std::string_view name;
    int ThumbnailLayout::*member;
    int least, most;
};
constexpr LayoutNumber layoutNumbers[] = {
    {"height", &ThumbnailLayout::height, 8, 2000},
    {"width", &ThumbnailLayout::width, 8, 2000},
    {"columns", &ThumbnailLayout::columns, 1, 20},
};

// A long value is cut: it stands in a note.
std::string shortened(std::string_view text) {
    return std::string(text.substr(0, 40));
}

void readNumber(ThumbnailLayout& layout, const LayoutNumber& row, std::string_view value) {
    const auto number = wholeNumber<int>(value);
    if (number && *number >= row.least && *number <= row.most) {
        layout.*row.member = *number;
        return;
    }
    layout.notes.push_back("The layout has the " + std::string(row.name) + " \"" + shortened(value) +
                           "\", which is no number from " + std::to_string(row.least) + " to " +
                           std::to_string(row.most) + ": " + std::to_string(layout.*row.member) + " is taken.");
}

// The help of the field itself spells "bottom" with an n at its end.
void readPosition(ThumbnailLayout& layout, std::string_view value) {
    const auto position = lowered(value);
    layout.isTextOnRight = position == "right";
    if (position != "right" && position != "bottom" && position != "botton")
        layout.notes.push_back("The layout has the textposition \"" + shortened(value) +
                               "\", which is neither bottom nor right: bottom is taken.");
}

void readElement(ThumbnailLayout& layout, const Element& element, std::vector<std::string>& missing) {
    std::erase(missing, element.name);
    const auto* const row = std::ranges::find(layoutNumbers, element.name, &LayoutNumber::name);
    if (row != std::end(layoutNumbers))
        readNumber(layout, *row, element.value);
    else if (element.name == "textposition")
        readPosition(layout, element.value);
    else
        layout.notes.push_back("The layout has <" + shortened(element.name) + ">, which means nothing.");
}

std::string joined(const std::vector<std::string>& words) {
    std::string list;
    for (const auto& word : words) list.append(list.empty() ? "" : ", ").append(word);
    return list;
}

}  // namespace

ColumnList readColumns(std::string_view colsAre) {
    ColumnList list;
    colsAre = trimmed(colsAre);
    if (lowered(colsAre) == "all") return {.isReadable = true, .isAll = true};
    while (true) {
        const auto colon = colsAre.find(':');
        const auto number = wholeNumber<std::size_t>(colsAre.substr(0, colon));
        if (!number) return {};
        list.numbers.push_back(*number);
        if (colon == std::string_view::npos) break;
        colsAre.remove_prefix(colon + 1);
    }
    list.isReadable = true;
    return list;
}

std::vector<std::size_t> summedColumns(const ColumnList& list, std::size_t count) {
    std::vector<std::size_t> columns;
    for (std::size_t column = list.isAll ? 1 : 0; column < count; ++column)
        if (list.isAll || std::ranges::count(list.numbers, column) > 0) columns.push_back(column);
    return columns;
}

std::vector<Axes> chartsOf(const ColumnList& list, std::size_t count) {
    std::vector<Axes> charts;
    if (list.isAll)
        for (std::size_t column = 2; column < count; ++column) charts.push_back({1, column});
    if (list.numbers.size() == 2) charts.push_back({list.numbers[0], list.numbers[1]});
    return charts;
}

ThumbnailLayout readThumbnailLayout(std::string_view colsAre) {
    ThumbnailLayout layout;
    std::vector<std::string> missing = {"height", "width", "columns", "textposition"};
    auto rest = trimmed(colsAre);
    while (!rest.empty()) {
        const auto element = takeElement(rest);
        if (!element) {
            layout.notes.push_back("The layout cannot be read from \"" + shortened(rest) + "\" on.");
            break;
        }
        readElement(layout, *element, missing);
        rest = trimmed(rest);
    }
    if (!missing.empty())
        layout.notes.push_back("The layout does not say: " + joined(missing) + ". It is taken as " +
                               std::to_string(layout.height) + " pixels high, " + std::to_string(layout.width) +
                               " wide, in " + std::to_string(layout.columns) + " columns, with the text " +
                               (layout.isTextOnRight ? "on the right." : "below."));
    return layout;
}
