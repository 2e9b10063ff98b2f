// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/lo_worksheet.h"

namespace ostrand::spreadsheet::libreoffice {

/// The drawings of a sheet, from the back to the front.
std::vector<std::unique_ptr<Shape>> shapesOf(LoWorksheet& sheet);

/// Puts a picture at the selected cell, in its own size. Raises 1004 when the file can't be read.
std::unique_ptr<Shape> insertPicture(LoWorksheet& sheet, const QString& file);

} // namespace ostrand::spreadsheet::libreoffice
