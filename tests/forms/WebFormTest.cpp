// SPDX-License-Identifier: MIT
#include "Helpers.h"

namespace {

class WebForm : public testing::Test, public Stage {
  protected:
    void openOfType(const std::string& type) { open(storedParagraph(type)); }
    [[nodiscard]] Rows usable() const { return enabled(Rows{"txtForm", "txtCol"}); }
};

const std::string helpOfC =
    "(C)-Displays a pure-HTML bar chart, given the columns as X:Y, where X=Column No for X-Axis and Y=Col. No for "
    "Y-Axis. For Example '1:5'; Col-1 will be X-Axis and Col-5 will be Y-Axis.";
const std::string helpOfH =
    "(H)-Header, Displaying Header Information. You can also specify the Form# with this type.";
const std::string helpOfE =
    "(E)-It is sometimes required to execute an Action Query or Non-Row-Returning Stored Procedure. This type will "
    "do "
    "that !!";
const std::string helpOfM =
    "(M)-Displays a Shaped Recordset. Since Shaped Recordset cannot be returned by a Stored Procedure, Please see "
    "how "
    "it has been implemented in Demo Application.";
const std::string helpOfI =
    "(I)-Displays the Header Information alongwith the Image, which is stored as BLOB (Binary Large Object) "
    "data-type. "
    "This should have one field prefixed with 'IMG' (i.e. IMGEmployee, or IMG_Product) and should be of BLOB type. "
    "You "
    "can also specify the Form# with this type.";
const std::string helpOfS = "(S)-Show Table Type, which will display a tabular data and will also sum the columns.";
const std::string helpOfT =
    "(T)-Thumbnail of Images. Please note this type displays images that are not stored in database as BLOB type. "
    "The "
    "database, however, stores the file path of the images. The Field name that returns the full-path of images "
    "should "
    "be prefixed as 'FILE', for example FILEStudents or FILE_Products.";

struct Type {
    std::string letter, entry;
    Rows usable;
    std::string help;
};
const std::vector<Type> types = {
    {"C", "C - Chart (Bar)", {"txtCol"}, helpOfC},
    {"H", "H - Header", {"txtForm"}, helpOfH},
    {"E", "E - Execute Only", {}, helpOfE},
    {"M", "M - Multi-Chapter (Shaped)", {}, helpOfM},
    {"I", "I - Image Header", {"txtForm"}, helpOfI},
    {"S", "S - Show Table", {"txtCol"}, helpOfS},
    {"T", "T - Thumbnail Images", {"txtCol"}, helpOfT},
};

}  // namespace

TEST_F(WebForm, HasItsCaptionAndTexts) {
    open("fWeb");
    EXPECT_EQ(form->objectName(), text("fWeb"));
    EXPECT_EQ(form->windowTitle(), text("Form to Add / Update a Web-Page Paragraph."));
    for (const auto& [name, caption] : std::vector<std::pair<std::string, std::string>>{
             {"Label1", "ID:"},
             {"Label2", "Paragraph Title:"},
             {"Label4", "Paragraph Type:"},
             {"Label7", "Query:"},
             {"Label9", "Parameter Type:"},
             {"Label11", "Form No.:"},
             {"Label13", "Columns Or (XML for (T)):"},
             {"Label18", "Sequence No:"},
             {"Label14", "F3: Save,       ESC: Cancel .   Enter: Move Field-toField"}}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(label(name), caption);
        EXPECT_TRUE(find(*form, name).isVisible());
    }
    EXPECT_EQ(form->findChildren<QLabel*>().size(), 10) << "those and the help";
}

TEST_F(WebForm, StartsInTheFirstField) {
    open("fWeb");
    EXPECT_EQ(focusName(), "txtID");
    EXPECT_EQ(background("txtID"), white);
}

TEST_F(WebForm, OffersTheTypesAndTheParameterKinds) {
    fWeb loaded(navs, nullptr);  // before it has a paragraph
    const auto entriesOf = [&](const char* name) {
        Rows rows;
        auto& list = find<QListWidget>(loaded, name);
        for (int row = 0; row < list.count(); ++row) rows.push_back(list.item(row)->text().toStdString());
        return rows;
    };
    EXPECT_EQ(entriesOf("lstType"),
              Rows({"C - Chart (Bar)", "H - Header", "E - Execute Only", "M - Multi-Chapter (Shaped)",
                    "I - Image Header", "S - Show Table", "T - Thumbnail Images"}));
    EXPECT_EQ(
        entriesOf("lstParm"),
        Rows({"None: No parameter", "LKey: Long Integer Key", "CKeynn: Character Key of length nn",
              "Text: Supply Displayed Text of Treeview as parameter", "Today: supply today's date as parameter"}));
    open("fWeb");
    EXPECT_EQ(entries("lstType").size(), 7U);
    EXPECT_EQ(entries("lstParm").size(), 5U);
}

TEST_F(WebForm, ShowsTheParagraph) {
    auto shownParagraph = makeFullParagraph(9, "S");
    shownParagraph->parmIs = "CKey10";
    open(shownParagraph);
    EXPECT_EQ(shown("txtID"), "9");
    EXPECT_EQ(shown("txtTitle"), "Orders");
    EXPECT_EQ(chosen("lstType"), "5 S - Show Table");
    EXPECT_EQ(shown("txtQuery"), "spW_Orders");
    EXPECT_EQ(chosen("lstParm"), "2 CKeynn: Character Key of length nn");
    EXPECT_EQ(shown("txtnn"), "10");
    EXPECT_EQ(shown("txtParm"), "CKey10");
    EXPECT_EQ(shown("txtForm"), "8");
    EXPECT_EQ(shown("txtCol"), "2:3");
    EXPECT_EQ(shown("txtSeqNo"), "6");
    EXPECT_EQ(static_cast<fWeb&>(*form).WebObject(), paragraph);
}

TEST_F(WebForm, ChoosesTheTypeOfTheParagraph) {
    for (std::size_t index = 0; index < types.size(); ++index) {
        openOfType(types[index].letter);
        EXPECT_EQ(chosen("lstType"), std::to_string(index) + " " + types[index].entry);
        EXPECT_EQ(usable(), types[index].usable);
    }
    for (const char* type : {"", "X", "c", "CH", " "}) {
        SCOPED_TRACE(type);
        openOfType(type);
        EXPECT_EQ(chosen("lstType"), "-1");
        EXPECT_EQ(usable(), Rows({"txtForm", "txtCol"}));
    }
}

TEST_F(WebForm, LeavesTheChoiceForAnUnknownTypeButNotForNone) {
    openOfType("M");
    auto& edit = static_cast<fWeb&>(*form);
    edit.setWebObject(storedParagraph("X"));
    EXPECT_EQ(chosen("lstType"), "3 M - Multi-Chapter (Shaped)");
    edit.setWebObject(storedParagraph(""));
    EXPECT_EQ(chosen("lstType"), "-1");
}

TEST_F(WebForm, UsesTheFieldsByTypeAndKeepsTheirTexts) {
    auto full = makeFullParagraph(9, "");
    open(full);
    // From every type to every other one.
    for (std::size_t from = 0; from < types.size(); ++from)
        for (std::size_t to = 0; to < types.size(); ++to) {
            SCOPED_TRACE(types[from].letter + " to " + types[to].letter);
            choose("lstType", static_cast<int>(from));
            choose("lstType", static_cast<int>(to));
            EXPECT_EQ(usable(), types[to].usable);
            EXPECT_EQ(help(), types[to].help);
            EXPECT_EQ(shown("txtForm") + " " + shown("txtCol"), "8 2:3");
            EXPECT_EQ(background("txtForm"), white);
            EXPECT_EQ(background("txtCol"), white);
        }
    EXPECT_EQ(enabled(Rows{"txtID", "txtTitle", "lstType", "txtQuery", "lstParm", "txtParm", "txtSeqNo"}).size(), 7U);
}

TEST_F(WebForm, HelpsWithEachField) {
    open("fWeb");
    find<QLineEdit>(*form, "txtCol").setEnabled(true);  // no type uses both
    choose("lstParm", 2);
    const std::string helpOfKey = help();
    EXPECT_TRUE(helpOfKey.starts_with("Specify this, when the parameter required to execute the specified"))
        << helpOfKey;
    Rows helps;
    focus("txtID");
    for (int field = 0; field < 10; ++field) {
        helps.push_back(focusName() + ": " + help());
        key(Qt::Key_Tab);
    }
    const std::string length = "Please enter numeric value -- The length of Character Key.";
    EXPECT_EQ(
        helps,
        Rows(
            {"txtID: " + helpOfKey,
             "txtTitle: Please Enter the Title of the Paragraph. If Suffixed by (colon :), then whatever is the Text "
             "of currently selected Node in Treeview will be suffixed to this Title.  For Example, if the title is "
             "'Order Pattern for : ', and the Text of the Node in Treeview is 'Customers', then the paragraph will "
             "be "
             "titled as 'Order Pattern for : Customers'",
             "lstType: <<CHEMIST -- An Aid to Remembering.>> Select the type of Paragraph. The types are: "
             "(C)-Displays "
             "a pure-HTML bar chart, (H)-Header, (E)-Execute Action Query, (M)-Displays a Multi-Chapter (Shaped) "
             "Recordset, (I)-Image Header, (S)-Show Table Type, and (T)-Thumbnail of Images.",
             "txtQuery: Specify the name of Query/Stored Procedure. This should be a multi-field query and should "
             "have "
             "first field named 'ID'. Also, if this query has any CONSTANT parameter(s), it should be specified "
             "here. "
             "For example, if 'spW_Employees' lists all employees below a boss (Parameter=Integer=Boss's ID), then "
             "specifying 'spW_Employees 0' will display the CHIEF (the person who has no Boss and he is the ultimate "
             "Boss!). As a matter of Conventions, this query should be prefixed with 'spW_', which means that it is "
             "a "
             "Web-Page Query. ",
             "lstParm: The Parameters Can be one of the Following : 'None', 'LKey', 'CKeynn', 'Text', or 'Today'.",
             "txtnn: " + length, "txtParm: " + length,
             "txtForm: Enter a Form Number (1, 2, 3 ..). Specifying this will place a hyperlink on the Web-Page "
             "Report, "
             "which when clicked will fire an event, which can be coded to open a Data Entry Form. This number will "
             "specify which form to open. You can specify as 1 for Customers, 2 for Products, 3 for Employee, etc.",
             "txtCol: This is a multi-purpose field. Columns can be Specified as 'All' or '1:3:6'. Column Nos start "
             "with First (ID) field counted as ZERO. When used with Type-S, the columns specified will be summed-up. "
             "(For example: '1:5:6:7' will sum-up column nos. 1, 5, 6 and 7. Specifying 'All' will sum-up all "
             "columns "
             "starting with 1st. This is useful when a cross-Tab Query is to be summed-up and we do not beforehand "
             "the "
             "count of columns!. Please ensure that they are Numeric!. For Type-C, columns can be specified as "
             "'3:4', "
             "3rd col will be X-Axis and 4th, Y-Axis. 'All' will generate charts will all combination of Columns "
             "with "
             "1st columns. i.e. '1:2', '1:3', '1:4', etc.  For Type-T, this field should be used to specify the "
             "Thumbnail parameters as XML fragment.  For example: '<height>150</height> <width>150</width> "
             "<columns>3</columns> <textposition>bottom</textposition>'. <textposition> can be 'botton' or 'right' "
             "only!",
             "txtSeqNo: Please give the Sequence No. for this Paragraph to be displayed in the Web-Report."}));
    EXPECT_EQ(focusName(), "txtID");
}

TEST_F(WebForm, StoresANewParagraph) {
    auto fresh = makeParagraph(6, 7);
    open(fresh);
    enter("txtTitle", "Images of :");
    choose("lstType", 6);
    enter("txtQuery", "spW_Images 0");
    choose("lstParm", 4);
    enter("txtCol", "<height>150</height>");
    enter("txtSeqNo", "30");
    key(Qt::Key_F3);
    EXPECT_EQ(refused(), Rows());
    EXPECT_EQ(stored(), "6|7|30|Images of :|spW_Images 0|Today|T|0|<height>150</height>|");
    EXPECT_EQ(edited(), stored());
    EXPECT_EQ(idsOf(navs.oWebs), "5 6");
    EXPECT_NE(navs.oWebs.Item(6), paragraph) << "what is edited is never the stored paragraph";
    EXPECT_TRUE(isOpen());
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(WebForm, StoresEachField) {
    open("fWeb");
    enter("txtTitle", "Sales");
    enter("txtQuery", "spW_Sales");
    choose("lstParm", 1);
    enter("txtForm", "12");
    enter("txtSeqNo", "-3");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|7|-3|Sales|spW_Sales|Lkey|H|12||more");
}

TEST_F(WebForm, StoresUnderAnotherNumberAsANewParagraph) {
    open("fWeb");
    enter("txtID", "12");
    key(Qt::Key_F3);
    EXPECT_EQ(idsOf(navs.oWebs), "5 12");
    EXPECT_EQ(rowOf(*navs.oWebs.Item(12)), "12|7|20|Orders|spW_Orders|CKey05|H|4||more");
}

TEST_F(WebForm, StoresNoTypeWhenNoneIsChosen) {
    auto unknown = makeFullParagraph(5, "X");
    open(unknown);
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|4|6|Orders|spW_Orders|Lkey||8|2:3|more");
}

TEST_F(WebForm, StoresOnlyTheFieldsThatTheTypeUses) {
    for (const auto& [type, formAndColumns] : std::vector<std::pair<std::string, std::string>>{
             {"C", "0|2:3"}, {"H", "8|"}, {"E", "0|"}, {"M", "0|"}, {"I", "0|"}, {"S", "0|2:3"}, {"T", "0|2:3"}}) {
        SCOPED_TRACE(type);
        open(makeFullParagraph(5, type));
        key(Qt::Key_F3);
        EXPECT_EQ(stored(), "5|4|6|Orders|spW_Orders|Lkey|" + type + "|" + formAndColumns + "|more");
        EXPECT_EQ(edited(), stored());
        EXPECT_EQ(shown("txtForm") + " " + shown("txtCol"), "8 2:3") << "the fields stay";
        Answers answers;  // and are no longer what is stored
        answers.then("question", answering("Do you want to Update the Paragraph?", Qt::Key_N));
        key(Qt::Key_Escape);
    }
}

TEST_F(WebForm, DropsTheFormNumberOfAnImageHeader) {
    openOfType("I");
    EXPECT_EQ(usable(), Rows{"txtForm"});
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|7|20|Orders|spW_Orders|CKey05|I|0||more");
    EXPECT_EQ(shown("txtForm"), "4");
    enter("txtForm", "0");
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen()) << "the fields are what is stored";
}

TEST_F(WebForm, PassesOnThatAQueryIsMissing) {
    open("fWeb");
    enter("txtQuery", "");
    for (int time = 0; time < 3; ++time) {
        key(Qt::Key_F3);
        EXPECT_EQ(refused(), Rows{"Query field cannot be blank..."});
        EXPECT_EQ(stored(), "5|7|20|Orders|spW_Orders|CKey05|H|4||more");
        EXPECT_EQ(edited(), stored());
        EXPECT_TRUE(isOpen());
    }
    enter("txtQuery", " ");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|7|20|Orders| |CKey05|H|4||more");
}
