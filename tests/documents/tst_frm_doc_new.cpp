// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/frmDocNew.h"
#include "documents/frmDocXref.h"
#include "documents/window_desk.h"
#include "documents/xref_columns.h"
#include "support/full_disk.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace ostrand;
using documents::frmDocNew;
using documents::frmDocXref;
using tests::IndexFixture;
using toolkit::Answer;
using toolkit::BoxIcon;

class TestFrmDocNew : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowIsModalOverTheDocumentsOfTheTag();
    void theControlsHaveTheirCaptions();
    void everyControlHasAnAccessibleName();
    void theKindsAreOfferedInOrderAndNoneIsChosen();
    void aProjectThatCannotBeReadIsTold();
    void kindsThatCannotBeReadAreTold();

    void aDocumentIsRegisteredAndTiedToTheTag();
    void emptyFieldsAreStoredAsNull();
    void theListOfTheTagsDocumentsIsReadAnew();
    void aWindowWithoutATagTiesNothing();
    void anEmptyNumberIsRefusedAndWhatWasTypedStays();
    void aNumberThatExistsIsRefusedAndCanBeCorrected();
    void anUnknownKindIsRefused();
    void aNumberWithAnApostropheIsTied();
    void aTagWithAnApostropheLeavesTheDocumentRegistered();
    void aLockedProjectIsTold();
    void aFullDiskIsTold();
    void aProjectThatCannotBeWrittenIsTold();

    void aNewKindIsStoredInCapitalsAndNotChosen();
    void anEmptyAnswerAddsNoKind_data();
    void anEmptyAnswerAddsNoKind();
    void anAnswerOfNoAddsNoKind();
    void aKindThatExistsIsTold();
    void aKindWithAnApostropheIsTold();

    void mappingFillsTheFieldsAndStoresNothing();
    void cancellingTheDialogKeepsTheFields();
    void mappingThatFailsIsTold();

    void exitStoresNothing();
    void helpIsAskedForItsTopic();
    void everyCommandHasItsKey();
    void enterInAFieldStoresNothing();

private:
    /// Opens the window through the one of the tag's documents, as the user does.
    void open(const std::function<void(frmDocNew&)>& steps)
    {
        tests::inModal<frmDocXref>(
            [this] { m->choose(u"mnuDocRef"_s); },
            [&](frmDocXref& documents) {
                tests::inModal<frmDocNew>(
                    [&] {
                        QTest::mouseClick(documents.findChild<QPushButton*>(u"cmdReference"_s),
                                          Qt::LeftButton);
                    },
                    [&](frmDocNew& window) {
                        m_window = &window;
                        steps(window);
                    });
            });
    }
    void press(const char* name)
    {
        auto* button = m_window->findChild<QPushButton*>(QString::fromLatin1(name));
        QVERIFY2(button && button->isEnabled() && button->isVisible(), name);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QLineEdit& line(const char* name)
    {
        return *m_window->findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    QComboBox& kinds() { return *m_window->findChild<QComboBox*>(u"cmbDocType"_s); }
    void fill(const char* name, const QString& text)
    {
        line(name).setFocus();
        line(name).selectAll();
        QTest::keyClicks(&line(name), text);
    }
    void choose(const QString& kind) { kinds().setCurrentText(kind); }
    QString stored(const QString& number, const QString& field) const
    {
        return IndexFixture::value(m_project,
                                   u"select "_s + field + u" from document where docNo = '"_s
                                       + number + u"'"_s);
    }
    QString documentCount() const
    {
        return IndexFixture::value(m_project, u"select count(*) from document"_s);
    }
    void expectFailure(const QString& beginning)
    {
        QCOMPARE(m->prompts.boxes.size(), std::size_t{1});
        QVERIFY(m->prompts.boxes[0].icon == BoxIcon::Exclamation);
        const QString told = m->texts().constFirst();
        QVERIFY2(told.startsWith(beginning), qPrintable(told));
    }

    std::unique_ptr<IndexFixture> m;
    QString m_project;
    frmDocNew* m_window = nullptr;
};

void TestFrmDocNew::init()
{
    m = std::make_unique<IndexFixture>();
    m_project = m->emptyProject();
    m->project = m_project;
    m->addTag(u"PT-1001"_s);
    m->addDocument(u"D-1"_s, u"PID"_s);
    m->open(m_project);
    m->texts();
}

void TestFrmDocNew::cleanup()
{
    m.reset();
}

// ---- the window

void TestFrmDocNew::theWindowIsModalOverTheDocumentsOfTheTag()
{
    open([this](frmDocNew& window) {
        QCOMPARE(window.windowTitle(), u"Reference Document to tag PT-1001"_s);
        QVERIFY(window.isModal());
        QCOMPARE(window.parentWidget(), documents::g_frmDocXref.data());
        QVERIFY(line("txtDocNo").hasFocus());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::theControlsHaveTheirCaptions()
{
    open([this](frmDocNew& window) {
        const auto caption = [&](const char* name) {
            return window.findChild<QPushButton*>(QString::fromLatin1(name))->text();
        };
        QCOMPARE(caption("cmdHelp"), u"&Help"_s);
        QCOMPARE(caption("cmdNewType"), u"&New.."_s);
        QCOMPARE(caption("cmdMap"), u"&Map File"_s);
        QCOMPARE(caption("cmdSave"), u"&Save"_s);
        QCOMPARE(caption("cmdExit"), u"&Exit"_s);
        QStringList labels;
        for (const auto* label : window.findChildren<QLabel*>())
            labels << label->text();
        labels.sort();
        QCOMPARE(labels,
                 QStringList({u"Doc No:"_s, u"File Name:"_s, u"Path:"_s, u"Title:"_s, u"Type:"_s}));
        QCOMPARE(window.findChild<toolkit::DataControl*>(u"dbDoc"_s)->RecordSource(), u"qryDoc"_s);
    });
}

void TestFrmDocNew::everyControlHasAnAccessibleName()
{
    open([](frmDocNew& window) {
        for (const char* name : {"txtDocNo",
                                 "txtDocTitle",
                                 "cmbDocType",
                                 "txtDocPath",
                                 "txtDocFileName",
                                 "cmdNewType",
                                 "cmdMap",
                                 "cmdSave",
                                 "cmdExit",
                                 "cmdHelp"}) {
            auto* widget = window.findChild<QWidget*>(QString::fromLatin1(name));
            auto* face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(!face->text(QAccessible::Name).isEmpty(), name);
        }
    });
}

void TestFrmDocNew::theKindsAreOfferedInOrderAndNoneIsChosen()
{
    open([this](frmDocNew&) {
        QStringList offered;
        for (int i = 0; i < kinds().count(); ++i)
            offered << kinds().itemText(i);
        QCOMPARE(offered,
                 QStringList({u"DATASHEET"_s,
                              u"LOOP DWG"_s,
                              u"NA"_s,
                              u"PID"_s,
                              u"PURCHASE ORDER"_s,
                              u"REQUISITION"_s}));
        QCOMPARE(kinds().currentText(), QString());
    });
}

void TestFrmDocNew::aProjectThatCannotBeReadIsTold()
{
    app::g_strIndexFile = m->path(u"gone.mdb"_s);
    frmDocNew window;
    window.ShowInfo(u"PT-1001"_s);
    expectFailure(u"Error while loading new document Window\r\n3024 : "_s);
    QVERIFY(!window.isVisible());
    app::g_strIndexFile = m_project;
}

void TestFrmDocNew::kindsThatCannotBeReadAreTold()
{
    frmDocNew window;
    window.PopulateDocTypeComboBox();
    expectFailure(u"Error while loading document type in combo box. \r\nError : 91. "_s);
}

// ---- saving

void TestFrmDocNew::aDocumentIsRegisteredAndTiedToTheTag()
{
    open([this](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        fill("txtDocTitle", u"Sketch"_s);
        choose(u"PID"_s);
        fill("txtDocPath", u"/plans"_s);
        fill("txtDocFileName", u"sketch.pdf"_s);
        press("cmdSave");
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(stored(u"S-1"_s, u"Title"_s), u"Sketch"_s);
    QCOMPARE(stored(u"S-1"_s, u"docType"_s), u"PID"_s);
    QCOMPARE(stored(u"S-1"_s, u"Path"_s), u"/plans"_s);
    QCOMPARE(stored(u"S-1"_s, u"Filename"_s), u"sketch.pdf"_s);
    QCOMPARE(m->ties(u"PT-1001"_s), QStringList{u"S-1/"_s});
    QCOMPARE(IndexFixture::value(m_project, u"select context from itemDocXRef"_s), u"(null)"_s);
    QCOMPARE(m->cellText(index::column::pid), u"S-1"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::emptyFieldsAreStoredAsNull()
{
    open([this](frmDocNew&) {
        fill("txtDocNo", u"S-1"_s);
        press("cmdSave");
    });
    for (const char* field : {"Title", "docType", "Path", "Filename"})
        QCOMPARE(stored(u"S-1"_s, QString::fromLatin1(field)), u"(null)"_s);
}

void TestFrmDocNew::theListOfTheTagsDocumentsIsReadAnew()
{
    tests::inModal<frmDocXref>([this] { m->choose(u"mnuDocRef"_s); },
                               [&](frmDocXref& documents) {
                                   tests::Desk desk(documents, *m);
                                   QCOMPARE(desk.rows(), 1);
                                   tests::inModal<frmDocNew>([&] { desk.press(u"cmdReference"_s); },
                                                             [&](frmDocNew& window) {
                                                                 m_window = &window;
                                                                 fill("txtDocNo", u"S-1"_s);
                                                                 press("cmdSave");
                                                             });
                                   QCOMPARE(desk.shownColumn(documents::xref::docNo),
                                            QStringList{u"S-1"_s});
                               });
}

void TestFrmDocNew::aWindowWithoutATagTiesNothing()
{
    frmDocNew window;
    m_window = &window;
    tests::inModal<frmDocNew>([&] { window.ShowInfo(QString()); },
                              [&](frmDocNew&) {
                                  QCOMPARE(window.windowTitle(), u"Reference Document to tag "_s);
                                  fill("txtDocNo", u"S-1"_s);
                                  press("cmdSave");
                              });
    QCOMPARE(stored(u"S-1"_s, u"docNo"_s), u"S-1"_s);
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from itemDocXRef"_s), u"0"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::anEmptyNumberIsRefusedAndWhatWasTypedStays()
{
    open([this](frmDocNew& window) {
        fill("txtDocTitle", u"Sketch"_s);
        press("cmdSave");
        expectFailure(u"Error while saving data .\r\n33"_s);
        QVERIFY(window.isVisible());
        QCOMPARE(line("txtDocTitle").text(), u"Sketch"_s);
    });
    QCOMPARE(documentCount(), u"2"_s);
}

void TestFrmDocNew::aNumberThatExistsIsRefusedAndCanBeCorrected()
{
    open([this](frmDocNew& window) {
        fill("txtDocNo", u"d-1"_s);
        fill("txtDocTitle", u"Sketch"_s);
        press("cmdSave");
        expectFailure(u"Error while saving data .\r\n3022 : "_s);
        QVERIFY(window.isVisible());
        fill("txtDocNo", u"S-1"_s);
        press("cmdSave");
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(stored(u"S-1"_s, u"Title"_s), u"Sketch"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::anUnknownKindIsRefused()
{
    open([this](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        choose(u"SKETCH"_s);
        press("cmdSave");
        expectFailure(u"Error while saving data .\r\n3201 : "_s);
        QVERIFY(window.isVisible());
        QCOMPARE(kinds().currentText(), u"SKETCH"_s);
    });
    QCOMPARE(documentCount(), u"2"_s);
}

void TestFrmDocNew::aNumberWithAnApostropheIsTied()
{
    open([this](frmDocNew&) {
        fill("txtDocNo", u"O'Hara"_s);
        press("cmdSave");
    });
    QCOMPARE(m->ties(u"PT-1001"_s), QStringList{u"O'Hara/"_s});
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::aTagWithAnApostropheLeavesTheDocumentRegistered()
{
    frmDocNew window;
    m_window = &window;
    tests::inModal<frmDocNew>([&] { window.ShowInfo(u"A'1"_s); },
                              [&](frmDocNew&) {
                                  fill("txtDocNo", u"S-1"_s);
                                  press("cmdSave");
                                  expectFailure(u"Error while saving data .\r\n3"_s);
                                  QVERIFY(window.isVisible());
                                  QCOMPARE(stored(u"S-1"_s, u"docNo"_s), u"S-1"_s);
                                  press("cmdSave");
                                  expectFailure(u"Error while saving data .\r\n3022 : "_s);
                              });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from itemDocXRef"_s), u"0"_s);
}

void TestFrmDocNew::aLockedProjectIsTold()
{
    tests::OtherProgram other(m_project);
    open([&](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        other.run("BEGIN IMMEDIATE");
        press("cmdSave");
        expectFailure(u"Error while saving data .\r\n3260 : "_s);
        QVERIFY(window.isVisible());
        other.run("ROLLBACK");
        press("cmdSave");
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(m->ties(u"PT-1001"_s), QStringList{u"S-1/"_s});
}

void TestFrmDocNew::aFullDiskIsTold()
{
    open([&](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        {
            const tests::FullDisk full;
            press("cmdSave");
        }
        expectFailure(u"Error while saving data .\r\n3026 : "_s);
        QVERIFY(window.isVisible());
        QCOMPARE(line("txtDocNo").text(), u"S-1"_s);
    });
    QCOMPARE(documentCount(), u"2"_s);
}

void TestFrmDocNew::aProjectThatCannotBeWrittenIsTold()
{
    open([&](frmDocNew& window) {
        auto& data = *window.findChild<toolkit::DataControl*>(u"dbDoc"_s);
        data.setRecordSource(u"select distinct * from qryDoc"_s);
        data.Refresh();
        fill("txtDocNo", u"S-1"_s);
        press("cmdSave");
        expectFailure(u"Error while saving data .\r\n3027 : "_s);
        bool save = true;
        Q_EMIT data.validate(
            toolkit::DataControl::Action::Add, save, store::Error(3027, u"read-only"_s));
        expectFailure(u"3027 : Error while  adding a record. read-only"_s);
    });
}

// ---- kinds

void TestFrmDocNew::aNewKindIsStoredInCapitalsAndNotChosen()
{
    m->prompts.inputs = {u"sketch"_s};
    m->prompts.answers = {Answer::Yes};
    open([this](frmDocNew&) {
        choose(u"PID"_s);
        press("cmdNewType");
        QCOMPARE(m->prompts.boxes.at(0).title, u"New Document Type"_s);
        QVERIFY(m->prompts.boxes.at(1).icon == BoxIcon::Question);
        QCOMPARE(m->texts(),
                 QStringList({u"Input new document type"_s,
                              u"Are you sure you want to add document type SKETCH?"_s}));
        QVERIFY(kinds().findText(u"SKETCH"_s) >= 0);
        QCOMPARE(kinds().currentText(), u"PID"_s);
        fill("txtDocNo", u"S-1"_s);
        choose(u"SKETCH"_s);
        press("cmdSave");
    });
    QCOMPARE(stored(u"S-1"_s, u"docType"_s), u"SKETCH"_s);
}

void TestFrmDocNew::anEmptyAnswerAddsNoKind_data()
{
    QTest::addColumn<bool>("cancelled");
    QTest::newRow("empty") << false;
    QTest::newRow("cancelled") << true;
}

void TestFrmDocNew::anEmptyAnswerAddsNoKind()
{
    QFETCH(bool, cancelled);
    m->prompts.inputs = {cancelled ? std::nullopt : std::optional(QString())};
    open([this](frmDocNew&) {
        press("cmdNewType");
        QCOMPARE(m->texts(), QStringList{u"Input new document type"_s});
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from plDocType"_s), u"6"_s);
}

void TestFrmDocNew::anAnswerOfNoAddsNoKind()
{
    m->prompts.inputs = {u"sketch"_s};
    m->prompts.answers = {Answer::No};
    open([this](frmDocNew&) { press("cmdNewType"); });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from plDocType"_s), u"6"_s);
}

void TestFrmDocNew::aKindThatExistsIsTold()
{
    m->prompts.inputs = {u"pid"_s};
    m->prompts.answers = {Answer::Yes};
    open([this](frmDocNew&) {
        press("cmdNewType");
        const QString told = m->texts().value(2);
        QVERIFY2(told.startsWith(u"Error while creating new document type.\r\n3022 : "_s),
                 qPrintable(told));
    });
}

void TestFrmDocNew::aKindWithAnApostropheIsTold()
{
    m->prompts.inputs = {u"it's"_s};
    m->prompts.answers = {Answer::Yes};
    open([this](frmDocNew&) {
        press("cmdNewType");
        const QString told = m->texts().value(2);
        QVERIFY2(told.startsWith(u"Error while creating new document type.\r\n3"_s),
                 qPrintable(told));
    });
    QCOMPARE(IndexFixture::value(m_project, u"select count(*) from plDocType"_s), u"6"_s);
}

// ---- mapping

void TestFrmDocNew::mappingFillsTheFieldsAndStoresNothing()
{
    IndexFixture::execute(m_project,
                          u"update ProjectInfo set attributeValue = '/sheets' where attributeName "
                          u"= 'DefaultDatasheetFolder'"_s);
    m->prompts.files = {u"/plans/a/plan"_s};
    open([this](frmDocNew&) {
        press("cmdMap");
        QCOMPARE(line("txtDocPath").text(), u"/plans/a"_s);
        QCOMPARE(line("txtDocFileName").text(), u"plan"_s);
    });
    QCOMPARE(m->prompts.fileRequests.at(0).title, u"Locate File"_s);
    QCOMPARE(m->prompts.fileRequests.at(0).folder, u"/sheets"_s);
    QCOMPARE(documentCount(), u"2"_s);
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::cancellingTheDialogKeepsTheFields()
{
    open([this](frmDocNew&) {
        fill("txtDocPath", u"/plans"_s);
        press("cmdMap");
        QCOMPARE(line("txtDocPath").text(), u"/plans"_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmDocNew::mappingThatFailsIsTold()
{
    QStringList told;
    m->prompts.files = {u"/plan"_s};
    open([&](frmDocNew&) {
        press("cmdMap");
        expectFailure(u"Error getting file and path name for document"_s);
        QCOMPARE(line("txtDocPath").text(), QString());
        const auto before = toolkit::setPromptHost(std::make_unique<tests::FailingDialogs>(told));
        press("cmdMap");
    });
    QCOMPARE(
        told,
        QStringList{u"Error while maping file to document. \r\nError : 57. Device I/O error"_s});
}

// ---- leaving, keys

void TestFrmDocNew::exitStoresNothing()
{
    open([this](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        press("cmdExit");
        QVERIFY(!window.isVisible());
        QVERIFY(documents::g_frmDocXref);
    });
    QCOMPARE(documentCount(), u"2"_s);
}

void TestFrmDocNew::helpIsAskedForItsTopic()
{
    open([this](frmDocNew& window) {
        press("cmdHelp");
        QVERIFY(window.isVisible());
    });
    m->texts();
}

void TestFrmDocNew::everyCommandHasItsKey()
{
    m->prompts.inputs = {std::nullopt};
    open([this](frmDocNew& window) {
        const auto byKey = [&](Qt::Key key) {
            QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
            QCoreApplication::processEvents();
            QTest::qWait(150);
        };
        byKey(Qt::Key_N);
        QCOMPARE(m->texts(), QStringList{u"Input new document type"_s});
        byKey(Qt::Key_M);
        QCOMPARE(m->prompts.fileRequests.size(), std::size_t{1});
        byKey(Qt::Key_S);
        expectFailure(u"Error while saving data .\r\n"_s);
        line("txtDocNo").setFocus();
        for (const char* name : {"txtDocTitle",
                                 "cmbDocType",
                                 "cmdNewType",
                                 "txtDocPath",
                                 "txtDocFileName",
                                 "cmdMap",
                                 "cmdSave",
                                 "cmdExit",
                                 "cmdHelp"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY2(window.findChild<QWidget*>(QString::fromLatin1(name))->hasFocus(), name);
        }
        byKey(Qt::Key_E);
        QVERIFY(!window.isVisible());
    });
}

void TestFrmDocNew::enterInAFieldStoresNothing()
{
    open([this](frmDocNew& window) {
        fill("txtDocNo", u"S-1"_s);
        QTest::keyClick(&line("txtDocNo"), Qt::Key_Return);
        QVERIFY(window.isVisible());
        QTest::keyClick(&line("txtDocNo"), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(documentCount(), u"2"_s);
}

QTEST_MAIN(TestFrmDocNew)
#include "tst_frm_doc_new.moc"
