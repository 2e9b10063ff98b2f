// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What the replacement of the logo does to one workbook, and what it tells of one that fails.
#include "datasheets/CLogoChg.h"
#include "datasheets/logo_desk.h"
#include "spreadsheet/error.h"
#include "store/quoting.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::LogoDesk;
using tests::WorkbookContent;
using toolkit::BoxButtons;
using toolkit::BoxIcon;

namespace {

const QString done = u"Datasheet logo operation completed"_s;
const QString file = u"a.xls"_s;

QString opening(const QString& what)
{
    return u"Error while opening Excel Spreadsheet "_s + what + u".\r\n"_s;
}

} // namespace

class TestLogoChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void everySheetGetsTheLogoAtItsPlace();
    void theRestOfTheWorkbookStays();
    void aLogoIsKnownByItsNameInAnyCase();
    void aSheetWithoutALogoKeepsItsPictures();
    void ofTwoLogosTheFirstGoes();
    void aSheetThatTheProjectDoesNotNameStays();
    void theLastDefaultSheetComesToTheFront();
    void withoutADefaultTheFirstSheetComesToTheFront();
    void aTypeWithoutRowsBringsItsFirstSheetToTheFront();
    void placesAreOfSinglePrecision();
    void emptyPlacesAreTheCorner();
    void aLargeLogoIsMadeSmallerInItsProportions();
    void aSmallLogoKeepsItsSize();
    void aTemplateIsSavedAsATemplate();
    void aTypeMayHoldAnyMark_data();
    void aTypeMayHoldAnyMark();
    void whatIsTypedMeanwhileIsDropped();

    void aWorkbookWithoutATypeIsToldTwice();
    void aTypeThatCannotBeFoundIsAskedAbout();
    void aMissingSheetIsTold();
    void aPasswordIsTold();
    void aCellThatThereIsNotIsTold();
    void aFileThatIsNoWorkbookIsTold();
    void aReadOnlyFileIsToldAndStays();
    void aFileThatVanishesIsTold();
    void anApplicationThatEndsIsTold();
    void anApplicationThatEndsEarlyIsToldTwice();
    void aMissingApplicationIsTold();
    void aMissingProjectIsTold();
    void noBoxLiesBehindAWorkbook();
    void aWorkbookInWorkIsNotDisturbed();

private:
    /// Runs over the one datasheet; what was told before the completion.
    QStringList told()
    {
        QStringList texts = m_desk->run();
        if (texts.isEmpty() || texts.takeLast() != done)
            return {u"no completion"_s};
        return texts;
    }
    void write(const WorkbookContent& content) const
    {
        writeWorkbook(m_desk->sheetFile(file), content);
    }
    WorkbookContent book() const { return LogoDesk::book(m_desk->sheetFile(file)); }
    QStringList pictures(int sheet = 0) const
    {
        return LogoDesk::pictures(m_desk->sheetFile(file), sheet);
    }
    /// The datasheet is as it was, and one more behind it has its logo.
    void verifyOnlyTheNextIsChanged() const
    {
        QCOMPARE(pictures(), QStringList{u"LOGO old at 0, 0"_s});
        QCOMPARE(book().active, 1);
        QVERIFY(m_desk->hasNewLogo(u"b.xls"_s));
    }

    std::unique_ptr<LogoDesk> m_desk;
};

void TestLogoChange::init()
{
    m_desk = std::make_unique<LogoDesk>();
    m_desk->giveSheets({file});
}

void TestLogoChange::everySheetGetsTheLogoAtItsPlace()
{
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(0), QStringList{u"logo new.png at 2, 3"_s});
    QCOMPARE(pictures(1), QStringList{u"logo new.png at 4.5, 5"_s});
    const WorkbookContent content = book();
    QCOMPARE(content.sheets[0].pictures[0].anchor, u"A1"_s);
    QCOMPARE(content.sheets[1].pictures[0].anchor, u"B2"_s);
    QCOMPARE(content.sheets[0].currentCell, u"D11"_s);
    QCOMPARE(content.sheets[1].currentCell, u"B14"_s);
    QVERIFY(content.sheets[0].isProtected && content.sheets[1].isProtected);
    QCOMPARE(content.active, 0);
}

void TestLogoChange::theRestOfTheWorkbookStays()
{
    told();
    const WorkbookContent content = book();
    QCOMPARE(content.properties, LogoDesk::usual().properties);
    QVERIFY(content.sheets[0].cells == LogoDesk::usual().sheets[0].cells);
    QVERIFY(!content.isTemplate);
}

void TestLogoChange::aLogoIsKnownByItsNameInAnyCase()
{
    WorkbookContent content = LogoDesk::usual();
    content.sheets[0].pictures = {{.name = u"photo"_s}, {.name = u"LoGo"_s}, {.name = u"LOGO 2"_s}};
    write(content);
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(),
             (QStringList{u"photo  at 0, 0"_s, u"LOGO 2  at 0, 0"_s, u"logo new.png at 2, 3"_s}));
}

void TestLogoChange::aSheetWithoutALogoKeepsItsPictures()
{
    WorkbookContent content = LogoDesk::usual();
    content.sheets[0].pictures = {{.name = u"photo"_s}};
    content.sheets[0].isProtected = false;
    write(content);
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(), QStringList{u"photo  at 0, 0"_s});
    QVERIFY(book().sheets[0].isProtected);
    QCOMPARE(book().sheets[0].currentCell, u"D11"_s);
}

void TestLogoChange::ofTwoLogosTheFirstGoes()
{
    WorkbookContent content = LogoDesk::usual();
    content.sheets[0].pictures = {{.name = u"LOGO"_s, .file = u"first"_s},
                                  {.name = u"LOGO"_s, .file = u"second"_s, .left = 50}};
    write(content);
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(), (QStringList{u"LOGO second at 50, 0"_s, u"logo new.png at 2, 3"_s}));
}

void TestLogoChange::aSheetThatTheProjectDoesNotNameStays()
{
    WorkbookContent content = LogoDesk::usual();
    content.sheets.push_back({.name = u"Own"_s, .pictures = {{.name = u"LOGO"_s}}});
    write(content);
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(2), QStringList{u"LOGO  at 0, 0"_s});
    QVERIFY(!book().sheets[2].isProtected);
}

void TestLogoChange::theLastDefaultSheetComesToTheFront()
{
    m_desk->dropRows();
    m_desk->addRow(u"'DATASHEET', 'A1', 2, 3, 'D11', True"_s);
    m_desk->addRow(u"'NOTES', 'A1', 2, 3, 'B14', True"_s);
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().active, 1);
}

void TestLogoChange::withoutADefaultTheFirstSheetComesToTheFront()
{
    m_desk->dropRows();
    m_desk->addRow(u"'NOTES', 'A1', 2, 3, 'B14', False"_s);
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().active, 0);
    QCOMPARE(pictures(0), QStringList{u"LOGO old at 0, 0"_s});
    QCOMPARE(pictures(1), QStringList{u"logo new.png at 2, 3"_s});
}

void TestLogoChange::aTypeWithoutRowsBringsItsFirstSheetToTheFront()
{
    write(LogoDesk::usual(u"UNKNOWN"_s));
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().active, 0);
    QCOMPARE(pictures(), QStringList{u"LOGO old at 0, 0"_s});
    QVERIFY(book().sheets[0].currentCell.isEmpty());
}

void TestLogoChange::placesAreOfSinglePrecision()
{
    m_desk->dropRows();
    m_desk->addRow(u"'DATASHEET', 'A1', 0.1, 1.23456789, 'D11', True"_s);
    QCOMPARE(told(), QStringList());
    const tests::PictureContent logo = book().sheets[0].pictures[0];
    QCOMPARE(logo.left, double{0.1F});
    QCOMPARE(logo.top, double{1.23456789F});
}

void TestLogoChange::emptyPlacesAreTheCorner()
{
    m_desk->dropRows();
    m_desk->addRow(u"'DATASHEET', 'A1', Null, Null, 'D11', True"_s);
    QCOMPARE(told(), QStringList());
    QCOMPARE(pictures(), QStringList{u"logo new.png at 0, 0"_s});
}

void TestLogoChange::aLargeLogoIsMadeSmallerInItsProportions()
{
    m_desk->office.pictureSize = {1000, 100};
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().sheets[0].pictures[0].width, 200.0);
    QCOMPARE(book().sheets[0].pictures[0].height, 20.0);
    m_desk->office.pictureSize = {100, 400};
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().sheets[0].pictures[0].width, 10.0);
    QCOMPARE(book().sheets[0].pictures[0].height, 40.0);
}

void TestLogoChange::aSmallLogoKeepsItsSize()
{
    m_desk->office.pictureSize = {30, 20};
    QCOMPARE(told(), QStringList());
    QCOMPARE(book().sheets[0].pictures[0].width, 30.0);
    QCOMPARE(book().sheets[0].pictures[0].height, 20.0);
}

void TestLogoChange::aTemplateIsSavedAsATemplate()
{
    const QString path = m_desk->templateFile(u"T.xlt"_s);
    writeWorkbook(path, LogoDesk::usual());
    QCOMPARE(m_desk->run(LogoDesk::templates), QStringList{u"Template logo operation completed"_s});
    QVERIFY(LogoDesk::book(path).isTemplate);
    QCOMPARE(LogoDesk::pictures(path), QStringList{u"logo new.png at 2, 3"_s});
    QCOMPARE(pictures(), QStringList{u"LOGO old at 0, 0"_s});
}

void TestLogoChange::aTypeMayHoldAnyMark_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("apostrophe") << u"O'Neill"_s;
    QTest::newRow("quotation mark") << u"12\" VALVE"_s;
    QTest::newRow("several") << u"\"12\"\" 'VALVE'\""_s;
}

void TestLogoChange::aTypeMayHoldAnyMark()
{
    QFETCH(const QString, type);
    LogoDesk::execute(m_desk->project,
                      u"update DtShtWorksheets set DatasheetType = '"_s + store::quoted(type)
                          + u"' where DatasheetType = 'LOGO SHEET'"_s);
    write(LogoDesk::usual(type));
    QCOMPARE(told(), QStringList());
    QVERIFY(m_desk->hasNewLogo(file));
}

void TestLogoChange::whatIsTypedMeanwhileIsDropped()
{
    int times = 0;
    m_desk->office.whenInserted = [&](const QString&) {
        ++times;
        m_desk->office.typeIn(LogoDesk::front, u"D12"_s, u"lost"_s);
    };
    QCOMPARE(told(), QStringList());
    QCOMPARE(times, 2);
    QVERIFY(book().sheets[0].cells == LogoDesk::usual().sheets[0].cells);
}

// ---- what fails

void TestLogoChange::aWorkbookWithoutATypeIsToldTwice()
{
    m_desk->giveSheets({u"b.xls"_s});
    WorkbookContent content = LogoDesk::usual();
    content.properties.clear();
    write(content);
    const QStringList texts = told();
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts[0], opening(file) + u"5 : There is no such property"_s);
    QCOMPARE(texts[1], u"Datasheet a.xls is invalid datasheet"_s);
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aTypeThatCannotBeFoundIsAskedAbout()
{
    m_desk->giveSheets({u"b.xls"_s});
    m_desk->prompts.answers = {toolkit::Answer::Yes};
    int left = 1;
    m_desk->office.whenAsked = [&left](const QString& name) {
        if (name == u"DatasheetType"_s && left-- > 0)
            throw spreadsheet::Error(1004, u"Made for a test"_s);
    };
    toolkit::Box asked;
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.buttons == BoxButtons::YesNo)
            asked = box;
    };
    const QStringList texts = told();
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts[0],
             u"Error while trying to open datasheet a.xls. File either doesn't exist or has been "
             u"moved.\r\n\r\nDo you wish to locate datasheet?\r\n\r\nTo create a new datasheet, "
             u"delete the datasheet file name and datasheet file path from tag record in the "
             u"index."_s);
    QVERIFY(asked.icon == BoxIcon::Question);
    QCOMPARE(asked.title, toolkit::programTitle());
    QCOMPARE(texts[1], u"Datasheet a.xls is invalid datasheet"_s);
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aMissingSheetIsTold()
{
    m_desk->giveSheets({u"b.xls"_s});
    WorkbookContent content = LogoDesk::usual();
    content.sheets[1].name = u"REMARKS"_s;
    write(content);
    QCOMPARE(told(), QStringList{u"Datasheet a.xls is invalid datasheet"_s});
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aPasswordIsTold()
{
    m_desk->giveSheets({u"b.xls"_s});
    WorkbookContent content = LogoDesk::usual();
    content.sheets[1].password = u"secret"_s;
    write(content);
    QCOMPARE(told(), QStringList{u"1004  a.xls: The password is not correct"_s});
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aCellThatThereIsNotIsTold()
{
    m_desk->dropRows();
    m_desk->addRow(u"'DATASHEET', '', 2, 3, 'D11', True"_s);
    QCOMPARE(told(), QStringList{u"1004  a.xls: The reference is not valid"_s});
    m_desk->dropRows();
    m_desk->addRow(u"'DATASHEET', 'A1', 2, 3, 'nowhere', True"_s);
    QCOMPARE(told(), QStringList{u"1004  a.xls: The reference is not valid"_s});
    QCOMPARE(pictures(), QStringList{u"LOGO old at 0, 0"_s});
}

void TestLogoChange::aFileThatIsNoWorkbookIsTold()
{
    m_desk->giveSheets({u"b.xls"_s});
    m_desk->file(u"sheets/a.xls"_s, "no workbook");
    QCOMPARE(told(), QStringList{u"321  a.xls: The file is no workbook"_s});
    QVERIFY(m_desk->hasNewLogo(u"b.xls"_s));
}

void TestLogoChange::aReadOnlyFileIsToldAndStays()
{
    m_desk->giveSheets({u"b.xls"_s});
    QVERIFY(QFile::setPermissions(m_desk->sheetFile(file), QFile::ReadOwner));
    QCOMPARE(told(), QStringList{u"70  a.xls: Permission denied"_s});
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aFileThatVanishesIsTold()
{
    m_desk->giveSheets({u"b.xls"_s, u"c.xls"_s});
    m_desk->office.whenSaved = [this](const QString& path, const QString&) {
        if (path.endsWith(file))
            QFile::remove(m_desk->sheetFile(u"b.xls"_s));
    };
    QCOMPARE(told(), QStringList{u"1004  b.xls: The file was not found"_s});
    QVERIFY(m_desk->hasNewLogo(u"c.xls"_s));
    QVERIFY(!QFile::exists(m_desk->sheetFile(u"b.xls"_s)));
}

void TestLogoChange::anApplicationThatEndsIsTold()
{
    m_desk->giveSheets({u"b.xls"_s});
    m_desk->office.whenSaved = [this](const QString& path, const QString&) {
        if (path.endsWith(file)) {
            m_desk->office.kill();
            throw spreadsheet::Error(spreadsheet::errors::serverGone, u"gone"_s);
        }
    };
    QCOMPARE(told(), QStringList{opening(m_desk->sheetFile(file)) + u"462 : gone"_s});
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::anApplicationThatEndsEarlyIsToldTwice()
{
    m_desk->giveSheets({u"b.xls"_s});
    int left = 1;
    m_desk->office.whenAsked = [this, &left](const QString& name) {
        if (name == u"DatasheetType"_s && left-- > 0) {
            m_desk->office.kill();
            throw spreadsheet::Error(spreadsheet::errors::serverGone, u"gone"_s);
        }
    };
    const QStringList texts = told();
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts[0], opening(file) + u"462 : gone"_s);
    QVERIFY2(texts[1].startsWith(opening(m_desk->sheetFile(file)) + u"462 : "_s),
             qPrintable(texts[1]));
    verifyOnlyTheNextIsChanged();
}

void TestLogoChange::aMissingApplicationIsTold()
{
    m_desk->office.isInstalled = false;
    QCOMPARE(told(), QStringList{u"429  a.xls: ActiveX component can't create object"_s});
}

void TestLogoChange::aMissingProjectIsTold()
{
    const QString project = app::g_strIndexFile;
    app::g_strIndexFile = m_desk->path(u"nowhere.mdb"_s);
    const QStringList texts = told();
    app::g_strIndexFile = project;
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"3024  "_s), qPrintable(texts[0]));
}

void TestLogoChange::noBoxLiesBehindAWorkbook()
{
    WorkbookContent content = LogoDesk::usual();
    content.sheets[1].name = u"REMARKS"_s;
    write(content);
    bool wasVisible = false;
    m_desk->office.whenAsked = [&](const QString& name) {
        if (name == u"D11"_s)
            wasVisible = m_desk->office.isVisible();
    };
    int boxes = 0;
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        ++boxes;
        QVERIFY(!m_desk->office.isVisible());
        QVERIFY(!QGuiApplication::overrideCursor()
                || QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor);
        QVERIFY(box.icon == (box.text == done ? BoxIcon::Information : BoxIcon::Exclamation));
        QCOMPARE(box.title, toolkit::programTitle());
    };
    QCOMPARE(told().size(), 1);
    QVERIFY(wasVisible);
    QCOMPARE(boxes, 2);
}

/// A call that arrives while another is under way has no effect.
void TestLogoChange::aWorkbookInWorkIsNotDisturbed()
{
    m_desk->giveSheets({u"b.xls"_s});
    app::g_intLogoTarget = 1;
    datasheets::CLogoChg logo({});
    const auto change = [&](const QString& name) {
        int cancelled = 7;
        logo.ChangeLogo(
            name, m_desk->path(u"sheets/"_s), m_desk->path(u"new.png"_s), false, cancelled);
        QCOMPARE(cancelled, 0);
    };
    m_desk->office.whenInserted = [&, nested = false](const QString&) mutable {
        if (!std::exchange(nested, true))
            change(u"b.xls"_s);
    };
    change(file);
    QVERIFY(m_desk->hasNewLogo(file));
    QVERIFY(!m_desk->hasNewLogo(u"b.xls"_s));
    QCOMPARE(m_desk->texts(), QStringList());
    app::g_intLogoTarget = 0;
}

QTEST_MAIN(TestLogoChange)
#include "tst_logo_change.moc"
