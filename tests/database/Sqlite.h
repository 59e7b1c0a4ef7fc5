// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/database/Process.h"

/// A database of SQLite, through its command line tool.
class Sqlite {
  public:
    explicit Sqlite(std::filesystem::path file) : file_(std::move(file)) {}

    [[nodiscard]] static bool isThere() { return isInstalled("sqlite3"); }

    /// Runs the script, statements or commands of the tool, and stops at the first error.
    [[nodiscard]] Finished tryOut(const std::string& script) const {
        // -init: do not read the user's own settings.
        return ::run({"sqlite3", "-batch", "-bail", "-init", "/dev/null", file_.string()}, script);
    }
    /// The same where no error may occur; returns what the tool printed.
    std::string run(const std::string& script) const {
        const auto finished = tryOut(script);
        EXPECT_EQ(finished.code, 0) << script.substr(0, 500);
        EXPECT_EQ(finished.err, "") << script.substr(0, 500);
        return finished.out;
    }

  private:
    std::filesystem::path file_;
};
