// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QThread>
#include <cstdlib>
#include <random>

#include "Helpers.h"
#include "views/GridRows.h"
#include "views/TreeSnapshot.h"

// Somebody who presses keys and buttons without sense, in whatever window is there. After each step without an open
// dialog, the tree and the grids must show the scheme.
//
// MONKEY_SEED=7 MONKEY_STEPS=5000 choose another run, or the one that a failure named; MONKEY_TELL=1 prints each step
// as it is made.

namespace {

unsigned numberOf(const char* variable, unsigned otherwise) {
    const char* value = std::getenv(variable);
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

Rows rowsOf(const GridRows& rows, std::initializer_list<int> columns) {
    Rows printed;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        std::string line;
        for (const int column : columns) line += rows.cell(row, column) + "|";
        printed.push_back(line);
    }
    return printed;
}

Rows rowsOf(const TreeSnapshot& tree) {
    Rows printed;
    for (std::uint32_t row = 0; row < tree.count(); ++row) {
        const auto& shown = tree.row(row);
        printed.push_back(TreeSnapshot::key(shown) + " " + std::string(shown.text.view()) + " " +
                          std::to_string(shown.parent) + " " + std::to_string(static_cast<int>(shown.picture)));
    }
    return printed;
}

class Monkey {
  public:
    explicit Monkey(unsigned seed) : random_(seed) {
        for (const auto* name : {"XST1.txt", "XST2.txt"}) std::filesystem::copy_file(sample(name), folder_ / name);
        writeBytes(folder_ / "odd.txt",
                   "5,a,F,0\r\n5,twin,G,0\r\n7,own parent,N,7\r\n8,lost,R,99,q,CKey\r\n"
                   "9,child,G,5,spG,lkey,i,1\r\n10,x,?,9\r\n11,second,F,9\r\n-3,minus,F,5\r\n");
    }

    void run(unsigned steps) {
        left_ = steps;
        next();
        EXPECT_TRUE(QTest::qWaitFor([this] { return done_; }, 600'000));
        for (const auto* name : {"XST1.txt", "XST2.txt"}) {
            const auto inProgram = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / name;
            EXPECT_TRUE(bytesOf(inProgram) == bytesOf(sample(name))) << "it has saved over a sample";
            std::filesystem::copy_file(sample(name), inProgram, std::filesystem::copy_options::overwrite_existing);
        }
        if (testing::Test::HasFailure()) tell();
    }

    Wizard wizard;

  private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    template <class Range>
    auto oneOf(const Range& range) {
        return *(std::begin(range) + pick(static_cast<int>(std::size(range))));
    }
    bool chance(int oneIn) { return pick(oneIn) == 0; }

    // Each step is started from the event loop, also from the one of a dialog that a step has opened; but not from
    // inside another step, where the tests let events be processed.
    void next() {
        QTimer::singleShot(1, &context_, [this] {
            const int level = QThread::currentThread()->loopLevel();
            if (level <= busyAt_) return next();
            const int before = std::exchange(busyAt_, level);
            if (left_ != 0 && !testing::Test::HasFailure()) {
                --left_;
                next();
                step();
            } else if (auto* open = openWindow(); open && !failed_) {
                next();
                close(*open);
            } else {
                done_ = true;
            }
            busyAt_ = before;
        });
    }

    static QWidget* openWindow() {
        auto* popup = QApplication::activePopupWidget();
        return popup ? popup : QApplication::activeModalWidget();
    }

    // Every window can be left with a few keys.
    void close(QWidget& window) {
        constexpr int most = 200;
        if (++closings_ > most) {
            failed_ = true;
            ADD_FAILURE() << "the window " << window.objectName().toStdString() << " cannot be left";
            for (auto* dialog : QApplication::topLevelWidgets())
                if (auto* open = qobject_cast<QDialog*>(dialog)) open->done(0);
        } else if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            QTest::mouseClick(box->buttons().last(), Qt::LeftButton);
        } else if (window.windowHandle()) {
            QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
        }
    }

    void step() {
        if (qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) && QApplication::activePopupWidget()) {
            // The list of completions offers files of the program's folder: nothing is to be saved there.
            key(*QApplication::activePopupWidget(), {Qt::Key_Escape});
        } else if (auto* popup = QApplication::activePopupWidget()) {
            key(*popup, {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Right, Qt::Key_Left,
                         Qt::Key_A, Qt::Key_E, Qt::Key_D, Qt::Key_F, Qt::Key_O});
        } else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            if (dialog->isVisible()) inDialog(*dialog);
        } else {
            check();
            inMain();
        }
    }

    void inDialog(QDialog& dialog) {
        const auto name = dialog.objectName().toStdString();
        if (name == "message" || name == "question") {
            key(dialog,
                {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Y, Qt::Key_N, Qt::Key_Tab, Qt::Key_F3, Qt::Key_Space});
        } else if (name == "GetOpenName" || name == "GetSaveAsName") {
            file(dialog);
        } else if (name == "fNav" || name == "fWeb") {
            inForm(dialog);
        } else if (chance(2)) {
            key(dialog, {Qt::Key_Escape});
        } else if (chance(3)) {
            dialog.resize(pick(900) + 1, pick(700) + 1);
        } else {
            key(dialog, {Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Delete});
        }
    }

    void inForm(QDialog& form) {
        switch (pick(6)) {
            case 0:
                key(form,
                    {Qt::Key_F3, Qt::Key_Escape, Qt::Key_Escape, Qt::Key_F1, Qt::Key_F6, Qt::Key_F11, Qt::Key_F10});
                break;
            case 1:
            case 2: key(form, {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}); break;
            case 3: key(form, {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_Delete, Qt::Key_Backspace}); break;
            case 4: typeInto(form); break;
            default: click(form);
        }
    }

    void typeInto(QDialog& form) {
        const std::string letters = "abG05,\"<N -.";
        const char letter = oneOf(letters);
        note(form, std::string("types ") + letter);
        if (form.windowHandle()) QTest::keyClick(form.windowHandle(), letter);
    }

    void file(QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>(text("fileNameEdit"));
        if (!edit || chance(4)) return key(dialog, {Qt::Key_Escape});
        const Rows names = {"XST1.txt", "XST2.txt", "odd.txt", "new", "none.txt", "nowhere/x", "."};
        const auto name = oneOf(names);
        note(dialog, "enters " + name);
        edit->setText(text(name.empty() ? "" : (folder_ / name).string()));
        QTest::keyClick(edit, Qt::Key_Return);
    }

    void inMain() {
        switch (pick(5)) {
            case 0: menu(); break;
            case 1:
            case 2:
                key(wizard.window,
                    {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_Return, Qt::Key_Space,
                     Qt::Key_Asterisk, Qt::Key_F1, Qt::Key_F3, Qt::Key_Tab, Qt::Key_Escape});
                break;
            case 3:
                key(wizard.window, {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End,
                                    Qt::Key_PageDown, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_A});
                break;
            default: click(wizard.window);
        }
    }

    void menu() {
        const Rows commands = {"mnuIntro",    "mnuNavOpen",    "mnuDisOpen", "mnuNavOpen",  "mnuDisOpen",
                               "mnuHelp",     "mnuNavNew",     "mnuNavSave", "mnuDisSave",  "mnuCollapse",
                               "mnuNavRenum", "mnuCheckNav",   "mnuNavToDo", "mnuCheckWeb", "mnuWebToDo",
                               "mnuChild",    "mnuEdit",       "mnuDelete",  "mnuAddP",     "mnuEditP",
                               "mnuDeleteP",  "mnuDisplayAll", "mnuOrphans"};
        const auto command = oneOf(commands);
        note(wizard.window, "chooses " + command);
        find<QAction>(wizard.window, command).trigger();
    }

    void key(QWidget& widget, std::initializer_list<Qt::Key> keys) {
        const auto chosen = oneOf(keys);
        const Qt::KeyboardModifiers held[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                              Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
        const auto modifiers = oneOf(held);
        note(widget,
             "presses " +
                 QKeySequence(static_cast<int>(chosen) | static_cast<int>(modifiers)).toString().toStdString());
        auto& window = *widget.window();
        if (!window.windowHandle()) return;
        QTest::keyPress(window.windowHandle(), chosen, modifiers);
        // The release goes to the window that is there now.
        auto* now = QApplication::activeWindow();
        if (now && now->windowHandle()) QTest::keyRelease(now->windowHandle(), chosen, modifiers);
    }

    void click(QWidget& window) {
        QWidgetList places;
        for (auto* widget : window.findChildren<QWidget*>())
            if (widget->isVisible() && widget->window() == &window) places.push_back(widget);
        if (places.isEmpty()) return;
        auto* widget = oneOf(places);
        if (qobject_cast<QMenuBar*>(widget)) return;
        const QPoint at(pick(widget->width() + 1), pick(widget->height() + 1));
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        const auto button = oneOf(buttons);
        note(window, "clicks " + widget->objectName().toStdString() + " with button " + std::to_string(button) +
                         " at " + std::to_string(at.x()) + "," + std::to_string(at.y()));
        if (chance(5))
            QTest::mouseDClick(widget, button, {}, at);
        else
            QTest::mouseClick(widget, button, {}, at);
    }

    void check() {
        const auto& navs = wizard.navs();
        const auto& tree = dynamic_cast<NavTree&>(wizard.tree());
        EXPECT_EQ(rowsOf(tree.treeModel().snapshot()), rowsOf(TreeSnapshot(navs)));
        const auto& nodes = dynamic_cast<NavGrid&>(wizard.nodeGrid()).gridModel().rows();
        if (navs.Count() != 0) {
            EXPECT_EQ(rowsOf(nodes, {0, 1, 2, 3, 4, 5, 6, 7}), rowsOf(NavGridRows(navs), {0, 1, 2, 3, 4, 5, 6, 7}));
        }
        // The paragraph grid shows some of the paragraphs, in order. Their nodes may have changed since.
        const auto& shown = dynamic_cast<WebGrid&>(wizard.paragraphGrid()).gridModel().rows();
        std::vector<std::shared_ptr<clsWebScheme>> all;
        for (const auto& paragraph : navs.oWebs.NewEnum()) all.push_back(std::make_shared<clsWebScheme>(*paragraph));
        auto expected = rowsOf(WebGridRows(all), {0, 2, 3, 4, 5, 6, 7, 8});
        auto place = expected.begin();
        for (const auto& row : rowsOf(shown, {0, 2, 3, 4, 5, 6, 7, 8})) {
            place = std::find(place, expected.end(), row);
            if (place == expected.end()) {
                ADD_FAILURE() << "the paragraph grid shows " << row;
                break;
            }
            ++place;
        }
        const auto selected = tree.SelectedKey();
        EXPECT_TRUE(selected.empty() || TreeSnapshot(navs).find(selected) != TreeSnapshot::none) << selected;
    }

    void note(const QWidget& window, const std::string& action) {
        script_.push_back(window.window()->objectName().toStdString() + ": " + action);
        if (std::getenv("MONKEY_TELL")) std::cerr << script_.back() << std::endl;
    }

    void tell() const {
        constexpr std::size_t most = 40;
        std::cerr << "after " << script_.size() << " steps; the last of them:\n";
        for (std::size_t i = script_.size() > most ? script_.size() - most : 0; i < script_.size(); ++i)
            std::cerr << "  " << script_[i] << '\n';
    }

    std::mt19937 random_;
    TempFolder folder_;
    QObject context_;
    unsigned left_ = 0;
    int busyAt_ = -1;  // the event loop, counted from the outermost, in which a step is being made
    int closings_ = 0;
    bool failed_ = false;  // a window cannot be left
    bool done_ = false;
    Rows script_;
};

}  // namespace

class MonkeyTest : public testing::TestWithParam<unsigned> {};

TEST_P(MonkeyTest, BreaksNothing) {
    const auto seed = numberOf("MONKEY_SEED", GetParam());
    SCOPED_TRACE("MONKEY_SEED=" + std::to_string(seed));
    Monkey monkey(seed);
    monkey.run(numberOf("MONKEY_STEPS", 1500));
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::Values(1U, 2U, 3U));
