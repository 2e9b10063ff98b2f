// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A grid whose file cannot be read or written just now: another program holds it, it was closed,
// or the unbound cells of a row could not be loaded.
#include "toolkit/grid_fixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QListView>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using store::EditMode;
using store::RowMark;
using tests::GridFixture;
using tests::ScratchDatabase;
using toolkit::DataGrid;

namespace {

/// Another program that keeps the file to itself as long as this lives.
class OtherProgram
{
public:
    explicit OtherProgram(const ScratchDatabase& file)
    {
        sqlite3_open(file.path().toUtf8().constData(), &m_handle);
        if (sqlite3_exec(m_handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("the file is in use");
    }
    ~OtherProgram() { sqlite3_close(m_handle); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    sqlite3* m_handle = nullptr;
};

/// Has the grid forget the rows that it read: a change of its own makes them stale.
void makeStale(const GridFixture& f)
{
    f.control.Database().Execute(u"update paper set title = 'x' where doc = 'D-10'"_s);
}

/// Replaces the fixture's handler by one that cannot load the rows of some keys.
void failLoading(GridFixture& f, bool& failing, qint64 key, int& told)
{
    QObject::disconnect(&f.grid, &DataGrid::rowLoaded, &f.grid, nullptr);
    QObject::connect(&f.grid, &DataGrid::rowLoaded, &f.grid, [&f, &failing, key, &told](RowMark m) {
        f.loaded.push_back(m.key);
        if (failing && m.key == key) {
            f.grid.loadingFailed(m);
            f.grid.runAfterLoading([&told] { ++told; });
            return;
        }
        f.grid.Columns(GridFixture::Doc).setCellValue(m, u"D-1"_s);
    });
    f.control.Refresh();
}

} // namespace

class TestDataGridFailures final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onePaintWaitsOnceForAFileThatAnotherProgramHolds()
    {
        GridFixture f(40);
        f.show();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        QElapsedTimer timer;
        makeStale(f);
        {
            const OtherProgram other(f.file);
            timer.start();
            f.grid.viewport()->repaint();
            f.grid.viewport()->repaint();
            QVERIFY2(timer.elapsed() < 3500, qPrintable(QString::number(timer.elapsed())));
            QCOMPARE(f.shown(0, GridFixture::Tag), QString());
            QVERIFY(f.prompts.boxes.empty());
        }
        QTRY_COMPARE(f.shown(0, GridFixture::Tag), u"PT-00001"_s);
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        // Nothing keeps the other program from the file afterwards.
        f.file.run("BEGIN EXCLUSIVE; COMMIT");
    }

    void rowsThatCameUpWhileTheFileWasHeldAreLoadedAfterwards()
    {
        GridFixture f(200);
        f.file.run("INSERT INTO tie VALUES ('PT-00200', 'AD-10')");
        f.show();
        {
            const OtherProgram other(f.file);
            f.grid.scrollToBottom();
            f.grid.viewport()->repaint();
        }
        QTRY_COMPARE(f.shown(199, GridFixture::Tag), u"PT-00200"_s);
        QTRY_COMPARE(f.shown(199, GridFixture::Doc), u"AD-10"_s);
        QVERIFY(f.prompts.boxes.empty());
    }

    void typedCellsStayInSightWhileTheFileIsHeld()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        makeStale(f);
        const OtherProgram other(f.file);
        f.grid.viewport()->repaint();
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
        QVERIFY(f.grid.rowPending());
    }

    void keysOnACellThatCannotBeReadAreToldAndChangeNothing_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("F2") << int{Qt::Key_F2};
        QTest::newRow("Delete") << int{Qt::Key_Delete};
        QTest::newRow("a letter") << int{Qt::Key_A};
    }
    void keysOnACellThatCannotBeReadAreToldAndChangeNothing()
    {
        QFETCH(const int, key);
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        makeStale(f);
        {
            const OtherProgram other(f.file);
            f.press(key);
            QCOMPARE(f.prompts.boxes.size(), size_t{1});
            QVERIFY(!f.isEditing());
            QVERIFY(!f.grid.rowPending());
        }
        f.press(Qt::Key_F2);
        QVERIFY(f.isEditing());
        QCOMPARE(f.editor()->text(), u"service 2"_s);
    }

    void aClickAwayKeepsWhatWasTypedThoughTheFileIsHeld()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.type(u"steam"_s);
        makeStale(f);
        {
            const OtherProgram other(f.file);
            f.click(1, GridFixture::Tag);
            QCOMPARE(f.grid.Columns(GridFixture::Service).Value().text(), u"steam"_s);
            f.click(3, GridFixture::Tag);
            QCOMPARE(f.row(), 1);
            // The window tells it: the validation heard of it.
            QCOMPARE(f.control.pendingError()->number(), store::errors::locked);
        }
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00002'"_s), u"steam"_s);
    }

    void anEditDoesNotStartWhileItsUnboundCellsCannotBeRead()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        {
            const OtherProgram other(f.file);
            f.type(u"s"_s);
            QCOMPARE(f.prompts.boxes.size(), size_t{1});
            QVERIFY(!f.isEditing());
            QVERIFY(!f.grid.rowPending());
            QCOMPARE(f.control.EditMode(), EditMode::None);
        }
        f.type(u"steam"_s);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"steam"_s);
    }

    void aClosedRecordsetFailsQuietlyInPaintingAndTimers()
    {
        GridFixture f;
        f.show();
        f.records().Close();
        f.grid.repaint();
        f.grid.viewport()->repaint();
        f.grid.verticalHeader()->viewport()->repaint();
        f.grid.setAllowAddNew(false);
        QCOMPARE(f.rows(), 0);
        f.press(Qt::Key_F2);
        f.press(Qt::Key_Delete);
        QTest::qWait(20);
        QVERIFY(f.prompts.boxes.empty());
        f.control.Refresh();
        QCOMPARE(f.rows(), 5);
        QCOMPARE(f.shown(0, GridFixture::Tag), u"PT-00001"_s);
    }

    void keysOnAClosedRecordsetAreTold()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.records().Close();
        f.press(Qt::Key_F2);
        f.press(Qt::Key_Down);
        f.click(3, GridFixture::Tag);
        QVERIFY(!f.prompts.boxes.empty());
        QVERIFY(!f.isEditing());
    }

    // ---- unbound cells

    void aRowThatFailedToLoadIsLoadedLaterAndItsHandlerHeardOnce()
    {
        GridFixture f;
        f.show();
        bool failing = true;
        int told = 0;
        failLoading(f, failing, f.records().markAt(0).key, told);
        QTRY_COMPARE(f.shown(1, GridFixture::Doc), u"D-1"_s);
        QCOMPARE(f.shown(0, GridFixture::Doc), QString());
        f.loaded.clear();
        QTRY_VERIFY(!f.loaded.empty());
        QTest::qWait(50);
        QCOMPARE(told, 1);
        failing = false;
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        QCOMPARE(told, 1);
    }

    void aRowThatFailedToLoadIsNotEdited()
    {
        GridFixture f;
        f.show();
        bool failing = true;
        int told = 0;
        failLoading(f, failing, f.records().markAt(0).key, told);
        QTRY_COMPARE(told, 1);
        f.goTo(0, GridFixture::Service);
        f.type(u"s"_s);
        QCOMPARE(f.prompts.boxes.size(), size_t{1});
        QVERIFY(!f.grid.rowPending());
        f.grid.Columns(GridFixture::Service).setValue(u"steam"_s);
        QVERIFY(!f.grid.rowPending());
        failing = false;
        f.grid.Columns(GridFixture::Service).setValue(u"steam"_s);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"D-1"_s);
        QVERIFY(f.grid.writeRow());
    }

    void anEditBegunByCodeIsNotWrittenWithoutItsUnboundCells()
    {
        GridFixture f;
        f.show();
        bool failing = true;
        int told = 0;
        failLoading(f, failing, f.records().markAt(0).key, told);
        int before = 0;
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&] { ++before; });
        f.records().Edit();
        f.grid.Columns(GridFixture::Service).setValue(u"steam"_s);
        QVERIFY(!f.grid.writeRow());
        QCOMPARE(before, 0);
        QVERIFY(f.grid.rowPending());
        failing = false;
        QVERIFY(f.grid.writeRow());
        QCOMPARE(before, 1);
    }

    void aRowThatIsLoadedWithNothingStaysEditable()
    {
        GridFixture f;
        f.show();
        int told = 0;
        connect(
            &f.grid, &DataGrid::rowLoaded, this, [&] { f.grid.runAfterLoading([&] { ++told; }); });
        f.control.Refresh();
        QTRY_COMPARE(told, 5);
        f.goTo(3, GridFixture::Service);
        f.type(u"steam"_s);
        QVERIFY(f.grid.rowPending());
        QVERIFY(f.grid.writeRow());
        QVERIFY(f.prompts.boxes.empty());
    }

    void anEditStartsWithWhatTheFileHoldsNow()
    {
        GridFixture f;
        f.show();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        f.file.run("UPDATE tie SET doc = 'D-10' WHERE tag = 'PT-00001'");
        f.goTo(0, GridFixture::Service);
        f.type(u"s"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"D-10"_s);
    }

    void aCancelledRowIsLoadedAnew()
    {
        GridFixture f;
        f.show();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        f.goTo(0, GridFixture::Service);
        f.type(u"s"_s);
        f.file.run("UPDATE tie SET doc = 'D-10' WHERE tag = 'PT-00001'");
        f.grid.cancelRow();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-10"_s);
    }

    void actionsAfterLoadingNeverNest()
    {
        GridFixture f;
        f.show();
        std::vector<int> order;
        int depth = 0;
        int deepest = 0;
        for (int i = 0; i < 6; ++i) {
            f.grid.runAfterLoading([&, i] {
                deepest = std::max(deepest, ++depth);
                QTest::qWait(10); // as a message box does
                order.push_back(i);
                --depth;
                if (i == 2)
                    throw store::Error(store::errors::locked, u"locked"_s);
            });
        }
        QTRY_COMPARE(order.size(), size_t{6});
        QCOMPARE(deepest, 1);
        QVERIFY((order == std::vector{0, 1, 2, 3, 4, 5}));
        QCOMPARE(f.prompts.takeTexts(), QStringList{u"locked"_s});
    }

    // ---- lists

    void aListThatCannotBeReadIsToldWhenItIsDropped()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Doc);
        {
            const OtherProgram other(f.file);
            f.press(Qt::Key_F4);
            QCOMPARE(f.prompts.boxes.size(), size_t{1});
            QVERIFY(!f.grid.findChild<QListView*>()->isVisible());
        }
        f.press(Qt::Key_F4);
        QVERIFY(f.grid.findChild<QListView*>()->isVisible());
        QCOMPARE(f.prompts.boxes.size(), size_t{1});
    }

    void failedDeletionByKeyIsToldAndTheRestStays()
    {
        GridFixture f;
        f.show();
        f.prompts.answers = {toolkit::Answer::Yes};
        f.clickRowHeader(0);
        makeStale(f);
        {
            const OtherProgram other(f.file);
            f.press(Qt::Key_Delete);
        }
        QVERIFY(f.prompts.boxes.size() >= 1);
        QCOMPARE(f.stored(u"select count(*) from item"_s), u"5"_s);
    }
};

QTEST_MAIN(TestDataGridFailures)
#include "tst_data_grid_failures.moc"
