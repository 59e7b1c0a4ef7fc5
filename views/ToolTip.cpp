// SPDX-License-Identifier: MIT
#include "views/ToolTip.h"

#include <QToolTip>

// Qt breaks only marked-up tips into lines. A tip that is about to hide is not kept by the same text at the same
// place, so no two that follow each other have the same markup.
void showToolTip(const QPoint& place, const QString& text, QWidget& widget) {
    const auto marked = [escaped = text.toHtmlEscaped()](const char* style) {
        return QStringLiteral("<p style='%1'>%2</p>").arg(QLatin1String(style), escaped);
    };
    const auto tip = marked("white-space: pre-wrap");
    QToolTip::showText(place, QToolTip::text() == tip ? marked("white-space: pre-wrap;") : tip, &widget);
}
