// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/ColumnFormat.h"
#include "views/GridRows.h"

namespace {

/// One line for each column: alignment mark, 'caption'.
Rows columnsOf(std::string_view format) {
    Rows printed;
    for (const auto& column : readColumnFormat(format)) {
        std::string mark = "?";
        if (column.alignment == (Qt::AlignRight | Qt::AlignVCenter)) mark = ">";
        if (column.alignment == (Qt::AlignLeft | Qt::AlignVCenter)) mark = "<";
        if (column.alignment == (Qt::AlignHCenter | Qt::AlignVCenter)) mark = "^";
        printed.push_back(mark + " '" + column.caption.toStdString() + "'");
    }
    return printed;
}

std::vector<int> widthsOf(std::string_view format) {
    std::vector<int> widths;
    for (const auto& column : readColumnFormat(format)) widths.push_back(static_cast<int>(column.caption.size()));
    return widths;
}

}  // namespace

TEST(ColumnFormat, ReadsAlignmentAndCaptionOfEachColumn) {
    EXPECT_EQ(columnsOf(">ID |<Text  |^Type"), (Rows{"> 'ID '", "< 'Text  '", "^ 'Type'"}));
    EXPECT_EQ(columnsOf("^ID "), Rows{"^ 'ID '"});
    EXPECT_EQ(columnsOf("<|>|^"), (Rows{"< ''", "> ''", "^ ''"})) << "captions may be empty";
    EXPECT_EQ(columnsOf("< Two words |^Form#"), (Rows{"< ' Two words '", "^ 'Form#'"}));
    EXPECT_EQ(columnsOf(""), Rows());
}

TEST(ColumnFormat, OfTheNodeGridIsThisText) {
    EXPECT_EQ(NavGridRows::format(),
              ">ID |<Description                                                  |^Type|^Parent    |<Query          "
              "       "
              "         |<Parameter     |<Icon              |<Role         ");
}

TEST(ColumnFormat, OfTheParagraphGridIsThisText) {
    EXPECT_EQ(
        WebGridRows::format(),
        "^ID |^XST1|^Seq|<Paragraph Title                                       |<Query                          "
        "   |<Parameter  |^Type|^Form#|<Columns                       ");
}

TEST(ColumnFormat, OfTheNodeGridMakesEightColumns) {
    EXPECT_EQ(columnsOf(NavGridRows::format()),
              (Rows{"> 'ID '", "< 'Description                                                  '", "^ 'Type'",
                    "^ 'Parent    '", "< 'Query                          '", "< 'Parameter     '",
                    "< 'Icon              '", "< 'Role         '"}));
    EXPECT_EQ(widthsOf(NavGridRows::format()), (std::vector{3, 61, 4, 10, 31, 14, 18, 13}));
}

TEST(ColumnFormat, OfTheParagraphGridMakesNineColumns) {
    EXPECT_EQ(columnsOf(WebGridRows::format()),
              (Rows{"^ 'ID '", "^ 'XST1'", "^ 'Seq'", "< 'Paragraph Title                                       '",
                    "< 'Query                             '", "< 'Parameter  '", "^ 'Type'", "^ 'Form#'",
                    "< 'Columns                       '"}));
    EXPECT_EQ(widthsOf(WebGridRows::format()), (std::vector{3, 4, 3, 54, 34, 11, 4, 5, 30}));
}
