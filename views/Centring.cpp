// SPDX-License-Identifier: MIT
#include "views/Centring.h"

#include <QMargins>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace {

QMargins frameOf(const QWidget& window) {
    if (window.isVisible() && window.windowHandle()) return window.windowHandle()->frameMargins();
    const auto* parent = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    if (parent && parent->isVisible() && parent->windowHandle()) return parent->windowHandle()->frameMargins();
    return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window), 0, 0};
}

}  // namespace

void centreOnScreen(QWidget& window) {
    const auto area = window.screen()->geometry();
    const auto size = window.size().grownBy(frameOf(window));
    window.move(area.left() + qRound((area.width() - size.width()) / 2.0),
                area.top() + qRound((area.height() - size.height()) / 2.0));
}
