// SPDX-License-Identifier: MIT
#include "database/SqliteDatabase.h"

#include <sys/stat.h>

#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>

#include "database/QueryWatchdog.h"
#include "database/SqliteLibrary.h"
#include "database/Values.h"

using namespace Qt::StringLiterals;

namespace {

ConnectionSettings connectionTo(const DatabaseAddress& address) {
    return {.driver = "QSQLITE", .package = "libqt6sql6-sqlite", .database = address.database};
}

void refuseUnlessFile(const std::string& file) {
    const QFileInfo info(fromText(file));
    const auto* const why = !info.exists()       ? "there is no such file"
                            : !info.isFile()     ? "this is no regular file"
                            : !info.isReadable() ? "you may not read it"
                                                 : nullptr;
    if (why != nullptr) throw DatabaseError(file + ": " + why);
}

// Another one where a file was put in the place of this.
std::pair<std::uint64_t, std::uint64_t> identityOf(const std::string& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino};
}

// What the scheme writes after the name of the query: several constants are one text.
QVariant constantOf(const QueryCall& call) {
    if (call.constants.empty()) return {};
    if (call.constants.size() == 1) return numberOrText(call.constants.front());
    std::string all;
    for (const auto& constant : call.constants) all += (all.empty() ? "" : " ") + constant;
    return fromText(all);
}

QVariant parameterOf(const QueryCall& call) {
    if (call.kind == ParameterKind::None) return {};
    return call.kind == ParameterKind::LKey ? numberOrText(call.parameter) : QVariant(fromText(call.parameter));
}

}  // namespace

SqliteGuard::SqliteGuard(const std::string& file) : name_(freshConnectionName()) {
    auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, name_);
    database.setDatabaseName(fromText(file));
    database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    QSqlQuery query(database.open() ? database : QSqlDatabase());
    const bool isRead = database.isOpen() && query.exec(u"SELECT count(*) FROM sqlite_schema"_s);
    if (isRead) return;
    const auto words = wordsOf(database.isOpen() ? query.lastError() : database.lastError());
    query = QSqlQuery();
    database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name_);
    throw DatabaseError(file + ": " + words);
}

SqliteGuard::~SqliteGuard() {
    QSqlDatabase::removeDatabase(name_);
}

SqliteDatabase::SqliteDatabase(const DatabaseAddress& address)
    : SqlDatabase(address.shown, connectionTo(address), nullptr) {
    refuseMissingDriver();
    openFile(&SqliteDatabase::open);
}

// Qt's driver would make a file that is not there.
void SqliteDatabase::openFile(void (SqliteDatabase::*way)()) {
    refuseUnlessFile(settings_.database);
    const QFileInfo file(fromText(settings_.database));
    isWritable_ = file.isWritable();
    const bool hasLog = QFileInfo::exists(file.canonicalFilePath() + u"-wal"_s);
    guard_ = std::make_unique<SqliteGuard>(settings_.database);
    (this->*way)();
    if (!hasLog) guard_ = nullptr;  // the last connection to close then removes the log again
}

SqliteDatabase::~SqliteDatabase() {
    connection().close();  // before the guard
}

void SqliteDatabase::prepareConnection() {
    // Changing the mode of a write-ahead file would write to it; its log needs no journal.
    if (rowsOf("PRAGMA journal_mode").at(0).at(0).toString() != u"wal") (void)rowsOf("PRAGMA journal_mode = MEMORY");
    if (!execute("PRAGMA cache_spill = OFF")) throw DatabaseError(lastWords());
    SqliteLibrary(*connection().driver()).refuseCommits();
    identity_ = identityOf(settings_.database);
}

void SqliteDatabase::beginPage() {
    if (identityOf(settings_.database) != identity_) openFile(&SqliteDatabase::reopen);
    hasGiven_ = !rowsOf("SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = 'Given' COLLATE NOCASE").empty();
    SqlDatabase::beginPage();
}

bool SqliteDatabase::beginTransaction() {
    // At once for writing: a page then sees one state of the file, and waits for other writers at its beginning.
    return execute(isWritable_ && hasGiven_ ? "BEGIN IMMEDIATE" : "BEGIN");
}

std::unique_ptr<KnownQuery> SqliteDatabase::find(std::string_view name, QueryKind kind) {
    return nameInCatalogue(name, kind).empty() ? nullptr : std::make_unique<KnownQuery>();
}

std::string SqliteDatabase::nameInCatalogue(std::string_view name, QueryKind kind) {
    const auto* const statement =
        kind == QueryKind::Action
            ? "SELECT name FROM sqlite_schema WHERE type = 'trigger' AND tbl_name = 'Given' COLLATE NOCASE "
              "AND name = ? COLLATE NOCASE"
            : "SELECT name FROM sqlite_schema WHERE type IN ('view', 'table') AND name = ? COLLATE NOCASE";
    const auto rows = rowsOf(statement, {fromText(name)});
    return rows.empty() ? std::string() : toText(rows[0].at(0).toString());
}

void SqliteDatabase::perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits, QueryResult& result) {
    const auto name = nameInCatalogue(call.name, kind);
    if (name.empty()) {
        result.error = std::string("There is no ") + (kind == QueryKind::Action ? "trigger " : "view ") + call.name +
                       (kind == QueryKind::Action ? " on the table Given." : ".");
        return;
    }
    QueryWatchdog watchdog(limits.time, [library = SqliteLibrary(*connection().driver())] { library.interrupt(); });
    give(call, kind == QueryKind::Action ? name : std::string(), result);
    if (kind == QueryKind::Rows && result.error.empty()) readView(name, limits, result);
    result.isTooSlow = watchdog.end() && !result.error.empty();
}

// The run of a trigger is part of it: the trigger is called with the row as it will be.
void SqliteDatabase::give(const QueryCall& call, const std::string& action, QueryResult& result) {
    if (!hasGiven_ || !isWritable_) {
        if (call.constants.empty() && call.kind == ParameterKind::None) return;
        result.error = hasGiven_ ? "You may not write to the file, which has to take what a query is called with for "
                                   "as long as it runs. Use a copy."
                                 : "There is no table Given, whose row holds what a query is called with; "
                                   "pelmo-scheme stubs makes it.";
        return;
    }
    const auto before = changesSoFar();
    QSqlQuery query(connection());
    bool succeeded =
        query.prepare(u"UPDATE Given SET constant = ?, parameter = ?"_s + (action.empty() ? u""_s : u", run = ?"_s));
    query.addBindValue(constantOf(call));
    query.addBindValue(parameterOf(call));
    if (!action.empty()) query.addBindValue(fromText(action));
    succeeded = succeeded && query.exec();
    if (!succeeded)
        result.error = wordsOf(query.lastError());
    else if (query.numRowsAffected() != 1)
        result.error = "The table Given must have one row, and has " + std::to_string(query.numRowsAffected()) + ".";
    else if (!action.empty())
        result.changed = changesSoFar() - before - 1;
}

void SqliteDatabase::readView(const std::string& view, const QueryLimits& limits, QueryResult& result) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    if (query.exec(fromText("SELECT * FROM main." + quotedName(view, '"'))))
        readRows(query, ColumnTypes::Untyped, limits, result);
    else
        result.error = wordsOf(query.lastError());
}

std::uint64_t SqliteDatabase::changesSoFar() {
    return rowsOf("SELECT total_changes()").at(0).at(0).toULongLong();
}
