// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/frmDoc.h"
#include "documents/window_desk.h"
#include "support/full_disk.h"
#include "support/without_root.h"
#include "viewing/frmViewDatasheets.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace ostrand;
using documents::frmDoc;
using tests::Desk;
using tests::IndexFixture;
using toolkit::Answer;
using toolkit::BoxIcon;

namespace {

enum Column { DocNo, Title, DocType, Path, Filename };

const QString deletedMark = u"**DELETED**"_s;

} // namespace

class TestFrmDoc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuOpensAModalWindowWithAllDocuments();
    void closingTheWindowReadsTheIndexAnew();
    void theControlsHaveTheirCaptions();
    void theColumnsHaveTheProjectsCaptionsOrTheirOwn();
    void everyControlHasAnAccessibleName();
    void aWindowThatIsShownAlreadyIsTold();
    void aProjectThatCannotBeReadIsToldAndTheWindowOpens_data();
    void aProjectThatCannotBeReadIsToldAndTheWindowOpens();
    void aProjectWithoutRightsIsTold();
    void commandsWithoutDataDoNothingButSaving();

    void aHeaderSortsAndRefreshKeepsTheOrder();
    void theNextOpeningIsInTheOrderOfTheNumbers();
    void sortingWithAPendingRowIsTold();
    void refreshWithAPendingRowIsTold();

    void aTitleIsTypedAndSaved();
    void anEmptiedTitleIsStoredAsNull();
    void aNewDocumentIsAddedWithItsKindFromTheList();
    void aNewRowWithoutANumberIsRefusedAndStays();
    void aNumberThatExistsIsRefusedAndStays_data();
    void aNumberThatExistsIsRefusedAndStays();
    void aNumberWithAnApostropheIsStored();
    void aRenamedDocumentKeepsItsTies();
    void savingWithNothingPendingIsTold();
    void anUnknownKindIsToldInTheEnginesWords();
    void aLockedProjectIsToldAndTheRowStays();
    void aFullDiskIsToldAndTheRowStays();
    void aDocumentThatAnotherProgramDeletedIsTold();
    void aFailureAheadOfTheWriteIsTold();
    void whatKeepsARecordFromBeingWrittenIsTold();

    void mappingAsksForAFileAndStoresIt();
    void mappingOnTheNewRowNeedsANumber();
    void cancellingTheDialogChangesNothing();
    void aPathThatCannotBeSplitIsTold_data();
    void aPathThatCannotBeSplitIsTold();
    void aNameThatIsTooLongIsTold();
    void aFailingDialogIsTold();

    void viewingPassesTheFolderAndTheNameOn();
    void viewingADatasheetListsItsTags();
    void viewingADatasheetThatCannotBeReadIsTold();
    void viewingWithoutARecordDoesNothing();

    void deletingAsksFirst();
    void deletingWithoutAFileAsksOnce();
    void deletingTakesTheTiesAlong();
    void theFileIsDeletedOnlyWhenTheUserSaysSo_data();
    void theFileIsDeletedOnlyWhenTheUserSaysSo();
    void aFileThatCannotBeDeletedIsToldAndTheRecordGoes_data();
    void aFileThatCannotBeDeletedIsToldAndTheRecordGoes();
    void aFileInAFolderWithoutRightsStaysAndIsTold();
    void aNameWithoutAFolderDeletesNoFile();
    void deletingMovesBackOneRecord();
    void deletingARowBeingAddedDropsIt();
    void deletingOnTheNewRowDoesNothing();
    void aDeletionInALockedProjectIsTold();
    void theSentinelCanBeDeleted();
    void rowsAreNotDeletedByTheirKey();

    void closingWritesThePendingRow();
    void aRowThatCannotBeWrittenKeepsTheWindowOpen();
    void everyCommandHasItsKey();
    void theControlsFollowTheWindowsSize();

private:
    void open(const std::function<void(Desk&)>& steps)
    {
        tests::inModal<frmDoc>([this] { m->choose(u"mnuDocAll"_s); },
                               [&](frmDoc& window) {
                                   Desk desk(window, *m);
                                   steps(desk);
                               });
    }
    QString stored(const QString& number, const QString& field) const
    {
        return IndexFixture::value(m_project,
                                   u"select "_s + field + u" from document where docNo = '"_s
                                       + number + u"'"_s);
    }
    void addWithFile(const QString& number, const QString& folder, const QString& name) const
    {
        IndexFixture::execute(m_project,
                              u"insert into document (docNo, docType, Path, Filename) values ('"_s
                                  + number + u"', 'PID', '"_s + folder + u"', '"_s + name
                                  + u"')"_s);
    }

    std::unique_ptr<IndexFixture> m;
    QString m_project;
};

void TestFrmDoc::init()
{
    m = std::make_unique<IndexFixture>();
    m_project = m->emptyProject();
    m->project = m_project;
    m->addTag(u"PT-1001"_s);
    m->addDocument(u"D-1"_s, u"PID"_s);
    m->addDocument(u"D-2"_s, u"LOOP DWG"_s);
    m->addDocument(u"D-3"_s, u"DATASHEET"_s);
    IndexFixture::execute(m_project, u"update document set Title = 'Zulu' where docNo = 'D-1'"_s);
    IndexFixture::execute(m_project, u"update document set Title = 'Alpha' where docNo = 'D-3'"_s);
    m->open(m_project);
    // No program opens any file here.
    viewing::g_objViewer =
        std::make_unique<viewing::CViewer>([](const QString&, QString&) { return false; });
    m->texts();
}

void TestFrmDoc::cleanup()
{
    viewing::g_objViewer.reset();
    m.reset();
}

// ---- the window

void TestFrmDoc::theMenuOpensAModalWindowWithAllDocuments()
{
    open([](Desk& desk) {
        QCOMPARE(desk.window.windowTitle(), u"Documents"_s);
        QVERIFY(desk.window.isModal());
        QVERIFY(desk.grid().hasFocus());
        QCOMPARE(desk.shownColumn(DocNo), QStringList({deletedMark, u"D-1"_s, u"D-2"_s, u"D-3"_s}));
        QCOMPARE(desk.shown(2, DocType), u"LOOP DWG"_s);
        QCOMPARE(desk.data(u"dbDoc"_s).RecordSource(), u"qryDoc"_s);
        QCOMPARE(desk.data(u"dbDocType"_s).RecordSource(), u"plDocType"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::closingTheWindowReadsTheIndexAnew()
{
    auto* list = m->window.findChild<toolkit::DataControl*>(u"dbDocPid"_s);
    const QSignalSpy read(list, &toolkit::DataControl::refreshed);
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"D-9"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(read.size(), 0);
        desk.press(u"cmdExit"_s);
        QVERIFY(!desk.window.isVisible());
    });
    QCOMPARE(read.size(), 1);
    QVERIFY(!m->window.findChild<frmDoc*>());
}

void TestFrmDoc::theControlsHaveTheirCaptions()
{
    open([](Desk& desk) {
        QCOMPARE(desk.button(u"cmdMap"_s).text(), u"&Map"_s);
        QCOMPARE(desk.button(u"cmdView"_s).text(), u"&View"_s);
        QCOMPARE(desk.button(u"cmdDelete"_s).text(), u"&Delete"_s);
        QCOMPARE(desk.button(u"cmdSave"_s).text(), u"&Save"_s);
        QCOMPARE(desk.button(u"cmdRefresh"_s).text(), u"&Refresh"_s);
        QCOMPARE(desk.button(u"cmdExit"_s).text(), u"&Exit"_s);
        QCOMPARE(desk.grid().objectName(), u"gridDoc"_s);
    });
}

void TestFrmDoc::theColumnsHaveTheProjectsCaptionsOrTheirOwn()
{
    const QString captions = u"delete from FormColumnNames where FormName = 'frmDoc'"_s;
    const auto shown = [this] {
        QStringList names;
        QStringList headers;
        open([&](Desk& desk) {
            for (int i = 0; i < desk.grid().ColumnCount(); ++i) {
                names << desk.grid().Columns(i).Name();
                headers << desk.grid().Columns(i).Caption();
            }
        });
        QStringList expected{u"docNo"_s, u"Title"_s, u"docType"_s, u"Path"_s, u"Filename"_s};
        return names == expected ? headers : names;
    };
    QCOMPARE(shown(),
             QStringList(
                 {u"Document No."_s, u"Title"_s, u"Document Type"_s, u"Path"_s, u"File Name"_s}));
    IndexFixture::execute(m_project, captions);
    QCOMPARE(shown(),
             QStringList({u"Document No."_s, u"Title"_s, u"docType"_s, u"Path"_s, u"Filename"_s}));
}

void TestFrmDoc::everyControlHasAnAccessibleName()
{
    open([](Desk& desk) {
        for (auto* widget : desk.window.findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()
                || widget->objectName().startsWith(u"qt_"_s))
                continue;
            auto* face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(!face->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
        }
    });
}

void TestFrmDoc::aWindowThatIsShownAlreadyIsTold()
{
    open([](Desk& desk) {
        static_cast<frmDoc&>(desk.window).ShowInfo();
        desk.expectFailure(u"Error while loading document Window\r\n400 : "_s);
        QVERIFY(desk.window.isVisible());
    });
}

void TestFrmDoc::aProjectThatCannotBeReadIsToldAndTheWindowOpens_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::newRow("gone") << u"gone.mdb"_s << 3024;
    QTest::newRow("no folder") << u"gone/project.mdb"_s << 3044;
    QTest::newRow("no database") << u"text.mdb"_s << 3343;
}

void TestFrmDoc::aProjectThatCannotBeReadIsToldAndTheWindowOpens()
{
    QFETCH(QString, file);
    QFETCH(int, number);
    m->file(u"text.mdb"_s, "no database at all, but a text that is long enough");
    app::g_strIndexFile = m->path(file);
    open([&](Desk& desk) {
        desk.expectFailure(u"Error while loading documents. \r\nError : "_s
                           + QString::number(number) + u". "_s);
        app::g_strIndexFile = m_project;
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(desk.rows(), 5);
    });
}

void TestFrmDoc::aProjectWithoutRightsIsTold()
{
    const QString other = m->emptyProject(u"other.mdb"_s);
    ::chmod(m->path(QString()).toUtf8().constData(), 0755);
    ::chmod(other.toUtf8().constData(), 0444);
    app::g_strIndexFile = other;
    const tests::WithoutRoot user;
    open([this](Desk& desk) {
        app::g_strIndexFile = m_project;
        desk.expectFailure(u"Error while loading documents. \r\nError : 3051. "_s);
    });
}

void TestFrmDoc::commandsWithoutDataDoNothingButSaving()
{
    app::g_strIndexFile = m->path(u"gone.mdb"_s);
    open([this](Desk& desk) {
        m->texts();
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Error while saving data .\r\n3020 : "_s);
        desk.press(u"cmdDelete"_s);
        desk.press(u"cmdView"_s);
        QCOMPARE(m->texts(), QStringList());
        app::g_strIndexFile = m_project;
    });
}

// ---- the order

void TestFrmDoc::aHeaderSortsAndRefreshKeepsTheOrder()
{
    open([](Desk& desk) {
        QHeaderView* header = desk.grid().horizontalHeader();
        QTest::mouseClick(header->viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(header->sectionViewportPosition(Title) + 20, 5));
        QCOMPARE(desk.data(u"dbDoc"_s).RecordSource(), u"select * from qryDoc order by Title"_s);
        QCOMPARE(desk.shownColumn(Title),
                 QStringList({QString(), QString(), u"Alpha"_s, u"Zulu"_s}));
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(desk.shownColumn(Title),
                 QStringList({QString(), QString(), u"Alpha"_s, u"Zulu"_s}));
        for (int column = 0; column < desk.grid().ColumnCount(); ++column) {
            desk.window.Sort(column);
            QCOMPARE(desk.rows(), 5);
        }
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::theNextOpeningIsInTheOrderOfTheNumbers()
{
    open([](Desk& desk) { desk.window.Sort(Title); });
    open([](Desk& desk) {
        QCOMPARE(desk.shownColumn(DocNo), QStringList({deletedMark, u"D-1"_s, u"D-2"_s, u"D-3"_s}));
    });
}

void TestFrmDoc::sortingWithAPendingRowIsTold()
{
    open([](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        desk.window.Sort(Path);
        desk.expectFailure(
            u"Error while loading sorting documents spreadsheet. \r\nError : 444. "_s);
        QCOMPARE(desk.cell(Title), u"x"_s);
        QCOMPARE(desk.data(u"dbDoc"_s).RecordSource(), u"qryDoc"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmDoc::refreshWithAPendingRowIsTold()
{
    open([](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        desk.press(u"cmdRefresh"_s);
        desk.expectFailure(u"Error while loading documents. \r\nError : 444. "_s);
        QCOMPARE(desk.cell(Title), u"x"_s);
        desk.grid().cancelRow();
    });
}

// ---- writing

void TestFrmDoc::aTitleIsTypedAndSaved()
{
    open([this](Desk& desk) {
        desk.goTo(u"D-2"_s, Title);
        desk.type(u"Loop P-1001"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"D-2"_s, u"Title"_s), u"Loop P-1001"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::anEmptiedTitleIsStoredAsNull()
{
    open([this](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.key(Qt::Key_Delete);
        desk.goTo(u"D-1"_s, DocType);
        desk.key(Qt::Key_Delete);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"(null)"_s);
        QCOMPARE(stored(u"D-1"_s, u"docType"_s), u"(null)"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aNewDocumentIsAddedWithItsKindFromTheList()
{
    IndexFixture::execute(m_project, u"insert into plDocType values ('SKETCH')"_s);
    open([this](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"S-1"_s);
        desk.key(Qt::Key_Tab);
        desk.key(Qt::Key_Tab);
        desk.key(Qt::Key_Down, Qt::AltModifier);
        desk.type(u"sk"_s);
        desk.key(Qt::Key_Down);
        desk.key(Qt::Key_Return);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"S-1"_s, u"docType"_s), u"SKETCH"_s);
        QCOMPARE(stored(u"S-1"_s, u"Title"_s), u"(null)"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aNewRowWithoutANumberIsRefusedAndStays()
{
    open([this](Desk& desk) {
        desk.goToNewRow(Title);
        desk.type(u"a title"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Document number cannot be null"_s);
        desk.grid().setFocus();
        desk.key(Qt::Key_Up);
        desk.expectFailure(u"Document number cannot be null"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(Title), u"a title"_s);
        desk.goToNewRow();
        desk.type(u"S-2"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"S-2"_s, u"Title"_s), u"a title"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aNumberThatExistsIsRefusedAndStays_data()
{
    QTest::addColumn<QString>("number");
    QTest::newRow("same") << u"D-1"_s;
    QTest::newRow("other case") << u"d-1"_s;
}

void TestFrmDoc::aNumberThatExistsIsRefusedAndStays()
{
    QFETCH(QString, number);
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(number);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Record cannot be saved due to duplicate document number"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(DocNo), number);
        desk.grid().cancelRow();
        desk.goTo(u"D-2"_s);
        desk.type(number);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Record cannot be saved due to duplicate document number"_s);
        QCOMPARE(desk.cell(DocNo), number);
        desk.grid().cancelRow();
    });
    QCOMPARE(stored(u"D-2"_s, u"docType"_s), u"LOOP DWG"_s);
}

void TestFrmDoc::aNumberWithAnApostropheIsStored()
{
    open([this](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"O'Hara-1"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"O''Hara-1"_s, u"docNo"_s), u"O'Hara-1"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document O'Hara-1?"_s);
        QCOMPARE(stored(u"O''Hara-1"_s, u"docNo"_s), u"(none)"_s);
    });
}

void TestFrmDoc::aRenamedDocumentKeepsItsTies()
{
    m->addTie(u"PT-1001"_s, u"D-1"_s, u"PID"_s);
    open([](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.type(u"D-11"_s);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(m->ties(u"PT-1001"_s), QStringList{u"D-11/PID"_s});
    QCOMPARE(m->cellText(index::column::pid), u"D-11"_s);
}

void TestFrmDoc::savingWithNothingPendingIsTold()
{
    open([](Desk& desk) {
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Error while saving data .\r\n3020 : "_s);
    });
}

void TestFrmDoc::anUnknownKindIsToldInTheEnginesWords()
{
    open([this](Desk& desk) {
        desk.goTo(u"D-1"_s, DocType);
        desk.type(u"SKETCH"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The record cannot be added or changed: it refers to a record that "
                           u"does not exist."_s);
        QCOMPARE(desk.cell(DocType), u"SKETCH"_s);
        desk.grid().cancelRow();
        QCOMPARE(stored(u"D-1"_s, u"docType"_s), u"PID"_s);
    });
}

void TestFrmDoc::aLockedProjectIsToldAndTheRowStays()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        other.run("BEGIN IMMEDIATE");
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The file is locked by another program or user."_s);
        QCOMPARE(desk.cell(Title), u"x"_s);
        other.run("ROLLBACK");
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aFullDiskIsToldAndTheRowStays()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        {
            const tests::FullDisk full;
            desk.press(u"cmdSave"_s);
        }
        desk.expectFailure(u"There is not enough space on the disk."_s);
        QCOMPARE(desk.cell(Title), u"x"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aDocumentThatAnotherProgramDeletedIsTold()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        IndexFixture::execute(m_project, u"delete from document where docNo = 'D-1'"_s);
        desk.press(u"cmdSave"_s);
        const QStringList told = m->texts();
        QCOMPARE(told.filter(u"Error while validating data in spreadsheet. \r\n3167 : "_s).size(),
                 1);
        QCOMPARE(told.filter(u"3167 : Error while  modifying record. "_s).size(), 1);
        desk.grid().cancelRow();
    });
    QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"(none)"_s);
}

void TestFrmDoc::aFailureAheadOfTheWriteIsTold()
{
    frmDoc window;
    bool cancel = false;
    Q_EMIT window.findChild<toolkit::DataGrid*>()->beforeUpdate(cancel);
    QVERIFY(!cancel);
    const QString told = m->texts().value(0);
    QVERIFY2(told.startsWith(u"Error while working in spreadsheet. \r\n91 : "_s), qPrintable(told));
}

void TestFrmDoc::whatKeepsARecordFromBeingWrittenIsTold()
{
    open([this](Desk& desk) {
        desk.data(u"dbDoc"_s).setRecordSource(u"select distinct * from qryDoc"_s);
        desk.press(u"cmdRefresh"_s);
        desk.goToNewRow();
        desk.grid().Columns(Title).setValue(u"x"_s);
        bool save = true;
        Q_EMIT desk.data(u"dbDoc"_s)
            .validate(toolkit::DataControl::Action::Add, save, store::Error(3027, u"read-only"_s));
        desk.expectFailure(u"3027 : Error while  adding a record. read-only"_s);
        desk.grid().cancelRow();
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        desk.key(Qt::Key_Up);
        desk.expectFailure(u"3027 : Error while  modifying record. "_s);
        desk.grid().cancelRow();
        m->prompts.answers = {Answer::Yes};
        desk.goTo(u"D-1"_s, Title);
        desk.press(u"cmdDelete"_s);
        QCOMPARE(m->texts().filter(u"3027 : Error while  deleting a record. "_s).size(), 1);
    });
}

// ---- mapping

void TestFrmDoc::mappingAsksForAFileAndStoresIt()
{
    const QString folder = m->path(QString());
    IndexFixture::execute(m_project,
                          u"update ProjectInfo set attributeValue = '/sheets' where attributeName "
                          u"= 'DefaultDatasheetFolder'"_s);
    m->prompts.files = {m->file(u"plan.pdf"_s, "x")};
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.press(u"cmdMap"_s);
        QCOMPARE(stored(u"D-1"_s, u"Path"_s), folder);
        QCOMPARE(stored(u"D-1"_s, u"Filename"_s), u"plan.pdf"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    const toolkit::FileRequest& request = m->prompts.fileRequests.at(0);
    QCOMPARE(request.title, u"Locate File"_s);
    QCOMPARE(request.folder, u"/sheets"_s);
    QVERIFY(!request.save);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::mappingOnTheNewRowNeedsANumber()
{
    m->prompts.files = {m->file(u"plan.pdf"_s, "x")};
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.press(u"cmdMap"_s);
        desk.expectFailure(u"Document number cannot be null"_s);
        QCOMPARE(desk.cell(Filename), u"plan.pdf"_s);
        desk.goToNewRow();
        desk.type(u"P-1"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"P-1"_s, u"Filename"_s), u"plan.pdf"_s);
    });
}

void TestFrmDoc::cancellingTheDialogChangesNothing()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.press(u"cmdMap"_s);
        QCOMPARE(m->prompts.fileRequests.size(), std::size_t{1});
        QVERIFY(!desk.grid().rowPending());
        QCOMPARE(desk.cell(Path), QString());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::aPathThatCannotBeSplitIsTold_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("told");
    const QString failure = u"Error getting file and path name for document"_s;
    QTest::newRow("in the root") << u"/plan.pdf"_s << QStringList{failure};
    QTest::newRow("a folder") << u"/plans/"_s << QStringList{failure};
    QTest::newRow("bare") << u"plan.pdf"_s
                          << QStringList{u"Error in modText:SeparateFileDir(). "_s, failure};
}

void TestFrmDoc::aPathThatCannotBeSplitIsTold()
{
    QFETCH(QString, chosen);
    QFETCH(QStringList, told);
    m->prompts.files = {chosen, chosen};
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.press(u"cmdMap"_s);
        // The row is saved all the same, although nothing is pending.
        const QStringList expected = told + QStringList{u"Error while saving data .\r\n3020 : "_s};
        const QStringList shown = m->texts();
        QCOMPARE(shown.size(), expected.size());
        for (int i = 0; i < shown.size(); ++i)
            QVERIFY2(shown[i].startsWith(expected[i]), qPrintable(shown[i]));
        QCOMPARE(desk.cell(Path), QString());
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        desk.press(u"cmdMap"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
        QCOMPARE(stored(u"D-1"_s, u"Path"_s), u"(null)"_s);
    });
}

void TestFrmDoc::aNameThatIsTooLongIsTold()
{
    const QString name = QString(60, u'n') + u".pdf"_s;
    m->prompts.files = {u"/plans/"_s + name};
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.press(u"cmdMap"_s);
        desk.expectFailure(
            u"The value is too long for the field Filename, which holds 50 characters."_s);
        QCOMPARE(desk.cell(Filename), name);
        desk.grid().cancelRow();
    });
}

void TestFrmDoc::aFailingDialogIsTold()
{
    QStringList told;
    open([&](Desk& desk) {
        const auto before = toolkit::setPromptHost(std::make_unique<tests::FailingDialogs>(told));
        desk.press(u"cmdMap"_s);
    });
    QCOMPARE(
        told,
        QStringList{u"Error while maping file to document. \r\nError : 57. Device I/O error"_s});
}

// ---- viewing

void TestFrmDoc::viewingPassesTheFolderAndTheNameOn()
{
    const QString folder = m->path(QString());
    m->file(u"plan.pdf"_s, "x");
    addWithFile(u"P-1"_s, folder, u"plan.pdf"_s);
    addWithFile(u"P-2"_s, folder, u"gone.pdf"_s);
    addWithFile(u"P-3"_s, folder, u"plan"_s);
    m->file(u"plan"_s, "x");
    open([&](Desk& desk) {
        const auto view = [&](const QString& number) {
            desk.goTo(number);
            desk.press(u"cmdView"_s);
            return m->texts();
        };
        QCOMPARE(view(u"D-1"_s), QStringList{u"File path or file name is missing!"_s});
        QCOMPARE(view(u"P-1"_s),
                 QStringList{u"Could not find application to open file plan.pdf"_s});
        QCOMPARE(view(u"P-2"_s), QStringList{u"File has been moved or deleted."_s});
        QCOMPARE(view(u"P-3"_s), QStringList{u"Could not find application to open file plan"_s});
        viewing::g_objViewer.reset();
        desk.press(u"cmdView"_s);
        desk.expectFailure(u"Error while viewing document. \r\nError : 91. "_s);
    });
}

void TestFrmDoc::viewingADatasheetListsItsTags()
{
    m->file(u"plan.pdf"_s, "x");
    IndexFixture::execute(m_project,
                          u"update document set Path = '"_s + m->path(QString())
                              + u"', Filename = 'plan.pdf' where docNo = 'D-3'"_s);
    open([&](Desk& desk) {
        desk.goTo(u"D-3"_s);
        tests::inModal<viewing::frmViewDatasheets>([&] { desk.press(u"cmdView"_s); },
                                                   [](viewing::frmViewDatasheets& list) {
                                                       QCOMPARE(list.windowTitle(),
                                                                u"Datasheet D-3"_s);
                                                       list.close();
                                                   });
        QVERIFY(desk.window.isVisible());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::viewingADatasheetThatCannotBeReadIsTold()
{
    open([&](Desk& desk) {
        desk.data(u"dbDoc"_s).setRecordSource(u"select docType from qryDoc where docNo = 'D-3'"_s);
        desk.press(u"cmdRefresh"_s);
        desk.press(u"cmdView"_s);
        desk.expectFailure(u"Error while viewing datasheets. \r\nError : 3265. "_s);
    });
}

void TestFrmDoc::viewingWithoutARecordDoesNothing()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.press(u"cmdView"_s);
    });
    IndexFixture::execute(m_project, u"delete from document"_s);
    open([&](Desk& desk) {
        desk.press(u"cmdView"_s);
        desk.press(u"cmdDelete"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

// ---- deleting

void TestFrmDoc::deletingAsksFirst()
{
    addWithFile(u"P-1"_s, u"/plans"_s, u"plan.pdf"_s);
    open([&](Desk& desk) {
        desk.goTo(u"P-1"_s);
        m->prompts.answers = {Answer::No};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document P-1?"_s);
    });
    QCOMPARE(stored(u"P-1"_s, u"docNo"_s), u"P-1"_s);
}

void TestFrmDoc::deletingWithoutAFileAsksOnce()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document D-1?"_s);
    });
    QCOMPARE(stored(u"D-1"_s, u"docNo"_s), u"(none)"_s);
}

void TestFrmDoc::deletingTakesTheTiesAlong()
{
    m->addTie(u"PT-1001"_s, u"D-1"_s, u"PID"_s);
    m->addTie(u"PT-1001"_s, u"D-2"_s, u"LOOP DWG"_s);
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
    });
    QCOMPARE(m->ties(u"PT-1001"_s), QStringList{u"D-2/LOOP DWG"_s});
}

void TestFrmDoc::theFileIsDeletedOnlyWhenTheUserSaysSo_data()
{
    QTest::addColumn<bool>("agreed");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestFrmDoc::theFileIsDeletedOnlyWhenTheUserSaysSo()
{
    QFETCH(bool, agreed);
    const QString file = m->file(u"plan.pdf"_s, "x");
    addWithFile(u"P-1"_s, m->path(QString()), u"plan.pdf"_s);
    open([&](Desk& desk) {
        desk.goTo(u"P-1"_s);
        m->prompts.answers = {Answer::Yes, agreed ? Answer::Yes : Answer::No};
        desk.press(u"cmdDelete"_s);
        QVERIFY(m->prompts.boxes.at(1).icon == BoxIcon::Question);
        QCOMPARE(m->texts(),
                 QStringList({u"Are you sure you want to delete document P-1?"_s,
                              u"Do you want to delete document fileplan.pdf?"_s}));
    });
    QCOMPARE(stored(u"P-1"_s, u"docNo"_s), u"(none)"_s);
    QCOMPARE(QFile::exists(file), !agreed);
}

void TestFrmDoc::aFileThatCannotBeDeletedIsToldAndTheRecordGoes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("failure");
    QTest::newRow("gone") << u"gone.pdf"_s << u"\r\n53 : "_s;
    QTest::newRow("read-only") << u"plan.pdf"_s << u"\r\n70 : "_s;
}

void TestFrmDoc::aFileThatCannotBeDeletedIsToldAndTheRecordGoes()
{
    QFETCH(QString, name);
    QFETCH(QString, failure);
    const QString folder = m->path(QString());
    const QString file = m->file(u"plan.pdf"_s, "x");
    ::chmod(file.toUtf8().constData(), 0444);
    addWithFile(u"P-1"_s, folder, name);
    open([&](Desk& desk) {
        desk.goTo(u"P-1"_s);
        m->prompts.answers = {Answer::Yes, Answer::Yes};
        desk.press(u"cmdDelete"_s);
        QVERIFY(m->prompts.boxes.back().icon == BoxIcon::Exclamation);
        const QString told = m->texts().value(2);
        QVERIFY2(told.startsWith(u"Error while deleting file "_s + folder + u'/' + name + u"."_s
                                 + failure),
                 qPrintable(told));
    });
    QCOMPARE(stored(u"P-1"_s, u"docNo"_s), u"(none)"_s);
    QVERIFY(QFile::exists(file));
}

void TestFrmDoc::aFileInAFolderWithoutRightsStaysAndIsTold()
{
    QDir(m->path(QString())).mkdir(u"plans"_s);
    const QString file = m->file(u"plans/plan.pdf"_s, "x");
    ::chmod(file.toUtf8().constData(), 0666);
    ::chmod(m->path(u"plans"_s).toUtf8().constData(), 0555);
    ::chmod(m->path(QString()).toUtf8().constData(), 0777);
    ::chmod(m_project.toUtf8().constData(), 0666);
    addWithFile(u"P-1"_s, m->path(u"plans"_s), u"plan.pdf"_s);
    open([&](Desk& desk) {
        desk.goTo(u"P-1"_s);
        m->prompts.answers = {Answer::Yes, Answer::Yes};
        const tests::WithoutRoot user;
        desk.press(u"cmdDelete"_s);
        const QString told = m->texts().value(2);
        QVERIFY2(told.startsWith(u"Error while deleting file "_s + file + u".\r\n70 : "_s),
                 qPrintable(told));
    });
    ::chmod(m->path(u"plans"_s).toUtf8().constData(), 0755);
    QVERIFY(QFile::exists(file));
    QCOMPARE(stored(u"P-1"_s, u"docNo"_s), u"(none)"_s);
}

void TestFrmDoc::aNameWithoutAFolderDeletesNoFile()
{
    IndexFixture::execute(m_project,
                          u"update document set Filename = 'plan.pdf' where docNo = 'D-1'"_s);
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        m->prompts.answers = {Answer::Yes, Answer::Yes};
        desk.press(u"cmdDelete"_s);
        QCOMPARE(m->texts().size(), 2);
    });
    QCOMPARE(stored(u"D-1"_s, u"docNo"_s), u"(none)"_s);
}

void TestFrmDoc::deletingMovesBackOneRecord()
{
    open([&](Desk& desk) {
        m->prompts.answers = {Answer::Yes, Answer::Yes};
        desk.goTo(u"D-2"_s);
        desk.press(u"cmdDelete"_s);
        QCoreApplication::processEvents();
        QCOMPARE(desk.cell(DocNo), u"D-1"_s);
        desk.goTo(deletedMark);
        desk.press(u"cmdDelete"_s);
        QCoreApplication::processEvents();
        QCOMPARE(desk.cell(DocNo), u"D-1"_s);
        QCOMPARE(desk.data(u"dbDoc"_s).Recordset().Field(u"docNo"_s).text(), u"D-1"_s);
    });
}

void TestFrmDoc::deletingARowBeingAddedDropsIt()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"S-1"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document S-1?"_s);
        QVERIFY(!desk.grid().rowPending());
        QCOMPARE(desk.shownColumn(DocNo), QStringList({deletedMark, u"D-1"_s, u"D-2"_s, u"D-3"_s}));
    });
}

void TestFrmDoc::deletingOnTheNewRowDoesNothing()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-2"_s);
        desk.goToNewRow();
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
    });
    QCOMPARE(m->texts(), QStringList());
    QCOMPARE(stored(u"D-2"_s, u"docNo"_s), u"D-2"_s);
}

void TestFrmDoc::aDeletionInALockedProjectIsTold()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        other.run("BEGIN IMMEDIATE");
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        const QString told = m->texts().value(1);
        QVERIFY2(told.startsWith(u"Error while deleting data .\r\n3260 : "_s), qPrintable(told));
        other.run("ROLLBACK");
    });
    QCOMPARE(stored(u"D-1"_s, u"docNo"_s), u"D-1"_s);
}

void TestFrmDoc::theSentinelCanBeDeleted()
{
    open([&](Desk& desk) {
        desk.goTo(deletedMark);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document **DELETED**?"_s);
    });
    QCOMPARE(stored(deletedMark, u"docNo"_s), u"(none)"_s);
}

void TestFrmDoc::rowsAreNotDeletedByTheirKey()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s);
        desk.key(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(desk.grid().SelBookmarks().size(), std::size_t{1});
        m->prompts.answers = {Answer::Yes};
        desk.key(Qt::Key_Delete);
    });
    QCOMPARE(m->texts(), QStringList());
    QCOMPARE(stored(u"D-1"_s, u"docNo"_s), u"D-1"_s);
}

// ---- closing, keys, layout

void TestFrmDoc::closingWritesThePendingRow()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        QVERIFY(desk.window.close());
    });
    QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
}

void TestFrmDoc::aRowThatCannotBeWrittenKeepsTheWindowOpen()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"D-1"_s);
        desk.press(u"cmdExit"_s);
        desk.expectFailure(u"Record cannot be saved due to duplicate document number"_s);
        QVERIFY(desk.window.isVisible());
        // Escape drops the row first, wherever the keyboard is, and closes then.
        desk.button(u"cmdView"_s).setFocus();
        desk.key(Qt::Key_Escape);
        QVERIFY(!desk.grid().rowPending());
        QVERIFY(desk.window.isVisible());
        QVERIFY(desk.grid().hasFocus());
        desk.key(Qt::Key_Escape);
        QVERIFY(!desk.window.isVisible());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDoc::everyCommandHasItsKey()
{
    open([&](Desk& desk) {
        desk.goTo(u"D-1"_s, Title);
        desk.type(u"x"_s);
        desk.pressByKey(u"cmdSave"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
        desk.pressByKey(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete document D-1?"_s);
        desk.pressByKey(u"cmdRefresh"_s);
        desk.pressByKey(u"cmdView"_s);
        QCOMPARE(m->texts().size(), 1);
        desk.pressByKey(u"cmdMap"_s);
        QCOMPARE(m->prompts.fileRequests.size(), std::size_t{1});
        desk.grid().setFocus();
        desk.key(Qt::Key_Tab, Qt::ControlModifier);
        for (const char* name :
             {"cmdSave", "cmdDelete", "cmdRefresh", "cmdView", "cmdMap", "cmdExit"}) {
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
            desk.key(Qt::Key_Tab);
        }
        QVERIFY(desk.grid().hasFocus());
        desk.pressByKey(u"cmdExit"_s);
        QVERIFY(!desk.window.isVisible());
    });
}

void TestFrmDoc::theControlsFollowTheWindowsSize()
{
    open([&](Desk& desk) {
        const auto centre = [&](const char* name) {
            return desk.button(QString::fromLatin1(name)).geometry().center().x();
        };
        for (const QSize size : {QSize(900, 500), QSize(1200, 800)}) {
            desk.window.resize(size);
            QCoreApplication::processEvents();
            const QPushButton& save = desk.button(u"cmdSave"_s);
            QVERIFY(std::abs(desk.grid().width() - size.width()) < 12);
            QVERIFY(desk.grid().geometry().bottom() < save.geometry().top());
            QVERIFY(save.geometry().bottom() < size.height());
            QVERIFY(size.height() - save.geometry().bottom() < 20);
            // The centres stand at equal distances.
            const int step = centre("cmdDelete") - centre("cmdSave");
            QVERIFY(std::abs(step - size.width() / 7) < 4);
            QVERIFY(std::abs(centre("cmdExit") - centre("cmdMap") - step) <= 2);
            QVERIFY(std::abs(centre("cmdView") - centre("cmdRefresh") - step) <= 2);
        }
    });
}

QTEST_MAIN(TestFrmDoc)
#include "tst_frm_doc.moc"
