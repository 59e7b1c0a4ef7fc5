// SPDX-License-Identifier: MIT
#include "tests/commands/Commands.h"

using namespace std::string_literals;

// The commands that write what the wizard writes: renumber, fmt.

namespace {

const std::string unsavedNodes = lines({
    R"(10,"Shop","F",0,"","","leaf","")",
    R"(7,"Lists","F",10,"","","","")",
    R"(3,"Late","N",10,"","","","")",
    " 012 ,\"caf\xE9 \x81 \"quoted\"\",N,7,gone,Lkey,\"\",\"\"",
    R"(5,"Lost","N",99,"","","","")",
    R"(no record)",
});
const std::string unsavedParagraphs = lines({
    R"(1,12,1,"a","spW_A","","S",0,"All","")",
    R"(2,10,1,"b","spW_B","","H",3,"","")",
    R"(3,88,1,"orphan","spW_C","","M",0,"","")",
});

}  // namespace

TEST(Renumber, WritesWhatTheWizardSaves) {
    const SchemeFolder folder(unsavedNodes, unsavedParagraphs);
    const auto before = folder.folder.names();
    std::filesystem::create_directory(folder / "new");
    const auto ran =
        pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", folder / "new", "--map", folder / "map.csv"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(bytesOf(folder / "new/XST1.txt"),
              navHeader + lines({
                              R"(1,"Shop","F",0,"","","leaf","")",
                              R"(2,"Lists","F",1,"","","","")",
                              "3,\"caf\xE9 \x81 quoted\",\"N\",2,\"\",\"\",\"\",\"\"",
                              R"(4,"Late","N",1,"","","","")",
                          }));
    EXPECT_EQ(bytesOf(folder / "new/XST2.txt"), webHeader + lines({
                                                                R"(1,3,1,"a","spW_A","","S",0,"All","")",
                                                                R"(2,1,1,"b","spW_B","","H",3,"","")",
                                                                R"(3,0,1,"orphan","spW_C","","M",0,"","")",
                                                            }));
    EXPECT_EQ(bytesOf(folder / "map.csv"), lines({R"("old","new")", "10,1", "7,2", "12,3", "3,4"}));
    EXPECT_EQ(folder.folder.names(), Rows({"XST1.txt", "XST2.txt", "map.csv", "new"}));
    EXPECT_EQ(bytesOf(folder.nodes()), unsavedNodes) << "the files themselves stay";
}

TEST(Renumber, MayReplaceTheFilesThatItReads) {
    const SchemeFolder folder(unsavedNodes, unsavedParagraphs);
    ASSERT_EQ(pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", folder.folder.path().string()}).status,
              0);
    EXPECT_TRUE(bytesOf(folder.nodes()).starts_with(navHeader + "1,\"Shop\""));
    EXPECT_EQ(folder.folder.names(), Rows({"XST1.txt", "XST2.txt"}));
}

TEST(Renumber, WritesNoneWhereItCannotWriteAll) {
    const SchemeFolder folder(unsavedNodes, unsavedParagraphs);
    std::filesystem::create_directories(folder / "new/XST2.txt");
    const auto refused = [&](const std::string& map) {
        return pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", folder / "new", "--map", map});
    };
    const auto ran = refused(folder / "map.csv");
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err, "pelmo-scheme: " + folder / "new/XST2.txt"s + ": cannot be written\n");
    EXPECT_EQ(TempFolder().names(), Rows());
    EXPECT_FALSE(std::filesystem::exists(folder / "new/XST1.txt"));
    EXPECT_FALSE(std::filesystem::exists(folder / "map.csv"));

    std::filesystem::remove(folder / "new/XST2.txt");
    EXPECT_EQ(refused(folder / "none/map.csv").err,
              "pelmo-scheme: " + folder / "none/map.csv"s + ": cannot be written\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder / "new"));
}

TEST(Renumber, RefusesWhatHoldsNothing) {
    const SchemeFolder folder("1,a,F,2,,,,\n", unsavedParagraphs);
    const auto to = folder.folder.path().string();
    EXPECT_EQ(pelmo({"renumber", folder.nodes(), folder.paragraphs(), "-o", to}).err,
              "pelmo-scheme: " + folder.nodes() + ": there is no root in it, and so nothing to save\n");
    const SchemeFolder second(unsavedNodes, "no record\n");
    EXPECT_EQ(pelmo({"renumber", second.nodes(), second.paragraphs(), "-o", to}).err,
              "pelmo-scheme: " + second.paragraphs() + ": there is no paragraph in it\n");
    EXPECT_EQ(pelmo({"renumber", sampleNodes, sampleParagraphs, "-o", folder / "none"}).err,
              "pelmo-scheme: " + folder / "none"s + ": there is no such folder\n");
    EXPECT_EQ(folder.folder.names(), Rows({"XST1.txt", "XST2.txt"}));
    EXPECT_EQ(bytesOf(folder.nodes()), "1,a,F,2,,,,\n");
}

TEST(Format, PrintsWhatTheWizardWouldSave) {
    const auto ran = pelmo({"fmt", "-"}, navHeader + unsavedNodes);
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(ran.out, navHeader + lines({
                                       R"(10,"Shop","F",0,"","","leaf","")",
                                       R"(7,"Lists","F",10,"","","","")",
                                       "12,\"caf\xE9 \x81 quoted\",\"N\",7,\"\",\"\",\"\",\"\"",
                                       R"(3,"Late","N",10,"","","","")",
                                   }))
        << "in the order of the tree, in the code page of the files";
    EXPECT_EQ(pelmo({"fmt", sampleNodes}).out, bytesOf(sampleNodes));
    EXPECT_EQ(pelmo({"fmt", "--encoding", "utf-8", sampleParagraphs}).out, bytesOf(sampleParagraphs));
}

TEST(Format, SaysWhetherAFileDiffers) {
    const auto same = pelmo({"fmt", "--check", sampleNodes});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out, "");
    const auto other = pelmo({"fmt", "--check", "-"}, webHeader + "1,1,1,a,b,,S,0,All,\r\n");
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.out, "<stdin>: differs from what the wizard saves\n");
    EXPECT_EQ(pelmo({"fmt", "--check", "-"}, webHeader + "1,1,1,\"a\",\"b\",\"\",\"S\",0,\"All\",\"\"\r\n").status,
              0);
}

TEST(Format, NeedsToKnowTheTable) {
    const auto ran = pelmo({"fmt", "-"}, unsavedNodes);
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err,
              "pelmo-scheme: <stdin>:1: the first line is the header of neither table; name it with --table\n");
    EXPECT_EQ(pelmo({"fmt", "--table", "XST1", "-"}, unsavedNodes).out,
              pelmo({"fmt", "-"}, navHeader + unsavedNodes).out);
    EXPECT_EQ(pelmo({"fmt", "--table", "XST2", "-"}, unsavedParagraphs).out, webHeader + unsavedParagraphs);
    EXPECT_EQ(pelmo({"fmt", "--table", "XST3", "-"}, unsavedNodes).status, 2);
}

TEST(Format, RefusesWhatHoldsNoRecord) {
    const auto ran = pelmo({"fmt", "-"}, webHeader);
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "pelmo-scheme: <stdin>: there is no record in it, and so nothing to save\n");
}
