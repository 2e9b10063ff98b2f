// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "app/project_info_desk.h"
#include "app/state.h"
#include "support/without_root.h"
#include "toolkit/data_control.h"

#include <QDir>
#include <QLineEdit>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ProjectInfoDesk;

namespace {

const QString cfgWarning = u"Please check the configuration file \r\n make sure the database type "
                           u"and schema are valid"_s;
const QByteArray validCfg = "[Process Database]\nDatabaseType=SQL Server\nSchema=Plant\n";

} // namespace

class TestProjectInfoPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<ProjectInfoDesk>(); }
    void cleanup() { m_desk.reset(); }

    void typingOnAPathIsRefused_data();
    void typingOnAPathIsRefused();
    void theLogoAsTheTemplateSpellsItIsTyped();
    void pastingOnAPathIsRefused();
    void typingInTheOpenCellOfAPathIsRefused();
    void everyKeyThatDeletesInTheOpenCellOfAPathIsRefused();
    void pastingWithTheMiddleButtonOnAPathIsRefused();

    void browsingForAFolderStoresIt_data();
    void browsingForAFolderStoresIt();
    void cancellingTheFolderBrowserKeepsTheValue();
    void browsingOnAnyOtherAttributeDoesNothing();
    void browsingForTheDatabaseAsksForAFile();
    void aDatabaseFileIsStored_data();
    void aDatabaseFileIsStored();
    void noDatabaseFileKeepsTheValue_data();
    void noDatabaseFileKeepsTheValue();
    void aConfigurationIsKeptInALinkedProject();
    void aConfigurationEmptiesTheValueOfAProjectWithoutLink();
    void anInvalidConfigurationWarns();
    void aConfigurationThatCannotBeReadIsTold();
    void aDialogCancelledByTheUserIsTold();
    void anyOtherFailureOfBrowsingIsTold();
    void browsingForTheLogoStoresIt();
    void theLogoInSmallLettersIsNotBrowsedFor();

private:
    std::unique_ptr<ProjectInfoDesk> m_desk;
};

// ---- keys on paths

void TestProjectInfoPaths::typingOnAPathIsRefused_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("deleted");
    QTest::newRow("database") << u"DefaultP&IDDatabase"_s << u"Please locate P&ID database path  "_s
                              << u"Please locate P&ID database path  "_s;
    QTest::newRow("logo") << u"logo file"_s << u"Please locate the logo  "_s
                          << u"Please locate the logo  "_s;
    QTest::newRow("datasheets") << u"DefaultDatasheetFolder"_s
                                << u"Please locate datasheet folder  "_s
                                << u"Please locate datasheet folder "_s;
    QTest::newRow("templates") << u"DefaultTemplateFolder"_s << u"Please locate template folder  "_s
                               << u"Please locate template folder "_s;
}

void TestProjectInfoPaths::typingOnAPathIsRefused()
{
    QFETCH(QString, attribute);
    QFETCH(QString, typed);
    QFETCH(QString, deleted);
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeName = 'logo file' where "
                            u"attributeName = 'Logo file'"_s);
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeValue = 'kept' where "
                            u"attributeName = '"_s
                                + attribute + u"'"_s);
    const QString how = u"\r\nusing 'Browse' command button"_s;
    m_desk->open([&] {
        for (const int column : {app::infoColumn::value, app::infoColumn::name}) {
            m_desk->goTo(attribute, column);
            m_desk->type(u"x"_s);
            m_desk->expectNotice(typed + how);
            m_desk->key(Qt::Key_Backspace);
            m_desk->expectNotice(typed + how);
            m_desk->key(Qt::Key_Delete);
            m_desk->expectNotice(deleted + how);
            QVERIFY(!m_desk->grid().rowPending());
        }
        QCOMPARE(m_desk->value(), u"kept"_s);
        QCOMPARE(m_desk->cell(app::infoColumn::name), attribute);
    });
}

void TestProjectInfoPaths::theLogoAsTheTemplateSpellsItIsTyped()
{
    m_desk->open([this] {
        m_desk->goTo(u"Logo file"_s);
        m_desk->type(u"a.bmp"_s);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"Logo file"_s), u"a.bmp"_s);
        m_desk->goTo(u"Logo file"_s);
        m_desk->key(Qt::Key_Delete);
        m_desk->press(u"cmdSave"_s);
        QVERIFY(m_desk->stored(u"Logo file"_s) != u"a.bmp"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::pastingOnAPathIsRefused()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->key(Qt::Key_F2);
        m_desk->key(Qt::Key_V, Qt::ControlModifier);
        m_desk->expectNotice(u"Please locate template folder  \r\nusing 'Browse' command button"_s);
        m_desk->key(Qt::Key_X, Qt::ControlModifier);
        m_desk->expectNotice(u"Please locate template folder  \r\nusing 'Browse' command button"_s);
        m_desk->key(Qt::Key_Escape);
    });
}

void TestProjectInfoPaths::typingInTheOpenCellOfAPathIsRefused()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->key(Qt::Key_F2);
        QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        m_desk->type(u"x"_s);
        m_desk->expectNotice(u"Please locate template folder  \r\nusing 'Browse' command button"_s);
        m_desk->key(Qt::Key_Delete);
        m_desk->expectNotice(u"Please locate template folder \r\nusing 'Browse' command button"_s);
        QCOMPARE(m_desk->value(), QString());
        m_desk->key(Qt::Key_Escape);
    });
}

void TestProjectInfoPaths::everyKeyThatDeletesInTheOpenCellOfAPathIsRefused()
{
    using Key = QKeySequence::StandardKey;
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeValue = 'kept' where "
                            u"attributeName = 'DefaultTemplateFolder'"_s);
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->key(Qt::Key_F2);
        int tried = 0;
        for (const Key standard : {Key::DeleteStartOfWord,
                                   Key::DeleteEndOfWord,
                                   Key::DeleteEndOfLine,
                                   Key::DeleteCompleteLine}) {
            for (const QKeySequence& keys : QKeySequence::keyBindings(standard)) {
                const QKeyCombination combination = keys[0];
                m_desk->key(combination.key(), combination.keyboardModifiers());
                QCOMPARE(m_desk->texts().size(), 1);
                ++tried;
            }
        }
        QVERIFY(tried >= 2);
        m_desk->key(Qt::Key_Return);
    });
    QCOMPARE(m_desk->stored(u"DefaultTemplateFolder"_s), u"kept"_s);
}

void TestProjectInfoPaths::pastingWithTheMiddleButtonOnAPathIsRefused()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->key(Qt::Key_F2);
        QTest::mouseClick(QApplication::focusWidget(), Qt::MiddleButton);
        m_desk->expectNotice(u"Please locate template folder  \r\nusing 'Browse' command button"_s);
        m_desk->key(Qt::Key_Escape);
    });
}

// ---- browsing

void TestProjectInfoPaths::browsingForAFolderStoresIt_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("title");
    QTest::newRow("datasheets") << u"DefaultDatasheetFolder"_s
                                << u"Select default datasheet folder"_s;
    QTest::newRow("templates") << u"DefaultTemplateFolder"_s << u"Select default template folder"_s;
}

void TestProjectInfoPaths::browsingForAFolderStoresIt()
{
    QFETCH(QString, attribute);
    QFETCH(QString, title);
    const QString folder = m_desk->path(QString());
    m_desk->prompts.folders = {folder};
    m_desk->open([&] {
        m_desk->goTo(attribute);
        m_desk->press(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->prompts.folderTitles, QStringList{title});
        QCOMPARE(m_desk->prompts.folderOwners.at(0), &m_desk->window);
        QCOMPARE(m_desk->value(), folder);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(attribute), folder);
    });
    QVERIFY(!app::g_blnFolderChanged);
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::cancellingTheFolderBrowserKeepsTheValue()
{
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeValue = '/kept' where "
                            u"attributeName = 'DefaultTemplateFolder'"_s);
    m_desk->open([this] {
        m_desk->goTo(u"DefaultTemplateFolder"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->prompts.folderTitles.size(), 1);
        QCOMPARE(m_desk->value(), u"/kept"_s);
        QVERIFY(!m_desk->grid().rowPending());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::browsingOnAnyOtherAttributeDoesNothing()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->goToNewRow();
        m_desk->press(u"cmdLocateDir"_s);
        QVERIFY(!m_desk->grid().rowPending());
    });
    QVERIFY(m_desk->prompts.fileRequests.empty());
    QCOMPARE(m_desk->prompts.folderTitles, QStringList());
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::browsingForTheDatabaseAsksForAFile()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
    });
    QCOMPARE(m_desk->prompts.fileRequests.size(), std::size_t{1});
    const toolkit::FileRequest& request = m_desk->prompts.fileRequests[0];
    QCOMPARE(request.title, u"Locate P&ID Database"_s);
    QCOMPARE(request.filter,
             u"Ostrand P&ID Database (*.mdb)|*.mdb|Microsoft Access Database (*.mdb)|*.mdb|Oracle "
             u"Database (Project.cfg)|Project.cfg|Microsoft SQL Server "
             u"(Project.cfg)|Project.cfg"_s);
    QCOMPARE(request.filterIndex, 1);
    QCOMPARE(request.fileName, QString());
    QCOMPARE(request.folder, app::installationFolder());
    QVERIFY(!request.save);
}

void TestProjectInfoPaths::aDatabaseFileIsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("usual") << u"plant.mdb"_s;
    QTest::newRow("capitals") << u"PLANT.MDB"_s;
    QTest::newRow("another extension") << u"plant.accdb"_s;
    QTest::newRow("no extension") << u"cfg"_s;
}

void TestProjectInfoPaths::aDatabaseFileIsStored()
{
    QFETCH(QString, name);
    const QString path = m_desk->file(name, "x");
    m_desk->prompts.files = {path};
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->value(), path);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"DefaultP&IDDatabase"_s), path);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::noDatabaseFileKeepsTheValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no such file") << u"gone.mdb"_s;
    QTest::newRow("no such configuration") << u"gone.cfg"_s;
    QTest::newRow("a folder") << u"folder"_s;
}

void TestProjectInfoPaths::noDatabaseFileKeepsTheValue()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkpath(m_desk->path(u"folder"_s)));
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeValue = 'kept' where "
                            u"attributeName = 'DefaultP&IDDatabase' or "
                            u"attributeName = 'Logo file'"_s);
    m_desk->prompts.files = {m_desk->path(name), std::nullopt, m_desk->path(name)};
    m_desk->open([&] {
        for (const QString& attribute : {u"DefaultP&IDDatabase"_s, u"Logo file"_s}) {
            m_desk->goTo(attribute);
            m_desk->press(u"cmdLocateDir"_s);
            m_desk->press(u"cmdLocateDir"_s);
            QCOMPARE(m_desk->value(), u"kept"_s);
            QVERIFY(!m_desk->grid().rowPending());
        }
    });
    QCOMPARE(m_desk->prompts.fileRequests.size(), std::size_t{4});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::aConfigurationIsKeptInALinkedProject()
{
    app::g_blnPidLinked = true;
    const QString path = m_desk->file(u"Project.CFG"_s, validCfg);
    m_desk->prompts.files = {path};
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->value(), path);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"DefaultP&IDDatabase"_s), path);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::aConfigurationEmptiesTheValueOfAProjectWithoutLink()
{
    const QString path = m_desk->file(u"Project.cfg"_s, validCfg);
    m_desk->prompts.files = {path};
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QVERIFY(m_desk->grid().rowPending());
        QCOMPARE(m_desk->value(), QString());
        QVERIFY(!m_desk->grid().Columns(app::infoColumn::value).Value().isNull());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::anInvalidConfigurationWarns()
{
    app::g_blnPidLinked = true;
    const QString path =
        m_desk->file(u"Project.cfg"_s, "[process database]\nDatabaseType=Oracle\nSchema=Plant\n");
    m_desk->prompts.files = {path, path};
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->expectFailure(cfgWarning);
        QCOMPARE(m_desk->value(), path);
        app::g_blnPidLinked = false;
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->expectFailure(cfgWarning);
        QCOMPARE(m_desk->value(), QString());
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoPaths::aConfigurationThatCannotBeReadIsTold()
{
    const QString path = m_desk->file(u"Project.cfg"_s, validCfg);
    ::chmod(m_desk->path(QString()).toUtf8().constData(), 0777);
    ::chmod(m_desk->project.toUtf8().constData(), 0666);
    ::chmod(path.toUtf8().constData(), 0);
    m_desk->prompts.files = {path};
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        const tests::WithoutRoot user;
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->expectFailure(u"File 'data.txt' is already exists \r\n and it is read only"_s);
        QCOMPARE(m_desk->value(), path);
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoPaths::aDialogCancelledByTheUserIsTold()
{
    /// A dialog that tells of its end by the engine's error.
    class CancellingHost final : public toolkit::PromptHost
    {
    public:
        explicit CancellingHost(QStringList& told)
            : m_told(told)
        {
        }
        toolkit::Answer messageBox(const toolkit::Box& box) override
        {
            m_told << box.text;
            return toolkit::Answer::Ok;
        }
        std::optional<QString> inputBox(const QString&, const QString&) override { return {}; }
        std::optional<QString> fileDialog(const toolkit::FileRequest&) override
        {
            throw store::Error(3059, u"Operation canceled by user"_s);
        }
        std::optional<QString> folderDialog(QWidget*, const QString&) override { return {}; }
        void openAddress(const QString&) override {}

    private:
        QStringList& m_told;
    };

    QStringList told;
    const auto before = toolkit::setPromptHost(std::make_unique<CancellingHost>(told));
    m_desk->open([&] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
    });
    QCOMPARE(told, QStringList{u"Operation was cancelled by the user"_s});
}

void TestProjectInfoPaths::anyOtherFailureOfBrowsingIsTold()
{
    m_desk->prompts.files = {m_desk->file(u"Project.cfg"_s, "[process database]\nshort\n")};
    m_desk->open([this] {
        m_desk->goTo(u"DefaultP&IDDatabase"_s);
        m_desk->press(u"cmdLocateDir"_s);
        m_desk->expectFailure(
            u"Error while locating directory. \r\nError : 5. Invalid procedure call or "
            u"argument"_s);
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoPaths::browsingForTheLogoStoresIt()
{
    const QString path = m_desk->file(u"logo.gif"_s, "x");
    m_desk->prompts.files = {path};
    m_desk->open([&] {
        m_desk->goTo(u"Logo file"_s);
        m_desk->press(u"cmdLocateDir"_s);
        QCOMPARE(m_desk->value(), path);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"Logo file"_s), path);
    });
    const toolkit::FileRequest& request = m_desk->prompts.fileRequests.at(0);
    QCOMPARE(request.title, u"Locate logo file"_s);
    QCOMPARE(request.filter,
             u"Graphic Files (*.gif;*.bmp;*.jpg)|*.gif;*.bmp;*.jpg|GIF Image(*.gif)|*.gif|BMP "
             u"Image(*.bmp)|*.bmp|JPG Image (*.jpg)|*.jpg"_s);
    QCOMPARE(request.filterIndex, 1);
    QCOMPARE(request.fileName, QString());
    QCOMPARE(request.folder, app::installationFolder());
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoPaths::theLogoInSmallLettersIsNotBrowsedFor()
{
    ProgramFixture::execute(m_desk->project,
                            u"update ProjectInfo set attributeName = 'logo file' where "
                            u"attributeName = 'Logo file'"_s);
    m_desk->open([this] {
        m_desk->goTo(u"logo file"_s);
        m_desk->press(u"cmdLocateDir"_s);
    });
    QVERIFY(m_desk->prompts.fileRequests.empty());
}

QTEST_MAIN(TestProjectInfoPaths)
#include "tst_project_info_paths.moc"
