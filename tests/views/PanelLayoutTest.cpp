// SPDX-License-Identifier: MIT
#include "views/PanelLayout.h"

#include "Helpers.h"

namespace {

void expectRect(const QRectF& rect, double left, double top, double width, double height, const char* panel) {
    EXPECT_NEAR(rect.left(), left, 1e-6) << panel;
    EXPECT_NEAR(rect.top(), top, 1e-6) << panel;
    EXPECT_NEAR(rect.width(), width, 1e-6) << panel;
    EXPECT_NEAR(rect.height(), height, 1e-6) << panel;
}

}  // namespace

TEST(PanelLayout, FollowsTheFormulasInARoundWindow) {
    const auto at = layOutPanels({14400, 10800}, 3400);
    expectRect(at.tree, 10, 10, 4280, 10760, "tree");
    expectRect(at.frN, 4290, 10, 10080, 3660, "frN");
    expectRect(at.flexNav, 40, 300, 9980, 3240, "flexNav");
    expectRect(at.frW, 4290, 3710, 10080, 3660, "frW");
    expectRect(at.flexWeb, 40, 300, 9980, 3240, "flexWeb");
    expectRect(at.frRule, 4290, 7420, 10080, 3400, "frRule");
}

TEST(PanelLayout, FollowsTheFormulasOnALargeScreen) {
    const auto at = layOutPanels({19200, 15000}, 3400);
    expectRect(at.tree, 10, 10, 5720, 14960, "tree");
    expectRect(at.frN, 5730, 10, 13440, 5760, "frN");
    expectRect(at.flexNav, 40, 300, 13340, 5340, "flexNav");
    expectRect(at.frW, 5730, 5810, 13440, 5760, "frW");
    expectRect(at.flexWeb, 40, 300, 13340, 5340, "flexWeb");
    expectRect(at.frRule, 5730, 11620, 13440, 3400, "frRule");
}

TEST(PanelLayout, KeepsFractions) {
    const auto at = layOutPanels({10785, 5281}, 3400);
    expectRect(at.tree, 10, 10, 3195.5, 5241, "tree");
    expectRect(at.frN, 3205.5, 10, 7549.5, 900.5, "frN");
    expectRect(at.flexNav, 40, 300, 7449.5, 480.5, "flexNav");
    expectRect(at.frW, 3205.5, 950.5, 7549.5, 900.5, "frW");
    expectRect(at.flexWeb, 40, 300, 7449.5, 480.5, "flexWeb");
    expectRect(at.frRule, 3205.5, 1901, 7549.5, 3400, "frRule");
}

TEST(PanelLayout, MakesRoomForARulePanelOfAnyHeight) {
    const auto at = layOutPanels({20000, 12000}, 2000);
    expectRect(at.tree, 10, 10, 5960, 11960, "tree");
    expectRect(at.frN, 5970, 10, 14000, 4960, "frN");
    expectRect(at.flexNav, 40, 300, 13900, 4540, "flexNav");
    expectRect(at.frW, 5970, 5010, 14000, 4960, "frW");
    expectRect(at.flexWeb, 40, 300, 13900, 4540, "flexWeb");
    expectRect(at.frRule, 5970, 10020, 14000, 2000, "frRule");
}
