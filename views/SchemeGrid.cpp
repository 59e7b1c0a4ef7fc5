// SPDX-License-Identifier: MIT
#include "views/SchemeGrid.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include "model/Integer.h"
#include "views/CopyKey.h"
#include "views/PlaceBelow.h"
#include "views/Twips.h"

namespace {

constexpr int rowPadding = 4;     // pixels added to the height of a line
constexpr int columnPadding = 8;  // pixels added to the width of a column's text

}  // namespace

SchemeGrid::SchemeGrid(std::string_view format, std::unique_ptr<const GridRows> noRows, QWidget* parent)
    : QTableView(parent), model_(readColumnFormat(format), std::move(noRows), this) {
    setModel(&model_);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);  // the scroll bar counts rows

    // All rows have the same fixed height: measuring them would take seconds in a large scheme.
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);

    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->viewport()->installEventFilter(this);
}

void SchemeGrid::show(std::unique_ptr<const GridRows> rows) {
    model_.show(std::move(rows));
    fitColumns();
    verticalScrollBar()->setValue(0);
}

// A column is as wide as its caption, blanks included, and at least as wide as its numbers.
void SchemeGrid::fitColumns() {
    const auto metrics = fontMetrics();
    int section = 0;
    for (const auto& column : model_.columns()) {
        const int caption =
            std::max(static_cast<int>(column.caption.size()) * metrics.averageCharWidth(),
                     QFontMetrics(horizontalHeader()->font()).horizontalAdvance(column.caption.trimmed()));
        const auto digits = static_cast<int>(model_.rows().widestNumber(section));
        const int numbers = digits * metrics.horizontalAdvance(QLatin1Char('0'));
        setColumnWidth(section++, std::max(caption, numbers) + columnPadding);
    }
}

QPoint SchemeGrid::placeOfCurrent() const {
    return placeBelow(*this, currentIndex());
}

void SchemeGrid::keyPressEvent(QKeyEvent* event) {
    if (!copiesCell(*event, currentIndex())) QTableView::keyPressEvent(event);
}

// Typing searches the current column and Ctrl+C copies the current cell, so the user must see which cell it is. Its
// frame has the colour of selected text.
void SchemeGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!currentIndex().isValid()) return;
    // In physical pixels, so that all lines are equally wide at every scale.
    const auto scale = devicePixelRatioF();
    const auto cell = visualRect(currentIndex());
    const int line = static_cast<int>(scale);
    const auto frame =
        QRectF(cell.topLeft() * scale, cell.size() * scale).toRect().adjusted(line, line, -line, -line);
    QPainter painter(viewport());
    painter.scale(1 / scale, 1 / scale);
    painter.setClipRegion(QRegion(frame) - frame.adjusted(line, line, -line, -line), Qt::IntersectClip);
    painter.fillRect(frame, palette().color(QPalette::HighlightedText));
}

// A right click acts on the current row, so it must not make another row current.
void SchemeGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTableView::mousePressEvent(event);
}

void SchemeGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTableView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) buttonReleased(buttonRight);
}

// A click on a row always selects it, even with Ctrl; a click beside the rows changes nothing.
QItemSelectionModel::SelectionFlags SchemeGrid::selectionCommand(const QModelIndex& index, const QEvent*) const {
    if (!index.isValid()) return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

// When the grid gets the focus, the base class makes a row current; here the header row stays current.
void SchemeGrid::focusInEvent(QFocusEvent* event) {
    const bool headerIsCurrent = !currentIndex().isValid();
    QTableView::focusInEvent(event);
    if (headerIsCurrent) selectionModel()->clear();
}

bool SchemeGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && watched == horizontalHeader()->viewport() &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
        buttonReleased(buttonRight);
    return QTableView::eventFilter(watched, event);
}

NavGrid::NavGrid(QWidget* parent) : SchemeGrid(NavGridRows::format(), std::make_unique<NavGridRows>(), parent) {
}

void NavGrid::Fill(const clsNavSchemes& scheme) {
    show<NavGridRows>(scheme);
    const auto nodes = scheme.NewEnum();
    const auto origin = nodes.begin() == nodes.end() ? Origin() : Origin(*nodes.begin());
    if (origin.owner_before(origin_) || origin_.owner_before(origin)) horizontalScrollBar()->setValue(0);
    origin_ = origin;
}

void NavGrid::showAtTop(std::string_view key) {
    const auto id = readKey(key);
    if (!id) return;
    const auto row = static_cast<const NavGridRows&>(gridModel().rows()).find(*id);
    if (row == NavGridRows::none) return;
    executeDelayedItemsLayout();  // after a redraw the scroll bar may not know the rows yet
    verticalScrollBar()->setValue(static_cast<int>(row));
}

WebGrid::WebGrid(QWidget* parent) : SchemeGrid(WebGridRows::format(), std::make_unique<WebGridRows>(), parent) {
}

void WebGrid::Place(Twips left, Twips top, Twips width, Twips height) {
    setGeometry(toPixels(QRectF(left, top, width, height), logicalDpiX()));
}

void WebGrid::Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) {
    show<WebGridRows>(paragraphs);
    // After a click, the tree and the other grid follow. Paint the paragraphs first: the user clicked for them.
    viewport()->repaint();
}

std::string WebGrid::CurrentText(int column) const {
    const auto current = currentIndex();
    if (current.isValid()) return gridModel().rows().cell(static_cast<std::size_t>(current.row()), column);
    return gridModel().columns()[static_cast<std::size_t>(column)].caption.toStdString();
}

void WebGrid::buttonReleased(int button) {
    if (MouseUp) MouseUp(button);
}
