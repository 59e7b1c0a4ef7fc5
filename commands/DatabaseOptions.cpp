// SPDX-License-Identifier: MIT
#include "commands/DatabaseOptions.h"

#include "commands/CommandLine.h"
#include "commands/Console.h"
#include "commands/Password.h"
#include "database/QueryCall.h"

namespace {

constexpr double leastSeconds = 0.001;
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

void declareDatabaseOptions(CommandLine& line, DatabaseOptions& options) {
    line.option("--db", options.address, "ADDRESS",
                "The database: sqlite:FILE, postgresql://USER@HOST/NAME, mariadb://USER@HOST/NAME or odbc:DSN",
                Need::Required);
    line.option("--today", options.day, "DAY", "The day that queries get, such as 2026-03-05; otherwise today");
    line.number("--seconds", options.seconds, leastSeconds, mostSeconds, "NUMBER",
                "The seconds that a query may take; otherwise 5");
    line.flag("--run-actions", options.runsActions,
              "Run action queries (type E) even where the database cannot take back all that they do");
}

std::unique_ptr<Database> openDatabase(const DatabaseOptions& options) try {
    return Database::open(options.address, askPassword);
} catch (const DatabaseError& error) {
    throw Unusable(shownInOneLine(error.what()));
}
