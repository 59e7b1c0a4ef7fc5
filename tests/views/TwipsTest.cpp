// SPDX-License-Identifier: MIT
#include "views/Twips.h"

#include "Helpers.h"

TEST(Twips, BecomePixelsRoundedToTheNearest) {
    struct {
        double twips;
        int dpi, pixels;
    } const lengths[] = {{1440, 96, 96},
                         {15, 96, 1},
                         {10, 96, 1},
                         {7, 96, 0},
                         {8, 96, 1},
                         {22, 96, 1},
                         {23, 96, 2},
                         {0, 96, 0},
                         {10785, 96, 719},
                         {600, 96, 40},
                         {600, 120, 50},
                         {600, 144, 60},
                         {600, 192, 80},
                         {1440, 72, 72},
                         {-15, 96, -1},
                         {-7, 96, 0},
                         {2147483.5, 96, 143166}};
    for (const auto& length : lengths)
        EXPECT_EQ(toPixels(length.twips, length.dpi), length.pixels) << length.twips << " at " << length.dpi;
}

TEST(Twips, OfARectangleBecomePixelsOneByOne) {
    EXPECT_EQ(toPixels(QRectF(10, 10, 4280, 10760), 96), QRect(1, 1, 285, 717));
    EXPECT_EQ(toPixels(QRectF(3960, 0, 3375, 1695), 96), QRect(264, 0, 225, 113));
    EXPECT_EQ(toPixels(QRectF(150, 300, 1500, 2400), 144), QRect(15, 30, 150, 240));
}

TEST(Twips, ComeBackFromPixels) {
    EXPECT_DOUBLE_EQ(toTwips(96, 96), 1440);
    EXPECT_DOUBLE_EQ(toTwips(1, 96), 15);
    EXPECT_DOUBLE_EQ(toTwips(1, 144), 10);
    EXPECT_DOUBLE_EQ(toTwips(100, 120), 1200);
    EXPECT_DOUBLE_EQ(toTwips(5, 100), 72);
    EXPECT_DOUBLE_EQ(toTwips(1, 128), 11.25);
    EXPECT_DOUBLE_EQ(toTwips(0, 96), 0);
    EXPECT_DOUBLE_EQ(toTwips(-2, 96), -30);
}

TEST(Twips, LoseNoPixelOnTheWayThereAndBack) {
    for (const int dpi : {72, 96, 101, 120, 144, 192})
        for (int pixels = -100; pixels < 4000; pixels += 7) EXPECT_EQ(toPixels(toTwips(pixels, dpi), dpi), pixels);
}
