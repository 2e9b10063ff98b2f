// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/run_log.h"

#include "app/program_files.h"
#include "pid/short_stamp.h"
#include "toolkit/file_system.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

[[noreturn]] void raiseDenied()
{
    throw store::Error(toolkit::fileErrors::permissionDenied,
                       QCoreApplication::translate("pid", "Permission denied"));
}

} // namespace

void RunLog::open(const QString& name)
{
    m_file.setFileName(app::writableProgramFile(name));
    if (QFileInfo(m_file).isFile() && !m_file.remove()) {
        m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        if (!m_file.remove())
            raiseDenied();
    }
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Unbuffered))
        raiseDenied();
    line(QCoreApplication::translate("pid", "Log is created at ") + shortStamp());
}

void RunLog::line(const QString& text)
{
    const QByteArray bytes = (text + u'\n').toLocal8Bit();
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
