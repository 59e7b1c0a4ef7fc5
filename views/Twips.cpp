// SPDX-License-Identifier: MIT
#include "views/Twips.h"

namespace {

constexpr double twipsPerInch = 1440;

}  // namespace

int toPixels(double twips, int dpi) {
    return qRound(twips * dpi / twipsPerInch);
}

QRect toPixels(const QRectF& twips, int dpi) {
    return {toPixels(twips.left(), dpi), toPixels(twips.top(), dpi), toPixels(twips.width(), dpi),
            toPixels(twips.height(), dpi)};
}

double toTwips(int pixels, int dpi) {
    return pixels * twipsPerInch / dpi;
}
