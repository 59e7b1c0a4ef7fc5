// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

/// Shows a window and works until it has been painted for the first time.
inline void showUntilPainted(QWidget& window) {
    class Watch final : public QObject {
      public:
        bool painted = false;

      protected:
        bool eventFilter(QObject*, QEvent* event) override {
            painted = painted || event->type() == QEvent::Paint;
            return false;
        }
    } watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.painted) QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    window.removeEventFilter(&watch);
}
