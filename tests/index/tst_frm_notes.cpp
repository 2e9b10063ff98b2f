// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/frmNotes.h"
#include "support/help_windows.h"
#include "support/in_window.h"
#include "support/index_fixture.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::index;
using ostrand::tests::IndexFixture;
using ostrand::tests::ProgramFixture;

class TestFrmNotes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theCellsButtonShowsTheRemarksOfTheTag();
    void theTextGoesToTheCellAndIsWrittenWithItsRow();
    void cancelLeavesTheCellAsItWas_data();
    void cancelLeavesTheCellAsItWas();
    void anEmptiedTextEmptiesTheCell();
    void theRowCountsAsChangedAlsoByTheSameText();
    void theNotesOfATagThatIsBeingTypedGoToItsRow();
    void theColumnIsTheCurrentOne();
    void everyTextComesBackAsItWas_data();
    void everyTextComesBackAsItWas();
    void lineBreaksAreThoseOfTheDatabase();
    void aTextThatNobodyChangedKeepsItsLineBreaks();
    void helpShowsTheManual();
    void tabLeavesTheText();
    void theTextFollowsTheWindowsSize();

    void aWindowThatIsOpenIsNotOpenedAgain();
    void aRecordThatIsGoneIsTold();
    void aCellThatCannotTakeTheTextIsTold();
    void aPendingRowElsewhereIsSettledFirst();

private:
    frmNotes* window() { return m_index->window.findChild<frmNotes*>(); }
    QPlainTextEdit& text() { return *window()->findChild<QPlainTextEdit*>(u"txtNotes"_s); }
    void click(const QString& name)
    {
        QTest::mouseClick(window()->findChild<QPushButton*>(name), Qt::LeftButton);
    }
    void standOn(const QString& tag, int number = column::remarks);
    /// Presses the button of the current cell, and runs the steps while the window is open.
    void press(const std::function<void()>& steps);
    void setRemarks(const QString& remarks);

    std::unique_ptr<IndexFixture> m_index;
};

void TestFrmNotes::init()
{
    m_index = std::make_unique<IndexFixture>();
    m_index->open(m_index->emptyProject());
    m_index->addTag(u"FT-101"_s);
    m_index->addTag(u"FT-102"_s);
    ProgramFixture::execute(m_index->project,
                            u"update qryIndex set Remarks = 'Check the range' where Tag = "
                            u"'FT-102'"_s);
    m_index->open(m_index->project);
    standOn(u"FT-102"_s);
}

void TestFrmNotes::cleanup()
{
    m_index.reset();
}

void TestFrmNotes::standOn(const QString& tag, int number)
{
    m_index->goTo(tag);
    toolkit::DataGrid& grid = m_index->grid();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(grid.currentIndex().row(), number));
}

void TestFrmNotes::press(const std::function<void()>& steps)
{
    bool ran = false;
    QTimer::singleShot(0, &m_index->window, [&] {
        QTRY_VERIFY(window() && window()->isActiveWindow());
        ran = true;
        steps();
        if (window())
            window()->close();
    });
    QTest::keyClick(&m_index->grid(), Qt::Key_Return, Qt::ControlModifier);
    QVERIFY2(ran, "the window did not open");
}

void TestFrmNotes::setRemarks(const QString& remarks)
{
    store::Recordset& tags = m_index->tags();
    tags.Edit();
    tags.SetField(u"Remarks"_s, remarks);
    tags.Update();
}

void TestFrmNotes::theCellsButtonShowsTheRemarksOfTheTag()
{
    press([this] {
        QVERIFY(window()->isModal());
        QCOMPARE(window()->windowTitle(), u"Remarks for tag FT-102"_s);
        QCOMPARE(text().toPlainText(), u"Check the range"_s);
        QVERIFY(text().hasFocus());
        QCOMPARE(window()->findChild<QPushButton*>(u"cmdHelp"_s)->text(), u"&Help"_s);
    });
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(frmNotes(m_index->grid()).windowTitle(), u"Notes for tag....."_s);
    QVERIFY(!window());
}

void TestFrmNotes::theTextGoesToTheCellAndIsWrittenWithItsRow()
{
    press([this] {
        text().moveCursor(QTextCursor::End);
        QTest::keyClicks(&text(), u" twice"_s);
        click(u"CmdOk"_s);
        QVERIFY(!window()->isVisible());
    });
    QCOMPARE(m_index->cellText(column::remarks), u"Check the range twice"_s);
    QVERIFY(m_index->grid().rowPending());
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Remarks"_s), u"Check the range"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Remarks"_s), u"Check the range twice"_s);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestFrmNotes::cancelLeavesTheCellAsItWas_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("cmdCancel") << false;
    QTest::newRow("Escape") << true;
}

void TestFrmNotes::cancelLeavesTheCellAsItWas()
{
    QFETCH(const bool, byKey);
    press([&] {
        QTest::keyClicks(&text(), u"not this"_s);
        if (byKey)
            QTest::keyClick(&text(), Qt::Key_Escape);
        else
            click(u"cmdCancel"_s);
        QVERIFY(!window()->isVisible());
    });
    QCOMPARE(m_index->cellText(column::remarks), u"Check the range"_s);
    QVERIFY(!m_index->grid().rowPending());
}

void TestFrmNotes::anEmptiedTextEmptiesTheCell()
{
    press([this] {
        text().selectAll();
        QTest::keyClick(&text(), Qt::Key_Delete);
        click(u"CmdOk"_s);
    });
    QCOMPARE(m_index->cellText(column::remarks), QString());
    QVERIFY(m_index->grid().rowPending());
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Remarks"_s), QString());
}

void TestFrmNotes::theRowCountsAsChangedAlsoByTheSameText()
{
    press([this] { click(u"CmdOk"_s); });
    QVERIFY(m_index->grid().rowPending());
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Remarks"_s), u"Check the range"_s);
}

void TestFrmNotes::theNotesOfATagThatIsBeingTypedGoToItsRow()
{
    m_index->startNewTag(u"FT-900"_s);
    toolkit::DataGrid& grid = m_index->grid();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(grid.currentIndex().row(), column::remarks));
    press([this] {
        QCOMPARE(text().toPlainText(), QString());
        QTest::keyClicks(&text(), u"new"_s);
        click(u"CmdOk"_s);
    });
    QCOMPARE(m_index->cellText(column::remarks), u"new"_s);
    QCOMPARE(m_index->stored(u"FT-900"_s, u"Remarks"_s), u"(none)"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"FT-900"_s, u"Remarks"_s), u"new"_s);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestFrmNotes::theColumnIsTheCurrentOne()
{
    standOn(u"FT-101"_s, 2);
    frmNotes notes(m_index->grid(), &m_index->window);
    tests::inWindow(
        notes,
        [&] { notes.ShowInfo(u"FT-101"_s); },
        [&] {
            auto* edit = notes.findChild<QPlainTextEdit*>();
            edit->setPlainText(QString());
            QTest::keyClicks(edit, u"Inlet flow"_s);
            QTest::mouseClick(notes.findChild<QPushButton*>(u"CmdOk"_s), Qt::LeftButton);
        });
    QCOMPARE(m_index->cellText(2), u"Inlet flow"_s);
    QCOMPARE(m_index->cellText(column::remarks), QString());
}

void TestFrmNotes::everyTextComesBackAsItWas_data()
{
    QTest::addColumn<QString>("remarks");
    QTest::newRow("lines") << u"one\r\ntwo\r\n\r\nfour\r\n"_s;
    QTest::newRow("blanks") << u"  a\u00a0b\tc  "_s;
    QTest::newRow("letters") << u"±0,5 µm ⌀ größe 试验 \U0001f527 e\u0301"_s;
    QTest::newRow("signs") << u"it's \"so\"; <b>&amp;</b> `$(x)` \\ % {0}"_s;
    QTest::newRow("long") << QString(u"A line of remarks.\r\n"_s).repeated(1000);
    QTest::newRow("long line") << QString(20000, u'x');
}

void TestFrmNotes::everyTextComesBackAsItWas()
{
    QFETCH(const QString, remarks);
    setRemarks(remarks);
    press([this] {
        text().moveCursor(QTextCursor::End);
        QTest::keyClicks(&text(), u"!"_s);
        click(u"CmdOk"_s);
    });
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Remarks"_s), remarks + u'!');
}

void TestFrmNotes::lineBreaksAreThoseOfTheDatabase()
{
    press([this] {
        text().moveCursor(QTextCursor::End);
        QTest::keyClick(&text(), Qt::Key_Return);
        QTest::keyClicks(&text(), u"b"_s);
        QTest::keyClick(&text(), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&text(), u"c"_s);
        click(u"CmdOk"_s);
    });
    QCOMPARE(m_index->cellText(column::remarks), u"Check the range\r\nb\r\nc"_s);
}

void TestFrmNotes::aTextThatNobodyChangedKeepsItsLineBreaks()
{
    setRemarks(u"one\ntwo\rthree"_s);
    press([this] { click(u"CmdOk"_s); });
    QCOMPARE(m_index->cellText(column::remarks), u"one\ntwo\rthree"_s);
}

void TestFrmNotes::helpShowsTheManual()
{
    press([this] {
        click(u"cmdHelp"_s);
        QCOMPARE(tests::helpWindows().size(), 1);
        QVERIFY(window()->isVisible());
    });
    QCOMPARE(m_index->texts(), QStringList());
}

void TestFrmNotes::tabLeavesTheText()
{
    press([this] {
        QTest::keyClick(&text(), Qt::Key_Tab);
        QVERIFY(window()->findChild<QPushButton*>(u"CmdOk"_s)->hasFocus());
        QCOMPARE(text().toPlainText(), u"Check the range"_s);
    });
}

void TestFrmNotes::theTextFollowsTheWindowsSize()
{
    press([this] {
        const QSize before = text().size();
        window()->resize(window()->size() + QSize(100, 80));
        QTRY_COMPARE(text().size(), before + QSize(100, 80));
    });
}

void TestFrmNotes::aWindowThatIsOpenIsNotOpenedAgain()
{
    press([this] {
        window()->ShowInfo(u"FT-101"_s);
        QCOMPARE(window()->windowTitle(), u"Remarks for tag FT-102"_s);
    });
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text,
             u"Error while loading new document Window\r\n400 : The window is open already."_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
}

void TestFrmNotes::aRecordThatIsGoneIsTold()
{
    ProgramFixture::execute(m_index->project,
                            u"delete from [index] where PlantItemNo = 'FT-102'"_s);
    m_index->grid().viewport()->repaint();
    QTest::keyClick(&m_index->grid(), Qt::Key_Return, Qt::ControlModifier);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while showing notes. \r\nError : 3167. "_s),
             qPrintable(shown[0]));
    QVERIFY(!window());
}

void TestFrmNotes::aCellThatCannotTakeTheTextIsTold()
{
    QString typed;
    press([&] {
        QTest::keyClicks(&text(), u"kept "_s);
        m_index->tags().Close();
        click(u"CmdOk"_s);
        QVERIFY(window()->isVisible());
        typed = text().toPlainText();
    });
    QCOMPARE(typed, u"kept Check the range"_s);
    const QStringList shown = m_index->texts();
    QVERIFY(!shown.isEmpty());
    QVERIFY2(shown.last().startsWith(u"Error while loading notes into index\r\n3420 : "_s),
             qPrintable(shown.join(u'|')));
}

void TestFrmNotes::aPendingRowElsewhereIsSettledFirst()
{
    // Another command left a new record pending, while the user stands on an old one.
    m_index->tags().AddNew();
    m_index->cell(column::tag).setValue(u"FT-101"_s);
    m_index->cell(column::remarks).setValue(u"of the new one"_s);
    QCOMPARE(m_index->tags().AbsolutePosition(), 1);
    QTest::keyClick(&m_index->grid(), Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(!window());
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
}

QTEST_MAIN(TestFrmNotes)
#include "tst_frm_notes.moc"
