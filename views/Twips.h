// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>

/// Converts twips to pixels on a screen with `dpi` logical dots per inch, rounded to the nearest pixel.
[[nodiscard]] int toPixels(double twips, int dpi);
[[nodiscard]] QRect toPixels(const QRectF& twips, int dpi);
/// The reverse.
[[nodiscard]] double toTwips(int pixels, int dpi);
