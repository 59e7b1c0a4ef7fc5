// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/ColumnFormat.h"
#include "views/GridRows.h"

namespace {

std::shared_ptr<clsWebScheme> makeFullParagraph() {
    auto paragraph = makeParagraph(21, 4, "S", "Orders");
    paragraph->seqNo = 6;
    paragraph->queryIs = "spW_Orders";
    paragraph->parmIs = "Lkey";
    paragraph->formIs = 8;
    paragraph->colsAre = "2:3";
    paragraph->extra = "more";
    return paragraph;
}

Rows cellsOf(const Paragraphs& paragraphs) {
    return cellsOf(WebGridRows(paragraphs), 9);
}

}  // namespace

TEST(WebGridRows, OfNothingAreNone) {
    EXPECT_EQ(WebGridRows().count(), 0U);
    EXPECT_EQ(WebGridRows(Paragraphs()).count(), 0U);
}

TEST(WebGridRows, ShowEachFieldInItsColumn) {
    EXPECT_EQ(cellsOf({makeFullParagraph()}), Rows{"21|4|6|Orders|spW_Orders|Lkey|S|8|2:3"});
}

TEST(WebGridRows, DoNotShowTheExtraField) {
    const WebGridRows rows(Paragraphs{makeFullParagraph()});
    const auto columns = static_cast<int>(readColumnFormat(WebGridRows::format()).size());
    for (int column = 0; column < columns; ++column) EXPECT_NE(rows.cell(0, column), "more") << column;
}

TEST(WebGridRows, AreTheParagraphsGivenInThatOrder) {
    EXPECT_EQ(cellsOf({makeParagraph(9, 3, "H", "nine"), makeParagraph(2, 1, "C", "two"),
                       makeParagraph(5, 3, "X", "five"), makeParagraph(1, 2, "", "one")}),
              (Rows{"9|3|0|nine|||H|0|", "2|1|0|two|||C|0|", "5|3|0|five|||X|0|", "1|2|0|one||||0|"}));
}

TEST(WebGridRows, PassOverParagraphsThatAreMissing) {
    EXPECT_EQ(cellsOf({nullptr, makeParagraph(3, 1), nullptr, nullptr, makeParagraph(2, 1), nullptr}),
              (Rows{"3|1|0||||H|0|", "2|1|0||||H|0|"}));
    EXPECT_EQ(cellsOf({nullptr}), Rows());
}

TEST(WebGridRows, ShowNumbersAsPlainDecimals) {
    auto paragraph = makeParagraph(2147483647, -2147483647 - 1);
    paragraph->seqNo = -7;
    paragraph->formIs = 1000;
    EXPECT_EQ(cellsOf({paragraph}), Rows{"2147483647|-2147483648|-7||||H|1000|"});
}

TEST(WebGridRows, KeepEveryByteOfATextInItsCell) {
    const auto paragraph = makeParagraph(1, 1, "H", std::string_view("\xE4\t|\0<b>", 7));
    EXPECT_EQ(WebGridRows(Paragraphs{paragraph}).cell(0, 3), std::string("\xE4\t|\0<b>", 7));
}

TEST(WebGridRows, AreAllBlack) {
    Paragraphs paragraphs;
    for (const auto* type : {"C", "H", "E", "M", "I", "S", "T", "X", "F", "G", "R", "N"})
        paragraphs.push_back(makeParagraph(1, 1, type));
    EXPECT_EQ(coloursOf(WebGridRows(paragraphs)), Rows(12, "#000000"));
}

TEST(WebGridRows, SayTheirType) {
    Paragraphs paragraphs;
    for (const auto* type : {"C", "H", "E", "M", "I", "S", "T", "X", "", "c", "CC"})
        paragraphs.push_back(makeParagraph(1, 1, type));
    const WebGridRows rows(paragraphs);
    Rows spoken;
    for (std::size_t row = 0; row < rows.count(); ++row) spoken.push_back(rows.spoken(row).toStdString());
    EXPECT_EQ(spoken,
              (Rows{"Bar chart paragraph", "Header paragraph", "Action query paragraph", "Multi-chapter paragraph",
                    "Image header paragraph", "Table paragraph", "Thumbnails paragraph", "Paragraph of unknown type",
                    "Paragraph of unknown type", "Paragraph of unknown type", "Paragraph of unknown type"}));
}

TEST(WebGridRows, TellTheWidthOfTheirNumbers) {
    auto first = makeParagraph(12, 123456);
    auto second = makeParagraph(7, -3);
    first->seqNo = 1;
    second->seqNo = 45678;
    first->formIs = 100;
    const WebGridRows rows(Paragraphs{first, second});
    EXPECT_EQ(rows.widestNumber(0), 2U);
    EXPECT_EQ(rows.widestNumber(1), 6U);
    EXPECT_EQ(rows.widestNumber(2), 5U);
    EXPECT_EQ(rows.widestNumber(7), 3U);
    for (const int texts : {3, 4, 5, 6, 8}) EXPECT_EQ(rows.widestNumber(texts), 0U) << texts;
    EXPECT_EQ(WebGridRows().widestNumber(1), 0U);
}

TEST(WebGridRows, StayAsDrawnWhenAFieldChanges) {
    const auto paragraph = makeFullParagraph();
    const WebGridRows rows(Paragraphs{paragraph});
    paragraph->ID = 99;
    paragraph->XST1 = 98;
    paragraph->seqNo = 97;
    paragraph->formIs = 96;
    paragraph->titleIs = "changed";
    paragraph->queryIs = "";
    paragraph->parmIs = "Text";
    paragraph->typeIs = "H";
    paragraph->colsAre = "All";
    EXPECT_EQ(cellsOf(rows, 9), Rows{"21|4|6|Orders|spW_Orders|Lkey|S|8|2:3"});
    EXPECT_EQ(rows.spoken(0), QStringLiteral("Table paragraph"));
    EXPECT_EQ(rows.widestNumber(0), 2U);
}

TEST(WebGridRows, OutliveTheParagraphs) {
    Paragraphs paragraphs = {makeFullParagraph(), makeParagraph(22, 4, "T", "a title in memory of its own")};
    const WebGridRows rows(paragraphs);
    paragraphs.clear();
    EXPECT_EQ(cellsOf(rows, 9),
              (Rows{"21|4|6|Orders|spW_Orders|Lkey|S|8|2:3", "22|4|0|a title in memory of its own|||T|0|"}));
}

namespace {

struct RowsOfLastFill final : WebGridView {
    void Place(Twips, Twips, Twips, Twips) override {}
    void Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) override { rows = WebGridRows(paragraphs); }
    [[nodiscard]] std::string CurrentText(int) const override { return {}; }
    WebGridRows rows;
};

}  // namespace

TEST(WebGridRows, OutliveTheFileThatTheParagraphsCameFrom) {
    // Large enough to get memory of its own, which goes back to the operating system.
    std::string first;
    std::string second;
    for (int id = 1; id <= 20000; ++id) {
        first += std::to_string(id) + ",3,4,\"first " + std::to_string(id) +
                 "\",\"query\",\"Lkey\",\"S\",8,\"2:3\",\"extra\"\r\n";
        second += std::to_string(id) + ",5,6,\"SECOND\",\"QUERY\",\"Text\",\"H\",0,\"All\",\"\"\r\n";
    }
    clsWebSchemes webs;
    loadBytes(webs, first);
    ASSERT_EQ(webs.Count(), 20000);
    RowsOfLastFill grid;
    webs.SetGrid(grid, 0, 0, 0, 0);
    webs.DispInGrid(0);
    loadBytes(webs, second);
    ASSERT_EQ(webs.Item(20000)->titleIs, "SECOND");
    const auto cells = cellsOf(grid.rows, 9);
    ASSERT_EQ(cells.size(), 20000U);
    EXPECT_EQ(cells.front(), "1|3|4|first 1|query|Lkey|S|8|2:3");
    EXPECT_EQ(cells.back(), "20000|3|4|first 20000|query|Lkey|S|8|2:3");
}
