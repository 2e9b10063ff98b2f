// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/patience.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace ostrand::spreadsheet::libreoffice {

bool waitPatiently(const std::function<bool()>& condition, int timeout)
{
    constexpr int interval = 5;
    const QDeadlineTimer deadline(timeout);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (condition() || deadline.hasExpired())
            loop.quit();
    });
    timer.start(interval);
    if (!condition())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return condition();
}

} // namespace ostrand::spreadsheet::libreoffice
