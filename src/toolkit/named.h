// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::toolkit {

/// Gives a control its object name, and gives it back, for the initialization of members.
template <typename Control>
Control* named(Control* control, const QString& name)
{
    control->setObjectName(name);
    return control;
}

} // namespace ostrand::toolkit
