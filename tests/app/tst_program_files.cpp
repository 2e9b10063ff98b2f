// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "app/program_files.h"
#include "store/error.h"
#include "support/program_fixture.h"
#include "support/without_root.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

class TestProgramFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileLiesInTheInstallationFolder();
    void aFolderThatCannotBeWrittenGivesWayToTheUsersOwn();
    void theUsersFolderIsMadeWhereItIsNotThere();
    void theUsersFolderDefaultsToTheHome();
    void aUsersFolderThatCannotBeMadeRaises();

private:
    QString path(const QString& name) { return m_fixture->path(name); }
    void closeInstallation() { app::setInstallationFolder(path(u"gone"_s)); }

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestProgramFiles::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    qputenv("XDG_STATE_HOME", path(u"state"_s).toUtf8());
}

void TestProgramFiles::cleanup()
{
    qunsetenv("XDG_STATE_HOME");
    m_fixture.reset();
}

void TestProgramFiles::aFileLiesInTheInstallationFolder()
{
    QVERIFY(QDir().mkpath(path(u"bin"_s)));
    app::setInstallationFolder(path(u"bin"_s));
    QCOMPARE(app::writableProgramFile(u"data.txt"_s), path(u"bin/data.txt"_s));
    QVERIFY(QDir(path(u"bin"_s)).isEmpty());
    QVERIFY(!QFileInfo::exists(path(u"state"_s)));
}

void TestProgramFiles::aFolderThatCannotBeWrittenGivesWayToTheUsersOwn()
{
    QVERIFY(QDir().mkpath(path(u"bin"_s)));
    QVERIFY(QDir().mkpath(path(u"state"_s)));
    app::setInstallationFolder(path(u"bin"_s));
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"bin"_s).toUtf8().constData(), 0555);
    ::chmod(path(u"state"_s).toUtf8().constData(), 0777);
    const tests::WithoutRoot user;
    QCOMPARE(app::writableProgramFile(u"Import.log"_s),
             path(u"state/ostrand-datasheets/Import.log"_s));
}

void TestProgramFiles::theUsersFolderIsMadeWhereItIsNotThere()
{
    closeInstallation();
    qputenv("XDG_STATE_HOME", path(u"a/b/c"_s).toUtf8());
    QCOMPARE(app::writableProgramFile(u"data.txt"_s), path(u"a/b/c/ostrand-datasheets/data.txt"_s));
    QVERIFY(QFileInfo(path(u"a/b/c/ostrand-datasheets"_s)).isDir());
}

void TestProgramFiles::theUsersFolderDefaultsToTheHome()
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", path(u"home"_s).toUtf8());
    QVERIFY(QDir().mkpath(path(u"home"_s)));
    for (const char* value : {"", "relative/folder"}) {
        qputenv("XDG_STATE_HOME", value);
        QCOMPARE(app::stateFolder(), path(u"home/.local/state/ostrand-datasheets"_s));
    }
    qputenv("HOME", home);
}

void TestProgramFiles::aUsersFolderThatCannotBeMadeRaises()
{
    closeInstallation();
    const auto numberOfFailure = [] {
        try {
            app::writableProgramFile(u"data.txt"_s);
        } catch (const store::Error& error) {
            return error.number();
        }
        return 0;
    };
    QVERIFY(QDir().mkpath(path(u"closed"_s)));
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"closed"_s).toUtf8().constData(), 0555);
    qputenv("XDG_STATE_HOME", path(u"closed"_s).toUtf8());
    {
        const tests::WithoutRoot user;
        QCOMPARE(numberOfFailure(), 70);
    }
    qputenv("XDG_STATE_HOME", m_fixture->file(u"file"_s, "x").toUtf8());
    QVERIFY(numberOfFailure() != 0);
}

QTEST_GUILESS_MAIN(TestProgramFiles)
#include "tst_program_files.moc"
