// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrand::tests {

/// A desktop of its own: nothing is installed there but what a test installs. Its MIME database
/// knows a few types, which end in .osh (a sheet, which is a kind of .osb), .osb, .oso and .ost.gz.
/// Folders, from the first that counts to the last: "config", "etc", "home", "share". To be made
/// before anything asks for a MIME type.
class ScratchDesktop
{
public:
    ScratchDesktop();

    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes a desktop entry into the applications of "home" or "share".
    void entry(const QString& folder, const QString& id, const QByteArray& lines) const;
    /// Writes a list of associations, such as "config/mimeapps.list".
    void list(const QString& name, const QByteArray& lines) const;
    /// Installs a program that notes what it was started with; gives its path.
    QString program(const QString& name) const;
    /// Writes a file in the folder "files"; gives its path.
    QString file(const QString& name) const;
    /// Where a program was started and with what, one after the other: waits until one was. Empty
    /// when none is started for a while.
    QStringList opened() const;
    /// A program was started by now.
    bool hasOpened() const;

private:
    void write(const QString& name, const QByteArray& content) const;

    QTemporaryDir m_folder;
};

} // namespace ostrand::tests
