// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "viewing/reports/pages.h"
#include "viewing/reports/pdf.h"

#include <QCoreApplication>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int printerError = 482;
constexpr double pointsPerInch = 72;

[[noreturn]] void raisePrinterError(const QPrinter& printer)
{
    const QString name = printer.printerName();
    throw store::Error(
        printerError,
        name.isEmpty()
            ? QCoreApplication::translate("Reports", "Printer error: no printer is set up.")
            : QCoreApplication::translate("Reports", "Printer error: \"%1\" does not print.")
                  .arg(name));
}

/// The pages asked for, in the order in which they leave the printer.
std::vector<int> pagesOf(const QPrinter& printer, int count)
{
    std::vector<int> pages;
    QPageRanges ranges = printer.pageRanges();
    if (ranges.isEmpty() && printer.fromPage() > 0)
        ranges.addRange(printer.fromPage(), std::max(printer.fromPage(), printer.toPage()));
    const bool all = printer.printRange() == QPrinter::AllPages || ranges.isEmpty();
    for (int page = 0; page < count; ++page) {
        if (all || ranges.contains(page + 1))
            pages.push_back(page);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(pages.begin(), pages.end());
    return pages;
}

/// The same with the copies that the printer does not make by itself.
std::vector<int> withCopies(const std::vector<int>& pages, const QPrinter& printer)
{
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
    std::vector<int> all;
    if (printer.collateCopies()) {
        for (int copy = 0; copy < copies; ++copy)
            all.insert(all.end(), pages.begin(), pages.end());
    } else {
        for (const int page : pages)
            all.insert(all.end(), static_cast<std::size_t>(copies), page);
    }
    return all;
}

/// Puts a page onto the sheet: as it is on paper of its own size, else scaled into the part that
/// the printer reaches, in the middle of it.
void place(QPainter& painter, const QPrinter& printer, QSizeF page)
{
    const double dots = printer.resolution() / pointsPerInch;
    const QPageLayout layout = printer.pageLayout();
    const QRectF paper = layout.fullRect(QPageLayout::Point);
    const QRectF reached = layout.paintRect(QPageLayout::Point);
    // Painting begins at the corner of the part that is reached.
    painter.scale(dots, dots);
    constexpr double tolerance = 3; // points between names of one size
    if (std::abs(paper.width() - page.width()) < tolerance
        && std::abs(paper.height() - page.height()) < tolerance) {
        if (layout.mode() == QPageLayout::StandardMode)
            painter.translate(-reached.topLeft());
        return;
    }
    if (layout.mode() == QPageLayout::FullPageMode)
        painter.translate(layout.margins(QPageLayout::Point).left(),
                          layout.margins(QPageLayout::Point).top());
    const double scale = std::min(reached.width() / page.width(), reached.height() / page.height());
    painter.translate((reached.width() - scale * page.width()) / 2,
                      (reached.height() - scale * page.height()) / 2);
    painter.scale(scale, scale);
}

bool isGone(const QPrinter& printer)
{
    return printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted;
}

} // namespace

bool print(Pages& pages, QPrinter& printer, const PageStep& step)
{
    pages.layOutAll();
    const bool toNowhere =
        printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty();
    if (toNowhere || !printer.isValid())
        raisePrinterError(printer);
    if (printer.docName().isEmpty())
        printer.setDocName(pages.title());
    QPainter painter;
    if (!painter.begin(&printer))
        raisePrinterError(printer);
    const std::vector<int> order = withCopies(pagesOf(printer, pages.count()), printer);
    const int count = static_cast<int>(order.size());
    for (int i = 0; i < count; ++i) {
        const int page = order[static_cast<std::size_t>(i)];
        if (step && !step(i, count)) {
            printer.abort();
            return false;
        }
        if (i > 0 && !printer.newPage())
            raisePrinterError(printer);
        painter.save();
        place(painter, printer, pages.size());
        pages.draw(painter, page);
        painter.restore();
        if (isGone(printer))
            raisePrinterError(printer);
    }
    if (!painter.end() || isGone(printer))
        raisePrinterError(printer);
    return true;
}

} // namespace ostrand::viewing::reports
