// SPDX-License-Identifier: MIT
// What a quickly written program for the same job would do: one item for each row and each cell, filled from maps.
//   item_widgets PREFIX      loads and draws PREFIX.xst1 and PREFIX.xst2, clicks, and prints "name milliseconds"
//   lines
#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QSplitter>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

std::vector<QStringList> readRows(const std::string& file) {
    std::vector<QStringList> rows;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] < '0' || line[0] > '9') continue;
        auto cells =
            QString::fromLatin1(line.data(), static_cast<int>(line.size())).trimmed().split(QLatin1Char(','));
        for (auto& cell : cells) cell.remove(QLatin1Char('"'));
        rows.push_back(cells);
    }
    return rows;
}

void fill(QTableWidget& table, const std::vector<const QStringList*>& rows, int columns) {
    table.setRowCount(0);
    table.setColumnCount(columns);
    table.setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        const auto& cells = *rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < columns && column < cells.size(); ++column)
            table.setItem(row, column, new QTableWidgetItem(cells[column]));
    }
}

template <class Step>
double timed(Step step) {
    QElapsedTimer timer;
    timer.start();
    step();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const std::string prefix = argc > 1 ? argv[1] : "";
    QSplitter window;
    QTreeWidget tree;
    QTableWidget nodeTable, paragraphTable;
    for (QWidget* part :
         {static_cast<QWidget*>(&tree), static_cast<QWidget*>(&nodeTable), static_cast<QWidget*>(&paragraphTable)})
        window.addWidget(part);
    window.resize(1366, 768);
    window.show();
    QCoreApplication::processEvents();

    std::vector<QStringList> nodes, paragraphs;
    std::unordered_map<QString, std::vector<const QStringList*>> ofNode;
    const auto both = timed([&] {
        nodes = readRows(prefix + ".xst1");
        paragraphs = readRows(prefix + ".xst2");
        std::unordered_map<QString, QTreeWidgetItem*> items;
        for (const auto& node : nodes) items[node[0]] = new QTreeWidgetItem(QStringList{node[1]});
        for (const auto& node : nodes) {
            const auto parent = items.find(node[3]);
            if (parent == items.end())
                tree.addTopLevelItem(items[node[0]]);
            else
                parent->second->addChild(items[node[0]]);
        }
        std::vector<const QStringList*> all;
        for (const auto& node : nodes) all.push_back(&node);
        fill(nodeTable, all, 8);
        all.clear();
        for (const auto& paragraph : paragraphs) {
            all.push_back(&paragraph);
            ofNode[paragraph[1]].push_back(&paragraph);
        }
        fill(paragraphTable, all, 10);
    });
    std::printf("%-24s %10.2f\n", "load and draw both", both);
    const auto click = [&](std::size_t number) {
        return timed([&] { fill(paragraphTable, ofNode[nodes[number * 7919 % nodes.size()][0]], 10); });
    };
    std::printf("%-24s %10.2f\n", "leaving them", click(1));
    std::vector<double> clicks;
    for (std::size_t number = 0; number < 100; ++number) clicks.push_back(click(number));
    std::ranges::sort(clicks);
    std::printf("%-24s %10.2f\n", "click, median", clicks[50]);
    std::fflush(stdout);
    std::_Exit(0);
}
