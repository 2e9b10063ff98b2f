// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"
#include "maker/csv.h"
#include "maker/project_file.h"
#include "maker/range.h"
#include "maker/sample.h"

#include <QTemporaryDir>
#include <QTest>

#include <fstream>

using namespace Qt::StringLiterals;
using namespace ostrand::maker;
using ostrand::tests::dataFolder;
using ostrand::tests::ScratchProject;

namespace fs = std::filesystem;

namespace {

fs::path pathOf(const QTemporaryDir& folder)
{
    return folder.path().toStdString();
}

} // namespace

class tst_sample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itHasItsTagsDocumentsAndTies();
    void everyTieHasItsTag();
    void theTitleTellsSheetRevisionAndDate();
    void documentsAreOfTheFiveKinds();
    void attributesNameThePlantAndItsLogo();
    void fourRevisionsAreDated();
    void severalTagsHaveLongRemarks();
    void rangesAreThereInPartsToo();
    void aRangeIsSplit_data();
    void aRangeIsSplit();
    void foldersAndThePidDatabaseCanBeGiven();
    void equalInputGivesEqualBytes();
    void aFaultyInputLeavesTheOldFileAlone();
};

void tst_sample::itHasItsTagsDocumentsAndTies()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.row("SELECT count(*) FROM \"index\""), u"418"_s);
    QCOMPARE(project.row("SELECT count(*) FROM document WHERE docType <> 'NA'"), u"586"_s);
    QCOMPARE(project.rows("SELECT docNo FROM document WHERE docType = 'NA'"),
             QStringList{u"**DELETED**"_s});
    QCOMPARE(project.row("SELECT count(*) FROM itemDocXRef"), u"1707"_s);
    QCOMPARE(project.row("SELECT count(*) FROM qryDocXref"), u"1707"_s);
    QCOMPARE(project.row("PRAGMA integrity_check"), u"ok"_s);
    QCOMPARE(project.rows("PRAGMA foreign_key_check"), QStringList());
    QCOMPARE(project.row("SELECT InstrumentType, LoopNumber, ProcessRangeValue FROM \"index\" "
                         "WHERE PlantItemNo = 'PT-1001'"),
             u"Pressure transmitter|P-1001|0 to 100 bar(g)"_s);
}

void tst_sample::everyTieHasItsTag()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.rows("SELECT PlantItemNo FROM itemDocXRef WHERE PlantItemNo NOT IN "
                          "(SELECT PlantItemNo FROM \"index\")"),
             QStringList());
    QCOMPARE(project.rows("SELECT Tag FROM qryDocXref WHERE docType <> context"), QStringList());
}

void tst_sample::theTitleTellsSheetRevisionAndDate()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.row("SELECT Title FROM document WHERE docNo = 'HGC-10-PID-001'"),
             u"P&ID Inlet separation, sheet 1, rev. 1, 2025-08-11"_s);
}

void tst_sample::documentsAreOfTheFiveKinds()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.rows("SELECT context, count(*) FROM itemDocXRef GROUP BY 1 ORDER BY 1"),
             (QStringList{u"DATASHEET|408"_s,
                          u"LOOP DWG|335"_s,
                          u"PID|360"_s,
                          u"PURCHASE ORDER|266"_s,
                          u"REQUISITION|338"_s}));
}

void tst_sample::attributesNameThePlantAndItsLogo()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.row("SELECT * FROM qryrptindexheader"),
             u"Heronsfield Gas Conditioning Plant|Units 05-80|Heronsfield, East Moor|HGC-2417|"
             "Wexcombe Energy Ltd"_s);
    QCOMPARE(project.rows("SELECT attributeValue FROM ProjectInfo WHERE static ORDER BY rowid"),
             (QStringList{u"Datasheets"_s, u"Templates"_s, u"HGC_PID.mdb"_s, u"Wexcombe.jpg"_s}));
    QVERIFY(fs::exists(fs::path(OSTRAND_BIN_DIR) / "Samples" / "Wexcombe.jpg"));
}

void tst_sample::fourRevisionsAreDated()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.rows("SELECT RevNo FROM qryIndexRev ORDER BY Date"),
             (QStringList{u"A"_s, u"B"_s, u"0"_s, u"1"_s}));
}

void tst_sample::severalTagsHaveLongRemarks()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QVERIFY(project.rows("SELECT 1 FROM \"index\" WHERE length(Remarks) > 255").size() >= 4);
    QVERIFY(project.row("SELECT Remarks FROM \"index\" WHERE PlantItemNo = 'PT-1001'")
                .contains(u"\n\n"_s));
    QCOMPARE(project.row("SELECT Remarks FROM \"index\" WHERE PlantItemNo = 'LV-1002'"),
             u"Fail close"_s);
}

void tst_sample::rangesAreThereInPartsToo()
{
    ScratchProject project("Samples/Heronsfield.mdb");
    QCOMPARE(project.row("SELECT MinProcessValue, MaxProcessValue, ProcessUnitsOfMeasure, "
                         "MinCalibrationValue, MaxCalibrationValue, CalibUnitsOfMeasure "
                         "FROM \"index\" WHERE PlantItemNo = 'PT-1001'"),
             u"0|100|bar(g)|0|100|bar(g)"_s);
    QCOMPARE(project.rows("SELECT PlantItemNo FROM \"index\" WHERE "
                          "(ProcessRangeValue IS NULL) <> (MaxProcessValue IS NULL) OR "
                          "(CalibrationRangeValue IS NULL) <> (MaxCalibrationValue IS NULL)"),
             QStringList());
}

void tst_sample::aRangeIsSplit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("parts");
    QTest::newRow("usual") << QByteArray("0.2 to 1.0 bar") << QByteArray("0.2|1.0|bar");
    QTest::newRow("below zero") << QByteArray("-40 to 60 deg C") << QByteArray("-40|60|deg C");
    QTest::newRow("no unit") << QByteArray("0 to 100") << QByteArray("||");
    QTest::newRow("no range") << QByteArray("95 % rising") << QByteArray("||");
    QTest::newRow("empty") << QByteArray() << QByteArray("||");
}

void tst_sample::aRangeIsSplit()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, parts);
    const Range range = splitRange(text.toStdString());
    QCOMPARE(QByteArray::fromStdString(range.low + '|' + range.high + '|' + range.unit), parts);
}

void tst_sample::foldersAndThePidDatabaseCanBeGiven()
{
    const QTemporaryDir folder;
    const fs::path file = pathOf(folder) / "new folder" / "s.mdb";
    makeSample(file, dataFolder(), {"/home/Datasheets", "/home/Templates", "/home/PID.mdb"});
    ScratchProject project(file);
    QCOMPARE(project.rows("SELECT attributeValue FROM ProjectInfo WHERE attributeName IN "
                          "('DefaultDatasheetFolder', 'DefaultTemplateFolder', "
                          "'DefaultP&IDDatabase') ORDER BY rowid"),
             (QStringList{u"/home/Datasheets"_s, u"/home/Templates"_s, u"/home/PID.mdb"_s}));
}

void tst_sample::equalInputGivesEqualBytes()
{
    const QTemporaryDir folder;
    makeSample(pathOf(folder) / "s.mdb", dataFolder());
    QVERIFY(readFile(pathOf(folder) / "s.mdb")
            == readFile(fs::path(OSTRAND_BIN_DIR) / "Samples" / "Heronsfield.mdb"));
}

void tst_sample::aFaultyInputLeavesTheOldFileAlone()
{
    const QTemporaryDir folder;
    const fs::path data = pathOf(folder) / "data";
    const fs::path file = pathOf(folder) / "old.mdb";
    fs::copy(dataFolder(), data, fs::copy_options::recursive);
    std::ofstream(file) << "old";
    // A tie to a tag is not checked, a document of an unknown kind is.
    std::ofstream(data / "template" / "seed" / "document.csv") << "docNo,docType\nX,SKETCH\n";
    QVERIFY_EXCEPTION_THROWN(makeProject(file, data), std::runtime_error);
    std::ofstream(data / "template" / "seed" / "document.csv") << "docNo,Name\nX,Y\n";
    QVERIFY_EXCEPTION_THROWN(makeProject(file, data), InputError);
    QVERIFY(readFile(file) == "old");
    QCOMPARE(std::distance(fs::directory_iterator(pathOf(folder)), fs::directory_iterator()), 2);
}

QTEST_GUILESS_MAIN(tst_sample)
#include "tst_sample.moc"
