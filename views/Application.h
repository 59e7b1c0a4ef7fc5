// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <new>

/// The application, which outlives a lack of memory: what lacks it outside the commands, a paint for instance, is
/// left out. (An exception that left an event would end the program.)
class Application final : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        return false;
    }
};
