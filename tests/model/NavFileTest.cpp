// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

const std::string header =
    lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")"});

// What the lines of a saved file begin with: the IDs, in their order.
std::string savedOrder(const clsNavSchemes& navs) {
    clsNavSchemes loaded;
    loadBytes(loaded, savedBytes(navs));
    return idsOf(loaded);
}

}  // namespace

TEST(NavFile, SavingAnEmptySchemeLeavesTheOldFile) {
    const TempFolder folder;
    const clsNavSchemes navs;
    EXPECT_FALSE(navs.SaveData(folder / "XST1.txt"));
    EXPECT_EQ(folder.names(), Rows()) << "no file is made";
    writeBytes(folder / "XST1.txt", "old");
    EXPECT_FALSE(navs.SaveData(folder / "XST1.txt"));
    EXPECT_EQ(bytesOf(folder / "XST1.txt"), "old");
}

TEST(NavFile, SavesTheNewSchemeInTwoLines) {
    clsNavSchemes navs;
    navs.NewScheme();
    EXPECT_EQ(savedBytes(navs),
              lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")",
                     R"(1,"Data Browser","F",0,"","","leaf","")"}));
}

TEST(NavFile, SavesEveryFieldInItsPlace) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "F", "Root", "", "", "leaf", ""));
    navs.Add(makeNode(2147483647, 1, "G", "Customers", "spN_Cust 'a'", "CKey05", "folder", "Sales"));
    navs.Add(makeNode(-12, 2147483647, "R", "", "spN_Rec", "Lkey", "", "Boss"));
    navs.Add(makeNode(0, 1, "", "No type", "q", "Today", "", ""));
    navs.Item(1)->tID = 77;
    navs.Item(1)->tParentIs = 78;
    EXPECT_EQ(savedBytes(navs),
              header + lines({R"(1,"Root","F",0,"","","leaf","")",
                              R"(2147483647,"Customers","G",1,"spN_Cust 'a'","CKey05","folder","Sales")",
                              R"(-12,"","R",2147483647,"spN_Rec","Lkey","","Boss")",
                              R"(0,"No type","",1,"q","Today","","")"}));
}

TEST(NavFile, EscapesNothing) {
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "G", "a \"b\", c", "q,\"", "\"", ",", "\"\""));
    EXPECT_EQ(savedBytes(navs), header + lines({R"(1,"a "b", c","G",0,"q,"",""",",","""")"}));
}

TEST(NavFile, SavesEveryByteAsItIs) {
    const auto bytes = allBytesBut("");
    clsNavSchemes navs;
    navs.Add(makeNode(1, 0, "G", bytes));
    EXPECT_EQ(savedBytes(navs), header + "1,\"" + bytes + lines({R"(","G",0,"","","","")"}));
}

TEST(NavFile, SavesInTreeOrder) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 1}, {4, 2}});
    EXPECT_EQ(savedBytes(navs), header + lines({R"(1,"","F",0,"","","","")", R"(2,"","F",1,"","","","")",
                                                R"(4,"","F",2,"","","","")", R"(3,"","F",1,"","","","")"}));
}

TEST(NavFile, SavesSiblingsInTheOrderOfAdding) {
    clsNavSchemes navs;
    addNodes(navs, {{9, 3}, {5, 1}, {1, 0}, {3, 1}, {2, 1}, {8, 5}, {7, 3}});
    EXPECT_EQ(savedOrder(navs), "1 5 8 3 9 7 2");
}

TEST(NavFile, SavesOnlyWhatIsReachableFromTheFirstRoot) {
    clsNavSchemes navs;
    addNodes(navs, {{5, 99}, {1, 0}, {2, 0}, {3, 2}, {4, 1}, {6, 7}, {7, 6}, {8, 8}});
    EXPECT_EQ(savedOrder(navs), "1 4");
    EXPECT_EQ(navs.Count(), 8) << "saving removes nothing";
}

TEST(NavFile, WithoutARootSavesTheHeaderAlone) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 2}, {2, 1}});
    EXPECT_EQ(savedBytes(navs),
              lines({R"("ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs")"}));
}

TEST(NavFile, ReplacesTheOldFileWhole) {
    const TempFolder folder;
    clsNavSchemes navs;
    navs.NewScheme();
    writeBytes(folder / "XST1.txt", std::string(10'000, 'x'));
    EXPECT_TRUE(navs.SaveData(folder / "XST1.txt"));
    EXPECT_EQ(bytesOf(folder / "XST1.txt"), header + lines({R"(1,"Data Browser","F",0,"","","leaf","")"}));
    EXPECT_EQ(folder.names(), Rows{"XST1.txt"});
}

TEST(NavFile, TakesAnyFileName) {
    const TempFolder folder;
#ifdef _WIN32
    const char* punctuation = "a'b;d.txt";  // no name may have a quotation mark there
#else
    const char* punctuation = "a'b\"c;d.txt";
#endif
    for (const char* name : {"no extension", "Schem\xC3\xA4.txt", punctuation, "%41.txt", "XST1.TXT", ".hidden"}) {
        clsNavSchemes navs;
        navs.NewScheme();
        EXPECT_TRUE(navs.SaveData(folder / name)) << name;
        EXPECT_TRUE(std::filesystem::is_regular_file(folder / name)) << name;
        clsNavSchemes loaded;
        EXPECT_TRUE(loaded.LoadData(folder / name));
        EXPECT_EQ(loaded.Count(), 1) << name;
        std::filesystem::remove(folder / name);
    }
    EXPECT_EQ(folder.names(), Rows());
}

TEST(NavFile, LoadsEveryFieldFromItsPlace) {
    clsNavSchemes navs;
    loadBytes(navs, header + lines({R"(1,"Root","F",0,"","","leaf","")",
                                    R"(4,"Customers","G",1,"spN_Cust 'a'","CKey05","folder","Sales")",
                                    R"(3,"","R",4,"spN_Rec","Lkey","","Boss")", R"(2,x,Q,-1,q,p,i,r)"}));
    EXPECT_EQ(rowsOf(navs), (Rows{"1|Root|F|0|||leaf|", "4|Customers|G|1|spN_Cust 'a'|CKey05|folder|Sales",
                                  "3||R|4|spN_Rec|Lkey||Boss", "2|x|Q|-1|q|p|i|r"}));
    for (const auto& node : navs.NewEnum()) {
        EXPECT_EQ(node->tID, 0);
        EXPECT_EQ(node->tParentIs, 0);
    }
}

TEST(NavFile, NeverReadsTheNamesInTheHeader) {
    clsNavSchemes navs;
    loadBytes(navs, "\"roleIs\",\"iconIs\",\"ID\"\r\n1,\"Root\",\"F\",0\r\n");
    EXPECT_EQ(rowsOf(navs), Rows{"1|Root|F|0||||"});
}

TEST(NavFile, SkipsLinesThatBeginWithAQuoteAndReadsThoseThatBeginWithABlank) {
    clsNavSchemes navs;
    loadBytes(navs, " 1,\"Root\",\"F\",0\r\n\"2\",\"Skipped\",\"F\",1\r\n");
    EXPECT_EQ(rowsOf(navs), Rows{"1|Root|F|0||||"});
}

TEST(NavFile, FixedAndNonGeneratingNodesLoadWithoutQueryAndParameter) {
    clsNavSchemes navs;
    loadBytes(navs, "1,a,F,0,q,p,i,r\r\n2,b,N,1,q,p,i,r\r\n3,c,G,1,q,p,i,r\r\n4,d,R,1,q,p,i,r\r\n");
    EXPECT_EQ(rowsOf(navs), (Rows{"1|a|F|0|||i|r", "2|b|N|1|||i|r", "3|c|G|1|q|p|i|r", "4|d|R|1|q|p|i|r"}));
}

TEST(NavFile, KeepsTheFirstOfTwoLinesWithTheSameID) {
    clsNavSchemes navs;
    loadBytes(navs, "7,first,F,0\r\n8,other,F,7\r\n7,second,N,8\r\n07,third,N,8\r\n");
    EXPECT_EQ(rowsOf(navs), (Rows{"7|first|F|0||||", "8|other|F|7||||"}));
}

TEST(NavFile, ACommaInATextShiftsTheLaterFields) {
    clsNavSchemes navs;
    loadBytes(navs, lines({R"(7,"Sales, 2003","G",1,"spN","Lkey","leaf","Boss")"}));
    EXPECT_EQ(rowsOf(navs), Rows{"7|Sales| 2003|0|1|spN|Lkey|leaf"});
}

TEST(NavFile, LoadingReplacesTheOldNodesAndKeepsTheParagraphs) {
    clsNavSchemes navs;
    addNodes(navs, {{1, 0}, {2, 1}, {3, 1}});
    addParagraphs(navs.oWebs, {{5, 3}});
    navs.mLastN = "N3";
    loadBytes(navs, "3,new,F,0\r\n");
    EXPECT_EQ(rowsOf(navs), Rows{"3|new|F|0||||"});
    EXPECT_EQ(nodesOf(navs.oWebs), "5>3");
    EXPECT_EQ(navs.mLastN, "N3");
}

TEST(NavFile, LoadingEmptiesARenumberedScheme) {
    clsNavSchemes navs;
    addNodes(navs, {{10, 0}, {30, 10}, {20, 10}});
    ASSERT_TRUE(navs.Renumber());
    loadBytes(navs, "7,new,F,0\r\n");
    EXPECT_EQ(rowsOf(navs), Rows{"7|new|F|0||||"});
    EXPECT_EQ(navs.Item(20), nullptr);
}

TEST(NavFile, LoadingWhatWasSavedGivesTheNodesBackInTreeOrder) {
    clsNavSchemes navs;
    navs.Add(makeNode(4, 2, "G", "four", "q4", "Text"));
    navs.Add(makeNode(1, 0, "F", "one"));
    navs.Add(makeNode(3, 1, "R", "three", "q3", "CKey12", "leaf", "Boss"));
    navs.Add(makeNode(2, 1, "N", "two"));
    clsNavSchemes loaded;
    loadBytes(loaded, savedBytes(navs));
    EXPECT_EQ(rowsOf(loaded),
              (Rows{"1|one|F|0||||", "3|three|R|1|q3|CKey12|leaf|Boss", "2|two|N|1||||", "4|four|G|2|q4|Text||"}));
}

TEST(NavFile, NodesOfALoadedSchemeOutliveIt) {
    auto navs = std::make_unique<clsNavSchemes>();
    loadBytes(*navs, "1,Root,G,0,spN_Query,Today,leaf,Boss\r\n2,b,F,1\r\n");
    const auto held = navs->Item(1);
    const Text copied = navs->Item(1)->descriptionIs;
    const auto clone = navs->CloneNav("1");
    navs.reset();
    EXPECT_EQ(rowOf(*held), "1|Root|G|0|spN_Query|Today|leaf|Boss");
    EXPECT_EQ(copied, "Root");
    EXPECT_EQ(rowOf(*clone), "1|Root|G|0|spN_Query|Today|leaf|Boss");
}

TEST(NavFile, CopiedTextsOutliveAllRecordsOfTheFile) {
    Text description;
    std::shared_ptr<clsNavScheme> clone;
    {
        clsNavSchemes navs;
        loadBytes(navs, "1,Root,G,0,spN_Query,Today,leaf,Boss\r\n");
        description = navs.Item(1)->descriptionIs;
        clone = navs.CloneNav("1");
        clsNavSchemes other;
        EXPECT_TRUE(other.FuseNav(navs.CloneNav("1")));
        navs.Item(1)->descriptionIs = "changed";
        loadBytes(navs, "9,y,F,0\r\n");
        EXPECT_EQ(rowsOf(other), Rows{"1|Root|G|0|spN_Query|Today|leaf|Boss"});
    }
    EXPECT_EQ(description, "Root");
    EXPECT_EQ(rowOf(*clone), "1|Root|G|0|spN_Query|Today|leaf|Boss");
}
