// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The template workbooks as the build has made them, against the tables of a new project.
#include "data/data_rows.h"
#include "spreadsheet/host.h"
#include "spreadsheet/sheet_look.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::DataRow;
using tests::dataRows;

namespace {

constexpr double rounding = 0.2; // points

const QString mapSheet = u"P&ID Database Map"_s;

const spreadsheet::SheetLook& lookOf(spreadsheet::Worksheet& sheet)
{
    return dynamic_cast<const spreadsheet::SheetLook&>(sheet.design());
}

bool isUnlocked(spreadsheet::Worksheet& sheet, const QString& cell)
{
    return !*lookOf(sheet).style(cell).locked;
}

bool isEmpty(spreadsheet::Worksheet& sheet, const QString& cell)
{
    return std::holds_alternative<std::monostate>(sheet.Range(cell)->Value());
}

QString textIn(spreadsheet::Worksheet& sheet, const QString& cell)
{
    const spreadsheet::CellValue value = sheet.Range(cell)->Value();
    const QString* text = std::get_if<QString>(&value);
    return text ? *text : QString();
}

bool isNear(double actual, double expected)
{
    return std::abs(actual - expected) <= rounding;
}

/// A cell that holds a value is not hidden inside a merged block, but its first one.
bool standsFirst(spreadsheet::Worksheet& sheet, const QString& cell)
{
    return lookOf(sheet).mergedBlock(cell).section(u':', 0, 0) == cell;
}

struct Place
{
    QString worksheet;
    QString cell;
};

/// A value that stands on a form once to be entered, and once more to be seen.
struct Shown
{
    Place source;
    Place echo;

    QString name(const QString& type) const
    {
        return type + u' ' + echo.worksheet + u' ' + echo.cell;
    }
    void enter(spreadsheet::Workbook& book, const QString& value) const
    {
        book.Worksheets(source.worksheet)->Range(source.cell)->setValue(value);
    }
    QString text(spreadsheet::Workbook& book) const
    {
        return textIn(*book.Worksheets(echo.worksheet), echo.cell);
    }
};

std::vector<Shown> shownTwice(const QString& type)
{
    const std::vector<DataRow> map = dataRows("template/seed/Map.csv", type);
    std::vector<Shown> all;
    for (const DataRow& echo : dataRows("templates/echoes.csv")) {
        const auto mapped = std::find_if(map.begin(), map.end(), [&](const DataRow& row) {
            return row[u"TableName"_s] == echo[u"TableName"_s]
                   && row[u"Field"_s] == echo[u"Field"_s];
        });
        if (mapped == map.end())
            qFatal("a value is shown that is mapped nowhere");
        all.push_back({.source = {(*mapped)[u"Worksheet"_s], (*mapped)[u"object"_s]},
                       .echo = {echo[u"Worksheet"_s], echo[u"Cell"_s]}});
    }
    return all;
}

QString templatesFolder()
{
    return QStringLiteral(OSTRAND_BIN_DIR) + u"/Templates"_s;
}

} // namespace

class TestTemplates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    static void everyValueIsMappedOnce();
    static void everyTypeHasItsFileAndNothingElseLiesThere();
    void theTypeIsKnownByItsProperty();
    void theFormIsInFrontWithItsDefaultCell();
    void everyMappedCellTakesTypedValues();
    void whatIsShownTwiceFollowsTheMappedCell();
    void whatIsShownTwiceStaysSoInASavedDatasheet();
    void everyLineStandsWhereItBelongs();
    void everyLineHasItsValueCells();
    void onlyWhatUsersFillIsUnlocked();
    void theLogoLiesWhereTheTableSays();
    void theHeaderTellsTheFormAndTheSheet();
    void thePidMapTiesFieldsToCells();
    void allSheetsAreProtectedWithoutAPassword();
    void theFormsPrintOnOnePageOfA4();
    static void everySheetIsOnePageOnPaper();

private:
    /// The workbooks stay open from one test to the next.
    spreadsheet::Workbook& workbook(const QString& type);

    std::shared_ptr<spreadsheet::Application> m_application;
    QHash<QString, QString> m_files; ///< by datasheet type
    QHash<QString, std::shared_ptr<spreadsheet::Workbook>> m_open;
};

void TestTemplates::initTestCase()
{
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR), .headless = true});
    m_application = spreadsheet::CreateObject();
    for (const DataRow& row : dataRows("template/seed/DatasheetTypes.csv"))
        m_files.insert(row[u"DatasheetType"_s], row[u"FileName"_s]);
    QCOMPARE(m_files.size(), 15);
}

void TestTemplates::cleanupTestCase()
{
    m_open.clear();
    m_application.reset();
    spreadsheet::endHost();
}

spreadsheet::Workbook& TestTemplates::workbook(const QString& type)
{
    std::shared_ptr<spreadsheet::Workbook>& open = m_open[type];
    if (!open)
        open = m_application->Open(QDir(templatesFolder()).filePath(m_files.value(type)));
    return *open;
}

void TestTemplates::everyValueIsMappedOnce()
{
    std::set<QStringList> values;
    for (const DataRow& row : dataRows("template/seed/Map.csv")) {
        const QStringList value{row[u"DatasheetType"_s].toLower(),
                                row[u"TableName"_s].toLower(),
                                row[u"Field"_s].toLower()};
        QVERIFY2(values.insert(value).second, qPrintable(value.join(u' ')));
    }
    QVERIFY(!values.empty());
}

void TestTemplates::everyTypeHasItsFileAndNothingElseLiesThere()
{
    QStringList expected;
    for (const DataRow& row : dataRows("template/seed/DatasheetTypes.csv"))
        expected << row[u"FileName"_s];
    expected.sort();
    QCOMPARE(QDir(templatesFolder())
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             expected);
}

void TestTemplates::theTypeIsKnownByItsProperty()
{
    for (const QString& type : m_files.keys())
        QCOMPARE(workbook(type).CustomDocumentProperty(u"DatasheetType"_s), type);
}

void TestTemplates::theFormIsInFrontWithItsDefaultCell()
{
    for (const QString& type : m_files.keys()) {
        spreadsheet::Workbook& book = workbook(type);
        QCOMPARE(book.ActiveSheet()->Name(), u"DATASHEET"_s);
        for (const DataRow& row : dataRows("template/seed/DtShtWorksheets.csv", type)) {
            const auto sheet = book.Worksheets(row[u"WorkSheet"_s]);
            const bool isInFront = book.ActiveSheet()->Name() == sheet->Name();
            QCOMPARE(isInFront, row[u"DefaultSheet"_s] == u"True"_s);
            sheet->Activate();
            const QString cell = row[u"DefaultCell"_s];
            QCOMPARE(lookOf(*sheet).currentCell(), lookOf(*sheet).mergedBlock(cell));
            book.Worksheets(u"DATASHEET"_s)->Activate();
        }
    }
}

void TestTemplates::everyMappedCellTakesTypedValues()
{
    int checked = 0;
    for (const DataRow& row : dataRows("template/seed/Map.csv")) {
        spreadsheet::Workbook& book = workbook(row[u"DatasheetType"_s]);
        const auto sheet = book.Worksheets(row[u"Worksheet"_s]);
        const QString cell = row[u"object"_s];
        const QString place = row[u"DatasheetType"_s] + u' ' + sheet->Name() + u' ' + cell;
        const spreadsheet::CellStyle style = lookOf(*sheet).style(cell);
        QVERIFY2(!*style.locked, qPrintable(place));
        QVERIFY2(*style.shrinkToFit, qPrintable(place));
        QVERIFY2(standsFirst(*sheet, cell), qPrintable(place));
        QVERIFY2(isEmpty(*sheet, cell), qPrintable(place));
        QCOMPARE(lookOf(*sheet).numberFormat(cell), u"General"_s);
        ++checked;
    }
    QCOMPARE(checked, 474);
}

void TestTemplates::whatIsShownTwiceFollowsTheMappedCell()
{
    for (const QString& type : m_files.keys()) {
        for (const Shown& shown : shownTwice(type)) {
            spreadsheet::Workbook& book = workbook(type);
            const auto source = book.Worksheets(shown.source.worksheet);
            const auto echo = book.Worksheets(shown.echo.worksheet);
            const QString place = shown.name(type);
            QVERIFY2(!isUnlocked(*echo, shown.echo.cell), qPrintable(place));
            QVERIFY2(*lookOf(*echo).style(shown.echo.cell).shrinkToFit, qPrintable(place));
            QVERIFY2(standsFirst(*echo, shown.echo.cell), qPrintable(place));
            for (const QString& value : {u"HGC-1 \"A\""_s, u"0012"_s, QString()}) {
                source->Range(shown.source.cell)->setValue(value);
                QVERIFY2(textIn(*echo, shown.echo.cell) == value, qPrintable(place));
            }
        }
    }
}

void TestTemplates::whatIsShownTwiceStaysSoInASavedDatasheet()
{
    const QTemporaryDir scratch;
    for (const QString& type : m_files.keys()) {
        const QString path = scratch.filePath(u"a.xls"_s);
        const auto book =
            m_application->Open(QDir(templatesFolder()).filePath(m_files.value(type)));
        const std::vector<Shown> all = shownTwice(type);
        for (const Shown& shown : all)
            shown.enter(*book, u"first"_s);
        book->SaveAs(path, spreadsheet::FileFormat::Workbook);
        book->Close(spreadsheet::SaveChanges::No);
        const auto opened = m_application->Open(path);
        for (const QString& value : {u"first"_s, u"second"_s}) {
            for (const Shown& shown : all) {
                const auto sheet = opened->Worksheets(shown.echo.worksheet);
                QVERIFY2(shown.text(*opened) == value, qPrintable(shown.name(type)));
                QVERIFY2(!isUnlocked(*sheet, shown.echo.cell), qPrintable(shown.name(type)));
            }
            for (const Shown& shown : all)
                shown.enter(*opened, u"second"_s);
        }
        opened->Close(spreadsheet::SaveChanges::No);
    }
}

void TestTemplates::everyLineStandsWhereItBelongs()
{
    constexpr int rowOfLine0 = 10;
    for (const QString& type : m_files.keys()) {
        const auto sheet = workbook(type).Worksheets(u"DATASHEET"_s);
        QString section;
        for (const DataRow& row : dataRows("templates/lines.csv", type)) {
            const int line = row[u"Line"_s].toInt();
            const QString at = QString::number(rowOfLine0 + line);
            QCOMPARE(std::get<double>(sheet->Range(u'B' + at)->Value()), double(line));
            QCOMPARE(textIn(*sheet, u'C' + at), row[u"Label"_s]);
            QCOMPARE(textIn(*sheet, u'G' + at), row[u"Unit"_s]);
            if (row[u"Section"_s] == section)
                continue;
            section = row[u"Section"_s];
            QCOMPARE(textIn(*sheet, u'A' + at), section);
            QVERIFY(standsFirst(*sheet, u'A' + at));
            QCOMPARE(lookOf(*sheet).style(u'A' + at).rotation, 90);
        }
    }
}

void TestTemplates::everyLineHasItsValueCells()
{
    const QStringList shapes[] = {
        {u"D%1:F%1"_s}, {u"D%1"_s, u"E%1:F%1"_s}, {u"D%1"_s, u"E%1"_s, u"F%1"_s}};
    const QString type = u"CONTROL VALVE"_s;
    const auto sheet = workbook(type).Worksheets(u"DATASHEET"_s);
    std::set<int> kinds;
    for (const DataRow& row : dataRows("templates/lines.csv", type)) {
        const int kind = row[u"ValueCells"_s].toInt();
        for (const QString& shape : shapes[kind - 1]) {
            const QString block = shape.arg(10 + row[u"Line"_s].toInt());
            QCOMPARE(lookOf(*sheet).mergedBlock(block.section(u':', 0, 0)), block);
        }
        kinds.insert(kind);
    }
    QCOMPARE(kinds.size(), std::size_t{3});
}

void TestTemplates::onlyWhatUsersFillIsUnlocked()
{
    constexpr int lastRow = 71;
    constexpr int lastLineRow = 10 + 49; // of the form
    constexpr int lastFreeRow = 66 - 1;
    const auto expected = [](char column, int row) {
        if (column == 'H' && (row == 6 || row == 7))
            return false;
        if (row <= 8)
            return column == 'H' || (column >= 'D' && column <= 'F' && row <= 2)
                   || (column <= 'F' && row >= 6);
        if (row <= 10)
            return (column >= 'D' && column <= 'F') || (column == 'H' && row == 9);
        if (row <= lastLineRow)
            return column >= 'D' && column <= 'F';
        if (row <= lastFreeRow)
            return column >= 'C';
        return column >= 'B' && row < lastRow;
    };
    const auto sheet = workbook(u"CONTROL VALVE"_s).Worksheets(u"DATASHEET"_s);
    for (char column = 'A'; column <= 'H'; ++column) {
        for (int row = 1; row <= lastRow; ++row) {
            const QString cell = QChar::fromLatin1(column) + QString::number(row);
            QVERIFY2(isUnlocked(*sheet, cell) == expected(column, row), qPrintable(cell));
        }
    }
    QVERIFY(!isUnlocked(*sheet, u"I11"_s));
    const auto notes = workbook(u"CONTROL VALVE"_s).Worksheets(u"NOTES"_s);
    for (const QString& cell : {u"H1"_s, u"H3"_s, u"H8"_s, u"A14"_s, u"B14"_s, u"A70"_s, u"H70"_s})
        QVERIFY2(isUnlocked(*notes, cell), qPrintable(cell));
    for (const QString& cell :
         {u"D11"_s, u"D12"_s, u"A11"_s, u"A12"_s, u"A13"_s, u"B13"_s, u"A71"_s, u"A1"_s})
        QVERIFY2(!isUnlocked(*notes, cell), qPrintable(cell));
}

void TestTemplates::theLogoLiesWhereTheTableSays()
{
    for (const QString& type : m_files.keys()) {
        spreadsheet::Workbook& book = workbook(type);
        int sheets = 0;
        for (const DataRow& row : dataRows("template/seed/DtShtWorksheets.csv", type)) {
            const auto sheet = book.Worksheets(row[u"WorkSheet"_s]);
            const auto shapes = sheet->Shapes();
            QCOMPARE(shapes.size(), std::size_t{1});
            QCOMPARE(shapes[0]->Name(), u"LOGO"_s);
            QVERIFY(isNear(shapes[0]->Left(), row[u"DeltaX"_s].toDouble()));
            QVERIFY(isNear(shapes[0]->Top(), row[u"DeltaY"_s].toDouble()));
            QVERIFY(isNear(shapes[0]->Size().width, 200));
            QVERIFY(isNear(shapes[0]->Size().height, 40));
            QCOMPARE(lookOf(*sheet).mergedBlock(row[u"LogoAnchor"_s]), u"A1:C4"_s);
            ++sheets;
        }
        QCOMPARE(sheets, 2);
        QVERIFY(book.Worksheets(mapSheet)->Shapes().empty());
    }
}

void TestTemplates::theHeaderTellsTheFormAndTheSheet()
{
    for (const DataRow& row : dataRows("template/seed/DatasheetTypes.csv")) {
        const QString type = row[u"DatasheetType"_s];
        spreadsheet::Workbook& book = workbook(type);
        QCOMPARE(book.SheetCount(), 3);
        const auto form = book.Worksheets(1);
        const auto notes = book.Worksheets(2);
        QCOMPARE(form->Name(), u"DATASHEET"_s);
        QCOMPARE(notes->Name(), u"NOTES"_s);
        QCOMPARE(book.Worksheets(3)->Name(), mapSheet);
        QCOMPARE(textIn(*form, u"D3"_s), type + u"\nDATASHEET"_s);
        QCOMPARE(textIn(*form, u"H1"_s), u"1 OF 2"_s);
        QCOMPARE(textIn(*notes, u"D3"_s), type + u"\nNOTES"_s);
        QCOMPARE(textIn(*notes, u"H1"_s), u"2 OF 2"_s);
        const QString number = row[u"ReportNum"_s].rightJustified(2, u'0');
        for (const auto& sheet : {form, notes}) {
            QCOMPARE(textIn(*sheet, u"A71"_s), u"Form ID-%1 issue 1"_s.arg(number));
            QCOMPARE(textIn(*sheet, u"G71"_s), row[u"FileName"_s]);
            QVERIFY(!lookOf(*sheet).hasGridLines());
        }
    }
}

void TestTemplates::thePidMapTiesFieldsToCells()
{
    for (const QString& type : m_files.keys()) {
        spreadsheet::Workbook& book = workbook(type);
        const auto map = book.Worksheets(mapSheet);
        int row = 1;
        for (const DataRow& expected : dataRows("templates/pid_map.csv", type)) {
            const QString at = QString::number(++row);
            QCOMPARE(textIn(*map, u'A' + at), expected[u"PidTable"_s]);
            QCOMPARE(textIn(*map, u'B' + at), expected[u"PidField"_s]);
            QCOMPARE(textIn(*map, u'C' + at), expected[u"Worksheet"_s]);
            QCOMPARE(textIn(*map, u'D' + at), expected[u"Column"_s]);
            QCOMPARE(std::get<double>(map->Range(u'E' + at)->Value()),
                     expected[u"Row"_s].toDouble());
            const auto target = book.Worksheets(expected[u"Worksheet"_s]);
            const QString cell = expected[u"Column"_s] + expected[u"Row"_s];
            QVERIFY2(isUnlocked(*target, cell), qPrintable(type + u' ' + cell));
            QVERIFY2(standsFirst(*target, cell), qPrintable(type + u' ' + cell));
        }
        QVERIFY(row > 5);
        QVERIFY(isEmpty(*map, u'A' + QString::number(row + 1)));
    }
}

void TestTemplates::allSheetsAreProtectedWithoutAPassword()
{
    for (const QString& type : m_files.keys()) {
        for (int i = 1; i <= workbook(type).SheetCount(); ++i) {
            const auto sheet = workbook(type).Worksheets(i);
            QVERIFY(lookOf(*sheet).isProtected());
            sheet->Unprotect();
            QVERIFY(!lookOf(*sheet).isProtected());
            sheet->Protect();
        }
    }
}

void TestTemplates::theFormsPrintOnOnePageOfA4()
{
    const spreadsheet::PageSetup page{.margin = 0.35, .printArea = u"A1:H71"_s};
    for (const QString& type : m_files.keys()) {
        for (const int sheet : {1, 2})
            QCOMPARE(lookOf(*workbook(type).Worksheets(sheet)).page(), page);
    }
}

void TestTemplates::everySheetIsOnePageOnPaper()
{
    const QTemporaryDir scratch;
    QStringList words{u"-env:UserInstallation="_s
                          + QUrl::fromLocalFile(scratch.filePath(u"profile"_s)).toString(),
                      u"--headless"_s,
                      u"--convert-to"_s,
                      u"pdf"_s,
                      u"--outdir"_s,
                      scratch.path()};
    const QDir templates(templatesFolder());
    for (const QString& name : templates.entryList({u"*.xlt"_s}))
        words << templates.filePath(name);
    QCOMPARE(QProcess::execute(u"" OSTRAND_LIBREOFFICE "/program/soffice"_s, words), 0);
    const QDir papers(scratch.path());
    const QStringList names = papers.entryList({u"*.pdf"_s});
    QCOMPARE(names.size(), 15);
    for (const QString& name : names) {
        QFile file(papers.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        QCOMPARE(content.count("/Type/Page/"), 3);
        QCOMPARE(content.count("/MediaBox[0 0 595.303937007874 841.889763779528]"), 3);
    }
}

QTEST_GUILESS_MAIN(TestTemplates)
#include "tst_templates.moc"
