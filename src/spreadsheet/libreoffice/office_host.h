// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host_module.h"
#include "spreadsheet/libreoffice/office.h"

namespace ostrand::spreadsheet::libreoffice {

/// LibreOffice Calc as the spreadsheet application: one instance for all links, started for the
/// first of them, and anew after it has ended.
class OfficeHost final : public Host
{
public:
    std::shared_ptr<Application> CreateObject(const HostSettings& settings) override;
    void end() override;
    qint64 process() const override;

private:
    std::shared_ptr<Office> m_office;
};

} // namespace ostrand::spreadsheet::libreoffice
