// SPDX-License-Identifier: MIT
#include "database/PostgreSqlDatabase.h"

#include <QSqlError>

#include "database/Values.h"

namespace {

constexpr auto timeIsOver = "57014";
constexpr auto mayOnlyRead = "25006";

// Functions of extensions are none of the user's queries; some reach other servers or files.
constexpr auto functionsByName = R"(
SELECT n.nspname, p.proname, p.pronargs - p.pronargdefaults,
    array_to_string(ARRAY(SELECT format_type(a.type, NULL) FROM unnest(p.proargtypes) WITH ORDINALITY AS a(type, place)
                          ORDER BY a.place), chr(10))
FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace
WHERE p.prokind = 'f' AND n.nspname NOT IN ('pg_catalog', 'information_schema')
    AND (lower(p.proname) = lower(?) AND pg_function_is_visible(p.oid)
         OR lower(n.nspname || '.' || p.proname) = lower(?))
    AND NOT EXISTS (SELECT 1 FROM pg_depend d
                    WHERE d.classid = 'pg_proc'::regclass AND d.objid = p.oid AND d.deptype = 'e')
ORDER BY p.proname = ? DESC, p.pronargs, p.oid)";

constexpr auto views = R"(
SELECT n.nspname, c.relname FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace
WHERE c.relkind IN ('r', 'v', 'm', 'p', 'f') AND n.nspname NOT IN ('pg_catalog', 'information_schema')
    AND (lower(c.relname) = lower(?) AND pg_table_is_visible(c.oid)
         OR lower(n.nspname || '.' || c.relname) = lower(?))
ORDER BY c.relname = ? DESC, c.oid LIMIT 1)";

// The sequences that a rollback would not take back, since another user owns them.
constexpr auto foreignSequences = R"(
SELECT count(*) FROM pg_sequence q JOIN pg_class c ON c.oid = q.seqrelid
WHERE c.relpersistence <> 't' AND has_sequence_privilege(q.seqrelid, 'USAGE, UPDATE')
    AND NOT pg_has_role(c.relowner, 'USAGE'))";

// Each sequence gets a new file, as of any change of it, and with the transaction goes back to the old one.
constexpr auto moveSequences = R"(
DO $$ DECLARE s record; BEGIN
    FOR s IN SELECT c.oid::regclass AS name, q.seqincrement AS step
             FROM pg_sequence q JOIN pg_class c ON c.oid = q.seqrelid
             WHERE c.relpersistence <> 't' AND pg_has_role(c.relowner, 'USAGE') LOOP
        EXECUTE format('ALTER SEQUENCE %s INCREMENT BY %s', s.name, s.step);
    END LOOP;
END $$)";

std::string setting(std::string_view name, std::string_view value) {
    std::string text = std::string(name) + "='";
    for (const char byte : value) {
        if (byte == '\\' || byte == '\'') text += '\\';
        text += byte;
    }
    return text + "'";
}

bool isAboutPassword(const QSqlError& error) {
    return error.databaseText().contains(u"password");
}

ConnectionSettings connectionTo(const DatabaseAddress& address) {
    ConnectionSettings settings{.driver = "QPSQL",
                                .package = "libqt6sql6-psql",
                                .database = address.database,
                                .user = address.user,
                                .host = address.host,
                                .port = address.port,
                                .isAboutPassword = isAboutPassword};
    settings.options = setting("application_name", "pelmo-scheme") + " " + setting("connect_timeout", "10");
    for (const auto& [name, value] : address.options)
        if (name == "host" || name == "socket")
            settings.host = value;
        else
            settings.options += " " + setting(name, value);
    return settings;
}

}  // namespace

PostgreSqlDatabase::PostgreSqlDatabase(const DatabaseAddress& address, AskPassword askPassword)
    : SqlDatabase(address.shown, connectionTo(address), askPassword) {
    open();
}

void PostgreSqlDatabase::prepareConnection() {
    if (!execute("SET client_min_messages = error")) throw DatabaseError(lastWords());
    canUndo_ = rowsOf(foreignSequences).at(0).at(0).toInt() == 0;
}

std::vector<PostgreSqlDatabase::Function> PostgreSqlDatabase::functionsNamed(std::string_view name) {
    const QVariant given = fromText(name);
    std::vector<Function> found;
    for (const auto& row : rowsOf(functionsByName, {given, given, given})) {
        auto& function = found.emplace_back();
        function.schema = toText(row.at(0).toString());
        function.name = toText(row.at(1).toString());
        function.fewest = static_cast<std::size_t>(row.at(2).toInt());
        for (const auto& type : row.at(3).toString().split(u'\n', Qt::SkipEmptyParts))
            function.types.push_back(toText(type));
    }
    return found;
}

std::string PostgreSqlDatabase::viewNamed(std::string_view name) {
    const QVariant given = fromText(name);
    const auto rows = rowsOf(views, {given, given, given});
    if (rows.empty()) return {};
    return quotedName(toText(rows[0].at(0).toString()), '"') + "." +
           quotedName(toText(rows[0].at(1).toString()), '"');
}

std::unique_ptr<KnownQuery> PostgreSqlDatabase::find(std::string_view name, QueryKind kind) {
    const auto functions = functionsNamed(name);
    if (functions.empty() && (kind == QueryKind::Action || viewNamed(name).empty())) return nullptr;
    auto known = std::make_unique<KnownQuery>();
    known->areArgumentsKnown = true;
    if (functions.empty()) return known;
    known->fewestArguments = functions.front().fewest;
    for (const auto& function : functions) {
        known->fewestArguments = std::min(known->fewestArguments, function.fewest);
        known->mostArguments = std::max(known->mostArguments, function.types.size());
    }
    return known;
}

std::string PostgreSqlDatabase::statementFor(const QueryCall& call, QueryKind kind, QueryResult& result) {
    const std::size_t count = call.constants.size() + (call.kind == ParameterKind::None ? 0 : 1);
    const auto functions = functionsNamed(call.name);
    for (const auto& function : functions) {
        if (count < function.fewest || count > function.types.size()) continue;
        std::string arguments;
        for (std::size_t i = 0; i < count; ++i)
            arguments += (i == 0 ? "CAST(? AS " : ", CAST(? AS ") + function.types[i] + ")";
        return "SELECT * FROM " + quotedName(function.schema, '"') + "." + quotedName(function.name, '"') + "(" +
               arguments + ")";
    }
    const auto view = functions.empty() && kind == QueryKind::Rows ? viewNamed(call.name) : std::string();
    if (!view.empty() && count == 0) return "SELECT * FROM " + view;
    if (!functions.empty())
        result.error = "No function " + call.name + " takes " + inWords(count, "value") + ".";
    else if (!view.empty())
        result.error = call.name + " is no function, and cannot be called with " + inWords(count, "value") + ".";
    else
        result.error =
            "There is no function " + call.name + (kind == QueryKind::Action ? "." : ", and no view of this name.");
    return {};
}

void PostgreSqlDatabase::perform(const QueryCall& call, QueryKind kind, const QueryLimits& limits,
                                 QueryResult& result) {
    const auto statement = statementFor(call, kind, result);
    if (statement.empty()) return;
    // As texts: the server makes of each what the function takes.
    QVariantList values;
    for (const auto& value : valuesOf(call)) values.append(value.toString());

    const auto milliseconds = std::to_string(std::max<std::int64_t>(limits.time.count(), 1));
    execute("SET LOCAL statement_timeout = " + milliseconds);
    execute("SET LOCAL lock_timeout = " + milliseconds);
    if (kind == QueryKind::Action) {
        act(statement, values, limits, result);
        result.fields.clear();
        result.rows.clear();
        result.total = 0;
        return;
    }
    execute("SET LOCAL transaction_read_only = on");
    if (read(statement, values, limits, result) != mayOnlyRead || !canUndo_) return;
    if (!endSavepoint(false) || !setSavepoint()) return;
    execute("SET LOCAL statement_timeout = " + milliseconds);
    result = {};
    act(statement, values, limits, result);
    result.changed = {};
}

// Returns the code of the error.
std::string PostgreSqlDatabase::read(const std::string& statement, const QVariantList& values,
                                     const QueryLimits& limits, QueryResult& result) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    bool succeeded = query.prepare(fromText(statement));
    for (const auto& value : values) query.addBindValue(value);
    succeeded = succeeded && query.exec();
    if (succeeded)
        readRows(query, ColumnTypes::Typed, limits, result);
    else
        result.error = wordsOf(query.lastError());
    const auto code = toText(query.lastError().nativeErrorCode());
    result.isTooSlow = code == timeIsOver;
    return code;
}

void PostgreSqlDatabase::act(const std::string& statement, const QVariantList& values, const QueryLimits& limits,
                             QueryResult& result) {
    if (canUndo_ && !execute(moveSequences)) {
        result.error = "It is not run, since the sequences cannot be kept as they are: " + lastWords();
        return;
    }
    const auto before = changesSoFar();
    read(statement, values, limits, result);
    if (result.error.empty()) result.changed = changesSoFar() - before;
}

std::uint64_t PostgreSqlDatabase::changesSoFar() {
    return rowsOf("SELECT coalesce(sum(n_tup_ins + n_tup_upd + n_tup_del), 0)::bigint FROM pg_stat_xact_user_tables")
        .at(0)
        .at(0)
        .toULongLong();
}
