// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/CRows.h"
#include "support/file_size_limit.h"
#include "support/full_disk.h"
#include "support/index_fixture.h"
#include "support/without_root.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::index;
using ostrand::tests::IndexFixture;
using ostrand::tests::ProgramFixture;

class TestRowClipboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_index.reset(); }

    // ---- menus and keys
    void theMenuFollowsWhatIsSelectedAndCopied();
    void theEntriesOfTheMenusRunTheCommands();
    void theKeysRunTheCommandsWithNoMenuShown();
    void theKeysWorkWhereverTheFocusIs();
    void whileTheGridIsDisabledTheKeysDoNothing();
    void inACellUnderEditTheKeysAreThoseOfAnyText();
    void onACellWithNoRowSelectedItsTextGoesToTheSystemsClipboard();

    // ---- copying
    void copyingWithNoRowSelectedEmptiesTheBuffer();
    void aCopyThatFailsLeavesTheRowsBeforeIt();
    void copyingTakesWhatIsBeingTyped();

    // ---- pasting
    void theRowsComeBackInTheOrderOfTheirSelection();
    void everyFieldIsPastedAndNoCrossReference();
    void nullsStayNull();
    void pastingWithNoBufferIsTold();
    void theDatasheetFileIsCopiedBesideTheOldOne();
    void aPathWithoutAFileNameIsKept();
    void aDatasheetThatIsGoneIsToldAndTheTagHasNone();
    void pastingTwiceFailsOnTheKeyAndKeepsTheFirstCopies();
    void aPasteThatFailedCanBeRepeated();
    void whatTheUserMakesOfTheFailedRowIsNotLost();
    void aRowThatIsBeingTypedIsWrittenFirst();
    void aRowThatIsRefusedKeepsThePasteFromStarting();
    void everyKindOfTagIsPasted();
    void longRemarksArePasted();
    void aTagThatGrowsTooLongIsTold();
    void aProjectThatCannotBeWrittenIsTold();
    void aFullDiskIsTold();
    void aFullDiskForTheDatasheetIsTold();
    void aFolderWithoutRightsIsTold();
    void copiedRowsGoIntoAnotherProject();
    void manyRowsArePasted();

    // ---- deleting
    void deletingAsksForEachRow();
    void decliningKeepsTheRowsButNotTheFile();
    void theOtherMenusDeleteAsksByTheTag();
    void deletingWithNoRowSelectedDoesNothing();
    void aDeletionThatFailsIsTold();

    // ---- the rows themselves
    void aRowGivesItsCollectionAndNoCopy();
    void aCollectionKnowsItsKeys();
    void aRowWithoutItsCollectionIsTold();

private:
    toolkit::DataGrid& grid() { return m_index->grid(); }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void select(int row, Qt::KeyboardModifiers modifiers = {});
    void selectTag(const QString& tag);
    void copy(const QStringList& tags);
    /// The menu that a right click brings, closed again; "" for none.
    QString menuAtRightClick();
    QString giveDatasheet(const QString& tag, const QString& file);
    QStringList storedTags() const
    {
        return ProgramFixture::values(m_index->project, u"select Tag from qryIndex order by Tag"_s);
    }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    std::unique_ptr<IndexFixture> m_index;
};

void TestRowClipboard::init()
{
    m_index = std::make_unique<IndexFixture>();
    m_index->open(m_index->emptyProject());
    for (const char16_t* tag : {u"FT-101", u"FT-102", u"FT-103", u"FT-104"})
        m_index->addTag(QString::fromUtf16(tag));
    m_index->open(m_index->project);
    QGuiApplication::clipboard()->clear();
}

void TestRowClipboard::select(int row, Qt::KeyboardModifiers modifiers)
{
    const QHeaderView* rows = grid().verticalHeader();
    QTest::mouseClick(rows->viewport(),
                      Qt::LeftButton,
                      modifiers,
                      QPoint(rows->width() / 2, rows->sectionViewportPosition(row) + 5));
}

void TestRowClipboard::selectTag(const QString& tag)
{
    m_index->goTo(tag);
    grid().setFocus();
    key(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(grid().SelBookmarks().size(), std::size_t{1});
}

void TestRowClipboard::copy(const QStringList& tags)
{
    grid().clearSelection();
    for (const QString& tag : tags) {
        m_index->goTo(tag);
        select(grid().currentIndex().row(), Qt::ControlModifier);
    }
    QCOMPARE(grid().SelBookmarks().size(), static_cast<std::size_t>(tags.size()));
    m_index->choose(u"mnuPopUpCopy1"_s);
}

QString TestRowClipboard::menuAtRightClick()
{
    QTest::mouseClick(grid().viewport(),
                      Qt::RightButton,
                      {},
                      grid().visualRect(grid().model()->index(0, 1)).center());
    QWidget* popup = QApplication::activePopupWidget();
    QString name = popup ? popup->objectName() : QString();
    if (popup)
        popup->close();
    return name;
}

QString TestRowClipboard::giveDatasheet(const QString& tag, const QString& file)
{
    QDir(m_index->path(QString())).mkpath(u"own"_s);
    QString path = m_index->file(u"own/"_s + file, "datasheet of " + tag.toUtf8());
    m_index->goTo(tag);
    store::Recordset& tags = m_index->tags();
    tags.Edit();
    tags.SetField(u"DatasheetPath"_s, m_index->path(u"own"_s));
    tags.SetField(u"DatasheetFileName"_s, file);
    tags.Update();
    return path;
}

// ---- menus and keys

void TestRowClipboard::theMenuFollowsWhatIsSelectedAndCopied()
{
    QCOMPARE(menuAtRightClick(), QString());
    selectTag(u"FT-102"_s);
    QCOMPARE(menuAtRightClick(), u"mnuPopUp2"_s);
    m_index->choose(u"mnuPopUpCopy2"_s);
    QCOMPARE(menuAtRightClick(), u"mnuPopUp1"_s);
    grid().clearSelection();
    QCOMPARE(menuAtRightClick(), u"mnuPopUp3"_s);
}

void TestRowClipboard::theEntriesOfTheMenusRunTheCommands()
{
    selectTag(u"FT-101"_s);
    m_index->choose(u"mnuPopUpCopy2"_s);
    m_index->choose(u"mnuPopUpPaste3"_s);
    QVERIFY(storedTags().contains(u"Copy of FT-101"_s));
    copy({u"FT-102"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    QVERIFY(storedTags().contains(u"Copy of FT-102"_s));
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->choose(u"mnuPopUpDelete1"_s);
    QVERIFY(!storedTags().contains(u"FT-102"_s));
}

void TestRowClipboard::theKeysRunTheCommandsWithNoMenuShown()
{
    selectTag(u"FT-103"_s);
    key(Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
    key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(storedTags().contains(u"Copy of FT-103"_s));
    m_index->prompts.answers = {toolkit::Answer::Yes};
    key(Qt::Key_Delete);
    QVERIFY(!storedTags().contains(u"FT-103"_s));
    QCOMPARE(m_index->texts(), QStringList{u"Do you want to delete the selected record?"_s});
}

void TestRowClipboard::theKeysWorkWhereverTheFocusIs()
{
    selectTag(u"FT-103"_s);
    auto* button = m_index->window.findChild<QPushButton*>(u"cmdSave"_s);
    button->setFocus();
    key(Qt::Key_C, Qt::ControlModifier);
    key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(storedTags().contains(u"Copy of FT-103"_s));
    QVERIFY(button->hasFocus());
}

void TestRowClipboard::whileTheGridIsDisabledTheKeysDoNothing()
{
    copy({u"FT-101"_s});
    m_index->window.AbleForm(false);
    m_index->window.setFocus();
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_Delete);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->choose(u"mnuPopUpDelete2"_s);
    QCOMPARE(storedTags().size(), 4);
    QCOMPARE(m_index->texts(), QStringList());
    m_index->window.AbleForm(true);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(storedTags().size(), 5);
}

void TestRowClipboard::inACellUnderEditTheKeysAreThoseOfAnyText()
{
    copy({u"FT-101"_s});
    grid().clearSelection();
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(1, 2));
    QTest::keyClicks(QApplication::focusWidget(), u"I"_s);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QTest::keyClicks(editor, u"nlet"_s);
    editor->setSelection(1, 3);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"nle"_s);
    editor->end(false);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor->text(), u"Inletnle"_s);
    editor->home(false);
    key(Qt::Key_Delete);
    QCOMPARE(editor->text(), u"nletnle"_s);
    QCOMPARE(storedTags().size(), 4);
    key(Qt::Key_Escape);
    // The buffer still has the row.
    m_index->choose(u"mnuPopUpPaste3"_s);
    QVERIFY(storedTags().contains(u"Copy of FT-101"_s));
    QCOMPARE(m_index->texts(), QStringList());
}

void TestRowClipboard::onACellWithNoRowSelectedItsTextGoesToTheSystemsClipboard()
{
    m_index->goTo(u"FT-102"_s);
    grid().setFocus();
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"FT-102"_s);
}

// ---- copying

void TestRowClipboard::copyingWithNoRowSelectedEmptiesTheBuffer()
{
    copy({u"FT-101"_s});
    grid().clearSelection();
    grid().setFocus();
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(menuAtRightClick(), u"mnuPopUp3"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(storedTags().size(), 4);
    QCOMPARE(m_index->texts(), QStringList());
}

void TestRowClipboard::aCopyThatFailsLeavesTheRowsBeforeIt()
{
    copy({u"FT-104"_s});
    grid().clearSelection();
    select(0);
    select(2, Qt::ShiftModifier);
    QCOMPARE(grid().SelBookmarks().size(), std::size_t{3});
    ProgramFixture::execute(m_index->project,
                            u"delete from [index] where PlantItemNo = 'FT-102'"_s);
    grid().viewport()->repaint();
    m_index->choose(u"mnuPopUpCopy1"_s);
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QVERIFY2(box.text.startsWith(u"Error copying records into buffer.\r\n3167 : "_s),
             qPrintable(box.text));
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    m_index->texts();
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags(),
             (QStringList{u"Copy of FT-101"_s, u"FT-101"_s, u"FT-103"_s, u"FT-104"_s}));
}

void TestRowClipboard::copyingTakesWhatIsBeingTyped()
{
    selectTag(u"FT-102"_s);
    m_index->cell(2).setValue(u"typed"_s);
    m_index->choose(u"mnuPopUpCopy1"_s);
    QVERIFY(grid().rowPending());
    m_index->press(u"cmdSave"_s);
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"ServiceDescription"_s), u"typed"_s);
}

// ---- pasting

void TestRowClipboard::theRowsComeBackInTheOrderOfTheirSelection()
{
    copy({u"FT-103"_s, u"FT-101"_s});
    const QString current = m_index->window.ActiveTag();
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->window.ActiveTag(), current);
    QVERIFY(m_index->tags().editMode() == store::EditMode::None);
    m_index->tags().MoveLast();
    QCOMPARE(m_index->window.ActiveTag(), u"Copy of FT-101"_s);
    m_index->tags().MovePrevious();
    QCOMPARE(m_index->window.ActiveTag(), u"Copy of FT-103"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 6);
}

void TestRowClipboard::everyFieldIsPastedAndNoCrossReference()
{
    m_index->goTo(u"FT-102"_s);
    m_index->addDocument(u"P-1"_s, u"PID"_s);
    m_index->addTie(u"FT-102"_s, u"P-1"_s, u"PID"_s);
    store::Recordset& tags = m_index->tags();
    tags.Edit();
    QStringList fields;
    for (const toolkit::GridColumn& each : indexColumns()) {
        if (each.field.isEmpty() || each.field == u"Tag"_s || each.field.startsWith(u"Data"_s))
            continue;
        fields << each.field;
        tags.SetField(each.field, QString(u"v"_s + QString::number(fields.size())));
    }
    tags.Update();
    m_index->open(m_index->project);
    QCOMPARE(fields.size(), 26);
    copy({u"FT-102"_s});
    QCOMPARE(m_index->cellText(column::pid), u"P-1"_s);
    m_index->choose(u"mnuPopUpPaste1"_s);
    for (int i = 0; i < fields.size(); ++i)
        QCOMPARE(m_index->stored(u"Copy of FT-102"_s, fields[i]), u"v"_s + QString::number(i + 1));
    QCOMPARE(m_index->ties(u"Copy of FT-102"_s), QStringList());
    QCOMPARE(m_index->ties(u"FT-102"_s), QStringList{u"P-1/PID"_s});
    QCOMPARE(m_index->texts(), QStringList());
}

void TestRowClipboard::nullsStayNull()
{
    copy({u"FT-101"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-101"_s, u"Manufacturer"_s), u"(null)"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-101"_s, u"DatasheetPath"_s), u"(null)"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-101"_s, u"DatasheetFileName"_s), QString());
}

void TestRowClipboard::pastingWithNoBufferIsTold()
{
    grid().setFocus();
    key(Qt::Key_V, Qt::ControlModifier);
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text, u"Error pasting records from buffer.\r\n91 : Object variable not set"_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(storedTags().size(), 4);
}

void TestRowClipboard::theDatasheetFileIsCopiedBesideTheOldOne()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT 102 'a'.xls"_s);
    copy({u"FT-102"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetPath"_s), m_index->path(u"own"_s));
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetFileName"_s),
             u"Copy of FT 102 'a'.xls"_s);
    QCOMPARE(contentOf(m_index->path(u"own/Copy of FT 102 'a'.xls"_s)),
             QByteArray("datasheet of FT-102"));
    QCOMPARE(contentOf(path), QByteArray("datasheet of FT-102"));
    QCOMPARE(m_index->stored(u"FT-102"_s, u"DatasheetFileName"_s), u"FT 102 'a'.xls"_s);
}

void TestRowClipboard::aPathWithoutAFileNameIsKept()
{
    giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    ProgramFixture::execute(m_index->project,
                            u"update qryIndex set DatasheetFileName = '' where Tag = 'FT-102'"_s);
    m_index->open(m_index->project);
    copy({u"FT-102"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetPath"_s), m_index->path(u"own"_s));
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetFileName"_s), QString());
    QCOMPARE(QDir(m_index->path(u"own"_s)).entryList(QDir::Files), QStringList{u"FT-102.xls"_s});
}

void TestRowClipboard::aDatasheetThatIsGoneIsToldAndTheTagHasNone()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    QVERIFY(QFile::remove(path));
    copy({u"FT-102"_s, u"FT-103"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text, u"Could copy file "_s + path + u". File doesn't exist or has been moved."_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Information);
    QCOMPARE(m_index->texts().size(), 1);
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetPath"_s), QString());
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"DatasheetFileName"_s), QString());
    QCOMPARE(storedTags().size(), 6);
}

void TestRowClipboard::pastingTwiceFailsOnTheKeyAndKeepsTheFirstCopies()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    copy({u"FT-102"_s, u"FT-103"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    m_index->file(u"own/FT-102.xls"_s, "changed since");
    m_index->choose(u"mnuPopUpPaste1"_s);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error pasting records from buffer.\r\n3022 : "_s),
             qPrintable(shown[0]));
    QCOMPARE(storedTags().size(), 6);
    QVERIFY(m_index->tags().editMode() == store::EditMode::Add);
    QCOMPARE(m_index->cellText(column::tag), u"Copy of FT-102"_s);
    // The file comes ahead of the record.
    QCOMPARE(contentOf(m_index->path(u"own/Copy of FT-102.xls"_s)), QByteArray("changed since"));
}

void TestRowClipboard::aPasteThatFailedCanBeRepeated()
{
    copy({u"FT-102"_s, u"FT-103"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    for (int i = 0; i < 2; ++i) {
        m_index->choose(u"mnuPopUpPaste1"_s);
        const QStringList shown = m_index->texts();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].startsWith(u"Error pasting records from buffer.\r\n3022 : "_s));
    }
    ProgramFixture::execute(m_index->project,
                            u"delete from [index] where PlantItemNo like 'Copy*'"_s);
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 6);
    QVERIFY(m_index->tags().editMode() == store::EditMode::None);
}

void TestRowClipboard::whatTheUserMakesOfTheFailedRowIsNotLost()
{
    copy({u"FT-102"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    m_index->choose(u"mnuPopUpPaste1"_s);
    m_index->texts();
    m_index->cell(column::tag).setValue(u"FT-900"_s);
    ProgramFixture::execute(m_index->project,
                            u"delete from [index] where PlantItemNo = 'Copy of FT-102'"_s);
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QVERIFY(storedTags().contains(u"FT-900"_s));
    QVERIFY(storedTags().contains(u"Copy of FT-102"_s));
}

void TestRowClipboard::aRowThatIsBeingTypedIsWrittenFirst()
{
    copy({u"FT-102"_s});
    m_index->goTo(u"FT-104"_s);
    m_index->cell(2).setValue(u"typed"_s);
    m_index->choose(u"mnuPopUpPaste3"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(m_index->stored(u"FT-104"_s, u"ServiceDescription"_s), u"typed"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"ServiceDescription"_s), u"(null)"_s);
}

void TestRowClipboard::aRowThatIsRefusedKeepsThePasteFromStarting()
{
    copy({u"FT-102"_s});
    m_index->startNewTag(u"FT-101"_s);
    m_index->cell(2).setValue(u"kept"_s);
    m_index->choose(u"mnuPopUpPaste3"_s);
    QCOMPARE(m_index->texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    QCOMPARE(m_index->cellText(2), u"kept"_s);
    QCOMPARE(storedTags().size(), 4);
}

void TestRowClipboard::everyKindOfTagIsPasted()
{
    QFile list(QFINDTESTDATA("../support/hard_tags.txt"));
    QVERIFY(list.open(QIODevice::ReadOnly));
    constexpr int longest = 200;
    int pasted = 0;
    for (const QString& tag : QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (tag.size() > longest)
            continue;
        ProgramFixture::execute(m_index->project, u"delete from [index]"_s);
        ProgramFixture::execute(m_index->project,
                                u"insert into [index] (PlantItemNo) values ('"_s
                                    + QString(tag).replace(u"'"_s, u"''"_s) + u"')"_s);
        m_index->open(m_index->project);
        grid().setFocus();
        key(Qt::Key_A, Qt::ControlModifier);
        key(Qt::Key_C, Qt::ControlModifier);
        key(Qt::Key_V, Qt::ControlModifier);
        // The documents of a tag with an apostrophe cannot be read.
        for (const QString& text : m_index->texts())
            QVERIFY2(!text.contains(u"buffer"_s), qPrintable(tag + text));
        QStringList tags = storedTags();
        QCOMPARE(tags.size(), 2);
        QVERIFY2(tags.contains(u"Copy of "_s + tag), qPrintable(tags.join(u'|')));
        ++pasted;
    }
    QVERIFY(pasted > 50);
}

void TestRowClipboard::longRemarksArePasted()
{
    const QString remarks = u"größe ⌀ 试验\r\n"_s.repeated(2000);
    m_index->goTo(u"FT-102"_s);
    m_index->cell(column::remarks).setValue(remarks);
    m_index->press(u"cmdSave"_s);
    copy({u"FT-102"_s});
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->stored(u"Copy of FT-102"_s, u"Remarks"_s), remarks);
}

void TestRowClipboard::aTagThatGrowsTooLongIsTold()
{
    const QString longTag = QString(250, u'a');
    m_index->addTag(longTag);
    m_index->open(m_index->project);
    copy({longTag});
    m_index->choose(u"mnuPopUpPaste1"_s);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error pasting records from buffer.\r\n3163 : "_s),
             qPrintable(shown[0]));
    QCOMPARE(storedTags().size(), 5);
}

void TestRowClipboard::aProjectThatCannotBeWrittenIsTold()
{
    copy({u"FT-102"_s});
    sqlite3* other = nullptr;
    sqlite3_open(m_index->project.toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    m_index->choose(u"mnuPopUpPaste1"_s);
    sqlite3_close(other);
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error pasting records from buffer.\r\n3260 : "_s),
             qPrintable(shown[0]));
    QCOMPARE(storedTags().size(), 4);
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 5);
}

void TestRowClipboard::aFullDiskIsTold()
{
    copy({u"FT-101"_s, u"FT-102"_s});
    {
        const tests::FullDisk full;
        m_index->choose(u"mnuPopUpPaste1"_s);
    }
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error pasting records from buffer.\r\n3026 : "_s),
             qPrintable(shown[0]));
    QCOMPARE(storedTags().size(), 4);
    m_index->choose(u"mnuPopUpPaste1"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 6);
}

void TestRowClipboard::aFullDiskForTheDatasheetIsTold()
{
    constexpr qint64 size = 30'000'000;
    QVERIFY(QFile::resize(giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s), size));
    m_index->file(u"own/Copy of FT-102.xls"_s, "old copy");
    copy({u"FT-101"_s, u"FT-102"_s, u"FT-103"_s});
    {
        const tests::FileSizeLimit limit(size / 2);
        m_index->choose(u"mnuPopUpPaste1"_s);
    }
    QCOMPARE(m_index->texts(),
             QStringList{u"Error pasting records from buffer.\r\n61 : Disk full"_s});
    // The tags before it stay, and so does the file that was there.
    QCOMPARE(
        storedTags(),
        (QStringList{u"Copy of FT-101"_s, u"FT-101"_s, u"FT-102"_s, u"FT-103"_s, u"FT-104"_s}));
    QVERIFY(m_index->tags().editMode() == store::EditMode::Add);
    QCOMPARE(m_index->cellText(column::tag), u"Copy of FT-102"_s);
    QCOMPARE(m_index->cellText(column::datasheetFileName), QString());
    QCOMPARE(contentOf(m_index->path(u"own/Copy of FT-102.xls"_s)), QByteArray("old copy"));
    QCOMPARE(QDir(m_index->path(u"own"_s)).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void TestRowClipboard::aFolderWithoutRightsIsTold()
{
    giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    copy({u"FT-102"_s});
    const auto reading = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup
                         | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(m_index->path(QString()), reading | QFile::WriteOwner);
    QFile::setPermissions(m_index->path(u"own"_s), reading);
    {
        const tests::WithoutRoot user;
        m_index->choose(u"mnuPopUpPaste1"_s);
    }
    QFile::setPermissions(m_index->path(u"own"_s), reading | QFile::WriteOwner);
    QCOMPARE(m_index->texts(),
             QStringList{u"Error pasting records from buffer.\r\n70 : Permission denied"_s});
    QCOMPARE(storedTags().size(), 4);
}

void TestRowClipboard::copiedRowsGoIntoAnotherProject()
{
    giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    copy({u"FT-102"_s});
    m_index->open(m_index->emptyProject(u"other.mdb"_s));
    QCOMPARE(storedTags(), QStringList());
    m_index->choose(u"mnuPopUpPaste3"_s);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags(), QStringList{u"Copy of FT-102"_s});
    QCOMPARE(contentOf(m_index->path(u"own/Copy of FT-102.xls"_s)),
             QByteArray("datasheet of FT-102"));
}

void TestRowClipboard::manyRowsArePasted()
{
    m_index->open(m_index->sampleProject());
    ProgramFixture::execute(m_index->project, u"update qryIndex set DatasheetPath = null"_s);
    ProgramFixture::execute(m_index->project,
                            u"delete from [index] where PlantItemNo >= '"_s + storedTags().at(100)
                                + u"'"_s);
    m_index->open(m_index->project);
    QCOMPARE(storedTags().size(), 100);
    grid().setFocus();
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 200);
}

// ---- deleting

void TestRowClipboard::deletingAsksForEachRow()
{
    select(0);
    select(2, Qt::ShiftModifier);
    m_index->choose(u"mnuPopUpCopy2"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes, toolkit::Answer::No, toolkit::Answer::Yes};
    m_index->choose(u"mnuPopUpDelete1"_s);
    QCOMPARE(m_index->texts(), QStringList(3, u"Do you want to delete the selected record?"_s));
    QCOMPARE(storedTags(), (QStringList{u"FT-102"_s, u"FT-104"_s}));
}

void TestRowClipboard::decliningKeepsTheRowsButNotTheFile()
{
    const QString path = giveDatasheet(u"FT-102"_s, u"FT-102.xls"_s);
    selectTag(u"FT-102"_s);
    bool goneBeforeQuestion = false;
    m_index->prompts.whileOpen = [&](const toolkit::Box&) {
        goneBeforeQuestion = !QFile::exists(path);
    };
    key(Qt::Key_Delete);
    QVERIFY(goneBeforeQuestion);
    QCOMPARE(storedTags().size(), 4);
}

void TestRowClipboard::theOtherMenusDeleteAsksByTheTag()
{
    selectTag(u"FT-102"_s);
    m_index->prompts.answers = {toolkit::Answer::Yes};
    m_index->choose(u"mnuPopUpDelete2"_s);
    QCOMPARE(m_index->texts(), QStringList{u"Are you sure you want to delete tag FT-102?"_s});
    QCOMPARE(storedTags().size(), 3);
}

void TestRowClipboard::deletingWithNoRowSelectedDoesNothing()
{
    m_index->goTo(u"FT-102"_s);
    m_index->cell(2).setValue(u"typed"_s);
    grid().setFocus();
    key(Qt::Key_Delete);
    QVERIFY(grid().rowPending());
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(storedTags().size(), 4);
}

void TestRowClipboard::aDeletionThatFailsIsTold()
{
    select(1);
    m_index->prompts.answers = {toolkit::Answer::Yes, toolkit::Answer::Yes};
    {
        const tests::FullDisk full;
        m_index->choose(u"mnuPopUpDelete1"_s);
    }
    const QStringList shown = m_index->texts();
    QCOMPARE(shown.size(), 2);
    QVERIFY2(shown[1].startsWith(u"Error deleting multiple records.\r\n3026 : "_s),
             qPrintable(shown[1]));
    QCOMPARE(storedTags().size(), 4);
}

// ---- the rows themselves

void TestRowClipboard::aRowGivesItsCollectionAndNoCopy()
{
    const CRows row;
    row.GetRowCollection()->Add(u"FT-101"_s, u"0"_s);
    row.GetRowCollection()->Add({}, u"1"_s);
    QCOMPARE(row.GetRowCollection()->Item(u"0"_s).text(), u"FT-101"_s);
    QVERIFY(row.GetRowCollection()->Item(u"1"_s).isNull());
}

void TestRowClipboard::aCollectionKnowsItsKeys()
{
    const auto errorOf = [](const std::function<void()>& action) {
        try {
            action();
        } catch (const store::Error& error) {
            return error.number();
        }
        return 0;
    };
    RowCollection items;
    items.Add(u"a"_s, u"0"_s);
    QCOMPARE(errorOf([&] { items.Add(u"b"_s, u"0"_s); }), 457);
    QCOMPARE(items.Item(u"0"_s).text(), u"a"_s);
    QCOMPARE(errorOf([&] { items.Item(u"34"_s); }), 5);
}

void TestRowClipboard::aRowWithoutItsCollectionIsTold()
{
    CRows row;
    const CRows taken = std::move(row);
    QVERIFY(taken.GetRowCollection());
    QVERIFY(!row.GetRowCollection()); // NOLINT
    const toolkit::Box box = m_index->prompts.boxes.at(0);
    QCOMPARE(box.text, u"Error while getting row. \r\nError : 91. Object variable not set"_s);
    QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
}

QTEST_MAIN(TestRowClipboard)
#include "tst_row_clipboard.moc"
