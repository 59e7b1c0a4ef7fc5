// SPDX-License-Identifier: MIT
#include "views/NavTree.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "views/CopyKey.h"
#include "views/Look.h"
#include "views/Picture.h"
#include "views/PlaceBelow.h"
#include "views/ShowOrNothing.h"
#include "views/Twips.h"

namespace {

constexpr double indentationTwips = 600;
constexpr double fontPoints = 10;
constexpr int rowPadding = 4;  // pixels added to the height of a line
constexpr int boxSize = 9;     // pixels, size of the plus/minus box; odd, so that its cross is centred
constexpr QRgb lineColour = qRgb(128, 128, 128);

// Gives all rows the same height, so that a million of them scroll fast.
class RowHeight final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        auto size = QStyledItemDelegate::sizeHint(option, index);
        size.setHeight(std::max(option.fontMetrics.height(), pictureSize) + rowPadding);
        return size;
    }
};

}  // namespace

NavTree::NavTree(const ImageList& images, QWidget* parent)
    : QTreeView(parent),
      model_(images, this),
      keys_(*this, {{Qt::Key_Return, [this] { click(currentIndex()); }},
                    {Qt::Key_Enter, [this] { click(currentIndex()); }},
                    {Qt::Key_Insert, [this] { raiseKeyUp(keyInsert); }},
                    {Qt::Key_F2, [this] { raiseKeyUp(keyF2); }},
                    {Qt::Key_Delete, [this] { raiseKeyUp(keyDelete); }}}) {
    setFont(arial(fontPoints, QFont::Bold));
    setItemDelegate(new RowHeight(this));
    setModel(&model_);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setIconSize({pictureSize, pictureSize});
    setIndentation(toPixels(indentationTwips, logicalDpiX()));
    setRootIsDecorated(false);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setResizeContentsPrecision(0);
    setAccessibleName(QStringLiteral("Navigation tree"));

    connect(this, &QTreeView::clicked, this, &NavTree::click);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (isDeep()) open_.insert(model_.rowOf(index));
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        open_.erase(model_.rowOf(index));
        forgetDeepBranches(index);
        selectInsteadOfHidden(index);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &NavTree::fitColumn);
}

void NavTree::Fill(const clsNavSchemes& scheme) {
    showOrNothing([&] { fillOnce(scheme); }, [this] { model_.show({}); });
}

void NavTree::fillOnce(const clsNavSchemes& scheme) {
    open_.clear();
    model_.show(TreeSnapshot(scheme));
    expand(model_.index(0, 0));
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    const auto& shown = model_.snapshot();
    if (const auto last = shown.find(scheme.mLastN); last != TreeSnapshot::none) {
        const auto index = model_.indexOf(last);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    }
}

std::string NavTree::SelectedKey() const {
    const auto selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) return {};
    return TreeSnapshot::key(model_.snapshot().row(model_.rowOf(selected.front())));
}

// Mostly it is the current node; checking that first saves a search through all nodes.
std::uint32_t NavTree::rowOf(std::string_view key) const {
    const auto& shown = model_.snapshot();
    if (const auto current = currentIndex(); current.isValid())
        if (const auto row = model_.rowOf(current); TreeSnapshot::key(shown.row(row)) == key) return row;
    return shown.find(key);
}

void NavTree::Expand(std::string_view key) {
    if (const auto row = rowOf(key); row != TreeSnapshot::none) expand(model_.indexOf(row));
}

int NavTree::childCount(std::string_view key) const {
    const auto row = rowOf(key);
    return row == TreeSnapshot::none ? 0 : static_cast<int>(model_.snapshot().row(row).childCount);
}

std::string NavTree::parentKey(std::string_view key) const {
    const auto& shown = model_.snapshot();
    const auto row = rowOf(key);
    const auto parent = row == TreeSnapshot::none ? TreeSnapshot::none : shown.row(row).parent;
    return parent == TreeSnapshot::none ? std::string() : TreeSnapshot::key(shown.row(parent));
}

QPoint NavTree::placeOfCurrent() const {
    return placeBelow(*this, currentIndex());
}

void NavTree::click(const QModelIndex& index) {
    if (index.isValid() && NodeClick) NodeClick();
}

void NavTree::raiseKeyUp(int keyCode) {
    if (KeyUp) KeyUp(keyCode);
}

void NavTree::scrollTo(const QModelIndex& index, ScrollHint hint) {
    std::size_t closed = 0;  // which the base class opens all at once
    for (auto above = index.parent(); above.isValid(); above = above.parent()) closed += isExpanded(above) ? 0U : 1U;
    if (!index.isValid() || closed > mostNestedLevels) return;
    const int left = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    updateGeometries();  // the scroll bar for a wide row that came into view may cover the node
    QTreeView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(left);  // the base class scrolls to the left edge of a wide column
    scrollSideways(index);
}

// Shows the node's text and its box; if there is no room for all of it, the beginning.
void NavTree::scrollSideways(const QModelIndex& index) {
    const int picture = visualRect(index).left();
    const int begin = picture - indentation();
    const int beyond = picture + sizeHintForIndex(index).width() - viewport()->width();
    auto& bar = *horizontalScrollBar();
    if (begin < 0 || beyond > 0) bar.setValue(bar.value() + std::min(begin, std::max(beyond, 0)));
}

// Does nothing in a tree that is too deep for one layout. The base class would mark every node as open, even those
// without children, and that makes each later layout slower.
void NavTree::openAllBelow(const QModelIndex& top) {
    const auto& shown = model_.snapshot();
    if (!top.isValid() || isDeep()) return;
    scheduleDelayedItemsLayout();  // once for all nodes
    const auto first = model_.rowOf(top);
    for (auto row = first; row == first || (row < shown.count() && shown.row(row).parent >= first); ++row)
        if (shown.row(row).childCount > 0) expand(model_.indexOf(row));
    executeDelayedItemsLayout();
}

// Opening a branch again would also reopen, by recursion, all branches below it that are still marked as open.
void NavTree::forgetDeepBranches(const QModelIndex& branch) {
    if (!branch.isValid() || !isDeep()) return;
    const auto top = model_.rowOf(branch);
    std::vector<std::uint32_t> deep;
    for (const auto row : open_) {
        std::size_t levels = 0;
        auto above = row;
        while (above != TreeSnapshot::none && above != top && levels <= mostNestedLevels) {
            above = model_.snapshot().row(above).parent;
            ++levels;
        }
        if (levels > mostNestedLevels) deep.push_back(row);
    }
    const QSignalBlocker quiet(this);
    for (const auto row : deep) {
        collapse(model_.indexOf(row));
        open_.erase(row);
    }
}

// The next key must not act on a selected node that is hidden: select the branch that was closed above it instead.
void NavTree::selectInsteadOfHidden(const QModelIndex& closed) {
    auto above = currentIndex();
    while (above.isValid() && above != closed) above = above.parent();
    if (above.isValid() && above != currentIndex())
        selectionModel()->setCurrentIndex(closed, QItemSelectionModel::ClearAndSelect);
}

// Laying out all rows follows every open branch by recursion.
void NavTree::doItemsLayout() {
    forgetDeepBranches(model_.index(0, 0));
    QTreeView::doItemsLayout();
}

// The only column is as wide as the rows in view need, and at least as wide as the view.
void NavTree::fitColumn() {
    header()->resizeSection(0, std::max(viewport()->width(), sizeHintForColumn(0)));
}

void NavTree::updateGeometries() {
    fitColumn();
    QTreeView::updateGeometries();
}

void NavTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    if (!index.parent().isValid()) return;  // no lines at the root
    painter->save();
    painter->setPen(QPen(QColor(lineColour), 1, Qt::DotLine));
    const int middle = rect.top() + rect.height() / 2;
    int x = rect.right() - indentation() / 2;

    // The node's own branch; then, for each level above that continues below, a line down past the node.
    painter->drawLine(x, middle, rect.right(), middle);
    painter->drawLine(x, rect.top(), x, middle);
    for (auto level = index; level.parent().isValid() && x >= 0; level = level.parent(), x -= indentation()) {
        const bool goesOn = level.row() + 1 < model_.rowCount(level.parent());
        if (goesOn && level == index) painter->drawLine(x, middle, x, rect.bottom());
        if (goesOn && level != index) painter->drawLine(x, rect.top(), x, rect.bottom());
    }

    if (model_.hasChildren(index)) {
        QRect box(0, 0, boxSize, boxSize);
        box.moveCenter({rect.right() - indentation() / 2, middle});
        painter->setPen(QColor(lineColour));
        painter->fillRect(box, Qt::white);
        painter->drawRect(box.adjusted(0, 0, -1, -1));
        painter->setPen(Qt::black);
        const auto centre = box.center();
        painter->drawLine(box.left() + 2, centre.y(), box.right() - 2, centre.y());
        if (!isExpanded(index)) painter->drawLine(centre.x(), box.top() + 2, centre.x(), box.bottom() - 2);
    }
    painter->restore();
}

void NavTree::keyPressEvent(QKeyEvent* event) {
    if (copiesCell(*event, currentIndex())) return;
    if (event->key() == Qt::Key_Asterisk)
        openAllBelow(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void NavTree::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeView::mousePressEvent(event);
}

// Two clicks, with either button. The base class would also open the node.
void NavTree::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

// Moving the mouse with a button pressed would select nodes without a click.
void NavTree::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(event);
}

void NavTree::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton && MouseUp) MouseUp(buttonRight);
}

// When the tree gets the focus, the base class selects the first node; here the selection stays empty.
void NavTree::focusInEvent(QFocusEvent* event) {
    const bool nothing = !currentIndex().isValid();
    QTreeView::focusInEvent(event);
    if (nothing) selectionModel()->clear();
}

// A click on a node always selects it, even with Ctrl; a click beside the nodes changes nothing.
QItemSelectionModel::SelectionFlags NavTree::selectionCommand(const QModelIndex& index, const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}
