// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/process_datasheet.h"
#include "pid/run_desk.h"
#include "spreadsheet/host.h"
#include "support/workbook_file.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellValue;
using tests::RunDesk;

class TestProcessDatasheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void allThreePassesFillTheFile();
    void theFieldsAreThoseOfTheTag();
    void theTagIsFoundLetterForLetter();
    void aTagAddedMeanwhileIsFound();
    void aSlashLeavesTheDocuments();
    void aTagThatTheIndexDoesNotHaveIsTold();
    void aSheetThatThereIsNotIsToldInEachPass();
    void aWorkbookWithoutTypeIsTold();
    void aMissingFileIsTold();
    void aFileThatIsNoWorkbookIsTold();
    void aReadOnlyFileIsTold();
    void anApplicationThatEndsIsTold();
    void theStatusLineNamesTheFile();

private:
    QStringList process(const QString& file, const QString& tag)
    {
        const auto application = spreadsheet::CreateObject();
        m_refresh.ProcessDatasheetProc(*application, m_desk->sheetFile(file), tag);
        return m_desk->texts();
    }
    void open() { m_desk->open(m_desk->project); }
    void setService(const QString& tag, const QString& service)
    {
        RunDesk::execute(m_desk->project,
                         u"update [index] set ServiceDescription = '"_s + service
                             + u"' where PlantItemNo = '"_s + tag + u'\'');
    }

    std::unique_ptr<RunDesk> m_desk;
    pid::DatasheetRefresh m_refresh;
};

void TestProcessDatasheet::init()
{
    m_desk = std::make_unique<RunDesk>(u"none"_s);
    m_refresh = {};
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    m_desk->mapCell(u"H5"_s, u"IndexTitleInfo"_s, u"contract"_s);
    m_desk->mapCell(u"H7"_s, u"document"_s, u"PURCHASE ORDER"_s);
    m_desk->setAttribute(u"contract"_s, u"C-9"_s);
    m_desk->addDocument(u"PO-5"_s, u"PURCHASE ORDER"_s);
    m_desk->giveSheet(u"PT-1"_s, {}, {{u"A1"_s, u"kept"_s}, {u"D12"_s, 7.0}});
    m_desk->giveSheet(u"PT-2"_s, {});
    m_desk->addTie(u"PT-1"_s, u"PO-5"_s, u"PURCHASE ORDER"_s);
    setService(u"PT-1"_s, u"Gas"_s);
    setService(u"PT-2"_s, u"Oil"_s);
}

void TestProcessDatasheet::allThreePassesFillTheFile()
{
    open();
    QCOMPARE(process(u"PT-1.xls"_s, u"PT-1"_s), QStringList());
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"Gas"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H5"_s), u"C-9"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H7"_s), u"PO-5"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"A1"_s), u"kept"_s);
}

void TestProcessDatasheet::theFieldsAreThoseOfTheTag()
{
    open();
    process(u"PT-2.xls"_s, u"PT-2"_s);
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s), u"Oil"_s);
    QCOMPARE(m_desk->tags().AbsolutePosition(), 1);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-2"_s);
    process(u"PT-1.xls"_s, u"PT-1"_s);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-1"_s);
}

void TestProcessDatasheet::theTagIsFoundLetterForLetter()
{
    open();
    const QStringList texts = process(u"PT-1.xls"_s, u"pt-1"_s);
    QCOMPARE(texts.size(), 1);
    QVERIFY(texts[0].contains(u"3021"_s));
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(7.0));
}

void TestProcessDatasheet::aTagAddedMeanwhileIsFound()
{
    open();
    process(u"PT-2.xls"_s, u"PT-2"_s);
    m_desk->giveSheet(u"PT-0"_s, {});
    setService(u"PT-0"_s, u"Air"_s);
    m_desk->window.dbIndex().Refresh();
    QCOMPARE(process(u"PT-0.xls"_s, u"PT-0"_s), QStringList());
    QCOMPARE(m_desk->fileText(u"PT-0.xls"_s, u"D12"_s), u"Air"_s);
    process(u"PT-2.xls"_s, u"PT-2"_s);
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s), u"Oil"_s);
}

void TestProcessDatasheet::aSlashLeavesTheDocuments()
{
    m_desk->addSheetTag(u"PT-1/2"_s);
    m_desk->makeSheet(u"PT-1-2.xls"_s, {}, {{u"H7"_s, u"old"_s}});
    m_desk->addTie(u"PT-1/2"_s, u"PO-5"_s, u"PURCHASE ORDER"_s);
    setService(u"PT-1/2"_s, u"Air"_s);
    open();
    QCOMPARE(process(u"PT-1-2.xls"_s, u"PT-1/2"_s), QStringList());
    QCOMPARE(m_desk->fileText(u"PT-1-2.xls"_s, u"D12"_s), u"Air"_s);
    QCOMPARE(m_desk->fileText(u"PT-1-2.xls"_s, u"H7"_s), u"old"_s);
}

void TestProcessDatasheet::aTagThatTheIndexDoesNotHaveIsTold()
{
    open();
    const QStringList texts = process(u"PT-1.xls"_s, u"PT-9"_s);
    QCOMPARE(texts.size(), 1);
    QVERIFY2(
        texts[0].startsWith(
            u"Error while populating index data into Excel Spreadsheet PT-1.xls.\r\n3021 : "_s),
        qPrintable(texts[0]));
    QCOMPARE(m_desk->tags().AbsolutePosition(), -1);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H5"_s), u"C-9"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H7"_s), u"PO-5"_s);
}

void TestProcessDatasheet::aSheetThatThereIsNotIsToldInEachPass()
{
    RunDesk::execute(m_desk->project,
                     u"update Map set Worksheet = 'NOWHERE' where DatasheetType = '"_s
                         + RunDesk::type + u'\'');
    open();
    const QStringList texts = process(u"PT-1.xls"_s, u"PT-1"_s);
    QCOMPARE(texts,
             (QStringList{u"Error while populating title information in Excel Spreadsheet "
                          u"PT-1.xls.\r\n9 : Subscript out of range"_s,
                          u"Error while populating index data into Excel Spreadsheet "
                          u"PT-1.xls.\r\n9 : Subscript out of range"_s,
                          u"Error while populating document information in Excel Spreadsheet "
                          u"PT-1.xls.\r\n9 : Subscript out of range"_s}));
}

void TestProcessDatasheet::aWorkbookWithoutTypeIsTold()
{
    auto book = tests::readWorkbook(m_desk->sheetFile(u"PT-1.xls"_s));
    book->properties.clear();
    tests::writeWorkbook(m_desk->sheetFile(u"PT-1.xls"_s), *book);
    open();
    const QStringList texts = process(u"PT-1.xls"_s, u"PT-1"_s);
    QVERIFY(!texts.isEmpty());
    for (const QString& text : texts)
        QCOMPARE(text, u"Error while getting datasheet type. \r\n5 : There is no such property"_s);
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(7.0));
}

void TestProcessDatasheet::aMissingFileIsTold()
{
    open();
    QCOMPARE(process(u"PT-9.xls"_s, u"PT-1"_s),
             QStringList{u"Error 1004 (The file was not found) in procedure "
                         u"ProcessDatasheetProc of Form frmIndex"_s});
}

void TestProcessDatasheet::aFileThatIsNoWorkbookIsTold()
{
    m_desk->file(u"sheets/PT-1.xls"_s, "garbage");
    open();
    QCOMPARE(process(u"PT-1.xls"_s, u"PT-1"_s),
             QStringList{u"Error 321 (The file is no workbook) in procedure "
                         u"ProcessDatasheetProc of Form frmIndex"_s});
}

void TestProcessDatasheet::aReadOnlyFileIsTold()
{
    QVERIFY(QFile::setPermissions(m_desk->sheetFile(u"PT-1.xls"_s), QFile::ReadOwner));
    open();
    QCOMPARE(process(u"PT-1.xls"_s, u"PT-1"_s),
             QStringList{u"Error 70 (Permission denied) in procedure "
                         u"ProcessDatasheetProc of Form frmIndex"_s});
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(7.0));
}

void TestProcessDatasheet::anApplicationThatEndsIsTold()
{
    open();
    m_desk->office.whenWritten = [this] { m_desk->office.kill(); };
    const QStringList texts = process(u"PT-1.xls"_s, u"PT-1"_s);
    QVERIFY(!texts.isEmpty());
    QCOMPARE(texts.last(),
             u"Error 462 (The spreadsheet application has ended) in procedure "
             u"ProcessDatasheetProc of Form frmIndex"_s);
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(7.0));
}

void TestProcessDatasheet::theStatusLineNamesTheFile()
{
    open();
    QStringList panels;
    m_desk->office.whenSaved = [&](const QString&, const QString&) { panels << m_desk->panel(1); };
    process(u"PT-2.xls"_s, u"PT-2"_s);
    QCOMPARE(panels, QStringList{u"Please wait processing datasheet :-  PT-2.xls"_s});
}

QTEST_MAIN(TestProcessDatasheet)
#include "tst_process_datasheet.moc"
