// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What befalls a run at one of its datasheets.
#include "pid/foreign_lock.h"
#include "pid/run_desk.h"
#include "pid/run_source.h"
#include "spreadsheet/error.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFile>

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::ForeignLock;
using tests::RunDesk;

namespace {

const QString importButton = u"cmdImport"_s;
const QString exportButton = u"cmdExport"_s;
const QString opened = u"File PT-1.xls has been opened during operation."_s;

bool refusesText = false; ///< writing a plain file finds the disk full

} // namespace

/// Stands in front of the system's own. The database writes by other calls.
extern "C" ssize_t write(int file, const void* data, size_t size)
{
    if (refusesText && file > STDERR_FILENO) {
        errno = ENOSPC;
        return -1;
    }
    return ::syscall(SYS_write, file, data, size);
}

class TestRunFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aDatasheetThatAnotherProgramHasOpenIsPassedOver_data() { buttons(); }
    void aDatasheetThatAnotherProgramHasOpenIsPassedOver();
    void aReadOnlyDatasheetIsPassedOver_data() { buttons(); }
    void aReadOnlyDatasheetIsPassedOver();
    void anApplicationThatEndsCostsItsDatasheet_data() { buttons(); }
    void anApplicationThatEndsCostsItsDatasheet();
    void aFileThatIsNoWorkbookEndsTheRun_data() { buttons(); }
    void aFileThatIsNoWorkbookEndsTheRun();
    void withoutAnApplicationTheRunEnds_data() { buttons(); }
    void withoutAnApplicationTheRunEnds();
    void aFolderThatVanishesEndsTheRun_data() { buttons(); }
    void aFolderThatVanishesEndsTheRun();
    void aDatasheetThatVanishesIsToldMissing_data() { buttons(); }
    void aDatasheetThatVanishesIsToldMissing();
    void aMissingPathIsToldByImport();
    void aLogThatCannotBeWrittenEndsTheRun_data() { buttons(); }
    void aLogThatCannotBeWrittenEndsTheRun();
    void aCancelledLoginEndsTheRunInTheLog_data() { buttons(); }
    void aCancelledLoginEndsTheRunInTheLog();
    void aFailedCallOfTheServerEndsTheExportInTheLog();
    void aMissingObjectIsPassedOver_data() { buttons(); }
    void aMissingObjectIsPassedOver();
    void aClosedObjectIsPassedOverByExport();

    void aLockedProjectKeepsTheValuesInTheDatasheets();
    void aFullDiskAtTheProjectIsToldAndTheRunGoesOn();
    void aProjectThatVanishesIsTold();
    void aLockedDatabaseEndsTheExport();
    void aFullDiskAtTheDatabaseEndsTheExport();

private:
    static void buttons()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("import") << importButton;
        QTest::newRow("export") << exportButton;
    }
    QStringList press(const QString& button, bool ended = true)
    {
        m_desk->run(button);
        return m_desk->logged(button.mid(3) + u".log"_s, ended);
    }
    static QString failure(const QString& button)
    {
        return button == importButton ? u"Error while importing the database\r\n"_s
                                      : u"Error while updating the database\r\n"_s;
    }
    /// Files of a datasheet are read twice by an export; the refresh tells what it meets itself.
    static bool refreshFails(const QStringList& texts)
    {
        return texts.value(0).endsWith(u"in procedure ProcessDatasheetProc of Form frmIndex"_s);
    }
    void failAtOpen(int number);
    void failInRow(int number, const QString& place);
    QString service(const QString& tag) const
    {
        return m_source->stored(u"PT"_s, tag, u"SERVICE_"_s);
    }

    std::unique_ptr<tests::RunSource> m_source = tests::makeRunSource("file"_L1);
    std::unique_ptr<RunDesk> m_desk;
    int m_left = 0; ///< calls up to the one that fails
};

void TestRunFaults::init()
{
    m_source->reset();
    m_desk = std::make_unique<RunDesk>(m_source->path());
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    for (const QString& number : {u"1"_s, u"2"_s}) {
        const QString tag = u"PT-"_s + number;
        m_source->add(u"PT"_s, number, {{u"SERVICE_"_s, u"Gas "_s + number}});
        m_desk->giveSheet(tag,
                          {RunDesk::toFront(m_source->table(), u"SERVICE_"_s, u"D12"_s)},
                          {{u"D12"_s, QString(u"typed "_s + number)}});
        RunDesk::execute(m_desk->project,
                         u"update [index] set Remarks = 'own' where PlantItemNo = '"_s + tag
                             + u'\'');
    }
    m_desk->open(m_desk->project);
}

void TestRunFaults::cleanup()
{
    refusesText = false;
    m_desk.reset();
}

/// The second reading of the first datasheet, or its only one, fails.
void TestRunFaults::failAtOpen(int number)
{
    QFETCH(QString, button);
    m_desk->office.whenOpened =
        [this, number, left = button == importButton ? 1 : 2](const QString& path) mutable {
            if (path.endsWith(u"PT-1.xls"_s) && --left == 0)
                throw spreadsheet::Error(number, u"Made for a test"_s);
        };
}

void TestRunFaults::failInRow(int number, const QString& place)
{
    // An export asks for such a cell when it fills it, when it reads the map, and for the row.
    m_left = place == u"D12"_s ? 3 : 1;
    m_desk->office.whenAsked = [this, number, place](const QString& name) {
        if (name == place && --m_left == 0)
            throw spreadsheet::Error(number, u"Made for a test"_s);
    };
}

void TestRunFaults::aDatasheetThatAnotherProgramHasOpenIsPassedOver()
{
    QFETCH(QString, button);
    failAtOpen(70);
    const QStringList lines = press(button);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0], opened);
    QCOMPARE(m_desk->texts(),
             QStringList{button == importButton ? u"1 Datasheet updated successfully"_s
                                                : u"Database modified"_s});
    QCOMPARE(service(u"1"_s), u"Gas 1"_s);
    QCOMPARE(service(u"2"_s), button == importButton ? u"Gas 2"_s : u"own"_s);
}

void TestRunFaults::aReadOnlyDatasheetIsPassedOver()
{
    QFETCH(QString, button);
    const QString file = m_desk->sheetFile(u"PT-1.xls"_s);
    QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    QCOMPARE(press(button).value(0), opened);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"typed 1"_s);
    QCOMPARE(refreshFails(m_desk->texts()), button == exportButton);
}

void TestRunFaults::anApplicationThatEndsCostsItsDatasheet()
{
    QFETCH(QString, button);
    m_desk->office.whenSaved = [this](const QString& path, const QString&) {
        if (path.endsWith(u"PT-1.xls"_s)) {
            m_desk->office.kill();
            throw spreadsheet::Error(spreadsheet::errors::serverGone, u"gone"_s);
        }
    };
    const QStringList lines = press(button);
    QCOMPARE(lines.value(0), opened);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"typed 1"_s);
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s),
             button == importButton ? u"Gas 2"_s : u"own"_s);
    // Behind the first datasheet's own refresh the application is a new one.
    QCOMPARE(refreshFails(m_desk->texts()), button == exportButton);
}

void TestRunFaults::aFileThatIsNoWorkbookEndsTheRun()
{
    QFETCH(QString, button);
    m_desk->file(u"sheets/PT-1.xls"_s, "garbage");
    QCOMPARE(press(button, false), QStringList());
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.last(), failure(button) + u"321 : The file is no workbook"_s);
    QCOMPARE(refreshFails(texts), button == exportButton);
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s), u"typed 2"_s);
}

void TestRunFaults::withoutAnApplicationTheRunEnds()
{
    QFETCH(QString, button);
    m_desk->office.isInstalled = false;
    QCOMPARE(press(button, false), QStringList());
    QCOMPARE(m_desk->texts(),
             QStringList{failure(button) + u"429 : ActiveX component can't create object"_s});
}

void TestRunFaults::aFolderThatVanishesEndsTheRun()
{
    QFETCH(QString, button);
    m_desk->office.whenSaved = [this](const QString&, const QString&) {
        QDir(m_desk->path(QString())).rename(u"sheets"_s, u"elsewhere"_s);
    };
    QCOMPARE(press(button, false), QStringList());
    const QStringList texts = m_desk->texts();
    if (button == importButton) {
        QVERIFY(texts == QStringList{u"Datasheet path not found"_s});
    } else {
        QVERIFY(refreshFails(texts));
        QCOMPARE(texts.last(),
                 u"Error while updating the database\r\n1004 : The file was not found"_s);
    }
}

void TestRunFaults::aDatasheetThatVanishesIsToldMissing()
{
    QFETCH(QString, button);
    m_desk->office.whenOpened = [this](const QString&) {
        QFile::remove(m_desk->sheetFile(u"PT-2.xls"_s));
    };
    const QString missing = button == importButton ? u"Datasheet 'PT-2.xls' not found in '"_s
                                                   : u"Datasheet 'PT-2.xls' not found '"_s;
    QCOMPARE(press(button).value(0), missing + m_desk->folder() + u'\'');
}

void TestRunFaults::aMissingPathIsToldByImport()
{
    m_desk->office.whenSaved = [](const QString&, const QString&) {
        throw spreadsheet::Error(76, u"Path not found"_s);
    };
    QCOMPARE(press(importButton, false), QStringList());
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{u"Datasheet path not found"_s});
}

void TestRunFaults::aLogThatCannotBeWrittenEndsTheRun()
{
    QFETCH(QString, button);
    m_desk->makeSheet(u"PT-2.xls"_s, {}); // its line does not fit any more
    m_desk->office.whenOpened = [](const QString& path) {
        refusesText = path.endsWith(u"PT-2.xls"_s);
    };
    m_desk->office.whenSaved = [](const QString&, const QString&) { refusesText = false; };
    m_desk->run(button);
    refusesText = false;
    const QStringList texts = m_desk->texts();
    QVERIFY2(texts.last().startsWith(failure(button) + u"61 : "_s)
                 || m_desk->logged(button.mid(3) + u".log"_s, true).size() == 2,
             qPrintable(texts.join(u'|')));
}

void TestRunFaults::aCancelledLoginEndsTheRunInTheLog()
{
    QFETCH(QString, button);
    failAtOpen(3059);
    QCOMPARE(press(button),
             QStringList{button == importButton ? u"Login is cancelled by the user."_s
                                                : u"Login cancelled by the user"_s});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestRunFaults::aFailedCallOfTheServerEndsTheExportInTheLog()
{
    m_desk->office.whenOpened = [left = 2](const QString&) mutable {
        if (--left == 0)
            throw spreadsheet::Error(3146, u"ODBC--call failed"_s);
    };
    QCOMPARE(press(exportButton), QStringList{u"P&ID Database name is incorrect."_s});
    QCOMPARE(m_desk->texts(), QStringList());
}

/// The first datasheet's row fails: at the workbook's type, or at the cell behind the refresh.
void TestRunFaults::aMissingObjectIsPassedOver()
{
    QFETCH(QString, button);
    failInRow(91, button == importButton ? u"DatasheetType"_s : u"D12"_s);
    QCOMPARE(press(button).size(), 1);
    QCOMPARE(m_desk->texts(),
             QStringList{button == importButton ? u"2 Datasheets updated successfully"_s
                                                : u"Database modified"_s});
    QCOMPARE(service(u"1"_s), u"Gas 1"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"own"_s);
}

void TestRunFaults::aClosedObjectIsPassedOverByExport()
{
    failInRow(3420, u"D12"_s);
    QCOMPARE(press(exportButton), QStringList{u"Database modified."_s});
    QCOMPARE(m_desk->texts(), QStringList{u"Database modified"_s});
    QCOMPARE(service(u"1"_s), u"Gas 1"_s);
    QCOMPARE(service(u"2"_s), u"own"_s);
}

// ---- the databases

void TestRunFaults::aLockedProjectKeepsTheValuesInTheDatasheets()
{
    std::optional<ForeignLock> lock;
    m_desk->office.whenOpened = [&](const QString& path) {
        if (path.endsWith(u"PT-1.xls"_s))
            lock.emplace(m_desk->project, "BEGIN IMMEDIATE");
        else
            lock.reset();
    };
    QCOMPARE(press(importButton), QStringList{u"2 Datasheets updated successfully."_s});
    lock.reset();
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 2);
    QVERIFY2(texts[0].startsWith(u"Error 3260 ("_s)
                 && texts[0].endsWith(u") in procedure updateMainDB of Form frmIndex"_s),
             qPrintable(texts[0]));
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"Gas 1"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"own"_s);
    QCOMPARE(m_desk->stored(u"PT-2"_s, u"Remarks"_s), u"Gas 2"_s);
}

void TestRunFaults::aFullDiskAtTheProjectIsToldAndTheRunGoesOn()
{
    std::optional<tests::FullDisk> disk;
    m_desk->office.whenOpened = [&](const QString& path) {
        if (path.endsWith(u"PT-1.xls"_s))
            disk.emplace();
        else
            disk.reset();
    };
    QCOMPARE(press(importButton), QStringList{u"2 Datasheets updated successfully."_s});
    QStringList texts = m_desk->texts();
    QCOMPARE(texts.takeLast(), u"2 Datasheets updated successfully"_s);
    QVERIFY2(texts.join(u'|').contains(u"Error 3026 ("_s), qPrintable(texts.join(u'|')));
    for (const QString& text : texts)
        QVERIFY(text.endsWith(u") in procedure updateMainDB of Form frmIndex"_s));
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"own"_s);
    QCOMPARE(m_desk->stored(u"PT-2"_s, u"Remarks"_s), u"Gas 2"_s);
}

void TestRunFaults::aProjectThatVanishesIsTold()
{
    m_desk->office.whenOpened = [this](const QString&) {
        QFile::rename(m_desk->project, m_desk->project + u"-away"_s);
    };
    QCOMPARE(press(importButton).last(), u"2 Datasheets updated successfully."_s);
    const QStringList texts = m_desk->texts();
    QVERIFY2(texts.size() >= 2 && texts[0].startsWith(u"Error 3024 ("_s)
                 && texts[0].endsWith(u") in procedure updateMainDB of Form frmIndex"_s),
             qPrintable(texts.join(u'|')));
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s), u"Gas 2"_s);
}

void TestRunFaults::aLockedDatabaseEndsTheExport()
{
    std::optional<ForeignLock> lock;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        if (!lock)
            lock.emplace(m_source->path(), "BEGIN IMMEDIATE");
    };
    m_desk->run(exportButton);
    const QStringList lines = m_desk->logged(u"Export.log"_s, false);
    lock.reset();
    const QStringList texts = m_desk->texts();
    QVERIFY2(texts.last().startsWith(u"Error while updating the database\r\n3260 : "_s),
             qPrintable(texts.join(u'|')));
    QCOMPARE(lines, QStringList());
    QCOMPARE(service(u"1"_s), u"Gas 1"_s);
}

void TestRunFaults::aFullDiskAtTheDatabaseEndsTheExport()
{
    std::optional<tests::FullDisk> disk;
    m_desk->office.whenSaved = [&](const QString&, const QString&) { disk.emplace(); };
    m_desk->run(exportButton);
    disk.reset();
    const QStringList texts = m_desk->texts();
    QVERIFY2(texts.last().startsWith(u"Error while updating the database\r\n3026 : "_s),
             qPrintable(texts.join(u'|')));
    QCOMPARE(service(u"1"_s), u"Gas 1"_s);
}

QTEST_MAIN(TestRunFaults)
#include "tst_run_faults.moc"
