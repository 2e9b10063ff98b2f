// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"

#include "store/error.h"
#include "toolkit/file_system.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>
#include <QSettings>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::app {
namespace {

constexpr int entries = 4;
constexpr int storeUnreadable = 75;

QString keyOf(int entry)
{
    return u"FileLocation/Index"_s + QString::number(entry);
}

void requireStore(const QSettings& settings)
{
    if (settings.status() != QSettings::NoError) {
        throw Error(
            storeUnreadable,
            QCoreApplication::translate("CRegHndlr", "The settings in '%1' are not accessible.")
                .arg(settings.fileName()));
    }
}

QString readEntry(int entry)
{
    const QSettings settings;
    QString path = settings.value(keyOf(entry), QString()).toString();
    // A group of the settings is read no sooner than a value of it is asked for.
    requireStore(settings);
    return path;
}

void writeEntry(int entry, const QString& path)
{
    QSettings settings;
    settings.setValue(keyOf(entry), path);
    settings.sync();
    requireStore(settings);
}

QStringList readEntries()
{
    QStringList list;
    for (int entry = 1; entry <= entries; ++entry)
        list << readEntry(entry);
    return list;
}

void showStoreFailure(const char* text, const Error& error)
{
    toolkit::showFailure(QCoreApplication::translate("CRegHndlr", text) + u"\r\nError "_s
                         + QString::number(error.number()) + u" : "_s + error.description());
}

constexpr const char* updatingFailed =
    QT_TRANSLATE_NOOP("CRegHndlr", "Error while updating index location from registry.");

/// Takes the first entry whose file is gone out of the list.
void removeOneEntry()
{
    const QStringList list = readEntries();
    for (int entry = 1; entry <= entries; ++entry) {
        const QString& path = list[entry - 1];
        if (path.isEmpty() || toolkit::fileExists(path))
            continue;
        for (int later = entry; later < entries; ++later)
            writeEntry(later, list[later]);
        writeEntry(entries, QString());
        return;
    }
}

} // namespace

QStringList CRegHndlr::GetLoc() const
{
    try {
        return readEntries();
    } catch (const Error& error) {
        showStoreFailure(updatingFailed, error);
        return QStringList(entries, QString());
    }
}

void CRegHndlr::RemoveEntry()
{
    try {
        for (int pass = 0; pass < entries; ++pass)
            removeOneEntry();
    } catch (const Error& error) {
        showStoreFailure(updatingFailed, error);
    }
}

QStringList CRegHndlr::GetIndexLocation()
{
    try {
        RemoveEntry();
        return readEntries();
    } catch (const Error& error) {
        showStoreFailure(
            QT_TRANSLATE_NOOP("CRegHndlr", "Error while reading index location from registry."),
            error);
        return QStringList(entries, QString());
    }
}

bool CRegHndlr::GetKeyValue(const QString& hive,
                            const QString& subKey,
                            const QString& valueName,
                            QString& value) const
{
    // Where there is no registry, no such key is found.
    const QSettings key(hive + u'\\' + subKey, QSettings::NativeFormat);
    const QString name = valueName.isEmpty() ? u"Default"_s : valueName;
    value = key.value(name, QString()).toString();
    return key.status() == QSettings::NoError && key.contains(name);
}

QString CRegHndlr::GetLastIndexLocation() const
{
    try {
        return readEntry(1);
    } catch (const Error& error) {
        showStoreFailure(QT_TRANSLATE_NOOP(
                             "CRegHndlr", "Error while reading last index location from registry."),
                         error);
        return {};
    }
}

void CRegHndlr::SaveIndexLocation(const QString& path)
{
    try {
        const QStringList list = GetIndexLocation();
        if (list.first() != path) {
            for (int entry = 2; entry <= entries; ++entry)
                writeEntry(entry, list[entry - 2]);
        }
        writeEntry(1, path);
        chkDuplicate();
    } catch (const Error& error) {
        showStoreFailure(
            QT_TRANSLATE_NOOP("CRegHndlr", "Error while saving index location from registry."),
            error);
    }
}

void CRegHndlr::chkDuplicate()
{
    try {
        const QStringList list = readEntries();
        for (int i = 1; i <= 2; ++i) {
            for (int j = i + 1; j <= entries; ++j) {
                if (list[i - 1] != readEntry(j))
                    continue;
                if (j == 3) {
                    const bool hasFourth = !readEntry(4).isEmpty();
                    writeEntry(3, hasFourth ? list[3] : QString());
                    if (hasFourth)
                        writeEntry(4, QString());
                } else if (j == 4) {
                    writeEntry(4, QString());
                }
            }
        }
    } catch (const Error& error) {
        showStoreFailure(QT_TRANSLATE_NOOP("CRegHndlr", "Unable to edit the regisrty"), error);
    }
}

} // namespace ostrand::app
