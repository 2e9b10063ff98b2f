// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Drop-down lists and cell buttons.
#include "toolkit/grid_fixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::GridFixture;
using toolkit::DataGrid;

class TestDataGridList final : public QObject
{
    Q_OBJECT

    static QListView* listOf(const GridFixture& f) { return f.grid.findChild<QListView*>(); }
    static bool isDropped(const GridFixture& f) { return listOf(f)->isVisible(); }
    static QStringList offered(const GridFixture& f)
    {
        QStringList values;
        const QAbstractItemModel* model = listOf(f)->model();
        for (int i = 0; i < model->rowCount(); ++i)
            values << model->index(i, 0).data().toString();
        return values;
    }

private Q_SLOTS:
    void theListDropsByKeysAndByItsButton()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Doc);
        f.press(Qt::Key_Down, Qt::AltModifier);
        QVERIFY(isDropped(f));
        QCOMPARE(offered(f).size(), 5);
        QCOMPARE(listOf(f)->currentIndex().data().toString(), u"D-1"_s);
        f.press(Qt::Key_Escape);
        QVERIFY(!isDropped(f));
        QVERIFY(f.isEditing());
        f.press(Qt::Key_Escape);
        QVERIFY(!f.isEditing());
        f.press(Qt::Key_F4);
        QVERIFY(isDropped(f));
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_Escape);
        f.clickButton();
        QVERIFY(isDropped(f));
        QVERIFY(!f.grid.rowPending());
    }

    void otherColumnsHaveNoList()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_F4);
        QVERIFY(!isDropped(f));
        QVERIFY(!f.isEditing());
    }

    void typingFiltersWithBeginningsFirst()
    {
        GridFixture f;
        f.show();
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.type(u"d-1"_s);
        QCOMPARE(offered(f), (QStringList{u"D-1"_s, u"D-10"_s, u"AD-10"_s}));
        f.type(u"0"_s);
        QCOMPARE(offered(f), (QStringList{u"D-10"_s, u"AD-10"_s}));
        f.press(Qt::Key_Backspace);
        QCOMPARE(offered(f).size(), 3);
    }

    void typingOverADroppedValueLooksAnotherOneUp()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.type(u"ad"_s);
        QCOMPARE(f.editor()->text(), u"ad"_s);
        QCOMPARE(offered(f), QStringList{u"AD-10"_s});
    }

    void enterPicksTheHighlightedValue()
    {
        GridFixture f;
        f.show();
        QSignalSpy picked(&f.grid, &DataGrid::dropDownPicked);
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.type(u"d-1"_s);
        f.press(Qt::Key_Down);
        f.press(Qt::Key_Return);
        QVERIFY(!isDropped(f));
        QVERIFY(!f.isEditing());
        QCOMPARE(f.row(), 2);
        QCOMPARE(f.shown(2, GridFixture::Doc), u"D-10"_s);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked.at(0).at(0).toInt(), int{GridFixture::Doc});
    }

    void aClickPicksAValue()
    {
        GridFixture f;
        f.show();
        QSignalSpy picked(&f.grid, &DataGrid::dropDownPicked);
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        QListView* view = listOf(f);
        const QPoint place = view->visualRect(view->model()->index(2, 0)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(f.shown(2, GridFixture::Doc), offered(f).at(2));
        QCOMPARE(picked.count(), 1);
        QVERIFY(!f.isEditing());
    }

    void keysReachTheEditorThroughTheList()
    {
        GridFixture f;
        f.show();
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        QWidget* popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        QTest::keyClick(popup, 'a');
        QCOMPARE(f.editor()->text(), u"a"_s);
        QCOMPARE(offered(f), QStringList{u"AD-10"_s});
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(f.shown(2, GridFixture::Doc), u"AD-10"_s);
    }

    void freeTextStaysAllowed()
    {
        GridFixture f;
        f.show();
        QSignalSpy picked(&f.grid, &DataGrid::dropDownPicked);
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.type(u"d-1x"_s);
        QVERIFY(offered(f).isEmpty());
        f.press(Qt::Key_Tab);
        QCOMPARE(f.shown(2, GridFixture::Doc), u"d-1x"_s);
        QVERIFY(!isDropped(f));
        f.goTo(3, GridFixture::Doc);
        f.type(u"own"_s);
        f.press(Qt::Key_Tab);
        QCOMPARE(f.shown(3, GridFixture::Doc), u"own"_s);
        QCOMPARE(picked.count(), 0);
    }

    void tabTakesWhatWasTypedAndNotTheHighlightedValue()
    {
        GridFixture f;
        f.show();
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.type(u"d-1"_s);
        f.press(Qt::Key_Tab);
        QVERIFY(!isDropped(f));
        QCOMPARE(f.shown(2, GridFixture::Doc), u"d-1"_s);
        QCOMPARE(f.grid.Col(), int{GridFixture::Size});
    }

    void aPickCanBeRefused()
    {
        GridFixture f;
        f.show();
        QSignalSpy picked(&f.grid, &DataGrid::dropDownPicked);
        connect(
            &f.grid, &DataGrid::beforeColumnUpdate, this, [](int, bool& cancel) { cancel = true; });
        f.goTo(0, GridFixture::Doc);
        f.press(Qt::Key_F4);
        f.press(Qt::Key_Down);
        f.press(Qt::Key_Return);
        QCOMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        QCOMPARE(picked.count(), 0);
    }

    void aListTiedAnewReplacesTheOldOne()
    {
        GridFixture f;
        toolkit::DataDropDown other;
        other.setDataControl(&f.papers);
        f.grid.Columns(GridFixture::Doc).setDropDown(&other);
        f.list.setValue(u"old"_s);
        QVERIFY(!f.grid.rowPending());
        other.setValue(u"new"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"new"_s);
    }

    void fiftyThousandValuesDropAndFilterAtOnce()
    {
        GridFixture f;
        f.file.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000)"
                   " INSERT INTO paper SELECT 'DWG-' || i, 'x' FROM n");
        f.papers.Refresh();
        f.show();
        f.goTo(2, GridFixture::Doc);
        f.press(Qt::Key_F4);
        QCOMPARE(offered(f).size(), 50005);
        f.press(Qt::Key_Escape);
        QElapsedTimer timer;
        timer.start();
        f.press(Qt::Key_F4);
        f.type(u"g-4999"_s);
        QApplication::processEvents();
        QVERIFY2(timer.elapsed() < 400, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(offered(f).size(), 11);
    }

    void theCellButtonIsPressedByMouseAndKeys()
    {
        GridFixture f;
        f.show();
        QSignalSpy clicked(&f.grid, &DataGrid::cellButtonClicked);
        f.goTo(1, GridFixture::Size);
        f.clickButton();
        f.press(Qt::Key_Return, Qt::ControlModifier);
        f.press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(clicked.count(), 3);
        QCOMPARE(clicked.at(0).at(0).toInt(), int{GridFixture::Size});
        f.goTo(1, GridFixture::Service);
        f.clickButton();
        f.press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(clicked.count(), 3);
    }

    void theFirstClickOnACellDoesNotPressItsButton()
    {
        GridFixture f;
        f.show();
        QSignalSpy clicked(&f.grid, &DataGrid::cellButtonClicked);
        f.goTo(1, GridFixture::Size);
        const QRect cell = f.grid.visualRect(f.grid.currentIndex());
        f.goTo(2, GridFixture::Tag);
        QTest::mouseClick(f.grid.viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(cell.right() - cell.height() / 2, cell.center().y()));
        QCOMPARE(clicked.count(), 0);
        QCOMPARE(f.row(), 1);
    }

    void theButtonTakesOverWhatIsBeingTyped()
    {
        GridFixture f;
        f.show();
        QString seen;
        connect(&f.grid, &DataGrid::cellButtonClicked, this, [&](int column) {
            seen = f.grid.Columns(column).Value().text();
        });
        f.goTo(1, GridFixture::Size);
        f.type(u"42"_s);
        f.press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(seen, u"42"_s);
        QVERIFY(!f.isEditing());
        QCOMPARE(f.row(), 1);
    }
};

QTEST_MAIN(TestDataGridList)
#include "tst_data_grid_list.moc"
