// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/frmDSType.h"
#include "datasheets/memory_desk.h"
#include "toolkit/data_control.h"

#include <QFile>
#include <QHeaderView>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::datasheets::frmDSType;
using ostrand::tests::MemoryDesk;
using ostrand::tests::ProgramFixture;
using ostrand::tests::SessionDesk;

class TestFrmDSType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowIsModalAndTitled();
    void theInstructionsNameTheTag();
    void theGridShowsTheTypesUnderTheProjectsCaptions();
    void aHeaderClickSorts();
    void aSortThatFailsIsTold();
    void selectCopiesTheChosenTemplate();
    void aDoubleClickSelects();
    void enterSelectsTheCurrentRow();
    void escapeAndCancelMakeNothing();
    void helpAsksForTheManual();
    void nothingIsTypedIntoTheGrid();
    void separatorsInTheTagBecomeHyphens();
    void aMissingTemplateClosesTheWindowWithNothingMade();
    void aCopyThatFailsClosesTheWindowWithNothingMade();
    void aFailureIsToldAndTheWindowStays();
    void aCancelledDialogClosesTheWindow();
    void loadingWithoutAProjectIsTold();

private:
    void open();
    toolkit::DataGrid& grid() { return *m_window->findChild<toolkit::DataGrid*>(u"gridDsType"_s); }
    void click(const QString& name)
    {
        QTest::mouseClick(m_window->findChild<QPushButton*>(name), Qt::LeftButton);
    }
    QString shown(int row, int column)
    {
        return grid().model()->index(row, column).data().toString();
    }
    QPoint placeOf(int row) { return grid().visualRect(grid().model()->index(row, 1)).center(); }
    QString made(const QString& name) const { return m_desk->path(u"sheets/"_s + name); }
    tests::IndexFixture& program() { return m_desk->program(); }

    std::unique_ptr<MemoryDesk> m_desk;
    std::unique_ptr<frmDSType> m_window;
};

void TestFrmDSType::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
    ProgramFixture::execute(m_desk->project(),
                            u"insert into DatasheetTypes (ReportNum, DatasheetType, FileName) "
                            u"values (2, 'ANOTHER SHEET', 'NONE.xlt')"_s);
}

void TestFrmDSType::cleanup()
{
    m_window.reset();
    m_desk.reset();
}

void TestFrmDSType::open()
{
    m_window = std::make_unique<frmDSType>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestFrmDSType::theWindowIsModalAndTitled()
{
    open();
    QCOMPARE(m_window->windowTitle(), u"Select Datasheet Type"_s);
    QVERIFY(m_window->isModal());
    QCOMPARE(m_window->findChild<QPushButton*>(u"cmdSelect"_s)->text(), u"&Select"_s);
    QCOMPARE(m_window->findChild<QPushButton*>(u"cmdCancel"_s)->text(), u"&Cancel"_s);
    QCOMPARE(m_window->findChild<QPushButton*>(u"cmdHelp"_s)->text(), u"&Help"_s);
    QVERIFY(grid().hasFocus());
}

void TestFrmDSType::theInstructionsNameTheTag()
{
    open();
    QCOMPARE(m_window->findChild<QLabel*>(u"lblInstructions"_s)->text(),
             u"Select Datasheet type you want to use for tag \r\nPT-1"_s);
}

void TestFrmDSType::theGridShowsTheTypesUnderTheProjectsCaptions()
{
    open();
    QCOMPARE(grid().ColumnCount(), 3);
    QCOMPARE(grid().Columns(0).Name(), u"ReportNum"_s);
    QCOMPARE(grid().Columns(0).Caption(), u"Report No."_s);
    QCOMPARE(grid().Columns(1).Caption(), u"Datasheet Type"_s);
    QCOMPARE(grid().Columns(2).Caption(), u"Template File"_s);
    QCOMPARE(grid().model()->rowCount(), 2);
    QCOMPARE(shown(0, 1), SessionDesk::type);
    QCOMPARE(shown(0, 2), u"TEST.xlt"_s);
}

void TestFrmDSType::aHeaderClickSorts()
{
    open();
    QHeaderView* header = grid().horizontalHeader();
    QTest::mouseClick(header->viewport(),
                      Qt::LeftButton,
                      {},
                      QPoint(header->sectionViewportPosition(1) + 20, header->height() / 2));
    QCoreApplication::processEvents();
    QCOMPARE(shown(0, 1), u"ANOTHER SHEET"_s);
    QCOMPARE(m_window->findChild<toolkit::DataControl*>(u"dbDsType"_s)->RecordSource(),
             u"select * from qryDsType order by DatasheetType"_s);
}

void TestFrmDSType::aSortThatFailsIsTold()
{
    open();
    auto* types = m_window->findChild<toolkit::DataControl*>(u"dbDsType"_s);
    types->setDatabaseName(m_desk->path(u"gone.mdb"_s));
    m_window->Sort(1);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().at(0);
    QVERIFY2(
        told.startsWith(u"Error while sorting datasheet types spreadsheet. \r\nError : 3024. "_s),
        qPrintable(told));
}

void TestFrmDSType::selectCopiesTheChosenTemplate()
{
    open();
    click(u"cmdSelect"_s);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(program().texts(), QStringList());
    QVERIFY(QFile::exists(made(u"PT-1.xls"_s)));
    QVERIFY(!datasheets::xlHndlr().XlAlreadyOpen());
}

void TestFrmDSType::aDoubleClickSelects()
{
    open();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, placeOf(1));
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, placeOf(1));
    // The second row names a template that is not there.
    QCOMPARE(
        program().texts(),
        QStringList{
            u"Brevane Datasheet Excel Template NONE.xlt does not exist in template directory."_s});
    QVERIFY(!m_window->isVisible());
    open();
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, placeOf(0));
    QVERIFY(QFile::exists(made(u"PT-1.xls"_s)));
    QVERIFY(!m_window->isVisible());
}

void TestFrmDSType::enterSelectsTheCurrentRow()
{
    open();
    QTest::keyClick(&grid(), Qt::Key_Down);
    QTest::keyClick(&grid(), Qt::Key_Up);
    QTest::keyClick(&grid(), Qt::Key_Return);
    QVERIFY(!m_window->isVisible());
    QVERIFY(QFile::exists(made(u"PT-1.xls"_s)));
}

void TestFrmDSType::escapeAndCancelMakeNothing()
{
    open();
    QTest::keyClick(&grid(), Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    open();
    click(u"cmdCancel"_s);
    QVERIFY(!m_window->isVisible());
    QVERIFY(!QFile::exists(made(u"PT-1.xls"_s)));
    QCOMPARE(program().texts(), QStringList());
}

void TestFrmDSType::helpAsksForTheManual()
{
    app::setInstallationFolder(m_desk->path(u"nowhere"_s));
    open();
    click(u"cmdHelp"_s);
    QCOMPARE(
        program().texts(),
        QStringList{u"Unable to launch HTML Help,\r\nor the topic you requested does not exist"_s});
    QVERIFY(m_window->isVisible());
}

void TestFrmDSType::nothingIsTypedIntoTheGrid()
{
    open();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_F2, Qt::Key_Backspace, Qt::Key_Delete})
        QTest::keyClick(&grid(), key);
    QCOMPARE(QApplication::focusWidget(), &grid());
    QVERIFY(!grid().rowPending());
    QCOMPARE(program().texts(), QStringList());
    QTest::keyClick(&grid(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(!grid().hasFocus());
}

void TestFrmDSType::separatorsInTheTagBecomeHyphens()
{
    program().addTag(uR"(PT/7\8)"_s);
    program().open(m_desk->project());
    program().goTo(uR"(PT/7\8)"_s);
    open();
    click(u"cmdSelect"_s);
    QVERIFY(QFile::exists(made(u"PT-7-8.xls"_s)));
}

void TestFrmDSType::aMissingTemplateClosesTheWindowWithNothingMade()
{
    QFile::remove(m_desk->path(u"templates/TEST.xlt"_s));
    open();
    click(u"cmdSelect"_s);
    QCOMPARE(program().texts().size(), 1);
    QVERIFY(!m_window->isVisible());
    QVERIFY(!QFile::exists(made(u"PT-1.xls"_s)));
}

void TestFrmDSType::aCopyThatFailsClosesTheWindowWithNothingMade()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryProjectInfo set attributeValue = '"_s
                                + m_desk->path(u"nowhere"_s)
                                + u"' where attributeName = 'DefaultDatasheetFolder'"_s);
    open();
    click(u"cmdSelect"_s);
    QCOMPARE(
        program().texts(),
        QStringList{u"Error while copying template to datasheet TEST.xlt.76 : Path not found"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmDSType::aFailureIsToldAndTheWindowStays()
{
    ProgramFixture::execute(m_desk->project(), u"delete from DatasheetTypes"_s);
    open();
    click(u"cmdSelect"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().at(0);
    QVERIFY2(told.startsWith(u"Error while saving datasheet.\r\n3021 : "_s), qPrintable(told));
    QVERIFY(m_window->isVisible());
}

void TestFrmDSType::aCancelledDialogClosesTheWindow()
{
    QFile::remove(m_desk->path(u"templates/TEST.xlt"_s));
    open();
    program().prompts.whileOpen = [](const toolkit::Box&) {
        throw store::Error(32755, u"Cancel was selected."_s);
    };
    click(u"cmdSelect"_s);
    QCOMPARE(program().texts().size(), 1);
    QVERIFY(!m_window->isVisible());
}

void TestFrmDSType::loadingWithoutAProjectIsTold()
{
    app::g_strIndexFile = m_desk->path(u"gone.mdb"_s);
    open();
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().at(0);
    QVERIFY2(told.startsWith(u"Error when loading Datasheet Template Window.\r\n3024 : "_s),
             qPrintable(told));
    app::g_strIndexFile = m_desk->project();
}

QTEST_MAIN(TestFrmDSType)
#include "tst_frm_ds_type.moc"
