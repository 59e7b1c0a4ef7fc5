// SPDX-License-Identifier: MIT
#include <QSignalSpy>

#include "Helpers.h"

namespace {

class TreeModelTest : public testing::Test {
  protected:
    TreeModelTest() {
        for (const char* name : {"root", "fixed", "gen", "recur", "nongen"})
            images.add(QString::fromLatin1(name), QIcon(QStringLiteral(":/images/%1.svg").arg(QLatin1String(name))));
        navs.Add(makeNode(1, 0, "N", "Sales"));
        navs.Add(makeNode(2, 1, "F", "Customers \x80"));
        navs.Add(makeNode(3, 2, "G", "Orders"));
        navs.Add(makeNode(4, 3, "R", "Order"));
        navs.Add(makeNode(5, 2, "N", "Calls"));
        model.show(TreeSnapshot(navs));
    }

    [[nodiscard]] QModelIndex at(std::string_view key) const { return model.indexOf(model.snapshot().find(key)); }

    /// A value of each node, in tree order.
    template <class Print>
    Rows each(Print print) const {
        Rows printed;
        for (const auto* key : {"N1", "N2", "N3", "N4", "N5"}) printed.push_back(print(at(key)));
        return printed;
    }
    [[nodiscard]] Rows texts(int role) const {
        return each([role](const QModelIndex& index) { return index.data(role).toString().toStdString(); });
    }

    clsNavSchemes navs;
    ImageList images{nullptr};
    TreeModel model{images, nullptr};
};

QImage image(const QVariant& icon) {
    return icon.value<QIcon>().pixmap(16, 16).toImage();
}

QImage image(const char* name) {
    return QIcon(QStringLiteral(":/images/%1.svg").arg(QLatin1String(name))).pixmap(16, 16).toImage();
}

}  // namespace

TEST_F(TreeModelTest, IsASoundModel) {
    TreeModel checked(images, nullptr);
    const QAbstractItemModelTester tester(&checked, QAbstractItemModelTester::FailureReportingMode::Warning);
    checked.show(TreeSnapshot(navs));
    checked.show(TreeSnapshot());
    clsNavSchemes other;
    fillSample(other);
    checked.show(TreeSnapshot(other));
    EXPECT_EQ(checked.rowCount(), 1);
}

TEST_F(TreeModelTest, ShowsNothingAtFirst) {
    const TreeModel empty(images, nullptr);
    EXPECT_EQ(empty.rowCount(), 0);
    EXPECT_EQ(empty.columnCount(), 1);
    EXPECT_FALSE(empty.index(0, 0).isValid());
}

TEST_F(TreeModelTest, HasTheRootOnTopAndChildrenBelow) {
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.columnCount(), 1);
    EXPECT_EQ(model.index(0, 0), at("N1"));
    EXPECT_FALSE(model.index(1, 0).isValid());
    EXPECT_FALSE(model.index(0, 1).isValid());
    EXPECT_FALSE(at("N1").parent().isValid());
    ASSERT_EQ(model.rowCount(at("N2")), 2);
    EXPECT_EQ(model.index(0, 0, at("N2")), at("N3"));
    EXPECT_EQ(model.index(1, 0, at("N2")), at("N5"));
    EXPECT_FALSE(model.index(2, 0, at("N2")).isValid());
    EXPECT_EQ(at("N5").parent(), at("N2"));
    EXPECT_EQ(at("N4").parent(), at("N3"));
    EXPECT_EQ(at("N5").row(), 1);
    EXPECT_EQ(model.rowCount(at("N5")), 0);
    EXPECT_FALSE(model.hasChildren(at("N4")));
    EXPECT_TRUE(model.hasChildren(at("N3")));
}

TEST_F(TreeModelTest, ShowsTheTexts) {
    EXPECT_EQ(texts(Qt::DisplayRole), (Rows{"Data Browser", "Customers €", "Orders", "Order", "Calls"}));
}

TEST_F(TreeModelTest, ShowsThePictureOfEachType) {
    EXPECT_EQ(image(at("N1").data(Qt::DecorationRole)), image("root"));
    EXPECT_EQ(image(at("N2").data(Qt::DecorationRole)), image("fixed"));
    EXPECT_EQ(image(at("N3").data(Qt::DecorationRole)), image("gen"));
    EXPECT_EQ(image(at("N4").data(Qt::DecorationRole)), image("recur"));
    EXPECT_EQ(image(at("N5").data(Qt::DecorationRole)), image("nongen"));
}

TEST_F(TreeModelTest, ColoursTheTextByType) {
    EXPECT_EQ(each([](const QModelIndex& index) {
                  return index.data(Qt::ForegroundRole).value<QBrush>().color().name().toStdString();
              }),
              (Rows{"#000000", "#ff0000", "#0000ff", "#004000", "#800000"}));
    EXPECT_EQ(at("N3").data(Qt::ForegroundRole).value<QBrush>().style(), Qt::SolidPattern);
}

TEST_F(TreeModelTest, SaysTextAndType) {
    EXPECT_EQ(texts(Qt::AccessibleTextRole),
              (Rows{"Data Browser, Root node", "Customers €, Fixed node", "Orders, Generating node",
                    "Order, Recurring node", "Calls, Non-generating node"}));
}

TEST_F(TreeModelTest, SaysAHeaderThatItDoesNotShow) {
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QStringLiteral("Node"));
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).isValid());
}

TEST_F(TreeModelTest, SaysATextWithPlaceholdersAsItStands) {
    navs.Item(2)->descriptionIs = "%2 of %1";
    model.show(TreeSnapshot(navs));
    EXPECT_EQ(at("N2").data(Qt::AccessibleTextRole).toString(), QStringLiteral("%2 of %1, Fixed node"));
}

TEST_F(TreeModelTest, ShowsTheStartOfAVeryLongText) {
    navs.Item(2)->descriptionIs = std::string(5000, 'a');
    model.show(TreeSnapshot(navs));
    EXPECT_EQ(at("N2").data().toString(), QString(1000, u'a'));
    EXPECT_EQ(at("N2").data(Qt::AccessibleTextRole).toString(), QString(1000, u'a') + QStringLiteral(", Fixed node"));
}

TEST_F(TreeModelTest, HasNothingElseToShow) {
    for (const auto role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::FontRole, Qt::TextAlignmentRole,
                            Qt::BackgroundRole, Qt::CheckStateRole, Qt::SizeHintRole})
        EXPECT_FALSE(at("N2").data(role).isValid()) << role;
    EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
}

TEST_F(TreeModelTest, CannotBeEdited) {
    EXPECT_EQ(model.flags(at("N2")), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    EXPECT_FALSE(model.setData(at("N2"), QStringLiteral("other")));
    EXPECT_EQ(at("N2").data().toString(), QStringLiteral("Customers €"));
}

TEST_F(TreeModelTest, LeadsFromRowsToIndexesAndBack) {
    for (std::uint32_t row = 0; row < 5; ++row) EXPECT_EQ(model.rowOf(model.indexOf(row)), row);
    EXPECT_FALSE(model.indexOf(TreeSnapshot::none).isValid());
}

TEST_F(TreeModelTest, SpreadsItsInternalNumbers) {
    clsNavSchemes chain;
    fillChain(chain, 999);
    model.show(TreeSnapshot(chain));
    QSet<quintptr> numbers;
    for (std::uint32_t row = 0; row < 1000; ++row) {
        numbers.insert(model.indexOf(row).internalId());
        EXPECT_EQ(model.rowOf(model.indexOf(row)), row);
    }
    EXPECT_EQ(numbers.size(), 1000);
    EXPECT_GT(*std::max_element(numbers.begin(), numbers.end()), quintptr{1} << 31)
        << "small running numbers cluster in the view's table of open nodes";
}

TEST_F(TreeModelTest, ReplacesEverythingAtOnce) {
    QSignalSpy before(&model, &QAbstractItemModel::modelAboutToBeReset);
    QSignalSpy after(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const QPersistentModelIndex old(at("N2"));
    model.show(TreeSnapshot(navs));
    EXPECT_EQ(before.count(), 1);
    EXPECT_EQ(after.count(), 1);
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_FALSE(old.isValid());
}
