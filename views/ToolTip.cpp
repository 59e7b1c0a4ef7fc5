// SPDX-License-Identifier: MIT
#include "views/ToolTip.h"

#include <QToolTip>

// Qt breaks only marked-up tips into lines.
void showToolTip(const QPoint& place, const QString& text, QWidget& widget) {
    const auto wrapping = QStringLiteral("<p style='white-space: pre-wrap'>%1</p>");
    QToolTip::showText(place, wrapping.arg(text.toHtmlEscaped()), &widget);
}
