// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

namespace ostrand::pid {

/// The text file that tells what a run did, line by line. Lines are in the file at once.
class RunLog
{
public:
    /// Makes the file anew beside the program, whatever was there, and writes its first line.
    /// Raises 70 where it cannot be written.
    void open(const QString& name);
    /// Raises 61 or 57 when the disk refuses it.
    void line(const QString& text);
    /// Writes the last line and closes the file; nothing where none is open.
    void end();
    /// Closes the file as it is.
    void close();

    QString path() const { return m_file.fileName(); }

private:
    QFile m_file;
};

} // namespace ostrand::pid
