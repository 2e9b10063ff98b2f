// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A run over the workbooks of a folder, and the question for the logo's file.
#include "datasheets/logo_desk.h"
#include "spreadsheet/error.h"
#include "support/without_root.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QProgressBar>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::LogoDesk;
using toolkit::Answer;
using toolkit::BoxButtons;
using toolkit::BoxIcon;

namespace {

const QString done = u"Datasheet logo operation completed"_s;
const QString question = u"Datasheet logo file not found would you like to locate it now?"_s;
const QString cancelled = u"Operation was cancelled by the user"_s;

} // namespace

class TestLogoRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<LogoDesk>(); }
    void cleanup() { m_desk.reset(); }

    void allWorkbooksOfTheFolderAreTakenByName();
    void onlyFilesOfThePatternAreTaken();
    void templatesAreTakenFromTheirOwnFolder();
    void theListIsTakenAtTheStart();
    void foldersAndLogoAreReadAnewForEachFile();
    void anEmptyFolderIsCompletedAtOnce();
    void aMissingFolderIsToldAndCompleted_data() { entries(); }
    void aMissingFolderIsToldAndCompleted();
    void anUnreadableFolderIsTold();
    void oneApplicationServesTheRun();
    void theApplicationIsSeenMeanwhile();
    void theWindowTellsOfTheRun_data() { entries(); }
    void theWindowTellsOfTheRun();
    void theTargetIsKnownMeanwhile_data() { entries(); }
    void theTargetIsKnownMeanwhile();
    void inputMeanwhileIsDropped();
    void theWindowDoesNotCloseMeanwhile();
    void thePlaceInTheIndexStays();

    void aLogoThatIsMissingIsAskedFor();
    void noSkipsTheFile();
    void cancelEndsTheRun_data() { entries(); }
    void cancelEndsTheRun();
    void yesTakesTheFirstFileAfreshWithTheNewLogo();
    void yesForTheFirstFileTakesThatOne();
    void yesOverTemplatesStaysWithTemplates();
    void cancelAfterYesEndsTheRun();
    void yesWithNoFileLeftGoesOn();
    void yesWithNoFolderLeftIsTold();
    void theQuestionComesWithNoWorkbookInSight();
    void anApplicationThatEndsUnderTheQuestionIsReplaced();

private:
    static void entries()
    {
        QTest::addColumn<QString>("entry");
        QTest::newRow("datasheets") << LogoDesk::datasheets;
        QTest::newRow("templates") << LogoDesk::templates;
    }
    static bool isForTemplates()
    {
        return *static_cast<const QString*>(QTest::qData("entry", qMetaTypeId<QString>()))
               == LogoDesk::templates;
    }
    /// The user gives another logo in the window of the attributes.
    void onProjectInfo(const std::function<void()>& action)
    {
        m_desk->window.setCommands({.ShowProjectInfo = action});
    }
    QStringList savedNames()
    {
        QStringList names;
        m_desk->office.whenSaved = [&names](const QString& path, const QString&) {
            names << path.section(u'/', -1);
        };
        m_desk->run();
        return names;
    }

    std::unique_ptr<LogoDesk> m_desk;
};

// ---- the files

void TestLogoRun::allWorkbooksOfTheFolderAreTakenByName()
{
    m_desk->giveSheets({u"c.xls"_s, u"B.xls"_s, u"a.xls"_s, u"d 1 ü.xls"_s});
    QCOMPARE(savedNames(), (QStringList{u"a.xls"_s, u"B.xls"_s, u"c.xls"_s, u"d 1 ü.xls"_s}));
}

void TestLogoRun::onlyFilesOfThePatternAreTaken()
{
    m_desk->giveSheets({u"a.XLS"_s,
                        u"b.Xls"_s,
                        u"c.xlsx"_s,
                        u"d.xlt"_s,
                        u"e.xls.bak"_s,
                        u".hidden.xls"_s,
                        u".~lock.a.xls#"_s,
                        u"~$a.XLS"_s,
                        u"fxls"_s});
    QDir(m_desk->path(u"sheets"_s)).mkdir(u"folder.xls"_s);
    QCOMPARE(savedNames(), (QStringList{u"a.XLS"_s, u"b.Xls"_s}));
}

void TestLogoRun::templatesAreTakenFromTheirOwnFolder()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xlt"_s});
    for (const QString& name : {u"t.xlt"_s, u"u.xls"_s})
        writeWorkbook(m_desk->templateFile(name), LogoDesk::usual());
    QStringList saved;
    m_desk->office.whenSaved = [&saved](const QString& path, const QString&) { saved << path; };
    QCOMPARE(m_desk->run(LogoDesk::templates), QStringList{u"Template logo operation completed"_s});
    QCOMPARE(saved, QStringList{m_desk->templateFile(u"t.xlt"_s)});
}

void TestLogoRun::theListIsTakenAtTheStart()
{
    m_desk->giveSheets({u"a.xls"_s});
    m_desk->office.whenSaved = [this](const QString&, const QString&) {
        m_desk->giveSheets({u"b.xls"_s});
    };
    QCOMPARE(m_desk->run(), QStringList{done});
    QVERIFY(!m_desk->hasNewLogo(u"b.xls"_s));
}

void TestLogoRun::foldersAndLogoAreReadAnewForEachFile()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    const QString other = m_desk->path(u"other"_s);
    QDir().mkdir(other);
    writeWorkbook(other + u"/b.xls"_s, LogoDesk::usual());
    const QString second = m_desk->picture(u"second.png"_s);
    bool first = true;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        if (std::exchange(first, false)) {
            m_desk->setAttribute(u"DefaultDatasheetFolder"_s, other + u'\\');
            m_desk->setLogo(second);
        }
    };
    QCOMPARE(m_desk->run(), QStringList{done});
    QVERIFY(m_desk->hasNewLogo(u"a.xls"_s));
    QVERIFY(!m_desk->hasNewLogo(u"b.xls"_s));
    QCOMPARE(LogoDesk::pictures(other + u"/b.xls"_s), QStringList{u"logo second.png at 2, 3"_s});
}

void TestLogoRun::anEmptyFolderIsCompletedAtOnce()
{
    QCOMPARE(m_desk->run(), QStringList{done});
    QCOMPARE(m_desk->run(LogoDesk::templates), QStringList{u"Template logo operation completed"_s});
    QCOMPARE(m_desk->office.quits, 0);
}

void TestLogoRun::aMissingFolderIsToldAndCompleted()
{
    QFETCH(QString, entry);
    const QString error = isForTemplates()
                              ? u"Error while changing template logo. \r\nError : 76. "_s
                              : u"Error while changing datasheet logo. \r\nError : 76. "_s;
    const QString end = isForTemplates() ? u"Template logo operation completed"_s : done;
    for (const QString& folder : {m_desk->path(u"nowhere"_s), QString()}) {
        m_desk->setAttribute(
            isForTemplates() ? u"DefaultTemplateFolder"_s : u"DefaultDatasheetFolder"_s, folder);
        std::vector<BoxIcon> icons;
        m_desk->prompts.whileOpen = [&](const toolkit::Box& box) { icons.push_back(box.icon); };
        const QString words =
            folder.isEmpty() ? u"Path not found"_s : u"Path not found: "_s + folder;
        QCOMPARE(m_desk->run(entry), (QStringList{error + words, end}));
        QVERIFY(icons == (std::vector{BoxIcon::Exclamation, BoxIcon::Information}));
    }
}

void TestLogoRun::anUnreadableFolderIsTold()
{
    const QString folder = m_desk->path(u"locked"_s);
    QDir().mkdir(folder);
    QFile::setPermissions(folder, {});
    m_desk->setAttribute(u"DefaultDatasheetFolder"_s, folder);
    QFile::setPermissions(m_desk->path(QString()), QFile::Permissions(0x7777));
    QFile::setPermissions(m_desk->project, QFile::Permissions(0x6666));
    const tests::WithoutRoot nobody;
    QCOMPARE(m_desk->run().value(0),
             u"Error while changing datasheet logo. \r\nError : 70. Permission denied"_s);
}

void TestLogoRun::oneApplicationServesTheRun()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    QCOMPARE(m_desk->run(), QStringList{done});
    QCOMPARE(m_desk->office.quits, 1);
}

void TestLogoRun::theApplicationIsSeenMeanwhile()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    int seen = 0;
    m_desk->office.whenInserted = [&](const QString&) {
        seen += m_desk->office.isVisible() ? 1 : 0;
    };
    m_desk->office.whenAsked = [&](const QString& name) {
        if (name == u"DatasheetType"_s)
            QVERIFY(!m_desk->office.isVisible());
    };
    QCOMPARE(m_desk->run(), QStringList{done});
    QCOMPARE(seen, 4);
}

// ---- the window

void TestLogoRun::theWindowTellsOfTheRun()
{
    QFETCH(QString, entry);
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) {
        m_desk->giveSheets({name + u".xls"_s});
        writeWorkbook(m_desk->templateFile(name + u".xlt"_s), LogoDesk::usual());
    }
    QStringList told;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        const auto* bar = m_desk->window.findChild<QProgressBar*>(u"Progress"_s);
        QVERIFY(bar->isVisible());
        told << bar->text() + u' ' + m_desk->panel(1);
    };
    m_desk->run(entry);
    const QString wait = isForTemplates() ? u"Please wait changing the template logo"_s
                                          : u"Please wait changing the datasheet logo"_s;
    QCOMPARE(told, (QStringList{u"0 / 3 "_s + wait, u"1 / 3 "_s + wait, u"2 / 3 "_s + wait}));
}

void TestLogoRun::theTargetIsKnownMeanwhile()
{
    QFETCH(QString, entry);
    m_desk->giveSheets({u"a.xls"_s});
    writeWorkbook(m_desk->templateFile(u"a.xlt"_s), LogoDesk::usual());
    int target = 0;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        target = app::g_intLogoTarget;
    };
    m_desk->run(entry);
    QCOMPARE(target, isForTemplates() ? 2 : 1);
}

void TestLogoRun::inputMeanwhileIsDropped()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    m_desk->addTag(u"PT-1"_s);
    m_desk->open(m_desk->project);
    auto& exit = *m_desk->window.findChild<QPushButton*>(u"cmdExit"_s);
    bool exits = false;
    connect(&exit, &QPushButton::clicked, this, [&exits] { exits = true; });
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        const QPointF centre = exit.rect().center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(&exit,
                                        new QMouseEvent(type,
                                                        centre,
                                                        exit.mapToGlobal(centre),
                                                        Qt::LeftButton,
                                                        Qt::LeftButton,
                                                        Qt::NoModifier));
        }
        QCoreApplication::postEvent(
            &m_desk->grid(), new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, u"x"_s));
    };
    QCOMPARE(m_desk->run(), QStringList{done});
    QCoreApplication::processEvents();
    QVERIFY(!exits);
    QVERIFY(m_desk->window.dbIndex().EditMode() == store::EditMode::None);
}

void TestLogoRun::theWindowDoesNotCloseMeanwhile()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    m_desk->office.whenSaved = [this](const QString&, const QString&) {
        QMetaObject::invokeMethod(
            &m_desk->window, [this] { m_desk->window.close(); }, Qt::QueuedConnection);
    };
    QCOMPARE(m_desk->run(), QStringList{done});
    QVERIFY(m_desk->window.isVisible());
    QVERIFY(m_desk->hasNewLogo(u"b.xls"_s));
}

void TestLogoRun::thePlaceInTheIndexStays()
{
    for (const QString& tag : {u"PT-1"_s, u"PT-2"_s, u"PT-3"_s})
        m_desk->addTag(tag);
    m_desk->open(m_desk->project);
    m_desk->goTo(u"PT-2"_s);
    m_desk->giveSheets({u"a.xls"_s});
    QCOMPARE(m_desk->run(), QStringList{done});
    QCOMPARE(m_desk->window.ActiveTag(), u"PT-2"_s);
    QCOMPARE(m_desk->panel(1), u"Record: 2 of 3"_s);
}

// ---- the question

void TestLogoRun::aLogoThatIsMissingIsAskedFor()
{
    m_desk->giveSheets({u"a.xls"_s});
    m_desk->setLogo(m_desk->path(u"nowhere.png"_s));
    toolkit::Box asked;
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.text == question)
            asked = box;
    };
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
    QVERIFY(asked.icon == BoxIcon::Exclamation);
    QVERIFY(asked.buttons == BoxButtons::YesNoCancel);
    QCOMPARE(asked.title, toolkit::programTitle());
}

void TestLogoRun::noSkipsTheFile()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    m_desk->office.whenInserted = [left = 3](const QString&) mutable {
        if (--left == 0) // the first sheet of the second file
            throw spreadsheet::Error(1004, u"Made for a test"_s);
    };
    m_desk->prompts.answers = {Answer::No};
    QStringList pointers;
    m_desk->office.whenSaved = [&](const QString& path, const QString&) {
        pointers << path.section(u'/', -1) + (QGuiApplication::overrideCursor() ? u" busy" : u"");
    };
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
    QVERIFY(m_desk->hasNewLogo(u"a.xls"_s));
    QCOMPARE(LogoDesk::pictures(m_desk->sheetFile(u"b.xls"_s)), QStringList{u"LOGO old at 0, 0"_s});
    QVERIFY(m_desk->hasNewLogo(u"c.xls"_s));
    // Who was asked has the pointer back.
    QCOMPARE(pointers, (QStringList{u"a.xls busy"_s, u"c.xls"_s}));
}

void TestLogoRun::cancelEndsTheRun()
{
    QFETCH(QString, entry);
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    for (const QString& name : {u"a.xlt"_s, u"b.xlt"_s})
        writeWorkbook(m_desk->templateFile(name), LogoDesk::usual());
    m_desk->setLogo(m_desk->path(u"nowhere.png"_s));
    m_desk->prompts.answers = {Answer::Cancel};
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.text != cancelled)
            return;
        QVERIFY(box.icon == BoxIcon::Exclamation);
        QVERIFY(m_desk->panel(1).startsWith(u"Record: "_s));
    };
    QCOMPARE(m_desk->run(entry), (QStringList{question, cancelled}));
    QCOMPARE(LogoDesk::pictures(m_desk->sheetFile(u"a.xls"_s)), QStringList{u"LOGO old at 0, 0"_s});
}

void TestLogoRun::yesTakesTheFirstFileAfreshWithTheNewLogo()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    const QString first = m_desk->picture(u"first.png"_s);
    m_desk->setLogo(first);
    m_desk->office.whenSaved = [&](const QString& path, const QString&) {
        if (path.endsWith(u"a.xls"_s))
            QFile::remove(first);
    };
    m_desk->prompts.answers = {Answer::Yes};
    int shown = 0;
    onProjectInfo([&] {
        ++shown;
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!m_desk->office.isVisible());
        m_desk->office.whenSaved = [](const QString&, const QString&) {
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        };
        m_desk->setLogo(m_desk->path(u"new.png"_s));
    });
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
    QCOMPARE(shown, 1);
    QVERIFY(m_desk->hasNewLogo(u"a.xls"_s));
    QCOMPARE(LogoDesk::pictures(m_desk->sheetFile(u"b.xls"_s)), QStringList{u"LOGO old at 0, 0"_s});
    QVERIFY(m_desk->hasNewLogo(u"c.xls"_s));
}

void TestLogoRun::yesForTheFirstFileTakesThatOne()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    m_desk->setLogo(QString());
    m_desk->prompts.answers = {Answer::Yes};
    onProjectInfo([&] { m_desk->setLogo(m_desk->path(u"new.png"_s)); });
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
    QVERIFY(m_desk->hasNewLogo(u"a.xls"_s));
    QVERIFY(m_desk->hasNewLogo(u"b.xls"_s));
}

void TestLogoRun::yesOverTemplatesStaysWithTemplates()
{
    m_desk->giveSheets({u"a.xls"_s});
    const QString file = m_desk->templateFile(u"t.xlt"_s);
    writeWorkbook(file, LogoDesk::usual());
    m_desk->setLogo(QString());
    m_desk->prompts.answers = {Answer::Yes};
    onProjectInfo([&] { m_desk->setLogo(m_desk->path(u"new.png"_s)); });
    QCOMPARE(m_desk->run(LogoDesk::templates),
             (QStringList{question, u"Template logo operation completed"_s}));
    QVERIFY(LogoDesk::book(file).isTemplate);
    QCOMPARE(LogoDesk::pictures(file), QStringList{u"logo new.png at 2, 3"_s});
    QVERIFY(!m_desk->hasNewLogo(u"a.xls"_s));
}

void TestLogoRun::cancelAfterYesEndsTheRun()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    m_desk->setLogo(QString());
    m_desk->prompts.answers = {Answer::Yes, Answer::Yes, Answer::Cancel};
    int shown = 0;
    onProjectInfo([&shown] { ++shown; });
    QCOMPARE(m_desk->run(), (QStringList{question, question, question, cancelled}));
    QCOMPARE(shown, 2);
}

void TestLogoRun::yesWithNoFileLeftGoesOn()
{
    m_desk->giveSheets({u"a.xls"_s});
    m_desk->setLogo(QString());
    m_desk->prompts.answers = {Answer::Yes};
    onProjectInfo([&] { QFile::remove(m_desk->sheetFile(u"a.xls"_s)); });
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
}

void TestLogoRun::yesWithNoFolderLeftIsTold()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    m_desk->setLogo(QString());
    m_desk->prompts.answers = {Answer::Yes};
    onProjectInfo([&] { QDir(m_desk->path(u"sheets"_s)).removeRecursively(); });
    QCOMPARE(m_desk->run(),
             (QStringList{question,
                          u"Error while changing datasheet logo. \r\nError : 76. Path not found: "_s
                              + m_desk->path(u"sheets"_s),
                          done}));
}

void TestLogoRun::theQuestionComesWithNoWorkbookInSight()
{
    m_desk->giveSheets({u"a.xls"_s});
    m_desk->setLogo(QString());
    bool asked = false;
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        asked |= box.text == question;
        QVERIFY(!m_desk->office.isVisible());
        QVERIFY(m_desk->window.isActiveWindow());
    };
    m_desk->run();
    QVERIFY(asked);
}

void TestLogoRun::anApplicationThatEndsUnderTheQuestionIsReplaced()
{
    m_desk->giveSheets({u"a.xls"_s, u"b.xls"_s});
    m_desk->setLogo(QString());
    m_desk->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.text == question) {
            m_desk->office.kill();
            m_desk->setLogo(m_desk->path(u"new.png"_s));
        }
    };
    QCOMPARE(m_desk->run(), (QStringList{question, done}));
    QVERIFY(m_desk->hasNewLogo(u"b.xls"_s));
}

QTEST_MAIN(TestLogoRun)
#include "tst_logo_run.moc"
