// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <new>

/// The application. It survives a lack of memory: outside the commands, an event that runs out of memory, such as a
/// paint, is dropped. (An exception that leaves an event handler would end the program.)
class Application final : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        return false;
    }
};
