// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/repaint.h"

namespace ostrand::pid {

using spreadsheet::repaint;

} // namespace ostrand::pid
