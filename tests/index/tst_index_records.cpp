// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The main window over the records: sorting, the counter, what others ask it, and its validation.
#include "support/index_fixture.h"

#include <QHeaderView>

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::IndexFixture;
using ostrand::tests::ProgramFixture;

class TestIndexRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_index = std::make_unique<IndexFixture>(); }
    void cleanup() { m_index.reset(); }

    void clickingAHeaderSorts_data();
    void clickingAHeaderSorts();
    void sortingByTagOrdersByTag();
    void documentsAndRemarksCannotBeSorted_data();
    void documentsAndRemarksCannotBeSorted();
    void theOrderStaysInForce();
    void aRefusedHeaderKeepsTheOrder();
    void sortingWithAPendingEditIsTold();
    void sortingWithoutAProjectIsTold();
    void sortingALockedFileIsToldAndTheGridLives();

    void theCounterFollowsTheCurrentRecord();
    void theCounterFollowsAddingAndDeleting();
    void theCounterTellsTheRowsReachedSoFar();

    void theActiveTagIsThatOfTheRecord();
    void theFoldersAndTheLogoAreReadFromTheProject();
    void anAbsentOrNullAttributeIsEmpty_data();
    void anAbsentOrNullAttributeIsEmpty();
    void askingWithoutAProjectIsTold();
    void thePanelsShowWhatTheyAreGiven();

    void aNewRowWithoutATagMayNotBeWritten();
    void modifyingADeletedRecordIsTold();
    void deletingADeletedRecordIsTold();
    void anIndexThatCannotBeChangedIsToldForEachAction();

private:
    /// A project of four tags whose `field` holds "b", "A", nothing and "c".
    void openFour(const QString& field);
    void clickHeader(int column);
    QStringList tagsInOrder();
    QString counter() { return m_index->panel(1); }
    QStringList texts() { return m_index->texts(); }

    std::unique_ptr<IndexFixture> m_index;
};

void TestIndexRecords::openFour(const QString& field)
{
    m_index->project = m_index->emptyProject();
    for (const QString& tag : {u"T-1"_s, u"T-2"_s, u"T-3"_s, u"T-4"_s})
        m_index->addTag(tag);
    const auto set = [&](const QString& tag, const QString& value) {
        ProgramFixture::execute(m_index->project,
                                u"update qryIndex set "_s + field + u" = '"_s + value
                                    + u"' where Tag = '"_s + tag + u"'"_s);
    };
    set(u"T-1"_s, u"b"_s);
    set(u"T-2"_s, u"A"_s);
    set(u"T-4"_s, u"c"_s);
    m_index->open(m_index->project);
}

void TestIndexRecords::clickHeader(int column)
{
    toolkit::DataGrid& grid = m_index->grid();
    grid.scrollTo(grid.model()->index(0, column));
    QHeaderView* header = grid.horizontalHeader();
    const QPoint inside(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, inside);
}

QStringList TestIndexRecords::tagsInOrder()
{
    QStringList list;
    store::Recordset& tags = m_index->tags();
    for (tags.MoveFirst(); !tags.Eof(); tags.MoveNext())
        list << tags.Field(u"Tag"_s).text();
    tags.MoveFirst();
    return list;
}

void TestIndexRecords::clickingAHeaderSorts_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    int number = 0;
    for (const toolkit::GridColumn& column : index::indexColumns()) {
        const bool isSortable = number > 0 && number != 33 && !(number >= 9 && number <= 13);
        if (isSortable)
            QTest::newRow(qPrintable(column.name)) << number << column.name;
        ++number;
    }
}

void TestIndexRecords::clickingAHeaderSorts()
{
    QFETCH(const int, column);
    QFETCH(const QString, name);
    openFour(name);
    QCOMPARE(tagsInOrder(), (QStringList{u"T-1"_s, u"T-2"_s, u"T-3"_s, u"T-4"_s}));
    clickHeader(column);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(m_index->window.dbIndex().RecordSource(),
             u"select * from qryIndex order by "_s + name);
    QCOMPARE(tagsInOrder(), (QStringList{u"T-3"_s, u"T-2"_s, u"T-1"_s, u"T-4"_s}));
    QCOMPARE(m_index->window.ActiveTag(), u"T-3"_s);
    QCOMPARE(m_index->grid().model()->index(3, 0).data().toString(), u"T-4"_s);
}

void TestIndexRecords::sortingByTagOrdersByTag()
{
    openFour(u"Location"_s);
    clickHeader(5);
    clickHeader(0);
    QCOMPARE(m_index->window.dbIndex().RecordSource(), u"select * from qryIndex order by Tag"_s);
    QCOMPARE(tagsInOrder(), (QStringList{u"T-1"_s, u"T-2"_s, u"T-3"_s, u"T-4"_s}));
}

void TestIndexRecords::documentsAndRemarksCannotBeSorted_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("message");
    for (const int column : {9, 10, 11, 12, 13}) {
        QTest::addRow("document column %d", column)
            << column << u"Spreadsheet cannot be sorted by document."_s;
    }
    QTest::newRow("remarks") << 33 << u"Spreadsheet cannot be sorted by remarks."_s;
}

void TestIndexRecords::documentsAndRemarksCannotBeSorted()
{
    QFETCH(const int, column);
    QFETCH(const QString, message);
    openFour(u"Location"_s);
    const QString before = m_index->window.dbIndex().RecordSource();
    clickHeader(column);
    QCOMPARE(m_index->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_index->prompts.boxes[0].icon == toolkit::BoxIcon::Information);
    QVERIFY(m_index->prompts.boxes[0].buttons == toolkit::BoxButtons::Ok);
    QCOMPARE(m_index->prompts.boxes[0].title, u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(texts(), QStringList{message});
    QCOMPARE(m_index->window.dbIndex().RecordSource(), before);
}

void TestIndexRecords::theOrderStaysInForce()
{
    const QStringList sorted{u"T-3"_s, u"T-2"_s, u"T-1"_s, u"T-4"_s};
    openFour(u"Location"_s);
    clickHeader(5);
    m_index->press(u"cmdRefresh"_s);
    QCOMPARE(tagsInOrder(), sorted);
    m_index->open(m_index->project);
    QCOMPARE(tagsInOrder(), sorted);
    m_index->open(m_index->sampleProject());
    QCOMPARE(m_index->window.dbIndex().RecordSource(),
             u"select * from qryIndex order by Location"_s);
    QCOMPARE(texts(), QStringList());
}

void TestIndexRecords::aRefusedHeaderKeepsTheOrder()
{
    openFour(u"Location"_s);
    clickHeader(5);
    clickHeader(9);
    clickHeader(33);
    texts();
    m_index->press(u"cmdRefresh"_s);
    QCOMPARE(tagsInOrder().first(), u"T-3"_s);
}

void TestIndexRecords::sortingWithAPendingEditIsTold()
{
    openFour(u"Location"_s);
    m_index->cell(2).setValue(u"being typed"_s);
    clickHeader(5);
    QVERIFY(m_index->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while sorting index spreadsheet. \r\nError : 444. "_s),
             qPrintable(shown[0]));
    QCOMPARE(m_index->cellText(2), u"being typed"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"T-1"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"T-1"_s, u"ServiceDescription"_s), u"being typed"_s);
    clickHeader(5);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(tagsInOrder().first(), u"T-3"_s);
}

void TestIndexRecords::sortingALockedFileIsToldAndTheGridLives()
{
    m_index->open(m_index->sampleProject());
    // Orders that were used before are not looked up again, so the first reading meets the lock.
    m_index->window.Sort(1);
    m_index->window.Sort(0);
    sqlite3* other = nullptr;
    sqlite3_open(m_index->project.toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    m_index->window.Sort(1);
    sqlite3_close(other);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while sorting index spreadsheet. \r\nError : 3260. "_s),
             qPrintable(shown[0]));
    m_index->window.grab();
    m_index->window.Sort(1);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestIndexRecords::sortingWithoutAProjectIsTold()
{
    m_index->window.Sort(5);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while sorting index spreadsheet. \r\nError : "_s),
             qPrintable(shown[0]));
}

void TestIndexRecords::theCounterFollowsTheCurrentRecord()
{
    QCOMPARE(counter(), QString());
    openFour(u"Location"_s);
    m_index->tags().MoveLast();
    QCOMPARE(counter(), u"Record: 4 of 4"_s);
    m_index->tags().MoveFirst();
    QCOMPARE(counter(), u"Record: 1 of 4"_s);
    toolkit::DataGrid& grid = m_index->grid();
    QTest::mouseClick(
        grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(2, 0)).center());
    QCOMPARE(counter(), u"Record: 3 of 4"_s);
    QTest::keyClick(&grid, Qt::Key_Up);
    QCOMPARE(counter(), u"Record: 2 of 4"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"T-2"_s);
}

void TestIndexRecords::theCounterFollowsAddingAndDeleting()
{
    openFour(u"Location"_s);
    m_index->startNewTag(u"T-5"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(counter(), u"Record: 5 of 5"_s);
    m_index->goTo(u"T-3"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(counter(), u"Record: 2 of 4"_s);
}

void TestIndexRecords::theCounterTellsTheRowsReachedSoFar()
{
    m_index->project = m_index->sampleProject();
    m_index->window.OpenIndex(m_index->project);
    const int reached = m_index->tags().RecordCount();
    QVERIFY2(reached < 418, qPrintable(QString::number(reached)));
    QCOMPARE(counter(), u"Record: 1 of "_s + QString::number(reached));
    m_index->tags().MoveLast();
    QCOMPARE(counter(), u"Record: 418 of 418"_s);
    m_index->tags().MoveFirst();
    QCOMPARE(counter(), u"Record: 1 of 418"_s);
}

void TestIndexRecords::theActiveTagIsThatOfTheRecord()
{
    QCOMPARE(m_index->window.ActiveTag(), QString());
    openFour(u"Location"_s);
    m_index->goTo(u"T-2"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"T-2"_s);
    m_index->cell(index::column::tag).setValue(u"T-2a"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"T-2"_s);
    m_index->grid().cancelRow();
    m_index->tags().MoveLast();
    m_index->tags().MoveNext();
    QVERIFY(m_index->tags().Eof());
    QCOMPARE(m_index->window.ActiveTag(), QString());
    m_index->tags().MoveFirst();
    m_index->tags().MovePrevious();
    QVERIFY(m_index->tags().Bof());
    QCOMPARE(m_index->window.ActiveTag(), QString());
}

void TestIndexRecords::theFoldersAndTheLogoAreReadFromTheProject()
{
    m_index->open(m_index->emptyProject());
    const auto set = [this](const QString& attribute, const QString& value) {
        ProgramFixture::execute(m_index->project,
                                u"update qryProjectInfo set attributeValue = '"_s + value
                                    + u"' where attributeName = '"_s + attribute + u"'"_s);
    };
    set(u"DefaultDatasheetFolder"_s, uR"(D:\plant\sheets)"_s);
    set(u"DefaultTemplateFolder"_s, u"/usr/share/forms"_s);
    set(u"logo file"_s, u"/plant/logo.png"_s);
    QCOMPARE(m_index->window.FolderDatasheets(), uR"(D:\plant\sheets)"_s);
    QCOMPARE(m_index->window.FolderTemplates(), u"/usr/share/forms"_s);
    QCOMPARE(m_index->window.DatasheetLogoFile(), u"/plant/logo.png"_s);
    QCOMPARE(texts(), QStringList());
}

void TestIndexRecords::anAbsentOrNullAttributeIsEmpty_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("absent") << u"delete from ProjectInfo"_s;
    QTest::newRow("Null") << u"update ProjectInfo set attributeValue = null"_s;
    QTest::newRow("empty") << u"update ProjectInfo set attributeValue = ''"_s;
}

void TestIndexRecords::anAbsentOrNullAttributeIsEmpty()
{
    QFETCH(const QString, statement);
    m_index->open(m_index->sampleProject());
    ProgramFixture::execute(m_index->project, statement);
    QCOMPARE(m_index->window.FolderDatasheets(), QString());
    QCOMPARE(m_index->window.FolderTemplates(), QString());
    QCOMPARE(m_index->window.DatasheetLogoFile(), QString());
    QCOMPARE(texts(), QStringList());
}

void TestIndexRecords::askingWithoutAProjectIsTold()
{
    const auto told = [this](const QString& head) {
        const QStringList shown = texts();
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown[0].startsWith(head + u"\r\nError : 91. "_s), qPrintable(shown[0]));
    };
    QCOMPARE(m_index->window.FolderDatasheets(), QString());
    told(u"Error while getting default datasheets folder. "_s);
    QCOMPARE(m_index->window.FolderTemplates(), QString());
    told(u"Error while getting default template folder. "_s);
    QCOMPARE(m_index->window.DatasheetLogoFile(), QString());
    told(u"Error while getting project datasheet logo file specification. "_s);
}

void TestIndexRecords::thePanelsShowWhatTheyAreGiven()
{
    m_index->window.setPanelText(1, u"Working on <b> & co"_s);
    m_index->window.setPanelText(2, u"a.mdb"_s);
    QCOMPARE(m_index->panel(1), u"Working on <b> & co"_s);
    QCOMPARE(m_index->panel(2), u"a.mdb"_s);
    QVERIFY(m_index->window.findChild<QLabel*>(u"Panel1"_s)->textFormat() == Qt::PlainText);
}

void TestIndexRecords::aNewRowWithoutATagMayNotBeWritten()
{
    using Action = toolkit::DataControl::Action;
    openFour(u"Location"_s);
    const int newRow = m_index->grid().model()->rowCount() - 1;
    m_index->grid().setCurrentIndex(m_index->grid().model()->index(newRow, 2));
    m_index->cell(2).setValue(u"no tag yet"_s);
    QVERIFY(!m_index->window.dbIndex().validateAction(Action::Add));
    m_index->cell(index::column::tag).setValue(QString());
    QVERIFY(!m_index->window.dbIndex().validateAction(Action::Add));
    m_index->cell(index::column::tag).setValue(u"T-5"_s);
    QVERIFY(m_index->window.dbIndex().validateAction(Action::Add));
    QCOMPARE(texts(), QStringList());
    m_index->grid().cancelRow();
}

void TestIndexRecords::modifyingADeletedRecordIsTold()
{
    openFour(u"Location"_s);
    m_index->goTo(u"T-2"_s);
    m_index->cell(2).setValue(u"too late"_s);
    ProgramFixture::execute(m_index->project, u"delete from [index] where PlantItemNo = 'T-2'"_s);
    m_index->press(u"cmdSave"_s);
    const QStringList told = texts().filter(u"3167 : Error while  modifying record. "_s);
    QCOMPARE(told.size(), 1);
    QVERIFY(told[0].startsWith(u"3167"_s));
}

void TestIndexRecords::deletingADeletedRecordIsTold()
{
    openFour(u"Location"_s);
    m_index->goTo(u"T-2"_s);
    QTest::keyClick(&m_index->grid(), Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(m_index->grid().SelBookmarks().size(), std::size_t{1});
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->prompts.whileOpen = [this](const toolkit::Box& box) {
        // While the grid asks, another program deletes the record.
        if (box.buttons == toolkit::BoxButtons::YesNo) {
            ProgramFixture::execute(m_index->project,
                                    u"delete from [index] where PlantItemNo = 'T-2'"_s);
        }
    };
    m_index->grid().DeleteSelected();
    const QStringList told = texts().filter(u"3167 : Error while  deleting a record. "_s);
    QCOMPARE(told.size(), 1);
    QVERIFY(told[0].startsWith(u"3167"_s));
}

void TestIndexRecords::anIndexThatCannotBeChangedIsToldForEachAction()
{
    using Action = toolkit::DataControl::Action;
    openFour(u"Location"_s);
    toolkit::DataControl& dbIndex = m_index->window.dbIndex();
    dbIndex.setRecordSource(u"select distinct * from qryIndex"_s);
    dbIndex.Refresh();
    const auto told = [this](const QString& start) {
        QVERIFY(m_index->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
        const QStringList shown = texts();
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown[0].startsWith(start), qPrintable(shown[0]));
        QVERIFY2(shown[0].size() > start.size(), qPrintable(shown[0]));
    };
    QVERIFY(!dbIndex.validateAction(Action::Add));
    told(u"3027 : Error while  adding a record. "_s);
    QVERIFY(!dbIndex.validateAction(Action::Delete));
    told(u"3027 : Error while  deleting a record. "_s);
    QVERIFY(!dbIndex.validateAction(Action::Update));
    told(u"3027 : Error while  modifying record. "_s);
}

QTEST_MAIN(TestIndexRecords)
#include "tst_index_records.moc"
