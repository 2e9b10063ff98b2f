// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Which control of the report window the keys and the wheel work on.
#include "viewing/report_desk.h"

#include <QAbstractItemView>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ReportDesk;

class TestFrmRptViewerKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aChoiceFromAListGivesTheKeysToThePages_data();
    void aChoiceFromAListGivesTheKeysToThePages();
    void aTypedZoomGivesTheKeysToThePages();
    void theArrowsWalkAListAndStayInIt();
    void pageKeysInABoxMoveThePages_data();
    void pageKeysInABoxMoveThePages();
    void theWheelOverABoxWithoutFocusChangesNothing_data();
    void theWheelOverABoxWithoutFocusChangesNothing();
    void theSpaceBarTurnsOnAndWithShiftBack();
    void theSpaceBarTurnsWholePages();
    void escDropsATypedPageBeforeItCloses();
    void escDropsATypedZoomBeforeItCloses();
    void escClosesFromAFieldWithNothingTyped_data();
    void escClosesFromAFieldWithNothingTyped();

private:
    void showWhole(const std::function<void()>& steps)
    {
        m->showWhole(ReportDesk::instrumentIndex, steps);
    }
    QComboBox& box(const QString& name) { return *m->window->findChild<QComboBox*>(name); }
    QString focus() const { return m->window->focusWidget()->objectName(); }
    int place() { return m->preview().verticalScrollBar()->value(); }

    std::unique_ptr<ReportDesk> m;
};

void TestFrmRptViewerKeys::init()
{
    m = std::make_unique<ReportDesk>();
    m->open(m->program.sampleProject());
}

void TestFrmRptViewerKeys::cleanup()
{
    QCOMPARE(m->texts(), QStringList());
    m.reset();
}

void TestFrmRptViewerKeys::aChoiceFromAListGivesTheKeysToThePages_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("form") << u"cmbForm"_s << u"A4"_s;
    QTest::newRow("zoom") << u"cmbZoom"_s << u"Whole page"_s;
}

void TestFrmRptViewerKeys::aChoiceFromAListGivesTheKeysToThePages()
{
    QFETCH(const QString, name);
    QFETCH(const QString, chosen);
    showWhole([&] {
        box(name).setFocus();
        box(name).showPopup();
        QTest::keyClick(box(name).view(), Qt::Key_Down);
        QTest::keyClick(box(name).view(), Qt::Key_Return);
        QTRY_COMPARE(box(name).currentText(), chosen);
        QCOMPARE(focus(), u"Pages"_s);
        QTRY_VERIFY(m->viewer().flow().complete());
        m->key(Qt::Key_PageDown);
        QVERIFY(place() > 0);
        m->key(Qt::Key_PageUp);
        QCOMPARE(place(), 0);
        QCOMPARE(box(name).currentText(), chosen);
    });
}

void TestFrmRptViewerKeys::aTypedZoomGivesTheKeysToThePages()
{
    showWhole([this] {
        box(u"cmbZoom"_s).setFocus();
        box(u"cmbZoom"_s).lineEdit()->selectAll();
        QTest::keyClicks(&box(u"cmbZoom"_s), u"110"_s);
        m->key(Qt::Key_Return);
        QCOMPARE(m->zoom(), u"110 %"_s);
        QCOMPARE(qRound(m->preview().percent()), 110);
        QCOMPARE(focus(), u"Pages"_s);
    });
}

void TestFrmRptViewerKeys::theArrowsWalkAListAndStayInIt()
{
    showWhole([this] {
        box(u"cmbZoom"_s).setFocus();
        m->key(Qt::Key_Down);
        QCOMPARE(m->zoom(), u"Whole page"_s);
        m->key(Qt::Key_Down);
        QCOMPARE(m->zoom(), u"25 %"_s);
        QCOMPARE(focus(), u"cmbZoom"_s);
    });
}

void TestFrmRptViewerKeys::pageKeysInABoxMoveThePages_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("form") << u"cmbForm"_s;
    QTest::newRow("zoom") << u"cmbZoom"_s;
}

void TestFrmRptViewerKeys::pageKeysInABoxMoveThePages()
{
    QFETCH(const QString, name);
    showWhole([&] {
        const QString before = box(name).currentText();
        box(name).setFocus();
        m->key(Qt::Key_PageDown);
        QVERIFY(place() > 0);
        QCOMPARE(box(name).currentText(), before);
        m->key(Qt::Key_PageUp);
        QCOMPARE(place(), 0);
        QCOMPARE(box(name).currentText(), before);
    });
}

void TestFrmRptViewerKeys::theWheelOverABoxWithoutFocusChangesNothing_data()
{
    pageKeysInABoxMoveThePages_data();
}

void TestFrmRptViewerKeys::theWheelOverABoxWithoutFocusChangesNothing()
{
    QFETCH(const QString, name);
    showWhole([&] {
        QComboBox& choice = box(name);
        const auto wheel = [&choice] {
            const QPointF at = choice.rect().center();
            QWheelEvent event(at,
                              choice.mapToGlobal(at),
                              {},
                              QPoint(0, -120),
                              Qt::NoButton,
                              {},
                              Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(&choice, &event);
        };
        const QString before = choice.currentText();
        wheel();
        QCOMPARE(choice.currentText(), before);
        QCOMPARE(focus(), u"Pages"_s);
        choice.setFocus();
        wheel();
        QVERIFY(choice.currentText() != before);
    });
}

void TestFrmRptViewerKeys::theSpaceBarTurnsOnAndWithShiftBack()
{
    showWhole([this] {
        m->key(Qt::Key_Space);
        const int screenful = place();
        QVERIFY(screenful > 0);
        m->key(Qt::Key_Space);
        QCOMPARE(place(), 2 * screenful);
        m->key(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(place(), screenful);
        m->key(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(place(), 0);
    });
}

void TestFrmRptViewerKeys::theSpaceBarTurnsWholePages()
{
    showWhole([this] {
        m->preview().setZoom({viewing::Zoom::Kind::WholePage});
        m->key(Qt::Key_Space);
        m->key(Qt::Key_Space);
        QCOMPARE(m->page(), m->pageOf(3));
        m->key(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(m->page(), m->pageOf(2));
    });
}

void TestFrmRptViewerKeys::escDropsATypedPageBeforeItCloses()
{
    showWhole([this] {
        m->press("cmdNext");
        m->type("txtPage", u"4"_s);
        m->key(Qt::Key_Escape);
        QVERIFY(m->window->isVisible());
        QCOMPARE(m->page(), m->pageOf(2));
        QCOMPARE(m->preview().currentPage(), 1);
        QCOMPARE(focus(), u"Pages"_s);
        m->key(Qt::Key_Escape);
        QVERIFY(!m->window->isVisible());
    });
}

void TestFrmRptViewerKeys::escDropsATypedZoomBeforeItCloses()
{
    showWhole([this] {
        const double before = m->preview().percent();
        box(u"cmbZoom"_s).setFocus();
        box(u"cmbZoom"_s).lineEdit()->selectAll();
        QTest::keyClicks(&box(u"cmbZoom"_s), u"300"_s);
        m->key(Qt::Key_Escape);
        QVERIFY(m->window->isVisible());
        QCOMPARE(m->zoom(), u"Fit width"_s);
        QCOMPARE(m->preview().percent(), before);
        QCOMPARE(focus(), u"Pages"_s);
        m->key(Qt::Key_Escape);
        QVERIFY(!m->window->isVisible());
    });
}

void TestFrmRptViewerKeys::escClosesFromAFieldWithNothingTyped_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"txtPage", "cmbZoom", "cmbForm", "txtFind"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFrmRptViewerKeys::escClosesFromAFieldWithNothingTyped()
{
    QFETCH(const QString, name);
    showWhole([&] {
        m->window->findChild<QWidget*>(name)->setFocus();
        m->key(Qt::Key_Escape);
        QVERIFY(!m->window->isVisible());
    });
}

QTEST_MAIN(TestFrmRptViewerKeys)
#include "tst_frm_rpt_viewer_keys.moc"
