// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/key_file.h"
#include "viewing/open_command.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ostrand::viewing {

/// A program as its desktop entry describes it.
class DesktopEntry
{
public:
    /// Nothing when the file cannot be read or describes no program.
    static std::optional<DesktopEntry> read(const QString& path);

    /// The entry stands for none: it only takes others of its name away.
    bool isHidden() const;
    QStringList mimeTypes() const;
    /// How the program opens a file, given by its full path. Nothing where the program is not
    /// installed, or where the entry does not tell how. Raises 53 for a program that runs in a
    /// terminal while there is none to run it in.
    std::optional<OpenCommand> commandFor(const QString& file) const;

private:
    QString text(const QString& key) const;
    QString localizedName() const;

    KeyFile m_keys;
    QString m_path;
};

} // namespace ostrand::viewing
