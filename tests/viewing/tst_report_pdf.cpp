// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Reports on paper and as a PDF.
#include "made_report.h"
#include "store/error.h"
#include "support/file_size_limit.h"
#include "support/without_root.h"
#include "viewing/reports/pages.h"
#include "viewing/reports/pdf.h"

#include <QDir>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::store::Error;
using ostrand::tests::MadeReport;

namespace {

QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s fails", qPrintable(program));
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The words of each page.
QList<QStringList> wordsOf(const QString& pdf)
{
    QList<QStringList> pages;
    const QString all = outputOf(u"pdftotext"_s, {pdf, u"-"_s});
    for (const QString& page : all.split(u'\f', Qt::SkipEmptyParts))
        pages << page.simplified().split(u' ');
    return pages;
}

/// The tag that the first row of each page has.
QStringList firstTags(const QString& pdf)
{
    QStringList tags;
    for (const QStringList& words : wordsOf(pdf))
        tags << words.filter(u"T-"_s).value(0);
    return tags;
}

int errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class ReportPdfTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void holdsEachTagOnce();
    void embedsItsFonts();
    void namesItselfAndItsPaper();
    void raisesAPathThatCannotBeWritten();
    void raisesAFullDiskAndKeepsTheOldFile();
    void endsWhenTold();
    void printsThePagesAskedFor_data();
    void printsThePagesAskedFor();
    void fitsPagesOntoOtherPaper();
    void raisesAPrinterThatIsNotThere();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MadeReport> m_made;
    std::unique_ptr<Pages> m_pages;
};

void ReportPdfTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_made = std::make_unique<MadeReport>();
    // Cards have a page each.
    m_made->report->card = Card{{{u"Tag"_s, [](const Row& row) { return row[u"Tag"_s]; }},
                                 {u"Service"_s, [](const Row& row) { return row[u"Service"_s]; }}},
                                {},
                                {},
                                {}};
    for (int i = 1; i <= 4; ++i)
        m_made->add(u"T-%1"_s.arg(i), u"final official flow office"_s);
    m_pages = std::make_unique<Pages>(m_made->report, m_made->data);
}

void ReportPdfTest::holdsEachTagOnce()
{
    MadeReport made;
    made.addRows(300);
    made.add(u"T-300"_s, u"final official flow office"_s);
    Pages pages(made.report, made.data);
    QVERIFY(writePdf(pages, path(u"r.pdf"_s)));
    const QList<QStringList> words = wordsOf(path(u"r.pdf"_s));
    QCOMPARE(words.size(), pages.count());
    QStringList all;
    for (const QStringList& page : words)
        all << page;
    for (int i = 0; i <= 300; ++i)
        QCOMPARE(all.count(u"T-%1"_s.arg(i)), i < 300 ? 1 + 1 + i % 4 : 1);
    for (const QString& word : {u"final"_s, u"official"_s, u"flow"_s, u"office"_s})
        QCOMPARE(all.count(word), 1);
}

void ReportPdfTest::embedsItsFonts()
{
    QVERIFY(writePdf(*m_pages, path(u"r.pdf"_s)));
    const QStringList lines =
        outputOf(u"pdffonts"_s, {path(u"r.pdf"_s)}).split(u'\n', Qt::SkipEmptyParts).sliced(2);
    QVERIFY(lines.size() >= 2);
    for (const QString& line : lines) {
        const QStringList cells = line.simplified().split(u' ');
        // Behind them come "sub", "uni" and the two numbers of the object.
        QCOMPARE(cells[cells.size() - 5], u"yes"_s);
        QCOMPARE(cells[cells.size() - 3], u"yes"_s);
    }
}

void ReportPdfTest::namesItselfAndItsPaper()
{
    QVERIFY(writePdf(*m_pages, path(u"r.pdf"_s)));
    const QString info = outputOf(u"pdfinfo"_s, {path(u"r.pdf"_s)}).simplified();
    QVERIFY2(info.contains(u"Title: Made List "), qPrintable(info));
    QVERIFY2(info.contains(u"Creator: Ostrand Instrument Datasheets "), qPrintable(info));
    QVERIFY2(info.contains(u"Page size: 842 x 595 pts"), qPrintable(info));
    QVERIFY2(info.contains(u"Pages: 5 "), qPrintable(info));
}

void ReportPdfTest::raisesAPathThatCannotBeWritten()
{
    const auto writeTo = [this](const QString& target) {
        return errorOf([&] { writePdf(*m_pages, target); });
    };
    QCOMPARE(writeTo(path(u"no/folder/r.pdf"_s)), 75);
    QCOMPARE(writeTo(m_folder->path()), 75);
    QCOMPARE(writeTo({}), 75);
    const QString locked = path(u"locked"_s);
    QVERIFY(QDir().mkdir(locked));
    QFile::setPermissions(locked,
                          QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
    {
        const ostrand::tests::WithoutRoot user;
        QCOMPARE(writeTo(locked + u"/r.pdf"_s), 75);
    }
    QVERIFY(QDir(locked).isEmpty());
    QCOMPARE(writeTo(path(u"r.pdf"_s)), 0);
}

void ReportPdfTest::raisesAFullDiskAndKeepsTheOldFile()
{
    const QString target = path(u"r.pdf"_s);
    QCOMPARE(errorOf([&] { writePdf(*m_pages, target); }), 0);
    const QByteArray before = contentOf(target);
    for (const int bytes : {10, 4000, int(before.size()) - 10}) {
        const ostrand::tests::FileSizeLimit limit(static_cast<rlim_t>(bytes));
        QCOMPARE(errorOf([&] { writePdf(*m_pages, target); }), 61);
    }
    QCOMPARE(contentOf(target), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"r.pdf"_s});
    QCOMPARE(errorOf([&] { writePdf(*m_pages, u"/dev/full"_s); }), 61);
    QVERIFY(!QFileInfo(u"/dev/full"_s).isFile());
}

void ReportPdfTest::endsWhenTold()
{
    QList<int> told;
    const auto step = [&](int page, int count) {
        told << page << count;
        return page < 2;
    };
    QVERIFY(!writePdf(*m_pages, path(u"r.pdf"_s), step));
    QCOMPARE(told, QList<int>({0, 5, 1, 5, 2, 5}));
    QVERIFY(QDir(m_folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void ReportPdfTest::printsThePagesAskedFor_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<int>("copies");
    QTest::addColumn<bool>("collated");
    QTest::addColumn<bool>("backwards");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("all") << u""_s << 1 << true << false
                         << QStringList{u"T-1"_s, u"T-2"_s, u"T-3"_s, u"T-4"_s, u""_s};
    QTest::newRow("ranges") << u"1,3-4"_s << 1 << true << false
                            << QStringList{u"T-1"_s, u"T-3"_s, u"T-4"_s};
    QTest::newRow("backwards") << u"1-2"_s << 1 << true << true << QStringList{u"T-2"_s, u"T-1"_s};
    QTest::newRow("copies") << u"1-2"_s << 2 << true << false
                            << QStringList{u"T-1"_s, u"T-2"_s, u"T-1"_s, u"T-2"_s};
    QTest::newRow("copies page by page")
        << u"1-2"_s << 2 << false << false << QStringList{u"T-1"_s, u"T-1"_s, u"T-2"_s, u"T-2"_s};
}

void ReportPdfTest::printsThePagesAskedFor()
{
    QFETCH(QString, ranges);
    QFETCH(int, copies);
    QFETCH(bool, collated);
    QFETCH(bool, backwards);
    QFETCH(QStringList, tags);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(path(u"p.pdf"_s));
    printer.setPageLayout(m_pages->pageLayout());
    if (!ranges.isEmpty()) {
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(ranges));
    }
    printer.setCopyCount(copies);
    printer.setCollateCopies(collated);
    printer.setPageOrder(backwards ? QPrinter::LastPageFirst : QPrinter::FirstPageFirst);
    QVERIFY(print(*m_pages, printer));
    QCOMPARE(firstTags(path(u"p.pdf"_s)), tags);
}

void ReportPdfTest::fitsPagesOntoOtherPaper()
{
    struct Case
    {
        QPageLayout layout;
        QRectF header; ///< where the frame of the header lies on the sheet
    };
    const auto titleOf = [this](const QPageLayout& layout) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(path(u"p.pdf"_s));
        printer.setPageLayout(layout);
        if (!print(*m_pages, printer))
            return QRectF();
        const QString boxes = outputOf(u"pdftotext"_s, {u"-bbox"_s, path(u"p.pdf"_s), u"-"_s});
        static const QRegularExpression word(
            u"xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" yMax=\"([0-9.]+)\">Made<"_s);
        const QRegularExpressionMatch match = word.match(boxes);
        return QRectF(QPointF(match.captured(1).toDouble(), match.captured(2).toDouble()),
                      QPointF(match.captured(3).toDouble(), match.captured(4).toDouble()));
    };
    const QMarginsF margins(20, 20, 20, 20);
    const QRectF own = titleOf({QPageSize(QPageSize::A4), QPageLayout::Landscape, {}});
    const QRectF margined = titleOf({QPageSize(QPageSize::A4), QPageLayout::Landscape, margins});
    QVERIFY(own.width() > 10);
    QVERIFY(qAbs(own.left() - margined.left()) < 1 && qAbs(own.top() - margined.top()) < 1);
    QVERIFY(qAbs(own.width() - margined.width()) < 0.5);
    const QRectF upright = titleOf({QPageSize(QPageSize::A4), QPageLayout::Portrait, margins});
    const double scale = (595.0 - 40) / 842;
    QVERIFY(qAbs(upright.width() - scale * own.width()) < 1);
    QVERIFY(qAbs(upright.left() - (20 + scale * own.left())) < 2);
    QVERIFY(qAbs(upright.top() - ((842 - scale * 595) / 2 + scale * own.top())) < 2);
}

void ReportPdfTest::raisesAPrinterThatIsNotThere()
{
    QPrinter none(QPrinter::HighResolution);
    none.setOutputFormat(QPrinter::NativeFormat);
    none.setPrinterName(u"No Such Printer"_s);
    QCOMPARE(errorOf([&] { print(*m_pages, none); }), 482);
    QPrinter nowhere(QPrinter::HighResolution);
    nowhere.setOutputFormat(QPrinter::PdfFormat);
    QCOMPARE(errorOf([&] { print(*m_pages, nowhere); }), 482);
    QPrinter locked(QPrinter::HighResolution);
    locked.setOutputFileName(path(u"no/folder/p.pdf"_s));
    QCOMPARE(errorOf([&] { print(*m_pages, locked); }), 482);
    QPrinter stopped(QPrinter::HighResolution);
    stopped.setOutputFileName(path(u"p.pdf"_s));
    QVERIFY(!print(*m_pages, stopped, [](int page, int) { return page < 1; }));
}

QTEST_MAIN(ReportPdfTest)
#include "tst_report_pdf.moc"
