// SPDX-License-Identifier: MIT
#include "database/MariaDbDatabase.h"

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <algorithm>
#include <map>
#include <span>

#include "database/OptionFile.h"
#include "database/Values.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view accessDenied[] = {"1045", "1698"};
constexpr std::string_view timeIsOver[] = {"1969", "3024"};

bool isOneOf(const QString& code, std::span<const std::string_view> codes) {
    return std::ranges::find(codes, toText(code)) != codes.end();
}

bool isAboutPassword(const QSqlError& error) {
    return isOneOf(error.nativeErrorCode(), accessDenied);
}

std::map<std::string, std::string> userSettings() {
    QFile file(QDir::home().filePath(u".my.cnf"_s));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return readOptionFile(file.readAll().toStdString());
}

int portIn(const std::map<std::string, std::string>& given) {
    const auto port = given.find("port");
    return port == given.end() ? -1 : fromText(port->second).toInt();
}

// A prepared CALL has no columns for Qt's driver. So the values are bound to variables, and the call names these.
std::string variable(qsizetype place) {
    return "@wizard_value_" + std::to_string(place + 1);
}

std::string variablesFor(const QVariantList& values) {
    std::string variables;
    for (qsizetype i = 0; i < values.size(); ++i) variables += (i == 0 ? "" : ", ") + variable(i);
    return variables;
}

// How the driver of Qt calls an option of the address.
struct OptionName {
    const char* given;
    const char* driver;
};
constexpr OptionName optionNames[] = {{"socket", "UNIX_SOCKET"},
                                      {"sslkey", "SSL_KEY"},
                                      {"sslcert", "SSL_CERT"},
                                      {"sslrootcert", "SSL_CA"},
                                      {"connect_timeout", "MYSQL_OPT_CONNECT_TIMEOUT"}};

ConnectionSettings connectionTo(const DatabaseAddress& address) {
    auto given = userSettings();
    for (const auto& [name, value] : address.options) given[name] = value;
    ConnectionSettings settings{.driver = "QMYSQL",
                                .package = "libqt6sql6-mysql",
                                .database = address.database,
                                .user = address.user.empty() ? given["user"] : address.user,
                                .host = address.host.empty() ? given["host"] : address.host,
                                .port = address.port < 0 ? portIn(given) : address.port};
    // A socket in the user's file is of no use for another computer.
    if (!address.host.empty() && address.host != "localhost") given.erase("socket");
    if (!given.contains("connect_timeout")) given["connect_timeout"] = "10";
    for (const auto& [name, driver] : optionNames)
        if (given.contains(name)) settings.options += std::string(driver) + "=" + given[name] + ";";
    settings.isAboutPassword = isAboutPassword;
    settings.password = given.contains("password") ? given["password"] : qgetenv("MYSQL_PWD").toStdString();
    return settings;
}

}  // namespace

MariaDbDatabase::MariaDbDatabase(const DatabaseAddress& address, AskPassword askPassword)
    : SqlDatabase(address.shown, connectionTo(address), askPassword) {
    open();
}

void MariaDbDatabase::prepareConnection() {
    // Also for what a procedure does after a COMMIT of its own.
    if (!execute("SET SESSION TRANSACTION READ ONLY")) throw DatabaseError(lastWords());
}

bool MariaDbDatabase::beginTransaction() {
    mayWrite_ = false;
    return execute("START TRANSACTION READ ONLY");
}

// A session that may only read needs no savepoints; a procedure that ends its transaction does no harm to it.
bool MariaDbDatabase::setSavepoint() {
    return !mayWrite_ || SqlDatabase::setSavepoint();
}

bool MariaDbDatabase::endSavepoint(bool keeps) {
    return !mayWrite_ || SqlDatabase::endSavepoint(keeps);
}

bool MariaDbDatabase::letWrite() {
    if (mayWrite_) return true;
    mayWrite_ = execute("ROLLBACK") && execute("START TRANSACTION READ WRITE") && SqlDatabase::setSavepoint();
    return mayWrite_;
}

std::optional<MariaDbDatabase::Procedure> MariaDbDatabase::procedureNamed(std::string_view name) {
    const QVariant given = fromText(name);
    const auto rows = rowsOf(
        "SELECT r.routine_schema, r.routine_name, (SELECT count(*) FROM information_schema.parameters p "
        "WHERE p.specific_schema = r.routine_schema AND p.specific_name = r.specific_name AND p.ordinal_position > "
        "0) "
        "FROM information_schema.routines r WHERE r.routine_type = 'PROCEDURE' AND "
        "((r.routine_schema = DATABASE() AND lower(r.routine_name) = lower(?)) "
        "OR lower(concat(r.routine_schema, '.', r.routine_name)) = lower(?))",
        {given, given});
    if (rows.empty()) return {};
    return Procedure{
        quotedName(toText(rows[0].at(0).toString()), '`') + "." + quotedName(toText(rows[0].at(1).toString()), '`'),
        static_cast<std::size_t>(rows[0].at(2).toULongLong())};
}

std::string MariaDbDatabase::viewNamed(std::string_view name) {
    const auto rows = rowsOf(
        "SELECT table_name FROM information_schema.tables WHERE table_schema = DATABASE() "
        "AND lower(table_name) = lower(?)",
        {fromText(name)});
    return rows.empty() ? std::string() : quotedName(toText(rows[0].at(0).toString()), '`');
}

std::unique_ptr<KnownQuery> MariaDbDatabase::find(std::string_view name, QueryKind kind) {
    const auto procedure = procedureNamed(name);
    if (!procedure && (kind == QueryKind::Action || viewNamed(name).empty())) return nullptr;
    const auto arguments = procedure ? procedure->arguments : 0;
    return std::make_unique<KnownQuery>(KnownQuery{arguments, arguments, true});
}

std::string MariaDbDatabase::statementFor(const QueryCall& call, QueryKind kind, QueryResult& result) {
    const auto count = valuesOf(call).size();
    if (const auto procedure = procedureNamed(call.name)) {
        if (procedure->arguments == static_cast<std::size_t>(count))
            return "CALL " + procedure->name + "(" + variablesFor(valuesOf(call)) + ")";
        result.error = "The procedure " + call.name + " takes " + inWords(procedure->arguments, "value") +
                       ", and is called with " + std::to_string(count) + ".";
        return {};
    }
    const auto view = kind == QueryKind::Action ? std::string() : viewNamed(call.name);
    if (!view.empty() && count == 0) return "SELECT * FROM " + view;
    result.error = view.empty() ? "There is no procedure " + call.name +
                                      (kind == QueryKind::Action ? "." : ", and no view of this name.")
                                : call.name + " is no procedure, and cannot be called with " +
                                      inWords(static_cast<std::size_t>(count), "value") + ".";
    return {};
}

// MySQL knows a limit for reading statements only.
void MariaDbDatabase::limitTime(std::chrono::milliseconds time) {
    const double seconds = static_cast<double>(time.count()) / 1000;
    if (!execute("SET SESSION max_statement_time = " + std::to_string(seconds)))
        execute("SET SESSION max_execution_time = " + std::to_string(time.count()));
}

void MariaDbDatabase::perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) {
    const auto statement = statementFor(call, kind, result);
    if (statement.empty()) return;
    if (kind == QueryKind::Action && !letWrite()) {
        result.error = lastWords();
        return;
    }
    if (!setVariables(valuesOf(call))) {
        result.error = lastWords();
        return;
    }
    limitTime(limits.time);
    perform(statement, kind, limits, result);
    limitTime(std::chrono::milliseconds(0));
}

bool MariaDbDatabase::setVariables(const QVariantList& values) {
    std::string statement;
    for (qsizetype i = 0; i < values.size(); ++i)
        statement.append(i == 0 ? "SET " : ", ").append(variable(i)).append(" = ?");
    return statement.empty() || execute(statement, values);
}

void MariaDbDatabase::perform(const std::string& statement, QueryKind kind, const QueryLimits& limits,
                              QueryResult& result) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    if (!query.exec(fromText(statement)))
        result.error = wordsOf(query.lastError());
    else if (kind == QueryKind::Rows)
        readRows(query, ColumnTypes::Typed, limits, result);
    else if (query.numRowsAffected() >= 0)
        result.changed = static_cast<std::uint64_t>(query.numRowsAffected());
    result.isTooSlow = isOneOf(query.lastError().nativeErrorCode(), timeIsOver);
}
