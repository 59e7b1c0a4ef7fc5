// SPDX-License-Identifier: MIT
#include "views/TreeModel.h"

#include <QBrush>

#include "views/CodePage.h"

namespace {

// The view keeps opened rows in a hash that adds the parts of an index; plain row numbers would cluster there. An odd
// factor spreads them; multiplying by its inverse modulo 2^32 gives the row number back.
constexpr std::uint32_t spread = 0x9E3779B1;

constexpr std::uint32_t inverse(std::uint32_t odd) {
    std::uint32_t x = odd;  // correct in the lowest 3 bits; each step doubles the correct bits
    for (int step = 0; step < 4; ++step) x *= 2 - odd * x;
    return x;
}
static_assert(spread * inverse(spread) == 1);

}  // namespace

void TreeModel::show(TreeSnapshot snapshot) {
    beginResetModel();
    shown_ = std::move(snapshot);
    endResetModel();
}

QModelIndex TreeModel::indexOf(std::uint32_t row) const {
    if (row == TreeSnapshot::none) return {};
    return createIndex(static_cast<int>(shown_.row(row).placeInParent), 0, quintptr{row * spread});
}

std::uint32_t TreeModel::rowOf(const QModelIndex& index) const {
    return static_cast<std::uint32_t>(index.internalId()) * inverse(spread);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return indexOf(parent.isValid() ? shown_.child(shown_.row(rowOf(parent)), static_cast<std::uint32_t>(row)) : 0);
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    return index.isValid() ? indexOf(shown_.row(rowOf(index)).parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return static_cast<int>(shown_.row(rowOf(parent)).childCount);
    return shown_.count() == 0 ? 0 : 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto& row = shown_.row(rowOf(index));
    const auto* look = nodeLook(row.picture);
    switch (role) {
        case Qt::DisplayRole: return decodeForCell(row.text.view());
        case Qt::EditRole: return decode(row.text.view());  // what copying a node reads
        case Qt::DecorationRole: return images_.icon(static_cast<int>(row.picture));
        case Qt::ForegroundRole: return QBrush(QColor(look ? look->treeColour : qRgb(0, 0, 0)));
        case Qt::AccessibleTextRole:
            return QStringLiteral("%1, %2").arg(decodeForCell(row.text.view()),
                                                look ? spokenType(look) : QStringLiteral("Root node"));
        default: return {};
    }
}

// The header is hidden, but a screen reader finds it.
QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section != 0 || role != Qt::AccessibleTextRole) return {};
    return QStringLiteral("Node");
}
