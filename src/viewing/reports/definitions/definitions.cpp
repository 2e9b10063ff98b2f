// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/definitions.h"

namespace ostrand::viewing::reports {

std::vector<Description> reportForms(int number)
{
    switch (number) {
    case 1:
        return crxAlarmSummary();
    case 2:
        return crxIndex();
    case 3:
        return crxMaintenance();
    case 4:
        return crxInstallationDtls();
    default:
        return {};
    }
}

} // namespace ostrand::viewing::reports
