// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

struct sqlite3;

/// The order of texts, frozen for all time: indexes in project files are built on it.
///
/// It is the "General" order of the engine that older projects were made with, for U+0001..U+00FF:
/// case does not count, accents do, blanks at the end do not, hyphen and apostrophe count last of
/// all. Beyond Latin-1 characters order by their folded code point; the folding table is ours and
/// frozen too, so that a newer library never spoils a stored index.
namespace ostrand::store {

/// Negative, 0 or positive, as a sorts before, with or after b.
int compareText(QStringView a, QStringView b);
inline bool sameText(QStringView a, QStringView b)
{
    return compareText(a, b) == 0;
}

/// Registers the collation JET on a connection.
void registerCollation(sqlite3* connection);

} // namespace ostrand::store
