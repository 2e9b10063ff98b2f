// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "support/program_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::app::CRegHndlr;
using ostrand::tests::ProgramFixture;

namespace {

const QString updating = u"Error while updating index location from registry."_s;
const QString reading = u"Error while reading index location from registry."_s;
const QString readingLast = u"Error while reading last index location from registry."_s;
const QString saving = u"Error while saving index location from registry."_s;
const QString editing = u"Unable to edit the regisrty"_s;

/// What a message is without its number and description.
QString headOf(const QString& message)
{
    return message.section(u"\r\n"_s, 0, 0);
}

QString settingsFile()
{
    return QSettings().fileName();
}

/// The settings are a folder: nothing can be read from them, nothing written.
void makeStoreUnreadable()
{
    QFile::remove(settingsFile());
    QVERIFY(QDir().mkpath(settingsFile()));
}

/// The folder of the settings is a file: there are none, and none can be written.
void makeStoreUnwritable()
{
    const QString folder = QFileInfo(settingsFile()).path();
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(QFileInfo(folder).path()));
    QFile inPlace(folder);
    QVERIFY(inPlace.open(QIODevice::WriteOnly));
}

} // namespace

class TestRegHndlr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<ProgramFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void withoutEntriesTheListIsFourEmptyTexts();
    void theEntriesStandUnderTheirKeys();
    void theLastLocationIsTheFirstEntry();
    void aNewProjectGoesFirstAndTheFourthFallsOff();
    void savingTheFirstEntryAgainChangesNoOther();
    void savingAnEntryOfAFullListLosesTheFourth_data();
    void savingAnEntryOfAFullListLosesTheFourth();
    void savingAnEntryOfAShortListMovesItFirst_data();
    void savingAnEntryOfAShortListMovesItFirst();
    void anotherSpellingIsAnotherEntry();
    void repeatedEntriesAreRemoved_data();
    void repeatedEntriesAreRemoved();
    void entriesOfMissingFilesAreRemoved_data();
    void entriesOfMissingFilesAreRemoved();
    void aFolderInPlaceOfTheFileCountsAsMissing();
    void readingTheListDropsADeletedProject();
    void savingDropsADeletedProject();
    void storedPathsMayHaveBackslashes();

    void anUnreadableStoreIsToldByEachOperation();
    void aStoreThatIsNoSettingsFileIsTold();
    void anUnwritableStoreIsToldWhenSaving();
    void aFailedRemovalDoesNotEndTheReading();
    void aKeyThatDoesNotExistGivesNothing();

private:
    /// A project's path for each letter, with a file there for capitals; "-" stands for none.
    QStringList paths(const QString& letters);
    void fill(const QStringList& entries);
    static QStringList stored();
    /// The stored list by the letters of `paths`.
    QString letters();
    QStringList texts() { return m_fixture->prompts.takeTexts(); }
    QStringList heads();

    std::unique_ptr<ProgramFixture> m_fixture;
    CRegHndlr m_list;
};

QStringList TestRegHndlr::paths(const QString& letters)
{
    QStringList list;
    for (const QChar letter : letters) {
        if (letter == u'-')
            list << QString();
        else if (letter.isUpper())
            list << m_fixture->file(letter + u".mdb"_s, "x");
        else
            list << m_fixture->path(letter + u".mdb"_s);
    }
    return list;
}

void TestRegHndlr::fill(const QStringList& entries)
{
    QSettings settings;
    settings.beginGroup(u"FileLocation"_s);
    for (int i = 0; i < entries.size(); ++i)
        settings.setValue(u"Index"_s + QString::number(i + 1), entries[i]);
}

QStringList TestRegHndlr::stored()
{
    const QSettings settings;
    QStringList list;
    for (int i = 1; i <= 4; ++i)
        list << settings.value(u"FileLocation/Index"_s + QString::number(i)).toString();
    return list;
}

QString TestRegHndlr::letters()
{
    QString list;
    for (const QString& entry : stored())
        list += entry.isEmpty() ? u"-"_s : QFileInfo(entry).baseName();
    return list;
}

QStringList TestRegHndlr::heads()
{
    QStringList list;
    for (const QString& text : texts())
        list << headOf(text);
    return list;
}

void TestRegHndlr::withoutEntriesTheListIsFourEmptyTexts()
{
    const QStringList none(4, QString());
    QCOMPARE(m_list.GetLoc(), none);
    QCOMPARE(m_list.GetIndexLocation(), none);
    QCOMPARE(m_list.GetLastIndexLocation(), QString());
    QCOMPARE(texts(), QStringList());
}

void TestRegHndlr::theEntriesStandUnderTheirKeys()
{
    const QStringList entries = paths(u"ABCD"_s);
    fill(entries);
    QCOMPARE(m_list.GetLoc(), entries);
    QCOMPARE(QFileInfo(settingsFile()).completeBaseName(), u"Ostrand Instrument Datasheets"_s);
}

void TestRegHndlr::theLastLocationIsTheFirstEntry()
{
    fill(paths(u"aB"_s));
    QCOMPARE(m_list.GetLastIndexLocation(), m_fixture->path(u"a.mdb"_s));
}

void TestRegHndlr::aNewProjectGoesFirstAndTheFourthFallsOff()
{
    const QString expected[] = {u"A---"_s, u"BA--"_s, u"CBA-"_s, u"DCBA"_s, u"EDCB"_s};
    const QStringList projects = paths(u"ABCDE"_s);
    for (int i = 0; i < projects.size(); ++i) {
        m_list.SaveIndexLocation(projects[i]);
        QCOMPARE(letters(), expected[i]);
    }
    QCOMPARE(texts(), QStringList());
}

void TestRegHndlr::savingTheFirstEntryAgainChangesNoOther()
{
    const QStringList entries = paths(u"ABCD"_s);
    fill(entries);
    m_list.SaveIndexLocation(entries.first());
    QCOMPARE(stored(), entries);
}

void TestRegHndlr::savingAnEntryOfAFullListLosesTheFourth_data()
{
    QTest::addColumn<int>("opened");
    QTest::addColumn<QString>("result");
    QTest::newRow("second") << 1 << u"BAC-"_s;
    QTest::newRow("third") << 2 << u"CAB-"_s;
    QTest::newRow("fourth") << 3 << u"DABC"_s;
}

void TestRegHndlr::savingAnEntryOfAFullListLosesTheFourth()
{
    QFETCH(const int, opened);
    const QStringList entries = paths(u"ABCD"_s);
    fill(entries);
    m_list.SaveIndexLocation(entries[opened]);
    QTEST(letters(), "result");
}

void TestRegHndlr::savingAnEntryOfAShortListMovesItFirst_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("opened");
    QTest::addColumn<QString>("result");
    QTest::newRow("second of two") << u"AB--"_s << 1 << u"BA--"_s;
    QTest::newRow("second of three") << u"ABC-"_s << 1 << u"BAC-"_s;
    QTest::newRow("third of three") << u"ABC-"_s << 2 << u"CAB-"_s;
}

void TestRegHndlr::savingAnEntryOfAShortListMovesItFirst()
{
    QFETCH(const QString, before);
    QFETCH(const int, opened);
    const QStringList entries = paths(before);
    fill(entries);
    m_list.SaveIndexLocation(entries[opened]);
    QTEST(letters(), "result");
}

void TestRegHndlr::anotherSpellingIsAnotherEntry()
{
    const QString project = paths(u"A"_s).first();
    const QString other = QFileInfo(project).path() + u"/./A.mdb"_s;
    m_list.SaveIndexLocation(project);
    m_list.SaveIndexLocation(other);
    QCOMPARE(m_list.GetIndexLocation(), (QStringList{other, project, QString(), QString()}));

    const QStringList cases{m_fixture->file(u"x.mdb"_s, "x"), m_fixture->file(u"X.mdb"_s, "x")};
    fill({cases[0], cases[1], cases[0], QString()});
    m_list.chkDuplicate();
    QCOMPARE(stored(), (QStringList{cases[0], cases[1], QString(), QString()}));
}

void TestRegHndlr::repeatedEntriesAreRemoved_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("none") << u"ABCD"_s << u"ABCD"_s;
    QTest::newRow("the first again as third") << u"ABAC"_s << u"ABC-"_s;
    QTest::newRow("the first again as third and last") << u"ABA-"_s << u"AB--"_s;
    QTest::newRow("the first again as fourth") << u"ABCA"_s << u"ABC-"_s;
    QTest::newRow("the second again as third") << u"ABBC"_s << u"ABC-"_s;
    QTest::newRow("the second again as fourth") << u"ABCB"_s << u"ABC-"_s;
    QTest::newRow("both again") << u"ABAB"_s << u"AB--"_s;
    QTest::newRow("the first again as second stays") << u"AABC"_s << u"AABC"_s;
    QTest::newRow("the third again as fourth stays") << u"ABCC"_s << u"ABCC"_s;
    QTest::newRow("nothing stored") << u"----"_s << u"----"_s;
}

void TestRegHndlr::repeatedEntriesAreRemoved()
{
    QFETCH(const QString, before);
    fill(paths(before));
    m_list.chkDuplicate();
    QTEST(letters(), "after");
    QCOMPARE(texts(), QStringList());
}

void TestRegHndlr::entriesOfMissingFilesAreRemoved_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("all there") << u"ABCD"_s << u"ABCD"_s;
    QTest::newRow("the first gone") << u"aBCD"_s << u"BCD-"_s;
    QTest::newRow("one between gone") << u"AbCD"_s << u"ACD-"_s;
    QTest::newRow("the last gone") << u"ABCd"_s << u"ABC-"_s;
    QTest::newRow("neighbours gone") << u"abCD"_s << u"CD--"_s;
    QTest::newRow("every other gone") << u"aBcD"_s << u"BD--"_s;
    QTest::newRow("all gone") << u"abcd"_s << u"----"_s;
    QTest::newRow("nothing stored") << u"----"_s << u"----"_s;
    QTest::newRow("a gap stays while nothing is gone") << u"A-BC"_s << u"A-BC"_s;
}

void TestRegHndlr::entriesOfMissingFilesAreRemoved()
{
    QFETCH(const QString, before);
    fill(paths(before));
    m_list.RemoveEntry();
    QTEST(letters(), "after");
    QCOMPARE(texts(), QStringList());
}

void TestRegHndlr::aFolderInPlaceOfTheFileCountsAsMissing()
{
    const QStringList entries = paths(u"aB"_s);
    QVERIFY(QDir().mkpath(entries[0]));
    fill(entries);
    m_list.RemoveEntry();
    QCOMPARE(letters(), u"B---"_s);
}

void TestRegHndlr::readingTheListDropsADeletedProject()
{
    const QStringList entries = paths(u"ABCD"_s);
    fill(entries);
    QVERIFY(QFile::remove(entries[1]));
    QCOMPARE(m_list.GetLoc(), entries);
    QCOMPARE(m_list.GetIndexLocation(),
             (QStringList{entries[0], entries[2], entries[3], QString()}));
    QCOMPARE(letters(), u"ACD-"_s);
}

void TestRegHndlr::savingDropsADeletedProject()
{
    QStringList entries = paths(u"ABCD"_s);
    fill(entries);
    QVERIFY(QFile::remove(entries[0]));
    m_list.SaveIndexLocation(m_fixture->file(u"E.mdb"_s, "x"));
    QCOMPARE(letters(), u"EBCD"_s);
}

void TestRegHndlr::storedPathsMayHaveBackslashes()
{
    const QString project = QDir::toNativeSeparators(paths(u"A"_s).first()).replace(u'/', u'\\');
    m_list.SaveIndexLocation(project);
    QCOMPARE(m_list.GetIndexLocation().first(), project);
}

void TestRegHndlr::anUnreadableStoreIsToldByEachOperation()
{
    const QStringList none(4, QString());
    makeStoreUnreadable();

    QCOMPARE(m_list.GetLoc(), none);
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    const toolkit::Box box = m_fixture->prompts.boxes[0];
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
    QVERIFY2(box.text.startsWith(u"Error while updating index location from registry.\r\n"
                                 u"Error 75 : "_s),
             qPrintable(box.text));
    QVERIFY2(box.text.contains(settingsFile()), qPrintable(box.text));
    texts();

    m_list.RemoveEntry();
    QCOMPARE(heads(), QStringList{updating});

    QCOMPARE(m_list.GetIndexLocation(), none);
    QCOMPARE(heads(), (QStringList{updating, reading}));

    QCOMPARE(m_list.GetLastIndexLocation(), QString());
    QCOMPARE(heads(), QStringList{readingLast});

    m_list.chkDuplicate();
    QCOMPARE(heads(), QStringList{editing});

    m_list.SaveIndexLocation(m_fixture->path(u"A.mdb"_s));
    QCOMPARE(heads(), (QStringList{updating, reading, saving}));
}

void TestRegHndlr::aStoreThatIsNoSettingsFileIsTold()
{
    fill(paths(u"A"_s));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[FileLocation]\nthis is no entry\n");
    file.close();
    m_list.GetLastIndexLocation();
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(readingLast + u"\r\nError 75 : "_s), qPrintable(shown[0]));
    // The next save writes the file anew.
    const QString project = paths(u"B"_s).first();
    m_list.SaveIndexLocation(project);
    texts();
    QCOMPARE(m_list.GetLastIndexLocation(), project);
    QCOMPARE(texts(), QStringList());
}

void TestRegHndlr::anUnwritableStoreIsToldWhenSaving()
{
    makeStoreUnwritable();
    QCOMPARE(m_list.GetLastIndexLocation(), QString());
    QCOMPARE(texts(), QStringList());
    m_list.SaveIndexLocation(m_fixture->path(u"A.mdb"_s));
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(saving + u"\r\nError 75 : "_s), qPrintable(shown[0]));
}

void TestRegHndlr::aFailedRemovalDoesNotEndTheReading()
{
    // While the box about the removal is open, the store comes back.
    makeStoreUnreadable();
    m_fixture->prompts.whileOpen = [this](const toolkit::Box&) {
        QDir().rmdir(settingsFile());
        fill({m_fixture->path(u"a.mdb"_s)});
    };
    QCOMPARE(m_list.GetIndexLocation().first(), m_fixture->path(u"a.mdb"_s));
    QCOMPARE(heads(), QStringList{updating});
}

void TestRegHndlr::aKeyThatDoesNotExistGivesNothing()
{
    QString value = u"kept?"_s;
    QVERIFY(!m_list.GetKeyValue(
        u"HKEY_CLASSES_ROOT"_s, u".ostrand-unknown\\shell\\open"_s, QString(), value));
    QCOMPARE(value, QString());
    QVERIFY(!m_list.GetKeyValue(
        u"HKEY_CLASSES_ROOT"_s, u".ostrand-unknown"_s, u"Content Type"_s, value));
    QCOMPARE(value, QString());
}

QTEST_GUILESS_MAIN(TestRegHndlr)
#include "tst_reg_hndlr.moc"
