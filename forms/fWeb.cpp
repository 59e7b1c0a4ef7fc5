// SPDX-License-Identifier: MIT
#include "forms/fWeb.h"

#include <algorithm>

#include "forms/FieldNotes.h"
#include "forms/ParameterChoices.h"
#include "model/ParagraphType.h"
#include "views/Look.h"

namespace {

constexpr EntryField txtID = {
    .kind = EntryField::ID,
    .label = "Label1",
    .caption = "ID:",
    .name = "txtID",
};
constexpr EntryField txtTitle = {
    .kind = EntryField::Line,
    .label = "Label2",
    .caption = "Paragraph Title:",
    .name = "txtTitle",
    .help =
        "Please Enter the Title of the Paragraph. If Suffixed by (colon :), then whatever is the Text of "
        "currently selected Node in Treeview will be suffixed to this Title.  For Example, if the title is 'Order "
        "Pattern for : ', and the Text of the Node in Treeview is 'Customers', then the paragraph will be titled "
        "as 'Order Pattern for : Customers'",
    .comma =
        "When the file is opened again, the title ends at the comma. What follows it in the line is read as the "
        "query, the parameter, the type, the form number, the columns and the field extra, in this order; what is "
        "left over is lost.",
};
constexpr EntryField lstType = {
    .kind = EntryField::TypeList,
    .label = "Label4",
    .caption = "Paragraph Type:",
    .name = "lstType",
    .help =
        "<<CHEMIST -- An Aid to Remembering.>> Select the type of Paragraph. The types are: (C)-Displays a "
        "pure-HTML bar chart, (H)-Header, (E)-Execute Action Query, (M)-Displays a Multi-Chapter (Shaped) "
        "Recordset, (I)-Image Header, (S)-Show Table Type, and (T)-Thumbnail of Images.",
};
constexpr EntryField txtQuery = {
    .kind = EntryField::Line,
    .label = "Label7",
    .caption = "Query:",
    .name = "txtQuery",
    .help =
        "Specify the name of Query/Stored Procedure. This should be a multi-field query and should have first "
        "field named 'ID'. Also, if this query has any CONSTANT parameter(s), it should be specified here. For "
        "example, if 'spW_Employees' lists all employees below a boss (Parameter=Integer=Boss's ID), then "
        "specifying 'spW_Employees 0' will display the CHIEF (the person who has no Boss and he is the ultimate "
        "Boss!). As a matter of Conventions, this query should be prefixed with 'spW_', which means that it is a "
        "Web-Page Query. ",
    .comma =
        "When the file is opened again, the query ends at the comma. What follows it in the line is read as the "
        "parameter, the type, the form number, the columns and the field extra, in this order; what is left over is "
        "lost.",
};
constexpr EntryField lstParm = {
    .kind = EntryField::KindList,
    .label = "Label9",
    .caption = "Parameter Type:",
    .name = "lstParm",
    .help = helpOnParameters,
};
constexpr EntryField txtnn = {
    .kind = EntryField::KeyLength,
    .caption = "Parameter Type: length nn",
    .name = "txtnn",
    .help = "Please enter numeric value -- The length of Character Key.",
};
constexpr EntryField txtParm = {
    .kind = EntryField::Parameter,
    .caption = "Parameter Type: as it will be stored",
    .name = "txtParm",
    .comma =
        "When the file is opened again, the parameter ends at the comma. What follows it in the line is read as the "
        "type, the form number, the columns and the field extra, in this order; what is left over is lost.",
};
constexpr EntryField txtForm = {
    .kind = EntryField::Line,
    .label = "Label11",
    .caption = "Form No.:",
    .name = "txtForm",
    .help =
        "Enter a Form Number (1, 2, 3 ..). Specifying this will place a hyperlink on the Web-Page Report, which "
        "when clicked will fire an event, which can be coded to open a Data Entry Form. This number will specify "
        "which form to open. You can specify as 1 for Customers, 2 for Products, 3 for Employee, etc.",
};
constexpr EntryField txtCol = {
    .kind = EntryField::Line,
    .label = "Label13",
    .caption = "Columns Or (XML for (T)):",
    .name = "txtCol",
    .help =
        "This is a multi-purpose field. Columns can be Specified as 'All' or '1:3:6'. Column Nos start with First "
        "(ID) field counted as ZERO. When used with Type-S, the columns specified will be summed-up. (For "
        "example: '1:5:6:7' will sum-up column nos. 1, 5, 6 and 7. Specifying 'All' will sum-up all columns "
        "starting with 1st. This is useful when a cross-Tab Query is to be summed-up and we do not beforehand the "
        "count of columns!. Please ensure that they are Numeric!. For Type-C, columns can be specified as '3:4', "
        "3rd col will be X-Axis and 4th, Y-Axis. 'All' will generate charts will all combination of Columns with "
        "1st columns. i.e. '1:2', '1:3', '1:4', etc.  For Type-T, this field should be used to specify the "
        "Thumbnail parameters as XML fragment.  For example: '<height>150</height> <width>150</width> "
        "<columns>3</columns> <textposition>bottom</textposition>'. <textposition> can be 'botton' or 'right' "
        "only!",
    .comma =
        "When the file is opened again, the columns end at the comma. What follows it is read as the field extra; "
        "what is left over is lost.",
};
constexpr EntryField txtSeqNo = {
    .kind = EntryField::CheckedNumber,
    .label = "Label18",
    .caption = "Sequence No:",
    .name = "txtSeqNo",
    .help = "Please give the Sequence No. for this Paragraph to be displayed in the Web-Report.",
};
// In the order of the form.
constexpr const EntryField* fields[] = {&txtID, &txtTitle, &lstType, &txtQuery, &lstParm,
                                        &txtnn, &txtParm,  &txtForm, &txtCol,   &txtSeqNo};

constexpr TypeChoice types[] = {
    {.entry = "C - Chart (Bar)",
     .disables = {&txtForm, &txtCol},
     .enables = {&txtCol},
     .help =
         "(C)-Displays a pure-HTML bar chart, given the columns as X:Y, where X=Column No for X-Axis and Y=Col. No "
         "for Y-Axis. For Example '1:5'; Col-1 will be X-Axis and Col-5 will be Y-Axis."},
    {.entry = "H - Header",
     .disables = {&txtForm, &txtCol},
     .enables = {&txtForm},
     .help = "(H)-Header, Displaying Header Information. You can also specify the Form# with this type."},
    {.entry = "E - Execute Only",
     .disables = {&txtForm, &txtCol},
     .help =
         "(E)-It is sometimes required to execute an Action Query or Non-Row-Returning Stored Procedure. This type "
         "will do that !!"},
    {.entry = "M - Multi-Chapter (Shaped)",
     .disables = {&txtForm, &txtCol},
     .help =
         "(M)-Displays a Shaped Recordset. Since Shaped Recordset cannot be returned by a Stored Procedure, Please "
         "see how it has been implemented in Demo Application."},
    {.entry = "I - Image Header",
     .disables = {&txtForm, &txtCol},
     .enables = {&txtForm},
     .help =
         "(I)-Displays the Header Information alongwith the Image, which is stored as BLOB (Binary Large Object) "
         "data-type. This should have one field prefixed with 'IMG' (i.e. IMGEmployee, or IMG_Product) and should "
         "be of BLOB type. You can also specify the Form# with this type."},
    {.entry = "S - Show Table",
     .disables = {&txtForm, &txtCol},
     .enables = {&txtCol},
     .help = "(S)-Show Table Type, which will display a tabular data and will also sum the columns."},
    {.entry = "T - Thumbnail Images",
     .disables = {&txtForm, &txtCol},
     .enables = {&txtCol},
     .help = "(T)-Thumbnail of Images. Please note this type displays images that are not stored in database as BLOB "
             "type. The database, however, stores the file path of the images. The Field name that returns the "
             "full-path of images should be prefixed as 'FILE', for example FILEStudents or FILE_Products."},
};
static_assert(std::ranges::equal(types, paragraphTypes, {}, &TypeChoice::letter, &ParagraphType::letter));

// In the order in which they are written.
using Paragraph = clsWebScheme;
constexpr EntryMember<Paragraph> members[] = {
    numberMember<Paragraph, &Paragraph::ID>(txtID),       numberMember<Paragraph, &Paragraph::seqNo>(txtSeqNo),
    textMember<Paragraph, &Paragraph::titleIs>(txtTitle), textMember<Paragraph, &Paragraph::queryIs>(txtQuery),
    textMember<Paragraph, &Paragraph::parmIs>(txtParm),   textMember<Paragraph, &Paragraph::typeIs>(lstType),
    numberMember<Paragraph, &Paragraph::formIs>(txtForm), textMember<Paragraph, &Paragraph::colsAre>(txtCol),
};
static_assert(hasAllFields(fields, types, members));

}  // namespace

fWeb::fWeb(clsNavSchemes& oNavs, QWidget* parent)
    : RecordForm(
          {.name = "fWeb",
           .caption = "Form to Add / Update a Web-Page Paragraph.",
           .question = "Do you want to Update the Paragraph?",
           .fields = fields,
           .types = types,
           .hintFont = arial(12, QFont::Bold)},
          members, [&oNavs](const Pointer& paragraph) { return oNavs.FuseWeb(paragraph); }, parent),
      oNavs_(oNavs) {
    load();
}

void fWeb::setWebObject(Pointer paragraph) {
    setRecord(std::move(paragraph));
    if (!WebObject()) return;
    fillFields();
    chooseType(WebObject()->typeIs);
    chooseParameter(WebObject()->parmIs);
}

// An unknown type does not change the choice.
void fWeb::chooseType(std::string_view type) {
    const int place = placeOfType(type);
    if (type.empty() || place != -1) listOfTypes().setListIndex(place);
}

QString fWeb::noteOnID(std::int32_t typed) const {
    const auto& paragraphs = oNavs_.oWebs;
    const auto isStored = [&](std::int32_t id) { return paragraphs.HasKey(keyText(id)); };
    if (!WebObject() || typed == WebObject()->ID || !isStored(typed)) return {};
    return noteOnOwner(typed, "another paragraph", paragraphs.Item(typed)->titleIs.view()) +
           QStringLiteral(" Saving overwrites it with all fields of this form and moves it to this page.") +
           noteOnOpened(isStored(WebObject()->ID), "paragraph", WebObject()->ID);
}
