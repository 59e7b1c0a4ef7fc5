// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

class QApplication;

/// Gives the application its look on every platform: Fusion style, a light palette whatever the desktop prefers (the
/// colours of nodes and rows were chosen for white), Arial.
void applyLook(QApplication& application);

/// The font of the whole program in this size.
[[nodiscard]] QFont arial(double points, QFont::Weight weight = QFont::Normal);

/// The one of all captions, grids and menus.
[[nodiscard]] QFont captionFont();
