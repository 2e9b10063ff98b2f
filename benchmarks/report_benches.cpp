// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The index report of many tags as a PDF, beside the bare painting of the same lines of text on the
// same pages, and beside the spreadsheet application with the same rows.
#include "bench_data.h"
#include "measure.h"
#include "office_process.h"
#include "support/recorded_sheet.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/geometry.h"
#include "viewing/reports/layout.h"
#include "viewing/reports/measures.h"
#include "viewing/reports/pages.h"
#include "viewing/reports/pdf.h"
#include "viewing/reports/row_composer.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;

namespace ostrand::bench {
namespace {

constexpr int tags = 10'000;
constexpr int runs = 5;
constexpr double mostMegabytes = 100;
const QString reportBench = u"report-10k"_s;
const QString memoryBench = u"report-10k-memory"_s;
const QString officeBench = u"report-10k-soffice"_s;

std::shared_ptr<const Description> indexReport()
{
    auto report = std::make_shared<Description>(crxIndex().front());
    setLocation(*report, projectOf(tags));
    return report;
}

void makePdf(const QString& path)
{
    const auto report = indexReport();
    Pages pages(report, read(*report));
    writePdf(pages, path);
}

/// What the floor paints: on each page, each line of text with its place and its font.
struct BareLine
{
    QPointF baseline;
    int font;
    QString text;
};
struct BarePages
{
    QPageLayout layout;
    std::vector<QFont> fonts;
    std::vector<std::vector<BareLine>> pages;
};

int fontNumber(BarePages& bare, const QFont& wanted)
{
    QFont font(u"Liberation Sans"_s);
    font.setPointSizeF(static_cast<double>(wanted.pixelSize()) / unitsPerPoint);
    font.setBold(wanted.bold());
    const auto known = std::find(bare.fonts.begin(), bare.fonts.end(), font);
    if (known != bare.fonts.end())
        return static_cast<int>(known - bare.fonts.begin());
    bare.fonts.push_back(font);
    return static_cast<int>(bare.fonts.size()) - 1;
}

BarePages barePages()
{
    const auto report = indexReport();
    Layout layout(report, read(*report));
    while (!layout.complete())
        layout.step();
    BarePages bare;
    bare.layout = QPageLayout(QPageSize(QPageSize::A3), QPageLayout::Landscape, {});
    for (int page = 0; page < layout.count(); ++page) {
        tests::RecordedSheet sheet;
        layout.show(sheet, page);
        std::vector<BareLine> lines;
        for (const tests::RecordedSheet::Line& line : sheet.lines) {
            lines.push_back({line.corner + QPoint(0, line.face->baseline()),
                             fontNumber(bare, line.face->font()),
                             line.text});
        }
        bare.pages.push_back(std::move(lines));
    }
    return bare;
}

void paintBare(const BarePages& bare, const QString& path)
{
    QPdfWriter writer(path);
    writer.setPageLayout(bare.layout);
    writer.setResolution(72 * unitsPerPoint);
    QPainter painter(&writer);
    int font = -1;
    for (std::size_t page = 0; page < bare.pages.size(); ++page) {
        if (page > 0)
            writer.newPage();
        for (const BareLine& line : bare.pages[page]) {
            if (line.font != font)
                painter.setFont(bare.fonts[static_cast<std::size_t>(line.font)]);
            font = line.font;
            painter.drawText(line.baseline, line.text);
        }
    }
}

void timeBench(const QString& path)
{
    const BarePages bare = barePages();
    const auto ours = [&] { return millisecondsOf([&] { makePdf(path); }); };
    const auto floor = [&] { return millisecondsOf([&] { paintBare(bare, path); }); };
    report(reportBench, middleOf(runs, ours, floor), u"ms"_s);
}

double megabytes()
{
    projectOf(tags);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--report-memory"_s});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().trimmed().toDouble();
}

QString quoted(QString text)
{
    return u'"' + text.replace(u"\""_s, u"\"\""_s) + u'"';
}

/// The printed texts of all rows, a line each.
void writeRows(const QString& path)
{
    const auto report = indexReport();
    const ReportData data = read(*report);
    const Typefaces faces;
    const RowComposer composer(*report, data, faces, bodyWidth(report->paper));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("the rows cannot be written");
    for (const Row& row : data.rows) {
        QStringList texts;
        for (const Column& column : report->columns)
            texts << quoted(composer.text(column, row));
        file.write(texts.join(u',').toUtf8() + '\n');
    }
}

void convert(const QTemporaryDir& folder, const QString& format, const QString& name)
{
    convertInProcess(folder.filePath(u"profile"_s), format, folder.path(), folder.filePath(name));
}

/// Its profile is made, and its own file of the rows, before the time is taken.
void officeLine(const QTemporaryDir& folder)
{
    writeRows(folder.filePath(u"rows.csv"_s));
    convert(folder, u"xlsx"_s, u"rows.csv"_s);
    const double floor = millisecondsOf([&] { convert(folder, u"pdf"_s, u"rows.xlsx"_s); });
    const double ours = millisecondsOf([&] { makePdf(folder.filePath(u"ours.pdf"_s)); });
    report(officeBench, {ours, floor}, u"ms"_s);
}

} // namespace

int measureReportMemory()
{
    const QTemporaryDir folder;
    const double before = statusMegabytes("VmRSS:");
    makePdf(folder.filePath(u"report.pdf"_s));
    std::printf("%.2f\n", statusMegabytes("VmHWM:") - before);
    return 0;
}

/// The line of the memory has the most that is allowed as its floor.
void runReportBenches(const QString& only)
{
    const QTemporaryDir folder;
    if (asked(only, reportBench))
        timeBench(folder.filePath(u"report.pdf"_s));
    if (asked(only, reportBench) || asked(only, memoryBench))
        report(memoryBench, {megabytes(), mostMegabytes}, u"MB"_s);
    if (asked(only, reportBench) || asked(only, officeBench))
        officeLine(folder);
}

} // namespace ostrand::bench
