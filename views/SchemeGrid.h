// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>
#include <functional>
#include <memory>
#include <string_view>

#include "model/Screen.h"
#include "views/GridModel.h"
#include "views/ShowOrNothing.h"

/// A grid for viewing: a header row from a column format string, and rows below it. The header row is the current
/// row until the user makes another one current by a left click or the arrow keys. The current cell has a frame.
class SchemeGrid : public QTableView {
  public:
    SchemeGrid(std::string_view format, std::unique_ptr<const GridRows> noRows, QWidget* parent);

    [[nodiscard]] const GridModel& gridModel() const { return model_; }
    /// Where on the screen a menu for the current row belongs: below it.
    [[nodiscard]] QPoint placeOfCurrent() const;

  protected:
    /// Replaces the rows; the header row becomes the current row, the view goes to the top. Without the memory for it
    /// the grid is empty.
    /// @param records of which `Rows` are made
    /// @throws std::bad_alloc
    template <class Rows, class Records>
    void show(const Records& records) {
        showOrNothing([&] { show(std::make_unique<Rows>(records)); },
                      [this] { model_.showAtOnce(std::make_unique<Rows>()); });
    }
    /// A mouse button was let go on the grid, its header or the space below its rows.
    virtual void buttonReleased(int /*button*/) {}

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    void show(std::unique_ptr<const GridRows> rows);
    void fitColumns();

    GridModel model_;
};

/// The grid of nodes.
class NavGrid final : public SchemeGrid, public NavGridView {
  public:
    explicit NavGrid(QWidget* parent);
    /// Also goes to the first column where the nodes come from another file, or are those of a new scheme.
    void Fill(const clsNavSchemes& scheme) override;
    /// Scrolls so far that the first row with this ID is the top one, if there is such a row. Nothing else changes.
    void showAtTop(std::string_view key);

  private:
    using Origin = std::weak_ptr<const clsNavScheme>;  // the nodes of a file have one owner
    Origin origin_;
};

/// The grid of paragraphs.
class WebGrid final : public SchemeGrid, public WebGridView {
  public:
    explicit WebGrid(QWidget* parent);
    void Place(Twips left, Twips top, Twips width, Twips height) override;
    void Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) override;
    [[nodiscard]] std::string CurrentText(int column) const override;

  protected:
    void buttonReleased(int button) override;
};
