// SPDX-License-Identifier: MIT
#include "preview/Html.h"

#include "tests/preview/Made.h"

namespace {

std::string escaped(std::string_view text) {
    Html html;
    html << Escaped(text);
    return html.text();
}

const std::string no = "\xEF\xBF\xBD";

}  // namespace

TEST(PreviewHtml, EscapesWhatMarkupIsMadeOf) {
    EXPECT_EQ(escaped("<b title=\"x\">Tom & Ann's</b>"),
              "&lt;b title=&quot;x&quot;&gt;Tom &amp; Ann&#39;s&lt;/b&gt;");
    EXPECT_EQ(escaped("&amp;"), "&amp;amp;");
    EXPECT_EQ(escaped(""), "");
    EXPECT_EQ(escaped("plain"), "plain");
}

TEST(PreviewHtml, KeepsLinesAndCharactersOfAllLengths) {
    EXPECT_EQ(escaped("a\tb\nc\r\nd"), "a\tb\nc\nd");
    EXPECT_EQ(escaped("caf\u00E9 \u20AC \U0001F6B2"), "caf\u00E9 \u20AC \U0001F6B2");
    EXPECT_EQ(escaped("\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"), "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(PreviewHtml, ReplacesWhatNoPageCanHold) {
    EXPECT_EQ(escaped(std::string_view("a\0b", 3)), "a" + no + "b");
    EXPECT_EQ(escaped("\x1B[2J\x7F"), no + "[2J" + no);
    EXPECT_EQ(escaped("\r"), no);
    EXPECT_EQ(escaped("\xC2\x85"), no + no) << "a control character beyond ASCII";
    EXPECT_EQ(escaped("\xFF"), no);
    EXPECT_EQ(escaped("\xC0\xAF"), no + no) << "a slash in too many bytes";
    EXPECT_EQ(escaped("\xED\xA0\x80"), no + no + no) << "half of a pair";
    EXPECT_EQ(escaped("\xF4\x90\x80\x80"), no + no + no + no) << "beyond the last character";
    EXPECT_EQ(escaped("\xE2\x82"), no + no) << "an unfinished character";
    EXPECT_EQ(escaped("\xE2\x82<"), no + no + "&lt;") << "which does not hide what follows it";
}

TEST(PreviewHtml, KeepsWhatTheProgramItselfWrites) {
    Html html;
    html << "<p>" << Escaped("<p>") << Html("<br>") << "</p>";
    EXPECT_EQ(html.text(), "<p>&lt;p&gt;<br></p>");
}

TEST(PreviewHtml, WritesNumbersForReaders) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1048576), "1,048,576");
    EXPECT_EQ(counted(1, "row", "rows"), "1 row");
    EXPECT_EQ(counted(0, "row", "rows"), "0 rows");
    EXPECT_EQ(counted(2000, "row", "rows"), "2,000 rows");
}

TEST(PreviewHtml, CutsBetweenCharacters) {
    EXPECT_EQ(beginningOf("abc", 3), "abc");
    EXPECT_EQ(beginningOf("abcd", 3), "abc");
    EXPECT_EQ(beginningOf("ab\u20AC", 4), "ab");
    EXPECT_EQ(beginningOf("ab\u20ACc", 5), "ab\u20AC");
}
