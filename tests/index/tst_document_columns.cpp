// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/index_fixture.h"
#include "toolkit/data_drop_down.h"

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::index;
using ostrand::tests::IndexFixture;
using ostrand::tests::ProgramFixture;

class TestDocumentColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_index.reset(); }

    void theCellsShowOneDocumentOfEachKind();
    void aTagWithoutDocumentsShowsEmptyCells();
    void kindOfTheDocumentOrContextCounts();
    void writingATagWithoutDocumentsLeavesTheTiesAlone();
    void pickingADocumentTiesItWithTheKindAsContext();
    void anotherNumberReplacesTheTie();
    void anUnchangedCellIsTiedAnew();
    void writingNarrowsAKindToTheDocumentShown();
    void aNewTagAndItsDocumentsAreWrittenInOneRow();
    void renamingTakesTheTiesAlong();
    void deletingATagDeletesItsTies();
    void backspaceMarksTheCellAndTheWriteClearsIt_data();
    void backspaceMarksTheCellAndTheWriteClearsIt();
    void backspaceElsewhereAndOtherKeysDoNothing();
    void aNumberWithAnApostropheFailsAndEndsTheRewriting();
    void anUnknownNumberIsRefusedByTheRegister();
    void aTagWithAnApostropheFailsToLoadItsCells();
    void cellsThatCouldNotBeReadAreNotWrittenAsEmpty();
    void theListsOfferTheirKindAndTheSentinel();
    void aKeyPressWithoutTheListIsTold();

private:
    std::unique_ptr<IndexFixture> m_index;
};

void TestDocumentColumns::init()
{
    m_index = std::make_unique<IndexFixture>();
    m_index->open(m_index->emptyProject());
    m_index->addTag(u"FT-101"_s);
    m_index->addTag(u"FT-102"_s);
    m_index->addDocument(u"DS-1"_s, u"DATASHEET"_s);
    m_index->addDocument(u"PID-1"_s, u"PID"_s);
    m_index->addDocument(u"PID-2"_s, u"PID"_s);
    m_index->addDocument(u"LD-1"_s, u"LOOP DWG"_s);
    m_index->addDocument(u"RQ-1"_s, u"REQUISITION"_s);
    m_index->addDocument(u"PO-1"_s, u"PURCHASE ORDER"_s);
    m_index->open(m_index->project);
}

void TestDocumentColumns::theCellsShowOneDocumentOfEachKind()
{
    m_index->addTie(u"FT-101"_s, u"DS-1"_s, u"DATASHEET"_s);
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"PID"_s);
    m_index->addTie(u"FT-101"_s, u"LD-1"_s, u"LOOP DWG"_s);
    m_index->addTie(u"FT-101"_s, u"RQ-1"_s, u"REQUISITION"_s);
    m_index->addTie(u"FT-101"_s, u"PO-1"_s, u"PURCHASE ORDER"_s);
    m_index->open(m_index->project);
    QCOMPARE(m_index->cellText(column::datasheet), u"DS-1"_s);
    QCOMPARE(m_index->cellText(column::pid), u"PID-1"_s);
    QCOMPARE(m_index->cellText(column::loopDwg), u"LD-1"_s);
    QCOMPARE(m_index->cellText(column::requisition), u"RQ-1"_s);
    QCOMPARE(m_index->cellText(column::purchaseOrder), u"PO-1"_s);
}

void TestDocumentColumns::aTagWithoutDocumentsShowsEmptyCells()
{
    for (int number = column::firstDocument; number <= column::lastDocument; ++number)
        QVERIFY(m_index->cellText(number).isEmpty());
}

void TestDocumentColumns::kindOfTheDocumentOrContextCounts()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"LOOP DWG"_s);
    m_index->open(m_index->project);
    QCOMPARE(m_index->cellText(column::pid), u"PID-1"_s);
    QCOMPARE(m_index->cellText(column::loopDwg), u"PID-1"_s);
}

void TestDocumentColumns::writingATagWithoutDocumentsLeavesTheTiesAlone()
{
    m_index->addTie(u"FT-102"_s, u"PID-1"_s, u"PID"_s);
    m_index->open(m_index->project);
    m_index->cell(5).setValue(u"DCS"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList());
    QCOMPARE(m_index->ties(u"FT-102"_s), QStringList{u"PID-1/PID"_s});
}

void TestDocumentColumns::pickingADocumentTiesItWithTheKindAsContext()
{
    m_index->cell(column::loopDwg).setValue(u"LD-1"_s);
    m_index->cell(column::requisition).setValue(u"LD-1"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->ties(u"FT-101"_s), (QStringList{u"LD-1/LOOP DWG"_s, u"LD-1/REQUISITION"_s}));
}

void TestDocumentColumns::anotherNumberReplacesTheTie()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"PID"_s);
    m_index->open(m_index->project);
    m_index->cell(column::pid).setValue(u"PID-2"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"PID-2/PID"_s});
    QCOMPARE(m_index->cellText(column::pid), u"PID-2"_s);
}

void TestDocumentColumns::anUnchangedCellIsTiedAnew()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"AS BUILT"_s);
    m_index->open(m_index->project);
    m_index->cell(5).setValue(u"DCS"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"PID-1/PID"_s});
}

void TestDocumentColumns::writingNarrowsAKindToTheDocumentShown()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"PID"_s);
    m_index->addTie(u"FT-101"_s, u"PID-2"_s, u"PID"_s);
    m_index->open(m_index->project);
    const QString shown = m_index->cellText(column::pid);
    m_index->cell(5).setValue(u"DCS"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{shown + u"/PID"_s});
}

void TestDocumentColumns::aNewTagAndItsDocumentsAreWrittenInOneRow()
{
    m_index->startNewTag(u"FT-200"_s);
    m_index->cell(column::pid).setValue(u"PID-1"_s);
    m_index->cell(column::datasheet).setValue(u"DS-1"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->ties(u"FT-200"_s), (QStringList{u"DS-1/DATASHEET"_s, u"PID-1/PID"_s}));
    QCOMPARE(m_index->cellText(column::pid), u"PID-1"_s);
}

void TestDocumentColumns::renamingTakesTheTiesAlong()
{
    ProgramFixture::execute(m_index->project, u"insert into plDocType values ('MANUAL')"_s);
    m_index->addDocument(u"M-1"_s, u"MANUAL"_s);
    m_index->addTie(u"FT-101"_s, u"M-1"_s, u"MANUAL"_s);
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, QString());
    m_index->open(m_index->project);
    m_index->cell(column::tag).setValue(u"FT-300"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->ties(u"FT-300"_s), (QStringList{u"M-1/MANUAL"_s, u"PID-1/PID"_s}));
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList());
}

void TestDocumentColumns::deletingATagDeletesItsTies()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"PID"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList());
}

void TestDocumentColumns::backspaceMarksTheCellAndTheWriteClearsIt_data()
{
    QTest::addColumn<int>("number");
    for (int number = column::firstDocument; number <= column::lastDocument; ++number)
        QTest::addRow("column %d", number) << number;
}

void TestDocumentColumns::backspaceMarksTheCellAndTheWriteClearsIt()
{
    QFETCH(const int, number);
    ProgramFixture::execute(m_index->project, u"insert into plDocType values ('SKETCH')"_s);
    m_index->addDocument(u"SK-1"_s, u"SKETCH"_s);
    for (const auto& kind : documentKinds()) {
        if (kind.column == number)
            m_index->addTie(u"FT-101"_s, u"SK-1"_s, QString::fromUtf16(kind.literal));
    }
    m_index->open(m_index->project);
    QCOMPARE(m_index->cellText(number), u"SK-1"_s);
    toolkit::DataGrid& grid = m_index->grid();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(0, number));
    QTest::keyClick(&grid, Qt::Key_Backspace);
    QCOMPARE(m_index->cellText(number), u"**DELETED**"_s);
    QVERIFY(grid.rowPending());
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList());
    QCOMPARE(m_index->cellText(number), QString());
}

void TestDocumentColumns::backspaceElsewhereAndOtherKeysDoNothing()
{
    toolkit::DataGrid& grid = m_index->grid();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(0, column::datasheetPath));
    QTest::keyClick(&grid, Qt::Key_Backspace);
    QVERIFY(m_index->cellText(column::datasheetPath) != u"**DELETED**"_s);
    QTest::keyClick(&grid, Qt::Key_Escape);
    grid.cancelRow();
    grid.setCurrentIndex(grid.model()->index(0, column::pid));
    QTest::keyClick(&grid, Qt::Key_Delete);
    QVERIFY(m_index->cellText(column::pid).isEmpty());
    QCOMPARE(m_index->texts(), QStringList());
}

void TestDocumentColumns::aNumberWithAnApostropheFailsAndEndsTheRewriting()
{
    m_index->cell(column::datasheet).setValue(u"DS-1"_s);
    m_index->cell(column::pid).setValue(u"P'1"_s);
    m_index->cell(column::loopDwg).setValue(u"LD-1"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    m_index->press(u"cmdSave"_s);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(
                 u"Error while updating document cross reference information.\r\nError : "_s),
             qPrintable(shown[0]));
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"DS-1/DATASHEET"_s});
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Location"_s), u"DCS"_s);
}

void TestDocumentColumns::anUnknownNumberIsRefusedByTheRegister()
{
    m_index->cell(column::pid).setValue(u"NOT REGISTERED"_s);
    m_index->press(u"cmdSave"_s);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].contains(u"Error : 3201. "_s), qPrintable(shown[0]));
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList());
}

void TestDocumentColumns::aTagWithAnApostropheFailsToLoadItsCells()
{
    ProgramFixture::execute(m_index->project,
                            u"insert into [index] (PlantItemNo) values ('A''B')"_s);
    m_index->open(m_index->project);
    QTRY_VERIFY(!m_index->prompts.boxes.empty());
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while loading document info.\r\nError : "_s),
             qPrintable(shown[0]));
}

void TestDocumentColumns::cellsThatCouldNotBeReadAreNotWrittenAsEmpty()
{
    m_index->addTie(u"FT-101"_s, u"PID-1"_s, u"PID"_s);
    m_index->open(m_index->project);
    sqlite3* other = nullptr;
    sqlite3_open(m_index->project.toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    // Comes into display anew, and cannot be read.
    m_index->window.hide();
    m_index->grid().setCurrentIndex(m_index->grid().model()->index(1, 5));
    m_index->window.show();
    m_index->grid().setCurrentIndex(m_index->grid().model()->index(0, 5));
    m_index->cell(5).setValue(u"DCS"_s);
    QVERIFY(!m_index->grid().rowPending());
    QVERIFY(m_index->texts().join(u' ').contains(u"locked"_s));
    sqlite3_close(other);
    QTRY_COMPARE_WITH_TIMEOUT(m_index->cellText(column::pid), u"PID-1"_s, 5000);
    m_index->cell(5).setValue(u"DCS"_s);
    QVERIFY(m_index->grid().writeRow());
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"PID-1/PID"_s});
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Location"_s), u"DCS"_s);
}

void TestDocumentColumns::theListsOfferTheirKindAndTheSentinel()
{
    auto* list = m_index->window.findChild<toolkit::DataDropDown*>(u"cmbDocPid"_s);
    QCOMPARE(list->values(), (QStringList{u"**DELETED**"_s, u"PID-1"_s, u"PID-2"_s}));
}

void TestDocumentColumns::aKeyPressWithoutTheListIsTold()
{
    IndexFixture& other = *m_index;
    auto* control = other.window.findChild<toolkit::DataControl*>(u"dbDocPid"_s);
    control->Recordset().Close();
    other.grid().setFocus();
    other.grid().setCurrentIndex(other.grid().model()->index(0, column::pid));
    QTest::keyClick(&other.grid(), Qt::Key_Backspace);
    const QStringList shown = other.texts();
    QVERIFY2(shown.at(0).startsWith(u"Error while spreadsheet key press. \r\nError : 3420. "_s),
             qPrintable(shown.at(0)));
}

QTEST_MAIN(TestDocumentColumns)
#include "tst_document_columns.moc"
