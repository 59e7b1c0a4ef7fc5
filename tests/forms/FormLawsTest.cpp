// SPDX-License-Identifier: MIT
#include "Helpers.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "tests/Letters.h"

// The two forms on random records.

using namespace std::string_literals;

namespace {

// A stored parameter and what the form makes of it.
struct StoredKind {
    std::string stored, becomes;
};
const std::vector<StoredKind> parameters = {
    {"", ""},
    {"Lkey", "Lkey"},
    {"CKey05", "CKey05"},
    {"CKey12", "CKey12"},
    {"CKey00", "CKey00"},
    {"CKey99", "CKey99"},
    {"Text", "Text"},
    {"Today", "Today"},
    {"CKey-7", "CKey-07"},
    {"LKEY", "Lkey"},
    {"lk", "Lkey"},
    {"ckey05", "CKey05"},
    {"CKey5", ""},
    {"CKey123", "CKey23"},
    {"CKey 5", "CKey05"},
    {"CKey+5", "CKey05"},
    {"CK", ""},
    {"CK7", ""},
    {"CK07", "CKey07"},
    {"TEXT", "Text"},
    {"Texas", "Text"},
    {"toDAY", "Today"},
    {"None", ""},
    {"Foo", ""},
    {"L", ""},
    {" ", ""},
    {"   Lkey", "Lkey"},
    {"**", ""},
    {"\xA0Lkey", ""},
    {"Lkey ", "Lkey"},
    {"CKey05 ", "CKey05"},
    {"Today\0"s, "Today"},
};

std::string anyText() {
    static const auto bytes = allBytesBut("\r\n");  // which no record holds
    return *rc::gen::container<std::string>(rc::gen::elementOf(bytes));
}

std::int32_t anyNumber() {
    return *rc::gen::oneOf(rc::gen::arbitrary<std::int32_t>(), rc::gen::inRange<std::int32_t>(-3, 12),
                           rc::gen::element<std::int32_t>(2147483647, -2147483647 - 1, 0));
}

template <class Value>
Value oneOf(const std::vector<Value>& values) {
    return values[*rc::gen::inRange<std::size_t>(0, values.size())];
}

// A form on the screen, for one record, with a scheme that holds it or not.
class Opened : public Stage {
  public:
    // Presses Esc. @return whether the form asks
    [[nodiscard]] bool asksOnEsc() {
        bool asks = false;
        {
            QObject context;
            QTimer timer;
            QObject::connect(&timer, &QTimer::timeout, &context, [&] {
                auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!question) return;
                asks = true;
                question->button(QMessageBox::No)->click();
            });
            timer.start(1);
            key(Qt::Key_Escape);
        }
        RC_ASSERT(!form->isVisible());
        return asks;
    }
};

struct NodeCase {
    Node node;
    std::string parentType;
    StoredKind parameter;
};

NodeCase drawNode(const std::vector<std::string>& types, const std::vector<std::string>& parents) {
    const auto parameter = oneOf(parameters);
    auto node = makeNode(anyNumber(), 2, oneOf(types), anyText(), anyText(), parameter.stored, anyText(), anyText());
    return {node, oneOf(parents), parameter};
}

NodeCase drawNodeShownAsItIs() {
    const auto drawn = drawNode({"", "F", "G", "R", "N"}, {"F", "G"});
    const std::string type(drawn.node->typeIs().view());
    RC_PRE(drawn.parameter.stored == drawn.parameter.becomes);
    RC_PRE(type != "F" || drawn.parentType == "F");
    return drawn;
}

Paragraph drawParagraph(const std::vector<std::string>& types, const StoredKind& parameter) {
    auto paragraph = makeParagraph(anyNumber(), anyNumber(), anyNumber(), anyText());
    paragraph->queryIs = anyText();
    paragraph->parmIs = parameter.stored;
    paragraph->typeIs = oneOf(types);
    paragraph->formIs = anyNumber();
    paragraph->colsAre = anyText();
    paragraph->extra = anyText();
    return paragraph;
}

// The type that the form shows for a node, empty for none.
std::string shownType(const std::string& type, const std::string& parent) {
    const std::string offered = parent == "F" ? nodeLetters : nodeLetters.substr(1);
    const std::string counted = parent == "G" ? nodeLetters.substr(1) : nodeLetters;
    const auto index = type.size() == 1 ? counted.find(type) : std::string::npos;
    return index < offered.size() ? offered.substr(index, 1) : "";
}

const std::vector<std::string> someParents = {"F", "G", "R", "N", "", "none"};
const std::vector<std::string> someNodeTypes = {"", "F", "G", "R", "N", "X", "g", "GR"};

}  // namespace

RC_GTEST_PROP(FormLaws, ANodeThatIsShownAsItIsClosesWithoutAQuestion, ()) {
    const auto drawn = drawNodeShownAsItIs();
    Opened stage;
    stage.open(drawn.node, makeNode(2, 1, drawn.parentType));
    const auto before = stage.edited();
    RC_ASSERT(!stage.asksOnEsc());
    RC_ASSERT(stage.edited() == before);
}

// F3 without a change leaves the saved file as it was.
RC_GTEST_PROP(FormLaws, SavingANodeThatIsShownAsItIsLeavesTheFile, ()) {
    const auto drawn = drawNodeShownAsItIs();
    Opened stage;
    stage.navs.Item(2)->setTypeIs(drawn.parentType);
    if (stage.navs.Item(drawn.node->ID)) drawn.node->ID = 8;
    stage.navs.Add(std::make_shared<clsNavScheme>(*drawn.node));
    const auto before = savedBytes(stage.navs);
    stage.open(drawn.node, stage.navs.Item(2));
    stage.key(Qt::Key_F3);
    RC_ASSERT(savedBytes(stage.navs) == before);
}

RC_GTEST_PROP(FormLaws, SavingAParagraphThatIsShownAsItIsLeavesTheFile, ()) {
    const auto parameter = oneOf(parameters);
    RC_PRE(parameter.stored == parameter.becomes);
    const auto paragraph = drawParagraph({"", "C", "H", "E", "M", "I", "S", "T"}, parameter);
    // Fields that its type does not use are not stored.
    const std::string type(paragraph->typeIs.view());
    if (type != "H" && !type.empty()) paragraph->formIs = 0;
    if (!type.empty() && std::string("HEMI").find(type) != std::string::npos) paragraph->colsAre = "";
    Opened stage;
    stage.navs.oWebs.Remove(std::to_string(paragraph->ID));
    stage.navs.oWebs.Add(std::make_shared<clsWebScheme>(*paragraph));
    const auto before = savedBytes(stage.navs.oWebs);
    stage.open(paragraph);
    stage.key(Qt::Key_F3);
    RC_ASSERT(savedBytes(stage.navs.oWebs) == before);
}

RC_GTEST_PROP(FormLaws, ANodeClosesWithAQuestionExactlyIfItIsShownDifferently, ()) {
    const auto drawn = drawNode(someNodeTypes, someParents);
    const std::string type(drawn.node->typeIs().view());
    const bool takesParameter = type != "F" && type != "N";
    const bool same = shownType(type, drawn.parentType) == type &&
                      (!takesParameter || drawn.parameter.stored == drawn.parameter.becomes);
    RC_CLASSIFY(same);
    Opened stage;
    stage.open(drawn.node, drawn.parentType == "none" ? nullptr : makeNode(2, 1, drawn.parentType));
    const auto before = stage.edited();
    RC_ASSERT(stage.asksOnEsc() == !same);
    RC_ASSERT(stage.edited() == before);
}

RC_GTEST_PROP(FormLaws, ANodeIsStoredAsItIsShown, ()) {
    const auto drawn = drawNode(someNodeTypes, someParents);
    auto& node = *drawn.node;
    Opened stage;
    const bool isStored = *rc::gen::arbitrary<bool>();
    if (isStored) stage.navs.Add(std::make_shared<clsNavScheme>(node));
    const auto type = shownType(std::string(node.typeIs().view()), drawn.parentType);
    const bool generates = type == "G" || type == "R";
    const bool takesQuery = type != "F" && type != "N";
    const std::string parameter = node.typeIs() == "F" || node.typeIs() == "N" ? "" : drawn.parameter.becomes;
    const auto expected =
        rowOf(*makeNode(node.ID, node.parentIs, type, node.descriptionIs, takesQuery ? node.queryIs() : Text(),
                        takesQuery ? Text(parameter) : Text(), node.iconIs, node.roleIs));
    const bool losesAText = !takesQuery && (!node.queryIs().empty() || !parameter.empty());
    const auto before = rowOf(node);
    const auto schemeBefore = rowsOf(stage.navs);
    int children = 0;
    for (const auto& each : stage.navs.NewEnum()) children += each->parentIs == node.ID ? 1 : 0;
    const bool refused = (generates && node.queryIs().empty()) || ((type == "R" || type == "N") && children > 0) ||
                         (type == "G" && children > 1);
    RC_CLASSIFY(refused);

    stage.open(drawn.node, drawn.parentType == "none" ? nullptr : makeNode(2, 1, drawn.parentType));
    stage.key(Qt::Key_F3);
    RC_ASSERT(stage.refused().empty() == !refused);
    RC_ASSERT(rowOf(node) == (refused ? before : expected));
    if (refused)
        RC_ASSERT(rowsOf(stage.navs) == schemeBefore);
    else
        RC_ASSERT(stage.stored() == expected);
    stage.key(Qt::Key_F3);
    RC_ASSERT(rowOf(node) == (refused ? before : expected));
    // The fields still show what they showed: the question comes exactly if that is not what is stored.
    if (!refused) RC_ASSERT(stage.asksOnEsc() == losesAText);
}

RC_GTEST_PROP(FormLaws, AParagraphThatIsShownAsItIsClosesWithoutAQuestion, ()) {
    const auto parameter = oneOf(parameters);
    RC_PRE(parameter.stored == parameter.becomes);
    Opened stage;
    stage.open(drawParagraph({"", "C", "H", "E", "M", "I", "S", "T"}, parameter));
    const auto before = stage.edited();
    RC_ASSERT(!stage.asksOnEsc());
    RC_ASSERT(stage.edited() == before);
}

RC_GTEST_PROP(FormLaws, AParagraphIsStoredAsItIsShown, ()) {
    const auto parameter = oneOf(parameters);
    const auto paragraph = drawParagraph({"", "C", "H", "E", "M", "I", "S", "T", "X", "c", "CH"}, parameter);
    Opened stage;
    if (*rc::gen::arbitrary<bool>()) stage.navs.oWebs.Add(std::make_shared<clsWebScheme>(*paragraph));

    clsWebScheme expected = *paragraph;
    const bool known =
        paragraph->typeIs.view().size() == 1 && paragraphLetters.find(paragraph->typeIs.view()) != std::string::npos;
    if (!known) expected.typeIs = "";
    expected.parmIs = parameter.becomes;
    if (known && paragraph->typeIs != "H") expected.formIs = 0;
    if (known && "HEMI"s.find(paragraph->typeIs.view()) != std::string::npos) expected.colsAre = "";
    const bool losesAField = expected.formIs != paragraph->formIs || expected.colsAre != paragraph->colsAre;
    const bool refused = paragraph->queryIs.empty();
    RC_CLASSIFY(refused);
    RC_CLASSIFY(losesAField);
    const auto before = rowOf(*paragraph);
    const auto schemeBefore = rowsOf(stage.navs.oWebs);
    auto inScheme = expected;
    if (stage.navs.oWebs.HasID(expected.ID)) inScheme.extra = stage.navs.oWebs.Item(expected.ID)->extra;

    stage.open(paragraph);
    for (int time = 0; time < 2; ++time) {
        stage.key(Qt::Key_F3);
        RC_ASSERT(stage.refused().empty() == !refused);
        RC_ASSERT(rowOf(*paragraph) == (refused ? before : rowOf(expected)));
        if (refused)
            RC_ASSERT(rowsOf(stage.navs.oWebs) == schemeBefore);
        else
            RC_ASSERT(stage.stored() == rowOf(inScheme));
    }
    // The fields still show what they showed: the question comes exactly if that is not what is stored.
    if (!refused) RC_ASSERT(stage.asksOnEsc() == losesAField);
}
