// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modCheckImpExp.h"
#include "app/modFormFieldNaming.h"
#include "app/state.h"
#include "support/program_fixture.h"
#include "toolkit/data_grid.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

class TestModules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void aProjectThatNamesAPidDatabaseIsLinked_data();
    void aProjectThatNamesAPidDatabaseIsLinked();
    void aProjectWithoutTheAttributeIsNotLinked();
    void aFailedCheckIsToldAndChangesNothing();

    void columnsTakeTheirCaptionsFromTheProject();
    void aColumnWithoutARowKeepsItsCaption();
    void aRowWithoutAColumnHasNoEffect();
    void aWindowWithoutRowsKeepsAllCaptions();
    void aNullNameIsAnEmptyCaption();
    void theNamesAreReadAnewEachTime();
    void aFailureIsToldAndKeepsTheCaptions();
    void aFailureBetweenKeepsTheCaptionsSetBefore();

private:
    static toolkit::GridColumn column(const QString& name);
    static QStringList captions(toolkit::DataGrid& grid);
    void name(const QString& form, const QString& column, const QString& caption) const;
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestModules::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    app::g_strIndexFile = m_fixture->emptyProject();
}

toolkit::GridColumn TestModules::column(const QString& name)
{
    return {.name = name, .field = QString(), .caption = u"design "_s + name};
}

QStringList TestModules::captions(toolkit::DataGrid& grid)
{
    QStringList list;
    for (int i = 0; i < grid.ColumnCount(); ++i)
        list << grid.Columns(i).Caption();
    return list;
}

void TestModules::name(const QString& form, const QString& column, const QString& caption) const
{
    ProgramFixture::execute(
        app::g_strIndexFile,
        u"insert into FormColumnNames (FormName, columnName, DisplayName) values ('"_s + form
            + u"', '"_s + column + u"', "_s + caption + u")"_s);
}

void TestModules::aProjectThatNamesAPidDatabaseIsLinked_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("linked");
    QTest::newRow("a file") << u"'pid.mdb'"_s << true;
    QTest::newRow("an empty text") << u"''"_s << true;
    QTest::newRow("Null") << u"null"_s << false;
}

void TestModules::aProjectThatNamesAPidDatabaseIsLinked()
{
    QFETCH(const QString, value);
    QFETCH(const bool, linked);
    ProgramFixture::execute(app::g_strIndexFile,
                            u"update qryProjectInfo set attributeValue = "_s + value
                                + u" where attributeName = 'DefaultP&IDDatabase'"_s);
    app::g_blnPidLinked = !linked;
    app::CheckImpExp();
    QCOMPARE(app::g_blnPidLinked, linked);
    QCOMPARE(texts(), QStringList());
}

void TestModules::aProjectWithoutTheAttributeIsNotLinked()
{
    ProgramFixture::execute(
        app::g_strIndexFile,
        u"delete from ProjectInfo where attributeName = 'DefaultP&IDDatabase'"_s);
    app::g_blnPidLinked = true;
    app::CheckImpExp();
    QVERIFY(!app::g_blnPidLinked);
}

void TestModules::aFailedCheckIsToldAndChangesNothing()
{
    app::g_strIndexFile = m_fixture->path(u"gone.mdb"_s);
    app::g_blnPidLinked = true;
    app::CheckImpExp();
    QVERIFY(app::g_blnPidLinked);
    QVERIFY(m_fixture->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"An Error Has Occured During the Operation\r\n3024 "_s),
             qPrintable(shown[0]));
    QVERIFY(shown[0].section(u"3024 "_s, 1).contains(u"gone.mdb"_s));
}

void TestModules::columnsTakeTheirCaptionsFromTheProject()
{
    toolkit::DataGrid grid;
    grid.addColumn(column(u"RevNo"_s));
    grid.addColumn(column(u"createdBy"_s));
    app::SetColumnNames(grid, u"frmIndexRev"_s);
    QCOMPARE(captions(grid), (QStringList{u"Rev. No."_s, u"Created By"_s}));
    QCOMPARE(grid.Columns(0).Name(), u"RevNo"_s);
    QCOMPARE(texts(), QStringList());
}

void TestModules::aColumnWithoutARowKeepsItsCaption()
{
    toolkit::DataGrid grid;
    grid.addColumn(column(u"unknown"_s));
    grid.addColumn(column(u"RevNo"_s));
    grid.addColumn(column(u"Tag"_s)); // named, but for another window
    app::SetColumnNames(grid, u"frmIndexRev"_s);
    QCOMPARE(captions(grid), (QStringList{u"design unknown"_s, u"Rev. No."_s, u"design Tag"_s}));
}

void TestModules::aRowWithoutAColumnHasNoEffect()
{
    name(u"frmShort"_s, u"Absent"_s, u"'Not shown'"_s);
    name(u"frmShort"_s, u"Present"_s, u"'Shown'"_s);
    toolkit::DataGrid grid;
    grid.addColumn(column(u"Present"_s));
    app::SetColumnNames(grid, u"frmShort"_s);
    QCOMPARE(captions(grid), QStringList{u"Shown"_s});
    QCOMPARE(texts(), QStringList());
}

void TestModules::aWindowWithoutRowsKeepsAllCaptions()
{
    toolkit::DataGrid grid;
    grid.addColumn(column(u"RevNo"_s));
    app::SetColumnNames(grid, u"frmOther"_s);
    QCOMPARE(captions(grid), QStringList{u"design RevNo"_s});
    QCOMPARE(texts(), QStringList());
}

void TestModules::aNullNameIsAnEmptyCaption()
{
    name(u"frmShort"_s, u"A"_s, u"null"_s);
    toolkit::DataGrid grid;
    grid.addColumn(column(u"A"_s));
    app::SetColumnNames(grid, u"frmShort"_s);
    QCOMPARE(captions(grid), QStringList{QString()});
}

void TestModules::theNamesAreReadAnewEachTime()
{
    toolkit::DataGrid grid;
    grid.addColumn(column(u"A"_s));
    name(u"frmShort"_s, u"A"_s, u"'one'"_s);
    app::SetColumnNames(grid, u"frmShort"_s);
    ProgramFixture::execute(
        app::g_strIndexFile,
        u"update FormColumnNames set DisplayName = 'two' where FormName = 'frmShort'"_s);
    app::SetColumnNames(grid, u"frmShort"_s);
    QCOMPARE(captions(grid), QStringList{u"two"_s});
}

void TestModules::aFailureIsToldAndKeepsTheCaptions()
{
    app::g_strIndexFile = m_fixture->path(u"gone.mdb"_s);
    toolkit::DataGrid grid;
    grid.addColumn(column(u"RevNo"_s));
    app::SetColumnNames(grid, u"frmIndexRev"_s);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while naming columns. \r\nError : 3024. "_s),
             qPrintable(shown[0]));
    QCOMPARE(captions(grid), QStringList{u"design RevNo"_s});
}

void TestModules::aFailureBetweenKeepsTheCaptionsSetBefore()
{
    toolkit::DataGrid grid;
    grid.addColumn(column(u"RevNo"_s));
    grid.addColumn(column(u"maker's mark"_s)); // no condition can be made of it
    grid.addColumn(column(u"Date"_s));
    app::SetColumnNames(grid, u"frmIndexRev"_s);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while naming columns. \r\nError : "_s),
             qPrintable(shown[0]));
    QCOMPARE(captions(grid),
             (QStringList{u"Rev. No."_s, u"design maker's mark"_s, u"design Date"_s}));
}

QTEST_MAIN(TestModules)
#include "tst_modules.moc"
