// SPDX-License-Identifier: MIT
#include <QGroupBox>
#include <QListWidget>
#include <QRegularExpression>
#include <set>

#include "Helpers.h"
#include "analysis/Reports.h"
#include "forms/fNav.h"
#include "forms/fWeb.h"
#include "model/NodeType.h"
#include "model/ParagraphType.h"
#include "model/ParameterKind.h"
#include "tests/Letters.h"

// What every type and every kind of parameter must have, whichever there are: whoever adds one and forgets a place
// finds it here.

namespace {

// The entry of a list of types with this letter; empty if there is none.
std::string entryOf(const QDialog& form, char letter) {
    const auto& list = find<QListWidget>(form, "lstType");
    for (int row = 0; row < list.count(); ++row)
        if (const auto entry = list.item(row)->text().toStdString(); entry.front() == letter) return entry;
    return {};
}

// What the form explains when the entry is chosen.
std::string helpOn(const QDialog& form, const std::string& entry) {
    auto& list = find<QListWidget>(form, "lstType");
    list.setCurrentItem(list.findItems(text(entry), Qt::MatchExactly).front());
    return find<QLabel>(form, "lblDesc").text().toStdString();
}

std::shared_ptr<clsWebScheme> paragraphOf(std::int32_t id, const std::string& type) {
    auto paragraph = makeParagraph(id, 1);
    paragraph->typeIs = type;
    return paragraph;
}

bool mentions(const std::string& report, std::int32_t id) {
    return report.find("[ID=" + std::to_string(id) + "]") != std::string::npos;
}

bool lists(const std::string& toDo, const std::string& line) {
    return toDo.find("\r\n" + line) != std::string::npos;
}

class EveryType : public testing::Test {
  protected:
    // A scheme with a node below the root for each type, 2 upwards, each with a query and no children.
    void addNodes() {
        std::int32_t id = 1;
        for (const auto& type : nodeTypes)
            navs.Add(makeNode(++id, 1, std::string(1, type.letter), std::string("node ") + type.letter, "spG_A"));
        navs.DispInTV();
    }
    // Below the first of these, so that each has something below it, and without a query.
    void addNodesThatBreakRules() {
        std::int32_t id = 100;
        for (const auto& type : nodeTypes) {
            const std::string letter(1, type.letter);
            navs.Add(makeNode(++id, 2, letter, "bare"));
            navs.Add(makeNode(id + 100, 2, letter, "with children", "spG_A"));
            navs.Add(makeNode(id + 200, id + 100, "F"));
            navs.Add(makeNode(id + 300, id + 100, "F"));
        }
    }

    Wizard wizard;
    clsNavSchemes& navs = *wizard.window.oNavs;
};

}  // namespace

TEST_F(EveryType, IsInTheTableOnce) {
    std::string letters;
    for (const auto& type : nodeTypes) letters += type.letter;
    EXPECT_EQ(letters, nodeLetters);
    letters.clear();
    for (const auto& type : paragraphTypes) letters += type.letter;
    EXPECT_EQ(letters, paragraphLetters);
}

TEST_F(EveryType, OfANodeIsDrawnWithAPictureAndAColourOfItsOwn) {
    addNodes();
    const auto& tree = wizard.tree();
    const auto root = tree.model()->index(0, 0);
    ASSERT_EQ(tree.model()->rowCount(root), static_cast<int>(std::size(nodeTypes)));
    std::set<QRgb> treeColours, gridColours;
    std::set<std::string> spoken;
    for (int row = 0; row < tree.model()->rowCount(root); ++row) {
        const auto node = tree.model()->index(row, 0, root);
        SCOPED_TRACE(node.data().toString().toStdString());
        EXPECT_EQ(node.data().toString().back(), QLatin1Char(nodeTypes[row].letter));
        const auto picture = node.data(Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage();
        ASSERT_FALSE(picture.isNull());
        EXPECT_NE(picture, root.data(Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage());
        treeColours.insert(node.data(Qt::ForegroundRole).value<QBrush>().color().rgb());
        const auto cell = wizard.nodeGrid().model()->index(row + 1, 1);
        gridColours.insert(cell.data(Qt::ForegroundRole).value<QBrush>().color().rgb());
        spoken.insert(cell.data(Qt::AccessibleDescriptionRole).toString().toStdString());
    }
    EXPECT_EQ(treeColours.size(), std::size(nodeTypes));
    EXPECT_EQ(gridColours.size(), std::size(nodeTypes));
    EXPECT_EQ(spoken.size(), std::size(nodeTypes));
    EXPECT_FALSE(spoken.contains("Node of unknown type"));
}

TEST_F(EveryType, OfANodeHasARowAndAColumnInTheLegend) {
    const auto labels = find<QGroupBox>(wizard.window, "frRule").findChildren<QLabel*>();
    const auto pictures =
        find<QGroupBox>(wizard.window, "frRule").findChildren<QWidget*>(QRegularExpression(text("^Image")));
    const auto types = static_cast<qsizetype>(std::size(nodeTypes));
    EXPECT_EQ(pictures.size(), types);
    ASSERT_GE(labels.size(), types + types + types * types);
    for (qsizetype type = 0; type < types; ++type) {
        EXPECT_TRUE(labels[type]->text().endsWith(QLatin1String(") "))) << labels[type]->text().toStdString();
        EXPECT_EQ(labels[types + type]->text(), QString(QLatin1Char(nodeTypes[type].letter)));
        for (qsizetype column = 0; column < types; ++column) {
            const auto& cell = *labels[types + types + type * types + column];
            EXPECT_EQ(cell.y(), labels[type]->y()) << type << " " << column;
            EXPECT_EQ(cell.x(), labels[types + column]->x()) << type << " " << column;
            EXPECT_EQ(cell.text() == text("--"),
                      nodeTypes[type].mostChildren == 0 ||
                          (nodeTypes[column].onlyBelow != 0 && nodeTypes[column].onlyBelow != nodeTypes[type].letter))
                << type << " " << column;
        }
    }
}

TEST_F(EveryType, OfANodeIsOfferedAndExplainedInItsForm) {
    fNav form(navs, nullptr);
    form.setPObject(makeNode(1, 0, "F"));
    form.setNavObject(makeNode(2, 1, "N"));
    std::set<std::string> helps;
    for (const auto& type : nodeTypes) {
        const auto entry = entryOf(form, type.letter);
        ASSERT_NE(entry, "") << type.letter;
        helps.insert(helpOn(form, entry));
        EXPECT_EQ(find<QLineEdit>(form, "txtQuery").isEnabled(), type.hasQuery) << entry;
        EXPECT_EQ(find<QListWidget>(form, "lstParm").isEnabled(), type.hasQuery) << entry;
    }
    EXPECT_EQ(helps.size(), std::size(nodeTypes)) << "each has a help of its own";
}

TEST_F(EveryType, OfANodeSaysWhyItTakesNoMoreChildren) {
    for (const auto& type : nodeTypes)
        if (type.mostChildren != NodeType::anyNumber) {
            EXPECT_NE(type.tooManyToStore.find("Changes not saved"), std::string_view::npos) << type.letter;
            EXPECT_NE(type.noneToAdd.find("No Addition allowed !!"), std::string_view::npos) << type.letter;
        }
}

TEST_F(EveryType, OfANodeIsAnalysedAndListed) {
    addNodes();
    addNodesThatBreakRules();
    const auto report = CheckNav(navs);
    const auto toDo = NavToDo(navs);
    std::int32_t id = 1;
    for (const auto& type : nodeTypes) {
        ++id;
        EXPECT_TRUE(mentions(report, 100 + id - 1) || mentions(report, 200 + id - 1)) << type.letter;
        EXPECT_EQ(lists(toDo, "00" + std::to_string(id) + ": spG_A"), type.hasQuery) << type.letter;
    }
}

TEST_F(EveryType, OfAParagraphIsShownExplainedAndAnalysed) {
    std::set<std::string> spoken, helps;
    fWeb form(navs, nullptr);
    form.setWebObject(paragraphOf(1, "S"));
    std::int32_t id = 0;
    for (const auto& type : paragraphTypes) {
        navs.oWebs.Add(paragraphOf(++id, std::string(1, type.letter)));
        const auto entry = entryOf(form, type.letter);
        ASSERT_NE(entry, "") << type.letter;
        helps.insert(helpOn(form, entry));
        const bool columns = find<QLineEdit>(form, "txtCol").isEnabled();
        EXPECT_EQ(columns, type.columns != ColumnsUse::None) << entry;
        const bool formNumber = find<QLineEdit>(form, "txtForm").isEnabled();
        EXPECT_EQ(formNumber, type.keepsForm || type.letter == 'I') << entry;
    }
    navs.oWebs.DispInGrid(0);
    const auto report = CheckScheme(navs);
    const auto toDo = WebToDo(navs.oWebs);
    for (std::int32_t row = 0; row < id; ++row) {
        const auto cell = wizard.paragraphGrid().model()->index(row, 0);
        spoken.insert(cell.data(Qt::AccessibleDescriptionRole).toString().toStdString());
        EXPECT_TRUE(mentions(report, row + 1)) << paragraphTypes[row].letter;
        const auto prefix = std::string(paragraphTypes[row].fieldPrefix);
        const auto note = prefix.empty() ? "" : " <One field-name SHOULD be prefixed with '" + prefix + "'>";
        EXPECT_TRUE(lists(toDo, "00" + std::to_string(row + 1) + ":    (Parameter = None)" + note + "\r\n"))
            << paragraphTypes[row].letter << toDo;
    }
    EXPECT_EQ(helps.size(), std::size(paragraphTypes));
    EXPECT_EQ(spoken.size(), std::size(paragraphTypes));
    EXPECT_FALSE(spoken.contains("Paragraph of unknown type"));
}

TEST_F(EveryType, OfAParameterIsOfferedStoredReadAndListed) {
    std::set<std::string> helps, notes;
    for (const std::string name : {"fNav", "fWeb"}) {
        std::unique_ptr<QDialog> form;
        if (name == "fNav") {
            auto nodes = std::make_unique<fNav>(navs, nullptr);
            nodes->setPObject(makeNode(1, 0, "F"));
            nodes->setNavObject(makeNode(2, 1, "G"));
            form = std::move(nodes);
        } else {
            auto paragraphs = std::make_unique<fWeb>(navs, nullptr);
            paragraphs->setWebObject(paragraphOf(1, "S"));
            form = std::move(paragraphs);
        }
        auto& list = find<QListWidget>(*form, "lstParm");
        ASSERT_EQ(list.count(), static_cast<int>(std::size(parameterKinds))) << name;
        for (int row = 0; row < list.count(); ++row) {
            SCOPED_TRACE(list.item(row)->text().toStdString());
            list.setCurrentRow(row);
            if (parameterKinds[row].kind == ParameterKind::CKey) find<QLineEdit>(*form, "txtnn").setText(text("5"));
            const auto stored = find<QLineEdit>(*form, "txtParm").text().toStdString();
            EXPECT_EQ(stored.substr(0, parameterKinds[row].stored.size()), parameterKinds[row].stored);
            EXPECT_EQ(readParameterKind(stored), parameterKinds[row].kind);
            helps.insert(find<QLabel>(*form, "lblDesc").text().toStdString());

            navs.oWebs.ClearAll();
            auto paragraph = paragraphOf(1, "S");
            paragraph->parmIs = stored;
            navs.oWebs.Add(paragraph);
            const auto toDo = WebToDo(navs.oWebs);
            const auto line = toDo.find("\r\n001: ");
            ASSERT_NE(line, std::string::npos);
            notes.insert(toDo.substr(line));
        }
    }
    EXPECT_EQ(helps.size(), std::size(parameterKinds));
    EXPECT_EQ(notes.size(), std::size(parameterKinds));
}
