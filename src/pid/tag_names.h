// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The names by which a tag of the index is found elsewhere.
namespace ostrand::pid {

/// The pair of values that an instrument of the P&ID database is found by.
struct InstrumentKey
{
    QString function; ///< `FUNCTION_`
    QString tag;      ///< `TAG_`
};

/// The tag's file in the datasheet folder: slashes become hyphens or, in a tag without any,
/// backslashes do.
QString runFileName(const QString& tag);

/// The tag up to its first point.
QString lookupName(const QString& tag);

/// The lookup name at its first hyphen: what follows is the tag part, further hyphens included.
/// Raises 9 where there is none.
InstrumentKey importKey(const QString& lookup);

/// The same, and the tag part ends at the second hyphen.
InstrumentKey exportKey(const QString& lookup);

/// The piece of a text between its hyphens, counted from 0. Raises 9 where there is none.
QString hyphenPiece(const QString& text, int index);

} // namespace ostrand::pid
