// SPDX-License-Identifier: MIT
#include "preview/ColumnsField.h"

#include "tests/preview/Made.h"

namespace {

using Numbers = std::vector<std::size_t>;

std::string chartsIn(std::string_view columns, std::size_t count) {
    std::string all;
    for (const auto& axes : chartsOf(readColumns(columns), count))
        all += (all.empty() ? "" : " ") + std::to_string(axes.labels) + ":" + std::to_string(axes.values);
    return all;
}

// Height, width, columns, place of the text, and the notes.
std::string layoutIn(std::string_view columns) {
    const auto layout = readThumbnailLayout(columns);
    auto all = std::to_string(layout.height) + " " + std::to_string(layout.width) + " " +
               std::to_string(layout.columns) + (layout.isTextOnRight ? " right" : " bottom");
    for (const auto& note : layout.notes) all += "|" + note;
    return all;
}

}  // namespace

TEST(PreviewColumns, AreNumbersOrAll) {
    EXPECT_EQ(readColumns("2:3").numbers, Numbers({2, 3}));
    EXPECT_EQ(readColumns(" 0 ").numbers, Numbers({0}));
    EXPECT_TRUE(readColumns("All").isAll);
    EXPECT_TRUE(readColumns("ALL").isAll);
    for (const auto* text : {"", "a", "1:", ":1", "1::2", "-1", "1.5", "All:1", "99999999999999999999"})
        EXPECT_FALSE(readColumns(text).isReadable) << text;
}

TEST(PreviewColumns, SumThoseListedOrAllButTheId) {
    EXPECT_EQ(summedColumns(readColumns("3:1"), 5), Numbers({1, 3}));
    EXPECT_EQ(summedColumns(readColumns("0:9"), 5), Numbers({0}));
    EXPECT_EQ(summedColumns(readColumns("All"), 4), Numbers({1, 2, 3}));
    EXPECT_EQ(summedColumns(readColumns(""), 4), Numbers());
}

TEST(PreviewColumns, DrawEachColumnAgainstTheLabels) {
    EXPECT_EQ(chartsIn("1:5", 9), "1:5");
    EXPECT_EQ(chartsIn("All", 5), "1:2 1:3 1:4");
    EXPECT_EQ(chartsIn("1:2:4", 5), "") << "X:Y has two numbers";
    EXPECT_EQ(chartsIn("3", 5), "");
    EXPECT_EQ(chartsIn("All", 2), "");
}

TEST(PreviewColumns, LayOutThumbnails) {
    EXPECT_EQ(
        layoutIn("<height>120</height> <width>160</width> <columns>5</columns> <textposition>right</textposition>"),
        "120 160 5 right");
    EXPECT_EQ(
        layoutIn("<TextPosition>Bottom</TextPosition><columns> 2 </columns><width>90</width><height>30</height>"),
        "30 90 2 bottom");
    EXPECT_EQ(layoutIn("<height>9</height><width>8</width><columns>1</columns><textposition>botton</textposition>"),
              "9 8 1 bottom")
        << "as the help of the field spells it";
}

TEST(PreviewColumns, TakeDefaultsForWhatALayoutDoesNotSay) {
    EXPECT_EQ(layoutIn(""),
              "150 150 4 bottom|The layout does not say: height, width, columns, textposition. It is taken "
              "as 150 pixels high, 150 wide, in 4 columns, with the text below.");
    EXPECT_EQ(
        layoutIn("<height>99</height> <width>8"),
        "99 150 4 bottom|The layout cannot be read from \"<width>8\" on.|The layout does not say: width, columns, "
        "textposition. It is taken as 99 pixels high, 150 wide, in 4 columns, with the text below.");
    EXPECT_EQ(
        layoutIn("<height>big</height><width>5000</width><columns>0</columns><textposition>left</textposition>"),
        "150 150 4 bottom|The layout has the height \"big\", which is no number from 8 to 2000: 150 is taken.|"
        "The layout has the width \"5000\", which is no number from 8 to 2000: 150 is taken.|"
        "The layout has the columns \"0\", which is no number from 1 to 20: 4 is taken.|"
        "The layout has the textposition \"left\", which is neither bottom nor right: bottom is taken.");
    EXPECT_EQ(layoutIn("<height>9</height><width>9</width><columns>1</columns><textposition>right</textposition>"
                       "<border>1</border>"),
              "9 9 1 right|The layout has <border>, which means nothing.");
}
