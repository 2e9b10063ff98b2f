// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/foreign_lock.h"
#include "pid/pid_file.h"
#include "pid/populate_desk.h"
#include "support/full_disk.h"
#include "support/without_root.h"

#include <QFileInfo>
#include <QListView>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::ForeignLock;
using tests::PidFile;
using tests::PopulateDesk;

class TestPopulateFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    // ---- before the window
    void aProjectThatNamesNoDatabaseIsTold_data();
    void aProjectThatNamesNoDatabaseIsTold();
    void aProjectWithoutTheAttributeIsPassedOver();
    void aProjectThatCannotBeReadIsPassedOver();
    void aMissingFileIsToldInPassing();
    void aMissingFolderIsToldInPassing();
    void anEmptyAttributeFindsNoFile();
    void aReadOnlyFileIsToldInPassing();
    void aFileWithoutTheTableIsToldInPassing();
    void aTableWithoutAFieldIsToldInPassing();
    void aFileThatIsNoDatabaseIsPassedOver();
    void aLockedFileIsPassedOver();
    void noDatabaseAtAllIsTold();
    void aConfigurationIsWarnedAbout_data();
    void aConfigurationIsWarnedAbout();
    void aConfigurationWhoseLinesAreShortIsPassedOver();

    // ---- inserting
    void aTagThatDiffersInCaseEndsTheRun();
    void aTagThatDiffersByABlankEndsTheRun();
    void twoLinesOfOneTextEndTheRun();
    void aServiceThatIsTooLongEndsTheRun();
    void aFailureDoesNotSuppressTheReport();
    void aLockedProjectIsToldAndNothingIsAdded();
    void aFullDiskIsToldAndNothingIsReported();
    void aProjectThatIsGoneIsTold();

private:
    /// The command, with no window to appear.
    QStringList toldWithoutWindow();
    /// What the status bar says instead.
    static QString saidInPassing();
    QStringList insert(const QStringList& lines, bool stays);

    std::unique_ptr<PidFile> m_pid;
    std::unique_ptr<PopulateDesk> m_desk;
};

void TestPopulateFailures::init()
{
    m_pid = std::make_unique<PidFile>();
    m_desk = std::make_unique<PopulateDesk>();
    m_desk->name(m_pid->path());
}

void TestPopulateFailures::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    m_desk.reset();
    m_pid.reset();
}

QStringList TestPopulateFailures::toldWithoutWindow()
{
    if (m_desk->populate([](const pid::frmPopulate&) {}))
        return {u"a window appeared"_s};
    return m_desk->texts();
}

QString TestPopulateFailures::saidInPassing()
{
    return app::mainWindow().window()->findChild<QLabel*>(u"Panel1"_s)->text();
}

QStringList TestPopulateFailures::insert(const QStringList& lines, bool stays)
{
    bool stayed = !stays;
    m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::select(window, lines);
        m_desk->confirm(window);
        stayed = window.isVisible();
    });
    return stayed == stays ? m_desk->texts() : QStringList{u"the window is wrong"_s};
}

// ---- before the window

void TestPopulateFailures::aProjectThatNamesNoDatabaseIsTold_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::newRow("Null") << true;
    QTest::newRow("the text Null") << false;
}

void TestPopulateFailures::aProjectThatNamesNoDatabaseIsTold()
{
    QFETCH(bool, isNull);
    m_desk->name(isNull ? std::nullopt : std::optional(u"Null"_s));
    QVERIFY(!m_desk->populate([](const pid::frmPopulate&) {}));
    QCOMPARE(m_desk->prompts.boxes.size(), 1U);
    QCOMPARE(
        m_desk->prompts.boxes[0].text,
        u"There is no default Ostrand P&ID Databse selected. Please select Datadase using Edit "
        "-> Project Information menu"_s);
    QVERIFY(m_desk->prompts.boxes[0].icon == toolkit::BoxIcon::Information);
}

void TestPopulateFailures::aProjectWithoutTheAttributeIsPassedOver()
{
    PopulateDesk::execute(m_desk->project,
                          u"delete from ProjectInfo where attributeName = 'DefaultP&IDDatabase'"_s);
    QCOMPARE(toldWithoutWindow(), QStringList());
}

void TestPopulateFailures::aProjectThatCannotBeReadIsPassedOver()
{
    app::g_strIndexFile = m_desk->path(u"gone.mdb"_s);
    QCOMPARE(toldWithoutWindow(), QStringList());
}

void TestPopulateFailures::aMissingFileIsToldInPassing()
{
    const QString path = m_desk->path(u"gone.mdb"_s);
    m_desk->name(path);
    QCOMPARE(toldWithoutWindow(), QStringList());
    QCOMPARE(saidInPassing(),
             u"Could not find default P&ID Database. Error : 3024. The file '"_s + path
                 + u"' was not found."_s);
}

void TestPopulateFailures::aMissingFolderIsToldInPassing()
{
    const QString path = m_desk->path(u"no/gone.mdb"_s);
    m_desk->name(path);
    QCOMPARE(toldWithoutWindow(), QStringList());
    QCOMPARE(saidInPassing(), u"Error : 3044. '"_s + path + u"' is not a valid path."_s);
}

void TestPopulateFailures::anEmptyAttributeFindsNoFile()
{
    m_desk->name(u""_s);
    QCOMPARE(toldWithoutWindow(), QStringList());
    QCOMPARE(saidInPassing(),
             u"Could not find default P&ID Database. Error : 3024. The file '' was "
             "not found."_s);
}

void TestPopulateFailures::aReadOnlyFileIsToldInPassing()
{
    m_pid->fill({{u"PT"_s, u"1"_s, {}}});
    for (const QString& path : {m_pid->path(), m_desk->project}) {
        ::chmod(QFileInfo(path).path().toUtf8().constData(), 0755);
        ::chmod(path.toUtf8().constData(), path == m_pid->path() ? 0444 : 0666);
    }
    QStringList told;
    {
        const tests::WithoutRoot user;
        told = toldWithoutWindow();
    }
    QCOMPARE(told, QStringList());
    QVERIFY2(saidInPassing().startsWith(
                 u"Error while reading from Default P&ID Database. Database is read only.  Error : "
                 "3051. "_s),
             qPrintable(saidInPassing()));
}

void TestPopulateFailures::aFileWithoutTheTableIsToldInPassing()
{
    m_pid->run("ALTER TABLE \"Components-Instruments\" RENAME TO Instruments");
    QCOMPARE(toldWithoutWindow(), QStringList());
    QCOMPARE(saidInPassing(),
             u"The default P&ID Database selected by you is wrong. Please select "
             "correct P&ID Database."_s);
}

void TestPopulateFailures::aTableWithoutAFieldIsToldInPassing()
{
    m_pid->run("ALTER TABLE \"Components-Instruments\" RENAME COLUMN SERVICE_ TO Service");
    QCOMPARE(toldWithoutWindow(), QStringList());
    QCOMPARE(saidInPassing(),
             u"Data field value does not exist. Please review Defalut P&ID Database."_s);
}

void TestPopulateFailures::aFileThatIsNoDatabaseIsPassedOver()
{
    m_desk->name(m_desk->file(u"foreign.mdb"_s, QByteArray(5000, 'x')));
    QCOMPARE(toldWithoutWindow(), QStringList());
    QVERIFY2(saidInPassing().startsWith(u"Error : 3343. "_s), qPrintable(saidInPassing()));
}

void TestPopulateFailures::aLockedFileIsPassedOver()
{
    m_pid->fill({{u"PT"_s, u"1"_s, {}}});
    const ForeignLock lock(m_pid->path(), "BEGIN EXCLUSIVE");
    QCOMPARE(toldWithoutWindow(), QStringList());
    QVERIFY2(saidInPassing().startsWith(u"Error : 3260. "_s), qPrintable(saidInPassing()));
}

void TestPopulateFailures::noDatabaseAtAllIsTold()
{
    pid::frmPopulate window(m_pid->path(), nullptr, [](const QString&) { return std::nullopt; });
    QVERIFY(!window.load());
    QCOMPARE(m_desk->prompts.boxes.size(), 1U);
    QCOMPARE(m_desk->prompts.boxes[0].text, u"Main database not found"_s);
    QVERIFY(m_desk->prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
}

void TestPopulateFailures::aConfigurationIsWarnedAbout_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no section") << QByteArray("DatabaseType=SQL Server\nSchema=PLANT\n");
    QTest::newRow("another type") << QByteArray(
        "[process database]\nDatabaseType=Oracle\nSchema=PLANT\n");
    QTest::newRow("no schema") << QByteArray(
        "[process database]\nDatabaseType=SQL Server\nSchema=\n");
    QTest::newRow("no file") << QByteArray();
}

void TestPopulateFailures::aConfigurationIsWarnedAbout()
{
    QFETCH(QByteArray, content);
    qputenv("ODBCINI", m_desk->file(u"odbc.ini"_s, {}).toUtf8());
    m_desk->name(content.isEmpty() ? m_desk->path(u"Project.cfg"_s)
                                   : m_desk->file(u"Project.cfg"_s, content));
    QCOMPARE(
        toldWithoutWindow(),
        QStringList{u"Please check the configuration file \r\n make sure the database type and "
                    "schema are valid"_s});
}

void TestPopulateFailures::aConfigurationWhoseLinesAreShortIsPassedOver()
{
    m_desk->name(m_desk->file(u"Project.CFG"_s, "[process database]\nType=SQL\nSchema=PLANT\n"));
    QCOMPARE(toldWithoutWindow(), QStringList());
    m_desk->name(
        m_desk->file(u"Project.CFG"_s, "[process database]\nDatabaseType=SQL Server\nS=\n"));
    QCOMPARE(toldWithoutWindow(), QStringList());
}

// ---- inserting

void TestPopulateFailures::aTagThatDiffersInCaseEndsTheRun()
{
    m_pid->fill({{u"PT"_s, u"1"_s, {}}, {u"ti"_s, u"2"_s, {}}, {u"ZSC"_s, u"3"_s, {}}});
    m_desk->addTag(u"TI-2"_s);
    const QStringList told = insert({u"PT-1"_s, u"ti-2"_s, u"ZSC-3"_s}, true);
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while inserting tag 'ti-2'.\r\nError : 3022. "_s),
             qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"PT-1"_s, u"TI-2"_s}));
    QCOMPARE(m_desk->gridTags(), (QStringList{u"PT-1"_s, u"TI-2"_s}));
    // Without that line the rest goes in.
    QCOMPARE(insert({u"PT-1"_s, u"ZSC-3"_s}, false), QStringList());
    QCOMPARE(m_desk->storedTags(), (QStringList{u"PT-1"_s, u"TI-2"_s, u"ZSC-3"_s}));
}

void TestPopulateFailures::aTagThatDiffersByABlankEndsTheRun()
{
    m_pid->fill({{u"SDV"_s, u"2031 "_s, {}}});
    m_desk->addTag(u"SDV-2031"_s);
    const QStringList told = insert({u"SDV-2031 "_s}, true);
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].contains(u"Error : 3022. "_s), qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), QStringList{u"SDV-2031"_s});
}

void TestPopulateFailures::twoLinesOfOneTextEndTheRun()
{
    // The line of the second instrument reads as the number of the first one's twin.
    m_pid->fill({{u"A"_s, u"1"_s, {}}, {u"A"_s, u"1"_s, {}}, {u"A"_s, u"1(1)"_s, {}}});
    QStringList told;
    m_desk->populate([&](const pid::frmPopulate& window) {
        window.findChild<QListView*>(u"lstPopulate"_s)->selectAll();
        m_desk->confirm(window);
        told = m_desk->texts();
    });
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while inserting tag 'A-1(1)'.\r\nError : 3022. "_s),
             qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"A-1"_s, u"A-1(1)"_s}));
}

void TestPopulateFailures::aServiceThatIsTooLongEndsTheRun()
{
    m_pid->run("CREATE TABLE other AS SELECT * FROM \"Components-Instruments\";"
               "DROP TABLE \"Components-Instruments\";"
               "ALTER TABLE other RENAME TO \"Components-Instruments\"");
    m_pid->fill({{u"A"_s, u"1"_s, QString(256, u'x')}});
    const QStringList told = insert({u"A-1"_s}, true);
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while inserting tag 'A-1'.\r\nError : 3163. "_s),
             qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), QStringList());
}

void TestPopulateFailures::aFailureDoesNotSuppressTheReport()
{
    m_pid->fill({{u"A"_s, u"1"_s, {}}, {u"A"_s, u"1"_s, {}}, {u"b"_s, u"2"_s, {}}});
    m_desk->addTag(u"B-2"_s);
    QCOMPARE(insert({u"A-1(1)"_s, u"b-2"_s}, true).size(), 1);
    QCOMPARE(m_desk->reports, QStringList{u"A-1 is renamed as A-1(1)\n"_s});
}

void TestPopulateFailures::aLockedProjectIsToldAndNothingIsAdded()
{
    m_pid->fill({{u"A"_s, u"1"_s, {}}});
    QStringList told;
    m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::select(window, {u"A-1"_s});
        const ForeignLock lock(m_desk->project, "BEGIN IMMEDIATE");
        m_desk->confirm(window);
        told = m_desk->texts();
    });
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while inserting tags.\r\nError : 3260. "_s),
             qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), QStringList());
}

void TestPopulateFailures::aFullDiskIsToldAndNothingIsReported()
{
    m_pid->fill({{u"A"_s, u"1"_s, {}}, {u"A"_s, u"1"_s, {}}});
    QStringList told;
    m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::select(window, {u"A-1"_s, u"A-1(1)"_s});
        {
            const tests::FullDisk disk;
            m_desk->confirm(window);
        }
        told = m_desk->texts();
    });
    QVERIFY(!told.isEmpty());
    QVERIFY2(told[0].contains(u"Error : 3026. "_s), qPrintable(told[0]));
    QCOMPARE(m_desk->storedTags(), QStringList());
    QCOMPARE(m_desk->reports, QStringList());
}

void TestPopulateFailures::aProjectThatIsGoneIsTold()
{
    m_pid->fill({{u"A"_s, u"1"_s, {}}});
    QStringList told;
    m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::select(window, {u"A-1"_s});
        app::g_strIndexFile = m_desk->path(u"no.mdb"_s);
        m_desk->confirm(window);
        told = m_desk->texts();
    });
    QVERIFY(!told.isEmpty());
    QVERIFY2(told[0].startsWith(u"Error while inserting tags.\r\nError : 3024. "_s),
             qPrintable(told[0]));
}

QTEST_MAIN(TestPopulateFailures)
#include "tst_populate_failures.moc"
