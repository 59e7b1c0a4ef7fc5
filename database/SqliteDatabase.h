// SPDX-License-Identifier: MIT
#pragma once

#include "database/SqlDatabase.h"

/// A second connection to a file of SQLite, which can only read. It refuses a file that opening would change, since a
/// program that wrote to it was interrupted. While it is there, the end of another connection does not move the log
/// of a write-ahead file into that file.
class SqliteGuard {
  public:
    /// @throws DatabaseError
    explicit SqliteGuard(const std::string& file);
    ~SqliteGuard();
    SqliteGuard(const SqliteGuard&) = delete;
    SqliteGuard& operator=(const SqliteGuard&) = delete;

  private:
    QString name_;
};

/// A file of SQLite. A query is a view, an action query a trigger; what it is called with is in the row of Given.
///
/// The row has to be written for each query, so the file is opened for writing, but nothing reaches it. All happens
/// in transactions that begin with BEGIN and end with ROLLBACK; a savepoint is released only inside of one, which
/// commits nothing. Changed pages and the journal stay in memory, however many there are.
class SqliteDatabase final : public SqlDatabase {
  public:
    /// @throws DatabaseError
    explicit SqliteDatabase(const DatabaseAddress& address);
    ~SqliteDatabase() override;

    [[nodiscard]] bool canUndo() const override { return true; }
    void beginPage() override;
    [[nodiscard]] std::unique_ptr<KnownQuery> find(std::string_view name, QueryKind kind) override;

  protected:
    void prepareConnection() override;
    [[nodiscard]] bool canBeLost() const override { return false; }
    bool beginTransaction() override;
    void perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) override;

  private:
    void openFile(void (SqliteDatabase::*way)());
    [[nodiscard]] std::string nameInCatalogue(std::string_view name, QueryKind kind);
    void give(const QueryCall& call, const std::string& action, QueryResult& result);
    void readView(const std::string& view, const QueryLimits& limits, QueryResult& result);
    [[nodiscard]] std::uint64_t changesSoFar();

    bool isWritable_ = false;
    bool hasGiven_ = false;
    std::pair<std::uint64_t, std::uint64_t> identity_;  // of the file
    std::unique_ptr<SqliteGuard> guard_;
};
