// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace ostrand::app {

/// Keeper of the recent project list: four paths in the user's settings, the latest first. Every
/// operation shows its own failures.
class CRegHndlr
{
public:
    /// The four stored values, empty ones included.
    QStringList GetLoc() const;
    /// Removes later entries that repeat an earlier one, compared exactly.
    void chkDuplicate();
    /// Removes entries whose file no longer exists; later ones move up.
    void RemoveEntry();
    /// The four values after `RemoveEntry`.
    QStringList GetIndexLocation();
    /// Reads one text of the system's registry, where the system has one. False with "" when the
    /// key or the value cannot be read. `hive` is its full name, such as HKEY_CLASSES_ROOT.
    bool GetKeyValue(const QString& hive,
                     const QString& subKey,
                     const QString& valueName,
                     QString& value) const;
    /// The latest entry; "" when there is none.
    QString GetLastIndexLocation() const;
    /// Puts a path first. The fourth entry falls off, also where the path was in the list already.
    void SaveIndexLocation(const QString& path);
};

} // namespace ostrand::app
