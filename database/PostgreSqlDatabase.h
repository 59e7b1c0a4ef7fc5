// SPDX-License-Identifier: MIT
#pragma once

#include "database/SqlDatabase.h"

/// A server of PostgreSQL. A query is a function; one without values may be a view or a table.
///
/// Queries that return rows may only read. Where one of them writes all the same, it runs as an action does. Rolled
/// back, an action leaves one thing behind, the next numbers of sequences, so those that the user can reach first
/// move to a copy, which is rolled back with the rest.
class PostgreSqlDatabase final : public SqlDatabase {
  public:
    /// @throws DatabaseError
    PostgreSqlDatabase(const DatabaseAddress& address, AskPassword askPassword);

    [[nodiscard]] bool canUndo() const override { return canUndo_; }
    [[nodiscard]] std::unique_ptr<KnownQuery> find(std::string_view name, QueryKind kind) override;

  protected:
    void prepareConnection() override;
    bool beginTransaction() override { return execute("BEGIN"); }
    void perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) override;

  private:
    struct Function {
        std::string schema;
        std::string name;
        std::size_t fewest = 0;
        std::vector<std::string> types;  // of all arguments
    };
    [[nodiscard]] std::vector<Function> functionsNamed(std::string_view name);
    [[nodiscard]] std::string viewNamed(std::string_view name);
    [[nodiscard]] std::string statementFor(const QueryCall& call, QueryKind kind, QueryResult& result);
    std::string read(const std::string& statement, const QVariantList& values, const QueryLimits& limits,
                     QueryResult& result);
    void act(const std::string& statement, const QVariantList& values, const QueryLimits& limits,
             QueryResult& result);
    [[nodiscard]] std::uint64_t changesSoFar();

    bool canUndo_ = false;
};
