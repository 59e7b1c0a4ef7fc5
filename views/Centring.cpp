// SPDX-License-Identifier: MIT
#include "views/Centring.h"

#include <QMargins>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace {

bool isOnScreen(const QWidget& window) {
    return window.isVisible() && window.windowHandle();
}

QMargins frameOf(const QWidget& window) {
    if (isOnScreen(window)) return window.windowHandle()->frameMargins();
    const auto* parent = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    if (parent && isOnScreen(*parent)) return parent->windowHandle()->frameMargins();
    return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window), 0, 0};
}

}  // namespace

void centreOnScreen(QWidget& window) {
    const auto area = window.screen()->geometry();
    const auto frame = frameOf(window);
    const auto size = window.size().grownBy(frame);
    const QPoint corner(area.left() + qRound((area.width() - size.width()) / 2.0),
                        area.top() + qRound((area.height() - size.height()) / 2.0));
    // The frame that a shown widget reports may be older than the one that its window reports.
    if (isOnScreen(window))
        window.setGeometry({corner + QPoint(frame.left(), frame.top()), window.size()});
    else
        window.move(corner);
}
