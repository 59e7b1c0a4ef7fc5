// SPDX-License-Identifier: MIT
#pragma once

class QGuiApplication;

/// Makes sure that a key release means that the user released the key.
///
/// An X server sends a release and a press for each repeat of a held key, and Qt marks a release as a repeat only if
/// it has already received that press. This function asks the server once to leave these releases out. Qt then no
/// longer marks the repeated presses, so they are marked here, as long as `application` lives, and nobody sees a
/// difference. Does nothing where no X server shows the windows, or if the server does not know the request.
#ifdef WIZARD_X11
void detectAutoRepeat(QGuiApplication& application);
#else
inline void detectAutoRepeat(QGuiApplication& /*application*/) {
}
#endif
