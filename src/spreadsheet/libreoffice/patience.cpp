// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/patience.h"

#include "spreadsheet/input_barrier.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace ostrand::spreadsheet::libreoffice {
bool waitPatiently(const std::function<bool()>& condition, int timeout)
{
    constexpr int interval = 5;
    if (condition())
        return true;
    const QDeadlineTimer deadline(timeout);
    const InputBarrier barrier;
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (condition() || deadline.hasExpired())
            loop.quit();
    });
    timer.start(interval);
    loop.exec();
    return condition();
}

} // namespace ostrand::spreadsheet::libreoffice
