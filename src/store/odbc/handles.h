// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace ostrand::store::odbc {

template <SQLSMALLINT type>
struct FreeHandle
{
    void operator()(SQLHANDLE handle) const { SQLFreeHandle(type, handle); }
};

template <SQLSMALLINT type>
using Handle = std::unique_ptr<void, FreeHandle<type>>;

/// Makes a handle below another one. Raises 3146 when the driver manager refuses.
template <SQLSMALLINT type>
Handle<type> makeHandle(SQLHANDLE parent);

extern template Handle<SQL_HANDLE_ENV> makeHandle<SQL_HANDLE_ENV>(SQLHANDLE parent);
extern template Handle<SQL_HANDLE_DBC> makeHandle<SQL_HANDLE_DBC>(SQLHANDLE parent);
extern template Handle<SQL_HANDLE_STMT> makeHandle<SQL_HANDLE_STMT>(SQLHANDLE parent);

/// Drivers take their texts through pointers to what they promise not to change.
inline SQLWCHAR* driverText(const QString& text)
{
    return const_cast<SQLWCHAR*>(text.utf16());
}

/// A whole number as drivers take attributes.
inline SQLPOINTER driverNumber(quintptr number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr)
}

} // namespace ostrand::store::odbc
