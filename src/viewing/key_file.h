// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace ostrand::viewing {

/// A text file of groups, each with keys and their values: the form of desktop entries and of the
/// lists of associations. Of a key that stands twice the first one counts.
class KeyFile
{
public:
    /// Nothing when the file cannot be read.
    static std::optional<KeyFile> read(const QString& path);

    /// A value with its escapes resolved; "" where it is not set.
    QString text(const QString& group, const QString& key) const;
    /// A value that is a list, its items parted by ';'; empty ones are left out.
    QStringList list(const QString& group, const QString& key) const;
    /// True for "true".
    bool flag(const QString& group, const QString& key) const;

private:
    void addLine(const QString& line, QString& group);

    QHash<QString, QHash<QString, QString>> m_groups;
};

} // namespace ostrand::viewing
