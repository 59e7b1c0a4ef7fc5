// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QClipboard>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "Helpers.h"
#include "views/TreeSnapshot.h"

// The notes on what is stored but does harm: commas, quotes, and the ID of another record. What they say is compared
// with what happens when the files are saved and opened again.

namespace {

// The visible tip as text, empty when there is none.
std::string visibleTip() {
    if (!QToolTip::isVisible()) return {};
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString();
}

int widthOfTip() {
    for (const auto* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel") && window->isVisible()) return window->width();
    throw std::runtime_error("there is no tip");
}

void hideTip() {
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience));
}

// The pointer comes to rest on a field.
void hover(QWidget& form, const QWidget& field) {
    QTest::mouseMove(form.windowHandle(), QPoint(1, 1));
    QTest::mouseMove(form.windowHandle(), field.mapTo(&form, field.rect().center()));
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }, patience));
}

class Notes : public BothForms {
  protected:
    ~Notes() override { QToolTip::hideText(); }

    // The note that a field has, whether it is visible or not.
    [[nodiscard]] std::string note(const std::string& field) const { return line(field).toolTip().toStdString(); }
    [[nodiscard]] std::string spoken(const std::string& field, QAccessible::Text what) const {
        return QAccessible::queryAccessibleInterface(&line(field))->text(what).toStdString();
    }
    void paste(const std::string& pasted) const {
        QGuiApplication::clipboard()->setText(text(pasted));
        key(Qt::Key_V, Qt::ControlModifier);
    }
    void hover(const std::string& field) const { ::hover(*form, line(field)); }
    // Opens a form in which every text box can be used and is stored.
    void openAll() {
        open();
        if (!isNode()) choose("lstType", 5);
        hideTip();
    }
    // The fields for texts.
    [[nodiscard]] Rows texts() const {
        if (isNode()) return {"txtDescription", "txtQuery", "txtParm", "txtIcon", "txtRole"};
        return {"txtTitle", "txtQuery", "txtParm", "txtCol"};
    }
    [[nodiscard]] Rows numbers() const {
        if (isNode()) return {"txtID", "txtnn"};
        return {"txtID", "txtnn", "txtSeqNo"};
    }
    // What the note on a comma in this field says.
    [[nodiscard]] std::string ofComma(const std::string& field) const {
        const std::string again = "When the file is opened again, ";
        const std::string inOrder = ", in this order; what is left over is lost.";
        const std::string isRead = "the comma. What follows it in the line is read as ";
        if (isNode()) {
            if (field == "txtDescription")
                return again + "the description ends at " + isRead +
                       "the type and the parent. So this node, with everything below it, will be missing from the "
                       "tree, and the next save drops them from the file.";
            if (field == "txtQuery")
                return again + "the query ends at " + isRead + "the parameter, the icon name and the user role" +
                       inOrder;
            if (field == "txtParm")
                return again + "the parameter ends at " + isRead + "the icon name and the user role" + inOrder;
            if (field == "txtIcon")
                return again +
                       "the icon name ends at the comma. What follows it is read as the user role; what is left over "
                       "is lost.";
            return again + "the user role ends at the comma; the rest of it is lost.";
        }
        const std::string rest = "the type, the form number, the columns and the field extra" + inOrder;
        if (field == "txtTitle") return again + "the title ends at " + isRead + "the query, the parameter, " + rest;
        if (field == "txtQuery") return again + "the query ends at " + isRead + "the parameter, " + rest;
        if (field == "txtParm") return again + "the parameter ends at " + isRead + rest;
        return again +
               "the columns end at the comma. What follows it is read as the field extra; what is left over is lost.";
    }
};

const std::string ofQuote = "A double quote is dropped when the file is opened again.";
const std::string ofNumber = "A number cannot contain a comma or a quote: this one will be refused.";

const std::string ofLength =
    "A length cannot contain a comma or a quote. The parameter does not change until this is a number.";

}  // namespace

RUN_WITH_BOTH_FORMS(Notes);

TEST_P(Notes, ComeAsSoonAsAFieldHoldsACommaOrAQuote) {
    openAll();
    for (const auto& field : texts()) {
        SCOPED_TRACE(field);
        enter(field, "a");
        EXPECT_EQ(note(field), "");
        EXPECT_EQ(visibleTip(), "");
        type(",");
        EXPECT_EQ(note(field), ofComma(field));
        EXPECT_EQ(visibleTip(), ofComma(field));
        type("\"");
        EXPECT_EQ(visibleTip(), ofComma(field) + " " + ofQuote);
        EXPECT_EQ(shown(field), "a,\"") << "nothing is refused";
        key(Qt::Key_Home);
        key(Qt::Key_Right);
        key(Qt::Key_Delete);
        EXPECT_EQ(shown(field), "a\"");
        EXPECT_EQ(note(field), ofQuote);
        EXPECT_EQ(visibleTip(), ofQuote);
        key(Qt::Key_Delete);
        EXPECT_EQ(note(field), "");
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 1000)) << "the note goes with the quote";
    }
}

TEST_P(Notes, ComeWithWhatIsPasted) {
    openAll();
    for (const auto& field : texts()) {
        SCOPED_TRACE(field);
        enter(field, "");
        paste("one, \"two\"");
        EXPECT_EQ(visibleTip(), ofComma(field) + " " + ofQuote);
        EXPECT_EQ(line(field).text(), text("one, \"two\""));
    }
}

TEST_P(Notes, ArePutBesideNoOtherCharacter) {
    openAll();
    for (const auto& field : texts()) {
        enter(field, "");
        paste("'a' `b` ; \u201Cc\u201D \u201Ad\u2018 <e> 1.5");
        EXPECT_EQ(note(field), "") << field;
        EXPECT_EQ(visibleTip(), "") << field;
    }
}

TEST_P(Notes, ComeWhenTheFocusDoes) {
    openAll();
    for (const auto& field : texts()) enter(field, "a,b");
    for (const auto& field : texts()) {
        SCOPED_TRACE(field);
        focus("txtID");
        hideTip();
        focus(field);
        settle();
        EXPECT_EQ(visibleTip(), ofComma(field));
        focus("txtID");
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 1000)) << "the note stays behind";
        auto& widget = line(field);
        const auto place = widget.mapTo(form.get(), widget.rect().center());
        QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, place);
        settle();
        QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, place);
        settle();
        EXPECT_EQ(visibleTip(), ofComma(field)) << "a click takes it away for no longer than it lasts";
    }
}

TEST_P(Notes, AreReachedWithThePointerAfterwards) {
    openAll();
    for (const auto& field : texts()) enter(field, "a,b");
    focus("txtID");
    for (const auto& field : texts()) {
        hideTip();
        hover(field);
        EXPECT_EQ(visibleTip(), ofComma(field));
        EXPECT_LT(widthOfTip(), form->width() / 2) << "in several lines";
        EXPECT_EQ(focusName(), "txtID");
    }
}

TEST_P(Notes, AreThereWhenTheFormOpensOnSuchARecord) {
    if (isNode()) {
        Stage::open(makeNode(7, 2, "G", "a,b", "c,\"d\"", "Text", "e,f", "\"g\""));
        EXPECT_EQ(note("txtDescription"), ofComma("txtDescription"));
        EXPECT_EQ(note("txtQuery"), ofComma("txtQuery") + " " + ofQuote);
        EXPECT_EQ(note("txtParm"), "");
        EXPECT_EQ(note("txtIcon"), ofComma("txtIcon"));
        EXPECT_EQ(note("txtRole"), ofQuote);
    } else {
        auto withCommas = storedParagraph("S");
        withCommas->titleIs = "a,b";
        withCommas->queryIs = "\"c\"";
        withCommas->colsAre = "1,2";
        Stage::open(withCommas);
        EXPECT_EQ(note("txtTitle"), ofComma("txtTitle"));
        EXPECT_EQ(note("txtQuery"), ofQuote);
        EXPECT_EQ(note("txtCol"), ofComma("txtCol"));
    }
    EXPECT_EQ(visibleTip(), "") << "the first field has none";
    key(Qt::Key_Tab);
    EXPECT_EQ(focusName(), titleField());
    settle();
    EXPECT_EQ(visibleTip(), ofComma(titleField()));
}

TEST_P(Notes, AreSpokenBeforeTheHelpWhileTheyLast) {
    openAll();
    for (const auto& field : texts()) {
        SCOPED_TRACE(field);
        const auto help = spoken(field, QAccessible::Help);
        enter(field, "a,b");
        EXPECT_EQ(spoken(field, QAccessible::Description), ofComma(field) + (help.empty() ? "" : " ") + help);
        EXPECT_EQ(spoken(field, QAccessible::Help), help);
        enter(field, "a");
        EXPECT_EQ(spoken(field, QAccessible::Description), help);
    }
}

TEST_P(Notes, SayOfANumberThatItWillBeRefused) {
    openAll();
    for (const auto& field : numbers()) {
        SCOPED_TRACE(field);
        const auto before = shown(field);
        for (const char* typed : {"1,5", "1\"", ","}) {
            enter(field, typed);
            const auto& expected = field == std::string("txtnn") ? ofLength : ofNumber;
            EXPECT_EQ(note(field), expected) << typed;
            EXPECT_EQ(visibleTip(), expected) << typed;
        }
        enter(field, before);
        EXPECT_EQ(note(field), "");
    }
}

// The tip for a character that the code page lacks is not covered by the note.
TEST_P(Notes, LeaveTheTipForARefusedCharacterAlone) {
    openAll();
    const auto field = titleField();
    enter(field, "a,b");
    paste("\u03A9");
    const std::string refused =
        "The character \u03A9 (U+03a9) cannot be stored: it is not in the code page of the files.";
    EXPECT_EQ(visibleTip(), refused);
    auto* assistive = QAccessible::queryAccessibleInterface(&line(field))->editableTextInterface();
    assistive->insertText(1, text("\u03A8"));
    EXPECT_EQ(visibleTip(),
              "The character \u03A8 (U+03a8) cannot be stored: it is not in the code page of the files.");
    EXPECT_EQ(shown(field), "a,b");
    EXPECT_EQ(note(field), ofComma(field));
}

namespace {

class NodeNotes : public testing::Test, public Stage {
  protected:
    NodeNotes() { navs.Add(makeNode(9, 7, "N", "One order", {}, {}, "leaf")); }
    ~NodeNotes() override { QToolTip::hideText(); }

    [[nodiscard]] std::string note() const { return line("txtID").toolTip().toStdString(); }
    // The IDs in the tree from top to bottom.
    static std::string shownBy(const clsNavSchemes& scheme) {
        const TreeSnapshot tree(scheme);
        std::string ids;
        for (std::uint32_t row = 0; row < tree.count(); ++row)
            ids += (row == 0 ? "" : " ") + std::to_string(tree.row(row).id);
        return ids;
    }
    // The nodes that are there when the file has been saved and opened again.
    static void reopen(const clsNavSchemes& scheme, clsNavSchemes& again) {
        const TempFolder folder;
        EXPECT_TRUE(scheme.SaveData(folder / "nodes.txt"));
        again.LoadData(folder / "nodes.txt");
    }
};

class ParagraphNotes : public testing::Test, public Stage {
  protected:
    ~ParagraphNotes() override { QToolTip::hideText(); }

    [[nodiscard]] std::string note() const { return line("txtID").toolTip().toStdString(); }
};

}  // namespace

TEST_F(NodeNotes, SayWhatACommaDoes) {
    struct Case {
        std::string field, typed, reopened;
    };
    for (const auto& [field, typed, reopened] : {Case{"txtDescription", "a,b", "7|a|b|0|2|spG_Orders|CKey05|leaf"},
                                                 {"txtQuery", "a,b", "7|Orders|G|2|a|b|CKey05|leaf"},
                                                 {"txtQuery", "a,b,c,d", "7|Orders|G|2|a|b|c|d"},
                                                 {"txtParm", "a,b", "7|Orders|G|2|spG_Orders|a|b|leaf"},
                                                 {"txtIcon", "a,b", "7|Orders|G|2|spG_Orders|CKey05|a|b"},
                                                 {"txtIcon", "a,b,c", "7|Orders|G|2|spG_Orders|CKey05|a|b"},
                                                 {"txtRole", "a,b", "7|Orders|G|2|spG_Orders|CKey05|leaf|a"}}) {
        SCOPED_TRACE(field + ": " + typed);
        Stage stage;
        stage.open("fNav");
        stage.enter(field, typed);
        stage.key(Qt::Key_F3);
        EXPECT_NE(stage.stored().find(typed), std::string::npos) << "it is stored as it stands";
        clsNavSchemes again;
        reopen(stage.navs, again);
        EXPECT_EQ(rowsOf(again), Rows({"1|Data Browser|F|0||||", "2|Customers|F|1||||", reopened}));
    }
}

TEST_F(NodeNotes, SayThatACommaInADescriptionLosesTheBranch) {
    open("fNav");
    enter("txtDescription", "Orders, open");
    key(Qt::Key_F3);
    EXPECT_EQ(shownBy(navs), "1 2 7 9");
    clsNavSchemes again;
    reopen(navs, again);
    EXPECT_EQ(idsOf(again), "1 2 7 9");
    EXPECT_EQ(shownBy(again), "1 2") << "missing from the tree";
    clsNavSchemes afterTheNextSave;
    reopen(again, afterTheNextSave);
    EXPECT_EQ(idsOf(afterTheNextSave), "1 2") << "and dropped";
}

TEST_F(NodeNotes, SayWhatAQuoteDoes) {
    open("fNav");
    for (const char* field : {"txtDescription", "txtQuery", "txtParm", "txtIcon", "txtRole"}) enter(field, "\"a\"b");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "7|\"a\"b|G|2|\"a\"b|\"a\"b|\"a\"b|\"a\"b");
    clsNavSchemes again;
    reopen(navs, again);
    EXPECT_EQ(rowOf(*again.Item(7)), "7|ab|G|2|ab|ab|ab|ab");
}

// A fixed or non-generating node has no query and no parameter, whatever the fields hold.
TEST_F(NodeNotes, AreNotPutBesideWhatTheTypeDrops) {
    open("fNav");
    for (const char* field : {"txtQuery", "txtParm", "txtnn", "txtDescription"}) enter(field, "1,5");
    enter("txtnn", "05");
    enter("txtParm", "1,5");
    const auto noted = [&] {
        Rows fields;
        for (const char* field : {"txtDescription", "txtQuery", "txtParm"})
            if (!line(field).toolTip().isEmpty()) fields.emplace_back(field);
        return fields;
    };
    EXPECT_EQ(noted(), Rows({"txtDescription", "txtQuery", "txtParm"}));
    choose("lstType", 0);
    EXPECT_EQ(noted(), Rows{"txtDescription"});
    choose("lstType", 2);
    EXPECT_EQ(noted(), Rows({"txtDescription", "txtQuery", "txtParm"}));
    choose("lstType", 3);
    EXPECT_EQ(noted(), Rows{"txtDescription"});
    EXPECT_EQ(shown("txtQuery"), "1,5");
}

TEST_F(ParagraphNotes, SayWhatACommaDoes) {
    struct Case {
        std::string field, typed, reopened;
    };
    for (const auto& [field, typed, reopened] : {Case{"txtTitle", "a,b", "5|7|20|a|b|spW_Orders|CKey05|0|0|1:2"},
                                                 {"txtTitle", "a,b,c", "5|7|20|a|b|c|spW_Orders|0|S|0"},
                                                 {"txtQuery", "a,b", "5|7|20|Orders|a|b|CKey05|0|0|1:2"},
                                                 {"txtParm", "a,b", "5|7|20|Orders|spW_Orders|a|b|0|0|1:2"},
                                                 {"txtCol", "a,b", "5|7|20|Orders|spW_Orders|CKey05|S|0|a|b"},
                                                 {"txtCol", "a,b,c", "5|7|20|Orders|spW_Orders|CKey05|S|0|a|b"}}) {
        SCOPED_TRACE(field + ": " + typed);
        Stage stage;
        stage.open("fWeb");
        stage.choose("lstType", 5);
        stage.enter("txtCol", "1:2");
        stage.enter(field, typed);
        stage.key(Qt::Key_F3);
        EXPECT_NE(stage.stored().find(typed), std::string::npos) << "it is stored as it stands";
        const TempFolder folder;
        ASSERT_TRUE(stage.navs.SaveWeb(folder / "paragraphs.txt"));
        clsWebSchemes again;
        again.LoadData(folder / "paragraphs.txt");
        EXPECT_EQ(rowsOf(again), Rows{reopened});
    }
}

TEST_F(ParagraphNotes, SayWhatAQuoteDoes) {
    open("fWeb");
    choose("lstType", 5);
    for (const char* field : {"txtTitle", "txtQuery", "txtParm", "txtCol"}) enter(field, "\"a\"b");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|7|20|\"a\"b|\"a\"b|\"a\"b|S|0|\"a\"b|more");
    const TempFolder folder;
    ASSERT_TRUE(navs.SaveWeb(folder / "paragraphs.txt"));
    clsWebSchemes again;
    again.LoadData(folder / "paragraphs.txt");
    EXPECT_EQ(rowsOf(again), Rows{"5|7|20|ab|ab|ab|S|0|ab|more"});
}

TEST_F(ParagraphNotes, AreNotPutBesideColumnsThatTheTypeDrops) {
    open("fWeb");
    choose("lstType", 5);
    enter("txtCol", "1,2");
    EXPECT_NE(line("txtCol").toolTip(), QString());
    choose("lstType", 1);
    EXPECT_EQ(line("txtCol").toolTip(), QString());
    EXPECT_EQ(shown("txtCol"), "1,2");
    choose("lstType", 0);
    EXPECT_NE(line("txtCol").toolTip(), QString());
}

// --- the ID of another record ---

TEST_F(NodeNotes, NameTheOtherNodeWithATypedID) {
    navs.Add(makeNode(31, 2, "N", "Hire \"desk\" <b>"));
    open("fNav");
    const std::string expected =
        "The ID 31 belongs to another node, \"Hire \"desk\" <b>\". Saving overwrites it with all fields of "
        "this form and moves it below this node's parent, with everything below it. The node 7 that you opened does "
        "not change.";
    enter("txtID", "3");
    EXPECT_EQ(note(), "") << "a free number";
    type("1");
    EXPECT_EQ(note(), expected);
    EXPECT_EQ(visibleTip(), expected);
    hideTip();
    hover(*form, line("txtID"));
    EXPECT_EQ(visibleTip(), expected) << "nothing in it is markup";
    const auto* interface = QAccessible::queryAccessibleInterface(&line("txtID"));
    EXPECT_EQ(interface->text(QAccessible::Description).toStdString(), expected);
    type("0");
    EXPECT_EQ(note(), "");
    for (const char* same : {" 31 ", "+31", "0031"}) {
        enter("txtID", same);
        EXPECT_EQ(note(), expected) << same;
    }
    for (const char* other : {"", "7", "31.0", "x31", "-31", "99999999999"}) {
        enter("txtID", other);
        EXPECT_EQ(note(), "") << other;
    }
    enter("txtID", "31");
    key(Qt::Key_F3);
    EXPECT_EQ(refused(), Rows());
    EXPECT_EQ(rowOf(*navs.Item(31)), "31|Orders|G|2|spG_Orders|CKey05|leaf|3");
    EXPECT_EQ(rowOf(*navs.Item(7)), "7|Orders|G|2|spG_Orders|CKey05|leaf|3");
    EXPECT_EQ(navs.Count(), 5);
    EXPECT_EQ(note(), "") << "it is this node's own now";
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 1000));
}

// A renumbering gives the ID 0 to nodes outside the tree.
TEST_F(NodeNotes, DoNotTakeANodeOfIDZeroForTheRoot) {
    navs.Add(makeNode(0, 0, "N", "outside"));
    open("fNav");
    enter("txtID", "0");
    EXPECT_EQ(
        note(),
        "The ID 0 belongs to another node, \"outside\". Saving overwrites it with all fields of this form and "
        "moves it below this node's parent, with everything below it. The node 7 that you opened does not change.");
}

TEST_F(NodeNotes, SayThatTheOtherNodeMovesWithItsBranch) {
    navs.Add(makeNode(31, 1, "F", "Suppliers"));
    navs.Add(makeNode(32, 31, "N", "Parts"));
    open("fNav");
    enter("txtID", "31");
    EXPECT_EQ(note(),
              "The ID 31 belongs to another node, \"Suppliers\". Saving overwrites it with all fields of this form "
              "and moves it below this node's parent, with everything below it. The node 7 that you opened does not "
              "change.");
    key(Qt::Key_F3);
    EXPECT_EQ(linksOf(navs), "1<0 2<1 7<2 9<7 31<2 32<31");
    EXPECT_EQ(shownBy(navs), "1 2 7 9 31 32");
}

TEST_F(NodeNotes, SayThatNoNodeIsAddedUnderATakenID) {
    open(makeNode(10, 2, "N", "New"));
    enter("txtID", "9");
    EXPECT_EQ(
        note(),
        "The ID 9 belongs to another node, \"One order\". Saving overwrites it with all fields of this form and "
        "moves it below this node's parent, with everything below it. No new node is added.");
    key(Qt::Key_F3);
    EXPECT_EQ(linksOf(navs), "1<0 2<1 7<2 9<2");
    EXPECT_EQ(rowOf(*navs.Item(9)), "9|New|N|2||||");
}

TEST_F(NodeNotes, SayWhatIsLostWithTheRoot) {
    for (const bool isNew : {false, true}) {
        Stage stage;
        if (isNew)
            stage.open(makeNode(10, 2, "F", "New"));
        else
            stage.open("fNav");
        stage.choose("lstType", 0);
        stage.enter("txtID", "1");
        EXPECT_EQ(
            stage.line("txtID").toolTip().toStdString(),
            "The ID 1 belongs to the root, \"Data Browser\". Saving overwrites the root and puts it below itself: "
            "all nodes will be missing from the tree, and the next save drops them from the file. Only a "
            "second node with the parent 0 and its branch, if there is one, would remain.");
        stage.key(Qt::Key_F3);
        EXPECT_EQ(stage.refused(), Rows());
        EXPECT_EQ(linksOf(stage.navs), "1<2 2<1 7<2");
        EXPECT_EQ(shownBy(stage.navs), "");
        clsNavSchemes again;
        reopen(stage.navs, again);
        EXPECT_EQ(idsOf(again), "");

        stage.navs.Add(makeNode(40, 0, "F", "Another root"));
        stage.navs.Add(makeNode(41, 40, "N", "Below it"));
        EXPECT_EQ(shownBy(stage.navs), "40 41");
        clsNavSchemes rest;
        reopen(stage.navs, rest);
        EXPECT_EQ(idsOf(rest), "40 41");
    }
}

TEST_F(NodeNotes, SayWhatIsLostWithANodeAbove) {
    open("fNav");
    choose("lstType", 0);
    enter("txtID", "2");
    EXPECT_EQ(
        note(),
        "The ID 2 belongs to a node above this one, \"Customers\". Saving overwrites that node and puts it below "
        "itself: it will be missing from the tree with everything below it, and the next save drops them from "
        "the file.");
    key(Qt::Key_F3);
    EXPECT_EQ(refused(), Rows());
    EXPECT_EQ(linksOf(navs), "1<0 2<2 7<2 9<7");
    EXPECT_EQ(shownBy(navs), "1");
    clsNavSchemes again;
    reopen(navs, again);
    EXPECT_EQ(idsOf(again), "1");
}

TEST_F(NodeNotes, AreGivenInALoopOfParentsToo) {
    navs.Add(makeNode(50, 51, "F", "a"));
    navs.Add(makeNode(51, 50, "F", "b"));
    open(makeNode(52, 50, "N", "New"), navs.Item(50));
    enter("txtID", "9");
    EXPECT_EQ(note().substr(0, 49), "The ID 9 belongs to another node, \"One order\". Sa");
    enter("txtID", "51");
    EXPECT_EQ(note().substr(0, 47), "The ID 51 belongs to a node above this one, \"b\"");
}

TEST_F(NodeNotes, NameALongNodeByItsBeginning) {
    navs.Add(makeNode(31, 2, "N", std::string(100'000, 'x')));
    open("fNav");
    enter("txtID", "31");
    const auto name = "\"" + std::string(79, 'x') + "\u2026\"";
    EXPECT_EQ(note().substr(0, 35 + name.size()), "The ID 31 belongs to another node, " + name);
}

TEST_F(ParagraphNotes, NameTheOtherParagraphWithATypedID) {
    navs.oWebs.Add(makeParagraph(12, 2, 1, "Sales %1"));
    open("fWeb");
    enter("txtID", "1");
    EXPECT_EQ(note(), "") << "a node has this ID, no paragraph";
    type("2");
    const std::string start =
        "The ID 12 belongs to another paragraph, \"Sales %1\". Saving overwrites it with all fields of this "
        "form and moves it to this page.";
    EXPECT_EQ(note(), start + " The paragraph 5 that you opened does not change.");
    EXPECT_EQ(visibleTip(), note());
    enter("txtID", "5");
    EXPECT_EQ(note(), "");
    enter("txtID", "12");
    key(Qt::Key_F3);
    EXPECT_EQ(rowsOf(navs.oWebs),
              Rows({"5|7|20|Orders|spW_Orders|CKey05|H|4||more", "12|7|20|Orders|spW_Orders|CKey05|H|4||"}));
    EXPECT_EQ(note(), "") << "it is this paragraph's own now";

    open(makeParagraph(13, 7, 21, "New"));
    enter("txtQuery", "spW_New");
    enter("txtID", "12");
    EXPECT_EQ(note(),
              "The ID 12 belongs to another paragraph, \"Orders\". Saving overwrites it with all fields of this form "
              "and moves it to this page. No new paragraph is added.");
    key(Qt::Key_F3);
    EXPECT_EQ(rowsOf(navs.oWebs), Rows({"5|7|20|Orders|spW_Orders|CKey05|H|4||more", "12|7|21|New|spW_New|||0||"}));
}
