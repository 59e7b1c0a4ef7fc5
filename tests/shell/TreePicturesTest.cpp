// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/Picture.h"

namespace {

const char* const sources[] = {"imgRoot", "imgFix", "imgGen", "imgRecur", "imgNonGen"};

QImage paint(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

}  // namespace

TEST(TreePictures, StandHiddenOnTheWindow) {
    Wizard wizard;
    for (const char* name : sources) {
        const auto& picture = find(wizard.window, name);
        EXPECT_EQ(picture.size(), QSize(16, 16)) << name;
        EXPECT_EQ(picture.parentWidget(), wizard.window.centralWidget()) << name;
        EXPECT_FALSE(picture.isVisible()) << name;
    }
}

TEST(TreePictures, CanBeToldApart) {
    const fMain window;
    QImage blank(16, 16, QImage::Format_ARGB32);
    blank.fill(Qt::transparent);
    std::vector<QImage> seen = {blank};
    for (const char* name : sources) {
        const auto image = paint(find(window, name));
        EXPECT_EQ(std::ranges::count(seen, image), 0) << name;
        seen.push_back(image);
    }
    EXPECT_EQ(seen.size(), 6U);
}

TEST(TreePictures, FillTheImageListInTheirOrder) {
    Wizard wizard;
    const auto* images = dynamic_cast<ImageList*>(&find<QObject>(wizard.window, "myImage"));
    ASSERT_NE(images, nullptr);
    ASSERT_EQ(images->count(), 5);
    const char* const keys[] = {"root", "fixed", "gen", "recur", "nongen"};
    for (int index = 1; index <= 5; ++index) {
        EXPECT_EQ(images->key(index), text(keys[index - 1]));
        const auto listed = images->icon(index).pixmap(16, 16, QIcon::Normal).toImage();
        const auto source =
            static_cast<Picture&>(find(wizard.window, sources[index - 1])).icon().pixmap(16, 16).toImage();
        EXPECT_FALSE(listed.isNull()) << index;
        EXPECT_EQ(listed, source) << index;
    }
}

TEST(TreePictures, StandBesideTheNodesOfTheirType) {
    const TempFolder folder;
    Wizard wizard;
    wizard.openNodes(writeBytes(folder / "in.txt", "1,Top,F,0\r\n2,f,F,1\r\n3,g,G,1\r\n4,r,R,1\r\n5,n,N,1\r\n"));
    const auto* model = wizard.tree().model();
    const auto shown = [](const QModelIndex& index) {
        return qvariant_cast<QIcon>(index.data(Qt::DecorationRole)).pixmap(16, 16).toImage();
    };
    const auto source = [&](const char* name) {
        return static_cast<Picture&>(find(wizard.window, name)).icon().pixmap(16, 16).toImage();
    };
    const auto root = model->index(0, 0);
    EXPECT_EQ(shown(root), source("imgRoot"));
    EXPECT_EQ(shown(model->index(0, 0, root)), source("imgFix"));
    EXPECT_EQ(shown(model->index(1, 0, root)), source("imgGen"));
    EXPECT_EQ(shown(model->index(2, 0, root)), source("imgRecur"));
    EXPECT_EQ(shown(model->index(3, 0, root)), source("imgNonGen"));
}
