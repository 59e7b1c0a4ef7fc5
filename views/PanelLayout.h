// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>

/// The places of the main window's panels, in twips (1/1440 inch): of the tree and the frames within the window's
/// inner area, of the grids within their frames.
struct PanelLayout {
    QRectF tree;
    QRectF frN;
    QRectF flexNav;
    QRectF frW;
    QRectF flexWeb;
    QRectF frRule;
};

/// Lays out the panels for a window with this inner size; sizes are in twips. The rule panel keeps its height.
[[nodiscard]] PanelLayout layOutPanels(QSizeF inner, double heightOfFrRule);
