// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

/// Runs the commands of keys when they are let go: those of a window wherever in it the focus is, those of another
/// widget while the focus is there.
///
/// A key that is held repeats its release, and one that went down elsewhere, in a message box that it closed, say,
/// means nothing here. So a command runs once, at the release that ends a press made here. A key that has a command
/// reaches no one else, neither when it goes down nor when it comes up.
class ReleasedKeys final : public QObject {
  public:
    struct Command {
        Qt::Key key;
        std::function<void()> run;
        /// What must be down together with the key, and nothing else, when it goes down; it may be let go first.
        /// Nothing: it does not matter.
        std::optional<Qt::KeyboardModifiers> modifiers = {};
    };

    explicit ReleasedKeys(std::vector<Command> commands);
    /// Serves `served` at once.
    ReleasedKeys(QWidget& served, std::vector<Command> commands);
    ~ReleasedKeys() override;

    /// Serves this window or widget from now on, and no other.
    void serve(QWidget& served);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool isServed(const QObject& watched) const;
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);

    const std::vector<Command> commands_;
    QPointer<QWidget> served_;
    QHash<int, const Command*> down_;  // the keys that went down here, with the commands that they will run
};
