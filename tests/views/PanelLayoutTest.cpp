#include "Helpers.h"
#include "views/PanelLayout.h"
#include "views/Twips.h"

namespace {

void expectRect(const QRectF& rect, double left, double top, double width, double height, const char* panel) {
    EXPECT_NEAR(rect.left(), left, 1e-6) << panel;
    EXPECT_NEAR(rect.top(), top, 1e-6) << panel;
    EXPECT_NEAR(rect.width(), width, 1e-6) << panel;
    EXPECT_NEAR(rect.height(), height, 1e-6) << panel;
}

}  // namespace

TEST(PanelLayout, FollowsTheFormulasInARoundWindow) {
    const auto at = layOutPanels(14400, 10800, 3400);
    expectRect(at.tree, 10, 10, 4280, 10760, "tree");
    expectRect(at.frN, 4290, 10, 10080, 3660, "frN");
    expectRect(at.flexNav, 40, 300, 9980, 3240, "flexNav");
    expectRect(at.frW, 4290, 3710, 10080, 3660, "frW");
    expectRect(at.flexWeb, 40, 300, 9980, 3240, "flexWeb");
    expectRect(at.frRule, 4290, 7420, 10080, 3400, "frRule");
}

TEST(PanelLayout, FollowsTheFormulasOnALargeScreen) {
    const auto at = layOutPanels(19200, 15000, 3400);
    expectRect(at.tree, 10, 10, 5720, 14960, "tree");
    expectRect(at.frN, 5730, 10, 13440, 5760, "frN");
    expectRect(at.flexNav, 40, 300, 13340, 5340, "flexNav");
    expectRect(at.frW, 5730, 5810, 13440, 5760, "frW");
    expectRect(at.flexWeb, 40, 300, 13340, 5340, "flexWeb");
    expectRect(at.frRule, 5730, 11620, 13440, 3400, "frRule");
}

TEST(PanelLayout, KeepsFractions) {
    const auto at = layOutPanels(10785, 5281, 3400);
    expectRect(at.tree, 10, 10, 3195.5, 5241, "tree");
    expectRect(at.frN, 3205.5, 10, 7549.5, 900.5, "frN");
    expectRect(at.flexNav, 40, 300, 7449.5, 480.5, "flexNav");
    expectRect(at.frW, 3205.5, 950.5, 7549.5, 900.5, "frW");
    expectRect(at.flexWeb, 40, 300, 7449.5, 480.5, "flexWeb");
    expectRect(at.frRule, 3205.5, 1901, 7549.5, 3400, "frRule");
}

TEST(PanelLayout, MakesRoomForARulePanelOfAnyHeight) {
    const auto at = layOutPanels(20000, 12000, 2000);
    expectRect(at.tree, 10, 10, 5960, 11960, "tree");
    expectRect(at.frN, 5970, 10, 14000, 4960, "frN");
    expectRect(at.flexNav, 40, 300, 13900, 4540, "flexNav");
    expectRect(at.frW, 5970, 5010, 14000, 4960, "frW");
    expectRect(at.flexWeb, 40, 300, 13900, 4540, "flexWeb");
    expectRect(at.frRule, 5970, 10020, 14000, 2000, "frRule");
}

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
