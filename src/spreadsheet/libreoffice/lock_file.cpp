// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lock_file.h"

#include "spreadsheet/libreoffice/office_profile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr qint64 longestLock = 4096;

/// The fields of a lock are parted by commas: user, login, host, time, private folder.
constexpr int hostField = 2;
constexpr int folderField = 4;

/// The application writes the name with its domain where it finds one.
bool isThisMachine(const QString& host)
{
    const QString name = QSysInfo::machineHostName();
    return host == name || host.startsWith(name + u'.');
}

QString lockOf(const QString& workbook)
{
    const QFileInfo info(workbook);
    return info.dir().filePath(u".~lock."_s + info.fileName() + u'#');
}

} // namespace

void removeStaleLock(const QString& workbook)
{
    QFile lock(lockOf(workbook));
    if (!lock.open(QIODevice::ReadOnly))
        return;
    const QString content = QString::fromUtf8(lock.read(longestLock)).remove(u';').trimmed();
    const QStringList fields = content.split(u',');
    if (fields.size() <= folderField || !isThisMachine(fields[hostField]))
        return;
    const QString folder = QUrl(fields[folderField]).toLocalFile();
    if (OfficeProfile::isOurs(folder) && !QDir(folder).exists())
        lock.remove();
}

bool isLocked(const QString& workbook)
{
    return QFile::exists(lockOf(workbook));
}

} // namespace ostrand::spreadsheet::libreoffice
