// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/postgres_server.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <arpa/inet.h>
#include <csignal>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

int freePort()
{
    const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* place = reinterpret_cast<sockaddr*>(&address);
    if (::bind(handle, place, size) != 0 || ::getsockname(handle, place, &size) != 0)
        qFatal("there is no free port");
    ::close(handle);
    return ntohs(address.sin_port);
}

/// The folder of the newest installed server.
QString programsFolder()
{
    const QDir root(u"/usr/lib/postgresql"_s);
    QString newest;
    for (const QString& version : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (version.toInt() >= newest.toInt())
            newest = version;
    }
    if (newest.isEmpty())
        qFatal("PostgreSQL is not installed");
    return root.filePath(newest + u"/bin"_s);
}

/// The server refuses to run for the superuser.
const passwd* serverUser()
{
    return ::geteuid() == 0 ? ::getpwnam("postgres") : nullptr;
}

void finish(QProcess& process)
{
    constexpr int milliseconds = 60000;
    if (!process.waitForFinished(milliseconds) || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(process.program()), process.readAllStandardError().constData());
}

} // namespace

PostgresServer::PostgresServer()
    : m_port(freePort()),
      m_programs(programsFolder())
{
    if (const passwd* user = serverUser();
        user != nullptr
        && ::chown(QFile::encodeName(m_data.path()).constData(), user->pw_uid, user->pw_gid) != 0)
        qFatal("cannot give the folder away");
    writeSource({u"Driver=PostgreSQL Unicode"_s,
                 u"Servername=127.0.0.1"_s,
                 u"Port="_s + QString::number(m_port),
                 u"Database=plant"_s,
                 u"UserName=postgres"_s,
                 u"BoolsAsChar=0"_s});
    QProcess maker;
    asServerUser(maker);
    maker.start(m_programs + u"/initdb"_s,
                {u"-D"_s,
                 m_data.filePath(u"db"_s),
                 u"--no-sync"_s,
                 u"-A"_s,
                 u"trust"_s,
                 u"-U"_s,
                 u"postgres"_s,
                 u"-E"_s,
                 u"UTF8"_s,
                 u"--locale=C"_s});
    finish(maker);
    start();
    QProcess tool;
    tool.start(m_programs + u"/createdb"_s,
               {u"-h"_s,
                u"127.0.0.1"_s,
                u"-p"_s,
                QString::number(m_port),
                u"-U"_s,
                u"postgres"_s,
                u"-T"_s,
                u"template0"_s,
                u"plant"_s});
    finish(tool);
}

PostgresServer::~PostgresServer()
{
    stop();
}

void PostgresServer::asServerUser(QProcess& process) const
{
    const passwd* user = serverUser();
    const bool changes = user != nullptr;
    const uid_t uid = changes ? user->pw_uid : ::getuid();
    const gid_t gid = changes ? user->pw_gid : ::getgid();
    process.setWorkingDirectory(m_data.path());
    process.setChildProcessModifier([changes, uid, gid] {
        if (changes && (::setgid(gid) != 0 || ::setuid(uid) != 0))
            ::_exit(1);
        ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
    });
}

void PostgresServer::start()
{
    if (m_server.state() != QProcess::NotRunning)
        return;
    asServerUser(m_server);
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(m_programs + u"/postgres"_s,
                   {u"-D"_s,
                    m_data.filePath(u"db"_s),
                    u"-h"_s,
                    u"127.0.0.1"_s,
                    u"-p"_s,
                    QString::number(m_port),
                    u"-k"_s,
                    m_data.path(),
                    u"-F"_s,
                    u"-c"_s,
                    u"log_min_messages=fatal"_s});
    constexpr qint64 longest = 60000;
    QElapsedTimer timer;
    timer.start();
    const QString stateFile = m_data.filePath(u"db/postmaster.pid"_s);
    for (;;) {
        QFile file(stateFile);
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains("ready"))
            return;
        if (m_server.waitForFinished(20) || timer.elapsed() > longest)
            qFatal("the server does not start: %s", m_server.readAll().constData());
    }
}

void PostgresServer::stop()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    resume();
    ::kill(static_cast<pid_t>(m_server.processId()), SIGQUIT);
    if (!m_server.waitForFinished()) {
        m_server.kill();
        m_server.waitForFinished();
    }
    QFile::remove(m_data.filePath(u"db/postmaster.pid"_s));
}

void PostgresServer::signalAll(int signal) const
{
    const QString id = QString::number(m_server.processId());
    QFile file(u"/proc/"_s + id + u"/task/"_s + id + u"/children"_s);
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& child : file.readAll().split(' ')) {
            if (const int process = child.trimmed().toInt(); process > 0)
                ::kill(process, signal);
        }
    }
    ::kill(static_cast<pid_t>(m_server.processId()), signal);
}

void PostgresServer::freeze()
{
    signalAll(SIGSTOP);
}

void PostgresServer::resume()
{
    signalAll(SIGCONT);
}

void PostgresServer::run(const QString& sql)
{
    QProcess tool;
    tool.start(m_programs + u"/psql"_s,
               {u"-h"_s,
                u"127.0.0.1"_s,
                u"-p"_s,
                QString::number(m_port),
                u"-U"_s,
                u"postgres"_s,
                u"-d"_s,
                u"plant"_s,
                u"-q"_s,
                u"-X"_s,
                u"-v"_s,
                u"ON_ERROR_STOP=1"_s,
                u"-f"_s,
                u"-"_s});
    if (!tool.waitForStarted())
        qFatal("psql does not start");
    tool.write(sql.toUtf8());
    tool.closeWriteChannel();
    finish(tool);
}

} // namespace ostrand::tests
