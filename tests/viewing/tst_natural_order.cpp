// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/natural_order.h"

#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::viewing::reports::compareNatural;

class NaturalOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void countsTagsAsPeopleDo();
    void ignoresCase();
    void isOneOrderForAllTexts();
};

void NaturalOrderTest::countsTagsAsPeopleDo()
{
    const QStringList ordered{u""_s,
                              u"05-FT-2"_s,
                              u"FT-2"_s,
                              u"FT-9A"_s,
                              u"FT-10"_s,
                              u"FT-10A"_s,
                              u"FT-10B"_s,
                              u"FT-11"_s,
                              u"FT-99999999999999999999999"_s,
                              u"FT-100000000000000000000000"_s,
                              u"FTA-1"_s,
                              u"PT-1"_s};
    for (int i = 0; i < ordered.size(); ++i) {
        for (int k = 0; k < ordered.size(); ++k)
            QCOMPARE(compareNatural(ordered[i], ordered[k]) < 0, i < k);
    }
}

void NaturalOrderTest::ignoresCase()
{
    QCOMPARE(compareNatural(u"ft-10a", u"FT-10A"), 0);
    QVERIFY(compareNatural(u"ft-10b", u"FT-10A") > 0);
    QVERIFY(compareNatural(u"é1", u"F1") < 0);
}

/// A sort must not meet three texts of which each stands before the next.
void NaturalOrderTest::isOneOrderForAllTexts()
{
    const QStringList texts{u"±"_s,
                            u"é"_s,
                            u"z"_s,
                            u"Z9"_s,
                            u"9"_s,
                            u"-"_s,
                            u"_"_s,
                            u"["_s,
                            u"a-"_s,
                            u"a1"_s,
                            u"ab"_s,
                            u"流"_s,
                            u"م"_s,
                            u""_s,
                            u" "_s};
    for (const QString& a : texts) {
        QCOMPARE(compareNatural(a, a), 0);
        for (const QString& b : texts) {
            QCOMPARE(compareNatural(a, b) < 0, compareNatural(b, a) > 0);
            for (const QString& c : texts) {
                if (compareNatural(a, b) <= 0 && compareNatural(b, c) <= 0)
                    QVERIFY2(compareNatural(a, c) <= 0, qPrintable(a + b + c));
            }
        }
    }
}

QTEST_APPLESS_MAIN(NaturalOrderTest)
#include "tst_natural_order.moc"
