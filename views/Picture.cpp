// SPDX-License-Identifier: MIT
#include "views/Picture.h"

#include <QPainter>

Picture::Picture(const QIcon& icon, QWidget* parent) : QWidget(parent), icon_(icon) {
    setFixedSize(pictureSize, pictureSize);
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}
