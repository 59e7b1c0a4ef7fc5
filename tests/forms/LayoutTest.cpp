// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFrame>
#include <QScreen>
#include <QStyle>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "Helpers.h"

// Where the parts of the two forms are, their fonts, and what a screen reader says. Run with larger fonts too.

namespace {

class FormLayout : public BothForms {
  protected:
    // The fields with the label before each; the two in the row of the parameter kind have none.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> labels() const {
        if (isNode())
            return {{"Label1", "txtID"},    {"Label2", "txtDescription"}, {"Label4", "lstType"},
                    {"Label7", "txtQuery"}, {"Label9", "lstParm"},        {"Label11", "txtIcon"},
                    {"Label13", "txtRole"}};
        return {{"Label1", "txtID"},   {"Label2", "txtTitle"}, {"Label4", "lstType"}, {"Label7", "txtQuery"},
                {"Label9", "lstParm"}, {"Label11", "txtForm"}, {"Label13", "txtCol"}, {"Label18", "txtSeqNo"}};
    }
    // Where a part of the form is.
    [[nodiscard]] QRect place(const std::string& name) const {
        const auto& widget = find(*form, name);
        return {widget.mapTo(form.get(), QPoint(0, 0)), widget.size()};
    }
    [[nodiscard]] QString spoken(const std::string& field, QAccessible::Text what) const {
        const auto* interface = QAccessible::queryAccessibleInterface(&find(*form, field));
        return interface ? interface->text(what) : text("no interface");
    }
    void expectFieldsApart() const {
        int bottom = -1;
        for (const auto& [label, field] : labels()) {
            SCOPED_TRACE(field);
            EXPECT_LT(place(label).right(), place(field).left());
            EXPECT_GE(place(label).bottom(), place(field).top());
            EXPECT_NEAR(place(label).top(), place(field).top(), form->fontMetrics().height() / 2);
            EXPECT_GT(place(field).top(), bottom);
            EXPECT_EQ(place(field).left(), place("txtID").left());
            bottom = place(field).bottom();
            if (field == "lstParm") {
                EXPECT_GT(place("txtnn").top(), bottom);
                EXPECT_EQ(place("txtnn").left(), place("txtID").left());
                EXPECT_EQ(place("txtParm").top(), place("txtnn").top());
                EXPECT_GT(place("txtParm").left(), place("txtnn").right());
                bottom = place("txtnn").bottom();
            }
        }
        EXPECT_GT(place("Line1").top(), bottom);
        EXPECT_LT(place("Line1").bottom(), place("Label14").top());
    }
    // Whether the whole of the help can be read.
    void expectHelpFits() const {
        const auto& help = find<QLabel>(*form, "lblDesc");
        EXPECT_TRUE(help.wordWrap());
        EXPECT_LE(help.heightForWidth(help.width()), help.height()) << this->help();
        const auto room =
            help.fontMetrics().boundingRect(QRect(0, 0, help.width(), 10'000), Qt::TextWordWrap, help.text());
        EXPECT_LE(room.width(), help.width()) << this->help();
    }
};

}  // namespace

RUN_WITH_BOTH_FORMS(FormLayout);

TEST_P(FormLayout, StandsInTheMiddleOfTheScreen) {
    open();
    settle();
    const auto screen = form->screen()->geometry();
    const auto frame = form->frameGeometry();
    EXPECT_NEAR(frame.center().x(), screen.center().x(), (frame.width() - form->width()) / 2 + 1);
    const int titleBar = form->style()->pixelMetric(QStyle::PM_TitleBarHeight);  // an estimate for the frame
    EXPECT_NEAR(frame.center().y(), screen.center().y(), (frame.height() - form->height()) / 2 + titleBar / 2 + 1);
}

TEST_P(FormLayout, HasItsFonts) {
    open();
    const auto is = [](const QFont& font, const QString& family, double points) {
        return font.family() == family && font.pointSizeF() == points && font.bold();
    };
    const auto arial = text("Arial");
    for (const auto& [label, field] : labels()) {
        EXPECT_TRUE(is(find(*form, label).font(), arial, 9.75)) << label;
        EXPECT_TRUE(is(find(*form, field).font(), arial, 9.75)) << field;
    }
    for (const char* name : {"txtnn", "txtParm", "lblDesc"})
        EXPECT_TRUE(is(find(*form, name).font(), arial, 9.75)) << name;
    if (isNode()) {
        EXPECT_TRUE(is(find(*form, "lblParent").font(), arial, 9.75));
        EXPECT_TRUE(is(find(*form, "Label14").font(), arial, 9.75));
        const auto sansSerif = text("MS Sans Serif");
        EXPECT_TRUE(is(find(*form, "Label15").font(), QFontDatabase::hasFamily(sansSerif) ? sansSerif : arial, 8.25));
    } else {
        EXPECT_TRUE(is(find(*form, "Label14").font(), arial, 12));
    }
}

TEST_P(FormLayout, HasEachFieldBesideItsLabelAndBelowTheOneBefore) {
    open();
    settle();
    expectFieldsApart();
    EXPECT_GT(place("lblDesc").left(), place("txtQuery").right());
    const auto& line = find<QFrame>(*form, "Line1");
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.frameShape(), QFrame::HLine);
    if (isNode()) {
        EXPECT_LT(place("lblParent").bottom(), place("txtID").top());
        EXPECT_GT(place("Label15").top(), place("Label14").bottom());
    }
}

TEST_P(FormLayout, StaysLargeEnoughForItsFields) {
    open();
    settle();
    form->resize(10, 10);
    settle();
    expectFieldsApart();
    expectHelpFits();
}

TEST_P(FormLayout, ShowsItsLabelsWhole) {
    open();
    settle();
    for (const auto* label : form->findChildren<QLabel*>()) {
        SCOPED_TRACE(label->objectName().toStdString());
        if (label->objectName() == text("lblDesc")) continue;
        EXPECT_TRUE(label->isVisible());
        EXPECT_TRUE(form->rect().contains(QRect(label->mapTo(form.get(), QPoint(0, 0)), label->size())));
        if (label->wordWrap())
            EXPECT_LE(label->heightForWidth(label->width()), label->height());
        else
            EXPECT_LE(label->sizeHint().width(), label->width());
        EXPECT_LE(label->fontMetrics().height(), label->height());
        for (const auto& word : label->text().split(QLatin1Char(' ')))
            EXPECT_LE(label->fontMetrics().horizontalAdvance(word), label->width()) << word.toStdString();
    }
}

TEST_P(FormLayout, ShowsItsListsWhole) {
    if (isNode())
        open();
    else
        Stage::open("fWeb");
    settle();
    for (const char* name : {"lstType", "lstParm"}) {
        const auto& list = this->list(name);
        for (int row = 0; row < list.count(); ++row) {
            const auto entry = list.visualItemRect(list.item(row));
            EXPECT_TRUE(list.viewport()->rect().contains(entry)) << name << " " << row;
            EXPECT_LE(list.fontMetrics().horizontalAdvance(list.item(row)->text()), entry.width())
                << name << " " << row;
        }
    }
}

TEST_P(FormLayout, ShowsEveryHelpWholeAndKeepsItsSize) {
    open();
    settle();
    const auto size = form->size();
    if (!isNode()) find(*form, "txtCol").setEnabled(true);
    for (const auto& field : fields()) {
        focus("txtID");
        focus(field);
        settle();
        expectHelpFits();
        EXPECT_EQ(form->size(), size);
    }
    for (const char* name : {"lstType", "lstParm"})
        for (int row = 0; row < list(name).count(); ++row) {
            list(name).setCurrentRow(row);
            settle();
            expectHelpFits();
            EXPECT_EQ(form->size(), size);
        }
}

TEST_P(FormLayout, ShowsHelpAsPlainText) {
    open();
    EXPECT_EQ(find<QLabel>(*form, "lblDesc").textFormat(), Qt::PlainText);
    for (const auto* label : form->findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_P(FormLayout, CanBeMadeLarger) {
    open();
    settle();
    const auto query = place("txtQuery").size();
    form->resize(form->width() + 300, form->height() + 200);
    settle();
    EXPECT_GT(place("txtQuery").width(), query.width());
    EXPECT_EQ(place("txtQuery").height(), query.height());
    expectHelpFits();
}

TEST_P(FormLayout, SpeaksEachFieldByItsLabel) {
    open();
    for (const auto& [label, field] : labels()) {
        EXPECT_EQ(spoken(field, QAccessible::Name).toStdString(), Stage::label(label));
        EXPECT_EQ(find<QLabel>(*form, label).buddy(), &find(*form, field)) << field;
    }
    EXPECT_EQ(spoken("txtnn", QAccessible::Name), text("Parameter Type: length nn"));
    EXPECT_EQ(spoken("txtParm", QAccessible::Name), text("Parameter Type: as it will be stored"));
}

TEST_P(FormLayout, SpeaksTheHelpOfEachField) {
    open();
    if (!isNode()) find(*form, "txtCol").setEnabled(true);
    for (const auto& field : fields()) {
        SCOPED_TRACE(field);
        if (field == "txtID" || field == "txtParm") {
            EXPECT_EQ(spoken(field, QAccessible::Help), QString());
            EXPECT_EQ(spoken(field, QAccessible::Description), QString());
            continue;
        }
        focus("txtID");
        focus(field);
        EXPECT_FALSE(help().empty());
        EXPECT_EQ(find(*form, field).whatsThis().toStdString(), help());
        // For a list, Qt passes on only this.
        if (!field.starts_with("lst")) {
            EXPECT_EQ(spoken(field, QAccessible::Help).toStdString(), help());
        }
        EXPECT_EQ(spoken(field, QAccessible::Description).toStdString(), help());
    }
}

namespace {

class NodeLayout : public testing::Test, public Stage {
  protected:
    [[nodiscard]] QString spoken(const std::string& field, QAccessible::Text what) const {
        return QAccessible::queryAccessibleInterface(&find(*form, field))->text(what);
    }
};

}  // namespace

TEST_F(NodeLayout, IsNotWidenedByALongParent) {
    open("fNav");
    settle();
    const auto size = form->size();
    open(makeNode(7, 2, "N"), makeNode(2, 1, "F", std::string(5000, 'W')));
    settle();
    EXPECT_EQ(form->size(), size);
    EXPECT_EQ(label("lblParent"), "Parent Node: [2]  " + std::string(5000, 'W'));
}

// What the label paints, compared with labels that have nothing to leave out.
TEST_F(NodeLayout, EndsALongParentInAnEllipsis) {
    const auto painted = [&](const std::string& words) {
        const auto& label = find<QLabel>(*form, "lblParent");
        QLabel plain(text(words), form.get());
        plain.setTextFormat(Qt::PlainText);
        plain.setGeometry(label.geometry());
        return std::pair(find<QLabel>(*form, "lblParent").grab().toImage(), plain.grab().toImage());
    };
    open(makeNode(7, 2, "N"), makeNode(2, 1, "F", "Customers & <b>"));
    settle();
    const auto [shortOne, whole] = painted("Parent Node: [2]  Customers & <b>");
    EXPECT_EQ(shortOne, whole);
    EXPECT_EQ(find(*form, "lblParent").toolTip(), QString()) << "there is nothing more to say";

    open(makeNode(7, 2, "N"), makeNode(2, 1, "F", std::string(200, '-')));
    settle();
    const auto all = "Parent Node: [2]  " + std::string(200, '-');
    auto& label = find<QLabel>(*form, "lblParent");
    std::string most = "Parent Node: [2]  ";
    while (label.fontMetrics().horizontalAdvance(text(most + "-\u2026")) <= label.width()) most += "-";
    const auto [longOne, elided] = painted(most + "\u2026");
    EXPECT_EQ(longOne, elided);
    EXPECT_EQ(label.text(), text(all));
    EXPECT_EQ(label.toolTip(), text(all));
    EXPECT_EQ(spoken("lblParent", QAccessible::Name), text(all));

    QTest::mouseMove(form->windowHandle(), QPoint(1, 1));
    QTest::mouseMove(form->windowHandle(), label.mapTo(form.get(), label.rect().center()));
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }, patience));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), text(all));
    QToolTip::hideText();

    const int missing = label.fontMetrics().horizontalAdvance(text(all)) - label.width();
    form->resize(form->width() + missing, form->height());
    settle();
    EXPECT_EQ(label.toolTip(), QString()) << "a wider form shows it all";
}

TEST_F(NodeLayout, KeepsRoomForAllTypesBelowParentsThatOfferFewer) {
    open("fNav");
    settle();
    const auto size = form->size();
    open(makeNode(7, 2, "N"), makeNode(2, 1, "G"));
    settle();
    EXPECT_EQ(form->size(), size);
}
