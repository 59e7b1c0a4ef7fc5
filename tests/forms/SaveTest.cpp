// SPDX-License-Identifier: MIT
#include "Helpers.h"

// Saving with F3, and the question on closing.

namespace {

class Save : public BothForms {
  protected:
    // A field that the scheme refuses to be without: what it says then.
    [[nodiscard]] std::string refusal() const {
        return isNode() ? "No Generating Query or Stored procedure specified. Changes not saved"
                        : "Query field cannot be blank...";
    }
    [[nodiscard]] std::string original() const {
        return isNode() ? "7|Orders|G|2|spG_Orders|CKey05|leaf|3" : "5|7|20|Orders|spW_Orders|CKey05|H|4||more";
    }
    [[nodiscard]] std::string withTitle(const std::string& title) const {
        return isNode() ? "7|" + title + "|G|2|spG_Orders|CKey05|leaf|3"
                        : "5|7|20|" + title + "|spW_Orders|CKey05|H|4||more";
    }
    // Every way of closing: Esc, the close box, and what else a program may do.
    [[nodiscard]] std::vector<std::pair<std::string, std::function<void()>>> waysToClose() {
        return {{"Esc", [this] { key(Qt::Key_Escape); }},
                {"close box", [this] { form->windowHandle()->close(); }},
                {"close", [this] { form->close(); }},
                {"reject", [this] { form->reject(); }}};
    }
};

}  // namespace

RUN_WITH_BOTH_FORMS(Save);

TEST_P(Save, ClosesWithoutAQuestionWhenNothingChanged) {
    for (const auto& [way, close] : waysToClose()) {
        SCOPED_TRACE(way);
        open();
        close();
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(stored(), original());
    }
}

TEST_P(Save, ClosesWithoutAQuestionAfterF3) {
    open();
    enter(titleField(), "Changed");
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), withTitle("Changed"));
    EXPECT_EQ(edited(), stored());
    EXPECT_TRUE(isOpen());
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_P(Save, ChangesNothingByF3WithoutAChange) {
    open();
    key(Qt::Key_F3);
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), original());
    EXPECT_EQ(edited(), original());
    EXPECT_EQ(refused(), Rows());
    EXPECT_TRUE(isOpen());
}

// Some code pages have several bytes for one character. Line breaks, which this box stores as blanks, stand for them
// here.
TEST_P(Save, KeepsTheBytesOfTextsThatNobodyHasChanged) {
    const Text bytes = "one\r\ntwo";
    navs.Item(7)->descriptionIs = bytes;
    const auto changed = std::make_shared<clsWebScheme>(*navs.oWebs.Item(5));
    changed->titleIs = bytes;
    ASSERT_TRUE(navs.FuseWeb(changed));
    open();
    key(Qt::Key_F3);
    EXPECT_EQ(stored(), withTitle("one\r\ntwo"));
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen()) << "it asks nothing";

    open();
    enter("txtQuery", "spX");
    key(Qt::Key_F3);
    EXPECT_NE(stored().find("|one\r\ntwo|"), std::string::npos) << stored();
    EXPECT_NE(stored().find("|spX|"), std::string::npos) << stored();
    enter(titleField(), "three");
    key(Qt::Key_F3);
    EXPECT_NE(stored().find("|three|"), std::string::npos) << stored();
}

TEST_P(Save, AsksAboutChangesWhicheverWayTheFormIsClosed) {
    for (const auto& [way, close] : waysToClose()) {
        SCOPED_TRACE(way);
        open();
        enter(titleField(), "Changed by " + way);
        {
            Answers answers;
            answers.then("question", answering(question(), Qt::Key_N));
            close();
        }
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(stored(), original()) << "discarded";
        EXPECT_EQ(edited(), original());
        open();
        enter(titleField(), "Changed by " + way);
        {
            Answers answers;
            answers.then("question", answering(question(), Qt::Key_Y));
            close();
        }
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(stored(), withTitle("Changed by " + way));
        // And back.
        open();
        enter(titleField(), "Orders");
        key(Qt::Key_F3);
        EXPECT_EQ(stored(), original());
    }
}

TEST_P(Save, AsksAboutAChangeInEachField) {
    struct Change {
        std::string field;
        std::function<void()> make;
    };
    std::vector<Change> changes = {
        {"txtID", [&] { enter("txtID", "9"); }},
        {"the title", [&] { enter(titleField(), "orders"); }},
        {"lstType", [&] { choose("lstType", isNode() ? 2 : 0); }},
        {"txtQuery", [&] { enter("txtQuery", "another"); }},
        {"lstParm", [&] { choose("lstParm", 3); }},
        {"txtnn", [&] { enter("txtnn", "6"); }},
        {"txtParm", [&] { enter("txtParm", "CKEY05"); }},
        {"blank", [&] { enter(titleField(), "Orders "); }},
        {"number", [&] { enter("txtID", isNode() ? "07" : "05"); }},
    };
    if (isNode()) {
        changes.push_back({"txtIcon", [&] { enter("txtIcon", "Leaf"); }});
        changes.push_back({"txtRole", [&] { enter("txtRole", ""); }});
    } else {
        changes.push_back({"txtForm", [&] { enter("txtForm", "5"); }});
        changes.push_back({"txtCol", [&] {
                               choose("lstType", 5);
                               enter("txtCol", "1");
                               choose("lstType", 1);
                           }});
        changes.push_back({"txtSeqNo", [&] { enter("txtSeqNo", "21"); }});
    }
    for (const auto& [field, make] : changes) {
        SCOPED_TRACE(field);
        open();
        make();
        {
            Answers answers;
            answers.then("question", answering(question(), Qt::Key_N));
            key(Qt::Key_Escape);
        }
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(edited(), original());
    }
}

TEST_P(Save, AsksNothingWhenAChangeWasTakenBack) {
    open();
    enter(titleField(), "Changed");
    enter(titleField(), "Orders");
    choose("lstType", 2);
    choose("lstType", 1);
    choose("lstParm", 0);
    choose("lstParm", 2);
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_P(Save, IsRefusedEveryTimeAndChangesNothing) {
    open();
    enter(titleField(), "Changed");
    enter("txtQuery", "");
    for (int time = 0; time < 3; ++time) {
        key(Qt::Key_F3);
        EXPECT_EQ(refused(), Rows{refusal()});
        EXPECT_EQ(stored(), original());
        EXPECT_EQ(edited(), original());
        EXPECT_EQ(Stage::shown(titleField()), "Changed") << "the entries stay";
        EXPECT_EQ(Stage::shown("txtQuery"), "");
        EXPECT_TRUE(isOpen());
    }
    for (int time = 0; time < 2; ++time) {
        Answers answers;
        answers.then("question", answering(question(), Qt::Key_Y));
        key(Qt::Key_Escape);
        answers.wait();
        EXPECT_EQ(refused(), Rows{refusal()});
        EXPECT_TRUE(isOpen()) << "the closing was refused too";
        EXPECT_EQ(stored(), original());
        EXPECT_EQ(edited(), original());
        EXPECT_EQ(Stage::shown(titleField()), "Changed");
    }
    {
        Answers answers;
        answers.then("question", answering(question(), Qt::Key_N));
        key(Qt::Key_Escape);
    }
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(), original());
}

TEST_P(Save, IsTakenAfterARefusal) {
    open();
    enter(titleField(), "Changed");
    enter("txtQuery", "");
    key(Qt::Key_F3);
    EXPECT_EQ(refused(), Rows{refusal()});
    enter("txtQuery", isNode() ? "spG_Orders" : "spW_Orders");
    key(Qt::Key_F3);
    EXPECT_EQ(refused(), Rows());
    EXPECT_EQ(stored(), withTitle("Changed"));
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_P(Save, OfANewRecordIsRefusedEveryTimeAndAddsNothing) {
    if (isNode())
        Stage::open(makeNode(8, 2, "G", "New"));
    else
        Stage::open(makeParagraph(8, 7));
    for (int time = 0; time < 3; ++time) {
        key(Qt::Key_F3);
        EXPECT_EQ(refused(), Rows{refusal()});
        EXPECT_EQ(stored(), "nothing");
    }
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen()) << "nothing was changed";
    EXPECT_EQ(stored(), "nothing");
}

TEST_P(Save, DoesNotLetLaterEntriesIntoTheScheme) {
    open();
    enter(titleField(), "Changed");
    key(Qt::Key_F3);
    enter(titleField(), "Changed again");
    {
        Answers answers;
        answers.then("question", answering(question(), Qt::Key_N));
        key(Qt::Key_Escape);
    }
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(), withTitle("Changed"));
    EXPECT_EQ(edited(), stored());
}

TEST_P(Save, QuestionIsAnsweredByItsButtonsOnly) {
    open();
    enter(titleField(), "Changed");
    Answers answers;
    answers.then("question", [&](QDialog& box) {
        activate(box);
        press(box, Qt::Key_Escape);
        settle();
        EXPECT_TRUE(box.isVisible()) << "Esc is no answer";
        box.windowHandle()->close();
        settle();
        EXPECT_TRUE(box.isVisible()) << "the close box is none either";
        box.close();
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(stored(), original());
        press(box, Qt::Key_F3);
        EXPECT_EQ(stored(), original()) << "the form does not hear the keys of the question";
        auto& message = static_cast<QMessageBox&>(box);
        clickOn(message.button(QMessageBox::Yes));
    });
    key(Qt::Key_Escape);
    answers.wait();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(), withTitle("Changed"));
}

TEST_P(Save, QuestionHasNoForAClick) {
    open();
    enter(titleField(), "Changed");
    Answers answers;
    answers.then("question", [&](QDialog& box) { clickOn(static_cast<QMessageBox&>(box).button(QMessageBox::No)); });
    form->windowHandle()->close();
    answers.wait();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(), original());
}

TEST_P(Save, QuestionBelongsToTheForm) {
    open();
    enter(titleField(), "Changed");
    Answers answers;
    answers.then("question", [&](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), form.get());
        EXPECT_TRUE(box.isModal());
        press(box, Qt::Key_Return);
    });
    key(Qt::Key_Escape);
    answers.wait();
    EXPECT_EQ(stored(), withTitle("Changed")) << "Yes is what Enter presses";
}

TEST_P(Save, AnswersItselfWhenTheFormIsModal) {
    QWidget main;
    main.show();
    activate(main);
    clsNavSchemes scheme;
    auto edited = makeNode(3, 0, "N", "Leaf");
    auto written = makeParagraph(3, 0);
    written->queryIs = "spW_Leaf";
    std::unique_ptr<QDialog> modal;
    if (isNode()) {
        auto made = std::make_unique<fNav>(scheme, &main);
        made->setPObject(makeNode(1, 0, "F"));
        made->setNavObject(edited);
        modal = std::move(made);
    } else {
        auto made = std::make_unique<fWeb>(scheme, &main);
        made->setWebObject(written);
        modal = std::move(made);
    }
    Answers answers;
    answers.then(GetParam(), [&](QDialog& window) {
        EXPECT_EQ(&window, modal.get());
        press(window, Qt::Key_F3);
        EXPECT_TRUE(window.isVisible());
        press(window, Qt::Key_Escape);
    });
    EXPECT_EQ(modal->exec(), QDialog::Rejected);
    answers.wait();
    EXPECT_EQ(isNode() ? rowsOf(scheme) : rowsOf(scheme.oWebs),
              Rows{isNode() ? "3|Leaf|N|0||||" : "3|0|0||spW_Leaf|||0||"});
}
