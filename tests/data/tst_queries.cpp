// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"

#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::tests::ScratchProject;

namespace {

/// A template with the documents D1 and D2 and the tag FT-1, tied to D1.
class Project : public ScratchProject
{
public:
    Project()
        : ScratchProject("index.mdb")
    {
        run("INSERT INTO document (docNo, docType, Title) VALUES "
            "('D1', 'PID', 'First'), ('D2', 'LOOP DWG', 'Second');"
            "INSERT INTO \"index\" (PlantItemNo, Location) VALUES ('FT-1', 'FIELD');"
            "INSERT INTO itemDocXRef VALUES ('FT-1', 'D1', 'PID')");
    }

    QStringList documents()
    {
        return rows("SELECT docNo, docType, Title, Path, Filename FROM document "
                    "WHERE docType <> 'NA' ORDER BY docNo");
    }
    QStringList ties()
    {
        return rows("SELECT PlantItemNo, docNo, context FROM itemDocXRef ORDER BY docNo, context");
    }
};

} // namespace

class tst_queries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void queriesYieldTheirColumns_data();
    void queriesYieldTheirColumns();
    void theIndexQueryYieldsEveryFieldUnderItsName();
    void comparisonsThroughQueriesIgnoreCase();
    void aTagIsFoundByItsKeyThroughTheQuery();
    void everyFieldOfATagIsWrittenThroughTheQuery();
    void aTagIsRenamedAndDeletedThroughTheQuery();
    void aRefusalOfTheTableIsARefusalOfTheQuery();
    void documentsAreEditedThroughTheQuery();
    void aTieIsInsertedWithoutTouchingTheDocument();
    void aNewTieMayTellAboutTheDocument();
    void aTieAndItsDocumentAreEditedThroughTheQuery();
    void turningATieToAnotherDocumentLeavesBothDocumentsAlone();
    void deletingThroughTheCrossReferenceKeepsTheDocument();
    void aTieWithoutADocumentIsRefused();
    void revisionsAreEditedThroughTheQuery();
    void attributesAreEditedThroughTheQuery();
    void theReportHeaderIsOneRowWhateverIsThere();
    void queriesOfFixedDataCannotBeChanged_data();
    void queriesOfFixedDataCannotBeChanged();
};

void tst_queries::queriesYieldTheirColumns_data()
{
    QTest::addColumn<QString>("columns");
    QTest::newRow("qryDoc") << u"docNo,Title,docType,Path,Filename,~key"_s;
    QTest::newRow("qryDocXref") << u"Tag,docNo,Title,docType,Path,Filename,context,~key"_s;
    QTest::newRow("qryDsType") << u"ReportNum,DatasheetType,FileName"_s;
    QTest::newRow("qryIndexRev") << u"RevNo,Date,Description,createdBy,checkedBy,approvedBy,~key"_s;
    QTest::newRow("qryMap") << u"DatasheetType,Worksheet,object,Field,TableName"_s;
    QTest::newRow("qryProjectInfo") << u"attributeName,attributeValue,static,~key"_s;
    QTest::newRow("qryrptindexheader") << u"plant,operating unit,location,contract,company"_s;
}

void tst_queries::queriesYieldTheirColumns()
{
    QFETCH(QString, columns);
    Project project;
    QCOMPARE(project.row(QByteArray("SELECT group_concat(name) FROM pragma_table_info('")
                         + QTest::currentDataTag() + "')"),
             columns);
}

void tst_queries::theIndexQueryYieldsEveryFieldUnderItsName()
{
    Project project;
    QStringList fields = project.rows("SELECT name FROM pragma_table_info('index')");
    QCOMPARE(fields.size(), 57);
    fields.replace(fields.indexOf(u"PlantItemNo"_s), u"Tag"_s);
    fields.replace(fields.indexOf(u"TagPath"_s), u"DatasheetPath"_s);
    fields.replace(fields.indexOf(u"TagFileName"_s), u"DataSheetFileName"_s);
    fields.append(u"~key"_s);
    QCOMPARE(project.rows("SELECT name FROM pragma_table_info('qryIndex')"), fields);
}

void tst_queries::comparisonsThroughQueriesIgnoreCase()
{
    Project project;
    QCOMPARE(project.row("SELECT docNo FROM qryDocXref WHERE Tag = 'ft-1' AND "
                         "(docType = 'pid' OR context = 'pid')"),
             u"D1"_s);
    QCOMPARE(project.row("SELECT docNo FROM qryDoc WHERE docType <> 'na' AND docNo NOT IN "
                         "(SELECT docNo FROM qryDocXref WHERE Tag = 'Ft-1')"),
             u"D2"_s);
}

void tst_queries::aTagIsFoundByItsKeyThroughTheQuery()
{
    Project project;
    for (const char* select : {"SELECT * FROM qryIndex WHERE Tag = 'FT-1'",
                               "SELECT * FROM qryDocXref WHERE Tag = 'FT-1'"}) {
        const QString plan = project.rows(QByteArray("EXPLAIN QUERY PLAN ") + select).join(u'\n');
        QVERIFY2(!plan.contains(u"SCAN"_s), qPrintable(plan));
    }
}

void tst_queries::everyFieldOfATagIsWrittenThroughTheQuery()
{
    Project project;
    QStringList fields = project.rows("SELECT name FROM pragma_table_info('qryIndex')");
    fields.removeLast();
    QStringList values;
    QStringList assignments;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        values.append(u"'in %1'"_s.arg(i));
        assignments.append(u"%1 = 'up %2'"_s.arg(fields.at(i)).arg(i));
    }
    const QByteArray insert =
        u"INSERT INTO qryIndex (%1) VALUES (%2)"_s.arg(fields.join(u','), values.join(u','))
            .toUtf8();
    QCOMPARE(project.run(insert), SQLITE_OK);
    const QByteArray select = "SELECT * FROM \"index\" WHERE PlantItemNo = '";
    QCOMPARE(project.row(select + "in 0'"), values.join(u'|').remove(u'\''));

    const QByteArray update =
        u"UPDATE qryIndex SET %1 WHERE Tag = 'in 0'"_s.arg(assignments.join(u',')).toUtf8();
    QCOMPARE(project.run(update), SQLITE_OK);
    QCOMPARE(project.row(select + "up 0'"),
             values.join(u'|').remove(u'\'').replace(u"in"_s, u"up"_s));
    QCOMPARE(project.row("SELECT Location FROM \"index\" WHERE PlantItemNo = 'FT-1'"), u"FIELD"_s);
}

void tst_queries::aTagIsRenamedAndDeletedThroughTheQuery()
{
    Project project;
    QCOMPARE(project.run("UPDATE qryIndex SET Tag = 'FT-2' WHERE Tag = 'FT-1'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"FT-2|D1|PID"_s});
    QCOMPARE(project.row("SELECT PlantItemNo, Location FROM \"index\""), u"FT-2|FIELD"_s);
    QCOMPARE(project.run("DELETE FROM qryIndex WHERE Tag = 'FT-2'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList());
    QCOMPARE(project.rows("SELECT * FROM \"index\""), QStringList());
}

void tst_queries::aRefusalOfTheTableIsARefusalOfTheQuery()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryIndex (Tag) VALUES ('ft-1')"),
             SQLITE_CONSTRAINT_PRIMARYKEY);
    QCOMPARE(project.run("INSERT INTO qryIndex (Location) VALUES ('DCS')"),
             SQLITE_CONSTRAINT_NOTNULL);
    QCOMPARE(project.run("UPDATE qryDoc SET docNo = 'D2' WHERE docNo = 'D1'"),
             SQLITE_CONSTRAINT_PRIMARYKEY);
}

void tst_queries::documentsAreEditedThroughTheQuery()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryDoc (docNo, Title, docType, Path, Filename) "
                         "VALUES ('D3', 'Third', 'PID', '/p', 'f.pdf');"
                         "UPDATE qryDoc SET docNo = 'D9', Path = '/q' WHERE docNo = 'D1';"
                         "DELETE FROM qryDoc WHERE docNo = 'D2'"),
             SQLITE_OK);
    QCOMPARE(project.documents(),
             (QStringList{u"D3|PID|Third|/p|f.pdf"_s, u"D9|PID|First|/q|NULL"_s}));
    QCOMPARE(project.ties(), QStringList{u"FT-1|D9|PID"_s});
}

void tst_queries::aTieIsInsertedWithoutTouchingTheDocument()
{
    Project project;
    const QStringList before = project.documents();
    QCOMPARE(project.run("INSERT INTO qryDocXref (Tag, DocNo, context) VALUES "
                         "('FT-1', 'D2', 'PURCHASE ORDER')"),
             SQLITE_OK);
    QCOMPARE(project.documents(), before);
    QCOMPARE(project.ties(), (QStringList{u"FT-1|D1|PID"_s, u"FT-1|D2|PURCHASE ORDER"_s}));
}

void tst_queries::aNewTieMayTellAboutTheDocument()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryDocXref (Tag, docNo, Filename) VALUES "
                         "('FT-1', 'd2', 'x.pdf')"),
             SQLITE_OK);
    QCOMPARE(project.documents(),
             (QStringList{u"D1|PID|First|NULL|NULL"_s, u"D2|LOOP DWG|Second|NULL|x.pdf"_s}));
}

void tst_queries::aTieAndItsDocumentAreEditedThroughTheQuery()
{
    Project project;
    project.run("INSERT INTO itemDocXRef VALUES ('FT-2', 'D1', 'PID')");
    QCOMPARE(project.run("UPDATE qryDocXref SET Title = 'New', Path = NULL, context = 'NA' "
                         "WHERE Tag = 'FT-1'"),
             SQLITE_OK);
    QCOMPARE(project.rows("SELECT Tag, Title, context FROM qryDocXref ORDER BY Tag"),
             (QStringList{u"FT-1|New|NA"_s, u"FT-2|New|PID"_s}));
}

void tst_queries::turningATieToAnotherDocumentLeavesBothDocumentsAlone()
{
    Project project;
    const QStringList before = project.documents();
    QCOMPARE(project.run("UPDATE qryDocXref SET docNo = 'D2' WHERE Tag = 'FT-1'"), SQLITE_OK);
    QCOMPARE(project.documents(), before);
    QCOMPARE(project.ties(), QStringList{u"FT-1|D2|PID"_s});
}

void tst_queries::deletingThroughTheCrossReferenceKeepsTheDocument()
{
    Project project;
    const QStringList before = project.documents();
    project.run("INSERT INTO itemDocXRef VALUES ('FT-1', 'D1', 'LOOP DWG')");
    QCOMPARE(project.run("DELETE FROM qryDocXref WHERE Tag = 'FT-1' AND context = 'PID'"),
             SQLITE_OK);
    QCOMPARE(project.documents(), before);
    QCOMPARE(project.ties(), QStringList{u"FT-1|D1|LOOP DWG"_s});
}

void tst_queries::aTieWithoutADocumentIsRefused()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryDocXref (Tag, docNo) VALUES ('FT-1', 'D9')"),
             SQLITE_CONSTRAINT_FOREIGNKEY);
}

void tst_queries::revisionsAreEditedThroughTheQuery()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryIndexRev (RevNo, Date, createdBy) VALUES "
                         "('A', '2025-01-02', 'ab'), ('B', NULL, 'cd');"
                         "UPDATE qryIndexRev SET Description = 'x', checkedBy = 'y', "
                         "approvedBy = 'z', RevNo = 'C' WHERE RevNo = 'b';"
                         "DELETE FROM qryIndexRev WHERE RevNo = 'A'"),
             SQLITE_OK);
    QCOMPARE(project.row("SELECT * FROM IndexRevisions"), u"C|NULL|x|cd|y|z"_s);
}

void tst_queries::attributesAreEditedThroughTheQuery()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO qryProjectInfo (attributeName, attributeValue) VALUES "
                         "('phase', 'two');"
                         "UPDATE qryProjectInfo SET attributeName = 'stage' "
                         "WHERE attributeName = 'Phase';"
                         "update qryProjectInfo set attributeValue = '/x' "
                         "where attributeName = 'DefaultDatasheetFolder';"
                         "DELETE FROM qryProjectInfo WHERE attributeName = 'company'"),
             SQLITE_OK);
    QCOMPARE(project.rows("SELECT attributeName, attributeValue, static FROM ProjectInfo WHERE "
                          "attributeName IN ('stage', 'company', 'defaultDatasheetFolder') "
                          "ORDER BY rowid"),
             (QStringList{u"DefaultDatasheetFolder|/x|-1"_s, u"stage|two|0"_s}));
}

void tst_queries::theReportHeaderIsOneRowWhateverIsThere()
{
    Project project;
    project.run("UPDATE ProjectInfo SET attributeValue = 'Plant X' WHERE attributeName = 'plant'");
    QCOMPARE(project.row("SELECT * FROM qryrptindexheader"), u"Plant X|NULL|NULL|NULL|NULL"_s);
    project.run("DELETE FROM ProjectInfo");
    QCOMPARE(project.row("SELECT * FROM qryrptindexheader"), u"NULL|NULL|NULL|NULL|NULL"_s);
}

void tst_queries::queriesOfFixedDataCannotBeChanged_data()
{
    QTest::addColumn<QByteArray>("statement");
    QTest::newRow("qryDsType") << QByteArray("DELETE FROM qryDsType");
    QTest::newRow("qryMap") << QByteArray("UPDATE qryMap SET Field = 'x'");
    QTest::newRow("qryrptindexheader") << QByteArray("UPDATE qryrptindexheader SET plant = 'x'");
}

void tst_queries::queriesOfFixedDataCannotBeChanged()
{
    QFETCH(QByteArray, statement);
    Project project;
    QCOMPARE(project.run(statement), SQLITE_ERROR);
    QVERIFY(project.lastMessage().contains(u"cannot modify"_s));
}

QTEST_GUILESS_MAIN(tst_queries)
#include "tst_queries.moc"
