// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/office_process.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QUrl>
#include <QUuid>

#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Starts the application as the leader of a process group, tells its number, and waits for its
/// end, or for that of the standard input, which comes with the end of this program. Then it tells
/// the last complaint and leaves nothing: the application does not tidy up when it is killed.
constexpr auto guardScript = R"(
profile=$1; pipe=$2; single=$3; shift 3
exec 3<&0
setsid "$@" </dev/null >/dev/null 2>"$profile/log" 3<&- &
office=$!
trap '' PIPE
echo $office
{ read -r _ <&3; kill -KILL -$office; } >/dev/null 2>&1 &
guard=$!
wait $office
kill -KILL -$office $guard 2>/dev/null
grep -v javaldx "$profile/log" | tail -n 1
tries=40
while [ $tries -gt 0 ] && kill -0 -$office 2>/dev/null; do sleep 0.05; tries=$((tries - 1)); done
rm -rf "$profile"
for folder in /tmp /var/tmp; do
    rm -f $folder/OSL_PIPE_*_"$pipe" $folder/OSL_PIPE_*_"$single"
done
)";

constexpr int killTimeout = 5000;

/// The name of the other pipe it listens on, for a second start with the same folder.
QString singlePipeOf(const QString& folderUrl)
{
    const auto* bytes = reinterpret_cast<const char*>(folderUrl.utf16());
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(QByteArrayView(bytes, folderUrl.size() * qsizetype{sizeof(char16_t)}));
    QString name = u"SingleOfficeIPC_"_s;
    for (const char byte : hash.result())
        name += QString::number(static_cast<unsigned char>(byte), 16);
    return name;
}

QString commandOf(const HostSettings& settings)
{
    QString command = settings.program;
    if (command.isEmpty())
        command = u"" OSTRAND_LIBREOFFICE "/program/soffice"_s;
    if (!QFileInfo(command).isExecutable()) {
        throw Error(errors::cannotCreateObject,
                    QCoreApplication::translate("spreadsheet",
                                                "The spreadsheet application LibreOffice Calc is "
                                                "not installed."));
    }
    return command;
}

} // namespace

OfficeProcess::OfficeProcess(const HostSettings& settings)
    : m_pipe(u"ostrand"_s + QUuid::createUuid().toString(QUuid::Id128))
{
    const QString folderUrl = QUrl::fromLocalFile(m_profile.folder()).toString(QUrl::FullyEncoded);
    QStringList words{u"-c"_s,
                      QString::fromLatin1(guardScript),
                      u"sh"_s,
                      m_profile.folder(),
                      m_pipe,
                      singlePipeOf(folderUrl),
                      commandOf(settings),
                      u"-env:UserInstallation="_s + folderUrl,
                      u"--accept=pipe,name=%1;urp;"_s.arg(m_pipe),
                      u"--norestore"_s,
                      u"--nologo"_s,
                      u"--nodefault"_s,
                      u"--nofirststartwizard"_s};
    if (settings.headless)
        words << u"--headless"_s;
    // A break key at the terminal is for this program, and ends the other through it.
    m_guard.setChildProcessModifier([] { ::setsid(); });
    m_guard.setStandardErrorFile(QProcess::nullDevice());
    m_guard.start(u"/bin/sh"_s, words);
    if (!m_guard.waitForStarted())
        throw Error(errors::cannotCreateObject, m_guard.errorString());
}

OfficeProcess::~OfficeProcess()
{
    kill();
}

void OfficeProcess::kill()
{
    m_guard.closeWriteChannel();
    if (waitForEnd(killTimeout))
        return;
    if (group() > 0)
        ::kill(static_cast<pid_t>(-group()), SIGKILL);
    m_guard.kill();
    waitForEnd(killTimeout);
}

qint64 OfficeProcess::group()
{
    if (m_group == 0 && (m_guard.canReadLine() || m_guard.waitForReadyRead(0)))
        m_group = m_guard.readLine().trimmed().toLongLong();
    return m_group;
}

bool OfficeProcess::isRunning() const
{
    return m_guard.state() != QProcess::NotRunning;
}

bool OfficeProcess::waitForEnd(int timeout)
{
    return !isRunning() || m_guard.waitForFinished(timeout);
}

void OfficeProcess::killGroup() const
{
    if (m_group != 0)
        ::kill(static_cast<pid_t>(-m_group), SIGKILL);
}

QString OfficeProcess::lastWords()
{
    group();
    return QString::fromUtf8(m_guard.readAll()).trimmed();
}

} // namespace ostrand::spreadsheet::libreoffice
