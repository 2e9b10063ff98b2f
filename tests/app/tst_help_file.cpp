// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_file.h"
#include "made_help.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::app::HelpFile;
using ostrand::tests::HelpSources;

class TestHelpFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyObjectComesAsItWentIn();
    void objectsOfTheBuiltManualComeAsTheyWentIn();
    void namesCountWithoutCaseAndLeadingSlash();
    void whatIsNotThereIsNotRead();
    void whatIsNoHelpFileIsNotOpened_data();
    void whatIsNoHelpFileIsNotOpened();
    void aFileThatIsCutOffIsNotOpened_data();
    void aFileThatIsCutOffIsNotOpened();
    void aFileWithOneDamagedByteIsNotOpened();
    void aFileThatIsReplacedStaysAsItWasRead();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const;
    QString writeWithDigest(const QString& name, const QByteArray& bytes) const;
    QByteArray made() const;

    QTemporaryDir m_folder;
    HelpSources m_sources;
};

QString TestHelpFile::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(name));
    return path(name);
}

QString TestHelpFile::writeWithDigest(const QString& name, const QByteArray& bytes) const
{
    const QString file = write(name, bytes);
    ostrand::tests::writeDigest(file);
    return file;
}

QByteArray TestHelpFile::made() const
{
    QFile file(path(u"made.chm"_s));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Pages of all lengths, texts that pack well and bytes that do not, over several fresh starts of
/// the packing.
void TestHelpFile::initTestCase()
{
    QRandomGenerator random(7);
    for (const int words : {0, 1, 300, 5000, 9000, 12000}) {
        QByteArray text;
        for (int i = 0; i < words; ++i)
            text += "instrument " + QByteArray::number(random.bounded(500)) + ' ';
        m_sources.insert(u"page%1.htm"_s.arg(words), text);
    }
    QByteArray noise(70001, Qt::Uninitialized);
    for (char& byte : noise)
        byte = static_cast<char>(random.bounded(256));
    m_sources.insert(u"pictures/noise.png"_s, noise);
    m_sources.insert(u"pictures/zeros.png"_s, QByteArray(200000, '\0'));
    m_sources.insert(u"contents.hhc"_s, ostrand::tests::contentsFile({{u"One"_s, u"page1.htm"_s}}));
    ostrand::tests::compileHelp(m_folder.path(), u"made"_s, m_sources);
}

void TestHelpFile::everyObjectComesAsItWentIn()
{
    const auto help = HelpFile::open(path(u"made.chm"_s));
    QVERIFY(help);
    for (auto it = m_sources.begin(); it != m_sources.end(); ++it) {
        const auto bytes = help->read(it.key());
        QVERIFY2(bytes, qPrintable(it.key()));
        QVERIFY2(*bytes == it.value(), qPrintable(it.key()));
    }
}

void TestHelpFile::objectsOfTheBuiltManualComeAsTheyWentIn()
{
    const auto help = HelpFile::open(QStringLiteral(OSTRAND_BIN_DIR "/OstrandDatasheets.chm"));
    QVERIFY(help);
    const QDir sources(QStringLiteral(OSTRAND_HELP_DIR "/manual"));
    const QStringList names = sources.entryList({u"*.htm"_s, u"*.css"_s, u"*.hhc"_s});
    QVERIFY(names.contains(u"ID_MANUAL.htm"_s));
    for (const QString& name : names) {
        QFile file(sources.filePath(name));
        QVERIFY(file.open(QFile::ReadOnly));
        const auto bytes = help->read(name);
        QVERIFY2(bytes, qPrintable(name));
        QVERIFY2(*bytes == file.readAll(), qPrintable(name));
    }
}

void TestHelpFile::namesCountWithoutCaseAndLeadingSlash()
{
    const auto help = HelpFile::open(path(u"made.chm"_s));
    QVERIFY(help);
    for (const QString& name : {u"page300.htm"_s, u"/page300.htm"_s, u"/PAGE300.HTM"_s}) {
        const auto bytes = help->read(name);
        QVERIFY2(bytes && *bytes == m_sources[u"page300.htm"_s], qPrintable(name));
    }
}

void TestHelpFile::whatIsNotThereIsNotRead()
{
    const auto help = HelpFile::open(path(u"made.chm"_s));
    QVERIFY(help);
    for (const QString& name :
         {u"nothing.htm"_s, u""_s, u"/"_s, u"../made.chm"_s, QString(5000, u'x')})
        QVERIFY2(!help->read(name), qPrintable(name.left(20)));
}

void TestHelpFile::whatIsNoHelpFileIsNotOpened_data()
{
    QTest::addColumn<QString>("file");
    QRandomGenerator random(3);
    QByteArray noise(5000, Qt::Uninitialized);
    for (char& byte : noise)
        byte = static_cast<char>(random.bounded(256));
    QVERIFY(QDir(m_folder.path()).mkpath(u"folder.chm"_s));
    QTest::newRow("missing") << path(u"missing.chm"_s);
    QTest::newRow("a folder") << path(u"folder.chm"_s);
    QTest::newRow("empty") << writeWithDigest(u"empty.chm"_s, {});
    QTest::newRow("noise") << writeWithDigest(u"noise.chm"_s, noise);
    QTest::newRow("only the sign") << writeWithDigest(u"short.chm"_s, "ITSF");
    QTest::newRow("a web page") << writeWithDigest(u"page.chm"_s, "<html></html>");
    QTest::newRow("no digest") << write(u"bare.chm"_s, made());
}

void TestHelpFile::whatIsNoHelpFileIsNotOpened()
{
    QFETCH(const QString, file);
    QVERIFY(!HelpFile::open(file));
}

void TestHelpFile::aFileThatIsCutOffIsNotOpened_data()
{
    QTest::addColumn<double>("part");
    for (const double part : {0.0001, 0.01, 0.1, 0.2, 0.3, 0.5, 0.7, 0.9, 0.99, 0.99999})
        QTest::addRow("%g of it", part) << part;
}

void TestHelpFile::aFileThatIsCutOffIsNotOpened()
{
    QFETCH(const double, part);
    const QByteArray whole = made();
    const auto length = static_cast<qsizetype>(static_cast<double>(whole.size()) * part);
    QVERIFY(HelpFile::open(writeWithDigest(u"cut.chm"_s, whole)));
    QVERIFY(!HelpFile::open(write(u"cut.chm"_s, whole.left(length))));
}

void TestHelpFile::aFileWithOneDamagedByteIsNotOpened()
{
    QByteArray damaged = made();
    const QString file = writeWithDigest(u"damaged.chm"_s, damaged);
    QVERIFY(HelpFile::open(file));
    damaged[damaged.size() / 2] ^= 1;
    write(u"damaged.chm"_s, damaged);
    QVERIFY(!HelpFile::open(file));
}

void TestHelpFile::aFileThatIsReplacedStaysAsItWasRead()
{
    const QString file = writeWithDigest(u"replaced.chm"_s, made());
    const auto help = HelpFile::open(file);
    QVERIFY(help);
    write(u"replaced.chm"_s, "nothing of it is left");
    const auto bytes = help->read(u"page9000.htm"_s);
    QVERIFY(bytes);
    QCOMPARE(*bytes, m_sources[u"page9000.htm"_s]);
    QVERIFY(!HelpFile::open(file));
}

QTEST_GUILESS_MAIN(TestHelpFile)
#include "tst_help_file.moc"
