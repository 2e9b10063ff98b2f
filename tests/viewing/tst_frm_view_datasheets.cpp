// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/memory_desk.h"
#include "support/help_windows.h"
#include "support/in_window.h"
#include "viewing/frmViewDatasheets.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::MemoryDesk;
using ostrand::tests::ProgramFixture;
using ostrand::viewing::frmViewDatasheets;

class TestFrmViewDatasheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowNamesTheDocumentAndListsItsTags();
    void tagsWithoutADatasheetFileAreLeftOut();
    void anotherDocumentListsItsOwnTags();
    void viewOpensTheSelectedTagsDatasheet();
    void aDoubleClickOpens();
    void enterOpens();
    void theFirstKeySelectsAnEntry_data();
    void theFirstKeySelectsAnEntry();
    void theOnlyTagOpensByTheKeyboard();
    void withNothingSelectedNothingHappens();
    void aTagWithoutBothFieldsOpensNothing();
    void aTagThatIsGoneOpensNothing();
    void whileADatasheetIsOpenNoOtherOpens();
    void aDatasheetThatIsGoneIsToldByTheSession();
    void exitAndEscapeOpenNothing();
    void helpShowsTheManual();
    void aListThatCannotBeReadIsTold();
    void aTagThatCannotBeLookedUpIsTold();
    void theSessionMissingIsTold();
    void aWindowThatIsOpenIsNotOpenedAgain();
    void everyControlHasAName();

private:
    template <typename Control>
    Control* control(const QString& name)
    {
        return m_window->findChild<Control*>(name);
    }
    QListWidget& list() { return *control<QListWidget>(u"lstFromItems"_s); }
    void click(const QString& name)
    {
        QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton);
    }
    QStringList tags();
    void show(const std::function<void()>& steps)
    {
        tests::inWindow(
            *m_window, [this] { m_window->ShowInfo(u"DS-1"_s); }, steps);
    }
    /// Opens the window and the datasheet of the first tag by some way.
    void openFirst(const std::function<void()>& way);
    QStringList texts() { return m_desk->program().texts(); }

    std::unique_ptr<MemoryDesk> m_desk;
    std::unique_ptr<frmViewDatasheets> m_window;
};

void TestFrmViewDatasheets::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
    tests::IndexFixture& program = m_desk->program();
    program.addDocument(u"DS-1"_s, u"DATASHEET"_s);
    program.addDocument(u"DS-2"_s, u"DATASHEET"_s);
    program.addTag(u"PT-3"_s);
    program.addTie(u"PT-2"_s, u"DS-1"_s, u"DATASHEET"_s);
    program.addTie(u"PT-1"_s, u"DS-1"_s, u"DATASHEET"_s);
    program.addTie(u"PT-3"_s, u"DS-1"_s, u"DATASHEET"_s);
    program.addTie(u"PT-2"_s, u"DS-2"_s, u"DATASHEET"_s);
    m_desk->giveDatasheet(u"PT-2"_s);
    m_desk->giveDatasheet(u"PT-1"_s);
    m_window = std::make_unique<frmViewDatasheets>(&program.window);
}

void TestFrmViewDatasheets::cleanup()
{
    m_window.reset();
    m_desk.reset();
}

QStringList TestFrmViewDatasheets::tags()
{
    QStringList shown;
    for (int row = 0; row < list().count(); ++row)
        shown << list().item(row)->text();
    return shown;
}

void TestFrmViewDatasheets::openFirst(const std::function<void()>& way)
{
    show([&] {
        list().setCurrentRow(0);
        way();
        QVERIFY(!m_window->isVisible());
    });
    QVERIFY(datasheets::g_objXlHndlr->XlAlreadyOpen());
    QCOMPARE(datasheets::g_objXlHndlr->filename(), u"PT-1.xls"_s);
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::theWindowNamesTheDocumentAndListsItsTags()
{
    show([this] {
        QVERIFY(m_window->isModal());
        QCOMPARE(m_window->windowTitle(), u"Datasheet DS-1"_s);
        QCOMPARE(control<QLabel>(u"Label1"_s)->text(), u"Select file you wish to view."_s);
        QCOMPARE(control<QPushButton>(u"cmdView"_s)->text(), u"&View"_s);
        QCOMPARE(control<QPushButton>(u"cmdExit"_s)->text(), u"&Exit"_s);
        QCOMPARE(control<QPushButton>(u"cmdHelp"_s)->text(), u"&Help"_s);
        QCOMPARE(tags(), (QStringList{u"PT-1"_s, u"PT-2"_s}));
    });
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::tagsWithoutADatasheetFileAreLeftOut()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryIndex set DatasheetFileName = null where Tag = 'PT-1'"_s);
    show([this] { QCOMPARE(tags(), QStringList{u"PT-2"_s}); });
}

void TestFrmViewDatasheets::anotherDocumentListsItsOwnTags()
{
    show([] {});
    tests::inWindow(
        *m_window,
        [this] { m_window->ShowInfo(u"DS-2"_s); },
        [this] {
            QCOMPARE(m_window->windowTitle(), u"Datasheet DS-2"_s);
            QCOMPARE(tags(), QStringList{u"PT-2"_s});
        });
}

void TestFrmViewDatasheets::viewOpensTheSelectedTagsDatasheet()
{
    openFirst([this] { click(u"cmdView"_s); });
    QVERIFY(m_desk->isWindowVisible());
}

void TestFrmViewDatasheets::aDoubleClickOpens()
{
    openFirst([this] {
        const QPoint place = list().visualItemRect(list().item(0)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place);
    });
}

void TestFrmViewDatasheets::enterOpens()
{
    openFirst([this] { QTest::keyClick(&list(), Qt::Key_Return); });
}

void TestFrmViewDatasheets::theFirstKeySelectsAnEntry_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("afterDown");
    QTest::newRow("Down") << int(Qt::Key_Down) << u"PT-1"_s << u"PT-2"_s;
    QTest::newRow("Up") << int(Qt::Key_Up) << u"PT-1"_s << u"PT-2"_s;
    QTest::newRow("Home") << int(Qt::Key_Home) << u"PT-1"_s << u"PT-2"_s;
    QTest::newRow("PageUp") << int(Qt::Key_PageUp) << u"PT-1"_s << u"PT-2"_s;
    QTest::newRow("PageDown") << int(Qt::Key_PageDown) << u"PT-1"_s << u"PT-2"_s;
    QTest::newRow("End") << int(Qt::Key_End) << u"PT-2"_s << u"PT-2"_s;
}

void TestFrmViewDatasheets::theFirstKeySelectsAnEntry()
{
    QFETCH(const int, key);
    QFETCH(const QString, first);
    QFETCH(const QString, afterDown);
    show([&] {
        const auto selected = [this] {
            QStringList texts;
            for (const QListWidgetItem* item : list().selectedItems())
                texts << item->text();
            return texts;
        };
        QCOMPARE(selected(), QStringList());
        QTest::keyClick(&list(), static_cast<Qt::Key>(key));
        QCOMPARE(selected(), QStringList{first});
        QTest::keyClick(&list(), Qt::Key_Down);
        QCOMPARE(selected(), QStringList{afterDown});
    });
}

void TestFrmViewDatasheets::theOnlyTagOpensByTheKeyboard()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryIndex set DatasheetFileName = null where Tag = 'PT-2'"_s);
    show([this] {
        QCOMPARE(tags(), QStringList{u"PT-1"_s});
        QTest::keyClick(&list(), Qt::Key_Return);
        QVERIFY(m_window->isVisible());
        QTest::keyClick(&list(), Qt::Key_Down);
        QTest::keyClick(&list(), Qt::Key_Return);
        QVERIFY(!m_window->isVisible());
    });
    QCOMPARE(datasheets::g_objXlHndlr->filename(), u"PT-1.xls"_s);
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::withNothingSelectedNothingHappens()
{
    show([this] {
        QVERIFY(list().selectedItems().isEmpty());
        click(u"cmdView"_s);
        QVERIFY(m_window->isVisible());
    });
    QVERIFY(!datasheets::g_objXlHndlr->XlAlreadyOpen());
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::aTagWithoutBothFieldsOpensNothing()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryIndex set DatasheetPath = null where Tag = 'PT-1'"_s);
    show([this] {
        list().setCurrentRow(0);
        click(u"cmdView"_s);
        QVERIFY(m_window->isVisible());
    });
    QVERIFY(!datasheets::g_objXlHndlr->XlAlreadyOpen());
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::aTagThatIsGoneOpensNothing()
{
    show([this] {
        list().setCurrentRow(0);
        ProgramFixture::execute(m_desk->project(),
                                u"delete from [index] where PlantItemNo = 'PT-1'"_s);
        click(u"cmdView"_s);
        QVERIFY(m_window->isVisible());
    });
    QVERIFY(!datasheets::g_objXlHndlr->XlAlreadyOpen());
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::whileADatasheetIsOpenNoOtherOpens()
{
    m_desk->openDatasheet(u"PT-2"_s);
    show([this] {
        list().setCurrentRow(0);
        click(u"cmdView"_s);
        QVERIFY(!m_window->isVisible());
    });
    QCOMPARE(datasheets::g_objXlHndlr->filename(), u"PT-2.xls"_s);
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::aDatasheetThatIsGoneIsToldByTheSession()
{
    QVERIFY(QFile::remove(m_desk->path(u"sheets/PT-1.xls"_s)));
    show([this] {
        list().setCurrentRow(0);
        click(u"cmdView"_s);
        QVERIFY(!m_window->isVisible());
    });
    QVERIFY(!datasheets::g_objXlHndlr->XlAlreadyOpen());
    QCOMPARE(texts().size(), 1);
}

void TestFrmViewDatasheets::exitAndEscapeOpenNothing()
{
    const auto leave = [this](const std::function<void()>& way) {
        show([&] {
            list().setCurrentRow(0);
            way();
            QVERIFY(!m_window->isVisible());
        });
    };
    leave([this] { click(u"cmdExit"_s); });
    leave([this] { QTest::keyClick(&list(), Qt::Key_Escape); });
    QVERIFY(!datasheets::g_objXlHndlr->XlAlreadyOpen());
}

void TestFrmViewDatasheets::helpShowsTheManual()
{
    show([this] {
        click(u"cmdHelp"_s);
        QCOMPARE(tests::helpWindows().size(), 1);
        QVERIFY(m_window->isVisible());
    });
    QCOMPARE(texts(), QStringList());
}

void TestFrmViewDatasheets::aListThatCannotBeReadIsTold()
{
    tests::inWindow(
        *m_window,
        [this] { m_window->ShowInfo(u"D'1"_s); },
        [this] {
            QCOMPARE(m_window->windowTitle(), u"Datasheet D'1"_s);
            QCOMPARE(list().count(), 0);
        });
    const toolkit::Box box = m_desk->program().prompts.boxes.at(0);
    QVERIFY2(
        box.text.startsWith(u"Error while loading file names into file list. \r\nError : 3075. "_s),
        qPrintable(box.text));
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
}

void TestFrmViewDatasheets::aTagThatCannotBeLookedUpIsTold()
{
    tests::IndexFixture& program = m_desk->program();
    ProgramFixture::execute(
        m_desk->project(), u"update [index] set PlantItemNo = 'A''1' where PlantItemNo = 'PT-1'"_s);
    show([this] {
        list().setCurrentRow(0);
        QCOMPARE(list().currentItem()->text(), u"A'1"_s);
        click(u"cmdView"_s);
        QVERIFY(m_window->isVisible());
    });
    const toolkit::Box box = program.prompts.boxes.at(0);
    QVERIFY2(box.text.startsWith(u"Error while loading datasheet. \r\nError : 3075. "_s),
             qPrintable(box.text));
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
}

void TestFrmViewDatasheets::theSessionMissingIsTold()
{
    datasheets::g_objXlHndlr.reset();
    show([this] {
        list().setCurrentRow(0);
        click(u"cmdView"_s);
        QVERIFY(m_window->isVisible());
    });
    QCOMPARE(
        texts(),
        QStringList{u"Error while loading datasheet. \r\nError : 91. Object variable not set"_s});
}

void TestFrmViewDatasheets::aWindowThatIsOpenIsNotOpenedAgain()
{
    show([this] {
        m_window->ShowInfo(u"DS-2"_s);
        QCOMPARE(m_window->windowTitle(), u"Datasheet DS-1"_s);
    });
    const toolkit::Box box = m_desk->program().prompts.boxes.at(0);
    QCOMPARE(box.text,
             u"Error while loading datasheet view Window\r\n400 : The window is open already."_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
}

void TestFrmViewDatasheets::everyControlHasAName()
{
    QVERIFY(!list().accessibleName().isEmpty());
    QCOMPARE(control<QLabel>(u"Label1"_s)->buddy(), &list());
    show([this] { QCOMPARE(m_window->focusWidget(), &list()); });
}

QTEST_MAIN(TestFrmViewDatasheets)
#include "tst_frm_view_datasheets.moc"
