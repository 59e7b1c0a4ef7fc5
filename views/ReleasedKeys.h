// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QSet>

/// Tells which key releases count. Commands run when a key is let go; but a key that is held repeats its release,
/// and one that went down in another window (a message box that it closed, say) means nothing in this one.
class ReleasedKeys {
  public:
    /// To be told of every key press that reaches the window.
    void pressed(const QKeyEvent& event) {
        if (!event.isAutoRepeat()) down_.insert(event.key());
    }
    /// Whether this release ends a press that was made here.
    [[nodiscard]] bool released(const QKeyEvent& event) { return !event.isAutoRepeat() && down_.remove(event.key()); }
    /// Forgets the presses: the keyboard goes elsewhere.
    void forget() { down_.clear(); }

  private:
    QSet<int> down_;
};
