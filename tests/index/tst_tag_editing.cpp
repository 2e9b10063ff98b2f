// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/full_disk.h"
#include "support/index_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::index;
using ostrand::tests::IndexFixture;

class TestTagEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_index.reset(); }

    void aTagIsAddedByTypingIntoTheNewRow();
    void aTagIsAddedWithTheKeyboard();
    void theGridStaysOnTheRowWritten();
    void anExistingTagIsRefusedAndItsCellEmptied();
    void aRefusedRowIsWrittenOnceItsTagIsRight();
    void aNewRowWithoutATagIsNotWrittenAndNotLost();
    void anEmptiedTagIsRefused();
    void savingWithoutATagAsksForOne();
    void savingAnUnchangedRowDoesNothing();
    void savingWritesThePendingRow();
    void aFailedSaveIsToldAndTheEditStays();
    void leavingARowWritesIt();
    void renamingToTheSameTextIsNoRename();
    void renamingChangesOnlyCase();
    void renamingMovesTheDatasheetFile();
    void renamingWithAMissingFileClearsTheDatasheetFields();
    void renamingOntoAnExistingFileNameIsToldAndGoesOn();
    void renamingATagWithoutDatasheetTouchesNoFile();
    void emptyingTheDatasheetCellsLeavesTheTagWithoutDatasheet();
    void anApostropheFailsTheDuplicateCheckAndIsStored();
    void aTagThatIsTooLongIsReportedLikeADuplicate();
    void aRecordDeletedByAnotherProgramIsTold();

    void aFullDiskKeepsTheRowInEdit();
    void anotherProgramsLockKeepsTheRowInEdit();
    void aVanishedFileKeepsTheRowInEdit();

    void deletingAsksAndDeletes();
    void decliningKeepsTheTag();
    void deletingAlsoDeletesTheDatasheetFile();
    void anEmptyFileNameDeletesNoFile();
    void aReadOnlyFileIsToldAndTheTagIsDeleted();
    void deletingTheLastTagLeavesAnEmptyGrid();
    void deletingTheFirstTagLeavesACurrentOne();
    void deletingOnTheNewRowDoesNothing();
    void deletingAPendingNewTagDropsItAndNoOther();
    void aTagRefusedTwiceLeavesTheOtherTagsDocumentsAlone();
    void deletingARefusedRenameNamesTheStoredTag();
    void aRefusedRenameTakesTheDatasheetFileBack();
    void aFailedDeletionIsTold();
    void aRecordGoneDuringTheQuestionIsTold();
    void theGridsDeletionTakesTheFileBeforeItAsks();
    void theCellButtonsFailureIsToldButNotACancelledDialog();
    void everyKindOfTagEndsWell_data();
    void everyKindOfTagEndsWell();

private:
    /// Gives a tag a datasheet file in a folder of its own.
    QString giveDatasheet(const QString& tag, const QString& file);

    std::unique_ptr<IndexFixture> m_index;
};

void TestTagEditing::init()
{
    m_index = std::make_unique<IndexFixture>();
    m_index->open(m_index->emptyProject());
    m_index->addTag(u"FT-101"_s);
    m_index->addTag(u"FT-102"_s);
    m_index->addTag(u"FT-103"_s);
    tests::ProgramFixture::execute(m_index->project,
                                   u"update qryProjectInfo set attributeValue = '"_s
                                       + m_index->path(u"sheets"_s)
                                       + u"' where attributeName = 'DefaultDatasheetFolder'"_s);
    QDir(m_index->path(QString())).mkdir(u"sheets"_s);
    m_index->open(m_index->project);
}

QString TestTagEditing::giveDatasheet(const QString& tag, const QString& file)
{
    const QString path = m_index->file(file, "a datasheet");
    tests::ProgramFixture::execute(m_index->project,
                                   u"update qryIndex set DatasheetPath = '"_s
                                       + QFileInfo(path).path() + u"', DatasheetFileName = '"_s
                                       + file + u"' where Tag = '"_s + tag + u"'"_s);
    m_index->goTo(tag);
    return path;
}

void TestTagEditing::aTagIsAddedByTypingIntoTheNewRow()
{
    m_index->startNewTag(u"PT-1"_s);
    m_index->cell(2).setValue(u"Inlet pressure"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"pt-1"_s, u"ServiceDescription"_s), u"Inlet pressure"_s);
    QVERIFY(m_index->tags().editMode() == store::EditMode::None);
}

void TestTagEditing::aTagIsAddedWithTheKeyboard()
{
    toolkit::DataGrid& grid = m_index->grid();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&grid, Qt::Key_Home);
    QTest::keyClick(&grid, Qt::Key_Down);
    QCOMPARE(grid.currentIndex().row(), 3);
    const auto type = [](const QString& text) {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    };
    type(u"PT-7"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    type(u"Transmitter"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"PT-7"_s, u"InstrumentType"_s), u"Transmitter"_s);
}

void TestTagEditing::theGridStaysOnTheRowWritten()
{
    m_index->goTo(u"FT-101"_s);
    m_index->cell(column::tag).setValue(u"ZT-9"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"ZT-9"_s);
    m_index->startNewTag(u"AT-1"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"AT-1"_s);
    QCOMPARE(m_index->cellText(column::tag), u"AT-1"_s);
}

void TestTagEditing::anExistingTagIsRefusedAndItsCellEmptied()
{
    m_index->addDocument(u"P-1"_s, u"PID"_s);
    m_index->startNewTag(u"ft-102"_s);
    m_index->cell(column::pid).setValue(u"P-1"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    QCOMPARE(m_index->cellText(column::tag), QString());
    QVERIFY(m_index->tags().editMode() == store::EditMode::Add);
    QCOMPARE(m_index->ties(u"FT-102"_s), QStringList());
}

void TestTagEditing::aRefusedRowIsWrittenOnceItsTagIsRight()
{
    m_index->startNewTag(u"FT-102"_s);
    m_index->cell(2).setValue(u"kept"_s);
    m_index->press(u"cmdSave"_s);
    m_index->texts();
    m_index->cell(column::tag).setValue(u"FT-104"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-104"_s, u"ServiceDescription"_s), u"kept"_s);
}

void TestTagEditing::aNewRowWithoutATagIsNotWrittenAndNotLost()
{
    m_index->startNewTag(QString());
    m_index->cell(2).setValue(u"no tag yet"_s);
    QVERIFY(!m_index->grid().writeRow());
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(tests::ProgramFixture::value(m_index->project, u"select count(*) from [index]"_s),
             u"3"_s);
    QCOMPARE(m_index->cellText(2), u"no tag yet"_s);
}

void TestTagEditing::anEmptiedTagIsRefused()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(column::tag).setValue(QString());
    QVERIFY(!m_index->grid().writeRow());
    QCOMPARE(m_index->texts(), QStringList{u"Key field cannot be null"_s});
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"FT-102"_s);
}

void TestTagEditing::savingWithoutATagAsksForOne()
{
    m_index->startNewTag(QString());
    m_index->press(u"cmdSave"_s);
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text, u"Please enter the Tag Value"_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
}

void TestTagEditing::savingAnUnchangedRowDoesNothing()
{
    m_index->goTo(u"FT-102"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestTagEditing::savingWritesThePendingRow()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Location"_s), u"(null)"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Location"_s), u"DCS"_s);
}

void TestTagEditing::aFailedSaveIsToldAndTheEditStays()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    tests::ProgramFixture::execute(m_index->project,
                                   u"delete from [index] where PlantItemNo = 'FT-102'"_s);
    m_index->press(u"cmdSave"_s);
    const QStringList shown = m_index->texts();
    QVERIFY2(shown.back().startsWith(u"Error while saving data .\r\n3167 : "_s),
             qPrintable(shown.join(u'|')));
    QVERIFY(m_index->window.dbIndex().EditMode() == store::EditMode::InProgress);
    QCOMPARE(m_index->cellText(5), u"DCS"_s);
}

void TestTagEditing::leavingARowWritesIt()
{
    m_index->goTo(u"FT-101"_s);
    m_index->cell(5).setValue(u"FIELD"_s);
    m_index->grid().setFocus();
    QTest::keyClick(&m_index->grid(), Qt::Key_Down);
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Location"_s), u"FIELD"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"FT-102"_s);
}

void TestTagEditing::renamingToTheSameTextIsNoRename()
{
    const QString path = giveDatasheet(u"FT-101"_s, u"mine.xls"_s);
    m_index->cell(column::tag).setValue(u"FT-101"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_index->stored(u"FT-101"_s, u"DatasheetFileName"_s), u"mine.xls"_s);
}

void TestTagEditing::renamingChangesOnlyCase()
{
    m_index->addDocument(u"P-1"_s, u"PID"_s);
    m_index->addTie(u"FT-101"_s, u"P-1"_s, u"PID"_s);
    m_index->open(m_index->project);
    m_index->goTo(u"FT-101"_s);
    m_index->cell(column::tag).setValue(u"ft-101"_s);
    m_index->press(u"cmdSave"_s);
    // The engine does not tell case apart, so the check finds the tag itself; the row is written.
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Tag"_s), u"ft-101"_s);
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"P-1/PID"_s});
}

void TestTagEditing::renamingMovesTheDatasheetFile()
{
    const QString path = giveDatasheet(u"FT-101"_s, u"FT-101.xls"_s);
    m_index->cell(column::tag).setValue(u"C\\D/E"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QVERIFY(!QFile::exists(path));
    QVERIFY(QFile::exists(m_index->path(u"sheets/C-D-E.xls"_s)));
    QCOMPARE(m_index->stored(u"C\\D/E"_s, u"DatasheetFileName"_s), u"C-D-E.xls"_s);
    QCOMPARE(m_index->stored(u"C\\D/E"_s, u"DatasheetPath"_s), QFileInfo(path).path());
}

void TestTagEditing::renamingWithAMissingFileClearsTheDatasheetFields()
{
    QFile::remove(giveDatasheet(u"FT-101"_s, u"FT-101.xls"_s));
    m_index->cell(column::tag).setValue(u"FT-109"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-109"_s, u"DatasheetFileName"_s), u"(null)"_s);
    QCOMPARE(m_index->stored(u"FT-109"_s, u"DatasheetPath"_s), u"(null)"_s);
}

void TestTagEditing::renamingOntoAnExistingFileNameIsToldAndGoesOn()
{
    const QString path = giveDatasheet(u"FT-101"_s, u"FT-101.xls"_s);
    m_index->file(u"sheets/FT-109.xls"_s, "in the way");
    m_index->cell(column::tag).setValue(u"FT-109"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(
        m_index->texts(),
        QStringList{u"Error while updating datasheet file. \r\nError : 58. File already exists"_s});
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_index->stored(u"FT-109"_s, u"DatasheetFileName"_s), u"FT-101.xls"_s);
}

void TestTagEditing::renamingATagWithoutDatasheetTouchesNoFile()
{
    m_index->goTo(u"FT-101"_s);
    m_index->cell(column::tag).setValue(u"FT-109"_s);
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-109"_s, u"Tag"_s), u"FT-109"_s);
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Tag"_s), u"(none)"_s);
}

void TestTagEditing::emptyingTheDatasheetCellsLeavesTheTagWithoutDatasheet()
{
    tests::ProgramFixture::execute(m_index->project,
                                   u"update [index] set TagPath = 'D:\\old', "_s
                                   u"TagFileName = 'FT-102.xls' where PlantItemNo = 'FT-102'"_s);
    m_index->open(m_index->project);
    m_index->goTo(u"FT-102"_s);
    for (const int number : {column::datasheetPath, column::datasheetFileName})
        m_index->cell(number).setValue(QString());
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(
        tests::ProgramFixture::value(m_index->project,
                                     u"select count(*) from [index] where PlantItemNo = 'FT-102' "_s
                                     u"and TagPath is null and TagFileName is null"_s),
        u"1"_s);
}

void TestTagEditing::anApostropheFailsTheDuplicateCheckAndIsStored()
{
    m_index->startNewTag(u"HS-0597'S"_s);
    m_index->press(u"cmdSave"_s);
    const QStringList shown = m_index->texts();
    QVERIFY2(shown.at(0).startsWith(u"Error while checking for duplicate tags. \r\n3"_s),
             qPrintable(shown.at(0)));
    QVERIFY(!shown.contains(u"Record cannot be saved due to duplication of the key"_s));
    QCOMPARE(m_index->stored(u"HS-0597''S"_s, u"Tag"_s), u"HS-0597'S"_s);
}

void TestTagEditing::aTagThatIsTooLongIsReportedLikeADuplicate()
{
    m_index->startNewTag(QString(256, u'A'));
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    m_index->cell(column::tag).setValue(QString(255, u'A'));
    m_index->press(u"cmdSave"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(QString(255, u'a'), u"Tag"_s).size(), 255);
}

void TestTagEditing::aRecordDeletedByAnotherProgramIsTold()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    tests::ProgramFixture::execute(m_index->project,
                                   u"delete from [index] where PlantItemNo = 'FT-102'"_s);
    QVERIFY(!m_index->grid().writeRow());
    const QStringList shown = m_index->texts();
    QVERIFY2(shown.at(0).startsWith(u"Error while working in spreadsheet. \r\n3167 : "_s),
             qPrintable(shown.at(0)));
    QVERIFY2(shown.at(1).startsWith(u"3167 : Error while  modifying record. "_s),
             qPrintable(shown.at(1)));
}

void TestTagEditing::aFullDiskKeepsTheRowInEdit()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    {
        const tests::FullDisk full;
        QVERIFY(!m_index->grid().writeRow());
    }
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    QCOMPARE(m_index->cellText(5), u"DCS"_s);
    m_index->cell(column::tag).setValue(u"FT-102"_s);
    QVERIFY(m_index->grid().writeRow());
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Location"_s), u"DCS"_s);
}

void TestTagEditing::anotherProgramsLockKeepsTheRowInEdit()
{
    sqlite3* other = nullptr;
    sqlite3_open(m_index->project.toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    QVERIFY(!m_index->grid().writeRow());
    sqlite3_close(other);
    const QStringList shown = m_index->texts();
    QVERIFY2(shown.at(0).contains(u"Error : 3260. "_s), qPrintable(shown.at(0)));
    QCOMPARE(m_index->cellText(5), u"DCS"_s);
    m_index->cell(column::tag).setValue(u"FT-102"_s);
    QVERIFY(m_index->grid().writeRow());
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Location"_s), u"DCS"_s);
}

void TestTagEditing::aVanishedFileKeepsTheRowInEdit()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(5).setValue(u"DCS"_s);
    const QString away = m_index->path(u"away.mdb"_s);
    QVERIFY(QFile::rename(m_index->project, away));
    QVERIFY(!m_index->grid().writeRow());
    QVERIFY(!m_index->texts().isEmpty());
    QCOMPARE(m_index->cellText(5), u"DCS"_s);
    QVERIFY(QFile::rename(away, m_index->project));
    m_index->cell(column::tag).setValue(u"FT-102"_s);
    QVERIFY(m_index->grid().writeRow());
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Location"_s), u"DCS"_s);
}

void TestTagEditing::deletingAsksAndDeletes()
{
    m_index->goTo(u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text, u"Are you sure you want to delete tag FT-102?"_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Question);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"(none)"_s);
    QCOMPARE(m_index->window.ActiveTag(), u"FT-101"_s);
}

void TestTagEditing::decliningKeepsTheTag()
{
    m_index->goTo(u"FT-102"_s);
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->prompts.boxes.size(), std::size_t{1});
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"FT-102"_s);
}

void TestTagEditing::deletingAlsoDeletesTheDatasheetFile()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QVERIFY(!QFile::exists(path));
}

void TestTagEditing::anEmptyFileNameDeletesNoFile()
{
    tests::ProgramFixture::execute(m_index->project,
                                   u"update qryIndex set DatasheetPath = '"_s
                                       + m_index->path(QString())
                                       + u"', DatasheetFileName = '' where Tag = 'FT-102'"_s);
    m_index->goTo(u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts().size(), 1);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"(none)"_s);
}

void TestTagEditing::aReadOnlyFileIsToldAndTheTagIsDeleted()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    QFile::setPermissions(path, QFile::ReadOwner);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts().at(1),
             u"Error while deleting file "_s + path + u".\r\n70 : Permission denied"_s);
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"(none)"_s);
}

void TestTagEditing::deletingTheLastTagLeavesAnEmptyGrid()
{
    for (int i = 0; i < 3; ++i) {
        m_index->prompts.answers = {toolkit::Answer::Yes};
        m_index->goTo(u"FT-10"_s + QString::number(3 - i));
        m_index->press(u"cmdDelete"_s);
    }
    QCOMPARE(m_index->texts().size(), 3);
    QVERIFY(m_index->tags().Eof() && m_index->tags().Bof());
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->panel(1), u"Record: 0 of 0"_s);
}

void TestTagEditing::deletingTheFirstTagLeavesACurrentOne()
{
    m_index->goTo(u"FT-101"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCoreApplication::processEvents();
    QCOMPARE(m_index->window.ActiveTag(), u"FT-102"_s);
    QCOMPARE(m_index->cellText(column::tag), u"FT-102"_s);
}

void TestTagEditing::deletingOnTheNewRowDoesNothing()
{
    m_index->startNewTag(QString());
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestTagEditing::deletingAPendingNewTagDropsItAndNoOther()
{
    m_index->goTo(u"FT-103"_s);
    m_index->startNewTag(u"FT-900"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts(), QStringList{u"Are you sure you want to delete tag FT-900?"_s});
    QVERIFY(!m_index->grid().rowPending());
    QCOMPARE(tests::ProgramFixture::value(m_index->project, u"select count(*) from [index]"_s),
             u"3"_s);
}

void TestTagEditing::aTagRefusedTwiceLeavesTheOtherTagsDocumentsAlone()
{
    m_index->addDocument(u"P-1"_s, u"PID"_s);
    m_index->addDocument(u"P-2"_s, u"PID"_s);
    m_index->addTie(u"FT-101"_s, u"P-1"_s, u"PID"_s);
    m_index->addTie(u"FT-102"_s, u"P-2"_s, u"PID"_s);
    m_index->open(m_index->project);
    m_index->goTo(u"FT-101"_s);
    for (int attempt = 0; attempt < 2; ++attempt) {
        m_index->cell(column::tag).setValue(u"FT-102"_s);
        QVERIFY(!m_index->grid().writeRow());
        QCOMPARE(m_index->texts(),
                 QStringList{u"Record cannot be saved due to duplication of the key"_s});
    }
    QCOMPARE(m_index->ties(u"FT-102"_s), QStringList{u"P-2/PID"_s});
    QCOMPARE(m_index->ties(u"FT-101"_s), QStringList{u"P-1/PID"_s});
}

void TestTagEditing::deletingARefusedRenameNamesTheStoredTag()
{
    m_index->goTo(u"FT-101"_s);
    m_index->cell(column::tag).setValue(u"FT-102"_s);
    QVERIFY(!m_index->grid().writeRow());
    m_index->texts();
    m_index->cell(column::tag).setValue(u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->texts(), QStringList{u"Are you sure you want to delete tag FT-101?"_s});
    QCOMPARE(m_index->stored(u"FT-101"_s, u"Tag"_s), u"(none)"_s);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"FT-102"_s);
}

void TestTagEditing::aRefusedRenameTakesTheDatasheetFileBack()
{
    const QString path = giveDatasheet(u"FT-101"_s, u"FT-101.xls"_s);
    const QString tooLongForItsFileName(50, u'X');
    m_index->cell(column::tag).setValue(tooLongForItsFileName);
    QVERIFY(!m_index->grid().writeRow());
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    QVERIFY(QFile::exists(path));
    m_index->cell(column::tag).setValue(u"FT-109"_s);
    QVERIFY(m_index->grid().writeRow());
    QVERIFY(QFile::exists(m_index->path(u"sheets/FT-109.xls"_s)));
    QCOMPARE(m_index->stored(u"FT-109"_s, u"DatasheetFileName"_s), u"FT-109.xls"_s);
}

void TestTagEditing::aFailedDeletionIsTold()
{
    m_index->goTo(u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.buttons == toolkit::BoxButtons::YesNo) {
            tests::ProgramFixture::execute(m_index->project,
                                           u"delete from [index] where PlantItemNo = 'FT-102'"_s);
        }
    };
    m_index->press(u"cmdDelete"_s);
    const QStringList shown = m_index->texts();
    QVERIFY2(shown.back().startsWith(u"Error while deleting data .\r\n3167 : "_s),
             qPrintable(shown.join(u'|')));
}

void TestTagEditing::aRecordGoneDuringTheQuestionIsTold()
{
    m_index->goTo(u"FT-103"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->prompts.whileOpen = [&](const toolkit::Box& box) {
        if (box.buttons == toolkit::BoxButtons::YesNo)
            m_index->tags().MoveNext();
    };
    m_index->press(u"cmdDelete"_s);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.back(), u"Databse is empty, no record present"_s);
    QCOMPARE(m_index->stored(u"FT-103"_s, u"Tag"_s), u"FT-103"_s);
}

void TestTagEditing::theGridsDeletionTakesTheFileBeforeItAsks()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    QHeaderView* rows = m_index->grid().verticalHeader();
    QTest::mouseClick(rows->viewport(),
                      Qt::LeftButton,
                      {},
                      QPoint(rows->width() / 2, rows->sectionViewportPosition(1) + 5));
    QCOMPARE(m_index->grid().SelBookmarks().size(), std::size_t{1});
    bool goneBeforeQuestion = false;
    m_index->prompts.whileOpen = [&](const toolkit::Box&) {
        goneBeforeQuestion = !QFile::exists(path);
    };
    m_index->grid().DeleteSelected();
    QVERIFY(goneBeforeQuestion);
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->grid().DeleteSelected();
    QCOMPARE(m_index->stored(u"FT-102"_s, u"Tag"_s), u"(none)"_s);
}

void TestTagEditing::theCellButtonsFailureIsToldButNotACancelledDialog()
{
    m_index->prompts.files = {std::nullopt};
    Q_EMIT m_index->grid().cellButtonClicked(column::datasheetFileName);
    QCOMPARE(m_index->prompts.fileRequests.size(), std::size_t{1});
    QCOMPARE(m_index->texts(), QStringList());
    Q_EMIT m_index->grid().cellButtonClicked(3);
    QCOMPARE(m_index->texts(), QStringList());
    m_index->tags().Close();
    Q_EMIT m_index->grid().cellButtonClicked(column::remarks);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while showing notes. \r\nError : 3420. "_s),
             qPrintable(shown[0]));
}

void TestTagEditing::everyKindOfTagEndsWell_data()
{
    QTest::addColumn<QString>("tag");
    QFile list(QFINDTESTDATA("../support/hard_tags.txt"));
    QVERIFY(list.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QString tag = QString(line)
                                .replace(u"<TAB>"_s, u"\t"_s)
                                .replace(u"<CR>"_s, u"\r"_s)
                                .replace(u"<LF>"_s, u"\n"_s)
                                .replace(u"<SP>"_s, u" "_s);
        QTest::newRow(qPrintable(line)) << tag;
    }
}

/// Whatever is typed as a tag is stored as it stands, or refused in words with the row kept.
void TestTagEditing::everyKindOfTagEndsWell()
{
    QFETCH(const QString, tag);
    m_index->startNewTag(tag);
    m_index->cell(2).setValue(u"kept"_s);
    m_index->grid().writeRow();
    const QStringList shown = m_index->texts();
    const QString literal = QString(tag).replace(u'\'', u"''"_s);
    if (m_index->grid().rowPending()) {
        QCOMPARE(shown, QStringList{u"Record cannot be saved due to duplication of the key"_s});
        QCOMPARE(m_index->cellText(2), u"kept"_s);
        return;
    }
    QCOMPARE(m_index->stored(literal, u"Tag"_s), tag);
    QCOMPARE(m_index->cellText(column::tag), tag);
    for (const QString& text : shown)
        QVERIFY2(tag.contains(u'\'') && text.startsWith(u"Error while "_s), qPrintable(text));
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->press(u"cmdDelete"_s);
    QCOMPARE(m_index->stored(literal, u"Tag"_s), u"(none)"_s);
}

QTEST_MAIN(TestTagEditing)
#include "tst_tag_editing.moc"
