// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/report_viewer.h"

#include <QDialog>

#include <memory>

namespace ostrand::viewing {

/// Shows the reports of the open project.
class frmRptViewer final : public QDialog
{
    Q_OBJECT

public:
    explicit frmRptViewer(QWidget* parent = nullptr);

    /// Makes the report with this number, 1 controller and alarm summary, 2 index, 3 maintenance,
    /// 4 installation details, and shows the window modally. Any other number makes none.
    void ShowInfo(int number);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void load();
    void restoreKeptGeometry();

    std::shared_ptr<Report> m_report;
    ReportViewer* m_CRViewer1;
};

} // namespace ostrand::viewing
