// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QSet>
#include <QUrl>

#include <algorithm>

namespace ostrand::tests {

/// What a running application has on this machine: its processes, its private folder, its sockets.
class OfficeTraces
{
public:
    /// Looks at the application with this process group, which runs.
    explicit OfficeTraces(qint64 group)
        : m_group(group),
          m_sockets(openSockets())
    {
        const QString words = QString::fromUtf8(
            read(QStringLiteral("/proc/%1/cmdline").arg(group)).replace('\0', ' '));
        m_profile =
            QUrl(words.section(QStringLiteral("-env:UserInstallation="), 1).section(u' ', 0, 0))
                .toLocalFile();
        m_pipe = words.section(QStringLiteral("pipe,name="), 1).section(u';', 0, 0);
        if (m_profile.isEmpty() || m_pipe.isEmpty())
            qFatal("the application does not run");
    }

    QString profile() const { return m_profile; }
    QString pipe() const { return m_pipe; }
    /// The named sockets that it listened on.
    const QStringList& sockets() const { return m_sockets; }
    /// How many of its processes have not ended.
    qsizetype processes() const { return members().size(); }

    bool areGone() const
    {
        return processes() == 0 && !QFile::exists(m_profile)
               && std::none_of(m_sockets.begin(), m_sockets.end(), [](const QString& path) {
                      return QFile::exists(path);
                  });
    }

private:
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList members() const
    {
        QStringList found;
        const QStringList numbers =
            QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
        for (const QString& number : numbers) {
            // Behind the name, in brackets: state, parent, group.
            const QByteArray line = read(QStringLiteral("/proc/%1/stat").arg(number));
            const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
            if (fields.size() > 2 && fields[0] != "Z" && fields[2].toLongLong() == m_group)
                found << number;
        }
        return found;
    }

    QStringList openSockets() const
    {
        QSet<QString> own;
        for (const QString& number : members()) {
            const QDir files(QStringLiteral("/proc/%1/fd").arg(number));
            const QStringList entries = files.entryList(QDir::Files | QDir::System);
            for (const QString& entry : entries) {
                // Such as "socket:[4711]".
                const QString target = QFile(files.filePath(entry)).symLinkTarget();
                own << target.section(u'[', 1).section(u']', 0, 0);
            }
        }
        QSet<QString> paths;
        const QList<QByteArray> lines = read(QStringLiteral("/proc/net/unix")).split('\n');
        for (const QByteArray& line : lines) {
            const QList<QByteArray> fields = line.simplified().split(' ');
            if (fields.size() > 7 && fields[7].startsWith('/')
                && own.contains(QString::fromUtf8(fields[6])))
                paths << QString::fromUtf8(fields[7]);
        }
        return paths.values();
    }

    qint64 m_group;
    QString m_profile;
    QString m_pipe;
    QStringList m_sockets;
};

} // namespace ostrand::tests
