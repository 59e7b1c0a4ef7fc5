// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

class QWidget;

/// Shows a text as a tool tip of `widget`, in as many lines as it needs, never as markup.
/// @param place on the screen; the tip appears below it
void showToolTip(const QPoint& place, const QString& text, QWidget& widget);
