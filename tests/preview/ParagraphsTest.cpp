// SPDX-License-Identifier: MIT
#include "preview/Paragraphs.h"

#include "tests/preview/Made.h"

// What each type of paragraph makes of the result of its query.

namespace {

std::string shown(const MadeParagraph& paragraph) {
    Pictures pictures(countedNames());
    pictures.beginPage("");
    const auto page = shownPage({.clicked = {"24", "Node", true}, .paragraphs = {paragraph.paragraph}}, pictures);
    return between(page.text(), "<h2>Title</h2>", "<details>");
}

std::string shown(const Text& type, const Text& columns, QueryResult result) {
    return shown(MadeParagraph(type, columns, std::move(result)));
}

const std::string tableStart = "<div class=wide><table class=rows><thead><tr>";
const std::string tableEnd = "</table></div>";

QueryResult items() {
    return made({"ID", "Item", "Quantity", "Charge"},
                {{number("374"), text("CTL 067"), number("1"), number("42.0")},
                 {number("481"), text("Child seat"), number("2"), number("1.25")},
                 {number("482"), null, null, null}});
}

}  // namespace

// --- S ---

TEST(PreviewTable, ShowsAllFieldsAndTheSumsOfItsColumns) {
    EXPECT_EQ(shown("S", "2:3", items()),
              tableStart +
                  "<th scope=col class=n>ID</th><th scope=col>Item</th><th scope=col class=n>Quantity</th>"
                  "<th scope=col class=n>Charge</th></tr></thead><tbody>"
                  "<tr><td class=n>374</td><td>CTL 067</td><td class=n>1</td><td class=n>42.00</td></tr>\n"
                  "<tr><td class=n>481</td><td>Child seat</td><td class=n>2</td><td class=n>1.25</td></tr>\n"
                  "<tr><td class=n>482</td><td></td><td class=n></td><td class=n></td></tr>\n"
                  "</tbody><tfoot><tr><th scope=row>Sum</th><td></td><td class=n>3</td><td class=n>43.25</td></tr>"
                  "</tfoot>" +
                  tableEnd);
}

TEST(PreviewTable, SumsAllButTheIdOfACrossTab) {
    const auto html = shown(
        "S", "All",
        made({"ID", "Mon", "Tue"}, {{text("AK"), number("8"), number("0")}, {text("BM"), number("6"), number("7")}}));
    EXPECT_EQ(between(html, "<tfoot>", "</tfoot>"),
              "<tr><th scope=row>Sum</th><td class=n>14</td><td class=n>7</td></tr>");
}

TEST(PreviewTable, SumsTheIdWhereItIsTold) {
    const auto html = shown("S", "0", made({"ID"}, {{number("3")}, {number("4")}}));
    EXPECT_EQ(between(html, "<tfoot>", "</tfoot>"), "<tr><td class=n>7</td></tr>");
}

TEST(PreviewTable, SumsNothingWithoutColumns) {
    EXPECT_EQ(shown("S", "", items()).find("<tfoot>"), std::string::npos);
    EXPECT_EQ(shown("S", "", items()).find("class=note"), std::string::npos);
}

TEST(PreviewTable, SaysWhatCannotBeSummed) {
    EXPECT_NE(
        shown("S", "1", items()).find("<p class=note>The sum of Item leaves out 2 values that are no numbers.</p>"),
        std::string::npos);
    EXPECT_NE(shown("S", "2:9", items())
                  .find("<p class=note>There is no column 9: the query gives 4 columns, numbered from 0.</p>"),
              std::string::npos);
    EXPECT_NE(shown("S", "2,3", items())
                  .find("<p class=note>Columns are numbers with colons between them, or All: nothing is summed.</p>"),
              std::string::npos);
}

TEST(PreviewTable, SaysThatThereAreNoRowsOrMore) {
    auto none = items();
    none.rows.clear();
    none.total = 0;
    const auto html = shown("S", "2:3", std::move(none));
    EXPECT_EQ(html.find("<tfoot>"), std::string::npos);
    EXPECT_TRUE(html.ends_with(tableEnd + "<p class=note>The query returned no rows.</p>"));
    auto many = items();
    many.total = 1'000'000;
    EXPECT_TRUE(shown("S", "2:3", std::move(many))
                    .ends_with(tableEnd + "<p class=note>These are the first 3 rows of 1,000,000.</p>"
                                          "<p class=note>The sums are those of the rows that are shown.</p>"));
}

TEST(PreviewTable, AlignsAColumnOfNumbersOnly) {
    const auto html = shown("S", "",
                            made({"ID", "Mixed", "Year", "Share", "Blob"},
                                 {{number("1"), number("2"), text("2026"), number("0.333333"), bytes("abc")},
                                  {number("2"), text("x"), text("2025"), number("12"), null}}));
    EXPECT_EQ(between(html, "<tbody>", "</tbody>"),
              "<tr><td class=n>1</td><td>2</td><td>2026</td><td class=n>0.333333</td><td>(3 bytes)</td></tr>\n"
              "<tr><td class=n>2</td><td>x</td><td>2025</td><td class=n>12</td><td></td></tr>\n");
}

// --- C ---

TEST(PreviewChart, DrawsABarForEachRow) {
    const auto html =
        shown("C", "1:2",
              made({"ID", "Hour", "Out", "Back"}, {{number("9"), text("9:00"), number("3"), number("0")},
                                                   {number("10"), text("10:00"), number("7"), number("1")},
                                                   {number("11"), text("11:00 to noon"), number("0"), number("2")},
                                                   {number("12"), text("12:00-13:00."), null, number("2")}}));
    EXPECT_EQ(html,
              "<table class=bars><caption>Out by Hour</caption><tbody>"
              "<tr><th scope=row class=short>9:00</th><td><span class=\"bar t4 o2 p9\"></span><span "
              "class=value>3</span></td></tr>\n"
              "<tr><th scope=row class=short>10:00</th><td><span class=\"bar t10 o0 p0\"></span><span "
              "class=value>7</span></td></tr>\n"
              "<tr><th scope=row>11:00 to noon</th><td><span class=\"bar t0 o0 p0\"></span><span "
              "class=value>0</span></td></tr>\n"
              "<tr><th scope=row class=short>12:00-13:00.</th><td><span class=value></span></td></tr>\n"
              "</tbody></table>");
}

// The classes say the tens, ones and tenths of the percentage.
TEST(PreviewChart, DrawsBarsOfAnyLength) {
    std::vector<std::vector<Cell>> rows;
    for (int permille = 1; permille <= 1000; ++permille)
        rows.push_back({number("1"), text("x"), number(std::to_string(permille))});
    const auto html = shown("C", "1:2", made({"ID", "Label", "Height"}, std::move(rows)));
    for (int permille = 1; permille < 1000; ++permille) {
        const auto digits = std::to_string(permille + 1000);
        const auto bar = std::string("bar t") + digits[1] + " o" + digits[2] + " p" + digits[3] +
                         "\"></span><span class=value>" + std::to_string(permille) + "<";
        ASSERT_NE(html.find(bar), std::string::npos) << bar;
    }
}

TEST(PreviewChart, DrawsEachColumnAgainstTheFirstForAll) {
    const auto html = shown(
        "C", "All", made({"ID", "Hour", "Out", "Back"}, {{number("9"), text("9:00"), number("1"), number("0")}}));
    const auto second = html.find("<caption>Back by Hour</caption>");
    EXPECT_LT(html.find("<caption>Out by Hour</caption>"), second);
    EXPECT_NE(second, std::string::npos);
    EXPECT_EQ(html.find("ID"), std::string::npos);
    EXPECT_NE(html.find("<td><span class=value>0</span></td>"), std::string::npos) << "nothing to compare with";
}

TEST(PreviewChart, ShowsValuesBelowNought) {
    const auto html =
        shown("C", "0:1", made({"ID", "Profit"}, {{number("1"), number("-50")}, {number("2"), number("40")}}));
    EXPECT_NE(html.find("<span class=\"bar below t10 o0 p0\"></span><span class=value>-50</span>"),
              std::string::npos);
    EXPECT_NE(html.find("<span class=\"bar t8 o0 p0\"></span><span class=value>40</span>"), std::string::npos);
}

TEST(PreviewChart, SaysWhatItCannotDraw) {
    const auto some = made({"ID", "Hour"}, {{number("1"), text("9:00")}});
    const std::string nothing =
        "<p class=note>There is nothing to draw: a chart needs its columns as X:Y, the number of "
        "the column with the labels and that of the column with the heights, or All.</p>";
    EXPECT_EQ(shown("C", "", some), nothing);
    EXPECT_EQ(shown("C", "3", some), nothing);
    EXPECT_EQ(shown("C", "1:4", some),
              "<p class=note>There is no column 4: the query gives 2 columns, numbered from 0.</p>");
    EXPECT_NE(shown("C", "0:1", some).find("<p class=note>1 value is no number and has no bar.</p>"),
              std::string::npos);
    EXPECT_NE(shown("C", "0:1", made({"ID", "Hour"}, {})).find("<p class=note>The query returned no rows.</p>"),
              std::string::npos);
}

// --- H and I ---

TEST(PreviewHeader, ShowsNamesAndValuesOfTheFirstRowButForTheId) {
    EXPECT_EQ(shown("H", "", made({"ID", "Customer", "Club"}, {{number("24"), text("Abbott, Jonas"), null}})),
              "<div class=record><dl><div><dt>Customer</dt><dd>Abbott, Jonas</dd></div>"
              "<div><dt>Club</dt><dd></dd></div></dl></div>");
}

TEST(PreviewHeader, SaysThatThereIsNoRowOrMoreThanOne) {
    EXPECT_EQ(shown("H", "", made({"ID", "Name"}, {})), "<p class=note>The query returned no rows.</p>");
    EXPECT_TRUE(shown("H", "", made({"ID", "Name"}, {{number("1"), text("a")}, {number("2"), text("b")}}))
                    .ends_with("<p class=note>The query returned 2 rows: a header shows the first.</p>"));
}

TEST(PreviewHeader, LinksToItsFormAndSaysWhatThatWouldOpen) {
    MadeParagraph paragraph("H", "", made({"ID", "Name"}, {{number("24"), text("a")}}));
    paragraph.record.formIs = 3;
    EXPECT_TRUE(shown(paragraph).ends_with(
        "</div><p class=form><a href=\"#form-7\" aria-describedby=\"form-7\">Form 3</a> <span id=\"form-7\">In Pelmo "
        "this "
        "link opens data-entry form 3 of your application, for the ID 24. Here it opens nothing.</span></p>"));
}

TEST(PreviewHeader, ShowsThePictureOfTheDatabase) {
    const auto withPicture = [](std::string name, Cell picture) {
        return made({"ID", "Part", std::move(name)}, {{number("34"), text("Brake pad"), std::move(picture)}});
    };
    const std::string record = "<div class=record><dl><div><dt>Part</dt><dd>Brake pad</dd></div></dl>";
    EXPECT_EQ(shown("I", "", withPicture("IMGPart", bytes(gif))),
              record + "<img class=head src=\"picture/name1\" alt=\"IMGPart\"></div>");
    EXPECT_EQ(shown("I", "", withPicture("imgpart", bytes(gif))),
              record + "<img class=head src=\"picture/name1\" alt=\"imgpart\"></div>")
        << "as PostgreSQL writes names without quotes";
    EXPECT_EQ(shown("I", "", withPicture("IMGPart", bytes("text"))),
              record +
                  "<p class=note>The field IMGPart (4 bytes) is not shown: it is no picture of type GIF, PNG, JPEG, "
                  "WebP, AVIF or BMP.</p></div>");
    EXPECT_EQ(shown("I", "", withPicture("IMGPart", null)),
              record + "<p class=note>The field IMGPart is empty: there is no picture.</p></div>");
    EXPECT_TRUE(
        shown("I", "", withPicture("Picture", bytes(gif)))
            .ends_with("<div><dt>Picture</dt><dd>(15 bytes)</dd></div></dl></div><p class=note>No field of the "
                       "query has a name that begins with IMG, and so there is no picture.</p>"));
    EXPECT_EQ(shown("H", "", withPicture("IMGPart", bytes(gif))).find("<img"), std::string::npos);
    EXPECT_EQ(shown("I", "", made({"ID", "IMGPart", "Part"}, {{number("34"), bytes(gif), text("Brake pad")}})),
              record + "<img class=head src=\"picture/name1\" alt=\"IMGPart\"></div>")
        << "the fields after the picture";
}

// --- M ---

TEST(PreviewChapters, ShowEachOuterRowOnceWithItsChapter) {
    EXPECT_EQ(shown("M", "",
                    made({"ID", "Ordered", "Paid", "Part", "Quantity"},
                         {{number("4033"), text("2026-02-03"), text("No"), text("Lamp"), number("18")},
                          {number("4033"), text("2026-02-03"), text("No"), text("Cable"), number("5")},
                          {number("4027"), text("2025-12-05"), text("Yes"), text("Cable"), number("12")}})),
              "<div class=wide><table class=chapters><thead>"
              "<tr><th scope=col colspan=2>ID, Ordered, Paid</th></tr>"
              "<tr><th scope=col>Part</th><th scope=col class=n>Quantity</th></tr></thead>"
              "<tbody><tr><th scope=rowgroup colspan=2>4033, 2026-02-03, No</th></tr>\n"
              "<tr><td>Lamp</td><td class=n>18</td></tr>\n<tr><td>Cable</td><td class=n>5</td></tr>\n"
              "</tbody><tbody><tr><th scope=rowgroup colspan=2>4027, 2025-12-05, Yes</th></tr>\n"
              "<tr><td>Cable</td><td class=n>12</td></tr>\n</tbody></table></div>");
}

TEST(PreviewChapters, TellOuterFieldsByWhatStaysTheSameWithTheId) {
    const auto outer = [](std::vector<std::vector<Cell>> rows) {
        std::vector<std::string> fields(rows.at(0).size(), "F");
        return outerFields(made(std::move(fields), std::move(rows)));
    };
    const auto one = number("1");
    const auto two = number("2");
    EXPECT_EQ(outer({{one, text("a"), text("x"), text("p")}, {one, text("a"), text("y"), text("p")}}), 2U);
    EXPECT_EQ(outer({{one, text("a"), text("x"), text("p")},
                     {one, text("a"), text("x"), text("q")},
                     {two, text("b"), text("x"), text("p")},
                     {two, text("b"), text("y"), text("p")}}),
              2U)
        << "two lines of one chapter may begin alike";
    EXPECT_EQ(outer({{one, text("a"), text("x")}, {two, text("b"), text("y")}}), 0U) << "nothing tells";
    EXPECT_EQ(outer({{one, text("a"), text("x")}, {one, text("a"), text("x")}}), 0U);
    EXPECT_EQ(outer({{one, text("x")}, {one, null}}), 1U);
    EXPECT_EQ(outer({{one, text("a"), text("x"), one}, {two, text("b"), null, null}}), 2U)
        << "the empty fields at the end of a row without a chapter";
    EXPECT_EQ(outer({{one, null, null}, {two, text("b"), one}}), 1U) << "the ID is always an outer field";
    EXPECT_EQ(outer({{one, text("a"), text("x"), one}, {one, text("a"), text("y"), one}, {two, null, null, null}}),
              2U)
        << "repeated IDs tell more than empty fields";
}

TEST(PreviewChapters, ShowAnOuterRowWithoutLines) {
    const auto html = shown(
        "M", "",
        made({"ID", "Hire", "Extra"}, {{number("2"), text("b"), text("Trailer")}, {number("1"), text("a"), null}}));
    EXPECT_TRUE(
        html.ends_with("<tr><td>Trailer</td></tr>\n</tbody>"
                       "<tbody><tr><th scope=rowgroup colspan=1>1, a</th></tr>\n</tbody></table></div>"));
}

TEST(PreviewChapters, AreATableWhereNothingTellsTheirFields) {
    const auto html = shown("M", "", made({"ID", "A"}, {{number("1"), text("a")}, {number("2"), text("b")}}));
    EXPECT_TRUE(html.starts_with(tableStart));
    EXPECT_TRUE(
        html.ends_with("<p class=note>No ID is repeated, so nothing tells the fields of the outer table from those "
                       "of its chapters: all are shown side by side.</p>"));
    EXPECT_TRUE(
        shown("M", "", made({"ID", "A"}, {})).ends_with(tableEnd + "<p class=note>The query returned no rows.</p>"));
}

// --- T ---

TEST(PreviewThumbnails, ShowThePicturesOfTheFiles) {
    const TempFolder folder;
    const auto path = writeBytes(folder / "a.gif", gif).string();
    EXPECT_EQ(
        shown("T", "<height>80</height><width>90</width><columns>3</columns><textposition>bottom</textposition>",
              made({"ID", "Moment", "FILEJob", "By"}, {{number("1"), text("before"), text(path), text("Dale")},
                                                       {number("2"), text("after"), text("/missing/<b>.jpg"), null},
                                                       {number("3"), text("later"), null, null}})),
        "<ul class=\"thumbnails c3\">"
        "<li><img src=\"picture/name1\" alt=\"before, Dale\" width=90 height=80><span>before, Dale</span></li>\n"
        "<li><span class=none title=\"/missing/&lt;b&gt;.jpg\">there is no such file: "
        "&lt;b&gt;.jpg</span><span>after</span></li>\n"
        "<li><span class=none title=\"\">there is no path</span><span>later</span></li>\n</ul>");
}

TEST(PreviewThumbnails, HaveTheirTextOnTheRightIfTheLayoutSaysSo) {
    const auto html =
        shown("T", "<height>8</height><width>8</width><columns>20</columns><textposition>right</textposition>",
              made({"ID", "FILE"}, {{number("1"), text("x")}}));
    EXPECT_TRUE(html.starts_with("<ul class=\"thumbnails c20 right\">")) << html;
}

TEST(PreviewThumbnails, HaveOneToTwentyColumns) {
    for (int columns = 1; columns <= 20; ++columns) {
        const auto layout = "<height>8</height><width>8</width><columns>" + std::to_string(columns) +
                            "</columns><textposition>bottom</textposition>";
        const auto html = shown("T", Text(layout), made({"ID", "FILE"}, {{number("1"), text("x")}}));
        EXPECT_TRUE(html.starts_with("<ul class=\"thumbnails c" + std::to_string(columns) + "\">")) << html;
    }
}

TEST(PreviewThumbnails, SayWhatIsMissing) {
    EXPECT_EQ(
        shown("T", "<height>8</height><width>8</width><columns>2</columns><textposition>right</textposition>",
              made({"ID", "Path"}, {{number("1"), text("x")}})),
        "<p class=note>No field of the query has a name that begins with FILE, and so there are no pictures.</p>");
    EXPECT_TRUE(
        shown("T", "", made({"ID", "FILE"}, {}))
            .ends_with("<p class=note>The layout does not say: height, width, columns, textposition. It is taken as "
                       "150 pixels high, 150 wide, in 4 columns, with the text below.</p>"));
}
