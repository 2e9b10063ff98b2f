// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The sample's P&ID database agrees with its index, save in the cases that were put there on
// purpose. pid_expected.json names them.
#include "data/scratch_project.h"
#include "maker/csv.h"
#include "maker/pid_database.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::tests::dataFolder;
using ostrand::tests::ScratchProject;

namespace fs = std::filesystem;

namespace {

QJsonObject expected()
{
    QFile file(QStringLiteral(OSTRAND_DATA_DIR "/../tests/data/pid_expected.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("pid_expected.json is missing");
    return QJsonDocument::fromJson(file.readAll()).object();
}

QStringList cases(const QString& name)
{
    QStringList tags;
    for (const QJsonValue& tag : expected()[u"cases"_s][name].toArray())
        tags << tag.toString();
    tags.sort();
    return tags;
}

/// "function|tag" for each pair of a case, Null as "NULL".
QStringList keys(const QString& name)
{
    QStringList found;
    for (const QJsonValue& pair : expected()[u"cases"_s][name].toArray()) {
        found << pair[0].toString() + u'|' + (pair[1].isNull() ? u"NULL"_s : pair[1].toString());
    }
    found.sort();
    return found;
}

} // namespace

class tst_sample_pid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itHasAllInstrumentsAndFields();
    void instrumentsAndTagsMatchByTrimmedCapitals();
    void somePairsStandMoreThanOnce();
    void emptyTextsAndNullsAreKept();
    void caseAndBlanksOfKeysAreKept();
    void someInstrumentsAreInOneOfTheTwoOnly();
    void servicesDifferWhereTheyAreMeantTo();
    void apostrophesQuotesAndUmlautsAreKept();
    void theProgramsOwnTypesAreTold();
    void configurationsOfServersLieBesideIt();
    void equalInputGivesEqualBytes();

private:
    QStringList rows(const char* select) { return m_pid->rows(select); }
    QStringList sortedRows(const char* select)
    {
        QStringList found = rows(select);
        found.sort();
        return found;
    }
    int summary(const QString& name) const { return expected()[u"summary"_s][name].toInt(); }
    int count(const char* select) { return m_pid->row(select).toInt(); }

    std::unique_ptr<ScratchProject> m_pid;
};

void tst_sample_pid::init()
{
    m_pid = std::make_unique<ScratchProject>("Samples/HGC_PID.mdb");
    QCOMPARE(
        m_pid->run("ATTACH '" OSTRAND_BIN_DIR "/Samples/Heronsfield.mdb' AS project;"
                   "CREATE TEMP VIEW pid AS SELECT *,"
                   " upper(trim(FUNCTION_)) || '-' || upper(trim(TAG_)) COLLATE BINARY AS k,"
                   " FUNCTION_ <> '' AND TAG_ <> '' AS whole"
                   " FROM \"Components-Instruments\";"
                   "CREATE TEMP VIEW tags AS SELECT upper(trim(PlantItemNo)) COLLATE BINARY AS k,"
                   " * FROM project.\"index\""),
        SQLITE_OK);
}

void tst_sample_pid::itHasAllInstrumentsAndFields()
{
    QCOMPARE(count("SELECT count(*) FROM pid"), summary(u"pid_rows"_s));
    QCOMPARE(count("SELECT count(*) FROM pragma_table_info('Components-Instruments')"), 19);
    QCOMPARE(rows("SELECT DISTINCT typeof(ID_COUNT_) FROM pid"), QStringList{u"integer"_s});
    QCOMPARE(
        m_pid->row("SELECT min(ID_COUNT_), max(ID_COUNT_), count(DISTINCT ID_COUNT_) FROM pid"),
        u"1|376|376"_s);
    QCOMPARE(m_pid->row("SELECT FUNCTION_, TAG_, SERVICE_, TYPE_, LINE_OR_EQUIP_, SIZE_, RATING_,"
                        " SPEC_, MATERIAL_, MANUFACTURER_, SIGNAL_, LOCATION_, FAIL_POS_, FLUID_,"
                        " PID_NO_ FROM pid WHERE ID_COUNT_ = 3"),
             u"PV|1001|Inlet separator outlet gas pressure|Control valve, globe|V-1001|DN25|CL600|"
             "6C1|316L SS|NULL|4-20 mA HART|FIELD|FO|Wet gas|HGC-10-PID-001"_s);
}

void tst_sample_pid::instrumentsAndTagsMatchByTrimmedCapitals()
{
    QCOMPARE(count("SELECT count(DISTINCT k) FROM pid WHERE whole"),
             summary(u"pid_distinct_keys_trim_upper"_s));
    QCOMPARE(count("SELECT count(*) FROM tags"), summary(u"index_tags"_s));
    QCOMPARE(count("SELECT count(*) FROM tags WHERE k IN (SELECT k FROM pid WHERE whole)"),
             summary(u"matched_trim_upper"_s));
    QCOMPARE(count("SELECT count(*) FROM tags WHERE k NOT IN (SELECT k FROM pid WHERE whole)"),
             summary(u"index_not_in_pid"_s));
    QCOMPARE(
        count("SELECT count(DISTINCT k) FROM pid WHERE whole AND k NOT IN (SELECT k FROM tags)"),
        summary(u"pid_not_in_index"_s));
}

void tst_sample_pid::somePairsStandMoreThanOnce()
{
    const char* more = "SELECT k FROM pid WHERE whole GROUP BY k HAVING count(*) > 1 ";
    QCOMPARE(rows(more).size(), summary(u"pid_keys_more_than_once"_s));
    QCOMPARE(sortedRows("SELECT k FROM pid WHERE whole GROUP BY k HAVING count(*) > 1 AND"
                        " count(DISTINCT SERVICE_) > 1"),
             cases(u"dup_service_differs"_s));
    QCOMPARE(sortedRows("SELECT k FROM pid WHERE whole GROUP BY k HAVING count(*) > 1 AND"
                        " count(DISTINCT SERVICE_) = 1"),
             cases(u"dup_identical"_s));
}

void tst_sample_pid::emptyTextsAndNullsAreKept()
{
    QCOMPARE(sortedRows("SELECT FUNCTION_, TAG_ FROM pid WHERE whole IS NOT 1"),
             keys(u"empty_key"_s));
    QCOMPARE(rows("SELECT DISTINCT MANUFACTURER_ FROM pid"), QStringList{u"NULL"_s});
    QCOMPARE(count("SELECT count(*) FROM pid WHERE '' IN (SERVICE_, TYPE_, SIZE_, PID_NO_)"), 0);
}

void tst_sample_pid::caseAndBlanksOfKeysAreKept()
{
    QCOMPARE(sortedRows("SELECT FUNCTION_, TAG_ FROM pid WHERE whole AND"
                        " FUNCTION_ || '-' || TAG_ <> k COLLATE BINARY"),
             keys(u"case_or_blank_key"_s));
}

void tst_sample_pid::someInstrumentsAreInOneOfTheTwoOnly()
{
    const QStringList lost =
        rows("SELECT DISTINCT k FROM pid WHERE whole AND k NOT IN (SELECT k FROM tags)");
    for (const QString& tag : cases(u"only_in_pid"_s))
        QVERIFY2(lost.contains(tag), qPrintable(tag));
    QCOMPARE(lost.size(), cases(u"only_in_pid"_s).size() + 1); // and one under a swapped function
    QVERIFY(lost.contains(u"PIT-4008"_s));
    const QStringList missing =
        rows("SELECT k FROM tags WHERE k NOT IN (SELECT k FROM pid WHERE whole)");
    for (const QString& tag : cases(u"only_in_index"_s))
        QVERIFY2(missing.contains(tag), qPrintable(tag));
}

void tst_sample_pid::servicesDifferWhereTheyAreMeantTo()
{
    const QStringList differing = rows("SELECT DISTINCT tags.k FROM tags JOIN pid USING (k)"
                                       " WHERE SERVICE_ IS NOT ServiceDescription COLLATE BINARY");
    QStringList meant = cases(u"service_mismatch"_s) + cases(u"dup_service_differs"_s);
    for (const QString& tag : cases(u"service_mismatch"_s))
        QVERIFY2(differing.contains(tag), qPrintable(tag));
    for (const QString& tag : differing)
        QVERIFY2(meant.contains(tag), qPrintable(tag));
}

void tst_sample_pid::apostrophesQuotesAndUmlautsAreKept()
{
    QCOMPARE(rows("SELECT SERVICE_ FROM pid WHERE TAG_ BETWEEN '6101' AND '6104' AND FUNCTION_ IN"
                  " ('FI', 'TI', 'LI', 'PI') AND ID_COUNT_ > 372 ORDER BY TAG_"),
             (QStringList{u"Operator's shower water flow"_s,
                          u"Kühlwasser Rücklauf temperature 25 °C"_s,
                          u"Sump level \"north\""_s,
                          u"Pressure; 50 % of span, see note"_s}));
}

void tst_sample_pid::theProgramsOwnTypesAreTold()
{
    QCOMPARE(rows("SELECT columnName, type, length FROM \"~columns\" WHERE columnName IN"
                  " ('ID_COUNT_', 'TAG_', 'REMARKS_') ORDER BY 1"),
             (QStringList{u"ID_COUNT_|Long|NULL"_s, u"REMARKS_|Memo|NULL"_s, u"TAG_|Text|255"_s}));
}

void tst_sample_pid::configurationsOfServersLieBesideIt()
{
    for (const auto& [kind, type] :
         {std::pair{u"sql_server"_s, u"SQL Server"_s}, std::pair{u"oracle"_s, u"Oracle"_s}}) {
        QFile file(QStringLiteral(OSTRAND_BIN_DIR "/Samples/") + kind + u"/Project.cfg"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        const qsizetype head = lines.indexOf(u"[Process Database]"_s);
        QVERIFY(head >= 0);
        QCOMPARE(lines[head + 1].mid(13), type);
        QCOMPARE(lines[head + 2].mid(7), u"HGC_PID"_s);
    }
}

void tst_sample_pid::equalInputGivesEqualBytes()
{
    const QTemporaryDir folder;
    const fs::path made = fs::path(folder.path().toStdString()) / "pid.mdb";
    ostrand::maker::makePidDatabase(made, dataFolder());
    QVERIFY(ostrand::maker::readFile(made)
            == ostrand::maker::readFile(fs::path(OSTRAND_BIN_DIR) / "Samples" / "HGC_PID.mdb"));
}

QTEST_GUILESS_MAIN(tst_sample_pid)
#include "tst_sample_pid.moc"
