// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"

namespace ostrand::viewing::reports {

/// The forms of the report with this number, the one shown first in front; none for a number that
/// no report has. 1 controller and alarm summary, 2 instrument index, 3 maintenance, 4 installation
/// details.
std::vector<Description> reportForms(int number);

/// One description each, with its forms.
std::vector<Description> crxAlarmSummary();
std::vector<Description> crxIndex();
std::vector<Description> crxMaintenance();
std::vector<Description> crxInstallationDtls();

} // namespace ostrand::viewing::reports
