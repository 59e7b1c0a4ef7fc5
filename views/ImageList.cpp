// SPDX-License-Identifier: MIT
#include "views/ImageList.h"

QIcon ImageList::icon(int index) const {
    return index >= 1 && index <= count() ? images_[static_cast<std::size_t>(index) - 1].icon : QIcon();
}

QString ImageList::key(int index) const {
    return index >= 1 && index <= count() ? images_[static_cast<std::size_t>(index) - 1].key : QString();
}
