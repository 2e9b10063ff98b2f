// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/window_desk.h"
#include "index/frmIndexRev.h"
#include "support/full_disk.h"
#include "support/help_windows.h"

#include <QAccessible>
#include <QHeaderView>

using namespace Qt::StringLiterals;
using namespace ostrand;
using index::frmIndexRev;
using tests::Desk;
using tests::IndexFixture;
using toolkit::Answer;

namespace {

enum Column { RevNo, Date, Description, CreatedBy, CheckedBy, ApprovedBy };

} // namespace

class TestFrmIndexRev : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuOpensAModalWindowWithAllRevisions();
    void theIndexIsNotReadAnewAfterwards();
    void theControlsHaveTheirCaptions();
    void theColumnsHaveTheProjectsCaptionsOrTheirOwn();
    void everyControlHasAnAccessibleName();
    void aWindowThatIsShownAlreadyIsTold();
    void aProjectThatCannotBeReadIsTold();

    void aHeaderSortsAndRefreshKeepsTheOrder();
    void sortingWithAPendingRowIsTold();
    void refreshingWithoutANumberIsTold();
    void refreshingWithAPendingRowIsTold();
    void refreshShowsWhatOthersWrote();

    void aRevisionIsAdded();
    void anEmptiedDescriptionIsStoredAsNull();
    void datesAreStoredInOneForm_data();
    void datesAreStoredInOneForm();
    void whatIsNoDateIsToldInTheEnginesWords();
    void aRowWithoutANumberStaysInEdit();
    void savingWithoutANumberIsTold();
    void aNumberThatExistsIsRefusedAndStays();
    void aNumberThatIsTakenAwayAsTheRowIsWrittenIsTold();
    void savingWithNothingPendingIsTold();
    void aLockedProjectIsToldAndTheRowStays();
    void aFullDiskIsToldAndTheRowStays();
    void aRevisionThatAnotherProgramDeletedIsTold_data();
    void aRevisionThatAnotherProgramDeletedIsTold();

    void deletingAsksFirst();
    void deletingMovesBackOneRevision();
    void deletingWithoutANumberIsTold();
    void deletingARowBeingAddedDropsIt();
    void aDeletionThatFailsIsTold();
    void deletingTheLastRevisionLeavesTheNewRow();

    void aRowWithoutANumberKeepsTheWindowOpen();
    void everyCommandHasItsKey();

private:
    void open(const std::function<void(Desk&)>& steps)
    {
        tests::inModal<frmIndexRev>([this] { m->choose(u"mnuEditIndexRev"_s); },
                                    [&](frmIndexRev& window) {
                                        Desk desk(window, *m);
                                        steps(desk);
                                    });
    }
    QString stored(const QString& number, const QString& field) const
    {
        return IndexFixture::value(m_project,
                                   u"select "_s + field + u" from qryIndexRev where RevNo = '"_s
                                       + number + u"'"_s);
    }
    void add(const QString& number, const QString& description) const
    {
        IndexFixture::execute(m_project,
                              u"insert into qryIndexRev (RevNo, Description) values ('"_s + number
                                  + u"', '"_s + description + u"')"_s);
    }

    std::unique_ptr<IndexFixture> m;
    QString m_project;
};

void TestFrmIndexRev::init()
{
    m = std::make_unique<IndexFixture>();
    m_project = m->emptyProject();
    m->project = m_project;
    add(u"A"_s, u"Issued for review"_s);
    add(u"B"_s, u"Issued for approval"_s);
    add(u"C"_s, u"As built"_s);
    m->open(m_project);
    m->texts();
}

void TestFrmIndexRev::cleanup()
{
    m.reset();
}

// ---- the window

void TestFrmIndexRev::theMenuOpensAModalWindowWithAllRevisions()
{
    open([](Desk& desk) {
        QCOMPARE(desk.window.windowTitle(), u"Index Revisions"_s);
        QVERIFY(desk.window.isModal());
        QVERIFY(desk.grid().hasFocus());
        QCOMPARE(desk.grid().objectName(), u"gridIndexRev"_s);
        QCOMPARE(desk.shownColumn(RevNo), QStringList({u"A"_s, u"B"_s, u"C"_s}));
        QCOMPARE(desk.data(u"dbIndexRev"_s).RecordSource(), u"qryIndexRev"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmIndexRev::theIndexIsNotReadAnewAfterwards()
{
    const QSignalSpy read(&m->window.dbIndex(), &toolkit::DataControl::refreshed);
    open([](Desk&) {});
    QCOMPARE(read.size(), 0);
    QVERIFY(!m->window.findChild<frmIndexRev*>());
}

void TestFrmIndexRev::theControlsHaveTheirCaptions()
{
    open([](Desk& desk) {
        QCOMPARE(desk.button(u"cmdHelp"_s).text(), u"&Help"_s);
        QCOMPARE(desk.button(u"cmdExit"_s).text(), u"&Exit"_s);
        QCOMPARE(desk.button(u"cmdDelete"_s).text(), u"&Delete"_s);
        QCOMPARE(desk.button(u"cmdSave"_s).text(), u"&Save"_s);
        QCOMPARE(desk.button(u"cmdRefresh"_s).text(), u"&Refresh"_s);
    });
}

void TestFrmIndexRev::theColumnsHaveTheProjectsCaptionsOrTheirOwn()
{
    const QStringList own{u"Rev. No."_s,
                          u"Date"_s,
                          u"Description"_s,
                          u"Created By"_s,
                          u"Checked By"_s,
                          u"Approved By"_s};
    const auto headers = [this] {
        QStringList shown;
        open([&](Desk& desk) {
            for (int i = 0; i < desk.grid().ColumnCount(); ++i)
                shown << desk.grid().Columns(i).Caption();
        });
        return shown;
    };
    QCOMPARE(headers(), own);
    IndexFixture::execute(m_project,
                          u"update FormColumnNames set DisplayName = 'Number' where FormName = "
                          u"'frmIndexRev' and columnName = 'RevNo'"_s);
    QCOMPARE(headers().constFirst(), u"Number"_s);
    IndexFixture::execute(m_project,
                          u"delete from FormColumnNames where FormName = 'frmIndexRev'"_s);
    QCOMPARE(headers(), own);
}

void TestFrmIndexRev::everyControlHasAnAccessibleName()
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

void TestFrmIndexRev::aWindowThatIsShownAlreadyIsTold()
{
    open([](Desk& desk) {
        static_cast<frmIndexRev&>(desk.window).ShowInfo();
        desk.expectFailure(u"Error while loading Instrument Index Revision Window\r\n400 : "_s);
    });
}

void TestFrmIndexRev::aProjectThatCannotBeReadIsTold()
{
    app::g_strIndexFile = m->path(u"gone.mdb"_s);
    open([this](Desk& desk) {
        desk.expectFailure(u"Error while loading index revision. \r\nError : 3024. "_s);
        app::g_strIndexFile = m_project;
    });
}

// ---- the order, refreshing

void TestFrmIndexRev::aHeaderSortsAndRefreshKeepsTheOrder()
{
    open([](Desk& desk) {
        QHeaderView* header = desk.grid().horizontalHeader();
        QTest::mouseClick(header->viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(header->sectionViewportPosition(Description) + 20, 5));
        QCOMPARE(desk.data(u"dbIndexRev"_s).RecordSource(),
                 u"select * from qryIndexRev order by Description"_s);
        QCOMPARE(desk.shownColumn(RevNo), QStringList({u"C"_s, u"B"_s, u"A"_s}));
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(desk.shownColumn(RevNo), QStringList({u"C"_s, u"B"_s, u"A"_s}));
        for (int column = 0; column < desk.grid().ColumnCount(); ++column) {
            desk.window.Sort(column);
            QCOMPARE(desk.rows(), 4);
        }
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmIndexRev::sortingWithAPendingRowIsTold()
{
    open([](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        desk.window.Sort(Date);
        desk.expectFailure(u"Error while sorting revision spreadsheet. \r\nError : 444. "_s);
        desk.grid().cancelRow();
    });
}

void TestFrmIndexRev::refreshingWithoutANumberIsTold()
{
    open([](Desk& desk) {
        desk.goToNewRow(Date);
        desk.type(u"2026-01-02"_s);
        desk.press(u"cmdRefresh"_s);
        desk.expectFailure(u"Please enter the Revision Number"_s);
        QCOMPARE(desk.cell(Date), u"2026-01-02"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmIndexRev::refreshingWithAPendingRowIsTold()
{
    open([](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        desk.press(u"cmdRefresh"_s);
        desk.expectFailure(u"You need to save record first"_s);
        QCOMPARE(desk.cell(Description), u"x"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmIndexRev::refreshShowsWhatOthersWrote()
{
    open([this](Desk& desk) {
        add(u"D"_s, u"Revised"_s);
        desk.press(u"cmdRefresh"_s);
        QCOMPARE(desk.shownColumn(RevNo), QStringList({u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    });
    QCOMPARE(m->texts(), QStringList());
}

// ---- writing

void TestFrmIndexRev::aRevisionIsAdded()
{
    open([this](Desk& desk) {
        desk.goToNewRow();
        for (const auto& text :
             {u"0"_s, u"2026-01-02"_s, u"Issued for construction"_s, u"M. A."_s}) {
            desk.type(text);
            desk.key(Qt::Key_Tab);
        }
        desk.press(u"cmdSave"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(stored(u"0"_s, u"Date"_s), u"2026-01-02"_s);
    QCOMPARE(stored(u"0"_s, u"createdBy"_s), u"M. A."_s);
    QCOMPARE(stored(u"0"_s, u"approvedBy"_s), u"(null)"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmIndexRev::anEmptiedDescriptionIsStoredAsNull()
{
    open([this](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.key(Qt::Key_Delete);
        desk.press(u"cmdSave"_s);
        QCOMPARE(stored(u"A"_s, u"Description"_s), u"(null)"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmIndexRev::datesAreStoredInOneForm_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("year first") << u"2026-03-09"_s;
    QTest::newRow("month first") << u"3/9/2026"_s;
    QTest::newRow("short") << u"3/9/26"_s;
}

void TestFrmIndexRev::datesAreStoredInOneForm()
{
    QFETCH(QString, typed);
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Date);
        desk.type(typed);
        desk.press(u"cmdSave"_s);
        QCOMPARE(desk.cell(Date), u"2026-03-09"_s);
    });
    QCOMPARE(stored(u"A"_s, u"Date"_s), u"2026-03-09"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmIndexRev::whatIsNoDateIsToldInTheEnginesWords()
{
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Date);
        desk.type(u"spring"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The value is refused by the rule a day of the calendar."_s);
        QCOMPARE(desk.cell(Date), u"spring"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmIndexRev::aRowWithoutANumberStaysInEdit()
{
    open([&](Desk& desk) {
        desk.goToNewRow(Date);
        desk.type(u"2026-01-02"_s);
        desk.key(Qt::Key_Up);
        desk.expectFailure(u"Please enter the Revision Number"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(Date), u"2026-01-02"_s);
        desk.goTo(u"A"_s);
        desk.expectFailure(u"Please enter the Revision Number"_s);
        QCOMPARE(desk.grid().currentIndex().row(), desk.rows() - 1);
        desk.grid().cancelRow();
        desk.goTo(u"B"_s);
        desk.key(Qt::Key_Delete);
        desk.key(Qt::Key_Up);
        desk.expectFailure(u"Please enter the Revision Number"_s);
        desk.grid().cancelRow();
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from qryIndexRev"_s), u"3"_s);
}

void TestFrmIndexRev::savingWithoutANumberIsTold()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Please enter the Revision Number"_s);
    });
}

void TestFrmIndexRev::aNumberThatExistsIsRefusedAndStays()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"a"_s);
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Record cannot be saved due to duplicate revision number"_s);
        QVERIFY(desk.grid().rowPending());
        QCOMPARE(desk.cell(RevNo), u"a"_s);
        desk.grid().cancelRow();
    });
}

void TestFrmIndexRev::aNumberThatIsTakenAwayAsTheRowIsWrittenIsTold()
{
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        // Runs behind the window's own look at the number.
        QObject::connect(&desk.grid(), &toolkit::DataGrid::beforeUpdate, &desk.grid(), [&](bool&) {
            desk.grid().Columns(RevNo).setValue({});
        });
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Key field cannot be null"_s);
        desk.grid().cancelRow();
    });
    QCOMPARE(stored(u"A"_s, u"Description"_s), u"Issued for review"_s);
}

void TestFrmIndexRev::savingWithNothingPendingIsTold()
{
    open([&](Desk& desk) {
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"Error while saving revision data .\r\n3020 : "_s);
    });
}

void TestFrmIndexRev::aLockedProjectIsToldAndTheRowStays()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        other.run("BEGIN IMMEDIATE");
        desk.press(u"cmdSave"_s);
        desk.expectFailure(u"The file is locked by another program or user."_s);
        QCOMPARE(desk.cell(Description), u"x"_s);
        other.run("ROLLBACK");
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(stored(u"A"_s, u"Description"_s), u"x"_s);
}

void TestFrmIndexRev::aFullDiskIsToldAndTheRowStays()
{
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        {
            const tests::FullDisk full;
            desk.press(u"cmdSave"_s);
        }
        desk.expectFailure(u"There is not enough space on the disk."_s);
        QCOMPARE(desk.cell(Description), u"x"_s);
        desk.grid().cancelRow();
    });
    QCOMPARE(stored(u"A"_s, u"Description"_s), u"Issued for review"_s);
}

void TestFrmIndexRev::aRevisionThatAnotherProgramDeletedIsTold_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("told");
    QTest::newRow("number edited")
        << int{RevNo}
        << u"Error while validating data in instrument index revision spreadsheet. \r\n3167 : "_s;
    QTest::newRow("description edited")
        << int{Description}
        << u"Error while working in instrument index revision spreadsheet. \r\n3167 : "_s;
}

void TestFrmIndexRev::aRevisionThatAnotherProgramDeletedIsTold()
{
    QFETCH(int, column);
    QFETCH(QString, told);
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, column);
        desk.type(u"x"_s);
        IndexFixture::execute(m_project, u"delete from qryIndexRev where RevNo = 'A'"_s);
        desk.press(u"cmdSave"_s);
        const QStringList shown = m->texts();
        QCOMPARE(shown.filter(told).size(), 1);
        QCOMPARE(shown.filter(u"3167 : Error while  modifying record. "_s).size(), 1);
        QCOMPARE(shown.filter(u"Error while saving revision data .\r\n3167 : "_s).size(), 1);
        desk.grid().cancelRow();
    });
}

// ---- deleting

void TestFrmIndexRev::deletingAsksFirst()
{
    open([&](Desk& desk) {
        desk.goTo(u"B"_s);
        m->prompts.answers = {Answer::No};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete revision B?"_s);
    });
    QCOMPARE(stored(u"B"_s, u"RevNo"_s), u"B"_s);
}

void TestFrmIndexRev::deletingMovesBackOneRevision()
{
    open([&](Desk& desk) {
        desk.goTo(u"B"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        QCoreApplication::processEvents();
        QCOMPARE(desk.cell(RevNo), u"A"_s);
        QCOMPARE(desk.shownColumn(RevNo), QStringList({u"A"_s, u"C"_s}));
    });
    QCOMPARE(stored(u"B"_s, u"RevNo"_s), u"(none)"_s);
}

void TestFrmIndexRev::deletingWithoutANumberIsTold()
{
    open([&](Desk& desk) {
        desk.goTo(u"B"_s);
        desk.goToNewRow();
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectFailure(u"Please enter the revision number and save the data"_s);
        QCOMPARE(desk.rows(), 4);
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from qryIndexRev"_s), u"3"_s);
}

void TestFrmIndexRev::deletingARowBeingAddedDropsIt()
{
    open([&](Desk& desk) {
        desk.goToNewRow();
        desk.type(u"D"_s);
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete revision D?"_s);
        QVERIFY(!desk.grid().rowPending());
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from qryIndexRev"_s), u"3"_s);
}

void TestFrmIndexRev::aDeletionThatFailsIsTold()
{
    tests::OtherProgram other(m_project);
    open([&](Desk& desk) {
        desk.goTo(u"A"_s);
        other.run("BEGIN IMMEDIATE");
        m->prompts.answers = {Answer::Yes};
        desk.press(u"cmdDelete"_s);
        const QString told = m->texts().value(1);
        QVERIFY2(told.startsWith(u"Error while deleting revision data .\r\n3260 : "_s),
                 qPrintable(told));
        other.run("ROLLBACK");
    });
    QCOMPARE(stored(u"A"_s, u"RevNo"_s), u"A"_s);
}

void TestFrmIndexRev::deletingTheLastRevisionLeavesTheNewRow()
{
    open([&](Desk& desk) {
        for (const auto& number : {u"C"_s, u"B"_s, u"A"_s}) {
            desk.goTo(number);
            m->prompts.answers = {Answer::Yes};
            desk.press(u"cmdDelete"_s);
            QCoreApplication::processEvents();
        }
        QCOMPARE(desk.rows(), 1);
        m->texts();
        desk.goToNewRow();
        desk.type(u"A"_s);
        desk.press(u"cmdSave"_s);
    });
    QCOMPARE(stored(u"A"_s, u"RevNo"_s), u"A"_s);
    QCOMPARE(m->texts(), QStringList());
}

// ---- closing and keys

void TestFrmIndexRev::aRowWithoutANumberKeepsTheWindowOpen()
{
    open([&](Desk& desk) {
        desk.goToNewRow(Description);
        desk.type(u"x"_s);
        desk.press(u"cmdExit"_s);
        desk.expectFailure(u"Please enter the Revision Number"_s);
        QVERIFY(desk.window.isVisible());
        desk.key(Qt::Key_Escape);
        desk.key(Qt::Key_Escape);
        QVERIFY(!desk.window.isVisible());
    });
}

void TestFrmIndexRev::everyCommandHasItsKey()
{
    open([&](Desk& desk) {
        desk.goTo(u"A"_s, Description);
        desk.type(u"x"_s);
        desk.pressByKey(u"cmdSave"_s);
        QCOMPARE(stored(u"A"_s, u"Description"_s), u"x"_s);
        desk.pressByKey(u"cmdDelete"_s);
        desk.expectQuestion(u"Are you sure you want to delete revision A?"_s);
        desk.pressByKey(u"cmdRefresh"_s);
        desk.pressByKey(u"cmdHelp"_s);
        QCOMPARE(tests::helpWindows().size(), 1);
        tests::helpWindows().first()->close();
        desk.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&desk.window));
        desk.grid().setFocus();
        desk.key(Qt::Key_Tab, Qt::ControlModifier);
        for (const char* name : {"cmdSave", "cmdDelete", "cmdRefresh", "cmdExit", "cmdHelp"}) {
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
            desk.key(Qt::Key_Tab);
        }
        desk.pressByKey(u"cmdExit"_s);
        QVERIFY(!desk.window.isVisible());
    });
}

QTEST_MAIN(TestFrmIndexRev)
#include "tst_frm_index_rev.moc"
