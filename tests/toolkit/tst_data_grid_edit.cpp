// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// How a row under edit lives: started, written, refused, taken back, and written by code.
#include "toolkit/grid_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using store::EditMode;
using store::Error;
using store::Value;
using tests::errorOf;
using tests::GridFixture;
using toolkit::DataControl;
using toolkit::DataGrid;

class TestDataGridEdit final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstLetterStartsTheEdit()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        QVERIFY(!f.grid.rowPending());
        f.type(u"s"_s);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.control.EditMode(), EditMode::InProgress);
        QCOMPARE(f.grid.Columns(GridFixture::Service).Value().text(), u"s"_s);
        QCOMPARE(f.field("Service").text(), u"service 2"_s);
    }

    void openingTheEditorAloneStartsNoEdit()
    {
        GridFixture f;
        f.show();
        f.press(Qt::Key_F2);
        QVERIFY(f.isEditing());
        QVERIFY(!f.grid.rowPending());
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 1);
        QVERIFY(!f.grid.rowPending());
    }

    void leavingTheRowWritesIt()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.click(3, GridFixture::Tag);
        QCOMPARE(f.row(), 3);
        QCOMPARE(f.records().AbsolutePosition(), 3);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"steam"_s);
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
    }

    void movingWithinTheRowDoesNotWriteIt()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"service 1"_s);
    }

    void typingOnTheNewRowAddsARecordAndStaysOnIt()
    {
        GridFixture f;
        f.show();
        f.goTo(5, GridFixture::Tag);
        QVERIFY(f.grid.Columns(GridFixture::Tag).Value().isNull());
        f.type(u"PT-9"_s);
        QCOMPARE(f.control.EditMode(), EditMode::Add);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.row(), 5);
        QCOMPARE(f.rows(), 7);
        QCOMPARE(f.shown(5, GridFixture::Tag), u"PT-9"_s);
        QCOMPARE(f.records().AbsolutePosition(), 5);
        QCOMPARE(f.grid.Columns(GridFixture::Tag).Value().text(), u"PT-9"_s);
    }

    void enterOnTheNewRowGoesToTheNextNewRow()
    {
        GridFixture f;
        f.show();
        f.goTo(5, GridFixture::Tag);
        f.type(u"PT-8"_s);
        f.press(Qt::Key_Return);
        QCOMPARE(f.row(), 6);
        f.type(u"PT-9"_s);
        f.press(Qt::Key_Return);
        QCOMPARE(f.row(), 7);
        QCOMPARE(f.stored(u"select count(*) from item"_s), u"7"_s);
    }

    void anEmptyFileHasTheNewRowOnly()
    {
        GridFixture f(0);
        f.show();
        QCOMPARE(f.rows(), 1);
        QCOMPARE(f.row(), 0);
        f.type(u"PT-1"_s);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.records().AbsolutePosition(), 0);
        QCOMPARE(f.rows(), 2);
        QCOMPARE(f.shown(0, GridFixture::Tag), u"PT-1"_s);
    }

    void aRefusedRowStaysInEditAndKeepsTheUserThere()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Tag);
        f.type(u"PT-00001"_s);
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 1);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.shown(1, GridFixture::Tag), u"PT-00001"_s);
        QCOMPARE(f.prompts.boxes.size(), size_t{1});
        f.click(4, GridFixture::Service);
        QCOMPARE(f.row(), 1);
        QCOMPARE(f.prompts.boxes.size(), size_t{2});
        f.clickRowHeader(4);
        QCOMPARE(f.row(), 1);
        QVERIFY(f.grid.SelBookmarks().empty());
        f.type(u"PT-7"_s);
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 2);
        QCOMPARE(f.stored(u"select size from item where tag = 'PT-7'"_s), u"2"_s);
    }

    void aHandlerThatHasToldTheUserKeepsTheGridSilent()
    {
        GridFixture f;
        f.show();
        std::vector<bool> flags;
        connect(&f.grid, &DataGrid::afterUpdate, this, [&](bool& failed) {
            flags.push_back(failed);
            if (failed)
                f.grid.Columns(GridFixture::Tag).setValue(QString());
            failed = false;
        });
        f.goTo(1, GridFixture::Tag);
        f.type(u"PT-00001"_s);
        QVERIFY(!f.grid.writeRow());
        QVERIFY(f.prompts.boxes.empty());
        QCOMPARE(f.shown(1, GridFixture::Tag), QString());
        QVERIFY(f.grid.rowPending());
        f.type(u"PT-7"_s);
        QVERIFY(f.grid.writeRow());
        QVERIFY((flags == std::vector{true, false}));
    }

    void rowStepsComeInTheirOrder()
    {
        GridFixture f;
        f.show();
        QStringList steps;
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&](bool&) {
            steps << u"before "_s + f.field("Service").text() + u" "_s
                         + f.grid.Columns(GridFixture::Service).Value().text();
        });
        connect(&f.control, &DataControl::validate, this, [&] { steps << u"validate"_s; });
        connect(&f.grid, &DataGrid::afterUpdate, this, [&](bool& failed) {
            steps << u"after "_s + QString::number(failed) + u" "_s
                         + QString::number(static_cast<int>(f.control.EditMode()));
        });
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.control.UpdateRecord();
        const QStringList expected{u"before service 1 steam"_s, u"validate"_s, u"after 0 0"_s};
        QCOMPARE(steps, expected);
    }

    void aCancelledWriteStaysInEdit()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::beforeUpdate, this, [](bool& cancel) { cancel = true; });
        int after = 0;
        connect(&f.grid, &DataGrid::afterUpdate, this, [&] { ++after; });
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Return);
        QCOMPARE(f.row(), 0);
        QVERIFY(f.grid.rowPending());
        QCOMPARE(after, 0);
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"service 1"_s);
    }

    void aRowNotToBeSavedStaysInEditOnColumn0WithoutAWord()
    {
        GridFixture f;
        f.show();
        connect(&f.control,
                &DataControl::validate,
                this,
                [&](DataControl::Action action, bool& save, const std::optional<Error>&) {
                    save = action != DataControl::Action::Add
                           || !f.grid.Columns(GridFixture::Tag).Value().isNullOrEmpty();
                });
        f.goTo(5, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Up);
        QCOMPARE(f.row(), 5);
        QCOMPARE(f.grid.Col(), 0);
        QVERIFY(f.grid.rowPending());
        QVERIFY(f.prompts.boxes.empty());
        f.type(u"PT-9"_s);
        f.press(Qt::Key_Up);
        QCOMPARE(f.row(), 4);
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-9'"_s), u"steam"_s);
    }

    void anErrorFoundWhileTypingIsPendingWhenTheRowIsWritten()
    {
        GridFixture f;
        f.show();
        QStringList told;
        connect(&f.control,
                &DataControl::validate,
                this,
                [&](DataControl::Action, bool&, const std::optional<Error>& pending) {
                    if (pending)
                        told << QString::number(pending->number());
                });
        f.goTo(1, GridFixture::Service);
        f.file.run("DELETE FROM item WHERE tag = 'PT-00002'");
        f.grid.Columns(GridFixture::Service).setValue(u"steam"_s);
        QVERIFY(f.grid.rowPending());
        QVERIFY(told.isEmpty());
        f.press(Qt::Key_Down);
        QCOMPARE(told, QStringList{u"3167"_s});
        QCOMPARE(f.row(), 1);
        QVERIFY(f.grid.rowPending());
        f.press(Qt::Key_Escape);
        QVERIFY(!f.grid.rowPending());
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 2);
    }

    void aRowWhoseStartFailedIsWrittenOnceItCanBe()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.file.run("DELETE FROM item WHERE tag = 'PT-00002'");
        f.grid.Columns(GridFixture::Service).setValue(u"steam"_s);
        QCOMPARE(f.control.EditMode(), EditMode::None);
        f.file.run("INSERT INTO item (rowid, tag, service) VALUES (4, 'PT-00002', 'x')");
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00002'"_s), u"steam"_s);
    }

    void onlyChangedCellsAreWritten()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.file.run("UPDATE item SET size = 9 WHERE tag = 'PT-00001'");
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"steam"_s);
        QCOMPARE(f.stored(u"select size from item where tag = 'PT-00001'"_s), u"9"_s);
    }

    void fieldsSetByHandlersAreWrittenAlong()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&](bool&) {
            f.records().SetField(u"Size"_s, 77);
        });
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(f.stored(u"select size from item where tag = 'PT-00001'"_s), u"77"_s);
    }

    void escapeTakesBackTheCellThenTheRow()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        f.type(u"9"_s);
        f.press(Qt::Key_Escape);
        QVERIFY(!f.isEditing());
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
        QCOMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        QVERIFY(f.grid.rowPending());
        f.press(Qt::Key_Escape);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(f.shown(0, GridFixture::Service), u"service 1"_s);
        QCOMPARE(f.control.EditMode(), EditMode::None);
    }

    void aRowWithNothingLeftToWriteIsLeftUnwritten()
    {
        GridFixture f;
        f.show();
        int before = 0;
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&] { ++before; });
        f.goTo(5, GridFixture::Tag);
        f.type(u"P"_s);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_Up);
        QCOMPARE(f.row(), 4);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(before, 0);
    }

    void oneEscapeEndsAnEditWithNoOtherChange()
    {
        GridFixture f;
        f.show();
        int before = 0;
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&] { ++before; });
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Escape);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(f.control.EditMode(), EditMode::None);
        QVERIFY(f.grid.writeRow());
        QCOMPARE(before, 0);
        QCOMPARE(errorOf([&] { f.control.Refresh(); }), 0);
    }

    void anEditTypedBackToWhatItWasIsOver()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Size);
        f.type(u"1"_s);
        QVERIFY(f.grid.rowPending());
        f.press(Qt::Key_Tab);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(errorOf([&] { f.control.Refresh(); }), 0);
    }

    void aRefusedColumnUpdateLeavesNoEditBehind()
    {
        GridFixture f;
        f.show();
        connect(
            &f.grid, &DataGrid::beforeColumnUpdate, this, [](int, bool& cancel) { cancel = true; });
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        QVERIFY(!f.grid.rowPending());
        QCOMPARE(f.control.EditMode(), EditMode::None);
    }

    void codeWritesTheTypedCellsAlong()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.records().Update();
        QVERIFY(!f.grid.rowPending());
        QVERIFY(!f.isEditing());
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00001'"_s), u"steam"_s);
    }

    void codeAddsARecordThroughTheGridsColumns()
    {
        GridFixture f;
        f.show();
        int before = 0;
        connect(&f.grid, &DataGrid::beforeUpdate, this, [&] { ++before; });
        f.goTo(1, GridFixture::Service);
        f.records().AddNew();
        QVERIFY(f.grid.Columns(GridFixture::Tag).Value().isNull());
        f.grid.Columns(GridFixture::Tag).setValue(u"Copy of PT-00002"_s);
        f.grid.Columns(GridFixture::Doc).setValue(u"D-2"_s);
        f.grid.Columns(GridFixture::Size).setValue(3);
        QCOMPARE(f.grid.Columns(GridFixture::Tag).Value().text(), u"Copy of PT-00002"_s);
        f.records().Update();
        QCOMPARE(f.rows(), 7);
        QCOMPARE(f.row(), 1);
        QCOMPARE(f.grid.Columns(GridFixture::Tag).Value().text(), u"PT-00002"_s);
        QCOMPARE(f.shown(5, GridFixture::Tag), u"Copy of PT-00002"_s);
        QCOMPARE(f.stored(u"select size from item where tag = 'Copy of PT-00002'"_s), u"3"_s);
        QCOMPARE(before, 0);
    }

    void aFailedAdditionByCodeStaysInTheAddStateUntilEscape()
    {
        GridFixture f;
        f.show();
        f.records().AddNew();
        f.grid.Columns(GridFixture::Tag).setValue(u"PT-00002"_s);
        QCOMPARE(errorOf([&] { f.records().Update(); }), 3022);
        QCOMPARE(f.control.EditMode(), EditMode::Add);
        QCOMPARE(f.shown(5, GridFixture::Tag), u"PT-00002"_s);
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 5);
        f.press(Qt::Key_Escape);
        QCOMPARE(f.control.EditMode(), EditMode::None);
        f.press(Qt::Key_Up);
        QCOMPARE(f.row(), 4);
    }

    void typingElsewhereFirstWritesWhatCodeLeftPending()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.records().AddNew();
        f.grid.Columns(GridFixture::Tag).setValue(u"PT-00002"_s);
        f.type(u"x"_s);
        QVERIFY(!f.isEditing());
        QCOMPARE(f.row(), 5);
        f.grid.Columns(GridFixture::Tag).setValue(u"PT-9"_s);
        f.goTo(1, GridFixture::Service);
        QCOMPARE(f.row(), 1);
        f.records().AddNew();
        f.grid.Columns(GridFixture::Tag).setValue(u"PT-8"_s);
        f.type(u"x"_s);
        QVERIFY(f.isEditing());
        QCOMPARE(f.stored(u"select count(*) from item"_s), u"7"_s);
    }

    void codeThatMovesTheRecordsetDropsTheRowUnderEdit()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.records().MoveLast();
        QVERIFY(!f.grid.rowPending());
        QVERIFY(!f.isEditing());
        QCOMPARE(f.row(), 4);
        QCOMPARE(f.shown(0, GridFixture::Service), u"service 1"_s);
    }

    void aHandlerMayMoveTheRecordsetAndTheUserStillGetsWhereHeWent()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::afterUpdate, this, [&](bool&) {
            f.records().SetBookmark(f.records().LastModified());
        });
        f.goTo(5, GridFixture::Tag);
        f.type(u"PT-9"_s);
        f.click(2, GridFixture::Service);
        QCOMPARE(f.row(), 2);
        QCOMPARE(f.records().AbsolutePosition(), 2);
        f.type(u"steam"_s);
        f.press(Qt::Key_Return);
        QCOMPARE(f.row(), 3);
        QCOMPARE(f.records().AbsolutePosition(), 3);
    }

    void unboundCellsOfAWrittenRowAreLoadedAnew()
    {
        GridFixture f;
        f.show();
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-1"_s);
        f.goTo(0, GridFixture::Doc);
        f.type(u"typed"_s);
        f.file.run("UPDATE tie SET doc = 'D-10' WHERE tag = 'PT-00001'");
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"typed"_s);
        QVERIFY(f.grid.writeRow());
        QTRY_COMPARE(f.shown(0, GridFixture::Doc), u"D-10"_s);
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"D-10"_s);
    }

    void unboundCellsOfTheRowUnderEditStayWhatTheyWere()
    {
        GridFixture f(200);
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        f.grid.scrollToBottom();
        QTest::qWait(50);
        f.file.run("DELETE FROM tie");
        QCOMPARE(f.grid.Columns(GridFixture::Doc).Value().text(), u"D-1"_s);
    }

    void aColumnUpdateCanBeRefused()
    {
        GridFixture f;
        f.show();
        QString seen;
        connect(&f.grid, &DataGrid::beforeColumnUpdate, this, [&](int column, bool& cancel) {
            seen = f.grid.Columns(column).Value().text();
            cancel = column == GridFixture::Tag;
        });
        f.goTo(0, GridFixture::Tag);
        f.type(u"other"_s);
        f.press(Qt::Key_Tab);
        QCOMPARE(seen, u"other"_s);
        QCOMPARE(f.shown(0, GridFixture::Tag), u"PT-00001"_s);
        QCOMPARE(f.grid.Col(), 0);
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Tab);
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
    }

    void anUnchangedTextIsNoChange()
    {
        GridFixture f;
        f.show();
        int column = 0;
        connect(&f.grid, &DataGrid::beforeColumnUpdate, this, [&] { ++column; });
        f.goTo(0, GridFixture::Tag);
        f.type(u"PT-00001"_s);
        f.press(Qt::Key_Tab);
        QCOMPARE(column, 0);
    }

    void leavingTheGridTakesTheCellOverButDoesNotWriteTheRow()
    {
        GridFixture f;
        QLineEdit other(&f.window);
        f.show();
        other.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"steam"_s);
        other.setFocus();
        QVERIFY(!f.isEditing());
        QVERIFY(other.hasFocus());
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.shown(0, GridFixture::Service), u"steam"_s);
    }

    void theNewRowCanBeForbidden()
    {
        GridFixture f;
        f.grid.setAllowAddNew(false);
        f.show();
        QCOMPARE(f.rows(), 5);
        f.press(Qt::Key_End, Qt::ControlModifier);
        f.press(Qt::Key_Down);
        QCOMPARE(f.row(), 4);
    }

    void aRecordDeletedElsewhereShowsAndCannotBeEdited()
    {
        GridFixture f;
        f.show();
        f.file.run("DELETE FROM item WHERE tag = 'PT-00002'");
        f.control.Database().Execute(u"update item set size = 9 where tag = 'PT-00005'"_s);
        QCOMPARE(f.shown(1, GridFixture::Tag), u"#Deleted"_s);
        QCOMPARE(f.shown(1, GridFixture::Doc), u"#Deleted"_s);
        f.goTo(1, GridFixture::Service);
        f.type(u"x"_s);
        f.press(Qt::Key_F2);
        QVERIFY(!f.isEditing());
        QVERIFY(!f.grid.rowPending());
    }

    // ---- deleting

    void deletingTheFirstRecordByCodeStandsOnTheNewFirstOne()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.records().Delete();
        f.records().MovePrevious();
        QCOMPARE(f.records().AbsolutePosition(), 0);
        QCOMPARE(f.row(), 0);
        QCOMPARE(f.field("Tag").text(), u"PT-00002"_s);
        QCOMPARE(f.rows(), 5);
    }

    void aDeletionWithNoMoveBehindItComesBackToARecord()
    {
        GridFixture f;
        f.show();
        f.goTo(2, GridFixture::Service);
        f.records().Delete();
        QTRY_COMPARE(f.records().AbsolutePosition(), f.row());
        QVERIFY(f.records().AbsolutePosition() >= 0);
    }

    void deletingTheOnlyRecordLeavesTheNewRow()
    {
        GridFixture f(1);
        f.show();
        f.records().Delete();
        QCOMPARE(f.rows(), 1);
        QTest::qWait(20);
        QVERIFY(f.records().Eof() && f.records().Bof());
        QVERIFY(f.grid.Columns(GridFixture::Tag).Value().isNull());
    }

    void selectedRowsAreDeletedAfterOneQuestionEach()
    {
        GridFixture f;
        f.show();
        QStringList before;
        connect(&f.grid, &DataGrid::beforeDelete, this, [&](bool&, bool&) {
            before << f.field("Tag").text();
        });
        f.prompts.answers = {toolkit::Answer::Yes, toolkit::Answer::No, toolkit::Answer::Yes};
        f.clickRowHeader(1);
        f.clickRowHeader(3, Qt::ShiftModifier);
        f.grid.DeleteSelected();
        QCOMPARE(f.prompts.boxes.size(), size_t{3});
        QCOMPARE(f.stored(u"select count(*) from item"_s), u"3"_s);
        QCOMPARE(f.stored(u"select tag from item where tag = 'PT-00003'"_s), u"PT-00003"_s);
        // The current record is the one that the user stood on, not the one to be deleted.
        QCOMPARE(before, (QStringList{u"PT-00004"_s, u"PT-00004"_s, u"PT-00004"_s}));
        QCOMPARE(f.records().AbsolutePosition(), f.row());
        QCOMPARE(f.field("Tag").text(), u"PT-00005"_s);
    }

    void aHandlerMayDeleteWithoutQuestionOrNotAtAll()
    {
        GridFixture f;
        f.show();
        int count = 0;
        connect(&f.grid, &DataGrid::beforeDelete, this, [&](bool& cancel, bool& prompt) {
            cancel = count++ == 0;
            prompt = false;
        });
        f.clickRowHeader(0);
        f.clickRowHeader(1, Qt::ShiftModifier);
        f.grid.DeleteSelected();
        QVERIFY(f.prompts.boxes.empty());
        QCOMPARE(f.shown(0, GridFixture::Tag), u"PT-00001"_s);
        QCOMPARE(f.shown(1, GridFixture::Tag), u"PT-00003"_s);
    }

    void deletionIsValidated()
    {
        GridFixture f;
        f.show();
        connect(&f.control,
                &DataControl::validate,
                this,
                [&](DataControl::Action action, bool& save, const std::optional<Error>&) {
                    QCOMPARE(action, DataControl::Action::Delete);
                    save = false;
                });
        f.prompts.answers = {toolkit::Answer::Yes};
        f.clickRowHeader(0);
        f.grid.DeleteSelected();
        QCOMPARE(f.rows(), 6);
    }

    void aFailedDeletionIsRaised()
    {
        GridFixture f;
        f.file.run("CREATE TRIGGER t BEFORE DELETE ON item BEGIN SELECT RAISE(ABORT, 'no'); END");
        f.show();
        f.prompts.answers = {toolkit::Answer::Yes};
        f.clickRowHeader(0);
        QVERIFY(errorOf([&] { f.grid.DeleteSelected(); }) != 0);
        QCOMPARE(f.rows(), 6);
    }
};

QTEST_MAIN(TestDataGridEdit)
#include "tst_data_grid_edit.moc"
