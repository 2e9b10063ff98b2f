// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"
#include "maker/csv.h"
#include "maker/plant_generator.h"
#include "maker/tag_factory.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::maker;
using ostrand::tests::dataFolder;
using ostrand::tests::ScratchProject;

namespace fs = std::filesystem;

class tst_generator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itMakesAsManyTagsAsAsked_data();
    void itMakesAsManyTagsAsAsked();
    void runsRepeatByteForByte();
    void aSmallerPlantIsTheBeginningOfALargerOne();
    void aTagHasAboutFourDocumentsOfFiveKinds();
    void settingsLieInOrder();
    void membersOfALoopShareItsNumber();
    void rangesEndAtPreferredValues();

private:
    fs::path make(int count)
    {
        const fs::path file =
            fs::path(m_folder.path().toStdString()) / (std::to_string(count) + ".mdb");
        makeGeneratedProject(count, file, dataFolder());
        return file;
    }

    QTemporaryDir m_folder;
};

void tst_generator::itMakesAsManyTagsAsAsked_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 187, 2000})
        QTest::addRow("%d", count) << count;
}

void tst_generator::itMakesAsManyTagsAsAsked()
{
    QFETCH(int, count);
    ScratchProject project(make(count));
    QCOMPARE(project.row("SELECT count(*) FROM \"index\"").toInt(), count);
    QCOMPARE(project.row("PRAGMA integrity_check"), u"ok"_s);
}

void tst_generator::runsRepeatByteForByte()
{
    const std::string first = readFile(make(500));
    QVERIFY(first == readFile(make(500)));
}

void tst_generator::aSmallerPlantIsTheBeginningOfALargerOne()
{
    ScratchProject small(make(300));
    ScratchProject large(make(900));
    const QByteArray select = "SELECT * FROM \"index\" ORDER BY rowid LIMIT 300";
    QCOMPARE(small.rows(select), large.rows(select));
}

void tst_generator::aTagHasAboutFourDocumentsOfFiveKinds()
{
    ScratchProject project(make(2000));
    const int ties = project.row("SELECT count(*) FROM qryDocXref").toInt();
    QVERIFY2(ties > 2000 * 35 / 10 && ties < 2000 * 45 / 10, qPrintable(QString::number(ties)));
    QCOMPARE(project.row("SELECT count(DISTINCT context) FROM itemDocXRef"), u"5"_s);
    QCOMPARE(project.rows("SELECT PlantItemNo FROM itemDocXRef EXCEPT "
                          "SELECT PlantItemNo FROM \"index\""),
             QStringList());
}

void tst_generator::settingsLieInOrder()
{
    ScratchProject project(make(2000));
    // "85 bar(g)" counts as 85 in arithmetic.
    QCOMPARE(
        project.rows("SELECT PlantItemNo FROM \"index\" WHERE H_H_SETTING + 0 <= H_SETTING + 0 "
                     "OR H_SETTING + 0 <= L_SETTING + 0 OR L_SETTING + 0 <= L_L_SETTING + 0 "
                     "OR H_SETTING + 0 > MaxProcessValue + 0"),
        QStringList());
    QVERIFY(project.row("SELECT count(*) FROM \"index\" WHERE H_H_H_SETTING IS NOT NULL").toInt()
            > 5);
}

void tst_generator::membersOfALoopShareItsNumber()
{
    ScratchProject project(make(187));
    QCOMPARE(project.rows("SELECT PlantItemNo FROM \"index\" WHERE LoopNumber = 'P-1001' "
                          "ORDER BY rowid"),
             (QStringList{u"PT-1001"_s, u"PIC-1001"_s, u"PY-1001"_s, u"PV-1001"_s}));
}

void tst_generator::rangesEndAtPreferredValues()
{
    QCOMPARE(nextPreferred(1.0), 1.6);
    QCOMPARE(nextPreferred(95.2), 100.0);
    QCOMPARE(nextPreferred(61.0), 100.0);
    QCOMPARE(nextPreferred(0.05), 0.06);
    QCOMPARE(nextPreferred(0.0), 1.0);
}

QTEST_GUILESS_MAIN(tst_generator)
#include "tst_generator.moc"
