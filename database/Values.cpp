// SPDX-License-Identifier: MIT
#include "database/Values.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QSqlField>
#include <QSqlRecord>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isNumber(QMetaType type) {
    constexpr int numbers[] = {QMetaType::Int,    QMetaType::UInt,  QMetaType::LongLong, QMetaType::ULongLong,
                               QMetaType::Double, QMetaType::Float, QMetaType::Short,    QMetaType::UShort,
                               QMetaType::SChar,  QMetaType::UChar, QMetaType::Char,     QMetaType::Long,
                               QMetaType::ULong};
    return std::ranges::find(numbers, type.id()) != std::end(numbers);
}

// As SQLite writes a number with a fraction, and others where they write all digits that matter.
QString written(double number, ColumnTypes columns) {
    constexpr int digitsOfSqlite = 15;
    auto text = QString::number(number, 'g',
                                columns == ColumnTypes::Untyped ? digitsOfSqlite : QLocale::FloatingPointShortest);
    if (columns == ColumnTypes::Untyped && !text.contains(u'.') && qIsFinite(number)) {
        const auto exponent = text.indexOf(u'e');
        text.insert(exponent < 0 ? text.size() : exponent, u".0");
    }
    return text;
}

Cell cellOf(const QVariant& value, bool isNumberColumn, ColumnTypes columns) {
    if (value.isNull()) return {};
    const auto type = value.metaType();
    switch (type.id()) {
        case QMetaType::QByteArray: return {Cell::Kind::Bytes, value.toByteArray().toStdString()};
        case QMetaType::Double:
        case QMetaType::Float: return {Cell::Kind::Number, toText(written(value.toDouble(), columns))};
        case QMetaType::QDate: return {Cell::Kind::Text, toText(value.toDate().toString(Qt::ISODate))};
        case QMetaType::QTime: return {Cell::Kind::Text, toText(value.toTime().toString(Qt::ISODate))};
        case QMetaType::QDateTime:
            return {Cell::Kind::Text, toText(value.toDateTime().toString(u"yyyy-MM-dd hh:mm:ss"_s))};
        default:
            return {isNumber(type) || isNumberColumn ? Cell::Kind::Number : Cell::Kind::Text,
                    toText(value.toString())};
    }
}

std::size_t sizeOf(const std::vector<Cell>& row) {
    std::size_t size = 0;
    for (const auto& cell : row) size += sizeof(Cell) + cell.text.size();
    return size;
}

}  // namespace

QString fromText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string toText(const QString& text) {
    return text.toStdString();
}

std::string wordsOf(const QSqlError& error) {
    const auto words = error.databaseText().trimmed();
    return toText(words.isEmpty() ? error.driverText().trimmed() : words);
}

QVariant numberOrText(std::string_view text) {
    static const QRegularExpression number(uR"(\A-?(0|[1-9][0-9]*)(\.[0-9]+)?\z)"_s);
    const auto value = fromText(text);
    if (!number.match(value).hasMatch()) return value;
    bool isWhole = false;
    const auto whole = value.toLongLong(&isWhole);
    if (isWhole) return whole;
    return value.contains(u'.') ? QVariant(value.toDouble()) : QVariant(value);
}

void readRows(QSqlQuery& query, ColumnTypes columns, const QueryLimits& limits, QueryResult& result) {
    const auto record = query.record();
    const auto count = record.count();
    std::vector<bool> isNumberColumn;
    for (int i = 0; i < count; ++i) {
        result.fields.push_back(toText(record.fieldName(i)));
        isNumberColumn.push_back(columns == ColumnTypes::Typed && isNumber(record.field(i).metaType()));
    }
    std::size_t bytes = 0;
    for (; query.next(); ++result.total) {
        if (result.rows.size() >= limits.rows || bytes >= limits.bytes) continue;
        auto& row = result.rows.emplace_back();
        for (int i = 0; i < count; ++i)
            row.push_back(cellOf(query.value(i), isNumberColumn[static_cast<std::size_t>(i)], columns));
        bytes += sizeOf(row);
    }
    if (query.lastError().isValid()) result.error = wordsOf(query.lastError());
}
