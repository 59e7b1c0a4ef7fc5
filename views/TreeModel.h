// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>

#include "views/ImageList.h"
#include "views/TreeSnapshot.h"

/// Shows a TreeSnapshot in a QTreeView. The snapshot is always replaced as a whole.
class TreeModel final : public QAbstractItemModel {
  public:
    TreeModel(const ImageList& images, QObject* parent) : QAbstractItemModel(parent), images_(images) {}

    void show(TreeSnapshot snapshot);
    [[nodiscard]] const TreeSnapshot& snapshot() const { return shown_; }
    /// The index for a row of the snapshot; invalid for `TreeSnapshot::none`.
    [[nodiscard]] QModelIndex indexOf(std::uint32_t row) const;
    /// The row of the snapshot that a valid index stands for.
    [[nodiscard]] std::uint32_t rowOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const ImageList& images_;
    TreeSnapshot shown_;
};
