// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What keeps a run from its first datasheet, or ends it before its last one.
#include "pid/foreign_lock.h"
#include "pid/run_desk.h"
#include "pid/run_source.h"

#include <QDir>
#include <QFile>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::ForeignLock;
using tests::RunDesk;

namespace {

const QString importButton = u"cmdImport"_s;
const QString exportButton = u"cmdExport"_s;

/// The cases hold for both buttons, with the words of each.
void bothButtons(const QString& imported, const QString& exported)
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("words");
    QTest::newRow("import") << importButton << imported;
    QTest::newRow("export") << exportButton << exported;
}

} // namespace

class TestRunEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void aProjectThatNamesNothingIsLogged_data() { bothSame(); }
    void aProjectThatNamesNothingIsLogged();
    void anEmptyFolderNameIsLogged_data();
    void anEmptyFolderNameIsLogged();
    void aMissingAttributeOfTheDatabaseIsLogged_data() { bothSame(); }
    void aMissingAttributeOfTheDatabaseIsLogged();
    void aMissingFolderIsLogged_data();
    void aMissingFolderIsLogged();
    void anEmptyFolderIsToldAndLogged_data();
    void anEmptyFolderIsToldAndLogged();
    void aMissingDatabaseDisablesBothButtons_data();
    void aMissingDatabaseDisablesBothButtons();
    void aForeignDatabaseFileIsToldAndLogged_data() { bothSame(); }
    void aForeignDatabaseFileIsToldAndLogged();
    void anUnknownDataSourceIsToldAndLogged_data() { bothSame(); }
    void anUnknownDataSourceIsToldAndLogged();
    void importCollectsTheTagsBeforeItMissesTheDatabase();
    void aDatabaseThatVanishesEndsTheRun_data() { bothSame(); }
    void aDatabaseThatVanishesEndsTheRun();
    void aDatabaseWithoutTheTableCostsEachRow_data();
    void aDatabaseWithoutTheTableCostsEachRow();
    void aLockedDatabaseEndsTheRun_data() { bothSame(); }
    void aLockedDatabaseEndsTheRun();
    void aFolderInPlaceOfTheLogIsTold_data();
    void aFolderInPlaceOfTheLogIsTold();
    void anOlderLogIsReplaced_data() { bothSame(); }
    void anOlderLogIsReplaced();
    void aPendingEditIsWrittenFirst_data() { bothSame(); }
    void aPendingEditIsWrittenFirst();

private:
    static void bothSame() { bothButtons({}, {}); }
    QString logName() const
    {
        QFETCH(QString, button);
        return button.mid(3) + u".log"_s;
    }
    /// Gives the command, and shows what was logged.
    QStringList press(bool ended = true)
    {
        QFETCH(QString, button);
        m_desk->run(button);
        return m_desk->logged(logName(), ended);
    }
    void forget(const QString& attribute)
    {
        RunDesk::execute(m_desk->project,
                         u"delete from ProjectInfo where attributeName = '"_s + attribute + u'\'');
    }
    bool isOffered(const QString& button) const
    {
        return m_desk->window.findChild<QPushButton*>(button)->isEnabled();
    }

    std::unique_ptr<tests::RunSource> m_source = tests::makeRunSource("file"_L1);
    std::unique_ptr<RunDesk> m_desk;
};

void TestRunEnds::init()
{
    m_source->reset();
    m_desk = std::make_unique<RunDesk>(m_source->path());
    m_source->add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Gas"_s}});
    m_source->add(u"PT"_s, u"2"_s, {{u"SERVICE_"_s, u"Oil"_s}});
    for (const QString& tag : {u"PT-1"_s, u"PT-2"_s}) {
        m_desk->giveSheet(tag,
                          {RunDesk::toFront(m_source->table(), u"SERVICE_"_s, u"D12"_s)},
                          {{u"D12"_s, u"typed"_s}});
    }
    m_desk->open(m_desk->project);
}

void TestRunEnds::aProjectThatNamesNothingIsLogged()
{
    forget(u"DefaultDatasheetFolder"_s);
    forget(u"DefaultP&IDDatabase"_s);
    QCOMPARE(press(), QStringList{u"P&ID database path is not specified."_s});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestRunEnds::anEmptyFolderNameIsLogged_data()
{
    bothButtons(u"Datasheet path not specified."_s, u"Datasheet path not mentioned."_s);
}

void TestRunEnds::anEmptyFolderNameIsLogged()
{
    QFETCH(QString, words);
    m_desk->setAttribute(u"DefaultDatasheetFolder"_s, {});
    QCOMPARE(press(), QStringList{words});
    m_desk->setAttribute(u"DefaultDatasheetFolder"_s, u""_s);
    QCOMPARE(press(), QStringList{words});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestRunEnds::aMissingAttributeOfTheDatabaseIsLogged()
{
    forget(u"DefaultP&IDDatabase"_s);
    QCOMPARE(press(), QStringList{u"P&ID database path not found."_s});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestRunEnds::aMissingFolderIsLogged_data()
{
    bothButtons(u"Datasheet path 'X:\\no where' not found"_s,
                u"Datasheet path 'X:\\no where' not found."_s);
}

void TestRunEnds::aMissingFolderIsLogged()
{
    QFETCH(QString, words);
    m_desk->setAttribute(u"DefaultDatasheetFolder"_s, u"X:\\no where"_s);
    QCOMPARE(press(), QStringList{words});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestRunEnds::anEmptyFolderIsToldAndLogged_data()
{
    bothButtons(u"No datasheet present in the 'datasheets' folder|"
                u"Datasheets not present in 'datasheets' folder."_s,
                u"No datasheets present in the 'datasheets' folder|"
                u"Datasheets not present in the 'datasheets' folder."_s);
}

void TestRunEnds::anEmptyFolderIsToldAndLogged()
{
    QFETCH(QString, words);
    QDir(m_desk->path(QString())).mkpath(u"empty/within"_s);
    m_desk->setAttribute(u"DefaultDatasheetFolder"_s, m_desk->path(u"empty"_s));
    m_desk->prompts.whileOpen = [this](const toolkit::Box&) {
        QCOMPARE(m_desk->panel(1), u"Record: 1 of 2"_s);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    };
    QCOMPARE(press(), QStringList{words.section(u'|', 1)});
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{words.section(u'|', 0, 0)});
}

void TestRunEnds::aMissingDatabaseDisablesBothButtons_data()
{
    bothButtons(u"Login info file 'data.txt' or database '%1' is missing or 'data.txt' contains "
                u"incorrect login information ..."_s,
                u"Login info file 'data.txt' or database '%1' is missing or Login info is "
                u"incorrect in 'data.txt'.."_s);
}

void TestRunEnds::aMissingDatabaseDisablesBothButtons()
{
    QFETCH(QString, words);
    QVERIFY(QFile::remove(m_source->path()));
    QCOMPARE(press(), QStringList{words.arg(m_source->path())});
    QCOMPARE(m_desk->texts(), QStringList());
    QVERIFY(!isOffered(importButton));
    QVERIFY(!isOffered(exportButton));
    m_desk->open(m_desk->project);
    QVERIFY(isOffered(importButton));
    QVERIFY(isOffered(exportButton));
}

void TestRunEnds::aForeignDatabaseFileIsToldAndLogged()
{
    QFile file(m_source->path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(5000, 'x')) == 5000);
    file.close();
    const QStringList lines = press();
    QVERIFY2(lines.value(0).startsWith(u"Login info file 'data.txt' or database '"_s),
             qPrintable(lines.join(u'|')));
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(
        texts[0].startsWith(u"Error 3343 ("_s)
            && texts[0].endsWith(u") in procedure checkPIDDatabaseFunction of Form frmIndex"_s),
        qPrintable(texts[0]));
    QVERIFY(!isOffered(importButton));
}

void TestRunEnds::anUnknownDataSourceIsToldAndLogged()
{
    qputenv("ODBCINI", QFile::encodeName(m_desk->path(u"no sources.ini"_s)));
    m_desk->setAttribute(
        u"DefaultP&IDDatabase"_s,
        m_desk->file(u"Project.cfg"_s,
                     "[Process Database]\nDatabaseType=SQL Server\nSchema=PLANT\n"));
    const QStringList lines = press();
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines[0].startsWith(u"Login info file 'data.txt' or database '"_s));
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(
        texts[0].startsWith(u"Error 3151 ("_s)
            && texts[0].endsWith(u") in procedure checkPIDDatabaseFunction of Form frmIndex"_s),
        qPrintable(texts[0]));
}

void TestRunEnds::importCollectsTheTagsBeforeItMissesTheDatabase()
{
    QVERIFY(QFile::remove(m_source->path()));
    m_desk->addTag(u"PT-3"_s);
    m_desk->run(importButton);
    QCOMPARE(m_desk->logged(u"Import.log"_s, true).value(0),
             u"Datasheet path and file name not found for the tag 'PT-3'"_s);
    m_desk->open(m_desk->project);
    m_desk->run(exportButton);
    QCOMPARE(m_desk->logged(u"Export.log"_s, true).size(), 1);
}

void TestRunEnds::aDatabaseThatVanishesEndsTheRun()
{
    QFETCH(QString, button);
    int saves = button == importButton ? 1 : 2;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        if (--saves == 0)
            QFile::remove(m_source->path());
    };
    QCOMPARE(press(), QStringList{u"P&ID database '"_s + m_source->path() + u"' not found."_s});
    QCOMPARE(m_desk->texts(), QStringList());
    QVERIFY(isOffered(importButton));
}

void TestRunEnds::aDatabaseWithoutTheTableCostsEachRow_data()
{
    bothButtons(u"'D-12' cell of the worksheet 'DATASHEET' in datasheet '%1' can not be updated "
                u"due to incorrect table or field name."_s,
                u"Column name 'SERVICE_' or table name 'Components-Instruments' may be incorrect "
                u"in 'P&ID database map' of the datasheet '%1'."_s);
}

void TestRunEnds::aDatabaseWithoutTheTableCostsEachRow()
{
    QFETCH(QString, words);
    m_source->run(u"DROP TABLE \"Components-Instruments\""_s);
    const QStringList lines = press();
    QCOMPARE(lines.value(0), words.arg(u"PT-1.xls"_s));
    QCOMPARE(lines.value(1), words.arg(u"PT-2.xls"_s));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"typed"_s);
}

void TestRunEnds::aLockedDatabaseEndsTheRun()
{
    QFETCH(QString, button);
    QStringList texts;
    QStringList lines;
    {
        const ForeignLock lock(m_source->path(), "BEGIN EXCLUSIVE");
        m_desk->run(button);
        texts = m_desk->texts();
        lines = m_desk->logged(logName(), false);
    }
    QVERIFY2(texts.value(0).contains(u"3260"_s), qPrintable(texts.join(u'|')));
    QCOMPARE(m_source->stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"Gas"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"typed"_s);
}

void TestRunEnds::aFolderInPlaceOfTheLogIsTold_data()
{
    bothButtons(u"Log file is read only and it can \r\n not be accessed for writing a log"_s,
                u"Error while updating the database\r\n70 : Permission denied"_s);
}

void TestRunEnds::aFolderInPlaceOfTheLogIsTold()
{
    QFETCH(QString, button);
    QFETCH(QString, words);
    QDir().mkpath(m_desk->logFile(logName()));
    m_desk->run(button);
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{words});
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"typed"_s);
}

void TestRunEnds::anOlderLogIsReplaced()
{
    const QString log = m_desk->file(u"bin/"_s + logName(), "an older log\n");
    QVERIFY(QFile::setPermissions(log, QFile::ReadOwner));
    QCOMPARE(press().size(), 1);
}

void TestRunEnds::aPendingEditIsWrittenFirst()
{
    m_desk->cell(index::column::remarks).setValue(u"Typed just now"_s);
    QVERIFY(m_desk->window.dbIndex().EditMode() != store::EditMode::None);
    press();
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"Typed just now"_s);
}

QTEST_MAIN(TestRunEnds)
#include "tst_run_ends.moc"
