// SPDX-License-Identifier: MIT
#pragma once

#include "database/SqlDatabase.h"

/// A data source of ODBC. A query is what the source calls a procedure.
///
/// What such a source can do is not known, so nothing is promised; and Qt's driver passes no time limit on.
class OdbcDatabase final : public SqlDatabase {
  public:
    /// @throws DatabaseError
    OdbcDatabase(const DatabaseAddress& address, AskPassword askPassword);

    [[nodiscard]] bool canUndo() const override { return false; }
    [[nodiscard]] std::unique_ptr<KnownQuery> find(std::string_view name, QueryKind kind) override;

  protected:
    void prepareConnection() override;
    bool beginTransaction() override;
    void rollBack() override;
    void perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) override;
    bool setSavepoint() override { return true; }
    bool endSavepoint(bool keeps) override;

  private:
    [[nodiscard]] std::string nameInCatalogue(std::string_view name);

    bool hasCatalogue_ = false;  // one that SQL can read
    bool hasActed_ = false;      // in this page
};
