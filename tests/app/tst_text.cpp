// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modText.h"
#include "support/scripted_prompts.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::app::SeparateFileDir;
using namespace ostrand;

class TestText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPathIsSplitAtItsLastSeparator_data();
    void aPathIsSplitAtItsLastSeparator();
    void aPathWithNothingOnOneSideIsNoPath_data();
    void aPathWithNothingOnOneSideIsNoPath();
    void aPathWithoutSeparatorIsTold_data();
    void aPathWithoutSeparatorIsTold();
};

void TestText::aPathIsSplitAtItsLastSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");

    QTest::newRow("backslashes") << uR"(C:\a\b.mdb)"_s << uR"(C:\a)"_s << u"b.mdb"_s;
    QTest::newRow("slashes") << u"C:/a/b.mdb"_s << u"C:/a"_s << u"b.mdb"_s;
    QTest::newRow("a slash last") << uR"(C:\a/b.mdb)"_s << uR"(C:\a)"_s << u"b.mdb"_s;
    QTest::newRow("a backslash last") << uR"(/home/a\b.mdb)"_s << u"/home/a"_s << u"b.mdb"_s;
    QTest::newRow("in a drive's root") << uR"(C:\b.mdb)"_s << u"C:"_s << u"b.mdb"_s;
    QTest::newRow("two separators ahead") << u"//b.mdb"_s << u"/"_s << u"b.mdb"_s;
    QTest::newRow("two separators between") << u"a//b"_s << u"a/"_s << u"b"_s;
    QTest::newRow("shortest") << u"a/b"_s << u"a"_s << u"b"_s;
    QTest::newRow("blanks and points") << u"/my files/v1.2/b"_s << u"/my files/v1.2"_s << u"b"_s;
    QTest::newRow("other letters") << u"/Größe/Ω.mdb"_s << u"/Größe"_s << u"Ω.mdb"_s;
}

void TestText::aPathIsSplitAtItsLastSeparator()
{
    QFETCH(const QString, path);
    tests::ScriptedPrompts& prompts = tests::installScriptedPrompts();
    QString folder;
    QString name;
    QVERIFY(SeparateFileDir(path, folder, name));
    QTEST(folder, "folder");
    QTEST(name, "name");
    QCOMPARE(prompts.takeTexts(), QStringList());
}

void TestText::aPathWithNothingOnOneSideIsNoPath_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("ends in a slash") << u"C:/a/"_s;
    QTest::newRow("ends in a backslash") << uR"(C:\a\)"_s;
    QTest::newRow("only a slash, first") << u"/b.mdb"_s;
    QTest::newRow("only a backslash, first") << uR"(\b.mdb)"_s;
    QTest::newRow("a slash alone") << u"/"_s;
    QTest::newRow("a drive's root") << uR"(C:\)"_s;
}

void TestText::aPathWithNothingOnOneSideIsNoPath()
{
    QFETCH(const QString, path);
    tests::ScriptedPrompts& prompts = tests::installScriptedPrompts();
    QString folder = u"kept?"_s;
    QString name = u"kept?"_s;
    QVERIFY(!SeparateFileDir(path, folder, name));
    QCOMPARE(folder, QString());
    QCOMPARE(name, QString());
    QCOMPARE(prompts.takeTexts(), QStringList());
}

void TestText::aPathWithoutSeparatorIsTold_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("a bare file name") << u"b.mdb"_s;
    QTest::newRow("a drive's current folder") << u"C:b.mdb"_s;
    QTest::newRow("nothing") << QString();
}

void TestText::aPathWithoutSeparatorIsTold()
{
    QFETCH(const QString, path);
    tests::ScriptedPrompts& prompts = tests::installScriptedPrompts();
    QString folder = u"kept?"_s;
    QString name = u"kept?"_s;
    QVERIFY(!SeparateFileDir(path, folder, name));
    QCOMPARE(folder, QString());
    QCOMPARE(name, QString());
    QCOMPARE(prompts.boxes.size(), std::size_t{1});
    QVERIFY(prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    const QRegularExpression form(uR"(^Error in modText:SeparateFileDir\(\)\. \d+ : .+$)"_s);
    QVERIFY2(form.match(prompts.boxes[0].text).hasMatch(), qPrintable(prompts.boxes[0].text));
    QVERIFY(prompts.boxes[0].text.startsWith(u"Error in modText:SeparateFileDir(). "_s));
}

QTEST_GUILESS_MAIN(TestText)
#include "tst_text.moc"
