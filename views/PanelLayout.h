// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>

/// The places of the main window's panels, in twips (1/1440 inch). The frames' are those within the window's inner
/// area, the grids' those within their frames.
struct PanelLayout {
    QRectF tree;
    QRectF frN;
    QRectF flexNav;
    QRectF frW;
    QRectF flexWeb;
    QRectF frRule;
};

/// Lays the panels out in a window of this inner size, in twips. The rule panel keeps its height.
[[nodiscard]] PanelLayout layOutPanels(QSizeF inner, double heightOfFrRule);
