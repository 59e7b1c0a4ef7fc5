#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <cmath>
#include <deque>
#include <functional>
#include <stdexcept>

#include "shell/fMain.h"
#include "tests/model/Helpers.h"

// What the tests of the windows share: the started program, answers to its dialogs, keys pressed as a user presses
// them, and the screen printed as text.

inline QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QRect& place, std::ostream* out) {
    *out << place.left() << ',' << place.top() << ' ' << place.width() << 'x' << place.height();
}
inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << 'x' << size.height();
}
inline void PrintTo(const QColor& colour, std::ostream* out) {
    *out << colour.name().toStdString();
}

// --- lengths ---

/// Pixels of a length in twips, 1/1440 inch, on the screen of the tests.
inline int pixels(double twips, const QWidget& widget) {
    return static_cast<int>(std::lround(twips * widget.logicalDpiX() / 1440.0));
}

inline QRect pixels(double left, double top, double width, double height, const QWidget& widget) {
    return {pixels(left, widget), pixels(top, widget), pixels(width, widget), pixels(height, widget)};
}

// --- files ---

/// A new folder for programs that a test makes and runs, removed with all that is in it. Other temporary folders may
/// stand where nothing can be run.
class ProgramsFolder {
  public:
    ProgramsFolder() { EXPECT_TRUE(folder_.isValid()); }
    [[nodiscard]] std::filesystem::path path() const { return folder_.path().toStdString(); }
    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const { return path() / name; }

  private:
    QTemporaryDir folder_{QCoreApplication::applicationDirPath() + text("/wizard-test-XXXXXX")};
};

// --- widgets ---

/// The widget of this class and object name below `parent`. @throws when there is none
template <class Widget = QWidget>
Widget& find(const QObject& parent, const std::string& name) {
    auto* found = parent.findChild<Widget*>(text(name));
    if (!found) throw std::runtime_error("there is no " + name);
    return *found;
}

// --- keys ---

constexpr int patience = 10'000;  // milliseconds until a test gives up waiting

/// Waits until the keyboard is at the window.
inline void activate(QWidget& window) {
    if (QApplication::activeWindow() != &window) window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }, patience))
        << "the window does not get the keyboard";
}

/// Presses and lets go a key; it goes where the window's keyboard focus is, or to an open menu.
inline void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    auto& window = *widget.window();
    if (!window.windowHandle()) throw std::runtime_error("keys need a window that was shown");
    if (!QApplication::activePopupWidget()) activate(window);
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

/// Chooses a command of the menu by its letters: the first one with Alt.
inline void choose(QWidget& window, const std::string& letters) {
    activate(window);
    auto modifiers = Qt::KeyboardModifiers(Qt::AltModifier);
    for (const auto letter : letters) {
        press(window, static_cast<Qt::Key>(letter), modifiers);
        modifiers = Qt::NoModifier;
    }
}

// --- dialogs ---

/// Answers the modal windows that a command opens, in order, as soon as each is there. What is not answered within
/// `patience` fails the test and is closed, so that no test hangs.
class Answers {
  public:
    using Answer = std::function<void(QDialog&)>;

    Answers() { watch(); }
    Answers(const Answers&) = delete;
    ~Answers() { wait(); }

    /// Answers the next window, which must have this object name.
    Answers& then(const std::string& name, Answer answer) {
        steps_.push_back({text(name), std::move(answer)});
        return *this;
    }

    /// Waits until all windows have come and gone.
    void wait() {
        const auto done = [this] { return failed_ || (steps_.empty() && !QApplication::activeModalWidget()); };
        if (!QTest::qWaitFor(done, patience)) fail("in vain");
        EXPECT_TRUE(steps_.empty()) << "there was no " << (steps_.empty() ? "" : steps_.front().name.toStdString());
        steps_.clear();
    }

  private:
    struct Step {
        QString name;
        Answer answer;
    };

    void watch() {
        QTimer::singleShot(3, &context_, [this] {
            watch();  // first, because an answer may open the next window
            look();
        });
    }

    void look() {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!window) {
            since_.restart();
        } else if (failed_) {
            window->reject();
        } else if (!steps_.empty() && window->objectName() == steps_.front().name && window->isVisible()) {
            const auto step = steps_.front();
            steps_.pop_front();
            since_.restart();
            try {
                step.answer(*window);
            } catch (const std::exception& error) {
                fail(error.what());
            }
        } else if (since_.elapsed() > patience) {
            fail("a window is left open");
        }
    }

    void fail(const std::string& why) {
        failed_ = true;
        const auto* window = QApplication::activeModalWidget();
        const auto name = window ? window->objectName() + text(": ") + window->windowTitle() : QString();
        ADD_FAILURE() << "waited for " << (steps_.empty() ? "nothing" : steps_.front().name.toStdString())
                      << ", on the screen is " << name.toStdString() << ": " << why;
    }

    struct Clock : QElapsedTimer {
        Clock() { start(); }
    };

    std::deque<Step> steps_;
    QObject context_;
    Clock since_;
    bool failed_ = false;
};

/// What is to be done with a message: it has this text, and is closed with Enter.
inline Answers::Answer reading(const std::string& expected) {
    return [expected](QDialog& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        if (!box) throw std::runtime_error("this is no message box");
        EXPECT_EQ(box->text(), text(expected));
        EXPECT_EQ(box->informativeText() + box->detailedText(), QString());
        EXPECT_EQ(box->windowTitle(), text("Reporting Scheme Wizard for Pelmo"));
        EXPECT_EQ(box->icon(), QMessageBox::Information);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box->buttons().size(), 1);
        press(window, Qt::Key_Return);
    };
}

/// What is to be done with a window: Esc.
inline void escape(QDialog& window) {
    press(window, Qt::Key_Escape);
}

/// Types a name into a file dialog, over the one that stands there, and presses Enter.
inline void enterName(QDialog& dialog, const std::filesystem::path& name) {
    activate(dialog);
    auto& edit = find<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_TRUE(edit.hasFocus()) << "the name can be typed at once";
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    for (const auto letter : text(name.string())) {
        if (letter.unicode() < 128)
            QTest::keyClick(&edit, letter.toLatin1());
        else
            edit.insert(letter);  // as an input method does
    }
    QTest::keyClick(&edit, Qt::Key_Return);
}

inline Answers::Answer entering(const std::filesystem::path& name) {
    return [name](QDialog& dialog) { enterName(dialog, name); };
}

// --- the screen as text ---

/// The rows of a tree that are open to view, each with its level, "-" or "+" for an open or a closed branch, and "*"
/// if it is selected: "- Data Browser", "  + Hire desk *".
inline Rows shownRows(const QTreeView& tree) {
    Rows rows;
    const auto add = [&](const auto& self, const QModelIndex& index, const std::string& indent) -> void {
        const bool branch = tree.model()->hasChildren(index);
        const bool open = branch && tree.isExpanded(index);
        rows.push_back(indent +
                       (open     ? "- "
                        : branch ? "+ "
                                 : "  ") +
                       index.data().toString().toStdString() +
                       (tree.selectionModel()->isSelected(index) ? " *" : ""));
        for (int row = 0; open && row < tree.model()->rowCount(index); ++row)
            self(self, tree.model()->index(row, 0, index), indent + "  ");
    };
    for (int row = 0; row < tree.model()->rowCount(); ++row) add(add, tree.model()->index(row, 0), "");
    return rows;
}

/// The rows of a grid without its header, cells separated by "|".
inline Rows shownRows(const QTableView& grid) {
    Rows rows;
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
        std::string cells;
        for (int column = 0; column < grid.model()->columnCount(); ++column)
            cells += (column == 0 ? "" : "|") + grid.model()->index(row, column).data().toString().toStdString();
        rows.push_back(cells);
    }
    return rows;
}

// --- the program ---

/// The started program: its main window on the screen, with a new scheme.
class Wizard {
  public:
    Wizard() {
        {
            Answers answers;
            answers.then("fIntro", escape).then("message", escape);
            window.Form_Load();
        }
        window.show();
        activate(window);
    }

    fMain window;

    [[nodiscard]] clsNavSchemes& navs() { return *window.oNavs; }
    [[nodiscard]] QTreeView& tree() { return find<QTreeView>(window, "myTree"); }
    [[nodiscard]] QTableView& nodeGrid() { return find<QTableView>(window, "flexNav"); }
    [[nodiscard]] QTableView& paragraphGrid() { return find<QTableView>(window, "flexWeb"); }

    /// Chooses a command of the menu that asks for a file, and enters the name.
    void choose(const std::string& letters, const std::string& dialog, const std::filesystem::path& name) {
        Answers answers;
        answers.then(dialog, entering(name));
        ::choose(window, letters);
    }
    void choose(const std::string& letters) {
        Answers answers;
        ::choose(window, letters);
    }
    void openNodes(const std::filesystem::path& file) { choose("FON", "GetOpenName", file); }
    void openParagraphs(const std::filesystem::path& file) { choose("FOW", "GetOpenName", file); }
    void saveNodes(const std::filesystem::path& file) { choose("NS", "GetSaveAsName", file); }
    void saveParagraphs(const std::filesystem::path& file) { choose("WS", "GetSaveAsName", file); }

    /// Clicks the node with this text, which must be in view.
    void click(const std::string& node) {
        const auto found = tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, text(node), 1,
                                                 Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty()) throw std::runtime_error("there is no node " + node);
        const auto place = tree().visualRect(found.front());
        EXPECT_TRUE(tree().viewport()->rect().intersects(place)) << node << " is not in view";
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place.center());
    }
};

/// A sample that comes with the program.
inline std::filesystem::path sample(const std::string& name) {
    return std::filesystem::path(SAMPLES) / name;
}
