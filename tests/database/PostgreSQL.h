// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tests/database/Process.h"
#include "tests/model/Helpers.h"

/// Our own PostgreSQL server, with its data in a new folder. Nobody else can reach it: it listens on a socket in that
/// folder and on no port. The destructor stops the server and removes the folder.
class PostgreSQL {
  public:
    /// The folder of the server's programs; empty if it is not installed.
    [[nodiscard]] static std::filesystem::path programs();

    /// Creates the data folder and starts the server. If that fails, the test fails with what the server said.
    PostgreSQL();

    /// Runs the script, statements or commands of psql, and stops at the first error.
    [[nodiscard]] Finished tryOut(const std::string& script) const;
    /// The same where no error may occur; returns what was printed, a line for each row, its fields joined by "|".
    std::string run(const std::string& script) const;
    /// The environment variables that lead PostgreSQL's clients to this server, each as "NAME=value".
    [[nodiscard]] Command environment() const;

  private:
    TempFolder folder_;
    std::unique_ptr<Background> server_;  // declared last: it ends before its folder is removed
};
