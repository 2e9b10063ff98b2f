// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "pid/run_log.h"
#include "store/error.h"
#include "support/without_root.h"
#include "toolkit/ansi_text.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>

using namespace Qt::StringLiterals;
using namespace ostrand;

namespace {

int writeFailure = 0; ///< what writing any file fails with; 0 lets it be

} // namespace

/// Stands in front of the system's own.
extern "C" ssize_t write(int file, const void* data, size_t size)
{
    if (writeFailure != 0 && file > STDERR_FILENO) {
        errno = writeFailure;
        return -1;
    }
    return ::syscall(SYS_write, file, data, size);
}

class TestRunLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    static void cleanup() { writeFailure = 0; }
    void linesAreInTheFileAtOnce();
    void anOlderLogIsReplaced();
    void aReadOnlyLogIsReplaced();
    void aLogThatCannotBeReplacedIsRefused();
    void aFolderInItsPlaceIsRefused();
    void aLogThatAnotherRunWritesIsRefused();
    void aFolderThatCannotBeWrittenSendsTheLogToTheUsersOwn();
    void textsOfAnyLanguageAreKept();
    void aFullDiskIsRaised_data();
    void aFullDiskIsRaised();
    void endingWithoutALogDoesNothing();

private:
    QString file() const { return m_folder->filePath(u"Import.log"_s); }
    static QString content(const QString& path)
    {
        QFile read(path);
        if (!read.open(QIODevice::ReadOnly))
            return u"none"_s;
        return toolkit::decodeText(read.readAll()).replace(u"\r\n"_s, u"\n"_s);
    }
    static int openFailure(pid::RunLog& log)
    {
        try {
            log.open(u"Import.log"_s);
        } catch (const store::Error& error) {
            return error.number();
        }
        return 0;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestRunLog::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    app::setInstallationFolder(m_folder->path());
}

void TestRunLog::linesAreInTheFileAtOnce()
{
    pid::RunLog log;
    log.open(u"Import.log"_s);
    QCOMPARE(log.path(), file());
    const QRegularExpression first(u"^Log is created at .*\\d.* .*\\d.*\\.\n$"_s);
    QVERIFY2(first.match(content(file())).hasMatch(), qPrintable(content(file())));
    log.line(u"one"_s);
    QVERIFY(content(file()).endsWith(u"\none\n"_s));
    log.end();
    const QRegularExpression all(u"^Log is created at [^\n]*\none\nLog is ended at [^\n]*\\.\n$"_s);
    QVERIFY2(all.match(content(file())).hasMatch(), qPrintable(content(file())));
}

void TestRunLog::anOlderLogIsReplaced()
{
    {
        pid::RunLog log;
        log.open(u"Import.log"_s);
        log.line(u"old"_s);
    }
    pid::RunLog log;
    log.open(u"Import.log"_s);
    QVERIFY(!content(file()).contains(u"old"_s));
}

void TestRunLog::aReadOnlyLogIsReplaced()
{
    QFile old(file());
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    QVERIFY(QFile::setPermissions(file(), QFile::ReadOwner));
    pid::RunLog log;
    QCOMPARE(openFailure(log), 0);
    QVERIFY(content(file()).startsWith(u"Log is created"_s));
}

/// In a folder where files may be taken away by their owners only.
void TestRunLog::aLogThatCannotBeReplacedIsRefused()
{
    if (::geteuid() != 0)
        QSKIP("only the superuser can have a file of another user there");
    QFile old(file());
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    QVERIFY(QFile::setPermissions(file(), QFile::ReadOwner | QFile::ReadOther));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 01777), 0);
    {
        const tests::WithoutRoot user;
        pid::RunLog log;
        QCOMPARE(openFailure(log), 70);
    }
    QCOMPARE(content(file()), u"old"_s);
}

void TestRunLog::aFolderInItsPlaceIsRefused()
{
    QVERIFY(QDir(m_folder->path()).mkpath(u"Import.log/within"_s));
    const QFile::Permissions before = QFile::permissions(file());
    pid::RunLog log;
    QCOMPARE(openFailure(log), 70);
    QVERIFY(QFileInfo(file() + u"/within"_s).isDir());
    QCOMPARE(QFile::permissions(file()), before);
}

void TestRunLog::aLogThatAnotherRunWritesIsRefused()
{
    pid::RunLog first;
    first.open(u"Import.log"_s);
    {
        pid::RunLog second;
        QCOMPARE(openFailure(second), 70);
    }
    first.line(u"goes on"_s);
    QVERIFY(content(file()).endsWith(u"goes on\n"_s));
    first.close();
    pid::RunLog second;
    QCOMPARE(openFailure(second), 0);
}

void TestRunLog::aFolderThatCannotBeWrittenSendsTheLogToTheUsersOwn()
{
    const QTemporaryDir state;
    QCOMPARE(::chmod(QFile::encodeName(state.path()).constData(), 0777), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0555), 0);
    qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
    const auto back = qScopeGuard([] { qunsetenv("XDG_STATE_HOME"); });
    const tests::WithoutRoot user;
    pid::RunLog log;
    QCOMPARE(openFailure(log), 0);
    QCOMPARE(log.path(), state.path() + u"/ostrand-datasheets/Import.log"_s);
}

void TestRunLog::textsOfAnyLanguageAreKept()
{
    pid::RunLog log;
    log.open(u"Import.log"_s);
    log.line(u"Rücklauf 流量 100 % %1"_s);
    QVERIFY(content(file()).endsWith(u"\nRücklauf 流量 100 % %1\n"_s));
}

void TestRunLog::aFullDiskIsRaised_data()
{
    QTest::addColumn<int>("failure");
    QTest::addColumn<int>("number");
    QTest::newRow("full") << ENOSPC << 61;
    QTest::newRow("broken") << EIO << 57;
}

void TestRunLog::aFullDiskIsRaised()
{
    QFETCH(int, failure);
    QFETCH(int, number);
    pid::RunLog log;
    log.open(u"Import.log"_s);
    writeFailure = failure;
    try {
        log.line(u"more"_s);
        QFAIL("no error");
    } catch (const store::Error& error) {
        QCOMPARE(error.number(), number);
    }
    writeFailure = 0;
    log.close();
    QVERIFY(content(file()).startsWith(u"Log is created"_s));
}

void TestRunLog::endingWithoutALogDoesNothing()
{
    pid::RunLog log;
    log.end();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList());
}

QTEST_GUILESS_MAIN(TestRunLog)
#include "tst_run_log.moc"
