// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_cfg.h"
#include "support/program_fixture.h"
#include "support/without_root.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::app::ReadProjectCfg;
using ostrand::tests::ProgramFixture;

namespace {

const QString warning = u"Please check the configuration file \r\n make sure the database type and "
                        u"schema are valid"_s;

const QByteArray validFile = "[Process Database]\n"
                             "DatabaseType=SQL Server\n"
                             "Schema=Plant_A\n";

} // namespace

class TestProjectCfg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void theSchemaOfAValidFileIsGivenWithoutAWord();
    void linesAheadOfTheSectionAndBehindTheSchemaAreSkipped();
    void headAndTypeMatchInAnyCaseAndTheSchemaKeepsItsOwn();
    void onlyTheLengthsOfTheKeysCount();
    void theFirstSectionCounts();
    void everyKindOfLineEndIsTaken_data();
    void everyKindOfLineEndIsTaken();
    void everyEncodingIsRead_data();
    void everyEncodingIsRead();
    void theSchemaIsTakenAsItStands_data();
    void theSchemaIsTakenAsItStands();

    void aPathThatNamesNoFileWarns_data();
    void aPathThatNamesNoFileWarns();
    void aFileWithoutTheSectionWarns_data();
    void aFileWithoutTheSectionWarns();
    void anotherTypeWarnsAndGivesTheSchema();
    void anEmptySchemaWarns();
    void theWarningIsAnExclamation();

    void aLineShorterThanItsKeyRaises_data();
    void aLineShorterThanItsKeyRaises();
    void aFileThatEndsInTheSectionRaises_data();
    void aFileThatEndsInTheSectionRaises();
    void aFileWithoutRightsRaises();

    void aLongLineWithoutEndIsPassedOver();
    void aHugeFileWithoutALineEndNeedsNoMemory();
    void aSchemaBeyondAllMeasureRaises();
    void aLineEndOnTheEdgeOfAReadIsOneEnd();

private:
    QString make(const QByteArray& content) { return m_fixture->file(u"Project.cfg"_s, content); }
    QString read(const QByteArray& content) { return ReadProjectCfg(make(content)); }
    /// Number and words of the failure that reading raises.
    static QString failureOf(const QString& path);
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestProjectCfg::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
}

QString TestProjectCfg::failureOf(const QString& path)
{
    try {
        return u"no failure: "_s + ReadProjectCfg(path);
    } catch (const store::Error& error) {
        return QString::number(error.number()) + u' ' + error.description();
    }
}

void TestProjectCfg::theSchemaOfAValidFileIsGivenWithoutAWord()
{
    QCOMPARE(read(validFile), u"Plant_A"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::linesAheadOfTheSectionAndBehindTheSchemaAreSkipped()
{
    QCOMPARE(read("; plant\n\n[Paths]\nDatabaseType=Oracle\n" + validFile
                  + "Schema=Other\n[Process Database]\nDatabaseType=Oracle\nSchema=Third\n"),
             u"Plant_A"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::headAndTypeMatchInAnyCaseAndTheSchemaKeepsItsOwn()
{
    QCOMPARE(read("[PROCESS DATABASE]\nDATABASETYPE=sQL sERVER\nSCHEMA=pLaNt\n"), u"pLaNt"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::onlyTheLengthsOfTheKeysCount()
{
    QCOMPARE(read("[process database]\n1234567890123SQL Server\n1234567plant\n"), u"plant"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::theFirstSectionCounts()
{
    QCOMPARE(read("[Process Database]\nDatabaseType=SQL Server\nSchema=first\n" + validFile),
             u"first"_s);
}

void TestProjectCfg::everyKindOfLineEndIsTaken_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("CR LF") << QByteArray("\r\n");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR") << QByteArray("\r");
}

void TestProjectCfg::everyKindOfLineEndIsTaken()
{
    QFETCH(QByteArray, end);
    QByteArray content = "ahead\n\n" + validFile;
    QCOMPARE(read(content.replace('\n', end)), u"Plant_A"_s);
    // The last line needs no end.
    content.chop(end.size());
    QCOMPARE(read(content), u"Plant_A"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::everyEncodingIsRead_data()
{
    QTest::addColumn<QByteArray>("content");
    const QString text = u"[Process Database]\r\nDatabaseType=SQL Server\r\nSchema=Größe€\r\n"_s;
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with a mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("ANSI") << QByteArray("[Process Database]\r\nDatabaseType=SQL Server\r\n"
                                        "Schema=Gr\xF6\xDF"
                                        "e\x80\r\n");
    QByteArray wide = "\xFF\xFE";
    QByteArray wideSwapped = "\xFE\xFF";
    for (const QChar letter : text) {
        const char high = static_cast<char>(letter.unicode() >> 8);
        const char low = static_cast<char>(letter.unicode() & 0xFF);
        wide.append(low).append(high);
        wideSwapped.append(high).append(low);
    }
    QTest::newRow("UTF-16") << wide;
    QTest::newRow("UTF-16, high byte first") << wideSwapped;
}

void TestProjectCfg::everyEncodingIsRead()
{
    QFETCH(QByteArray, content);
    QCOMPARE(read(content), u"Größe€"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::theSchemaIsTakenAsItStands_data()
{
    QTest::addColumn<QString>("schema");
    QTest::newRow("blanks") << u"  two words  "_s;
    QTest::newRow("signs") << u"a;b='c'=\"d\"{e}%n\\"_s;
    QTest::newRow("a NUL byte") << u"a"_s + QChar(0) + u"b"_s;
    QTest::newRow("a tab") << u"\ta"_s;
}

void TestProjectCfg::theSchemaIsTakenAsItStands()
{
    QFETCH(QString, schema);
    QCOMPARE(read("[process database]\nDatabaseType=SQL Server\nSchema=" + schema.toUtf8() + "\n"),
             schema);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::aPathThatNamesNoFileWarns_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing there") << u"gone.cfg"_s;
    QTest::newRow("no such folder") << u"gone/Project.cfg"_s;
    QTest::newRow("a folder") << u"folder/Project.cfg"_s;
}

void TestProjectCfg::aPathThatNamesNoFileWarns()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkpath(m_fixture->path(u"folder/Project.cfg"_s)));
    QCOMPARE(ReadProjectCfg(m_fixture->path(name)), QString());
    QCOMPARE(texts(), QStringList{warning});
    QCOMPARE(ReadProjectCfg(QString()), QString());
    QCOMPARE(texts(), QStringList{warning});
}

void TestProjectCfg::aFileWithoutTheSectionWarns_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("another section") << QByteArray("[Paths]\nDatabaseType=SQL Server\nSchema=a\n");
    QTest::newRow("a blank behind the head") << QByteArray(validFile).replace("]", "] ");
    QTest::newRow("a blank ahead of the head") << QByteArray(" " + validFile);
    QTest::newRow("NUL bytes") << QByteArray(4096, '\0');
    QTest::newRow("a NUL byte in the head")
        << QByteArray(validFile).replace("]", QByteArray("\0]", 2));
}

void TestProjectCfg::aFileWithoutTheSectionWarns()
{
    QFETCH(QByteArray, content);
    QCOMPARE(read(content), QString());
    QCOMPARE(texts(), QStringList{warning});
}

void TestProjectCfg::anotherTypeWarnsAndGivesTheSchema()
{
    QCOMPARE(read("[process database]\nDatabaseType=Oracle\nSchema=plant\n"), u"plant"_s);
    QCOMPARE(texts(), QStringList{warning});
    QCOMPARE(read("[process database]\nDatabaseType= SQL Server\nSchema=plant\n"), u"plant"_s);
    QCOMPARE(texts(), QStringList{warning});
}

void TestProjectCfg::anEmptySchemaWarns()
{
    QCOMPARE(read("[process database]\nDatabaseType=SQL Server\nSchema=\n"), QString());
    QCOMPARE(texts(), QStringList{warning});
}

void TestProjectCfg::theWarningIsAnExclamation()
{
    read("");
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QVERIFY(m_fixture->prompts.boxes[0].buttons == toolkit::BoxButtons::Ok);
    QCOMPARE(m_fixture->prompts.boxes[0].title, u"Ostrand Instrument Datasheets"_s);
}

void TestProjectCfg::aLineShorterThanItsKeyRaises_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("type") << QByteArray("[process database]\nDatabaseType\nSchema=a\n");
    QTest::newRow("empty type") << QByteArray("[process database]\n\nSchema=a\n");
    QTest::newRow("schema") << QByteArray("[process database]\nDatabaseType=SQL Server\nSchema\n");
    QTest::newRow("empty schema line")
        << QByteArray("[process database]\nDatabaseType=SQL Server\n\n");
}

void TestProjectCfg::aLineShorterThanItsKeyRaises()
{
    QFETCH(QByteArray, content);
    QCOMPARE(failureOf(make(content)), u"5 Invalid procedure call or argument"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::aFileThatEndsInTheSectionRaises_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("behind the head") << QByteArray("[process database]\n");
    QTest::newRow("behind the head, no line end") << QByteArray("[process database]");
    QTest::newRow("behind the type") << QByteArray("[process database]\nDatabaseType=SQL Server\n");
}

void TestProjectCfg::aFileThatEndsInTheSectionRaises()
{
    QFETCH(QByteArray, content);
    QCOMPARE(failureOf(make(content)), u"62 Input past end of file"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::aFileWithoutRightsRaises()
{
    const QString path = make(validFile);
    ::chmod(m_fixture->path(QString()).toUtf8().constData(), 0755);
    ::chmod(path.toUtf8().constData(), 0);
    const tests::WithoutRoot user;
    QCOMPARE(failureOf(path), u"70 Permission denied"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::aLongLineWithoutEndIsPassedOver()
{
    QCOMPARE(read(QByteArray(3'000'000, '[') + "\n" + validFile), u"Plant_A"_s);
    QCOMPARE(texts(), QStringList());
}

void TestProjectCfg::aHugeFileWithoutALineEndNeedsNoMemory()
{
    const QString path = make("[process database]");
    QFile file(path);
    // A file with a hole takes no room on the disk.
    QVERIFY(file.resize(qint64{1} << 30));
    QCOMPARE(ReadProjectCfg(path), QString());
    QCOMPARE(texts(), QStringList{warning});
}

void TestProjectCfg::aSchemaBeyondAllMeasureRaises()
{
    const QByteArray head = "[process database]\nDatabaseType=SQL Server\nSchema=";
    QCOMPARE(failureOf(make(head + QByteArray(200'000, 'x') + "\n")),
             u"5 Invalid procedure call or argument"_s);
    QCOMPARE(read(head + QByteArray(50'000, 'x') + "\n").size(), 50'000);
}

void TestProjectCfg::aLineEndOnTheEdgeOfAReadIsOneEnd()
{
    for (qsizetype length = 65'530; length < 65'540; ++length) {
        const QByteArray filler(length, ';');
        QCOMPARE(read(filler + "\r\n" + QByteArray(validFile).replace("\n", "\r\n")), u"Plant_A"_s);
    }
    QCOMPARE(texts(), QStringList());
}

QTEST_GUILESS_MAIN(TestProjectCfg)
#include "tst_project_cfg.moc"
