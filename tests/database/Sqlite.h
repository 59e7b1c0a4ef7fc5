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

    /// Does what the script says, statements or commands of the tool, and stops at the first error.
    [[nodiscard]] Finished tryOut(const std::string& script) const {
        // The file of the user's own settings is not read.
        return ::run({"sqlite3", "-batch", "-bail", "-init", "/dev/null", file_.string()}, script);
    }
    /// The same where no error may come; what the tool printed.
    std::string run(const std::string& script) const {
        const auto finished = tryOut(script);
        EXPECT_EQ(finished.code, 0) << script.substr(0, 500);
        EXPECT_EQ(finished.err, "") << script.substr(0, 500);
        return finished.out;
    }

  private:
    std::filesystem::path file_;
};
