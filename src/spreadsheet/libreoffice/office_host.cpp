// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/office_host.h"

#include "spreadsheet/libreoffice/lo_application.h"

#include <utility>

namespace ostrand::spreadsheet::libreoffice {

std::shared_ptr<Application> OfficeHost::CreateObject(const HostSettings& settings)
{
    if (m_office && !m_office->isAlive())
        m_office.reset();
    if (!m_office)
        m_office = Office::start(settings);
    return std::make_shared<LoApplication>(m_office);
}

void OfficeHost::end()
{
    // Workbooks that are still open keep the object, and must not keep the application.
    if (const std::shared_ptr<Office> office = std::exchange(m_office, {}))
        office->end();
}

qint64 OfficeHost::process() const
{
    return m_office && m_office->isAlive() ? m_office->process() : 0;
}

} // namespace ostrand::spreadsheet::libreoffice

/// The module's one door; see host_module.h.
extern "C" Q_DECL_EXPORT ostrand::spreadsheet::Host* ostrandSpreadsheetHost()
{
    static ostrand::spreadsheet::libreoffice::OfficeHost host;
    return &host;
}
