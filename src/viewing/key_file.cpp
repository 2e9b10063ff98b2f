// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/key_file.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

/// No such file is of this size.
constexpr qint64 mostBytes = 4'000'000;

/// What a backslash and the letter behind it stand for; an unknown pair stands for itself.
QString unescaped(QChar letter)
{
    switch (letter.unicode()) {
    case u's':
        return u" "_s;
    case u'n':
        return u"\n"_s;
    case u't':
        return u"\t"_s;
    case u'r':
        return u"\r"_s;
    case u'\\':
        return u"\\"_s;
    case u';':
        return u";"_s;
    default:
        return u"\\"_s + letter;
    }
}

/// The parts of a raw value between bare semicolons, with their escapes resolved.
QStringList parts(const QString& raw, bool splits)
{
    QStringList found{QString()};
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == u'\\' && i + 1 < raw.size())
            found.last() += unescaped(raw[++i]);
        else if (raw[i] == u';' && splits)
            found << QString();
        else
            found.last() += raw[i];
    }
    return found;
}

} // namespace

std::optional<KeyFile> KeyFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    KeyFile read;
    QString group;
    for (const QString& line : QString::fromUtf8(file.read(mostBytes)).split(u'\n'))
        read.addLine(line.trimmed(), group);
    return read;
}

void KeyFile::addLine(const QString& line, QString& group)
{
    if (line.isEmpty() || line.startsWith(u'#'))
        return;
    if (line.startsWith(u'[') && line.endsWith(u']')) {
        group = line.mid(1, line.size() - 2);
        return;
    }
    const qsizetype equals = line.indexOf(u'=');
    if (equals <= 0)
        return;
    QHash<QString, QString>& keys = m_groups[group];
    const QString key = line.first(equals).trimmed();
    if (!keys.contains(key))
        keys.insert(key, line.mid(equals + 1).trimmed());
}

QString KeyFile::text(const QString& group, const QString& key) const
{
    return parts(m_groups.value(group).value(key), false).first();
}

QStringList KeyFile::list(const QString& group, const QString& key) const
{
    QStringList items = parts(m_groups.value(group).value(key), true);
    items.removeAll(QString());
    return items;
}

bool KeyFile::flag(const QString& group, const QString& key) const
{
    return text(group, key) == u"true"_s;
}

} // namespace ostrand::viewing
