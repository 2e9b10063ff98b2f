// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/sqlite_file.h"

#include "store/collation.h"
#include "store/functions.h"

#include <stdexcept>

namespace ostrand::maker {
namespace {

[[noreturn]] void raise(sqlite3* connection, std::string_view origin)
{
    throw std::runtime_error(std::string(origin) + ": " + sqlite3_errmsg(connection));
}

} // namespace

SqliteFile::SqliteFile(const std::filesystem::path& path)
{
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        raise(handle, path.string());
    // Without these a misspelled name in double quotes would pass as a text.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    store::registerCollation(handle);
    store::registerFunctions(handle);
}

void SqliteFile::run(const std::string& script, std::string_view origin)
{
    if (sqlite3_exec(m_handle.get(), script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(m_handle.get(), origin);
}

SqliteStatement::SqliteStatement(const SqliteFile& file, const std::string& sql)
{
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v2(file.handle(), sql.c_str(), -1, &handle, nullptr) != SQLITE_OK)
        raise(file.handle(), sql);
    m_handle.reset(handle);
}

void SqliteStatement::bind(int parameter, std::string_view text)
{
    sqlite3_bind_text64(
        m_handle.get(), parameter + 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void SqliteStatement::bindNumber(int parameter, sqlite3_int64 number)
{
    sqlite3_bind_int64(m_handle.get(), parameter + 1, number);
}

void SqliteStatement::bindReal(int parameter, double number)
{
    sqlite3_bind_double(m_handle.get(), parameter + 1, number);
}

void SqliteStatement::bindNull(int parameter)
{
    sqlite3_bind_null(m_handle.get(), parameter + 1);
}

void SqliteStatement::bindTextOrNull(int parameter, std::string_view text)
{
    if (text.empty())
        bindNull(parameter);
    else
        bind(parameter, text);
}

void SqliteStatement::run()
{
    const int result = sqlite3_step(m_handle.get());
    if (result != SQLITE_DONE && result != SQLITE_ROW)
        fail();
    sqlite3_reset(m_handle.get());
}

bool SqliteStatement::step()
{
    const int result = sqlite3_step(m_handle.get());
    if (result != SQLITE_DONE && result != SQLITE_ROW)
        fail();
    return result == SQLITE_ROW;
}

std::string SqliteStatement::text(int column) const
{
    const unsigned char* text = sqlite3_column_text(m_handle.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_handle.get(), column));
    return text ? std::string(text, text + size) : std::string();
}

void SqliteStatement::fail() const
{
    sqlite3* connection = sqlite3_db_handle(m_handle.get());
    raise(connection, sqlite3_sql(m_handle.get()));
}

} // namespace ostrand::maker
