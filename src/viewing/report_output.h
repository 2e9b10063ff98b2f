// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

class QPrinter;
class QWidget;

namespace ostrand::viewing {

class PageFlow;

/// Has the user choose a printer, its paper and the pages, which are counted from 1. False when
/// cancelled.
using ChoosePrinter = std::function<bool(QPrinter& printer, int pages, QWidget* owner)>;
bool choosePrinter(QPrinter& printer, int pages, QWidget* owner);

/// Prints a report and saves it as a PDF, after its last page is laid out. All of it can be
/// cancelled while it runs. Failures are told.
class ReportOutput
{
    Q_DECLARE_TR_FUNCTIONS(ReportOutput)

public:
    ReportOutput(PageFlow& flow, QWidget* owner);

    /// A run that lasts longer than this, in milliseconds, shows how far it is.
    void setPatience(int patience) { m_patience = patience; }
    void setChoosePrinter(ChoosePrinter choose) { m_choosePrinter = std::move(choose); }

    /// Waits for the last page. False when the user cancels.
    bool finishPages();
    /// These two tell in words what came of it; "" where nothing did. The name and the title are
    /// those of the report, the project is the path of its file, and the page the one in sight,
    /// from 0.
    QString savePdf(const QString& reportName, const QString& project);
    QString print(const QString& title, int currentPage);

private:
    QString writePdf(const QString& path, const QString& project);
    QString sendToPrinter(const QString& title, int currentPage);

    PageFlow& m_flow;
    QWidget* m_owner;
    ChoosePrinter m_choosePrinter = choosePrinter;
    int m_patience = 400;
};

} // namespace ostrand::viewing
