// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/frmHelp.h"

#include <QApplication>

namespace ostrand::tests {

/// The help windows in sight.
inline QList<app::frmHelp*> helpWindows()
{
    QList<app::frmHelp*> open;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* help = qobject_cast<app::frmHelp*>(widget); help && help->isVisible())
            open << help;
    }
    return open;
}

} // namespace ostrand::tests
