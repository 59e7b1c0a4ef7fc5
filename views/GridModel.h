// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "views/ColumnFormat.h"
#include "views/GridRows.h"

/// Shows the rows of a grid in a QTableView. The rows are always replaced as a whole. The header row is the view's
/// header.
class GridModel final : public QAbstractTableModel {
  public:
    GridModel(std::vector<Column> columns, std::unique_ptr<const GridRows> rows, QObject* parent)
        : QAbstractTableModel(parent), columns_(std::move(columns)), rows_(std::move(rows)) {}

    /// Shows these rows. The previous ones are freed once everything has been painted.
    void show(std::unique_ptr<const GridRows> rows);
    /// Shows these rows and frees the previous ones at once.
    void showAtOnce(std::unique_ptr<const GridRows> rows);
    [[nodiscard]] const GridRows& rows() const { return *rows_; }
    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<Column> columns_;
    std::unique_ptr<const GridRows> rows_;
    std::unique_ptr<const GridRows> before_;  // freeing a million rows takes some milliseconds
};
