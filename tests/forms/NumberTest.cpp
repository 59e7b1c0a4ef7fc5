// SPDX-License-Identifier: MIT
#include <QMenu>

#include "Helpers.h"
#include "views/MessageBox.h"

// The fields that need a number, when they are left and when they are stored.

namespace {

class Number : public BothForms {
  protected:
    // The fields that are checked when they are left.
    [[nodiscard]] Rows checked() const { return isNode() ? Rows{"txtnn"} : Rows{"txtnn", "txtSeqNo"}; }
    // The fields that are checked when they are stored.
    [[nodiscard]] Rows wholeNumbers() const {
        return isNode() ? Rows{"txtID"} : Rows{"txtID", "txtSeqNo", "txtForm"};
    }
    // Does something that must lead to one message, beside the field that it is about.
    template <class Act>
    void isRefused(Act act) {
        const QWidget* field = nullptr;
        Answers answers;
        answers.then("message", [&](QDialog& message) {
            field = form->focusWidget();
            reading(notNumeric)(message);
        });
        act();
        answers.wait();
        EXPECT_EQ(field, form->focusWidget());
    }
    [[nodiscard]] std::vector<std::pair<std::string, std::function<void()>>> waysToLeave() {
        return {
            {"Tab", [this] { key(Qt::Key_Tab); }},
            {"Shift+Tab", [this] { key(Qt::Key_Tab, Qt::ShiftModifier); }},
            {"Enter", [this] { key(Qt::Key_Return); }},
            {"a click on a text box", [this] { click("txtID"); }},
            {"a click on a list", [this] { choose("lstType", 2); }},
            {"a click on the other list", [this] { choose("lstParm", 0); }},
        };
    }
    [[nodiscard]] Rows choices() const { return {chosen("lstType"), chosen("lstParm"), Stage::shown("txtParm")}; }
};

const Rows noNumbers = {"", " ", "x", "5x", "x5", "1 2", "--5", "+", "-", ".", "1,5", "1e3", "0x1F", "5 m"};
// Numbers for a length, which may be of any size, but not for what is stored in 32 bits.
const Rows tooLarge = {"2147483648", "-2147483649", "99999999999999999999"};

}  // namespace

RUN_WITH_BOTH_FORMS(Number);

TEST_P(Number, IsNeededToLeaveTheField) {
    for (const auto& field : checked()) {
        open();
        const auto before = choices();
        for (const auto& [way, leave] : waysToLeave()) {
            SCOPED_TRACE(field + " left by " + way);
            enter(field, "x1");
            isRefused(leave);
            EXPECT_EQ(focusName(), field);
            EXPECT_EQ(Stage::shown(field), "x1") << "the text stays";
            EXPECT_EQ(choices(), before) << "nothing else was done";
        }
    }
}

TEST_P(Number, IsNoneOfThese) {
    for (const auto& field : checked()) {
        open();
        auto refused = noNumbers;
        if (field != "txtnn") refused.insert(refused.end(), tooLarge.begin(), tooLarge.end());
        for (const auto& typed : refused) {
            SCOPED_TRACE(field + ": " + typed);
            enter(field, typed);
            isRefused([&] { key(Qt::Key_Tab); });
            EXPECT_EQ(focusName(), field);
        }
    }
}

TEST_P(Number, LetsTheFieldBeLeft) {
    for (const auto& field : checked()) {
        open();
        for (const char* typed : {"5", " 5 ", "+5", "-5", "007", "2.5", "0", "2147483647", "-2147483648"}) {
            SCOPED_TRACE(field + ": " + typed);
            enter(field, typed);
            key(Qt::Key_Tab);
            EXPECT_EQ(focusName(), field == "txtnn" ? "txtParm" : "txtID");
            enter(field, typed);
            key(Qt::Key_Tab, Qt::ShiftModifier);
            EXPECT_EQ(focusName(), field == "txtnn" ? "lstParm" : "txtForm");
            enter(field, typed);
            key(Qt::Key_Return);
            EXPECT_EQ(focusName(), field == "txtnn" ? "txtParm" : "txtID");
            enter(field, typed);
            choose("lstType", isNode() ? 2 : 1);
            EXPECT_EQ(focusName(), "lstType");
        }
    }
}

TEST_P(Number, OfALengthMayBeOfAnySize) {
    for (const auto& [typed, parameter] :
         std::vector<std::pair<std::string, std::string>>{{"2147483648", "CKey2147483648"},
                                                          {"-2147483649", "CKey-2147483649"},
                                                          {" +0099999999999999999999 ", "CKey99999999999999999999"},
                                                          {"4294967296.5", "CKey4294967296"},
                                                          {"4294967297.5", "CKey4294967298"},
                                                          {"99999999999999999999.9", "CKey100000000000000000000"}}) {
        SCOPED_TRACE(typed);
        open();
        enter("txtnn", typed);
        EXPECT_EQ(Stage::shown("txtParm"), parameter);
        key(Qt::Key_Tab);
        EXPECT_EQ(focusName(), "txtParm");
        key(Qt::Key_F3);
        EXPECT_NE(stored().find("|" + parameter + "|"), std::string::npos) << stored();
        // Only the last two characters are read back.
        open();
        EXPECT_EQ(Stage::shown("txtnn"), parameter.substr(parameter.size() - 2));
    }
}

TEST_P(Number, CanBeCorrectedAfterTheMessage) {
    open();
    enter("txtnn", "x");
    isRefused([&] { choose("lstParm", 0); });
    EXPECT_EQ(chosen("lstParm"), "2 CKeynn: Character Key of length nn");
    enter("txtnn", "9");
    choose("lstParm", 0);
    EXPECT_EQ(chosen("lstParm"), "0 None: No parameter");
    EXPECT_EQ(focusName(), "lstParm");
}

TEST_P(Number, IsAskedForOnceAClick) {
    open();
    enter("txtnn", "x");
    isRefused([&] { choose("lstType", 2); });
    isRefused([&] { choose("lstType", 2); });
    isRefused([&] { click("txtID"); });
    EXPECT_EQ(focusName(), "txtnn");
    EXPECT_EQ(chosen("lstType"), isNode() ? "1 G - Generating Branch" : "1 H - Header");
}

TEST_P(Number, IsNeededForAClickThatBringsTheWindowBack) {
    open();
    enter("txtnn", "x");
    QWidget other;
    other.show();
    activate(other);
    EXPECT_FALSE(form->isActiveWindow());
    isRefused([&] { choose("lstType", 2); });
    EXPECT_EQ(focusName(), "txtnn");
    EXPECT_EQ(chosen("lstType"), isNode() ? "1 G - Generating Branch" : "1 H - Header");
}

// The second press of a double click arrives as a double click, even if the first press was elsewhere.
TEST_P(Number, IsNeededForADoubleClickToo) {
    open();
    enter("txtnn", "x");
    auto& query = line("txtQuery");
    isRefused([&] { QTest::mouseDClick(&query, Qt::LeftButton, {}, QPoint(9, 9)); });  // sends the second press alone
    EXPECT_EQ(focusName(), "txtnn");
    EXPECT_EQ(query.selectedText(), QString());
}

TEST_P(Number, IsNotAskedForByAClickInTheSameField) {
    open();
    enter("txtnn", "x");
    click("txtnn");
    settle();
    EXPECT_EQ(focusName(), "txtnn");
    for (const char* label : {"lblDesc", "Label1", "Label14"}) click(label);
    settle();
    EXPECT_EQ(focusName(), "txtnn") << "nor where the focus does not go";
}

TEST_P(Number, IsNotAskedForByADisabledField) {
    open();
    enter("txtnn", "x");
    const std::string disabled = isNode() ? "txtIcon" : "txtCol";
    find(*form, disabled).setEnabled(false);
    click(disabled);
    settle();
    EXPECT_EQ(focusName(), "txtnn");
}

TEST_P(Number, KeepsARightClickElsewhereFromOpeningAMenu) {
    open();
    enter("txtnn", "x");
    Answers answers;
    answers.then("message", reading(notNumeric));
    click(line("txtQuery"), QPoint(9, 9), Qt::RightButton);
    answers.wait();
    settle();
    auto* popup = QApplication::activePopupWidget();
    EXPECT_EQ(popup, nullptr);
    if (popup) popup->close();
    EXPECT_EQ(focusName(), "txtnn");
}

TEST_P(Number, ShowsItsOwnHelpWhenItIsMissing) {
    open();
    enter("txtnn", "x");
    isRefused([&] { choose("lstType", 2); });
    EXPECT_EQ(help(),
              isNode() ? "Please enter numeric value" : "Please enter numeric value -- The length of Character Key.");
}

TEST_P(Number, KeepsTheHighlightWithEnter) {
    open();
    focus("lstParm");
    key(Qt::Key_Return);
    EXPECT_EQ(background("txtnn"), lightBlue);
    enter("txtnn", "x");
    isRefused([&] { key(Qt::Key_Return); });
    EXPECT_EQ(focusName(), "txtnn");
    EXPECT_EQ(background("txtnn"), lightBlue);
    EXPECT_EQ(background("txtParm"), white);
}

TEST_P(Number, IsNotAskedForWhenAnotherWindowTakesTheFocus) {
    for (const auto& field : checked()) {
        open();
        enter(field, "x");
        const auto shownHelp = help();
        QWidget other;
        other.show();
        activate(other);
        settle();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        activate(*form);
        settle();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(focusName(), field);
        EXPECT_EQ(help(), shownHelp);
        isRefused([&] { key(Qt::Key_Tab); });
    }
}

TEST_P(Number, ALengthIsNotTakenWhenAnotherWindowTakesTheFocus) {
    open();
    enter("txtnn", "5");
    enter("txtParm", "mine");
    focus("txtnn");
    EXPECT_EQ(shown("txtParm"), "mine");
    {
        QWidget other;
        other.show();
        activate(other);
        settle();
    }
    activate(*form);
    settle();
    EXPECT_EQ(shown("txtParm"), "mine");
    key(Qt::Key_Tab);
    EXPECT_EQ(shown("txtParm"), "CKey05");
}

// The one with the focus comes first.
TEST_P(Number, ASaveAsksForOneAfterTheOther) {
    open();
    enter("txtID", "y");
    enter("txtnn", "x");
    isRefused([&] { key(Qt::Key_F3); });
    EXPECT_EQ(focusName(), "txtnn");
    enter("txtnn", "6");
    isRefused([&] { key(Qt::Key_F3); });
    EXPECT_EQ(focusName(), "txtID");
    enter("txtID", isNode() ? "7" : "5");
    key(Qt::Key_F3);
    EXPECT_NE(stored().find("CKey06"), std::string::npos) << stored();
}

TEST_P(Number, IsNotAskedForByAMenu) {
    open();
    enter("txtnn", "x");
    click(line("txtnn"), QPoint(9, 9), Qt::RightButton);
    QPointer<QWidget> menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    QTest::keyClick(menu->windowHandle(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(focusName(), "txtnn");
}

TEST_P(Number, IsNotAskedForWhenTheFormIsClosed) {
    open();
    enter("txtnn", "x");
    EXPECT_EQ(Stage::shown("txtParm"), "CKey05");
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen()) << "the length itself is not stored";
}

TEST_P(Number, IsNotAskedForByTheMessageOfARefusal) {
    open();
    navs.inform = [&](std::string_view message) { showMessage(form.get(), text(std::string(message))); };
    const auto before = stored();
    enter("txtQuery", "");
    enter("txtnn", "x");
    Answers answers;
    answers.then("message", reading(isNode() ? "No Generating Query or Stored procedure specified. Changes not saved"
                                             : "Query field cannot be blank..."));
    key(Qt::Key_F3);
    answers.wait();
    EXPECT_EQ(focusName(), "txtnn");
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(stored(), before);
}

TEST_P(Number, IsNotAskedForByF3) {
    open();
    enter("txtnn", "x");
    enter(titleField(), "Changed");
    focus("txtnn");
    key(Qt::Key_F3);
    EXPECT_EQ(focusName(), "txtnn");
    EXPECT_EQ(stored(),
              isNode() ? "7|Changed|G|2|spG_Orders|CKey05|leaf|3" : "5|7|20|Changed|spW_Orders|CKey05|H|4||more");
}

TEST_P(Number, IsNotNeededInOtherFields) {
    open();
    const auto needed = checked();
    for (const auto& field : fields()) {
        if (field.starts_with("lst") || !enabled(field) || std::ranges::count(needed, field) != 0) continue;
        SCOPED_TRACE(field);
        enter(field, "x");
        key(Qt::Key_Tab);
        EXPECT_NE(focusName(), field);
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_P(Number, WholeIsNeededToStore) {
    auto numbers = noNumbers;
    numbers.insert(numbers.end(), tooLarge.begin(), tooLarge.end());
    for (const char* fraction : {"2.5", "3.", ".5", "5.0"}) numbers.push_back(fraction);
    open();
    const auto before = stored();
    for (const auto& field : wholeNumbers()) {
        const auto good = Stage::shown(field);
        for (const auto& typed : numbers) {
            SCOPED_TRACE(field + ": " + typed);
            enter(field, typed);
            focus("txtQuery");
            isRefused([&] { key(Qt::Key_F3); });
            EXPECT_EQ(focusName(), field);
            EXPECT_EQ(Stage::shown(field), typed) << "nothing is lost";
            EXPECT_EQ(stored(), before) << "nothing is saved";
            EXPECT_EQ(edited(), before);
            EXPECT_EQ(refused(), Rows());
            EXPECT_TRUE(isOpen());
        }
        enter(field, good);
    }
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_P(Number, IsStored) {
    for (const auto& [typed, number] :
         std::vector<std::pair<std::string, std::string>>{{"12", "12"},
                                                          {" 13 ", "13"},
                                                          {"+14", "14"},
                                                          {"-15", "-15"},
                                                          {"0016", "16"},
                                                          {"0", "0"},
                                                          {"2147483647", "2147483647"},
                                                          {"-2147483648", "-2147483648"}}) {
        SCOPED_TRACE(typed);
        open();
        for (const auto& field : wholeNumbers()) enter(field, typed);
        key(Qt::Key_F3);
        EXPECT_EQ(refused(), Rows());
        EXPECT_EQ(edited(), isNode() ? number + "|Orders|G|2|spG_Orders|CKey05|leaf|3"
                                     : number + "|7|" + number + "|Orders|spW_Orders|CKey05|H|" + number + "||more");
        EXPECT_EQ(stored(), edited());
    }
}

TEST_P(Number, IsNeededForTheYesToTheQuestion) {
    open();
    const auto before = stored();
    enter(titleField(), "Changed");
    enter("txtID", "x");
    focus("txtQuery");
    Answers answers;
    answers.then("question", answering(question(), Qt::Key_Y)).then("message", reading(notNumeric));
    key(Qt::Key_Escape);
    answers.wait();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(focusName(), "txtID");
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(edited(), before);
    EXPECT_EQ(Stage::shown(titleField()), "Changed");
    answers.then("question", answering(question(), Qt::Key_N));
    key(Qt::Key_Escape);
    answers.wait();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(), before);
}

namespace {

class ParagraphNumbers : public testing::Test, public Stage {};

}  // namespace

TEST_F(ParagraphNumbers, AreNamedInTheOrderInWhichTheyAreStored) {
    open("fWeb");
    const auto before = stored();
    enter("txtForm", "z");
    enter("txtSeqNo", "y");
    enter("txtID", "x");
    focus("txtQuery");
    for (const char* field : {"txtID", "txtSeqNo", "txtForm"}) {
        Answers answers;
        answers.then("message", reading(notNumeric));
        key(Qt::Key_F3);
        answers.wait();
        EXPECT_EQ(focusName(), field);
        EXPECT_EQ(stored(), before);
        EXPECT_EQ(edited(), before);
        enter(field, "6");
    }
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "6|7|6|Orders|spW_Orders|CKey05|H|6||more");
}

TEST_F(ParagraphNumbers, AreAskedForBeforeTheQuery) {
    open("fWeb");
    enter("txtQuery", "");
    enter("txtForm", "z");
    Answers answers;
    answers.then("message", reading(notNumeric));
    key(Qt::Key_F3);
    answers.wait();
    EXPECT_EQ(refused(), Rows());
}

// A type that does not use the form number disables its field; there must be a way to correct the field.
TEST_F(ParagraphNumbers, CanBeCorrectedInADisabledField) {
    open("fWeb");
    enter("txtForm", "z");
    choose("lstType", 0);
    EXPECT_FALSE(enabled("txtForm"));
    Answers answers;
    answers.then("message", reading(notNumeric));
    key(Qt::Key_F3);
    answers.wait();
    EXPECT_TRUE(enabled("txtForm"));
    EXPECT_EQ(focusName(), "txtForm");
    EXPECT_EQ(line("txtForm").selectedText(), text("z"));
    type("4");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), "5|7|20|Orders|spW_Orders|CKey05|C|0||more");
}
