// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Keyboard and mouse: moving, typing, and who gets which key.
#include "toolkit/grid_fixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::GridFixture;
using toolkit::DataGrid;

class TestDataGridKeys final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingReplacesTheContentAndF2EditsItInPlace()
    {
        GridFixture f;
        f.show();
        f.goTo(0, GridFixture::Service);
        f.type(u"x"_s);
        QCOMPARE(f.editor()->text(), u"x"_s);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_F2);
        f.type(u"x"_s);
        QCOMPARE(f.editor()->text(), u"service 1x"_s);
    }

    void aDoubleClickEditsInPlace()
    {
        GridFixture f;
        f.show();
        const QPoint place = f.grid.visualRect(f.grid.model()->index(2, 1)).center();
        QTest::mouseClick(f.grid.viewport(), Qt::LeftButton, {}, place);
        QVERIFY(!f.isEditing());
        QTest::mouseDClick(f.grid.viewport(), Qt::LeftButton, {}, place);
        QVERIFY(f.isEditing());
        QCOMPARE(f.editor()->text(), u"service 3"_s);
    }

    void keysMoveAsInASheet()
    {
        GridFixture f(100);
        f.show();
        const auto at = [&](int row, int column) {
            return f.grid.currentIndex() == f.grid.model()->index(row, column);
        };
        f.goTo(0, 0);
        f.press(Qt::Key_Down);
        f.press(Qt::Key_Right);
        QVERIFY(at(1, 1));
        f.press(Qt::Key_End);
        QVERIFY(at(1, 3));
        f.press(Qt::Key_Tab);
        QVERIFY(at(2, 0));
        f.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(at(1, 3));
        f.press(Qt::Key_Home);
        QVERIFY(at(1, 0));
        f.press(Qt::Key_Left);
        QVERIFY(at(1, 0));
        f.press(Qt::Key_Return);
        QVERIFY(at(2, 0));
        f.press(Qt::Key_Return, Qt::ShiftModifier);
        QVERIFY(at(1, 0));
        f.press(Qt::Key_PageDown);
        QVERIFY(f.row() > 3);
        f.press(Qt::Key_PageUp);
        QVERIFY(at(1, 0));
        f.press(Qt::Key_End, Qt::ControlModifier);
        QVERIFY(at(99, 3));
        f.press(Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(at(0, 0));
        QCOMPARE(f.records().AbsolutePosition(), 0);
    }

    void tabFollowsTheOrderTheUserGaveTheColumns()
    {
        GridFixture f;
        f.show();
        f.grid.horizontalHeader()->moveSection(3, 0);
        f.goTo(0, GridFixture::Size);
        f.press(Qt::Key_Tab);
        QCOMPARE(f.grid.Col(), int{GridFixture::Tag});
        f.press(Qt::Key_End);
        QCOMPARE(f.grid.Col(), int{GridFixture::Doc});
    }

    void tabLeavesTheGridAtItsEndAndWithCtrlAnywhere()
    {
        GridFixture f;
        QLineEdit other(&f.window);
        f.show();
        other.show();
        f.goTo(5, GridFixture::Size);
        f.press(Qt::Key_Tab);
        QVERIFY(other.hasFocus());
        f.grid.setFocus();
        f.goTo(0, GridFixture::Tag);
        f.press(Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(other.hasFocus());
    }

    void tabInTheLastCellOfANewRowWritesItAndGoesOn()
    {
        GridFixture f;
        f.show();
        f.goTo(5, GridFixture::Tag);
        f.type(u"PT-9"_s);
        for (int i = 0; i < 4; ++i)
            f.press(Qt::Key_Tab);
        QCOMPARE(f.row(), 6);
        QCOMPARE(f.grid.Col(), 0);
        QCOMPARE(f.stored(u"select tag from item where tag = 'PT-9'"_s), u"PT-9"_s);
    }

    void arrowsUpAndDownLeaveTheEditor()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.type(u"steam"_s);
        f.press(Qt::Key_Up);
        QVERIFY(!f.isEditing());
        QCOMPARE(f.row(), 0);
        QCOMPARE(f.stored(u"select service from item where tag = 'PT-00002'"_s), u"steam"_s);
    }

    void escapeWithNothingToTakeBackIsNotTheGrids()
    {
        GridFixture f;
        f.show();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&f.grid, &escape);
        QVERIFY(!escape.isAccepted());
        f.type(u"x"_s);
        f.press(Qt::Key_Tab);
        QKeyEvent second(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&f.grid, &second);
        QVERIFY(second.isAccepted());
        QVERIFY(!f.grid.rowPending());
    }

    // ---- what windows hear of keys

    void everyCharacterIsToldOnTheCellAndInTheEditor()
    {
        GridFixture f;
        f.show();
        std::vector<int> codes;
        connect(&f.grid, &DataGrid::keyTyped, this, [&](int& code) { codes.push_back(code); });
        f.goTo(0, GridFixture::Service);
        f.type(u"ab"_s);
        f.press(Qt::Key_Left);
        f.press(Qt::Key_Backspace);
        f.press(Qt::Key_Return);
        QVERIFY((codes == std::vector<int>{'a', 'b'}));
    }

    void aCharacterCanBeDiscardedOrChanged()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::keyTyped, this, [](int& code) {
            if (code == 'x')
                code = 0;
            if (code == 'y')
                code = 'Y';
        });
        f.goTo(0, GridFixture::Service);
        f.type(u"x"_s);
        QVERIFY(!f.isEditing());
        QVERIFY(!f.grid.rowPending());
        f.type(u"yaxy"_s);
        QCOMPARE(f.editor()->text(), u"YaY"_s);
    }

    void backspaceOnACellEmptiesIt()
    {
        GridFixture f;
        f.show();
        std::vector<int> codes;
        connect(&f.grid, &DataGrid::keyTyped, this, [&](int& code) { codes.push_back(code); });
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_Backspace);
        QVERIFY((codes == std::vector<int>{8}));
        QVERIFY(f.isEditing());
        QCOMPARE(f.editor()->text(), QString());
        f.press(Qt::Key_Tab);
        QCOMPARE(f.grid.Columns(GridFixture::Service).Value(), store::Value(QString()));
    }

    void backspaceDoesNothingMoreWhereAHandlerSetTheCell()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::keyTyped, this, [&](int& code) {
            if (code == 8)
                f.list.setValue(u"**DELETED**"_s);
        });
        f.goTo(0, GridFixture::Doc);
        f.press(Qt::Key_Backspace);
        QVERIFY(!f.isEditing());
        QVERIFY(f.grid.rowPending());
        QCOMPARE(f.shown(0, GridFixture::Doc), u"**DELETED**"_s);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_F2);
        f.press(Qt::Key_Backspace);
        QVERIFY(!f.isEditing());
        QCOMPARE(f.shown(0, GridFixture::Doc), u"**DELETED**"_s);
    }

    void deleteIsToldAheadAndOtherwiseEmptiesTheCell()
    {
        GridFixture f;
        f.show();
        bool refuse = true;
        int count = 0;
        connect(&f.grid, &DataGrid::deletePressed, this, [&](bool& handled) {
            handled = refuse;
            ++count;
        });
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_Delete);
        QVERIFY(!f.grid.rowPending());
        f.press(Qt::Key_F2);
        f.press(Qt::Key_Home);
        f.press(Qt::Key_Delete);
        QCOMPARE(f.editor()->text(), u"service 1"_s);
        QCOMPARE(count, 2);
        refuse = false;
        f.press(Qt::Key_Delete);
        QCOMPARE(f.editor()->text(), u"ervice 1"_s);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_Delete);
        QCOMPARE(f.shown(0, GridFixture::Service), QString());
        QVERIFY(f.grid.rowPending());
    }

    void pastingIsAskedAboutLikeTyping()
    {
        GridFixture f;
        f.show();
        connect(&f.grid, &DataGrid::keyTyped, this, [](int& code) { code = 0; });
        QApplication::clipboard()->setText(u"pasted"_s);
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_F2);
        f.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(f.editor()->text(), u"service 1"_s);
    }

    void theWindowsShortcutsWaitWhileTheEditorIsOpen()
    {
        GridFixture f;
        int triggered = 0;
        for (const QKeySequence& keys : {QKeySequence(u"Ctrl+C"_s),
                                         QKeySequence(u"Ctrl+V"_s),
                                         QKeySequence(u"Del"_s),
                                         QKeySequence(u"Backspace"_s)}) {
            auto* action = new QAction(&f.window);
            action->setShortcut(keys);
            f.window.addAction(action);
            connect(action, &QAction::triggered, this, [&] { ++triggered; });
        }
        f.show();
        QApplication::clipboard()->setText(u"pasted"_s);
        f.goTo(0, GridFixture::Service);
        f.press(Qt::Key_F2);
        f.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(f.editor()->text(), u"service 1pasted"_s);
        f.press(Qt::Key_Backspace);
        f.press(Qt::Key_Home);
        f.press(Qt::Key_Delete);
        QCOMPARE(f.editor()->text(), u"ervice 1paste"_s);
        f.editor()->selectAll();
        f.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), u"ervice 1paste"_s);
        QCOMPARE(triggered, 0);
        f.press(Qt::Key_Escape);
        f.press(Qt::Key_C, Qt::ControlModifier);
        f.press(Qt::Key_Delete);
        QCOMPARE(triggered, 2);
    }

    void theCurrentCellCanBeCopied()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.grid.copyCurrentCell();
        QCOMPARE(QApplication::clipboard()->text(), u"service 2"_s);
    }

    // ---- rows and the mouse

    void rowsAreSelectedByTheirHeaderOnly()
    {
        GridFixture f;
        f.show();
        const auto selected = [&] {
            QStringList tags;
            for (const store::RowMark mark : f.grid.SelBookmarks())
                tags << f.grid.Columns(GridFixture::Tag).CellValue(mark).text().right(1);
            return tags.join(QString());
        };
        f.click(1, GridFixture::Tag);
        f.click(3, GridFixture::Tag, Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(selected(), QString());
        f.clickRowHeader(3);
        QCOMPARE(selected(), u"4"_s);
        QCOMPARE(f.row(), 3);
        f.clickRowHeader(1, Qt::ControlModifier);
        QCOMPARE(selected(), u"42"_s); // in the order of the clicks
        f.clickRowHeader(3, Qt::ControlModifier);
        QCOMPARE(selected(), u"2"_s);
        f.clickRowHeader(0);
        f.clickRowHeader(2, Qt::ShiftModifier);
        QCOMPARE(selected(), u"123"_s);
        f.clickRowHeader(5);
        QCOMPARE(selected(), QString());
        f.clickRowHeader(2);
        f.click(0, GridFixture::Service);
        QCOMPARE(selected(), QString());
    }

    void rowsAreSelectedByTheKeyboard()
    {
        GridFixture f;
        f.show();
        f.goTo(1, GridFixture::Service);
        f.press(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(f.grid.SelBookmarks().size(), size_t{1});
        f.press(Qt::Key_Down, Qt::ShiftModifier);
        f.press(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(f.grid.SelBookmarks().size(), size_t{3});
        f.press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(f.grid.SelBookmarks().size(), size_t{5});
        f.press(Qt::Key_Down);
        QVERIFY(f.grid.SelBookmarks().empty());
    }

    void draggingOverRowHeadersSelectsThem()
    {
        GridFixture f;
        f.show();
        QWidget* header = f.grid.verticalHeader()->viewport();
        const int height = f.grid.verticalHeader()->defaultSectionSize();
        QTest::mousePress(header, Qt::LeftButton, {}, QPoint(5, height / 2));
        QMouseEvent move(QEvent::MouseMove,
                         QPointF(5, height * 2.5),
                         header->mapToGlobal(QPointF(5, height * 2.5)),
                         Qt::NoButton,
                         Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(header, &move);
        QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(5, height * 5 / 2));
        QCOMPARE(f.grid.SelBookmarks().size(), size_t{3});
    }

    void theRightButtonKeepsTheSelection()
    {
        GridFixture f;
        f.show();
        QSignalSpy released(&f.grid, &DataGrid::mouseReleased);
        f.clickRowHeader(1);
        f.click(3, GridFixture::Service, Qt::RightButton);
        QCOMPARE(f.grid.SelBookmarks().size(), size_t{1});
        QCOMPARE(f.row(), 1);
        QCOMPARE(released.last().at(0).value<Qt::MouseButton>(), Qt::RightButton);
        f.click(0, GridFixture::Service);
        f.click(3, GridFixture::Service, Qt::RightButton);
        QCOMPARE(f.row(), 3);
    }

    void theMenuKeyCountsAsTheRightButton()
    {
        GridFixture f;
        f.show();
        QSignalSpy released(&f.grid, &DataGrid::mouseReleased);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(50, 50));
        QApplication::sendEvent(f.grid.viewport(), &event);
        QCOMPARE(released.count(), 1);
        QCOMPARE(released.last().at(0).value<Qt::MouseButton>(), Qt::RightButton);
    }

    void theDeleteKeyDeletesSelectedRows()
    {
        GridFixture f;
        f.show();
        f.prompts.answers = {toolkit::Answer::Yes};
        f.clickRowHeader(1);
        f.press(Qt::Key_Delete);
        QCOMPARE(f.rows(), 5);
        f.grid.setAllowDelete(false);
        f.clickRowHeader(1);
        f.press(Qt::Key_Delete);
        QCOMPARE(f.rows(), 5);
    }
};

QTEST_MAIN(TestDataGridKeys)
#include "tst_data_grid_keys.moc"
