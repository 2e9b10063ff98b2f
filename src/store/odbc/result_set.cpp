// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/result_set.h"

#include "store/odbc/diagnosis.h"
#include "store/odbc/handles.h"

#include <QDate>
#include <QTime>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

struct Column
{
    QString name;
    SQLSMALLINT type = SQL_UNKNOWN_TYPE;
};

void require(SQLRETURN code, SQLHSTMT statement)
{
    if (!SQL_SUCCEEDED(code))
        throw callError(diagnose(SQL_HANDLE_STMT, statement));
}

std::vector<Column> describe(SQLHSTMT statement)
{
    SQLSMALLINT count = 0;
    require(SQLNumResultCols(statement, &count), statement);
    std::vector<Column> columns;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        std::array<SQLWCHAR, 512> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = SQL_UNKNOWN_TYPE;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        require(SQLDescribeColW(statement,
                                static_cast<SQLUSMALLINT>(i),
                                name.data(),
                                static_cast<SQLSMALLINT>(name.size()),
                                &length,
                                &type,
                                &size,
                                &digits,
                                &nullable),
                statement);
        columns.push_back(
            {QString::fromUtf16(reinterpret_cast<const char16_t*>(name.data())), type});
    }
    return columns;
}

/// One value of fixed size; nothing for Null.
template <typename Number>
std::optional<Number> readFixed(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type)
{
    Number number{};
    SQLLEN length = 0;
    require(SQLGetData(statement, column, type, &number, sizeof number, &length), statement);
    return length == SQL_NULL_DATA ? std::nullopt : std::optional(number);
}

/// Texts come in pieces, as drivers may not know how long they are.
Value readText(SQLHSTMT statement, SQLUSMALLINT column)
{
    std::array<SQLWCHAR, 4096> buffer{};
    constexpr SQLLEN bytes = sizeof buffer;
    QString text;
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN code =
            SQLGetData(statement, column, SQL_C_WCHAR, buffer.data(), bytes, &length);
        if (code == SQL_NO_DATA)
            return text;
        require(code, statement);
        if (length == SQL_NULL_DATA)
            return {};
        const bool goesOn = length == SQL_NO_TOTAL || length >= bytes;
        const qsizetype units =
            goesOn ? qsizetype{buffer.size()} - 1 : qsizetype{length} / qsizetype{sizeof(SQLWCHAR)};
        text += QStringView(buffer.data(), units);
        if (!goesOn)
            return text;
    }
}

/// Exact numbers come as texts, which lose nothing on the way.
Value readExactNumber(SQLHSTMT statement, SQLUSMALLINT column)
{
    constexpr qsizetype digitsOfDouble = 15;
    Value value = readText(statement, column);
    if (value.isNull())
        return value;
    const QString text = value.text().trimmed();
    bool fits = false;
    const qint64 whole = text.toLongLong(&fits);
    if (fits)
        return whole;
    const double real = text.toDouble(&fits);
    return fits && text.size() <= digitsOfDouble + 2 ? Value(real) : Value(text);
}

Value momentText(const QDate& date, const QTime& time)
{
    const QString day = date.toString(u"yyyy-MM-dd"_s);
    if (time == QTime(0, 0))
        return day;
    return QString(day + u' ' + time.toString(u"HH:mm:ss"_s));
}

Value readMoment(SQLHSTMT statement, SQLUSMALLINT column)
{
    const auto stamp = readFixed<SQL_TIMESTAMP_STRUCT>(statement, column, SQL_C_TYPE_TIMESTAMP);
    if (!stamp)
        return {};
    return momentText(QDate(stamp->year, stamp->month, stamp->day),
                      QTime(stamp->hour, stamp->minute, stamp->second));
}

/// A bare time falls on the day that dates count from.
Value readTime(SQLHSTMT statement, SQLUSMALLINT column)
{
    const auto time = readFixed<SQL_TIME_STRUCT>(statement, column, SQL_C_TYPE_TIME);
    if (!time)
        return {};
    return momentText(QDate(1899, 12, 30), QTime(time->hour, time->minute, time->second));
}

template <typename Number>
Value asValue(const std::optional<Number>& number)
{
    return number ? Value(*number) : Value();
}

Value readValue(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT: {
        const auto flag = readFixed<unsigned char>(statement, column, SQL_C_BIT);
        return flag ? Value(*flag != 0) : Value();
    }
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return asValue(readFixed<qint64>(statement, column, SQL_C_SBIGINT));
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return asValue(readFixed<double>(statement, column, SQL_C_DOUBLE));
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return readExactNumber(statement, column);
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return readMoment(statement, column);
    case SQL_TYPE_TIME:
        return readTime(statement, column);
    default:
        return readText(statement, column);
    }
}

Meaning meaningOf(SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
        return Meaning::Flag;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIME:
    case SQL_TYPE_TIMESTAMP:
        return Meaning::Date;
    default:
        return Meaning::Plain;
    }
}

} // namespace

QStringList columnNames(SQLHSTMT statement)
{
    QStringList names;
    for (const Column& column : describe(statement))
        names << column.name;
    return names;
}

ResultSet readAll(SQLHSTMT statement)
{
    const std::vector<Column> columns = describe(statement);
    ResultSet result;
    for (const Column& column : columns) {
        result.names << column.name;
        result.meanings.push_back(meaningOf(column.type));
    }
    for (;;) {
        const SQLRETURN code = SQLFetch(statement);
        if (code == SQL_NO_DATA)
            return result;
        require(code, statement);
        Row row;
        row.reserve(columns.size());
        SQLUSMALLINT place = 0;
        for (const Column& column : columns)
            row.push_back(readValue(statement, ++place, column.type));
        result.rows.push_back(std::move(row));
    }
}

} // namespace ostrand::store::odbc
