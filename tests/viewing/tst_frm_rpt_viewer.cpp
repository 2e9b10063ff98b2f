// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The window of the reports: what it shows, of which project, and what it tells.
#include "app/program.h"
#include "support/other_program.h"
#include "viewing/report_desk.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QSettings>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ReportDesk;

namespace {

/// Counts the times that a widget is painted before the last page is laid out.
class EarlyPaints final : public QObject
{
public:
    explicit EarlyPaints(const viewing::PageFlow& flow)
        : m_flow(flow)
    {
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && m_flow.count() > 0 && !m_flow.complete())
            ++count;
        return false;
    }

    int count = 0;

private:
    const viewing::PageFlow& m_flow;
};

} // namespace

class TestFrmRptViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void everyReportShowsTheTagsOfTheProject_data();
    void everyReportShowsTheTagsOfTheProject();
    void anotherNumberShowsNoReportAndTellsSo_data();
    void anotherNumberShowsNoReportAndTellsSo();
    void aWindowThatIsOpenIsNotOpenedAgain();
    void eachReportReadsTheProjectAfresh();
    void aProjectInAnotherFolderShowsItsOwnRows();
    void aProjectThatCannotBeReadIsToldAndTheNextOneShows_data();
    void aProjectThatCannotBeReadIsToldAndTheNextOneShows();
    void aProjectWithoutATableIsTold();
    void aProjectThatAnotherProgramHoldsIsTold();
    void theSameFormIsReadAgainWhereNoneIsShown();
    void aSearchWithoutPagesSaysNothing();
    void anEmptyProjectHasOnePage();
    void aProjectDeletedWhileItIsShownStaysInSight();

    void theFirstPageIsThereBeforeTheLast();
    void closingInTheMiddleOfTheWorkIsSafe();
    void anotherFormIsReadAndShown();
    void aFormThatCannotBeReadLeavesTheOneBefore();
    void aReportOfOneFormOffersNoChoice();

    void theViewerFillsTheWindow();
    void theSmallestWindowHoldsAllControls_data();
    void theSmallestWindowHoldsAllControls();
    void theWindowKeepsItsSizeBetweenRuns();
    void escClosesTheWindow();
    void f1AsksForTheManual();
    void everyControlHasAnAccessibleName();
    void whatIsToldIsHeardToo();
    void theTabKeyVisitsEveryControl();

private:
    std::unique_ptr<ReportDesk> m;
};

void TestFrmRptViewer::init()
{
    m = std::make_unique<ReportDesk>();
    m->open(m->program.sampleProject());
}

void TestFrmRptViewer::everyReportShowsTheTagsOfTheProject_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("tags");
    QTest::newRow("alarms") << int(ReportDesk::alarmSummary) << u"Controller and Alarm Summary"_s
                            << u"PIC-"_s;
    QTest::newRow("index") << int(ReportDesk::instrumentIndex) << u"Instrument Index"_s
                           << u"PIC-"_s;
    QTest::newRow("maintenance") << int(ReportDesk::maintenance) << u"Maintenance"_s << u"PT-"_s;
    QTest::newRow("installation") << int(ReportDesk::installationDetails)
                                  << u"Installation Details"_s << u"PT-"_s;
}

void TestFrmRptViewer::everyReportShowsTheTagsOfTheProject()
{
    QFETCH(const int, number);
    QFETCH(const QString, title);
    QFETCH(const QString, tags);
    m->showWhole(number, [&] {
        QCOMPARE(m->window->windowTitle(), u"Report Viewer"_s);
        QVERIFY(m->window->isModal());
        QVERIFY(m->pages() > 1);
        QCOMPARE(m->page(), m->pageOf(1));
        const auto& pages = *m->viewer().flow().pages();
        QVERIFY(!pages.find(0, title).empty());
        m->find(tags);
        QVERIFY(m->search().count() > 0);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::anotherNumberShowsNoReportAndTellsSo_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("0") << 0;
    QTest::newRow("5") << 5;
    QTest::newRow("-1") << -1;
}

void TestFrmRptViewer::anotherNumberShowsNoReportAndTellsSo()
{
    QFETCH(const int, number);
    m->show(number, [this] {
        QCOMPARE(m->pages(), 0);
        QCOMPARE(m->page(), u" / 0"_s);
        for (const char* name : {"cmdPrint", "cmdSavePdf", "cmdFirst", "cmdNext", "cmdZoomIn"})
            QVERIFY2(!m->enabled(name), name);
        m->preview().grab();
    });
    const toolkit::Box box = m->program.prompts.boxes.at(0);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(m->texts(),
             QStringList{u"Error while loading report viewer. \r\nError : 91. Object variable or "
                         u"With block variable not set"_s});
}

void TestFrmRptViewer::aWindowThatIsOpenIsNotOpenedAgain()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        const int before = m->pages();
        m->window->ShowInfo(ReportDesk::maintenance);
        QCOMPARE(m->pages(), before);
    });
    const toolkit::Box box = m->program.prompts.boxes.at(0);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(m->texts(),
             QStringList{u"Error while loading documet reference window.\r\n400 : The window is "
                         u"shown already."_s});
}

void TestFrmRptViewer::eachReportReadsTheProjectAfresh()
{
    const auto hits = [this](const QString& text) {
        int count = -1;
        m->showWhole(ReportDesk::instrumentIndex, [&] {
            m->find(text);
            count = m->search().count();
        });
        return count;
    };
    QCOMPARE(hits(u"ZZ-4711"_s), 0);
    ProgramFixture::execute(m->project,
                            u"insert into [index] (PlantItemNo, ProcessUnitArea) values "
                            u"('ZZ-4711', 'AREA 1')"_s);
    ProgramFixture::execute(m->project,
                            u"insert into document (docNo, docType) values ('PID-4711', 'PID')"_s);
    QCOMPARE(hits(u"ZZ-4711"_s), 1);
    QCOMPARE(hits(u"PID-4711"_s), 0);
    ProgramFixture::execute(m->project,
                            u"insert into itemDocXRef (PlantItemNo, docNo, context) values "
                            u"('ZZ-4711', 'PID-4711', 'PID')"_s);
    QCOMPARE(hits(u"PID-4711"_s), 1);
}

void TestFrmRptViewer::aProjectInAnotherFolderShowsItsOwnRows()
{
    QVERIFY(QDir(m->program.path(u"."_s)).mkpath(u"an other/folder"_s));
    const QString other = m->program.emptyProject(u"an other/folder/plant.mdb"_s);
    ProgramFixture::execute(other,
                            u"insert into [index] (PlantItemNo, ProcessUnitArea) values "
                            u"('OT-1', 'AREA 9')"_s);
    ProgramFixture::execute(other,
                            u"insert into document (docNo, docType) values ('PID-OT', 'PID')"_s);
    ProgramFixture::execute(other,
                            u"insert into itemDocXRef (PlantItemNo, docNo, context) values "
                            u"('OT-1', 'PID-OT', 'PID')"_s);
    m->showWhole(ReportDesk::instrumentIndex, [] {});
    m->open(other);
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        m->find(u"OT-1"_s);
        QCOMPARE(m->search().count(), 1);
        m->find(u"PID-OT"_s);
        QCOMPARE(m->search().count(), 1);
        m->find(u"PIC-"_s);
        QCOMPARE(m->search().count(), 0);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::aProjectThatCannotBeReadIsToldAndTheNextOneShows_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("error");
    QTest::newRow("gone") << QByteArray() << int(store::errors::fileNotFound);
    QTest::newRow("no database") << QByteArray(5000, 'x') << int(store::errors::unrecognizedFormat);
}

void TestFrmRptViewer::aProjectThatCannotBeReadIsToldAndTheNextOneShows()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, error);
    const QString good = m->project;
    m->open(content.isEmpty() ? m->program.path(u"gone.mdb"_s)
                              : m->program.file(u"broken.mdb"_s, content));
    m->show(ReportDesk::maintenance, [this] {
        QCOMPARE(m->pages(), 0);
        QVERIFY(!m->enabled("cmdPrint"));
    });
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 1);
    QVERIFY2(
        told[0].startsWith(u"Error while loading report viewer. \r\nError : %1. "_s.arg(error)),
        qPrintable(told[0]));
    QVERIFY(!QGuiApplication::overrideCursor());
    m->open(good);
    m->showWhole(ReportDesk::maintenance, [this] { QVERIFY(m->pages() > 1); });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::aProjectThatAnotherProgramHoldsIsTold()
{
    {
        tests::OtherProgram other(m->project);
        other.run("begin exclusive");
        m->show(ReportDesk::alarmSummary, [this] { QCOMPARE(m->pages(), 0); });
    }
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while loading report viewer. \r\nError : 3260. "_s),
             qPrintable(told[0]));
    m->showWhole(ReportDesk::alarmSummary, [this] { QVERIFY(m->pages() > 1); });
}

void TestFrmRptViewer::aProjectWithoutATableIsTold()
{
    tests::OtherProgram(m->project).run("drop table itemDocXRef");
    m->show(ReportDesk::instrumentIndex, [this] { QCOMPARE(m->pages(), 0); });
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while loading report viewer. \r\nError : 3"_s),
             qPrintable(told[0]));
}

void TestFrmRptViewer::theSameFormIsReadAgainWhereNoneIsShown()
{
    const QString away = m->program.path(u"away.mdb"_s);
    QVERIFY(QFile::rename(m->project, away));
    m->show(ReportDesk::instrumentIndex, [&] {
        QCOMPARE(m->texts().size(), 1);
        QCOMPARE(m->pages(), 0);
        auto* forms = m->control<QComboBox>("cmbForm");
        Q_EMIT forms->activated(0);
        QCOMPARE(m->texts().size(), 1);
        QVERIFY(QFile::rename(away, m->project));
        Q_EMIT forms->activated(0);
        QTRY_VERIFY(m->viewer().flow().complete());
        QCOMPARE(m->page(), m->pageOf(1));
        QCOMPARE(forms->currentText(), u"A3"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::aSearchWithoutPagesSaysNothing()
{
    const QString good = m->project;
    const QString away = m->program.path(u"away.mdb"_s);
    QVERIFY(QFile::rename(good, away));
    m->show(ReportDesk::instrumentIndex, [&] {
        m->type("txtFind", u"PIC-"_s);
        m->key(Qt::Key_Return);
        m->key(Qt::Key_F3);
        QTest::qWait(20);
        QCOMPARE(m->text("lblFound"), QString());
        QVERIFY(QFile::rename(away, good));
        Q_EMIT m->control<QComboBox>("cmbForm")->activated(0);
        QTRY_VERIFY_WITH_TIMEOUT(m->search().complete(), 60000);
        QVERIFY(m->text("lblFound").startsWith(u"1 of "_s));
    });
    QCOMPARE(m->texts().size(), 1);
}

void TestFrmRptViewer::anEmptyProjectHasOnePage()
{
    m->open(m->program.emptyProject());
    for (int number = 1; number <= 4; ++number) {
        m->showWhole(number, [this] {
            QCOMPARE(m->page(), u"1 / 1"_s);
            QVERIFY(!m->enabled("cmdNext"));
            QVERIFY(!m->enabled("cmdPrevious"));
            QVERIFY(m->enabled("cmdPrint"));
        });
    }
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::aProjectDeletedWhileItIsShownStaysInSight()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        QVERIFY(QFile::remove(m->project));
        m->press("cmdLast");
        QCOMPARE(m->page(), m->pageOf(m->pages()));
    });
    QCOMPARE(m->texts(), QStringList());
}

// ---- pages that come one after the other

void TestFrmRptViewer::theFirstPageIsThereBeforeTheLast()
{
    EarlyPaints paints(m->viewer().flow());
    m->preview().viewport()->installEventFilter(&paints);
    m->showSlow([&] {
        QTRY_VERIFY(paints.count > 0);
        m->isSlow = false;
        QTRY_VERIFY_WITH_TIMEOUT(m->viewer().flow().complete(), 60000);
        QVERIFY(m->pages() > 10);
        QVERIFY(!m->page().contains(u"..."_s));
    });
}

void TestFrmRptViewer::closingInTheMiddleOfTheWorkIsSafe()
{
    m->showSlow([this] {
        QVERIFY(m->page().endsWith(u"..."_s));
        QVERIFY(m->control<QWidget>("Progress")->isVisible());
        m->type("txtFind", u"PIC"_s);
        m->window->reject();
    });
    QTest::qWait(50);
    QCOMPARE(m->pages(), 0);
    m->showSlow([this] { m->window->close(); });
    m->window.reset();
    QTest::qWait(50);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::anotherFormIsReadAndShown()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        auto* forms = m->control<QComboBox>("cmbForm");
        QVERIFY(forms->isVisible());
        QCOMPARE(forms->currentText(), u"A3"_s);
        const QSizeF a3 = m->viewer().flow().pages()->size();
        ProgramFixture::execute(m->project,
                                u"insert into [index] (PlantItemNo, ProcessUnitArea) values "
                                u"('ZZ-4711', 'AREA 1')"_s);
        m->press("cmdNext");
        forms->setFocus();
        m->key(Qt::Key_Down);
        QCOMPARE(forms->currentText(), u"A4"_s);
        QTRY_VERIFY(m->viewer().flow().complete());
        QVERIFY(m->viewer().flow().pages()->size().width() < a3.width());
        QCOMPARE(m->page(), m->pageOf(1));
        m->find(u"ZZ-4711"_s);
        QCOMPARE(m->search().count(), 1);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewer::aFormThatCannotBeReadLeavesTheOneBefore()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        const int before = m->pages();
        auto* forms = m->control<QComboBox>("cmbForm");
        QVERIFY(QFile::remove(m->project));
        forms->setFocus();
        m->key(Qt::Key_Down);
        QCOMPARE(forms->currentText(), u"A3"_s);
        QCOMPARE(m->pages(), before);
    });
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].startsWith(u"Error while loading report viewer. \r\nError : 3024. "_s),
             qPrintable(told[0]));
}

void TestFrmRptViewer::aReportOfOneFormOffersNoChoice()
{
    m->showWhole(ReportDesk::alarmSummary,
                 [this] { QVERIFY(!m->control<QComboBox>("cmbForm")->isVisible()); });
}

// ---- the window

void TestFrmRptViewer::theViewerFillsTheWindow()
{
    m->show(ReportDesk::alarmSummary, [this] {
        for (const QSize size : {QSize(1000, 700), QSize(1200, 500)}) {
            m->window->resize(size);
            QCOMPARE(m->viewer().geometry(), QRect(QPoint(0, 0), m->window->size()));
        }
    });
}

void TestFrmRptViewer::theSmallestWindowHoldsAllControls_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("without forms") << int(ReportDesk::alarmSummary);
    QTest::newRow("short forms") << int(ReportDesk::instrumentIndex);
    QTest::newRow("long forms") << int(ReportDesk::maintenance);
}

void TestFrmRptViewer::theSmallestWindowHoldsAllControls()
{
    QFETCH(const int, number);
    m->showWhole(number, [this] {
        m->find(u"PIC-"_s);
        QCoreApplication::processEvents();
        m->window->resize(1, 1);
        QCoreApplication::processEvents();
        for (const char* bar : {"ToolBar", "SearchBar"}) {
            auto* owner = m->control<QWidget>(bar);
            for (const QWidget* child : owner->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                if (!child->isVisible())
                    continue;
                const QRect& place = child->geometry();
                const auto* name = qPrintable(child->objectName());
                QVERIFY2(owner->rect().contains(place), name);
                QVERIFY2(place.width() >= child->minimumSizeHint().width(), name);
                QVERIFY2(!qobject_cast<const QComboBox*>(child)
                             || place.width() >= child->sizeHint().width(),
                         name);
                for (const QWidget* other :
                     owner->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                    QVERIFY2(other == child || !other->isVisible()
                                 || !other->geometry().intersects(place),
                             name);
            }
        }
    });
}

void TestFrmRptViewer::theWindowKeepsItsSizeBetweenRuns()
{
    m->show(ReportDesk::alarmSummary, [this] { m->window->resize(940, 610); });
    m->window = std::make_unique<viewing::frmRptViewer>();
    QCOMPARE(m->window->size(), QSize(940, 610));
}

void TestFrmRptViewer::escClosesTheWindow()
{
    m->showWhole(ReportDesk::alarmSummary, [this] {
        QCOMPARE(m->window->focusWidget(), &m->preview());
        m->find(u"PIC-"_s);
        m->key(Qt::Key_Escape);
        QVERIFY(m->window->isVisible());
        QVERIFY(m->control<QLineEdit>("txtFind")->text().isEmpty());
        QCOMPARE(m->text("lblFound"), QString());
        m->key(Qt::Key_Escape);
        QVERIFY(!m->window->isVisible());
    });
}

void TestFrmRptViewer::f1AsksForTheManual()
{
    app::setInstallationFolder(m->program.path(u"nowhere"_s));
    m->show(ReportDesk::alarmSummary, [this] { m->key(Qt::Key_F1); });
    const QStringList told = m->texts();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told[0].contains(u"help"_s, Qt::CaseInsensitive), qPrintable(told[0]));
}

void TestFrmRptViewer::everyControlHasAnAccessibleName()
{
    m->show(ReportDesk::instrumentIndex, [this] {
        int seen = 0;
        for (const QWidget* child : m->window->findChildren<QWidget*>()) {
            if (!child->isVisible() || child->focusPolicy() == Qt::NoFocus
                || child->objectName().startsWith(u"qt_"_s)
                || qobject_cast<QComboBox*>(child->parentWidget()))
                continue;
            ++seen;
            QVERIFY2(!child->accessibleName().isEmpty(), qPrintable(child->objectName()));
        }
        QVERIFY(seen >= 14);
    });
}

void TestFrmRptViewer::whatIsToldIsHeardToo()
{
    const auto heard = [this](const char* label) {
        return QAccessible::queryAccessibleInterface(m->control<QLabel>(label))
            ->text(QAccessible::Name);
    };
    m->showWhole(ReportDesk::alarmSummary, [&] {
        QCOMPARE(heard("lblPages"), u"Number of pages: %1"_s.arg(m->pages()));
        QCOMPARE(heard("lblFound"), u"Result of the search"_s);
        QCOMPARE(heard("lblStatus"), u"Status"_s);
        m->find(u"no such text"_s);
        QCOMPARE(heard("lblFound"), u"Result of the search: Not found"_s);
        const QString pdf = m->program.path(u"out.pdf"_s);
        m->program.prompts.files = {pdf};
        m->press("cmdSavePdf");
        QCOMPARE(heard("lblStatus"), u"Status: Saved as "_s + QDir::toNativeSeparators(pdf));
    });
    m->showSlow([&] {
        QCOMPARE(heard("lblPages"), u"Number of pages so far: %1"_s.arg(m->pages()));
        QCOMPARE(heard("lblStatus"), u"Status"_s);
    });
}

void TestFrmRptViewer::theTabKeyVisitsEveryControl()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        m->press("cmdNext");
        QStringList visited;
        m->preview().setFocus();
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            visited << QApplication::focusWidget()->objectName();
        } while (QApplication::focusWidget() != &m->preview() && visited.size() < 40);
        QCOMPARE(visited,
                 (QStringList{u"txtFind"_s,
                              u"cmdFindPrevious"_s,
                              u"cmdFindNext"_s,
                              u"cmdPrint"_s,
                              u"cmdSavePdf"_s,
                              u"cmdFirst"_s,
                              u"cmdPrevious"_s,
                              u"txtPage"_s,
                              u"cmdNext"_s,
                              u"cmdLast"_s,
                              u"cmdZoomOut"_s,
                              u"cmbZoom"_s,
                              u"cmdZoomIn"_s,
                              u"cmbForm"_s,
                              u"Pages"_s}));
    });
}

QTEST_MAIN(TestFrmRptViewer)
#include "tst_frm_rpt_viewer.moc"
