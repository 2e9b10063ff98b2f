// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/report_output.h"

#include "datasheets/failure.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "viewing/page_flow.h"
#include "viewing/progress_box.h"
#include "viewing/reports/pdf.h"

#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using ostrand::datasheets::currentFailure;

namespace ostrand::viewing {
namespace {

const QString pdfSuffix = u".pdf"_s;

/// The report's own name behind that of the project, in the project's folder.
QString presetName(const QString& reportName, const QString& project)
{
    static const QRegularExpression notInNames(u"[\\\\/:*?\"<>|]+"_s);
    const QFileInfo file(toolkit::filePath(project));
    const QString name = file.completeBaseName() + u" - "_s + reportName;
    return toolkit::joinPath(file.absolutePath(),
                             QString(name).replace(notInNames, u" "_s) + pdfSuffix);
}

/// A dot in the name that was typed does not make its rest an ending.
QString withSuffix(const QString& path)
{
    return path.endsWith(pdfSuffix, Qt::CaseInsensitive) ? path : path + pdfSuffix;
}

bool isSameFile(const QString& path, const QString& other)
{
    return QFileInfo(path) == QFileInfo(toolkit::filePath(other));
}

} // namespace

bool choosePrinter(QPrinter& printer, int pages, QWidget* owner)
{
    QPrintDialog dialog(&printer, owner);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    dialog.setPrintRange(QAbstractPrintDialog::AllPages);
    return dialog.exec() == QDialog::Accepted;
}

ReportOutput::ReportOutput(PageFlow& flow, QWidget* owner)
    : m_flow(flow),
      m_owner(owner)
{
}

bool ReportOutput::finishPages()
{
    ProgressBox progress(m_owner->window(), m_patience);
    return m_flow.finish([&](int count) {
        return progress.step(tr("Laying out page %1").arg(count + 1), count, 0);
    });
}

// ---- PDF

QString ReportOutput::savePdf(const QString& reportName, const QString& project)
{
    try {
        if (!finishPages())
            return {};
        const auto path =
            toolkit::promptHost().fileDialog({.title = tr("Save as PDF"),
                                              .filter = tr("PDF documents (*.pdf)|*.pdf"),
                                              .fileName = presetName(reportName, project),
                                              .save = true,
                                              .suffix = u"pdf"_s});
        if (!path || path->isEmpty())
            return {};
        return writePdf(withSuffix(*path), project);
    } catch (...) {
        toolkit::showFailure(toolkit::formB(tr("Error while saving report. "), currentFailure()));
        return {};
    }
}

QString ReportOutput::writePdf(const QString& path, const QString& project)
{
    const QString name = QDir::toNativeSeparators(path);
    if (isSameFile(path, project))
        throw store::Error(toolkit::fileErrors::permissionDenied,
                           tr("This is the file of the open project."));
    if (toolkit::fileExists(path)
        && !toolkit::askYesNo(tr("The file %1 exists already. Replace it?").arg(name)))
        return {};
    ProgressBox progress(m_owner->window(), m_patience);
    const bool isWritten = reports::writePdf(*m_flow.pages(), path, [&](int page, int count) {
        return progress.step(tr("Writing page %1 of %2").arg(page + 1).arg(count), page, count);
    });
    return isWritten ? tr("Saved as %1").arg(name) : tr("Saving was cancelled.");
}

// ---- printer

QString ReportOutput::print(const QString& title, int currentPage)
{
    try {
        if (!finishPages())
            return {};
        return sendToPrinter(title, currentPage);
    } catch (...) {
        toolkit::showFailure(toolkit::formB(tr("Error while printing report. "), currentFailure()));
        return {};
    }
}

QString ReportOutput::sendToPrinter(const QString& title, int currentPage)
{
    reports::Pages& pages = *m_flow.pages();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageLayout(pages.pageLayout());
    if (!m_choosePrinter(printer, pages.count(), m_owner->window()))
        return {};
    if (printer.printRange() == QPrinter::CurrentPage) {
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(currentPage + 1, currentPage + 1);
    }
    ProgressBox progress(m_owner->window(), m_patience);
    const bool isPrinted = reports::print(pages, printer, [&](int page, int count) {
        return progress.step(tr("Printing page %1 of %2").arg(page + 1).arg(count), page, count);
    });
    return isPrinted ? tr("Sent to the printer.") : tr("Printing was cancelled.");
}

} // namespace ostrand::viewing
