// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "template_maker/form.h"

namespace ostrand::template_maker {

/// The names of the sheets of every template.
namespace sheet_name {
inline constexpr const char16_t* datasheet = u"DATASHEET";
inline constexpr const char16_t* notes = u"NOTES";
inline constexpr const char16_t* pidMap = u"P&ID Database Map";
} // namespace sheet_name

/// The form itself, with its numbered lines.
void drawDatasheet(spreadsheet::Worksheet& sheet, const Form& form);
/// The continuation sheet for notes, under the same title block.
void drawNotes(spreadsheet::Worksheet& sheet, const Form& form);
/// The table of cells that are filled from the P&ID database.
void drawPidMap(spreadsheet::Worksheet& sheet, const Form& form);

} // namespace ostrand::template_maker
