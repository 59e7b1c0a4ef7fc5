// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tests/database/Process.h"
#include "tests/model/Helpers.h"

/// A server of PostgreSQL of our own, with its data in a new folder. Nobody else can reach it: it listens to a socket
/// in that folder and to no port. The server ends and the folder goes with this object.
class PostgreSQL {
  public:
    /// The folder of the server's programs; empty where it is not installed.
    [[nodiscard]] static std::filesystem::path programs();

    /// Makes the data folder and starts the server. Where that fails, the test fails with what the server said.
    PostgreSQL();

    /// Does what the script says, statements or commands of psql, and stops at the first error.
    [[nodiscard]] Finished tryOut(const std::string& script) const;
    /// The same where no error may come; what was printed, a line a row and the fields joined by "|".
    std::string run(const std::string& script) const;
    /// The variables of the environment that lead PostgreSQL's clients to this server, each as "NAME=value".
    [[nodiscard]] Command environment() const;

  private:
    TempFolder folder_;
    std::unique_ptr<Background> server_;  // declared last: it ends before its folder goes
};
