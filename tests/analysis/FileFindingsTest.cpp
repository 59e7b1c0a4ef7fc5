// SPDX-License-Identifier: MIT
#include "analysis/FileFindings.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>

#include "tests/model/Helpers.h"

using namespace std::string_literals;

namespace {

const std::string navHeader = R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")";
const std::string webHeader =
    R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")";

// "2/4 not-a-number: words": the line and the field, both from 1.
Rows printed(const FileFindings& findings) {
    Rows rows;
    for (const auto& finding : findings)
        rows.push_back(std::to_string(finding.line) + "/" + std::to_string(finding.field + 1) + " " +
                       std::string(finding.flaw->id) + ": " + finding.words());
    return rows;
}

Rows inNode(const std::string& line) {
    return printed(scanFile(navTable, line).findings);
}
Rows inParagraph(const std::string& line) {
    return printed(scanFile(webTable, line).findings);
}

// The findings in the tree of these nodes, given as ID and parent; each has the line of its place.
Rows inTree(std::initializer_list<std::pair<std::int32_t, std::int32_t>> nodes) {
    clsNavSchemes navs;
    addNodes(navs, nodes);
    std::vector<std::uint32_t> lines;
    for (std::uint32_t line = 1; line <= nodes.size(); ++line) lines.push_back(line);
    return printed(findInTree(navs, lines));
}

}  // namespace

TEST(ScanFile, FindsNothingInWhatTheWizardSaves) {
    EXPECT_EQ(inNode(bytesOf(SAMPLES "/XST1.txt")), Rows());
    EXPECT_EQ(inParagraph(bytesOf(SAMPLES "/XST2.txt")), Rows());
    EXPECT_EQ(inNode(""), Rows());
    EXPECT_EQ(inNode(navHeader), Rows());
    EXPECT_EQ(inNode(navHeader + "\r\n1,\"a\",\"F\",0,\"\",\"\",\"\",\"\"\r\n"), Rows());
}

TEST(ScanFile, KnowsTheHeaders) {
    EXPECT_EQ(navTable.header(), navHeader);
    EXPECT_EQ(webTable.header(), webHeader);
    EXPECT_EQ(navTable.name, "XST1");
    EXPECT_EQ(webTable.name, "XST2");
}

TEST(ScanFile, ReportsLinesThatArePassedOver) {
    const std::string words = " passed-over: the line does not begin with a digit; it is passed over";
    EXPECT_EQ(inNode("ID,no header\n\n   \n-1,\"a\",\"F\",0,\"\",\"\",\"\",\"\"\n\"7\",x"),
              Rows({"1/0" + words, "4/0" + words, "5/0" + words}));
    EXPECT_EQ(inNode("\n" + navHeader), Rows({"2/0" + words})) << "the header is the first line";
    EXPECT_EQ(inNode(webHeader), Rows({"1/0" + words})) << "that of the other table";
    EXPECT_EQ(inNode("\xEF\xBB\xBF" + navHeader), Rows({"1/0" + words}));
}

TEST(ScanFile, CountsEveryEndOfALine) {
    const std::string words = " passed-over: the line does not begin with a digit; it is passed over";
    EXPECT_EQ(inNode("\r\nx\r\n\rx\n\nx\n\rx"), Rows({"2/0" + words, "4/0" + words, "6/0" + words, "8/0" + words}));
}

TEST(ScanFile, ReportsIDsThatAreTaken) {
    const auto scanned = scanFile(navTable,
                                  "7,a,F,0,,,,\n"
                                  "8,b,N,7,,,,\n"
                                  "07,c,N,8,,,,\n"
                                  "9,d,N,7,,,,\n"
                                  "8,e,N,7,,,,");
    EXPECT_EQ(printed(scanned.findings), Rows({"3/1 twin-id: the ID is taken by line 1; this record is dropped",
                                               "5/1 twin-id: the ID is taken by line 2; this record is dropped"}));
    EXPECT_EQ(scanned.lines, (LargeArray<std::uint32_t>{1, 2, 4}));
}

TEST(ScanFile, ReportsCommasInTexts) {
    EXPECT_EQ(inNode(R"(1,"a, b","F",0,"","","leaf","")"),
              Rows({"1/2 comma: a comma in the text shifts all fields after it"}));
    EXPECT_EQ(inNode(R"(1,"a","G",0,"spG_A 1,2","Lkey","leaf","")"),
              Rows({"1/5 comma: a comma in the text shifts all fields after it"}));
    EXPECT_EQ(inNode(R"(1,"say "a, b","F",0,"","","leaf","")"),
              Rows({"1/2 comma: a comma in the text shifts all fields after it"}));
    EXPECT_EQ(inParagraph(R"(1,1,1,"a","spW_A","","S",0,"1,2","")"),
              Rows({"1/9 comma: a comma in the text shifts all fields after it"}));
}

TEST(ScanFile, CountsTheFieldsOfALine) {
    EXPECT_EQ(
        inNode("1,a,F,0,,,,,"),
        Rows({"1/0 too-many-fields: there are 9 fields in the line; a comma in a text shifts all fields after it"}));
    EXPECT_EQ(inNode("1,a,F,0,,,"),
              Rows({"1/0 too-few-fields: there are only 7 fields in the line; the others will be empty"}));
    EXPECT_EQ(
        inParagraph("1,1,1,a,b,,S,0,All,,x,y"),
        Rows({"1/0 too-many-fields: there are 12 fields in the line; a comma in a text shifts all fields after it"}));
    EXPECT_EQ(inParagraph("1,1,1,a,b,,S,0,All"),
              Rows({"1/0 too-few-fields: there are only 9 fields in the line; the others will be empty"}));
}

TEST(ScanFile, KnowsTheTypesOfEachTable) {
    for (const char* type : {"F", "G", "R", "N"}) EXPECT_EQ(inNode("1,a,"s + type + ",0,,,,"), Rows()) << type;
    for (const char* type : {"C", "H", "E", "M", "I", "S", "T"})
        EXPECT_EQ(inParagraph("1,1,1,a,b,,"s + type + ",0,All,"), Rows()) << type;
    for (const auto& type : {"f"s, "S"s, ""s, "FG"s, " F"s})
        EXPECT_EQ(inNode("1,a," + type + ",0,,,,"),
                  Rows({"1/3 unknown-type: \"" + type + "\" is not a type of this table"}));
    for (const auto& type : {"F"s, "s"s, ""s})
        EXPECT_EQ(inParagraph("1,1,1,a,b,," + type + ",0,,"),
                  Rows({"1/7 unknown-type: \"" + type + "\" is not a type of this table"}));
}

TEST(ScanFile, ReportsQuotesThatWillBeLost) {
    const std::string words = " quote: a quote in the text will be lost";
    EXPECT_EQ(inNode(R"(1,"say "hi"","F",0,"","","leaf","")"), Rows({"1/2" + words}));
    EXPECT_EQ(inNode(R"(1,5" pipe,"F",0,"","","leaf","")"), Rows({"1/2" + words}));
    EXPECT_EQ(inNode(R"(1,"a" ,"F",0,"","","leaf","x)"), Rows({"1/2" + words, "1/8" + words}));
    EXPECT_EQ(inNode(R"("1",a)"), Rows({"1/0 passed-over: the line does not begin with a digit; it is passed over"}));
    EXPECT_EQ(inParagraph(R"(1,"1",1,"a","b","","S","0","All","")"), Rows()) << "those around numbers do not matter";
}

TEST(ScanFile, ReportsTextsThatANodeDoesNotKeep) {
    const std::string words = " dropped-text: nodes of this type have neither query nor parameter; ";
    EXPECT_EQ(inNode(R"(1,"a","F",0,"spG_A","Lkey","","")"),
              Rows({"1/5" + words + "\"spG_A\" will be lost", "1/6" + words + "\"Lkey\" will be lost"}));
    EXPECT_EQ(inNode(R"(1,"a","N",0,"","nonsense","","")"), Rows({"1/6" + words + "\"nonsense\" will be lost"}));
    EXPECT_EQ(inNode(R"(1,"a","G",0,"spG_A","Lkey","","")"), Rows());
    EXPECT_EQ(inParagraph(R"(1,1,1,"a","spW_A","Lkey","H",0,"","")"), Rows());
}

TEST(ScanFile, ReportsWhatIsNotANumber) {
    const auto no = [](const std::string& text) {
        return " not-a-number: \"" + text + "\" is not a 32-bit number; it is read as 0";
    };
    EXPECT_EQ(inNode("1x,a,F,,,,,"), Rows({"1/1" + no("1x"), "1/4" + no("")}));
    EXPECT_EQ(inNode("2147483648,a,F,-2147483649,,,,"), Rows({"1/1" + no("2147483648"), "1/4" + no("-2147483649")}));
    EXPECT_EQ(inNode("2147483647,a,F,-2147483648,,,,"), Rows());
    EXPECT_EQ(inParagraph("1,a,b,t,q,,S,c,All,"), Rows({"1/2" + no("a"), "1/3" + no("b"), "1/8" + no("c")}));
    EXPECT_EQ(inNode("1.5,a,F,-0.25,,,,"), Rows({"1/1 rounded: \"1.5\" is rounded to a whole number",
                                                 "1/4 rounded: \"-0.25\" is rounded to a whole number"}));
    EXPECT_EQ(inNode(" 007,a,F, +3 ,,,,"), Rows());
}

TEST(ScanFile, ReportsParametersThatNothingReads) {
    for (const auto& kind : {""s, " "s, "Lkey"s, "CKey05"s, "Text"s, "Today"s, " lk"s, "ckey5"s})
        EXPECT_EQ(inNode("1,a,G,0,q," + kind + ",,"), Rows()) << kind;
    for (const auto& kind : {"None"s, "Key"s, "L"s, "\xE9"s}) {
        const auto words = " unknown-parameter: \"" + kind + "\" is not a known kind of parameter";
        EXPECT_EQ(inNode("1,a,R,0,q," + kind + ",,"), Rows({"1/6" + words}));
        EXPECT_EQ(inParagraph("1,1,1,a,b," + kind + ",S,0,All,"), Rows({"1/6" + words}));
    }
}

TEST(ScanFile, ReportsBytesThatStandForNoCharacter) {
    EXPECT_EQ(inNode("1,a\x81\x8D,F,0,,,\x8F,\"\x90\""),
              Rows({"1/2 free-byte: the byte 81 is not a character of the code page",
                    "1/7 free-byte: the byte 8F is not a character of the code page",
                    "1/8 free-byte: the byte 90 is not a character of the code page"}));
    EXPECT_EQ(inNode("1,\x9D,F,0,,,,"), Rows({"1/2 free-byte: the byte 9D is not a character of the code page"}));
    EXPECT_EQ(inNode("1," + allBytesBut("\x81\x8D\x8F\x90\x9D\",\r\n") + ",F,0,,,,"), Rows());
}

TEST(ScanFile, ShowsTheBeginningOfALongText) {
    EXPECT_EQ(
        inNode("1,a,F,"s + std::string(1000, 'x') + ",,,,"),
        Rows({"1/4 not-a-number: \"" + std::string(60, 'x') + "...\" is not a 32-bit number; it is read as 0"}));
}

TEST(ScanFile, OrdersFindingsByLine) {
    EXPECT_EQ(inNode("x\n1,a,X,0,,,,\n1,b,F,z,,,\ny").size(), 6U);
    std::uint32_t last = 0;
    for (const auto& finding : scanFile(navTable, "x\n1,a,X,0,,,,\n1,b,F,z,,,\ny").findings) {
        EXPECT_GE(finding.line, last);
        last = finding.line;
    }
}

TEST(ScanFile, HasWordsForEveryKindOfFlaw) {
    std::map<std::string_view, Level> levels;
    for (const auto& flaw : fileFlaws) EXPECT_TRUE(levels.emplace(flaw.id, flaw.level).second) << flaw.id;
    const std::map<std::string_view, Level> expected = {{"passed-over", Level::Warning},
                                                        {"twin-id", Level::Error},
                                                        {"comma", Level::Error},
                                                        {"too-many-fields", Level::Error},
                                                        {"too-few-fields", Level::Warning},
                                                        {"unknown-type", Level::Error},
                                                        {"quote", Level::Warning},
                                                        {"dropped-text", Level::Warning},
                                                        {"not-a-number", Level::Error},
                                                        {"rounded", Level::Remark},
                                                        {"unknown-parameter", Level::Warning},
                                                        {"free-byte", Level::Remark},
                                                        {"no-root", Level::Error},
                                                        {"second-root", Level::Error},
                                                        {"missing-parent", Level::Error},
                                                        {"loop", Level::Error},
                                                        {"unwritten", Level::Error},
                                                        {"orphan", Level::Warning}};
    EXPECT_EQ(levels, expected);
}

TEST(FindInTree, FindsNothingInATree) {
    EXPECT_EQ(inTree({{1, 0}, {3, 2}, {2, 1}}), Rows());
}

const std::string unwritten = "/0 unwritten: the node cannot be reached from the root; saving drops it";

TEST(FindInTree, ReportsThatThereIsNoRoot) {
    EXPECT_EQ(inTree({}), Rows({"1/0 no-root: no node has the parent 0; the tree is empty"}));
    EXPECT_EQ(inTree({{1, 2}, {2, 1}}),
              Rows({"1/0 no-root: no node has the parent 0; the tree is empty", "1/4 loop: the node is below itself",
                    "1" + unwritten, "2/4 loop: the node is below itself", "2" + unwritten}));
}

TEST(FindInTree, ReportsASecondRootAndWhatIsBelowIt) {
    EXPECT_EQ(inTree({{5, 0}, {6, 0}, {7, 6}, {8, 5}}),
              Rows({"2/4 second-root: the parent is 0, but the root is in line 1; there can be only one root",
                    "2" + unwritten, "3" + unwritten}));
}

TEST(FindInTree, ReportsParentsThatDoNotExist) {
    EXPECT_EQ(inTree({{1, 0}, {2, 99}, {3, 2}}),
              Rows({"2/4 missing-parent: there is no node 99", "2" + unwritten, "3" + unwritten}));
}

TEST(FindInTree, ReportsLoopsButNotWhatHangsOnThem) {
    EXPECT_EQ(inTree({{1, 0}, {2, 2}, {3, 4}, {4, 5}, {5, 3}, {6, 5}}),
              Rows({"2/4 loop: the node is below itself", "2" + unwritten, "3/4 loop: the node is below itself",
                    "3" + unwritten, "4/4 loop: the node is below itself", "4" + unwritten,
                    "5/4 loop: the node is below itself", "5" + unwritten, "6" + unwritten}));
}

TEST(FindInTree, ReportsThatTheRootIsBelowANodeZero) {
    EXPECT_EQ(inTree({{1, 0}, {0, 1}}),
              Rows({"1/4 loop: the node is below itself", "2/4 loop: the node is below itself"}));
}

TEST(FindOrphans, ReportsParagraphsOfNoNode) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}});
    addParagraphs(navs.oWebs, {{10, 1}, {11, 7}, {12, 0}});
    const std::vector<std::uint32_t> lines = {2, 4, 5};
    EXPECT_EQ(printed(findOrphans(navs, lines)),
              Rows({"4/2 orphan: there is no node 7; the paragraph is an orphan",
                    "5/2 orphan: there is no node 0; the paragraph is an orphan"}));
    EXPECT_EQ(navs.oWebs.Item(11)->XST1, 7) << "nothing is renumbered";
}

namespace {

// Lines that begin with numbers, some of them twins, and other ones.
std::string drawFile(const std::string& alphabet) {
    std::string bytes;
    const auto count = *rc::gen::inRange(0, 12);
    for (int line = 0; line < count; ++line) {
        bytes += *rc::gen::element<std::string>("1", "2", "03", " 4", "x", "");
        bytes += *rc::gen::container<std::string>(rc::gen::elementOf(alphabet));
        bytes += *rc::gen::element<std::string>("\r\n", "\n", "\r", "\n\r");
    }
    return bytes;
}

}  // namespace

// The lines are those of the records that the scheme keeps, whatever the bytes.
RC_GTEST_PROP(ScanFile, KeepsTheRecordsThatTheSchemeKeeps, ()) {
    const auto bytes = drawFile("12, \"x,F.");
    const auto scanned = scanFile(navTable, bytes);
    clsNavSchemes navs;
    loadBytes(navs, bytes);
    RC_ASSERT(static_cast<std::int32_t>(scanned.lines.size()) == navs.Count());
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t at = 0; at <= bytes.size(); ++at) {
        if (at < bytes.size() && bytes[at] != '\r' && bytes[at] != '\n') {
            line += bytes[at];
            continue;
        }
        lines.push_back(std::exchange(line, {}));
        if (at + 1 < bytes.size() && bytes[at] == '\r' && bytes[at + 1] == '\n') ++at;
    }
    std::size_t place = 0;
    for (const auto& node : navs.NewEnum()) {
        clsNavSchemes alone;
        loadBytes(alone, lines.at(scanned.lines[place++] - 1));
        RC_ASSERT(alone.Count() == 1);
        RC_ASSERT(rowsOf(alone).front() == rowOf(*node));
    }
}

RC_GTEST_PROP(FindInTree, ReportsTheNodesThatNoSaveWrites, ()) {
    clsNavSchemes navs;
    const auto count = *rc::gen::inRange(0, 15);
    std::vector<std::uint32_t> lines;
    for (int id = 0; id < count; ++id) {
        navs.Add(makeNode(id + *rc::gen::inRange(0, 2), *rc::gen::inRange(0, 14)));
        lines.resize(static_cast<std::size_t>(navs.Count()));
    }
    for (std::size_t at = 0; at < lines.size(); ++at) lines[at] = static_cast<std::uint32_t>(at);
    std::vector<std::uint32_t> expected;
    if (navs.Count() != 0) {
        clsNavSchemes saved;
        loadBytes(saved, savedBytes(navs));
        std::uint32_t at = 0;
        for (const auto& node : navs.NewEnum()) {
            if (!saved.Item(node->ID)) expected.push_back(at);
            ++at;
        }
    }
    std::vector<std::uint32_t> told;
    for (const auto& finding : findInTree(navs, lines))
        if (finding.flaw->id == "unwritten") told.push_back(finding.line);
    RC_ASSERT(told == expected);
}

RC_GTEST_PROP(FindOrphans, ReportsThoseThatARenumberingMarks, ()) {
    clsNavSchemes navs;
    const auto nodes = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 9));
    for (const int id : nodes) navs.Add(makeNode(id, 0));
    std::vector<std::uint32_t> lines;
    for (std::uint32_t id = 0; id < 12; ++id) {
        navs.oWebs.Add(makeParagraph(static_cast<std::int32_t>(id), *rc::gen::inRange(0, 9)));
        lines.push_back(id);
    }
    std::vector<std::uint32_t> told;
    for (const auto& finding : findOrphans(navs, lines)) told.push_back(finding.line);
    navs.oWebs.Renumber(navs);
    std::vector<std::uint32_t> expected;
    for (const auto* paragraph : navs.oWebs.NewEnum())
        if (paragraph->status == "O") expected.push_back(static_cast<std::uint32_t>(paragraph->ID));
    RC_ASSERT(told == expected);
}
