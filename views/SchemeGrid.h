// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>
#include <functional>
#include <memory>
#include <string_view>

#include "model/Screen.h"
#include "views/GridModel.h"
#include "views/ShowOrNothing.h"

/// A read-only grid: a header row from a column format string, and rows below it. The header row is the current row
/// until the user makes another row current with a left click or the arrow keys. The current cell has a frame.
class SchemeGrid : public QTableView {
  public:
    SchemeGrid(std::string_view format, std::unique_ptr<const GridRows> noRows, QWidget* parent);

    [[nodiscard]] const GridModel& gridModel() const { return model_; }
    /// Where on the screen to open a menu for the current row: below it.
    [[nodiscard]] QPoint placeOfCurrent() const;

  protected:
    /// Replaces the rows, makes the header row current and scrolls to the top. If memory runs out, the grid is empty.
    /// @param records from which `Rows` is made
    /// @throws std::bad_alloc
    template <class Rows, class Records>
    void show(const Records& records) {
        showOrNothing([&] { show(std::make_unique<Rows>(records)); },
                      [this] { model_.showAtOnce(std::make_unique<Rows>()); });
    }
    /// Called when a mouse button is released on the grid, its header or the space below its rows.
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
    /// Also scrolls to the first column if the nodes come from another file or a new scheme.
    void Fill(const clsNavSchemes& scheme) override;
    /// Scrolls so that the first row with this ID, if there is one, is at the top. Changes nothing else.
    void showAtTop(std::string_view key);

  private:
    using Origin = std::weak_ptr<const clsNavScheme>;  // all nodes of a file have the same owner
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
