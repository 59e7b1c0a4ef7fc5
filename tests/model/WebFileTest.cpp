// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

const std::string header =
    lines({R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")"});

Rows paragraphsFrom(std::string_view bytes) {
    clsWebSchemes webs;
    loadBytes(webs, bytes);
    return rowsOf(webs);
}

}  // namespace

TEST(WebFile, SavingAnEmptySchemeLeavesTheOldFile) {
    const TempFolder folder;
    const clsWebSchemes webs;
    EXPECT_FALSE(webs.SaveData(folder / "XST2.txt"));
    EXPECT_EQ(folder.names(), Rows()) << "no file is made";
    writeBytes(folder / "XST2.txt", "old");
    EXPECT_FALSE(webs.SaveData(folder / "XST2.txt"));
    EXPECT_EQ(bytesOf(folder / "XST2.txt"), "old");
}

TEST(WebFile, SavesABlankParagraph) {
    clsWebSchemes webs;
    webs.Add(std::make_shared<clsWebScheme>());
    EXPECT_EQ(savedBytes(webs),
              lines({R"("ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra")",
                     R"(0,0,0,"","","","",0,"","")"}));
}

TEST(WebFile, SavesEveryFieldInItsPlaceInCollectionOrder) {
    clsWebSchemes webs;
    const auto orders = makeFullParagraph(12, "S");
    orders->formIs = 0;
    orders->seqNo = 1;
    orders->extra = "";
    webs.Add(orders);
    webs.Add(makeFullParagraph(3, "H"));
    const auto extremes = makeParagraph(-5, -2147483647 - 1, 2147483647);
    extremes->formIs = -1;
    webs.Add(extremes);
    EXPECT_EQ(savedBytes(webs), header + lines({R"(12,4,1,"Orders","spW_Orders","Lkey","S",0,"2:3","")",
                                                R"(3,4,6,"Orders","spW_Orders","Lkey","H",8,"2:3","more")",
                                                R"(-5,-2147483648,2147483647,"","","","",-1,"","")"}));
}

TEST(WebFile, EscapesNothing) {
    clsWebSchemes webs;
    const auto paragraph = makeParagraph(1, 2, 3, "a \"b\", c");
    paragraph->extra = ",\"";
    webs.Add(paragraph);
    EXPECT_EQ(savedBytes(webs), header + lines({R"(1,2,3,"a "b", c","","","",0,"",","")"}));
}

TEST(WebFile, SavesEveryByteAsItIs) {
    const auto bytes = allBytesBut("");
    clsWebSchemes webs;
    webs.Add(makeParagraph(1, 2, 3, bytes));
    EXPECT_EQ(savedBytes(webs), header + "1,2,3,\"" + bytes + lines({R"(","","","",0,"","")"}));
}

TEST(WebFile, ReplacesTheOldFileWhole) {
    const TempFolder folder;
    clsWebSchemes webs;
    addParagraphs(webs, {{1, 2}});
    writeBytes(folder / "XST2.txt", std::string(10'000, 'x'));
    EXPECT_TRUE(webs.SaveData(folder / "XST2.txt"));
    EXPECT_EQ(bytesOf(folder / "XST2.txt"), header + lines({R"(1,2,0,"","","","",0,"","")"}));
    EXPECT_EQ(folder.names(), Rows{"XST2.txt"});
}

TEST(WebFile, LoadsEveryFieldFromItsPlace) {
    clsWebSchemes webs;
    loadBytes(webs, header + lines({R"(12,4,1,"Orders","spW_Orders 1","Lkey","S",9,"2:3","more")",
                                    R"(3,-5,-6,t,q,CKey05,h,-7,All,x)"}));
    EXPECT_EQ(rowsOf(webs), (Rows{"12|4|1|Orders|spW_Orders 1|Lkey|S|9|2:3|more", "3|-5|-6|t|q|CKey05|h|-7|All|x"}));
    EXPECT_EQ(webs.Item(12)->tXST1, 0);
    EXPECT_EQ(webs.Item(12)->status, "");
}

TEST(WebFile, LoadsTheHeaderAloneAsAnEmptyScheme) {
    clsWebSchemes webs;
    addParagraphs(webs, {{1, 2}});
    loadBytes(webs, header);
    EXPECT_EQ(webs.Count(), 0);
}

TEST(WebFile, LoadingReplacesTheOldParagraphs) {
    clsWebSchemes webs;
    addParagraphs(webs, {{1, 2}, {3, 4}});
    loadBytes(webs, "3,9,0,new\r\n");
    EXPECT_EQ(rowsOf(webs), Rows{"3|9|0|new||||0||"});
    loadBytes(webs, "");
    EXPECT_EQ(rowsOf(webs), Rows());
}

TEST(WebFile, ACommaInATextShiftsTheLaterFields) {
    EXPECT_EQ(paragraphsFrom(lines({R"(12,4,1,"Sales, 2003","spW","Lkey","S",7,"2:3","more")"})),
              Rows{"12|4|1|Sales| 2003|spW|Lkey|0|7|2:3"})
        << "the type S is no form number; what was the last field is ignored";
}

TEST(WebFile, DropsQuotesWhereverTheyStand) {
    EXPECT_EQ(paragraphsFrom(lines({R"(1"2,"4","1","a""b",q"q,p,S,"7","""2:3,"")"})),
              Rows{"12|4|1|ab|qq|p|S|7|2:3|"});
}

TEST(WebFile, SkipsLinesThatDoNotBeginWithADigit) {
    EXPECT_EQ(paragraphsFrom("  1,2,3\r\nx2,2,3\r\n\"3\",2,3\r\n\r\n-4,2,3\r\n 5,2,3 \r\n"),
              (Rows{"1|2|3|||||0||", "5|2|3|||||0||"}));
}

TEST(WebFile, KeepsTheFirstOfTwoLinesWithTheSameID) {
    EXPECT_EQ(paragraphsFrom("7,1,1,first\r\n8,1,2,other\r\n7,2,2,second\r\n"),
              (Rows{"7|1|1|first||||0||", "8|1|2|other||||0||"}));
}

TEST(WebFile, LeavesMissingFieldsAtTheirDefaults) {
    EXPECT_EQ(paragraphsFrom("1"), Rows{"1|0|0|||||0||"});
    EXPECT_EQ(paragraphsFrom("1,2"), Rows{"1|2|0|||||0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3"), Rows{"1|2|3|||||0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t"), Rows{"1|2|3|t||||0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q"), Rows{"1|2|3|t|q|||0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p"), Rows{"1|2|3|t|q|p||0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p,S"), Rows{"1|2|3|t|q|p|S|0||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p,S,4"), Rows{"1|2|3|t|q|p|S|4||"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p,S,4,c"), Rows{"1|2|3|t|q|p|S|4|c|"});
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p,S,4,c,e\r\n2"), (Rows{"1|2|3|t|q|p|S|4|c|e", "2|0|0|||||0||"}));
}

TEST(WebFile, IgnoresFurtherFields) {
    EXPECT_EQ(paragraphsFrom("1,2,3,t,q,p,S,4,c,e,more,and more"), Rows{"1|2|3|t|q|p|S|4|c|e"});
}

TEST(WebFile, NumbersThatDoNotConvertLeaveZeroAndTheOtherFieldsAreFilled) {
    EXPECT_EQ(paragraphsFrom("1a,b,2147483648,t,q,p,S,-,c,e"), Rows{"0|0|0|t|q|p|S|0|c|e"});
    EXPECT_EQ(paragraphsFrom("1.5, 2 ,-3,t,q,p,S,2.5,c,e"), Rows{"2|2|-3|t|q|p|S|2|c|e"});
}

TEST(WebFile, LoadingWhatWasSavedGivesTheSameParagraphs) {
    const auto bytes = allBytesBut("\",\r\n");
    clsWebSchemes webs;
    webs.Add(makeFullParagraph(12, "S"));
    webs.Add(makeFullParagraph(3, bytes));
    webs.Add(makeParagraph(7, -1, 2, bytes));
    const auto rows = rowsOf(webs);
    clsWebSchemes loaded;
    loadBytes(loaded, savedBytes(webs));
    EXPECT_EQ(rowsOf(loaded), rows);
}

TEST(WebFile, ParagraphsOfALoadedSchemeOutliveIt) {
    std::shared_ptr<const clsWebScheme> held;
    std::shared_ptr<clsWebScheme> clone;
    Text title;
    {
        clsWebSchemes webs;
        loadBytes(webs, "1,2,3,t,q,p,S,4,c,e\r\n");
        held = webs.Item(1);
        clone = webs.CloneWeb("1");
        title = held->titleIs;
        webs.ClearAll();
    }
    EXPECT_EQ(rowOf(*held), "1|2|3|t|q|p|S|4|c|e");
    held.reset();
    EXPECT_EQ(rowOf(*clone), "1|2|3|t|q|p|S|4|c|e");
    EXPECT_EQ(title, "t");
}
