// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/frmDocNew.h"
#include "documents/frmDocXref.h"
#include "documents/window_desk.h"
#include "documents/xref_columns.h"
#include "support/full_disk.h"
#include "toolkit/data_drop_down.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace ostrand;
using documents::frmDocXref;
using tests::Desk;
using tests::IndexFixture;
using toolkit::Answer;
namespace xref = documents::xref;

class TestFrmDocXref : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuOpensAModalWindowForTheCurrentTag();
    void theMenuDoesNothingWithoutATag();
    void theMenuDoesNothingWhileTheWindowIsOpen();
    void theIndexShowsTheChangesOnlyAfterTheWindowCloses();
    void theWindowGoesWithTheMainWindow();
    void theControlsHaveTheirCaptions();
    void theColumnsHaveTheProjectsCaptionsOrTheirOwn();
    void everyControlHasAnAccessibleName();
    void aWindowThatIsShownAlreadyIsTold();
    void aProjectThatCannotBeReadIsTold();
    void aTagWithAnApostropheIsTold();
    void thousandsOfTiesOfOneTagAreShown();

    void onlyDocumentsThatAreNotTiedAreOffered();
    void aHeaderSortsAndRefreshPutsTheOrderBack();
    void sortingWithAPendingRowIsTold();

    void aPickedDocumentIsTiedToTheTag_data();
    void aPickedDocumentIsTiedToTheTag();
    void aTypedNumberIsTiedToTheTag();
    void aContextOfTheUsersIsKeptWhenARowIsAdded();
    void anotherTagIsRefused();
    void theWindowsOwnTagIsAccepted();
    void aRowWithoutADocumentIsRefusedAndStays();
    void aRowWhoseDocumentIsEmptiedKeepsItsTie();
    void anUnknownDocumentIsToldInTheEnginesWords();
    void aRepeatedTieIsRefused();
    void savingRenewsTheContext();
    void leavingARowKeepsItsContext();
    void aChangedKindBecomesTheContext();
    void savingWithNothingPendingDoesNothing();
    void aTitleIsChangedForAllTags();
    void aRowTurnedToAnotherDocumentLeavesBothDocumentsAsTheyAre();
    void anEmptiedKindIsStoredAsNull();
    void aLockedProjectIsToldAndTheRowStays();
    void aFullDiskIsToldAndTheRowStays();
    void aTieThatAnotherProgramDeletedIsTold();
    void failuresAheadOfAWriteAreTold();
    void aCheckThatFailsIsTold();

    void mappingStoresTheFileWithTheDocument();
    void mappingThatFailsIsTold();

    void deletingAsksFirst();
    void aDeletedTieLeavesTheDocumentWhichIsOfferedAgain();
    void deletingARowBeingAddedDropsIt();
    void deletingWithoutARecordDoesNothing();
    void aDeletionThatFailsIsTold();

    void viewingPassesTheFolderAndTheNameOn();
    void viewingADatasheetOpensTheTagsOwn();
    void viewingADatasheetOfATagWithoutOneDoesNothing();
    void aDatasheetThatCannotBeOpenedIsTold();

    void creatingADocumentWritesTheRowUnderEditFirst();
    void aRowThatCannotBeWrittenKeepsANewDocumentFromBeingMade();
    void aRowThatCannotBeWrittenKeepsTheWindowOpen();
    void everyCommandHasItsKey();

private:
    void open(const std::function<void(Desk&)>& steps)
    {
        tests::inModal<frmDocXref>([this] { m->choose(u"mnuDocRef"_s); },
                                   [&](frmDocXref& window) {
                                       Desk desk(window, *m);
                                       steps(desk);
                                   });
    }
    static frmDocXref& windowOf(Desk& desk) { return static_cast<frmDocXref&>(desk.window); }
    static QStringList offered(Desk& desk)
    {
        auto* list = desk.window.findChild<toolkit::DataDropDown*>(u"cmbDoc"_s);
        return list->values();
    }
    /// Drops the list of the current cell and picks the value that begins so.
    static void pick(Desk& desk, const QString& beginning)
    {
        desk.key(Qt::Key_Down, Qt::AltModifier);
        desk.type(beginning);
        desk.key(Qt::Key_Down);
        desk.key(Qt::Key_Return);
    }
    QStringList ties() const { return m->ties(u"PT-1001"_s); }
    QString stored(const QString& number, const QString& field) const
    {
        return IndexFixture::value(m_project,
                                   u"select "_s + field + u" from document where docNo = '"_s
                                       + number + u"'"_s);
    }

    std::unique_ptr<IndexFixture> m;
    QString m_project;
};

void TestFrmDocXref::init()
{
    m = std::make_unique<IndexFixture>();
    m_project = m->emptyProject();
    m->project = m_project;
    m->addTag(u"PT-1001"_s);
    m->addTag(u"PT-1002"_s);
    m->addDocument(u"D-1"_s, u"PID"_s);
    m->addDocument(u"D-2"_s, u"LOOP DWG"_s);
    m->addDocument(u"D-3"_s, u"DATASHEET"_s);
    m->addDocument(u"D-4"_s, u"REQUISITION"_s);
    IndexFixture::execute(m_project, u"update document set Title = 'Zulu' where docNo = 'D-1'"_s);
    m->addTie(u"PT-1001"_s, u"D-1"_s, u"PID"_s);
    m->addTie(u"PT-1001"_s, u"D-2"_s, u"PID"_s);
    m->addTie(u"PT-1002"_s, u"D-1"_s, u"PID"_s);
    m->open(m_project);
    viewing::g_objViewer =
        std::make_unique<viewing::CViewer>([](const QString&, QString&) { return false; });
    m->texts();
}

void TestFrmDocXref::cleanup()
{
    viewing::g_objViewer.reset();
    m.reset();
}

// ---- the window

void TestFrmDocXref::theMenuOpensAModalWindowForTheCurrentTag()
{
    QVERIFY(!documents::g_frmDocXref);
    open([](Desk& desk) {
        QCOMPARE(desk.window.windowTitle(), u"Document Managment for Tag PT-1001"_s);
        QVERIFY(desk.window.isModal());
        QVERIFY(desk.grid().hasFocus());
        QCOMPARE(documents::g_frmDocXref.data(), &desk.window);
        QCOMPARE(desk.grid().objectName(), u"GridXref"_s);
        QCOMPARE(desk.shownColumn(xref::docNo), QStringList({u"D-1"_s, u"D-2"_s}));
        QCOMPARE(desk.shown(0, xref::tag), u"PT-1001"_s);
        QCOMPARE(desk.shown(0, xref::title), u"Zulu"_s);
        QCOMPARE(desk.shown(1, xref::docType), u"LOOP DWG"_s);
        QCOMPARE(desk.shown(1, xref::context), u"PID"_s);
        QCOMPARE(desk.data(u"dbXref"_s).RecordSource(),
                 u"select * from qryDocXref where Tag = 'PT-1001';"_s);
    });
    QVERIFY(!documents::g_frmDocXref);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::theMenuDoesNothingWithoutATag()
{
    IndexFixture::execute(m_project, u"delete from [index]"_s);
    m->press(u"cmdRefresh"_s);
    m->choose(u"mnuDocRef"_s);
    QVERIFY(!documents::g_frmDocXref);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::theMenuDoesNothingWhileTheWindowIsOpen()
{
    open([this](Desk& desk) {
        m->choose(u"mnuDocRef"_s);
        QCOMPARE(documents::g_frmDocXref.data(), &desk.window);
        QVERIFY(desk.window.isVisible());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::theIndexShowsTheChangesOnlyAfterTheWindowCloses()
{
    QCOMPARE(m->cellText(index::column::requisition), QString());
    open([this](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        pick(desk, u"D-4"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(m->cellText(index::column::requisition), QString());
    });
    QCOMPARE(m->cellText(index::column::requisition), u"D-4"_s);
}

void TestFrmDocXref::theWindowGoesWithTheMainWindow()
{
    open([this](Desk&) {
        app::g_frmIndex.reset();
        QVERIFY(!documents::g_frmDocXref);
    });
}

void TestFrmDocXref::theControlsHaveTheirCaptions()
{
    QCOMPARE(frmDocXref().windowTitle(), u"Doc Reference"_s);
    open([](Desk& desk) {
        QCOMPARE(desk.button(u"cmdExit"_s).text(), u"&Exit"_s);
        QCOMPARE(desk.button(u"cmdView"_s).text(), u"&View"_s);
        QCOMPARE(desk.button(u"cmdMap"_s).text(), u"&Map"_s);
        QCOMPARE(desk.button(u"cmdRefresh"_s).text(), u"&Refresh"_s);
        QCOMPARE(desk.button(u"cmdDeleteRef"_s).text(), u"&Delete Ref."_s);
        QCOMPARE(desk.button(u"cmdReference"_s).text(), u"&Create Doc"_s);
        QCOMPARE(desk.button(u"cmdSave"_s).text(), u"&Save"_s);
    });
}

void TestFrmDocXref::theColumnsHaveTheProjectsCaptionsOrTheirOwn()
{
    const auto headers = [this] {
        QStringList shown;
        open([&](Desk& desk) {
            for (int i = 0; i < desk.grid().ColumnCount(); ++i)
                shown << desk.grid().Columns(i).Caption();
        });
        return shown;
    };
    QCOMPARE(headers(),
             QStringList({u"Tag"_s,
                          u"Document No."_s,
                          u"Title"_s,
                          u"Document Type"_s,
                          u"Path"_s,
                          u"File Name"_s,
                          u"Context"_s}));
    IndexFixture::execute(m_project,
                          u"delete from FormColumnNames where FormName = 'frmDocXref'"_s);
    QCOMPARE(headers(),
             QStringList({u"Tag"_s,
                          u"Document No."_s,
                          u"Title"_s,
                          u"docType"_s,
                          u"Path"_s,
                          u"Filename"_s,
                          u"context"_s}));
}

void TestFrmDocXref::everyControlHasAnAccessibleName()
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

void TestFrmDocXref::aWindowThatIsShownAlreadyIsTold()
{
    open([](Desk& desk) {
        windowOf(desk).ShowInfo(u"PT-1002"_s);
        desk.expectFailure(u"Error while loading documet reference window.\r\n400 : "_s);
        QCOMPARE(desk.window.windowTitle(), u"Document Managment for Tag PT-1001"_s);
    });
}

void TestFrmDocXref::aProjectThatCannotBeReadIsTold()
{
    app::g_strIndexFile = m->path(u"gone.mdb"_s);
    open([this](Desk& desk) {
        desk.expectFailure(u"Error while loading file handler form. \r\nError : 3024. "_s);
        desk.press(u"cmdView"_s);
        desk.press(u"cmdDeleteRef"_s);
        QCOMPARE(m->texts(), QStringList());
        app::g_strIndexFile = m_project;
    });
}

void TestFrmDocXref::aTagWithAnApostropheIsTold()
{
    IndexFixture::execute(m_project, u"insert into [index] (PlantItemNo) values ('A''1')"_s);
    m->press(u"cmdRefresh"_s);
    m->tags().MoveFirst();
    m->texts();
    QCOMPARE(m->cellText(index::column::tag), u"A'1"_s);
    open([](Desk& desk) {
        const QString told = desk.texts().value(0);
        QVERIFY2(told.startsWith(u"Error while loading file handler form. \r\nError : 3075. "_s),
                 qPrintable(told));
        QCOMPARE(desk.window.windowTitle(), u"Document Managment for Tag A'1"_s);
        QCOMPARE(desk.grid().Columns(xref::docType).Caption(), u"Document Type"_s);
        desk.press(u"cmdView"_s);
        desk.press(u"cmdDeleteRef"_s);
        QCOMPARE(desk.texts(), QStringList());
    });
}

void TestFrmDocXref::thousandsOfTiesOfOneTagAreShown()
{
    constexpr int many = 3000;
    {
        const auto file = store::DBEngine::OpenDatabase(m_project);
        auto scope = file.writeScope();
        for (int i = 0; i < many; ++i) {
            const QString number = u"M-%1"_s.arg(i, 5, 10, QChar(u'0'));
            file.Execute(u"insert into document (docNo, docType) values ('"_s + number
                         + u"', 'PID')"_s);
            file.Execute(u"insert into itemDocXRef (PlantItemNo, docNo) values ('PT-1001', '"_s
                         + number + u"')"_s);
        }
        scope.Commit();
    }
    open([](Desk& desk) {
        QTRY_COMPARE(desk.rows(), many + 3);
        desk.key(Qt::Key_End, Qt::ControlModifier);
        desk.window.Sort(xref::docNo);
        QTRY_COMPARE(desk.rows(), many + 3);
        QCOMPARE(offered(desk), QStringList({u"D-3"_s, u"D-4"_s}));
        desk.goTo(u"M-02999"_s, xref::docNo, xref::docNo);
        QCOMPARE(desk.cell(xref::docNo), u"M-02999"_s);
    });
}

// ---- lists and order

void TestFrmDocXref::onlyDocumentsThatAreNotTiedAreOffered()
{
    open([](Desk& desk) {
        QCOMPARE(offered(desk), QStringList({u"D-3"_s, u"D-4"_s}));
        auto* kinds = desk.window.findChild<toolkit::DataDropDown*>(u"cmbDocType"_s);
        QVERIFY(kinds->values().contains(u"PURCHASE ORDER"_s));
    });
}

void TestFrmDocXref::aHeaderSortsAndRefreshPutsTheOrderBack()
{
    m->addTie(u"PT-1001"_s, u"D-3"_s, u"DATASHEET"_s);
    open([](Desk& desk) {
        QHeaderView* header = desk.grid().horizontalHeader();
        QTest::mouseClick(header->viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(header->sectionViewportPosition(xref::docType) + 20, 5));
        QCOMPARE(desk.data(u"dbXref"_s).RecordSource(),
                 u"select * from qryDocXref where Tag = 'PT-1001' order by docType"_s);
        QCOMPARE(desk.shownColumn(xref::docType),
                 QStringList({u"DATASHEET"_s, u"LOOP DWG"_s, u"PID"_s}));
        for (int column = 0; column < desk.grid().ColumnCount(); ++column) {
            desk.window.Sort(column);
            QCOMPARE(desk.rows(), 4);
        }
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(desk.data(u"dbXref"_s).RecordSource(),
                 u"select * from qryDocXref where Tag = 'PT-1001';"_s);
        QCOMPARE(desk.shownColumn(xref::docNo), QStringList({u"D-1"_s, u"D-2"_s, u"D-3"_s}));
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::sortingWithAPendingRowIsTold()
{
    open([](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"x"_s);
        desk.window.Sort(xref::docNo);
        desk.expectFailure(
            u"Error while loading sorting reference documents spreadsheet. \r\nError : 444. "_s);
        desk.grid().cancelRow();
    });
}

// ---- rows

void TestFrmDocXref::aPickedDocumentIsTiedToTheTag_data()
{
    QTest::addColumn<bool>("saved");
    QTest::newRow("saved") << true;
    QTest::newRow("left") << false;
}

void TestFrmDocXref::aPickedDocumentIsTiedToTheTag()
{
    QFETCH(bool, saved);
    IndexFixture::execute(m_project, u"update document set Title = 'Bill' where docNo = 'D-4'"_s);
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        pick(desk, u"D-4"_s);
        QCOMPARE(desk.cell(xref::tag), u"PT-1001"_s);
        QCOMPARE(desk.cell(xref::docNo), u"D-4"_s);
        // The document's own fields are seen at once.
        QCOMPARE(desk.cell(xref::title), u"Bill"_s);
        QCOMPARE(desk.cell(xref::docType), u"REQUISITION"_s);
        if (saved)
            desk.press(u"cmdSave"_s);
        else
            desk.key(Qt::Key_Up);
        QVERIFY(!desk.grid().rowPending());
        QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s, u"D-4/REQUISITION"_s}));
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(offered(desk), QStringList{u"D-3"_s});
    });
    QCOMPARE(stored(u"D-4"_s, u"Title"_s), u"Bill"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aTypedNumberIsTiedToTheTag()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"D-3"_s);
        desk.key(Qt::Key_Up);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s, u"D-3/DATASHEET"_s}));
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aContextOfTheUsersIsKeptWhenARowIsAdded()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"D-3"_s);
        desk.goToNewRow(xref::context);
        desk.type(u"PID"_s);
        desk.key(Qt::Key_Up);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s, u"D-3/PID"_s}));
}

void TestFrmDocXref::anotherTagIsRefused()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::tag);
        desk.type(u"PT-1002"_s);
        desk.key(Qt::Key_Tab);
        QCOMPARE(desk.cell(xref::tag), u"PT-1001"_s);
        desk.goToRow(0, xref::tag);
        desk.key(Qt::Key_Delete);
        QCOMPARE(desk.cell(xref::tag), u"PT-1001"_s);
        QVERIFY(!desk.grid().rowPending());
        desk.goToNewRow(xref::tag);
        desk.type(u"pt-1001"_s);
        desk.key(Qt::Key_Tab);
        QCOMPARE(desk.cell(xref::tag), QString());
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
    QCOMPARE(m->ties(u"PT-1002"_s), QStringList{u"D-1/PID"_s});
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::theWindowsOwnTagIsAccepted()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::tag);
        desk.type(u"PT-1001"_s);
        desk.key(Qt::Key_Tab);
        desk.type(u"D-4"_s);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s, u"D-4/REQUISITION"_s}));
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aRowWithoutADocumentIsRefusedAndStays()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::title);
        desk.type(u"a title"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Document number cannot be null"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(xref::title), u"a title"_s);
        desk.grid().cancelRow();
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from itemDocXRef"_s), u"3"_s);
}

void TestFrmDocXref::aRowWhoseDocumentIsEmptiedKeepsItsTie()
{
    const QStringList before = ties();
    open([&](Desk& desk) {
        desk.goToRow(0, xref::docNo);
        desk.key(Qt::Key_F2);
        desk.key(Qt::Key_A, Qt::ControlModifier);
        desk.key(Qt::Key_Delete);
        desk.key(Qt::Key_Tab);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Document number cannot be null"_s);
        QVERIFY(desk.grid().rowPending());
        desk.grid().cancelRow();
    });
    QCOMPARE(ties(), before);
}

void TestFrmDocXref::anUnknownDocumentIsToldInTheEnginesWords()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"O'Hara"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The record cannot be added or changed: it refers to a record that "
                           u"does not exist."_s);
        QCOMPARE(desk.cell(xref::docNo), u"O'Hara"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmDocXref::aRepeatedTieIsRefused()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"D-1"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(m->texts(),
                 QStringList{u"This document is tied to the tag already\r\n"_s
                             u"or press escape to cancel"_s});
        QVERIFY(desk.grid().rowPending());
        desk.key(Qt::Key_Escape);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
}

void TestFrmDocXref::savingRenewsTheContext()
{
    open([&](Desk& desk) {
        QCOMPARE(desk.shown(1, xref::context), u"PID"_s);
        desk.goToRow(1, xref::title);
        desk.type(u"Loop"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(desk.shown(1, xref::context), u"LOOP DWG"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/LOOP DWG"_s}));
    QCOMPARE(stored(u"D-2"_s, u"Title"_s), u"Loop"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::leavingARowKeepsItsContext()
{
    open([&](Desk& desk) {
        desk.goToRow(1, xref::title);
        desk.type(u"Loop"_s);
        desk.key(Qt::Key_Up);
        QCOMPARE(stored(u"D-2"_s, u"Title"_s), u"Loop"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
}

void TestFrmDocXref::aChangedKindBecomesTheContext()
{
    open([&](Desk& desk) {
        desk.goToRow(1, xref::docType);
        pick(desk, u"REQ"_s);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/REQUISITION"_s}));
    QCOMPARE(stored(u"D-2"_s, u"docType"_s), u"REQUISITION"_s);
}

void TestFrmDocXref::savingWithNothingPendingDoesNothing()
{
    open([&](Desk& desk) {
        desk.goToRow(1, xref::title);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aTitleIsChangedForAllTags()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"Inlet"_s);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(IndexFixture::values(m_project, u"select Title from qryDocXref where docNo = 'D-1'"_s),
             QStringList({u"Inlet"_s, u"Inlet"_s}));
}

void TestFrmDocXref::aRowTurnedToAnotherDocumentLeavesBothDocumentsAsTheyAre()
{
    IndexFixture::execute(m_project, u"update document set Title = 'Bill' where docNo = 'D-4'"_s);
    open([&](Desk& desk) {
        desk.goToRow(0, xref::docNo);
        pick(desk, u"D-4"_s);
        QCOMPARE(desk.cell(xref::title), u"Bill"_s);
        desk.press(u"cmdSave"_s);
        QCOMPARE(desk.cell(xref::title), u"Bill"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-2/PID"_s, u"D-4/REQUISITION"_s}));
    QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"Zulu"_s);
    QCOMPARE(stored(u"D-1"_s, u"docType"_s), u"PID"_s);
    QCOMPARE(stored(u"D-4"_s, u"docType"_s), u"REQUISITION"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::anEmptiedKindIsStoredAsNull()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::docType);
        desk.key(Qt::Key_Delete);
        desk.key(Qt::Key_Down);
    });
    QCOMPARE(stored(u"D-1"_s, u"docType"_s), u"(null)"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aLockedProjectIsToldAndTheRowStays()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"x"_s);
        other.run("BEGIN IMMEDIATE");
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The file is locked by another program or user."_s);
        QCOMPARE(desk.cell(xref::title), u"x"_s);
        other.run("ROLLBACK");
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
}

void TestFrmDocXref::aFullDiskIsToldAndTheRowStays()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        pick(desk, u"D-4"_s);
        {
            const tests::FullDisk full;
            desk.press(u"cmdSave"_s);
        }
        desk.expectFailure(u"There is not enough space on the disk."_s);
        QCOMPARE(ties().size(), 2);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s, u"D-4/REQUISITION"_s}));
}

void TestFrmDocXref::aTieThatAnotherProgramDeletedIsTold()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"x"_s);
        IndexFixture::execute(m_project, u"delete from itemDocXRef where docNo = 'D-1'"_s);
        desk.press(u"cmdSave"_s);
        const QStringList told = m->texts();
        QVERIFY(!told.filter(u"Error while column insert in doc cross reference.\r\n3167 : "_s)
                     .isEmpty());
        QCOMPARE(told.filter(u"3167 : Error while  modifying record. "_s).size(), 1);
        QCOMPARE(told.filter(u"Error while saving cross reference data .\r\n3167 : "_s).size(), 1);
        desk.grid().cancelRow();
    });
}

void TestFrmDocXref::failuresAheadOfAWriteAreTold()
{
    frmDocXref window;
    auto& grid = *window.findChild<toolkit::DataGrid*>();
    bool cancel = false;
    Q_EMIT grid.beforeUpdate(cancel);
    QVERIFY(m->texts().value(0).startsWith(
        u"Error while column insert in doc cross reference.\r\n91 : "_s));
    Q_EMIT grid.beforeColumnUpdate(xref::docNo, cancel);
    QCOMPARE(
        m->texts().filter(u"Error while column update in doc cross reference.\r\n91 : "_s).size(),
        1);
    QVERIFY(!cancel);
}

void TestFrmDocXref::aCheckThatFailsIsTold()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"x"_s);
        IndexFixture::execute(m_project, u"delete from itemDocXRef where docNo = 'D-1'"_s);
        bool cancel = false;
        Q_EMIT desk.grid().beforeColumnUpdate(xref::tag, cancel);
        QVERIFY(cancel);
        desk.expectFailure(u"Error while validating document cross reference data .\r\n3167 : "_s);
        desk.grid().cancelRow();
    });
}

// ---- mapping

void TestFrmDocXref::mappingStoresTheFileWithTheDocument()
{
    m->prompts.files = {m->file(u"plan.pdf"_s, "x")};
    open([&](Desk& desk) {
        desk.goToRow(1);
        desk.press(u"cmdMap"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(m->prompts.fileRequests.at(0).title, u"Locate File"_s);
    QCOMPARE(stored(u"D-2"_s, u"Path"_s), m->path(QString()));
    QCOMPARE(stored(u"D-2"_s, u"Filename"_s), u"plan.pdf"_s);
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/LOOP DWG"_s}));
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::mappingThatFailsIsTold()
{
    QStringList told;
    m->prompts.files = {std::nullopt, u"/plan.pdf"_s};
    open([&](Desk& desk) {
        desk.press(u"cmdMap"_s);
        QCOMPARE(m->texts(), QStringList());
        desk.press(u"cmdMap"_s);
        desk.expectFailure(u"Error getting file and path name for document"_s);
        const auto before = toolkit::setPromptHost(std::make_unique<tests::FailingDialogs>(told));
        desk.press(u"cmdMap"_s);
    });
    QCOMPARE(
        told,
        QStringList{u"Error while maping file to document. \r\nError : 57. Device I/O error"_s});
}

// ---- deleting

void TestFrmDocXref::deletingAsksFirst()
{
    open([&](Desk& desk) {
        desk.goToRow(1);
        m->prompts.answers = {Answer::No};
        desk.press(u"cmdDeleteRef"_s);
        desk.expectQuestion(
            u"Are you sure you want to delete 'PT-1001' reference to document 'D-2'?"_s);
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
}

void TestFrmDocXref::aDeletedTieLeavesTheDocumentWhichIsOfferedAgain()
{
    open([&](Desk& desk) {
        desk.goToRow(1);
        QVERIFY(!offered(desk).contains(u"D-2"_s));
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDeleteRef"_s);
        QCoreApplication::processEvents();
        QCOMPARE(desk.cell(xref::docNo), u"D-1"_s);
        QVERIFY(!offered(desk).contains(u"D-2"_s));
        desk.press(u"cmdRefresh"_s);
        QVERIFY(offered(desk).contains(u"D-2"_s));
    });
    QCOMPARE(ties(), QStringList{u"D-1/PID"_s});
    QCOMPARE(stored(u"D-2"_s, u"docNo"_s), u"D-2"_s);
}

void TestFrmDocXref::deletingARowBeingAddedDropsIt()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        pick(desk, u"D-4"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDeleteRef"_s);
        desk.expectQuestion(
            u"Are you sure you want to delete 'PT-1001' reference to document 'D-4'?"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
}

void TestFrmDocXref::deletingWithoutARecordDoesNothing()
{
    IndexFixture::execute(m_project, u"delete from itemDocXRef"_s);
    open([&](Desk& desk) {
        desk.press(u"cmdDeleteRef"_s);
        desk.press(u"cmdView"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aDeletionThatFailsIsTold()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goToRow(0);
        other.run("BEGIN IMMEDIATE");
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDeleteRef"_s);
        const QString told = m->texts().value(1);
        QVERIFY2(told.startsWith(u"Error while deleting document cross reference.\r\n3260 : "_s),
                 qPrintable(told));
        other.run("ROLLBACK");
    });
    QCOMPARE(ties(), QStringList({u"D-1/PID"_s, u"D-2/PID"_s}));
}

// ---- viewing

void TestFrmDocXref::viewingPassesTheFolderAndTheNameOn()
{
    m->file(u"plan.pdf"_s, "x");
    IndexFixture::execute(m_project,
                          u"update document set Path = '"_s + m->path(QString())
                              + u"', Filename = 'plan.pdf' where docNo = 'D-1'"_s);
    open([&](Desk& desk) {
        desk.goToRow(0);
        desk.press(u"cmdView"_s);
        QCOMPARE(m->texts(), QStringList{u"Could not find application to open file plan.pdf"_s});
        desk.goToRow(1);
        desk.press(u"cmdView"_s);
        QCOMPARE(m->texts(), QStringList{u"File path or file name is missing!"_s});
        viewing::g_objViewer.reset();
        desk.press(u"cmdView"_s);
        desk.expectFailure(u"Error while viewing document. \r\nError : 91. "_s);
    });
}

void TestFrmDocXref::viewingADatasheetOpensTheTagsOwn()
{
    m->addTie(u"PT-1001"_s, u"D-3"_s, u"DATASHEET"_s);
    IndexFixture::execute(m_project,
                          u"update [index] set TagPath = '"_s + m->path(QString())
                              + u"', TagFileName = 'gone.xls' where PlantItemNo = 'PT-1001'"_s);
    open([&](Desk& desk) {
        desk.goTo(u"D-3"_s, 0, xref::docNo);
        desk.press(u"cmdView"_s);
        // The session looks for the file.
        QVERIFY(!m->texts().filter(m->path(u"gone.xls"_s)).isEmpty());
    });
}

void TestFrmDocXref::viewingADatasheetOfATagWithoutOneDoesNothing()
{
    m->addTie(u"PT-1001"_s, u"D-3"_s, u"DATASHEET"_s);
    open([&](Desk& desk) {
        desk.goTo(u"D-3"_s, 0, xref::docNo);
        desk.press(u"cmdView"_s);
        IndexFixture::execute(m_project,
                              u"update [index] set TagPath = '/x' where PlantItemNo = 'PT-1001'"_s);
        desk.press(u"cmdView"_s);
        IndexFixture::execute(m_project, u"delete from [index]"_s);
        windowOf(desk).OpenDatasheet();
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aDatasheetThatCannotBeOpenedIsTold()
{
    open([&](Desk& desk) {
        app::g_strIndexFile = m->path(u"gone.mdb"_s);
        windowOf(desk).OpenDatasheet();
        desk.expectFailure(u"Error while loading datasheet. \r\nError : 3024. "_s);
        app::g_strIndexFile = m_project;
        IndexFixture::execute(m_project,
                              u"update [index] set TagPath = '/x', TagFileName = 'x.xls' where "
                              u"PlantItemNo = 'PT-1001'"_s);
        datasheets::g_objXlHndlr.reset();
        windowOf(desk).OpenDatasheet();
        desk.expectFailure(u"Error while loading datasheet. \r\nError : 91. "_s);
    });
}

// ---- creating a document

void TestFrmDocXref::creatingADocumentWritesTheRowUnderEditFirst()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"Inlet"_s);
        tests::inModal<documents::frmDocNew>(
            [&] { desk.press(u"cmdReference"_s); },
            [&](documents::frmDocNew& window) {
                QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"Inlet"_s);
                window.findChild<QLineEdit*>(u"txtDocNo"_s)->setText(u"N-1"_s);
                QTest::mouseClick(window.findChild<QPushButton*>(u"cmdSave"_s), Qt::LeftButton);
                QVERIFY(!window.isVisible());
            });
        QCOMPARE(desk.shownColumn(xref::docNo), QStringList({u"D-1"_s, u"D-2"_s, u"N-1"_s}));
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocXref::aRowThatCannotBeWrittenKeepsANewDocumentFromBeingMade()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"X-1"_s);
        bool opened = false;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            if (auto* window = desk.window.findChild<documents::frmDocNew*>()) {
                opened = true;
                window->reject();
            }
        });
        look.start(0);
        desk.press(u"cmdReference"_s);
        look.stop();
        QVERIFY(!opened);
        desk.expectFailure(u"The record cannot be added or changed"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(xref::docNo), u"X-1"_s);
        desk.grid().cancelRow();
    });
}

// ---- closing and keys

void TestFrmDocXref::aRowThatCannotBeWrittenKeepsTheWindowOpen()
{
    open([&](Desk& desk) {
        desk.goToNewRow(xref::docNo);
        desk.type(u"X-1"_s);
        desk.press(u"cmdExit"_s);
        desk.expectFailure(u"The record cannot be added or changed"_s);
        QVERIFY(desk.window.isVisible());
        desk.key(Qt::Key_Escape);
        QVERIFY(!desk.grid().rowPending());
        desk.press(u"cmdExit"_s);
        QVERIFY(!desk.window.isVisible());
    });
}

void TestFrmDocXref::everyCommandHasItsKey()
{
    open([&](Desk& desk) {
        desk.goToRow(0, xref::title);
        desk.type(u"x"_s);
        desk.pressByKey(u"cmdSave"_s);
        QCOMPARE(stored(u"D-1"_s, u"Title"_s), u"x"_s);
        desk.pressByKey(u"cmdView"_s);
        QCOMPARE(m->texts(), QStringList{u"File path or file name is missing!"_s});
        desk.pressByKey(u"cmdMap"_s);
        QCOMPARE(m->prompts.fileRequests.size(), std::size_t{1});
        desk.pressByKey(u"cmdRefresh"_s);
        desk.pressByKey(u"cmdDeleteRef"_s);
        QCOMPARE(m->texts().size(), 1);
        tests::inModal<documents::frmDocNew>([&] { desk.pressByKey(u"cmdReference"_s); },
                                             [](documents::frmDocNew& window) { window.reject(); });
        desk.window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &desk.window);
        desk.pressByKey(u"cmdExit"_s);
        QVERIFY(!desk.window.isVisible());
    });
}

QTEST_MAIN(TestFrmDocXref)
#include "tst_frm_doc_xref.moc"
