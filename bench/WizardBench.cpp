// SPDX-License-Identifier: MIT
// Times what a user waits for, in the real main window, and prints a line "name milliseconds" for each; for some also
// how many new pages of memory the program needed ("faults"), which is the same on every machine.
//   wizard_bench start                  the main window, painted
//   wizard_bench introduction           the first window that a user sees, painted; the main window waits behind it
//   wizard_bench load PREFIX            both files loaded and painted; peak memory in MiB
//   wizard_bench use PREFIX             that, and clicks, analyses and edits
//   wizard_bench all PREFIX FOLDER      that, and renumbering, saving into FOLDER, deleting a branch
// PREFIX.xst1 and PREFIX.xst2 are the two files.
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "analysis/Reports.h"
#include "bench/FirstPaint.h"
#include "model/NodeTree.h"
#include "shell/fIntro.h"
#include "shell/fMain.h"
#include "views/Look.h"
#include "views/NavTree.h"
#include "views/SchemeGrid.h"

namespace {

// Lets the window finish what it has postponed.
void settle() {
    constexpr int longEnough = 12;  // ms
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < longEnough) QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
}

template <class Step>
double timed(Step step) {
    QElapsedTimer timer;
    timer.start();
    step();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

[[noreturn]] void fail(const char* why) {
    std::fprintf(stderr, "wizard_bench: %s\n", why);
    std::exit(1);
}

void print(const char* name, double value) {
    std::printf("%-24s %10.2f\n", name, value);
    std::fflush(stdout);
}

rusage used() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage;
}

double peakMegabytes() {
    return static_cast<double>(used().ru_maxrss) / 1024;
}

// Counts the pages that the program has touched for the first time since construction, except those read from a file.
class Faults {
  public:
    [[nodiscard]] double count() const { return static_cast<double>(used().ru_minflt - before_); }

  private:
    long before_ = used().ru_minflt;
};

// Prints the time and the faults of a step.
template <class Step>
void measure(const char* name, const char* nameOfFaults, Step step) {
    const Faults faults;
    print(name, timed(step));
    print(nameOfFaults, faults.count());
}

// The moments at which widgets have been painted.
class Painted final : public QObject {
  public:
    explicit Painted(std::initializer_list<QWidget*> widgets) {
        for (auto* widget : widgets) widget->installEventFilter(this);
    }
    void start() {
        timer_.start();
        first_ = last_ = -1;
    }
    /// In milliseconds since the start; -1 if none was painted.
    [[nodiscard]] double first() const { return first_; }
    [[nodiscard]] double last() const { return last_; }

  protected:
    bool eventFilter(QObject* widget, QEvent* event) override {
        if (event->type() != QEvent::Paint || isPainting_) return false;
        isPainting_ = true;
        QCoreApplication::sendEvent(widget, event);
        isPainting_ = false;
        last_ = static_cast<double>(timer_.nsecsElapsed()) / 1e6;
        if (first_ < 0) first_ = last_;
        return true;
    }

  private:
    QElapsedTimer timer_;
    double first_ = -1;
    double last_ = -1;
    bool isPainting_ = false;
};

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

void sendKey(QWidget& widget, Qt::Key key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

// A click with the mouse fills the grid of paragraphs. It also scrolls the grid of nodes and opens the node, which
// repaints both.
void measureClicks(fMain& window) {
    auto& navs = *window.oNavs;
    auto& tree = *window.findChild<NavTree*>(QStringLiteral("myTree"));
    auto* paragraphGrid = window.findChild<WebGrid*>(QStringLiteral("flexWeb"))->viewport();
    auto* nodeGrid = window.findChild<NavGrid*>(QStringLiteral("flexNav"))->viewport();
    const auto count = tree.treeModel().snapshot().count();
    const auto sendMouse = [&](QEvent::Type type, QPointF at) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, tree.viewport()->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(tree.viewport(), &event);
    };
    Painted paragraphsPainted({paragraphGrid});
    Painted allPainted({paragraphGrid, nodeGrid, tree.viewport()});
    double mostFaults = 0;
    const auto clickOn = [&](std::size_t number) {
        const auto index = tree.treeModel().indexOf(static_cast<std::uint32_t>(number * 7919 % count));
        tree.scrollTo(index);
        auto& across = *tree.horizontalScrollBar();
        across.setValue(across.value() + tree.visualRect(index).left());
        settle();
        const auto place = tree.visualRect(index);
        const QPointF at(place.left() + tree.iconSize().width() / 2, place.center().y());
        paragraphsPainted.start();
        allPainted.start();
        const Faults faults;
        const auto time = timed([&] {
            sendMouse(QEvent::MouseButtonPress, at);
            sendMouse(QEvent::MouseButtonRelease, at);
        });
        mostFaults = std::max(mostFaults, faults.count());
        return time;
    };
    print("click, the first", clickOn(1));
    constexpr std::size_t clicks = 400;
    std::vector<double> whole, paragraphs;
    for (std::size_t i = 0; i < clicks; ++i) {
        const auto all = clickOn(i);
        if (paragraphsPainted.first() < 0) continue;  // a node too far down to be opened all at once
        whole.push_back(all);
        paragraphs.push_back(paragraphsPainted.first());
    }
    if (paragraphs.size() < clicks * 9 / 10) fail("too few clicks have shown paragraphs");
    std::ranges::sort(whole);
    std::ranges::sort(paragraphs);
    print("click, all, median", median(whole));
    print("click, all, 95 %", whole.at(whole.size() * 95 / 100));
    print("click, median", median(paragraphs));
    print("click, 95 %", paragraphs.at(paragraphs.size() * 95 / 100));
    std::vector<double> filling, leaving, leavingPainted;
    for (std::size_t i = 0; i < 11; ++i) {
        filling.push_back(timed([&] { navs.DisplayFullWeb(); }));
        leaving.push_back(clickOn(count / 2 + i));
        leavingPainted.push_back(allPainted.last());
    }
    print("all paragraphs", median(filling));
    print("leaving them", median(leaving));
    print("leaving them, painted", median(leavingPainted));
    print("click, most faults", mostFaults);
    tree.setCurrentIndex(tree.model()->index(0, 0));
    print("open all", timed([&] { sendKey(tree, Qt::Key_Asterisk); }));
    print("collapse all", timed([&] { window.mnuCollapse_Click(); }));
}

// F2 opens the form of a node, which is saved and closed; then Del deletes the node.
void measureEdits(fMain& window) {
    auto& navs = *window.oNavs;
    auto& tree = *window.findChild<NavTree*>(QStringLiteral("myTree"));
    std::vector<double> forms, deletions;
    const int rounds = navs.Count() < 100'000 ? 101 : 21;
    for (int i = 0; i < rounds; ++i) {
        navs.mLastN = "N" + navs.MaxID();
        navs.DispInTV();
        settle();
        QElapsedTimer closing;
        QTimer::singleShot(0, &window, [&] {
            auto* form = QApplication::activeModalWidget();
            sendKey(*form, Qt::Key_F3);
            closing.start();
            sendKey(*form, Qt::Key_Escape);
        });
        sendKey(tree, Qt::Key_F2);
        QCoreApplication::processEvents();
        forms.push_back(static_cast<double>(closing.nsecsElapsed()) / 1e6);
        settle();
        const auto before = navs.Count();
        deletions.push_back(timed([&] { sendKey(tree, Qt::Key_Delete); }));
        if (navs.Count() == before) fail("nothing was deleted");
    }
    print("closing a form", median(forms));
    print("Del of a node", median(deletions));
}

// The node whose branch is closest to 2 % of all nodes.
std::int32_t branchOfTwoPercent(const clsNavSchemes& navs) {
    std::vector<std::pair<std::int32_t, std::size_t>> order;  // ID and depth, in pre-order
    walkTree(navs.NewEnum(), [&](const clsNavSchemes::Pointer& node, std::size_t depth) {
        order.emplace_back(node->ID, depth);
        return true;
    });
    const auto wanted = static_cast<double>(order.size()) / 50;
    std::int32_t best = order.back().first;
    double bestSize = 0;
    std::vector<std::size_t> open;
    const auto close = [&](std::size_t at, std::size_t end) {
        const auto size = static_cast<double>(end - at);
        if (std::abs(size - wanted) < std::abs(bestSize - wanted)) {
            best = order[at].first;
            bestSize = size;
        }
    };
    for (std::size_t i = 0; i < order.size(); ++i) {
        while (open.size() > order[i].second) {
            close(open.back(), i);
            open.pop_back();
        }
        open.push_back(i);
    }
    return best;
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::string what = argc > 1 ? argv[1] : "start";
    const std::filesystem::path prefix = argc > 2 ? argv[2] : "";
    QApplication application(argc, argv);
    applyLook(application);
    fMain window;
    window.StartScheme();
    if (what == "start") runUntilPainted(window);
    if (what == "introduction") {
        const HelpFile help(QCoreApplication::applicationDirPath());
        fIntro introduction(help, nullptr);
        runUntilPainted(introduction);
    }
    window.show();
    QCoreApplication::processEvents();

    auto& navs = *window.oNavs;
    const auto empty = peakMegabytes();
    const Faults faults;
    auto nodes = prefix;
    auto paragraphs = prefix;
    nodes += ".xst1";
    paragraphs += ".xst2";
    const double nodeTime = timed([&] { navs.LoadData(nodes); });
    const double paragraphTime = timed([&] { navs.LoadWeb(paragraphs); });
    print("load and draw nodes", nodeTime);
    print("load and draw paragraphs", paragraphTime);
    print("load and draw both", nodeTime + paragraphTime);
    print("faults of that", faults.count());
    print("memory, empty", empty);
    print("memory, loaded", peakMegabytes());
    const auto bytes = static_cast<double>(file_size(nodes) + file_size(paragraphs)) / (1 << 20);
    print("memory / file bytes", (peakMegabytes() - empty) / bytes);
    if (what == "load") std::_Exit(0);  // the time of sqlite3, with which this is compared, ends here, too
    measureClicks(window);
    measure("analysis of the nodes", "faults of that analysis", [&] { static_cast<void>(CheckNav(navs)); });
    measure("analysis of paragraphs", "faults of that, too", [&] { static_cast<void>(CheckScheme(navs)); });
    if (what == "use") measureEdits(window);
    if (what != "all") return 0;

    const std::filesystem::path folder = argv[3];
    bool saved = true;
    QProcess::execute(QCoreApplication::applicationDirPath() + QStringLiteral("/touch_memory"), {});  // as before dd
    measure("save both", "faults of saving",
            [&] { saved = navs.SaveData(folder / "saved.xst1") && navs.oWebs.SaveData(folder / "saved.xst2"); });
    if (!saved) fail("the files were not saved");
    measure("renumber and redraw", "faults of Re-Number", [&] { navs.Renumber(); });
    navs.LoadData(nodes);
    navs.LoadWeb(paragraphs);
    const auto branch = std::to_string(branchOfTwoPercent(navs));
    const auto before = navs.Count();
    print("delete a branch", timed([&] {
              navs.DelNode(branch);
              navs.DispInTV();
          }));
    print("nodes deleted, %", 100.0 * (before - navs.Count()) / before);
    return 0;
}
