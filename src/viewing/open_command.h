// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace ostrand::viewing {

/// A program to start with a file. No shell takes part: each argument reaches the program as it
/// stands here.
struct OpenCommand
{
    QString program; ///< full path
    QStringList arguments;
    QString folder; ///< where the program starts; "" for the folder of this process
};

} // namespace ostrand::viewing
