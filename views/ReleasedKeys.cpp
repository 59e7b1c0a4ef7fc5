// SPDX-License-Identifier: MIT
#include "views/ReleasedKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>

ReleasedKeys::ReleasedKeys(std::vector<Command> commands) : commands_(std::move(commands)) {
}

ReleasedKeys::ReleasedKeys(QWidget& served, std::vector<Command> commands) : ReleasedKeys(std::move(commands)) {
    serve(served);
}

ReleasedKeys::~ReleasedKeys() {
    if (qApp) qApp->removeEventFilter(this);
}

void ReleasedKeys::serve(QWidget& served) {
    served_ = &served;
    down_.clear();
    qApp->installEventFilter(this);  // to see keys before the widget with the focus does
}

bool ReleasedKeys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress: return isServed(*watched) && press(static_cast<QKeyEvent&>(*event));
        case QEvent::KeyRelease: return isServed(*watched) && release(static_cast<QKeyEvent&>(*event));
        case QEvent::WindowDeactivate:
        case QEvent::FocusOut:
        case QEvent::Hide:
            if (watched == served_) down_.clear();  // the keyboard goes elsewhere
            return false;
        default: return false;
    }
}

bool ReleasedKeys::isServed(const QObject& watched) const {
    if (!served_ || !watched.isWidgetType()) return false;
    return &watched == served_ || served_->isAncestorOf(static_cast<const QWidget*>(&watched));
}

// Whether the key has a command.
bool ReleasedKeys::press(const QKeyEvent& event) {
    const auto command = std::ranges::find_if(commands_, [&](const Command& each) {
        return each.key == event.key() && each.modifiers.value_or(event.modifiers()) == event.modifiers();
    });
    if (command == commands_.end()) return false;
    if (!event.isAutoRepeat()) down_.insert(event.key(), &*command);
    return true;
}

bool ReleasedKeys::release(const QKeyEvent& event) {
    if (std::ranges::find(commands_, event.key(), &Command::key) == commands_.end()) return false;
    const auto* command = event.isAutoRepeat() ? nullptr : down_.take(event.key());
    if (command) command->run();
    return true;
}
