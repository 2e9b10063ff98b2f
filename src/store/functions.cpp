// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/functions.h"

#include "store/error.h"
#include "store/function_table.h"

#include <QVarLengthArray>

#include <sqlite3.h>

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace ostrand::store {

namespace {

using functions::Arguments;
using functions::Entry;
using functions::Nulls;

Value valueOf(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return Value(qint64{sqlite3_value_int64(value)});
    case SQLITE_FLOAT:
        return Value(sqlite3_value_double(value));
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const auto* text = static_cast<const char*>(sqlite3_value_blob(value));
    return Value(QString::fromUtf8(text, sqlite3_value_bytes(value)));
}

void setResult(sqlite3_context* context, const Value& value)
{
    if (value.isNull()) {
        sqlite3_result_null(context);
    } else if (value.isInteger()) {
        sqlite3_result_int64(context, value.integer());
    } else if (value.isReal()) {
        sqlite3_result_double(context, value.number());
    } else {
        const QByteArray text = value.text().toUtf8();
        sqlite3_result_text64(context,
                              text.constData(),
                              static_cast<sqlite3_uint64>(text.size()),
                              SQLITE_TRANSIENT,
                              SQLITE_UTF8);
    }
}

Value result(const Entry& entry, int count, sqlite3_value** values)
{
    if (count < entry.least || (entry.most >= 0 && count > entry.most))
        functions::refuseArgument(entry.name);
    QVarLengthArray<Value, 8> arguments;
    for (int i = 0; i < count; ++i)
        arguments.append(valueOf(values[i]));
    const bool hasNull = std::any_of(
        arguments.begin(), arguments.end(), [](const Value& value) { return value.isNull(); });
    if (hasNull && entry.nulls == Nulls::Pass)
        return {};
    return entry.function(
        Arguments(arguments.constData(), static_cast<std::size_t>(arguments.size())));
}

/// What SQLite calls: nothing may be thrown through it.
void call(sqlite3_context* context, int count, sqlite3_value** values)
{
    const auto* entry = static_cast<const Entry*>(sqlite3_user_data(context));
    try {
        setResult(context, result(*entry, count, values));
    } catch (const Error& error) {
        sqlite3_result_error(context, error.what(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void registerEntries(sqlite3* connection, std::span<const Entry> entries)
{
    for (const Entry& entry : entries) {
        const int count = entry.least == entry.most ? entry.most : -1;
        const int code =
            sqlite3_create_function_v2(connection,
                                       entry.name,
                                       count,
                                       SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                       const_cast<Entry*>(&entry),
                                       call,
                                       nullptr,
                                       nullptr,
                                       nullptr);
        if (code != SQLITE_OK)
            throw Error(errors::diskError, QString::fromUtf8(sqlite3_errmsg(connection)));
    }
}

} // namespace

void functions::refuseType()
{
    throw Error(errors::typeMismatch, u"The value is of the wrong type."_s);
}

void functions::refuseArgument(const char* function)
{
    throw Error(errors::invalidArgument,
                u"Invalid argument of %1."_s.arg(QString::fromLatin1(function)));
}

double functions::strictNumber(const Value& value)
{
    if (!value.isText())
        return value.number();
    bool isNumber = false;
    const double number = value.text().trimmed().toDouble(&isNumber);
    if (!isNumber)
        refuseType();
    return number;
}

void registerFunctions(sqlite3* connection)
{
    registerEntries(connection, functions::textFunctions());
    registerEntries(connection, functions::numberFunctions());
    registerEntries(connection, functions::dateFunctions());
    functions::registerAggregates(connection);
    functions::registerLike(connection);
}

} // namespace ostrand::store
