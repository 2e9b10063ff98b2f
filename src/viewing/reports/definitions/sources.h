// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"

/// What the reports of a project read in common.
namespace ostrand::viewing::reports {

/// The field that names a tag's row.
inline const QString tagField = QStringLiteral("PlantItemNo");

/// The rows of `index` with the fields that every report reads, and `more`.
Source tags(const QStringList& more);

/// The page blocks.
Subreport header();
Subreport revisions();

/// The documents of one or several kinds, tied to their tags and named after the first kind. A
/// document is of a kind by its own type or by its role for the tag. What is marked as no document
/// is left out.
Subreport documents(const QStringList& kinds);

/// The documents of every kind, with their titles.
Subreport allDocuments();

} // namespace ostrand::viewing::reports
