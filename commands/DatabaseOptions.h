// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "database/Database.h"

namespace CLI {
class App;
}

// What the commands that ask the user's database share.

struct DatabaseOptions {
    std::string address;
    std::string day;  ///< "2026-03-05"; empty for today
    double seconds = 5;
    bool runsActions = false;

    /// The time limit; the rows are those that a page shows.
    [[nodiscard]] QueryLimits limits() const;
    /// The day as queries get it. @throws Unusable where it is none
    [[nodiscard]] std::string today() const;
};

/// Declares `--db`, `--today`, `--seconds` and `--run-actions`. @param options must outlive the command
void declareDatabaseOptions(CLI::App& command, DatabaseOptions& options);

/// Opens the database, asking for a password on the terminal if one is missing.
/// @throws Unusable
[[nodiscard]] std::unique_ptr<Database> openDatabase(const DatabaseOptions& options);
