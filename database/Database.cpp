// SPDX-License-Identifier: MIT
#include "database/Database.h"

#include "database/DatabaseAddress.h"
#include "database/MariaDbDatabase.h"
#include "database/OdbcDatabase.h"
#include "database/PostgreSqlDatabase.h"
#include "database/QtStart.h"
#include "database/SqliteDatabase.h"

std::unique_ptr<Database> Database::open(std::string_view address, AskPassword askPassword) {
    const auto parts = DatabaseAddress::of(address);
    startQt();
    switch (parts.kind) {
        case DatabaseAddress::Kind::Sqlite: return std::make_unique<SqliteDatabase>(parts);
        case DatabaseAddress::Kind::PostgreSql: return std::make_unique<PostgreSqlDatabase>(parts, askPassword);
        case DatabaseAddress::Kind::MariaDb: return std::make_unique<MariaDbDatabase>(parts, askPassword);
        case DatabaseAddress::Kind::Odbc: break;
    }
    return std::make_unique<OdbcDatabase>(parts, askPassword);
}
