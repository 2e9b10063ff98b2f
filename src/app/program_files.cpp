// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program_files.h"

#include "app/program.h"
#include "toolkit/folders.h"
#include "toolkit/paths.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

/// Rights and modes tell too little: the folder may lie on a disk that is mounted for reading.
bool canWriteIn(const QString& folder)
{
    QTemporaryFile probe(toolkit::joinPath(folder, u"write-XXXXXX"_s));
    return probe.open();
}

/// The system's folder for what a program keeps between runs.
QString stateRoot()
{
#ifdef Q_OS_UNIX
    const QString root = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    return QDir::isAbsolutePath(root) ? root : QDir::homePath() + u"/.local/state"_s;
#else
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#endif
}

void requireFolder(const QString& folder)
{
    if (toolkit::folderExists(folder))
        return;
    const QString above = QFileInfo(folder).path();
    if (above != folder)
        requireFolder(above);
    toolkit::createFolder(folder);
}

} // namespace

QString stateFolder()
{
    const QString folder = QDir::cleanPath(stateRoot() + u"/ostrand-datasheets"_s);
    requireFolder(folder);
    return folder;
}

QString writableProgramFile(const QString& name)
{
    const QString folder = installationFolder();
    return toolkit::joinPath(canWriteIn(folder) ? folder : stateFolder(), name);
}

} // namespace ostrand::app
