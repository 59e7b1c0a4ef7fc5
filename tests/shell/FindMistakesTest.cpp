// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QPlainTextEdit>
#include <map>
#include <regex>
#include <set>

#include "ReportText.h"
#include "shell/fOutput.h"

// The exercise "Find the mistakes" of the help, done as the page says: bold is a key to press, typewriter letters are
// typed. Each report must have the findings that the page shows before it is closed, and each grid the rows.

namespace {

struct Step {
    enum class Kind { Press, Type, Finding, UpperGrid, LowerGrid } kind;
    std::string text;
    Rows rows;  // of a grid: the cells that the page shows, separated by "|"
};

std::string withoutTags(const std::string& html) {
    auto plain = std::regex_replace(html, std::regex("<[^>]*>"), "");
    for (const auto& [entity, character] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}})
        plain = std::regex_replace(plain, std::regex(entity), character);
    return plain;
}

std::string squeezed(const std::string& text) {
    return std::regex_replace(text, std::regex("\\s+"), " ");
}

Rows rowsOfTable(const std::string& table) {
    Rows rows;
    const std::regex row("<tr>(.*)</tr>");
    const std::regex cell("<td[^>]*>(.*?)</td>");
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (!std::regex_search(line, found, row) || line.find("<th>") != std::string::npos) continue;
        const auto cells = found[1].str();
        std::string text;
        for (std::sregex_iterator at(cells.begin(), cells.end(), cell), end; at != end; ++at)
            text += (text.empty() ? "" : "|") + withoutTags((*at)[1]);
        rows.push_back(text);
    }
    return rows;
}

// How often the words after a key say that it is pressed; 1 if they say nothing.
int timesSaid(const std::string& after) {
    static const std::map<std::string, int> times = {
        {"twice", 2}, {"three times", 3}, {"four times", 4}, {"five times", 5}, {"six times", 6}};
    for (const auto& [words, count] : times)
        if (after.starts_with(" " + words)) return count;
    return 1;
}

/// What the page tells its reader to do and to see, from the comment on.
std::vector<Step> stepsOf(const std::string& page) {
    const std::regex tag("<(b|tt|code)>([^<]*)</|<!-- (upper|lower) grid -->\\n(<table[^]*?</table>)");
    std::vector<Step> steps;
    const auto from = page.find("<!-- from here on a test does what the page says -->");
    const auto until = page.find("<!-- here the test ends -->");
    const auto text = page.substr(std::min(from, page.size()), until - from);
    for (std::sregex_iterator at(text.begin(), text.end(), tag), end; at != end; ++at) {
        const auto& found = *at;
        if (found[3].matched) {
            steps.push_back(
                {found[3] == "upper" ? Step::Kind::UpperGrid : Step::Kind::LowerGrid, "", rowsOfTable(found[4])});
            continue;
        }
        const auto words = squeezed(withoutTags(found[2]));
        if (found[1] == "tt") {
            steps.push_back({Step::Kind::Type, words, {}});
        } else if (found[1] == "code") {
            steps.push_back({Step::Kind::Finding, words, {}});
        } else {
            std::istringstream keys(words);
            for (std::string key; std::getline(keys >> std::ws, key, ',');)
                steps.push_back({Step::Kind::Press, key, {}});
            const auto last = steps.back();
            const auto after = squeezed(found.suffix().str().substr(0, 20)).substr(2);
            for (int i = 1; i < timesSaid(after); ++i) steps.push_back(last);
        }
    }
    return steps;
}

/// A reader of the page, at the keyboard.
class PageReader {
  public:
    explicit PageReader(std::vector<Step> steps) : steps_(std::move(steps)) {}

    void readToTheEnd() {
        watch();
        const auto isDone = [this] { return (next_ == steps_.size() && !busy_) || testing::Test::HasFailure(); };
        EXPECT_TRUE(QTest::qWaitFor(isDone, 120'000)) << "the reader stays at step " << next_;
        next_ = steps_.size();
        while (auto* open = QApplication::activeModalWidget()) {
            open->close();
            QTest::qWait(1);
        }
    }

    Wizard wizard;
    std::vector<int> findings;  // how many each report had

  private:
    // A key press may open a window and not return before it is closed, so the next look is scheduled first.
    void watch() {
        QTimer::singleShot(5, &context_, [this] {
            watch();
            const auto* modal = QApplication::activeModalWidget();
            // A step does not end while a window that it has opened is open. Otherwise, commands whose window is
            // closed are about to end.
            const bool hasOpened = busy_ && modal && modal->isVisible() && !before_.contains(modal);
            const bool rests = !busy_ && unfinished_ <= openModals();
            if (next_ != steps_.size() && (rests || hasOpened)) takeNext();
        });
    }

    static std::set<const QWidget*> openWindows() {
        std::set<const QWidget*> open;
        for (const auto* window : QApplication::topLevelWidgets())
            if (window->isVisible()) open.insert(window);
        return open;
    }

    static int openModals() {
        const auto windows = QApplication::topLevelWidgets();
        return static_cast<int>(
            std::ranges::count_if(windows, [](const QWidget* each) { return each->isVisible() && each->isModal(); }));
    }

    void takeNext() {
        const auto mine = ++next_;
        busy_ = true;
        ++unfinished_;
        before_ = openWindows();  // closing one may bring another of them back
        try {
            take(steps_[mine - 1]);
        } catch (const std::exception& error) {
            ADD_FAILURE() << "step " << mine << ", " << steps_[mine - 1].text << ": " << error.what();
        }
        --unfinished_;
        if (next_ == mine) busy_ = false;
    }

    void take(const Step& step) {
        SCOPED_TRACE("step " + std::to_string(next_) + ": " + step.text);
        switch (step.kind) {
            case Step::Kind::Press: pressNamed(step.text); break;
            case Step::Kind::Type: type(step.text); break;
            case Step::Kind::Finding: expected_.push_back(step.text); break;
            case Step::Kind::UpperGrid: expectRows(wizard.nodeGrid(), step.rows); break;
            case Step::Kind::LowerGrid: expectRows(wizard.paragraphGrid(), step.rows); break;
        }
    }

    [[nodiscard]] QWidget& window() {
        if (auto* modal = QApplication::activeModalWidget()) return *modal;
        if (auto* report = openReport()) return *report;
        return wizard.window;
    }

    [[nodiscard]] fOutput* openReport() {
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* report = dynamic_cast<fOutput*>(widget); report && report->isVisible()) return report;
        return nullptr;
    }

    void pressNamed(const std::string& name) {
        static const std::map<std::string, Qt::Key> keys = {
            {"Enter", Qt::Key_Return}, {"Esc", Qt::Key_Escape}, {"Ins", Qt::Key_Insert}, {"Del", Qt::Key_Delete},
            {"Tab", Qt::Key_Tab},      {"Home", Qt::Key_Home},  {"End", Qt::Key_End},    {"Up", Qt::Key_Up},
            {"Down", Qt::Key_Down},    {"*", Qt::Key_Asterisk}, {"F2", Qt::Key_F2},      {"F3", Qt::Key_F3},
            {"menu key", Qt::Key_Menu}};
        if (auto* report = openReport(); report && name == "Esc") expectFindings(*report);
        if (const auto key = keys.find(name); key != keys.end()) return press(window(), key->second);
        const auto alt = name.starts_with("Alt+");
        const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(name.back())));
        if (name.size() != (alt ? 5U : 1U)) throw std::runtime_error("no such key");
        press(window(), static_cast<Qt::Key>(letter), alt ? Qt::AltModifier : Qt::NoModifier);
    }

    void type(const std::string& text) {
        auto& where = window();
        activate(where);
        auto* focus = where.focusWidget();
        // A view takes letters that come close together for the beginning of a text.
        if (qobject_cast<QAbstractItemView*>(focus)) QTest::qWait(QApplication::keyboardInputInterval() + 50);
        for (const auto letter : text) QTest::keyClick(where.windowHandle(), letter);
    }

    void expectFindings(fOutput& report) {
        const auto shown = textOf(find<QPlainTextEdit>(report, "Text1")).toStdString();
        const std::string heading = "OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:\n";
        const auto from = shown.find(heading);
        ASSERT_NE(from, std::string::npos) << shown;
        Rows lines;
        std::istringstream below(shown.substr(from + heading.size()));
        for (std::string line; std::getline(below, line);)
            if (!line.empty()) lines.push_back(squeezed(line));
        Rows wanted;
        for (const auto& line : expected_) wanted.push_back(line == "THE ORPHANS:" ? "THE ORPHANS: " : line);
        EXPECT_EQ(lines, wanted);
        findings.push_back(static_cast<int>(std::ranges::count_if(
            lines, [](const auto& line) { return line.starts_with("=>") || line.starts_with("[ID="); })));
        expected_.clear();
    }

    // Compares as many columns as the page shows.
    static void expectRows(const QTableView& grid, const Rows& wanted) {
        Rows shown;
        for (auto row : shownRows(grid)) {
            const auto columns = wanted.empty() ? 0 : std::ranges::count(wanted.front(), '|') + 1;
            std::size_t end = 0;
            for (auto i = columns; i > 0 && end != std::string::npos; --i) end = row.find('|', end + 1);
            shown.push_back(row.substr(0, end));
        }
        EXPECT_EQ(shown, wanted);
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    Rows expected_;
    bool busy_ = false;
    int unfinished_ = 0;               // steps that have begun and not ended
    std::set<const QWidget*> before_;  // the windows that were open when the step began
    QObject context_;
};

}  // namespace

TEST(FindMistakes, EveryStepOfThePageLeadsToTheReportsThatItShows) {
    const auto steps = stepsOf(bytesOf(std::filesystem::path(SAMPLES).parent_path() / "help" / "find-mistakes.html"));
    ASSERT_GT(steps.size(), 150U);
    PageReader reader(steps);
    reader.readToTheEnd();
    // All findings; none left; all findings; the orphans; none left; none left after Re-Number.
    EXPECT_EQ(reader.findings, std::vector<int>({8, 0, 8, 2, 0, 0}));
}
