// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The main window as it is seen: menus, buttons, columns, states and places.
#include "app/program.h"
#include "index/index_menus.h"
#include "support/index_fixture.h"
#include "support/without_root.h"
#include "toolkit/twips.h"

#include <QAccessible>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QMenuBar>
#include <QStatusBar>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::IndexFixture;
using ostrand::tests::ProgramFixture;
using ostrand::toolkit::px;

namespace {

const QStringList helpIsMissing{u"Unable to launch HTML Help,\r\n"
                                u"or the topic you requested does not exist"_s};

/// One line for each entry of a menu, ahead of them one for the menu.
QStringList linesOf(const QMenu& menu)
{
    QStringList lines{menu.objectName() + u": "_s + menu.title()};
    for (const QAction* action : menu.actions()) {
        lines << u"  "_s + action->objectName() + u": "_s + action->text() + u" | "_s
                     + action->shortcut().toString();
    }
    return lines;
}

} // namespace

class TestIndexWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_index.reset(); }

    void theMenuTreeIsComplete();
    void thePopupMenusAreNotInTheBar();
    void thePopupFollowsWhatIsSelectedAndCopied();
    void aRightClickBringsTheRowMenuOnlyWithRowsSelected();
    void theButtonsStandInTheirPlaces_data();
    void theButtonsStandInTheirPlaces();
    void theColumnsComeInOrder();
    void someColumnsHaveAButtonInTheCell();
    void theColumnsTakeTheProjectsCaptions();
    void aChangedCaptionShowsAtTheNextRefresh();

    void theStateOfTheProjectDecidesWhatIsEnabled();
    void aReadOnlyProjectLeavesTheStateAsItWas();
    void shortcutsOfDisabledMenusDoNothing();
    void aMissingControlIsToldAndEndsTheAbling();

    void theWindowOpensInItsDesignSize();
    void theControlsFollowTheWindow_data();
    void theControlsFollowTheWindow();
    void belowTheLimitsTheLayoutStays_data();
    void belowTheLimitsTheLayoutStays();
    void theWindowCannotBeDraggedSmallerThanItsButtons();
    void theWindowKeepsItsSizeBetweenRuns();

    void f1ShowsTheHelpEverywhere();
    void theHelpButtonShowsTheHelp();
    void theUpdateEntryLooksForTheUpdateProgram();
    void thereIsOneAboutWindowAndItDoesNotBlock();
    void everyControlHasAnAccessibleName();
    void theTabKeyVisitsTheButtonsInReadingOrder();

private:
    QPushButton& button(const QString& name)
    {
        return *m_index->window.findChild<QPushButton*>(name);
    }
    QMenu& menu(const QString& name) { return *m_index->window.findChild<QMenu*>(name); }
    QFrame& frame() { return *m_index->window.findChild<QFrame*>(u"FrmBelow"_s); }
    QStatusBar& bar() { return *m_index->window.findChild<QStatusBar*>(u"stsStatusBar"_s); }
    QLabel& panel(int number)
    {
        return *m_index->window.findChild<QLabel*>(u"Panel"_s + QString::number(number));
    }
    /// The names of all controls, menus and menu entries that are disabled.
    QStringList disabled();
    int twips(int pixels) { return qRound(pixels * 1000.0 / px(1000, &m_index->window)); }
    void checkLayout();
    static QString linked(const QString& project);

    std::unique_ptr<IndexFixture> m_index;
};

void TestIndexWindow::init()
{
    m_index = std::make_unique<IndexFixture>();
    app::setInstallationFolder(m_index->path(u"nowhere"_s));
}

void TestIndexWindow::theMenuTreeIsComplete()
{
    QStringList lines;
    for (const QAction* header : m_index->window.menuBar()->actions()) {
        QVERIFY(header->menu());
        QVERIFY(header->isVisible());
        lines << linesOf(*header->menu());
    }
    const QStringList expected{
        u"mnuFile: &File"_s,
        u"  mnuFileNew: &New | Ctrl+N"_s,
        u"  mnuFileOpen: &Open | Ctrl+O"_s,
        u"  mnuFileExit: E&xit | Ctrl+Q"_s,
        u"mnuEdit: &Edit"_s,
        u"  mnuEditIndexRev: &Index Revisions | Ctrl+I"_s,
        u"  mnuEditProjectInfo: &Project Information | Ctrl+R"_s,
        u"  mnuSetupDatasheets: Datasheet Logo | "_s,
        u"  mnuSetupTemplates: Template Logo | "_s,
        u"mnuReport: &Report"_s,
        u"  mnuReportIndex: &Index | "_s,
        u"  mnuReportAlarmSum: &Controller and Alarm Summary | "_s,
        u"  mnuReportInstallationDetails: &Installation Details | "_s,
        u"  mnuReportMaintenance: &Maintenance | "_s,
        u"mnuDoc: &Documents"_s,
        u"  mnuDocAll: &All | "_s,
        u"  mnuDocRef: Tag's &Reference Documents | "_s,
        u"  mnuDocDtSht: Tag's &Datasheet | "_s,
        u"mnuHelp: &Help"_s,
        u"  mnuOnlineHelp: Online Help | F1"_s,
        u"  mnuCheckForUpdates: Check For &Updates | "_s,
        u"  muHelpAbout: &About | "_s,
    };
    QCOMPARE(lines, expected);
}

void TestIndexWindow::thePopupMenusAreNotInTheBar()
{
    QCOMPARE(linesOf(menu(u"mnuPopUp1"_s)),
             (QStringList{u"mnuPopUp1: popup1"_s,
                          u"  mnuPopUpCopy1: &Copy  | Ctrl+C"_s,
                          u"  mnuPopUpPaste1: &Paste | Ctrl+V"_s,
                          u"  mnuPopUpDelete1: &Delete | Del"_s}));
    QCOMPARE(linesOf(menu(u"mnuPopUp2"_s)),
             (QStringList{u"mnuPopUp2: PopUp2"_s,
                          u"  mnuPopUpCopy2: &Copy | "_s,
                          u"  mnuPopUpDelete2: &Delete | "_s}));
    QCOMPARE(linesOf(menu(u"mnuPopUp3"_s)),
             (QStringList{u"mnuPopUp3: Popup3"_s, u"  mnuPopUpPaste3: &Paste | "_s}));
    for (const QAction* header : m_index->window.menuBar()->actions())
        QVERIFY(!header->menu()->objectName().startsWith(u"mnuPopUp"_s));
}

void TestIndexWindow::thePopupFollowsWhatIsSelectedAndCopied()
{
    QMainWindow window;
    const index::IndexMenus menus(&window);
    const auto name = [&](bool selected, bool copied) {
        const QMenu* popup = menus.popupFor(selected, copied);
        return popup ? popup->objectName() : u"(none)"_s;
    };
    QCOMPARE(name(false, false), u"(none)"_s);
    QCOMPARE(name(true, true), u"mnuPopUp1"_s);
    QCOMPARE(name(true, false), u"mnuPopUp2"_s);
    QCOMPARE(name(false, true), u"mnuPopUp3"_s);
}

void TestIndexWindow::aRightClickBringsTheRowMenuOnlyWithRowsSelected()
{
    m_index->open(m_index->sampleProject());
    toolkit::DataGrid& grid = m_index->grid();
    const QPoint cell = grid.visualRect(grid.model()->index(1, 1)).center();
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, cell);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);

    QTest::keyClick(&grid, Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(grid.SelBookmarks().size(), std::size_t{1});
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, cell);
    QWidget* popup = QApplication::activePopupWidget();
    QVERIFY(popup);
    QCOMPARE(popup->objectName(), u"mnuPopUp2"_s);
    QCOMPARE(popup->pos(), grid.viewport()->mapToGlobal(cell));
    popup->close();
}

void TestIndexWindow::theButtonsStandInTheirPlaces_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QRect>("place");
    const auto row = [](const char* name, const char16_t* caption, int left, int top) {
        QTest::newRow(name) << QString::fromUtf16(caption) << QString()
                            << QRect(left, top, 1095, 375);
    };
    row("cmdTag", u"P&opulate", 2880, 240);
    QTest::newRow("cmdImport") << u"&Import"_s << u"Import from P&ID database"_s
                               << QRect(4320, 240, 1095, 375);
    QTest::newRow("cmdExport") << u"Ex&port"_s << u"Export to P&ID database"_s
                               << QRect(5760, 240, 1095, 375);
    row("cmdHelp", u"Help", 7200, 240);
    row("cmdDatasheet", u"Da&tasheet", 1440, 840);
    row("cmdSave", u"&Save", 2880, 840);
    row("cmdDelete", u"&Delete", 4320, 840);
    row("cmdRefresh", u"&Refresh", 5760, 840);
    row("cmdExit", u"&Exit", 7200, 840);
}

void TestIndexWindow::theButtonsStandInTheirPlaces()
{
    QFETCH(const QRect, place);
    const QPushButton& found = button(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(found.text(), "caption");
    QTEST(found.toolTip(), "toolTip");
    QCOMPARE(found.parentWidget(), &frame());
    QCOMPARE(found.geometry(),
             QRect(px(place.left(), &frame()),
                   px(place.top(), &frame()),
                   px(place.width(), &frame()),
                   px(place.height(), &frame())));
    QVERIFY(frame().rect().contains(found.geometry()));
    QCOMPARE(frame().findChildren<QPushButton*>().size(), 9);
    // The caption has room in the button.
    QVERIFY(found.width() >= found.fontMetrics().horizontalAdvance(found.text().remove(u'&')));
}

void TestIndexWindow::theColumnsComeInOrder()
{
    const QStringList expected{
        u"Tag"_s,
        u"InstrumentType"_s,
        u"ServiceDescription"_s,
        u"LoopNumber"_s,
        u"EquipOrLineNo"_s,
        u"Location"_s,
        u"Manufacturer"_s,
        u"ModelNumber"_s,
        u"BodyMaterial"_s,
        u"PID"_s,
        u"Loop Dwg"_s,
        u"Requisition"_s,
        u"Purchase Order"_s,
        u"Datasheet"_s,
        u"DatasheetPath"_s,
        u"DataSheetFileName"_s,
        u"SignalType"_s,
        u"ProcessSetPointValue"_s,
        u"ProcessRangeValue"_s,
        u"CalibrationSetPointValue"_s,
        u"CalibrationRangeValue"_s,
        u"ScaleSetPointValue"_s,
        u"ScaleRangeValue"_s,
        u"H_H_H_SETTING"_s,
        u"H_H_SETTING"_s,
        u"H_SETTING"_s,
        u"L_SETTING"_s,
        u"L_L_SETTING"_s,
        u"L_L_L_SETTING"_s,
        u"ProcessUnitArea"_s,
        u"OperatingUnitNumber"_s,
        u"ElectricalArea"_s,
        u"ConstructionArea"_s,
        u"Remarks"_s,
    };
    toolkit::DataGrid& grid = m_index->grid();
    QCOMPARE(grid.ColumnCount(), 34);
    for (int i = 0; i < grid.ColumnCount(); ++i) {
        QCOMPARE(grid.Columns(i).Name(), expected[i]);
        QCOMPARE(grid.Columns(i).Caption(), expected[i]);
        QCOMPARE(grid.horizontalHeader()->visualIndex(i), i);
        QVERIFY(!grid.isColumnHidden(i));
        QCOMPARE(grid.columnWidth(i), px(3200, &grid));
    }
}

void TestIndexWindow::someColumnsHaveAButtonInTheCell()
{
    for (int i = 0; i < m_index->grid().ColumnCount(); ++i) {
        const toolkit::CellButton expected = i >= 9 && i <= 13    ? toolkit::CellButton::Arrow
                                             : i == 15 || i == 33 ? toolkit::CellButton::Dots
                                                                  : toolkit::CellButton::None;
        QVERIFY2(m_index->grid().cellButton(i) == expected, qPrintable(QString::number(i)));
    }
}

void TestIndexWindow::theColumnsTakeTheProjectsCaptions()
{
    m_index->open(m_index->emptyProject());
    toolkit::DataGrid& grid = m_index->grid();
    for (int i = 0; i < grid.ColumnCount(); ++i) {
        const QString kept =
            ProgramFixture::value(m_index->project,
                                  u"select DisplayName from FormColumnNames where FormName = "
                                  u"'frmIndex' and columnName = '"_s
                                      + grid.Columns(i).Name() + u"'"_s);
        QCOMPARE(grid.Columns(i).Caption(), kept);
        QCOMPARE(grid.model()->headerData(i, Qt::Horizontal).toString(), kept);
    }
    QCOMPARE(grid.Columns(23).Caption(), u"HHH Setting"_s);
}

void TestIndexWindow::aChangedCaptionShowsAtTheNextRefresh()
{
    m_index->open(m_index->emptyProject());
    ProgramFixture::execute(m_index->project,
                            u"update FormColumnNames set DisplayName = 'Place' where FormName = "
                            u"'frmIndex' and columnName = 'Location'"_s);
    ProgramFixture::execute(m_index->project,
                            u"delete from FormColumnNames where FormName = 'frmIndex' and "
                            u"columnName = 'Manufacturer'"_s);
    QCOMPARE(m_index->grid().Columns(5).Caption(), u"Location"_s);
    m_index->press(u"cmdRefresh"_s);
    QCOMPARE(m_index->grid().Columns(5).Caption(), u"Place"_s);
    QCOMPARE(m_index->grid().Columns(6).Caption(), u"Manufacturer"_s);
    QCOMPARE(m_index->texts(), QStringList());
}

QStringList TestIndexWindow::disabled()
{
    QStringList names;
    const auto take = [&names](const QString& name, bool enabled) {
        if (!enabled)
            names << name;
    };
    take(u"GridIndex"_s, m_index->grid().isEnabled());
    for (const QPushButton* each : frame().findChildren<QPushButton*>())
        take(each->objectName(), each->isEnabled());
    for (const QAction* header : m_index->window.menuBar()->actions()) {
        take(header->menu()->objectName(), header->isEnabled() && header->menu()->isEnabled());
        for (const QAction* entry : header->menu()->actions())
            take(entry->objectName(), entry->isEnabled());
    }
    for (const QString& popup : {u"mnuPopUp1"_s, u"mnuPopUp2"_s, u"mnuPopUp3"_s}) {
        for (const QAction* entry : menu(popup).actions())
            take(entry->objectName(), entry->isEnabled());
    }
    names.sort();
    return names;
}

QString TestIndexWindow::linked(const QString& project)
{
    ProgramFixture::execute(project,
                            u"update qryProjectInfo set attributeValue = 'pid.mdb' where "
                            u"attributeName = 'DefaultP&IDDatabase'"_s);
    return project;
}

void TestIndexWindow::theStateOfTheProjectDecidesWhatIsEnabled()
{
    const QStringList withoutProject{u"GridIndex"_s,
                                     u"cmdDatasheet"_s,
                                     u"cmdDelete"_s,
                                     u"cmdExport"_s,
                                     u"cmdImport"_s,
                                     u"cmdRefresh"_s,
                                     u"cmdSave"_s,
                                     u"cmdTag"_s,
                                     u"mnuDoc"_s,
                                     u"mnuEdit"_s,
                                     u"mnuReport"_s};
    const QStringList unlinked{u"cmdExport"_s, u"cmdImport"_s};

    QCOMPARE(disabled(), withoutProject);
    m_index->open(m_index->path(u"no/such/folder.mdb"_s));
    QCOMPARE(disabled(), withoutProject);
    m_index->open(m_index->emptyProject());
    QCOMPARE(disabled(), unlinked);
    m_index->addTag(u"T-1"_s);
    m_index->open(m_index->project);
    QCOMPARE(disabled(), unlinked);
    m_index->open(linked(m_index->emptyProject(u"linked.mdb"_s)));
    QCOMPARE(disabled(), QStringList());
    m_index->open(m_index->sampleProject());
    QCOMPARE(disabled(), QStringList());
    m_index->open(m_index->file(u"broken.mdb"_s, "no database"));
    QCOMPARE(disabled().filter(u"Grid"_s), QStringList());
    m_index->open(m_index->emptyProject(u"again.mdb"_s));
    QCOMPARE(disabled(), unlinked);

    // What a session takes away and gives back.
    m_index->window.AbleForm(false);
    QCOMPARE(disabled(), withoutProject);
    m_index->window.AbleForm(true);
    m_index->window.ableButton(true);
    QCOMPARE(disabled(), QStringList());
    m_index->window.ableButton(false);
    QCOMPARE(disabled(), unlinked);
}

void TestIndexWindow::aReadOnlyProjectLeavesTheStateAsItWas()
{
    const QString readOnly = m_index->emptyProject(u"locked.mdb"_s);
    const QString next = linked(m_index->emptyProject(u"linked.mdb"_s));
    QFile::setPermissions(m_index->path(QString()), QFile::Permissions(0x7777));
    QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const QStringList before = disabled();
    {
        const tests::WithoutRoot user;
        m_index->open(readOnly);
    }
    QCOMPARE(disabled(), before);
    // Import and export are not looked at again.
    m_index->open(next);
    QCOMPARE(disabled(), (QStringList{u"cmdExport"_s, u"cmdImport"_s}));
    {
        const tests::WithoutRoot user;
        m_index->open(readOnly);
    }
    QCOMPARE(disabled(), (QStringList{u"cmdExport"_s, u"cmdImport"_s}));
    QCOMPARE(m_index->texts().filter(u". Database is read only."_s).size(), 2);
}

void TestIndexWindow::shortcutsOfDisabledMenusDoNothing()
{
    int shown = 0;
    m_index->window.setCommands({.ShowProjectInfo = [&shown] { ++shown; }});
    QTest::keyClick(&m_index->window, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(shown, 0);
    m_index->open(m_index->emptyProject());
    QTest::keyClick(&m_index->window, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(shown, 1);
    m_index->choose(u"mnuEditProjectInfo"_s);
    QCOMPARE(shown, 2);
}

void TestIndexWindow::aMissingControlIsToldAndEndsTheAbling()
{
    delete m_index->window.findChild<QPushButton*>(u"cmdTag"_s);
    m_index->window.AbleForm(true);
    QVERIFY(m_index->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_index->texts(),
             QStringList{u"Error while abling window.\r\n91 : Object variable not set"_s});
    // Those ahead of it in the order are done, those behind it are not.
    QCOMPARE(
        disabled(),
        (QStringList{u"cmdExport"_s, u"cmdImport"_s, u"mnuDoc"_s, u"mnuEdit"_s, u"mnuReport"_s}));
}

void TestIndexWindow::theWindowOpensInItsDesignSize()
{
    QCOMPARE(m_index->window.windowTitle(), u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(m_index->window.width(), px(9975, &m_index->window));
    QCOMPARE(m_index->window.height() - m_index->window.menuBar()->height(),
             px(9315, &m_index->window));
    QCOMPARE(bar().height(), px(375, &m_index->window));
    checkLayout();
}

/// Compares with the rules for a window whose borders, caption and menu bar take what they took in
/// the design: 120 twips of the width, 690 of the height.
void TestIndexWindow::checkLayout()
{
    const QMainWindow& window = m_index->window;
    const int client = twips(window.height() - window.menuBar()->height());
    const int width = twips(window.width()) + 120;
    const int height = client + 690;
    const auto near = [this](int pixels, int rule, const char* what) {
        const int expected = px(rule, &m_index->window);
        QVERIFY2(std::abs(pixels - expected) <= 2,
                 qPrintable(QString::fromLatin1(what) + u": "_s + QString::number(pixels)
                            + u" for "_s + QString::number(expected)));
    };
    const QRect grid = m_index->grid().geometry();
    QCOMPARE(grid.topLeft(), QPoint(0, 0));
    near(grid.width(), width - 200, "the grid's width");
    near(grid.height(), height - 375 - 375 - 1800, "the grid's height");
    near(frame().y(), height - 375 - 375 - 1750, "the frame's top");
    near(frame().x(), 200, "the frame's left");
    near(frame().width(), width - 500, "the frame's width");
    near(frame().height(), 1335, "the frame's height");
    near(panel(1).width(), (twips(bar().width()) - 400) / 2, "the first panel");
    near(panel(2).width(), twips(bar().width()) / 2, "the second panel");
    QVERIFY(grid.bottom() < frame().y());
    QVERIFY(frame().geometry().bottom() < window.centralWidget()->height());
}

void TestIndexWindow::theControlsFollowTheWindow_data()
{
    QTest::addColumn<int>("wider");
    QTest::addColumn<int>("higher");
    QTest::newRow("wider") << 300 << 0;
    QTest::newRow("higher") << 0 << 200;
    QTest::newRow("larger") << 500 << 300;
    QTest::newRow("lower") << 0 << -250;
    QTest::newRow("a little") << 1 << 1;
}

void TestIndexWindow::theControlsFollowTheWindow()
{
    QFETCH(const int, wider);
    QFETCH(const int, higher);
    const QRect before = button(u"cmdSave"_s).geometry();
    const QSize size = m_index->window.size() + QSize(wider, higher);
    m_index->window.resize(size);
    QTRY_COMPARE(m_index->window.size(), size);
    checkLayout();
    QCOMPARE(button(u"cmdSave"_s).geometry(), before);
}

void TestIndexWindow::belowTheLimitsTheLayoutStays_data()
{
    QTest::addColumn<QSize>("size"); // twips of the client area
    QTest::newRow("too narrow") << QSize(230, 9315);
    QTest::newRow("too low") << QSize(9975, 1050);
}

void TestIndexWindow::belowTheLimitsTheLayoutStays()
{
    QFETCH(const QSize, size);
    QMainWindow& window = m_index->window;
    window.setMinimumSize(1, 1);
    const QRect gridBefore = m_index->grid().geometry();
    const QRect frameBefore = frame().geometry();
    const int panelBefore = panel(1).width();
    window.resize(px(size.width(), &window),
                  px(size.height(), &window) + window.menuBar()->height());
    QCoreApplication::processEvents();
    QVERIFY(window.width() <= px(size.width(), &window)
            || window.height() < px(1060, &window) + window.menuBar()->height());
    QCOMPARE(m_index->grid().geometry(), gridBefore);
    QCOMPARE(frame().geometry(), frameBefore);
    QCOMPARE(panel(1).width(), panelBefore);

    window.resize(px(9000, &window), px(9000, &window));
    QCoreApplication::processEvents();
    QVERIFY(m_index->grid().geometry() != gridBefore);
    checkLayout();
}

void TestIndexWindow::theWindowCannotBeDraggedSmallerThanItsButtons()
{
    m_index->window.resize(1, 1);
    QCoreApplication::processEvents();
    checkLayout();
    QVERIFY(m_index->grid().height() > 3 * m_index->grid().rowHeight(0));
    for (const QPushButton* each : frame().findChildren<QPushButton*>()) {
        QVERIFY2(frame().rect().contains(each->geometry()), qPrintable(each->objectName()));
        QVERIFY2(!each->visibleRegion().isEmpty(), qPrintable(each->objectName()));
    }
}

void TestIndexWindow::theWindowKeepsItsSizeBetweenRuns()
{
    const QSize size = m_index->window.size() + QSize(-40, -60);
    m_index->window.resize(size);
    m_index->window.close();
    const index::frmIndex next;
    QCOMPARE(next.size(), size);
}

void TestIndexWindow::f1ShowsTheHelpEverywhere()
{
    QTest::keyClick(&m_index->window, Qt::Key_F1);
    QCOMPARE(m_index->texts(), helpIsMissing);
    m_index->open(m_index->sampleProject());
    m_index->grid().setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(m_index->texts(), helpIsMissing);
    QTest::keyClick(&m_index->grid(), Qt::Key_F2);
    QVERIFY(QApplication::focusWidget() != &m_index->grid());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(m_index->texts(), helpIsMissing);
    button(u"cmdSave"_s).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(m_index->texts(), helpIsMissing);
}

void TestIndexWindow::theHelpButtonShowsTheHelp()
{
    m_index->press(u"cmdHelp"_s);
    QCOMPARE(m_index->texts(), helpIsMissing);
    m_index->choose(u"mnuOnlineHelp"_s);
    QCOMPARE(m_index->texts(), helpIsMissing);
}

void TestIndexWindow::theUpdateEntryLooksForTheUpdateProgram()
{
    m_index->choose(u"mnuCheckForUpdates"_s);
    QCOMPARE(m_index->texts(), QStringList{u"Auto update is not available on this machine."_s});
    QCOMPARE(m_index->prompts.addresses.size(), 1);
}

void TestIndexWindow::thereIsOneAboutWindowAndItDoesNotBlock()
{
    const auto windows = [this] { return m_index->window.findChildren<QDialog*>(u"frmAbout"_s); };
    m_index->choose(u"muHelpAbout"_s);
    QCOMPARE(windows().size(), 1);
    QVERIFY(windows().first()->isVisible());
    QVERIFY(!windows().first()->isModal());
    m_index->choose(u"muHelpAbout"_s);
    QCOMPARE(windows().size(), 1);
    windows().first()->close();
    QTRY_COMPARE(windows().size(), 0);
    m_index->choose(u"muHelpAbout"_s);
    QCOMPARE(windows().size(), 1);
    QVERIFY(windows().first()->isVisible());
}

void TestIndexWindow::everyControlHasAnAccessibleName()
{
    m_index->open(m_index->sampleProject());
    QStringList nameless;
    for (QWidget* widget : m_index->window.findChildren<QWidget*>()) {
        const bool isOurs =
            !widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_s);
        if (!widget->isVisible() || (!isOurs && widget->focusPolicy() == Qt::NoFocus))
            continue;
        auto* face = QAccessible::queryAccessibleInterface(widget);
        if (!face || face->text(QAccessible::Name).isEmpty())
            nameless << QString::fromLatin1(widget->metaObject()->className()) + u' '
                            + widget->objectName();
    }
    QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(u", "_s)));
}

void TestIndexWindow::theTabKeyVisitsTheButtonsInReadingOrder()
{
    m_index->open(linked(m_index->emptyProject()));
    m_index->grid().setFocus();
    QStringList visited;
    QTest::keyClick(&m_index->grid(), Qt::Key_Tab, Qt::ControlModifier);
    for (int i = 0; i < 12 && QApplication::focusWidget() != &m_index->grid(); ++i) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited,
             (QStringList{u"cmdTag"_s,
                          u"cmdImport"_s,
                          u"cmdExport"_s,
                          u"cmdHelp"_s,
                          u"cmdDatasheet"_s,
                          u"cmdSave"_s,
                          u"cmdDelete"_s,
                          u"cmdRefresh"_s,
                          u"cmdExit"_s}));
}

QTEST_MAIN(TestIndexWindow)
#include "tst_index_window.moc"
