// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/exec_line.h"

#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::viewing::execWords;

class TestExecLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLineGivesItsWords_data();
    void aLineGivesItsWords();
    void aLineThatIsNotWellFormedGivesNothing_data();
    void aLineThatIsNotWellFormedGivesNothing();
    void aFileNameIsOneArgumentWhateverItHolds_data();
    void aFileNameIsOneArgumentWhateverItHolds();
    void anAddressHasItsSpecialLettersEncoded();
    void anIconIsLeftOutWhereThereIsNone();
};

namespace {

const ostrand::viewing::ExecFields& usual()
{
    static const ostrand::viewing::ExecFields fields{.file = u"/d/a b.pdf"_s,
                                                     .name = u"The Viewer"_s,
                                                     .icon = u"viewer"_s,
                                                     .entry = u"/apps/v.desktop"_s};
    return fields;
}

} // namespace

void TestExecLine::aLineGivesItsWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* name, const QString& line, const QStringList& words) {
        QTest::newRow(name) << line << words;
    };
    const QString file = u"/d/a b.pdf"_s;
    row("file", u"view %f"_s, {u"view"_s, file});
    row("files", u"view %F --new"_s, {u"view"_s, file, u"--new"_s});
    row("address", u"view %u"_s, {u"view"_s, u"file:///d/a%20b.pdf"_s});
    row("addresses", u"view %U"_s, {u"view"_s, u"file:///d/a%20b.pdf"_s});
    row("no place for the file", u"view --new"_s, {u"view"_s, u"--new"_s, file});
    row("inside a word", u"view --file=%f"_s, {u"view"_s, u"--file=/d/a b.pdf"_s});
    row("inside quotes", u"view \"%f\""_s, {u"view"_s, file});
    row("twice", u"view %f %f"_s, {u"view"_s, file, file});
    row("icon", u"view %i %f"_s, {u"view"_s, u"--icon"_s, u"viewer"_s, file});
    row("name", u"view --caption %c %f"_s, {u"view"_s, u"--caption"_s, u"The Viewer"_s, file});
    row("entry", u"view %k %f"_s, {u"view"_s, u"/apps/v.desktop"_s, file});
    row("percent", u"view 100%% %f"_s, {u"view"_s, u"100%"_s, file});
    row("codes of old", u"view %d %D %n %N %v %m %f"_s, {u"view"_s, file});
    row("icon inside a word", u"view -i=%i %f"_s, {u"view"_s, u"-i="_s, file});
    row("blanks", u"  view \t  %f  "_s, {u"view"_s, file});
    row("quoted program", u"\"/opt/my viewer/v\" %f"_s, {u"/opt/my viewer/v"_s, file});
    row("escapes in quotes",
        uR"(view "\"a\" \$b \`c\` \\d \e" %f)"_s,
        {u"view"_s, uR"("a" $b `c` \d \e)"_s, file});
    row("escape outside quotes",
        uR"(view a\ b C:\\x %f)"_s,
        {u"view"_s, u"a b"_s, uR"(C:\x)"_s, file});
    row("single quotes", uR"(view 'a "b" \ $c' %f)"_s, {u"view"_s, uR"(a "b" \ $c)"_s, file});
    row("quotes within a word",
        u"env PREFIX=\"/h/my wine\" view %f"_s,
        {u"env"_s, u"PREFIX=/h/my wine"_s, u"view"_s, file});
    row("empty argument", u"view \"\" %f"_s, {u"view"_s, QString(u""_s), file});
    row("shell signs mean nothing",
        u"view $(x) ; | > `y` * %f"_s,
        {u"view"_s, u"$(x)"_s, u";"_s, u"|"_s, u">"_s, u"`y`"_s, u"*"_s, file});
}

void TestExecLine::aLineGivesItsWords()
{
    QFETCH(const QString, line);
    QFETCH(const QStringList, words);
    const auto found = execWords(line, usual());
    QVERIFY(found);
    QCOMPARE(*found, words);
}

void TestExecLine::aLineThatIsNotWellFormedGivesNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << u"   "_s;
    QTest::newRow("no program") << u"\"\" %f"_s;
    QTest::newRow("open quote") << u"view \"%f"_s;
    QTest::newRow("open single quote") << u"view 'x %f"_s;
    QTest::newRow("backslash at the end") << u"view %f \\"_s;
    QTest::newRow("unknown code") << u"view %x"_s;
    QTest::newRow("percent at the end") << u"view %f %"_s;
}

void TestExecLine::aLineThatIsNotWellFormedGivesNothing()
{
    QFETCH(const QString, line);
    QVERIFY(!execWords(line, usual()));
}

void TestExecLine::aFileNameIsOneArgumentWhateverItHolds_data()
{
    QTest::addColumn<QString>("file");
    for (const char16_t* name : {u"/d/it's.pdf",
                                 u"/d/a \"b\".pdf",
                                 u"/d/a;b|c&d.pdf",
                                 u"/d/$(reboot) `x` $HOME.pdf",
                                 u"/d/two\nlines.pdf",
                                 u"/d/-rf.pdf",
                                 u"/d/%f %u %%.pdf",
                                 u"/d/back\\slash.pdf",
                                 u"/d/größe ⌀ 试.pdf"})
        QTest::newRow(qPrintable(QString::fromUtf16(name).simplified()))
            << QString::fromUtf16(name);
}

void TestExecLine::aFileNameIsOneArgumentWhateverItHolds()
{
    QFETCH(const QString, file);
    QCOMPARE(execWords(u"view --file=%f -- %f"_s, {.file = file}).value(),
             (QStringList{u"view"_s, u"--file="_s + file, u"--"_s, file}));
}

void TestExecLine::anAddressHasItsSpecialLettersEncoded()
{
    QCOMPARE(execWords(u"view %u"_s, {.file = u"/d/a #1?%ü.pdf"_s}).value(),
             (QStringList{u"view"_s, u"file:///d/a%20%231%3F%25%C3%BC.pdf"_s}));
}

void TestExecLine::anIconIsLeftOutWhereThereIsNone()
{
    QCOMPARE(execWords(u"view %i %f"_s, {.file = u"/d/a.pdf"_s}).value(),
             (QStringList{u"view"_s, u"/d/a.pdf"_s}));
}

QTEST_GUILESS_MAIN(TestExecLine)
#include "tst_exec_line.moc"
