// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/folder_list.h"
#include "app/frmLocateFolder.h"
#include "app/places.h"
#include "app/program.h"
#include "app/project_attributes.h"
#include "app/state.h"
#include "support/in_window.h"
#include "support/program_fixture.h"
#include "support/without_root.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::app::FolderList;
using ostrand::app::frmLocateFolder;
using ostrand::tests::ProgramFixture;
using ostrand::toolkit::Answer;
using ostrand::toolkit::BoxIcon;
using Mode = frmLocateFolder::Mode;

class TestFrmLocateFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theCaptionAndTheButtonsFollowTheMode();
    void theControlsHaveTheirCaptions();
    void everyControlHasAnAccessibleName();
    void theListStartsAtTheInstallationFolder();
    void withoutTheInstallationFolderTheWindowIsNotShown();

    void theDrivesAreThePlacesOfTheSystem();
    void changingTheDriveShowsIt();
    void aDriveThatIsGoneIsTold();
    void aDriveWithoutRightsIsTold();

    void aDoubleClickOpensAFolder();
    void enterOpensAFolderAndBackspaceTheOneAbove();
    void theFolderJustLeftIsTheCurrentOne();
    void aFolderThatCannotBeOpenedIsTold();

    void theNetworkAddressIsAskedFor();
    void anAddressShowsItsFolder();
    void anAddressThatIsNoFolderIsTold();
    void theAddressOfADeviceThatIsGoneIsTold();
    void anAddressWithoutRightsIsTold();

    void aNewFolderIsMadeAndSelected();
    void aNewFolderIsNotMadeWithoutAName();
    void anExistingFolderIsOverwrittenOnlyOnYes();
    void aNameThatLeadsOutOfTheFolderIsRefused_data();
    void aNameThatLeadsOutOfTheFolderIsRefused();
    void aFolderThatCannotBeMadeIsTold();

    void okStoresTheDatasheetFolder();
    void okWithTheSameDatasheetFolderClearsTheFlag();
    void okStoresTheTemplateFolder();
    void okOnAnotherAttributeStoresNothing();
    void aFailureOfStoringIsTold();
    void cancelAndEscapeStoreNothing();
    void everyCommandHasItsKey();

private:
    void open(Mode mode, const std::function<void()>& steps);
    template <typename Control>
    Control* control(const QString& name)
    {
        return m_window->findChild<Control*>(name);
    }
    FolderList& list() { return *control<FolderList>(u"Dir1"_s); }
    QComboBox& drives() { return *control<QComboBox>(u"Drive1"_s); }
    void press(const QString& name)
    {
        auto* button = control<QPushButton>(name);
        QVERIFY2(button && button->isEnabled() && button->isVisible(), qPrintable(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void choosePlace(const QString& path)
    {
        const int index = drives().findData(path);
        QVERIFY2(index >= 0, qPrintable(path));
        drives().setFocus();
        drives().setCurrentIndex(index == 0 ? 1 : index - 1);
        QTest::keyClick(&drives(), index == 0 ? Qt::Key_Up : Qt::Key_Down);
    }
    /// Asks for a new folder of this name.
    void makeFolder(const QString& name)
    {
        m_fixture->prompts.inputs = {name};
        press(u"cmdNewFld"_s);
    }
    QStringList shown();
    QString path(const QString& name) { return QDir::cleanPath(m_fixture->path(name)); }
    void goTo(const QString& attribute);
    QString value() { return m_grid->Columns(app::infoColumn::value).Value().text(); }
    QStringList texts() { return m_fixture->prompts.takeTexts(); }
    void expect(BoxIcon icon, const QString& text);

    std::unique_ptr<ProgramFixture> m_fixture;
    std::unique_ptr<toolkit::DataControl> m_data;
    std::unique_ptr<toolkit::DataGrid> m_grid;
    std::unique_ptr<frmLocateFolder> m_window;
    QByteArray m_home;
};

void TestFrmLocateFolder::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    for (const char* name : {"bin/Templates", "bin/a b", "bin/Zoo/inner", "bin/.hidden", "home"})
        QVERIFY(QDir().mkpath(path(QString::fromLatin1(name))));
    app::setInstallationFolder(path(u"bin"_s));
    m_home = qgetenv("HOME");
    qputenv("HOME", path(u"home"_s).toUtf8());

    m_data = std::make_unique<toolkit::DataControl>();
    m_data->setDatabaseName(m_fixture->emptyProject());
    m_data->setRecordSource(u"qryProjectInfo"_s);
    m_grid = std::make_unique<toolkit::DataGrid>();
    for (const QString& field : {u"attributeName"_s, u"attributeValue"_s})
        m_grid->addColumn({.name = field, .field = field, .caption = field});
    m_grid->setDataControl(m_data.get());
    m_data->Refresh();
    app::g_blnFolderChanged = false;
    app::g_strNewDatasheetFolder.clear();
    m_window = std::make_unique<frmLocateFolder>();
    goTo(u"DefaultDatasheetFolder"_s);
}

void TestFrmLocateFolder::cleanup()
{
    m_window.reset();
    m_grid.reset();
    m_data.reset();
    qputenv("HOME", m_home);
    app::g_blnFolderChanged = false;
    app::g_strNewDatasheetFolder.clear();
    m_fixture.reset();
}

void TestFrmLocateFolder::open(Mode mode, const std::function<void()>& steps)
{
    tests::inWindow(
        *m_window, [&] { m_window->ShowInfo(*m_grid, mode); }, steps);
}

void TestFrmLocateFolder::goTo(const QString& attribute)
{
    m_data->Recordset().FindFirst(u"attributeName = '"_s + attribute + u"'"_s);
    QVERIFY(!m_data->Recordset().NoMatch());
}

QStringList TestFrmLocateFolder::shown()
{
    QStringList names;
    for (int i = 0; i < list().count(); ++i)
        names << list().item(i)->text();
    return names;
}

void TestFrmLocateFolder::expect(BoxIcon icon, const QString& text)
{
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.boxes[0].icon == icon);
    QCOMPARE(texts(), QStringList{text});
}

void TestFrmLocateFolder::theCaptionAndTheButtonsFollowTheMode()
{
    open(Mode::TemplateFolder, [this] {
        QCOMPARE(m_window->windowTitle(), u"Locate Templates Default Folder"_s);
        QVERIFY(!control<QPushButton>(u"cmdNewFld"_s)->isVisible());
        QVERIFY(m_window->isModal());
    });
    open(Mode::DatasheetFolder, [this] {
        QCOMPARE(m_window->windowTitle(), u"Locate Datasheets Default Folder"_s);
        QVERIFY(control<QPushButton>(u"cmdNewFld"_s)->isVisible());
        press(u"cmdCancel"_s);
        QVERIFY(control<QPushButton>(u"cmdNewFld"_s)->isHidden());
    });
}

void TestFrmLocateFolder::theControlsHaveTheirCaptions()
{
    QCOMPARE(control<QPushButton>(u"OKButton"_s)->text(), u"&OK"_s);
    QCOMPARE(control<QPushButton>(u"cmdCancel"_s)->text(), u"&Cancel"_s);
    QCOMPARE(control<QPushButton>(u"cmdNetwork"_s)->text(), u"Net&work..."_s);
    QCOMPARE(control<QPushButton>(u"cmdNewFld"_s)->text(), u"&New Folder"_s);
}

void TestFrmLocateFolder::everyControlHasAnAccessibleName()
{
    for (auto* widget : m_window->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_"_s)
            || widget->parentWidget() != m_window.get())
            continue;
        auto* face = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
    }
}

void TestFrmLocateFolder::theListStartsAtTheInstallationFolder()
{
    open(Mode::DatasheetFolder, [this] {
        QCOMPARE(list().path(), path(u"bin"_s));
        QCOMPARE(shown(), (QStringList{u".."_s, u"a b"_s, u"Templates"_s, u"Zoo"_s}));
        QCOMPARE(control<QLabel>(u"lblPath"_s)->text(), path(u"bin"_s));
        QVERIFY(list().hasFocus());
    });
    QCOMPARE(texts(), QStringList());
}

void TestFrmLocateFolder::withoutTheInstallationFolderTheWindowIsNotShown()
{
    app::setInstallationFolder(path(u"gone"_s));
    m_window->ShowInfo(*m_grid, Mode::DatasheetFolder);
    expect(BoxIcon::Exclamation,
           u"Error while loading Instrument Index Title Window\r\n76 : Path not found"_s);
    QVERIFY(!m_window->isVisible());
}

// ---- drives

void TestFrmLocateFolder::theDrivesAreThePlacesOfTheSystem()
{
    const auto places = app::mountedPlaces();
    QVERIFY(places.size() >= 2);
    QCOMPARE(places[0].path, u"/"_s);
    QCOMPARE(places[1].path, path(u"home"_s));
    open(Mode::DatasheetFolder, [&] {
        QCOMPARE(drives().count(), int(places.size()));
        QCOMPARE(drives().itemText(0), u"File system (/)"_s);
        QCOMPARE(drives().itemText(1), u"Home ("_s + path(u"home"_s) + u")"_s);
        QCOMPARE(drives().currentData().toString(), u"/"_s);
    });
}

void TestFrmLocateFolder::changingTheDriveShowsIt()
{
    QVERIFY(QDir().mkpath(path(u"home/Plant"_s)));
    open(Mode::DatasheetFolder, [this] {
        choosePlace(path(u"home"_s));
        QCOMPARE(list().path(), path(u"home"_s));
        QVERIFY(shown().contains(u"Plant"_s));
        QCOMPARE(drives().currentData().toString(), path(u"home"_s));
        choosePlace(u"/"_s);
        QCOMPARE(list().path(), u"/"_s);
        QVERIFY(!shown().contains(u".."_s));
        QVERIFY(shown().contains(u"usr"_s));
    });
    QCOMPARE(texts(), QStringList());
}

void TestFrmLocateFolder::aDriveThatIsGoneIsTold()
{
    open(Mode::DatasheetFolder, [this] {
        QVERIFY(QDir(path(u"home"_s)).removeRecursively());
        choosePlace(path(u"home"_s));
        expect(BoxIcon::Exclamation, u"Device unavailable"_s);
        QCOMPARE(list().path(), path(u"bin"_s));
        QCOMPARE(drives().currentData().toString(), u"/"_s);
    });
}

void TestFrmLocateFolder::aDriveWithoutRightsIsTold()
{
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"home"_s).toUtf8().constData(), 0);
    open(Mode::DatasheetFolder, [this] {
        const tests::WithoutRoot user;
        choosePlace(path(u"home"_s));
        expect(BoxIcon::Exclamation,
               u"Error while accessing drive\r\nError : 70. Permission denied"_s);
        QCOMPARE(list().path(), path(u"bin"_s));
    });
}

// ---- the list

void TestFrmLocateFolder::aDoubleClickOpensAFolder()
{
    open(Mode::DatasheetFolder, [this] {
        const auto doubleClick = [this](int row) {
            const QPoint place = list().visualItemRect(list().item(row)).center();
            QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place);
        };
        doubleClick(3);
        QCOMPARE(list().path(), path(u"bin/Zoo"_s));
        QCOMPARE(shown(), (QStringList{u".."_s, u"inner"_s}));
        QCOMPARE(control<QLabel>(u"lblPath"_s)->text(), path(u"bin/Zoo"_s));
        doubleClick(0);
        QCOMPARE(list().path(), path(u"bin"_s));
    });
}

void TestFrmLocateFolder::enterOpensAFolderAndBackspaceTheOneAbove()
{
    open(Mode::DatasheetFolder, [this] {
        QTest::keyClicks(&list(), u"z"_s);
        QTest::keyClick(&list(), Qt::Key_Return);
        QCOMPARE(list().path(), path(u"bin/Zoo"_s));
        QVERIFY(m_window->isVisible());
        QTest::keyClick(&list(), Qt::Key_Backspace);
        QTest::keyClick(&list(), Qt::Key_Backspace);
        QCOMPARE(list().path(), path(QString()));
        m_fixture->prompts.inputs = {u"/"_s};
        press(u"cmdNetwork"_s);
        QTest::keyClick(&list(), Qt::Key_Backspace);
        QCOMPARE(list().path(), u"/"_s);
    });
    QCOMPARE(texts(), QStringList{u"Type network address:"_s});
}

void TestFrmLocateFolder::theFolderJustLeftIsTheCurrentOne()
{
    open(Mode::DatasheetFolder, [this] {
        QTest::keyClick(&list(), Qt::Key_Backspace);
        QCOMPARE(list().currentItem()->text(), u"bin"_s);
    });
}

void TestFrmLocateFolder::aFolderThatCannotBeOpenedIsTold()
{
    open(Mode::DatasheetFolder, [this] {
        QVERIFY(QDir(path(u"bin/Zoo"_s)).removeRecursively());
        list().select(u"Zoo"_s);
        QTest::keyClick(&list(), Qt::Key_Return);
        expect(BoxIcon::Exclamation,
               u"Error while accessing drive\r\nError : 76. Path not found"_s);
        QCOMPARE(list().path(), path(u"bin"_s));
    });
}

// ---- addresses

void TestFrmLocateFolder::theNetworkAddressIsAskedFor()
{
    open(Mode::DatasheetFolder, [this] {
        m_fixture->prompts.inputs = {std::nullopt, QString()};
        press(u"cmdNetwork"_s);
        QCOMPARE(m_fixture->prompts.boxes.at(0).title, u"Network address"_s);
        QCOMPARE(texts(), QStringList{u"Type network address:"_s});
        press(u"cmdNetwork"_s);
        QCOMPARE(texts(), QStringList{u"Type network address:"_s});
        QCOMPARE(list().path(), path(u"bin"_s));
    });
}

void TestFrmLocateFolder::anAddressShowsItsFolder()
{
    open(Mode::DatasheetFolder, [this] {
        m_fixture->prompts.inputs = {path(u"bin/Zoo"_s).replace(u'/', u'\\')};
        press(u"cmdNetwork"_s);
        QCOMPARE(list().path(), path(u"bin/Zoo"_s));
    });
}

void TestFrmLocateFolder::anAddressThatIsNoFolderIsTold()
{
    open(Mode::DatasheetFolder, [this] {
        for (const QString& address :
             {u"\\\\server\\share"_s, m_fixture->file(u"file"_s, "x"), QString(5000, u'x')}) {
            m_fixture->prompts.inputs = {address};
            m_fixture->prompts.boxes.clear();
            press(u"cmdNetwork"_s);
            QVERIFY(m_fixture->prompts.boxes.at(1).icon == BoxIcon::Information);
            QCOMPARE(texts().at(1),
                     u"Path "_s + address + u" is not valid or is not shared. Try again"_s);
            QCOMPARE(list().path(), path(u"bin"_s));
        }
    });
}

void TestFrmLocateFolder::theAddressOfADeviceThatIsGoneIsTold()
{
    open(Mode::DatasheetFolder, [this] {
        QVERIFY(QDir(path(u"home"_s)).removeRecursively());
        m_fixture->prompts.inputs = {path(u"home"_s)};
        press(u"cmdNetwork"_s);
        QVERIFY(m_fixture->prompts.boxes.at(1).icon == BoxIcon::Exclamation);
        QCOMPARE(texts().at(1), u"Device unavailable"_s);
    });
}

void TestFrmLocateFolder::anAddressWithoutRightsIsTold()
{
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"bin/Zoo"_s).toUtf8().constData(), 0);
    open(Mode::DatasheetFolder, [this] {
        m_fixture->prompts.inputs = {path(u"bin/Zoo"_s)};
        const tests::WithoutRoot user;
        press(u"cmdNetwork"_s);
        QCOMPARE(texts().at(1), u"Error while accessing drive\r\nError : 70. Permission denied"_s);
    });
}

// ---- new folders

void TestFrmLocateFolder::aNewFolderIsMadeAndSelected()
{
    open(Mode::DatasheetFolder, [this] {
        makeFolder(u"Neu Ω"_s);
        QCOMPARE(m_fixture->prompts.boxes.at(0).title, u"Create Folder"_s);
        QCOMPARE(texts(), QStringList{u"Enter the name for creating new folder"_s});
        QVERIFY(QFileInfo(path(u"bin/Neu Ω"_s)).isDir());
        QCOMPARE(list().currentItem()->text(), u"Neu Ω"_s);
        QCOMPARE(list().path(), path(u"bin"_s));
    });
}

void TestFrmLocateFolder::aNewFolderIsNotMadeWithoutAName()
{
    open(Mode::DatasheetFolder, [this] {
        const QStringList before = shown();
        m_fixture->prompts.inputs = {std::nullopt, QString()};
        press(u"cmdNewFld"_s);
        press(u"cmdNewFld"_s);
        QCOMPARE(texts().size(), 2);
        QCOMPARE(shown(), before);
    });
}

void TestFrmLocateFolder::anExistingFolderIsOverwrittenOnlyOnYes()
{
    open(Mode::DatasheetFolder, [this] {
        m_fixture->prompts.answers = {Answer::No, Answer::Yes};
        makeFolder(u"Zoo"_s);
        QVERIFY(m_fixture->prompts.boxes.at(1).icon == BoxIcon::Question);
        QVERIFY(m_fixture->prompts.boxes.at(1).buttons == toolkit::BoxButtons::YesNo);
        QCOMPARE(texts().at(1), u"Folder already exists.  Do you wish to overwrite?"_s);
        QVERIFY(QFileInfo(path(u"bin/Zoo/inner"_s)).isDir());
        makeFolder(u"Zoo"_s);
        QCOMPARE(texts().size(), 2);
        QVERIFY(QFileInfo(path(u"bin/Zoo"_s)).isDir());
        QVERIFY(!QFileInfo::exists(path(u"bin/Zoo/inner"_s)));
    });
}

void TestFrmLocateFolder::aNameThatLeadsOutOfTheFolderIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the folder above") << u".."_s;
    QTest::newRow("the folder itself") << u"."_s;
    QTest::newRow("by way of another") << u"Zoo/../../home"_s;
    QTest::newRow("with the other separator") << u"Zoo\\..\\.."_s;
    QTest::newRow("only a separator") << u"/"_s;
}

void TestFrmLocateFolder::aNameThatLeadsOutOfTheFolderIsRefused()
{
    QFETCH(QString, name);
    open(Mode::DatasheetFolder, [&] {
        m_fixture->prompts.answers = {Answer::Yes};
        makeFolder(name);
        QCOMPARE(texts().at(1),
                 u"Error 52 (Bad file name or number) in procedure cmdNewFld_Click of Form "
                 u"frmLocateFolder"_s);
        QVERIFY(QFileInfo(path(u"bin/Zoo/inner"_s)).isDir());
        QVERIFY(QFileInfo(path(u"home"_s)).isDir());
    });
}

void TestFrmLocateFolder::aFolderThatCannotBeMadeIsTold()
{
    m_fixture->file(u"bin/file"_s, "x");
    open(Mode::DatasheetFolder, [this] {
        makeFolder(u"file"_s);
        QCOMPARE(texts().at(1),
                 u"Error 58 (File already exists) in procedure cmdNewFld_Click of Form "
                 u"frmLocateFolder"_s);
        makeFolder(u"gone/new"_s);
        QCOMPARE(texts().at(1),
                 u"Error 76 (Path not found) in procedure cmdNewFld_Click of Form "
                 u"frmLocateFolder"_s);
        ::chmod(path(QString()).toUtf8().constData(), 0755);
        ::chmod(path(u"bin"_s).toUtf8().constData(), 0555);
        const tests::WithoutRoot user;
        makeFolder(u"new"_s);
        QCOMPARE(texts().at(1),
                 u"Error 70 (Permission denied) in procedure cmdNewFld_Click of Form "
                 u"frmLocateFolder"_s);
        m_fixture->prompts.answers = {Answer::Yes};
        makeFolder(u"Zoo"_s);
        QCOMPARE(texts().at(2),
                 u"Error 70 (Permission denied) in procedure cmdNewFld_Click of Form "
                 u"frmLocateFolder"_s);
    });
}

// ---- the result

void TestFrmLocateFolder::okStoresTheDatasheetFolder()
{
    open(Mode::DatasheetFolder, [this] {
        list().select(u"Zoo"_s);
        QTest::keyClick(&list(), Qt::Key_Return);
        press(u"OKButton"_s);
        QVERIFY(!m_window->isVisible());
    });
    QCOMPARE(value(), path(u"bin/Zoo"_s));
    QVERIFY(app::g_blnFolderChanged);
    QCOMPARE(app::g_strNewDatasheetFolder, path(u"bin/Zoo"_s));
    QCOMPARE(texts(), QStringList());
}

void TestFrmLocateFolder::okWithTheSameDatasheetFolderClearsTheFlag()
{
    m_grid->Columns(app::infoColumn::value).setValue(path(u"bin"_s));
    app::g_blnFolderChanged = true;
    open(Mode::DatasheetFolder, [this] { press(u"OKButton"_s); });
    QVERIFY(!app::g_blnFolderChanged);
    QCOMPARE(app::g_strNewDatasheetFolder, QString());
    QCOMPARE(value(), path(u"bin"_s));
}

void TestFrmLocateFolder::okStoresTheTemplateFolder()
{
    goTo(u"DefaultTemplateFolder"_s);
    open(Mode::TemplateFolder, [this] { press(u"OKButton"_s); });
    QCOMPARE(value(), path(u"bin"_s));
    QVERIFY(!app::g_blnFolderChanged);
}

void TestFrmLocateFolder::okOnAnotherAttributeStoresNothing()
{
    goTo(u"DefaultTemplateFolder"_s);
    open(Mode::DatasheetFolder, [this] { press(u"OKButton"_s); });
    QCOMPARE(value(), QString());
    goTo(u"DefaultDatasheetFolder"_s);
    open(Mode::TemplateFolder, [this] { press(u"OKButton"_s); });
    QCOMPARE(value(), QString());
    QVERIFY(!app::g_blnFolderChanged);
}

void TestFrmLocateFolder::aFailureOfStoringIsTold()
{
    open(Mode::DatasheetFolder, [this] {
        m_grid.reset();
        press(u"OKButton"_s);
        expect(BoxIcon::Exclamation,
               u"Error while storing default folders in project information\r\n91 : Object "
               u"variable not set"_s);
    });
}

void TestFrmLocateFolder::cancelAndEscapeStoreNothing()
{
    open(Mode::DatasheetFolder, [this] {
        press(u"cmdCancel"_s);
        QVERIFY(!m_window->isVisible());
    });
    open(Mode::DatasheetFolder, [this] {
        QTest::keyClick(&list(), Qt::Key_Escape);
        QVERIFY(!m_window->isVisible());
    });
    QCOMPARE(value(), QString());
    QVERIFY(!app::g_blnFolderChanged);
    QCOMPARE(texts(), QStringList());
}

void TestFrmLocateFolder::everyCommandHasItsKey()
{
    open(Mode::DatasheetFolder, [this] {
        const auto pressKey = [this](const QString& name, Qt::Key key) {
            const QSignalSpy clicked(control<QPushButton>(name), &QPushButton::clicked);
            QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
            QTRY_COMPARE(clicked.size(), 1);
        };
        pressKey(u"cmdNetwork"_s, Qt::Key_W);
        QCOMPARE(texts(), QStringList{u"Type network address:"_s});
        pressKey(u"cmdNewFld"_s, Qt::Key_N);
        QCOMPARE(texts(), QStringList{u"Enter the name for creating new folder"_s});
        pressKey(u"OKButton"_s, Qt::Key_O);
        QVERIFY(!m_window->isVisible());
    });
}

QTEST_MAIN(TestFrmLocateFolder)
#include "tst_frm_locate_folder.moc"
