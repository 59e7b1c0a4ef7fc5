#include "views/ImageList.h"

#include <QPainter>

Picture::Picture(const QIcon& icon, QWidget* parent) : QWidget(parent), icon_(icon) {
    setFixedSize(pictureSize, pictureSize);
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

QIcon ImageList::icon(int index) const {
    return index >= 1 && index <= count() ? images_[static_cast<std::size_t>(index) - 1].icon : QIcon();
}

QString ImageList::key(int index) const {
    return index >= 1 && index <= count() ? images_[static_cast<std::size_t>(index) - 1].key : QString();
}
