// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The manual that comes with the program, opened from the main window and from a modal one.
#include "app/help_key.h"
#include "app/program.h"
#include "support/help_windows.h"
#include "support/index_fixture.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::helpWindows;
using tests::IndexFixture;

class TestIndexHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_index = std::make_unique<IndexFixture>(); }
    void cleanup() { m_index.reset(); }

    void f1OpensTheManual();
    void theButtonAndTheMenuOpenTheSameWindow();
    void theHelpButtonOfAModalWindowOpensIt();
    void f1OpensItFromAModalWindowAndNotAgainFromTheHelp();
    void theHelpGoesWithTheMainWindow();

private:
    void expectManual();

    std::unique_ptr<IndexFixture> m_index;
};

void TestIndexHelp::expectManual()
{
    QCOMPARE(m_index->texts(), QStringList());
    QCOMPARE(helpWindows().size(), 1);
    QCOMPARE(helpWindows().first()->windowTitle(),
             u"Ostrand Instrument Datasheets - Ostrand Datasheets Help"_s);
}

void TestIndexHelp::f1OpensTheManual()
{
    m_index->open(m_index->sampleProject());
    m_index->grid().setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    expectManual();
}

void TestIndexHelp::theButtonAndTheMenuOpenTheSameWindow()
{
    m_index->press(u"cmdHelp"_s);
    expectManual();
    m_index->choose(u"mnuOnlineHelp"_s);
    expectManual();
}

void TestIndexHelp::theHelpButtonOfAModalWindowOpensIt()
{
    m_index->open(m_index->sampleProject());
    bool ran = false;
    QTimer::singleShot(0, &m_index->window, [&] {
        auto* modal = QApplication::activeModalWidget();
        QVERIFY(modal);
        ran = true;
        QTest::mouseClick(modal->findChild<QPushButton*>(u"cmdHelp"_s), Qt::LeftButton);
        expectManual();
        QVERIFY(modal->isVisible());
        static_cast<QDialog*>(modal)->reject();
    });
    m_index->choose(u"mnuEditIndexRev"_s);
    QVERIFY(ran);
    expectManual();
}

void TestIndexHelp::f1OpensItFromAModalWindowAndNotAgainFromTheHelp()
{
    const app::HelpKey key;
    m_index->open(m_index->sampleProject());
    bool ran = false;
    QTimer::singleShot(0, &m_index->window, [&] {
        auto* modal = QApplication::activeModalWidget();
        QVERIFY(modal);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        expectManual();
        app::frmHelp* help = helpWindows().first();
        help->hide();
        QTest::keyClick(help, Qt::Key_F1);
        ran = helpWindows().isEmpty() && modal->isVisible();
        static_cast<QDialog*>(modal)->reject();
    });
    m_index->choose(u"mnuEditIndexRev"_s);
    QVERIFY(ran);
}

void TestIndexHelp::theHelpGoesWithTheMainWindow()
{
    m_index->press(u"cmdHelp"_s);
    expectManual();
    m_index->window.close();
    QCOMPARE(helpWindows().size(), 0);
}

QTEST_MAIN(TestIndexHelp)
#include "tst_index_help.moc"
