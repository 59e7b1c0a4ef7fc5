// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

#include "Helpers.h"

namespace {

/// What both grids have in common.
class SchemeGridTest : public testing::Test {
  protected:
    SchemeGridTest() : grids{window.navGrid, window.webGrid} { window.showSample(); }
    void SetUp() override { ASSERT_TRUE(window.appear()); }

    /// A point on a cell.
    static QPoint cell(const SchemeGrid& grid, int row, int column = 0) {
        return grid.visualRect(grid.model()->index(row, column)).center();
    }
    /// The row that is current, -1 for the header row.
    static int current(const SchemeGrid& grid) { return grid.currentIndex().row(); }
    static int selected(const SchemeGrid& grid) {
        const auto rows = grid.selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.front().row();
    }
    void fillBoth() {
        window.navs.DispInGrid();
        window.navs.DisplayFullWeb();
    }

    SchemeWindow window;
    std::vector<SchemeGrid*> grids;
};

bool hasColour(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour) return true;
    return false;
}

}  // namespace

TEST_F(SchemeGridTest, KeepsTheLookOfItsHeaderWhenARowIsSelected) {
    for (auto* grid : grids) {
        const auto before = grid->horizontalHeader()->grab().toImage();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell(*grid, 1));
        EXPECT_EQ(selected(*grid), 1);
        EXPECT_TRUE(grid->horizontalHeader()->grab().toImage() == before);
    }
}

TEST_F(SchemeGridTest, ShowsTheHeaderRowAloneAtFirst) {
    NavGrid nodes(nullptr);
    WebGrid paragraphs(nullptr);
    EXPECT_EQ(nodes.model()->rowCount(), 0);
    EXPECT_EQ(nodes.model()->columnCount(), 8);
    EXPECT_EQ(paragraphs.model()->rowCount(), 0);
    EXPECT_EQ(paragraphs.model()->columnCount(), 9);
    for (const SchemeGrid* grid : {static_cast<SchemeGrid*>(&nodes), static_cast<SchemeGrid*>(&paragraphs)}) {
        EXPECT_FALSE(grid->horizontalHeader()->isHidden());
        EXPECT_TRUE(grid->verticalHeader()->isHidden());
    }
}

// A cell shows only the beginning of a long text.
TEST_F(SchemeGridTest, CopiesTheWholeTextOfTheCurrentCell) {
    NEEDS_ACTIVE(&window);
    const QString whole(3000, QLatin1Char('d'));
    window.navs.Add(makeNode(900, 1, "F", whole.toStdString()));
    window.navs.oWebs.Add(makeParagraph(900, 900, "H", whole.toStdString()));
    fillBoth();
    auto* clipboard = QGuiApplication::clipboard();
    for (auto* grid : grids) {
        clipboard->setText(QStringLiteral("before"));
        grid->setFocus();
        typeKey(&window, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(clipboard->text(), QStringLiteral("before")) << "the header row is current";
        const auto ids = grid->model()->match(grid->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("900"));
        ASSERT_EQ(ids.size(), 1);
        grid->setCurrentIndex(ids.front().siblingAtColumn(grid == window.navGrid ? 1 : 3));
        EXPECT_EQ(grid->currentIndex().data().toString().size(), 1000);
        typeKey(&window, Qt::Key_C, Qt::ControlModifier);
        EXPECT_TRUE(clipboard->text() == whole);
    }
}

TEST_F(SchemeGridTest, HasItsColumns) {
    const auto captions = [](const SchemeGrid& grid) {
        std::string line;
        for (int column = 0; column < grid.model()->columnCount(); ++column)
            line += grid.model()->headerData(column, Qt::Horizontal).toString().trimmed().toStdString() + "|";
        return line;
    };
    EXPECT_EQ(captions(*window.navGrid), "ID|Description|Type|Parent|Query|Parameter|Icon|Role|");
    EXPECT_EQ(captions(*window.webGrid), "ID|XST1|Seq|Paragraph Title|Query|Parameter|Type|Form#|Columns|");
}

TEST_F(SchemeGridTest, MakesAColumnAsWideAsTheCharactersOfItsCaption) {
    const int character = window.navGrid->fontMetrics().averageCharWidth();
    ASSERT_GT(character, 0);
    const auto expectWidths = [&](const SchemeGrid& grid, const std::vector<int>& characters) {
        for (std::size_t column = 0; column < characters.size(); ++column) {
            const auto caption =
                grid.model()->headerData(static_cast<int>(column), Qt::Horizontal).toString().trimmed();
            const int legible = QFontMetrics(grid.horizontalHeader()->font()).horizontalAdvance(caption);
            EXPECT_EQ(grid.columnWidth(static_cast<int>(column)),
                      std::max(characters[column] * character, legible) + 8)
                << column;
        }
    };
    expectWidths(*window.navGrid, {3, 61, 4, 10, 31, 14, 18, 13});
    expectWidths(*window.webGrid, {3, 4, 3, 54, 34, 11, 4, 5, 30});
}

TEST_F(SchemeGridTest, WidensAColumnForLongNumbersAndNarrowsItAgain) {
    const int before = window.navGrid->columnWidth(0);
    window.navs.Add(makeNode(-2147483647 - 1, 1, "F"));
    window.navs.oWebs.Add(makeParagraph(1234567890, 1234567890));
    fillBoth();
    const auto digits = window.navGrid->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    EXPECT_EQ(window.navGrid->columnWidth(0), 11 * digits + 8);
    EXPECT_EQ(window.webGrid->columnWidth(0), 10 * digits + 8);
    EXPECT_EQ(window.webGrid->columnWidth(1), 10 * digits + 8);
    window.navs.Remove("-2147483648");
    fillBoth();
    EXPECT_EQ(window.navGrid->columnWidth(0), before);
}

TEST_F(SchemeGridTest, DoesNotWidenAColumnForLongTexts) {
    const int before = window.navGrid->columnWidth(7);
    window.navs.Item(1)->roleIs = std::string(500, 'M');
    fillBoth();
    EXPECT_EQ(window.navGrid->columnWidth(7), before);
    EXPECT_EQ(window.navGrid->rowHeight(0), window.navGrid->rowHeight(1)) << "nor is a long text wrapped";
}

TEST_F(SchemeGridTest, IsForViewing) {
    for (const auto* grid : grids) {
        EXPECT_EQ(grid->editTriggers(), QAbstractItemView::NoEditTriggers);
        EXPECT_EQ(grid->selectionBehavior(), QAbstractItemView::SelectRows);
        EXPECT_EQ(grid->selectionMode(), QAbstractItemView::SingleSelection);
        EXPECT_FALSE(grid->tabKeyNavigation());
        EXPECT_FALSE(grid->wordWrap());
        EXPECT_FALSE(grid->isSortingEnabled());
        EXPECT_EQ(grid->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
        EXPECT_EQ(grid->horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
        EXPECT_EQ(grid->verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    }
}

TEST_F(SchemeGridTest, HasRowsOfOneHeight) {
    for (const auto* grid : grids)
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            EXPECT_EQ(grid->rowHeight(row), grid->fontMetrics().height() + 4);
}

TEST_F(SchemeGridTest, MakesTheHeaderRowCurrentAfterEachFill) {
    for (auto* grid : grids) {
        EXPECT_EQ(current(*grid), -1);
        clickAt(grid->viewport(), cell(*grid, 2));
        EXPECT_EQ(current(*grid), 2);
        fillBoth();
        EXPECT_EQ(current(*grid), -1);
        EXPECT_EQ(selected(*grid), -1);
    }
}

TEST_F(SchemeGridTest, MakesTheRowCurrentThatIsClicked) {
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 1));
        EXPECT_EQ(current(*grid), 1);
        EXPECT_EQ(selected(*grid), 1);
        clickAt(grid->viewport(), cell(*grid, 3, 1));
        EXPECT_EQ(current(*grid), 3);
        EXPECT_EQ(selected(*grid), 3);
        EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 1) << "one row at a time";
    }
}

TEST_F(SchemeGridTest, MovesWithTheArrowKeys) {
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 1));
        grid->setFocus();
        typeKey(&window, Qt::Key_Down);
        EXPECT_EQ(current(*grid), 2);
        EXPECT_EQ(selected(*grid), 2);
        typeKey(&window, Qt::Key_Up);
        typeKey(&window, Qt::Key_Up);
        EXPECT_EQ(current(*grid), 0);
        typeKey(&window, Qt::Key_Up);
        EXPECT_EQ(current(*grid), 0);
    }
}

TEST_F(SchemeGridTest, TheArrowKeysBeginAtTheHeaderRow) {
    NEEDS_ACTIVE(&window);
    for (auto* grid : grids) {
        grid->setFocus();
        typeKey(&window, Qt::Key_Down);
        EXPECT_EQ(current(*grid), 0);
        EXPECT_EQ(selected(*grid), 0);
        fillBoth();
        typeKey(&window, Qt::Key_Up);
        EXPECT_EQ(current(*grid), 0);
    }
}

TEST_F(SchemeGridTest, ADragOverRowsLeavesOneCurrent) {
    for (auto* grid : grids) {
        const auto at = [&](int row) { return grid->viewport()->mapTo(&window, cell(*grid, row)); };
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at(0));
        QTest::mouseMove(window.windowHandle(), at(1));
        QTest::mouseMove(window.windowHandle(), at(2));
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at(2));
        EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 1);
        EXPECT_EQ(selected(*grid), current(*grid)) << "the last selected row is the current one";
    }
}

TEST_F(SchemeGridTest, LeavesTheCurrentRowAloneOnARightOrMiddlePress) {
    for (auto* grid : grids) {
        for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
            fillBoth();
            clickAt(grid->viewport(), cell(*grid, 2), button);
            EXPECT_EQ(current(*grid), -1);
            clickAt(grid->viewport(), cell(*grid, 1));
            clickAt(grid->viewport(), cell(*grid, 3), button);
            EXPECT_EQ(current(*grid), 1);
            EXPECT_EQ(selected(*grid), 1);
        }
    }
}

TEST_F(SchemeGridTest, KeepsTheRowSelectedWithControlOrShift) {
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 1));
        clickAt(grid->viewport(), cell(*grid, 1), Qt::LeftButton, Qt::ControlModifier);
        EXPECT_EQ(current(*grid), 1);
        EXPECT_EQ(selected(*grid), 1);
        clickAt(grid->viewport(), cell(*grid, 3), Qt::LeftButton, Qt::ShiftModifier);
        EXPECT_EQ(selected(*grid), 3);
        EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 1);
        clickAt(grid->viewport(), cell(*grid, 3), Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(current(*grid), 3);
        EXPECT_EQ(selected(*grid), 3);
    }
}

TEST_F(SchemeGridTest, LeavesTheCurrentRowAloneOnClicksElsewhere) {
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 1));
        clickAt(grid->horizontalHeader()->viewport(), {50, 5});
        EXPECT_EQ(current(*grid), 1) << "header";
        EXPECT_EQ(selected(*grid), 1);
        clickAt(grid->viewport(), {20, grid->viewport()->height() - 10});
        EXPECT_EQ(current(*grid), 1) << "below the rows";
    }
}

TEST_F(SchemeGridTest, LeavesTheHeaderRowCurrentWhenItGetsTheKeyboard) {
    NEEDS_ACTIVE(&window);
    for (auto* grid : grids) {
        grid->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(grid->hasFocus());
        EXPECT_EQ(current(*grid), -1);
        EXPECT_EQ(selected(*grid), -1);
        fillBoth();
        EXPECT_EQ(current(*grid), -1) << "after a fill with the focus";
    }
}

TEST_F(SchemeGridTest, KeepsTheCurrentRowWhenItGetsTheKeyboardBack) {
    NEEDS_ACTIVE(&window);
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 2));
        window.tree->setFocus();
        grid->setFocus();
        EXPECT_EQ(current(*grid), 2);
        EXPECT_EQ(selected(*grid), 2);
    }
}

TEST_F(SchemeGridTest, LetsTabAndBacktabOut) {
    window.navGrid->setFocus();
    typeKey(&window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.webGrid);
    typeKey(&window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.tree);
    typeKey(&window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.navGrid);
    typeKey(&window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), window.tree);
    typeKey(&window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), window.webGrid);
    for (const auto* grid : grids) EXPECT_EQ(current(*grid), -1);
}

TEST_F(SchemeGridTest, CannotBeEdited) {
    for (auto* grid : grids) {
        clickAt(grid->viewport(), cell(*grid, 1, 1));
        grid->setFocus();
        for (const auto key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_A, Qt::Key_Space}) typeKey(&window, key);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, cell(*grid, 1, 1));
        EXPECT_EQ(grid->findChild<QLineEdit*>(), nullptr);
    }
}

TEST_F(SchemeGridTest, GoesToTheTopWithEachFill) {
    for (int id = 100; id < 400; ++id) {
        window.navs.Add(makeNode(id, 1, "F"));
        window.navs.oWebs.Add(makeParagraph(id, 1));
    }
    fillBoth();
    for (auto* grid : grids) {
        grid->scrollToBottom();
        ASSERT_GT(grid->verticalScrollBar()->value(), 200);
    }
    fillBoth();
    for (auto* grid : grids) EXPECT_EQ(grid->verticalScrollBar()->value(), 0);
}

TEST_F(SchemeGridTest, GoesToTheFirstColumnWhenAnotherFileIsOpened) {
    const std::string file = "1,Top,F,0\r\n2,Below,N,1\r\n";
    auto& columns = *window.navGrid->horizontalScrollBar();
    const auto scrollAway = [&] {
        columns.setValue(columns.maximum());
        ASSERT_GT(columns.value(), 0);
    };
    scrollAway();
    loadBytes(window.navs, file);
    EXPECT_EQ(columns.value(), 0);
    scrollAway();
    loadBytes(window.navs, file);
    EXPECT_EQ(columns.value(), 0) << "the same file again";
    scrollAway();
    window.navs.NewScheme();
    EXPECT_EQ(columns.value(), 0);
}

TEST_F(SchemeGridTest, LeavesTheColumnsWhereTheyAreWhenItIsRedrawn) {
    loadBytes(window.navs, "1,Top,F,0\r\n2,Below,N,1\r\n3,Below,N,1\r\n");
    for (auto* grid : grids) grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
    const auto expectUnmoved = [&](const char* after) {
        fillBoth();
        for (const auto* grid : grids) {
            ASSERT_GT(grid->horizontalScrollBar()->maximum(), 0);
            EXPECT_EQ(grid->horizontalScrollBar()->value(), grid->horizontalScrollBar()->maximum()) << after;
        }
    };
    expectUnmoved("nothing");
    ASSERT_TRUE(window.navs.FuseNav(makeNode(2, 1, "F", "changed")));
    expectUnmoved("an edit");
    ASSERT_TRUE(window.navs.FuseNav(makeNode(4, 1, "F", "new")));
    expectUnmoved("a new node");
    window.navs.DelNode("3");
    expectUnmoved("a deletion");
    window.navs.Renumber();
    expectUnmoved("a renumbering");
    loadBytes(window.navs.oWebs, "1,1,1,of the top\r\n");
    expectUnmoved("another file of paragraphs");
}

// Typing searches in the column of that cell.
TEST_F(SchemeGridTest, FramesTheCurrentCell) {
    NEEDS_ACTIVE(&window);
    const QColor white(255, 255, 255);
    const QColor blue(48, 108, 178);
    for (auto* grid : grids) {
        // The colours from the edge of a cell to its middle, at half its height; short of its text.
        const auto edge = [&](int row, int column, int distance) {
            const auto index = grid->model()->index(row, column);
            grid->scrollTo(index);
            const auto image = grid->viewport()->grab(grid->visualRect(index)).toImage();
            return image.pixelColor(distance * static_cast<int>(image.devicePixelRatio()), image.height() / 2);
        };
        const auto expectFrame = [&](int row, int column) {
            for (int other = 0; other < 3; ++other) {
                EXPECT_NE(edge(row, other, 0), white) << other;
                EXPECT_EQ(edge(row, other, 1), other == column ? white : blue) << other;
            }
        };
        fillBoth();
        for (int column = 0; column < 3; ++column) EXPECT_EQ(edge(1, column, 1), white) << "no row is current";
        clickAt(grid->viewport(), cell(*grid, 1, 1));
        expectFrame(1, 1);
        typeKey(&window, Qt::Key_Right);
        expectFrame(1, 2);
        typeKey(&window, Qt::Key_Down);
        expectFrame(2, 2);
        EXPECT_EQ(edge(1, 2, 1), white) << "the row before is plain again";
        EXPECT_EQ(edge(1, 2, 0), white);
        typeKey(&window, Qt::Key_Home);
        expectFrame(2, 0);
        window.tree->setFocus();
        expectFrame(2, 0);
    }
}

TEST_F(SchemeGridTest, PaintsARowInItsColour) {
    for (const auto& node : window.navs.NewEnum()) node->descriptionIs = "EFHIL ___ EFHIL";  // straight strokes
    fillBoth();
    const auto row = [&](int number) {
        const auto place = window.navGrid->visualRect(window.navGrid->model()->index(number, 1));
        return window.navGrid->viewport()->grab(place).toImage();
    };
    EXPECT_TRUE(hasColour(row(0), QColor(255, 0, 0))) << "F";
    EXPECT_TRUE(hasColour(row(1), QColor(0, 0, 255))) << "G";
    EXPECT_TRUE(hasColour(row(4), QColor(0, 128, 0))) << "R";
    EXPECT_TRUE(hasColour(row(6), QColor(128, 0, 0))) << "N";
    EXPECT_FALSE(hasColour(row(6), QColor(255, 0, 0)));
    EXPECT_TRUE(hasColour(row(6), QColor(255, 255, 255))) << "on white";
}

TEST_F(SchemeGridTest, PaintsTheHeaderInBlack) {
    const auto header = window.navGrid->horizontalHeader()->grab().toImage();
    bool black = false;
    for (int y = 0; y < header.height(); ++y)
        for (int x = 0; x < header.width(); ++x) {
            const auto colour = header.pixelColor(x, y);
            black = black || colour == QColor(0, 0, 0);
            ASSERT_LT(colour.saturation(), 40) << "coloured at " << x << " " << y;
        }
    EXPECT_TRUE(black);
}

TEST_F(SchemeGridTest, ShowsMarkupAsItStands) {
    window.navs.Item(1)->descriptionIs = "<b>i</b>";
    window.navs.Item(4)->descriptionIs = "i";
    fillBoth();
    const auto width = [&](int row) {
        return window.navGrid->sizeHintForIndex(window.navGrid->model()->index(row, 1)).width();
    };
    EXPECT_EQ(window.navGrid->model()->index(0, 1).data().toString(), QStringLiteral("<b>i</b>"));
    EXPECT_GT(width(0), width(1) + 20);
}
