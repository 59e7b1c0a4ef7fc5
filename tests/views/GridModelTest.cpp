// SPDX-License-Identifier: MIT
#include <QSignalSpy>

#include "Helpers.h"

namespace {

/// A value of each column of the header, or of a row.
template <class Print>
Rows each(int columns, Print print) {
    Rows printed;
    for (int column = 0; column < columns; ++column) printed.push_back(print(column));
    return printed;
}

std::string markOf(const QVariant& alignment) {
    const auto value = alignment.value<Qt::Alignment>();
    if (value == (Qt::AlignRight | Qt::AlignVCenter)) return ">";
    if (value == (Qt::AlignLeft | Qt::AlignVCenter)) return "<";
    return value == (Qt::AlignHCenter | Qt::AlignVCenter) ? "^" : "?";
}

class GridModelTest : public testing::Test {
  protected:
    GridModelTest() {
        navs.Add(makeNode(1, 0, "F", "Sales \x80"));
        navs.Add(makeNode(2, 1, "R", "Order"));
        navs.Item(2)->setQueryIs("spN_Order");
        nodes.show(std::make_unique<NavGridRows>(navs));
        paragraphs.show(std::make_unique<WebGridRows>(Paragraphs{makeParagraph(5, 2, "T", "Pictures")}));
    }

    clsNavSchemes navs;
    GridModel nodes{readColumnFormat(">ID |<Description|^Type|^Parent    |<Query|<Parameter|<Icon|<Role"),
                    std::make_unique<NavGridRows>(), nullptr};
    GridModel paragraphs{readColumnFormat("^ID |^XST1|^Seq|<Title  |<Query|<Parameter|^Type|^Form#|<Columns"),
                         std::make_unique<WebGridRows>(), nullptr};
};

}  // namespace

TEST_F(GridModelTest, IsASoundModel) {
    const QAbstractItemModelTester tester(&nodes, QAbstractItemModelTester::FailureReportingMode::Warning);
    clsNavSchemes other;
    fillSample(other);
    nodes.show(std::make_unique<NavGridRows>(other));
    EXPECT_EQ(nodes.rowCount(), 7);
    nodes.show(std::make_unique<NavGridRows>());
    EXPECT_EQ(nodes.rowCount(), 0);
    nodes.show(std::make_unique<NavGridRows>(navs));
    EXPECT_EQ(nodes.rowCount(), 2);
}

TEST_F(GridModelTest, HasItsOldRowsUntilItIsReset) {
    int before = -1;
    QObject::connect(&nodes, &GridModel::modelAboutToBeReset, [&] { before = nodes.rowCount(); });
    nodes.show(std::make_unique<NavGridRows>());
    EXPECT_EQ(before, 2);
    EXPECT_EQ(nodes.rowCount(), 0);
}

// Freeing a million rows takes long, and no repaint should wait for that.
TEST_F(GridModelTest, KeepsTheOldRowsUntilPendingRepaintsAreDone) {
    auto record = makeParagraph(6, 2, "H", "Kept by its row");
    const std::weak_ptr<clsWebScheme> alive = record;
    paragraphs.show(std::make_unique<WebGridRows>(Paragraphs{record}));
    record.reset();
    EXPECT_FALSE(alive.expired());
    paragraphs.show(std::make_unique<WebGridRows>());
    EXPECT_FALSE(alive.expired());
    QCoreApplication::sendPostedEvents();  // repaints are such events
    EXPECT_FALSE(alive.expired());
    QTest::qWait(20);
    EXPECT_TRUE(alive.expired());

    record = makeParagraph(7, 2, "H", "Given back at once");
    const std::weak_ptr<clsWebScheme> next = record;
    paragraphs.show(std::make_unique<WebGridRows>(Paragraphs{record}));
    record.reset();
    for (int i = 0; i < 2; ++i) paragraphs.show(std::make_unique<WebGridRows>());
    EXPECT_TRUE(next.expired()) << "no more than one set of old rows is kept";
}

TEST_F(GridModelTest, HasARowForEachRecordAndTheColumnsOfTheFormat) {
    EXPECT_EQ(nodes.rowCount(), 2);
    EXPECT_EQ(nodes.columnCount(), 8);
    EXPECT_EQ(paragraphs.rowCount(), 1);
    EXPECT_EQ(paragraphs.columnCount(), 9);
    EXPECT_EQ(nodes.rowCount(nodes.index(0, 0)), 0) << "a table has no levels";
    EXPECT_EQ(nodes.columnCount(nodes.index(0, 0)), 0);
}

TEST_F(GridModelTest, ShowsTheCells) {
    const auto text = [](const GridModel& model, int row) {
        return [&model, row](int column) { return model.index(row, column).data().toString().toStdString(); };
    };
    EXPECT_EQ(each(8, text(nodes, 0)), (Rows{"1", "Sales €", "F", "0", "", "", "", ""}));
    EXPECT_EQ(each(8, text(nodes, 1)), (Rows{"2", "Order", "R", "1", "spN_Order", "", "", ""}));
    EXPECT_EQ(each(9, text(paragraphs, 0)), (Rows{"5", "2", "0", "Pictures", "", "", "T", "0", ""}));
}

TEST_F(GridModelTest, ShowsTheStartOfAVeryLongText) {
    navs.Item(2)->descriptionIs = std::string(5000, 'a');
    nodes.show(std::make_unique<NavGridRows>(navs));
    EXPECT_EQ(nodes.index(1, 1).data().toString(), QString(1000, u'a'));
    EXPECT_EQ(nodes.rows().cell(1, 1).size(), 5000U) << "the row itself keeps all of it";
}

TEST_F(GridModelTest, ColoursEveryCellOfARow) {
    const auto colour = [](const GridModel& model, int row) {
        return [&model, row](int column) {
            const auto brush = model.index(row, column).data(Qt::ForegroundRole).value<QBrush>();
            return brush.style() == Qt::SolidPattern ? brush.color().name().toStdString() : "no colour";
        };
    };
    EXPECT_EQ(each(8, colour(nodes, 0)), Rows(8, "#ff0000"));
    EXPECT_EQ(each(8, colour(nodes, 1)), Rows(8, "#008000"));
    EXPECT_EQ(each(9, colour(paragraphs, 0)), Rows(9, "#000000"));
}

TEST_F(GridModelTest, AlignsCellsAndHeaderAlike) {
    EXPECT_EQ(each(8, [&](int column) { return markOf(nodes.index(1, column).data(Qt::TextAlignmentRole)); }),
              (Rows{">", "<", "^", "^", "<", "<", "<", "<"}));
    EXPECT_EQ(each(9, [&](int column) { return markOf(paragraphs.index(0, column).data(Qt::TextAlignmentRole)); }),
              (Rows{"^", "^", "^", "<", "<", "<", "^", "^", "<"}));
    EXPECT_EQ(
        each(8, [&](int column) { return markOf(nodes.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)); }),
        (Rows{">", "<", "^", "^", "<", "<", "<", "<"}));
}

TEST_F(GridModelTest, ShowsTheCaptionsWithTheirBlanksAndSaysThemWithout) {
    EXPECT_EQ(each(9,
                   [&](int column) {
                       return paragraphs.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString();
                   }),
              (Rows{"ID ", "XST1", "Seq", "Title  ", "Query", "Parameter", "Type", "Form#", "Columns"}));
    EXPECT_EQ(nodes.headerData(0, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QStringLiteral("ID"));
    EXPECT_EQ(nodes.headerData(3, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QStringLiteral("Parent"));
}

TEST_F(GridModelTest, LeavesTheHeaderBlack) {
    for (int column = 0; column < 8; ++column) {
        EXPECT_FALSE(nodes.headerData(column, Qt::Horizontal, Qt::ForegroundRole).isValid()) << column;
        EXPECT_FALSE(nodes.headerData(column, Qt::Horizontal, Qt::BackgroundRole).isValid()) << column;
    }
}

TEST_F(GridModelTest, HasNoTextsAtTheLeft) {
    EXPECT_FALSE(nodes.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    EXPECT_FALSE(nodes.headerData(1, Qt::Vertical, Qt::TextAlignmentRole).isValid());
}

TEST_F(GridModelTest, SaysTheTypeOfTheRow) {
    EXPECT_EQ(nodes.index(0, 0).data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("Fixed node"));
    EXPECT_EQ(nodes.index(1, 7).data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("Recurring node"));
    EXPECT_EQ(paragraphs.index(0, 3).data(Qt::AccessibleDescriptionRole).toString(),
              QStringLiteral("Thumbnails paragraph"));
}

TEST_F(GridModelTest, HasNothingElseToShow) {
    for (const auto role : {Qt::DecorationRole, Qt::ToolTipRole, Qt::FontRole, Qt::BackgroundRole, Qt::CheckStateRole,
                            Qt::SizeHintRole})
        EXPECT_FALSE(nodes.index(0, 1).data(role).isValid()) << role;
    EXPECT_FALSE(nodes.data({}, Qt::DisplayRole).isValid());
}

TEST_F(GridModelTest, CannotBeEdited) {
    EXPECT_EQ(nodes.flags(nodes.index(0, 1)) & Qt::ItemIsEditable, 0);
    EXPECT_FALSE(nodes.setData(nodes.index(0, 1), QStringLiteral("other")));
    EXPECT_EQ(nodes.index(0, 1).data().toString(), QStringLiteral("Sales €"));
}

TEST_F(GridModelTest, ReplacesEverythingAtOnce) {
    QSignalSpy before(&nodes, &QAbstractItemModel::modelAboutToBeReset);
    QSignalSpy after(&nodes, &QAbstractItemModel::modelReset);
    const QPersistentModelIndex old(nodes.index(1, 1));
    nodes.show(std::make_unique<NavGridRows>(navs));
    EXPECT_EQ(before.count(), 1);
    EXPECT_EQ(after.count(), 1);
    EXPECT_FALSE(old.isValid());
}
