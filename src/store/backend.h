// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/database.h"

#include <QString>

#include <memory>

namespace ostrand::store {

/// What stands behind a `Database`: a file or a server. The methods are those of `Database` and
/// raise what is told there.
class Backend
{
public:
    Backend() = default;
    virtual ~Backend() = default;
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;

    virtual std::unique_ptr<Recordset> openRecordset(const QString& sqlOrName) = 0;
    /// Where recordsets are snapshots anyway there is no difference.
    virtual std::unique_ptr<Recordset> openSnapshot(const QString& select)
    {
        return openRecordset(select);
    }
    virtual void execute(const QString& sql, RefusedRows refused) = 0;
    virtual void executePassThrough(const QString& sql) = 0;
    virtual QString name() const = 0;
    virtual QString connect() const = 0;
    virtual void beginRead() = 0;
    virtual void endRead() noexcept = 0;
    /// Where each statement is its own transaction there is nothing to hold together.
    virtual void beginWrite() {}
    virtual void commitWrite() {}
};

/// The statement that a recordset's source stands for is a select, and no bare name.
bool isSelect(const QString& text);

std::shared_ptr<Backend> openFileBackend(const QString& path, bool readOnly);

} // namespace ostrand::store
