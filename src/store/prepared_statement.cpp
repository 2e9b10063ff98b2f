// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/connection.h"

namespace ostrand::store {

PreparedStatement::PreparedStatement(Connection& connection, const QByteArray& sql, sql::Verb verb)
    : m_connection(&connection),
      m_verb(verb)
{
    prepare(sql);
}

PreparedStatement::PreparedStatement(Connection& connection, const QByteArray& sql)
    : m_connection(&connection),
      m_own(true)
{
    const Connection::OwnScope own(connection);
    prepare(sql);
}

void PreparedStatement::prepare(const QByteArray& sql)
{
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(m_connection->handle(),
                                        sql.constData(),
                                        static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT,
                                        &statement,
                                        nullptr);
    m_handle.reset(statement);
    if (code != SQLITE_OK)
        raiseSqliteError(m_connection->handle(), code, m_verb);
}

void PreparedStatement::bind(int parameter, const Value& value)
{
    sqlite3_stmt* statement = m_handle.get();
    if (value.isNull())
        sqlite3_bind_null(statement, parameter);
    else if (value.isInteger())
        sqlite3_bind_int64(statement, parameter, value.integer());
    else if (value.isReal())
        sqlite3_bind_double(statement, parameter, value.number());
    else {
        const QByteArray utf8 = value.text().toUtf8();
        sqlite3_bind_text64(statement,
                            parameter,
                            utf8.constData(),
                            static_cast<sqlite3_uint64>(utf8.size()),
                            SQLITE_TRANSIENT, // NOLINT(performance-no-int-to-ptr)
                            SQLITE_UTF8);
    }
}

void PreparedStatement::bindAll(const QStringList& texts)
{
    for (qsizetype i = 0; i < texts.size(); ++i)
        bind(static_cast<int>(i) + 1, texts[i]);
}

bool PreparedStatement::step()
{
    std::optional<Connection::OwnScope> own;
    if (m_own)
        own.emplace(*m_connection);
    const int code = sqlite3_step(m_handle.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    try {
        raiseSqliteError(m_connection->handle(), code, m_verb);
    } catch (...) {
        reset();
        throw;
    }
}

void PreparedStatement::reset() noexcept
{
    sqlite3_reset(m_handle.get());
}

Value PreparedStatement::column(int index) const
{
    sqlite3_stmt* statement = m_handle.get();
    switch (sqlite3_column_type(statement, index)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return qint64{sqlite3_column_int64(statement, index)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, index);
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
        return QString::fromUtf8(text, sqlite3_column_bytes(statement, index));
    }
    }
}

} // namespace ostrand::store
