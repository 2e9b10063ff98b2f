// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"
#include "app/help.h"
#include "app/program.h"
#include "support/program_fixture.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

class TestAboutHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<ProgramFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void theAboutWindowTellsTheBuildAndTheFolder();
    void okEnterAndEscapeCloseTheAboutWindow();
    void theUpdateButtonStaysHidden();
    void theUpdateButtonStartsTheUpdate();
    void theStartScreenHasNoButtons();

    void aMissingHelpFileIsTold_data();
    void aMissingHelpFileIsTold();

    void aMissingUpdateProgramIsToldAndTheDownloadPageOpens();
    void aFolderInPlaceOfTheUpdateProgramIsNone();
    void theUpdateProgramIsStartedWithTheVersion();

private:
    /// An update program that writes down its command line.
    void makeUpdateProgram(const QString& folder);
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestAboutHelp::makeUpdateProgram(const QString& folder)
{
    QVERIFY(QDir().mkpath(folder));
    QFile script(folder + u"/OstrandAutoUpdate.exe"_s);
    QVERIFY(script.open(QIODevice::WriteOnly));
    const QByteArray line = m_fixture->path(u"command line"_s).toUtf8();
    script.write("#!/bin/sh\necho \"$0\" \"$@\" > \"" + line + ".part\"\nmv \"" + line
                 + ".part\" \"" + line + "\"\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestAboutHelp::theAboutWindowTellsTheBuildAndTheFolder()
{
    app::setInstallationFolder(m_fixture->path(u"program"_s));
    app::frmAbout about;
    about.show();
    QCOMPARE(about.windowTitle(), u"Ostrand Datasheets"_s);
    QCOMPARE(about.findChild<QGroupBox*>(u"Frame2"_s)->title(), u"Installation Information"_s);
    QCOMPARE(about.findChild<QLabel*>(u"lblVersion"_s)->text(),
             u"Ostrand Datasheets Build Date: March 29, 2012"_s);
    QCOMPARE(about.findChild<QLabel*>(u"lblInstallPath"_s)->text(),
             u"Installation path: "_s + m_fixture->path(u"program"_s));
    auto* ok = about.findChild<QPushButton*>(u"CmdOk"_s);
    QCOMPARE(ok->text(), u"OK"_s);
    QVERIFY(ok->isVisible());
    QVERIFY(ok->isDefault());
    QVERIFY(!about.isModal());
}

void TestAboutHelp::okEnterAndEscapeCloseTheAboutWindow()
{
    app::frmAbout about;
    auto* ok = about.findChild<QPushButton*>(u"CmdOk"_s);
    about.show();
    QTest::mouseClick(ok, Qt::LeftButton);
    QVERIFY(!about.isVisible());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        about.show();
        QTest::keyClick(&about, key);
        QVERIFY(!about.isVisible());
    }
}

void TestAboutHelp::theUpdateButtonStaysHidden()
{
    app::frmAbout about;
    about.show();
    auto* update = about.findChild<QPushButton*>(u"cmdCheckForUpdate"_s);
    QCOMPARE(update->text(), u"Check For Updates"_s);
    QVERIFY(!update->isVisible());
}

void TestAboutHelp::theUpdateButtonStartsTheUpdate()
{
    app::frmAbout about;
    about.findChild<QPushButton*>(u"cmdCheckForUpdate"_s)->click();
    QCOMPARE(texts(), QStringList{u"Auto update is not available on this machine."_s});
}

void TestAboutHelp::theStartScreenHasNoButtons()
{
    app::frmAbout about;
    about.showAsStartScreen();
    QVERIFY(about.isVisible());
    for (const auto* button : about.findChildren<QPushButton*>())
        QVERIFY2(!button->isVisible(), qPrintable(button->objectName()));
    QVERIFY(about.findChild<QLabel*>(u"lblVersion"_s)->isVisible());
}

void TestAboutHelp::aMissingHelpFileIsTold_data()
{
    QTest::addColumn<bool>("manual");
    QTest::newRow("the manual") << true;
    QTest::newRow("the error reference") << false;
}

void TestAboutHelp::aMissingHelpFileIsTold()
{
    QFETCH(const bool, manual);
    app::setInstallationFolder(m_fixture->path(u"nowhere"_s));
    QCOMPARE(app::helpTopicManual(), u"ID_MANUAL"_s);
    app::ShowHelpTopic(nullptr, app::helpTopicManual(), manual);
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(texts(),
             QStringList{u"Unable to launch HTML Help,\r\n"
                         u"or the topic you requested does not exist"_s});
}

void TestAboutHelp::aMissingUpdateProgramIsToldAndTheDownloadPageOpens()
{
    app::setInstallationFolder(m_fixture->path(u"nowhere"_s));
    QStringList openedBefore;
    m_fixture->prompts.whileOpen = [&](const toolkit::Box&) {
        openedBefore = m_fixture->prompts.addresses;
    };
    app::LaunchAutoUpdate();
    QCOMPARE(texts(), QStringList{u"Auto update is not available on this machine."_s});
    QCOMPARE(openedBefore, QStringList());
    QCOMPARE(m_fixture->prompts.addresses.size(), 1);
    const QString address = m_fixture->prompts.addresses.first();
    QVERIFY2(address.endsWith(u"/support_downloads.asp?varflag=Ostrand&varreturn=dl"_s),
             qPrintable(address));
}

void TestAboutHelp::aFolderInPlaceOfTheUpdateProgramIsNone()
{
    app::setInstallationFolder(m_fixture->path(u"program"_s));
    QVERIFY(QDir().mkpath(m_fixture->path(u"program/OstrandAutoUpdate.exe"_s)));
    app::LaunchAutoUpdate();
    QCOMPARE(texts(), QStringList{u"Auto update is not available on this machine."_s});
}

void TestAboutHelp::theUpdateProgramIsStartedWithTheVersion()
{
    const QString folder = m_fixture->path(u"program files"_s);
    app::setInstallationFolder(folder);
    makeUpdateProgram(folder);
    app::LaunchAutoUpdate();
    QCOMPARE(texts(), QStringList());
    QCOMPARE(m_fixture->prompts.addresses, QStringList());
    QFile written(m_fixture->path(u"command line"_s));
    QTRY_VERIFY(written.exists());
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(written.readAll()),
             folder + u"/OstrandAutoUpdate.exe DataSheets||2013.201203299\n"_s);
}

QTEST_MAIN(TestAboutHelp)
#include "tst_about_help.moc"
