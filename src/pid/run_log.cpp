// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/run_log.h"

#include "app/program_files.h"
#include "pid/short_stamp.h"
#include "toolkit/ansi_text.h"
#include "toolkit/file_system.h"

#include <QCoreApplication>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#endif

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

/// Takes the file for this program as long as it is open; false where another one has it.
bool take([[maybe_unused]] const QFile& file)
{
#ifdef Q_OS_UNIX
    return ::flock(file.handle(), LOCK_EX | LOCK_NB) == 0;
#else
    return true; // an open file cannot be deleted there
#endif
}

/// A run of another program may be writing into the file.
bool isTaken(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && !take(file);
}

[[noreturn]] void raiseDenied()
{
    throw store::Error(toolkit::fileErrors::permissionDenied,
                       QCoreApplication::translate("pid", "Permission denied"));
}

} // namespace

void RunLog::open(const QString& name)
{
    m_file.setFileName(app::writableProgramFile(name));
    if (isTaken(m_file.fileName()))
        raiseDenied();
    if (QFileInfo(m_file).isFile() && !m_file.remove()) {
        m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        if (!m_file.remove())
            raiseDenied();
    }
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !take(m_file))
        raiseDenied();
    line(QCoreApplication::translate("pid", "Log is created at ") + shortStamp());
}

void RunLog::line(const QString& text)
{
    const QString whole = text + u"\r\n"_s;
    const QByteArray bytes = toolkit::encodeAnsi(whole).value_or(whole.toUtf8());
    if (m_file.write(bytes) == bytes.size())
        return;
    const bool full = m_file.error() == QFileDevice::ResourceError;
    throw store::Error(full ? toolkit::fileErrors::diskFull : toolkit::fileErrors::deviceError,
                       m_file.errorString());
}

void RunLog::end()
{
    if (!m_file.isOpen())
        return;
    line(QCoreApplication::translate("pid", "Log is ended at ") + shortStamp());
    close();
}

void RunLog::close()
{
    m_file.close();
}

} // namespace ostrand::pid
