// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The report menu of the main window.
#include "documents/window_desk.h"
#include "viewing/frmRptViewer.h"
#include "viewing/page_flow.h"
#include "viewing/report_viewer.h"
#include "viewing/reports/pages.h"

#include <QMenu>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::IndexFixture;
using ostrand::viewing::frmRptViewer;

class TestReportMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void everyEntryShowsItsReport_data();
    void everyEntryShowsItsReport();
    void aRowThatWasWrittenIsInTheNextReport();
    void theMenuNeedsAProject();
    void whatTheWindowLetsThroughIsToldByTheEntry_data();
    void whatTheWindowLetsThroughIsToldByTheEntry();
    void theMainWindowMayGoWhileAReportIsOpen();

private:
    /// The text of the first page, as far as it holds one of these.
    static QStringList found(frmRptViewer& window, const QStringList& texts);

    std::unique_ptr<IndexFixture> m;
};

void TestReportMenu::init()
{
    m = std::make_unique<IndexFixture>();
}

QStringList TestReportMenu::found(frmRptViewer& window, const QStringList& texts)
{
    const auto& viewer = *window.findChild<viewing::ReportViewer*>(u"CRViewer1"_s);
    const viewing::reports::Pages& pages = *viewer.flow().pages();
    QStringList there;
    for (const QString& text : texts) {
        if (!pages.find(0, text).empty())
            there << text;
    }
    return there;
}

void TestReportMenu::everyEntryShowsItsReport_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("title");
    QTest::newRow("index") << u"mnuReportIndex"_s << u"Instrument Index"_s;
    QTest::newRow("alarms") << u"mnuReportAlarmSum"_s << u"Controller and Alarm Summary"_s;
    QTest::newRow("installation") << u"mnuReportInstallationDetails"_s << u"Installation Details"_s;
    QTest::newRow("maintenance") << u"mnuReportMaintenance"_s << u"Maintenance"_s;
}

void TestReportMenu::everyEntryShowsItsReport()
{
    QFETCH(const QString, entry);
    QFETCH(const QString, title);
    m->open(m->sampleProject());
    tests::inModal<frmRptViewer>([&] { m->choose(entry); },
                                 [&](frmRptViewer& window) {
                                     QCOMPARE(found(window,
                                                    {u"Instrument Index"_s,
                                                     u"Controller and Alarm Summary"_s,
                                                     u"Installation Details"_s,
                                                     u"Maintenance"_s}),
                                              QStringList{title});
                                 });
    QVERIFY(!m->window.findChild<frmRptViewer*>());
    QCOMPARE(m->texts(), QStringList());
}

void TestReportMenu::aRowThatWasWrittenIsInTheNextReport()
{
    m->open(m->emptyProject());
    const auto check = [this](const QStringList& tags) {
        tests::inModal<frmRptViewer>([this] { m->choose(u"mnuReportIndex"_s); },
                                     [&](frmRptViewer& window) {
                                         QCOMPARE(found(window, {u"PT-1"_s, u"PT-2"_s}), tags);
                                     });
    };
    check({});
    m->addTag(u"PT-1"_s);
    check({u"PT-1"_s});
    m->addTag(u"PT-2"_s);
    check({u"PT-1"_s, u"PT-2"_s});
}

void TestReportMenu::theMenuNeedsAProject()
{
    const auto isEnabled = [this] {
        return m->window.findChild<QMenu*>(u"mnuReport"_s)->menuAction()->isEnabled();
    };
    QVERIFY(!isEnabled());
    m->open(m->emptyProject());
    QVERIFY(isEnabled());
    // As a datasheet that is open does.
    m->window.AbleForm(false);
    QVERIFY(!isEnabled());
}

void TestReportMenu::whatTheWindowLetsThroughIsToldByTheEntry_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("message");
    QTest::newRow("index") << u"mnuReportIndex"_s
                           << u"Error while viewing Instrument Index Report"_s;
    QTest::newRow("alarms") << u"mnuReportAlarmSum"_s
                            << u"Error while viewing Controller and Alarm Summary Report"_s;
    QTest::newRow("installation") << u"mnuReportInstallationDetails"_s
                                  << u"Error while viewing Installation Details Report"_s;
    QTest::newRow("maintenance") << u"mnuReportMaintenance"_s
                                 << u"Error while viewing Maintenance Report"_s;
}

/// The window tells its own failures. What gets past it is that it can't even do that.
void TestReportMenu::whatTheWindowLetsThroughIsToldByTheEntry()
{
    QFETCH(const QString, entry);
    QFETCH(const QString, message);
    m->open(m->emptyProject());
    app::g_strIndexFile = m->path(u"gone.mdb"_s);
    m->prompts.whileOpen = [](const toolkit::Box& box) {
        if (box.text.startsWith(u"Error while loading"_s))
            throw store::Error(7, u"Out of memory"_s);
    };
    m->choose(entry);
    const auto boxes = m->prompts.boxes;
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 3);
    QVERIFY2(told[0].startsWith(u"Error while loading report viewer. \r\nError : 3024. "_s),
             qPrintable(told[0]));
    QCOMPARE(told[1], u"Error while loading documet reference window.\r\n7 : Out of memory"_s);
    QCOMPARE(told[2], message + u"\r\n7 : Out of memory"_s);
    QVERIFY(boxes[2].icon == toolkit::BoxIcon::Exclamation);
    QVERIFY(boxes[2].buttons == toolkit::BoxButtons::Ok);
    QCOMPARE(boxes[2].title, u"Ostrand Instrument Datasheets"_s);
    QVERIFY(!m->window.findChild<frmRptViewer*>());
}

void TestReportMenu::theMainWindowMayGoWhileAReportIsOpen()
{
    m->open(m->sampleProject());
    tests::inModal<frmRptViewer>([this] { m->choose(u"mnuReportIndex"_s); },
                                 [](frmRptViewer& window) { delete &window; });
    QVERIFY(!m->window.findChild<frmRptViewer*>());
    QCOMPARE(m->texts(), QStringList());
}

QTEST_MAIN(TestReportMenu)
#include "tst_report_menu.moc"
