// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/cXlHndlr.h"
#include "datasheets/memory_desk.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::datasheets::xlHndlr;
using ostrand::index::column::datasheetFileName;
using ostrand::tests::MemoryDesk;
using ostrand::tests::ProgramFixture;
using ostrand::tests::SessionDesk;
using ostrand::toolkit::Answer;

namespace {

const QString overwrite =
    u"Datasheet fot this tag is already exists, do you want to overwrite it?"_s;

} // namespace

class TestDatasheetCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void aRowWithoutATagIsTold();
    void anUnknownFileInTheFolderIsAskedAbout();
    void decliningTheQuestionOpensNothing();
    void emptyFieldsCountAsUnsetForTheQuestion();
    void aDatasheetThatTheRecordNamesIsOpenedWithoutAQuestion();
    void aTagWithASeparatorIsReplacedSilently();
    void aMissingFolderOrNoneAsksNothing_data();
    void aMissingFolderOrNoneAsksNothing();
    void aMissingDatabaseIsTold();
    void aFailingLookUpIsTold();

    void cancellingTheChoiceLeavesTheFieldsNull();
    void aFailedCopyLeavesTheFieldsNull();
    void theMenuOpensWithoutTheQuestion();
    void anEmptyIndexOpensNothing();
    void emptyFieldsCountAsADatasheet();
    void aRecordThatIsGoneIsTold();
    void aPendingEditIsWrittenFirst();
    void aNewTagIsWrittenBeforeItsDatasheetIsMade();
    void aRowThatCannotBeWrittenStopsTheCommand();
    void aFailingSaveIsTold();

    void theCellButtonLocatesTheFile();
    void theDialogOffersTheTagsFile();
    void aCancelledDialogStoresNothing();
    void aPathWithoutFolderIsToldAndClearsTheFields();
    void aLocationThatCannotBeStoredIsTold();
    void findingOpensWhatWasLocated();
    void aFailureOfFindingIsTold();
    void aCancelledFindingIsQuiet();

private:
    tests::IndexFixture& program() { return m_desk->program(); }
    QString stored(const QString& field) { return program().stored(SessionDesk::tag, field); }
    QString folder() const { return m_desk->path(u"sheets"_s); }
    /// Presses a button of the choice of types once it is open.
    void whenChoiceOpens(const QString& button);
    void setFields(const QString& path, const QString& name);

    std::unique_ptr<MemoryDesk> m_desk;
    int m_choices = 0;
};

void TestDatasheetCommands::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
    m_choices = 0;
}

void TestDatasheetCommands::whenChoiceOpens(const QString& button)
{
    QTimer::singleShot(0, this, [this, button] {
        auto* window = QApplication::activeModalWidget();
        QVERIFY(window && window->objectName() == u"frmDSType"_s);
        ++m_choices;
        QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
    });
}

void TestDatasheetCommands::setFields(const QString& path, const QString& name)
{
    store::Recordset& tags = program().tags();
    tags.Edit();
    tags.SetField(u"DatasheetPath"_s, path);
    tags.SetField(u"DatasheetFileName"_s, name);
    tags.Update();
}

void TestDatasheetCommands::aRowWithoutATagIsTold()
{
    program().startNewTag(QString());
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts(), QStringList{u"Tag value is Null"_s});
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::anUnknownFileInTheFolderIsAskedAbout()
{
    program().file(u"sheets/PT-1.xls"_s, "somebody's");
    program().prompts.answers = {Answer::Yes};
    whenChoiceOpens(u"cmdSelect"_s);
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Question);
    QCOMPARE(program().texts(), QStringList{overwrite});
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QCOMPARE(stored(u"DatasheetFileName"_s), u"PT-1.xls"_s);
}

void TestDatasheetCommands::decliningTheQuestionOpensNothing()
{
    const QString path = program().file(u"sheets/PT-1.xls"_s, "somebody's");
    program().prompts.answers = {Answer::No};
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList{overwrite});
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QFile kept(path);
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), "somebody's");
}

void TestDatasheetCommands::emptyFieldsCountAsUnsetForTheQuestion()
{
    program().file(u"sheets/PT-1.xls"_s, "somebody's");
    setFields(folder(), QString(u""_s));
    program().prompts.answers = {Answer::No};
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList{overwrite});
}

void TestDatasheetCommands::aDatasheetThatTheRecordNamesIsOpenedWithoutAQuestion()
{
    m_desk->giveDatasheet();
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(xlHndlr().filename(), u"PT-1.xls"_s);
}

void TestDatasheetCommands::aTagWithASeparatorIsReplacedSilently()
{
    program().addTag(u"PT/7"_s);
    program().open(m_desk->project());
    program().goTo(u"PT/7"_s);
    program().file(u"sheets/PT-7.xls"_s, "somebody's");
    whenChoiceOpens(u"cmdSelect"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(xlHndlr().filename(), u"PT-7.xls"_s);
}

void TestDatasheetCommands::aMissingFolderOrNoneAsksNothing_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("missing folder")
        << u"update qryProjectInfo set attributeValue = '/no/such/folder' where attributeName = "
           u"'DefaultDatasheetFolder'"_s;
    QTest::newRow("no folder")
        << u"update qryProjectInfo set attributeValue = Null where attributeName = "
           u"'DefaultDatasheetFolder'"_s;
    QTest::newRow("no attribute")
        << u"delete from ProjectInfo where attributeName = 'DefaultDatasheetFolder'"_s;
}

void TestDatasheetCommands::aMissingFolderOrNoneAsksNothing()
{
    QFETCH(const QString, statement);
    program().file(u"sheets/PT-1.xls"_s, "somebody's");
    ProgramFixture::execute(m_desk->project(), statement);
    whenChoiceOpens(u"cmdCancel"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(m_choices, 1);
}

void TestDatasheetCommands::aMissingDatabaseIsTold()
{
    m_desk->giveDatasheet();
    app::g_strIndexFile = m_desk->path(u"gone.mdb"_s);
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts().at(0), u"Main database not found"_s);
    app::g_strIndexFile = m_desk->project();
}

void TestDatasheetCommands::aFailingLookUpIsTold()
{
    m_desk->giveDatasheet();
    app::g_strIndexFile = program().file(u"broken.mdb"_s, "no database, but long enough to look");
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().at(0);
    QVERIFY2(told.startsWith(u"An error occured during operation\r\n"_s) && told.size() > 40,
             qPrintable(told));
    app::g_strIndexFile = m_desk->project();
}

void TestDatasheetCommands::cancellingTheChoiceLeavesTheFieldsNull()
{
    whenChoiceOpens(u"cmdCancel"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(m_choices, 1);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(stored(u"DatasheetPath"_s), u"(null)"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    // What a choice before this one has left does not count.
    program().window.setDatasheetFolder(folder());
    program().window.setDatasheetFileName(u"old.xls"_s);
    whenChoiceOpens(u"cmdCancel"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
}

void TestDatasheetCommands::aFailedCopyLeavesTheFieldsNull()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryProjectInfo set attributeValue = '/no/such/folder' where "
                            u"attributeName = 'DefaultDatasheetFolder'"_s);
    whenChoiceOpens(u"cmdSelect"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts().size(), 1);
    QCOMPARE(stored(u"DatasheetPath"_s), u"(null)"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::theMenuOpensWithoutTheQuestion()
{
    program().file(u"sheets/PT-1.xls"_s, "somebody's");
    whenChoiceOpens(u"cmdSelect"_s);
    program().choose(u"mnuDocDtSht"_s);
    QCOMPARE(program().texts(), QStringList());
    QVERIFY(xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::anEmptyIndexOpensNothing()
{
    ProgramFixture::execute(m_desk->project(), u"delete from [index]"_s);
    program().open(m_desk->project());
    program().choose(u"mnuDocDtSht"_s);
    QCOMPARE(program().texts(), QStringList());
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::emptyFieldsCountAsADatasheet()
{
    setFields(QString(u""_s), QString(u""_s));
    program().prompts.answers = {Answer::No};
    program().choose(u"mnuDocDtSht"_s);
    const QString told = program().texts().value(0);
    QVERIFY2(told.startsWith(u"Error while trying to open file /. File either"_s),
             qPrintable(told));
    QCOMPARE(m_choices, 0);
}

void TestDatasheetCommands::aRecordThatIsGoneIsTold()
{
    program().open(m_desk->project());
    ProgramFixture::execute(m_desk->project(), u"delete from [index] where PlantItemNo = 'PT-1'"_s);
    program().choose(u"mnuDocDtSht"_s);
    const QString told = program().texts().value(0);
    QVERIFY2(told.startsWith(u"Error while opening datasheet.\r\n3167 : "_s), qPrintable(told));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::aPendingEditIsWrittenFirst()
{
    m_desk->giveDatasheet();
    program().cell(6).setValue(u"Halden"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QCOMPARE(m_desk->cellText(SessionDesk::front, u"D13"_s), u"Halden"_s);
}

void TestDatasheetCommands::aNewTagIsWrittenBeforeItsDatasheetIsMade()
{
    program().startNewTag(u"PT-3"_s);
    whenChoiceOpens(u"cmdSelect"_s);
    program().choose(u"mnuDocDtSht"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(program().stored(u"PT-3"_s, u"DatasheetFileName"_s), u"PT-3.xls"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
    QCOMPARE(m_desk->cellText(SessionDesk::front, u"D11"_s), u"PT-3"_s);
}

/// No other tag is given a datasheet in the place of one that is not stored.
void TestDatasheetCommands::aRowThatCannotBeWrittenStopsTheCommand()
{
    program().startNewTag(u"PT-1"_s);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().texts(),
             QStringList{u"Record cannot be saved due to duplication of the key"_s});
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(program().grid().rowPending());
    Q_EMIT program().grid().cellButtonClicked(datasheetFileName);
    QVERIFY(program().prompts.fileRequests.empty());
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
}

void TestDatasheetCommands::aFailingSaveIsTold()
{
    m_desk->giveDatasheet();
    program().cell(6).setValue(u"Halden"_s);
    ProgramFixture::execute(m_desk->project(), u"delete from [index] where PlantItemNo = 'PT-1'"_s);
    program().choose(u"mnuDocDtSht"_s);
    const QStringList shown = program().texts();
    QVERIFY2(shown.filter(u"Error while saving data .\r\n3167 : "_s).size() == 1,
             qPrintable(shown.join(u'|')));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::theCellButtonLocatesTheFile()
{
    program().prompts.files = {u"C:\\plant\\sheets\\found.xls"_s};
    Q_EMIT program().grid().cellButtonClicked(datasheetFileName);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(stored(u"DatasheetPath"_s), u"C:\\plant\\sheets"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"found.xls"_s);
    QCOMPARE(program().cellText(datasheetFileName), u"found.xls"_s);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void TestDatasheetCommands::theDialogOffersTheTagsFile()
{
    Q_EMIT program().grid().cellButtonClicked(datasheetFileName);
    QCOMPARE(program().prompts.fileRequests.size(), std::size_t{1});
    const toolkit::FileRequest request = program().prompts.fileRequests[0];
    QCOMPARE(request.title, u"Locate Excel Spreadsheet Datasheet..."_s);
    QCOMPARE(request.filter, u"All Files (*.*)|*.*|Excel (*.xls)|*.xls"_s);
    QCOMPARE(request.filterIndex, 2);
    QCOMPARE(request.fileName, folder() + u"/PT-1.xls"_s);
    QVERIFY(!request.save);
}

void TestDatasheetCommands::aCancelledDialogStoresNothing()
{
    m_desk->giveDatasheet();
    program().prompts.files = {std::nullopt};
    QVERIFY(!program().window.LocateDatasheetFile());
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(stored(u"DatasheetFileName"_s), u"PT-1.xls"_s);
}

void TestDatasheetCommands::aPathWithoutFolderIsToldAndClearsTheFields()
{
    m_desk->giveDatasheet();
    program().prompts.files = {u"/found.xls"_s};
    QVERIFY(program().window.LocateDatasheetFile());
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts(), QStringList{u"Error getting file and path name for datasheet."_s});
    QCOMPARE(stored(u"DatasheetPath"_s), u"(null)"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"(null)"_s);
}

void TestDatasheetCommands::aLocationThatCannotBeStoredIsTold()
{
    program().prompts.files = {u"/a/found.xls"_s};
    ProgramFixture::execute(m_desk->project(), u"delete from [index] where PlantItemNo = 'PT-1'"_s);
    QVERIFY(!program().window.LocateDatasheetFile());
    QVERIFY(program().prompts.boxes.back().icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().back();
    QVERIFY2(told.startsWith(u"Error while locating datasheet file.\r\n3167 : "_s),
             qPrintable(told));
}

void TestDatasheetCommands::findingOpensWhatWasLocated()
{
    SessionDesk::makeWorkbook(m_desk->path(u"sheets/found.xls"_s));
    program().prompts.files = {m_desk->path(u"sheets/found.xls"_s)};
    program().window.FindDatasheet();
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(xlHndlr().filename(), u"found.xls"_s);
}

void TestDatasheetCommands::aFailureOfFindingIsTold()
{
    program().prompts.files = {u"/found.xls"_s};
    int boxes = 0;
    program().prompts.whileOpen = [&boxes](const toolkit::Box&) {
        if (++boxes <= 2)
            throw store::Error(7, u"Out of memory"_s);
    };
    program().window.FindDatasheet();
    QVERIFY(program().prompts.boxes.back().icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts().back(), u"Error while finding datasheet.\r\n7 : Out of memory"_s);
}

void TestDatasheetCommands::aCancelledFindingIsQuiet()
{
    program().prompts.files = {u"/found.xls"_s};
    int boxes = 0;
    program().prompts.whileOpen = [&boxes](const toolkit::Box&) {
        if (++boxes == 1)
            throw store::Error(7, u"Out of memory"_s);
        throw store::Error(32755, u"Cancel was selected."_s);
    };
    program().window.FindDatasheet();
    QCOMPARE(program().texts().size(), 2);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

QTEST_MAIN(TestDatasheetCommands)
#include "tst_datasheet_commands.moc"
