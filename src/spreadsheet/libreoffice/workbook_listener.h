// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/lo_workbook.h"

#include <rtl/ref.hxx>

namespace ostrand::spreadsheet::libreoffice {

/// Hears what the user does in a workbook's cells, and brings it to the program.
class WorkbookListener
{
public:
    explicit WorkbookListener(LoWorkbook& workbook);
    ~WorkbookListener();
    WorkbookListener(const WorkbookListener&) = delete;
    WorkbookListener& operator=(const WorkbookListener&) = delete;

private:
    class Ears;
    rtl::Reference<Ears> m_ears;
};

} // namespace ostrand::spreadsheet::libreoffice
