// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/frmDuplicate.h"
#include "pid/populate_report.h"
#include "support/program_fixture.h"

#include <QDateTime>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using pid::frmDuplicate;
using tests::ProgramFixture;

namespace {

QString stamp()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QLocale::system().toString(now.date(), QLocale::ShortFormat) + u' '
           + QLocale::system().toString(now.time(), QLocale::ShortFormat) + u'.';
}

} // namespace

class TestDuplicate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowWarns();
    void eachRenamedTagHasALine();
    void savingWritesTheLinesBetweenTheirDates();
    void whatTheUserTypedIsSaved();
    void aFileIsReplacedWithoutAQuestion();
    void aCancelledDialogKeepsTheWindow();
    void aFailureIsToldAndLeavesTheReport();
    void cancelWritesNothing();

private:
    void report(const QStringList& lines);
    QPlainTextEdit& box() { return *m_window->findChild<QPlainTextEdit*>(u"rtfDuplicate"_s); }
    void click(const QString& name)
    {
        QTest::mouseClick(m_window->findChild<QPushButton*>(name), Qt::LeftButton);
    }
    QString content(const QString& name)
    {
        QFile file(m_program->path(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"-"_s;
    }

    std::unique_ptr<ProgramFixture> m_program;
    std::unique_ptr<frmDuplicate> m_window;
};

void TestDuplicate::init()
{
    m_program = std::make_unique<ProgramFixture>();
    report({u"TI-2011(1)"_s, u"Ü 1\u00A0bar-2(x)(7)"_s});
}

void TestDuplicate::cleanup()
{
    m_window.reset();
    m_program.reset();
}

void TestDuplicate::report(const QStringList& lines)
{
    pid::clearPopulateReport();
    for (const QString& line : lines)
        pid::addToPopulateReport(line);
    m_window = std::make_unique<frmDuplicate>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestDuplicate::theWindowWarns()
{
    QCOMPARE(m_window->windowTitle(), u"Duplicate Tags"_s);
    QVERIFY(m_window->isModal());
    QCOMPARE(m_window->findChild<QLabel*>(u"Label1"_s)->text(), u"Warning"_s);
    const auto* text = m_window->findChild<QLabel*>(u"Label2"_s);
    QCOMPARE(
        text->text(),
        u"The following items were found to be duplicates while importing from the P&&ID "
        "database and were renamed. These items are no longer linked to the  P&&ID database."_s);
    QCOMPARE(text->buddy(), &box()); // so that one sign is seen of two
    QVERIFY(!m_window->findChild<QLabel*>(u"picture"_s)->pixmap().isNull());
    QCOMPARE(m_window->findChild<QPushButton*>(u"cmdSave"_s)->text(), u"&Save Report"_s);
    QCOMPARE(m_window->findChild<QPushButton*>(u"cmdCancel"_s)->text(), u"&Cancel"_s);
}

void TestDuplicate::eachRenamedTagHasALine()
{
    QCOMPARE(pid::g_strPopulateFunction, u"TI-2011(1),Ü 1\u00A0bar-2(x)(7),"_s);
    QCOMPARE(pid::g_strPopulateTag, u"TI-2011,Ü 1\u00A0bar-2,"_s);
    QCOMPARE(
        box().document()->toRawText().replace(QChar::ParagraphSeparator, u'|'),
        u"TI-2011 is renamed as TI-2011(1)|Ü 1\u00A0bar-2 is renamed as Ü 1\u00A0bar-2(x)(7)|"_s);
}

void TestDuplicate::savingWritesTheLinesBetweenTheirDates()
{
    m_program->prompts.files = {m_program->path(u"report.txt"_s)};
    // The minute may change while the report is written.
    const QString before = stamp();
    click(u"cmdSave"_s);
    const QString after = stamp();
    QVERIFY(!m_window->isVisible());
    const toolkit::FileRequest& request = m_program->prompts.fileRequests.at(0);
    QCOMPARE(request.title, u"Save File As"_s);
    QCOMPARE(request.filter, u"Text files (*.txt)|*.txt"_s);
    QCOMPARE(request.suffix, u"txt"_s);
    QVERIFY(request.save);

    const QString lines =
        u"\r\nTI-2011 is renamed as TI-2011(1)\r\nÜ 1\u00A0bar-2 is renamed as Ü 1\u00A0bar-2(x)(7)\r\n"_s;
    QStringList possible;
    for (const QString& begun : {before, after}) {
        for (const QString& ended : {before, after}) {
            possible << u"Report is created at "_s + begun + lines + u"Report is ended at "_s
                            + ended;
        }
    }
    const QString written = content(u"report.txt"_s);
    QVERIFY2(possible.contains(written), qPrintable(written));
    QCOMPARE(box().document()->toRawText().replace(QChar::ParagraphSeparator, u"\r\n"_s), written);
}

void TestDuplicate::whatTheUserTypedIsSaved()
{
    m_program->prompts.files = {m_program->path(u"report.txt"_s)};
    box().setFocus();
    QTest::keyClick(&box(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box(), u"See P&ID 4\r"_s);
    click(u"cmdSave"_s);
    QVERIFY2(content(u"report.txt"_s).contains(u"\r\nSee P&ID 4\r\nReport is ended at "_s),
             qPrintable(content(u"report.txt"_s)));
}

void TestDuplicate::aFileIsReplacedWithoutAQuestion()
{
    m_program->prompts.files = {m_program->file(u"report.txt"_s, QByteArray(9000, 'x'))};
    click(u"cmdSave"_s);
    QVERIFY(content(u"report.txt"_s).startsWith(u"Report is created at "_s));
    QVERIFY(!content(u"report.txt"_s).contains(u'x' + u"x"_s));
    QCOMPARE(m_program->prompts.takeTexts(), QStringList());
}

void TestDuplicate::aCancelledDialogKeepsTheWindow()
{
    const QString lines = box().toPlainText();
    click(u"cmdSave"_s);
    QVERIFY(m_window->isVisible());
    QCOMPARE(box().toPlainText(), lines);
    QCOMPARE(m_program->prompts.takeTexts(), QStringList());
}

void TestDuplicate::aFailureIsToldAndLeavesTheReport()
{
    m_program->prompts.files = {m_program->path(u"no/report.txt"_s),
                                m_program->path(u""_s),
                                m_program->path(u"report.txt"_s)};
    const QString lines = box().toPlainText();
    click(u"cmdSave"_s);
    click(u"cmdSave"_s);
    QCOMPARE(m_program->prompts.takeTexts(),
             (QStringList{u"Error while saving report.\r\nError : 76. Path not found"_s,
                          u"Error while saving report.\r\nError : 70. Permission denied"_s}));
    QVERIFY(m_window->isVisible());
    QCOMPARE(box().toPlainText(), lines);
    click(u"cmdSave"_s);
    QCOMPARE(content(u"report.txt"_s).count(u"Report is created at "_s), 1);
}

void TestDuplicate::cancelWritesNothing()
{
    click(u"cmdCancel"_s);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_program->prompts.fileRequests.size(), 0U);
}

QTEST_MAIN(TestDuplicate)
#include "tst_duplicate.moc"
