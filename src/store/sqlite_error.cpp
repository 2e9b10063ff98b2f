// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What SQLite's result codes and messages mean as the engine's error numbers.
#include "store/connection.h"
#include "store/sql/syntax_number.h"

#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

QString afterColon(const QString& message)
{
    return message.section(u':', 1).trimmed();
}

/// SQLITE_ERROR covers everything that is wrong with a statement; its message tells what.
Error statementError(const QString& message, std::optional<sql::Verb> verb)
{
    if (message.startsWith("no such table"_L1)) {
        return {
            errors::tableNotFound,
            u"The table or query '%1' was not found. Make sure that it exists and that its name "
            u"is spelled correctly."_s.arg(afterColon(message).remove("main."_L1))};
    }
    if (message.startsWith("no such column"_L1)) {
        return {
            errors::missingParameter,
            u"A value is missing: the statement names '%1', which is no field of its tables."_s.arg(
                afterColon(message))};
    }
    if (message.contains("has no column named"_L1)) {
        return {errors::unknownField, u"The statement names an unknown field: %1."_s.arg(message)};
    }
    if (message.startsWith("no such function"_L1)) {
        return {errors::undefinedFunction,
                u"The function '%1' is not defined."_s.arg(afterColon(message))};
    }
    if (message.startsWith("ambiguous column name"_L1)) {
        return {errors::ambiguousName,
                u"The field '%1' could belong to more than one table of the statement."_s.arg(
                    afterColon(message))};
    }
    if (message.contains("values for"_L1) || message.contains("values were supplied"_L1)) {
        return {errors::valueCountDiffers,
                u"The number of values differs from the number of fields."_s};
    }
    if (message.startsWith("cannot modify"_L1)) {
        return {errors::queryNotUpdatable, u"The query's rows cannot be changed."_s};
    }
    return {verb ? sql::syntaxNumber(*verb) : errors::invalidExpression,
            u"The statement is not understood: %1."_s.arg(message)};
}

/// The rules on the length of a field are named by their condition, all others by what they ask
/// for.
Error ruleError(const QString& rule)
{
    static const QRegularExpression length(uR"re(^length\("?([^"]+)"?\)\s*(<=|>)\s*(\d+)$)re"_s);
    const QRegularExpressionMatch found = length.match(rule);
    if (!found.hasMatch())
        return {errors::valueRefused, u"The value is refused by the rule %1."_s.arg(rule)};
    const QString field = found.captured(1);
    if (found.captured(2) == ">"_L1) {
        return {errors::zeroLengthNotAllowed,
                u"The field %1 cannot hold an empty text."_s.arg(field)};
    }
    return {errors::valueTooLong,
            u"The value is too long for the field %1, which holds %2 characters."_s.arg(
                field, found.captured(3))};
}

Error constraintError(int code, const QString& message, std::optional<sql::Verb> verb)
{
    const QString what = afterColon(message);
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return {errors::duplicateKey,
                u"The change was not made: another record has the same key (%1)."_s.arg(what)};
    case SQLITE_CONSTRAINT_NOTNULL:
        return {errors::nullNotAllowed, u"The field '%1' must have a value."_s.arg(what)};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
    case SQLITE_CONSTRAINT_TRIGGER:
        if (verb == sql::Verb::Delete) {
            return {errors::parentHasChildren,
                    u"The record cannot be deleted or changed: other records refer to it."_s};
        }
        return {errors::parentMissing,
                u"The record cannot be added or changed: it refers to a record that does not "
                u"exist."_s};
    case SQLITE_CONSTRAINT_DATATYPE:
        return {errors::typeMismatch, u"The value is of the wrong type: %1."_s.arg(message)};
    default:
        break;
    }
    return ruleError(what);
}

struct FileError
{
    int code;
    int number;
    QLatin1StringView words;
};

constexpr std::array fileErrors{
    FileError{SQLITE_BUSY, errors::locked, "The file is locked by another program or user."_L1},
    FileError{SQLITE_LOCKED, errors::locked, "The table is in use and locked."_L1},
    FileError{SQLITE_READONLY, errors::readOnly, "The database or its folder is read-only."_L1},
    FileError{SQLITE_FULL, errors::diskFull, "There is not enough space on the disk."_L1},
    FileError{SQLITE_IOERR, errors::diskError, "The disk or the network failed."_L1},
    FileError{SQLITE_CORRUPT, errors::damagedFile, "The database file is damaged."_L1},
    FileError{SQLITE_NOTADB, errors::unrecognizedFormat, "The file is no database."_L1},
    FileError{SQLITE_CANTOPEN, errors::fileNotFound, "The file cannot be opened."_L1},
    FileError{SQLITE_AUTH,
              errors::notAStatement,
              "Only SELECT, INSERT, UPDATE and DELETE are allowed."_L1},
    FileError{SQLITE_TOOBIG, errors::valueTooLong, "The value is too long."_L1},
    FileError{SQLITE_NOMEM, errors::outOfMemory, "There is not enough memory."_L1},
};

} // namespace

void raiseSqliteError(sqlite3* connection, int code, std::optional<sql::Verb> verb)
{
    const QString message = connection ? QString::fromUtf8(sqlite3_errmsg(connection)) : QString();
    const int primary = code & 0xFF;
    if (primary == SQLITE_CONSTRAINT)
        throw constraintError(code, message, verb);
    for (const FileError& error : fileErrors) {
        if (error.code == primary)
            throw Error(error.number, QString(error.words));
    }
    throw statementError(message, verb);
}

} // namespace ostrand::store
