// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "database/QueryCall.h"

// The user's own database, which is only ever read. All texts are UTF-8.

/// One value of a row.
struct Cell {
    enum class Kind { Null, Number, Text, Bytes };

    Kind kind = Kind::Null;
    std::string text;  ///< a number as the database writes it; the bytes of a BLOB; empty for Null
};

/// What a query gave.
struct QueryResult {
    std::vector<std::string> fields;       ///< the names; none if it returns no rows
    std::vector<std::vector<Cell>> rows;   ///< at most as many as the limit
    std::uint64_t total = 0;               ///< how many rows there are
    std::string error;                     ///< the database's own words, or ours; empty if all is well
    std::chrono::microseconds time{0};     ///< from the call to the last row
    std::optional<std::uint64_t> changed;  ///< how many rows an action changed, where the database tells
    bool isTooSlow = false;                ///< whether it failed because its time was over
};

/// What a query may take.
struct QueryLimits {
    std::chrono::milliseconds time{5000};        ///< for one query; then it is stopped, with an error
    std::size_t rows = 1000;                     ///< that are kept; the rest are counted
    std::size_t bytes = std::size_t{64} << 20U;  ///< after which no more rows are kept, either
};

/// The database cannot be reached, or its address cannot be read. `what` is one line for the user, without passwords.
struct DatabaseError final : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A query in the database, as far as it says what it takes.
struct KnownQuery {
    std::size_t fewestArguments = 0;
    std::size_t mostArguments = 0;
    bool areArgumentsKnown = false;  ///< false where the database does not tell, as for a view of SQLite
};

/// Asks the user for a password. @param isAgain after one that was refused. @return empty to give up
using AskPassword = std::string (*)(bool isAgain);

class Database {
  public:
    /// Opens a database. Passwords come from the database's own files or the environment, or `askPassword` is asked,
    /// up to three times.
    /// @param address "sqlite:FILE", "postgresql://USER@HOST:PORT/NAME", "mariadb://USER@HOST/NAME" (or mysql://),
    ///                "odbc:DSN"; ?host=/folder or ?socket=/path names a local socket
    /// @throws DatabaseError
    [[nodiscard]] static std::unique_ptr<Database> open(std::string_view address, AskPassword askPassword = nullptr);

    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    virtual ~Database() = default;

    /// What the user sees of the address: never a password.
    [[nodiscard]] virtual const std::string& name() const = 0;
    /// Whether everything that an action query does can be undone.
    [[nodiscard]] virtual bool canUndo() const = 0;

    /// Begins a page: what its queries change is seen by the later ones, and is undone by `endPage`. A lost
    /// connection is made again. @throws DatabaseError
    virtual void beginPage() = 0;
    virtual void endPage() noexcept = 0;

    /// Calls a query, within a page. A failing one leaves the page usable for the next ones.
    [[nodiscard]] virtual QueryResult run(const QueryCall& call, QueryKind kind, const QueryLimits& limits) = 0;

    /// The query with this name, whatever the case of its letters; null if there is none. @throws DatabaseError
    [[nodiscard]] virtual std::unique_ptr<KnownQuery> find(std::string_view name, QueryKind kind) = 0;
};

/// A page of a database, which ends with its block.
class DatabasePage {
  public:
    explicit DatabasePage(Database& database) : database_(database) { database_.beginPage(); }
    DatabasePage(const DatabasePage&) = delete;
    DatabasePage& operator=(const DatabasePage&) = delete;
    ~DatabasePage() { database_.endPage(); }

  private:
    Database& database_;
};
