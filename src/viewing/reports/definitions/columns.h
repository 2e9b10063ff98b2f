// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"

/// Columns that several reports have; all widths are millimetres.
namespace ostrand::viewing::reports {

/// The words that the reports print for a field of `index`.
QString captionOf(const QString& field);

Column tagColumn(double width);
Column fieldColumn(const QString& field, double width);
/// The numbers of the documents of a kind, one a line; the kind's documents are a subreport.
Column documentColumn(const QString& kind, const QString& caption, double width);
/// The same for lines under a row.
Column documentLine();

/// Remarks that are short, and where the others are to be found: in lines of their own over the
/// whole width, which a narrow column would make very high.
Column remarksColumn(double width);
Under longRemarks();

/// A field's text on a card.
Card::Item fieldItem(const QString& field);

} // namespace ostrand::viewing::reports
