// SPDX-License-Identifier: MIT
#pragma once

#include "database/SqlDatabase.h"

/// A server of MariaDB or MySQL. A query is a procedure; one without values may be a view or a table.
///
/// No rollback takes back the next numbers of AUTO_INCREMENT, tables of engines without transactions, or what a
/// procedure has committed. So nothing is promised: until an action is called, the whole session may only read.
class MariaDbDatabase final : public SqlDatabase {
  public:
    /// @throws DatabaseError
    MariaDbDatabase(const DatabaseAddress& address, AskPassword askPassword);

    [[nodiscard]] bool canUndo() const override { return false; }
    [[nodiscard]] std::unique_ptr<KnownQuery> find(std::string_view name, QueryKind kind) override;

  protected:
    void prepareConnection() override;
    bool beginTransaction() override;
    void perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) override;
    bool setSavepoint() override;
    bool endSavepoint(bool keeps) override;

  private:
    struct Procedure {
        std::string name;  // in quotes, with its database
        std::size_t arguments = 0;
    };
    [[nodiscard]] std::optional<Procedure> procedureNamed(std::string_view name);
    [[nodiscard]] std::string viewNamed(std::string_view name);
    [[nodiscard]] std::string statementFor(const QueryCall& call, QueryKind kind, QueryResult& result);
    bool setVariables(const QVariantList& values);
    void perform(const std::string& statement, QueryKind kind, const QueryLimits& limits, QueryResult& result);
    void limitTime(std::chrono::milliseconds time);
    [[nodiscard]] bool letWrite();

    bool mayWrite_ = false;
};
