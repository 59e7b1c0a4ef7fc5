// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/ReleasedKeys.h"

namespace {

QKeyEvent press(Qt::Key key, bool repeated = false) {
    return {QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated};
}

QKeyEvent release(Qt::Key key, bool repeated = false) {
    return {QEvent::KeyRelease, key, Qt::NoModifier, QString(), repeated};
}

}  // namespace

TEST(ReleasedKeys, CountAReleaseAfterItsPress) {
    ReleasedKeys keys;
    keys.pressed(press(Qt::Key_F2));
    EXPECT_TRUE(keys.released(release(Qt::Key_F2)));
    EXPECT_FALSE(keys.released(release(Qt::Key_F2))) << "once";
}

TEST(ReleasedKeys, DoNotCountAReleaseWithoutItsPress) {
    ReleasedKeys keys;
    EXPECT_FALSE(keys.released(release(Qt::Key_F2)));
    keys.pressed(press(Qt::Key_Insert));
    EXPECT_FALSE(keys.released(release(Qt::Key_F2)));
    EXPECT_TRUE(keys.released(release(Qt::Key_Insert)));
}

TEST(ReleasedKeys, CountKeysThatOverlap) {
    ReleasedKeys keys;
    keys.pressed(press(Qt::Key_Insert));
    keys.pressed(press(Qt::Key_Delete));
    EXPECT_TRUE(keys.released(release(Qt::Key_Insert)));
    EXPECT_TRUE(keys.released(release(Qt::Key_Delete)));
}

TEST(ReleasedKeys, CountAHeldKeyOnce) {
    ReleasedKeys keys;
    keys.pressed(press(Qt::Key_Delete));
    EXPECT_FALSE(keys.released(release(Qt::Key_Delete, true)));
    keys.pressed(press(Qt::Key_Delete, true));
    EXPECT_FALSE(keys.released(release(Qt::Key_Delete, true)));
    keys.pressed(press(Qt::Key_Delete, true));
    EXPECT_TRUE(keys.released(release(Qt::Key_Delete)));
}

TEST(ReleasedKeys, DoNotCountAKeyThatWasHeldWhenItCame) {
    ReleasedKeys keys;
    keys.pressed(press(Qt::Key_Return, true));
    EXPECT_FALSE(keys.released(release(Qt::Key_Return, true)));
    keys.pressed(press(Qt::Key_Return, true));
    EXPECT_FALSE(keys.released(release(Qt::Key_Return))) << "it went down in another window";
}

TEST(ReleasedKeys, ForgetPressesWhenTheKeyboardGoesElsewhere) {
    ReleasedKeys keys;
    keys.pressed(press(Qt::Key_F2));
    keys.pressed(press(Qt::Key_Delete));
    keys.forget();
    EXPECT_FALSE(keys.released(release(Qt::Key_F2)));
    EXPECT_FALSE(keys.released(release(Qt::Key_Delete)));
    keys.pressed(press(Qt::Key_F2));
    EXPECT_TRUE(keys.released(release(Qt::Key_F2)));
}
