// SPDX-License-Identifier: MIT
#include "views/GridRows.h"

#include <algorithm>
#include <functional>

namespace {

std::string text(Text::Ref bytes) {
    return std::string(bytes.view());
}

template <class Rows, class Number = std::identity>
std::size_t widest(const Rows& rows, Number number = {}) {
    if (rows.empty()) return 0;
    const auto [least, most] = std::ranges::minmax(rows, {}, number);
    return std::max(keyText(std::invoke(number, least)).size(), keyText(std::invoke(number, most)).size());
}

}  // namespace

NavGridRows::NavGridRows(const clsNavSchemes& scheme) {
    const auto expected = static_cast<std::size_t>(scheme.Count());
    rows_.reserve(expected);
    ids_.reserve(expected);
    parents_.reserve(expected);
    colours_.reserve(expected);
    QRgb colour = qRgb(0, 0, 0);
    for (const auto& node : scheme.NewEnum()) {
        texts_.keepOwner(node);
        rows_.push_back({texts_.keep(node->descriptionIs), texts_.keep(node->typeIs()), texts_.keep(node->queryIs()),
                         texts_.keep(node->parmIs()), texts_.keep(node->iconIs), texts_.keep(node->roleIs)});
        ids_.push_back(node->ID);
        parents_.push_back(node->parentIs);
        if (const auto* type = nodeType(node->typeIs())) colour = type->gridColour;
        colours_.push_back(colour);
    }
}

std::string NavGridRows::cell(std::size_t row, int column) const {
    const auto& shown = rows_[row];
    switch (column) {
        case 0: return keyText(ids_[row]);
        case 1: return text(shown.description);
        case 2: return text(shown.type);
        case 3: return keyText(parents_[row]);
        case 4: return text(shown.query);
        case 5: return text(shown.parm);
        case 6: return text(shown.icon);
        case 7: return text(shown.role);
        default: return {};
    }
}

QString NavGridRows::spoken(std::size_t row) const {
    return spokenType(nodeType(rows_[row].type.view()));
}

std::size_t NavGridRows::widestNumber(int column) const {
    switch (column) {
        case 0: return widest(ids_);
        case 3: return widest(parents_);
        default: return 0;
    }
}

std::size_t NavGridRows::find(std::int32_t id) const {
    const auto found = std::ranges::find(ids_, id);
    return found == ids_.end() ? none : static_cast<std::size_t>(found - ids_.begin());
}

WebGridRows::WebGridRows(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) {
    rows_.reserve(paragraphs.size());
    for (const auto& paragraph : paragraphs) {
        if (!paragraph) continue;
        texts_.keepOwner(paragraph);
        rows_.push_back({texts_.keep(paragraph->titleIs), texts_.keep(paragraph->queryIs),
                         texts_.keep(paragraph->parmIs), texts_.keep(paragraph->typeIs),
                         texts_.keep(paragraph->colsAre), paragraph->ID, paragraph->XST1, paragraph->seqNo,
                         paragraph->formIs});
    }
}

std::string WebGridRows::cell(std::size_t row, int column) const {
    const auto& shown = rows_[row];
    switch (column) {
        case 0: return keyText(shown.id);
        case 1: return keyText(shown.node);
        case 2: return keyText(shown.seqNo);
        case 3: return text(shown.title);
        case 4: return text(shown.query);
        case 5: return text(shown.parm);
        case 6: return text(shown.type);
        case 7: return keyText(shown.form);
        case 8: return text(shown.cols);
        default: return {};
    }
}

QString WebGridRows::spoken(std::size_t row) const {
    struct ParagraphType {
        std::string_view letter;
        const char* spoken;
    };
    static constexpr ParagraphType types[] = {{"C", "Bar chart paragraph"},    {"H", "Header paragraph"},
                                              {"E", "Action query paragraph"}, {"M", "Multi-chapter paragraph"},
                                              {"I", "Image header paragraph"}, {"S", "Table paragraph"},
                                              {"T", "Thumbnails paragraph"}};
    const auto* found = std::ranges::find(types, rows_[row].type.view(), &ParagraphType::letter);
    return found == std::end(types) ? QStringLiteral("Paragraph of unknown type")
                                    : QString::fromLatin1(found->spoken);
}

std::size_t WebGridRows::widestNumber(int column) const {
    switch (column) {
        case 0: return widest(rows_, &Row::id);
        case 1: return widest(rows_, &Row::node);
        case 2: return widest(rows_, &Row::seqNo);
        case 7: return widest(rows_, &Row::form);
        default: return 0;
    }
}
