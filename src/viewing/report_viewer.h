// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "viewing/report_output.h"
#include "viewing/reports/description.h"

#include <QWidget>

#include <memory>
#include <vector>

class QLabel;
class QProgressBar;

namespace ostrand::viewing {

class PageFlow;
class ReportPreview;
class ReportSearch;
class ReportToolBar;
class SearchBar;
struct Hit;

/// A report with all its forms, of which the viewer shows one.
using Report = std::vector<reports::Description>;

/// Shows the pages of a report, and lets the user page, zoom, search, print and save them.
class ReportViewer final : public QWidget
{
    Q_OBJECT

public:
    explicit ReportViewer(QWidget* parent = nullptr);
    ~ReportViewer() override;

    /// The report to be shown, which reads the project at its location.
    void setReportSource(std::shared_ptr<const Report> report);
    /// Reads the report's first form and shows it. The first page is there when this returns, the
    /// others follow. Raises what reading raises.
    void ViewReport();
    /// Shows no report any more.
    void clear();

    PageFlow& flow() const { return *m_flow; }
    ReportOutput& output() { return m_output; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    void connectParts();
    void addShortcuts();
    void readForm(std::size_t form);
    void chooseForm(int form);
    void goToPage(int page);
    void goToLastPage();
    bool finishPages();
    void showPages();
    void showPageNumber();
    void showZoom();
    void print();
    void savePdf();
    void showHit(const Hit& hit);
    void layoutFailed(const store::Error& error);
    void say(const QString& text);

    std::shared_ptr<const Report> m_report;
    std::size_t m_form = 0;
    PageFlow* m_flow;
    ReportSearch* m_search;
    ReportToolBar* m_toolBar;
    ReportPreview* m_preview;
    SearchBar* m_searchBar;
    QLabel* m_lblStatus;
    QProgressBar* m_progress;
    ReportOutput m_output;
};

} // namespace ostrand::viewing
