// SPDX-License-Identifier: MIT
#include "views/GridModel.h"

#include <QBrush>
#include <QTimer>
#include <utility>

#include "views/CodePage.h"

void GridModel::show(std::unique_ptr<const GridRows> rows) {
    beginResetModel();
    before_ = std::exchange(rows_, std::move(rows));
    endResetModel();
    QTimer::singleShot(1, this, [this] { before_.reset(); });  // 0 would fire before the paint events
}

void GridModel::showAtOnce(std::unique_ptr<const GridRows> rows) {
    before_.reset();
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_->count());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto row = static_cast<std::size_t>(index.row());
    switch (role) {
        case Qt::DisplayRole: return decodeForCell(rows_->cell(row, index.column()));
        case Qt::EditRole: return decode(rows_->cell(row, index.column()));  // what copying a cell reads
        case Qt::ForegroundRole: return QBrush(rows_->colour(row));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(columns_[static_cast<std::size_t>(index.column())].alignment);
        case Qt::AccessibleDescriptionRole: return rows_->spoken(row);
        default: return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const auto& column = columns_[static_cast<std::size_t>(section)];
    switch (role) {
        case Qt::DisplayRole: return column.caption;
        case Qt::TextAlignmentRole: return QVariant::fromValue(column.alignment);
        case Qt::AccessibleTextRole: return column.caption.trimmed();
        default: return {};
    }
}
