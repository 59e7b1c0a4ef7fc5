// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>
#include <set>
#include <string>
#include <string_view>

#include "model/Screen.h"
#include "views/ImageList.h"
#include "views/ReleasedKeys.h"
#include "views/TreeModel.h"

/// The navigation tree: pictures and coloured texts, with lines and plus/minus boxes below the root but not at it.
///
/// A left click or Enter on a node is a click; the arrow keys and redraws only select. Keys act on release. Pressing
/// the right mouse button does not change the selection.
///
/// QTreeView uses recursion to lay out, scroll to and reopen nested open branches, which overflows the stack in a
/// tree of some 30,000 levels. So this class never lets it handle more than `mostNestedLevels` at once.
class NavTree final : public QTreeView, public NavTreeView {
  public:
    static constexpr std::size_t mostNestedLevels = 1000;

    /// @param images the pictures by index (see NodePicture); must outlive the tree
    NavTree(const ImageList& images, QWidget* parent);

    void Fill(const clsNavSchemes& scheme) override;
    [[nodiscard]] std::string SelectedKey() const override;
    void Expand(std::string_view key) override;

    /// The number of nodes shown directly below the node with this key; 0 if no node has it.
    [[nodiscard]] int childCount(std::string_view key) const;
    /// The key of the parent of the node with this key; empty for the root and for a key that no node has.
    [[nodiscard]] std::string parentKey(std::string_view key) const;
    /// Where on the screen to open a menu for the current node: below it.
    [[nodiscard]] QPoint placeOfCurrent() const;

    [[nodiscard]] const TreeModel& treeModel() const { return model_; }

    /// Opens everything above the node and scrolls it into view; does nothing if more than `mostNestedLevels` levels
    /// above it are closed.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void updateGeometries() override;
    void doItemsLayout() override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    void fillOnce(const clsNavSchemes& scheme);
    [[nodiscard]] std::uint32_t rowOf(std::string_view key) const;
    void click(const QModelIndex& index);
    void raiseKeyUp(int keyCode);
    [[nodiscard]] bool isDeep() const { return model_.snapshot().depth() > mostNestedLevels; }
    void openAllBelow(const QModelIndex& top);
    void forgetDeepBranches(const QModelIndex& branch);
    void selectInsteadOfHidden(const QModelIndex& closed);
    void scrollSideways(const QModelIndex& index);
    void fitColumn();

    TreeModel model_;
    ReleasedKeys keys_;
    std::set<std::uint32_t> open_;  // rows of the snapshot that are open, even below closed ones; only in a deep tree
};
