// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/lo_workbook.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>

namespace ostrand::spreadsheet::libreoffice {

class LoWorksheet final : public Worksheet
{
public:
    LoWorksheet(std::shared_ptr<LoWorkbook> workbook,
                const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet);
    ~LoWorksheet() override;
    LoWorksheet(const LoWorksheet&) = delete;
    LoWorksheet& operator=(const LoWorksheet&) = delete;

    QString Name() const override;
    std::unique_ptr<ostrand::spreadsheet::Range> Range(const QString& reference) override;
    CellValues Values(const QString& block) override;
    void write(const std::vector<CellWrite>& cells) override;
    std::unique_ptr<Control> OLEObjects(const QString& name) override;
    void Activate() override;
    void Protect() override;
    void Unprotect() override;
    std::vector<std::unique_ptr<Shape>> Shapes() override;
    std::unique_ptr<Shape> InsertPicture(const QString& file) override;
    SheetDesign& design() override;
    void subscribe(std::function<void()> Change) override;

    LoWorkbook& workbook() const { return *m_workbook; }
    const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet() const
    {
        return m_sheet;
    }
    ObjectKeeper& keeper() const { return *m_workbook->office().keeper(); }
    /// Tells the subscriber.
    void raiseChange() const;
    /// The sheet's name as it was when it was last asked for.
    const QString& cachedName() const { return m_name; }
    void refreshName() { m_name = Name(); }

private:
    std::shared_ptr<LoWorkbook> m_workbook;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet> m_sheet;
    QString m_name;
    std::unique_ptr<SheetDesign> m_design;
    std::function<void()> m_change;
};

} // namespace ostrand::spreadsheet::libreoffice
