// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "app/program.h"
#include "app/state.h"
#include "index/frmIndex.h"
#include "store/database.h"
#include "support/program_fixture.h"
#include "support/without_root.h"
#include "toolkit/data_grid.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <sqlite3.h>
#include <sys/stat.h>

#include <vector>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

namespace {

QString panel(QWidget& window, int number)
{
    return window.findChild<QLabel*>(u"Panel"_s + QString::number(number))->text();
}

/// The first pages of a table and of its indexes.
std::vector<int> rootPages(const QString& project, const QByteArray& table)
{
    std::vector<int> pages;
    sqlite3* raw = nullptr;
    sqlite3_open(project.toUtf8().constData(), &raw);
    sqlite3_stmt* statement = nullptr;
    const QByteArray sql =
        "SELECT rootpage FROM sqlite_schema WHERE rootpage > 1 AND tbl_name = '" + table + "'";
    sqlite3_prepare_v2(raw, sql.constData(), -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW)
        pages.push_back(sqlite3_column_int(statement, 0));
    sqlite3_finalize(statement);
    sqlite3_close(raw);
    return pages;
}

} // namespace

class TestOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void openingShowsTheTagsAndTheFileName();
    void anEmptyProjectShowsRecordZeroOfZero();
    void openingPutsTheProjectFirstInTheRecentList();
    void importAndExportAreOfferedOnlyForALinkedProject();
    void anEmptyTextCountsAsLinked();
    void theAvailabilityCheckTellsItsFailure();
    void aMissingFileIsToldAndBringsTheDialog();
    void aMissingFolderIsTold();
    void aReadOnlyFileIsToldAndEndsTheAvailabilityChecks();
    void refreshingWithAPendingEditIsRefused();
    void brokenFilesAreTold_data();
    void brokenFilesAreTold();
    void aDamagedTableIsToldAndTheWindowLives();
    void aFailedOpeningKeepsWhatTheGridShowed();
    void aFileLockedByAnotherProgramIsTold();
    void cancellingTheOpenDialogIsSilent();
    void theOpenDialogIsAskedAsUsual();
    void theTemplateNameIsRefusedInTheOpenDialogInAnyCase();
    void aPathArgumentMayNameTheTemplate();
    void openingFailsWithAMessageWithoutTheRecentList();

    void creatingMakesAProjectFromTheTemplate();
    void theSaveDialogIsAskedAsUsual();
    void cancellingTheSaveDialogIsSilent();
    void theTemplateNameIsRefusedInTheSaveDialog();
    void overwritingAsksAndReplacesOnYes();
    void answeringNoOpensTheExistingFileAndReplacesItsFolders();
    void creatingOverTheOpenProjectIsSafe();
    void creatingWithAPendingRowLeavesTheOpenProjectAlone();
    void creatingEndsInTheProjectInformation();
    void aFailureOfTheProjectInformationIsTold();
    void creatingWithoutTheTemplateIsTold();
    void creatingInAFolderWithoutRightsIsTold();

private:
    toolkit::DataGrid& grid() { return *m_window->findChild<toolkit::DataGrid*>(u"GridIndex"_s); }
    bool enabled(const QString& name) { return m_window->findChild<QWidget*>(name)->isEnabled(); }
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
    std::unique_ptr<index::frmIndex> m_window;
};

void TestOpening::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    m_window = std::make_unique<index::frmIndex>();
    m_window->show();
}

void TestOpening::cleanup()
{
    m_window.reset();
    m_fixture.reset();
}

void TestOpening::openingShowsTheTagsAndTheFileName()
{
    const QString project = m_fixture->sampleProject();
    m_window->OpenIndex(project);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(app::g_strIndexFile, project);
    QCOMPARE(panel(*m_window, 2), u"sample.mdb"_s);
    store::Recordset& tags = m_window->dbIndex().Recordset();
    tags.MoveLast();
    QCOMPARE(tags.RecordCount(), 418);
    QCOMPARE(panel(*m_window, 1), u"Record: 418 of 418"_s);
    QVERIFY(enabled(u"GridIndex"_s));
}

void TestOpening::anEmptyProjectShowsRecordZeroOfZero()
{
    m_window->OpenIndex(m_fixture->emptyProject());
    QCOMPARE(panel(*m_window, 1), u"Record: 0 of 0"_s);
    QCOMPARE(m_window->ActiveTag(), QString());
    QVERIFY(enabled(u"GridIndex"_s));
}

void TestOpening::openingPutsTheProjectFirstInTheRecentList()
{
    const QString project = m_fixture->emptyProject();
    m_window->OpenIndex(project);
    QCOMPARE(app::g_objRegHndlr->GetLastIndexLocation(), project);
}

void TestOpening::importAndExportAreOfferedOnlyForALinkedProject()
{
    const QString project = m_fixture->emptyProject();
    m_window->OpenIndex(project);
    QVERIFY(!app::g_blnPidLinked);
    QVERIFY(!enabled(u"cmdImport"_s));
    QVERIFY(!enabled(u"cmdExport"_s));
    ProgramFixture::execute(project,
                            u"update qryProjectInfo set attributeValue = 'pid.mdb' where "
                            u"attributeName = 'DefaultP&IDDatabase'"_s);
    m_window->OpenIndex(project);
    QVERIFY(app::g_blnPidLinked);
    QVERIFY(enabled(u"cmdImport"_s));
    QVERIFY(enabled(u"cmdExport"_s));
}

void TestOpening::anEmptyTextCountsAsLinked()
{
    const QString project = m_fixture->emptyProject();
    ProgramFixture::execute(project,
                            u"update qryProjectInfo set attributeValue = '' where "
                            u"attributeName = 'DefaultP&IDDatabase'"_s);
    m_window->OpenIndex(project);
    QVERIFY(app::g_blnPidLinked);
}

void TestOpening::theAvailabilityCheckTellsItsFailure()
{
    const QString project = m_fixture->emptyProject();
    sqlite3* raw = nullptr;
    sqlite3_open(project.toUtf8().constData(), &raw);
    sqlite3_exec(raw, "DROP VIEW qryProjectInfo", nullptr, nullptr, nullptr);
    sqlite3_close(raw);
    m_window->OpenIndex(project);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"An Error Has Occured During the Operation\r\n3078 "_s),
             qPrintable(shown[0]));
}

void TestOpening::aMissingFileIsToldAndBringsTheDialog()
{
    const QString missing = m_fixture->path(u"gone.mdb"_s);
    m_window->OpenIndex(missing);
    const QStringList shown = texts();
    QCOMPARE(shown[0], u"File "_s + missing + u" does not exist or has been moved."_s);
    // The opening goes on behind the failed loading, with no project to look into.
    QCOMPARE(shown.size(), 2);
    QVERIFY(shown[1].startsWith(u"An Error Has Occured During the Operation\r\n3024 "_s));
    QCOMPARE(m_fixture->prompts.fileRequests.size(), std::size_t{1});
    QCOMPARE(app::g_strIndexFile, QString());
    QVERIFY(!enabled(u"GridIndex"_s));
}

void TestOpening::aMissingFolderIsTold()
{
    m_window->OpenIndex(m_fixture->path(u"no/such/folder/a.mdb"_s));
    const QStringList shown = texts();
    QVERIFY2(shown[0].startsWith(u"Error while refreshing database. \r\nError : 3044. "_s),
             qPrintable(shown[0]));
    QVERIFY(!enabled(u"GridIndex"_s));
}

void TestOpening::aReadOnlyFileIsToldAndEndsTheAvailabilityChecks()
{
    const QString readOnly = m_fixture->emptyProject(u"locked.mdb"_s);
    const QString linked = m_fixture->emptyProject(u"linked.mdb"_s);
    ProgramFixture::execute(linked,
                            u"update qryProjectInfo set attributeValue = 'pid.mdb' where "
                            u"attributeName = 'DefaultP&IDDatabase'"_s);
    ::chmod(m_fixture->path(QString()).toUtf8().constData(), 0777);
    ::chmod(readOnly.toUtf8().constData(), 0444);
    {
        const tests::WithoutRoot user;
        m_window->OpenIndex(readOnly);
    }
    QVERIFY(texts().contains(u"Error while reading from "_s + readOnly
                             + u". Database is read only."_s));
    QVERIFY(!enabled(u"GridIndex"_s));
    m_fixture->prompts.takeTexts();
    m_window->OpenIndex(linked);
    QVERIFY(enabled(u"GridIndex"_s));
    QVERIFY(!app::g_blnPidLinked);
    QVERIFY(!enabled(u"cmdImport"_s));
}

void TestOpening::refreshingWithAPendingEditIsRefused()
{
    m_window->OpenIndex(m_fixture->sampleProject());
    grid().Columns(2).setValue(u"typed"_s);
    QTest::mouseClick(m_window->findChild<QPushButton*>(u"cmdRefresh"_s), Qt::LeftButton);
    QCOMPARE(texts(), QStringList{u"Please save the data before refresh"_s});
    QCOMPARE(grid().Columns(2).Value().text(), u"typed"_s);
}

void TestOpening::brokenFilesAreTold_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("number");

    const ProgramFixture fixture;
    QFile whole(fixture.sampleProject());
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    QByteArray newer = bytes;
    newer[63] = 99; // user_version, the last of four bytes
    QByteArray damaged = bytes;
    damaged.replace(4096, 40000, QByteArray(40000, '\x5a'));

    QTest::newRow("empty") << QByteArray() << u"3343"_s;
    QTest::newRow("a text") << QByteArray("no database at all") << u"3343"_s;
    QTest::newRow("random bytes") << QByteArray(5000, '\xc7') << u"3343"_s;
    QTest::newRow("another database format")
        << QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20) + QByteArray(8000, '\0')
        << u"3343"_s;
    QTest::newRow("cut off") << bytes.left(bytes.size() / 2) << u"3049"_s;
    QTest::newRow("header only") << bytes.left(100) << u"3049"_s;
    QTest::newRow("newer") << newer << u"3343"_s;
    QTest::newRow("damaged inside") << damaged << u"3049"_s;
}

void TestOpening::brokenFilesAreTold()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, number);
    m_window->OpenIndex(m_fixture->file(u"broken.mdb"_s, content));
    const QStringList shown = texts();
    QVERIFY(!shown.isEmpty());
    QVERIFY2(
        shown[0].startsWith(u"Error while refreshing database. \r\nError : "_s + number + u". "_s),
        qPrintable(shown[0]));
    QVERIFY(!enabled(u"GridIndex"_s));
}

void TestOpening::aDamagedTableIsToldAndTheWindowLives()
{
    const QString whole = m_fixture->sampleProject();
    const QString project = m_fixture->sampleProject(u"damaged.mdb"_s);
    const std::vector<int> roots = rootPages(project, "index");
    QVERIFY(!roots.empty());
    QFile file(project);
    QVERIFY(file.open(QIODevice::ReadWrite));
    for (const int page : roots) {
        QVERIFY(file.seek((page - 1) * qint64{4096}));
        file.write(QByteArray(4096, '\x5a'));
    }
    file.close();
    m_window->OpenIndex(whole);
    const QString tag = m_window->ActiveTag();
    m_window->OpenIndex(project);
    QVERIFY2(texts().at(0).startsWith(u"Error while refreshing database. \r\nError : 3049. "_s),
             "the damage is told");
    m_window->grab();
    QCOMPARE(m_window->ActiveTag(), tag);
}

void TestOpening::aFailedOpeningKeepsWhatTheGridShowed()
{
    m_window->OpenIndex(m_fixture->sampleProject());
    const QString tag = m_window->ActiveTag();
    m_window->OpenIndex(m_fixture->file(u"broken.mdb"_s, "no database"));
    QCOMPARE(m_window->ActiveTag(), tag);
    QVERIFY(enabled(u"GridIndex"_s));
}

void TestOpening::aFileLockedByAnotherProgramIsTold()
{
    const QString project = m_fixture->sampleProject();
    sqlite3* other = nullptr;
    sqlite3_open(project.toUtf8().constData(), &other);
    QCOMPARE(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    m_window->OpenIndex(project);
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    const QStringList shown = texts();
    QVERIFY2(shown[0].startsWith(u"Error while refreshing database. \r\nError : 3260. "_s),
             qPrintable(shown[0]));
    m_window->OpenIndex(project);
    QCOMPARE(texts(), QStringList());
    QVERIFY(enabled(u"GridIndex"_s));
}

void TestOpening::cancellingTheOpenDialogIsSilent()
{
    const QString project = m_fixture->sampleProject();
    m_window->OpenIndex(project);
    m_window->OpenIndex(QString());
    QCOMPARE(texts(), QStringList());
    QCOMPARE(app::g_strIndexFile, project);
}

void TestOpening::theOpenDialogIsAskedAsUsual()
{
    m_window->OpenIndex(QString());
    const toolkit::FileRequest first = m_fixture->prompts.fileRequests.back();
    QCOMPARE(first.title, u"Open project..."_s);
    QCOMPARE(first.filter, u"All Files (*.*)|*.*|Ostrand Instrument Datasheets (*.mdb)|*.mdb"_s);
    QCOMPARE(first.filterIndex, 2);
    QVERIFY(!first.save);
    QVERIFY(first.fileName.endsWith(u"bin"_s));

    const QString project = m_fixture->sampleProject();
    m_fixture->prompts.files = {project};
    m_window->OpenIndex(QString());
    QCOMPARE(app::g_strIndexFile, project);
    m_window->OpenIndex(QString());
    QCOMPARE(m_fixture->prompts.fileRequests.back().fileName, project);
}

void TestOpening::theTemplateNameIsRefusedInTheOpenDialogInAnyCase()
{
    const QString project = m_fixture->sampleProject();
    m_window->OpenIndex(project);
    const QString other = m_fixture->emptyProject(u"INDEX.MDB"_s);
    m_fixture->prompts.files = {other};
    m_window->OpenIndex(QString());
    QCOMPARE(texts(), QStringList{u"Index database cannot be opened"_s});
    QCOMPARE(app::g_strIndexFile, other);
    QCOMPARE(m_window->dbIndex().DatabaseName(), project);
}

void TestOpening::aPathArgumentMayNameTheTemplate()
{
    m_window->OpenIndex(m_fixture->emptyProject(u"index.mdb"_s));
    QCOMPARE(texts(), QStringList());
    QVERIFY(enabled(u"GridIndex"_s));
}

void TestOpening::openingFailsWithAMessageWithoutTheRecentList()
{
    app::g_objRegHndlr.reset();
    m_window->OpenIndex(m_fixture->emptyProject());
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while opening index. \r\nError : 91. "_s),
             qPrintable(shown[0]));
}

void TestOpening::creatingMakesAProjectFromTheTemplate()
{
    const QString project = m_fixture->path(u"new.mdb"_s);
    m_fixture->prompts.files = {project};
    m_window->CreateIndex();
    QCOMPARE(texts(), QStringList());
    QCOMPARE(app::g_strIndexFile, project);
    QCOMPARE(panel(*m_window, 2), u"new.mdb"_s);
    QCOMPARE(app::g_objRegHndlr->GetLastIndexLocation(), project);
    QVERIFY(enabled(u"GridIndex"_s));
    QCOMPARE(m_window->FolderDatasheets(), QFileInfo(project).path());
    QVERIFY(m_window->FolderTemplates().endsWith(u"bin/Templates"_s));
    QCOMPARE(m_window->DatasheetLogoFile(), QString());
}

void TestOpening::theSaveDialogIsAskedAsUsual()
{
    m_window->CreateIndex();
    const toolkit::FileRequest request = m_fixture->prompts.fileRequests.back();
    QCOMPARE(request.title, u"Save Project as..."_s);
    QCOMPARE(request.filter, u"All Files (*.*)|*.*|Ostrand Instrument Datasheets(*.mdb)|*.mdb"_s);
    QCOMPARE(request.filterIndex, 2);
    QVERIFY(request.save);
}

void TestOpening::cancellingTheSaveDialogIsSilent()
{
    m_window->CreateIndex();
    QCOMPARE(texts(), QStringList());
    QCOMPARE(app::g_strIndexFile, QString());
    QVERIFY(!enabled(u"GridIndex"_s));
}

void TestOpening::theTemplateNameIsRefusedInTheSaveDialog()
{
    const QString reserved = m_fixture->path(u"Index.Mdb"_s);
    m_fixture->prompts.files = {reserved};
    m_window->CreateIndex();
    QCOMPARE(texts(), QStringList{u"Index.mdb name cannot be used for storing database"_s});
    QCOMPARE(app::g_strIndexFile, reserved);
    QVERIFY(!QFile::exists(reserved));
}

void TestOpening::overwritingAsksAndReplacesOnYes()
{
    const QString project = m_fixture->sampleProject();
    m_fixture->prompts.files = {project};
    m_fixture->prompts.answers = {toolkit::Answer::Yes};
    m_window->CreateIndex();
    const toolkit::Box box = m_fixture->prompts.boxes.at(0);
    QCOMPARE(box.text,
             u"The following file already exists\r\n"_s + project
                 + u"\r\nDo you wish to overwrite it?"_s);
    QVERIFY(box.buttons == toolkit::BoxButtons::YesNo);
    QCOMPARE(panel(*m_window, 1), u"Record: 0 of 0"_s);
}

void TestOpening::answeringNoOpensTheExistingFileAndReplacesItsFolders()
{
    const QString project = m_fixture->sampleProject();
    ProgramFixture::execute(project,
                            u"update qryProjectInfo set attributeValue = 'elsewhere' where "
                            u"attributeName = 'DefaultDatasheetFolder'"_s);
    m_fixture->prompts.files = {project};
    m_fixture->prompts.answers = {toolkit::Answer::No};
    m_window->CreateIndex();
    m_window->dbIndex().Recordset().MoveLast();
    QCOMPARE(m_window->dbIndex().Recordset().RecordCount(), 418);
    QCOMPARE(m_window->FolderDatasheets(), QFileInfo(project).path());
}

void TestOpening::creatingOverTheOpenProjectIsSafe()
{
    const QString project = m_fixture->sampleProject();
    m_window->OpenIndex(project);
    m_fixture->prompts.files = {project};
    m_fixture->prompts.answers = {toolkit::Answer::Yes};
    m_window->CreateIndex();
    QCOMPARE(panel(*m_window, 1), u"Record: 0 of 0"_s);
    QCOMPARE(ProgramFixture::value(project, u"select count(*) from [index]"_s), u"0"_s);
    QCOMPARE(
        ProgramFixture::value(project,
                              u"select attributeValue from qryProjectInfo where attributeName = "
                              u"'DefaultDatasheetFolder'"_s),
        QFileInfo(project).path());
}

void TestOpening::creatingWithAPendingRowLeavesTheOpenProjectAlone()
{
    const QString project = m_fixture->sampleProject();
    m_window->OpenIndex(project);
    const QString folder = m_window->FolderTemplates();
    grid().Columns(2).setValue(u"typed"_s);
    m_fixture->prompts.files = {m_fixture->path(u"new.mdb"_s)};
    m_window->CreateIndex();
    QCOMPARE(texts(), QStringList{u"Please save the data before refresh"_s});
    QCOMPARE(m_window->FolderTemplates(), folder);
    QCOMPARE(grid().Columns(2).Value().text(), u"typed"_s);
}

void TestOpening::creatingEndsInTheProjectInformation()
{
    int shown = 0;
    m_window->setCommands({.ShowProjectInfo = [&] { ++shown; }});
    m_fixture->prompts.files = {m_fixture->path(u"new.mdb"_s)};
    m_window->CreateIndex();
    QCOMPARE(shown, 1);
}

void TestOpening::aFailureOfTheProjectInformationIsTold()
{
    m_window->setCommands({.ShowProjectInfo = [] { throw store::Error(9, u"Out of range"_s); }});
    m_fixture->prompts.files = {m_fixture->path(u"new.mdb"_s)};
    m_window->CreateIndex();
    QCOMPARE(texts(),
             QStringList{u"Error while opening Instrument Index Title Information.\r\n"
                         u"9 : Out of range"_s});
}

void TestOpening::creatingWithoutTheTemplateIsTold()
{
    app::setInstallationFolder(m_fixture->path(u"nowhere"_s));
    m_fixture->prompts.files = {m_fixture->path(u"new.mdb"_s)};
    m_window->CreateIndex();
    const QStringList shown = texts();
    QVERIFY2(shown.at(0).startsWith(u"Error while creating index. \r\nError : "_s),
             qPrintable(shown.at(0)));
    QVERIFY(!QFile::exists(m_fixture->path(u"new.mdb"_s)));
}

void TestOpening::creatingInAFolderWithoutRightsIsTold()
{
    QDir(m_fixture->path(QString())).mkdir(u"closed"_s);
    ::chmod(m_fixture->path(u"closed"_s).toUtf8().constData(), 0555);
    ::chmod(m_fixture->path(QString()).toUtf8().constData(), 0777);
    m_fixture->prompts.files = {m_fixture->path(u"closed/new.mdb"_s)};
    {
        const tests::WithoutRoot user;
        m_window->CreateIndex();
    }
    const QStringList shown = texts();
    QVERIFY2(shown.at(0).startsWith(u"Error while creating index. \r\nError : 70. "_s),
             qPrintable(shown.at(0)));
}

QTEST_MAIN(TestOpening)
#include "tst_opening.moc"
