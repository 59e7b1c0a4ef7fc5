// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

/// Runs the program until its window has been painted for the first time, then ends it at once, without any cleanup.
[[noreturn]] inline void runUntilPainted(QWidget& window) {
    class Watch final : public QObject {
      protected:
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) QTimer::singleShot(0, [] { std::_Exit(0); });
            return false;
        }
    } watch;
    window.installEventFilter(&watch);
    window.show();
    std::_Exit(QApplication::exec());
}
