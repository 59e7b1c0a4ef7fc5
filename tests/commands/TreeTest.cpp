// SPDX-License-Identifier: MIT
#include "tests/commands/Commands.h"

using namespace std::string_literals;

// What the commands that show a scheme print: tree, todo, orphans.

namespace {

const std::string nodes = navHeader + lines({
                                          R"(1,"Shop","F",0,"","","leaf","")",
                                          R"(7,"Bikes","G",1,"spG_Bikes 1","Lkey","bike","clerk")",
                                          R"(3,"Hires","N",1,"","","","")",
                                          R"(9,"Bike","N",7,"","","","")",
                                          R"(5,"Lost","",99,"","","","")",
                                      });
const std::string paragraphs = webHeader + lines({
                                               R"(21,7,2,"Sums","spW_Sums","CKey05","S",0,"2:3","more")",
                                               R"(20,7,1,"Bikes","spW_Bikes","","H",4,"","")",
                                               R"(22,77,1,"Old list","spW_Old","","M",0,"","")",
                                               R"(23,5,1,"Of the lost","","","",0,"","")",
                                           });

}  // namespace

TEST(Tree, PrintsEveryFieldAndEachPageInItsOrder) {
    const SchemeFolder folder(nodes, paragraphs);
    const auto ran = pelmo({"tree", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(ran.out,
              "[1] F \"Shop\" icon=\"leaf\"\n"
              "  [7] G \"Bikes\" query=\"spG_Bikes 1\" parameter=\"Lkey\" icon=\"bike\" role=\"clerk\"\n"
              "    - [20] 1 H \"Bikes\" query=\"spW_Bikes\" form=4\n"
              "    - [21] 2 S \"Sums\" query=\"spW_Sums\" parameter=\"CKey05\" columns=\"2:3\" extra=\"more\"\n"
              "    [9] N \"Bike\"\n"
              "  [3] N \"Hires\"\n"
              "\n"
              "Nodes that are in no tree:\n"
              "[5] ? \"Lost\"\n"
              "  - [23] 1 ? \"Of the lost\"\n"
              "\n"
              "Paragraphs of no node:\n"
              "- [22] 1 M \"Old list\" query=\"spW_Old\"\n");
}

TEST(Tree, PrintsNodesAlone) {
    EXPECT_EQ(pelmo({"tree", "-"}, nodes).out,
              "[1] F \"Shop\" icon=\"leaf\"\n"
              "  [7] G \"Bikes\" query=\"spG_Bikes 1\" parameter=\"Lkey\" icon=\"bike\" role=\"clerk\"\n"
              "    [9] N \"Bike\"\n"
              "  [3] N \"Hires\"\n"
              "\n"
              "Nodes that are in no tree:\n"
              "[5] ? \"Lost\"\n");
}

TEST(Tree, PrintsNoNumbersWhereTheyAreNotWanted) {
    const SchemeFolder folder(nodes, paragraphs);
    EXPECT_EQ(pelmo({"tree", "--no-ids", folder.nodes(), folder.paragraphs()}).out,
              "F \"Shop\" icon=\"leaf\"\n"
              "  G \"Bikes\" query=\"spG_Bikes 1\" parameter=\"Lkey\" icon=\"bike\" role=\"clerk\"\n"
              "    - 1 H \"Bikes\" query=\"spW_Bikes\" form=4\n"
              "    - 2 S \"Sums\" query=\"spW_Sums\" parameter=\"CKey05\" columns=\"2:3\" extra=\"more\"\n"
              "    N \"Bike\"\n"
              "  N \"Hires\"\n"
              "\n"
              "Nodes that are in no tree:\n"
              "? \"Lost\"\n"
              "  - 1 ? \"Of the lost\"\n"
              "\n"
              "Paragraphs of no node:\n"
              "- 1 M \"Old list\" query=\"spW_Old\"\n");
}

TEST(Tree, ListsAFileOfParagraphsAlone) {
    EXPECT_EQ(pelmo({"tree", "--no-ids", "-"}, paragraphs).out,
              "- 2 S \"Sums\" query=\"spW_Sums\" parameter=\"CKey05\" columns=\"2:3\" extra=\"more\"\n"
              "- 1 H \"Bikes\" query=\"spW_Bikes\" form=4\n"
              "- 1 M \"Old list\" query=\"spW_Old\"\n"
              "- 1 ? \"Of the lost\"\n");
}

TEST(Tree, EndsOnALoopAndPrintsEveryRecordOfTheSample) {
    EXPECT_EQ(pelmo({"tree", "-"}, "1,a,F,2,,,,\n2,b,F,1,,,,\n").out,
              "\nNodes that are in no tree:\n[1] F \"a\"\n[2] F \"b\"\n");
    const auto ran = pelmo({"tree", sampleNodes, sampleParagraphs});
    clsNavSchemes navs;
    navs.LoadData(sampleNodes);
    navs.oWebs.LoadData(sampleParagraphs);
    EXPECT_EQ(std::ranges::count(ran.out, '\n'), navs.Count() + navs.oWebs.Count());
}

TEST(Tree, SpellsOutControlCharacters) {
    EXPECT_EQ(pelmo({"tree", "-"}, "1,\x1B[2J\xE9\x9D,F,0,,,,\n").out, "[1] F \"\\x1B[2Jé\\x9D\"\n");
}

TEST(Orphans, ListsThem) {
    const SchemeFolder folder(nodes, paragraphs);
    const auto ran = pelmo({"orphans", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "[ID=22] Old list (there is no node 77)\n");
    const auto none = pelmo({"orphans", sampleNodes, sampleParagraphs});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "");
}

TEST(ToDo, PrintsBothLists) {
    const SchemeFolder folder(nodes, paragraphs);
    const auto ran = pelmo({"todo", folder.nodes(), folder.paragraphs()});
    EXPECT_EQ(ran.status, 0);
    const auto& out = ran.out;
    EXPECT_TRUE(out.starts_with("THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\n\n1. Select")) << out;
    const std::string nodeList =
        "  ID: Query/Stored Procedure & Parameters\n\n"
        "007: spG_Bikes 1   (Parameter = Long Integer)   (with Constant Parameter: 1)\n";
    EXPECT_NE(out.find(nodeList + "\nTHE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\n\n"), std::string::npos) << out;
    EXPECT_TRUE(
        out.ends_with("  ID: Query/Stored Procedure & Parameters & Comments\n\n"
                      "021: spW_Sums   (Parameter = Character of Length=05)\n"
                      "020: spW_Bikes   (Parameter = None)\n"
                      "022: spW_Old   (Parameter = None)\n"
                      "023:    (Parameter = None)\n"))
        << out;
    EXPECT_EQ(out.find('\r'), std::string::npos);
    EXPECT_TRUE(pelmo({"todo", folder.nodes()}).out.ends_with(nodeList));
}
