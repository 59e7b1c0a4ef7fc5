// SPDX-License-Identifier: MIT
#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QSet>
#include <array>
#include <cstdint>

#include "shell/DetectableAutoRepeat.h"

// Last, because its macros clash with other names.
#include <X11/XKBlib.h>
#undef KeyPress
#undef KeyRelease

namespace {

// Marks presses of keys that are already down as repeats.
class RepeatMarks final : public QObject, private QAbstractNativeEventFilter {
  public:
    RepeatMarks(Display& server, QGuiApplication& application) : QObject(&application), server_(server) {
        application.installEventFilter(this);
        application.installNativeEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWindowType()) return false;  // a widget receives what its window received
        if (event->type() == QEvent::KeyRelease) down_.remove(static_cast<QKeyEvent*>(event)->nativeScanCode());
        return event->type() == QEvent::KeyPress && takeRepeat(*watched, static_cast<QKeyEvent&>(*event));
    }

    // If a key is released while no window of the program has the keyboard, no release arrives.
    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        if ((*static_cast<const std::uint8_t*>(message) & 0x7F) == FocusIn) dropReleased();
        return false;
    }

  private:
    // Whether the press was a repeat; if so, a marked one has been sent in its place.
    bool takeRepeat(QObject& window, QKeyEvent& press) {
        const auto code = press.nativeScanCode();
        if (code == 0 || press.isAutoRepeat()) return false;  // not from the server, or already marked
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
        std::array<char, 32> keys{};  // one bit per key
        XQueryKeymap(&server_, keys.data());
        down_.removeIf([&](quint32 code) { return code / 8 >= keys.size() || !(keys[code / 8] >> (code % 8) & 1); });
    }

    Display& server_;
    QSet<quint32> down_;  // the server's key codes
};

}  // namespace

void detectAutoRepeat(QGuiApplication& application) {
    const auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    auto* server = x11 ? x11->display() : nullptr;
    int isSupported = 0;
    if (server && XkbSetDetectableAutoRepeat(server, 1, &isSupported) && isSupported)
        new RepeatMarks(*server, application);  // the application owns it
}
