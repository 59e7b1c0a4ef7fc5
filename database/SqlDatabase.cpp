// SPDX-License-Identifier: MIT
#include "database/SqlDatabase.h"

#include <QSqlError>
#include <QSqlRecord>
#include <atomic>

#include "database/Values.h"

namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

SqlDatabase::SqlDatabase(std::string name, ConnectionSettings settings, AskPassword askPassword)
    : settings_(std::move(settings)),
      name_(std::move(name)),
      connectionName_(freshConnectionName()),
      askPassword_(askPassword) {
}

SqlDatabase::~SqlDatabase() {
    QSqlDatabase::database(connectionName_, false).close();
    QSqlDatabase::removeDatabase(connectionName_);
}

void SqlDatabase::refuseMissingDriver() const {
    if (!QSqlDatabase::isDriverAvailable(fromText(settings_.driver)))
        throw DatabaseError("Qt's driver for this database is missing; on Debian, it is in the package " +
                            settings_.package + ".");
}

void SqlDatabase::open() {
    refuseMissingDriver();
    QSqlDatabase::addDatabase(fromText(settings_.driver), connectionName_);
    bool isOpen = connect();
    constexpr int mostQuestions = 3;
    for (int asked = 0; !isOpen && asked < mostQuestions; ++asked) {
        if (askPassword_ == nullptr || !settings_.isAboutPassword(connection().lastError())) break;
        settings_.password = askPassword_(asked > 0);
        if (settings_.password.empty()) break;
        isOpen = connect();
    }
    if (!isOpen) throw DatabaseError("The database cannot be reached: " + wordsOf(connection().lastError()));
    prepareConnection();
}

bool SqlDatabase::connect() {
    auto database = connection();
    database.setDatabaseName(fromText(settings_.database));
    database.setHostName(fromText(settings_.host));
    database.setPort(settings_.port);
    database.setConnectOptions(fromText(settings_.options));
    database.setNumericalPrecisionPolicy(QSql::HighPrecision);
    return database.open(fromText(settings_.user), fromText(settings_.password));
}

void SqlDatabase::reopen() {
    connection().close();
    if (!connect())
        throw DatabaseError("The connection to the database was lost, and cannot be made again: " +
                            wordsOf(connection().lastError()));
    prepareConnection();
}

void SqlDatabase::beginPage() {
    isInTransaction_ = beginTransaction();
    if (isInTransaction_) return;
    if (canBeLost()) {
        reopen();
        isInTransaction_ = beginTransaction();
    }
    if (!isInTransaction_)
        throw DatabaseError("The database cannot be read now, perhaps because another program is writing to it: " +
                            lastWords());
}

void SqlDatabase::endPage() noexcept {
    if (isInTransaction_) rollBack();
    isInTransaction_ = false;
}

QueryResult SqlDatabase::run(const QueryCall& call, QueryKind kind, const QueryLimits& limits) {
    QueryResult result;
    if (!isInTransaction_ || !setSavepoint()) {
        isInTransaction_ = false;
        result.error = "The connection to the database is lost. It is made again for the next page.";
        return result;
    }
    const auto start = Clock::now();
    try {
        perform(call, kind, limits, result);
    } catch (const DatabaseError& error) {
        result.error = error.what();
    }
    result.time = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    if (result.isTooSlow) result.error = "Stopped, since its time is over: " + result.error;
    if (!result.error.empty()) {
        result.rows.clear();
        result.total = 0;
    }
    if (!endSavepoint(kind == QueryKind::Action && result.error.empty())) {
        isInTransaction_ = beginTransaction();
        result.error += isInTransaction_
                            ? " The transaction of the page ended with it."
                            : " The connection to the database is lost. It is made again for the next page.";
    }
    return result;
}

bool SqlDatabase::setSavepoint() {
    return execute("SAVEPOINT wizard_query");
}

bool SqlDatabase::endSavepoint(bool keeps) {
    return (keeps || execute("ROLLBACK TO SAVEPOINT wizard_query")) && execute("RELEASE SAVEPOINT wizard_query");
}

bool SqlDatabase::execute(std::string_view statement, const QVariantList& values) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    bool succeeded = values.isEmpty() || query.prepare(fromText(statement));
    for (const auto& value : values) query.addBindValue(value);
    succeeded = succeeded && (values.isEmpty() ? query.exec(fromText(statement)) : query.exec());
    if (!succeeded) lastWords_ = wordsOf(query.lastError());
    return succeeded;
}

std::vector<QVariantList> SqlDatabase::rowsOf(std::string_view statement, const QVariantList& values) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    bool succeeded = query.prepare(fromText(statement));
    for (const auto& value : values) query.addBindValue(value);
    succeeded = succeeded && query.exec();
    std::vector<QVariantList> rows;
    const int count = succeeded ? query.record().count() : 0;
    while (succeeded && query.next()) {
        auto& row = rows.emplace_back();
        for (int i = 0; i < count; ++i) row.append(query.value(i));
    }
    if (query.lastError().isValid()) throw DatabaseError(wordsOf(query.lastError()));
    return rows;
}

QString freshConnectionName() {
    static std::atomic<int> count = 0;
    return QString::number(++count);
}

std::string quotedName(std::string_view name, char quote) {
    std::string text(1, quote);
    for (const char byte : name) text.append(byte == quote ? 2 : 1, byte);
    return text + quote;
}

QVariantList valuesOf(const QueryCall& call) {
    QVariantList values;
    for (const auto& constant : call.constants) values.append(numberOrText(constant));
    if (call.kind == ParameterKind::LKey)
        values.append(numberOrText(call.parameter));
    else if (call.kind != ParameterKind::None)
        values.append(fromText(call.parameter));
    return values;
}

std::string marksFor(const QVariantList& values) {
    std::string marks;
    for (qsizetype i = 0; i < values.size(); ++i) marks += i == 0 ? "?" : ", ?";
    return marks;
}

std::string inWords(std::size_t count, std::string_view what) {
    return std::to_string(count).append(" ").append(what).append(count == 1 ? "" : "s");
}
