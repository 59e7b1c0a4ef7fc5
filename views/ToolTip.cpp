// SPDX-License-Identifier: MIT
#include "views/ToolTip.h"

#include <QToolTip>

// Qt wraps only tips with markup. If a tip is about to hide, showing the same text at the same place does not keep
// it, so the markup alternates from one tip to the next.
void showToolTip(const QPoint& place, const QString& text, QWidget& widget) {
    const auto marked = [escaped = text.toHtmlEscaped()](const char* style) {
        return QStringLiteral("<p style='%1'>%2</p>").arg(QLatin1String(style), escaped);
    };
    const auto tip = marked("white-space: pre-wrap");
    QToolTip::showText(place, QToolTip::text() == tip ? marked("white-space: pre-wrap;") : tip, &widget);
}
