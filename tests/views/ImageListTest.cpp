// SPDX-License-Identifier: MIT
#include "views/ImageList.h"

#include "Helpers.h"

namespace {

QIcon plain(Qt::GlobalColor colour) {
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return pixmap;
}

QImage drawn(const QIcon& icon, int size = 16) {
    return icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
}

QIcon nodeImage(const char* name) {
    return QIcon(QStringLiteral(":/images/%1.svg").arg(QLatin1String(name)));
}

constexpr const char* names[] = {"root", "fixed", "gen", "recur", "nongen"};

}  // namespace

TEST(ImageList, NumbersPicturesFromOne) {
    ImageList images(nullptr);
    EXPECT_EQ(images.count(), 0);
    const Qt::GlobalColor colours[] = {Qt::black, Qt::red, Qt::blue, Qt::green, Qt::darkRed};
    for (int n = 0; n < 5; ++n) images.add(QString::fromLatin1(names[n]), plain(colours[n]));
    ASSERT_EQ(images.count(), 5);
    EXPECT_EQ(images.key(1), QStringLiteral("root"));
    EXPECT_EQ(images.key(2), QStringLiteral("fixed"));
    EXPECT_EQ(images.key(3), QStringLiteral("gen"));
    EXPECT_EQ(images.key(4), QStringLiteral("recur"));
    EXPECT_EQ(images.key(5), QStringLiteral("nongen"));
    EXPECT_EQ(drawn(images.icon(1)).pixelColor(8, 8), QColor(Qt::black));
    EXPECT_EQ(drawn(images.icon(2)).pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(drawn(images.icon(5)).pixelColor(8, 8), QColor(Qt::darkRed));
}

TEST(ImageList, HasNoPictureOutsideItsNumbers) {
    ImageList images(nullptr);
    images.add(QStringLiteral("root"), plain(Qt::black));
    for (const int index : {-1, 0, 2, 99}) {
        EXPECT_TRUE(images.icon(index).isNull()) << index;
        EXPECT_EQ(images.key(index), QString()) << index;
    }
}

TEST(NodeImages, AreFiveDifferentPicturesOf16Pixels) {
    for (const auto* name : names) {
        const auto image = drawn(nodeImage(name));
        EXPECT_EQ(image.size(), QSize(16, 16)) << name;
        for (const auto* other : names)
            EXPECT_EQ(image == drawn(nodeImage(other)), std::string_view(name) == other) << name << " and " << other;
    }
}

TEST(NodeImages, AreDrawnAndClearAroundTheirShape) {
    for (const auto* name : names) {
        const auto image = drawn(nodeImage(name));
        int painted = 0;
        int clear = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                painted += image.pixelColor(x, y).alpha() == 255 ? 1 : 0;
                clear += image.pixelColor(x, y).alpha() == 0 ? 1 : 0;
            }
        EXPECT_GT(painted, 60) << name;
        EXPECT_GT(clear, 10) << name;
    }
}

TEST(NodeImages, AreSharpAtTwiceTheSize) {
    const auto image = drawn(nodeImage("root"), 32);
    EXPECT_EQ(image.size(), QSize(32, 32));
    EXPECT_NE(image, drawn(nodeImage("root")).scaled(32, 32)) << "drawn at that size, not enlarged";
}
