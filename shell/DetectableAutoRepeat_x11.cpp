// SPDX-License-Identifier: MIT
#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QSet>
#include <array>
#include <cstdint>

#include "shell/DetectableAutoRepeat.h"

// Last, for its macros have the names of others.
#include <X11/XKBlib.h>
#undef KeyPress
#undef KeyRelease

namespace {

// Marks the presses of keys that are down already.
class RepeatMarks final : public QObject, private QAbstractNativeEventFilter {
  public:
    RepeatMarks(Display& server, QGuiApplication& application) : QObject(&application), server_(server) {
        application.installEventFilter(this);
        application.installNativeEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWindowType()) return false;  // a widget gets what its window has got
        if (event->type() == QEvent::KeyRelease) down_.remove(static_cast<QKeyEvent*>(event)->nativeScanCode());
        return event->type() == QEvent::KeyPress && takeRepeat(*watched, static_cast<QKeyEvent&>(*event));
    }

    // A key that comes up while no window of the program has the keyboard does so unseen.
    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        if ((*static_cast<const std::uint8_t*>(message) & 0x7F) == FocusIn) dropReleased();
        return false;
    }

  private:
    // Whether the press was a repeat, and a marked one has taken its place.
    bool takeRepeat(QObject& window, QKeyEvent& press) {
        const auto code = press.nativeScanCode();
        if (code == 0 || press.isAutoRepeat()) return false;  // not from the server, or marked here
        if (!down_.contains(code)) {
            down_.insert(code);
            return false;
        }
        QKeyEvent repeat(press.type(), press.key(), press.modifiers(), code, press.nativeVirtualKey(),
                         press.nativeModifiers(), press.text(), true, static_cast<quint16>(press.count()));
        repeat.setTimestamp(press.timestamp());
        QCoreApplication::sendEvent(&window, &repeat);
        press.setAccepted(repeat.isAccepted());
        return true;
    }

    void dropReleased() {
        std::array<char, 32> keys{};  // a bit for each key
        XQueryKeymap(&server_, keys.data());
        down_.removeIf([&](quint32 code) { return code / 8 >= keys.size() || !(keys[code / 8] >> (code % 8) & 1); });
    }

    Display& server_;
    QSet<quint32> down_;  // key codes of the server
};

}  // namespace

void detectAutoRepeat(QGuiApplication& application) {
    const auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    auto* server = x11 ? x11->display() : nullptr;
    int isSupported = 0;
    if (server && XkbSetDetectableAutoRepeat(server, 1, &isSupported) && isSupported)
        new RepeatMarks(*server, application);  // which owns it
}
