// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"

#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::tests::ScratchProject;

namespace {

/// An insert that gives a column a text, and all other columns that need a value a short one.
QByteArray insertWith(ScratchProject& project,
                      const QByteArray& table,
                      const QByteArray& column,
                      const QByteArray& text)
{
    QByteArray columns = '"' + column + '"';
    QByteArray values = '\'' + text + '\'';
    const QStringList required =
        project.rows("SELECT name FROM pragma_table_info('" + table
                     + "') WHERE \"notnull\" AND dflt_value IS NULL AND name <> '" + column + "'");
    for (const QString& name : required) {
        columns += ",\"" + name.toUtf8() + '"';
        values += name == u"ReportNum"_s ? ",99" : ",'x'";
    }
    return "INSERT INTO \"" + table + "\" (" + columns + ") VALUES (" + values + ")";
}

} // namespace

class tst_template : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsMarkedAsAProjectFile();
    void tablesHaveTheirFieldsInOrder_data();
    void tablesHaveTheirFieldsInOrder();
    void theCatalogueNamesEveryColumnOfEveryTable();
    void everyTextColumnComparesLikeTheEngine();
    void textLongerThanDeclaredIsRefused();
    void keysRefuseNullAndEmptyText_data();
    void keysRefuseNullAndEmptyText();
    void aTagOfBlanksIsStoredAsTyped();
    void booleansAreZeroOrMinusOne();
    void datesAreDaysOfTheCalendar();
    void numbersAreRefusedInTextAndTextInNumbers();
    void tagsAreUniqueWithoutCase();
    void theSecondIndexIsThere();
    void seedRowsAreThere_data();
    void seedRowsAreThere();
    void attributesOfTheProgramAreStaticAndEmpty();
    void everyMapRowAndEveryLogoRowBelongsToADatasheetType();
    void aCaptionStandsForEveryColumnOfTheWindows();
};

void tst_template::itIsMarkedAsAProjectFile()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.row("PRAGMA application_id"), QString::number(0x4F535452));
    QCOMPARE(project.row("PRAGMA user_version"), u"1"_s);
    QCOMPARE(project.row("PRAGMA page_size"), u"4096"_s);
    QCOMPARE(project.row("PRAGMA journal_mode"), u"delete"_s);
    QCOMPARE(project.row("PRAGMA freelist_count"), u"0"_s);
    QCOMPARE(project.row("PRAGMA integrity_check"), u"ok"_s);
}

void tst_template::tablesHaveTheirFieldsInOrder_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("fields");
    QTest::newRow("index")
        << QByteArray("index")
        << u"PlantItemNo Text 255, CompanyTrackingNumber Text 255, OperatingUnitNumber Text 255, "
           "ProcessUnitArea Text 255, MeasureVariable Text 255, TypeModifier Text 255, "
           "SequenceNo Text 255, LoopSuffix Text 255, InstrumentSuffix Text 255, "
           "ServiceDescription Text 255, LoopNumber Text 255, LoopTypicalNum Text 255, "
           "InstrumentType Text 255, EquipOrLineNo Text 255, Location Text 255, "
           "ProcessSystemNo Text 255, ConstructionArea Text 255, ScopeArea Text 255, "
           "ElectricalArea Text 255, ElectricalAreaClassification Text 255, "
           "PlantItemClassification Text 255, FireArea Text 255, WorkArea Text 255, "
           "IOType Text 255, Manufacturer Text 255, ModelNumber Text 255, "
           "ManufacturerSerialNumber Text 255, Supplier Text 255, SupplierModelNumber Text 255, "
           "BodyMaterial Text 50, JunctionBoxNumber Text 255, MarshallingRack Text 255, "
           "MaintenanceRecord Text 255, SignalType Text 255, ProcessSetPointValue Text 50, "
           "ProcessRangeValue Text 255, CalibrationSetPointValue Text 50, "
           "CalibrationRangeValue Text 255, ScaleSetPointValue Text 50, ScaleRangeValue Text 50, "
           "H_H_H_SETTING Text 255, H_H_SETTING Text 255, H_SETTING Text 255, "
           "L_SETTING Text 255, L_L_SETTING Text 255, L_L_L_SETTING Text 255, TagType Text 255, "
           "FormatType Text 255, Remarks Memo, TagPath Text 255, TagFileName Text 50, "
           "CalibUnitsOfMeasure Text 50, MaxCalibrationValue Text 50, "
           "MinCalibrationValue Text 50, ProcessUnitsOfMeasure Text 50, MaxProcessValue Text 50, "
           "MinProcessValue Text 50"_s;
    QTest::newRow("document") << QByteArray("document")
                              << u"docNo Text 50, docType Text 50, Title Text 255, Path Text 255, "
                                 "Filename Text 50"_s;
    QTest::newRow("plDocType") << QByteArray("plDocType") << u"docType Text 50"_s;
    QTest::newRow("itemDocXRef") << QByteArray("itemDocXRef")
                                 << u"PlantItemNo Text 255, docNo Text 50, context Text 50"_s;
    QTest::newRow("ProjectInfo") << QByteArray(
        "ProjectInfo") << u"attributeName Text 255, attributeValue Text 255, static Boolean"_s;
    QTest::newRow("IndexRevisions")
        << QByteArray("IndexRevisions")
        << u"RevNo Text 50, Date Date, Description Text 255, createdBy Text 50, "
           "checkedBy Text 50, approvedBy Text 50"_s;
    QTest::newRow("Map") << QByteArray("Map")
                         << u"DatasheetType Text 50, Worksheet Text 50, object Text 50, "
                            "Field Text 255, TableName Text 50"_s;
    QTest::newRow("DtShtWorksheets")
        << QByteArray("DtShtWorksheets")
        << u"DatasheetType Text 50, WorkSheet Text 50, LogoAnchor Text 50, DeltaX Double, "
           "DeltaY Double, DefaultCell Text 50, DefaultSheet Boolean"_s;
    QTest::newRow("DatasheetTypes")
        << QByteArray("DatasheetTypes")
        << u"ReportNum Long, DatasheetType Text 50, FileName Text 255"_s;
    QTest::newRow("FormColumnNames")
        << QByteArray("FormColumnNames")
        << u"FormName Text 50, columnName Text 50, DisplayName Text 255"_s;
}

void tst_template::tablesHaveTheirFieldsInOrder()
{
    QFETCH(QByteArray, table);
    QFETCH(QString, fields);
    ScratchProject project("index.mdb");
    const QStringList found =
        project.rows("SELECT name || ' ' || catalogue.type || coalesce(' ' || length, '') "
                     "FROM pragma_table_info('"
                     + table
                     + "') AS info LEFT JOIN \"~columns\" AS catalogue "
                       "ON tableName = '"
                     + table + "' AND columnName = info.name ORDER BY cid");
    QCOMPARE(found.join(u", "_s), fields);
}

void tst_template::theCatalogueNamesEveryColumnOfEveryTable()
{
    ScratchProject project("index.mdb");
    const QStringList inFile = project.rows(
        "SELECT list.name, info.name FROM pragma_table_list AS list, pragma_table_info(list.name) "
        "AS info WHERE list.type = 'table' AND substr(list.name, 1, 7) <> 'sqlite_' AND list.name "
        "<> "
        "'~columns' ORDER BY 1, 2");
    const QStringList inCatalogue =
        project.rows("SELECT tableName, columnName FROM \"~columns\" "
                     "ORDER BY tableName COLLATE BINARY, columnName COLLATE BINARY");
    QVERIFY(inFile.size() > 90);
    QCOMPARE(inCatalogue, inFile);
    QCOMPARE(project.rows("SELECT name FROM pragma_table_list WHERE type = 'table' AND NOT strict "
                          "AND substr(name, 1, 7) <> 'sqlite_'"),
             QStringList());
}

void tst_template::everyTextColumnComparesLikeTheEngine()
{
    ScratchProject project("index.mdb");
    const QStringList columns = project.rows(
        "SELECT tableName, columnName FROM \"~columns\" WHERE type IN ('Text', 'Memo')");
    QVERIFY(columns.size() > 80);
    for (const QString& column : columns) {
        const char* collation = nullptr;
        QCOMPARE(sqlite3_table_column_metadata(project.handle(),
                                               nullptr,
                                               column.section(u'|', 0, 0).toUtf8().constData(),
                                               column.section(u'|', 1).toUtf8().constData(),
                                               nullptr,
                                               &collation,
                                               nullptr,
                                               nullptr,
                                               nullptr),
                 SQLITE_OK);
        QVERIFY2(QByteArray(collation) == "JET", qPrintable(column));
    }
}

void tst_template::textLongerThanDeclaredIsRefused()
{
    ScratchProject project("index.mdb");
    project.run("PRAGMA foreign_keys = OFF");
    const QStringList columns =
        project.rows("SELECT tableName, columnName, length FROM \"~columns\" WHERE type = 'Text'");
    QVERIFY(columns.size() > 80);
    for (const QString& column : columns) {
        const QStringList parts = column.split(u'|');
        const QByteArray table = parts.at(0).toUtf8();
        const QByteArray name = parts.at(1).toUtf8();
        // Two bytes a letter: characters count, not bytes.
        const QByteArray fitting = QByteArray("\xC3\xA9").repeated(parts.at(2).toInt());
        project.run("BEGIN");
        QVERIFY2(project.run(insertWith(project, table, name, fitting)) == SQLITE_OK,
                 qPrintable(column + u": "_s + project.lastMessage()));
        project.run("ROLLBACK");
        QVERIFY2(project.run(insertWith(project, table, name, fitting + 'e'))
                     == SQLITE_CONSTRAINT_CHECK,
                 qPrintable(column));
    }
}

void tst_template::keysRefuseNullAndEmptyText_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("key");
    for (const auto& [table, key] : {std::pair{"index", "PlantItemNo"},
                                     {"document", "docNo"},
                                     {"plDocType", "docType"},
                                     {"ProjectInfo", "attributeName"},
                                     {"IndexRevisions", "RevNo"}})
        QTest::newRow(table) << QByteArray(table) << QByteArray(key);
}

void tst_template::keysRefuseNullAndEmptyText()
{
    QFETCH(QByteArray, table);
    QFETCH(QByteArray, key);
    ScratchProject project("index.mdb");
    const QByteArray insert = "INSERT INTO \"" + table + "\" (" + key + ") VALUES ";
    QCOMPARE(project.run(insert + "(NULL)"), SQLITE_CONSTRAINT_NOTNULL);
    QCOMPARE(project.run(insert + "('')"), SQLITE_CONSTRAINT_CHECK);
    QCOMPARE(project.run(insert + "('x')"), SQLITE_OK);
    QCOMPARE(project.run(insert + "('X')"), SQLITE_CONSTRAINT_PRIMARYKEY);
}

void tst_template::aTagOfBlanksIsStoredAsTyped()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.run("INSERT INTO \"index\" (PlantItemNo) VALUES ('   ')"), SQLITE_OK);
    QCOMPARE(project.row("SELECT length(PlantItemNo) FROM \"index\""), u"3"_s);
}

void tst_template::booleansAreZeroOrMinusOne()
{
    ScratchProject project("index.mdb");
    const QByteArray insert = "INSERT INTO ProjectInfo (attributeName, static) VALUES ";
    QCOMPARE(project.run(insert + "('a', -1), ('b', 0)"), SQLITE_OK);
    QCOMPARE(project.run(insert + "('c', 1)"), SQLITE_CONSTRAINT_CHECK);
    QCOMPARE(project.run("INSERT INTO ProjectInfo (attributeName) VALUES ('d')"), SQLITE_OK);
    QCOMPARE(project.row("SELECT static FROM ProjectInfo WHERE attributeName = 'd'"), u"0"_s);
}

void tst_template::datesAreDaysOfTheCalendar()
{
    ScratchProject project("index.mdb");
    const QByteArray insert = "INSERT INTO IndexRevisions (RevNo, Date) VALUES ";
    QCOMPARE(project.run(insert + "('1', '2024-02-29'), ('2', '2025-01-31 08:30:00'), ('3', NULL)"),
             SQLITE_OK);
    for (const char* date : {"2025-02-29", "2025-1-3", "10:15:00", "31.01.2025", "soon", ""}) {
        QVERIFY2(project.run(insert + "('4', '" + date + "')") == SQLITE_CONSTRAINT_CHECK, date);
    }
}

void tst_template::numbersAreRefusedInTextAndTextInNumbers()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.run("INSERT INTO DatasheetTypes (ReportNum, DatasheetType) VALUES ('a', 'T')"),
             SQLITE_CONSTRAINT_DATATYPE);
    QCOMPARE(project.run("INSERT INTO DtShtWorksheets (DeltaX) VALUES ('wide')"),
             SQLITE_CONSTRAINT_DATATYPE);
    QCOMPARE(project.run("INSERT INTO \"index\" (PlantItemNo) VALUES (x'41')"),
             SQLITE_CONSTRAINT_DATATYPE);
}

void tst_template::tagsAreUniqueWithoutCase()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.run("INSERT INTO \"index\" (PlantItemNo) VALUES ('FT-1001')"), SQLITE_OK);
    QCOMPARE(project.run("INSERT INTO \"index\" (PlantItemNo) VALUES ('ft-1001')"),
             SQLITE_CONSTRAINT_PRIMARYKEY);
    QCOMPARE(project.row("SELECT count(*) FROM \"index\" WHERE PlantItemNo = 'fT-1001'"), u"1"_s);
}

void tst_template::theSecondIndexIsThere()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.row("SELECT name FROM pragma_index_info('LoopTypicalNum')"),
             u"LoopTypicalNum"_s);
}

void tst_template::seedRowsAreThere_data()
{
    QTest::addColumn<QByteArray>("select");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("kinds") << QByteArray("SELECT docType FROM plDocType ORDER BY rowid")
                           << QStringList{u"DATASHEET"_s,
                                          u"PID"_s,
                                          u"LOOP DWG"_s,
                                          u"REQUISITION"_s,
                                          u"PURCHASE ORDER"_s,
                                          u"NA"_s};
    QTest::newRow("documents") << QByteArray("SELECT docNo, docType, Title FROM document")
                               << QStringList{u"**DELETED**|NA|NULL"_s};
    QTest::newRow("datasheet types")
        << QByteArray("SELECT count(*), min(ReportNum), max(ReportNum) FROM DatasheetTypes")
        << QStringList{u"15|1|15"_s};
    QTest::newRow("first datasheet type")
        << QByteArray("SELECT * FROM DatasheetTypes WHERE ReportNum = 1")
        << QStringList{u"1|PRESSURE TRANSMITTER|DS_PT.xlt"_s};
    QTest::newRow("map") << QByteArray("SELECT count(*) FROM Map") << QStringList{u"474"_s};
    QTest::newRow("values mapped twice")
        << QByteArray("SELECT DatasheetType, TableName, Field FROM Map "
                      "GROUP BY lower(DatasheetType), lower(TableName), lower(Field) "
                      "HAVING count(*) > 1")
        << QStringList{};
    QTest::newRow("a cell of the map")
        << QByteArray("SELECT Field, TableName FROM Map WHERE DatasheetType = 'PRESSURE "
                      "TRANSMITTER' AND Worksheet = 'DATASHEET' AND object = 'H5'")
        << QStringList{u"contract|IndexTitleInfo"_s};
    QTest::newRow("logo sheets") << QByteArray("SELECT count(*), sum(DefaultSheet) "
                                               "FROM DtShtWorksheets")
                                 << QStringList{u"30|-15"_s};
    QTest::newRow("a logo sheet") << QByteArray(
        "SELECT * FROM DtShtWorksheets WHERE DatasheetType = 'GAUGE' "
        "AND WorkSheet = 'NOTES'") << QStringList{u"GAUGE|NOTES|A1|2.0|2.0|B14|0"_s};
    QTest::newRow("no tags, ties or revisions")
        << QByteArray("SELECT (SELECT count(*) FROM \"index\"), "
                      "(SELECT count(*) FROM itemDocXRef), "
                      "(SELECT count(*) FROM IndexRevisions)")
        << QStringList{u"0|0|0"_s};
}

void tst_template::seedRowsAreThere()
{
    QFETCH(QByteArray, select);
    QFETCH(QStringList, rows);
    ScratchProject project("index.mdb");
    QCOMPARE(project.rows(select), rows);
}

void tst_template::attributesOfTheProgramAreStaticAndEmpty()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.rows("SELECT attributeName, static, attributeValue FROM ProjectInfo "
                          "ORDER BY rowid"),
             (QStringList{u"plant|0|NULL"_s,
                          u"operating unit|0|NULL"_s,
                          u"location|0|NULL"_s,
                          u"contract|0|NULL"_s,
                          u"company|0|NULL"_s,
                          u"DefaultDatasheetFolder|-1|NULL"_s,
                          u"DefaultTemplateFolder|-1|NULL"_s,
                          u"DefaultP&IDDatabase|-1|NULL"_s,
                          u"Logo file|-1|NULL"_s}));
    QCOMPARE(project.row("SELECT count(*) FROM ProjectInfo WHERE attributeName = 'logo file'"),
             u"1"_s);
}

void tst_template::everyMapRowAndEveryLogoRowBelongsToADatasheetType()
{
    ScratchProject project("index.mdb");
    for (const char* table : {"Map", "DtShtWorksheets"}) {
        QCOMPARE(project.rows(QByteArray("SELECT DISTINCT DatasheetType FROM ") + table
                              + " WHERE DatasheetType NOT IN "
                                "(SELECT DatasheetType FROM DatasheetTypes)"),
                 QStringList());
    }
    // What a cell shows must be there to be shown.
    QCOMPARE(project.rows("SELECT DISTINCT Field FROM Map WHERE TableName = 'index' AND Field NOT "
                          "IN (SELECT name FROM pragma_table_info('qryIndex'))"),
             QStringList());
    QCOMPARE(project.rows("SELECT DISTINCT Field FROM Map WHERE TableName = 'IndexTitleInfo' AND "
                          "Field NOT IN (SELECT attributeName FROM ProjectInfo)"),
             QStringList());
    QCOMPARE(project.rows("SELECT DISTINCT Field FROM Map WHERE TableName = 'document' AND Field "
                          "NOT IN (SELECT docType FROM plDocType)"),
             QStringList());
}

void tst_template::aCaptionStandsForEveryColumnOfTheWindows()
{
    ScratchProject project("index.mdb");
    QCOMPARE(project.rows("SELECT FormName, count(*) FROM FormColumnNames GROUP BY 1 ORDER BY 1"),
             (QStringList{u"frmDoc|5"_s,
                          u"frmDocXref|7"_s,
                          u"frmDSType|3"_s,
                          u"frmIndex|34"_s,
                          u"frmIndexRev|6"_s,
                          u"frmProjectInfo|2"_s}));
    QCOMPARE(project.rows("SELECT DisplayName FROM FormColumnNames WHERE FormName = 'frmIndex' "
                          "AND columnName IN ('Tag', 'InstrumentType', 'H_H_H_SETTING') "
                          "ORDER BY rowid"),
             (QStringList{u"Tag"_s, u"Instrument Type"_s, u"HHH Setting"_s}));
    // Bound columns carry the names of their query's columns; five of the index are not bound.
    QCOMPARE(project.rows("SELECT columnName FROM FormColumnNames WHERE FormName = 'frmIndex' AND "
                          "columnName NOT IN (SELECT name FROM pragma_table_info('qryIndex')) "
                          "ORDER BY rowid"),
             (QStringList{
                 u"PID"_s, u"Loop Dwg"_s, u"Requisition"_s, u"Purchase Order"_s, u"Datasheet"_s}));
    QCOMPARE(project.run("INSERT INTO FormColumnNames VALUES ('FRMINDEX', 'tag', 'Other')"),
             SQLITE_CONSTRAINT_UNIQUE);
}

QTEST_GUILESS_MAIN(tst_template)
#include "tst_template.moc"
