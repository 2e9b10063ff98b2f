// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/pid_source.h"

#include <QByteArray>
#include <QTemporaryDir>

namespace ostrand::tests {

/// A P&ID database in a file.
class PidFile final : public PidSource
{
public:
    /// With the tables that come with the sample's P&ID database, but without a row.
    PidFile();

    QString path() const override { return m_folder.filePath(QStringLiteral("plant pid.mdb")); }
    void fill(const std::vector<PidRow>& rows) override;
    bool ignoresCase() const override { return true; }

    /// Runs a script through SQLite itself, as another program would.
    void run(const QByteArray& script) const;

private:
    QTemporaryDir m_folder;
};

} // namespace ostrand::tests
