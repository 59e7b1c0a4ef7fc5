// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "views/ColumnFormat.h"
#include "views/GridRows.h"

/// Shows the rows of a grid, which are replaced as a whole, in a QTableView. The header row is the view's header.
class GridModel final : public QAbstractTableModel {
  public:
    GridModel(std::vector<Column> columns, std::unique_ptr<const GridRows> rows, QObject* parent)
        : QAbstractTableModel(parent), columns_(std::move(columns)), rows_(std::move(rows)) {}

    /// Shows these rows. The ones before go when all that is waiting has been painted.
    void show(std::unique_ptr<const GridRows> rows);
    /// Shows these rows, and lets go of the ones before at once.
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
    std::unique_ptr<const GridRows> before_;  // a million take some milliseconds to give back
};
