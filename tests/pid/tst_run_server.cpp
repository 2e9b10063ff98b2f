// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Faults of a server and of its configuration.
#include "pid/run_desk.h"
#include "pid/run_source.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::RunDesk;

namespace {

const QString importButton = u"cmdImport"_s;
const QString exportButton = u"cmdExport"_s;
const QString warning = u"Please check the configuration file \r\n make sure the database type and "
                        u"schema are valid"_s;

} // namespace

class TestRunServer : public QObject
{
    Q_OBJECT

public:
    explicit TestRunServer(tests::RunSource& source)
        : m_source(source)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void configurationsOfOddContentAreWarnedAbout_data();
    void configurationsOfOddContentAreWarnedAbout();
    void linesThatAreTooShortAreTold_data();
    void linesThatAreTooShortAreTold();
    void aMissingConfigurationIsLogged();
    void aProjectThatCannotBeOpenedLeavesNoTags_data();
    void aProjectThatCannotBeOpenedLeavesNoTags();
    void aServerThatDoesNotAnswerIsTold();
    void aServerThatGoesDuringAnImportEndsIt();
    void aServerThatGoesDuringAnExportIsLogged();
    void aServerThatIsBackIsUsedAgain();

private:
    void configure(const QByteArray& content)
    {
        m_desk->setAttribute(u"DefaultP&IDDatabase"_s, m_desk->file(u"Project.cfg"_s, content));
        m_desk->open(m_desk->project);
    }
    QString service() const { return m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s); }

    tests::RunSource& m_source;
    std::unique_ptr<RunDesk> m_desk;
};

void TestRunServer::init()
{
    m_source.reset();
    m_desk = std::make_unique<RunDesk>(m_source.path());
    for (const QString& number : {u"1"_s, u"2"_s}) {
        m_source.add(u"PT"_s, number, {{u"SERVICE_"_s, u"Gas"_s}});
        m_desk->giveSheet(u"PT-"_s + number,
                          {RunDesk::toFront(m_source.table(), u"SERVICE_"_s, u"D12"_s),
                           RunDesk::toFront(m_source.table(), u"SERVICE_"_s, u"D13"_s)},
                          {{u"D12"_s, u"typed"_s}, {u"D13"_s, u"typed"_s}});
    }
    m_desk->open(m_desk->project);
}

void TestRunServer::configurationsOfOddContentAreWarnedAbout_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("warned");
    QTest::newRow("type") << QByteArray(
        "[process database]\nDatabaseType=Oracle\nSchema=postgres\n")
                          << true;
    QTest::newRow("no section") << QByteArray("DatabaseType=SQL Server\nSchema=postgres\n") << true;
    QTest::newRow("capitals") << QByteArray(
        "x\n[PROCESS DATABASE]\r\nDatabaseType=SQL SERVER\r\nSchema=postgres\r\n")
                              << false;
}

void TestRunServer::configurationsOfOddContentAreWarnedAbout()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, warned);
    configure(content);
    m_desk->run(importButton);
    QCOMPARE(m_desk->texts(),
             (warned ? QStringList{warning} : QStringList())
                 + QStringList{u"2 Datasheets updated successfully"_s});
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"Gas"_s);
}

void TestRunServer::linesThatAreTooShortAreTold_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("type") << QByteArray("[process database]\nType\nSchema=postgres\n");
    QTest::newRow("schema") << QByteArray("[process database]\nDatabaseType=SQL Server\nS\n");
    QTest::newRow("end") << QByteArray("[process database]\n");
}

void TestRunServer::linesThatAreTooShortAreTold()
{
    QFETCH(QByteArray, content);
    configure(content);
    m_desk->run(importButton);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(
        texts[0].startsWith(u"Error "_s)
            && texts[0].endsWith(u") in procedure checkPIDDatabaseFunction of Form frmIndex"_s),
        qPrintable(texts[0]));
    QCOMPARE(
        m_desk->logged(u"Import.log"_s, true),
        QStringList{u"Login info file 'data.txt' or database '"_s + m_desk->path(u"Project.cfg"_s)
                    + u"' is missing or 'data.txt' contains incorrect login information ..."_s});
}

void TestRunServer::aMissingConfigurationIsLogged()
{
    configure("x");
    QVERIFY(QFile::remove(m_desk->path(u"Project.cfg"_s)));
    m_desk->run(exportButton);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->logged(u"Export.log"_s, true),
             QStringList{u"Login info file 'data.txt' or database '"_s
                         + m_desk->path(u"Project.cfg"_s)
                         + u"' is missing or Login info is incorrect in 'data.txt'.."_s});
}

void TestRunServer::aProjectThatCannotBeOpenedLeavesNoTags_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("none");
    const QString imported = u"Datasheets not present in 'datasheets' folder."_s;
    const QString exported = u"Datasheets not present in the 'datasheets' folder."_s;
    QTest::newRow("import") << importButton << true << imported;
    QTest::newRow("import, no file") << importButton << false << imported;
    QTest::newRow("export") << exportButton << true << exported;
    QTest::newRow("export, no file") << exportButton << false << exported;
}

/// The file changes while the warning about the configuration stands.
void TestRunServer::aProjectThatCannotBeOpenedLeavesNoTags()
{
    QFETCH(QString, button);
    QFETCH(bool, isThere);
    QFETCH(QString, none);
    configure("[process database]\nDatabaseType=Oracle\nSchema=postgres\n");
    const QString other = m_desk->path(u"other.mdb"_s);
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.text == warning)
            app::g_strIndexFile =
                isThere ? m_desk->file(u"other.mdb"_s, QByteArray(5000, 'x')) : other;
    };
    m_desk->run(button);
    const QString line = u"Database '"_s + other + u"' not found"_s;
    QCOMPARE(m_desk->logged(button.mid(3) + u".log"_s, true),
             (isThere ? QStringList{line, none} : QStringList{none}));
    QCOMPARE(m_desk->texts().last(), u"No datasheet present in the 'datasheets' folder"_s);
}

void TestRunServer::aServerThatDoesNotAnswerIsTold()
{
    m_source.stop();
    m_desk->run(exportButton);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(
        texts[0].startsWith(u"Error 3151 ("_s)
            && texts[0].endsWith(u") in procedure checkPIDDatabaseFunction of Form frmIndex"_s),
        qPrintable(texts[0]));
    QVERIFY(m_desk->logged(u"Export.log"_s, true).value(0).startsWith(u"Login info file"_s));
}

void TestRunServer::aServerThatGoesDuringAnImportEndsIt()
{
    m_desk->office.whenSaved = [this](const QString&, const QString&) { m_source.stop(); };
    m_desk->run(importButton);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error while importing the database\r\n3146 : "_s),
             qPrintable(texts[0]));
    QCOMPARE(m_desk->logged(u"Import.log"_s, false), QStringList());
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"Gas"_s);
    QCOMPARE(m_desk->fileText(u"PT-2.xls"_s, u"D12"_s), u"typed"_s);
}

void TestRunServer::aServerThatGoesDuringAnExportIsLogged()
{
    int saves = 2;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        if (--saves == 0)
            m_source.stop();
    };
    m_desk->run(exportButton);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->logged(u"Export.log"_s, true),
             QStringList{u"P&ID Database name is incorrect."_s});
}

void TestRunServer::aServerThatIsBackIsUsedAgain()
{
    m_source.stop();
    m_desk->run(importButton);
    m_desk->texts();
    m_source.reset();
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Oil"_s}});
    m_desk->open(m_desk->project);
    m_desk->run(importButton);
    QCOMPARE(m_desk->texts(), QStringList{u"1 Datasheet updated successfully"_s});
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"Oil"_s);
    QCOMPARE(service(), u"Oil"_s);
}

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const auto source = tests::makeRunSource("postgres"_L1);
    TestRunServer cases(*source);
    return QTest::qExec(&cases, argc, argv);
}

#include "tst_run_server.moc"
