// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Looking at a report: paging, zoom, scrolling and search.
#include "viewing/report_desk.h"

#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ReportDesk;

class TestFrmRptViewerPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theButtonsTurnThePages();
    void theKeysTurnThePages();
    void aTypedNumberGoesToItsPage_data();
    void aTypedNumberGoesToItsPage();
    void scrollingTellsThePage();
    void theMouseDragsThePaper();
    void theLastPageWaitsForTheOthers();

    void theZoomFitsTheWidthAtFirst();
    void theZoomIsChosenFromTheList();
    void aTypedZoomHolds_data();
    void aTypedZoomHolds();
    void theZoomStepsByButtonsKeysAndWheel();
    void theZoomKeepsTheMiddleWhereItIs();
    void theWholePageTurnsByTheKeys();
    void aPageIsWhitePaperInEveryPalette();
    void aLargePageIsPaintedToo();

    void theSearchGoesToTheFirstPlaceAndCountsAll();
    void theSearchGoesOnAndRoundTheEnd();
    void theSearchBeginsAtThePageInSight();
    void theSearchFollowsTheTyping();
    void whatIsNotThereIsNotFound();
    void placesAreMarkedOnThePage();
    void aHitInSeveralLinesIsMarkedInAllOfThem();
    void theSearchIsLiveWhilePagesAreLaidOut();
    void ctrlFPutsTheFieldInHand();
    void theSearchStaysWithAnotherForm();

private:
    void showWhole(const std::function<void()>& steps)
    {
        m->showWhole(ReportDesk::instrumentIndex, steps);
    }
    QImage picture() { return m->preview().viewport()->grab().toImage(); }
    QString activate(const char* box, int entry);
    void wheel(int delta, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<ReportDesk> m;
};

void TestFrmRptViewerPages::init()
{
    m = std::make_unique<ReportDesk>();
    m->open(m->program.sampleProject());
}

void TestFrmRptViewerPages::cleanup()
{
    QCOMPARE(m->texts(), QStringList());
    m.reset();
}

QString TestFrmRptViewerPages::activate(const char* box, int entry)
{
    auto* choice = m->control<QComboBox>(box);
    choice->setCurrentIndex(entry);
    Q_EMIT choice->activated(entry);
    Q_EMIT choice->textActivated(choice->itemText(entry));
    return choice->currentText();
}

void TestFrmRptViewerPages::wheel(int delta, Qt::KeyboardModifiers modifiers)
{
    QWidget* view = m->preview().viewport();
    const QPointF place = view->rect().center();
    QWheelEvent event(place,
                      view->mapToGlobal(place),
                      {},
                      QPoint(0, delta),
                      Qt::NoButton,
                      modifiers,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view, &event);
}

// ---- paging

void TestFrmRptViewerPages::theButtonsTurnThePages()
{
    showWhole([this] {
        const int last = m->pages();
        QVERIFY(last > 3);
        QCOMPARE(m->page(), m->pageOf(1));
        QVERIFY(!m->enabled("cmdFirst") && !m->enabled("cmdPrevious"));
        m->press("cmdNext");
        m->press("cmdNext");
        QCOMPARE(m->page(), m->pageOf(3));
        m->press("cmdPrevious");
        QCOMPARE(m->page(), m->pageOf(2));
        m->press("cmdLast");
        QCOMPARE(m->page(), m->pageOf(last));
        QVERIFY(!m->enabled("cmdNext") && !m->enabled("cmdLast"));
        m->press("cmdPrevious");
        QCOMPARE(m->page(), m->pageOf(last - 1));
        m->press("cmdFirst");
        QCOMPARE(m->page(), m->pageOf(1));
        QCOMPARE(m->preview().verticalScrollBar()->value(), 0);
    });
}

void TestFrmRptViewerPages::theKeysTurnThePages()
{
    showWhole([this] {
        m->key(Qt::Key_End);
        QCOMPARE(m->page(), m->pageOf(m->pages()));
        m->key(Qt::Key_Home);
        QCOMPARE(m->page(), m->pageOf(1));
        m->key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(m->page(), m->pageOf(m->pages()));
        m->key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(m->page(), m->pageOf(1));
        m->key(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(m->page(), m->pageOf(2));
        m->key(Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(m->page(), m->pageOf(1));
        const QScrollBar& bar = *m->preview().verticalScrollBar();
        m->key(Qt::Key_PageDown);
        const int screenful = bar.value();
        QVERIFY(screenful > m->preview().viewport()->height() / 2);
        m->key(Qt::Key_Down);
        QVERIFY(bar.value() > screenful);
        m->key(Qt::Key_Up);
        m->key(Qt::Key_PageUp);
        QCOMPARE(bar.value(), 0);
        m->control<QLineEdit>("txtFind")->setFocus();
        m->key(Qt::Key_PageDown);
        QCOMPARE(bar.value(), screenful);
    });
}

void TestFrmRptViewerPages::aTypedNumberGoesToItsPage_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("page");
    QTest::newRow("3") << u"3"_s << 3;
    QTest::newRow("with a blank") << u" 4"_s << 4;
    QTest::newRow("beyond the end") << u"9999"_s << 0;
    QTest::newRow("0") << u"0"_s << 1;
    QTest::newRow("below") << u"-7"_s << 1;
    QTest::newRow("no number") << u"two"_s << 2;
    QTest::newRow("nothing") << u" "_s << 2;
    QTest::newRow("too long for a number") << u"99999999999999"_s << 2;
}

void TestFrmRptViewerPages::aTypedNumberGoesToItsPage()
{
    QFETCH(const QString, typed);
    QFETCH(const int, page);
    showWhole([&] {
        m->press("cmdNext");
        m->type("txtPage", typed);
        m->key(Qt::Key_Return);
        QCOMPARE(m->page(), m->pageOf(page ? page : m->pages()));
        QVERIFY(m->window->isVisible());
    });
}

void TestFrmRptViewerPages::scrollingTellsThePage()
{
    showWhole([this] {
        QScrollBar& bar = *m->preview().verticalScrollBar();
        bar.setValue(bar.maximum());
        QCOMPARE(m->page(), m->pageOf(m->pages()));
        bar.setValue(bar.maximum() / 2);
        const int middle = m->preview().currentPage();
        QVERIFY(middle > 0 && middle < m->pages() - 1);
        wheel(120, {});
        QVERIFY(bar.value() < bar.maximum() / 2);
        // What scrolls in without being painted anew is what a fresh picture shows.
        QImage scrolled = picture();
        m->preview().viewport()->repaint();
        QCOMPARE(picture(), scrolled);
    });
}

void TestFrmRptViewerPages::theMouseDragsThePaper()
{
    showWhole([this] {
        QWidget* view = m->preview().viewport();
        QTest::mousePress(view, Qt::LeftButton, {}, QPoint(200, 300));
        QTest::mouseMove(view, QPoint(200, 210));
        QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(200, 210));
        QCOMPARE(m->preview().verticalScrollBar()->value(), 90);
        QTest::mouseMove(view, QPoint(200, 100));
        QCOMPARE(m->preview().verticalScrollBar()->value(), 90);
    });
}

void TestFrmRptViewerPages::theLastPageWaitsForTheOthers()
{
    m->showSlow([this] {
        m->press("cmdLast");
        QVERIFY(m->viewer().flow().complete());
        QCOMPARE(m->page(), m->pageOf(m->pages()));
    });
}

// ---- zoom

void TestFrmRptViewerPages::theZoomFitsTheWidthAtFirst()
{
    showWhole([this] {
        QCOMPARE(m->zoom(), u"Fit width"_s);
        for (const int width : {900, 1100}) {
            m->window->resize(width, 700);
            const QSizeF paper = m->viewer().flow().pages()->size();
            const QRectF sheet = m->preview().inView(0, QRectF(QPointF(), paper));
            const int view = m->preview().viewport()->width();
            QVERIFY(sheet.left() > 0 && sheet.right() < view);
            QVERIFY(sheet.width() > view * 0.95);
            QCOMPARE(m->preview().horizontalScrollBar()->maximum(), 0);
        }
    });
}

void TestFrmRptViewerPages::theZoomIsChosenFromTheList()
{
    showWhole([this] {
        QCOMPARE(activate("cmbZoom", 1), u"Whole page"_s);
        const QSizeF paper = m->viewer().flow().pages()->size();
        const QRectF sheet = m->preview().inView(0, QRectF(QPointF(), paper));
        QVERIFY(QRectF(m->preview().viewport()->rect()).contains(sheet));
        const int full = m->control<QComboBox>("cmbZoom")->findText(u"100 %"_s);
        QCOMPARE(activate("cmbZoom", full), u"100 %"_s);
        QCOMPARE(m->preview().percent(), 100.0);
        const double inch = m->preview().inView(0, QRectF(0, 0, 72, 72)).width();
        QCOMPARE(inch, double(m->preview().logicalDpiX()));
        QVERIFY(m->preview().horizontalScrollBar()->maximum() > 0);
        QCOMPARE(activate("cmbZoom", 0), u"Fit width"_s);
        QCOMPARE(m->preview().horizontalScrollBar()->maximum(), 0);
    });
}

void TestFrmRptViewerPages::aTypedZoomHolds_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("number") << u"110"_s << u"110 %"_s;
    QTest::newRow("with the sign") << u"90 %"_s << u"90 %"_s;
    QTest::newRow("too small") << u"3"_s << u"25 %"_s;
    QTest::newRow("too large") << u"4000"_s << u"400 %"_s;
    QTest::newRow("no number") << u"large"_s << u"Fit width"_s;
    QTest::newRow("no finite number") << u"inf"_s << u"Fit width"_s;
}

void TestFrmRptViewerPages::aTypedZoomHolds()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    showWhole([&] {
        QLineEdit* field = m->control<QComboBox>("cmbZoom")->lineEdit();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, typed);
        m->key(Qt::Key_Return);
        QCOMPARE(m->zoom(), shown);
        QVERIFY(m->window->isVisible());
    });
}

void TestFrmRptViewerPages::theZoomStepsByButtonsKeysAndWheel()
{
    showWhole([this] {
        m->key(Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(m->zoom(), u"100 %"_s);
        m->press("cmdZoomIn");
        QCOMPARE(m->zoom(), u"125 %"_s);
        m->key(Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(m->zoom(), u"150 %"_s);
        m->press("cmdZoomOut");
        m->key(Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(m->zoom(), u"100 %"_s);
        wheel(120, Qt::ControlModifier);
        QCOMPARE(m->zoom(), u"125 %"_s);
        wheel(-120, Qt::ControlModifier);
        QCOMPARE(m->zoom(), u"100 %"_s);
        for (int i = 0; i < 20; ++i)
            m->press("cmdZoomIn");
        QCOMPARE(m->zoom(), u"400 %"_s);
        for (int i = 0; i < 20; ++i)
            m->press("cmdZoomOut");
        QCOMPARE(m->zoom(), u"25 %"_s);
    });
}

void TestFrmRptViewerPages::theZoomKeepsTheMiddleWhereItIs()
{
    showWhole([this] {
        m->key(Qt::Key_0, Qt::ControlModifier);
        m->preview().goToPage(2);
        wheel(-600, {});
        const QPointF middle = m->preview().viewport()->rect().center();
        const QPointF corner = m->preview().inView(2, QRectF()).topLeft();
        const double scale = m->preview().inView(2, QRectF(0, 0, 1, 1)).width();
        const QPointF onPage = (middle - corner) / scale;
        m->press("cmdZoomIn");
        const QPointF now = m->preview().inView(2, QRectF(onPage, QSizeF())).topLeft();
        QVERIFY2((now - middle).manhattanLength() < 3,
                 qPrintable(u"%1, %2"_s.arg(now.x() - middle.x()).arg(now.y() - middle.y())));
    });
}

void TestFrmRptViewerPages::theWholePageTurnsByTheKeys()
{
    showWhole([this] {
        activate("cmbZoom", 1);
        m->preview().setFocus();
        m->key(Qt::Key_PageDown);
        m->key(Qt::Key_PageDown);
        QCOMPARE(m->page(), m->pageOf(3));
        const QSizeF paper = m->viewer().flow().pages()->size();
        const QRectF sheet = m->preview().inView(2, QRectF(QPointF(), paper));
        QVERIFY(QRectF(m->preview().viewport()->rect()).contains(sheet));
        m->key(Qt::Key_PageUp);
        QCOMPARE(m->page(), m->pageOf(2));
    });
}

void TestFrmRptViewerPages::aPageIsWhitePaperInEveryPalette()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x35, 0x38, 0x3c)));
    showWhole([this] {
        const QPoint margin = m->preview().inView(0, QRectF(3, 3, 1, 1)).center().toPoint();
        const QImage shown = picture();
        QCOMPARE(shown.pixelColor(margin), QColor(Qt::white));
        QVERIFY(shown.pixelColor(2, 2).lightness() < 0x38);
        int dark = 0;
        for (int x = 0; x < shown.width(); ++x)
            dark += shown.pixelColor(x, shown.height() / 2).lightness() < 128 ? 1 : 0;
        QVERIFY(dark < shown.width() / 2);
    });
    QApplication::setPalette(before);
}

void TestFrmRptViewerPages::aLargePageIsPaintedToo()
{
    showWhole([this] {
        activate("cmbZoom", m->control<QComboBox>("cmbZoom")->findText(u"400 %"_s));
        m->preview().goToPlace(
            0, m->viewer().flow().pages()->find(0, u"Instrument Index"_s).at(0).places.at(0));
        const QImage shown = picture();
        bool hasInk = false;
        for (int y = 0; y < shown.height() && !hasInk; ++y) {
            for (int x = 40; x < shown.width() - 40 && !hasInk; ++x)
                hasInk = shown.pixelColor(x, y).lightness() < 80;
        }
        QVERIFY(hasInk);
    });
}

// ---- search

void TestFrmRptViewerPages::theSearchGoesToTheFirstPlaceAndCountsAll()
{
    showWhole([this] {
        const auto& pages = *m->viewer().flow().pages();
        int expected = 0;
        for (int page = 0; page < m->pages(); ++page)
            expected += static_cast<int>(pages.find(page, u"PIC-"_s).size());
        QVERIFY(expected > 10);
        m->find(u"pic-"_s);
        QCOMPARE(m->text("lblFound"), u"1 of %1 hits"_s.arg(expected));
        QCOMPARE(m->search().on(0).size(), pages.find(0, u"PIC-"_s).size());
    });
}

void TestFrmRptViewerPages::theSearchGoesOnAndRoundTheEnd()
{
    const QString rare = u"ZZRARE"_s;
    ProgramFixture::execute(m->project,
                            u"update [index] set Remarks = 'ZZRARE ONE' where PlantItemNo in "
                            u"(select min(PlantItemNo) from [index])"_s);
    ProgramFixture::execute(m->project,
                            u"update [index] set Remarks = 'ZZRARE TWO' where PlantItemNo in "
                            u"(select max(PlantItemNo) from [index])"_s);
    showWhole([&] {
        m->find(rare);
        QCOMPARE(m->text("lblFound"), u"1 of 2 hits"_s);
        const auto inSight = [this] {
            const viewing::Hit hit = m->search().current().value();
            const QRectF place =
                m->search().on(hit.page).at(static_cast<std::size_t>(hit.index)).places.at(0);
            QCOMPARE(m->preview().currentPage(), hit.page);
            QVERIFY(QRectF(m->preview().viewport()->rect())
                        .contains(m->preview().inView(hit.page, place)));
        };
        inSight();
        const int first = m->preview().currentPage();
        m->key(Qt::Key_Return);
        QTRY_COMPARE(m->text("lblFound"), u"2 of 2 hits"_s);
        inSight();
        m->key(Qt::Key_F3);
        QTRY_COMPARE(m->text("lblFound"), u"1 of 2 hits"_s);
        QCOMPARE(m->preview().currentPage(), first);
        m->key(Qt::Key_F3, Qt::ShiftModifier);
        QTRY_COMPARE(m->text("lblFound"), u"2 of 2 hits"_s);
        m->key(Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(m->text("lblFound"), u"1 of 2 hits"_s);
        m->press("cmdFindNext");
        QTRY_COMPARE(m->text("lblFound"), u"2 of 2 hits"_s);
        m->press("cmdFindPrevious");
        QTRY_COMPARE(m->text("lblFound"), u"1 of 2 hits"_s);
        inSight();
    });
}

void TestFrmRptViewerPages::theSearchBeginsAtThePageInSight()
{
    showWhole([this] {
        m->press("cmdNext");
        m->press("cmdNext");
        const int page = m->preview().currentPage();
        m->find(u"Instrument Index"_s);
        QCOMPARE(m->preview().currentPage(), page);
        QVERIFY(m->search().number() > 1);
    });
}

void TestFrmRptViewerPages::theSearchFollowsTheTyping()
{
    showWhole([this] {
        m->type("txtFind", u"PIC"_s);
        QTRY_COMPARE(m->search().text(), u"PIC"_s);
        QTRY_VERIFY(m->search().complete());
        const int some = m->search().count();
        QTest::keyClicks(m->control<QLineEdit>("txtFind"), u"-1"_s);
        QTRY_COMPARE(m->search().text(), u"PIC-1"_s);
        QTRY_VERIFY(m->search().complete());
        QVERIFY(m->search().count() > 0 && m->search().count() < some);
    });
}

void TestFrmRptViewerPages::whatIsNotThereIsNotFound()
{
    showWhole([this] {
        m->find(u"no such text"_s);
        QCOMPARE(m->text("lblFound"), u"Not found"_s);
        m->key(Qt::Key_F3);
        QTest::qWait(20);
        QCOMPARE(m->text("lblFound"), u"Not found"_s);
        QVERIFY(m->window->isVisible());
        m->type("txtFind", u" "_s);
        m->key(Qt::Key_Backspace);
        QTRY_COMPARE(m->text("lblFound"), QString());
    });
}

void TestFrmRptViewerPages::placesAreMarkedOnThePage()
{
    showWhole([this] {
        const QImage before = picture();
        m->find(u"Instrument Index"_s);
        const viewing::Hit hit = m->search().current().value();
        const QRectF place =
            m->preview().inView(hit.page, m->search().on(hit.page).at(0).places.at(0));
        const QPoint corner = place.topLeft().toPoint() + QPoint(1, 1);
        QVERIFY(picture().pixelColor(corner) != before.pixelColor(corner));
        QVERIFY(picture().pixelColor(corner).saturation() > 20);
        m->key(Qt::Key_Escape);
        QCOMPARE(picture().pixelColor(corner), before.pixelColor(corner));
    });
}

void TestFrmRptViewerPages::aHitInSeveralLinesIsMarkedInAllOfThem()
{
    const QString text = u"ZALPHA BRAVO CHARLIE DELTA ECHO FOXTROT"_s;
    ProgramFixture::execute(
        m->project,
        u"update [index] set Manufacturer = '"_s + text
            + u"' where PlantItemNo in (select min(PlantItemNo) from [index])"_s);
    showWhole([&] {
        m->find(text);
        QCOMPARE(m->text("lblFound"), u"1 of 1 hits"_s);
        const viewing::Hit hit = m->search().current().value();
        const auto places = m->search().on(hit.page).at(0).places;
        QVERIFY(places.size() > 1);
        const QImage marked = picture();
        m->key(Qt::Key_Escape);
        const QImage plain = picture();
        for (const QRectF& place : places) {
            const QRect shown = m->preview().inView(hit.page, place).toRect();
            QVERIFY(m->preview().viewport()->rect().contains(shown));
            QVERIFY(marked.pixelColor(shown.topLeft()) != plain.pixelColor(shown.topLeft()));
        }
    });
}

void TestFrmRptViewerPages::theSearchIsLiveWhilePagesAreLaidOut()
{
    QStringList early;
    connect(&m->search(), &viewing::ReportSearch::changed, m->window.get(), [&] {
        if (m->search().current() && !m->viewer().flow().complete())
            early << m->text("lblFound");
    });
    m->showSlow([&] {
        m->type("txtFind", u"PT-"_s);
        m->key(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(!early.isEmpty(), 60000);
        QVERIFY2(early.constFirst().endsWith(u" so far"_s), qPrintable(early.constFirst()));
        m->isSlow = false;
        QTRY_VERIFY_WITH_TIMEOUT(m->search().complete(), 60000);
        QTRY_VERIFY(m->text("lblFound").endsWith(u"hits"_s));
        QVERIFY(m->search().count() > 10);
    });
}

void TestFrmRptViewerPages::ctrlFPutsTheFieldInHand()
{
    showWhole([this] {
        m->key(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(m->window->focusWidget()->objectName(), u"txtFind"_s);
        m->preview().setFocus();
        m->key(Qt::Key_F3);
        QCOMPARE(m->window->focusWidget()->objectName(), u"txtFind"_s);
    });
}

void TestFrmRptViewerPages::theSearchStaysWithAnotherForm()
{
    showWhole([this] {
        m->find(u"PIC-"_s);
        activate("cmbForm", 1);
        QTRY_VERIFY(m->viewer().flow().complete());
        QTRY_VERIFY(m->search().complete());
        QVERIFY(m->search().count() > 10);
        QVERIFY(m->text("lblFound").contains(u" hits"_s));
    });
}

QTEST_MAIN(TestFrmRptViewerPages)
#include "tst_frm_rpt_viewer_pages.moc"
