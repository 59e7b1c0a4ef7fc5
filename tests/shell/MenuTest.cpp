// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <set>

#include "Helpers.h"

namespace {

// Every item in order, below its menu: name, caption.
Rows itemsOf(const QList<QAction*>& actions, const std::string& indent = "") {
    Rows rows;
    for (const auto* action : actions) {
        const auto* menu = action->menu();
        const auto name = menu ? menu->objectName() : action->objectName();
        rows.push_back(indent + (action->isSeparator() ? "separator" : name.toStdString()) + " \"" +
                       action->text().toStdString() + "\"");
        if (menu)
            for (const auto& row : itemsOf(menu->actions(), indent + "  ")) rows.push_back(row);
    }
    return rows;
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

std::string activeItem() {
    const auto* menu = openMenu();
    return menu && menu->activeAction() ? menu->activeAction()->text().toStdString() : "none";
}

// Down reaches each item of the open menu, and from the last one the first again.
void walkOpenMenu(Wizard& wizard, const char* name) {
    const auto* const menu = openMenu();
    ASSERT_NE(menu, nullptr) << name;
    EXPECT_EQ(menu->objectName(), text(name));
    Rows captions;
    Rows walked;
    for (const auto* action : menu->actions()) {
        captions.push_back(action->text().toStdString());
        walked.push_back(activeItem());
        press(wizard.window, Qt::Key_Down);
    }
    EXPECT_EQ(walked, captions) << name;
    EXPECT_EQ(activeItem(), captions.front()) << name;
}

}  // namespace

TEST(Menu, HasTheseItemsAndNoOthers) {
    Wizard wizard;
    const Rows expected = {
        "mnuFile \"&File\"",
        "  mnuIntro \"&Introduction\"",
        "  mnuOpen \"&Open\"",
        "    mnuNavOpen \"Open &Nav. File\"",
        "    mnuDisOpen \"Open &Web File\"",
        "  mnuHelp \"&Help\"",
        "  mnuExit \"E&xit\"",
        "mnuNavigation \"&Navigation\"",
        "  mnuNavNew \"&New\"",
        "  mnuNavSave \"&Save to Text File\"",
        "  mnuCollapse \"&Collapse Nodes\"",
        "  mnuNavRenum \"&Re-Number\"",
        "  mnuCheckNav \"&Analysis of Nav Scheme\"",
        "  mnuNavToDo \"Action &To Do\"",
        "mnuDisplay \"&Web\"",
        "  mnuDisSave \"&Save to Text File\"",
        "  mnuCheckWeb \"&Analysis of Web Scheme\"",
        "  mnuWebToDo \"Action &To Do\"",
    };
    EXPECT_EQ(itemsOf(wizard.window.menuBar()->actions()), expected);
    EXPECT_EQ(wizard.window.findChildren<QMenuBar*>().size(), 1);
    EXPECT_TRUE(wizard.window.findChildren<QToolBar*>().isEmpty());
    EXPECT_TRUE(wizard.window.findChildren<QStatusBar*>().isEmpty());
}

TEST(Menu, NoOtherCommandIsHidden) {
    Wizard wizard;
    std::multiset<std::string> captions;
    for (const auto* action : wizard.window.findChildren<QAction*>())
        if (!action->text().isEmpty()) captions.insert(action->text().toStdString());
    EXPECT_EQ(
        captions,
        (std::multiset<std::string>{
            "&Analysis of Nav Scheme", "&Analysis of Web Scheme", "&Collapse Nodes", "&File", "&Help",
            "&Introduction", "&Navigation", "&New", "&Open", "&Re-Number", "&Save to Text File", "&Save to Text File",
            "&Web", "Action &To Do", "Action &To Do", "E&xit", "Open &Nav. File", "Open &Web File",
            // in popup menus
            "&Add Child   (Ins)", "&Edit Node   (F2)", "&Delete       (Del)", "Popup", "&Add Paragraph",
            "&Edit Paragraph", "&Delete Paragraph", "Display &Full Table XST2", "Display &Orphans", "&WPopUp"}));
}

TEST(Menu, EveryItemIsThereAtOnceAndPlain) {
    Wizard wizard;
    int items = 0;
    for (const auto* action : wizard.window.findChildren<QAction*>()) {
        if (action->text().isEmpty()) continue;
        ++items;
        EXPECT_TRUE(action->isEnabled()) << action->text().toStdString();
        EXPECT_TRUE(action->isVisible()) << action->text().toStdString();
        EXPECT_FALSE(action->isCheckable()) << action->text().toStdString();
        EXPECT_TRUE(action->icon().isNull()) << action->text().toStdString();
    }
    EXPECT_EQ(items, 28);
}

TEST(Menu, NoItemHasAShortcutKey) {
    Wizard wizard;
    for (const auto* action : wizard.window.findChildren<QAction*>())
        EXPECT_TRUE(action->shortcuts().isEmpty()) << action->text().toStdString();
    EXPECT_TRUE(wizard.window.findChildren<QShortcut*>().isEmpty());
}

// Windows with commands usually have shortcut keys; this one has none, so that nothing runs by accident.
TEST(Menu, UsualShortcutKeysDoNothing) {
    Wizard wizard;
    wizard.openNodes(sample("XST1.txt"));
    const auto nodes = wizard.navs().Count();
    Answers nothing;
    for (const auto key : {Qt::Key_N, Qt::Key_O, Qt::Key_S, Qt::Key_W, Qt::Key_R, Qt::Key_H, Qt::Key_I, Qt::Key_Q})
        for (const auto modifiers :
             {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ControlModifier)})
            press(wizard.window, key, modifiers);
    for (const auto key : {Qt::Key_Escape, Qt::Key_F3, Qt::Key_F5, Qt::Key_F12}) press(wizard.window, key);
    EXPECT_TRUE(wizard.window.isVisible());
    EXPECT_EQ(wizard.navs().Count(), nodes);
    EXPECT_EQ(openMenu(), nullptr);
}

TEST(Menu, NothingPopsUpOnARightClickElsewhere) {
    Wizard wizard;
    for (auto* widget : {wizard.nodeGrid().viewport(), &find(wizard.window, "frRule"),
                         static_cast<QWidget*>(wizard.window.menuBar())}) {
        QTest::mouseClick(widget, Qt::RightButton, {}, {5, 5});
        QContextMenuEvent menu(QContextMenuEvent::Mouse, {5, 5}, widget->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(widget, &menu);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << widget->objectName().toStdString();
    }
}

TEST(Menu, AltAndALetterOpenTheMenus) {
    Wizard wizard;
    const std::pair<Qt::Key, std::string> menus[] = {
        {Qt::Key_F, "mnuFile"}, {Qt::Key_N, "mnuNavigation"}, {Qt::Key_W, "mnuDisplay"}};
    for (const auto& [key, name] : menus) {
        activate(wizard.window);
        press(wizard.window, key, Qt::AltModifier);
        ASSERT_NE(openMenu(), nullptr) << name;
        EXPECT_EQ(openMenu()->objectName(), text(name));
        press(wizard.window, Qt::Key_Escape);
        EXPECT_EQ(openMenu(), nullptr) << name;
        press(wizard.window, Qt::Key_Escape);
    }
    EXPECT_EQ(QApplication::focusWidget(), &wizard.tree()) << "the keyboard is back where it was";
}

TEST(Menu, ArrowKeysReachEveryItem) {
    Wizard wizard;
    press(wizard.window, Qt::Key_F, Qt::AltModifier);
    walkOpenMenu(wizard, "mnuFile");
    press(wizard.window, Qt::Key_Down);
    press(wizard.window, Qt::Key_Right);
    ASSERT_TRUE(QTest::qWaitFor([] { return openMenu() && openMenu()->objectName() == text("mnuOpen"); }));
    walkOpenMenu(wizard, "mnuOpen");
    press(wizard.window, Qt::Key_Left);

    press(wizard.window, Qt::Key_Right);  // into the sub-menu again
    press(wizard.window, Qt::Key_Right);  // and on to the next menu
    walkOpenMenu(wizard, "mnuNavigation");
    press(wizard.window, Qt::Key_Right);
    walkOpenMenu(wizard, "mnuDisplay");
    while (openMenu()) press(wizard.window, Qt::Key_Escape);
}

TEST(Menu, LettersShowTheWindowOfEachCommand) {
    struct Case {
        std::string letters, window, title;
    };
    const Case cases[] = {
        {"FI", "fIntro", "Pelmo Wizard Introduction..."},
        {"FON", "GetOpenName", "Open A File"},
        {"FOW", "GetOpenName", "Open A File"},
        {"FH", "message", "Reporting Scheme Wizard for Pelmo"},
        {"NS", "GetSaveAsName", "Save File As..."},
        {"NA", "fOutput", "Output..."},
        {"NT", "fOutput", "Output..."},
        {"WS", "GetSaveAsName", "Save File As..."},
        {"WA", "fOutput", "Output..."},
        {"WT", "fOutput", "Output..."},
    };
    Wizard wizard;
    for (const auto& [letters, name, title] : cases) {
        Answers answers;
        answers.then(name, [&title = title](QDialog& window) {
            EXPECT_EQ(window.windowTitle(), text(title));
            EXPECT_TRUE(window.isModal());
            escape(window);
        });
        choose(wizard.window, letters);
    }
}

TEST(Menu, LettersRunTheCommandsWithoutAWindow) {
    Wizard wizard;
    wizard.navs().Add(makeNode(5, 1, "F", "five"));
    wizard.navs().DispInTV();
    wizard.choose("NR");
    EXPECT_EQ(linksOf(wizard.navs()), "1<0 2<1");
    wizard.choose("NC");
    EXPECT_EQ(wizard.navs().mLastN, "1");
    wizard.choose("NN");
    EXPECT_EQ(linksOf(wizard.navs()), "1<0");
    wizard.choose("FX");
    EXPECT_FALSE(wizard.window.isVisible());
}
