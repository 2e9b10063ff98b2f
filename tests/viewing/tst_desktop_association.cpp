// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "viewing/desktop_association.h"
#include "viewing/scratch_desktop.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using ostrand::tests::ScratchDesktop;
using ostrand::viewing::desktopCommand;

class TestDesktopAssociation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desktop.reset(); }

    void aProgramThatNamesTheTypeOpensIt();
    void theUsersDefaultComesFirst();
    void theListOfTheRunningDesktopComesBeforeTheGeneralOne();
    void theUsersListsComeBeforeTheSystems();
    void aDefaultThatIsNotInstalledIsPassedOver();
    void addedAssociationsComeBeforeThePrograms();
    void removedAssociationsAreNotOffered();
    void whatTheUserAddedIsNotRemovedByTheSystem();
    void aTypeWithNoProgramIsOpenedAsWhatItIsAKindOf();
    void theProgramOfTheTypeItselfComesBeforeThatOfItsParent();
    void anOldNameOfATypeCounts();
    void endingsCountInAnyCase();
    void anEndingOfTwoPartsCounts();
    void anUnknownEndingHasNoProgram();
    void aHiddenEntryTakesTheSystemsEntryAway();
    void anEntryWithoutDisplayStillOpensFiles();
    void anEntryInASubfolderHasItsFolderInItsId();
    void entriesThatCannotBeUsedArePassedOver_data();
    void entriesThatCannotBeUsedArePassedOver();
    void theFieldsOfTheEntryAreUsed();
    void theProgramStartsInTheFolderOfItsEntry();
    void aProgramForTheTerminalRunsInOne();
    void aProgramForTheTerminalWithoutOneIsTold();
    void oddFilesAmongTheEntriesDoNoHarm();
    void aProgramIsFoundBehindManyThatAreNotInstalled();

private:
    /// An entry whose program is installed.
    void viewer(const QString& folder, const QString& name, const QByteArray& more = {});
    /// The name of the program that opens a file of that name; "" for none.
    static QString opener(const QString& name);

    std::unique_ptr<ScratchDesktop> m_desktop;
};

void TestDesktopAssociation::init()
{
    m_desktop = std::make_unique<ScratchDesktop>();
}

void TestDesktopAssociation::viewer(const QString& folder,
                                    const QString& name,
                                    const QByteArray& more)
{
    m_desktop->program(name);
    m_desktop->entry(folder, name + u".desktop"_s, "Exec=" + name.toUtf8() + " %f\n" + more + '\n');
}

QString TestDesktopAssociation::opener(const QString& name)
{
    const auto command = desktopCommand(u"/files/"_s + name);
    return command ? command->program.section(u'/', -1) : QString();
}

void TestDesktopAssociation::aProgramThatNamesTheTypeOpensIt()
{
    viewer(u"share"_s, u"other"_s, "MimeType=application/x-ostrand-other;");
    viewer(u"share"_s, u"sheets"_s, "MimeType=text/plain;application/x-ostrand-sheet;");
    const auto command = desktopCommand(u"/files/a.osh"_s);
    QVERIFY(command);
    QCOMPARE(command->program, m_desktop->path(u"bin/sheets"_s));
    QCOMPARE(command->arguments, QStringList{u"/files/a.osh"_s});
    QCOMPARE(command->folder, QString());
}

void TestDesktopAssociation::theUsersDefaultComesFirst()
{
    viewer(u"home"_s, u"alpha"_s, "MimeType=application/x-ostrand-sheet;");
    viewer(u"share"_s, u"beta"_s);
    QCOMPARE(opener(u"a.osh"_s), u"alpha"_s);
    m_desktop->list(u"config/mimeapps.list"_s,
                    "[Default Applications]\napplication/x-ostrand-sheet=beta.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), u"beta"_s);
}

void TestDesktopAssociation::theListOfTheRunningDesktopComesBeforeTheGeneralOne()
{
    viewer(u"share"_s, u"alpha"_s);
    viewer(u"share"_s, u"beta"_s);
    const QByteArray group = "[Default Applications]\napplication/x-ostrand-sheet=";
    m_desktop->list(u"config/mimeapps.list"_s, group + "alpha.desktop\n");
    m_desktop->list(u"config/plain-mimeapps.list"_s, group + "beta.desktop\n");
    QCOMPARE(opener(u"a.osh"_s), u"alpha"_s);
    qputenv("XDG_CURRENT_DESKTOP", "Other:Plain");
    QCOMPARE(opener(u"a.osh"_s), u"beta"_s);
}

void TestDesktopAssociation::theUsersListsComeBeforeTheSystems()
{
    const QByteArray group = "[Default Applications]\napplication/x-ostrand-sheet=";
    for (const char* name : {"share", "home", "etc", "config"}) {
        viewer(u"share"_s, u"for-"_s + QString::fromLatin1(name));
        const bool isData = *name == 's' || *name == 'h';
        m_desktop->list(QString::fromLatin1(name)
                            + (isData ? u"/applications/mimeapps.list"_s : u"/mimeapps.list"_s),
                        group + "for-" + name + ".desktop;\n");
        QCOMPARE(opener(u"a.osh"_s), u"for-"_s + QString::fromLatin1(name));
    }
}

void TestDesktopAssociation::aDefaultThatIsNotInstalledIsPassedOver()
{
    viewer(u"share"_s, u"alpha"_s);
    m_desktop->list(u"config/mimeapps.list"_s,
                    "[Default Applications]\n"
                    "application/x-ostrand-sheet=gone.desktop;alpha.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), u"alpha"_s);
}

void TestDesktopAssociation::addedAssociationsComeBeforeThePrograms()
{
    viewer(u"home"_s, u"alpha"_s, "MimeType=application/x-ostrand-sheet;");
    viewer(u"share"_s, u"beta"_s);
    m_desktop->list(u"config/mimeapps.list"_s,
                    "# comment\n[Added Associations]\r\n application/x-ostrand-sheet = "
                    "beta.desktop ;\r\n");
    QCOMPARE(opener(u"a.osh"_s), u"alpha"_s); // a blank is a part of the name
    m_desktop->list(u"config/mimeapps.list"_s,
                    "# comment\r\n[Added Associations]\r\n application/x-ostrand-sheet = "
                    "beta.desktop;\r\n");
    QCOMPARE(opener(u"a.osh"_s), u"beta"_s);
}

void TestDesktopAssociation::removedAssociationsAreNotOffered()
{
    viewer(u"home"_s, u"alpha"_s, "MimeType=application/x-ostrand-sheet;");
    m_desktop->list(u"config/mimeapps.list"_s,
                    "[Removed Associations]\napplication/x-ostrand-sheet=alpha.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), QString());
    viewer(u"share"_s, u"beta"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"a.osh"_s), u"beta"_s);
}

void TestDesktopAssociation::whatTheUserAddedIsNotRemovedByTheSystem()
{
    viewer(u"share"_s, u"alpha"_s);
    m_desktop->list(u"config/mimeapps.list"_s,
                    "[Added Associations]\napplication/x-ostrand-sheet=alpha.desktop;\n");
    m_desktop->list(u"etc/mimeapps.list"_s,
                    "[Removed Associations]\napplication/x-ostrand-sheet=alpha.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), u"alpha"_s);
}

void TestDesktopAssociation::aTypeWithNoProgramIsOpenedAsWhatItIsAKindOf()
{
    viewer(u"share"_s, u"base"_s, "MimeType=application/x-ostrand-base;");
    viewer(u"share"_s, u"bytes"_s, "MimeType=application/octet-stream;");
    QCOMPARE(opener(u"a.osh"_s), u"base"_s);
    QCOMPARE(opener(u"a.oso"_s), QString()); // not by what opens any bytes
}

void TestDesktopAssociation::theProgramOfTheTypeItselfComesBeforeThatOfItsParent()
{
    viewer(u"share"_s, u"a-base"_s, "MimeType=application/x-ostrand-base;");
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    m_desktop->list(u"config/mimeapps.list"_s,
                    "[Default Applications]\napplication/x-ostrand-base=a-base.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
    QCOMPARE(opener(u"a.osb"_s), u"a-base"_s);
}

void TestDesktopAssociation::anOldNameOfATypeCounts()
{
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-old-sheet;");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
}

void TestDesktopAssociation::endingsCountInAnyCase()
{
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"A B.OSH"_s), u"sheets"_s);
}

void TestDesktopAssociation::anEndingOfTwoPartsCounts()
{
    viewer(u"share"_s, u"unpack"_s, "MimeType=application/x-ostrand-packed;");
    QCOMPARE(opener(u"a.ost.gz"_s), u"unpack"_s);
}

void TestDesktopAssociation::anUnknownEndingHasNoProgram()
{
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"a.nobody-knows"_s), QString());
}

void TestDesktopAssociation::aHiddenEntryTakesTheSystemsEntryAway()
{
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    viewer(u"home"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;\nHidden=true");
    QCOMPARE(opener(u"a.osh"_s), QString());
}

void TestDesktopAssociation::anEntryWithoutDisplayStillOpensFiles()
{
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;\nNoDisplay=true");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
}

void TestDesktopAssociation::anEntryInASubfolderHasItsFolderInItsId()
{
    m_desktop->program(u"sheets"_s);
    m_desktop->entry(u"share"_s, u"vendor/sub/sheets.desktop"_s, "Exec=sheets\n");
    m_desktop->list(
        u"config/mimeapps.list"_s,
        "[Default Applications]\napplication/x-ostrand-sheet=vendor-sub-sheets.desktop;\n");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
}

void TestDesktopAssociation::entriesThatCannotBeUsedArePassedOver_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("no command") << QByteArray();
    QTest::newRow("program not installed") << QByteArray("Exec=gone %f");
    QTest::newRow("program by a path that is gone") << QByteArray("Exec=/nowhere/gone %f");
    QTest::newRow("program by a relative path") << QByteArray("Exec=bin/beta %f");
    QTest::newRow("what it needs is not installed") << QByteArray("Exec=beta %f\nTryExec=gone");
    QTest::newRow("unknown field code") << QByteArray("Exec=beta %y");
    QTest::newRow("open quote") << QByteArray("Exec=beta \"%f");
}

void TestDesktopAssociation::entriesThatCannotBeUsedArePassedOver()
{
    QFETCH(const QByteArray, lines);
    m_desktop->entry(
        u"share"_s, u"a.desktop"_s, lines + "\nMimeType=application/x-ostrand-sheet;\n");
    QCOMPARE(opener(u"a.osh"_s), QString());
    viewer(u"share"_s, u"beta"_s, "MimeType=application/x-ostrand-sheet;\nTryExec=beta");
    QCOMPARE(opener(u"a.osh"_s), u"beta"_s);
}

void TestDesktopAssociation::theFieldsOfTheEntryAreUsed()
{
    m_desktop->program(u"my view"_s);
    m_desktop->entry(u"share"_s,
                     u"a.desktop"_s,
                     "Exec=\"" + QFile::encodeName(m_desktop->path(u"bin/my view"_s))
                         + "\" %i %c %k a\\sb %f\nIcon=view\nName[xx]=Another\n"
                           "MimeType=application/x-ostrand-sheet;\n"
                           "[Desktop Action new]\nExec=gone\n");
    const auto command = desktopCommand(u"/files/a.osh"_s);
    QVERIFY(command);
    QCOMPARE(command->program, m_desktop->path(u"bin/my view"_s));
    QCOMPARE(command->arguments,
             (QStringList{u"--icon"_s,
                          u"view"_s,
                          u"A Program"_s,
                          m_desktop->path(u"share/applications/a.desktop"_s),
                          u"a"_s,
                          u"b"_s,
                          u"/files/a.osh"_s}));
}

void TestDesktopAssociation::theProgramStartsInTheFolderOfItsEntry()
{
    const QString folder = m_desktop->path(u"bin"_s);
    viewer(u"share"_s,
           u"sheets"_s,
           "MimeType=application/x-ostrand-sheet;\nPath=" + QFile::encodeName(folder));
    viewer(u"share"_s, u"other"_s, "MimeType=application/x-ostrand-other;\nPath=/nowhere");
    QCOMPARE(desktopCommand(u"/files/a.osh"_s)->folder, folder);
    QCOMPARE(desktopCommand(u"/files/a.oso"_s)->folder, QString());
}

void TestDesktopAssociation::aProgramForTheTerminalRunsInOne()
{
    viewer(u"share"_s, u"pager"_s, "MimeType=application/x-ostrand-sheet;\nTerminal=true");
    m_desktop->program(u"xterm"_s);
    const QString pager = m_desktop->path(u"bin/pager"_s);
    auto command = desktopCommand(u"/files/a.osh"_s);
    QVERIFY(command);
    QCOMPARE(command->program, m_desktop->path(u"bin/xterm"_s));
    QCOMPARE(command->arguments, (QStringList{u"-e"_s, pager, u"/files/a.osh"_s}));
    m_desktop->program(u"xdg-terminal-exec"_s);
    command = desktopCommand(u"/files/a.osh"_s);
    QCOMPARE(command->program, m_desktop->path(u"bin/xdg-terminal-exec"_s));
    QCOMPARE(command->arguments, (QStringList{pager, u"/files/a.osh"_s}));
}

void TestDesktopAssociation::aProgramForTheTerminalWithoutOneIsTold()
{
    viewer(u"share"_s, u"pager"_s, "MimeType=application/x-ostrand-sheet;\nTerminal=true");
    try {
        desktopCommand(u"/files/a.osh"_s);
        QFAIL("nothing was raised");
    } catch (const ostrand::store::Error& error) {
        QCOMPARE(error.number(), 53);
        QCOMPARE(error.description(),
                 u"A Program runs in a terminal window, and no terminal program was found."_s);
    }
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
}

void TestDesktopAssociation::oddFilesAmongTheEntriesDoNoHarm()
{
    const QString folder = u"share/applications/"_s;
    m_desktop->list(folder + u"empty.desktop"_s, "");
    m_desktop->list(folder + u"link.desktop"_s,
                    "[Desktop Entry]\nType=Link\nURL=x\nMimeType=application/x-ostrand-sheet;\n");
    m_desktop->list(folder + u"bytes.desktop"_s, QByteArray("\x00\xff\xfe[\n=\n[]\n=x\n", 13));
    m_desktop->list(folder + u"note.txt"_s,
                    "[Desktop Entry]\nType=Application\nExec=/bin/true\n"
                    "MimeType=application/x-ostrand-sheet;\n");
    QVERIFY(QDir().mkpath(m_desktop->path(folder + u"folder.desktop"_s)));
    QVERIFY(QFile::link(u"/nowhere"_s, m_desktop->path(folder + u"broken.desktop"_s)));
    QCOMPARE(opener(u"a.osh"_s), QString());
    viewer(u"share"_s, u"sheets"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"a.osh"_s), u"sheets"_s);
}

void TestDesktopAssociation::aProgramIsFoundBehindManyThatAreNotInstalled()
{
    for (int i = 0; i < 300; ++i) {
        m_desktop->entry(u"share"_s,
                         u"program-%1.desktop"_s.arg(i),
                         "Exec=gone %f\nMimeType=application/x-ostrand-sheet;\n"
                             + QByteArray("Name[xx]=A name in some language\n").repeated(100));
    }
    viewer(u"share"_s, u"z-last"_s, "MimeType=application/x-ostrand-sheet;");
    QCOMPARE(opener(u"a.osh"_s), u"z-last"_s);
}

QTEST_GUILESS_MAIN(TestDesktopAssociation)
#include "tst_desktop_association.moc"
