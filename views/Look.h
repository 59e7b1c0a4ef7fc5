// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

class QApplication;

/// Gives the application the same look on every platform: the Fusion style, Arial, and a light palette whatever the
/// desktop prefers (the colours of nodes and rows were chosen for a white background).
void applyLook(QApplication& application);

/// The program's font in this size.
[[nodiscard]] QFont arial(double points, QFont::Weight weight = QFont::Normal);

/// The font of all captions, grids and menus.
[[nodiscard]] QFont captionFont();
