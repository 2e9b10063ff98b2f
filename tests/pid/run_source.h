// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <memory>

namespace ostrand::tests {

/// A P&ID database that datasheets are filled from and that takes their values. Its instrument
/// table has the columns FUNCTION_, TAG_, SERVICE_, MODEL_ and REMARKS_ of texts, COUNT_ of
/// numbers, MADE_ of dates and SAFE_ of truth values.
class RunSource
{
public:
    RunSource() = default;
    virtual ~RunSource() = default;
    RunSource(const RunSource&) = delete;
    RunSource& operator=(const RunSource&) = delete;

    /// What the project names it by.
    virtual QString path() const = 0;
    /// The instrument table's name.
    virtual QString table() const = 0;
    /// Runs statements of its own language, as another program would.
    virtual void run(const QString& sql) = 0;
    /// Empties it, and makes a server that went away answer again.
    virtual void reset() = 0;
    /// Ends the server at once; nothing of the kind can befall a file.
    virtual void stop() {}

    /// Texts that differ in case alone are equal to it.
    virtual bool ignoresCase() const = 0;

    /// Adds an instrument; texts by column.
    void add(const QString& function, const QString& tag, const QMap<QString, QString>& texts = {});
    /// What the field of an instrument holds; "(none)" without one, "(null)" for Null.
    QString stored(const QString& function, const QString& tag, const QString& column) const;
};

/// The kind "file", "sqlite" or "postgres". A process uses sources of one kind only.
std::unique_ptr<RunSource> makeRunSource(QLatin1StringView kind);

} // namespace ostrand::tests
