// SPDX-License-Identifier: MIT
#include "preview/Preview.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "commands/Command.h"
#include "commands/Input.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    std::string database;
    std::string day;
    double seconds = 5;
    std::size_t rows = 1000;
    bool staysClosed = false;
    bool runsActions = false;
};

void refuseStandardInput(const Arguments& given) {
    if (given.nodes == "-" || given.paragraphs == "-")
        throw Unusable("the preview reads its files whenever they are saved, which no standard input can be");
}

PreviewSettings settingsOf(const Arguments& given, const Console& console) {
    PreviewSettings settings;
    settings.nodes = given.nodes;
    settings.paragraphs = given.paragraphs;
    settings.load = [&given, &console](clsNavSchemes& navs) {
        loadSchemes(navs, given.nodes, given.paragraphs, console);
    };
    settings.day = given.day;
    settings.limits.time = std::chrono::milliseconds(static_cast<int>(given.seconds * 1000));
    settings.limits.rows = given.rows;
    settings.runsAllActions = given.runsActions;
    settings.opensBrowser = !given.staysClosed;
    settings.say = [&console](const std::string& line) { console.out << line << '\n' << std::flush; };
    return settings;
}

ExitStatus run(const Arguments& given, const Console& console) {
    refuseStandardInput(given);
    if (dayForQueries(given.day).empty()) throw Unusable("--today: \"" + shownName(given.day) + "\" is no day");
    const auto database = Database::open(given.database);
    servePreview(settingsOf(given, console), *database);
    return nothingFound;
}

}  // namespace

RunCommand declarePreview(CLI::App& command) {
    const auto given = std::make_shared<Arguments>();
    command.add_option("XST1", given->nodes, "The file of the nodes")->required();
    command.add_option("XST2", given->paragraphs, "The file of the paragraphs")->required();
    command
        .add_option("--db", given->database,
                    "The database: sqlite:FILE, postgresql://USER@HOST/NAME, mariadb://USER@HOST/NAME or odbc:DSN")
        ->type_name("ADDRESS")
        ->required();
    command.add_flag("--no-browser", given->staysClosed, "Open no browser, only print the address");
    command.add_option("--today", given->day, "The day that queries get, as 2026-03-05")->type_name("DAY");
    command.add_option("--seconds", given->seconds, "How long a query may take; otherwise 5")
        ->type_name("NUMBER")
        ->check(CLI::Range(0.001, 3600.0));
    command.add_option("--rows", given->rows, "How many rows of a query are shown; otherwise 1000")
        ->type_name("NUMBER")
        ->check(CLI::Range(std::size_t{1}, std::size_t{1'000'000}));
    command.add_flag("--run-actions", given->runsActions,
                     "Run action queries also where the database cannot undo what they do");
    return [given](const Console& console) { return run(*given, console); };
}
