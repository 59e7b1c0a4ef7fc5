// SPDX-License-Identifier: MIT
#include "analysis/Reports.h"
#include "tests/model/Helpers.h"

using namespace std::string_literals;

namespace {

const std::string navHead =
    "THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\r\n"
    "\r\n"
    "1. Select 'Analysis of Nav. Scheme'. Correct anomalies, if any.\r\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
    "3. Save Navigation Scheme to Text File.\r\n"
    "4. Upload that Text File to your Database as Table XST1, with Identity Column as 'ID'\r\n"
    "5. Code the following Queries / Stored Procedures. These are two-field Queries, First\r\n"
    "   field is (ID), second is Name or description, that will be displayed in Treeview Control.\r\n"
    "   For Example: spG_Customers: SELECT ID, NAME FROM CUSTOMERS ORDER BY NAME \r\n"
    "\r\n"
    "  ID: Query/Stored Procedure & Parameters\r\n"
    "\r\n";

const std::string webHead =
    "THE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\r\n"
    "\r\n"
    "1. Select 'Analysis of Web Scheme'. Correct anomalies, if any.\r\n"
    "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
    "3. Save Web Scheme to Text File.\r\n"
    "4. Upload that Text File to your Database as Table XST2, with Identity Column as 'ID'\r\n"
    "5. Code the following Queries / Stored Procedures. These are multi-field Queries, First\r\n"
    "   field Should be named (ID).\r\n"
    "   For Example: spW_Customers: SELECT CUSTID AS [ID], CUSTOMERNAME AS [Customer Name], ADD as [Address], \r\n"
    "   PHONE AS [Phone No], CONTACT AS [Contact Person] FROM CUSTOMERS ORDER BY CUSTOMERNAME \r\n"
    "\r\n"
    "  ID: Query/Stored Procedure & Parameters & Comments\r\n"
    "\r\n";

std::string behind(const std::string& head, const std::string& report) {
    EXPECT_EQ(report.substr(0, head.size()), head);
    return report.substr(head.size());
}

// The line of one generating node in the list.
std::string nodeLine(std::int32_t id, const Text& query, const Text& parm) {
    clsNavSchemes navs;
    navs.Add(makeNode(id, 0, "G", "text", query, parm));
    return behind(navHead, NavToDo(navs));
}

// The line of one paragraph in the list.
std::string paragraphLine(std::int32_t id, const Text& query, const Text& parm, const Text& type) {
    clsWebSchemes webs;
    auto paragraph = makeParagraph(id, 1, 1, "title");
    paragraph->queryIs = query;
    paragraph->parmIs = parm;
    paragraph->typeIs = type;
    webs.Add(paragraph);
    return behind(webHead, WebToDo(webs));
}

// What both lists say of a parameter.
std::string parameter(const Text& parm) {
    const auto line = nodeLine(7, "spG", parm);
    EXPECT_EQ(paragraphLine(7, "spG", parm, "S"), line);
    EXPECT_EQ(line.substr(0, 8), "007: spG");
    EXPECT_TRUE(line.ends_with("\r\n"));
    return line.substr(8, line.size() - 10);
}

// What both lists say of a constant in the query.
std::string constant(const std::string& query) {
    const auto line = nodeLine(7, query, "None");
    EXPECT_EQ(paragraphLine(7, query, "None", "S"), line);
    EXPECT_EQ(line.substr(0, 5 + query.size()), "007: " + query);
    EXPECT_TRUE(line.ends_with("\r\n"));
    return line.substr(5 + query.size(), line.size() - 7 - query.size());
}

}  // namespace

TEST(NavToDo, OfAnEmptySchemeIsTheHead) {
    EXPECT_EQ(NavToDo(clsNavSchemes()), navHead);
}

TEST(NavToDo, WithoutGeneratingAndRecurringNodesIsTheHead) {
    clsNavSchemes navs;
    int id = 0;
    for (const char* type : {"F", "N", "g", "r", "", "GR", "G ", "x"})
        navs.Add(makeNode(++id, 0, type, "text", "spG_A", "Lkey"));
    EXPECT_EQ(NavToDo(navs), navHead);
}

TEST(NavToDo, ListsTheQueriesInTheOrderOfAdding) {
    clsNavSchemes navs;
    navs.Add(makeNode(9, 1, "R", "parts", "spG_Parts", "Lkey"));
    navs.Add(makeNode(1, 0, "F", "top"));
    navs.Add(makeNode(7, 1, "G", "customers", "spG_Customers"));
    navs.Add(makeNode(8, 7, "N", "customer"));
    navs.Add(makeNode(3, 1, "G", "clubs", "spG_Clubs 2 3", "CKey05"));
    navs.Add(makeNode(4, 1, "G"));
    EXPECT_EQ(NavToDo(navs),
              "THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\r\n"
              "\r\n"
              "1. Select 'Analysis of Nav. Scheme'. Correct anomalies, if any.\r\n"
              "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
              "3. Save Navigation Scheme to Text File.\r\n"
              "4. Upload that Text File to your Database as Table XST1, with Identity Column as 'ID'\r\n"
              "5. Code the following Queries / Stored Procedures. These are two-field Queries, First\r\n"
              "   field is (ID), second is Name or description, that will be displayed in Treeview Control.\r\n"
              "   For Example: spG_Customers: SELECT ID, NAME FROM CUSTOMERS ORDER BY NAME \r\n"
              "\r\n"
              "  ID: Query/Stored Procedure & Parameters\r\n"
              "\r\n"
              "009: spG_Parts   (Parameter = Long Integer)\r\n"
              "007: spG_Customers   (Parameter = None)\r\n"
              "003: spG_Clubs 2 3   (Parameter = Character of Length=05)   (with Constant Parameter: 2)\r\n"
              "004:    (Parameter = None)\r\n");
}

TEST(NavToDo, OfTheSample) {
    clsNavSchemes navs;
    navs.LoadData(SAMPLES "/XST1.txt");
    EXPECT_EQ(NavToDo(navs),
              navHead +
                  "004: spG_HiresGoingOut   (Parameter = Date (Today))\r\n"
                  "006: spG_HiresDueBack   (Parameter = Date (Today))\r\n"
                  "008: spG_HiresLate 2   (Parameter = Date (Today))   (with Constant Parameter: 2)\r\n"
                  "010: spG_BikeTypes   (Parameter = None)\r\n"
                  "011: spG_BikesOfType   (Parameter = Character of Length=03)\r\n"
                  "020: spG_RepairJobs OPEN   (Parameter = None)   (with Constant Parameter: OPEN)\r\n"
                  "021: spG_TasksOfJob   (Parameter = Long Integer)\r\n"
                  "023: spG_RepairJobs DONE   (Parameter = None)   (with Constant Parameter: DONE)\r\n"
                  "025: spG_Mechanics   (Parameter = None)\r\n"
                  "026: spG_JobsOfMechanic   (Parameter = Character of Length=02)\r\n"
                  "033: spG_PurchaseYears   (Parameter = None)\r\n"
                  "037: spG_PartsBelow 0   (Parameter = None)   (with Constant Parameter: 0)\r\n"
                  "038: spG_PartsBelow   (Parameter = Long Integer)\r\n"
                  "039: spG_CategoriesBelow   (Parameter = Long Integer)\r\n"
                  "040: spG_Suppliers   (Parameter = None)\r\n"
                  "041: spG_PartsOfSupplier   (Parameter = Character of Length=06)\r\n"
                  "046: spG_Initials   (Parameter = None)\r\n"
                  "047: spG_CustomersByInitial   (Parameter = Text)\r\n"
                  "048: spG_HiresOfCustomer   (Parameter = Long Integer)\r\n"
                  "050: spG_Clubs   (Parameter = None)\r\n"
                  "051: spG_MembersOfClub   (Parameter = Character of Length=08)\r\n"
                  "056: spG_TakingsYears   (Parameter = None)\r\n"
                  "057: spG_MonthsOfYear   (Parameter = Character of Length=04)\r\n"
                  "058: spG_DaysOfMonth   (Parameter = Character of Length=06)\r\n"
                  "061: spG_Invoices UNPAID   (Parameter = None)   (with Constant Parameter: UNPAID)\r\n"
                  "067: spG_StaffBelow 0   (Parameter = None)   (with Constant Parameter: 0)\r\n"
                  "068: spG_StaffBelow   (Parameter = Long Integer)\r\n");
}

TEST(NavToDo, ChangesNothing) {
    clsNavSchemes navs;
    navs.LoadData(SAMPLES "/XST1.txt");
    navs.LoadWeb(SAMPLES "/XST2.txt");
    navs.mLastN = "N5";
    const auto all = [&] {
        auto fields = savedBytes(navs) + savedBytes(navs.oWebs) + navs.mLastN;
        for (const auto& node : navs.NewEnum())
            fields += " " + std::to_string(node->tID) + "<" + std::to_string(node->tParentIs);
        for (const auto& paragraph : navs.oWebs.NewEnum())
            fields += " " + std::to_string(paragraph->tXST1) + paragraph->status;
        return fields;
    };
    const auto before = all();
    Screen screen;
    screen.show(navs);
    static_cast<void>(NavToDo(navs));
    static_cast<void>(WebToDo(navs.oWebs));
    EXPECT_EQ(all(), before) << "no renumbering, which would fill the work fields";
    EXPECT_EQ(screen.taken(), Calls());
}

TEST(WebToDo, OfAnEmptySchemeIsTheHead) {
    EXPECT_EQ(WebToDo(clsWebSchemes()), webHead);
}

TEST(WebToDo, ListsTheQueriesOfAllTypesInTheOrderOfAdding) {
    clsWebSchemes webs;
    const auto add = [&](std::int32_t id, const Text& query, const Text& parm, const Text& type) {
        auto paragraph = makeParagraph(id, 1, 1, "title");
        paragraph->queryIs = query;
        paragraph->parmIs = parm;
        paragraph->typeIs = type;
        webs.Add(paragraph);
    };
    add(12, "spW_Employees 0", "Lkey", "I");
    add(2, "spW_Photos", "", "T");
    add(3, "spW_Table", "Today", "S");
    add(4, "spW_Head", "Text", "H");
    add(5, "", "None", "");
    add(6, "spW_Odd", "", "x");
    EXPECT_EQ(
        WebToDo(webs),
        "THE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\r\n"
        "\r\n"
        "1. Select 'Analysis of Web Scheme'. Correct anomalies, if any.\r\n"
        "2. Select 'Re-Number' from Navigational Scheme Menu.\r\n"
        "3. Save Web Scheme to Text File.\r\n"
        "4. Upload that Text File to your Database as Table XST2, with Identity Column as 'ID'\r\n"
        "5. Code the following Queries / Stored Procedures. These are multi-field Queries, First\r\n"
        "   field Should be named (ID).\r\n"
        "   For Example: spW_Customers: SELECT CUSTID AS [ID], CUSTOMERNAME AS [Customer Name], ADD as [Address], "
        "\r\n"
        "   PHONE AS [Phone No], CONTACT AS [Contact Person] FROM CUSTOMERS ORDER BY CUSTOMERNAME \r\n"
        "\r\n"
        "  ID: Query/Stored Procedure & Parameters & Comments\r\n"
        "\r\n"
        "012: spW_Employees 0   (Parameter = Long Integer)   (with Constant Parameter: 0) <One field-name SHOULD be "
        "prefixed with 'IMG'>\r\n"
        "002: spW_Photos   (Parameter = None) <One field-name SHOULD be prefixed with 'FILE'>\r\n"
        "003: spW_Table   (Parameter = Date (Today))\r\n"
        "004: spW_Head   (Parameter = Text)\r\n"
        "005: \r\n"
        "006: spW_Odd   (Parameter = None)\r\n");
}

TEST(WebToDo, OfTheSample) {
    clsWebSchemes webs;
    webs.LoadData(SAMPLES "/XST2.txt");
    const auto report = WebToDo(webs);
    EXPECT_EQ(report.substr(0, webHead.size()), webHead);
    EXPECT_EQ(std::ranges::count(report, '\n'), std::ranges::count(webHead, '\n') + 105);
    for (const auto& line :
         {"\r\n001: spW_ShopFront   (Parameter = None) <One field-name SHOULD be prefixed with 'IMG'>\r\n",
          "\r\n002: spW_WeekSummary   (Parameter = Date (Today))\r\n",
          "\r\n014: spW_HiresLate 2   (Parameter = Date (Today))   (with Constant Parameter: 2)\r\n",
          "\r\n020: spW_TypePictures   (Parameter = Character of Length=03) <One field-name SHOULD be prefixed with "
          "'FILE'>\r\n",
          "\r\n024: spW_FreeOfStyle   (Parameter = Text)\r\n"})
        EXPECT_NE(report.find(line), std::string::npos) << line;
    EXPECT_TRUE(report.ends_with("\r\n105: spW_CertificatesShaped   (Parameter = None)\r\n"));
}

TEST(WebToDo, CommentsOnTypesExactly) {
    const std::string line = "012: spW   (Parameter = None)";
    EXPECT_EQ(paragraphLine(12, "spW", "", "I"), line + " <One field-name SHOULD be prefixed with 'IMG'>\r\n");
    EXPECT_EQ(paragraphLine(12, "spW", "", "T"), line + " <One field-name SHOULD be prefixed with 'FILE'>\r\n");
    for (const char* type : {"C", "H", "E", "M", "S", "i", "t", "IT", "I ", ""})
        EXPECT_EQ(paragraphLine(12, "spW", "", type), line + "\r\n") << type;
}

TEST(ToDoLine, ShowsAtLeastThreeDigits) {
    EXPECT_EQ(nodeLine(0, "q", "x"), "000: q\r\n");
    EXPECT_EQ(nodeLine(7, "q", "x"), "007: q\r\n");
    EXPECT_EQ(nodeLine(42, "q", "x"), "042: q\r\n");
    EXPECT_EQ(nodeLine(123, "q", "x"), "123: q\r\n");
    EXPECT_EQ(nodeLine(1234, "q", "x"), "1234: q\r\n");
    EXPECT_EQ(nodeLine(2'147'483'647, "q", "x"), "2147483647: q\r\n");
    EXPECT_EQ(paragraphLine(1234, "q", "x", "S"), "1234: q\r\n");
    EXPECT_EQ(paragraphLine(9, "q", "x", "S"), "009: q\r\n");
}

TEST(ToDoLine, ShowsTheSignBeforeTheDigits) {
    EXPECT_EQ(nodeLine(-5, "q", "x"), "-005: q\r\n");
    EXPECT_EQ(nodeLine(-99, "q", "x"), "-099: q\r\n");
    EXPECT_EQ(nodeLine(-1234, "q", "x"), "-1234: q\r\n");
    EXPECT_EQ(nodeLine(-2'147'483'647 - 1, "q", "x"), "-2147483648: q\r\n");
}

TEST(ToDoLine, ShowsTheKindOfParameter) {
    EXPECT_EQ(parameter(""), "   (Parameter = None)");
    EXPECT_EQ(parameter("Lkey"), "   (Parameter = Long Integer)");
    EXPECT_EQ(parameter("CKey05"), "   (Parameter = Character of Length=05)");
    EXPECT_EQ(parameter("CKey30"), "   (Parameter = Character of Length=30)");
    EXPECT_EQ(parameter("Text"), "   (Parameter = Text)");
    EXPECT_EQ(parameter("Today"), "   (Parameter = Date (Today))");
}

TEST(ToDoLine, SaysNothingOfNoneSpelledOut) {
    EXPECT_EQ(parameter("None"), "");
    EXPECT_EQ(parameter("none"), "");
    EXPECT_EQ(nodeLine(7, "spG_Customers", "None"), "007: spG_Customers\r\n");
    EXPECT_EQ(nodeLine(7, "spG_Customers", ""), "007: spG_Customers   (Parameter = None)\r\n");
}

TEST(ToDoLine, KnowsAKindByTwoLettersOfAnyCase) {
    EXPECT_EQ(parameter("lk"), "   (Parameter = Long Integer)");
    EXPECT_EQ(parameter("LKEYS"), "   (Parameter = Long Integer)");
    EXPECT_EQ(parameter("tExt"), "   (Parameter = Text)");
    EXPECT_EQ(parameter("Tea"), "   (Parameter = Text)");
    EXPECT_EQ(parameter("to"), "   (Parameter = Date (Today))");
    for (const auto& other : {"L"s, "T"s, "C"s, "K"s, "xLkey"s, "L key"s, "\xE7k"s, "T\0"s, "*"s + "L"})
        EXPECT_EQ(parameter(other), "") << other;
}

TEST(ToDoLine, IgnoresBlanksAroundAKind) {
    EXPECT_EQ(parameter("   "), "   (Parameter = None)");
    EXPECT_EQ(parameter("  Lkey"), "   (Parameter = Long Integer)");
    EXPECT_EQ(parameter("Text  "), "   (Parameter = Text)");
    EXPECT_EQ(parameter("\tText"), "") << "a tab is not a blank";
    EXPECT_EQ(parameter("*"), "   (Parameter = None)");
    EXPECT_EQ(parameter("** "), "   (Parameter = None)");
}

TEST(ToDoLine, TakesTheLengthFromTheLastTwoCharacters) {
    EXPECT_EQ(parameter("ckey5"), "   (Parameter = Character of Length=y5)");
    EXPECT_EQ(parameter("CK"), "   (Parameter = Character of Length=CK)");
    EXPECT_EQ(parameter("CKey05 "), "   (Parameter = Character of Length=5 )");
    EXPECT_EQ(parameter("CKey05  "), "   (Parameter = Character of Length=  )");
    EXPECT_EQ(parameter("  CKey012"), "   (Parameter = Character of Length=12)");
}

TEST(ToDoLine, ShowsTheFirstConstantOfTheQuery) {
    EXPECT_EQ(constant("spG_A"), "");
    EXPECT_EQ(constant(""), "");
    EXPECT_EQ(constant("spG_A 1"), "   (with Constant Parameter: 1)");
    EXPECT_EQ(constant("spG_A 1 2"), "   (with Constant Parameter: 1)");
    EXPECT_EQ(constant("spG_A one,two three"), "   (with Constant Parameter: one,two)");
}

TEST(ToDoLine, CutsTheQueryAtEveryBlank) {
    EXPECT_EQ(constant("spG_A  1"), "   (with Constant Parameter: )");
    EXPECT_EQ(constant("spG_A "), "   (with Constant Parameter: )");
    EXPECT_EQ(constant(" spG_A"), "   (with Constant Parameter: spG_A)");
    EXPECT_EQ(constant(" "), "   (with Constant Parameter: )");
    EXPECT_EQ(constant("  "), "   (with Constant Parameter: )");
    EXPECT_EQ(constant("spG_A\t1"), "");
    EXPECT_EQ(constant("spG_A\xA0"
                       "1"),
              "");
}

TEST(ToDoLine, ShowsTextsAsTheyAre) {
    EXPECT_EQ(
        nodeLine(7, "spG\0\x1A<b>&\xE9 a\0b c"s, "CKey\0\x1A"s),
        "007: spG\0\x1A<b>&\xE9 a\0b c   (Parameter = Character of Length=\0\x1A)   (with Constant Parameter: a\0b)\r\n"s);
}
