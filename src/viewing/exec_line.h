// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace ostrand::viewing {

/// What the field codes of a desktop entry's Exec line stand for.
struct ExecFields
{
    QString file; ///< full path
    QString name = {};
    QString icon = {};  ///< "" for none
    QString entry = {}; ///< path of the desktop entry
};

/// The program and its arguments, as a desktop entry's Exec line gives them for one file. The file
/// comes last where the line has no place for it. Nothing for a line that is not well-formed.
std::optional<QStringList> execWords(const QString& line, const ExecFields& fields);

} // namespace ostrand::viewing
