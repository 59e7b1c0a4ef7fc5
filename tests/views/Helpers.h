// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "model/clsNavSchemes.h"
#include "views/NavTree.h"
#include "views/SchemeGrid.h"
#include "views/TreeModel.h"

// What the tests of this folder share: records in one line, trees and grids printed as text, a window with all views,
// and mouse and keyboard events that reach that window as a user's do.

using Rows = std::vector<std::string>;

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QRect& rect, std::ostream* out) {
    *out << "(" << rect.x() << ", " << rect.y() << ") " << rect.width() << " x " << rect.height();
}

inline void PrintTo(const QRectF& rect, std::ostream* out) {
    *out << "(" << rect.x() << ", " << rect.y() << ") " << rect.width() << " x " << rect.height();
}

// --- records ---

inline std::shared_ptr<clsNavScheme> makeNode(std::int32_t id, std::int32_t parent, const Text& type,
                                              const Text& description = {}) {
    auto node = std::make_shared<clsNavScheme>();
    node->ID = id;
    node->parentIs = parent;
    node->setTypeIs(type);
    node->descriptionIs = description;
    return node;
}

inline std::shared_ptr<clsWebScheme> makeParagraph(std::int32_t id, std::int32_t node, const Text& type = "H",
                                                   const Text& title = {}) {
    auto paragraph = std::make_shared<clsWebScheme>();
    paragraph->ID = id;
    paragraph->XST1 = node;
    paragraph->typeIs = type;
    paragraph->titleIs = title;
    return paragraph;
}

using Paragraphs = std::vector<std::shared_ptr<clsWebScheme>>;

/// N1 with N2 and N3; below N2: N4 and N5; below N4: N7; below N3: N6. Paragraphs 11 and 13 belong to node 2, 12 to
/// 3, 14 to 7. The order of the collection is not that of the tree.
inline void fillSample(clsNavSchemes& navs) {
    navs.Add(makeNode(1, 0, "F", "Sales"));
    navs.Add(makeNode(4, 2, "G", "Orders"));
    navs.Add(makeNode(2, 1, "F", "Customers"));
    navs.Add(makeNode(3, 1, "G", "Products"));
    navs.Add(makeNode(7, 4, "R", "Order"));
    navs.Add(makeNode(6, 3, "R", "Product"));
    navs.Add(makeNode(5, 2, "N", "Calls"));
    for (const auto& [id, node] : {std::pair{13, 2}, {12, 3}, {11, 2}, {14, 7}})
        navs.oWebs.Add(makeParagraph(id, node, "H", "Title"));
}

/// N1, below it N2, below it N3 and so on: `levels` of them below the root.
inline void fillChain(clsNavSchemes& navs, std::int32_t levels) {
    for (std::int32_t id = 1; id <= levels + 1; ++id) navs.Add(makeNode(id, id - 1, "F", "Level"));
}

/// Loads these bytes as the text file of a scheme. The file is gone afterwards.
template <class Scheme>
void loadBytes(Scheme& scheme, const std::string& bytes) {
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("in.txt"));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())), static_cast<qint64>(bytes.size()));
    file.close();
    scheme.LoadData(name.toStdString());
}

// --- views as text ---

/// The cells of the rows, separated by "|".
inline Rows cellsOf(const GridRows& rows, int columns) {
    Rows printed;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        std::string line = rows.cell(row, 0);
        for (int column = 1; column < columns; ++column) line += "|" + rows.cell(row, column);
        printed.push_back(line);
    }
    return printed;
}

inline Rows coloursOf(const GridRows& rows) {
    Rows printed;
    for (std::size_t row = 0; row < rows.count(); ++row) printed.push_back(rows.colour(row).name().toStdString());
    return printed;
}

/// The IDs that a grid shows: "13 12 11".
inline std::string idsIn(const SchemeGrid& grid) {
    std::string ids;
    for (int row = 0; row < grid.model()->rowCount(); ++row)
        ids += (row ? " " : "") + grid.model()->index(row, 0).data().toString().toStdString();
    return ids;
}

/// A line for each node, two blanks deeper than its parent: key, 'text', index of the picture, colour.
inline Rows treeOf(const TreeModel& model) {
    Rows printed;
    std::vector<std::pair<QModelIndex, std::size_t>> open;
    if (model.rowCount() != 0) open.emplace_back(model.index(0, 0), 0);
    while (!open.empty()) {
        const auto [index, depth] = open.back();
        open.pop_back();
        const auto& row = model.snapshot().row(model.rowOf(index));
        printed.push_back(std::string(2 * depth, ' ') + TreeSnapshot::key(row) + " '" +
                          index.data().toString().toStdString() + "' " +
                          std::to_string(static_cast<int>(row.picture)) + " " +
                          index.data(Qt::ForegroundRole).value<QBrush>().color().name().toStdString());
        for (int child = model.rowCount(index); child > 0; --child)
            open.emplace_back(model.index(child - 1, 0, index), depth + 1);
    }
    return printed;
}

inline Rows treeOf(const clsNavSchemes& navs) {
    const ImageList noImages(nullptr);
    TreeModel model(noImages, nullptr);
    model.show(TreeSnapshot(navs));
    return treeOf(model);
}

// --- the user ---

/// Clicks at a point of a widget, through the window that it is on.
inline void clickAt(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::mouseClick(widget->window()->windowHandle(), button, keys, widget->mapTo(widget->window(), at));
}

/// Presses and releases a key in the window, which hands it to the widget with the focus.
inline void typeKey(QWidget* window, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::keyClick(window->windowHandle(), key, keys);
}

/// Sends a widget what the keyboard sends while a key is held: a release and a press.
inline void repeatKey(QWidget* widget, Qt::Key key) {
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(widget, &event);
    }
}

/// Whether the window became the active one. Without a window manager there may be no active window.
inline bool activate(QWidget* window) {
    window->activateWindow();
    return QTest::qWaitForWindowActive(window, 3000);
}

/// Skips the rest of a test that needs the keyboard in this window, if no window manager gives it to the window.
#define NEEDS_ACTIVE(window) \
    if (!activate(window)) GTEST_SKIP() << "no window manager makes the window active"

// --- a window with all views ---

/// The tree at the left, the grid of nodes at the right above the grid of paragraphs. Records all events.
class SchemeWindow final : public QWidget, public NavWindow {
  public:
    SchemeWindow() : images(this), navGrid(new NavGrid(this)), webGrid(new WebGrid(this)) {
        resize(900, 640);
        navGrid->setGeometry(420, 10, 470, 300);
        for (const char* name : {"root", "fixed", "gen", "recur", "nongen"})
            images.add(QString::fromLatin1(name), QIcon(QStringLiteral(":/images/%1.svg").arg(QLatin1String(name))));
        navs.SetGrid(*navGrid);
        navs.SetTreeview(*this);
        const auto note = [this](const char* event) {
            return [this, event](std::string_view key) { events.push_back(event + std::string(key)); };
        };
        navs.oInsert = note("insert ");
        navs.oEdit = note("edit ");
        navs.oDelete = note("delete ");
        navs.oNodeClick = note("click ");
        navs.oRightClick = note("right ");
        navs.wRightClick = [this](std::string_view id, std::string_view node) {
            events.push_back("paragraph " + std::string(id) + " of " + std::string(node));
        };
    }

    void Maximize() override {}
    NavTreeView& CreateTree() override {
        tree = new NavTree(images, this);
        tree->setGeometry(10, 10, 400, 620);
        return *tree;
    }
    void LayOut(clsWebSchemes& webs) override { webs.SetGrid(*webGrid, 6300, 4800, 7050, 4650); }

    /// Shows the window. @return whether it appeared on the screen
    [[nodiscard]] bool appear() {
        show();
        return QTest::qWaitForWindowExposed(this);
    }
    /// The sample, drawn in all views. Forgets the events before.
    void showSample() {
        fillSample(navs);
        navs.DispInTV();
        navs.DisplayFullWeb();
        events.clear();
    }

    /// The events since this was last asked.
    [[nodiscard]] Rows taken() { return std::exchange(events, {}); }

    [[nodiscard]] QModelIndex at(std::string_view key) const {
        return tree->treeModel().indexOf(tree->treeModel().snapshot().find(key));
    }
    [[nodiscard]] bool isOpen(std::string_view key) const { return tree->isExpanded(at(key)); }
    /// The keys of the nodes whose children are shown, in tree order.
    [[nodiscard]] std::string openNodes() const {
        std::string keys;
        const auto& nodes = tree->treeModel().snapshot();
        for (std::uint32_t row = 0; row < nodes.count(); ++row)
            if (nodes.row(row).childCount != 0 && tree->isExpanded(tree->treeModel().indexOf(row)))
                keys += (keys.empty() ? "" : " ") + TreeSnapshot::key(nodes.row(row));
        return keys;
    }
    void open(std::string_view key) { tree->expand(at(key)); }

    /// A point on the node's text.
    [[nodiscard]] QPoint spot(std::string_view key) const {
        const auto place = tree->visualRect(at(key));
        return {place.left() + 30, place.center().y()};
    }
    /// The middle of the plus or minus box beside a node.
    [[nodiscard]] QPoint boxOf(std::string_view key) const {
        const auto place = tree->visualRect(at(key));
        return {place.left() - 20, place.center().y()};
    }
    void click(std::string_view key, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier) const {
        clickAt(tree->viewport(), spot(key), button, keys);
    }

    Rows events;
    ImageList images;
    NavTree* tree = nullptr;
    NavGrid* navGrid;
    WebGrid* webGrid;
    clsNavSchemes navs;
};
