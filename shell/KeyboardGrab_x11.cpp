// SPDX-License-Identifier: MIT
#include "shell/KeyboardGrab.h"

#include <cstdint>

namespace {

struct FocusEvent {  // as in the X protocol
    std::uint8_t type, detail;
    std::uint16_t sequence;
    std::uint32_t window;
    std::uint8_t mode;
};
constexpr std::uint8_t focusOut = 10;
constexpr std::uint8_t sentByAProgram = 0x80;  // a bit in the type
constexpr std::uint8_t grab = 1;
constexpr std::uint8_t pointer = 5;  // sent only because the mouse is over the window, whoever has the keyboard

}  // namespace

std::optional<bool> keyboardGrab(const QByteArray& type, const void* message) {
    if (type != "xcb_generic_event_t") return {};
    const auto* focus = static_cast<const FocusEvent*>(message);
    if ((focus->type & ~sentByAProgram) != focusOut || focus->detail == pointer) return {};
    return focus->mode == grab;
}
