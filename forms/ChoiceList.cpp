// SPDX-License-Identifier: MIT
#include "forms/ChoiceList.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFrame>

ChoiceList::ChoiceList(QWidget* parent) : QListWidget(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setUniformItemSizes(true);
    setFrameShape(Box);
    setLineWidth(2);  // as wide as the frame of a text box that has the focus
    auto colours = palette();
    colours.setColor(QPalette::Disabled, QPalette::Highlight, QColor(217, 217, 217));
    colours.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(110, 110, 110));
    setPalette(colours);
}

int ChoiceList::ListIndex() const {
    const auto chosen = selectionModel()->selectedRows();
    return chosen.isEmpty() ? -1 : chosen.front().row();
}

void ChoiceList::setListIndex(int index) {
    if (index >= count()) return;
    if (index < 0) {
        selectionModel()->clear();
    } else if (index == ListIndex()) {
        if (Click) Click();
    } else {
        setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    }
}

QString ChoiceList::chosen() const {
    const int index = ListIndex();
    return index < 0 ? QString() : item(index)->text();
}

void ChoiceList::fit(int rows) {
    const int frame = 2 * frameWidth();
    setFixedHeight(rows * sizeHintForRow(0) + frame);
    setMinimumWidth(sizeHintForColumn(0) + frame);
}

bool ChoiceList::event(QEvent* event) {
    if (event->type() != QEvent::Paint) return QListWidget::event(event);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = 1;
    frame.state |= QStyle::State_Sunken;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
    return true;
}

void ChoiceList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    if (!selected.isEmpty() && Click) Click();
}

void ChoiceList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const auto pressed = indexAt(event->position().toPoint());
    const bool again = pressed.isValid() && pressed.row() == ListIndex();
    QListWidget::mousePressEvent(event);
    if (again && Click) Click();
}

// When the list gets the focus, the base class makes an entry current; here none is until the user selects one.
void ChoiceList::focusInEvent(QFocusEvent* event) {
    const bool nothing = !currentIndex().isValid();
    QListWidget::focusInEvent(event);
    if (nothing) selectionModel()->clear();
}

// A choice always selects a single entry; nothing deselects it, not even Ctrl.
QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index, const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}
