// SPDX-License-Identifier: MIT
#include "Helpers.h"

TEST(StartUp, ShowsTheIntroductionThenTheMessageThenTheWindow) {
    fMain window;
    Rows order;
    const auto note = [&](const std::string& what) {
        order.push_back(what + (window.isVisible() ? ", window visible" : ", window hidden"));
    };
    Answers answers;
    answers
        .then("fIntro",
              [&](QDialog& introduction) {
                  note("introduction");
                  escape(introduction);
              })
        .then("message", [&](QDialog& message) {
            note("message");
            reading(
                "If you need to be familiarized with the working of this Wizard, \n"
                "Please open the Files XST1.txt and XST2.txt for getting started...")(message);
        });
    window.Form_Load();
    note("started");
    EXPECT_EQ(order, Rows({"introduction, window hidden", "message, window hidden", "started, window hidden"}));

    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(window.isMaximized());
}

// The message has two lines; the first one ends with a comma and a blank.
TEST(StartUp, SplitsTheMessageOverTwoLines) {
    fMain window;
    Answers answers;
    answers.then("fIntro", escape).then("message", [](QDialog& message) {
        const auto lines = static_cast<QMessageBox&>(message).text().split(QLatin1Char('\n'));
        EXPECT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines.front().endsWith(text("Wizard, ")));
        const auto& label = find<QLabel>(message, "qt_msgbox_label");
        EXPECT_GE(label.height(), 2 * label.fontMetrics().height());
        escape(message);
    });
    window.Form_Load();
}

TEST(StartUp, MakesTheSchemeBeforeTheIntroduction) {
    fMain window;
    EXPECT_EQ(window.oNavs, nullptr);
    Answers answers;
    answers
        .then("fIntro",
              [&](QDialog& introduction) {
                  ASSERT_NE(window.oNavs, nullptr);
                  EXPECT_EQ(rowsOf(*window.oNavs), Rows({"1|Data Browser|F|0|||leaf|"}));
                  EXPECT_EQ(window.oNavs->cTreeView, dynamic_cast<NavTree*>(&find(window, "myTree")));
                  escape(introduction);
              })
        .then("message", escape);
    window.Form_Load();
}

TEST(StartUp, ShowsTheNewSchemeAndLoadsNothing) {
    Wizard wizard;
    EXPECT_EQ(wizard.navs().Count(), 1);
    EXPECT_EQ(wizard.navs().oWebs.Count(), 0);
    EXPECT_EQ(wizard.navs().mLastN, "");
    EXPECT_EQ(shownRows(wizard.tree()), Rows({"  Data Browser"}));
    EXPECT_EQ(shownRows(wizard.nodeGrid()), Rows({"1|Data Browser|F|0|||leaf|"}));
    EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows());
}

TEST(StartUp, PutsTheKeyboardInTheTree) {
    Wizard wizard;
    EXPECT_EQ(QApplication::focusWidget(), &wizard.tree());
}

TEST(StartUp, KeepsTheSchemeForTheWholeRun) {
    Wizard wizard;
    const auto* navs = &wizard.navs();
    wizard.openNodes(sample("XST1.txt"));
    wizard.choose("NN");
    wizard.choose("NR");
    EXPECT_EQ(&wizard.navs(), navs);
}

// Before anything was opened every command has a scheme to work on.
TEST(StartUp, EveryCommandCanRunAtOnce) {
    const TempFolder folder;
    Wizard wizard;
    for (const char* command : {"mnuChild", "mnuEdit", "mnuDelete", "mnuDisplayAll", "mnuOrphans", "mnuDeleteP"}) {
        find<QAction>(wizard.window, command).trigger();
        EXPECT_EQ(shownRows(wizard.paragraphGrid()), Rows()) << command;
    }
    for (const auto& [command, message] :
         {std::pair("mnuAddP", "Cannot Add ...."), {"mnuEditP", "Nothin to Edit ...."}}) {
        Answers answers;
        answers.then("message", reading(message));
        find<QAction>(wizard.window, command).trigger();
    }
    for (const char* report : {"NA", "NT", "WA", "WT"}) {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, report);
    }
    {
        Answers answers;
        answers.then("GetSaveAsName", entering(folder / "no paragraphs.txt"))
            .then("message", reading("Unable to save file.."));
        choose(wizard.window, "WS");
    }
    EXPECT_FALSE(exists(folder / "no paragraphs.txt"));
    wizard.choose("NN");
    wizard.choose("NC");
    wizard.choose("NR");
    EXPECT_EQ(rowsOf(wizard.navs()), Rows({"1|Data Browser|F|0|||leaf|"}));
    wizard.saveNodes(folder / "new.txt");
    EXPECT_EQ(bytesOf(folder / "new.txt"),
              "\"ID\",\"descriptionIs\",\"typeIs\",\"parentIs\",\"queryIs\",\"parmIs\",\"iconIs\",\"roleIs\"\r\n"
              "1,\"Data Browser\",\"F\",0,\"\",\"\",\"leaf\",\"\"\r\n");
}

TEST(StartUp, ShowsTheRuleMessagesOfTheScheme) {
    Wizard wizard;
    wizard.navs().Add(makeNode(2, 1, "N", "leaf"));
    Answers answers;
    answers.then("message", reading("The Parent of this Node is of Recurring or Non-Generating type. "
                                    "Changes cannot be saved"));
    EXPECT_FALSE(wizard.navs().FuseNav(makeNode(3, 2, "F")));
    answers.wait();
    answers.then("message", reading("Query field cannot be blank..."));
    EXPECT_FALSE(wizard.navs().FuseWeb(makeParagraph(1, 1)));
}

namespace {

bool anyWindowIsVisible() {
    const auto windows = QApplication::topLevelWidgets();
    return std::ranges::any_of(windows, [](const QWidget* window) { return window->isVisible(); });
}

}  // namespace

// With the last window gone the program ends.
TEST(Exit, ClosesTheWindowWithoutAQuestion) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    wizard.choose("NR");
    EXPECT_TRUE(anyWindowIsVisible());
    wizard.choose("FX");
    EXPECT_FALSE(anyWindowIsVisible());
}

TEST(Exit, TheCloseBoxAsksNothingEither) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    Answers nothing;
    EXPECT_TRUE(wizard.window.close());
    EXPECT_FALSE(anyWindowIsVisible());
}
