// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/value.h"

#include <QString>

namespace ostrand::pid {

/// What is read of one instrument of the P&ID database.
struct Instrument
{
    store::Value function;
    store::Value tag;
    QString idCount;
    QString service;
};

} // namespace ostrand::pid
