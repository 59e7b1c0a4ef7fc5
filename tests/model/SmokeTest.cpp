#include <gtest/gtest.h>

#include "model/clsNavSchemes.h"

TEST(NewScheme, HasTheRootAlone) {
    clsNavSchemes navs;
    navs.NewScheme();
    ASSERT_EQ(navs.Count(), 1);
    EXPECT_EQ(navs.Item(1)->descriptionIs, "Data Browser");
}
