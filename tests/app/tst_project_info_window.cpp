// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_info_desk.h"
#include "app/state.h"
#include "support/without_root.h"
#include "toolkit/data_control.h"

#include <QAccessible>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ProjectInfoDesk;

class TestProjectInfoWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<ProjectInfoDesk>(); }
    void cleanup() { m_desk.reset(); }

    void theWindowIsModalAndTitled();
    void theControlsHaveTheirCaptions();
    void theGridShowsTheAttributesUnderTheProjectsCaptions();
    void columnsWithoutACaptionOfTheProjectKeepTheirNames();
    void theFirstAttributeIsTheCurrentOne();
    void everyControlHasAnAccessibleName();
    void aProjectThatCannotBeReadIsToldAndNothingOpens_data();
    void aProjectThatCannotBeReadIsToldAndNothingOpens();
    void aProjectWithoutRightsIsToldAndNothingOpens();

    void exitTellsTheMainWindowOfTheLink();
    void closingInAnotherWayDoesNotTellTheMainWindow();
    void closingWritesThePendingRow();
    void closingWithARowThatCannotBeWrittenKeepsTheWindowOpen();
    void closingAnEmptyProjectIsRefusedUntilAnAttributeIsAdded();
    void closingWithoutAProjectIsTold();
    void checksWithoutAProjectAreTold();
    void aNameOfAnAttributeThatIsGoneCannotBeChecked();

    void everyCommandHasItsKey();
    void tabStepsThroughTheCellsAndControlTabLeavesThem();
    void escapeDropsTheRowFirstAndClosesThen();

    void refreshShowsWhatOthersWrote();
    void refreshWithAPendingRowIsTold();
    void aFailedRefreshIsTold();

private:
    std::unique_ptr<ProjectInfoDesk> m_desk;
};

// ---- the window

void TestProjectInfoWindow::theWindowIsModalAndTitled()
{
    m_desk->open([this] {
        QCOMPARE(m_desk->window.windowTitle(), u"Project Information"_s);
        QVERIFY(m_desk->window.isModal());
        QVERIFY(m_desk->grid().hasFocus());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoWindow::theControlsHaveTheirCaptions()
{
    m_desk->open([this] {
        QCOMPARE(m_desk->control<QPushButton>(u"cmdLocateDir"_s)->text(), u"&Browse"_s);
        QCOMPARE(m_desk->control<QPushButton>(u"cmdLocateDir"_s)->toolTip(),
                 u"Locate Default Folders"_s);
        QCOMPARE(m_desk->control<QPushButton>(u"cmdSave"_s)->text(), u"&Save"_s);
        QCOMPARE(m_desk->control<QPushButton>(u"cmdDelete"_s)->text(), u"&Delete"_s);
        QCOMPARE(m_desk->control<QPushButton>(u"cmdRefresh"_s)->text(), u"&Refresh"_s);
        QCOMPARE(m_desk->control<QPushButton>(u"cmdExit"_s)->text(), u"&Exit"_s);
    });
}

void TestProjectInfoWindow::theGridShowsTheAttributesUnderTheProjectsCaptions()
{
    ProgramFixture::execute(m_desk->project,
                            u"update FormColumnNames set DisplayName = 'What it is' where FormName "
                            u"= 'frmProjectInfo' and columnName = 'attributeValue'"_s);
    ProgramFixture::execute(m_desk->project,
                            u"delete from FormColumnNames where FormName = 'frmProjectInfo' and "
                            u"columnName = 'attributeName'"_s);
    m_desk->open([this] {
        QCOMPARE(m_desk->grid().ColumnCount(), 2);
        QCOMPARE(m_desk->grid().Columns(0).Name(), u"attributeName"_s);
        QCOMPARE(m_desk->grid().Columns(1).Name(), u"attributeValue"_s);
        QCOMPARE(m_desk->grid().Columns(0).Caption(), u"attributeName"_s);
        QCOMPARE(m_desk->grid().Columns(1).Caption(), u"What it is"_s);
        QCOMPARE(m_desk->data().RecordSource(), u"qryProjectInfo"_s);
    });
}

void TestProjectInfoWindow::columnsWithoutACaptionOfTheProjectKeepTheirNames()
{
    ProgramFixture::execute(m_desk->project,
                            u"delete from FormColumnNames where FormName = 'frmProjectInfo'"_s);
    m_desk->open([this] {
        QCOMPARE(m_desk->grid().Columns(0).Caption(), u"attributeName"_s);
        QCOMPARE(m_desk->grid().Columns(1).Caption(), u"attributeValue"_s);
    });
}

void TestProjectInfoWindow::theFirstAttributeIsTheCurrentOne()
{
    m_desk->open([this] {
        QCOMPARE(m_desk->data().Recordset().AbsolutePosition(), 0);
        QCOMPARE(m_desk->grid().currentIndex().row(), 0);
        const QString first = ProgramFixture::value(
            m_desk->project, u"select attributeName from qryProjectInfo order by attributeName"_s);
        QCOMPARE(m_desk->cell(0), first);
    });
}

void TestProjectInfoWindow::everyControlHasAnAccessibleName()
{
    m_desk->open([this] {
        for (auto* widget : m_desk->window.findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()
                || widget->objectName().startsWith(u"qt_"_s))
                continue;
            auto* face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(!face->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
        }
    });
}

void TestProjectInfoWindow::aProjectThatCannotBeReadIsToldAndNothingOpens_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::newRow("gone") << u"gone.mdb"_s << 3024;
    QTest::newRow("no folder") << u"gone/project.mdb"_s << 3044;
    QTest::newRow("no database") << u"text.mdb"_s << 3343;
}

void TestProjectInfoWindow::aProjectThatCannotBeReadIsToldAndNothingOpens()
{
    QFETCH(QString, file);
    QFETCH(int, number);
    m_desk->file(u"text.mdb"_s, "no database at all, but a text that is long enough");
    app::g_strIndexFile = m_desk->path(file);
    m_desk->window.ShowInfo();
    m_desk->expectFailure(u"Error while loading Project Information.\r\n"_s
                          + QString::number(number) + u" : "_s);
    QVERIFY(!m_desk->window.isVisible());
}

void TestProjectInfoWindow::aProjectWithoutRightsIsToldAndNothingOpens()
{
    ::chmod(m_desk->path(QString()).toUtf8().constData(), 0755);
    ::chmod(m_desk->project.toUtf8().constData(), 0444);
    {
        const tests::WithoutRoot user;
        m_desk->window.ShowInfo();
    }
    m_desk->expectFailure(u"Error while loading Project Information.\r\n3051 : "_s);
    QVERIFY(!m_desk->window.isVisible());
}

// ---- closing

void TestProjectInfoWindow::exitTellsTheMainWindowOfTheLink()
{
    m_desk->prompts.files = {m_desk->file(u"plant.mdb"_s, "x")};
    m_desk->open([this] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->press(u"cmdExit"_s);
        QVERIFY(!m_desk->window.isVisible());
    });
    QVERIFY(app::g_blnPidLinked);
    QCOMPARE(m_desk->log, QStringList{u"ableButton(True)"_s});
    QCOMPARE(m_desk->stored(u"DefaultP&IDDatabase"_s), m_desk->path(u"plant.mdb"_s));
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoWindow::closingInAnotherWayDoesNotTellTheMainWindow()
{
    m_desk->prompts.files = {m_desk->file(u"plant.mdb"_s, "x")};
    m_desk->open([this] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QVERIFY(m_desk->window.close());
    });
    QCOMPARE(m_desk->stored(u"DefaultP&IDDatabase"_s), m_desk->path(u"plant.mdb"_s));
    QVERIFY(!app::g_blnPidLinked);
    QCOMPARE(m_desk->log, QStringList());
}

void TestProjectInfoWindow::closingWritesThePendingRow()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"Heronsfield"_s);
        QVERIFY(m_desk->window.close());
    });
    QCOMPARE(m_desk->stored(u"plant"_s), u"Heronsfield"_s);
}

void TestProjectInfoWindow::closingWithARowThatCannotBeWrittenKeepsTheWindowOpen()
{
    m_desk->open([this] {
        m_desk->goToNewRow();
        m_desk->type(u"plant"_s);
        m_desk->press(u"cmdExit"_s);
        m_desk->expectFailure(u"Error while saving index title data .\r\n3022 : "_s);
        QVERIFY(m_desk->window.isVisible());
        m_desk->grid().cancelRow();
        m_desk->goToNewRow(app::infoColumn::value);
        m_desk->type(u"a value"_s);
        QVERIFY(!m_desk->window.close());
        m_desk->expectFailure(u"Property column should not be null\r\nor press escape to cancel"_s);
        QVERIFY(m_desk->window.isVisible());
        m_desk->grid().cancelRow();
        QVERIFY(m_desk->window.close());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoWindow::closingAnEmptyProjectIsRefusedUntilAnAttributeIsAdded()
{
    ProgramFixture::execute(m_desk->project, u"delete from ProjectInfo"_s);
    m_desk->open([this] {
        m_desk->press(u"cmdExit"_s);
        m_desk->expectNotice(u"Save Instrument Index Title information before closing window!"_s);
        QVERIFY(m_desk->window.isVisible());
        m_desk->goToNewRow();
        m_desk->type(u"plant"_s);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"plant"_s), u"(null)"_s);
        m_desk->press(u"cmdExit"_s);
        QVERIFY(!m_desk->window.isVisible());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoWindow::closingWithoutAProjectIsTold()
{
    m_desk->window.show();
    QVERIFY(m_desk->window.close());
    m_desk->expectFailure(
        u"Error while checking for Instrument Index Title Information.\r\n91 : "_s);
}

void TestProjectInfoWindow::checksWithoutAProjectAreTold()
{
    QVERIFY(m_desk->window.IsAttributeStatic());
    m_desk->expectFailure(u"Error while checking if Instrument Index Information attribute is "
                          u"static.\r\n91 : "_s);
    QVERIFY(!m_desk->window.ValidateAttribute());
    QCOMPARE(m_desk->texts().filter(u"Error while validating index title data .\r\n91 : "_s).size(),
             1);
}

void TestProjectInfoWindow::aNameOfAnAttributeThatIsGoneCannotBeChecked()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    m_desk->open([this] {
        m_desk->goTo(u"client"_s);
        QVERIFY(!m_desk->window.IsAttributeStatic());
        m_desk->data().Recordset().Delete();
        QVERIFY(m_desk->window.IsAttributeStatic());
        const QString told = m_desk->texts().value(0);
        QVERIFY2(told.startsWith(u"Error while checking if Instrument Index Information attribute "
                                 u"is static.\r\n3"_s),
                 qPrintable(told));
    });
}

// ---- the keyboard

void TestProjectInfoWindow::everyCommandHasItsKey()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->pressByKey(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->prompts.folderTitles.size(), 1);
        m_desk->pressByKey(u"cmdSave"_s);
        m_desk->expectFailure(u"Save cannot succeed without addnew or delete operation"_s);
        m_desk->grid().setFocus();
        m_desk->pressByKey(u"cmdDelete"_s);
        m_desk->expectNotice(u"This property cannot be deleted. It is used by program."_s);
        m_desk->data().setDatabaseName(m_desk->path(u"gone.mdb"_s));
        m_desk->pressByKey(u"cmdRefresh"_s);
        m_desk->expectFailure(u"An error occured during operation\r\n3024 "_s);
        m_desk->pressByKey(u"cmdExit"_s);
        QVERIFY(!m_desk->window.isVisible());
    });
}

void TestProjectInfoWindow::tabStepsThroughTheCellsAndControlTabLeavesThem()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s, app::infoColumn::name);
        m_desk->key(Qt::Key_Tab);
        QCOMPARE(m_desk->grid().Col(), int{app::infoColumn::value});
        m_desk->key(Qt::Key_Tab, Qt::ControlModifier);
        for (const char* name : {"cmdLocateDir", "cmdSave", "cmdDelete", "cmdRefresh", "cmdExit"}) {
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
            m_desk->key(Qt::Key_Tab);
        }
        QVERIFY(m_desk->grid().hasFocus());
    });
}

void TestProjectInfoWindow::escapeDropsTheRowFirstAndClosesThen()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"x"_s);
        m_desk->key(Qt::Key_Backtab);
        QVERIFY(m_desk->grid().rowPending());
        m_desk->key(Qt::Key_Escape);
        QVERIFY(!m_desk->grid().rowPending());
        QVERIFY(m_desk->window.isVisible());
        m_desk->key(Qt::Key_Escape);
        QVERIFY(!m_desk->window.isVisible());
    });
    QCOMPARE(m_desk->stored(u"plant"_s), u"(null)"_s);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->log, QStringList());
}

// ---- refreshing

void TestProjectInfoWindow::refreshShowsWhatOthersWrote()
{
    m_desk->open([this] {
        const int rows = m_desk->grid().model()->rowCount();
        m_desk->add(u"client"_s, u"Brevane"_s);
        m_desk->press(u"cmdRefresh"_s);
        QCOMPARE(m_desk->grid().model()->rowCount(), rows + 1);
        m_desk->goTo(u"client"_s);
        QCOMPARE(m_desk->value(), u"Brevane"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoWindow::refreshWithAPendingRowIsTold()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"x"_s);
        m_desk->press(u"cmdRefresh"_s);
        m_desk->expectFailure(
            u"Refresh command is not allowed without addnew or delete operation"_s);
        QVERIFY(m_desk->grid().rowPending());
        QCOMPARE(m_desk->value(), u"x"_s);
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoWindow::aFailedRefreshIsTold()
{
    m_desk->open([this] {
        m_desk->data().setDatabaseName(m_desk->path(u"gone.mdb"_s));
        m_desk->press(u"cmdRefresh"_s);
        m_desk->expectFailure(u"An error occured during operation\r\n3024 "_s);
        QVERIFY(m_desk->grid().model()->rowCount() > 1);
    });
}

QTEST_MAIN(TestProjectInfoWindow)
#include "tst_project_info_window.moc"
