// SPDX-License-Identifier: MIT
#include <QScrollBar>

#include "Helpers.h"

namespace {

constexpr QColor white(255, 255, 255);
constexpr QColor grey(128, 128, 128);
constexpr QColor blackText(0, 0, 0);

// The tree with nothing in the pictures, so that all that is painted beside the texts are lines and boxes.
class NavTreePaintTest : public testing::Test {
  protected:
    NavTreePaintTest() {
        QPixmap nothing(16, 16);
        nothing.fill(Qt::transparent);
        for (int n = 0; n < 5; ++n) images.add(QStringLiteral("empty"), nothing);
        fillSample(navs);
    }
    void SetUp() override {
        tree.setFrameShape(QFrame::NoFrame);
        tree.resize(300, 300);
        tree.Fill(navs);
        tree.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    }

    [[nodiscard]] QModelIndex at(std::string_view key) const {
        return tree.treeModel().indexOf(tree.treeModel().snapshot().find(key));
    }
    void open(std::string_view key) { tree.expand(at(key)); }

    /// What lies left of a node's picture: 40 pixels for each level.
    [[nodiscard]] QImage leftOf(std::string_view key) {
        const auto place = tree.visualRect(at(key));
        return tree.viewport()->grab(QRect(0, place.top(), place.left(), place.height())).toImage();
    }

    /// The 11 pixels around the middle of a node's box: "#" the line and the frame, "+" the sign, "." white.
    Rows boxOf(std::string_view key) {
        const auto image = leftOf(key);
        const QPoint middle(image.width() - 1 - 20, image.height() / 2);
        Rows picture;
        for (int y = -5; y <= 5; ++y) {
            std::string line;
            for (int x = -5; x <= 5; ++x) {
                const auto colour = image.pixelColor(middle + QPoint(x, y));
                line += colour == white ? '.' : colour == grey ? '#' : colour == blackText ? '+' : '?';
            }
            picture.push_back(line);
        }
        return picture;
    }
    /// The frame of the box and what is in it, without the dotted line around it.
    Rows frameOf(std::string_view key) {
        auto picture = boxOf(key);
        picture.erase(picture.begin());
        picture.pop_back();
        for (auto& line : picture) line = line.substr(1, 9);
        return picture;
    }

    /// Where lines run at a level left of a node (1 is the level below the root): "u" upwards from the middle of the
    /// row, "d" downwards, "r" to the right. Outside the box.
    std::string linesOf(std::string_view key, int level) {
        const auto image = leftOf(key);
        const QPoint middle(40 * level - 1 - 20, image.height() / 2);
        const auto isDotted = [&](QPoint step, int from, int to) {
            int dots = 0;
            int gaps = 0;
            for (int n = from; n <= to; ++n) {
                const auto colour = image.pixelColor(middle + step * n);
                EXPECT_TRUE(colour == grey || colour == white) << colour.name().toStdString();
                ++(colour == grey ? dots : gaps);
            }
            EXPECT_TRUE(dots == 0 || gaps > 0) << "not dotted";
            return dots > 0;
        };
        return std::string(isDotted({0, -1}, 6, image.height() / 2) ? "u" : "") +
               (isDotted({0, 1}, 6, image.height() - image.height() / 2 - 1) ? "d" : "") +
               (isDotted({1, 0}, 6, 19) ? "r" : "");
    }

    clsNavSchemes navs;
    ImageList images{nullptr};
    NavTree tree{images, nullptr};
};

const Rows plusBox = {"#########", "#.......#", "#...+...#", "#...+...#", "#.+++++.#",
                      "#...+...#", "#...+...#", "#.......#", "#########"};
const Rows minusBox = {"#########", "#.......#", "#.......#", "#.......#", "#.+++++.#",
                       "#.......#", "#.......#", "#.......#", "#########"};

}  // namespace

TEST_F(NavTreePaintTest, TheRootHasNeitherBoxNorLines) {
    EXPECT_EQ(tree.visualRect(at("N1")).left(), 0);
    const auto row = tree.viewport()->grab(QRect(0, 0, 16, tree.visualRect(at("N1")).height())).toImage();
    for (int y = 0; y < row.height(); ++y)
        for (int x = 0; x < row.width(); ++x) ASSERT_EQ(row.pixelColor(x, y), white) << x << " " << y;
}

TEST_F(NavTreePaintTest, AClosedNodeWithChildrenHasAPlus) {
    EXPECT_EQ(frameOf("N2"), plusBox);
    EXPECT_EQ(frameOf("N3"), plusBox);
}

TEST_F(NavTreePaintTest, ThePlusBecomesAMinusAndAPlusAgain) {
    open("N2");
    EXPECT_EQ(frameOf("N2"), minusBox);
    EXPECT_EQ(frameOf("N3"), plusBox);
    EXPECT_EQ(frameOf("N4"), plusBox) << "on every level";
    tree.collapse(at("N2"));
    EXPECT_EQ(frameOf("N2"), plusBox);
}

TEST_F(NavTreePaintTest, ANodeWithoutChildrenHasNoBox) {
    open("N2");
    for (const auto& line : boxOf("N5")) {
        EXPECT_EQ(line.find('+'), std::string::npos) << line;
        EXPECT_EQ(line.find("###"), std::string::npos) << line;
    }
}

TEST_F(NavTreePaintTest, DottedLinesJoinTheChildrenOfANode) {
    open("N2");
    open("N4");
    open("N3");
    EXPECT_EQ(linesOf("N2", 1), "udr") << "another child follows";
    EXPECT_EQ(linesOf("N3", 1), "ur") << "the last child";
    EXPECT_EQ(linesOf("N4", 2), "udr");
    EXPECT_EQ(linesOf("N5", 2), "ur");
    EXPECT_EQ(linesOf("N7", 3), "ur");
}

TEST_F(NavTreePaintTest, LinesOfUpperLevelsRunPastDeeperNodes) {
    open("N2");
    open("N4");
    open("N3");
    EXPECT_EQ(linesOf("N4", 1), "ud") << "N3 is still to come";
    EXPECT_EQ(linesOf("N7", 1), "ud");
    EXPECT_EQ(linesOf("N7", 2), "ud") << "N5 is still to come";
    EXPECT_EQ(linesOf("N5", 1), "ud");
    EXPECT_EQ(linesOf("N6", 1), "") << "below the last child of the root";
    EXPECT_EQ(linesOf("N6", 2), "ur");
}

TEST_F(NavTreePaintTest, LinesAndBoxesGoAlongWhenTheTreeIsScrolledSideways) {
    for (const auto& node : navs.NewEnum()) node->descriptionIs = std::string(60, 'E');
    tree.Fill(navs);
    for (const auto* key : {"N2", "N4", "N3"}) open(key);
    QCoreApplication::processEvents();
    tree.horizontalScrollBar()->setValue(40);
    ASSERT_EQ(tree.visualRect(at("N4")).left(), 40) << "a level less";
    EXPECT_EQ(linesOf("N4", 1), "udr");
    EXPECT_EQ(linesOf("N7", 1), "ud");
    EXPECT_EQ(linesOf("N7", 2), "ur");
    EXPECT_EQ(linesOf("N6", 1), "ur");
    EXPECT_EQ(frameOf("N4"), minusBox);
}

TEST_F(NavTreePaintTest, EachTextIsPaintedInItsColour) {
    for (const auto& node : navs.NewEnum()) node->descriptionIs = "EFHIL";  // straight strokes
    navs.mLastN = "";
    tree.Fill(navs);
    for (const auto* key : {"N2", "N4", "N3"}) open(key);
    const std::pair<const char*, QColor> colours[] = {{"N1", blackText},
                                                      {"N2", QColor(255, 0, 0)},
                                                      {"N4", QColor(0, 0, 255)},
                                                      {"N7", QColor(0, 64, 0)},
                                                      {"N5", QColor(128, 0, 0)}};
    for (const auto& [key, expected] : colours) {
        const auto place = tree.visualRect(at(key));
        const auto image = tree.viewport()->grab(place.adjusted(18, 0, 0, 0)).toImage();
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) found += image.pixelColor(x, y) == expected ? 1 : 0;
        EXPECT_GT(found, 10) << key;
    }
}

TEST_F(NavTreePaintTest, AMarkupTextIsPaintedAsItStands) {
    navs.Item(2)->descriptionIs = "<b>i</b>";
    navs.Item(3)->descriptionIs = "i";
    tree.Fill(navs);
    EXPECT_GT(tree.sizeHintForIndex(at("N2")).width(), tree.sizeHintForIndex(at("N3")).width() + 20);
}
