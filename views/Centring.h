// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Moves a window, with its frame, to the middle of the screen that it is on. The frame of a window that is not on
/// the screen yet is taken to be that of its parent window, or as high as the title bars of the style.
void centreOnScreen(QWidget& window);
