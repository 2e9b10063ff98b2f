// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "pid/pid_file.h"
#include "pid/populate_desk.h"

#include <QApplication>
#include <QFile>
#include <QListView>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::PidFile;
using tests::PopulateDesk;

class TestPopulateWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowIsModalAndTitled();
    void theSampleIsListed();
    void ctrlAAndEnterTakeAllLines();
    void shiftAndArrowsTakeARange();
    void typingFindsALine();
    void escapeAddsNothing();
    void helpAsksForTheManual();
    void thePointerIsTheUsualOneInTheWindow();
    void fieldsAreReadWhateverTheirType();

private:
    QListView& list(const pid::frmPopulate& window)
    {
        return *window.findChild<QListView*>(u"lstPopulate"_s);
    }

    std::unique_ptr<PidFile> m_pid;
    std::unique_ptr<PopulateDesk> m_desk;
};

void TestPopulateWindow::init()
{
    m_pid = std::make_unique<PidFile>();
    m_pid->fill({{u"FT"_s, u"1"_s, {}}, {u"LT"_s, u"2"_s, {}}, {u"PT"_s, u"3"_s, {}}});
    m_desk = std::make_unique<PopulateDesk>();
    m_desk->name(m_pid->path());
}

void TestPopulateWindow::cleanup()
{
    m_desk.reset();
    m_pid.reset();
}

void TestPopulateWindow::theWindowIsModalAndTitled()
{
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        QCOMPARE(window.windowTitle(), u"Select Tags"_s);
        QCOMPARE(window.objectName(), u"frmPopulate"_s);
        QVERIFY(window.isModal());
        QCOMPARE(window.parentWidget(), m_desk->window.window());
        QVERIFY(window.findChild<QPushButton*>(u"CmdOk"_s)->isDefault());
        QCOMPARE(window.findChild<QPushButton*>(u"cmdCancel"_s)->text(), u"&Cancel"_s);
        QCOMPARE(window.findChild<QPushButton*>(u"cmdHelp"_s)->text(), u"&Help"_s);
        QVERIFY(list(window).selectionModel()->selectedRows().isEmpty());
    }));
}

void TestPopulateWindow::theSampleIsListed()
{
    m_desk->open(m_desk->sampleProject());
    const QString database = m_desk->path(u"HGC_PID.mdb"_s);
    QVERIFY(QFile::copy(QStringLiteral(OSTRAND_BIN_DIR "/Samples/HGC_PID.mdb"), database));
    m_desk->name(database);
    const QStringList lines = m_desk->lines().value_or(QStringList());
    QCOMPARE(lines.size(), 375); // one of the sample's 376 has no tag
    QVERIFY(lines.contains(u"SDV-1011(1)"_s));
    QVERIFY(lines.contains(u"ti-2011"_s));
    QVERIFY(lines.contains(u"SDV-2031 "_s));
    QVERIFY(lines.contains(u"-1077"_s));
    QVERIFY(lines.contains(u"PI-"_s));
}

void TestPopulateWindow::ctrlAAndEnterTakeAllLines()
{
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        QCOMPARE(QApplication::focusWidget(), &list(window));
        QTest::keyClick(&list(window), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&list(window), Qt::Key_Return);
        QVERIFY(!window.isVisible());
    }));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"FT-1"_s, u"LT-2"_s, u"PT-3"_s}));
}

void TestPopulateWindow::shiftAndArrowsTakeARange()
{
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        QTest::keyClick(&list(window), Qt::Key_End);
        QTest::keyClick(&list(window), Qt::Key_Up, Qt::ShiftModifier);
        m_desk->confirm(window);
    }));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"LT-2"_s, u"PT-3"_s}));
}

void TestPopulateWindow::typingFindsALine()
{
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        QTest::keyClicks(&list(window), u"lt"_s);
        QCOMPARE(list(window).currentIndex().row(), 1);
    }));
}

void TestPopulateWindow::escapeAddsNothing()
{
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        list(window).selectAll();
        QTest::keyClick(&list(window), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }));
    QCOMPARE(m_desk->storedTags(), QStringList());
}

void TestPopulateWindow::helpAsksForTheManual()
{
    app::setInstallationFolder(m_desk->path(u"nowhere"_s));
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::click(window, u"cmdHelp"_s);
        QVERIFY(window.isVisible());
    }));
    QCOMPARE(
        m_desk->texts(),
        QStringList{u"Unable to launch HTML Help,\r\nor the topic you requested does not exist"_s});
}

void TestPopulateWindow::thePointerIsTheUsualOneInTheWindow()
{
    QVERIFY(m_desk->populate(
        [](const pid::frmPopulate&) { QVERIFY(!QGuiApplication::overrideCursor()); }));
}

void TestPopulateWindow::fieldsAreReadWhateverTheirType()
{
    m_pid->run(
        "DROP TABLE \"Components-Instruments\";"
        "CREATE TABLE \"Components-Instruments\" (ID_COUNT_ TEXT, FUNCTION_ TEXT, TAG_ INTEGER,"
        " SERVICE_ REAL);"
        "INSERT INTO \"Components-Instruments\" VALUES (NULL, 'PT', 1001, 2.5),"
        " ('x', '2026-01-31', 7, NULL), ('y', 'PT', 1001, -3)");
    QVERIFY(m_desk->insert({u"2026-01-31-7"_s, u"PT-1001"_s, u"PT-1001(1)"_s}));
    QCOMPARE(m_desk->storedService(u"PT-1001"_s), u"2.5"_s);
    QCOMPARE(m_desk->storedService(u"PT-1001(1)"_s), u"-3"_s);
    QCOMPARE(m_desk->storedService(u"2026-01-31-7"_s), u" "_s);
}

QTEST_MAIN(TestPopulateWindow)
#include "tst_populate_window.moc"
