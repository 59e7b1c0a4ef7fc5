// SPDX-License-Identifier: MIT
#include "database/OdbcDatabase.h"

#include <QRegularExpression>
#include <QSqlError>

#include "database/Values.h"

using namespace Qt::StringLiterals;

namespace {

bool isAboutPassword(const QSqlError& error) {
    return error.nativeErrorCode().contains(u"28000") || error.databaseText().contains(u"password") ||
           error.databaseText().contains(u"Login failed");
}

ConnectionSettings connectionTo(const DatabaseAddress& address) {
    return {.driver = "QODBC",
            .package = "libqt6sql6-odbc",
            .database = address.database,
            .options = "SQL_ATTR_LOGIN_TIMEOUT=10",
            .isAboutPassword = isAboutPassword};
}

// A call is no plain statement: nothing could stand in quotes there that all drivers understand.
bool canBeCalled(std::string_view name) {
    static const QRegularExpression plain(uR"(\A[\w$#]+(\.[\w$#]+)*\z)"_s,
                                          QRegularExpression::UseUnicodePropertiesOption);
    return plain.match(fromText(name)).hasMatch();
}

}  // namespace

OdbcDatabase::OdbcDatabase(const DatabaseAddress& address, AskPassword askPassword)
    : SqlDatabase(address.shown, connectionTo(address), askPassword) {
    open();
}

void OdbcDatabase::prepareConnection() {
    hasCatalogue_ = execute("SELECT routine_name FROM information_schema.routines WHERE 1 = 0");
}

bool OdbcDatabase::beginTransaction() {
    hasActed_ = false;
    return connection().transaction();
}

void OdbcDatabase::rollBack() {
    connection().rollback();
}

// There may be no savepoints. Until something has acted, a new transaction is as good.
bool OdbcDatabase::endSavepoint(bool keeps) {
    if (keeps || hasActed_) return true;
    return connection().rollback() && connection().transaction();
}

// Empty where the name cannot be called.
std::string OdbcDatabase::nameInCatalogue(std::string_view name) {
    if (!canBeCalled(name)) return {};
    if (!hasCatalogue_) return std::string(name);
    const auto rows = rowsOf("SELECT routine_name FROM information_schema.routines WHERE lower(routine_name) = ?",
                             {fromText(name).section(u'.', -1).toLower()});
    return rows.empty() ? std::string() : std::string(name);
}

std::unique_ptr<KnownQuery> OdbcDatabase::find(std::string_view name, QueryKind) {
    return nameInCatalogue(name).empty() ? nullptr : std::make_unique<KnownQuery>();
}

void OdbcDatabase::perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) {
    const auto name = nameInCatalogue(call.name);
    if (name.empty()) {
        result.error = "There is no procedure " + call.name + " that can be called.";
        return;
    }
    const auto values = valuesOf(call);
    const auto arguments = values.isEmpty() ? std::string() : "(" + marksFor(values) + ")";
    hasActed_ = hasActed_ || kind == QueryKind::Action;
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    bool succeeded = query.prepare(fromText("{call " + name + arguments + "}"));
    for (const auto& value : values) query.addBindValue(value);
    succeeded = succeeded && query.exec();
    if (!succeeded)
        result.error = wordsOf(query.lastError());
    else if (kind == QueryKind::Rows)
        readRows(query, ColumnTypes::Typed, limits, result);
    else if (query.numRowsAffected() >= 0)
        result.changed = static_cast<std::uint64_t>(query.numRowsAffected());
}
