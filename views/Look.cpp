// SPDX-License-Identifier: MIT
#include "views/Look.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace {

QPalette lightPalette() {
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));  // buttons and windows
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, Qt::black);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(247, 247, 247));
    palette.setColor(QPalette::Highlight, QColor(48, 108, 178));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0, 0, 238));
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(110, 110, 110));
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::white);
    return palette;
}

}  // namespace

QFont arial(double points, QFont::Weight weight) {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(points);
    font.setWeight(weight);
    return font;
}

QFont captionFont() {
    return arial(9);
}

void applyLook(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(lightPalette());
    application.setFont(captionFont());
}
