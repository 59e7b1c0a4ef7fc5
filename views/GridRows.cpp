// SPDX-License-Identifier: MIT
#include "views/GridRows.h"

#include <algorithm>
#include <iterator>

#include "model/ParagraphType.h"

namespace {

// The type of a paragraph as a screen reader says it.
struct SpokenType {
    char letter;
    const char* spoken;
};
constexpr SpokenType spokenTypes[] = {
    {'C', "Bar chart paragraph"},     {'H', "Header paragraph"},       {'E', "Action query paragraph"},
    {'M', "Multi-chapter paragraph"}, {'I', "Image header paragraph"}, {'S', "Table paragraph"},
    {'T', "Thumbnails paragraph"},
};
static_assert(std::ranges::equal(spokenTypes, paragraphTypes, {}, &SpokenType::letter, &ParagraphType::letter));

// What both kinds of rows do with their tables of columns.

template <class Column>
std::string join(std::span<const Column> columns) {
    std::string format;
    for (const auto& column : columns) format.append(format.empty() ? "" : "|").append(column.format);
    return format;
}

template <class Rows, class Column>
std::string cellOf(const Rows& rows, std::size_t row, const Column& column) {
    return column.number ? keyText(column.number(rows, row)) : std::string(column.text(rows, row));
}

template <class Rows, class Column>
std::size_t widest(const Rows& rows, const Column& column) {
    if (!column.number || rows.count() == 0) return 0;
    auto least = column.number(rows, 0);
    auto most = least;
    for (std::size_t row = 1; row < rows.count(); ++row) {
        const auto number = column.number(rows, row);
        least = std::min(least, number);
        most = std::max(most, number);
    }
    return std::max(keyText(least).size(), keyText(most).size());
}

}  // namespace

std::span<const NavGridRows::Column> NavGridRows::columns() {
    using Grid = const NavGridRows&;
    using Place = std::size_t;
    static constexpr Column table[] = {
        {.format = ">ID ", .number = [](Grid grid, Place row) { return grid.ids_[row]; }},
        {.format = "<Description                                                  ",
         .text = [](Grid grid, Place row) { return grid.rows_[row].description.view(); }},
        {.format = "^Type", .text = [](Grid grid, Place row) { return grid.rows_[row].type.view(); }},
        {.format = "^Parent    ", .number = [](Grid grid, Place row) { return grid.parents_[row]; }},
        {.format = "<Query                          ",
         .text = [](Grid grid, Place row) { return grid.rows_[row].query.view(); }},
        {.format = "<Parameter     ", .text = [](Grid grid, Place row) { return grid.rows_[row].parm.view(); }},
        {.format = "<Icon              ", .text = [](Grid grid, Place row) { return grid.rows_[row].icon.view(); }},
        {.format = "<Role         ", .text = [](Grid grid, Place row) { return grid.rows_[row].role.view(); }},
    };
    return table;
}

std::string NavGridRows::format() {
    return join(columns());
}

NavGridRows::NavGridRows(const clsNavSchemes& scheme) {
    const auto expected = static_cast<std::size_t>(scheme.Count());
    rows_.reserve(expected);
    ids_.reserve(expected);
    parents_.reserve(expected);
    colours_.reserve(expected);
    QRgb colour = qRgb(0, 0, 0);
    for (const auto& node : scheme.NewEnum()) {
        texts_.keepOwner(node);
        rows_.push_back({.description = texts_.keep(node->descriptionIs),
                         .type = texts_.keep(node->typeIs()),
                         .query = texts_.keep(node->queryIs()),
                         .parm = texts_.keep(node->parmIs()),
                         .icon = texts_.keep(node->iconIs),
                         .role = texts_.keep(node->roleIs)});
        ids_.push_back(node->ID);
        parents_.push_back(node->parentIs);
        if (const auto* look = nodeLook(node->typeIs().letter())) colour = look->gridColour;
        colours_.push_back(colour);
    }
}

std::string NavGridRows::cell(std::size_t row, int column) const {
    return cellOf(*this, row, columns()[static_cast<std::size_t>(column)]);
}

QString NavGridRows::spoken(std::size_t row) const {
    const auto type = rows_[row].type.view();
    return spokenType(type.size() == 1 ? nodeLook(type.front()) : nullptr);
}

std::size_t NavGridRows::widestNumber(int column) const {
    return widest(*this, columns()[static_cast<std::size_t>(column)]);
}

std::size_t NavGridRows::find(std::int32_t id) const {
    const auto found = std::ranges::find(ids_, id);
    return found == ids_.end() ? none : static_cast<std::size_t>(found - ids_.begin());
}

std::span<const WebGridRows::Column> WebGridRows::columns() {
    using Grid = const WebGridRows&;
    using Place = std::size_t;
    static constexpr Column table[] = {
        {.format = "^ID ", .number = [](Grid grid, Place row) { return grid.rows_[row].id; }},
        {.format = "^XST1", .number = [](Grid grid, Place row) { return grid.rows_[row].node; }},
        {.format = "^Seq", .number = [](Grid grid, Place row) { return grid.rows_[row].seqNo; }},
        {.format = "<Paragraph Title                                       ",
         .text = [](Grid grid, Place row) { return grid.rows_[row].title.view(); }},
        {.format = "<Query                             ",
         .text = [](Grid grid, Place row) { return grid.rows_[row].query.view(); }},
        {.format = "<Parameter  ", .text = [](Grid grid, Place row) { return grid.rows_[row].parm.view(); }},
        {.format = "^Type", .text = [](Grid grid, Place row) { return grid.rows_[row].type.view(); }},
        {.format = "^Form#", .number = [](Grid grid, Place row) { return grid.rows_[row].form; }},
        {.format = "<Columns                       ",
         .text = [](Grid grid, Place row) { return grid.rows_[row].cols.view(); }},
    };
    return table;
}

std::string WebGridRows::format() {
    return join(columns());
}

WebGridRows::WebGridRows(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) {
    rows_.reserve(paragraphs.size());
    for (const auto& paragraph : paragraphs) {
        if (!paragraph) continue;
        texts_.keepOwner(paragraph);
        rows_.push_back({.title = texts_.keep(paragraph->titleIs),
                         .query = texts_.keep(paragraph->queryIs),
                         .parm = texts_.keep(paragraph->parmIs),
                         .type = texts_.keep(paragraph->typeIs),
                         .cols = texts_.keep(paragraph->colsAre),
                         .id = paragraph->ID,
                         .node = paragraph->XST1,
                         .seqNo = paragraph->seqNo,
                         .form = paragraph->formIs});
    }
}

std::string WebGridRows::cell(std::size_t row, int column) const {
    return cellOf(*this, row, columns()[static_cast<std::size_t>(column)]);
}

QString WebGridRows::spoken(std::size_t row) const {
    const auto type = rows_[row].type.view();
    const auto* found =
        type.size() == 1 ? std::ranges::find(spokenTypes, type.front(), &SpokenType::letter) : std::end(spokenTypes);
    return found == std::end(spokenTypes) ? QStringLiteral("Paragraph of unknown type")
                                          : QString::fromLatin1(found->spoken);
}

std::size_t WebGridRows::widestNumber(int column) const {
    return widest(*this, columns()[static_cast<std::size_t>(column)]);
}
