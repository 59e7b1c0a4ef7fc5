// SPDX-License-Identifier: MIT
#include "commands/DatabaseOptions.h"

#include <CLI/CLI.hpp>

#include "commands/Console.h"
#include "commands/Password.h"
#include "database/QueryCall.h"

namespace {

constexpr double mostSeconds = 86'400;

}  // namespace

QueryLimits DatabaseOptions::limits() const {
    constexpr double milliseconds = 1000;
    QueryLimits limits;
    limits.time = std::chrono::milliseconds(static_cast<std::int64_t>(seconds * milliseconds));
    return limits;
}

std::string DatabaseOptions::today() const {
    auto text = dayForQueries(day);
    if (text.empty()) throw Unusable("--today takes a day such as 2026-03-05");
    return text;
}

void declareDatabaseOptions(CLI::App& command, DatabaseOptions& options) {
    command
        .add_option("--db", options.address,
                    "The database: sqlite:FILE, postgresql://USER@HOST/NAME, mariadb://USER@HOST/NAME or odbc:DSN")
        ->required()
        ->type_name("ADDRESS");
    command.add_option("--today", options.day, "The day that queries get, such as 2026-03-05; otherwise today")
        ->type_name("DAY");
    command.add_option("--seconds", options.seconds, "The seconds that a query may take; otherwise 5")
        ->type_name("NUMBER")
        ->check(CLI::Range(0.001, mostSeconds));
    command.add_flag("--run-actions", options.runsActions,
                     "Run action queries (type E) even where the database cannot take back all that they do");
}

std::unique_ptr<Database> openDatabase(const DatabaseOptions& options) try {
    return Database::open(options.address, askPassword);
} catch (const DatabaseError& error) {
    throw Unusable(shownName(error.what()));
}
