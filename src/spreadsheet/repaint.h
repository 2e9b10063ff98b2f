// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/input_barrier.h"

#include <QCoreApplication>

namespace ostrand::spreadsheet {

/// Paints what waits to be painted in the middle of a long run, and lets the workbooks' windows
/// show; input is dropped.
inline void repaint()
{
    const InputBarrier barrier;
    QCoreApplication::processEvents();
}

} // namespace ostrand::spreadsheet
