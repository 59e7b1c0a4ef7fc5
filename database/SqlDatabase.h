// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QVariant>
#include <optional>

#include "database/Database.h"
#include "database/DatabaseAddress.h"

/// A name for one more connection of Qt.
[[nodiscard]] QString freshConnectionName();

/// How Qt's driver is told to connect.
struct ConnectionSettings {
    std::string driver{};
    std::string package{};  ///< the one of Debian that has the driver
    std::string database{};
    std::string user{};
    std::string host{};
    int port = -1;
    std::string options{};
    std::string password{};
    /// Whether a connection failed because a password is missing or wrong; null where there are none.
    bool (*isAboutPassword)(const QSqlError& error) = nullptr;
};

/// What all databases over Qt SQL share: the connection, the transaction of a page, the savepoint of a query, the
/// time that it takes. The databases differ in what they do where a function below is virtual.
class SqlDatabase : public Database {
  public:
    ~SqlDatabase() override;

    [[nodiscard]] const std::string& name() const override { return name_; }
    void beginPage() override;
    void endPage() noexcept override;
    [[nodiscard]] QueryResult run(const QueryCall& call, QueryKind kind, const QueryLimits& limits) override;

  protected:
    /// @param askPassword null where nobody can be asked
    SqlDatabase(std::string name, ConnectionSettings settings, AskPassword askPassword);

    /// @throws DatabaseError where Qt's driver is not installed
    void refuseMissingDriver() const;
    /// Connects, asking for a password if one is missing. @throws DatabaseError
    void open();

    /// Connects anew. @throws DatabaseError
    void reopen();

    /// Runs a statement without results. @return whether it succeeded; otherwise `lastWords` says why not
    bool execute(std::string_view statement, const QVariantList& values = {});
    [[nodiscard]] const std::string& lastWords() const { return lastWords_; }
    /// A query of the catalogue: its rows. @throws DatabaseError
    [[nodiscard]] std::vector<QVariantList> rowsOf(std::string_view statement, const QVariantList& values = {});
    [[nodiscard]] QSqlDatabase connection() const { return QSqlDatabase::database(connectionName_, false); }

    /// Statements that prepare a new connection. @throws DatabaseError
    virtual void prepareConnection() = 0;
    /// Whether a connection that was open can be gone.
    [[nodiscard]] virtual bool canBeLost() const { return true; }
    virtual bool beginTransaction() = 0;
    /// Calls the query, between `setSavepoint` and what follows it.
    virtual void perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) = 0;
    virtual void rollBack() { execute("ROLLBACK"); }
    virtual bool setSavepoint();
    /// Ends a query: keeps what it did or takes it back. @return false where the transaction is gone
    virtual bool endSavepoint(bool keeps);

    ConnectionSettings settings_;

  private:
    bool connect();

    std::string name_;
    QString connectionName_;
    AskPassword askPassword_;
    std::string lastWords_;
    bool isInTransaction_ = false;
};

/// A name as it stands in a statement: between these quotes.
[[nodiscard]] std::string quotedName(std::string_view name, char quote);

/// The values that a call passes on, constants first.
[[nodiscard]] QVariantList valuesOf(const QueryCall& call);

/// "?, ?" for two values.
[[nodiscard]] std::string marksFor(const QVariantList& values);

/// "1 value", "2 values".
[[nodiscard]] std::string inWords(std::size_t count, std::string_view what);
