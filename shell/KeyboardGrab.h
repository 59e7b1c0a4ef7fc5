// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <optional>

/// What an X server says when a window loses the keyboard: whether the window manager has grabbed it, as opposed to
/// another window getting it.
/// @param type, message as QWidget::nativeEvent receives them
/// @return nothing for any other message, or if no X server shows the windows
#ifdef WIZARD_XCB
[[nodiscard]] std::optional<bool> keyboardGrab(const QByteArray& type, const void* message);
#else
[[nodiscard]] inline std::optional<bool> keyboardGrab(const QByteArray& /*type*/, const void* /*message*/) {
    return {};
}
#endif
