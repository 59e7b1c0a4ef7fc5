// SPDX-License-Identifier: MIT
#pragma once

class QSqlDriver;

/// What SQLite can do and Qt passes on to nobody. It asks the library that Qt's driver has loaded; where the driver
/// has one of its own inside, nothing happens.
class SqliteLibrary {
  public:
    /// @param driver of an open connection, which must outlive this
    explicit SqliteLibrary(const QSqlDriver& driver);

    /// From now on, whatever would commit rolls back and fails.
    void refuseCommits() const;
    /// Stops the statement that another thread runs.
    void interrupt() const;

  private:
    void* connection_ = nullptr;
};
