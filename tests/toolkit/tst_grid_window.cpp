// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/scratch_database.h"
#include "support/in_window.h"
#include "support/scripted_prompts.h"
#include "toolkit/grid_window.h"

#include <QApplication>
#include <QPushButton>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using toolkit::Answer;
using toolkit::GridWindow;

namespace {

/// A window over a number of instruments, with nothing of its own.
class Instruments final : public GridWindow
{
public:
    explicit Instruments(QString file)
        : GridWindow(
            {.name = u"Instruments"_s,
             .caption = u"Instruments"_s,
             .grid = u"gridItem"_s,
             .gridCaption = u"Instruments"_s,
             .dataControl = u"dbItem"_s,
             .query = u"qryItem"_s,
             .columns = {{.name = u"Tag"_s, .field = u"Tag"_s, .caption = u"Tag"_s},
                         {.name = u"Service"_s, .field = u"Service"_s, .caption = u"Service"_s}},
             .size = {9000, 6000},
             .texts = {.loading = u"Loading failed."_s,
                       .showing = u"Showing failed."_s,
                       .sorting = u"Sorting failed."_s,
                       .saving = u"Saving failed."_s,
                       .deleting = u"Deleting failed."_s,
                       .writing = u"Writing failed."_s,
                       .checking = u"Checking failed."_s,
                       .emptyKey = u"No tag."_s,
                       .sameKey = u"Tag exists."_s}},
            nullptr),
          m_file(std::move(file))
    {
        addButton(u"cmdSave"_s, u"&Save"_s, [this] { saveRecord(); });
        addButton(u"cmdDelete"_s, u"&Delete"_s, [this] { deleteRecord(); });
        addButton(u"cmdExit"_s, u"&Exit"_s, [this] { close(); });
        layOut();
    }

    void ShowInfo() { showWindow(); }
    toolkit::DataGrid& rows() const { return grid(); }
    toolkit::DataControl& data() const { return records(); }

    bool refusesNew = false;
    QStringList deleted;

protected:
    void load() override
    {
        records().setDatabaseName(m_file);
        records().Refresh();
    }
    QString deleteQuestion() const override { return u"Delete "_s + textInHand(0) + u"?"_s; }
    void aboutToDelete() override { deleted << textInHand(0); }
    void checkRecord(bool& save) override
    {
        save = !refusesNew || records().EditMode() != store::EditMode::Add;
    }

private:
    QString m_file;
};

} // namespace

class TestGridWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowIsReadAndShownUntilItCloses();
    void aFailureToReadIsToldAndTheWindowOpens();
    void theGridFollowsTheWindowsSize();
    void sortingIsAscendingAndMarksTheColumn();
    void aSortThatFailsKeepsTheOrderAndItsSource();
    void emptiedCellsAreStoredAsNull();
    void theFixedTextsTellOfTheKeyAlone();
    void aNewRecordMayBeRefusedWhileOthersAreWritten();
    void theQuestionNamesTheRecordInHand();
    void aRefusedQuestionDeletesNothing();
    void enterStaysWithTheGrid();
    void columnWidthsAreKept();

private:
    void open(const std::function<void()>& steps)
    {
        tests::inWindow(
            *m_window, [this] { m_window->ShowInfo(); }, steps);
    }
    void press(const char* name)
    {
        QTest::mouseClick(m_window->findChild<QPushButton*>(QString::fromLatin1(name)),
                          Qt::LeftButton);
    }
    void goTo(int row, int column)
    {
        m_window->rows().setFocus();
        m_window->rows().setCurrentIndex(m_window->rows().model()->index(row, column));
    }
    static void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    }
    QString shown(int row, int column)
    {
        return m_window->rows().model()->index(row, column).data().toString();
    }
    store::Value stored(const QString& sql) { return m_file->open().OpenRecordset(sql)->Field(0); }
    QStringList texts() { return m_prompts->takeTexts(); }

    std::unique_ptr<tests::ScratchDatabase> m_file;
    std::unique_ptr<Instruments> m_window;
    tests::ScriptedPrompts* m_prompts = nullptr;
};

void TestGridWindow::init()
{
    static const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QSettings().clear();
    m_prompts = &tests::installScriptedPrompts();
    m_file = std::make_unique<tests::ScratchDatabase>();
    m_file->fill(5);
    m_window = std::make_unique<Instruments>(m_file->path());
}

void TestGridWindow::cleanup()
{
    m_window.reset();
    m_file.reset();
    toolkit::setPromptHost(nullptr);
}

void TestGridWindow::theWindowIsReadAndShownUntilItCloses()
{
    open([this] {
        QVERIFY(m_window->isModal());
        QVERIFY(m_window->rows().hasFocus());
        QCOMPARE(m_window->rows().model()->rowCount(), 6);
        press("cmdExit");
        QVERIFY(!m_window->isVisible());
    });
    QCOMPARE(texts(), QStringList());
}

void TestGridWindow::aFailureToReadIsToldAndTheWindowOpens()
{
    m_window = std::make_unique<Instruments>(m_file->path(u"gone.mdb"_s));
    open([this] { QVERIFY(texts().value(0).startsWith(u"Loading failed.\r\nError : 3024. "_s)); });
}

void TestGridWindow::theGridFollowsTheWindowsSize()
{
    open([this] {
        m_window->resize(700, 400);
        QCoreApplication::processEvents();
        const QSize small = m_window->rows().size();
        m_window->resize(900, 600);
        QCoreApplication::processEvents();
        QCOMPARE(m_window->rows().size() - small, QSize(200, 200));
    });
}

void TestGridWindow::sortingIsAscendingAndMarksTheColumn()
{
    m_file->run("UPDATE item SET service = 'aaa' WHERE tag = 'PT-00004'");
    open([this] {
        m_window->Sort(1);
        QCOMPARE(shown(0, 0), u"PT-00004"_s);
        m_window->Sort(1);
        QCOMPARE(shown(0, 0), u"PT-00004"_s);
        m_window->RefreshData();
        QCOMPARE(shown(0, 0), u"PT-00004"_s);
        m_window->Sort(0);
        QCOMPARE(shown(0, 0), u"PT-00001"_s);
    });
    QCOMPARE(texts(), QStringList());
}

void TestGridWindow::aSortThatFailsKeepsTheOrderAndItsSource()
{
    open([this] {
        goTo(0, 1);
        type(u"x"_s);
        m_window->Sort(1);
        QVERIFY(texts().value(0).startsWith(u"Sorting failed.\r\nError : 444. "_s));
        QCOMPARE(m_window->data().RecordSource(), u"qryItem"_s);
        m_window->rows().cancelRow();
        m_window->RefreshData();
        QCOMPARE(shown(0, 0), u"PT-00001"_s);
    });
}

void TestGridWindow::emptiedCellsAreStoredAsNull()
{
    open([this] {
        goTo(1, 1);
        QTest::keyClick(&m_window->rows(), Qt::Key_Delete);
        press("cmdSave");
    });
    QVERIFY(stored(u"select service from item where tag = 'PT-00002'"_s).isNull());
    QCOMPARE(texts(), QStringList());
}

void TestGridWindow::theFixedTextsTellOfTheKeyAlone()
{
    open([this] {
        goTo(5, 1);
        type(u"x"_s);
        press("cmdSave");
        QCOMPARE(texts(), QStringList{u"No tag."_s});
        goTo(5, 0);
        type(u"pt-00001"_s);
        press("cmdSave");
        QCOMPARE(texts(), QStringList{u"Tag exists."_s});
        goTo(5, 0);
        type(QString(30, u'n'));
        press("cmdSave");
        QCOMPARE(
            texts(),
            QStringList{u"The value is too long for the field tag, which holds 20 characters."_s});
        m_window->rows().cancelRow();
    });
}

void TestGridWindow::aNewRecordMayBeRefusedWhileOthersAreWritten()
{
    m_window->refusesNew = true;
    open([this] {
        goTo(5, 0);
        type(u"PT-00009"_s);
        press("cmdSave");
        QVERIFY(m_window->rows().rowPending());
        m_window->rows().cancelRow();
        goTo(0, 1);
        type(u"x"_s);
        press("cmdSave");
        QVERIFY(!m_window->rows().rowPending());
    });
    QCOMPARE(stored(u"select count(*) from item"_s).integer(), 5);
    QCOMPARE(stored(u"select service from item where tag = 'PT-00001'"_s).text(), u"x"_s);
    QCOMPARE(texts(), QStringList());
}

void TestGridWindow::theQuestionNamesTheRecordInHand()
{
    open([this] {
        goTo(2, 0);
        m_prompts->answers = {Answer::Yes, Answer::Yes};
        press("cmdDelete");
        QCoreApplication::processEvents();
        QCOMPARE(texts(), QStringList{u"Delete PT-00003?"_s});
        QCOMPARE(m_window->rows().Columns(0).Value().text(), u"PT-00002"_s);
        goTo(4, 0);
        type(u"PT-00009"_s);
        press("cmdDelete");
        QCOMPARE(texts(), QStringList{u"Delete PT-00009?"_s});
        QVERIFY(!m_window->rows().rowPending());
    });
    QCOMPARE(m_window->deleted, QStringList{u"PT-00003"_s});
    QCOMPARE(stored(u"select count(*) from item"_s).integer(), 4);
}

void TestGridWindow::aRefusedQuestionDeletesNothing()
{
    open([this] {
        goTo(2, 0);
        m_prompts->answers = {Answer::No};
        press("cmdDelete");
    });
    QCOMPARE(m_window->deleted, QStringList());
    QCOMPARE(stored(u"select count(*) from item"_s).integer(), 5);
}

void TestGridWindow::enterStaysWithTheGrid()
{
    open([this] {
        goTo(0, 0);
        QTest::keyClick(&m_window->rows(), Qt::Key_Return);
        QCOMPARE(m_window->rows().currentIndex().row(), 1);
        QVERIFY(m_window->isVisible());
        QCOMPARE(texts(), QStringList());
    });
}

void TestGridWindow::columnWidthsAreKept()
{
    m_window->rows().setColumnWidth(1, 321);
    m_window.reset();
    m_window = std::make_unique<Instruments>(m_file->path());
    QCOMPARE(m_window->rows().columnWidth(1), 321);
}

QTEST_MAIN(TestGridWindow)
#include "tst_grid_window.moc"
