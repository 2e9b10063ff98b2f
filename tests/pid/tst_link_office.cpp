// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The sample project and the sample P&ID database with the real spreadsheet application: datasheets
// are made from the templates, imported and exported. Set OSTRAND_NEW_LOGS to write the expected
// logs anew.
#include "app/program.h"
#include "datasheets/cell_text.h"
#include "pid/map_sheet.h"
#include "spreadsheet/host.h"
#include "support/index_fixture.h"
#include "toolkit/ansi_text.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellValue;

namespace {

struct Sheet
{
    const char* tag;
    const char* templateName;
};

/// The last four are not what the map expects: three are no instruments of the P&ID database, one
/// has a name that cannot be looked up.
constexpr Sheet sheets[]{
    {"PT-1001", "DS_PT"},      {"PIC-1001", "DS_CTRL"}, {"PV-1001", "DS_CV"},
    {"LT-1002", "DS_LT_DISP"}, {"LIC-1002", "DS_CTRL"}, {"LSHH-1004", "DS_SW"},
    {"LG-1006B", "DS_GAUGE"},  {"PSV-1007A", "DS_PSV"}, {"PG-1008", "DS_GAUGE"},
    {"TG-1009", "DS_GAUGE"},   {"TE-1010", "DS_TE_TW"}, {"SDV-1011", "DS_XV"},
    {"PSL-1015", "DS_SW"},     {"PDT-2001", "DS_PDT"},  {"TE-2002", "DS_TE_TW"},
    {"FE-2009", "DS_FE_OR"},   {"FT-2009", "DS_FT_CV"}, {"LG-1006A", "DS_GAUGE"},
    {"PY-1001", "DS_CTRL"},    {"LY-1002", "DS_CTRL"},  {"SPARE1", "DS_CTRL"}};

} // namespace

class TestLinkOffice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void theImportIsLoggedAsExpected();
    void everyFilledFieldIsInItsCell();
    void valuesAreOfTheirTypesInTheFile();
    void theProjectHasTheValues();
    void theExportIsLoggedAsExpected();
    void everyFilledCellIsInItsField();
    void protectedSheetsTakeTheirValues();

private:
    QString path(const QString& name) const { return m_program->path(name); }
    QString sheetFile(const QString& tag) const { return path(u"sheets/"_s + tag + u".xls"_s); }
    QString pidFile() const { return path(u"plant.mdb"_s); }
    void makeSheets();
    void compareLog(const QString& name) const;
    QString pidValue(const QString& tag, const QString& field) const;
    /// Asks about each row of each datasheet's map: the tag, the row and its cell's value.
    void forEachCell(
        const std::function<void(const QString&, const pid::MapEntry&, const CellValue&)>& look);

    std::unique_ptr<tests::IndexFixture> m_program;
};

void TestLinkOffice::initTestCase()
{
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR), .headless = true});
    m_program = std::make_unique<tests::IndexFixture>();
    QDir(path(QString())).mkdir(u"sheets"_s);
    QDir(path(QString())).mkdir(u"bin"_s);
    app::setInstallationFolder(path(u"bin"_s));
    QVERIFY(QFile::copy(QStringLiteral(OSTRAND_BIN_DIR "/Samples/HGC_PID.mdb"), pidFile()));
    QFile::setPermissions(pidFile(), QFile::ReadOwner | QFile::WriteOwner);
    const QString project = m_program->sampleProject();
    QString kept;
    for (const Sheet& sheet : sheets)
        kept += u", '"_s + QString::fromLatin1(sheet.tag) + u'\'';
    const auto run = [&](const QString& sql) { tests::ProgramFixture::execute(project, sql); };
    run(u"delete from [index] where PlantItemNo not in ('TT-1010', 'TI-1010'"_s + kept + u')');
    run(u"insert into [index] (PlantItemNo) values ('SPARE1')"_s);
    run(u"update qryIndex set DatasheetPath = 'sheets', DatasheetFileName = 'x.xls' "
        u"where Tag <> 'TI-1010'"_s);
    const auto attribute = [&](const QString& name, const QString& value) {
        run(u"update qryProjectInfo set attributeValue = '"_s + value
            + u"' where attributeName = '"_s + name + u'\'');
    };
    attribute(u"DefaultDatasheetFolder"_s, path(u"sheets"_s));
    attribute(u"DefaultTemplateFolder"_s, QStringLiteral(OSTRAND_BIN_DIR "/Templates"));
    attribute(u"DefaultP&IDDatabase"_s, pidFile());
    tests::ProgramFixture::execute(
        pidFile(),
        u"update [Components-Instruments] set SERVICE_ = '=1+1', RATING_ = '0042', "
        u"LOCATION_ = 'Rücklauf ''Süd''' where FUNCTION_ = 'PT' and TAG_ = '1001'"_s);
    m_program->open(project);
    makeSheets();
    QCOMPARE(m_program->texts(), QStringList());
}

void TestLinkOffice::makeSheets()
{
    for (const Sheet& sheet : sheets) {
        QVERIFY(
            datasheets::xlHndlr().CopySprSht(QString::fromLatin1(sheet.templateName) + u".xlt"_s,
                                             sheetFile(QString::fromLatin1(sheet.tag))));
    }
    // Slips that a user may make in a map.
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(sheetFile(u"PG-1008"_s));
    const auto map = book->Worksheets(pid::mapSheetName);
    map->Unprotect();
    map->write({{u"C2"_s, u"FRONT"_s}, {u"B3"_s, u"NOTHING_"_s}, {u"D4"_s, u"IW"_s}});
    map->Protect();
    book->Save();
    book->Close(spreadsheet::SaveChanges::No);
}

void TestLinkOffice::cleanupTestCase()
{
    m_program.reset();
    spreadsheet::endHost();
}

void TestLinkOffice::compareLog(const QString& name) const
{
    QFile log(path(u"bin/"_s + name));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QString text = toolkit::decodeText(log.readAll()).replace(u"\r\n"_s, u"\n"_s);
    text.replace(path(u"sheets"_s), u"<folder>"_s);
    text.replace(QRegularExpression(u"(Log is (?:created|ended) at ).*\\."_s), u"\\1<stamp>."_s);
    QFile expected(QStringLiteral(OSTRAND_EXPECTED_DIR "/") + name);
    if (qEnvironmentVariableIsSet("OSTRAND_NEW_LOGS")) {
        QVERIFY(expected.open(QIODevice::WriteOnly));
        expected.write(text.toUtf8());
        return;
    }
    QVERIFY(expected.open(QIODevice::ReadOnly));
    QCOMPARE(text.split(u'\n'), QString::fromUtf8(expected.readAll()).split(u'\n'));
}

QString TestLinkOffice::pidValue(const QString& tag, const QString& field) const
{
    return tests::ProgramFixture::value(
        pidFile(),
        u"select "_s + field + u" from [Components-Instruments] where FUNCTION_ = '"_s
            + tag.section(u'-', 0, 0) + u"' and TAG_ = '"_s + tag.section(u'-', 1) + u'\'');
}

void TestLinkOffice::forEachCell(
    const std::function<void(const QString&, const pid::MapEntry&, const CellValue&)>& look)
{
    const auto application = spreadsheet::CreateObject();
    for (const Sheet& sheet : sheets) {
        const QString tag = QString::fromLatin1(sheet.tag);
        if (tag == u"PG-1008"_s) // its map has slips
            continue;
        const auto book = application->Open(sheetFile(tag));
        const auto front = book->Worksheets(1);
        for (const pid::MapEntry& row : pid::readMapRows(*book->Worksheets(pid::mapSheetName))) {
            QCOMPARE(row.worksheet, front->Name());
            look(tag, row, front->Range(row.cell())->Value());
        }
        book->Close(spreadsheet::SaveChanges::No);
    }
}

void TestLinkOffice::theImportIsLoggedAsExpected()
{
    m_program->press(u"cmdImport"_s);
    QCOMPARE(m_program->texts(), QStringList{u"17 Datasheets updated successfully"_s});
    compareLog(u"Import.log"_s);
}

void TestLinkOffice::everyFilledFieldIsInItsCell()
{
    int compared = 0;
    forEachCell([&](const QString& tag, const pid::MapEntry& row, const CellValue& value) {
        const QString expected = pidValue(tag, row.field);
        if (expected == u"(none)"_s || expected == u"(null)"_s || expected.isEmpty())
            return;
        QCOMPARE(datasheets::textOf(value), expected);
        ++compared;
    });
    QVERIFY2(compared > 100, qPrintable(QString::number(compared)));
}

void TestLinkOffice::valuesAreOfTheirTypesInTheFile()
{
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(sheetFile(u"PT-1001"_s));
    const auto front = book->Worksheets(1);
    QVERIFY(front->Range(u"D12"_s)->Value() == CellValue(u"=1+1"_s));
    QVERIFY(front->Range(u"D15"_s)->Value() == CellValue(u"Rücklauf 'Süd'"_s));
    QVERIFY(front->Range(u"D27"_s)->Value() == CellValue(u"0042"_s));
    book->Close(spreadsheet::SaveChanges::No);
}

void TestLinkOffice::theProjectHasTheValues()
{
    QCOMPARE(m_program->stored(u"PT-1001"_s, u"ServiceDescription"_s), u"=1+1"_s);
    QCOMPARE(m_program->stored(u"PT-1001"_s, u"Location"_s), u"Rücklauf 'Süd'"_s);
    QCOMPARE(m_program->stored(u"SDV-1011"_s, u"ServiceDescription"_s),
             pidValue(u"SDV-1011"_s, u"SERVICE_"_s));
}

void TestLinkOffice::theExportIsLoggedAsExpected()
{
    tests::ProgramFixture::execute(
        m_program->project,
        u"update [index] set ServiceDescription = 'Exported ''now''', ModelNumber = '1E5' where "
        u"PlantItemNo = 'PT-1001'"_s);
    m_program->press(u"cmdExport"_s);
    QCOMPARE(m_program->texts(), QStringList{u"Database modified"_s});
    compareLog(u"Export.log"_s);
    QCOMPARE(pidValue(u"PT-1001"_s, u"SERVICE_"_s), u"Exported 'now'"_s);
    QCOMPARE(pidValue(u"PT-1001"_s, u"MODEL_"_s), u"1E5"_s);
}

void TestLinkOffice::everyFilledCellIsInItsField()
{
    int compared = 0;
    forEachCell([&](const QString& tag, const pid::MapEntry& row, const CellValue& value) {
        const QString text = datasheets::textOf(value);
        const QString stored = pidValue(tag, row.field);
        if (text.isEmpty() || stored == u"(none)"_s)
            return;
        QCOMPARE(stored, text);
        ++compared;
    });
    QVERIFY2(compared > 100, qPrintable(QString::number(compared)));
}

/// Without a password; the cells that the map names are open to be written.
void TestLinkOffice::protectedSheetsTakeTheirValues()
{
    const QString file = sheetFile(u"TG-1009"_s);
    {
        const auto application = spreadsheet::CreateObject();
        const auto book = application->Open(file);
        book->Worksheets(1)->Protect();
        book->Save();
        book->Close(spreadsheet::SaveChanges::No);
    }
    tests::ProgramFixture::execute(
        pidFile(),
        u"update [Components-Instruments] set SERVICE_ = 'Behind a lock' "
        u"where FUNCTION_ = 'TG' and TAG_ = '1009'"_s);
    m_program->press(u"cmdImport"_s);
    m_program->texts();
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(file);
    QVERIFY(book->Worksheets(1)->Range(u"D12"_s)->Value() == CellValue(u"Behind a lock"_s));
    book->Close(spreadsheet::SaveChanges::No);
}

QTEST_MAIN(TestLinkOffice)
#include "tst_link_office.moc"
