// SPDX-License-Identifier: MIT
#include "preview/Preview.h"

#include <memory>
#include <ostream>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/DatabaseOptions.h"
#include "commands/Input.h"

namespace {

constexpr std::size_t mostRows = 1'000'000;

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    DatabaseOptions database;
    std::size_t rows = QueryLimits().rows;
    bool opensNoBrowser = false;
};

void refuseStandardInput(const Arguments& given) {
    if (given.nodes == "-" || given.paragraphs == "-")
        throw Unusable("the preview reads its files again and again, which the standard input does not allow");
}

ExitStatus run(const Arguments& given, const Console& console) {
    refuseStandardInput(given);
    (void)given.database.today();  // refuses what is none
    PreviewSettings settings;
    settings.nodes = given.nodes;
    settings.paragraphs = given.paragraphs;
    settings.load = [&](clsNavSchemes& navs) { loadSchemes(navs, given.nodes, given.paragraphs, console); };
    settings.day = given.database.day;
    settings.limits = given.database.limits();
    settings.limits.rows = given.rows;
    settings.runsAllActions = given.database.runsActions;
    settings.opensBrowser = !given.opensNoBrowser;
    settings.say = [&](const std::string& line) { console.out << line << '\n' << std::flush; };
    const auto database = openDatabase(given.database);
    servePreview(settings, *database);
    return nothingFound;
}

}  // namespace

RunCommand declarePreview(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs");
    declareDatabaseOptions(line, given->database);
    line.flag("--no-browser", given->opensNoBrowser, "Open no browser, and only print the address");
    line.number("--rows", given->rows, 1, mostRows, "ROWS", "How many rows of a query are shown; otherwise 1000");
    return [given](const Console& console) { return run(*given, console); };
}
