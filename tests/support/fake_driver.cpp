// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// An ODBC driver with no server behind it. It logs in as the key ANSWER of the connect string says
// ("cancel": the user closed the login window; "ok"; anything else fails with that text), calls
// itself a SQL Server, and gives the name of the database that was chosen as its words for every
// statement, all of which fail.
#include <QString>

#include <algorithm>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

QString words; ///< of the next diagnosis
QString asked; ///< the connect string
QString chosen = u"none"_s;

QString textOf(const SQLWCHAR* text, SQLINTEGER length)
{
    const auto* units = reinterpret_cast<const char16_t*>(text);
    return QString::fromUtf16(units, length == SQL_NTS ? -1 : qsizetype{length});
}

SQLSMALLINT give(const QString& text, SQLWCHAR* place, qsizetype units)
{
    if (place != nullptr && units > 0) {
        const qsizetype count = std::min(text.size(), units - 1);
        std::copy_n(text.utf16(), count, place);
        place[count] = 0;
    }
    return static_cast<SQLSMALLINT>(text.size());
}

QString keyOf(const QString& connect, const QString& key)
{
    return connect.section(key + u'=', 1).section(u';', 0, 0);
}

} // namespace

extern "C" {

SQLRETURN
SQLAllocHandle(SQLSMALLINT /*type*/, SQLHANDLE /*parent*/, SQLHANDLE* handle)
{
    static int something = 0;
    *handle = &something;
    return SQL_SUCCESS;
}

SQLRETURN SQLFreeHandle(SQLSMALLINT /*type*/, SQLHANDLE /*handle*/)
{
    return SQL_SUCCESS;
}

SQLRETURN
SQLSetEnvAttr(SQLHENV /*handle*/, SQLINTEGER /*which*/, SQLPOINTER /*value*/, SQLINTEGER /*size*/)
{
    return SQL_SUCCESS;
}

SQLRETURN SQLDriverConnectW(SQLHDBC /*handle*/,
                            SQLHWND /*window*/,
                            SQLWCHAR* text,
                            SQLSMALLINT length,
                            SQLWCHAR* completed,
                            SQLSMALLINT units,
                            SQLSMALLINT* size,
                            SQLUSMALLINT /*prompt*/)
{
    asked = textOf(text, length);
    const QString answer = keyOf(asked, u"ANSWER"_s);
    if (answer == u"cancel"_s)
        return SQL_NO_DATA;
    words = answer + u' ' + asked;
    const SQLSMALLINT given = give(asked + u"APP=x;"_s, completed, units);
    if (size != nullptr)
        *size = given;
    return answer == u"ok"_s ? SQL_SUCCESS : SQL_ERROR;
}

SQLRETURN SQLDisconnect(SQLHDBC /*handle*/)
{
    return SQL_SUCCESS;
}

SQLRETURN SQLGetInfoW(
    SQLHDBC /*handle*/, SQLUSMALLINT which, SQLPOINTER place, SQLSMALLINT bytes, SQLSMALLINT* size)
{
    QString text;
    if (which == SQL_DBMS_NAME)
        text = u"Microsoft SQL Server"_s;
    else if (which == SQL_IDENTIFIER_QUOTE_CHAR)
        text = u"\""_s;
    else if (which == SQL_DRIVER_ODBC_VER)
        text = u"03.00"_s;
    else
        return SQL_ERROR;
    const auto given = give(text, static_cast<SQLWCHAR*>(place), bytes / 2);
    if (size != nullptr)
        *size = static_cast<SQLSMALLINT>(given * 2);
    return SQL_SUCCESS;
}

SQLRETURN
SQLSetConnectAttrW(SQLHDBC /*handle*/, SQLINTEGER which, SQLPOINTER value, SQLINTEGER length)
{
    if (which != SQL_ATTR_CURRENT_CATALOG)
        return SQL_SUCCESS;
    chosen = textOf(static_cast<const SQLWCHAR*>(value),
                    length < 0 ? SQL_NTS : length / SQLINTEGER{sizeof(SQLWCHAR)});
    words = u"no database "_s + chosen;
    return chosen == u"missing"_s ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttrW(SQLHSTMT /*handle*/,
                          SQLINTEGER /*which*/,
                          SQLPOINTER /*value*/,
                          SQLINTEGER /*length*/)
{
    return SQL_SUCCESS;
}

SQLRETURN
SQLGetStmtAttrW(SQLHSTMT /*handle*/,
                SQLINTEGER /*which*/,
                SQLPOINTER value,
                SQLINTEGER /*length*/,
                SQLINTEGER* /*size*/)
{
    static int descriptor = 0;
    *static_cast<SQLPOINTER*>(value) = &descriptor;
    return SQL_SUCCESS;
}

SQLRETURN SQLExecDirectW(SQLHSTMT /*handle*/, SQLWCHAR* text, SQLINTEGER length)
{
    words = u"in "_s + chosen + u": "_s + textOf(text, length);
    return SQL_ERROR;
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT /*type*/,
                         SQLHANDLE /*handle*/,
                         SQLSMALLINT record,
                         SQLWCHAR* state,
                         SQLINTEGER* native,
                         SQLWCHAR* text,
                         SQLSMALLINT units,
                         SQLSMALLINT* size)
{
    if (record != 1)
        return SQL_NO_DATA;
    give(u"HY000"_s, state, 6);
    *native = 0;
    const SQLSMALLINT given = give(words, text, units);
    if (size != nullptr)
        *size = given;
    return SQL_SUCCESS;
}

/// The driver manager asks no driver for words that lacks this.
SQLRETURN SQLGetDiagFieldW(SQLSMALLINT /*type*/,
                           SQLHANDLE /*handle*/,
                           SQLSMALLINT /*record*/,
                           SQLSMALLINT /*which*/,
                           SQLPOINTER /*value*/,
                           SQLSMALLINT /*bytes*/,
                           SQLSMALLINT* /*size*/)
{
    return SQL_NO_DATA;
}
}
