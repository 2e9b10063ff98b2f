// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace ostrand::pid {

/// Date and time of now in the system's short forms, and a full stop.
inline QString shortStamp()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale system = QLocale::system();
    return system.toString(now.date(), QLocale::ShortFormat) + QChar(u' ')
           + system.toString(now.time(), QLocale::ShortFormat) + QChar(u'.');
}

} // namespace ostrand::pid
