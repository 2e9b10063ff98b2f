// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "office/office_display.h"
#include "spreadsheet/office_fixture.h"
#include "spreadsheet/office_traces.h"
#include "support/unsaved_answer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::SaveChanges;
using tests::OfficeDisplay;
using tests::OfficeTraces;
using tests::UnsavedAnswer;

namespace {

const QString mainTitle = u"LibreOffice Calc"_s;
const QString questionTitle = u"Save Document?"_s;
constexpr int moment = 500;
constexpr int patience = 30000; ///< milliseconds for an effect of another process

bool shows(const QString& title)
{
    return OfficeDisplay::windows().join(u'\n').contains(title);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Answers the application's own question, for which the main thread waits.
class Onlooker
{
public:
    explicit Onlooker(UnsavedAnswer answer)
        : m_answer(answer)
    {
        m_timer.callOnTimeout(&m_timer, [this] { look(); });
        m_timer.start(200);
    }
    int questions() const { return m_questions; }

private:
    void look()
    {
        if (m_questions > 0 || !OfficeDisplay::activate(questionTitle))
            return;
        ++m_questions;
        const QString key = m_answer == UnsavedAnswer::Save      ? u"alt+s"_s
                            : m_answer == UnsavedAnswer::Discard ? u"alt+n"_s
                                                                 : u"Escape"_s;
        OfficeDisplay::press({key});
    }

    UnsavedAnswer m_answer;
    QTimer m_timer;
    int m_questions = 0;
};

/// An open workbook in a visible window, and what it told.
class Session
{
public:
    explicit Session(int sheets = 1, bool refusesInput = false)
    {
        spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR)});
        path = fixture.path(u"a.xls"_s);
        application = spreadsheet::CreateObject();
        if (refusesInput)
            application->refuseInput();
        {
            const auto made = application->Add();
            made->Worksheets(1)->Range(u"A1"_s)->setValue(u"one"_s);
            for (int i = 2; i <= sheets; ++i)
                made->AddSheet(u"Sheet%1"_s.arg(i));
            made->SaveAs(path, spreadsheet::FileFormat::Workbook);
            made->Close(SaveChanges::No);
        }
        workbook = application->Open(path);
        sheet = workbook->Worksheets(1);
        sheet->subscribe([this] { log << u"Change"_s; });
        workbook->subscribe({.BeforeClose =
                                 [this](bool& cancel) {
                                     log << u"BeforeClose"_s;
                                     cancel = keepOpen || !workbook->confirmClose();
                                     log << (cancel ? u"stays"_s : u"closes"_s);
                                 },
                             .BeforeSave =
                                 [this](bool ui, bool& cancel) {
                                     log << (ui ? u"BeforeSaveAs"_s : u"BeforeSave"_s);
                                     cancel = refuseSave;
                                 },
                             .SheetSelectionChange = [this] { log << u"Select"_s; },
                             .Lost = [this] { log << u"Lost"_s; }});
        application->setVisible(true);
        bool shown = false;
        shown = QTest::qWaitFor([] { return shows(u"a.xls"_s); }, patience);
        if (!shown)
            qFatal("the window did not show");
        settle();
    }

    /// What was told since the last time, without what is not asked for.
    QStringList told(const QStringList& kinds)
    {
        settle();
        QStringList found;
        for (const QString& entry : std::as_const(log)) {
            if (kinds.contains(entry))
                found << entry;
        }
        log.clear();
        return found;
    }

    static void press(const QStringList& keys)
    {
        OfficeDisplay::bringUp(mainTitle);
        OfficeDisplay::press(keys);
    }

    void type(const QString& text)
    {
        OfficeDisplay::bringUp(mainTitle);
        OfficeDisplay::type(text);
        OfficeDisplay::press({u"Return"_s});
        settle();
        log.clear();
    }

    QString text(const QString& cell) const
    {
        const spreadsheet::CellValue value = sheet->Range(cell)->Value();
        const auto* string = std::get_if<QString>(&value);
        return string ? *string : QString();
    }

    static void settle() { QTest::qWait(moment); }

    const tests::OfficeFixture fixture;
    QString path;
    std::shared_ptr<spreadsheet::Application> application;
    std::shared_ptr<spreadsheet::Workbook> workbook;
    std::shared_ptr<spreadsheet::Worksheet> sheet;
    QStringList log;
    bool keepOpen = false;
    bool refuseSave = false;
};

const QStringList saves{u"BeforeSave"_s, u"BeforeSaveAs"_s, u"Change"_s};
const QStringList closes{u"BeforeClose"_s, u"stays"_s, u"closes"_s, u"Lost"_s};
const QStringList changes{u"Change"_s};

bool isIn(const QString& text, const spreadsheet::CellValues& values)
{
    for (const auto& row : values) {
        for (const spreadsheet::CellValue& value : row) {
            if (const auto* words = std::get_if<QString>(&value); words && words->contains(text))
                return true;
        }
    }
    return false;
}

/// By a name that no sheet has. On a busy machine the window may miss the first keys.
bool bringUpADialog()
{
    for (int attempt = 0; attempt < 3; ++attempt) {
        Session::press({u"Escape"_s, u"ctrl+shift+t"_s, u"ctrl+a"_s});
        OfficeDisplay::type(u"Sheet9.A1"_s);
        OfficeDisplay::press({u"Return"_s});
        if (QTest::qWaitFor([] { return shows(u"Information"_s); }, patience / 3))
            return true;
    }
    return false;
}

} // namespace

class TestWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_display = std::make_unique<OfficeDisplay>(); }
    static void cleanup() { spreadsheet::endHost(); }
    void cleanupTestCase() { m_display.reset(); }

    static void everyWayToSaveIsToldOnceAndCanBeRefused()
    {
        Session session;
        const QStringList menu{u"alt+f"_s, u"s"_s};
        for (const QStringList& keys : {QStringList{u"ctrl+s"_s}, menu}) {
            session.type(u"new "_s + keys.first());
            const QByteArray before = bytesOf(session.path);
            session.refuseSave = true;
            Session::press(keys);
            QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"BeforeSave"_s), patience);
            QCOMPARE(session.told(saves), QStringList{u"BeforeSave"_s});
            QCOMPARE(bytesOf(session.path), before);
            session.refuseSave = false;
            Session::press(keys);
            QTRY_VERIFY_WITH_TIMEOUT(bytesOf(session.path) != before, patience);
            QCOMPARE(session.told(saves), QStringList{u"BeforeSave"_s});
        }
    }

    static void savingUnderAnotherNameIsToldBeforeItsDialogOpens()
    {
        Session session;
        session.refuseSave = true;
        Session::press({u"ctrl+shift+s"_s});
        QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"BeforeSaveAs"_s), patience);
        QCOMPARE(session.told(saves), QStringList{u"BeforeSaveAs"_s});
        QVERIFY(!shows(u"Save as"_s));
        session.refuseSave = false;
        Session::press({u"ctrl+shift+s"_s});
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"Save as"_s), patience);
        const QString other = session.fixture.path(u"b.xls"_s);
        OfficeDisplay::bringUp(u"Save as"_s);
        OfficeDisplay::press({u"ctrl+a"_s});
        OfficeDisplay::type(other);
        OfficeDisplay::press({u"Return"_s});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(other), patience);
        QCOMPARE(session.told(saves), QStringList{u"BeforeSaveAs"_s});
        QTRY_COMPARE_WITH_TIMEOUT(session.workbook->Name(), u"b.xls"_s, patience);
    }

    static void everyWayToCloseIsToldOnceAndCanBeRefused()
    {
        Session session;
        session.keepOpen = true;
        const QStringList menu{u"alt+f"_s, u"c"_s};
        for (const QStringList& keys :
             {QStringList{u"ctrl+w"_s}, QStringList{u"alt+F4"_s}, QStringList{u"ctrl+q"_s}, menu}) {
            Session::press(keys);
            QTRY_VERIFY2_WITH_TIMEOUT(
                session.log.contains(u"stays"_s), qPrintable(keys.join(u' ')), patience);
            QCOMPARE(session.told(closes), (QStringList{u"BeforeClose"_s, u"stays"_s}));
            QVERIFY(shows(u"a.xls"_s));
            QCOMPARE(session.text(u"A1"_s), u"one"_s);
        }
        session.keepOpen = false;
        Session::press({u"ctrl+w"_s});
        QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"closes"_s), patience);
        QCOMPARE(session.told(closes), (QStringList{u"BeforeClose"_s, u"closes"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(!shows(mainTitle), patience);
    }

    static void theApplicationAsksAboutWhatIsUnsaved_data()
    {
        QTest::addColumn<UnsavedAnswer>("answer");
        QTest::addColumn<bool>("saved");
        QTest::newRow("save") << UnsavedAnswer::Save << true;
        QTest::newRow("discard") << UnsavedAnswer::Discard << false;
    }
    static void theApplicationAsksAboutWhatIsUnsaved()
    {
        QFETCH(const UnsavedAnswer, answer);
        QFETCH(const bool, saved);
        Session session;
        const QByteArray before = bytesOf(session.path);
        session.type(u"unsaved"_s);
        {
            const Onlooker onlooker(UnsavedAnswer::Cancel);
            Session::press({u"ctrl+w"_s});
            QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"stays"_s), patience);
            QCOMPARE(onlooker.questions(), 1);
        }
        QCOMPARE(session.told(closes), (QStringList{u"BeforeClose"_s, u"stays"_s}));
        QVERIFY(shows(u"a.xls"_s));
        const Onlooker onlooker(answer);
        Session::press({u"alt+F4"_s});
        QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"closes"_s), patience);
        QCOMPARE(onlooker.questions(), 1);
        QCOMPARE(session.told(closes), (QStringList{u"BeforeClose"_s, u"closes"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(!shows(mainTitle), patience);
        QCOMPARE(bytesOf(session.path) != before, saved);
    }

    static void whatTheUserChangesIsTold()
    {
        Session session;
        const auto changed = [&](const QStringList& keys) {
            session.log.clear();
            Session::press(keys);
            return !session.told(changes).isEmpty();
        };
        OfficeDisplay::type(u"typed"_s);
        QVERIFY(changed({u"Return"_s}));
        QCOMPARE(session.text(u"A1"_s), u"typed"_s);
        QVERIFY(!changed({u"Up"_s, u"ctrl+c"_s}));
        QVERIFY(changed({u"Right"_s, u"ctrl+v"_s}));
        QCOMPARE(session.text(u"B1"_s), u"typed"_s);
        QVERIFY(changed({u"Escape"_s, u"shift+Down"_s, u"ctrl+d"_s}));
        QCOMPARE(session.text(u"B2"_s), u"typed"_s);
        QVERIFY(changed({u"ctrl+z"_s}));
        QCOMPARE(session.text(u"B2"_s), QString());
        QVERIFY(changed({u"Delete"_s}));
        QCOMPARE(session.text(u"B1"_s), QString());
    }

    static void theProgramsOwnChangeIsToldOnceAndOnItsSheetAlone()
    {
        Session session(2);
        session.workbook->Worksheets(2)->Range(u"A1"_s)->setValue(u"x"_s);
        QCOMPARE(session.told(changes), QStringList());
        session.sheet->Range(u"A1"_s)->setValue(u"x"_s);
        QCOMPARE(session.told(changes), changes);
    }

    static void anotherSheetInFrontIsTold()
    {
        Session session(2);
        session.log.clear();
        Session::press({u"ctrl+Next"_s});
        QTRY_VERIFY_WITH_TIMEOUT(session.log.contains(u"Select"_s), patience);
        QCOMPARE(session.workbook->ActiveSheet()->Name(), u"Sheet2"_s);
    }

    static void noCommandPutsAnotherDocumentBesideIt()
    {
        Session session;
        session.type(u"unsaved"_s);
        const QStringList before = OfficeDisplay::windows();
        for (const QStringList& keys : {QStringList{u"ctrl+n"_s},
                                        QStringList{u"ctrl+o"_s},
                                        QStringList{u"ctrl+shift+n"_s},
                                        QStringList{u"ctrl+shift+o"_s}}) {
            Session::press(keys);
            Session::settle();
            QCOMPARE(OfficeDisplay::windows(), before);
        }
        Session::press({u"alt+w"_s, u"n"_s});
        Session::settle();
        OfficeDisplay::press({u"Escape"_s, u"Escape"_s});
        QTRY_COMPARE_WITH_TIMEOUT(OfficeDisplay::windows(), before, patience);
        QCOMPARE(session.text(u"A1"_s), u"unsaved"_s);
    }

    /// The same is done to a window that takes input, where it does change the cells.
    static void aWindowThatRefusesInputOnlyShows_data()
    {
        QTest::addColumn<bool>("refuses");
        QTest::newRow("takes input") << false;
        QTest::newRow("refuses it") << true;
    }
    static void aWindowThatRefusesInputOnlyShows()
    {
        QFETCH(const bool, refuses);
        Session session(2, refuses);
        const auto secondSheet = session.workbook->Worksheets(2);
        const auto inFront = [&] { return session.workbook->ActiveSheet()->Name(); };
        const QString front = inFront();
        constexpr int repeats = 3; // a busy machine misses keys
        for (int i = 0; i < repeats; ++i) {
            Session::press({u"Escape"_s, u"ctrl+Home"_s});
            OfficeDisplay::type(u"wrong"_s);
            OfficeDisplay::press({u"Return"_s, u"Delete"_s, u"ctrl+v"_s, u"ctrl+z"_s});
            OfficeDisplay::press({u"Escape"_s, u"ctrl+Next"_s});
            OfficeDisplay::click(600, 400);
            OfficeDisplay::type(u"wrong"_s);
            OfficeDisplay::press({u"Return"_s});
        }
        Session::settle();
        const bool isUntouched = session.text(u"A1"_s) == u"one"_s && inFront() == front
                                 && session.told(changes + saves).isEmpty();
        QCOMPARE(isUntouched, refuses);
        if (!refuses)
            return;
        for (const spreadsheet::CellValues& values :
             {session.sheet->Values(u"A1:Z60"_s), secondSheet->Values(u"A1:Z60"_s)})
            QVERIFY(!isIn(u"wrong"_s, values));
        // A menu, the keys that end it, and the window manager's own.
        for (const QStringList& keys : {QStringList{u"alt+f"_s, u"c"_s},
                                        {u"ctrl+w"_s},
                                        {u"ctrl+q"_s},
                                        {u"ctrl+s"_s},
                                        {u"alt+F4"_s}}) {
            Session::press(keys);
            QVERIFY2(session.told(closes + saves).isEmpty(), qPrintable(keys.join(u' ')));
        }
        QVERIFY(shows(u"a.xls"_s));
        QVERIFY(!shows(questionTitle));
        // The program goes on with it.
        session.sheet->Range(u"A1"_s)->setValue(u"two"_s);
        session.workbook->Save();
        QCOMPARE(session.text(u"A1"_s), u"two"_s);
    }

    static void itsWindowHidesAndShows()
    {
        Session session;
        session.application->setVisible(false);
        QTRY_VERIFY_WITH_TIMEOUT(!shows(mainTitle), patience);
        QCOMPARE(session.text(u"A1"_s), u"one"_s);
        session.application->setVisible(true);
        QTRY_VERIFY_WITH_TIMEOUT(shows(u"a.xls"_s), patience);
        QVERIFY(session.told(closes).isEmpty());
    }

    static void aDialogOfTheApplicationHoldsUpNoEnd_data()
    {
        QTest::addColumn<bool>("closesFirst");
        QTest::newRow("close") << true;
        QTest::newRow("end") << false;
    }
    static void aDialogOfTheApplicationHoldsUpNoEnd()
    {
        QFETCH(const bool, closesFirst);
        Session session;
        const OfficeTraces traces(spreadsheet::hostProcess());
        QVERIFY(bringUpADialog());
        QElapsedTimer time;
        time.start();
        session.keepOpen = false;
        if (closesFirst) {
            session.workbook->Close(SaveChanges::No);
            QTRY_VERIFY_WITH_TIMEOUT(!shows(u"Information"_s), patience);
        }
        spreadsheet::endHost();
        QVERIFY(time.elapsed() < 10000);
        QTRY_VERIFY_WITH_TIMEOUT(traces.areGone(), patience);
        QCOMPARE(spreadsheet::CreateObject()->Add()->SheetCount(), 1);
    }

private:
    std::unique_ptr<OfficeDisplay> m_display;
};

QTEST_GUILESS_MAIN(TestWindow)
#include "tst_window.moc"
