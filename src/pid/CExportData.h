// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>

namespace ostrand::pid {

class DatasheetRefresh;

/// Fills one datasheet's workbook from the project as an open session does, but without a session:
/// the tag is found in the main window's index by itself, and the documents are those of the file's
/// name. Every pass shows its own failure.
class CExportData
{
    Q_DECLARE_TR_FUNCTIONS(CExportData)

public:
    CExportData(std::shared_ptr<spreadsheet::Workbook> workbook,
                QString DatasheetToProcess,
                QString tag,
                DatasheetRefresh& refresh);

    void PopulateXlDatasheet();
    void PopulateXlDatasheetDocument();
    void PopulateXlDatasheetIndex();
    void PopulateXlDatasheetProjInfo();
    /// The workbook's datasheet type; "" after a failure, which is told.
    QString xlsDatasheetType();

private:
    void pass(const QString& failure, const std::function<void()>& steps);

    std::shared_ptr<spreadsheet::Workbook> m_wrkBook;
    QString m_fileName;
    QString m_tag;
    DatasheetRefresh& m_refresh;
};

} // namespace ostrand::pid
