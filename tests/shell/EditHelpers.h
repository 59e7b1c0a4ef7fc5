// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <set>

#include "Helpers.h"

// What the tests of the editing commands share: the entry forms and the popup menus, used as a user does.

/// Types a text into the widget with the focus.
inline void type(QWidget& window, const std::string& ascii) {
    activate(window);
    for (const auto letter : ascii) QTest::keyClick(window.windowHandle(), letter);
}

/// Moves the focus of a form to a field with the Enter key.
inline void enterUntil(QDialog& form, const std::string& field) {
    for (int step = 0; step < 12; ++step) {
        const auto* focus = form.focusWidget();
        if (focus && focus->objectName() == text(field)) return;
        press(form, Qt::Key_Return);
    }
    ADD_FAILURE() << "Enter does not reach " << field;
}

/// Moves to a field and types over what is in it.
inline void enter(QDialog& form, const std::string& field, const std::string& ascii) {
    enterUntil(form, field);
    QTest::keyClick(form.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    type(form, ascii);
}

inline std::string valueOf(const QDialog& form, const std::string& field) {
    if (const auto* list = form.findChild<QListWidget*>(text(field))) {
        const auto chosen = list->selectedItems();
        return chosen.isEmpty() ? "none" : chosen.front()->text().toStdString();
    }
    return find<QLineEdit>(form, field).text().toStdString();
}

/// The values of the fields of a form, separated by "|".
inline std::string valuesOf(const QDialog& form, const Rows& fields) {
    std::string values;
    for (const auto& field : fields) values += (values.empty() ? "" : "|") + valueOf(form, field);
    return values;
}

inline std::string nodeIn(const QDialog& form) {
    return valuesOf(form, {"txtID", "txtDescription", "lstType", "txtQuery", "txtParm", "txtIcon", "txtRole"});
}

inline std::string paragraphIn(const QDialog& form) {
    return valuesOf(form, {"txtID", "txtSeqNo", "txtTitle", "lstType", "txtQuery", "txtParm", "txtForm", "txtCol"});
}

/// Answers whatever dialogs a command opens, nested ones too, in whatever order they come.
class Attendant {
  public:
    explicit Attendant(Answers::Answer answer) : answer_(std::move(answer)) { watch(); }
    ~Attendant() {
        EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }, patience));
    }
    Attendant(const Attendant&) = delete;
    Attendant& operator=(const Attendant&) = delete;

  private:
    void watch() {
        QTimer::singleShot(2, &context_, [this] {
            watch();
            auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!window || !window->isVisible() || !busyWith_.insert(window).second) return;
            answer_(*window);
            busyWith_.erase(window);
        });
    }

    Answers::Answer answer_;
    std::set<const QDialog*> busyWith_;  // a form, perhaps, and a message that it shows
    QObject context_;
};

/// The popup menu on the screen, "" if there is none.
inline std::string openPopup() {
    const auto* popup = QApplication::activePopupWidget();
    return popup ? popup->objectName().toStdString() : "";
}

/// Chooses an item of the open popup menu by its letter.
inline void chooseInPopup(QWidget& window, char letter) {
    ASSERT_NE(openPopup(), "") << "no popup menu is open";
    press(window, static_cast<Qt::Key>(letter));
    EXPECT_EQ(openPopup(), "");
}

/// A started program with a scheme that holds a node of each type: 1 F with 2 G (with 3 R), 4 G, 5 N and 6 F (with 7
/// N) below it, and paragraphs 11 and 13 of node 5, 12 of node 2, 14 of a node that is not there.
class Editing : public testing::Test {
  protected:
    Editing() {
        auto& navs = wizard.navs();
        navs.Remove("1");
        navs.Add(makeNode(1, 0, "F", "Top", {}, {}, "leaf"));
        navs.Add(makeNode(2, 1, "G", "full list", "spG_Full", "Lkey", "book", "3"));
        navs.Add(makeNode(3, 2, "R", "again", "spG_Again", "Text"));
        navs.Add(makeNode(4, 1, "G", "empty list", "spG_Empty"));
        navs.Add(makeNode(5, 1, "N", "end"));
        navs.Add(makeNode(6, 1, "F", "branch"));
        navs.Add(makeNode(7, 6, "N", "inner"));
        for (const auto& [id, node, seqNo] : {std::tuple{11, 5, 2}, {12, 2, 1}, {13, 5, 7}, {14, 99, 1}}) {
            auto paragraph = makeParagraph(id, node, seqNo, "Title " + std::to_string(id));
            paragraph->queryIs = "spW_" + std::to_string(id);
            paragraph->typeIs = "H";
            paragraph->formIs = id;
            paragraph->extra = "x";
            navs.oWebs.Add(paragraph);
        }
        navs.DispInTV();
        navs.DisplayFullWeb();
    }

    /// Selects a node without a click on it.
    void select(const std::string& key) {
        auto& tree = dynamic_cast<NavTree&>(wizard.tree());
        const auto row = tree.treeModel().snapshot().find(key);
        if (row == TreeSnapshot::none) throw std::runtime_error("there is no node " + key);
        activate(wizard.window);
        tree.setFocus();
        tree.setCurrentIndex(tree.treeModel().indexOf(row));
    }
    void pressOn(const std::string& node, Qt::Key key) {
        select(node);
        press(wizard.window, key);
    }
    void rightClickTree() { rightClick(*wizard.tree().viewport()); }
    void rightClickParagraphs() { rightClick(*wizard.paragraphGrid().viewport()); }
    void rightClick(QWidget& widget) {
        activate(wizard.window);
        QTest::mouseClick(&widget, Qt::RightButton, {}, widget.rect().center());
    }
    /// Makes the row of the paragraph with this ID the current one with a click.
    void clickParagraph(int id) {
        auto& grid = wizard.paragraphGrid();
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            if (grid.model()->index(row, 0).data().toInt() != id) continue;
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                              grid.visualRect(grid.model()->index(row, 0)).center());
            return;
        }
        ADD_FAILURE() << "there is no paragraph " << id;
    }

    [[nodiscard]] std::string node(const std::string& key) {
        const auto found = wizard.navs().Item(key);
        return found ? rowOf(*found) : "none";
    }
    [[nodiscard]] std::string paragraph(const std::string& key) {
        return wizard.navs().oWebs.HasKey(key) ? rowOf(*wizard.navs().oWebs.Item(key)) : "none";
    }
    /// The IDs in the paragraph grid.
    [[nodiscard]] std::string shownParagraphs() {
        std::string ids;
        const auto& model = *wizard.paragraphGrid().model();
        for (int row = 0; row < model.rowCount(); ++row)
            ids += (row == 0 ? "" : " ") + model.index(row, 0).data().toString().toStdString();
        return ids;
    }

    Wizard wizard;
};
