// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Taking a report out of the window: as a PDF and to a printer.
#include "support/file_size_limit.h"
#include "support/without_root.h"
#include "viewing/report_desk.h"

#include <QDir>
#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QProgressDialog>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ReportDesk;

namespace {

QString textOf(const QString& pdf, const QStringList& options = {})
{
    QProcess reader;
    reader.start(u"pdftotext"_s, QStringList(options) << u"-layout"_s << pdf << u"-"_s);
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput());
}

qsizetype pagesOf(const QString& pdf)
{
    return textOf(pdf).count(u'\f');
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestFrmRptViewerOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void theReportIsSavedAsAPdfWithAllItsPages();
    void theDialogOffersANameOfTheProjectAndTheReport();
    void theNameTellsTheFormOfAReportThatHasSeveral();
    void aNameWithADotGetsTheEndingBeforeTheQuestion();
    void anEndingInCapitalsStays();
    void savingCanBeCalledOffInTheDialog();
    void aFileThatExistsIsReplacedAfterAQuestion();
    void theProjectIsNotWrittenOver();
    void aPdfThatCannotBeWrittenIsTold_data();
    void aPdfThatCannotBeWrittenIsTold();
    void aFullDiskLeavesTheOldFile();
    void escCancelsTheSaving();
    void escCancelsTheLayOutOfTheRest();
    void saveWaitsForTheLastPage();

    void thePrinterGetsAllPages();
    void thePrinterGetsTheRangeAsked();
    void thePrinterGetsTheCurrentPage();
    void thePaperOfTheReportIsPreset();
    void printingCanBeCalledOffInTheDialog();
    void aPrinterThatIsNotThereIsTold();
    void aPrintFileThatCannotBeWrittenIsTold();
    void thePrintDialogKnowsThePages();

private:
    void showWhole(const std::function<void()>& steps)
    {
        m->showWhole(ReportDesk::alarmSummary, steps);
    }
    void save(const QString& path)
    {
        m->program.prompts.files = {path};
        m->key(Qt::Key_S, Qt::ControlModifier);
    }
    /// Prints by some choice in the dialog.
    void print(const std::function<bool(QPrinter&)>& choose)
    {
        m->viewer().output().setChoosePrinter(
            [choose](QPrinter& printer, int, QWidget*) { return choose(printer); });
        m->key(Qt::Key_P, Qt::ControlModifier);
    }
    void expectFailure(const QString& beginning);
    /// Presses Esc in the box of the next run as soon as it is up, and tells its text.
    void cancelNextRun(QString& text);

    std::unique_ptr<ReportDesk> m;
    QString m_pdf;
};

void TestFrmRptViewerOutput::init()
{
    m = std::make_unique<ReportDesk>();
    m->open(m->program.sampleProject(u"Plant.mdb"_s));
    m_pdf = m->program.path(u"out.pdf"_s);
}

void TestFrmRptViewerOutput::expectFailure(const QString& beginning)
{
    const auto boxes = m->program.prompts.boxes;
    const QStringList told = m->texts();
    QVERIFY2(told.size() == 1, qPrintable(told.join(u'|')));
    QVERIFY2(told[0].startsWith(beginning), qPrintable(told[0]));
    QVERIFY(boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(boxes[0].title, u"Ostrand Instrument Datasheets"_s);
    QVERIFY(m->window->isVisible());
    m->press("cmdNext");
    QCOMPARE(m->page(), m->pageOf(2));
}

void TestFrmRptViewerOutput::cancelNextRun(QString& text)
{
    m->viewer().output().setPatience(0);
    auto* look = new QTimer(m->window.get());
    connect(look, &QTimer::timeout, look, [look, &text] {
        auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        look->deleteLater();
        text = box->labelText();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    look->start(0);
}

// ---- PDF

void TestFrmRptViewerOutput::theReportIsSavedAsAPdfWithAllItsPages()
{
    showWhole([this] {
        save(m_pdf);
        QCOMPARE(pagesOf(m_pdf), m->pages());
        QVERIFY(textOf(m_pdf).contains(u"PIC-"_s));
        QCOMPARE(m->text("lblStatus"), u"Saved as "_s + QDir::toNativeSeparators(m_pdf));
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewerOutput::theDialogOffersANameOfTheProjectAndTheReport()
{
    showWhole([this] { m->press("cmdSavePdf"); });
    const toolkit::FileRequest request = m->program.prompts.fileRequests.at(0);
    QVERIFY(request.save);
    QCOMPARE(request.suffix, u"pdf"_s);
    QCOMPARE(QDir::fromNativeSeparators(request.fileName),
             m->program.path(u"Plant - Controller and Alarm Summary.pdf"_s));
}

void TestFrmRptViewerOutput::theNameTellsTheFormOfAReportThatHasSeveral()
{
    m->showWhole(ReportDesk::instrumentIndex, [this] {
        m->press("cmdSavePdf");
        m->control<QComboBox>("cmbForm")->setFocus();
        m->key(Qt::Key_Down);
        m->press("cmdSavePdf");
    });
    QStringList names;
    for (const toolkit::FileRequest& request : m->program.prompts.fileRequests)
        names << QFileInfo(QDir::fromNativeSeparators(request.fileName)).fileName();
    QCOMPARE(
        names,
        (QStringList{u"Plant - Instrument Index A3.pdf"_s, u"Plant - Instrument Index A4.pdf"_s}));
}

void TestFrmRptViewerOutput::aNameWithADotGetsTheEndingBeforeTheQuestion()
{
    const QString pdf = m->program.file(u"Index rev.2.pdf"_s, "old");
    showWhole([&] {
        m->program.prompts.answers = {toolkit::Answer::Yes};
        save(m->program.path(u"Index rev.2"_s));
        QCOMPARE(m->texts(),
                 QStringList{u"The file "_s + QDir::toNativeSeparators(pdf)
                             + u" exists already. Replace it?"_s});
        QCOMPARE(pagesOf(pdf), m->pages());
        QCOMPARE(m->text("lblStatus"), u"Saved as "_s + QDir::toNativeSeparators(pdf));
        QVERIFY(!QFile::exists(m->program.path(u"Index rev.2"_s)));
    });
}

void TestFrmRptViewerOutput::anEndingInCapitalsStays()
{
    showWhole([this] {
        save(m->program.path(u"INDEX.PDF"_s));
        QCOMPARE(pagesOf(m->program.path(u"INDEX.PDF"_s)), m->pages());
        QVERIFY(!QFile::exists(m->program.path(u"INDEX.PDF.pdf"_s)));
    });
}

void TestFrmRptViewerOutput::savingCanBeCalledOffInTheDialog()
{
    showWhole([this] {
        m->press("cmdSavePdf");
        QCOMPARE(m->text("lblStatus"), QString());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewerOutput::aFileThatExistsIsReplacedAfterAQuestion()
{
    m->program.file(u"out.pdf"_s, "old");
    showWhole([this] {
        m->program.prompts.answers = {toolkit::Answer::No};
        save(m_pdf);
        QCOMPARE(contentOf(m_pdf), QByteArray("old"));
        const QStringList question{u"The file "_s + QDir::toNativeSeparators(m_pdf)
                                   + u" exists already. Replace it?"_s};
        QCOMPARE(m->texts(), question);
        m->program.prompts.answers = {toolkit::Answer::Yes};
        save(m_pdf);
        QCOMPARE(m->texts(), question);
        QCOMPARE(pagesOf(m_pdf), m->pages());
    });
}

void TestFrmRptViewerOutput::theProjectIsNotWrittenOver()
{
    m->open(m->program.sampleProject(u"Plant.pdf"_s));
    showWhole([this] {
        m->program.prompts.answers = {toolkit::Answer::Yes};
        save(m->project);
        expectFailure(u"Error while saving report. \r\nError : 70. "_s);
        QCOMPARE(ProgramFixture::value(m->project, u"select count(*) from [index]"_s), u"418"_s);
    });
}

void TestFrmRptViewerOutput::aPdfThatCannotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no folder") << u"nowhere/out.pdf"_s;
    QTest::newRow("no rights") << u"closed/out.pdf"_s;
}

void TestFrmRptViewerOutput::aPdfThatCannotBeWrittenIsTold()
{
    QFETCH(const QString, name);
    const QString folder = m->program.path(u"closed"_s);
    QVERIFY(QDir().mkpath(folder));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    showWhole([&] {
        const tests::WithoutRoot noRights;
        save(m->program.path(name));
        expectFailure(u"Error while saving report. \r\nError : "_s);
        QVERIFY(!QFile::exists(m->program.path(name)));
    });
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestFrmRptViewerOutput::aFullDiskLeavesTheOldFile()
{
    m->program.file(u"out.pdf"_s, "old");
    showWhole([this] {
        m->program.prompts.answers = {toolkit::Answer::Yes};
        {
            const tests::FileSizeLimit full(4096);
            save(m_pdf);
        }
        QCOMPARE(m->program.prompts.boxes.size(), 2U);
        m->program.prompts.boxes.erase(m->program.prompts.boxes.begin());
        expectFailure(u"Error while saving report. \r\nError : "_s);
        QCOMPARE(contentOf(m_pdf), QByteArray("old"));
        const QDir folder(m->program.path(u"."_s));
        QCOMPARE(folder.entryList({u"out*"_s}, QDir::Files), QStringList{u"out.pdf"_s});
    });
}

void TestFrmRptViewerOutput::escCancelsTheSaving()
{
    m->program.file(u"out.pdf"_s, "old");
    showWhole([this] {
        QString box;
        cancelNextRun(box);
        m->program.prompts.answers = {toolkit::Answer::Yes};
        save(m_pdf);
        QVERIFY2(box.startsWith(u"Writing page "_s), qPrintable(box));
        QVERIFY(box.endsWith(u" of "_s + QString::number(m->pages())));
        QCOMPARE(m->text("lblStatus"), u"Saving was cancelled."_s);
        QCOMPARE(contentOf(m_pdf), QByteArray("old"));
        QVERIFY(m->window->isVisible());
    });
}

void TestFrmRptViewerOutput::escCancelsTheLayOutOfTheRest()
{
    m->showSlow([this] {
        QString box;
        cancelNextRun(box);
        save(m_pdf);
        QVERIFY2(box.startsWith(u"Laying out page "_s), qPrintable(box));
        QVERIFY(m->program.prompts.fileRequests.empty());
        QVERIFY(!QFile::exists(m_pdf));
        QVERIFY(m->window->isVisible());
        m->isSlow = false;
        QTRY_VERIFY_WITH_TIMEOUT(m->viewer().flow().complete(), 60000);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewerOutput::saveWaitsForTheLastPage()
{
    m->showSlow([this] {
        m->viewer().output().setPatience(0);
        save(m_pdf);
        QVERIFY(m->viewer().flow().complete());
        QCOMPARE(pagesOf(m_pdf), m->pages());
    });
    QCOMPARE(m->texts(), QStringList());
}

// ---- printer

void TestFrmRptViewerOutput::thePrinterGetsAllPages()
{
    showWhole([this] {
        print([this](QPrinter& printer) {
            printer.setOutputFileName(m_pdf);
            return true;
        });
        QCOMPARE(pagesOf(m_pdf), m->pages());
        QCOMPARE(m->text("lblStatus"), u"Sent to the printer."_s);
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewerOutput::thePrinterGetsTheRangeAsked()
{
    showWhole([this] {
        print([this](QPrinter& printer) {
            printer.setOutputFileName(m_pdf);
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(2, 3);
            return true;
        });
        QCOMPARE(pagesOf(m_pdf), 2);
        const QString all = QString::number(m->pages());
        QVERIFY(textOf(m_pdf, {u"-l"_s, u"1"_s}).contains(u"2 of "_s + all));
    });
}

void TestFrmRptViewerOutput::thePrinterGetsTheCurrentPage()
{
    showWhole([this] {
        m->press("cmdNext");
        m->press("cmdNext");
        print([this](QPrinter& printer) {
            printer.setOutputFileName(m_pdf);
            printer.setPrintRange(QPrinter::CurrentPage);
            return true;
        });
        QCOMPARE(pagesOf(m_pdf), 1);
        QVERIFY(textOf(m_pdf).contains(u"3 of "_s + QString::number(m->pages())));
    });
}

void TestFrmRptViewerOutput::thePaperOfTheReportIsPreset()
{
    for (const auto& [number, paper] :
         {std::pair{int(ReportDesk::alarmSummary), QPageSize::A4},
          std::pair{int(ReportDesk::instrumentIndex), QPageSize::A3}}) {
        m->showWhole(number, [this, paper = paper] {
            print([&](QPrinter& printer) {
                [&] {
                    QCOMPARE(printer.pageLayout().pageSize().id(), paper);
                    QVERIFY(printer.pageLayout().orientation() == QPageLayout::Landscape);
                }();
                return false;
            });
        });
    }
}

void TestFrmRptViewerOutput::printingCanBeCalledOffInTheDialog()
{
    showWhole([this] {
        print([](QPrinter&) { return false; });
        QCOMPARE(m->text("lblStatus"), QString());
    });
    QCOMPARE(m->texts(), QStringList());
}

void TestFrmRptViewerOutput::aPrinterThatIsNotThereIsTold()
{
    showWhole([this] {
        print([](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::NativeFormat);
            printer.setPrinterName(u"no such printer"_s);
            return true;
        });
        expectFailure(u"Error while printing report. \r\nError : 482. "_s);
    });
}

void TestFrmRptViewerOutput::aPrintFileThatCannotBeWrittenIsTold()
{
    showWhole([this] {
        print([this](QPrinter& printer) {
            printer.setOutputFileName(m->program.path(u"nowhere/out.pdf"_s));
            return true;
        });
        expectFailure(u"Error while printing report. \r\nError : 482. "_s);
    });
}

void TestFrmRptViewerOutput::thePrintDialogKnowsThePages()
{
    showWhole([this] {
        bool seen = false;
        QTimer look;
        connect(&look, &QTimer::timeout, &look, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            look.stop();
            seen = true;
            QCOMPARE(dialog->minPage(), 1);
            QCOMPARE(dialog->maxPage(), m->pages());
            QVERIFY(dialog->parentWidget() == m->window.get());
            dialog->reject();
        });
        look.start(0);
        m->press("cmdPrint");
        QVERIFY(seen);
    });
    QCOMPARE(m->texts(), QStringList());
}

QTEST_MAIN(TestFrmRptViewerOutput)
#include "tst_frm_rpt_viewer_output.moc"
