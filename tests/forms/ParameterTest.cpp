// SPDX-License-Identifier: MIT
#include "Helpers.h"

// The parameter kinds, which both forms offer in the same way.

namespace {

class Parameter : public BothForms {
  protected:
    // Opens a form for a record with this stored parameter.
    void openWith(const std::string& parameter) {
        if (isNode()) {
            Stage::open(makeNode(7, 2, "G", "Orders", "spG_Orders", parameter, "leaf", "3"));
        } else {
            auto edited = storedParagraph("H");
            edited->parmIs = parameter;
            Stage::open(edited);
        }
    }
    [[nodiscard]] std::string storedParameter() const {
        return std::string(isNode() ? navs.Item(7)->parmIs().view() : navs.oWebs.Item(5)->parmIs.view());
    }
};

struct Kind {
    std::string entry, parameter, help;
};
const std::vector<Kind> kinds = {
    {"0 None: No parameter", "",
     "Specify this, when there are NO parameter required to execute the specified Query/Stored Procedure."},
    {"1 LKey: Long Integer Key", "Lkey",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Long Integer "
     "Type. "
     "The parameter value will be sourced from the 'Key' of Treeview Node, which is clicked."},
    {"2 CKeynn: Character Key of length nn", "CKey08",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Fixed-Length "
     "String "
     "(Text) Type. The parameter value will be sourced from the 'Key' of Treeview Node, which is clicked. The Length "
     "of "
     "the String (Text/Character) MUST be specified. For example, if the Customer-ID is a 5-Character Text, then "
     "'CKey05' (NOT 'Ckey5') must be specified. When 'Alfreds Futterkiste' is clicked on treeview, the value 'ALFKI' "
     "(ID "
     "for 'Alfreds Futterkiste') will be passed to this query. Please also refer 'How to Segment Time-Line' section "
     "of "
     "the Tutorial to better understand the concept."},
    {"3 Text: Supply Displayed Text of Treeview as parameter", "Text",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a String Type "
     "(Text). "
     "The parameter value will be sourced from the 'Displayed Text' of Treeview Node, which is clicked."},
    {"4 Today: supply today's date as parameter", "Today",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Date Type [as "
     "String (Text)]. The parameter value will be Today's Date as String (dd-Mmm-yyyy)"},
};

}  // namespace

RUN_WITH_BOTH_FORMS(Parameter);

TEST_P(Parameter, ReadsWhatIsStored) {
    struct Case {
        std::string stored, chosen, length, parameter;
    };
    const std::vector<Case> cases = {
        {"", "0 None: No parameter", "", ""},
        {"Lkey", "1 LKey: Long Integer Key", "", "Lkey"},
        {"LKEY", "1 LKey: Long Integer Key", "", "Lkey"},
        {"lk", "1 LKey: Long Integer Key", "", "Lkey"},
        {"  LKey", "1 LKey: Long Integer Key", "", "Lkey"},
        {"CKey05", "2 CKeynn: Character Key of length nn", "05", "CKey05"},
        {"CKey10", "2 CKeynn: Character Key of length nn", "10", "CKey10"},
        {"ckey10", "2 CKeynn: Character Key of length nn", "10", "CKey10"},
        {"CKey123", "2 CKeynn: Character Key of length nn", "23", "CKey23"},
        {"CKey 7", "2 CKeynn: Character Key of length nn", " 7", "CKey07"},
        {"CKey-7", "2 CKeynn: Character Key of length nn", "-7", "CKey-07"},
        {"CKey7", "2 CKeynn: Character Key of length nn", "y7", ""},
        {"CKey", "2 CKeynn: Character Key of length nn", "ey", ""},
        {"CK", "2 CKeynn: Character Key of length nn", "CK", ""},
        {"Text", "3 Text: Supply Displayed Text of Treeview as parameter", "", "Text"},
        {"TEXT", "3 Text: Supply Displayed Text of Treeview as parameter", "", "Text"},
        {"te", "3 Text: Supply Displayed Text of Treeview as parameter", "", "Text"},
        {"Today", "4 Today: supply today's date as parameter", "", "Today"},
        {"tomorrow", "4 Today: supply today's date as parameter", "", "Today"},
        {"  ", "0 None: No parameter", "", ""},
        {"**Lkey", "0 None: No parameter", "", ""},
        {"None", "-1", "", ""},
        {"Foo", "-1", "", ""},
        {"L", "-1", "", ""},
        {"T", "-1", "", ""},
    };
    for (const auto& [stored, chosen, length, parameter] : cases) {
        SCOPED_TRACE(stored);
        openWith(stored);
        EXPECT_EQ(this->chosen("lstParm"), chosen);
        EXPECT_EQ(shown("txtnn"), length);
        EXPECT_EQ(shown("txtParm"), parameter);
        key(Qt::Key_F3);
        EXPECT_EQ(storedParameter(), parameter);
    }
}

TEST_P(Parameter, IsWrittenWhenAKindIsChosen) {
    openWith("CKey08");
    // From every kind to every other one.
    for (std::size_t from = 0; from < kinds.size(); ++from)
        for (std::size_t to = 0; to < kinds.size(); ++to) {
            SCOPED_TRACE(kinds[from].entry + " to " + kinds[to].entry);
            choose("lstParm", static_cast<int>(from));
            choose("lstParm", static_cast<int>(to));
            const bool isKey = to == 2;
            EXPECT_EQ(chosen("lstParm"), kinds[to].entry);
            EXPECT_EQ(shown("txtParm"), kinds[to].parameter);
            EXPECT_EQ(help(), kinds[to].help);
            EXPECT_EQ(enabled("txtnn"), isKey);
            EXPECT_EQ(background("txtnn"), isKey ? tipColour : white);
            EXPECT_EQ(shown("txtnn"), "08");
            key(Qt::Key_F3);
            EXPECT_EQ(storedParameter(), kinds[to].parameter);
        }
}

TEST_P(Parameter, ShowsItsKindWhenTheFormOpens) {
    for (const auto& [entry, parameter, help] : kinds) {
        SCOPED_TRACE(entry);
        openWith(parameter);
        const bool isKey = entry.starts_with("2");
        EXPECT_EQ(this->help(), help);
        EXPECT_EQ(enabled("txtnn"), isKey);
        EXPECT_EQ(background("txtnn"), isKey ? tipColour : white);
    }
}

TEST_P(Parameter, IsChosenWithTheKeyboardToo) {
    openWith("");
    focus("lstParm");
    for (std::size_t kind = 1; kind < kinds.size(); ++kind) {
        key(Qt::Key_Down);
        EXPECT_EQ(chosen("lstParm"), kinds[kind].entry);
        EXPECT_EQ(help(), kinds[kind].help);
        EXPECT_EQ(shown("txtParm"), kind == 2 ? "Lkey" : kinds[kind].parameter) << "no length yet";
    }
}

TEST_P(Parameter, TakesItsLengthInTwoDigits) {
    openWith("CKey05");
    for (const auto& [length, parameter] : std::vector<std::pair<std::string, std::string>>{{"5", "CKey05"},
                                                                                            {"7", "CKey07"},
                                                                                            {"12", "CKey12"},
                                                                                            {"123", "CKey123"},
                                                                                            {"0", "CKey00"},
                                                                                            {"007", "CKey07"},
                                                                                            {" 9 ", "CKey09"},
                                                                                            {"+4", "CKey04"},
                                                                                            {"-5", "CKey-05"},
                                                                                            {"-12", "CKey-12"},
                                                                                            {"2.5", "CKey02"},
                                                                                            {"99.6", "CKey100"},
                                                                                            {"3.", "CKey03"}}) {
        SCOPED_TRACE(length);
        enter("txtnn", length);
        EXPECT_EQ(shown("txtParm"), parameter);
        key(Qt::Key_F3);
        EXPECT_EQ(storedParameter(), parameter);
    }
}

TEST_P(Parameter, FollowsEveryChangeOfTheLength) {
    openWith("CKey05");
    enter("txtnn", "");
    EXPECT_EQ(shown("txtParm"), "CKey05") << "no number, no change";
    Rows parameters;
    for (const char* digit : {"1", "2", "3", "x"}) {
        type(digit);
        parameters.push_back(shown("txtParm"));
    }
    for (int time = 0; time < 4; ++time) {
        key(Qt::Key_Backspace);
        parameters.push_back(shown("txtParm"));
    }
    EXPECT_EQ(parameters, Rows({"CKey01", "CKey12", "CKey123", "CKey123", "CKey123", "CKey12", "CKey01", "CKey01"}));
}

TEST_P(Parameter, StaysWhenTheKeyIsChosenWithoutALength) {
    openWith("Text");
    choose("lstParm", 2);
    EXPECT_EQ(shown("txtParm"), "Text");
    enter("txtnn", "6");
    EXPECT_EQ(shown("txtParm"), "CKey06");
}

TEST_P(Parameter, IsComposedAgainWhenTheChosenKeyIsClicked) {
    openWith("CKey05");
    enter("txtParm", "mine");
    choose("lstParm", 2);
    EXPECT_EQ(shown("txtParm"), "CKey05");
    choose("lstParm", 1);
    enter("txtParm", "mine");
    choose("lstParm", 1);
    EXPECT_EQ(shown("txtParm"), "Lkey");
    EXPECT_EQ(help(), kinds[1].help);
}

TEST_P(Parameter, IsComposedAgainWhenTheLengthIsLeft) {
    const std::vector<std::pair<std::string, std::function<void()>>> ways = {
        {"Tab", [&] { key(Qt::Key_Tab); }},
        {"Shift+Tab", [&] { key(Qt::Key_Tab, Qt::ShiftModifier); }},
        {"Enter", [&] { key(Qt::Key_Return); }},
        {"mouse", [&] { click("txtID"); }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        openWith("CKey05");
        enter("txtParm", "mine");
        focus("txtnn");
        EXPECT_EQ(shown("txtParm"), "mine");
        leave();
        EXPECT_NE(focusName(), "txtnn");
        EXPECT_EQ(shown("txtParm"), "CKey05");
    }
}

TEST_P(Parameter, CanBeWrittenByHand) {
    openWith("Foo");
    EXPECT_EQ(shown("txtParm"), "");
    enter("txtParm", "Foo");
    key(Qt::Key_F3);
    EXPECT_EQ(storedParameter(), "Foo");
}

TEST_P(Parameter, OfALongKeyReadsBackAsItsLastTwoDigits) {
    openWith("CKey05");
    enter("txtnn", "123");
    key(Qt::Key_F3);
    EXPECT_EQ(storedParameter(), "CKey123");
    openWith("CKey123");
    EXPECT_EQ(shown("txtnn"), "23");
}
