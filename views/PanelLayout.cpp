// SPDX-License-Identifier: MIT
#include "views/PanelLayout.h"

namespace {

constexpr double margin = 10;  // between the window's left and top and the tree and frames
constexpr double gap = 40;

}  // namespace

PanelLayout layOutPanels(QSizeF inner, double heightOfFrRule) {
    PanelLayout at;
    at.tree = {margin, margin, 0.3 * inner.width() - gap, inner.height() - gap};

    const double left = at.tree.left() + at.tree.width();
    const double frameWidth = inner.width() - at.tree.width() - gap;
    const double frameHeight = (inner.height() - heightOfFrRule - 2 * gap) / 2;
    at.frN = {left, margin, frameWidth, frameHeight};
    at.frW = {left, margin + frameHeight + gap, frameWidth, frameHeight};
    // The doubled distance from the top is given: see "Given, not to be corrected" in docs/architecture.md.
    at.frRule = {left, (margin + frameHeight + gap) * 2, frameWidth, heightOfFrRule};

    at.flexNav = {gap, 300, frameWidth - 100, frameHeight - 420};
    at.flexWeb = at.flexNav;
    return at;
}
