// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/database.h"

#include "store/backend.h"
#include "store/odbc/open_source.h"
#include "store/recordset.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::store {

Database::Database(std::shared_ptr<Backend> backend)
    : m_backend(std::move(backend))
{
}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

const std::shared_ptr<Backend>& Database::backend() const
{
    if (!m_backend)
        throw Error(errors::objectClosed, u"The database is closed."_s);
    return m_backend;
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& sqlOrName) const
{
    return backend()->openRecordset(sqlOrName);
}

std::unique_ptr<Recordset> Database::OpenSnapshot(const QString& select) const
{
    return backend()->openSnapshot(select);
}

void Database::Execute(const QString& sql, RefusedRows refused) const
{
    backend()->execute(sql, refused);
}

void Database::ExecutePassThrough(const QString& sql) const
{
    backend()->executePassThrough(sql);
}

void Database::Close()
{
    m_backend.reset();
}

QString Database::Name() const
{
    return backend()->name();
}

QString Database::Connect() const
{
    return backend()->connect();
}

Database::ReadScope Database::readScope() const
{
    return ReadScope(backend());
}

Database::ReadScope::ReadScope(std::shared_ptr<Backend> backend)
    : m_backend(std::move(backend))
{
    m_backend->beginRead();
}

Database::ReadScope::~ReadScope()
{
    m_backend->endRead();
}

Database::WriteScope Database::writeScope() const
{
    return WriteScope(backend());
}

Database::WriteScope::WriteScope(std::shared_ptr<Backend> backend)
    : m_backend(std::move(backend))
{
    m_backend->beginWrite();
}

Database::WriteScope::~WriteScope()
{
    try {
        Commit();
    } catch (const Error&) {
        // Whoever must know of it commits by himself.
        return;
    }
}

void Database::WriteScope::Commit()
{
    if (const auto backend = std::exchange(m_backend, nullptr))
        backend->commitWrite();
}

Database DBEngine::OpenDatabase(const QString& path, Access access)
{
    return Database(openFileBackend(path, access == Access::ReadOnly));
}

Database
DBEngine::OpenDatabase(const QString& name, int options, bool readOnly, const QString& connect)
{
    return Database(odbc::openSource(name, options, readOnly, connect));
}

} // namespace ostrand::store
