// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QPrinter;

namespace ostrand::viewing::reports {

class Pages;

/// Told before each page with its number from 0; false ends the writing.
using PageStep = std::function<bool(int page, int count)>;

/// Writes all pages as a PDF with embedded fonts. The file appears whole or not at all: what stood
/// at the path stays when writing fails. Raises 75 (path cannot be written), 61 (disk full).
/// False when `step` ended it, and nothing is left then.
bool writePdf(Pages& pages, const QString& path, const PageStep& step = {});

/// Sends the pages that the printer asks for. Raises 482 (printer error).
/// False when `step` ended it.
bool print(Pages& pages, QPrinter& printer, const PageStep& step = {});

} // namespace ostrand::viewing::reports
