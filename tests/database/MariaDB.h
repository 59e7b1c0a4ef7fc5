// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tests/database/Process.h"
#include "tests/model/Helpers.h"

/// Our own MariaDB server, with its data in a new folder. Nobody else can reach it: it listens on a socket in that
/// folder and on no port. The destructor stops the server and removes the folder.
class MariaDB {
  public:
    /// Whether the server, the script that creates its data folder, and the client are installed.
    [[nodiscard]] static bool isThere();

    /// Creates the data folder and an empty database "test" in it, and starts the server. If that fails, the test
    /// fails with what the server said.
    MariaDB();
    ~MariaDB();
    MariaDB(const MariaDB&) = delete;
    MariaDB& operator=(const MariaDB&) = delete;

    /// Runs the statements of the script in the database "test" and stops at the first error. It prints a line for
    /// the names of the columns and one for each row, with tabs between the fields; nothing for a result without
    /// rows.
    [[nodiscard]] Finished tryOut(const std::string& script) const;
    /// The same where no error may occur; returns what was printed.
    std::string run(const std::string& script) const;
    /// A folder with a file of settings that lead MariaDB's client to this server, if it is the home of the user.
    [[nodiscard]] std::filesystem::path home() const { return folder_ / "home"; }

  private:
    [[nodiscard]] Command client(const std::string& database) const;

    TempFolder folder_;
    std::unique_ptr<Background> server_;  // declared last: it ends before its folder is removed
};
