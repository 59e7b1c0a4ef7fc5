// SPDX-License-Identifier: MIT
#include "forms/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

#include "views/ToolTip.h"

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long text must not widen the window
}

void ElidedLabel::setWholeText(const QString& text) {
    setText(text);
    updateToolTip();
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty()) return QLabel::event(event);
    showToolTip(static_cast<QHelpEvent*>(event)->globalPos(), toolTip(), *this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto line = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                          isEnabled(), line, foregroundRole());
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void ElidedLabel::updateToolTip() {
    const bool fits = fontMetrics().horizontalAdvance(text()) <= width();
    setToolTip(fits ? QString() : text());
}
