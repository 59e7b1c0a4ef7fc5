// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <optional>

/// What an X server tells about a window that loses the keyboard: whether the window manager grabs it, and no other
/// window gets it.
/// @param type, message as QWidget::nativeEvent receives them
/// @return nothing for any other message, and where no X server shows the windows
#ifdef WIZARD_XCB
[[nodiscard]] std::optional<bool> keyboardGrab(const QByteArray& type, const void* message);
#else
[[nodiscard]] inline std::optional<bool> keyboardGrab(const QByteArray& /*type*/, const void* /*message*/) {
    return {};
}
#endif
