// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/quantity.h"
#include "viewing/reports/definitions/settings.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;

namespace {

const QStringList settingNames{u"H_H_H_SETTING"_s,
                               u"H_H_SETTING"_s,
                               u"H_SETTING"_s,
                               u"L_SETTING"_s,
                               u"L_L_SETTING"_s,
                               u"L_L_L_SETTING"_s};

/// A tag with a scale, a set point and its settings from HHH down to LLL.
Row tagWith(const QString& scale, const QString& setPoint, const QStringList& settings)
{
    QStringList names{u"ScaleRangeValue"_s, u"ScaleSetPointValue"_s};
    names += settingNames;
    std::vector<QString> texts{scale, setPoint};
    texts.insert(texts.end(), settings.begin(), settings.end());
    return {std::make_shared<const Fields>(names), texts};
}

/// The marked cells by their short names; "SP" is the set point.
QString marksOf(const Row& tag)
{
    const QStringList shortNames{u"HHH"_s, u"HH"_s, u"H"_s, u"L"_s, u"LL"_s, u"LLL"_s};
    QStringList marks;
    if (isSetPointDoubtful(tag))
        marks << u"SP"_s;
    for (int i = 0; i < settingNames.size(); ++i) {
        if (isDoubtful(tag, settingNames[i]))
            marks << shortNames[i];
    }
    if (isDoubtful(tag) == marks.isEmpty())
        return u"the tag and its cells disagree"_s;
    return marks.join(u' ');
}

} // namespace

class TestReportSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aValueIsReadWithItsUnit_data();
    void aValueIsReadWithItsUnit();
    void whatIsNoValueOrHasTwoReadingsIsNone_data();
    void whatIsNoValueOrHasTwoReadingsIsNone();
    void unitsAreEqualHoweverTheyAreTyped_data();
    void unitsAreEqualHoweverTheyAreTyped();
    void aRangeIsRead_data();
    void aRangeIsRead();
    void whatIsNoRangeIsNone_data();
    void whatIsNoRangeIsNone();
    void doubtfulSettingsAreMarked_data();
    void doubtfulSettingsAreMarked();
    void rangeAndSetPointAreTakenFromTheScaleFirst();
    void aBlankIsNoSetting();
};

void TestReportSettings::aValueIsReadWithItsUnit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("unit");
    QTest::newRow("whole") << u"85 bar(g)"_s << 85.0 << u"barg"_s;
    QTest::newRow("point") << u"0.085 bar(g)"_s << 0.085 << u"barg"_s;
    QTest::newRow("comma") << u"0,085 bar(g)"_s << 0.085 << u"barg"_s;
    QTest::newRow("comma and two digits") << u"12,75 mm"_s << 12.75 << u"mm"_s;
    QTest::newRow("comma and four digits") << u"12,7500 mm"_s << 12.75 << u"mm"_s;
    QTest::newRow("comma behind four digits") << u"1234,567 kg"_s << 1234.567 << u"kg"_s;
    QTest::newRow("exponent") << u"1.2e+04 kg/h"_s << 12000.0 << u"kg/h"_s;
    QTest::newRow("small exponent") << u"5E-3 bar"_s << 0.005 << u"bar"_s;
    QTest::newRow("below zero") << u"-20 °C"_s << -20.0 << u"°c"_s;
    QTest::newRow("true minus sign") << u"\u221220 °C"_s << -20.0 << u"°c"_s;
    QTest::newRow("plus sign") << u"+20"_s << 20.0 << u""_s;
    QTest::newRow("no blank") << u"40%LEL"_s << 40.0 << u"%lel"_s;
    QTest::newRow("leading point") << u".5 bar"_s << 0.5 << u"bar"_s;
    QTest::newRow("a unit that begins with e") << u"12 eq/l"_s << 12.0 << u"eq/l"_s;
    QTest::newRow("direction") << u"95 % rising"_s << 95.0 << u"%"_s;
    QTest::newRow("other direction") << u"4.2 bar(g) falling"_s << 4.2 << u"barg"_s;
    QTest::newRow("digit in a unit") << u"850 kg/m3"_s << 850.0 << u"kg/m3"_s;
    QTest::newRow("blanks around") << u"  7  mbar "_s << 7.0 << u"mbar"_s;
}

void TestReportSettings::aValueIsReadWithItsUnit()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QFETCH(QString, unit);
    const auto read = quantityOf(text);
    QVERIFY(read);
    QCOMPARE(read->value, value);
    QCOMPARE(read->unit, unit);
}

void TestReportSettings::whatIsNoValueOrHasTwoReadingsIsNone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("blank") << u"  "_s;
    QTest::newRow("word") << u"by others"_s;
    QTest::newRow("dash") << u"-"_s;
    QTest::newRow("thousands or decimals") << u"1,250 kg/h"_s;
    QTest::newRow("both marks") << u"1.250,5 kg/h"_s;
    QTest::newRow("two points") << u"1.250.000"_s;
    QTest::newRow("digits in groups") << u"12 500 kg/h"_s;
    QTest::newRow("two values") << u"12 mA (50 %)"_s;
    QTest::newRow("sentence") << u"85 percent of the span as agreed"_s;
    QTest::newRow("too large") << u"1e999 bar"_s;
}

void TestReportSettings::whatIsNoValueOrHasTwoReadingsIsNone()
{
    QFETCH(QString, text);
    QVERIFY(!quantityOf(text));
}

void TestReportSettings::unitsAreEqualHoweverTheyAreTyped_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("equal");
    QTest::newRow("case") << u"1 Bar(g)"_s << u"1 bar(g)"_s << true;
    QTest::newRow("brackets") << u"1 barg"_s << u"1 bar(g)"_s << true;
    QTest::newRow("blank inside") << u"1 % LEL"_s << u"1 %LEL"_s << true;
    QTest::newRow("degree") << u"1 deg C"_s << u"1 °C"_s << true;
    QTest::newRow("degree in one character") << u"1 \u2103"_s << u"1 °C"_s << true;
    QTest::newRow("ordinal for degree") << u"1 \u00baC"_s << u"1 °C"_s << true;
    QTest::newRow("left out") << u"1"_s << u"1 °C"_s << true;
    QTest::newRow("milli and mega") << u"1 mW"_s << u"1 MW"_s << false;
    QTest::newRow("gauge and absolute") << u"1 bar(g)"_s << u"1 bar(a)"_s << false;
    QTest::newRow("multiples") << u"1 mbar"_s << u"1 bar"_s << false;
}

void TestReportSettings::unitsAreEqualHoweverTheyAreTyped()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    const auto first = quantityOf(one);
    const auto second = quantityOf(other);
    QVERIFY(first && second);
    QTEST(isSameUnit(first->unit, second->unit), "equal");
}

void TestReportSettings::aRangeIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<QString>("unit");
    QTest::newRow("usual") << u"0 to 100 bar(g)"_s << 0.0 << 100.0 << u"barg"_s;
    QTest::newRow("below zero") << u"-20 to 80 °C"_s << -20.0 << 80.0 << u"°c"_s;
    QTest::newRow("both below zero") << u"-80 to -20 °C"_s << -80.0 << -20.0 << u"°c"_s;
    QTest::newRow("comma") << u"0,5 to 2,5 bar"_s << 0.5 << 2.5 << u"bar"_s;
    QTest::newRow("exponent") << u"0 to 6e+04 kg/h"_s << 0.0 << 60000.0 << u"kg/h"_s;
    QTest::newRow("hyphen") << u"0-100 %"_s << 0.0 << 100.0 << u"%"_s;
    QTest::newRow("hyphen ahead of minus") << u"-40 - -10 °C"_s << -40.0 << -10.0 << u"°c"_s;
    QTest::newRow("dash") << u"4 \u2013 20 mA"_s << 4.0 << 20.0 << u"ma"_s;
    QTest::newRow("two dots") << u"0..100 %"_s << 0.0 << 100.0 << u"%"_s;
    QTest::newRow("three dots") << u"0.5...1.5 bar"_s << 0.5 << 1.5 << u"bar"_s;
    QTest::newRow("ellipsis") << u"0\u2026100 %"_s << 0.0 << 100.0 << u"%"_s;
    QTest::newRow("no unit") << u"0 to 100"_s << 0.0 << 100.0 << u""_s;
    QTest::newRow("unit at both ends") << u"0 bar to 10 bar"_s << 0.0 << 10.0 << u"bar"_s;
    QTest::newRow("unit at the first end") << u"0 bar to 10"_s << 0.0 << 10.0 << u"bar"_s;
    QTest::newRow("to within a unit") << u"0 torr to 760 torr"_s << 0.0 << 760.0 << u"torr"_s;
    QTest::newRow("hyphen within a unit") << u"0 N-m to 5 N-m"_s << 0.0 << 5.0 << u"n-m"_s;
    QTest::newRow("falling") << u"100 to 0 %"_s << 0.0 << 100.0 << u"%"_s;
}

void TestReportSettings::aRangeIsRead()
{
    QFETCH(QString, text);
    const auto range = spanOf(text);
    QVERIFY(range);
    QTEST(range->low, "low");
    QTEST(range->high, "high");
    QTEST(range->unit, "unit");
}

void TestReportSettings::whatIsNoRangeIsNone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("one value") << u"100 %"_s;
    QTest::newRow("one end") << u"0 to"_s;
    QTest::newRow("no ends") << u"to be confirmed"_s;
    QTest::newRow("two units") << u"0 mbar to 10 bar"_s;
    QTest::newRow("second range") << u"4 to 20 mA (0 to 100 %)"_s;
    QTest::newRow("thousands or decimals") << u"0 to 1,250 kg/h"_s;
}

void TestReportSettings::whatIsNoRangeIsNone()
{
    QFETCH(QString, text);
    QVERIFY(!spanOf(text));
}

void TestReportSettings::doubtfulSettingsAreMarked_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("setPoint");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("marks");
    const QString percent = u"0 to 100 %"_s;
    const QStringList good{u"97 %"_s, u"95 %"_s, u"80 %"_s, u"20 %"_s, u"8 %"_s, u"5 %"_s};
    const auto with = [&](int place, const QString& text) {
        QStringList settings = good;
        settings[place] = text;
        return settings;
    };
    QTest::newRow("in order") << percent << u"50 %"_s << good << u""_s;
    QTest::newRow("HHH below HH") << percent << u""_s << with(0, u"94 %"_s) << u"HHH HH"_s;
    QTest::newRow("HH below H") << percent << u""_s << with(1, u"79 %"_s) << u"HH H"_s;
    QTest::newRow("H below L") << percent << u""_s << with(2, u"19 %"_s) << u"H L"_s;
    QTest::newRow("L below LL") << percent << u""_s << with(3, u"7 %"_s) << u"L LL"_s;
    QTest::newRow("LL below LLL") << percent << u""_s << with(4, u"4 %"_s) << u"LL LLL"_s;
    QTest::newRow("equal neighbours") << percent << u""_s << with(0, u"95 %"_s) << u""_s;
    QTest::newRow("above the range") << percent << u""_s << with(0, u"101 %"_s) << u"HHH"_s;
    QTest::newRow("below the range") << percent << u""_s << with(5, u"-1 %"_s) << u"LLL"_s;
    QTest::newRow("at both ends") << percent << u""_s
                                  << QStringList{u"100 %"_s, u""_s, u""_s, u""_s, u""_s, u"0 %"_s}
                                  << u""_s;
    QTest::newRow("over a gap") << percent << u""_s
                                << QStringList{u"10 %"_s, u""_s, u""_s, u"20 %"_s, u""_s, u""_s}
                                << u"HHH L"_s;
    QTest::newRow("other unit in between")
        << percent << u""_s << QStringList{u"10 %"_s, u"3 bar"_s, u"80 %"_s, u""_s, u""_s, u""_s}
        << u"HHH H"_s;
    QTest::newRow("other unit") << u"0 to 10 bar"_s << u""_s << good << u""_s;
    QTest::newRow("no unit") << percent << u""_s
                             << QStringList{u"120"_s, u"90"_s, u""_s, u""_s, u""_s, u""_s}
                             << u"HHH"_s;
    QTest::newRow("no range") << u"by others"_s << u"500 %"_s << good << u""_s;
    QTest::newRow("words") << percent << u"auto"_s << with(0, u"trip"_s) << u""_s;
    QTest::newRow("comma") << u"0 to 1,6 bar"_s << u""_s
                           << QStringList{u"1,7 bar"_s, u"1,5 bar"_s, u""_s, u""_s, u""_s, u""_s}
                           << u"HHH"_s;
    QTest::newRow("set point outside") << percent << u"120 % rising"_s << good << u"SP"_s;
    QTest::newRow("nothing") << u""_s << u""_s << QStringList(6) << u""_s;
}

void TestReportSettings::doubtfulSettingsAreMarked()
{
    QFETCH(QString, scale);
    QFETCH(QString, setPoint);
    QFETCH(QStringList, settings);
    QTEST(marksOf(tagWith(scale, setPoint, settings)), "marks");
}

void TestReportSettings::rangeAndSetPointAreTakenFromTheScaleFirst()
{
    const auto fields = std::make_shared<const Fields>(QStringList{u"ScaleRangeValue"_s,
                                                                   u"ProcessRangeValue"_s,
                                                                   u"CalibrationRangeValue"_s,
                                                                   u"ScaleSetPointValue"_s,
                                                                   u"ProcessSetPointValue"_s,
                                                                   u"CalibrationSetPointValue"_s});
    const Row all(fields, {u"sr"_s, u"pr"_s, u"cr"_s, u"ss"_s, u"ps"_s, u"cs"_s});
    QCOMPARE(rangeOf(all) + setPointOf(all), u"srss"_s);
    const Row process(fields, {u" "_s, u"pr"_s, u"cr"_s, u""_s, u"ps"_s, u"cs"_s});
    QCOMPARE(rangeOf(process) + setPointOf(process), u"prps"_s);
    const Row calibration(fields, {u""_s, u""_s, u"cr"_s, u""_s, u" "_s, u"cs"_s});
    QCOMPARE(rangeOf(calibration) + setPointOf(calibration), u"crcs"_s);
}

void TestReportSettings::aBlankIsNoSetting()
{
    const QStringList blank{u""_s, u" "_s, u""_s, u""_s, u""_s, u""_s};
    QVERIFY(!hasSettings(tagWith(u"0 to 1 bar"_s, u" "_s, blank)));
    QVERIFY(hasSettings(tagWith({}, u"1"_s, blank)));
    const Row two = tagWith({}, {}, {u"9"_s, u""_s, u""_s, u""_s, u"1"_s, u""_s});
    QVERIFY(hasSettings(two));
    QCOMPARE(settingCount(two), 2);
}

QTEST_GUILESS_MAIN(TestReportSettings)
#include "tst_report_settings.moc"
