// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Moves a window, with its frame, to the middle of the screen that it is on. The frame of a window that is not yet
/// on the screen is assumed to be like that of its parent window, or as high as the title bars of the style.
void centreOnScreen(QWidget& window);
