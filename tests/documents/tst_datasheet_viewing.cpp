// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Datasheets opened from the windows of the documents, with the application in memory.
#include "datasheets/memory_desk.h"
#include "documents/frmDoc.h"
#include "documents/frmDocXref.h"
#include "documents/window_desk.h"
#include "documents/xref_columns.h"
#include "viewing/frmViewDatasheets.h"

#include <QListWidget>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::Desk;
using tests::SessionDesk;

class TestDatasheetViewing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theIndexStaysWithTheTagOfADatasheetOpenedFromItsDocuments();
    void theIndexStaysWithItsTagWhileADatasheetOfTheRegisterIsOpen();

private:
    tests::IndexFixture& program() { return m->program(); }
    void expectSession();
    void expectEnd();

    std::unique_ptr<tests::MemoryDesk> m;
};

void TestDatasheetViewing::init()
{
    m = std::make_unique<tests::MemoryDesk>();
    m->prepare();
    program().addTag(u"AA-1"_s);
    program().addDocument(u"DS-1"_s, u"DATASHEET"_s);
    program().addDocument(u"DS-2"_s, u"DATASHEET"_s);
    program().addTie(SessionDesk::tag, u"DS-1"_s, u"DATASHEET"_s);
    program().press(u"cmdRefresh"_s);
    m->giveDatasheet();
}

void TestDatasheetViewing::cleanup()
{
    m.reset();
}

/// The main window is disabled and keeps the tag that was current.
void TestDatasheetViewing::expectSession()
{
    QVERIFY(m->isWindowVisible());
    QVERIFY(!m->isMainWindowFree());
    QCOMPARE(program().window.ActiveTag(), SessionDesk::tag);
    QCOMPARE(m->cellText(SessionDesk::front, u"D11"_s), SessionDesk::tag);
}

void TestDatasheetViewing::expectEnd()
{
    m->save();
    m->closeWindow();
    m->settle();
    QVERIFY(m->isMainWindowFree());
    QCOMPARE(program().window.ActiveTag(), SessionDesk::tag);
}

void TestDatasheetViewing::theIndexStaysWithTheTagOfADatasheetOpenedFromItsDocuments()
{
    tests::inModal<documents::frmDocXref>([this] { program().choose(u"mnuDocRef"_s); },
                                          [this](documents::frmDocXref& window) {
                                              const Desk desk(window, program());
                                              desk.goToNewRow(documents::xref::docNo);
                                              desk.type(u"DS-2"_s);
                                              desk.press(u"cmdSave"_s);
                                              desk.goTo(u"DS-1"_s, 0, documents::xref::docNo);
                                              desk.press(u"cmdView"_s);
                                              m->settle();
                                              QVERIFY(m->isWindowVisible());
                                              window.close();
                                          });
    expectSession();
    expectEnd();
    QCOMPARE(program().ties(SessionDesk::tag),
             QStringList({u"DS-1/DATASHEET"_s, u"DS-2/DATASHEET"_s, u"RQ-1/REQUISITION"_s}));
}

void TestDatasheetViewing::theIndexStaysWithItsTagWhileADatasheetOfTheRegisterIsOpen()
{
    tests::inModal<documents::frmDoc>(
        [this] { program().choose(u"mnuDocAll"_s); },
        [this](documents::frmDoc& window) {
            const Desk desk(window, program());
            desk.goTo(u"DS-1"_s);
            tests::inModal<viewing::frmViewDatasheets>(
                [&] { desk.press(u"cmdView"_s); },
                [](viewing::frmViewDatasheets& list) {
                    auto& tags = *list.findChild<QListWidget*>();
                    QCOMPARE(tags.count(), 1);
                    tags.setCurrentRow(0);
                    QTest::mouseClick(list.findChild<QPushButton*>(u"cmdView"_s), Qt::LeftButton);
                });
            m->settle();
            window.close();
        });
    expectSession();
    expectEnd();
}

QTEST_MAIN(TestDatasheetViewing)
#include "tst_datasheet_viewing.moc"
