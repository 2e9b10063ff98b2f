// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host.h"
#include "spreadsheet/sheet_design.h"

#include <QTemporaryDir>

namespace ostrand::tests {

/// The real application, without windows, and a scratch folder. The application stays for the next
/// fixture; `endHost` ends it.
class OfficeFixture
{
public:
    OfficeFixture()
    {
        spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR), .headless = true});
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// A saved workbook with these texts in A1, A2 ...; gives its path.
    QString workbook(const QString& name, const QStringList& texts = {}) const
    {
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        for (int i = 0; i < texts.size(); ++i)
            workbook->Worksheets(1)->Range(QStringLiteral("A%1").arg(i + 1))->setValue(texts[i]);
        workbook->SaveAs(path(name), spreadsheet::FileFormat::Workbook);
        workbook->Close(spreadsheet::SaveChanges::No);
        return path(name);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace ostrand::tests
