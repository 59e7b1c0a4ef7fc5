// SPDX-License-Identifier: MIT
#include "commands/Dialects.h"

#include <cstdio>

// The words in braces. In a script, {XST1} and {XST2} stand for the declarations of the tables' columns, {names1} and
// {names2} for only their names, {nodes} and {paragraphs} for the numbers of rows, {encoding} for the name of the
// encoding, {table} for the table whose rows come next or came last, and {calls} for what a module calls. A query has
// {name}, {text} (its name as a text), {arguments}, {columns} and {select}.

namespace {

using Plain = Dialect::Plain;

template <const char* Format>
std::string character(char16_t character) {
    std::array<char, 32> text{};
    const auto length = std::snprintf(text.data(), text.size(), Format, static_cast<unsigned>(character));
    return {text.data(), static_cast<std::size_t>(length)};
}

constexpr char sqliteCharacter[] = "char(%u)";
constexpr char postgresCharacter[] = "chr(%u)";
constexpr char sqlServerCharacter[] = "nchar(%u)";
constexpr char accessCharacter[] = "ChrW$(%u)";

// MariaDB joins only texts of the same character set, so this spells out the bytes of UTF-8. Only control characters
// get here; they have one or two bytes.
std::string mariadbCharacter(char16_t character) {
    const auto code = static_cast<unsigned>(character);
    std::array<char, 32> text{};
    const auto length = code < 0x80 ? std::snprintf(text.data(), text.size(), "_utf8mb4 X'%02X'", code)
                                    : std::snprintf(text.data(), text.size(), "_utf8mb4 X'%02X%02X'",
                                                    0xC0U | (code >> 6U), 0x80U | (code & 0x3FU));
    return {text.data(), static_cast<std::size_t>(length)};
}

constexpr Dialect sqlite = {
    .name = "sqlite",
    .title = "SQLite",
    .lines = {.end = "\n", .comment = "-- "},
    .texts = {.open = "'",
              .close = "'",
              .doubled = "'",
              .join = " || ",
              .character = character<sqliteCharacter>,
              .openHex = "CAST(X'",
              .closeHex = "' AS TEXT)",
              .isHexUtf16 = false,
              .plain = Plain::UnlessEncoded,
              .hasVariables = false},
    .names = {.open = "\"", .close = "\""},
    .script = {.usage = "Run it with: sqlite3 -bail DATABASE < SCRIPT",
               .integer = "INTEGER",
               .text = "TEXT",
               .begin = R"(BEGIN;
CREATE TABLE IF NOT EXISTS XST1 ({XST1});
CREATE TABLE IF NOT EXISTS XST2 ({XST2});
DELETE FROM XST2;
DELETE FROM XST1;
CREATE TEMP TABLE Filled (isRight INTEGER CHECK (isRight));
INSERT INTO temp.Filled SELECT 1 WHERE NOT EXISTS (SELECT 1 FROM XST1) AND NOT EXISTS (SELECT 1 FROM XST2);
)",
               .end = R"(-- If a statement failed and the tool went on, this takes all of them back.
INSERT OR ROLLBACK INTO temp.Filled SELECT count(*) = 1 AND (SELECT count(*) FROM XST1) = {nodes}
    AND (SELECT count(*) FROM XST2) = {paragraphs} FROM temp.Filled;
DROP TABLE temp.Filled;
COMMIT;
)"},
    .queries = {.usage =
                    "Run it with: sqlite3 DATABASE < SCRIPT\n"
                    "A query is a view, an action query a trigger. What it is called with stands in the row of\n"
                    "Given: constant, what the scheme writes behind the name; parameter, what the parameter kind\n"
                    "supplies; run, the name of an action query. A view or trigger that is there stays.",
                .begin = R"(CREATE TABLE IF NOT EXISTS Given (constant, parameter, run TEXT);
INSERT INTO Given (constant, parameter, run) SELECT NULL, NULL, NULL WHERE NOT EXISTS (SELECT 1 FROM Given);
)",
                .returningRows = R"(CREATE VIEW IF NOT EXISTS {name} AS
    SELECT {select}
    FROM Given WHERE 0;
)",
                .action = R"(CREATE TRIGGER IF NOT EXISTS {name} AFTER UPDATE OF run ON Given
WHEN NEW.run = {text} BEGIN
    SELECT 1 WHERE 0;
END;
)",
                .openArguments = "",
                .closeArguments = "",
                .argument = "",
                .optional = "",
                .argumentTypes = {},
                .columns = {},
                .fields = {"CAST(NULL AS INTEGER) AS {name}", "CAST(NULL AS REAL) AS {name}",
                           "CAST(NULL AS TEXT) AS {name}", "CAST(NULL AS BLOB) AS {name}"}},
    .isModule = false,
};

constexpr Dialect postgresql = {
    .name = "postgresql",
    .title = "PostgreSQL",
    .lines = {.end = "\n", .comment = "-- "},
    .texts = {.open = "'",
              .close = "'",
              .doubled = "'",
              .join = " || ",
              .character = character<postgresCharacter>,
              .openHex = "convert_from(decode('",
              .closeHex = "', 'hex'), 'UTF8')",
              .isHexUtf16 = false,
              .plain = Plain::AsEncoded,
              .hasVariables = false},
    .names = {.open = "\"", .close = "\""},
    .script = {.usage = "Run it with: psql -v ON_ERROR_STOP=1 -q -d DATABASE -f SCRIPT",
               .integer = "integer",
               .text = "text",
               .begin = R"(BEGIN;
SET LOCAL client_encoding = '{encoding}';
SET LOCAL standard_conforming_strings = on;
SET LOCAL client_min_messages = warning;
CREATE TABLE IF NOT EXISTS XST1 ({XST1});
CREATE TABLE IF NOT EXISTS XST2 ({XST2});
DELETE FROM XST2;
DELETE FROM XST1;
)",
               .end = "COMMIT;\n",
               .utf8 = "UTF8",
               .codePage = "WIN1252"},
    .queries = {.usage = "Run it with: psql -v ON_ERROR_STOP=1 -q -d DATABASE -f SCRIPT\n"
                         "A query is a function. One that is there stays.",
                .begin = "SET client_encoding = '{encoding}';\nSET standard_conforming_strings = on;\n",
                .returningRows = R"(DO $stub$ BEGIN IF to_regproc({nameText}) IS NULL THEN
CREATE FUNCTION {name}({arguments})
RETURNS TABLE ({columns}) LANGUAGE sql AS $$
    SELECT {select}
    WHERE false;
$$;
END IF; END $stub$;
)",
                .action = R"(DO $stub$ BEGIN IF to_regproc({nameText}) IS NULL THEN
CREATE FUNCTION {name}({arguments})
RETURNS void LANGUAGE sql AS $$
$$;
END IF; END $stub$;
)",
                .openArguments = "",
                .closeArguments = "",
                .argument = "{name} {type}",
                .optional = " DEFAULT NULL",
                .argumentTypes = {"integer", "numeric", "varchar({length})", ""},
                .columns = {"\"{name}\" integer", "\"{name}\" numeric", "\"{name}\" text", "\"{name}\" bytea"},
                .fields = {"NULL::integer", "NULL::numeric", "NULL::text", "NULL::bytea"}},
    .isModule = false,
};

constexpr Dialect mariadb = {
    .name = "mariadb",
    .title = "MariaDB",
    .lines = {.end = "\n", .comment = "-- "},
    .texts = {.open = "'",
              .close = "'",
              .doubled = "'\\",
              .openJoin = "CONCAT(",
              .join = ", ",
              .closeJoin = ")",
              .character = mariadbCharacter,
              .openHex = "_utf8mb4 X'",
              .closeHex = "'",
              .isHexUtf16 = false,
              .plain = Plain::AsEncoded,
              .hasVariables = false},
    .names = {.open = "`", .close = "`"},
    .script = {.usage = "Run it with: mariadb DATABASE < SCRIPT",
               .integer = "integer",
               .text = "longtext",
               .begin = R"(SET NAMES {encoding};
SET @pelmo_mode = @@sql_mode;
SET sql_mode = 'STRICT_ALL_TABLES,NO_AUTO_VALUE_ON_ZERO';
CREATE TABLE IF NOT EXISTS XST1 ({XST1}) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE TABLE IF NOT EXISTS XST2 ({XST2}) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4;
START TRANSACTION;
DELETE FROM XST2;
DELETE FROM XST1;
SET @pelmo_empty = NOT EXISTS (SELECT 1 FROM XST1) AND NOT EXISTS (SELECT 1 FROM XST2);
)",
               .end = R"(-- If a statement failed and the tool went on, this takes all of them back.
SET @pelmo_end = IF(@pelmo_empty AND (SELECT count(*) FROM XST1) = {nodes}
    AND (SELECT count(*) FROM XST2) = {paragraphs}, 'COMMIT', 'ROLLBACK');
PREPARE pelmo_end FROM @pelmo_end;
EXECUTE pelmo_end;
DEALLOCATE PREPARE pelmo_end;
SET sql_mode = @pelmo_mode;
)",
               .utf8 = "utf8mb4",
               .codePage = "latin1"},
    .queries = {.usage = "Run it with: mariadb DATABASE < SCRIPT\n"
                         "A query is a procedure. One that is there stays.",
                .begin = "SET NAMES {encoding};\n",
                .returningRows = R"(CREATE PROCEDURE IF NOT EXISTS {name}({arguments})
    SELECT {select}
    FROM DUAL WHERE FALSE;
)",
                .action = R"(CREATE PROCEDURE IF NOT EXISTS {name}({arguments})
    DO 0;
)",
                .openArguments = "",
                .closeArguments = "",
                .argument = "{name} {type}",
                .optional = "",
                .argumentTypes = {"integer", "decimal(18, 2)", "varchar({length})", ""},
                .columns = {},
                .fields = {"CAST(NULL AS SIGNED) AS {name}", "CAST(NULL AS DECIMAL(18, 2)) AS {name}",
                           "CAST(NULL AS CHAR({length})) AS {name}", "CAST(NULL AS BINARY) AS {name}"}},
    .isModule = false,
};

constexpr Dialect sqlServer = {
    .name = "sqlserver",
    .title = "SQL Server",
    .lines = {.end = "\n", .comment = "-- "},
    .texts = {.open = "N'",
              .close = "'",
              .doubled = "'",
              .join = " + ",
              .longJoin = "CAST(N'' AS nvarchar(max)) + ",
              .character = character<sqlServerCharacter>,
              .openHex = "CAST(0x",
              .closeHex = " AS nvarchar(max))",
              .isHexUtf16 = true,
              .plain = Plain::Ascii,
              .hasVariables = true},
    .names = {.open = "[", .close = "]"},
    .script = {.usage = "Run it with: sqlcmd -b -d DATABASE -i SCRIPT",
               .integer = "int",
               .text = "nvarchar(max)",
               .begin = R"(SET NOCOUNT ON;
SET XACT_ABORT ON;
BEGIN TRANSACTION;
IF OBJECT_ID(N'XST1', N'U') IS NULL
    CREATE TABLE XST1 ({XST1});
IF OBJECT_ID(N'XST2', N'U') IS NULL
    CREATE TABLE XST2 ({XST2});
DELETE FROM XST2;
DELETE FROM XST1;
)",
               .beforeRows = "IF OBJECTPROPERTY(OBJECT_ID(N'{table}'), N'TableHasIdentity') = 1\n"
                             "    SET IDENTITY_INSERT {table} ON;\n",
               .afterRows = "IF OBJECTPROPERTY(OBJECT_ID(N'{table}'), N'TableHasIdentity') = 1\n"
                            "    SET IDENTITY_INSERT {table} OFF;\n",
               .end = "COMMIT TRANSACTION;\n"},
    .queries = {.usage = "Run it with: sqlcmd -b -d DATABASE -i SCRIPT\n"
                         "A query is a procedure. One that is there stays.",
                .begin = "",
                .returningRows = R"(IF OBJECT_ID({nameText}) IS NOT NULL SET NOEXEC ON;
GO
CREATE PROCEDURE {name}{arguments}
AS
    SELECT {select}
    WHERE 1 = 0;
GO
SET NOEXEC OFF;
GO
)",
                .action = R"(IF OBJECT_ID({nameText}) IS NOT NULL SET NOEXEC ON;
GO
CREATE PROCEDURE {name}{arguments}
AS
    SET NOCOUNT ON;
GO
SET NOEXEC OFF;
GO
)",
                .openArguments = " ",
                .closeArguments = "",
                .argument = "@{name} {type}",
                .optional = " = NULL",
                .argumentTypes = {"int", "decimal(18, 2)", "nvarchar({length})", ""},
                .columns = {},
                .fields = {"CAST(NULL AS int) AS {name}", "CAST(NULL AS decimal(18, 2)) AS {name}",
                           "CAST(NULL AS nvarchar({length})) AS {name}", "CAST(NULL AS varbinary(max)) AS {name}"}},
    .isModule = false,
};

// Access runs one SQL statement at a time and has no "if not exists", so its scripts are modules.
constexpr Dialect accessModules = {
    .name = "access",
    .title = "Access",
    .lines = {.end = "\r\n", .comment = "' "},
    .texts = {.open = "\"",
              .close = "\"",
              .doubled = "\"",
              .join = " & ",
              .character = character<accessCharacter>,
              .openHex = "",
              .closeHex = "",
              .isHexUtf16 = false,
              .plain = Plain::Ascii,
              .hasVariables = false},
    .names = {.open = "[", .close = "]"},
    .script = {.usage = "Import it into Access (Alt+F11, then File, Import File) and run FillSchemes (F5).",
               .integer = "LONG",
               .text = "LONGTEXT",
               .begin = R"(Option Explicit

Private XST1 As DAO.Recordset
Private XST2 As DAO.Recordset
)",
               .end = R"vba(
Public Sub FillSchemes()
    Dim session As DAO.Workspace
    Dim db As DAO.Database
    Dim reason As String
    DBEngine.SetOption dbMaxLocksPerFile, 2000000
    Set session = DBEngine.Workspaces(0)
    Set db = CurrentDb
    MakeTable db, "XST1", "CREATE TABLE XST1 ({XST1})"
    MakeTable db, "XST2", "CREATE TABLE XST2 ({XST2})"
    session.BeginTrans
    On Error GoTo Failed
    db.Execute "DELETE FROM XST2", dbFailOnError
    db.Execute "DELETE FROM XST1", dbFailOnError
    Set XST1 = db.OpenRecordset("SELECT {names1} FROM XST1", dbOpenDynaset, dbAppendOnly)
    Set XST2 = db.OpenRecordset("SELECT {names2} FROM XST2", dbOpenDynaset, dbAppendOnly)
{calls}    XST1.Close
    XST2.Close
    session.CommitTrans
    Exit Sub
Failed:
    reason = Err.Description
    session.Rollback
    MsgBox "Both tables are as they were. " & reason, vbExclamation
End Sub

Private Sub MakeTable(db As DAO.Database, tableName As String, statement As String)
    Dim table As DAO.TableDef
    Dim column As DAO.Field
    For Each table In db.TableDefs
        If StrComp(table.Name, tableName, vbTextCompare) = 0 Then Exit Sub
    Next
    db.Execute statement, dbFailOnError
    db.TableDefs.Refresh
    For Each column In db.TableDefs(tableName).Fields
        If column.Type = dbMemo Then column.AllowZeroLength = True
    Next
End Sub

Private Sub Row(table As DAO.Recordset, ParamArray values() As Variant)
    Dim i As Long
    table.AddNew
    For i = 0 To UBound(values)
        table.Fields(i).Value = values(i)
    Next
    table.Update
End Sub
)vba"},
    .queries = {.usage =
                    "Import it into Access (Alt+F11, then File, Import File) and run MakeQueries (F5), after the\n"
                    "tables are there. A query that is there stays.",
                .begin = R"(Option Explicit

Private statement As String
)",
                .returningRows = "{arguments}SELECT {select} FROM XST1 WHERE False;",
                .action = "{arguments}UPDATE XST2 SET extra = extra WHERE False;",
                .openArguments = "PARAMETERS ",
                .closeArguments = "; ",
                .argument = "{name} {type}",
                .optional = "",
                .argumentTypes = {"Long", "Double", "Text ( {length} )", ""},
                .columns = {},
                .fields = {"CLng(0) AS {name}", "CDbl(0) AS {name}", "'' AS {name}", "Null AS {name}"}},
    .isModule = true,
};

constexpr const Dialect* all[] = {&sqlite, &postgresql, &mariadb, &sqlServer, &accessModules};

}  // namespace

constinit const std::span<const Dialect* const> dialects(all);
