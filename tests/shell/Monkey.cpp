// SPDX-License-Identifier: MIT
#include "Monkey.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QThread>
#include <sstream>

#include "tests/views/PlainTree.h"

namespace {

constexpr auto withoutName = "-";

QWidget* openWindow() {
    auto* popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

std::string nameOf(const QWidget& window) {
    const auto name = window.objectName().toStdString();
    return name.empty() ? withoutName : name;
}

// What a cell shows of a text: its first thousand bytes, in the code page of the schemes, as far as the monkey's letters
// go.
std::string decoded(std::string_view bytes) {
    bytes = bytes.substr(0, 1000);
    auto characters = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return characters.replace(QChar(0x80), QChar(0x20AC)).toStdString();
}

std::string cell(const QAbstractItemModel& model, int row, int column) {
    return model.index(row, column).data().toString().toStdString();
}

void addRows(const QAbstractItemModel& model, const QModelIndex& index, std::size_t level, Rows& rows) {
    rows.push_back(std::string(2 * level, ' ') + index.data().toString().toStdString());
    for (int row = 0; row < model.rowCount(index); ++row) addRows(model, model.index(row, 0, index), level + 1, rows);
}

Rows rowsOf(const QAbstractItemModel& tree) {
    Rows rows;
    for (int row = 0; row < tree.rowCount(); ++row) addRows(tree, tree.index(row, 0), 0, rows);
    return rows;
}

Rows rowsOf(const PlainTree& tree) {
    Rows rows;
    for (const auto& row : tree.rows) rows.push_back(std::string(2 * row.level, ' ') + decoded(row.text));
    return rows;
}

}  // namespace

Monkey::Monkey(const std::filesystem::path& notes) : notes_(notes) {
    for (const auto* name : {"XST1.txt", "XST2.txt"}) std::filesystem::copy_file(sample(name), folder_ / name);
    writeBytes(folder_ / "odd.txt",
               "5,a,F,0\r\n5,twin,G,0\r\n7,own parent,N,7\r\n8,lost,R,99,q,CKey\r\n"
               "9,child,G,5,spG,lkey,i,1\r\n10,x,?,9\r\n11,second,F,9\r\n-3,minus,F,5\r\n");
    QObject::connect(wizard_.paragraphGrid().model(), &QAbstractItemModel::modelReset, &context_,
                     [this] { checkParagraphsShown(); });
}

void Monkey::play(unsigned seed, unsigned steps) {
    random_.seed(seed);
    left_ = steps;
    run();
}

void Monkey::repeat(const Rows& script) {
    script_.assign(script.begin(), script.end());
    run();
}

// --- inventing a step ---

std::string Monkey::invent() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    // The list of completions offers files of the program's folder: nothing is to be saved there.
    if (qobject_cast<QFileDialog*>(dialog) && QApplication::activePopupWidget()) return key({Qt::Key_Escape});
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu && menu->activeAction() && menu->activeAction()->objectName() == QLatin1String("mnuExit"))
        return key({Qt::Key_Escape});
    if (QApplication::activePopupWidget())
        return key({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Right, Qt::Key_Left, Qt::Key_A,
                    Qt::Key_E, Qt::Key_D, Qt::Key_F, Qt::Key_O});
    return dialog ? inDialog(*dialog) : inMain();
}

std::string Monkey::inDialog(QDialog& dialog) {
    const auto name = nameOf(dialog);
    if (name == "message" || name == "question")
        return key({Qt::Key_Return, Qt::Key_Escape, Qt::Key_Y, Qt::Key_N, Qt::Key_Tab, Qt::Key_F3, Qt::Key_Space});
    if (name == "GetOpenName" || name == "GetSaveAsName") {
        const Rows names = {"XST1.txt", "XST2.txt", "odd.txt", "new", "none.txt", "nowhere/x", "."};
        return chance(4) ? key({Qt::Key_Escape}) : "enter " + oneOf(names);
    }
    if (name == "fNav" || name == "fWeb") return inForm(dialog);
    if (chance(2)) return key({Qt::Key_Escape});
    if (chance(3)) return "resize " + std::to_string(pick(900) + 1) + " " + std::to_string(pick(700) + 1);
    return key({Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Delete});
}

std::string Monkey::inForm(QDialog& form) {
    switch (pick(6)) {
        case 0:
            return key(
                {Qt::Key_F3, Qt::Key_Escape, Qt::Key_Escape, Qt::Key_F1, Qt::Key_F6, Qt::Key_F11, Qt::Key_F10});
        case 1:
        case 2: return key({Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab});
        case 3: return key({Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_Delete, Qt::Key_Backspace});
        case 4: {
            // The last one is not in the code page.
            const auto letter = oneOf(QStringLiteral("abG05,\"<N -.\u00e9\u20ac\u03a9"));
            return "type " + std::to_string(letter.unicode()) + " " + QString(letter).toStdString();
        }
        default: return click(form);
    }
}

std::string Monkey::inMain() {
    const Rows commands = {"mnuIntro",   "mnuNavOpen",  "mnuDisOpen", "mnuNavOpen",    "mnuDisOpen",  "mnuHelp",
                           "mnuNavNew",  "mnuNavSave",  "mnuDisSave", "mnuCollapse",   "mnuNavRenum", "mnuCheckNav",
                           "mnuNavToDo", "mnuCheckWeb", "mnuWebToDo", "mnuChild",      "mnuEdit",     "mnuDelete",
                           "mnuAddP",    "mnuEditP",    "mnuDeleteP", "mnuDisplayAll", "mnuOrphans"};
    switch (pick(5)) {
        case 0: return "choose " + oneOf(commands);
        case 1:
        case 2:
            return key({Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_Return, Qt::Key_Space,
                        Qt::Key_Asterisk, Qt::Key_F1, Qt::Key_F3, Qt::Key_Tab, Qt::Key_Escape});
        case 3:
            return key({Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End,
                        Qt::Key_PageDown, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_A});
        default: return click(wizard_.window);
    }
}

std::string Monkey::key(std::initializer_list<Qt::Key> keys) {
    const auto chosen = oneOf(keys);
    const Qt::KeyboardModifiers held[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                          Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    const auto code = static_cast<int>(chosen) | static_cast<int>(oneOf(held));
    return "key " + std::to_string(code) + " " + QKeySequence(code).toString().toStdString();
}

std::string Monkey::click(const QWidget& window) {
    QWidgetList places;
    for (auto* widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &window && !qobject_cast<QMenuBar*>(widget))
            places.push_back(widget);
    if (places.isEmpty()) return key({Qt::Key_Escape});
    auto* widget = oneOf(places);
    const auto at = widget->mapTo(&window, QPoint(pick(widget->width() + 1), pick(widget->height() + 1)));
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    return "click " + std::to_string(at.x()) + "," + std::to_string(at.y()) + " " + std::to_string(oneOf(buttons)) +
           (chance(5) ? " twice " : " once ") + widget->objectName().toStdString();
}

// --- making it ---

void Monkey::run() {
    constexpr int aQuarterOfAnHour = 15 * 60 * 1000;
    next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return done_; }, aQuarterOfAnHour));
    if (!testing::Test::HasFailure()) checkTheEnd();
    for (const auto* name : {"XST1.txt", "XST2.txt"}) {
        const auto inProgram = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / name;
        if (bytesOf(inProgram) == bytesOf(sample(name))) continue;  // other tests may be reading it
        ADD_FAILURE() << "it has saved over a sample";
        writeBytes(inProgram, bytesOf(sample(name)));
    }
}

// Each step starts from an event loop, which may be that of a dialog that a step has opened; but never inside another
// step while that processes events.
void Monkey::next() {
    QTimer::singleShot(1, &context_, [this] {
        const int level = QThread::currentThread()->loopLevel();
        if (level <= busyAt_) return next();
        const int before = std::exchange(busyAt_, level);
        if ((left_ != 0 || !script_.empty()) && !testing::Test::HasFailure()) {
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

void Monkey::step() {
    auto* open = openWindow();
    // A form that has just closed may still have to return to the command that opened it.
    if (!open && QThread::currentThread()->loopLevel() == 0) check();
    if (!script_.empty()) {
        const auto line = script_.front();
        script_.pop_front();
        return make(line);
    }
    --left_;
    if (!open || open->isVisible()) make(nameOf(open ? *open : wizard_.window) + " " + invent());
}

void Monkey::make(const std::string& line) {
    notes_ << line << std::endl;
    std::istringstream words(line);
    std::string window, verb;
    words >> window >> verb;
    auto* now = openWindow() ? openWindow() : &wizard_.window;
    if (nameOf(*now) == window) make(*now, verb, words);
}

void Monkey::make(QWidget& window, const std::string& verb, std::istream& what) {
    if (!window.windowHandle()) return;
    int number = 0;
    std::string word;
    if (verb == "key") {
        what >> number;
        const auto key = static_cast<Qt::Key>(number & ~static_cast<int>(Qt::KeyboardModifierMask));
        const auto modifiers = Qt::KeyboardModifiers(number & static_cast<int>(Qt::KeyboardModifierMask));
        QTest::keyPress(window.windowHandle(), key, modifiers);
        // The release goes to the window that is there now.
        auto* now = QApplication::activeWindow();
        if (now && now->windowHandle()) QTest::keyRelease(now->windowHandle(), key, modifiers);
    } else if (verb == "type") {
        what >> number;
        if (auto* field = window.focusWidget())
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(QChar(number)), Qt::NoModifier);
    } else if (verb == "click") {
        int x = 0, y = 0;
        char comma = ',';
        what >> x >> comma >> y >> number >> word;
        auto* widget = window.childAt(x, y);
        if (!widget) return;
        const auto button = static_cast<Qt::MouseButton>(number);
        const auto at = widget->mapFrom(&window, QPoint(x, y));
        if (word == "twice")
            QTest::mouseDClick(widget, button, {}, at);
        else
            QTest::mouseClick(widget, button, {}, at);
    } else if (verb == "choose") {
        what >> word;
        find<QAction>(window, word).trigger();
    } else if (verb == "enter") {
        what >> word;
        auto& name = find<QLineEdit>(window, "fileNameEdit");
        // Without the keyboard in the name, Qt would change it to the names of the files that are selected.
        activate(window);
        name.setFocus();
        name.setText(text((folder_ / word).string()));
        QTest::keyClick(&name, Qt::Key_Return);
    } else if (verb == "resize") {
        int height = 0;
        what >> number >> height;
        window.resize(number, height);
    } else {
        ADD_FAILURE() << "no such step: " << verb;
    }
}

// Every window can be left with a few keys.
void Monkey::close(QWidget& window) {
    constexpr int most = 200;
    if (++closings_ > most) {
        failed_ = true;
        ADD_FAILURE() << "the window " << nameOf(window) << " cannot be left";
        for (auto* dialog : QApplication::topLevelWidgets())
            if (auto* open = qobject_cast<QDialog*>(dialog)) open->done(0);
    } else if (auto* box = qobject_cast<QMessageBox*>(&window)) {
        QTest::mouseClick(box->buttons().last(), Qt::LeftButton);
    } else if (window.windowHandle()) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    }
}

// --- looking at it ---

void Monkey::check() {
    const auto& navs = wizard_.navs();
    EXPECT_EQ(rowsOf(*wizard_.tree().model()), rowsOf(PlainTree(navs)));
    const auto selected = dynamic_cast<NavTree&>(wizard_.tree()).SelectedKey();
    if (!selected.empty()) {
        const auto rows = PlainTree(navs).rows;
        EXPECT_NE(std::ranges::find(rows, selected, &PlainTree::Row::key), rows.end()) << selected;
    }

    if (navs.Count() != 0) {  // the grid of an empty scheme shows what it showed before
        Rows nodes, expected;
        const auto& grid = *wizard_.nodeGrid().model();
        for (int row = 0; row < grid.rowCount(); ++row) {
            nodes.emplace_back();
            for (int column = 0; column < 8; ++column)
                nodes.back() += (column == 0 ? "" : "|") + cell(grid, row, column);
        }
        for (const auto& node : navs.NewEnum())
            expected.push_back(std::to_string(node->ID) + "|" + decoded(node->descriptionIs.view()) + "|" +
                               decoded(node->typeIs().view()) + "|" + std::to_string(node->parentIs) + "|" +
                               decoded(node->queryIs().view()) + "|" + decoded(node->parmIs().view()) + "|" +
                               decoded(node->iconIs.view()) + "|" + decoded(node->roleIs.view()));
        EXPECT_EQ(nodes, expected);
    }

    // The paragraph grid shows some of the paragraphs, in order. Their nodes may have changed since.
    const auto& grid = *wizard_.paragraphGrid().model();
    auto paragraph = navs.oWebs.NewEnum().begin();
    for (int row = 0; row < grid.rowCount(); ++row) {
        while (paragraph != navs.oWebs.NewEnum().end() && std::to_string((*paragraph)->ID) != cell(grid, row, 0))
            ++paragraph;
        if (paragraph == navs.oWebs.NewEnum().end()) {
            ADD_FAILURE() << "the paragraph grid shows " << cell(grid, row, 0);
            break;
        }
        const auto& record = **paragraph;
        const Rows expected = {std::to_string(record.seqNo),   decoded(record.titleIs.view()),
                               decoded(record.queryIs.view()), decoded(record.parmIs.view()),
                               decoded(record.typeIs.view()),  std::to_string(record.formIs),
                               decoded(record.colsAre.view())};
        for (int column = 2; column < 9; ++column)
            EXPECT_EQ(cell(grid, row, column), expected[static_cast<std::size_t>(column - 2)]);
    }
}

// Whenever the grid of paragraphs is filled, it shows all of them, those of one node, or the orphans.
void Monkey::checkParagraphsShown() {
    const auto& grid = *wizard_.paragraphGrid().model();
    Rows shown;
    for (int row = 0; row < grid.rowCount(); ++row) shown.push_back(cell(grid, row, 0) + " of " + cell(grid, row, 1));
    const auto only = [&](auto isWanted) {
        Rows wanted;
        for (const auto& paragraph : wizard_.navs().oWebs.NewEnum())
            if (isWanted(*paragraph))
                wanted.push_back(std::to_string(paragraph->ID) + " of " + std::to_string(paragraph->XST1));
        return wanted;
    };
    const auto node = shown.empty() ? "none" : shown.front().substr(shown.front().find(" of ") + 4);
    EXPECT_TRUE(shown == only([](const clsWebScheme&) { return true; }) ||
                shown == only([](const clsWebScheme& each) { return each.status == "O"; }) ||
                shown == only([&](const clsWebScheme& each) { return std::to_string(each.XST1) == node; }))
        << testing::PrintToString(shown);
}

void Monkey::checkTheEnd() {
    EXPECT_TRUE(wizard_.window.isVisible());
    EXPECT_TRUE(wizard_.window.isEnabled());
    activate(wizard_.window);
    check();
    const auto rows = PlainTree(wizard_.navs()).rows;
    if (rows.empty()) return;
    wizard_.navs().mLastN = "";
    wizard_.tree().setFocus();
    press(wizard_.window, Qt::Key_Home);
    press(wizard_.window, Qt::Key_Return);
    EXPECT_EQ(wizard_.navs().mLastN, rows.front().key) << "the wizard takes no key any more";
}
