// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/fNav.h"
#include "forms/fWeb.h"
#include "tests/Windows.h"
#include "tests/model/Helpers.h"

// What the tests of the entry forms share: a form on the screen with the scheme that it saves to, fields that are
// filled with keys and the mouse, and what the form shows, as text.

using Node = std::shared_ptr<clsNavScheme>;
using Paragraph = std::shared_ptr<clsWebScheme>;

inline const std::string notNumeric = "Please enter Numeric Value";
const QColor white(255, 255, 255);
const QColor lightBlue(0xC0, 0xC0, 0xFF);
const QColor tipColour(255, 255, 220);

/// Waits until everything that was sent has arrived.
inline void settle() {
    QTest::qWait(20);
}

/// A form on the screen. The scheme has the root 1, the node 2 below it and the node 7 below that; paragraph 5 of
/// node 7.
class Stage {
  public:
    Stage() {
        navs.Add(makeNode(1, 0, "F", "Data Browser"));
        navs.Add(makeNode(2, 1, "F", "Customers"));
        navs.Add(makeNode(7, 2, "G", "Orders", "spG_Orders", "CKey05", "leaf", "3"));
        navs.oWebs.Add(storedParagraph("H"));
        navs.inform = [this](std::string_view message) { refusals.emplace_back(message); };
    }

    /// A paragraph with a value in every field that its type uses, and a form number and columns besides.
    static Paragraph storedParagraph(const std::string& type) {
        auto paragraph = makeParagraph(5, 7, 20, "Orders");
        paragraph->queryIs = "spW_Orders";
        paragraph->parmIs = "CKey05";
        paragraph->typeIs = type;
        paragraph->formIs = 4;
        paragraph->extra = "more";
        return paragraph;
    }

    clsNavSchemes navs;
    Rows refusals;  ///< what the scheme said
    Node node;
    Paragraph paragraph;
    std::unique_ptr<QDialog> form;

    /// Opens a form for this node, as a child of `parent`.
    void open(Node edited, std::shared_ptr<const clsNavScheme> parent) {
        auto made = std::make_unique<fNav>(navs, nullptr);
        node = std::move(edited);
        made->setPObject(std::move(parent));
        made->setNavObject(node);
        show(std::move(made));
    }
    void open(Node edited) { open(std::move(edited), navs.Item(2)); }
    /// Opens a form for this paragraph.
    void open(Paragraph edited) {
        auto made = std::make_unique<fWeb>(navs, nullptr);
        paragraph = std::move(edited);
        made->setWebObject(paragraph);
        show(std::move(made));
    }
    /// Opens a form for the stored node 7 or the stored paragraph 5.
    void open(const std::string& name) {
        if (name == "fNav")
            open(navs.CloneNav("7"));
        else
            open(std::make_shared<clsWebScheme>(*navs.oWebs.Item(5)));
    }

    /// What is stored, and what the form edits.
    [[nodiscard]] std::string stored() const {
        if (node) return navs.Item(node->ID) ? rowOf(*navs.Item(node->ID)) : "nothing";
        return navs.oWebs.HasID(paragraph->ID) ? rowOf(*navs.oWebs.Item(paragraph->ID)) : "nothing";
    }
    [[nodiscard]] std::string edited() const { return node ? rowOf(*node) : rowOf(*paragraph); }
    /// What the scheme has said since this was last asked.
    [[nodiscard]] Rows refused() { return std::exchange(refusals, {}); }

    // --- the user ---

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const { press(*form, key, modifiers); }
    void keyDown(Qt::Key key) const { QTest::keyPress(form->windowHandle(), key); }
    void keyUp(Qt::Key key) const { QTest::keyRelease(form->windowHandle(), key); }
    /// Types these characters of the keyboard.
    void type(const std::string& letters) const {
        activate(*form);
        for (const auto letter : letters) QTest::keyClick(form->windowHandle(), letter);
    }
    void focus(const std::string& field) const {
        activate(*form);
        find(*form, field).setFocus();
        EXPECT_EQ(focusName(), field);
    }
    /// Types a text over what is in a field. Sets the focus directly, so no other field is left as a user leaves one.
    void enter(const std::string& field, const std::string& letters) const {
        focus(field);
        key(Qt::Key_A, Qt::ControlModifier);
        key(Qt::Key_Delete);
        type(letters);
    }
    void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::mouseClick(form->windowHandle(), button, modifiers, widget.mapTo(form.get(), at));
    }
    void click(const std::string& field) const {
        auto& widget = find(*form, field);
        click(widget, widget.rect().center());
    }
    /// Clicks an entry of a list.
    void choose(const std::string& field, int index, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        const auto& entries = list(field);
        click(*entries.viewport(), entries.visualItemRect(entries.item(index)).center(), Qt::LeftButton, modifiers);
    }

    // --- what the form shows ---

    /// The name of the field with the focus, once the form has the keyboard back.
    [[nodiscard]] std::string focusName() const {
        activate(*form);
        const auto* focus = QApplication::focusWidget();
        return focus ? focus->objectName().toStdString() : "none";
    }
    [[nodiscard]] QLineEdit& line(const std::string& field) const { return find<QLineEdit>(*form, field); }
    [[nodiscard]] QListWidget& list(const std::string& field) const { return find<QListWidget>(*form, field); }
    [[nodiscard]] std::string shown(const std::string& field) const { return line(field).text().toStdString(); }
    [[nodiscard]] std::string label(const std::string& name) const {
        return find<QLabel>(*form, name).text().toStdString();
    }
    [[nodiscard]] std::string help() const { return label("lblDesc"); }
    [[nodiscard]] Rows entries(const std::string& field) const {
        Rows rows;
        for (int row = 0; row < list(field).count(); ++row)
            rows.push_back(list(field).item(row)->text().toStdString());
        return rows;
    }
    /// The index of the chosen entry, counted from 0, and its text: "1 G - Generating Branch"; "-1" for none.
    [[nodiscard]] std::string chosen(const std::string& field) const {
        const auto chosen = list(field).selectedItems();
        if (chosen.isEmpty()) return "-1";
        EXPECT_EQ(chosen.size(), 1);
        return std::to_string(list(field).row(chosen.front())) + " " + chosen.front()->text().toStdString();
    }
    [[nodiscard]] QColor background(const std::string& field) const {
        const auto& widget = find(*form, field);
        return widget.palette().color(widget.isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Base);
    }
    [[nodiscard]] bool enabled(const std::string& field) const { return find(*form, field).isEnabled(); }
    /// Those of these fields that can be used.
    [[nodiscard]] Rows enabled(const Rows& fields) const {
        Rows usable;
        for (const auto& field : fields)
            if (enabled(field)) usable.push_back(field);
        return usable;
    }
    [[nodiscard]] bool isOpen() const {
        settle();
        return form->isVisible();
    }

  private:
    void show(std::unique_ptr<QDialog> made) {
        form = std::move(made);
        form->show();
        activate(*form);
    }
};

/// The answer to the question on closing: checks that it has this text, and presses this key.
inline Answers::Answer answering(const std::string& question, Qt::Key answer) {
    return [=](QDialog& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        if (!box) throw std::runtime_error("this is no message box");
        EXPECT_EQ(box->text(), text(question));
        EXPECT_EQ(box->informativeText() + box->detailedText(), QString());
        EXPECT_EQ(box->windowTitle(), text("Update Confirmation"));
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box->buttons().size(), 2);
        press(window, answer);
    };
}

/// A test that is run with the form for nodes and with the form for paragraphs.
class BothForms : public testing::TestWithParam<std::string>, public Stage {
  protected:
    void open() { Stage::open(GetParam()); }
    [[nodiscard]] bool isNode() const { return GetParam() == "fNav"; }
    [[nodiscard]] std::string question() const {
        return isNode() ? "Do you want to Update the Node?" : "Do you want to Update the Paragraph?";
    }
    /// All fields in the order of the form.
    [[nodiscard]] Rows fields() const {
        if (isNode())
            return {"txtID", "txtDescription", "lstType", "txtQuery", "lstParm",
                    "txtnn", "txtParm",        "txtIcon", "txtRole"};
        return {"txtID", "txtTitle", "lstType", "txtQuery", "lstParm",
                "txtnn", "txtParm",  "txtForm", "txtCol",   "txtSeqNo"};
    }
    [[nodiscard]] std::string titleField() const { return isNode() ? "txtDescription" : "txtTitle"; }
};

#define RUN_WITH_BOTH_FORMS(Suite)                                          \
    INSTANTIATE_TEST_SUITE_P(Forms, Suite, testing::Values("fNav", "fWeb"), \
                             [](const auto& form) { return form.param; })
