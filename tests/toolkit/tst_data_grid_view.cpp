// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What a grid shows, and when it reads it.
#include "toolkit/grid_fixture.h"
#include "toolkit/twips.h"

#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <set>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::GridFixture;
using toolkit::DataGrid;
using toolkit::GridColumn;

class TestDataGridView final : public QObject
{
    Q_OBJECT

    static int visibleRows(const GridFixture& f)
    {
        return f.grid.rowAt(f.grid.viewport()->height() - 1) - f.grid.rowAt(0) + 1;
    }
    static void press(QHeaderView* header, int x, int toX)
    {
        const int y = header->height() / 2;
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, QPoint(x, y));
        for (int i = 1; i <= 4 && toX != x; ++i)
            QTest::mouseMove(header->viewport(), QPoint(x + (toX - x) * i / 4, y));
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, QPoint(toX, y));
    }
    static int middleOf(const QHeaderView* header, int column)
    {
        return header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(u"ostrand-tests"_s);
        QCoreApplication::setApplicationName(u"tst_data_grid_view"_s);
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    }

    void recordsAndTheNewRowAreShownAsTexts()
    {
        GridFixture f;
        f.show();
        QCOMPARE(f.rows(), 6);
        QCOMPARE(f.shown(0, GridFixture::Tag), u"PT-00001"_s);
        QCOMPARE(f.shown(1, GridFixture::Size), u"2"_s);
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        QCOMPARE(f.shown(2, GridFixture::Doc), QString());
        QCOMPARE(f.shown(5, GridFixture::Tag), QString());
    }

    void aNullShowsEmpty()
    {
        GridFixture f;
        f.file.run("UPDATE item SET service = NULL WHERE tag = 'PT-00001'");
        f.control.Refresh();
        QCOMPARE(f.shown(0, GridFixture::Service), QString());
        QVERIFY(f.grid.Columns(GridFixture::Service).Value().isNull());
    }

    void columnsAreAddressedByNumber()
    {
        GridFixture f;
        QCOMPARE(f.grid.ColumnCount(), 4);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Name(), u"Doc"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Caption(), u"Document"_s);
        f.grid.Columns(GridFixture::Doc).setCaption(u"Drawing"_s);
        QCOMPARE(f.grid.model()->headerData(2, Qt::Horizontal).toString(), u"Drawing"_s);
        f.grid.horizontalHeader()->moveSection(2, 0);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Caption(), u"Drawing"_s);
    }

    void gridAndRecordsetFollowEachOther()
    {
        GridFixture f;
        f.show();
        QSignalSpy moved(&f.control, &toolkit::DataControl::reposition);
        f.press(Qt::Key_Down);
        QCOMPARE(f.records().AbsolutePosition(), 1);
        QCOMPARE(moved.count(), 1);
        f.records().MoveLast();
        QCOMPARE(f.row(), 4);
        f.records().SetAbsolutePosition(2);
        QCOMPARE(f.row(), 2);
    }

    void theNewRowLeavesTheCurrentRecordWhereItIs()
    {
        GridFixture f;
        f.show();
        f.goTo(4, GridFixture::Service);
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 5);
        QCOMPARE(f.records().AbsolutePosition(), 4);
        QVERIFY(f.grid.Columns(GridFixture::Tag).Value().isNull());
    }

    // ---- loading

    void eachRowIsLoadedOnceWhileItIsInDisplay()
    {
        GridFixture f(200);
        f.show();
        QTest::qWait(20);
        const std::set<qint64> distinct(f.loaded.begin(), f.loaded.end());
        QCOMPARE(distinct.size(), f.loaded.size());
        QCOMPARE(static_cast<int>(distinct.size()), visibleRows(f));
        f.grid.viewport()->update();
        f.press(Qt::Key_Down);
        QTest::qWait(20);
        QCOMPARE(f.loaded.size(), distinct.size());
    }

    void aRowThatComesBackIntoDisplayIsLoadedAnew()
    {
        GridFixture f(200);
        f.show();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        f.grid.scrollToBottom();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), QString());
        f.file.run("UPDATE tie SET doc = 'D-10' WHERE tag = 'PT-00001'");
        f.grid.scrollToTop();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-10"_s);
    }

    void refreshLoadsTheRowsAnew()
    {
        GridFixture f;
        f.show();
        QTRY_COMPARE(f.loaded.size(), size_t{5});
        f.control.Refresh();
        QTRY_COMPARE(f.loaded.size(), size_t{10});
    }

    void cellsOfRowsOutOfDisplayAreLoadedWhenAskedFor()
    {
        GridFixture f(200);
        f.file.run("INSERT INTO tie VALUES ('PT-00150', 'AD-10')");
        f.show();
        f.loaded.clear();
        const store::RowMark mark = f.records().markAt(149);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).CellValue(mark).text(), u"AD-10"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).CellValue(mark).text(), u"AD-10"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Service).CellValue(mark).text(), u"service 150"_s);
        QCOMPARE(f.loaded.size(), size_t{1});
    }

    void actionsOfAHandlerRunWhenTheRowsAreShown()
    {
        GridFixture f;
        int ran = 0;
        bool inHandler = false;
        connect(&f.grid, &DataGrid::rowLoaded, this, [&] {
            inHandler = true;
            f.grid.runAfterLoading([&] {
                QVERIFY(!inHandler);
                ++ran;
            });
            inHandler = false;
        });
        f.show();
        QTRY_COMPARE(ran, 5);
    }

    void shownRowsCountAsVisited()
    {
        GridFixture f(1000);
        f.show();
        QTest::qWait(20);
        QCOMPARE(f.records().RecordCount(), visibleRows(f));
        f.press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(f.records().RecordCount(), 1000);
    }

    void theFirstScreenDoesNotWaitForTheKeysButTheRestFollows()
    {
        GridFixture f(5000);
        const int before = f.rows();
        QVERIFY(before < 5000);
        f.window.resize(900, 320);
        f.window.show();
        bool knewAllWhenLoaded = false;
        connect(&f.grid, &DataGrid::rowLoaded, this, [&] {
            knewAllWhenLoaded = knewAllWhenLoaded || f.records().allKeysRead();
        });
        f.grid.verticalScrollBar()->setValue(10);
        QTRY_COMPARE(f.rows(), 5001);
        QVERIFY(!knewAllWhenLoaded);
        QCOMPARE(f.grid.rowAt(0), 10);
    }

    void theEndIsReachedAtOnce()
    {
        GridFixture f(5000);
        f.window.show();
        QTest::keyClick(&f.grid, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(f.row(), 4999);
        QCOMPARE(f.field("Tag").text(), u"PT-05000"_s);
    }

    void codeMayStandOnARowThatTheGridDoesNotKnowYet()
    {
        GridFixture f(5000);
        f.records().MoveLast();
        QCOMPARE(f.row(), 4999);
    }

    // ---- cells

    void longTextsShowTheirFirstLineAndTheRestAsToolTip()
    {
        GridFixture f;
        f.file.run(
            "UPDATE item SET service = 'one' || char(13,10) || 'two' WHERE tag = 'PT-00001'");
        f.show();
        f.control.Refresh();
        QCOMPARE(f.shown(0, GridFixture::Service), u"one \u2026"_s);
        const QRect cell = f.grid.visualRect(f.grid.model()->index(0, GridFixture::Service));
        QHelpEvent help(
            QEvent::ToolTip, cell.center(), f.grid.viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(f.grid.viewport(), &help);
        QVERIFY(QToolTip::text().contains(u"two"_s));
        const QRect other = f.grid.visualRect(f.grid.model()->index(1, GridFixture::Service));
        QHelpEvent helpless(
            QEvent::ToolTip, other.center(), f.grid.viewport()->mapToGlobal(other.center()));
        QApplication::sendEvent(f.grid.viewport(), &helpless);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void editingKeepsLineBreaks()
    {
        GridFixture f;
        f.file.run(
            "UPDATE item SET service = 'one' || char(13,10) || 'two' WHERE tag = 'PT-00001'");
        f.control.Refresh();
        f.show();
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_F2);
        f.type(u"!"_s);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"one\r\ntwo!"_s);
    }

    void theRowHeaderTellsTheStateOfARow()
    {
        GridFixture f;
        f.show();
        QTest::qWait(20);
        const auto marker = [&](int row) {
            const QHeaderView* header = f.grid.verticalHeader();
            return header->viewport()
                ->grab(QRect(0,
                             header->sectionViewportPosition(row),
                             header->width(),
                             header->sectionSize(row)))
                .toImage();
        };
        const QImage plain = marker(1);
        const QImage current = marker(0);
        const QImage star = marker(5);
        QVERIFY(current != plain);
        QVERIFY(star != plain && star != current);
        f.type(u"x"_s);
        const QImage pencil = marker(0);
        QVERIFY(pencil != plain && pencil != current && pencil != star);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_Escape);
        QCOMPARE(marker(0), current);
        f.press(Qt::Key_Down);
        QCOMPARE(marker(0), plain);
    }

    void everyRowIsAsHighAsALineOfText()
    {
        GridFixture f;
        const int small = f.grid.rowHeight(0);
        QVERIFY(small > f.grid.fontMetrics().height());
        const int width = f.grid.columnWidth(0);
        QFont font = f.grid.font();
        font.setPointSize(font.pointSize() * 2);
        f.grid.setFont(font);
        QVERIFY(f.grid.rowHeight(0) > f.grid.fontMetrics().height());
        QVERIFY(f.grid.rowHeight(0) > small * 3 / 2);
        QVERIFY(f.grid.columnWidth(0) > width * 3 / 2);
    }

    void designWidthsFollowTheFont()
    {
        QFont font;
        font.setPixelSize(8);
        QCOMPARE(toolkit::px(1500, font), 100);
        font.setPixelSize(40);
        QVERIFY(toolkit::px(1500, font) > 200);
        const GridFixture f;
        QCOMPARE(f.grid.columnWidth(GridFixture::Tag), toolkit::px(1500, &f.grid));
    }

    void aHugeTableCostsNoTimeAndMemoryPerRow()
    {
        GridFixture f(100000);
        f.show();
        QElapsedTimer timer;
        timer.start();
        f.press(Qt::Key_End, Qt::ControlModifier);
        f.grid.viewport()->repaint();
        QVERIFY2(timer.elapsed() < 200, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(f.row(), 99999);
    }

    // ---- headers and layout

    void aClickOnACaptionIsToldButDraggingIsNot()
    {
        GridFixture f;
        f.show();
        QSignalSpy clicked(&f.grid, &DataGrid::headerClicked);
        QHeaderView* header = f.grid.horizontalHeader();
        press(header, middleOf(header, 1), middleOf(header, 1));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).toInt(), 1);
        QCOMPARE(f.grid.Col(), 0);
        const int edge = header->sectionViewportPosition(1) - 1;
        const int width = f.grid.columnWidth(0);
        press(header, edge, edge + 40);
        QVERIFY(f.grid.columnWidth(0) > width);
        press(header, middleOf(header, 0), middleOf(header, 1) + 20);
        QCOMPARE(header->visualIndex(0), 1);
        QCOMPARE(clicked.count(), 1);
    }

    void aDoubleClickOnAnEdgeFitsTheColumn()
    {
        GridFixture f;
        f.show();
        QHeaderView* header = f.grid.horizontalHeader();
        const int wide = f.grid.columnWidth(GridFixture::Service);
        QTest::mouseDClick(header->viewport(),
                           Qt::LeftButton,
                           {},
                           QPoint(header->sectionViewportPosition(2) - 1, header->height() / 2));
        const int text = f.grid.fontMetrics().horizontalAdvance(u"service 1"_s);
        QVERIFY(f.grid.columnWidth(GridFixture::Service) < wide);
        QVERIFY(f.grid.columnWidth(GridFixture::Service) > text);
    }

    void theSortMarkStandsWhereTheWindowPutsIt()
    {
        GridFixture f;
        f.show();
        const auto caption = [&](int column) {
            const QHeaderView* header = f.grid.horizontalHeader();
            return header->viewport()
                ->grab(QRect(header->sectionViewportPosition(column),
                             0,
                             header->sectionSize(column),
                             header->height()))
                .toImage();
        };
        const QImage plain = caption(1);
        f.grid.setSortMark(1);
        QVERIFY(caption(1) != plain);
        press(f.grid.horizontalHeader(),
              middleOf(f.grid.horizontalHeader(), 0),
              middleOf(f.grid.horizontalHeader(), 0));
        QVERIFY(caption(1) != plain);
        f.grid.setSortMark(-1);
        QCOMPARE(caption(1), plain);
    }

    void widthsAndOrderAreKept()
    {
        {
            GridFixture f;
            f.grid.keepLayoutAs(u"kept"_s);
            f.grid.setColumnWidth(1, 77);
            f.grid.horizontalHeader()->moveSection(3, 0);
        }
        GridFixture f;
        f.grid.keepLayoutAs(u"kept"_s);
        QCOMPARE(f.grid.columnWidth(1), 77);
        QCOMPARE(f.grid.horizontalHeader()->logicalIndex(0), 3);
        QCOMPARE(f.grid.horizontalHeader()->logicalIndex(1), 0);
    }

    void changesOfTheLayoutAreSavedAfterAWhile()
    {
        GridFixture f;
        f.grid.keepLayoutAs(u"saved"_s);
        f.grid.setColumnWidth(1, 88);
        QTRY_COMPARE(QSettings().value(u"Grids/saved/Widths"_s).toList().value(1).toInt(), 88);
    }

    void brokenSettingsAreIgnored()
    {
        QSettings().setValue(u"Grids/broken/Widths"_s, QVariantList{1, -5, u"x"_s, 99999});
        QSettings().setValue(u"Grids/broken/Order"_s, QVariantList{0, 0, 1, 7});
        QSettings().setValue(u"Grids/short/Widths"_s, QVariantList{50});
        GridFixture f;
        const int width = f.grid.columnWidth(0);
        f.grid.keepLayoutAs(u"broken"_s);
        f.grid.keepLayoutAs(u"short"_s);
        QCOMPARE(f.grid.columnWidth(0), width);
        QCOMPARE(f.grid.horizontalHeader()->logicalIndex(1), 1);
    }

    // ---- accessibility

    void cellsCanBeReadAloud()
    {
        GridFixture f;
        f.show();
        QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&f.grid);
        QVERIFY(grid && grid->tableInterface());
        QVERIFY(!grid->text(QAccessible::Name).isEmpty());
        QAccessibleInterface* cell = grid->tableInterface()->cellAt(1, 1);
        QVERIFY(cell);
        QCOMPARE(cell->text(QAccessible::Name), u"service 2"_s);
        QVERIFY(!f.editor()->accessibleName().isEmpty());
    }

    void aDisabledGridLooksDisabled()
    {
        GridFixture f;
        f.show();
        QTest::qWait(20);
        const QImage enabled = f.grid.viewport()->grab().toImage();
        f.grid.setEnabled(false);
        QVERIFY(f.grid.viewport()->grab().toImage() != enabled);
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TestDataGridView)
#include "tst_data_grid_view.moc"
