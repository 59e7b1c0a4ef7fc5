// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The address of a database in its parts, as the command line gives it.
struct DatabaseAddress {
    enum class Kind { Sqlite, PostgreSql, MariaDb, Odbc };

    Kind kind = Kind::Sqlite;
    std::string shown;  ///< as the user sees it
    std::string user;
    std::string host;
    int port = -1;
    std::string database;  ///< a file, a name, a data source
    std::vector<std::pair<std::string, std::string>> options;

    /// @throws DatabaseError where it is none, or holds a password
    [[nodiscard]] static DatabaseAddress of(std::string_view text);
};
