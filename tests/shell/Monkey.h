// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <fstream>
#include <random>

#include "Helpers.h"

/// Somebody who presses random keys and buttons, in whatever window is there. Each step is one line of text:
///
///     fMain key 16777223 Del              a key with its modifiers, as Qt numbers them
///     fNav type 233 é                     a character
///     fMain click 120,80 1 once flexNav   a place in the window, a button, and whose place that is
///     fMain choose mnuNavRenum            a command of a menu
///     GetOpenName enter odd.txt           a file in the monkey's folder
///     fOutput resize 300 200              pixels
///
/// A step for a window other than the one on the screen is passed over. Before each step without an open dialog the
/// tree and the grids must show the scheme.
class Monkey {
  public:
    /// @param notes takes each line before its step is made, so that it is there after a crash, too
    explicit Monkey(const std::filesystem::path& notes);

    /// Makes this many steps of its own. The same seed makes the same ones.
    void play(unsigned seed, unsigned steps);
    /// Makes the steps of a script.
    void repeat(const Rows& script);

  private:
    // --- inventing a step ---
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    template <class Range>
    auto oneOf(const Range& range) {
        return *(std::begin(range) + pick(static_cast<int>(std::size(range))));
    }
    bool chance(int oneIn) { return pick(oneIn) == 0; }
    std::string invent();
    std::string inDialog(QDialog& dialog);
    std::string inForm(QDialog& form);
    std::string inMain();
    std::string key(std::initializer_list<Qt::Key> keys);
    std::string click(const QWidget& window);

    // --- making it ---
    void run();
    void next();
    void step();
    void make(const std::string& line);
    void make(QWidget& window, const std::string& verb, std::istream& what);
    void close(QWidget& window);

    // --- looking at it ---
    void check();
    void checkParagraphsShown();
    void checkTheEnd();

    Wizard wizard_;
    TempFolder folder_;
    std::ofstream notes_;
    std::mt19937 random_;
    unsigned left_ = 0;  // steps to invent
    std::deque<std::string> script_;
    QObject context_;
    int busyAt_ = -1;  // the event loop, counted from the outermost, in which a step is being made
    int closings_ = 0;
    bool failed_ = false;  // a window cannot be left
    bool done_ = false;
};
