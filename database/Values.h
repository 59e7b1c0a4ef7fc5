// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include "database/Database.h"

// Between Qt's values and those of this folder.

[[nodiscard]] QString fromText(std::string_view utf8);
[[nodiscard]] std::string toText(const QString& text);

/// The words of the database, or of its driver where it said nothing.
[[nodiscard]] std::string wordsOf(const QSqlError& error);

/// A value to bind: a number where the text is one as databases write it ("2", "-0.5"), otherwise a text. "007" is a
/// text.
[[nodiscard]] QVariant numberOrText(std::string_view text);

/// Whether the columns of a database have types. In SQLite each value has its own.
enum class ColumnTypes { Typed, Untyped };

/// Fetches all rows of an executed query into the result, with the error if one occurs on the way.
void readRows(QSqlQuery& query, ColumnTypes columns, const QueryLimits& limits, QueryResult& result);
