// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"

#include <QDateTime>
#include <QString>

namespace ostrand::datasheets {

/// Looks at the file of a logo before it goes into many workbooks. The spreadsheet application
/// takes half a picture for a whole one, and may not survive one that is far too large.
class LogoPicture
{
public:
    /// Raises 1004 where the file is missing, holds half a picture, or one that is too large. What
    /// this program can't read at all is left to the spreadsheet application. A file that has not
    /// changed since the last time is not read again.
    void require(const QString& file);

private:
    QString m_file;
    QDateTime m_changed;
    qint64 m_size = -1;
};

/// How much smaller a picture has to be so that it fits into the room; 1 for one that fits.
double scaleToFit(const spreadsheet::Extent& picture, const spreadsheet::Extent& room);

} // namespace ostrand::datasheets
