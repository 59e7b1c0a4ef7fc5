// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

/// Runs the commands of keys on release. The keys of a window act wherever in it the focus is; those of any other
/// widget act while it has the focus.
///
/// A held key repeats its release, and a key may have been pressed elsewhere, for example in a message box that it
/// closed. So a command runs once, on the release that ends a press made here. Nobody else receives the press or the
/// release of a key that has a command.
class ReleasedKeys final : public QObject {
  public:
    struct Command {
        Qt::Key key;
        std::function<void()> run;
        /// Exactly these must be down when the key is pressed; they may be released before the key. Nothing: any
        /// modifiers will do.
        std::optional<Qt::KeyboardModifiers> modifiers = {};
    };

    explicit ReleasedKeys(std::vector<Command> commands);
    /// Also starts to serve `served`.
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
    QHash<int, const Command*> down_;  // the keys that were pressed here, with the commands that they will run
};
