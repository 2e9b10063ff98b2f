// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/tag_names.h"
#include "store/error.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;

class TestTagNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void aTagIsFoundByItsNames_data();
    static void aTagIsFoundByItsNames();
    static void aNameWithoutTagPartIsRefused_data();
    static void aNameWithoutTagPartIsRefused();
};

void TestTagNames::aTagIsFoundByItsNames_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("lookup");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("imported");
    QTest::addColumn<QString>("exported");
    const auto row = [](const char* tag,
                        QString file,
                        QString lookup,
                        QString function,
                        QString imported,
                        QString exported) {
        QTest::newRow(tag) << file << lookup << function << imported << exported;
    };
    row("PT-100", u"PT-100.xls"_s, u"PT-100"_s, u"PT"_s, u"100"_s, u"100"_s);
    row("PT-100-A", u"PT-100-A.xls"_s, u"PT-100-A"_s, u"PT"_s, u"100-A"_s, u"100"_s);
    row("PT-100-A-B", u"PT-100-A-B.xls"_s, u"PT-100-A-B"_s, u"PT"_s, u"100-A-B"_s, u"100"_s);
    row("FT-1.5", u"FT-1.5.xls"_s, u"FT-1"_s, u"FT"_s, u"1"_s, u"1"_s);
    row("PT-1/2", u"PT-1-2.xls"_s, u"PT-1/2"_s, u"PT"_s, u"1/2"_s, u"1/2"_s);
    row("PT-1\\2", u"PT-1-2.xls"_s, u"PT-1\\2"_s, u"PT"_s, u"1\\2"_s, u"1\\2"_s);
    row("P/T-1\\2", u"P-T-1\\2.xls"_s, u"P/T-1\\2"_s, u"P/T"_s, u"1\\2"_s, u"1\\2"_s);
    row("PT-", u"PT-.xls"_s, u"PT-"_s, u"PT"_s, u""_s, u""_s);
    row("-1", u"-1.xls"_s, u"-1"_s, u""_s, u"1"_s, u"1"_s);
    row("PT--1", u"PT--1.xls"_s, u"PT--1"_s, u"PT"_s, u"-1"_s, u""_s);
}

void TestTagNames::aTagIsFoundByItsNames()
{
    const QString tag = QString::fromUtf8(QTest::currentDataTag());
    QFETCH(QString, file);
    QFETCH(QString, lookup);
    QFETCH(QString, function);
    QFETCH(QString, imported);
    QFETCH(QString, exported);
    QCOMPARE(pid::runFileName(tag), file);
    QCOMPARE(pid::lookupName(tag), lookup);
    QCOMPARE(pid::importKey(lookup).function, function);
    QCOMPARE(pid::importKey(lookup).tag, imported);
    QCOMPARE(pid::exportKey(lookup).function, function);
    QCOMPARE(pid::exportKey(lookup).tag, exported);
}

void TestTagNames::aNameWithoutTagPartIsRefused_data()
{
    QTest::addColumn<QString>("lookup");
    QTest::newRow("no hyphen") << u"FT/101"_s;
    QTest::newRow("nothing in front of the point") << pid::lookupName(u".5-1"_s);
}

void TestTagNames::aNameWithoutTagPartIsRefused()
{
    QFETCH(QString, lookup);
    for (const auto keyOf : {&pid::importKey, &pid::exportKey}) {
        try {
            keyOf(lookup);
            QFAIL("no error");
        } catch (const store::Error& error) {
            QCOMPARE(error.number(), 9);
            QCOMPARE(error.description(), u"Subscript out of range"_s);
        }
    }
}

QTEST_GUILESS_MAIN(TestTagNames)
#include "tst_tag_names.moc"
