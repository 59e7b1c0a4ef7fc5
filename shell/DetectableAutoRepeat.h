// SPDX-License-Identifier: MIT
#pragma once

class QGuiApplication;

/// Makes sure that the release of a key means that it was let go.
///
/// An X server sends a release and a press for each repeat of a held key, and Qt marks a release as a repeat only
/// where it has already received that press. Asked once, the server leaves these releases out. Qt then no longer
/// marks the repeated presses; until `application` ends they are marked here, so nobody sees a difference. Does
/// nothing where no X server shows the windows, or where it does not know the request.
#ifdef WIZARD_X11
void detectAutoRepeat(QGuiApplication& application);
#else
inline void detectAutoRepeat(QGuiApplication& /*application*/) {
}
#endif
