// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>

/// Lengths of twips in pixels on a screen of `dpi` logical dots an inch, rounded to the nearest.
[[nodiscard]] int toPixels(double twips, int dpi);
[[nodiscard]] QRect toPixels(const QRectF& twips, int dpi);
/// And back.
[[nodiscard]] double toTwips(int pixels, int dpi);
