// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"
#include "spreadsheet/office_traces.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::SaveChanges;
using tests::OfficeFixture;
using tests::OfficeTraces;

namespace {

/// The error that making a link meets; number 0 for none.
spreadsheet::Error errorOfCreating()
{
    try {
        spreadsheet::CreateObject();
        return {0, {}};
    } catch (const spreadsheet::Error& error) {
        return error;
    }
}

int errorOf(const std::function<void()>& calls)
{
    try {
        calls();
        return 0;
    } catch (const spreadsheet::Error& error) {
        return error.number();
    }
}

/// A start command that does something of its own.
QString startCommand(const OfficeFixture& office, const QByteArray& script)
{
    QFile file(office.path(u"start"_s));
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::Permissions(0x7700)))
        qFatal("no start command");
    file.write("#!/bin/sh\n" + script + '\n');
    return file.fileName();
}

void startBy(const QString& program, int timeout = 60000)
{
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR),
                                  .program = program,
                                  .startTimeout = timeout,
                                  .headless = true});
}

/// The private folders in the temporary folder.
QStringList profiles()
{
    return QDir::temp().entryList({u"ostrand-datasheets-*"_s}, QDir::Dirs);
}

/// Counts how often a timer of the main thread fires.
class Ticks
{
public:
    Ticks()
    {
        m_timer.callOnTimeout(&m_timer, [this] { ++m_count; });
        m_timer.start(50);
    }
    int count() const { return m_count; }

private:
    QTimer m_timer;
    int m_count = 0;
};

constexpr auto childWord = "--hold-an-application";

/// What this program does when a test starts it to kill it: it opens a workbook, tells the process
/// group of the application, and stays.
int holdAnApplication(const QString& path)
{
    const OfficeFixture office;
    const auto application = spreadsheet::CreateObject();
    const auto workbook = application->Open(path);
    QTextStream(stdout) << spreadsheet::hostProcess() << Qt::endl;
    return QCoreApplication::exec();
}

constexpr int longWait = 60000; ///< milliseconds that nothing takes unless it waits for ever

/// Every thread of the application stands still when this returns.
void stopHost()
{
    const auto process = spreadsheet::hostProcess();
    ::kill(static_cast<pid_t>(-process), SIGSTOP);
    const QDir threads(u"/proc/%1/task"_s.arg(process));
    const auto stands = [&threads](const QString& thread) {
        QFile file(threads.filePath(thread + u"/stat"_s));
        return !file.open(QIODevice::ReadOnly) || file.readAll().contains(") T ");
    };
    QTRY_VERIFY([&] {
        const QStringList all = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return std::all_of(all.begin(), all.end(), stands);
    }());
}

} // namespace

class TestLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanup() { spreadsheet::endHost(); }

    // The first of all: a module that was loaded stays.
    static void aMissingModuleIsTold()
    {
        const OfficeFixture office;
        spreadsheet::setHostSettings({.folder = office.path(u"nowhere"_s)});
        const spreadsheet::Error error = errorOfCreating();
        QCOMPARE(error.number(), 429);
        QVERIFY2(error.description().startsWith(u"The spreadsheet application LibreOffice Calc "
                                                "can't be used. Is it installed? ("_s),
                 error.what());
        QCOMPARE(spreadsheet::hostProcess(), 0);
    }

    static void aMissingProgramIsTold()
    {
        const OfficeFixture office;
        const QStringList before = profiles();
        startBy(office.path(u"nothing"_s));
        const spreadsheet::Error error = errorOfCreating();
        QCOMPARE(error.number(), 429);
        QCOMPARE(error.description(),
                 u"The spreadsheet application LibreOffice Calc is not installed."_s);
        QCOMPARE(profiles(), before);
    }

    static void aProgramThatEndsAtOnceIsToldAtOnceWithItsLastWords()
    {
        const OfficeFixture office;
        const QStringList before = profiles();
        startBy(startCommand(office, "echo no display >&2; exit 3"));
        QElapsedTimer time;
        time.start();
        const spreadsheet::Error error = errorOfCreating();
        QCOMPARE(error.number(), 429);
        QCOMPARE(error.description(),
                 u"The spreadsheet application has ended while it started. no display"_s);
        QVERIFY(time.elapsed() < 5000);
        QCOMPARE(profiles(), before);
    }

    static void aProgramThatNeverAnswersIsGivenUpAndEnded()
    {
        const OfficeFixture office;
        const QString mark = office.path(u"process"_s);
        const QStringList before = profiles();
        startBy(startCommand(office, "echo $$ > '" + mark.toUtf8() + "'; sleep 300 & sleep 300"),
                1000);
        const spreadsheet::Error error = errorOfCreating();
        QCOMPARE(error.number(), 429);
        QCOMPARE(error.description(), u"The spreadsheet application takes too long to start."_s);
        QFile file(mark);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const auto group = static_cast<pid_t>(file.readAll().trimmed().toInt());
        QVERIFY(group > 1);
        QTRY_VERIFY(::kill(-group, 0) != 0);
        QTRY_COMPARE(profiles(), before);
    }

    static void timersGoOnWhileItStartsSlowly()
    {
        const OfficeFixture office;
        startBy(
            startCommand(office, "sleep 2; exec '" OSTRAND_LIBREOFFICE "/program/soffice' \"$@\""));
        const Ticks ticks;
        const auto application = spreadsheet::CreateObject();
        QVERIFY(ticks.count() >= 20);
        QCOMPARE(application->Add()->SheetCount(), 1);
    }

    static void nobodyElseReadsItsFolderOrItsPipe()
    {
        const OfficeFixture office;
        const auto first = spreadsheet::CreateObject();
        const OfficeTraces traces(spreadsheet::hostProcess());
        QVERIFY(traces.processes() > 0);
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                            | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QVERIFY(QFileInfo(traces.profile()).isDir());
        QVERIFY(!(QFile::permissions(traces.profile()) & others));
        // Who may not write to a socket may not connect to it.
        QVERIFY(traces.sockets().size() >= 2);
        for (const QString& socket : traces.sockets())
            QVERIFY(!(QFile::permissions(socket) & (QFile::WriteGroup | QFile::WriteOther)));
    }

    static void nothingIsLeftOfItAfterItsEndAndTheNextHasOtherNames()
    {
        const OfficeFixture office;
        spreadsheet::CreateObject()->Add();
        const OfficeTraces first(spreadsheet::hostProcess());
        spreadsheet::endHost();
        QCOMPARE(spreadsheet::hostProcess(), 0);
        QVERIFY(first.areGone());
        spreadsheet::CreateObject();
        const OfficeTraces second(spreadsheet::hostProcess());
        QVERIFY(first.pipe() != second.pipe());
        QVERIFY(first.profile() != second.profile());
    }

    static void itsDeathIsToldOnceOnTheMainThread()
    {
        const OfficeFixture office;
        const QString path = office.workbook(u"a.xls"_s, {u"one"_s});
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Open(path);
        const auto sheet = workbook->Worksheets(1);
        const auto cell = sheet->Range(u"A1"_s);
        int told = 0;
        bool closing = false;
        const QThread* thread = nullptr;
        workbook->subscribe({.BeforeClose = [&](bool&) { closing = true; },
                             .Lost =
                                 [&] {
                                     ++told;
                                     thread = QThread::currentThread();
                                 }});
        const OfficeTraces traces(spreadsheet::hostProcess());
        ::kill(static_cast<pid_t>(-spreadsheet::hostProcess()), SIGKILL);
        QCOMPARE(errorOf([&] { cell->Value(); }), 462);
        QCOMPARE(errorOf([&] { application->Add(); }), 462);
        QTRY_COMPARE(told, 1);
        QTest::qWait(200);
        QCOMPARE(told, 1);
        QCOMPARE(thread, QThread::currentThread());
        QCOMPARE(spreadsheet::hostProcess(), 0);
        QCOMPARE(errorOf([&] { cell->setValue(u"two"_s); }), 462);
        QCOMPARE(errorOf([&] { sheet->Name(); }), 462);
        QCOMPARE(errorOf([&] { workbook->Save(); }), 91);
        QCOMPARE(errorOf([&] { workbook->Close(SaveChanges::Ask); }), 91);
        QVERIFY(!closing);
        QTRY_VERIFY(traces.areGone());
        // The next one is not troubled by the lock that the dead one has left at the file.
        const auto again = spreadsheet::CreateObject()->Open(path);
        again->Worksheets(1)->Range(u"A1"_s)->setValue(u"three"_s);
        QCOMPARE(errorOf([&] { again->Save(); }), 0);
    }

    static void anotherStartsAfterOneThatDiedIdle()
    {
        const OfficeFixture office;
        spreadsheet::CreateObject();
        const qint64 first = spreadsheet::hostProcess();
        ::kill(static_cast<pid_t>(-first), SIGKILL);
        QTRY_COMPARE(spreadsheet::hostProcess(), 0);
        QCOMPARE(spreadsheet::CreateObject()->Add()->SheetCount(), 1);
        QVERIFY(spreadsheet::hostProcess() != first);
    }

    static void deathInACallIsAnError()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto sheet = application->Add()->Worksheets(1);
        const auto group = static_cast<pid_t>(spreadsheet::hostProcess());
        const std::unique_ptr<QThread> killer(QThread::create([group] {
            QThread::msleep(300);
            ::kill(-group, SIGKILL);
        }));
        killer->start();
        QElapsedTimer time;
        time.start();
        int number = 0;
        for (int i = 1; number == 0 && time.elapsed() < longWait; ++i)
            number = errorOf([&] { sheet->Range(u"A%1"_s.arg(i))->setValue(u"x"_s); });
        killer->wait();
        QCOMPARE(number, 462);
    }

    /// A call may write to the pipe before anybody has noticed that its other end is gone.
    static void aBrokenPipeEndsNoProgram()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        ::raise(SIGPIPE);
        ::kill(static_cast<pid_t>(-spreadsheet::hostProcess()), SIGKILL);
        QTRY_COMPARE(errorOf([&] { workbook->SheetCount(); }), 462);
        QVERIFY(!application->isRunning());
    }

    static void anApplicationThatHangsHoldsUpNoEnd()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        workbook->subscribe({});
        const OfficeTraces traces(spreadsheet::hostProcess());
        stopHost();
        QElapsedTimer time;
        time.start();
        workbook->Close(SaveChanges::No);
        spreadsheet::endHost();
        QVERIFY(time.elapsed() < longWait);
        QTRY_VERIFY(traces.areGone());
    }

    static void aCallThatIsNeverAnsweredEndsTheApplication()
    {
        constexpr int patience = 1000;
        const OfficeFixture office;
        spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR),
                                      .answerTimeout = patience,
                                      .headless = true});
        const auto workbook = spreadsheet::CreateObject()->Add();
        stopHost();
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(errorOf([&] { workbook->SheetCount(); }), spreadsheet::errors::serverGone);
        QVERIFY2(timer.elapsed() < longWait, qPrintable(QString::number(timer.elapsed())));
    }

    static void aWorkbookThatIsStillOpenHoldsUpNoEnd()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        workbook->Worksheets(1)->Range(u"A1"_s)->setValue(u"unsaved"_s);
        const OfficeTraces traces(spreadsheet::hostProcess());
        QElapsedTimer time;
        time.start();
        spreadsheet::endHost();
        QVERIFY(time.elapsed() < longWait);
        QTRY_VERIFY(traces.areGone());
        QCOMPARE(errorOf([&] { workbook->SheetCount(); }), 462);
    }

    static void itGoesWhenThisProgramIsKilled()
    {
        const OfficeFixture office;
        const QString path = office.workbook(u"held.xls"_s);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QString::fromLatin1(childWord), path});
        QTRY_VERIFY_WITH_TIMEOUT(child.canReadLine(), 15000);
        const OfficeTraces traces(child.readLine().trimmed().toLongLong());
        QVERIFY(traces.processes() > 0);
        QVERIFY(QFile::exists(traces.profile()));
        child.kill();
        QVERIFY(child.waitForFinished());
        QTRY_VERIFY(traces.areGone());
        // Nor does its lock stay.
        const auto workbook = spreadsheet::CreateObject()->Open(path);
        workbook->Worksheets(1)->Range(u"A1"_s)->setValue(u"x"_s);
        QCOMPARE(errorOf([&] { workbook->Save(); }), 0);
    }

    static void anApplicationOfTheUsersOwnIsLeftAlone()
    {
        const OfficeFixture office;
        QProcess own;
        own.start(
            QStringLiteral(OSTRAND_LIBREOFFICE "/program/soffice"),
            {u"-env:UserInstallation="_s + QUrl::fromLocalFile(office.path(u"own"_s)).toString(),
             u"--headless"_s,
             u"--norestore"_s});
        QVERIFY(own.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(office.path(u"own/.lock"_s)), 15000);
        QCOMPARE(spreadsheet::CreateObject()->Add()->SheetCount(), 1);
        QVERIFY(spreadsheet::hostProcess() != own.processId());
        spreadsheet::endHost();
        QCOMPARE(own.state(), QProcess::Running);
        own.terminate();
        QVERIFY(own.waitForFinished());
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == QLatin1StringView(childWord))
        return holdAnApplication(words.value(2));
    // Folders that appear and go there are those of this test alone.
    const QTemporaryDir temporary;
    qputenv("TMPDIR", temporary.path().toUtf8());
    TestLife test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_life.moc"
