// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/diagnosis.h"

#include "store/odbc/handles.h"
#include "store/sql/syntax_number.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {

template <SQLSMALLINT type>
Handle<type> makeHandle(SQLHANDLE parent)
{
    SQLHANDLE raw = SQL_NULL_HANDLE;
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &raw))) {
        constexpr SQLSMALLINT above = type == SQL_HANDLE_STMT ? SQL_HANDLE_DBC : SQL_HANDLE_ENV;
        throw callError(parent != SQL_NULL_HANDLE ? diagnose(above, parent) : Diagnosis{});
    }
    return Handle<type>(raw);
}

template Handle<SQL_HANDLE_ENV> makeHandle<SQL_HANDLE_ENV>(SQLHANDLE parent);
template Handle<SQL_HANDLE_DBC> makeHandle<SQL_HANDLE_DBC>(SQLHANDLE parent);
template Handle<SQL_HANDLE_STMT> makeHandle<SQL_HANDLE_STMT>(SQLHANDLE parent);

namespace {

struct StateNumber
{
    QLatin1StringView state;
    int number;
};

/// States of the standard, and those that PostgreSQL passes on of its own.
constexpr std::array stateNumbers{
    StateNumber{"42S02"_L1, errors::tableNotFound},
    StateNumber{"42P01"_L1, errors::tableNotFound},
    StateNumber{"42S22"_L1, errors::missingParameter},
    StateNumber{"42703"_L1, errors::missingParameter},
    StateNumber{"42702"_L1, errors::ambiguousName},
    StateNumber{"42883"_L1, errors::undefinedFunction},
};

struct WordsNumber
{
    QLatin1StringView words;
    int number;
};

/// Drivers that answer every slip with one state tell the rest in words.
constexpr std::array wordsNumbers{
    WordsNumber{"no such table"_L1, errors::tableNotFound},
    WordsNumber{"no such column"_L1, errors::missingParameter},
    WordsNumber{"has no column named"_L1, errors::missingParameter},
    WordsNumber{"ambiguous column name"_L1, errors::ambiguousName},
    WordsNumber{"no such function"_L1, errors::undefinedFunction},
};

bool isSyntaxError(const Diagnosis& diagnosis)
{
    static const QStringList states{u"42000"_s, u"42601"_s, u"37000"_s};
    const bool saysSo = diagnosis.words.contains("syntax error"_L1)
                        || diagnosis.words.contains("incomplete input"_L1);
    return states.contains(diagnosis.state) || (diagnosis.state == "HY000"_L1 && saysSo);
}

int numberOf(const Diagnosis& diagnosis, std::optional<sql::Verb> verb)
{
    for (const StateNumber& entry : stateNumbers) {
        if (diagnosis.state == entry.state)
            return entry.number;
    }
    if (diagnosis.state == "HY000"_L1) {
        for (const WordsNumber& entry : wordsNumbers) {
            if (diagnosis.words.contains(entry.words))
                return entry.number;
        }
    }
    if (verb && isSyntaxError(diagnosis))
        return sql::syntaxNumber(*verb);
    return errors::odbcCallFailed;
}

} // namespace

Diagnosis diagnose(SQLSMALLINT handleType, SQLHANDLE handle)
{
    constexpr SQLSMALLINT longest = 4096;
    constexpr SQLSMALLINT mostRecords = 8;
    Diagnosis diagnosis;
    QStringList words;
    for (SQLSMALLINT record = 1; record <= mostRecords; ++record) {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, longest> text{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        const SQLRETURN code = SQLGetDiagRecW(
            handleType, handle, record, state.data(), &native, text.data(), longest, &length);
        if (!SQL_SUCCEEDED(code))
            break;
        if (record == 1)
            diagnosis.state = QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data()));
        const qsizetype given = std::clamp<SQLSMALLINT>(length, 0, longest - 1);
        words << QStringView(text.data(), given).trimmed().toString();
    }
    words.removeDuplicates();
    diagnosis.words = words.join(u' ');
    return diagnosis;
}

Error callError(const Diagnosis& diagnosis, std::optional<sql::Verb> verb)
{
    const int number = numberOf(diagnosis, verb);
    switch (number) {
    case errors::tableNotFound:
        return {number,
                u"The table or query was not found. Make sure that it exists and that its name is "
                u"spelled correctly. %1"_s.arg(diagnosis.words)};
    case errors::missingParameter:
        return {number,
                u"A value is missing: the statement names what is no field of its tables. %1"_s.arg(
                    diagnosis.words)};
    case errors::odbcCallFailed:
        return {number, u"ODBC--call failed. %1"_s.arg(diagnosis.words).trimmed()};
    default:
        return {number, u"The statement is not understood. %1"_s.arg(diagnosis.words)};
    }
}

} // namespace ostrand::store::odbc
