// SPDX-License-Identifier: MIT
#include "views/Picture.h"

#include "Helpers.h"

TEST(Picture, Is16PixelsWideAndHighAndShowsItsIcon) {
    QWidget window;
    QPixmap blue(16, 16);
    blue.fill(Qt::blue);
    Picture picture(QIcon(blue), &window);
    EXPECT_EQ(picture.minimumSize(), QSize(16, 16));
    EXPECT_EQ(picture.maximumSize(), QSize(16, 16));
    EXPECT_EQ(picture.parentWidget(), &window);
    EXPECT_EQ(picture.icon().pixmap(16, 16).toImage().pixelColor(3, 3), QColor(Qt::blue));
    const auto image = picture.grab().toImage();
    ASSERT_EQ(image.size(), QSize(16, 16));
    for (const auto& [x, y] : {std::pair{0, 0}, {15, 0}, {0, 15}, {15, 15}, {8, 8}})
        EXPECT_EQ(image.pixelColor(x, y), QColor(Qt::blue)) << x << " " << y;
}
