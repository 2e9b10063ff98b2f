// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/description.h"

namespace ostrand::viewing::reports {

void setLocation(Description& report, const QString& path)
{
    report.source.location = path;
    for (Section& section : report.sections) {
        for (Subreport& subreport : section.subreports)
            subreport.source.location = path;
    }
}

} // namespace ostrand::viewing::reports
