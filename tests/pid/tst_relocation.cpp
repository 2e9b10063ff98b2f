// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/foreign_lock.h"
#include "pid/relocation.h"
#include "support/index_fixture.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::ForeignLock;

namespace {

const QString failureEnd = u") in procedure changedDatasheetPath of Form frmIndex"_s;

} // namespace

class TestRelocation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void datasheetsMoveAndTheirRecordsFollow();
    void quotesInTagsAndNamesAreKept();
    void aMissingFileIsForgotten();
    void tagsWithoutADatasheetStayAsTheyAre();
    void anEmptyTextPassesOverTheNextTag();
    void anEmptyTextInTheLastRecordEndsInAnError();
    void aSecondRunFailsAtTheFirstDatasheet();
    void aFileInTheWayEndsTheRunBehindItsRecord();
    void aMissingFolderEndsTheRun();
    void aMissingTagWithAnApostropheIsTold();
    void aClosingBackslashIsDoubled();
    void theIndexIsReadAnew();
    void withoutAProjectTheRunSaysSo();
    void aProjectWithoutItsQueryIsTold();
    void aLockedProjectIsTold();

private:
    void addSheet(const QString& tag, bool isThere = true)
    {
        m_desk->addTag(tag);
        place(tag, u'\'' + m_desk->path(u"old"_s) + u'\'', u'\'' + tag + u".xls'"_s);
        if (isThere)
            m_desk->file(u"old/"_s + tag + u".xls"_s, tag.toUtf8());
    }
    void place(const QString& tag, const QString& folder, const QString& name)
    {
        tests::ProgramFixture::execute(m_desk->project,
                                       u"update qryIndex set DatasheetPath = "_s + folder
                                           + u", DatasheetFileName = "_s + name
                                           + u" where Tag = '"_s + tag + u'\'');
    }
    QStringList relocate()
    {
        m_desk->open(m_desk->project);
        pid::changedDatasheetPath();
        return m_desk->texts();
    }
    bool isMoved(const QString& tag) const
    {
        return QFile::exists(m_desk->path(u"new/"_s + tag + u".xls"_s))
               && !QFile::exists(m_desk->path(u"old/"_s + tag + u".xls"_s));
    }
    QString folderOf(const QString& tag) const { return m_desk->stored(tag, u"DatasheetPath"_s); }
    QString newFolder() const { return m_desk->path(u"new"_s); }
    QString oldFolder() const { return m_desk->path(u"old"_s); }

    std::unique_ptr<tests::IndexFixture> m_desk;
};

void TestRelocation::init()
{
    m_desk = std::make_unique<tests::IndexFixture>();
    m_desk->project = m_desk->emptyProject();
    QDir().mkdir(newFolder());
    QDir().mkdir(oldFolder());
    app::g_strNewDatasheetFolder = newFolder();
}

void TestRelocation::datasheetsMoveAndTheirRecordsFollow()
{
    addSheet(u"PT-1"_s);
    addSheet(u"PT-2"_s);
    QCOMPARE(relocate(), QStringList());
    QVERIFY(isMoved(u"PT-1"_s) && isMoved(u"PT-2"_s));
    QCOMPARE(folderOf(u"PT-1"_s), newFolder());
    QCOMPARE(m_desk->stored(u"PT-2"_s, u"DatasheetFileName"_s), u"PT-2.xls"_s);
}

void TestRelocation::quotesInTagsAndNamesAreKept()
{
    m_desk->addTag(u"P''T-1"_s);
    place(u"P''T-1"_s, u'\'' + oldFolder() + u'\'', u"'it''s.xls'"_s);
    m_desk->file(u"old/it's.xls"_s, "x");
    m_desk->open(m_desk->project);
    m_desk->texts();
    pid::changedDatasheetPath();
    QCOMPARE(m_desk->stored(u"P''T-1"_s, u"DatasheetFileName"_s), u"it's.xls"_s);
    QCOMPARE(folderOf(u"P''T-1"_s), newFolder());
    QVERIFY(QFile::exists(m_desk->path(u"new/it's.xls"_s)));
}

void TestRelocation::aMissingFileIsForgotten()
{
    addSheet(u"PT-1"_s, false);
    addSheet(u"PT-2"_s);
    QCOMPARE(relocate(), QStringList());
    QCOMPARE(folderOf(u"PT-1"_s), u"(null)"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"DatasheetFileName"_s), u"(null)"_s);
    QVERIFY(isMoved(u"PT-2"_s));
}

void TestRelocation::tagsWithoutADatasheetStayAsTheyAre()
{
    m_desk->addTag(u"PT-0"_s);
    m_desk->addTag(u"PT-1"_s);
    place(u"PT-1"_s, u'\'' + oldFolder() + u'\'', u"Null"_s);
    addSheet(u"PT-2"_s);
    QCOMPARE(relocate(), QStringList());
    QCOMPARE(folderOf(u"PT-1"_s), oldFolder());
    QVERIFY(isMoved(u"PT-2"_s));
}

void TestRelocation::anEmptyTextPassesOverTheNextTag()
{
    addSheet(u"PT-1"_s);
    place(u"PT-1"_s, u"''"_s, u"'PT-1.xls'"_s);
    addSheet(u"PT-2"_s);
    addSheet(u"PT-3"_s);
    QCOMPARE(relocate(), QStringList());
    QVERIFY(!isMoved(u"PT-2"_s));
    QCOMPARE(folderOf(u"PT-2"_s), oldFolder());
    QVERIFY(isMoved(u"PT-3"_s));
}

void TestRelocation::anEmptyTextInTheLastRecordEndsInAnError()
{
    addSheet(u"PT-1"_s);
    addSheet(u"PT-2"_s);
    place(u"PT-2"_s, u"''"_s, u"'PT-2.xls'"_s);
    const QStringList texts = relocate();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3021 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
    QVERIFY(isMoved(u"PT-1"_s));
}

void TestRelocation::aSecondRunFailsAtTheFirstDatasheet()
{
    addSheet(u"PT-1"_s);
    addSheet(u"PT-2"_s);
    QCOMPARE(relocate(), QStringList());
    QCOMPARE(relocate(), QStringList{u"Error 58 (File already exists"_s + failureEnd});
    QVERIFY(isMoved(u"PT-1"_s) && isMoved(u"PT-2"_s));
    QCOMPARE(folderOf(u"PT-1"_s), newFolder());
}

void TestRelocation::aFileInTheWayEndsTheRunBehindItsRecord()
{
    addSheet(u"PT-1"_s);
    addSheet(u"PT-2"_s);
    m_desk->file(u"new/PT-1.xls"_s, "other");
    QCOMPARE(relocate(), QStringList{u"Error 58 (File already exists"_s + failureEnd});
    QCOMPARE(folderOf(u"PT-1"_s), newFolder());
    QCOMPARE(folderOf(u"PT-2"_s), oldFolder());
    QVERIFY(QFile::exists(m_desk->path(u"old/PT-1.xls"_s)));
    QFile other(m_desk->path(u"new/PT-1.xls"_s));
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(other.readAll(), QByteArray("other"));
}

void TestRelocation::aMissingFolderEndsTheRun()
{
    addSheet(u"PT-1"_s);
    app::g_strNewDatasheetFolder = m_desk->path(u"nowhere"_s);
    QCOMPARE(relocate(), QStringList{u"Error 76 (Path not found"_s + failureEnd});
    QVERIFY(QFile::exists(m_desk->path(u"old/PT-1.xls"_s)));
}

void TestRelocation::aMissingTagWithAnApostropheIsTold()
{
    m_desk->addTag(u"P''T-1"_s);
    place(u"P''T-1"_s, u'\'' + oldFolder() + u'\'', u"'gone.xls'"_s);
    m_desk->open(m_desk->project);
    m_desk->texts();
    pid::changedDatasheetPath();
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3075 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
    QCOMPARE(folderOf(u"P''T-1"_s), oldFolder());
}

void TestRelocation::aClosingBackslashIsDoubled()
{
    addSheet(u"PT-1"_s);
    app::g_strNewDatasheetFolder = newFolder() + u'\\';
    QCOMPARE(relocate(), QStringList());
    QVERIFY(isMoved(u"PT-1"_s));
    QCOMPARE(folderOf(u"PT-1"_s), newFolder() + u'\\');
}

void TestRelocation::theIndexIsReadAnew()
{
    addSheet(u"PT-1"_s);
    QCOMPARE(relocate(), QStringList());
    QCOMPARE(m_desk->tags().Field(u"DatasheetPath"_s).text(), newFolder());
    QCOMPARE(m_desk->tags().AbsolutePosition(), 0);
}

void TestRelocation::withoutAProjectTheRunSaysSo()
{
    app::g_strIndexFile = m_desk->path(u"gone.mdb"_s);
    pid::changedDatasheetPath();
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{u"Main database not found"_s});
}

void TestRelocation::aProjectWithoutItsQueryIsTold()
{
    addSheet(u"PT-1"_s);
    m_desk->open(m_desk->project);
    const QString other = m_desk->emptyProject(u"other.mdb"_s);
    {
        const ForeignLock dropped(other, "DROP VIEW qryIndex");
    }
    app::g_strIndexFile = other;
    pid::changedDatasheetPath();
    QCOMPARE(m_desk->texts(), QStringList{u"Main database cannot be opened"_s});
}

void TestRelocation::aLockedProjectIsTold()
{
    addSheet(u"PT-1"_s);
    m_desk->open(m_desk->project);
    QStringList texts;
    {
        const ForeignLock lock(m_desk->project, "BEGIN IMMEDIATE");
        pid::changedDatasheetPath();
        texts = m_desk->texts();
    }
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3260 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
    QVERIFY(QFile::exists(m_desk->path(u"old/PT-1.xls"_s)));
    QCOMPARE(folderOf(u"PT-1"_s), oldFolder());
}

QTEST_MAIN(TestRelocation)
#include "tst_relocation.moc"
