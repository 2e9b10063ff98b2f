// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"

#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::tests::ScratchProject;

namespace {

/// A template with the documents D1, D2, D3 and the tag FT-1.
class Project : public ScratchProject
{
public:
    Project()
        : ScratchProject("index.mdb")
    {
        run("INSERT INTO document (docNo, docType) VALUES "
            "('D1', 'PID'), ('D2', 'PID'), ('D3', 'LOOP DWG');"
            "INSERT INTO \"index\" (PlantItemNo) VALUES ('FT-1')");
    }

    int tie(const QByteArray& values)
    {
        return run("INSERT INTO itemDocXRef (PlantItemNo, docNo, context) VALUES " + values);
    }
    int rename(const QByteArray& from, const QByteArray& to)
    {
        return run("UPDATE \"index\" SET PlantItemNo = '" + to + "' WHERE PlantItemNo = '" + from
                   + "'");
    }
    QStringList ties()
    {
        return rows("SELECT PlantItemNo, docNo, context FROM itemDocXRef "
                    "ORDER BY PlantItemNo COLLATE BINARY, docNo, context");
    }
};

} // namespace

class tst_relationships : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTieMayBeWrittenBeforeItsTag();
    void aTieNeedsItsDocument();
    void aDocumentNeedsItsKind();
    void oneDocumentMayHaveSeveralRolesForATag();
    void anExactRepetitionOfATieIsRefused_data();
    void anExactRepetitionOfATieIsRefused();
    void deletingATagDeletesItsTiesAlone();
    void deletingADocumentDeletesItsTies();
    void renumberingADocumentRenumbersItsTies();
    void respellingADocumentRespellsItsTies();
    void renamingAKindRenamesItInDocuments();
    void aKindInUseCannotBeDeleted();
    void tiesFollowARenamedTag();
    void tiesWrittenUnderTheNewNameWin_data();
    void tiesWrittenUnderTheNewNameWin();
    void aChangeOfCaseOnlyRespellsTheTies();
    void otherFieldsOfATagLeaveTiesAlone();
    void severalTagsRenamedAtOnceKeepTheirOwnTies();
};

void tst_relationships::aTieMayBeWrittenBeforeItsTag()
{
    Project project;
    QCOMPARE(project.tie("('NEW-1', 'D1', 'PID')"), SQLITE_OK);
    QCOMPARE(project.run("INSERT INTO \"index\" (PlantItemNo) VALUES ('NEW-1')"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"NEW-1|D1|PID"_s});
}

void tst_relationships::aTieNeedsItsDocument()
{
    Project project;
    QCOMPARE(project.tie("('FT-1', 'D9', 'PID')"), SQLITE_CONSTRAINT_FOREIGNKEY);
    QCOMPARE(project.tie("('FT-1', 'd1', 'PID')"), SQLITE_OK);
}

void tst_relationships::aDocumentNeedsItsKind()
{
    Project project;
    QCOMPARE(project.run("INSERT INTO document (docNo, docType) VALUES ('D4', 'SKETCH')"),
             SQLITE_CONSTRAINT_FOREIGNKEY);
    QCOMPARE(project.run("INSERT INTO plDocType VALUES ('SKETCH');"
                         "INSERT INTO document (docNo, docType) VALUES ('D4', 'sketch');"
                         "INSERT INTO document (docNo) VALUES ('D5')"),
             SQLITE_OK);
}

void tst_relationships::oneDocumentMayHaveSeveralRolesForATag()
{
    Project project;
    QCOMPARE(project.tie("('FT-1', 'D1', 'PID'), ('FT-1', 'D1', 'LOOP DWG'), ('FT-1', 'D1', NULL)"),
             SQLITE_OK);
    QCOMPARE(project.ties().size(), 3);
}

void tst_relationships::anExactRepetitionOfATieIsRefused_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::newRow("same") << QByteArray("('FT-1', 'D1', 'PID')")
                          << QByteArray("('FT-1', 'D1', 'PID')");
    QTest::newRow("other case") << QByteArray("('FT-1', 'D1', 'PID')")
                                << QByteArray("('ft-1', 'd1', 'pid')");
    QTest::newRow("no role") << QByteArray("('FT-1', 'D1', NULL)")
                             << QByteArray("('FT-1', 'D1', NULL)");
    QTest::newRow("no role and an empty one")
        << QByteArray("('FT-1', 'D1', '')") << QByteArray("('FT-1', 'D1', NULL)");
}

void tst_relationships::anExactRepetitionOfATieIsRefused()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    Project project;
    QCOMPARE(project.tie(first), SQLITE_OK);
    QCOMPARE(project.tie(second), SQLITE_CONSTRAINT_UNIQUE);
}

void tst_relationships::deletingATagDeletesItsTiesAlone()
{
    Project project;
    project.tie("('ft-1', 'D1', 'PID'), ('FT-1', 'D3', NULL), ('FT-10', 'D1', 'PID')");
    QCOMPARE(project.run("DELETE FROM \"index\" WHERE PlantItemNo = 'FT-1'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"FT-10|D1|PID"_s});
    QCOMPARE(project.row("SELECT count(*) FROM document WHERE docNo IN ('D1', 'D3')"), u"2"_s);
}

void tst_relationships::deletingADocumentDeletesItsTies()
{
    Project project;
    project.tie("('FT-1', 'D1', 'PID'), ('FT-1', 'D3', NULL)");
    QCOMPARE(project.run("DELETE FROM document WHERE docNo = 'D1'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"FT-1|D3|NULL"_s});
}

void tst_relationships::renumberingADocumentRenumbersItsTies()
{
    Project project;
    project.tie("('FT-1', 'D1', 'PID')");
    QCOMPARE(project.run("UPDATE document SET docNo = 'D7' WHERE docNo = 'D1'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"FT-1|D7|PID"_s});
}

void tst_relationships::respellingADocumentRespellsItsTies()
{
    Project project;
    project.tie("('FT-1', 'D1', 'PID')");
    QCOMPARE(project.run("UPDATE document SET docNo = 'd1' WHERE docNo = 'D1'"), SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"FT-1|d1|PID"_s});
}

void tst_relationships::renamingAKindRenamesItInDocuments()
{
    Project project;
    const QByteArray kinds = "SELECT docType FROM document WHERE docNo IN ('D1', 'D3') ORDER BY 1";
    QCOMPARE(project.run("UPDATE plDocType SET docType = 'FLOW SHEET' WHERE docType = 'PID'"),
             SQLITE_OK);
    QCOMPARE(project.rows(kinds), (QStringList{u"FLOW SHEET"_s, u"LOOP DWG"_s}));
    QCOMPARE(
        project.run("UPDATE plDocType SET docType = 'Flow Sheet' WHERE docType = 'FLOW SHEET'"),
        SQLITE_OK);
    QCOMPARE(project.rows(kinds), (QStringList{u"Flow Sheet"_s, u"LOOP DWG"_s}));
}

void tst_relationships::aKindInUseCannotBeDeleted()
{
    Project project;
    QCOMPARE(project.run("DELETE FROM plDocType WHERE docType = 'PID'"),
             SQLITE_CONSTRAINT_FOREIGNKEY);
    QCOMPARE(project.run("DELETE FROM plDocType WHERE docType = 'REQUISITION'"), SQLITE_OK);
}

void tst_relationships::tiesFollowARenamedTag()
{
    Project project;
    project.tie("('FT-1', 'D1', 'PID'), ('ft-1', 'D3', NULL), ('FT-10', 'D1', 'PID')");
    QCOMPARE(project.rename("FT-1", "FT-2"), SQLITE_OK);
    QCOMPARE(project.ties(), (QStringList{u"FT-10|D1|PID"_s, u"FT-2|D1|PID"_s, u"FT-2|D3|NULL"_s}));
}

void tst_relationships::tiesWrittenUnderTheNewNameWin_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("same document, same role")
        << QByteArray("('FT-1', 'D1', 'PID'), ('FT-2', 'd1', 'pid')")
        << QStringList{u"FT-2|d1|pid"_s};
    QTest::newRow("same document, old role not told")
        << QByteArray("('FT-1', 'D1', NULL), ('FT-2', 'D1', 'PID')")
        << QStringList{u"FT-2|D1|PID"_s};
    QTest::newRow("same document, old role empty")
        << QByteArray("('FT-1', 'D1', ''), ('FT-2', 'D1', 'PID')") << QStringList{u"FT-2|D1|PID"_s};
    QTest::newRow("same document, other role")
        << QByteArray("('FT-1', 'D1', 'LOOP DWG'), ('FT-2', 'D1', 'PID')")
        << QStringList{u"FT-2|D1|LOOP DWG"_s, u"FT-2|D1|PID"_s};
    QTest::newRow("same document, new role not told")
        << QByteArray("('FT-1', 'D1', 'PID'), ('FT-2', 'D1', NULL)")
        << QStringList{u"FT-2|D1|NULL"_s, u"FT-2|D1|PID"_s};
    QTest::newRow("other document") << QByteArray("('FT-1', 'D2', 'PID'), ('FT-2', 'D1', 'PID')")
                                    << QStringList{u"FT-2|D1|PID"_s, u"FT-2|D2|PID"_s};
    QTest::newRow("two old roles of one document")
        << QByteArray("('FT-1', 'D1', NULL), ('FT-1', 'D1', 'PID'), ('FT-2', 'D2', 'PID')")
        << QStringList{u"FT-2|D1|NULL"_s, u"FT-2|D1|PID"_s, u"FT-2|D2|PID"_s};
}

void tst_relationships::tiesWrittenUnderTheNewNameWin()
{
    QFETCH(QByteArray, before);
    QFETCH(QStringList, after);
    Project project;
    QCOMPARE(project.tie(before), SQLITE_OK);
    QCOMPARE(project.rename("FT-1", "FT-2"), SQLITE_OK);
    QCOMPARE(project.ties(), after);
}

void tst_relationships::aChangeOfCaseOnlyRespellsTheTies()
{
    Project project;
    project.tie("('FT-1', 'D1', 'PID'), ('FT-1', 'D1', NULL), ('FT-1', 'D3', 'LOOP DWG')");
    QCOMPARE(project.rename("FT-1", "Ft-1"), SQLITE_OK);
    QCOMPARE(project.row("SELECT PlantItemNo FROM \"index\""), u"Ft-1"_s);
    QCOMPARE(project.ties(),
             (QStringList{u"Ft-1|D1|NULL"_s, u"Ft-1|D1|PID"_s, u"Ft-1|D3|LOOP DWG"_s}));
}

void tst_relationships::otherFieldsOfATagLeaveTiesAlone()
{
    Project project;
    project.tie("('ft-1', 'D1', 'PID')");
    QCOMPARE(project.run("UPDATE \"index\" SET PlantItemNo = PlantItemNo, Location = 'DCS'"),
             SQLITE_OK);
    QCOMPARE(project.ties(), QStringList{u"ft-1|D1|PID"_s});
}

void tst_relationships::severalTagsRenamedAtOnceKeepTheirOwnTies()
{
    Project project;
    project.run("INSERT INTO \"index\" (PlantItemNo) VALUES ('FT-2')");
    project.tie("('FT-1', 'D1', 'PID'), ('FT-2', 'D2', 'PID')");
    QCOMPARE(project.run("UPDATE \"index\" SET PlantItemNo = '10-' || PlantItemNo"), SQLITE_OK);
    QCOMPARE(project.ties(), (QStringList{u"10-FT-1|D1|PID"_s, u"10-FT-2|D2|PID"_s}));
}

QTEST_GUILESS_MAIN(tst_relationships)
#include "tst_relationships.moc"
